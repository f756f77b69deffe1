#include "viewer/miniaturas.h"

#include "shared/medios.h"
#include "shared/pagina.h"
#include "shared/qhilos.h"
#include "shared/qtexto.h"
#include "viewer/cmdMini.h"
#include "viewer/marcadores.h"

#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <thread>
#include <utility>

namespace {

/// Events run at least so often while a page is drawn, in milliseconds.
constexpr int intTurno = 8;
/// Without anything new for so long, in milliseconds, the page is drawn without what is missing: a
/// disk that does not answer must not hold up those who want to go on.
constexpr int intPaciencia = 500;

/// Pages that follow each other within so many milliseconds are being leafed through: decoding what
/// is not sharp there would only take processors from those to come.
constexpr int intReposo = 150;

/// What is kept of thumbnails: bytes of pixels, and entries, since failures have none, but names.
constexpr std::int64_t lngMaximoGuardado = std::int64_t{192} << 20;
constexpr std::size_t lngMaximoEntradas = 20000;

int fNucleos() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

QString fTextoConsejo(const clsFilas &filas, int lngPos, const clsSignos &signos)
{
    const int lngFila = lngPos + 1;
    return fQPantalla(fCampo(filas, lngFila, Campo::Nombre, signos)) +
           fQ(" (" + fCampo(filas, lngFila, Campo::Fecha, signos) + ") - " +
              fCampo(filas, lngFila, Campo::Tamano, signos));
}

} // namespace

clsMiniaturas::clsMiniaturas(QWidget *cliente, const clsFilas &filas, clsSignos signos,
                             clsAvisar fAvisar, clsFuentesMini fuentes, const clsGiros &giros)
    : QObject(cliente), m_cliente(cliente), m_filas(filas), m_signos(std::move(signos)),
      m_fAvisar(std::move(fAvisar)), m_fuentes(std::move(fuentes)), m_giros(giros),
      m_almacen({.lngBytes = lngMaximoGuardado,
                 .lngEntradas = lngMaximoEntradas,
                 .intHilos = fNucleos(),
                 .fAvisar = fAvisarA(this),
                 .fLlegada =
                     [this](const std::string &strClave) {
                         m_desdeNovedad.start();
                         m_lstLlegadas.push_back(strClave);
                         fTomarLlegadas();
                     }}),
      m_generador([this](const std::string &strTexto) { fQueja(strTexto); },
                  [this](const std::string &strRuta, int /*intLado*/) {
                      return fHecha(strRuta).value_or(clsMiniatura{Extraccion::Pendiente, {}});
                  })
{
    m_generador.Options = cThumbnailGenerator::IEIFLAG_SCREEN | cThumbnailGenerator::IEIFLAG_ASPECT;
    m_reposo.setSingleShot(true);
    connect(&m_reposo, &QTimer::timeout, this, [this] { fEncargar(m_lngInicio); });
    fCargarCeldas(); // the first cell exists always
}

/// Side of a thumbnail's box in device pixels.
int clsMiniaturas::fLado() const
{
    return static_cast<int>(m_generador.DesiredWidth * m_cliente->devicePixelRatioF());
}

/// What has come by now of what was ordered; nothing when that is still to come.
std::optional<clsMiniatura> clsMiniaturas::fHecha(const std::string &strRuta)
{
    const clsMiniGuardada *const hecha = m_almacen.fTomar(fClaveMini(strRuta, fLado()));
    return hecha != nullptr ? std::optional(hecha->miniatura) : std::nullopt;
}

/// What is kept of a file for these boxes, else for larger or smaller ones.
std::optional<clsMiniGuardada> clsMiniaturas::fGuardada(const std::string &strRuta)
{
    const double dblDpr = m_cliente->devicePixelRatioF();
    for (const int intLado : {m_generador.DesiredWidth, fLadoMini(2), fLadoMini(1), fLadoMini(0)}) {
        const std::string strClave = fClaveMini(strRuta, static_cast<int>(intLado * dblDpr));
        if (const clsMiniGuardada *const guardada = m_almacen.fGuardado(strClave)) {
            return *guardada;
        }
    }
    return {};
}

void clsMiniaturas::fDisponer(const clsRect &fondo, int intTam)
{
    m_rejilla = fDisponerRejilla(fondo, intTam);
    m_generador.DesiredWidth = m_generador.DesiredHeight = fLadoMini(intTam);
    fVaciar();
    const auto lngCeldas = static_cast<std::size_t>(m_rejilla.intCeldas);
    while (m_lstCeldas.size() > lngCeldas) {
        // Not at once: the click that led here may have been on it.
        m_lstCeldas.back().boton->disconnect(this);
        m_lstCeldas.back().boton->setObjectName({});
        m_lstCeldas.back().boton->deleteLater();
        m_lstCeldas.pop_back();
    }
}

