#include "viewer/fotogramas.h"

#include "shared/uri.h"
#include "sistema/carpeta.h"
#include "sistema/entorno.h"
#include "viewer/extraccion.h"
#include "viewer/thumbnailer.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

namespace {

using Fin = clsCuadroVideo::Fin;

/// How often a call that waits for its turn looks whether it is still wanted.
constexpr std::chrono::milliseconds pasoTurno(20);

/// The first of these programs that may be run; empty when none is there.
std::string fPrimero(const std::vector<std::string> &lstProgramas)
{
    const auto it = std::find_if(lstProgramas.begin(), lstProgramas.end(), fEjecutable);
    return it == lstProgramas.end() ? std::string() : *it;
}

QImage fDeCuadro(const clsCuadroVideo &cuadro)
{
    QImage imagen(cuadro.intAncho, cuadro.intAlto, QImage::Format_RGB32);
    for (int intY = 0; intY < imagen.height(); ++intY) {
        const auto lngAncho = static_cast<std::size_t>(cuadro.intAncho);
        std::memcpy(imagen.scanLine(intY),
                    cuadro.lstPuntos.data() + static_cast<std::size_t>(intY) * lngAncho,
                    lngAncho * sizeof(std::uint32_t));
    }
    return imagen;
}

/// The picture another program made; null when there is none.
QImage fLeerPng(const std::string &strRuta)
{
    const auto abierto = fAbrirRegular(strRuta);
    QFile archivo;
    const bool bolAbierto = abierto && archivo.open(abierto->descriptor.fFd(), QIODevice::ReadOnly);
    return bolAbierto ? QImageReader(&archivo, "png").read() : QImage();
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

/// A place among those who may have a child at work, until it goes.
class clsFotogramas::clsTurno {
public:
    clsTurno(clsFotogramas &duena, const std::atomic<bool> &bolAnulado)
        : m_duena(duena), m_puesto(duena.fTomarPuesto(bolAnulado))
    {
    }
    ~clsTurno()
    {
        if (m_puesto != nullptr) {
            m_duena.fDejarPuesto(*m_puesto);
        }
    }
    clsTurno(const clsTurno &) = delete;
    clsTurno &operator=(const clsTurno &) = delete;

    /// nullptr when the call was given up meanwhile.
    [[nodiscard]] clsHijoVideo *fHijo() const
    {
        return m_puesto == nullptr ? nullptr : &m_puesto->hijo;
    }

private:
    clsFotogramas &m_duena;
    clsPuesto *const m_puesto;
};

clsFotogramas::clsFotogramas(clsOrigenFotogramas origen)
    : m_origen(std::move(origen)), m_cache(m_origen.strCache),
      m_strHijo(fPrimero(m_origen.lstHijos))
{
    const unsigned lngCuantos = m_origen.intHijos > 0 ? static_cast<unsigned>(m_origen.intHijos)
                                                      : std::thread::hardware_concurrency();
    m_lstPuestos.resize(std::max(lngCuantos, 1U));
    for (auto &puesto : m_lstPuestos) {
        puesto.reset(new clsPuesto{clsHijoVideo(m_strHijo, m_origen.plazo), false});
    }
}

clsFotogramas::~clsFotogramas() = default;

QImage clsFotogramas::fFotograma(const std::string &strRuta, const clsHuella &huella, int intLado,
                                 const std::atomic<bool> &bolAnulado)
{
    QImage guardada = m_cache.fLeer(strRuta, huella, intLado);
    if (!guardada.isNull() || bolAnulado || m_cache.fFallido(strRuta, huella)) {
        return fEncajada(guardada, intLado);
    }
    const int intLadoCache = clsCacheEscritorio::fLadoCache(intLado);
    const clsHecha hecha = fHacer(strRuta, intLadoCache, bolAnulado);
    switch (hecha.fin) {
    case Fin::Imagen:
        m_cache.fGuardar(strRuta, huella, intLadoCache, hecha.imagen);
        break;
    case Fin::SinImagen:
    case Fin::Roto:
        // A full memory may be to blame for the second.
        m_cache.fApuntarFallo(strRuta, huella, hecha.fin != Fin::SinImagen);
        break;
    case Fin::Tarde: // a disk that wakes up
    case Fin::NoSeLee:
    case Fin::NoArranca:
    case Fin::Anulado:
        break;
    }
    return fEncajada(hecha.imagen, intLado);
}

clsFotogramas::clsHecha clsFotogramas::fHacer(const std::string &strRuta, int intLado,
                                              const std::atomic<bool> &bolAnulado)
{
    const clsTurno turno(*this, bolAnulado);
    clsHecha hecha;
    if (turno.fHijo() == nullptr) {
        hecha.fin = Fin::Anulado;
        return hecha;
    }
    hecha.fin = Fin::NoArranca;
    if (!m_strHijo.empty()) {
        const clsCuadroVideo cuadro = turno.fHijo()->fPedir(strRuta, intLado, bolAnulado);
        hecha.fin = cuadro.fin;
        if (cuadro.fin == Fin::Imagen) {
            hecha.imagen = fDeCuadro(cuadro);
        }
    }
    return hecha.fin == Fin::NoArranca ? fHacerFuera(strRuta, intLado, bolAnulado) : hecha;
}

clsFotogramas::clsHecha clsFotogramas::fHacerFuera(const std::string &strRuta, int intLado,
                                                   const std::atomic<bool> &bolAnulado) const
{
    clsHecha hecha;
    const auto orden = fBuscarThumbnailer(m_origen.lstThumbnailers, strRuta);
    const clsCarpetaPasajera salida(fRutaTemporal() + "miravel.", "miniatura.png");
    hecha.fin = Fin::NoArranca;
    // A pipe would keep the program waiting.
    if (!orden || salida.fRuta().empty() || !fAbrirRegular(strRuta)) {
        return hecha;
    }
    const auto codigo =
        fEjecutar(fOrden(*orden, {fUriDeRuta(strRuta), strRuta, salida.fRuta(), intLado}),
                  m_origen.plazo, bolAnulado);
    hecha.fin = bolAnulado ? Fin::Anulado : Fin::Roto;
    if (codigo == 0 && !bolAnulado) {
        hecha.imagen = fEncajada(fLeerPng(salida.fRuta()), intLado);
        hecha.fin = hecha.imagen.isNull() ? Fin::Roto : Fin::Imagen;
    }
    return hecha;
}

clsFotogramas::clsPuesto *clsFotogramas::fTomarPuesto(const std::atomic<bool> &bolAnulado)
{
    std::unique_lock guardia(m_cerrojo);
    while (!bolAnulado) {
        // Rather one that owes nothing; among these rather the first, whose child runs already.
        const auto fMejor = [](const auto &uno, const auto &otro) {
            const auto fPeso = [](const clsPuesto &puesto) {
                return puesto.bolOcupado ? 2 : puesto.hijo.fDebe() ? 1 : 0;
            };
            return fPeso(*uno) < fPeso(*otro);
        };
        clsPuesto &puesto = **std::min_element(m_lstPuestos.begin(), m_lstPuestos.end(), fMejor);
        if (!puesto.bolOcupado) {
            puesto.bolOcupado = true;
            return &puesto;
        }
        m_libre.wait_for(guardia, pasoTurno);
    }
    return nullptr;
}

void clsFotogramas::fDejarPuesto(clsPuesto &puesto)
{
    {
        const std::lock_guard guardia(m_cerrojo);
        puesto.bolOcupado = false;
    }
    m_libre.notify_one();
}
