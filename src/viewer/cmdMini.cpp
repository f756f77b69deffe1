#include "viewer/cmdMini.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace {

// The cells lie on a dark ground of our own, so their colours are our own, too.
constexpr QRgb colCelda = qRgb(0x34, 0x34, 0x34);
constexpr QRgb colEncima = qRgb(0x42, 0x42, 0x42);
constexpr QRgb colActual = qRgb(0x4c, 0x9a, 0xff);
constexpr QRgb colMarcaFondo = qRgb(0x1f, 0x8f, 0x4a);
constexpr QRgb colTexto = qRgb(0xf0, 0xf0, 0xf0);
constexpr int intMarco = 3;

} // namespace

cmdMini::cmdMini(int intIndice, QWidget *padre) : QPushButton(padre)
{
    setObjectName(QStringLiteral("cmdMini%1").arg(intIndice));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    QFont letra = font();
    letra.setPixelSize(11); // what the cell has room for below the picture
    setFont(letra);
    hide();
    // Only assistive technology clicks: the mouse is handled by its press.
    connect(this, &QPushButton::clicked, this,
            [this] { emit fPulsada(Qt::LeftButton, Qt::NoModifier); });
}

void cmdMini::fPoner(const QPixmap &imagen, const QString &strTexto)
{
    m_imagen = imagen;
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

void cmdMini::fConsejo(const QString &strConsejo)
{
    m_strConsejo = strConsejo;
    // A name that looks like markup is still a name.
    setToolTip(Qt::mightBeRichText(strConsejo) ? Qt::convertFromPlainText(strConsejo) : strConsejo);
    fNombrar();
}

/// Where there is a caption, that is the cell's name; the file is told besides.
void cmdMini::fNombrar()
{
    const QString strTodo =
        m_bolMarcada ? m_strConsejo + QStringLiteral(", seleccionado") : m_strConsejo;
    setAccessibleName(text().isEmpty() ? strTodo : QString());
    setAccessibleDescription(text().isEmpty() ? QString() : strTodo);
}

void cmdMini::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    pintor.fillRect(rect(), QColor(underMouse() ? colEncima : colCelda));
    const QSizeF tam = m_imagen.deviceIndependentSize();
    // On whole device pixels, so that no pixel of the picture is smeared over two.
    const double dblDpr = devicePixelRatioF();
    const auto fEntero = [dblDpr](double dblX) { return std::floor(dblX * dblDpr) / dblDpr; };
    pintor.drawPixmap(
        QPointF(fEntero((width() - tam.width()) / 2), fEntero((height() - tam.height()) / 2)),
        m_imagen);
    fPintarTexto(pintor);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(
        QPen(QColor(m_bolActual ? colActual : qRgb(0x2b, 0x2b, 0x2b)), m_bolActual ? intMarco : 1));
    const double dblMedio = (m_bolActual ? intMarco : 1) / 2.0;
    pintor.drawRect(QRectF(rect()).adjusted(dblMedio, dblMedio, -dblMedio, -dblMedio));
    if (m_bolMarcada) {
        fPintarMarca(pintor);
    }
}

/// The caption at the foot, over the picture where that reaches so far down.
void cmdMini::fPintarTexto(QPainter &pintor) const
{
    if (text().isEmpty()) {
        return;
    }
    const int intAlto = fontMetrics().height();
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
