#include "timeline/frmTiempo.h"

#include "shared/qtexto.h"
#include "timeline/rotulos.h"
#include "timeline/textos_tiempo.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

/// The page follows the pointer so often at most.
constexpr std::chrono::milliseconds pausaRaton{30};

// The ground is that of the viewing panel, a little darker, on light and dark desktops alike.
constexpr QRgb colFondo = qRgb(0x20, 0x20, 0x20);
constexpr QRgb colRaya = qRgb(0x5c, 0x5c, 0x5c);
constexpr QRgb colBarra = qRgb(0x7d, 0x93, 0xa8);
constexpr QRgb colPagina = qRgb(0xc9, 0xdd, 0xf0);
constexpr QRgb colActual = qRgb(0xff, 0xb7, 0x4d);
constexpr QRgb colMala = qRgb(0xf2, 0x5c, 0x54);
constexpr QRgb colTexto = qRgb(0xc8, 0xc8, 0xc8);
constexpr QRgb colCursor = qRgb(0xff, 0xff, 0xff);

// What lies above each other, in pixels.
constexpr int intArriba = 5;   ///< nothing
constexpr int intBarras = 33;  ///< the highest bar
constexpr int intSenales = 6;  ///< the line the bars stand on, and what shows where we are
constexpr double dblMenor = 2; ///< the lowest bar

constexpr double dblMayorAncho = 32; ///< of a bar, where a month or day has more room
constexpr double dblTrasMarca = 4;   ///< from the mark of a year to its text
constexpr double dblMargen = 4;      ///< from the edges of the strip to the axis
constexpr double dblMargenSinFecha = 20;

const QString strSinFecha = QStringLiteral("sin fecha");

QColor fVelo(QRgb color, int intAlfa)
{
    QColor velo{color};
    velo.setAlpha(intAlfa);
    return velo;
}

} // namespace

frmTiempo::frmTiempo(QWidget *padre, clsPeticiones peticiones)
    : QWidget(padre), m_peticiones(std::move(peticiones))
{
    setObjectName(QStringLiteral("frmTiempo"));
    setAccessibleName(QStringLiteral("Línea de tiempo"));
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_ritmo.setSingleShot(true);
    connect(&m_ritmo, &QTimer::timeout, this, &frmTiempo::fAtenderPedida);
}

int frmTiempo::fAlto(const QFontMetrics &letra)
{
    return intArriba + intBarras + intSenales + letra.height();
}

bool frmTiempo::fEsSuya(const QKeyEvent &evento)
{
    constexpr int lstTeclas[] = {Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,
                                 Qt::Key_Down,  Qt::Key_Home,   Qt::Key_End,
                                 Qt::Key_Enter, Qt::Key_Return, Qt::Key_Escape};
    return (evento.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier &&
           std::find(std::begin(lstTeclas), std::end(lstTeclas), evento.key()) !=
               std::end(lstTeclas);
}

void frmTiempo::fMostrar(clsDias dias)
{
    m_tira.fMostrar(std::move(dias));
    m_gesto = Gesto::Ninguno;
    m_pedida.reset();
    fDisponerTira();
}

void frmTiempo::fSituar(clsFecha actual, std::vector<clsFecha> lstPagina)
{
    m_actual = actual;
    m_lstPagina = std::move(lstPagina);
    if (const int lngBarra = fActual(); lngBarra >= 0) {
        const clsBarra barra = m_tira.fBarras()[static_cast<std::size_t>(lngBarra)];
        if (m_gesto == Gesto::Ninguno) { // else it would move under the pointer
            m_tira.fIncluir(barra);
        }
        m_cursor = barra;
    }
    update();
}

// --- What the user does ---

bool frmTiempo::event(QEvent *evento)
{
    // It is told at once what lies under the pointer, not after a while.
    return evento->type() == QEvent::ToolTip || QWidget::event(evento);
}

void frmTiempo::resizeEvent(QResizeEvent * /*evento*/) { fDisponerTira(); }

void frmTiempo::fDisponerTira()
{
    m_tira.fDisponer({dblMargen, std::max(width() - dblMargen, dblMargen)},
                     QFontMetrics(fLetra()).horizontalAdvance(strSinFecha) + dblMargenSinFecha);
    update();
}

void frmTiempo::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() != Qt::LeftButton) {
        evento->ignore();
        return;
    }
    m_dblPulsado = evento->position().x();
    m_dblRaton = m_dblPulsado;
    m_gesto = evento->modifiers() == Qt::ShiftModifier ? Gesto::Rango : Gesto::Ir;
    fDecirRaton();
    if (m_gesto == Gesto::Ir) {
        fPedir(m_tira.fDesde(m_dblPulsado));
    }
}

