#include "viewer/miniaturas.h"

#include "shared/medios.h"
#include "shared/pagina.h"
#include "shared/qtexto.h"
#include "viewer/cmdMini.h"
#include "viewer/marcadores.h"

#include <QWidget>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

/// Events run at least so often while a page is drawn, in milliseconds.
constexpr int intTurno = 8;

const auto strVideo = QStringLiteral("v  i  d  e  o");

QString fTextoConsejo(const clsFilas &filas, int lngPos, const clsSignos &signos)
{
    const int lngFila = lngPos + 1;
    return fQPantalla(fCampo(filas, lngFila, Campo::Nombre, signos)) +
           fQ(" (" + fCampo(filas, lngFila, Campo::Fecha, signos) + ") - " +
              fCampo(filas, lngFila, Campo::Tamano, signos));
}

} // namespace

clsMiniaturas::clsMiniaturas(QWidget *cliente, const clsFilas &filas, clsSignos signos,
                             clsMensajes &mensajes, clsFotograma fFotograma)
    : QObject(cliente), m_cliente(cliente), m_filas(filas), m_signos(std::move(signos)),
      m_almacen(std::move(fFotograma)),
      m_generador(mensajes, [this](const std::string &strRuta, int) {
          return m_almacen.fTomar({strRuta, fLado()}).value_or(clsMiniatura{});
      })
{
    m_generador.Options = cThumbnailGenerator::IEIFLAG_SCREEN | cThumbnailGenerator::IEIFLAG_ASPECT;
    connect(&m_almacen, &clsAlmacenMiniaturas::fLlegada, this, &clsMiniaturas::fRenovar);
    fCargarCeldas(); // the first cell exists always
}

int clsMiniaturas::fLado() const
{
    return static_cast<int>(m_generador.DesiredWidth * m_cliente->devicePixelRatioF());
}

