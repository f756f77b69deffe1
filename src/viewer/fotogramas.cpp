#include "viewer/fotogramas.h"

#include "shared/uri.h"
#include "sistema/carpeta.h"
#include "sistema/entorno.h"
#include "viewer/extraccion.h"
#include "viewer/thumbnailer.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

using Fin = clsCuadroHijo::Fin;

unsigned fCuantos(int intHijos)
{
    return intHijos > 0 ? static_cast<unsigned>(intHijos) : std::thread::hardware_concurrency();
}

QImage fDeCuadro(const clsCuadroHijo &cuadro)
{
    return QImage(reinterpret_cast<const uchar *>(cuadro.lstPuntos.data()), cuadro.intAncho,
                  cuadro.intAlto, QImage::Format_RGB32)
        .copy();
}

} // namespace

clsOrigenFotogramas fOrigenUsual()
{
    clsOrigenFotogramas origen;
    origen.lstHijos = fSitiosHijo("miravel-fotograma");
    for (const std::string &strDatos : fCarpetasDatos()) {
        origen.lstThumbnailers.push_back(strDatos + "thumbnailers/");
    }
    origen.strCache = clsCacheEscritorio::fCarpetaUsual();
    return origen;
}

clsFotogramas::clsFotogramas(clsOrigenFotogramas origen)
    : m_origen(std::move(origen)), m_cache(m_origen.strCache),
      m_strHijo(fProgramaHijo(m_origen.lstHijos)),
      m_hijos(m_strHijo, m_origen.plazo, fCuantos(m_origen.intHijos))
{
}

QImage clsFotogramas::fFotograma(const std::string &strRuta, const clsHuella &huella, int intLado,
                                 const std::atomic<bool> &bolAnulado)
{
    QImage guardada = m_cache.fLeer(strRuta, huella, intLado);
    if (!guardada.isNull() || bolAnulado || m_cache.fFallido(strRuta, huella)) {
        return fEncajada(guardada, intLado);
    }
    const int intLadoCache = clsCacheEscritorio::fLadoCache(intLado);
    const clsHecha hecha = fHacer(strRuta, intLadoCache, bolAnulado);
    if (hecha.fin == Fin::Imagen) {
        m_cache.fGuardar(strRuta, huella, intLadoCache, hecha.imagen);
    } else if (hecha.fin == Fin::SinImagen || hecha.fin == Fin::Roto) {
        // A full memory may be to blame for the second. The other ends say nothing about the file:
        // a disk that wakes up.
        m_cache.fApuntarFallo(strRuta, huella, hecha.fin == Fin::Roto);
    }
    return fEncajada(hecha.imagen, intLado);
}

clsFotogramas::clsHecha clsFotogramas::fHacer(const std::string &strRuta, int intLado,
                                              const std::atomic<bool> &bolAnulado)
{
    // Before it takes a place: a disk that does not answer holds up this call only. A pipe, which
    // would keep a program waiting, is refused.
    const auto video = fAbrirRegular(strRuta);
    if (!video) {
        return {{}, Fin::NoSeLee};
    }
    const clsHijos::clsTurno turno = m_hijos.fTomar(bolAnulado);
    if (turno == nullptr) {
        return {{}, Fin::Anulado};
    }
    if (!m_strHijo.empty()) {
        const clsCuadroHijo cuadro = turno->fPedir(*video, intLado, bolAnulado);
        if (cuadro.fin != Fin::NoArranca) {
            return {cuadro.fin == Fin::Imagen ? fDeCuadro(cuadro) : QImage(), cuadro.fin};
        }
    }
    return fHacerFuera(strRuta, intLado, bolAnulado);
}

clsFotogramas::clsHecha clsFotogramas::fHacerFuera(const std::string &strRuta, int intLado,
                                                   const std::atomic<bool> &bolAnulado) const
{
    const auto orden = fBuscarThumbnailer(m_origen.lstThumbnailers, strRuta);
    const clsCarpetaPasajera salida(fRutaTemporal() + "miravel.", "miniatura.png");
    if (!orden || salida.fRuta().empty()) {
        return {{}, Fin::NoArranca};
    }
    const std::map<char, std::string> codigos{
        {'u', fUriDeRuta(strRuta)    },
        {'i', strRuta                },
        {'o', salida.fRuta()         },
        {'s', std::to_string(intLado)}
    };
    const auto codigo = fEjecutar(fOrden(*orden, codigos), m_origen.plazo, bolAnulado);
    if (bolAnulado) {
        return {{}, Fin::Anulado};
    }
    QImage imagen = codigo == 0 ? fEncajada(fLeerPng(salida.fRuta()), intLado) : QImage();
    const Fin fin = imagen.isNull() ? Fin::Roto : Fin::Imagen;
    return {std::move(imagen), fin};
}
