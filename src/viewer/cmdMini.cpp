#include "viewer/cmdMini.h"

#include "shared/giros.h"
#include "shared/qtexto.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace {

// The cells lie on a dark ground of our own, so their colours are our own, too.
constexpr QRgb colCelda = qRgb(0x34, 0x34, 0x34);
constexpr QRgb colEncima = qRgb(0x42, 0x42, 0x42);
constexpr QRgb colActual = qRgb(0x5a, 0xa2, 0xff);
constexpr QRgb colMarcaFondo = qRgb(0x1a, 0x7a, 0x3f);
constexpr QRgb colTexto = qRgb(0xf0, 0xf0, 0xf0);
constexpr int intMarco = 3;

} // namespace

cmdMini::cmdMini(int intIndice, QWidget *padre) : QPushButton(padre)
{
    setObjectName(QStringLiteral("cmdMini%1").arg(intIndice));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    hide();
    // Only assistive technology clicks: the mouse is handled by its press.
    connect(this, &QPushButton::clicked, this,
            [this] { emit fPulsada(Qt::LeftButton, Qt::NoModifier); });
}

void cmdMini::fPoner(const QPixmap &imagen, const QString &strTexto)
{
    m_imagen = imagen;
    m_intCuartos = 0;
    setIcon(QIcon(imagen));
    setText(strTexto);
    fNombrar();
    update();
}

void cmdMini::fEstado(bool bolMarcada, bool bolActual)
{
    if (bolMarcada != m_bolMarcada || bolActual != m_bolActual) {
        m_bolMarcada = bolMarcada;
        m_bolActual = bolActual;
        fNombrar();
        update();
    }
}

void cmdMini::fGirar(int intCuartos)
{
    if (intCuartos != m_intCuartos) {
        m_intCuartos = intCuartos;
        setIcon(QIcon(fVista()));
        fNombrar();
        update();
    }
}

/// The picture as it is shown.
QPixmap cmdMini::fVista() const
{
    constexpr int intCuarto = 90; // degrees
    return m_intCuartos == 0 ? m_imagen
                             : m_imagen.transformed(QTransform().rotate(intCuarto * m_intCuartos));
}

void cmdMini::fConsejo(const QString &strConsejo)
{
    m_strConsejo = strConsejo;
    // A name that looks like markup is still a name.
    setToolTip(Qt::mightBeRichText(strConsejo) ? Qt::convertFromPlainText(strConsejo) : strConsejo);
    fNombrar();
}

/// The cell's name is the file, its caption, whether it is ticked, and how it is turned. The file
/// is told besides: without a description of its own the tooltip would be taken for one, which
/// knows nothing of ticks.
void cmdMini::fNombrar()
{
    QString strMarca = m_bolMarcada ? QStringLiteral(", seleccionado") : QString();
    if (m_intCuartos != 0) {
        strMarca += QStringLiteral(", ") + fQ(fTextoGiro(m_intCuartos));
    }
    const QString strTodo = m_strConsejo + strMarca;
    QString strRotulo = text();
    if (strRotulo.contains(QLatin1String("  "))) {
        strRotulo.remove(QLatin1Char(' ')); // letters set apart would be spelled
    }
    const QString strNombre =
        strRotulo.isEmpty() ? strTodo : m_strConsejo + QLatin1String(", ") + strRotulo + strMarca;
    if (strNombre != accessibleName()) { // each of the two is told to screen readers
        setAccessibleName(strNombre);
    }
    if (strTodo != accessibleDescription()) {
        setAccessibleDescription(strTodo);
    }
}

void cmdMini::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    pintor.fillRect(rect(), QColor(underMouse() ? colEncima : colCelda));
    const QPixmap vista = fVista();
    const QSizeF tam = vista.deviceIndependentSize();
    // On whole device pixels, so that no pixel of the picture is smeared over two.
    const double dblDpr = devicePixelRatioF();
    const auto fEntero = [dblDpr](double dblX) { return std::floor(dblX * dblDpr) / dblDpr; };
    pintor.drawPixmap(
        QPointF(fEntero((width() - tam.width()) / 2), fEntero((height() - tam.height()) / 2)),
        vista);
    fPintarTexto(pintor);
    pintor.setRenderHint(QPainter::Antialiasing);
    const int intGrosor = m_bolActual ? intMarco : 1;
    pintor.setPen(QPen(QColor(m_bolActual ? colActual : qRgb(0x2b, 0x2b, 0x2b)), intGrosor));
    const double dblMedio = intGrosor / 2.0;
    pintor.drawRect(QRectF(rect()).adjusted(dblMedio, dblMedio, -dblMedio, -dblMedio));
    if (m_bolMarcada) {
        fPintarMarca(pintor);
    }
}

/// The caption's font: a little smaller than the desktop's, as far as the cell has room for it.
QFont cmdMini::fLetra() const
{
    constexpr int intMinima = 8; // pixels; smaller is no letter any more
    const int intSitio = width() - 2 * (intMarco + 1);
    QFont letra = font();
    int intTam =
        std::max(std::min(QFontInfo(letra).pixelSize() * 11 / 12, height() / 7), intMinima);
    letra.setPixelSize(intTam);
    while (intTam > intMinima && QFontMetrics(letra).horizontalAdvance(text()) > intSitio) {
        letra.setPixelSize(--intTam);
    }
    return letra;
}

/// The caption at the foot, over the picture where that reaches so far down.
void cmdMini::fPintarTexto(QPainter &pintor) const
{
    if (text().isEmpty()) {
        return;
    }
    pintor.setFont(fLetra());
    const int intAlto = pintor.fontMetrics().height();
    const QRect franja(1, height() - intAlto - 2, width() - 2, intAlto);
    QColor fondo{colCelda};
    fondo.setAlpha(0xd0);
    pintor.fillRect(franja, fondo);
    pintor.setPen(QColor(colTexto));
    pintor.drawText(franja, Qt::AlignCenter | Qt::TextSingleLine, text());
}

/// A white tick on a green disk in the top right corner.
void cmdMini::fPintarMarca(QPainter &pintor) const
{
    const double dblLado = std::clamp(width() / 5.0, 16.0, 24.0);
    pintor.translate(width() - dblLado - intMarco - 1, intMarco + 1);
    pintor.scale(dblLado, dblLado);
    pintor.setPen(QPen(Qt::white, 0.08));
    pintor.setBrush(QColor(colMarcaFondo));
    pintor.drawEllipse(QRectF(0.05, 0.05, 0.9, 0.9));
    pintor.setPen(QPen(Qt::white, 0.14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    pintor.drawPolyline(QPolygonF({QPointF(0.28, 0.52), QPointF(0.44, 0.68), QPointF(0.73, 0.34)}));
}

void cmdMini::mousePressEvent(QMouseEvent *evento)
{
    emit fPulsada(evento->button(), evento->modifiers());
}

void cmdMini::mouseDoubleClickEvent(QMouseEvent *evento)
{
    // What the press does can take this cell away.
    const bool bolAbrir =
        evento->button() == Qt::LeftButton && evento->modifiers() == Qt::NoModifier;
    const QPointer<cmdMini> sigue(this);
    mousePressEvent(evento);
    if (bolAbrir && sigue) {
        emit fDobleClic();
    }
}