/// Makes the cells that are missing and puts all in their places; at the first draw after a layout,
/// since the single view needs none of them.
void clsMiniaturas::fCargarCeldas()
{
    const auto fLineaPixel = [](int lngTwips) { return lngTwips / intTwipsPixel; };
    m_lstCeldas.reserve(static_cast<std::size_t>(m_rejilla.intCeldas));
    for (int intCelda = 0; intCelda < m_rejilla.intCeldas; ++intCelda) {
        if (intCelda == static_cast<int>(m_lstCeldas.size())) {
            auto *const boton = new cmdMini(intCelda, m_cliente);
            connect(boton, &cmdMini::fPulsada, this,
                    [this, boton](Qt::MouseButton tecla, Qt::KeyboardModifiers mayus) {
                        if (const int lngPos = fPosicion(boton); lngPos >= 0) {
                            emit fPulsada(lngPos, tecla, mayus);
                        }
                    });
            connect(boton, &cmdMini::fDobleClic, this, [this, boton] {
                if (const int lngPos = fPosicion(boton); lngPos >= 0) {
                    emit fDobleClic(lngPos);
                }
            });
            m_lstCeldas.push_back({boton});
            fVaciar(m_lstCeldas.back());
        }
        // Edges on whole pixels: cells abut whatever their side in twips.
        const clsRect sitio = fCelda(m_rejilla, intCelda);
        const QPoint esquina(fLineaPixel(sitio.lngIzq), fLineaPixel(sitio.lngArriba));
        const QPoint opuesta(fLineaPixel(sitio.lngIzq + sitio.lngAncho),
                             fLineaPixel(sitio.lngArriba + sitio.lngAlto));
        m_lstCeldas[static_cast<std::size_t>(intCelda)].boton->setGeometry(
            QRect(esquina, opuesta - QPoint(1, 1)));
        m_lstCeldas[static_cast<std::size_t>(intCelda)].boton->raise();
    }
}

int clsMiniaturas::fPosicion(const QWidget *control) const
{
    const auto celda = std::find_if(m_lstCeldas.begin(), m_lstCeldas.end(),
                                    [=](const clsCelda &una) { return una.boton == control; });
    return celda != m_lstCeldas.end() && celda->lngRevision == m_filas.fRevision() ? celda->lngPos
                                                                                   : -1;
}

void clsMiniaturas::fVaciar()
{
    m_reposo.stop();
    for (clsCelda &celda : m_lstCeldas) {
        fVaciar(celda);
    }
}

void clsMiniaturas::fVaciar(clsCelda &celda)
{
    celda = {celda.boton};
    celda.boton->setProperty("Tag", QStringLiteral("-1"));
    celda.boton->hide();
    celda.boton->fPoner({}, {});
}

bool clsMiniaturas::fMuestra(const clsCelda &celda, int lngPos) const
{
    return celda.lngPos == lngPos && celda.lngRevision == m_filas.fRevision() &&
           celda.intLado == fLado();
}

bool clsMiniaturas::fPendiente() const
{
    return std::any_of(m_lstCeldas.begin(), m_lstCeldas.end(),
                       [](const clsCelda &celda) { return celda.bolPendiente; });
}

/// Hides what does not belong to the list any more, or lies past its end, and marks the others.
void clsMiniaturas::fRepartir(int lngInicio, int lngActual)
{
    m_lngActual = lngActual;
    for (std::size_t lngCelda = 0; lngCelda < m_lstCeldas.size(); ++lngCelda) {
        clsCelda &celda = m_lstCeldas[lngCelda];
        const bool bolSobra = lngInicio + static_cast<int>(lngCelda) >= m_filas.fCantidad() ||
                              celda.lngRevision != m_filas.fRevision();
        if (celda.lngPos >= 0 && bolSobra) {
            fVaciar(celda);
        } else if (celda.lngPos >= 0) {
            fMarcar(celda, lngActual);
        }
    }
}

void clsMiniaturas::fMarcar(const clsCelda &celda, int lngActual)
{
    celda.boton->fGirar(celda.lngImagen == 0 ? 0
                                             : m_giros.fCuartos(m_filas.fRutaDisco(celda.lngPos)));
    celda.boton->fEstado(m_filas.fMarcada(celda.lngPos), celda.lngPos == lngActual);
}