void frmTiempo::mouseMoveEvent(QMouseEvent *evento)
{
    const double dblAntes = m_dblRaton.value_or(-1);
    m_dblRaton = evento->position().x();
    fDecirRaton();
    if (m_gesto == Gesto::Ir && m_tira.fDesde(dblAntes) != m_tira.fDesde(*m_dblRaton)) {
        fPedir(m_tira.fDesde(*m_dblRaton));
    }
}

void frmTiempo::mouseReleaseEvent(QMouseEvent *evento)
{
    if (evento->button() != Qt::LeftButton ||
        std::exchange(m_gesto, Gesto::Ninguno) != Gesto::Rango) {
        return;
    }
    update();
    const clsBarra rango = m_tira.fEntre(m_dblPulsado, evento->position().x());
    if (rango.lngArchivos > 0) {
        fCallar();
        m_peticiones.fFiltrar(rango.periodo);
    }
}

void frmTiempo::leaveEvent(QEvent * /*evento*/)
{
    m_dblRaton.reset();
    fCallar();
    update();
}

void frmTiempo::wheelEvent(QWheelEvent *evento)
{
    constexpr double dblDoble = 240; // so far the wheel turns for twice the size
    const QPoint giro = evento->angleDelta();
    m_dblRaton = evento->position().x();
    m_tira.fCorrer(-giro.x());
    m_tira.fAmpliar(*m_dblRaton, std::exp2(giro.y() / dblDoble));
    if (const int lngCursor = fCursor(); lngCursor >= 0) { // months may be days now
        m_cursor = m_tira.fBarras()[static_cast<std::size_t>(lngCursor)];
    }
    fDecirRaton();
    evento->accept(); // else it would step through the files
}

void frmTiempo::keyPressEvent(QKeyEvent *evento)
{
    const int lngCursor = fCursor();
    const clsIntervalo sitio = m_tira.fSitio(m_cursor);
    const double dblMedio = (sitio.dblDesde + sitio.dblHasta) / 2;
    switch (evento->key()) {
    case Qt::Key_Left:
        return fMoverCursor(lngCursor - 1);
    case Qt::Key_Right:
        return fMoverCursor(lngCursor + 1);
    case Qt::Key_Home:
        return fMoverCursor(0);
    case Qt::Key_End:
        return fMoverCursor(static_cast<int>(m_tira.fBarras().size()) - 1);
    case Qt::Key_Up:
        return fAmpliar(dblMedio, 2);
    case Qt::Key_Down:
        return fAmpliar(dblMedio, 0.5);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return fPedir(lngCursor);
    case Qt::Key_Escape:
        return m_peticiones.fDejar();
    default:
        QWidget::keyPressEvent(evento);
    }
}

void frmTiempo::focusInEvent(QFocusEvent *evento)
{
    QWidget::focusInEvent(evento);
    fMoverCursor(fActual() >= 0 ? fActual() : fCursor());
}

void frmTiempo::focusOutEvent(QFocusEvent *evento)
{
    QWidget::focusOutEvent(evento);
    fCallar();
    update();
}

/// The index of the bar that the keyboard is at; months and days change under it.
int frmTiempo::fCursor() const
{
    return m_cursor.fSinFecha() && !m_tira.fBarras().empty()
               ? 0
               : fBarraDesde(m_tira.fBarras(), m_cursor.periodo.desde);
}

void frmTiempo::fMoverCursor(int lngBarra)
{
    const std::vector<clsBarra> &lstBarras = m_tira.fBarras();
    if (lstBarras.empty()) {
        return;
    }
    m_cursor = lstBarras[static_cast<std::size_t>(
        std::clamp(lngBarra, 0, static_cast<int>(lstBarras.size()) - 1))];
    m_tira.fIncluir(m_cursor);
    fDecirCursor();
    update();
}

void frmTiempo::fAmpliar(double dblX, double dblFactor)
{
    m_tira.fAmpliar(dblX, dblFactor);
    fMoverCursor(fCursor());
}

/// Goes to a bar, now or as soon as that may be.
void frmTiempo::fPedir(int lngBarra)
{
    if (lngBarra >= 0) {
        m_pedida = m_tira.fBarras()[static_cast<std::size_t>(lngBarra)];
    }
    if (!m_ritmo.isActive()) {
        fAtenderPedida();
    }
}

void frmTiempo::fAtenderPedida()
{
    if (!m_pedida) {
        return;
    }
    m_ritmo.start(pausaRaton);
    // Meanwhile events run, and with them another request.
    const clsBarra barra = *std::exchange(m_pedida, std::nullopt);
    if (!m_peticiones.fIr(barra) && !m_pedida) {
        m_pedida = barra;
    }
}

