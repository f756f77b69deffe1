#include "viewer/almacen_miniaturas.h"

#include "shared/medios.h"

#include <QMetaObject>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <list>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::chrono::seconds espera{1};
constexpr std::size_t lngMaximoEntradas = 20000; // failures have no pixels, but names

std::string fClave(const clsEncargo &encargo)
{
    return encargo.strRuta + '\0' + std::to_string(encargo.intLado);
}

} // namespace

/// What the threads share. They hold it, so that one that hangs can outlive the store.
class clsTallerMiniaturas : public std::enable_shared_from_this<clsTallerMiniaturas> {
public:
    clsTallerMiniaturas(clsFotograma fFotograma, std::function<void()> fAvisar)
        : m_fFotograma(std::move(fFotograma)), m_fAvisar(std::move(fAvisar))
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
    using clsCola = std::deque<clsTrabajoPtr>;
    struct clsGuardada {
        std::string strClave;
        clsHuella huella;
        clsMiniatura miniatura;
    };

    void fArrancar();
    void fTrabajar(clsCola &cola, Paso paso, void (clsTallerMiniaturas::*fPaso)(clsTrabajo &));
    void fBuscar(clsTrabajo &trabajo);
    void fGrabar(clsTrabajo &trabajo);
    [[nodiscard]] clsMiniatura fHacer(const clsTrabajo &trabajo, const clsHuella &huella) const;
    void fEntregar(clsTrabajo &trabajo, clsMiniatura miniatura);
    [[nodiscard]] std::optional<clsMiniatura> fGuardada(const std::string &strClave,
                                                        const clsHuella &huella);
    void fGuardar(const clsTrabajo &trabajo, const clsHuella &huella,
                  const clsMiniatura &miniatura);

    const clsFotograma m_fFotograma;
    std::function<void()> m_fAvisar;
    std::mutex m_cerrojo; ///< of everything below
    std::condition_variable m_novedad;
    bool m_bolCerrado = false;
    int m_intHilos = 0;
    std::unordered_map<std::string, clsTrabajoPtr> m_mapTrabajos; ///< what is wanted
    clsCola m_colaFotos;                                          ///< of Paso::EnCola
    clsCola m_colaVideos;                                         ///< of Paso::EnColaVideo
    std::list<clsGuardada> m_lstGuardadas;                        ///< last used first
    std::unordered_map<std::string, std::list<clsGuardada>::iterator> m_mapGuardadas;
    qint64 m_lngBytes = 0; ///< of the kept ones
};

void clsTallerMiniaturas::fEncargar(std::vector<clsEncargo> lstEncargos)
{
    const std::lock_guard guarda(m_cerrojo);
    std::unordered_map<std::string, clsTrabajoPtr> mapTrabajos;
    m_colaFotos.clear();
    m_colaVideos.clear();
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
        if (trabajo->paso == Paso::EnCola) {
            m_colaFotos.push_back(trabajo);
        } else if (trabajo->paso == Paso::EnColaVideo) {
            m_colaVideos.push_back(trabajo);
        }
        mapTrabajos.emplace(std::move(strClave), std::move(trabajo));
    }
    m_mapTrabajos.swap(mapTrabajos);
    for (const auto &[strClave, trabajo] : mapTrabajos) {
        const auto it = m_mapTrabajos.find(strClave);
        trabajo->bolAnulado = it == m_mapTrabajos.end() || it->second != trabajo;
    }
    fArrancar();
    m_novedad.notify_all();
}

std::optional<clsMiniatura> clsTallerMiniaturas::fTomar(const clsEncargo &encargo)
{
    const std::lock_guard guarda(m_cerrojo);
    const auto it = m_mapTrabajos.find(fClave(encargo));
    return it != m_mapTrabajos.end() ? it->second->resultado : std::nullopt;
}

void clsTallerMiniaturas::fCerrar()
{
    std::unique_lock guarda(m_cerrojo);
    m_bolCerrado = true;
    m_fAvisar = nullptr;
    m_colaFotos.clear();
    m_colaVideos.clear();
    for (const auto &[strClave, trabajo] : m_mapTrabajos) {
        trabajo->bolAnulado = true;
    }
    m_novedad.notify_all();
    m_novedad.wait_for(guarda, espera, [this] { return m_intHilos == 0; });
}

