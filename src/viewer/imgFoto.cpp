#include "viewer/imgFoto.h"

#include "shared/twips.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// Tells assistive technology that the control is a picture.
QAccessibleInterface *fLectorFoto(const QString &strClase, QObject *objeto)
{
    auto *const foto =
        strClase == QLatin1String("imgFoto") ? qobject_cast<QWidget *>(objeto) : nullptr;
    return foto == nullptr ? nullptr : new QAccessibleWidget(foto, QAccessible::Graphic);
}

/// From a picture as it lies in memory to the one that is seen turned; both begin at (0, 0).
/// @param tam of the picture that lies in memory.
QTransform fGiro(int intCuartos, QSizeF tam)
{
    switch (intCuartos) {
    case 1:
        return {0, 1, -1, 0, tam.height(), 0};
    case 2:
        return {-1, 0, 0, -1, tam.width(), tam.height()};
    case 3:
        return {0, -1, 1, 0, 0, tam.width()};
    default:
        return {};
    }
}

QSizeF fTamGirado(QSizeF tam, int intCuartos)
{
    return intCuartos % 2 == 0 ? tam : tam.transposed();
}

} // namespace

imgFoto::imgFoto(QWidget *recuadro) : QWidget(recuadro)
{
    QAccessible::installFactory(fLectorFoto); // once, however often it is called
    setObjectName(QStringLiteral("imgFoto"));
    setAccessibleName(QStringLiteral("Fotografía"));
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void imgFoto::fPoner(std::shared_ptr<const clsFuente> fuente)
{
    m_fuente = std::move(fuente);
    update();
}

clsTam imgFoto::fRecuadro() const
{
    return {double{intTwipsPixel} * parentWidget()->width(),
            double{intTwipsPixel} * parentWidget()->height()};
}

void imgFoto::fColocar(int intZoom)
{
    fTerminarArrastre();
    if (!m_fuente) {
        return;
    }
    const double dblTwips = intTwipsPixel / devicePixelRatioF();
    const QSizeF natural = fTamGirado(m_fuente->natural, m_intCuartos) * dblTwips;
    m_encaje = fEncajar(fRecuadro(), {natural.width(), natural.height()}, intZoom);
    m_intZoom = intZoom;
    setCursor(m_encaje.bolArrastrable ? Qt::OpenHandCursor : Qt::ArrowCursor);
    fAplicar();
}

void imgFoto::fAplicar()
{
    const auto fPixeles = [](double dblTwips) {
        return static_cast<int>(std::lround(dblTwips / intTwipsPixel));
    };
    // A picture of 20,000 x 2 points fitted to the frame is still a line.
    setGeometry(fPixeles(m_encaje.dblIzq), fPixeles(m_encaje.dblArriba),
                std::max(1, fPixeles(m_encaje.dblAncho)), std::max(1, fPixeles(m_encaje.dblAlto)));
    update();
}

void imgFoto::paintEvent(QPaintEvent *evento)
{
    if (!m_fuente || m_fuente->imagen.isNull()) {
        return;
    }
    QPainter pintor(this);
    const QSizeF suyo = m_fuente->imagen.size();
    if (m_intZoom != 100 || suyo != m_fuente->natural) {
        pintor.setRenderHint(QPainter::SmoothPixmapTransform);
        const QSizeF tam = fTamGirado(size(), m_intCuartos);
        pintor.setTransform(fGiro(m_intCuartos, tam), true);
        pintor.scale(tam.width() / suyo.width(), tam.height() / suyo.height());
    } else {
        // On a scaled screen the control can begin between two device pixels; the picture must not.
        const QPointF origen = pintor.deviceTransform().map(QPointF(0, 0));
        const double dblRazon = devicePixelRatioF();
        pintor.translate((std::round(origen.x()) - origen.x()) / dblRazon,
                         (std::round(origen.y()) - origen.y()) / dblRazon);
        pintor.scale(1 / dblRazon, 1 / dblRazon);
        pintor.setTransform(fGiro(m_intCuartos, suyo), true);
    }
    fPintar(pintor, evento->rect());
}

/// Paints what of the picture shows in a part of the control.
/// @param pintor its unit is a pixel of the picture.
void imgFoto::fPintar(QPainter &pintor, QRect visible) const
{
    QImage &imagen = m_fuente->imagen;
    constexpr int intBorde = 2; // what smooth scaling mixes in
    const QTransform aControl = pintor.transform();
    const QRect parte = aControl.inverted()
                            .mapRect(QRectF(visible))
                            .toAlignedRect()
                            .adjusted(-intBorde, -intBorde, intBorde, intBorde) &
                        imagen.rect();
    if (parte.isEmpty()) {
        return;
    }
    if (m_fuente->tinte) {
        const double dblEscala = std::sqrt(std::abs(aControl.determinant())) * devicePixelRatioF();
        if (const auto intPaso = static_cast<int>(std::lround(1 / dblEscala)); intPaso > 1) {
            // Too much to convert, for what is shown but until there is a smaller picture.
            const QImage muestra = m_fuente->tinte->fMuestra(imagen, parte, intPaso);
            pintor.drawImage(QRectF(parte.topLeft(), muestra.size() * intPaso), muestra);
            return;
        }
        m_fuente->tinte->fTenir(imagen, parte);
    }
    // As a picture of its own: Qt scales what lies beyond the 10,000th pixel six times as slowly.
    const QImage vista(imagen.constScanLine(parte.y()) + parte.x() * (imagen.depth() / 8),
                       parte.width(), parte.height(), imagen.bytesPerLine(), imagen.format());
    pintor.drawImage(parte.topLeft(), vista);
}

void imgFoto::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() == Qt::LeftButton && fSePuedeArrastrar(fRecuadro(), m_encaje)) {
        m_bolArrastrando = true;
        m_pulsado = mapToParent(evento->position());
        setCursor(Qt::ClosedHandCursor);
    }
}

void imgFoto::mouseMoveEvent(QMouseEvent *evento)
{
    if (!m_bolArrastrando) {
        return;
    }
    if (!(evento->buttons() & Qt::LeftButton)) {
        fTerminarArrastre();
        return;
    }
    const QPointF delta = (mapToParent(evento->position()) - m_pulsado) * intTwipsPixel;
    m_encaje = fArrastrar(fRecuadro(), m_encaje, delta.x(), delta.y());
    fAplicar();
}

void imgFoto::mouseReleaseEvent(QMouseEvent *) { fTerminarArrastre(); }

void imgFoto::fTerminarArrastre()
{
    if (m_bolArrastrando) {
        m_bolArrastrando = false;
        setCursor(m_encaje.bolArrastrable ? Qt::OpenHandCursor : Qt::ArrowCursor);
    }
}
