#include "viewer/almacen_miniaturas.h"

#include "shared/medios.h"

#include <QMetaObject>

#include <algorithm>
#include <iterator>
#include <list>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::size_t lngMaximoEntradas = 20000; // failures have no pixels, but names

int fNucleos() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

std::string fClave(const clsEncargo &encargo)
{
    return encargo.strRuta + '\0' + std::to_string(encargo.intLado);
}

} // namespace

/// What the pieces of work share. They hold it, so that one that hangs can outlive the store.
class clsTallerMiniaturas : public std::enable_shared_from_this<clsTallerMiniaturas> {
public:
    /// @param fotos, videos must live until fCerrar.
    clsTallerMiniaturas(clsFotograma fFotograma, std::function<void()> fAvisar, clsHilos &fotos,
                        clsHilos &videos)
        : m_fFotograma(std::move(fFotograma)), m_fAvisar(std::move(fAvisar)), m_fotos(&fotos),
          m_videos(&videos)
    {
    }
    void fEncargar(std::vector<clsEncargo> lstEncargos);
    [[nodiscard]] std::optional<clsMiniatura> fTomar(const clsEncargo &encargo);
    void fCerrar();

private:
    enum class Paso { EnCola, Buscando, EnColaVideo, Grabando, Hecho };
    struct clsTrabajo {
        clsEncargo encargo;
        std::atomic<bool> bolAnulado = false;
        Paso paso = Paso::EnCola;
        std::optional<clsMiniatura> resultado;
        clsHuella huella; ///< set once a video was reached
    };
    using clsTrabajoPtr = std::shared_ptr<clsTrabajo>;
    struct clsGuardada {
        std::string strClave;
        clsHuella huella;
        clsMiniatura miniatura;
    };

    void fEncolar(const clsTrabajoPtr &trabajo);
    [[nodiscard]] bool fTomarPieza(clsTrabajo &trabajo, Paso enCola, Paso enMarcha);
    void fBuscar(const clsTrabajoPtr &trabajo);
    void fGrabar(const clsTrabajoPtr &trabajo);
    [[nodiscard]] clsMiniatura fHacer(const clsTrabajo &trabajo, const clsHuella &huella) const;
    void fEntregar(const clsTrabajoPtr &trabajo, clsMiniatura miniatura);
    [[nodiscard]] std::optional<clsMiniatura> fGuardada(const std::string &strClave,
                                                        const clsHuella &huella);
    void fGuardar(const clsTrabajo &trabajo, const clsHuella &huella,
                  const clsMiniatura &miniatura);

    const clsFotograma m_fFotograma;
    std::mutex m_cerrojo; ///< of everything below
    std::function<void()> m_fAvisar;
    clsHilos *m_fotos; ///< nullptr once closed
    clsHilos *m_videos;
    std::unordered_map<std::string, clsTrabajoPtr> m_mapTrabajos; ///< what is wanted
    std::list<clsGuardada> m_lstGuardadas;                        ///< last used first
    std::unordered_map<std::string, std::list<clsGuardada>::iterator> m_mapGuardadas;
    qint64 m_lngBytes = 0; ///< of the kept ones
};

void clsTallerMiniaturas::fEncargar(std::vector<clsEncargo> lstEncargos)
{
    const std::lock_guard guarda(m_cerrojo);
    std::unordered_map<std::string, clsTrabajoPtr> mapTrabajos;
    m_fotos->fVaciar();
    m_videos->fVaciar();
    for (clsEncargo &encargo : lstEncargos) {
        std::string strClave = fClave(encargo);
        // What is under way goes on. What was made is looked at anew, for the file can have
        // changed; where it has not, that costs no more than the look.
        const auto it = m_mapTrabajos.find(strClave);
        clsTrabajoPtr trabajo = it != m_mapTrabajos.end() ? it->second : nullptr;
        if (!trabajo || trabajo->paso == Paso::Hecho) {
            trabajo = std::make_shared<clsTrabajo>();
            trabajo->encargo = std::move(encargo);
        }
        if (mapTrabajos.emplace(std::move(strClave), trabajo).second) {
            fEncolar(trabajo);
        }
    }
    m_mapTrabajos.swap(mapTrabajos);
    for (const auto &[strClave, trabajo] : mapTrabajos) {
        const auto it = m_mapTrabajos.find(strClave);
        trabajo->bolAnulado = it == m_mapTrabajos.end() || it->second != trabajo;
    }
}

