#include "viewer/almacen.h"

#include <QMetaObject>

#include <algorithm>
#include <iterator>

namespace {

/// Whether a picture decoded for one request serves another of the same file.
bool fMisma(const clsPedido &uno, const clsPedido &otro)
{
    return uno.strRuta == otro.strRuta && uno.recuadro == otro.recuadro &&
           uno.intZoom == otro.intZoom;
}

} // namespace

clsAlmacenFotos::clsAlmacenFotos(QObject *padre) : QObject(padre)
{
    // The visible picture and one neighbour at a time.
    m_hilos.setMaxThreadCount(2);
}

clsAlmacenFotos::~clsAlmacenFotos()
{
    fAnularSalvo({});
    m_hilos.waitForDone();
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
    m_hilos.start([this, trabajo] {
        auto fuente = std::make_shared<clsFuente>();
        if (!*trabajo.bolAnulado) {
            *fuente = fDecodificar(trabajo.pedido, *trabajo.bolAnulado);
        }
        QMetaObject::invokeMethod(
            this, [this, trabajo, fuente] { fRecibir(trabajo, fuente); }, Qt::QueuedConnection);
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