void clsMiniaturas::fDisponer(const clsRect &fondo, int intTam)
{
    m_rejilla = fDisponerRejilla(fondo, intTam);
    m_generador.DesiredWidth = m_generador.DesiredHeight = fLadoMini(intTam);
    fVaciar();
    const auto lngCeldas = static_cast<std::size_t>(m_rejilla.intCeldas);
    while (m_lstCeldas.size() > lngCeldas) {
        // Not at once: the click that led here may have been on it.
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
                    [this, intCelda](Qt::MouseButton tecla, Qt::KeyboardModifiers mayus) {
                        const clsCelda &celda = m_lstCeldas[static_cast<std::size_t>(intCelda)];
                        if (celda.lngPos >= 0 && celda.lngRevision == m_filas.fRevision()) {
                            emit fPulsada(celda.lngPos, tecla, mayus);
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
    }
}

void clsMiniaturas::fVaciar()
{
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
    celda.boton->fEstado(m_filas.fMarcada(celda.lngPos), celda.lngPos == lngActual);
}

/// Orders what the page lacks, then the next page and the one before, and at last a look at the
/// files the page shows.
void clsMiniaturas::fEncargar(int lngInicio)
{
    const int intCeldas = m_rejilla.intCeldas;
    const int intLado = fLado();
    std::vector<clsEncargo> lstEncargos;
    lstEncargos.reserve(static_cast<std::size_t>(intCeldas) * 4);
    const auto fPagina = [&](int lngDesde, bool bolMostradas) {
        const int lngHasta = std::min(lngDesde + intCeldas, m_filas.fCantidad());
        for (int lngPos = std::max(lngDesde, 0); lngPos < lngHasta; ++lngPos) {
            const clsCelda &celda = m_lstCeldas[static_cast<std::size_t>(lngPos - lngDesde)];
            const bool bolFalta = celda.bolPendiente || !fMuestra(celda, lngPos);
            if (lngDesde != lngInicio || bolFalta != bolMostradas) {
                lstEncargos.push_back({m_filas.fRuta(lngPos), intLado});
            }
        }
    };
    for (const int lngDesde : {lngInicio, lngInicio + intCeldas, lngInicio - intCeldas}) {
        fPagina(lngDesde, false);
    }
    fPagina(lngInicio, true);
    m_almacen.fEncargar(std::move(lstEncargos));
}

bool clsMiniaturas::fMostrar(int lngActual, const clsEntorno &entorno)
{
    fCargarCeldas();
    const int lngInicio = fInicioPagina(lngActual, m_rejilla.intCeldas);
    const int lngFin = std::min(lngInicio + m_rejilla.intCeldas, m_filas.fCantidad());
    fRepartir(lngInicio, lngActual);
    fEncargar(lngInicio);
    m_desdeCeder.invalidate();
    for (int lngPos = lngInicio; lngPos < lngFin; ++lngPos) {
        clsCelda &celda = m_lstCeldas[static_cast<std::size_t>(lngPos - lngInicio)];
        if (!fMuestra(celda, lngPos) && !fDibujar(celda, lngPos, entorno)) {
            return false;
        }
    }
    return true;
}

bool clsMiniaturas::fDibujar(clsCelda &celda, int lngPos, const clsEntorno &entorno)
{
    if (!m_desdeCeder.isValid()) {
        entorno.fProcesando();
    }
    const clsEncargo encargo{m_filas.fRuta(lngPos), fLado()};
    // Looked for before every wait: what came while other events ran wakes nobody any more.
    while (entorno.fVigente() && !m_almacen.fTomar(encargo)) {
        entorno.fCeder(true);
    }
    if (!entorno.fVigente() || !fPintar(celda, lngPos, entorno)) {
        return false;
    }
    if (!m_desdeCeder.isValid() || m_desdeCeder.elapsed() >= intTurno) {
        entorno.fCeder(false);
        m_desdeCeder.start();
    }
    return entorno.fVigente();
}

bool clsMiniaturas::fPintar(clsCelda &celda, int lngPos, const clsEntorno &entorno)
{
    const std::string strRuta = m_filas.fRuta(lngPos);
    const int intLado = fLado();
    const double dblDpr = m_cliente->devicePixelRatioF();
    const bool bolVideo = fEsVideo(strRuta);
    const clsMiniatura miniatura = m_almacen.fTomar({strRuta, intLado}).value_or(clsMiniatura{});
    QPixmap imagen;
    QString strTexto;
    if (miniatura.extraccion == Extraccion::Falta) {
        entorno.fFalta();
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
            strTexto = QStringLiteral("(No disponible)");
        }
        if (bolVideo) {
            strTexto = strVideo;
        }
    }
    if (!entorno.fVigente()) {
        return false; // a message has let events run
    }
    celda.lngPos = lngPos;
    celda.lngRevision = m_filas.fRevision();
    celda.intLado = intLado;
    celda.lngImagen = miniatura.imagen.isNull() ? 0 : miniatura.imagen.cacheKey();
    celda.bolPendiente = miniatura.extraccion == Extraccion::Pendiente;
    celda.boton->fPoner(imagen, strTexto);
    celda.boton->fConsejo(fTextoConsejo(m_filas, lngPos, m_signos));
    celda.boton->setProperty("Tag", QString::number(lngPos));
    fMarcar(celda, m_lngActual);
    celda.boton->show();
    return true;
}

/// Takes over what has come for cells that are drawn: frames of videos, and the new pictures of
/// files that were replaced.
void clsMiniaturas::fRenovar()
{
    for (clsCelda &celda : m_lstCeldas) {
        if (!fMuestra(celda, celda.lngPos) || celda.lngPos < 0) {
            continue;
        }
        const auto miniatura = m_almacen.fTomar({m_filas.fRuta(celda.lngPos), celda.intLado});
        if (!miniatura || miniatura->extraccion == Extraccion::Pendiente) {
            continue;
        }
        celda.bolPendiente = false;
        const qint64 lngImagen = miniatura->imagen.isNull() ? 0 : miniatura->imagen.cacheKey();
        if (lngImagen != 0 && lngImagen != celda.lngImagen) {
            celda.lngImagen = lngImagen;
            QPixmap imagen = QPixmap::fromImage(miniatura->imagen);
            imagen.setDevicePixelRatio(m_cliente->devicePixelRatioF());
            celda.boton->fPoner(imagen,
                                fEsVideo(m_filas.fNombre(celda.lngPos)) ? strVideo : QString());
        }
    }
}