/// Orders what the page lacks or does not show sharply, then the next page and the one before, and
/// at last a look at the files the page shows.
/// @param bolAfinar whether what is there needs to become sharp, too.
void clsMiniaturas::fEncargar(int lngInicio, bool bolAfinar)
{
    const int intCeldas = m_rejilla.intCeldas;
    const int intLado = fLado();
    std::vector<clsAlmacenMini::clsEncargo> lstEncargos;
    lstEncargos.reserve(static_cast<std::size_t>(intCeldas) * 4);
    int intTurno = 0;
    const auto fAnadir = [&](const std::string &strRuta) {
        auto fPieza = fPiezaMini(strRuta, intLado, fGuardada(strRuta), m_fuentes);
        lstEncargos.push_back({fClaveMini(strRuta, intLado),
                               bolAfinar ? std::move(fPieza) : fSinAfinar(std::move(fPieza)),
                               intTurno});
    };
    const auto fPagina = [&](int lngDesde, bool bolMostradas) {
        const int lngHasta = std::min(lngDesde + intCeldas, m_filas.fCantidad());
        for (int lngPos = std::max(lngDesde, 0); lngPos < lngHasta; ++lngPos) {
            const clsCelda &celda = m_lstCeldas[static_cast<std::size_t>(lngPos - lngDesde)];
            const bool bolFalta = celda.bolPendiente || !celda.bolFina || !fMuestra(celda, lngPos);
            if (lngDesde != lngInicio || bolFalta != bolMostradas) {
                fAnadir(m_filas.fRutaDisco(lngPos));
            }
        }
        intTurno += 2; // what lacks a picture, what is not sharp
    };
    for (const int lngDesde : {lngInicio, lngInicio + intCeldas, lngInicio - intCeldas}) {
        fPagina(lngDesde, false);
    }
    fPagina(lngInicio, true);
    m_almacen.fEncargar(std::move(lstEncargos));
}

/// Whether the page to be drawn is one of several that quickly follow each other.
bool clsMiniaturas::fDePaso(int lngInicio)
{
    if (std::exchange(m_lngInicio, lngInicio) == lngInicio) {
        return false;
    }
    const bool bolRapida = m_desdePagina.isValid() && !m_desdePagina.hasExpired(intReposo);
    m_desdePagina.start();
    return bolRapida;
}

bool clsMiniaturas::fMostrar(int lngActual, const clsEntorno &entorno)
{
    fCargarCeldas();
    const int lngInicio = fInicioPagina(lngActual, m_rejilla.intCeldas);
    const int lngFin = std::min(lngInicio + m_rejilla.intCeldas, m_filas.fCantidad());
    fRepartir(lngInicio, lngActual);
    const bool bolDePaso = fDePaso(lngInicio);
    fEncargar(lngInicio, !bolDePaso);
    m_reposo.stop();
    if (bolDePaso) {
        m_reposo.start(intReposo);
    }
    m_fFalta = entorno.fFalta;
    m_bolCallar = false;
    m_desdeNovedad.start();
    m_desdeCeder.invalidate();
    for (const bool bolTodo : {false, true}) {
        for (int lngPos = lngInicio; lngPos < lngFin; ++lngPos) {
            const auto lngCelda = static_cast<std::size_t>(lngPos - lngInicio);
            if (!fMuestra(m_lstCeldas[lngCelda], lngPos) &&
                !fDibujar(lngCelda, lngPos, bolTodo, entorno)) {
                return false;
            }
        }
    }
    fTomarLlegadas();
    return entorno.fVigente();
}

/// Waits for what a cell is to show, and draws it.
/// @param bolTodo also what has to be decoded first; else such a cell is left as it is.
/// @return false when the drawing was superseded or the window closes.
bool clsMiniaturas::fDibujar(std::size_t lngCelda, int lngPos, bool bolTodo,
                             const clsEntorno &entorno)
{
    if (!m_desdeCeder.isValid()) {
        entorno.fProcesando();
    }
    const std::string strRuta = m_filas.fRutaDisco(lngPos);
    m_almacen.fRecoger();
    auto hecha = fHecha(strRuta);
    const auto fPorDescifrar = [&] {
        return hecha && hecha->extraccion == Extraccion::Pendiente && !fEsVideo(strRuta);
    };
    // Looked for before every wait: what came while other events ran wakes nobody any more.
    while (entorno.fVigente() && (!hecha || (bolTodo && fPorDescifrar())) &&
           !m_desdeNovedad.hasExpired(intPaciencia)) {
        entorno.fCeder(intPaciencia);
        hecha = fHecha(strRuta);
    }
    if (!bolTodo && fPorDescifrar()) {
        return entorno.fVigente();
    }
    if (!entorno.fVigente() || !fPintar(lngCelda, lngPos, entorno.fVigente)) {
        return false;
    }
    if (!m_desdeCeder.isValid() || m_desdeCeder.elapsed() >= intTurno) {
        entorno.fCeder(0);
        m_desdeCeder.start();
    }
    return entorno.fVigente();
}

