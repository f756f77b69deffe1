#include "viewer/hijo/fechas.h"

#include "dates/fecha_video.h"
#include "viewer/hijo/pelicula.h"

namespace hijo {

std::string fTomarFechas(const clsAbierto &video, const std::function<bool()> &fAnulado)
{
    constexpr std::int64_t lngMaximo = std::int64_t{16} << 20;
    constexpr clsEmpeno empeno{false, false, true, lngMaximo};
    clsEntrada entrada(video, fAnulado);
    clsPelicula pelicula(entrada, empeno, 1);
    std::string strDatos;
    for (const std::string_view strClave : lstClavesVideo) {
        const std::string strValor = pelicula.fDato(std::string(strClave));
        strDatos += strValor.empty() ? "" : std::string(strClave) + '=' + strValor + '\n';
    }
    return strDatos;
}

} // namespace hijo
