#include "viewer/visor.h"

#include "shared/medios.h"
#include "shared/qhilos.h"
#include "viewer/imgFoto.h"
#include "viewer/vistazo.h"

#include <QFrame>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

/// A picture that takes longer, in milliseconds, is waited for by nobody: a disk that does not
/// answer must not hold up those who want to go on.
constexpr qint64 lngPaciencia = 2000;
/// And so long for a look at its size and time. Neighbours' are waited for not at all.
constexpr std::chrono::milliseconds pacienciaMirada{150};

/// Bytes of pixels that are kept.
constexpr qint64 lngMaximoFotos = qint64{256} << 20;

/// Decodes a picture on a thread.
clsAlmacen<clsFoto>::clsPieza fPieza(const clsPedido &pedido)
{
    return [pedido](const clsAnulado &anulado) {
        clsFoto foto{fCompartida(fDecodificar(pedido, anulado))};
        // None because of a small limit says nothing about a larger one.
        const bool bolVale = !pedido.bolVecina || !foto.fuente->imagen.isNull();
        return clsAlmacen<clsFoto>::clsHecho{std::move(foto), bolVale};
    };
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

QRect fPixeles(const clsRect &rect)
{
    return {rect.lngIzq / intTwipsPixel, rect.lngArriba / intTwipsPixel,
            rect.lngAncho / intTwipsPixel, rect.lngAlto / intTwipsPixel};
}

clsVisor::clsVisor(QWidget *cliente, const clsGiros &giros,
                   std::shared_ptr<const clsCacheFotos> fotos)
    : QObject(cliente), m_giros(giros), m_fotos(std::move(fotos)), m_lblFondo(new QLabel(cliente)),
      m_frmRecuadro(new QFrame(cliente)), m_imgFoto(new imgFoto(m_frmRecuadro)),
      m_almacen({.lngBytes = lngMaximoFotos,
                 .intHilos = 2, // the visible picture and one neighbour at a time
                 .fAvisar = fAvisarA(this),
                 .fLlegada = [this](const std::string &strClave) { fLlegar(strClave); }}),
      m_miradas({.intHilos = 4, .fAvisar = fAvisarA(this)})
{
    m_lblFondo->setObjectName(QStringLiteral("lblFondo"));
    m_lblFondo->setAccessibleName(QStringLiteral("Panel de visualización"));
    m_frmRecuadro->setObjectName(QStringLiteral("frmRecuadro"));
    m_frmRecuadro->setAccessibleName(QStringLiteral("Marco de la fotografía"));
    for (QWidget *const control : std::initializer_list<QWidget *>{m_lblFondo, m_frmRecuadro}) {
        fFondoNeutro(*control);
        control->installEventFilter(this);
    }
    m_imgFoto->installEventFilter(this);
    m_reposo.setSingleShot(true);
    m_reposo.setInterval(reposoUsual);
    connect(&m_reposo, &QTimer::timeout, this, &clsVisor::fReposar);
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
    m_reposo.stop();
    m_miradas.fAnular();
    m_strRuta.clear();
    m_imgFoto->fPoner(nullptr);
}

void clsVisor::fDescribir(const QString &strArchivo)
{
    m_strDescrito = strArchivo;
    const QString strNombre = m_bolPendiente ? QStringLiteral("Procesando...")
                              : m_imgPuente == m_imgNoImagen
                                  ? QStringLiteral("Sin imagen: ") + strArchivo
                                  : QStringLiteral("Fotografía: ") + strArchivo;
    if (strNombre != m_imgFoto->accessibleName()) { // a change is told to screen readers
        m_imgFoto->setAccessibleName(strNombre);
    }
}

void clsVisor::fAlFrente()
{
    m_lblFondo->raise();
    m_frmRecuadro->raise();
}

QRect clsVisor::fSitio() const { return m_lblFondo->geometry(); }

void clsVisor::fAltura(int intPixeles) { m_lblFondo->resize(m_lblFondo->width(), intPixeles); }

clsPedido clsVisor::fPedido(const std::string &strRuta, qint64 lngMaximo) const
{
    // Only fit depends on the frame, and beyond 100 % there are no more pixels to decode.
    const QSize recuadro =
        m_intZoom == 0 ? m_frmRecuadro->size() * m_frmRecuadro->devicePixelRatioF() : QSize();
    const bool bolTumbada = m_giros.fCuartos(strRuta) % 2 != 0;
    return {strRuta, bolTumbada ? recuadro.transposed() : recuadro, std::min(m_intZoom, 100),
            lngMaximo};
}

/// What to decode first of a large photo that is not fitted: enough pixels to recognise it.
std::optional<clsPedido> clsVisor::fPrevia(const std::string &strRuta,
                                           const clsHuella &huella) const
{
    constexpr qint64 lngGrande = qint64{2} << 20; // bytes of the file
    constexpr QSize recuadro(1280, 1280);
    // Only of JPEG fewer pixels take less time.
    if (m_intZoom == 0 || huella.lngBytes < lngGrande || fEsOtroFormato(strRuta)) {
        return {};
    }
    return clsPedido{strRuta, recuadro, 0, lngMaximoFoto};
}

/// Orders what the shown file and its neighbours lack for the present zoom and frame; the shown one
/// comes first. As long as they are only passed by, that is a glance at each.
/// @param bolPrevia whether fewer pixels of a large photo serve meanwhile.
void clsVisor::fEncargar(bool bolPrevia)
{
    std::vector<clsAlmacen<clsFoto>::clsEncargo> lstEncargos;
    const auto fAnadir = [&](std::string strClave, clsAlmacen<clsFoto>::clsPieza fHacer) {
        const bool bolHay = m_almacen.fGuardado(strClave) != nullptr;
        lstEncargos.push_back({std::move(strClave), bolHay ? nullptr : std::move(fHacer)});
    };
    const auto fUna = [&](const clsPedido &pedido, const clsHuella &huella) {
        std::string strClave = fClave(pedido, huella);
        if (m_bolDePaso && !fEnteraDePaso(huella.lngBytes) &&
            m_almacen.fGuardado(strClave) == nullptr) {
            fAnadir(fClaveVistazo(pedido.strRuta, huella),
                    fPiezaVistazo(pedido.strRuta, huella, m_fotos));
        } else {
            fAnadir(std::move(strClave), fPieza(pedido));
        }
    };
    if (!m_strRuta.empty()) {
        if (const auto previa = fPrevia(m_strRuta, m_huella); previa && bolPrevia && !m_bolDePaso) {
            fAnadir(fClave(*previa, m_huella), fPieza(*previa));
        }
        fUna(fPedido(m_strRuta, lngMaximoFoto), m_huella);
    }
    for (const std::string &strRuta : m_lstVecinas) {
        if (const auto it = m_mapHuellas.find(strRuta); it != m_mapHuellas.end()) {
            clsPedido pedido = fPedido(strRuta, lngMaximoVecina);
            pedido.bolVecina = true;
            fUna(pedido, it->second);
        }
    }
    m_almacen.fEncargar(std::move(lstEncargos));
}

/// What the shown photo is kept under for the present zoom and frame.
std::string clsVisor::fClaveEntera() const
{
    return fClave(fPedido(m_strRuta, lngMaximoFoto), m_huella);
}

/// What is kept, if it is.
std::shared_ptr<const clsFuente> clsVisor::fGuardada(const std::string &strClave)
{
    const clsFoto *const foto = m_almacen.fGuardado(strClave);
    return foto != nullptr ? foto->fuente : nullptr;
}

/// What was decoded of the shown photo: for the present zoom and frame, else with fewer pixels.
std::shared_ptr<const clsFuente> clsVisor::fDescifrada()
{
    const auto fuente = fGuardada(fClaveEntera());
    const auto previa = fuente ? std::nullopt : fPrevia(m_strRuta, m_huella);
    const auto menor = previa ? fGuardada(fClave(*previa, m_huella)) : nullptr;
    return menor && !menor->imagen.isNull() ? menor : fuente;
}

/// The best there is of it by now: decoded, else a glance at it.
std::shared_ptr<const clsFuente> clsVisor::fMejor()
{
    auto fuente = fDescifrada();
    return fuente ? fuente : fGuardada(fClaveVistazo(m_strRuta, m_huella));
}

std::shared_ptr<const clsFuente> clsVisor::fCargar(const std::string &strRuta,
                                                   const clsEntorno &entorno)
{
    const auto limite = std::chrono::steady_clock::now() + plazoDePaso;
    const auto mirada = std::make_shared<std::optional<clsHuella>>();
    const auto orden = m_miradas.fPedir([strRuta] { return fHuella(strRuta); },
                                        [=, this](const std::optional<clsHuella> &huella) {
                                            *mirada = huella;
                                            if (m_bolPendiente) {
                                                fTomarMirada(strRuta, huella, entorno);
                                            }
                                        });
    if (!m_miradas.fEsperar(orden, m_bolDePaso ? plazoDePaso : pacienciaMirada)) {
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
    m_lstVecinas.clear();
    auto fuente = fGuardada(fClaveEntera());
    m_bolDePaso = m_bolDePaso && !fuente;
    if (!fuente) {
        fuente = m_bolDePaso ? fOjear(limite) : fEsperar(entorno);
    }
    return fuente && fuente->imagen.isNull() ? m_imgNoImagen : fuente;
}

/// Waits for the picture of the file that is to be shown.
/// @return nothing when the disk does not give it in time, or it is not wanted any more.
std::shared_ptr<const clsFuente> clsVisor::fEsperar(const clsEntorno &entorno)
{
    // Painted before the load: the user sees that something is under way.
    m_imgFoto->hide();
    m_imgFoto->fPoner(nullptr);
    m_imgPuente.reset(); // two large ones would be too much
    entorno.fCeder(0);
    std::shared_ptr<const clsFuente> fuente;
    QElapsedTimer espera;
    espera.start();
    while (!fuente && entorno.fVigente() && !espera.hasExpired(lngPaciencia)) {
        // Looked for and ordered at every turn: while events run, the picture can have come, its
        // order can have been given up, and zoom and frame can have changed. Fewer pixels in the
        // right place serve now; fLlegar brings the others.
        fuente = fDescifrada();
        if (!fuente) {
            fEncargar(true);
            entorno.fCeder(static_cast<int>(lngPaciencia));
        }
    }
    return fuente;
}

/// What there is at once of the file that is passed by.
/// @return nothing when there is nothing in time.
std::shared_ptr<const clsFuente> clsVisor::fOjear(std::chrono::steady_clock::time_point limite)
{
    fEncargar(false);
    const std::string strClave =
        fEnteraDePaso(m_huella.lngBytes) ? fClaveEntera() : fClaveVistazo(m_strRuta, m_huella);
    auto fuente = fMejor();
    while (!fuente &&
           m_almacen.fEsperar(strClave, std::chrono::ceil<std::chrono::milliseconds>(
                                            limite - std::chrono::steady_clock::now()))) {
        fuente = fMejor();
    }
    return fuente;
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
        fEncargar(false);
        fAfinar();
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
    m_bolDePaso = entorno.bolPaso &&
                  fDePaso(m_desdePaso.isValid()
                              ? std::optional<std::chrono::milliseconds>(m_desdePaso.elapsed())
                              : std::nullopt,
                          m_bolNitida, m_reposo.intervalAsDuration());
    if (!m_imgNoImagen) {
        m_imgNoImagen = std::make_shared<const clsFuente>(fNoImagen());
    }
    entorno.fProcesando();
    auto fuente = fCargar(strRuta, entorno);
    if (!entorno.fVigente()) {
        return false;
    }
    m_bolPendiente = fuente == nullptr;
    m_bolNitida = false;
    if (m_bolPendiente) {
        m_imgFoto->hide();
    } else {
        fPoner(std::move(fuente));
    }
    m_desdePaso.invalidate();
    if (entorno.bolPaso) {
        m_desdePaso.start();
    }
    if (m_bolDePaso) {
        m_reposo.start();
    }
    return true;
}

/// The key rests: what it led to is to be seen as it is.
void clsVisor::fReposar()
{
    m_bolDePaso = false;
    fEncargar(true);
}

void clsVisor::fPoner(std::shared_ptr<const clsFuente> fuente)
{
    m_imgPuente = std::move(fuente);
    m_imgFoto->fPoner(m_imgPuente);
    fColocar();
    m_imgFoto->show();
    m_bolNitida = m_imgPuente == m_imgNoImagen;
    if (!m_bolNitida) {
        fEncargar(false); // the zoom may have changed while the picture was decoded
        fAfinar();
    }
}

void clsVisor::fColocar()
{
    m_imgFoto->fGirar(m_imgPuente == m_imgNoImagen ? 0 : m_giros.fCuartos(m_strRuta));
    m_imgFoto->fColocar(m_intZoom);
}

void clsVisor::fAnticipar(const std::string &strRuta)
{
    if (strRuta.empty() || fEsVideo(strRuta)) {
        return;
    }
    const auto orden = m_miradas.fPedir([strRuta] { return fHuella(strRuta); },
                                        [this, strRuta](const std::optional<clsHuella> &huella) {
                                            if (huella) {
                                                m_strRuta = strRuta;
                                                m_huella = *huella;
                                                fEncargar(true);
                                            }
                                        });
    static_cast<void>(m_miradas.fEsperar(orden, pacienciaMirada));
}

void clsVisor::fAdelantar(const std::vector<std::string> &lstRutas)
{
    for (const clsHilos::clsOrden &orden : std::exchange(m_lstMiradas, {})) {
        m_miradas.fAnular(orden);
    }
    m_lstVecinas = lstRutas;
    m_mapHuellas.clear();
    for (const std::string &strRuta : lstRutas) {
        if (!fEsVideo(strRuta)) {
            m_lstMiradas.push_back(
                m_miradas.fPedir([strRuta] { return fHuella(strRuta); },
                                 [this, strRuta](const std::optional<clsHuella> &huella) {
                                     if (huella) {
                                         m_mapHuellas[strRuta] = *huella;
                                         fEncargar(false);
                                     }
                                 }));
        }
    }
    fEncargar(false); // gives up what was under way for others
}

void clsVisor::fFijarZoom(int intZoom)
{
    m_intZoom = intZoom;
    fRecolocar();
}

/// Places anew what is shown, and has decoded what it lacks so.
void clsVisor::fRecolocar()
{
    if (m_imgPuente != nullptr) {
        fColocar();
    }
    if (m_imgPuente != nullptr || m_bolPendiente) {
        fEncargar(false);
        fAfinar();
    }
}

/// Something that was ordered has come, or nothing came of it.
void clsVisor::fLlegar(const std::string &strClave)
{
    if (m_strRuta.empty()) {
        return;
    }
    if (strClave == fClaveEntera() && m_almacen.fGuardado(strClave) == nullptr) {
        fEncargar(false); // it was ordered as a neighbour, with a smaller limit
    }
    fAfinar();
}

/// Takes over pixels of the file that is shown, when they have come: all of a picture that the disk
/// did not give in time, else those that were missing.
void clsVisor::fAfinar()
{
    if (m_strRuta.empty()) {
        return;
    }
    const auto entera = fGuardada(fClaveEntera());
    const auto fuente = entera ? entera : fMejor();
    m_bolNitida = entera != nullptr;
    if (fuente == nullptr) {
        return;
    }
    if (m_bolPendiente) {
        fPonerTarde(fuente->imagen.isNull() ? m_imgNoImagen : fuente);
    } else if (m_imgPuente == nullptr || m_imgPuente == m_imgNoImagen) {
        return;
    } else if (!fuente->imagen.isNull()) {
        fCambiar(fuente, entera != nullptr);
    } else if (m_imgPuente == fGuardada(fClaveVistazo(m_strRuta, m_huella))) {
        fPonerTarde(m_imgNoImagen); // there is no more of it than a thumbnail
    }
}

/// Shows other pixels of the same file in their place.
/// @param bolEntera whether these are all that are to be seen; else they serve if they are more.
void clsVisor::fCambiar(const std::shared_ptr<const clsFuente> &fuente, bool bolEntera)
{
    if (fuente == m_imgPuente ||
        (!bolEntera && fuente->imagen.width() <= m_imgPuente->imagen.width())) {
        return;
    }
    const bool bolOtroTam = fuente->natural != m_imgPuente->natural; // its head does not agree
    m_imgPuente = fuente;
    m_imgFoto->fPoner(fuente);
    if (bolOtroTam) {
        fColocar();
    }
}

void clsVisor::fPonerTarde(std::shared_ptr<const clsFuente> fuente)
{
    m_bolPendiente = false;
    fPoner(std::move(fuente));
    fDescribir(m_strDescrito); // it may be none
    emit fLlegada();
}

bool clsVisor::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::MouseButtonPress) {
        const auto *const raton = static_cast<QMouseEvent *>(evento);
        if (raton->button() == Qt::RightButton) {
            emit fMenuPedido(raton->globalPosition().toPoint());
            return true;
        }
        if (raton->button() == Qt::MiddleButton) {
            emit fCompletaPedida();
            return true;
        }
    }
    if (objeto == m_imgFoto && evento->type() == QEvent::MouseButtonDblClick &&
        static_cast<QMouseEvent *>(evento)->button() == Qt::LeftButton) {
        emit fAbrirPedido();
        return true;
    }
    return QObject::eventFilter(objeto, evento);
}