/// Shows in a cell what there is of a file by now.
/// @return false when a message has let events run and the cell is not the file's any more.
bool clsMiniaturas::fPintar(std::size_t lngCelda, int lngPos, const std::function<bool()> &fVigente)
{
    const std::string strRuta = m_filas.fRutaDisco(lngPos);
    const double dblDpr = m_cliente->devicePixelRatioF();
    const bool bolVideo = fEsVideo(strRuta);
    const clsMiniatura miniatura =
        fHecha(strRuta).value_or(clsMiniatura{Extraccion::Pendiente, {}});
    const bool bolPendiente = miniatura.extraccion == Extraccion::Pendiente;
    QPixmap imagen;
    QString strTexto;
    if (miniatura.extraccion == Extraccion::Falta) {
        m_fFalta();
        imagen = fErrorLista(m_generador.DesiredWidth, dblDpr);
        strTexto = QStringLiteral("(No existe)");
    } else {
        m_generador.Filename = strRuta;
        bool bolHay = false;
        std::unique_ptr<pcMemDC> superficie;
        m_generador.fGetThumbnail(bolHay, superficie);
        if (bolHay) {
            imagen = QPixmap::fromImage(superficie->GetPicture(0, 0, -1, -1));
            imagen.setDevicePixelRatio(dblDpr);
        } else {
            imagen = fVacio(m_generador.DesiredWidth, dblDpr, bolVideo);
            strTexto = bolPendiente ? QString() : QStringLiteral("(No disponible)");
        }
        if (bolVideo) {
            strTexto = QStringLiteral("v  i  d  e  o");
        }
    }
    if (!fVigente()) {
        return false;
    }
    clsCelda &celda = m_lstCeldas[lngCelda];
    celda.lngPos = lngPos;
    celda.lngRevision = m_filas.fRevision();
    celda.intLado = fLado();
    celda.strClave = fClaveMini(strRuta, celda.intLado);
    celda.lngImagen = miniatura.imagen.isNull() ? 0 : miniatura.imagen.cacheKey();
    celda.bolPendiente = bolPendiente;
    celda.bolFina = miniatura.bolFina;
    celda.boton->fPoner(imagen, strTexto);
    celda.boton->fConsejo(fTextoConsejo(m_filas, lngPos, m_signos));
    celda.boton->setProperty("Tag", QString::number(lngPos));
    fMarcar(celda, m_lngActual);
    celda.boton->show();
    return true;
}

/// Shows a message, unless nobody wants more of them.
void clsMiniaturas::fQueja(const std::string &strTexto)
{
    if (!m_bolCallar) {
        const QScopedValueRollback<bool> avisando(m_bolAvisando, true);
        m_bolCallar = !m_fAvisar(strTexto);
    }
}

/// Looks at what has come, one message at a time.
void clsMiniaturas::fTomarLlegadas()
{
    while (!m_bolAvisando && !m_lstLlegadas.empty()) {
        const std::string strClave = std::move(m_lstLlegadas.front());
        m_lstLlegadas.pop_front();
        fLlegar(strClave);
    }
}

/// Takes over what has come, where a drawn cell waits for it.
void clsMiniaturas::fLlegar(const std::string &strClave)
{
    // A message can let events run, and these can take cells away.
    for (std::size_t lngCelda = 0; lngCelda < m_lstCeldas.size(); ++lngCelda) {
        if (m_lstCeldas[lngCelda].strClave == strClave) {
            fRenovar(lngCelda);
        }
    }
}

void clsMiniaturas::fRenovar(std::size_t lngCelda)
{
    clsCelda &celda = m_lstCeldas[lngCelda];
    if (celda.lngPos < 0 || !fMuestra(celda, celda.lngPos)) {
        return;
    }
    const auto miniatura = fHecha(m_filas.fRutaDisco(celda.lngPos));
    if (!miniatura || miniatura->extraccion == Extraccion::Pendiente) {
        return;
    }
    celda.bolFina = miniatura->bolFina;
    // A picture that has been lost meanwhile stays until the page is drawn anew.
    const bool bolNueva = miniatura->extraccion == Extraccion::Hecha &&
                          miniatura->imagen.cacheKey() != celda.lngImagen;
    if (std::exchange(celda.bolPendiente, false) || bolNueva) {
        const int lngPos = celda.lngPos;
        static_cast<void>(fPintar(lngCelda, lngPos, [this, lngCelda, lngPos] {
            return lngCelda < m_lstCeldas.size() && m_lstCeldas[lngCelda].lngPos == lngPos &&
                   fMuestra(m_lstCeldas[lngCelda], lngPos);
        }));
        emit fLlegada();
    }
}