// --- What it says ---

/// Tells of a bar, above the strip, so that it can still be seen.
void frmTiempo::fDecir(const clsBarra &barra, double dblX)
{
    constexpr int intSalto = 30; // a tip stands below the point, so far with its frame
    const QPoint punto(static_cast<int>(dblX), -fontMetrics().height() - intSalto);
    const QString strTexto = fQ(fTextoBarra(barra));
    QToolTip::showText(mapToGlobal(punto), strTexto, this);
    if (strTexto != accessibleDescription()) { // a change is told to screen readers
        setAccessibleDescription(strTexto);
    }
}

void frmTiempo::fDecirRaton()
{
    if (m_tira.fBarras().empty() || !m_dblRaton) {
        return;
    }
    fDecir(m_gesto == Gesto::Rango ? m_tira.fEntre(m_dblPulsado, *m_dblRaton)
                                   : m_tira.fEn(*m_dblRaton),
           *m_dblRaton);
    update();
}

void frmTiempo::fDecirCursor()
{
    const clsIntervalo sitio = m_tira.fSitio(m_cursor);
    fDecir(m_cursor, (sitio.dblDesde + sitio.dblHasta) / 2);
}

void frmTiempo::fCallar() { QToolTip::hideText(); }

// --- What it shows ---

QFont frmTiempo::fLetra() const
{
    QFont letra = font();
    letra.setPixelSize(QFontInfo(letra).pixelSize() * 11 / 12);
    return letra;
}

/// Where a bar's month or day lies, from the upper edge to the line, on whole device pixels.
QRectF frmTiempo::fHueco(const clsBarra &barra) const
{
    const double dblDpr = devicePixelRatioF();
    const auto fEntero = [dblDpr](double dblX) { return std::round(dblX * dblDpr) / dblDpr; };
    const clsIntervalo sitio = m_tira.fSitio(barra);
    const double dblDesde = fEntero(sitio.dblDesde);
    const double dblHasta = std::max(fEntero(sitio.dblHasta), dblDesde + 1 / dblDpr);
    return {dblDesde, 0, dblHasta - dblDesde, intArriba + intBarras};
}

void frmTiempo::paintEvent(QPaintEvent * /*evento*/)
{
    QPainter pintor(this);
    pintor.fillRect(rect(), QColor(colFondo));
    if (m_tira.fBarras().empty()) {
        return;
    }
    if (m_dblRaton) {
        const clsBarra bajo = m_gesto == Gesto::Rango ? m_tira.fEntre(m_dblPulsado, *m_dblRaton)
                                                      : m_tira.fEn(*m_dblRaton);
        pintor.fillRect(fHueco(bajo),
                        m_gesto == Gesto::Rango ? fVelo(colActual, 0x60) : fVelo(colCursor, 0x28));
    }
    fPintarEje(pintor);
    fPintarRotulos(pintor);
    fPintarBarras(pintor);
}

/// The line that the bars stand on. Where days are folded, two strokes cut it.
void frmTiempo::fPintarEje(QPainter &pintor) const
{
    constexpr double dblHueco = 5;
    const double dblY = intArriba + intBarras;
    pintor.fillRect(QRectF(0, dblY, width(), 1), QColor(colRaya));
    pintor.setPen(QPen(QColor(colTexto), 1));
    pintor.setRenderHint(QPainter::Antialiasing);
    for (const clsTrecho &trecho : m_tira.fEje().fTrechos()) {
        if (trecho.bolPlegado) {
            const clsIntervalo sitio = m_tira.fSitio(trecho.periodo);
            const double dblX = std::round((sitio.dblDesde + sitio.dblHasta) / 2);
            pintor.fillRect(QRectF(dblX - dblHueco / 2, dblY, dblHueco, 1), QColor(colFondo));
            for (const double dblLado : {-dblHueco / 2, dblHueco / 2}) {
                pintor.drawLine(QPointF(dblX + dblLado - 2, dblY + 4),
                                QPointF(dblX + dblLado + 2, dblY - 3));
            }
        }
    }
    pintor.setRenderHint(QPainter::Antialiasing, false);
}