/// Hands out the next step of an order, unless it is under way; under the lock.
void clsTallerMiniaturas::fEncolar(const clsTrabajoPtr &trabajo)
{
    if (m_fotos == nullptr) {
        return;
    }
    if (trabajo->paso == Paso::EnCola) {
        m_fotos->fPedir([yo = shared_from_this(), trabajo] { yo->fBuscar(trabajo); });
    } else if (trabajo->paso == Paso::EnColaVideo) {
        m_videos->fPedir([yo = shared_from_this(), trabajo] { yo->fGrabar(trabajo); });
    }
}

std::optional<clsMiniatura> clsTallerMiniaturas::fTomar(const clsEncargo &encargo)
{
    const std::lock_guard guarda(m_cerrojo);
    const auto it = m_mapTrabajos.find(fClave(encargo));
    return it != m_mapTrabajos.end() ? it->second->resultado : std::nullopt;
}

void clsTallerMiniaturas::fCerrar()
{
    const std::lock_guard guarda(m_cerrojo);
    m_fAvisar = nullptr;
    m_fotos = m_videos = nullptr;
    for (const auto &[strClave, trabajo] : m_mapTrabajos) {
        trabajo->bolAnulado = true;
    }
}

/// Whether a piece of work is still to be done; an order can have been handed out twice.
bool clsTallerMiniaturas::fTomarPieza(clsTrabajo &trabajo, Paso enCola, Paso enMarcha)
{
    const std::lock_guard guarda(m_cerrojo);
    if (trabajo.bolAnulado || trabajo.paso != enCola) {
        return false;
    }
    trabajo.paso = enMarcha;
    return true;
}

/// First what costs little: whether the file is there, and whether its thumbnail is kept.
void clsTallerMiniaturas::fBuscar(const clsTrabajoPtr &trabajo)
{
    if (!fTomarPieza(*trabajo, Paso::EnCola, Paso::Buscando)) {
        return;
    }
    const auto huella = fHuella(trabajo->encargo.strRuta);
    if (!huella) {
        fEntregar(trabajo, {fSinAbrir(huella.fError()), {}});
        return;
    }
    auto miniatura = fGuardada(fClave(trabajo->encargo), *huella);
    if (!miniatura) {
        miniatura = fHacer(*trabajo, *huella);
        fGuardar(*trabajo, *huella, *miniatura);
    }
    trabajo->huella = *huella;
    fEntregar(trabajo, std::move(*miniatura));
}

/// A photo is made at once; a video, if it can be opened, has to wait for its turn.
clsMiniatura clsTallerMiniaturas::fHacer(const clsTrabajo &trabajo, const clsHuella &huella) const
{
    const std::string &strRuta = trabajo.encargo.strRuta;
    if (!fEsVideo(strRuta)) {
        return fExtraerFoto(strRuta, trabajo.encargo.intLado, trabajo.bolAnulado);
    }
    if (const auto archivo = fAbrirRegular(strRuta); !archivo) {
        return {fSinAbrir(archivo.fError()), {}};
    }
    const bool bolHaceVideos = m_fFotograma && huella.lngBytes > 0;
    return {bolHaceVideos ? Extraccion::Pendiente : Extraccion::SinImagen, {}};
}

