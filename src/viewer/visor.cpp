#include "viewer/visor.h"

#include "shared/medios.h"
#include "shared/qhilos.h"
#include "viewer/imgFoto.h"

#include <QFrame>
#include <QLabel>
#include <QMouseEvent>

#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace {

/// A picture that takes longer, in milliseconds, is waited for by nobody: a disk that does not
/// answer must not hold up those who want to go on.
constexpr qint64 lngPaciencia = 2000;
/// And so long for a look at its size and time. Neighbours' are waited for not at all.
constexpr std::chrono::milliseconds lngMirada{200};

QRect fPixeles(const clsRect &rect)
{
    return {rect.lngIzq / intTwipsPixel, rect.lngArriba / intTwipsPixel,
            rect.lngAncho / intTwipsPixel, rect.lngAlto / intTwipsPixel};
}

/// A neutral dark ground, the same on light and dark desktops: colours of photos read best on it.
void fFondoNeutro(QWidget &control)
{
    QPalette paleta = control.palette();
    paleta.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
    control.setPalette(paleta);
    control.setAutoFillBackground(true);
}

} // namespace

clsVisor::clsVisor(QWidget *cliente)
    : QObject(cliente), m_lblFondo(new QLabel(cliente)), m_frmRecuadro(new QFrame(cliente)),
      m_imgFoto(new imgFoto(m_frmRecuadro)), m_miradas({.intHilos = 4, .fAvisar = fAvisarA(this)})
{
    m_lblFondo->setObjectName(QStringLiteral("lblFondo"));
    m_lblFondo->setAccessibleName(QStringLiteral("Panel de visualización"));
    m_frmRecuadro->setObjectName(QStringLiteral("frmRecuadro"));
    m_frmRecuadro->setAccessibleName(QStringLiteral("Marco de la fotografía"));
    for (QWidget *const control :
         {static_cast<QWidget *>(m_lblFondo), static_cast<QWidget *>(m_frmRecuadro)}) {
        fFondoNeutro(*control);
        control->installEventFilter(this);
    }
    connect(m_imgFoto, &imgFoto::fMenuPedido, this, &clsVisor::fMenuPedido);
    connect(&m_almacen, &clsAlmacenFotos::fLlegada, this, &clsVisor::fAfinar);
}

void clsVisor::fDisponer(const clsDisposicion &sitio, bool bolRecuadro)
{
    m_imgFoto->hide();
    m_lblFondo->setGeometry(fPixeles(sitio.fondo));
    m_frmRecuadro->setGeometry(fPixeles(sitio.recuadro));
    m_frmRecuadro->raise();
    m_frmRecuadro->setVisible(bolRecuadro);
    m_imgFoto->setGeometry(m_frmRecuadro->rect());
}

void clsVisor::fVaciar()
{
    m_imgPuente.reset();
    m_bolPendiente = false;
    m_miradas.fAnular();
    m_strRuta.clear();
    m_imgFoto->fPoner(nullptr);
}

void clsVisor::fDescribir(const QString &strArchivo)
{
    m_strDescrito = strArchivo;
    const QString strNombre = (m_imgPuente == m_imgNoImagen ? QStringLiteral("Sin imagen: ")
                                                            : QStringLiteral("Fotografía: ")) +
                              strArchivo;
    if (strNombre != m_imgFoto->accessibleName()) { // a change is told to screen readers
        m_imgFoto->setAccessibleName(strNombre);
    }
}

void clsVisor::fAltura(int intPixeles) { m_lblFondo->resize(m_lblFondo->width(), intPixeles); }

clsPedido clsVisor::fPedido(const std::string &strRuta, qint64 lngMaximo) const
{
    // Only fit depends on the frame, and beyond 100 % there are no more pixels to decode.
    const QSize recuadro =
        m_intZoom == 0 ? m_frmRecuadro->size() * m_frmRecuadro->devicePixelRatioF() : QSize();
    return {strRuta, recuadro, std::min(m_intZoom, 100), lngMaximo};
}

/// What to decode first of a large photo that is not fitted: enough pixels to recognise it.
std::optional<clsPedido> clsVisor::fPrevia(const std::string &strRuta,
                                           const clsHuella &huella) const
{
    constexpr qint64 lngGrande = qint64{2} << 20; // bytes of the file
    constexpr QSize recuadro(1280, 1280);
    if (m_intZoom == 0 || huella.lngBytes < lngGrande) {
        return {};
    }
    return clsPedido{strRuta, recuadro, 0, lngMaximoFoto};
}