void frmTiempo::fPintarRotulos(QPainter &pintor) const
{
    const int intY = intArriba + intBarras + intSenales;
    pintor.setFont(fLetra());
    const QFontMetrics letra = pintor.fontMetrics();
    const auto fPoner = [&](double dblX, const QString &strTexto) {
        pintor.setPen(QColor(colTexto));
        pintor.drawText(QPointF(dblX, intY + letra.ascent()), strTexto);
    };
    for (const clsRotulo &rotulo : fRotulos(m_tira, [&](const std::string &strTexto) {
             return letra.horizontalAdvance(fQ(strTexto)) + dblTrasMarca;
         })) {
        const double dblX = std::floor(rotulo.dblX);
        pintor.fillRect(QRectF(dblX, intY - intSenales, 1, intSenales + letra.ascent()),
                        QColor(colRaya));
        fPoner(dblX + dblTrasMarca, fQ(rotulo.strTexto));
    }
    const clsIntervalo eje = m_tira.fSitioEje();
    if (eje.dblDesde > dblMargen) {
        fPoner((dblMargen + eje.dblDesde - letra.horizontalAdvance(strSinFecha)) / 2, strSinFecha);
        pintor.fillRect(QRectF(eje.dblDesde - 3, 0, 1, height()), QColor(colRaya));
    }
}

void frmTiempo::fPintarBarra(QPainter &pintor, const clsBarra &barra, QRgb color) const
{
    QRectF hueco = fHueco(barra);
    if (hueco.width() >= 3) {
        hueco.setWidth(hueco.width() - 1); // from its neighbour
    }
    const double dblAncho = std::min(hueco.width(), dblMayorAncho);
    const double dblX = hueco.left() + std::floor((hueco.width() - dblAncho) / 2);
    const double dblAlto =
        std::max(std::round(fAltura(barra.lngArchivos, m_tira.fMayor(), intBarras)), dblMenor);
    pintor.fillRect(QRectF(dblX, hueco.bottom() - dblAlto, dblAncho, dblAlto), QColor(color));
    if (barra.lngMalos > 0) {
        const double dblMalo =
            std::max(std::round(dblAlto * barra.lngMalos / barra.lngArchivos), dblMenor);
        pintor.fillRect(QRectF(dblX, hueco.bottom() - dblMalo, dblAncho, dblMalo), QColor(colMala));
    }
}

/// The bars, those of the page and of the current file in colours of their own; and since colours
/// are not for everybody, a line under the page and a mark under the current file.
void frmTiempo::fPintarBarras(QPainter &pintor) const
{
    const std::vector<clsBarra> &lstBarras = m_tira.fBarras();
    std::vector<QRgb> lstColores(lstBarras.size(), colBarra);
    for (const clsFecha fecha : m_lstPagina) {
        if (const int lngBarra = fBarraDe(lstBarras, fecha); lngBarra >= 0) {
            lstColores[static_cast<std::size_t>(lngBarra)] = colPagina;
        }
    }
    const int lngActual = fActual();
    const clsIntervalo eje = m_tira.fSitioEje();
    for (std::size_t lng = 0; lng < lstBarras.size(); ++lng) {
        const clsBarra &barra = lstBarras[lng];
        const clsIntervalo sitio = m_tira.fSitio(barra);
        if (!barra.fSinFecha() &&
            (sitio.dblHasta < eje.dblDesde || sitio.dblDesde > eje.dblHasta)) {
            continue;
        }
        const QRectF hueco = fHueco(barra);
        pintor.setClipRect(barra.fSinFecha()
                               ? QRectF(0, 0, eje.dblDesde, height())
                               : QRectF(eje.dblDesde, 0, eje.dblHasta - eje.dblDesde, height()));
        const bool bolActual = static_cast<int>(lng) == lngActual;
        fPintarBarra(pintor, barra, bolActual ? colActual : lstColores[lng]);
        if (lstColores[lng] == colPagina) {
            pintor.fillRect(
                QRectF(hueco.left(), hueco.bottom() + 1, std::max(hueco.width(), 3.0), 2),
                QColor(colPagina));
        }
    }
    pintor.setClipping(false);
    if (lngActual >= 0) {
        fPintarMarca(pintor, fHueco(lstBarras[static_cast<std::size_t>(lngActual)]));
    }
    if (hasFocus()) {
        fPintarCursor(pintor);
    }
}

/// A mark under the line, below the middle of a bar.
void frmTiempo::fPintarMarca(QPainter &pintor, const QRectF &hueco) const
{
    const QPointF punta(hueco.center().x(), hueco.bottom() + 1);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(QColor(colActual));
    pintor.drawPolygon(
        QPolygonF({punta, punta + QPointF(4, intSenales), punta + QPointF(-4, intSenales)}));
}

/// A frame around what the keyboard is at.
void frmTiempo::fPintarCursor(QPainter &pintor) const
{
    constexpr double dblMenorMarco = 8;
    const QRectF hueco = fHueco(m_cursor);
    const double dblMas = std::max((dblMenorMarco - hueco.width()) / 2, 1.5);
    pintor.setBrush(Qt::NoBrush);
    pintor.setPen(QPen(QColor(colCursor), 1));
    pintor.drawRect(hueco.adjusted(-dblMas, 1.5, dblMas, 0));
}
