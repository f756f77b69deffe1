#include "viewer/frmPresentacion.h"

#include "shared/medios.h"
#include "shared/qhilos.h"
#include "shared/qtexto.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"
#include "viewer/imgFoto.h"

#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPropertyAnimation>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

/// Bytes of pixels that are kept: some pictures of a screen of 4K.
constexpr qint64 lngMaximoPase = qint64{192} << 20;
/// Side of the frame of a video: as large as the desktop's cache keeps them.
constexpr int intLadoVideo = 1024;
/// How long the line takes to go, in milliseconds; most of that it stays as it is.
constexpr int intDesvanecer = 4000;

} // namespace

frmPresentacion::frmPresentacion(QWidget *padre, clsEntornoPresentacion entorno,
                                 std::size_t lngLugar, int intSegundos)
    : QDialog(padre, Qt::Window), m_entorno(std::move(entorno)),
      m_pase(m_entorno.lngFotos, lngLugar, intSegundos, m_entorno.fAhora()),
      m_imgNoImagen(std::make_shared<const clsFuente>(fNoImagen())), m_imgFoto(new imgFoto(this)),
      m_lblPie(new QLabel(this)),
      m_almacen({.lngBytes = lngMaximoPase,
                 .lngEntradas = 64,
                 .intHilos = 2,
                 .fAvisar = fAvisarA(this),
                 .fLlegada = [this](const std::string & /*strClave*/) { fMirar(); }})
{
    setObjectName(QStringLiteral("frmPresentacion"));
    setWindowTitle(QStringLiteral("Presentación"));
    if (padre != nullptr) {
        setGeometry(padre->screen()->geometry());
    }
    setWindowState(Qt::WindowFullScreen); // a geometry would undo it
    QPalette paleta = palette();
    paleta.setColor(QPalette::Window, Qt::black);
    setPalette(paleta);
    setCursor(Qt::BlankCursor);
    m_imgFoto->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_lblPie->setObjectName(QStringLiteral("lblPie"));
    m_lblPie->setTextFormat(Qt::PlainText);
    m_lblPie->setAlignment(Qt::AlignCenter);
    m_lblPie->setMargin(fontMetrics().height() / 2);
    m_lblPie->setStyleSheet(
        QStringLiteral("background: rgba(0, 0, 0, 176); color: rgb(240, 240, 240);"));
    m_lblPie->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *const velo = new QGraphicsOpacityEffect(m_lblPie);
    m_lblPie->setGraphicsEffect(velo);
    m_desvanecer = new QPropertyAnimation(velo, "opacity", this);
    m_desvanecer->setDuration(intDesvanecer);
    m_desvanecer->setStartValue(1.0);
    m_desvanecer->setKeyValueAt(0.75, 1.0);
    m_desvanecer->setEndValue(0.0);
    m_reloj.setSingleShot(true);
    connect(&m_reloj, &QTimer::timeout, this, &frmPresentacion::fMirar);
    m_entorno.fVelar(true);
}

frmPresentacion::~frmPresentacion() { m_entorno.fVelar(false); }

/// What a picture is kept under: its place, and the frame it was decoded for.
std::string frmPresentacion::fClaveDe(std::size_t lngLugar) const
{
    return std::to_string(lngLugar) + ' ' + std::to_string(width()) + ' ' +
           std::to_string(height());
}

/// The frame for a file, in device pixels, as its picture lies in it.
QSize frmPresentacion::fRecuadroDe(const std::string &strRuta) const
{
    const QSize recuadro = size() * devicePixelRatioF();
    return m_entorno.giros.fCuartos(strRuta) % 2 == 0 ? recuadro : recuadro.transposed();
}

clsAlmacen<clsDiapositiva>::clsPieza frmPresentacion::fPieza(std::size_t lngLugar) const
{
    clsPedido pedido{m_entorno.fRuta(lngLugar), {}, 0, lngMaximoFoto};
    pedido.recuadro = fRecuadroDe(pedido.strRuta);
    return [pedido, fFotograma = m_entorno.fFotograma](const clsAnulado &anulado) {
        clsAlmacen<clsDiapositiva>::clsHecho hecho;
        const auto huella = fHuella(pedido.strRuta);
        if (!huella) {
            return hecho;
        }
        clsFuente fuente;
        if (!fEsVideo(pedido.strRuta)) {
            fuente = fDecodificar(pedido, anulado);
        } else if (fFotograma) {
            fuente.imagen = fFotograma(pedido.strRuta, *huella, intLadoVideo, anulado);
            fuente.natural = fuente.imagen.size();
        }
        hecho.valor.fuente = fCompartida(std::move(fuente));
        return hecho;
    };
}