void clsVisor::fPedirCon(const std::optional<clsPedido> &previa, const clsPedido &pedido,
                         const clsHuella &huella)
{
    if (previa) {
        m_almacen.fPedir(*previa, huella);
    }
    m_almacen.fPedir(pedido, huella);
}

std::shared_ptr<const clsFuente> clsVisor::fCargar(const std::string &strRuta,
                                                   const clsEntorno &entorno)
{
    const auto mirada = std::make_shared<std::optional<clsHuella>>();
    const auto orden = m_miradas.fPedir([strRuta] { return fHuella(strRuta); },
                                        [=, this](const std::optional<clsHuella> &huella) {
                                            *mirada = huella;
                                            if (m_bolPendiente) {
                                                fTomarMirada(strRuta, huella, entorno);
                                            }
                                        });
    if (!m_miradas.fEsperar(orden, lngMirada)) {
        m_strRuta.clear();
        return nullptr;
    }
    const auto huella = *mirada;
    if (!huella) {
        entorno.fFalta();
        return m_imgNoImagen;
    }
    if (fEsVideo(strRuta)) {
        return m_imgNoImagen;
    }
    m_strRuta = strRuta;
    m_huella = *huella;
    auto fuente = m_almacen.fTomar(fPedido(strRuta, lngMaximoFoto), *huella);
    if (!fuente) {
        // Painted before the load: the user sees that something is under way.
        m_imgFoto->hide();
        entorno.fCeder(0);
    }
    QElapsedTimer espera;
    espera.start();
    while (!fuente && entorno.fVigente() && !espera.hasExpired(lngPaciencia)) {
        // Looked for and requested at every turn: while events run, the picture can have come, its
        // request can have been given up, and zoom and frame can have changed.
        const clsPedido pedido = fPedido(strRuta, lngMaximoFoto);
        const auto previa = fPrevia(strRuta, *huella);
        fuente = m_almacen.fTomar(pedido, *huella);
        if (!fuente && previa) {
            // Fewer pixels in the right place now; fAfinar brings the others.
            fuente = m_almacen.fTomar(*previa, *huella);
        }
        if (!fuente) {
            m_almacen.fAnularSalvo({pedido, previa.value_or(pedido)});
            fPedirCon(previa, pedido, *huella);
            entorno.fCeder(static_cast<int>(lngPaciencia));
        }
    }
    return fuente && fuente->imagen.isNull() ? m_imgNoImagen : fuente;
}

/// Goes on with the file that is to be shown, when the disk has told of it too late for fCargar.
void clsVisor::fTomarMirada(const std::string &strRuta, const std::optional<clsHuella> &huella,
                            const clsEntorno &entorno)
{
    if (!entorno.fVigente()) {
        return; // another drawing follows
    }
    if (huella && !fEsVideo(strRuta)) {
        m_strRuta = strRuta;
        m_huella = *huella;
        fPedirCon(fPrevia(strRuta, *huella), fPedido(strRuta, lngMaximoFoto), *huella);
        fTomarPendiente();
        return;
    }
    if (!huella) {
        entorno.fFalta();
    }
    if (entorno.fVigente()) {
        fPonerTarde(m_imgNoImagen);
    }
}

bool clsVisor::fMostrar(const std::string &strRuta, const clsEntorno &entorno)
{
    m_miradas.fAnular();
    m_bolPendiente = false;
    if (!m_imgNoImagen) {
        m_imgNoImagen = std::make_shared<const clsFuente>(fNoImagen());
    }
    entorno.fProcesando();
    auto fuente = fCargar(strRuta, entorno);
    if (!entorno.fVigente()) {
        return false;
    }
    m_bolPendiente = fuente == nullptr;
    if (!m_bolPendiente) {
        fPoner(std::move(fuente));
    }
    return true;
}

void clsVisor::fPoner(std::shared_ptr<const clsFuente> fuente)
{
    m_imgPuente = std::move(fuente);
    m_imgFoto->fPoner(m_imgPuente);
    m_imgFoto->fColocar(m_intZoom);
    m_imgFoto->show();
    fCompletar(); // the zoom may have changed while the picture was decoded
}

