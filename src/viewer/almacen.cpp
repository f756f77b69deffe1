#include "viewer/almacen.h"

#include <QMetaObject>

#include <algorithm>
#include <iterator>
#include <mutex>

namespace {

/// Whether a picture decoded for one request serves another of the same file.
bool fMisma(const clsPedido &uno, const clsPedido &otro)
{
    return uno.strRuta == otro.strRuta && uno.recuadro == otro.recuadro &&
           uno.intZoom == otro.intZoom;
}

} // namespace

/// Where the threads leave what they made; it may outlive the store.
struct clsAlmacenFotos::clsBuzon {
    std::mutex cerrojo;
    clsAlmacenFotos *almacen; ///< nullptr once it is gone
};

clsAlmacenFotos::clsAlmacenFotos(QObject *padre)
    : QObject(padre), m_buzon(std::make_shared<clsBuzon>())
{
    m_buzon->almacen = this;
}

clsAlmacenFotos::~clsAlmacenFotos()
{
    fAnularSalvo({});
    const std::lock_guard guarda(m_buzon->cerrojo);
    m_buzon->almacen = nullptr;
}

std::shared_ptr<const clsFuente> clsAlmacenFotos::fTomar(const clsPedido &pedido,
                                                         const clsHuella &huella)
{
    const auto it = std::find_if(
        m_lstGuardadas.begin(), m_lstGuardadas.end(), [&](const clsGuardada &guardada) {
            // One that came out null because of a smaller limit says nothing about a larger one.
            return fMisma(guardada.pedido, pedido) && guardada.huella == huella &&
                   (!guardada.fuente->imagen.isNull() ||
                    guardada.pedido.lngMaximo >= pedido.lngMaximo);
        });
    if (it == m_lstGuardadas.end()) {
        return nullptr;
    }
    m_lstGuardadas.splice(m_lstGuardadas.begin(), m_lstGuardadas, it);
    return it->fuente;
}

void clsAlmacenFotos::fPedir(const clsPedido &pedido, const clsHuella &huella)
{
    const bool bolEnMarcha =
        std::any_of(m_lstTrabajos.begin(), m_lstTrabajos.end(), [&](const clsTrabajo &trabajo) {
            return fMisma(trabajo.pedido, pedido) && trabajo.huella == huella &&
                   trabajo.pedido.lngMaximo >= pedido.lngMaximo && !*trabajo.bolAnulado;
        });
    if (bolEnMarcha || fTomar(pedido, huella)) {
        return;
    }
    const clsTrabajo trabajo{pedido, huella, std::make_shared<std::atomic<bool>>(false)};
    m_lstTrabajos.push_back(trabajo);
    m_hilos.fPedir([buzon = m_buzon, trabajo] {
        auto fuente = std::make_shared<clsFuente>();
        if (!*trabajo.bolAnulado) {
            *fuente = fDecodificar(trabajo.pedido, *trabajo.bolAnulado);
        }
        const std::lock_guard guarda(buzon->cerrojo);
        if (clsAlmacenFotos *const almacen = buzon->almacen) {
            QMetaObject::invokeMethod(
                almacen, [almacen, trabajo, fuente] { almacen->fRecibir(trabajo, fuente); },
                Qt::QueuedConnection);
        }
    });
}

void clsAlmacenFotos::fAnularSalvo(const std::vector<clsPedido> &lstPedidos)
{
    for (const clsTrabajo &trabajo : m_lstTrabajos) {
        const bool bolSirve =
            std::any_of(lstPedidos.begin(), lstPedidos.end(),
                        [&](const clsPedido &pedido) { return fMisma(pedido, trabajo.pedido); });
        *trabajo.bolAnulado = *trabajo.bolAnulado || !bolSirve;
    }
}

void clsAlmacenFotos::fRecibir(const clsTrabajo &trabajo, std::shared_ptr<const clsFuente> fuente)
{
    m_lstTrabajos.remove_if(
        [&](const clsTrabajo &otro) { return otro.bolAnulado == trabajo.bolAnulado; });
    if (!*trabajo.bolAnulado) {
        m_lstGuardadas.push_front({trabajo.pedido, trabajo.huella, std::move(fuente)});
        fRecortar();
    }
    emit fLlegada();
}

void clsAlmacenFotos::fRecortar()
{
    qint64 lngBytes = 0;
    for (auto it = m_lstGuardadas.begin(); it != m_lstGuardadas.end();) {
        // The newest one stays, somebody waits for it; and so does the one on screen.
        const bool bolEnUso = it == m_lstGuardadas.begin() || it->fuente.use_count() > 1;
        lngBytes += bolEnUso ? 0 : it->fuente->imagen.sizeInBytes();
        const bool bolSobra = !bolEnUso && lngBytes > lngMaximoGuardado;
        it = bolSobra ? m_lstGuardadas.erase(it) : std::next(it);
    }
}
