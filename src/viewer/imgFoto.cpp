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
    const QSize suyo = m_fuente->imagen.size();
    if (m_intZoom != 100 || suyo != m_fuente->natural) {
        pintor.setRenderHint(QPainter::SmoothPixmapTransform);
        const QSizeF tam = fTamGirado(size(), m_intCuartos);
        pintor.setTransform(fGiro(m_intCuartos, tam), true);
        if (fTenir(pintor, tam, evento->rect())) {
            pintor.drawImage(QRectF({0, 0}, tam), m_fuente->imagen);
        }
        return;
    }
    // On a scaled screen the control can begin between two device pixels; the picture must not.
    const QPointF origen = pintor.deviceTransform().map(QPointF(0, 0));
    const double dblRazon = devicePixelRatioF();
    pintor.translate((std::round(origen.x()) - origen.x()) / dblRazon,
                     (std::round(origen.y()) - origen.y()) / dblRazon);
    pintor.scale(1 / dblRazon, 1 / dblRazon);
    pintor.setTransform(fGiro(m_intCuartos, suyo), true);
    if (fTenir(pintor, suyo, evento->rect())) {
        pintor.drawImage(0, 0, m_fuente->imagen);
    }
}

/// Sees to it that what is about to be painted has the screen's colours.
/// @param tam     size that the picture is painted in, in the painter's units.
/// @param visible part of the control.
/// @return false when that was too much to do, and the part is painted with fewer pixels.
bool imgFoto::fTenir(QPainter &pintor, QSizeF tam, QRect visible) const
{
    if (!m_fuente->tinte) {
        return true;
    }
    QImage &imagen = m_fuente->imagen;
    const QTransform aControl =
        QTransform::fromScale(tam.width() / imagen.width(), tam.height() / imagen.height()) *
        pintor.transform();
    constexpr int intBorde = 2; // what smooth scaling mixes in
    const QRect parte = aControl.inverted()
                            .mapRect(QRectF(visible))
                            .toAlignedRect()
                            .adjusted(-intBorde, -intBorde, intBorde, intBorde) &
                        imagen.rect();
    const auto intPaso = static_cast<int>(
        std::lround(1 / (std::sqrt(std::abs(aControl.determinant())) * devicePixelRatioF())));
    if (intPaso < 2) {
        m_fuente->tinte->fTenir(imagen, parte);
        return true;
    }
    // A picture with too many pixels for what shows is shown but until there is a smaller one.
    const QImage muestra = m_fuente->tinte->fMuestra(imagen, parte, intPaso);
    pintor.setTransform(aControl);
    pintor.drawImage(QRectF(parte.topLeft(), muestra.size() * intPaso), muestra);
    return false;
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