/// Starts the threads at the first order: photos on all cores, videos beside them.
void clsTallerMiniaturas::fArrancar()
{
    if (m_intHilos > 0) {
        return;
    }
    const int intNucleos = std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
    for (int intHilo = 0; intHilo < intNucleos; ++intHilo) {
        m_intHilos += 2;
        std::thread([yo = shared_from_this()] {
            yo->fTrabajar(yo->m_colaFotos, Paso::Buscando, &clsTallerMiniaturas::fBuscar);
        }).detach();
        std::thread([yo = shared_from_this()] {
            yo->fTrabajar(yo->m_colaVideos, Paso::Grabando, &clsTallerMiniaturas::fGrabar);
        }).detach();
    }
}

void clsTallerMiniaturas::fTrabajar(clsCola &cola, Paso paso,
                                    void (clsTallerMiniaturas::*fPaso)(clsTrabajo &))
{
    std::unique_lock guarda(m_cerrojo);
    while (true) {
        m_novedad.wait(guarda, [&] { return m_bolCerrado || !cola.empty(); });
        if (m_bolCerrado) {
            break;
        }
        const clsTrabajoPtr trabajo = cola.front();
        cola.pop_front();
        trabajo->paso = paso;
        guarda.unlock();
        (this->*fPaso)(*trabajo);
        guarda.lock();
        if (trabajo->paso == Paso::EnColaVideo && !trabajo->bolAnulado) {
            m_colaVideos.push_back(trabajo);
            m_novedad.notify_all();
        }
    }
    --m_intHilos;
    m_novedad.notify_all();
}

/// First what costs little: whether the file is there, and whether its thumbnail is kept.
void clsTallerMiniaturas::fBuscar(clsTrabajo &trabajo)
{
    int intError = 0;
    const auto huella = fHuella(trabajo.encargo.strRuta, &intError);
    if (!huella) {
        fEntregar(trabajo, {fSinAbrir(intError), {}});
        return;
    }
    auto miniatura = fGuardada(fClave(trabajo.encargo), *huella);
    if (!miniatura) {
        miniatura = fHacer(trabajo, *huella);
        fGuardar(trabajo, *huella, *miniatura);
    }
    trabajo.huella = *huella;
    fEntregar(trabajo, std::move(*miniatura));
}

/// A photo is made at once; a video, if it can be opened, has to wait for its turn.
clsMiniatura clsTallerMiniaturas::fHacer(const clsTrabajo &trabajo, const clsHuella &huella) const
{
    const std::string &strRuta = trabajo.encargo.strRuta;
    if (!fEsVideo(strRuta)) {
        return fExtraerFoto(strRuta, trabajo.encargo.intLado, trabajo.bolAnulado);
    }
    int intError = 0;
    if (!fAbrirRegular(strRuta, intError).fAbierto()) {
        return {fSinAbrir(intError), {}};
    }
    const bool bolHaceVideos = m_fFotograma && huella.lngBytes > 0;
    return {bolHaceVideos ? Extraccion::Pendiente : Extraccion::SinImagen, {}};
}

void clsTallerMiniaturas::fGrabar(clsTrabajo &trabajo)
{
    clsMiniatura miniatura;
    miniatura.imagen = m_fFotograma(trabajo.encargo.strRuta, trabajo.huella,
                                    trabajo.encargo.intLado, trabajo.bolAnulado);
    miniatura.extraccion = miniatura.imagen.isNull() ? Extraccion::SinImagen : Extraccion::Hecha;
    fGuardar(trabajo, trabajo.huella, miniatura);
    fEntregar(trabajo, std::move(miniatura));
}

void clsTallerMiniaturas::fEntregar(clsTrabajo &trabajo, clsMiniatura miniatura)
{
    const std::lock_guard guarda(m_cerrojo);
    trabajo.paso = miniatura.extraccion == Extraccion::Pendiente ? Paso::EnColaVideo : Paso::Hecho;
    trabajo.resultado = std::move(miniatura);
    if (m_fAvisar && !trabajo.bolAnulado) {
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
    : QObject(padre), m_taller(std::make_shared<clsTallerMiniaturas>(std::move(fFotograma), [this] {
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
      }))
{
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