/// Orders the pictures that are wanted, the next one first.
void frmPresentacion::fEncargar()
{
    std::vector<clsAlmacen<clsDiapositiva>::clsEncargo> lstEncargos;
    for (const std::size_t lngLugar : m_pase.fDeseadas()) {
        std::string strClave = fClaveDe(lngLugar);
        const bool bolHay = m_almacen.fGuardado(strClave) != nullptr;
        lstEncargos.push_back({std::move(strClave), bolHay ? nullptr : fPieza(lngLugar)});
    }
    m_almacen.fEncargar(std::move(lstEncargos));
}

void frmPresentacion::fMirar()
{
    const clsPase::Momento ahora = m_entorno.fAhora();
    const auto fEstado = [this](std::size_t lngLugar) {
        const clsDiapositiva *const foto = m_almacen.fGuardado(fClaveDe(lngLugar));
        return foto == nullptr ? EstadoFoto::Pendiente
                               : (foto->fuente ? EstadoFoto::Lista : EstadoFoto::Falta);
    };
    const bool bolOtra = m_pase.fSeguir(ahora, fEstado).has_value();
    fEncargar();
    fAfinar();
    if (bolOtra) {
        fContar();
    }
    if (const auto falta = m_pase.fFalta(ahora)) {
        m_reloj.start(*falta);
    } else {
        m_reloj.stop();
    }
}

/// Takes over the pixels of what is shown, when there are others.
void frmPresentacion::fAfinar()
{
    const auto lngVista = m_pase.fVista();
    const clsDiapositiva *const foto =
        lngVista ? m_almacen.fGuardado(fClaveDe(*lngVista)) : nullptr;
    if (foto == nullptr || foto->fuente == nullptr) {
        return;
    }
    const auto fuente = foto->fuente->imagen.isNull() ? m_imgNoImagen : foto->fuente;
    if (fuente != m_imgPuente) {
        m_imgPuente = fuente;
        m_imgFoto->fPoner(fuente);
        m_imgFoto->fGirar(
            fuente == m_imgNoImagen ? 0 : m_entorno.giros.fCuartos(m_entorno.fRuta(*lngVista)));
        m_imgFoto->fColocar(0);
        m_imgFoto->show();
    }
}

/// Tells of what is shown, for a while.
void frmPresentacion::fContar()
{
    const auto lngVista = m_pase.fVista();
    if (!lngVista) {
        return;
    }
    const std::string strNombre(fNombreDe(m_entorno.fRuta(*lngVista)));
    m_imgFoto->setAccessibleName((m_imgPuente == m_imgNoImagen ? QStringLiteral("Sin imagen: ")
                                                               : QStringLiteral("Fotografía: ")) +
                                 fQPantalla(strNombre));
    m_lblPie->setText(fQ(fTextoPie(m_entorno.fPie(*lngVista), m_pase, *lngVista)));
    const QSize tam = m_lblPie->sizeHint().boundedTo(size());
    m_lblPie->setGeometry((width() - tam.width()) / 2, height() - tam.height(), tam.width(),
                          tam.height());
    m_lblPie->raise();
    m_desvanecer->stop();
    m_desvanecer->start();
}

void frmPresentacion::fPaso(int intSentido)
{
    m_pase.fPaso(intSentido, m_entorno.fAhora());
    fMirar();
}

void frmPresentacion::fAlternar()
{
    m_pase.fAlternar(m_entorno.fAhora());
    m_entorno.fVelar(!m_pase.fParado());
    fContar();
    fMirar();
}

void frmPresentacion::fCambiarSegundos(int intSentido)
{
    m_pase.fFijarSegundos(fOtrosSegundos(m_pase.fSegundos(), intSentido));
    m_entorno.fGuardarSegundos(m_pase.fSegundos());
    fContar();
    fMirar();
}

/// Opens what is shown by its own program; the show waits meanwhile.
void frmPresentacion::fAbrir()
{
    if (const auto lngVista = m_pase.fVista()) {
        if (!m_pase.fParado()) {
            fAlternar();
        }
        m_entorno.fAbrir(*lngVista);
    }
}

void frmPresentacion::keyPressEvent(QKeyEvent *evento)
{
    switch (evento->key()) {
    case Qt::Key_Escape:
    case Qt::Key_F6:
        reject();
        break;
    case Qt::Key_F12:
    case Qt::Key_Right:
    case Qt::Key_PageDown:
        fPaso(1);
        break;
    case Qt::Key_F11:
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        fPaso(-1);
        break;
    case Qt::Key_Plus:
        fCambiarSegundos(1);
        break;
    case Qt::Key_Minus:
        fCambiarSegundos(-1);
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!evento->isAutoRepeat()) { // a key held too long does it once
            evento->key() == Qt::Key_Space ? fAlternar() : fAbrir();
        }
        break;
    default:
        break;
    }
}

void frmPresentacion::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() == Qt::LeftButton) {
        fPaso(1);
    }
}

void frmPresentacion::resizeEvent(QResizeEvent *evento)
{
    QDialog::resizeEvent(evento);
    m_imgFoto->fColocar(0);
    fContar();
    fMirar();
}