void clsVisor::fAnticipar(const std::string &strRuta)
{
    if (strRuta.empty() || fEsVideo(strRuta)) {
        return;
    }
    const auto orden = m_miradas.fPedir([strRuta] { return fHuella(strRuta); },
                                        [this, strRuta](const std::optional<clsHuella> &huella) {
                                            if (huella) {
                                                fPedirCon(fPrevia(strRuta, *huella),
                                                          fPedido(strRuta, lngMaximoFoto), *huella);
                                            }
                                        });
    static_cast<void>(m_miradas.fEsperar(orden, lngMirada));
}

void clsVisor::fAdelantar(const std::vector<std::string> &lstRutas)
{
    m_lstVecinas.clear();
    std::copy_if(lstRutas.begin(), lstRutas.end(), std::back_inserter(m_lstVecinas),
                 [](const std::string &strRuta) { return !fEsVideo(strRuta); });
    fPedirVecinas();
}

/// Requests what the neighbours lack for the present zoom and frame; the shown picture comes first.
void clsVisor::fPedirVecinas()
{
    std::vector<clsPedido> lstPedidos{fPedido(m_strRuta, lngMaximoFoto)};
    for (const std::string &strRuta : m_lstVecinas) {
        lstPedidos.push_back(fPedido(strRuta, clsAlmacenFotos::lngMaximoVecina));
        lstPedidos.back().bolVecina = true;
    }
    m_almacen.fAnularSalvo(lstPedidos);
    for (const clsHilos::clsOrden &orden : std::exchange(m_lstMiradas, {})) {
        m_miradas.fAnular(orden);
    }
    for (std::size_t lngVecina = 0; lngVecina < m_lstVecinas.size(); ++lngVecina) {
        m_lstMiradas.push_back(m_miradas.fPedir(
            [strRuta = m_lstVecinas[lngVecina]] { return fHuella(strRuta); },
            [this, pedido = lstPedidos[lngVecina + 1]](const std::optional<clsHuella> &huella) {
                if (huella) {
                    m_almacen.fPedir(pedido, *huella);
                }
            }));
    }
}

void clsVisor::fFijarZoom(int intZoom)
{
    m_intZoom = intZoom;
    if (m_bolPendiente && !m_strRuta.empty()) {
        m_almacen.fPedir(fPedido(m_strRuta, lngMaximoFoto), m_huella);
    }
    if (m_imgPuente == nullptr) {
        return;
    }
    m_imgFoto->fColocar(intZoom);
    fCompletar();
    fPedirVecinas();
}

/// The picture is placed at once with the pixels there are; requests those that are missing.
void clsVisor::fCompletar()
{
    if (m_imgPuente != m_imgNoImagen) {
        m_almacen.fPedir(fPedido(m_strRuta, lngMaximoFoto), m_huella);
        fAfinar();
    }
}

/// Takes over more pixels of the picture that is shown, when they have come.
void clsVisor::fAfinar()
{
    if (m_bolPendiente) {
        fTomarPendiente();
        return;
    }
    if (m_imgPuente == nullptr || m_imgPuente == m_imgNoImagen) {
        return;
    }
    const auto fuente = m_almacen.fTomar(fPedido(m_strRuta, lngMaximoFoto), m_huella);
    if (fuente && fuente != m_imgPuente && !fuente->imagen.isNull()) {
        m_imgPuente = fuente;
        m_imgFoto->fPoner(fuente);
    }
}

/// Shows the picture that the disk did not give in time, if it has come.
void clsVisor::fTomarPendiente()
{
    auto fuente =
        m_strRuta.empty() ? nullptr : m_almacen.fTomar(fPedido(m_strRuta, lngMaximoFoto), m_huella);
    if (fuente) {
        fPonerTarde(fuente->imagen.isNull() ? m_imgNoImagen : std::move(fuente));
    }
}

void clsVisor::fPonerTarde(std::shared_ptr<const clsFuente> fuente)
{
    m_bolPendiente = false;
    fPoner(std::move(fuente));
    fDescribir(m_strDescrito); // it may be none
}

bool clsVisor::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::MouseButtonPress) {
        const auto *const raton = static_cast<QMouseEvent *>(evento);
        if (raton->button() == Qt::RightButton) {
            emit fMenuPedido(raton->globalPosition().toPoint());
            return true;
        }
    }
    return QObject::eventFilter(objeto, evento);
}
