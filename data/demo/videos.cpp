#include "videos.h"

#include "avi_escritor.h"
#include "fecha.h"
#include "fotos.h"
#include "mov_escritor.h"

#include <vector>

namespace demo {

QByteArray fVideo(const clsFilaVideo &fila)
{
    constexpr QSize tamCuadro(320, 240);
    constexpr int intPorSegundo = 10;
    std::vector<QByteArray> lstCuadros;
    for (int intI = 0; intI < fila.intCuadros; ++intI) {
        const double dblTiempo = static_cast<double>(intI) / fila.intCuadros;
        lstCuadros.push_back(fJpeg(fPintar(fila.fPintar, tamCuadro, fila.strRuta, dblTiempo), 85));
    }
    if (fila.contenedor == enmContenedor::Avi) {
        return fAvi(lstCuadros, tamCuadro, intPorSegundo);
    }
    return fMov(lstCuadros, tamCuadro, intPorSegundo, fInstante(fila.strFecha));
}

} // namespace demo
