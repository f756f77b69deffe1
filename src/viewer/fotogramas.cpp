#include "viewer/fotogramas.h"

#include "shared/rutas.h"
#include "shared/uri.h"
#include "sistema/entorno.h"
#include "viewer/extraccion.h"
#include "viewer/thumbnailer.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

using Fin = clsCuadroVideo::Fin;

/// How often a call that waits for its turn looks whether it is still wanted.
constexpr std::chrono::milliseconds pasoTurno(20);

/// The first of these programs that may be run; empty when none is there.
std::string fPrimero(const std::vector<std::string> &lstProgramas)
{
    const auto it =
        std::find_if(lstProgramas.begin(), lstProgramas.end(),
                     [](const std::string &strRuta) { return access(strRuta.c_str(), X_OK) == 0; });
    return it == lstProgramas.end() ? std::string() : *it;
}

/// An environment variable; another text when it is empty or not set.
std::string fEntorno(const char *strNombre, const std::string &strSiNo)
{
    const char *strValor = std::getenv(strNombre);
    return strValor == nullptr || *strValor == '\0' ? strSiNo : strValor;
}

/// Folders of data in which desktops register thumbnailers.
std::vector<std::string> fCarpetasThumbnailers()
{
    std::vector<std::string> lstCarpetas;
    std::string strTodas = fEntorno("XDG_DATA_HOME", fEntorno("HOME", "") + "/.local/share") + ':' +
                           fEntorno("XDG_DATA_DIRS", "/usr/local/share:/usr/share") + ':';
    for (std::size_t lng = 0; (lng = strTodas.find(':')) != std::string::npos;) {
        if (strTodas.starts_with('/')) {
            lstCarpetas.push_back(fBarraFinal(strTodas.substr(0, lng), false) + "thumbnailers/");
        }
        strTodas.erase(0, lng + 1);
    }
    return lstCarpetas;
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

/// A folder for one file of ours alone, with the name of that file; both go with the object.
class clsSalida {
public:
    clsSalida()
    {
        std::string strCarpeta = fBarraFinal(fEntorno("TMPDIR", "/tmp"), false) + "miravel.XXXXXX";
        if (mkdtemp(strCarpeta.data()) != nullptr) {
            m_strCarpeta = strCarpeta;
        }
    }
    ~clsSalida()
    {
        if (fHecha()) {
            unlink(fRuta().c_str());
            rmdir(m_strCarpeta.c_str());
        }
    }
    clsSalida(const clsSalida &) = delete;
    clsSalida &operator=(const clsSalida &) = delete;

    [[nodiscard]] bool fHecha() const { return !m_strCarpeta.empty(); }
    [[nodiscard]] std::string fRuta() const { return m_strCarpeta + "/miniatura.png"; }
    [[nodiscard]] QImage fLeer() const
    {
        int intError = 0;
        const clsDescriptor descriptor = fAbrirRegular(fRuta(), intError);
        QFile archivo;
        const bool bolAbierto =
            descriptor.fAbierto() && archivo.open(descriptor.fFd(), QIODevice::ReadOnly);
        return bolAbierto ? QImageReader(&archivo, "png").read() : QImage();
    }

private:
    std::string m_strCarpeta;
};

} // namespace

clsOrigenFotogramas fOrigenUsual()
{
    const std::string strCarpeta = fCarpetaPrograma();
    clsOrigenFotogramas origen;
    origen.lstHijos = {strCarpeta + "miravel-fotograma",
                       strCarpeta + "../libexec/miravel/miravel-fotograma"};
    origen.lstThumbnailers = fCarpetasThumbnailers();
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
    int intError = 0;
    const clsSalida salida;
    hecha.fin = Fin::NoArranca;
    // A pipe would keep the program waiting.
    if (!orden || !salida.fHecha() || !fAbrirRegular(strRuta, intError).fAbierto()) {
        return hecha;
    }
    const auto codigo =
        fEjecutar(fOrden(*orden, {fUriDeRuta(strRuta), strRuta, salida.fRuta(), intLado}),
                  m_origen.plazo, bolAnulado);
    hecha.fin = bolAnulado ? Fin::Anulado : Fin::Roto;
    if (codigo == 0 && !bolAnulado) {
        hecha.imagen = fEncajada(salida.fLeer(), intLado);
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
