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

using Fin = clsCuadroVideo::Fin;

/// How often a call that waits for its turn looks whether it is still wanted.
constexpr std::chrono::milliseconds pasoTurno(20);

QImage fDeCuadro(const clsCuadroVideo &cuadro)
{
    return QImage(reinterpret_cast<const uchar *>(cuadro.lstPuntos.data()), cuadro.intAncho,
                  cuadro.intAlto, QImage::Format_RGB32)
        .copy();
}

} // namespace

clsOrigenFotogramas fOrigenUsual()
{
    const std::string strCarpeta = fCarpetaPrograma();
    clsOrigenFotogramas origen;
    origen.lstHijos = {strCarpeta + "miravel-fotograma",
                       strCarpeta + "../libexec/miravel/miravel-fotograma"};
    for (const std::string &strDatos : fCarpetasDatos()) {
        origen.lstThumbnailers.push_back(strDatos + "thumbnailers/");
    }
    origen.strCache = clsCacheEscritorio::fCarpetaUsual();
    return origen;
}

std::string fProgramaHijo(const clsOrigenFotogramas &origen)
{
    const auto it = std::find_if(origen.lstHijos.begin(), origen.lstHijos.end(), fEjecutable);
    return it == origen.lstHijos.end() ? std::string() : *it;
}

clsFotogramas::clsFotogramas(clsOrigenFotogramas origen)
    : m_origen(std::move(origen)), m_cache(m_origen.strCache), m_strHijo(fProgramaHijo(m_origen))
{
    const unsigned lngCuantos = m_origen.intHijos > 0 ? static_cast<unsigned>(m_origen.intHijos)
                                                      : std::thread::hardware_concurrency();
    m_lstPuestos.resize(std::max(lngCuantos, 1U));
    for (auto &puesto : m_lstPuestos) {
        puesto.reset(new clsPuesto{clsHijoVideo(m_strHijo, m_origen.plazo), false});
    }
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
    const clsTurno turno = fTomarPuesto(bolAnulado);
    if (turno == nullptr) {
        return {{}, Fin::Anulado};
    }
    if (!m_strHijo.empty()) {
        const clsCuadroVideo cuadro = turno->hijo.fPedir(*video, intLado, bolAnulado);
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

clsFotogramas::clsTurno clsFotogramas::fTomarPuesto(const std::atomic<bool> &bolAnulado)
{
    std::unique_lock guardia(m_cerrojo);
    while (!bolAnulado) {
        // Rather one that owes nothing; among these rather the first, whose child runs already.
        const auto fPeso = [](const auto &puesto) {
            return puesto->bolOcupado ? 2 : puesto->hijo.fDebe() ? 1 : 0;
        };
        clsPuesto &puesto = **std::ranges::min_element(m_lstPuestos, {}, fPeso);
        if (!puesto.bolOcupado) {
            puesto.bolOcupado = true;
            return {&puesto, [this](clsPuesto *suyo) {
                        {
                            const std::lock_guard cierre(m_cerrojo);
                            suyo->bolOcupado = false;
                        }
                        m_libre.notify_one();
                    }};
        }
        m_libre.wait_for(guardia, pasoTurno);
    }
    return {};
}