void clsTallerMiniaturas::fGrabar(const clsTrabajoPtr &trabajo)
{
    if (!fTomarPieza(*trabajo, Paso::EnColaVideo, Paso::Grabando)) {
        return;
    }
    clsMiniatura miniatura;
    miniatura.imagen = m_fFotograma(trabajo->encargo.strRuta, trabajo->huella,
                                    trabajo->encargo.intLado, trabajo->bolAnulado);
    if (!miniatura.imagen.isNull()) {
        miniatura.extraccion = Extraccion::Hecha;
        fGuardar(*trabajo, trabajo->huella, miniatura);
    } // else it may be that the disk was slow: the next visit tries again
    fEntregar(trabajo, std::move(miniatura));
}

void clsTallerMiniaturas::fEntregar(const clsTrabajoPtr &trabajo, clsMiniatura miniatura)
{
    const std::lock_guard guarda(m_cerrojo);
    const bool bolPendiente = miniatura.extraccion == Extraccion::Pendiente;
    trabajo->paso = bolPendiente ? Paso::EnColaVideo : Paso::Hecho;
    trabajo->resultado = std::move(miniatura);
    if (trabajo->bolAnulado) {
        return;
    }
    fEncolar(trabajo);
    if (m_fAvisar) {
        m_fAvisar();
    }
}

std::optional<clsMiniatura> clsTallerMiniaturas::fGuardada(const std::string &strClave,
                                                           const clsHuella &huella)
{
    const std::lock_guard guarda(m_cerrojo);
    const auto it = m_mapGuardadas.find(strClave);
    if (it == m_mapGuardadas.end() || it->second->huella != huella) {
        return {};
    }
    m_lstGuardadas.splice(m_lstGuardadas.begin(), m_lstGuardadas, it->second);
    return it->second->miniatura;
}

void clsTallerMiniaturas::fGuardar(const clsTrabajo &trabajo, const clsHuella &huella,
                                   const clsMiniatura &miniatura)
{
    const bool bolVale =
        miniatura.extraccion == Extraccion::Hecha || miniatura.extraccion == Extraccion::SinImagen;
    const std::lock_guard guarda(m_cerrojo);
    if (!bolVale || trabajo.bolAnulado) {
        return; // what the disk did not give today it may give tomorrow
    }
    const auto fQuitar = [this](std::list<clsGuardada>::iterator it) {
        m_lngBytes -= it->miniatura.imagen.sizeInBytes();
        m_mapGuardadas.erase(it->strClave);
        m_lstGuardadas.erase(it);
    };
    const std::string strClave = fClave(trabajo.encargo);
    if (const auto it = m_mapGuardadas.find(strClave); it != m_mapGuardadas.end()) {
        fQuitar(it->second);
    }
    m_lstGuardadas.push_front({strClave, huella, miniatura});
    m_mapGuardadas.emplace(strClave, m_lstGuardadas.begin());
    m_lngBytes += miniatura.imagen.sizeInBytes();
    while (m_lngBytes > clsAlmacenMiniaturas::lngMaximoGuardado ||
           m_lstGuardadas.size() > lngMaximoEntradas) {
        fQuitar(std::prev(m_lstGuardadas.end()));
    }
}

clsAlmacenMiniaturas::clsAlmacenMiniaturas(clsFotograma fFotograma, QObject *padre)
    : QObject(padre), m_fotos({.intHilos = fNucleos()}), m_videos({.intHilos = fNucleos()})
{
    m_taller = std::make_shared<clsTallerMiniaturas>(
        std::move(fFotograma),
        [this] {
            // One notice stands for all that comes until it is read.
            if (!m_bolAvisado.exchange(true)) {
                QMetaObject::invokeMethod(
                    this,
                    [this] {
                        m_bolAvisado = false;
                        emit fLlegada();
                    },
                    Qt::QueuedConnection);
            }
        },
        m_fotos, m_videos);
}

clsAlmacenMiniaturas::~clsAlmacenMiniaturas() { m_taller->fCerrar(); }

void clsAlmacenMiniaturas::fEncargar(std::vector<clsEncargo> lstEncargos)
{
    m_taller->fEncargar(std::move(lstEncargos));
}

std::optional<clsMiniatura> clsAlmacenMiniaturas::fTomar(const clsEncargo &encargo) const
{
    return m_taller->fTomar(encargo);
}
