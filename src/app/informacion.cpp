#include "app/informacion.h"

#include "dates/clsFile.h"
#include "shared/qhilos.h"
#include "shared/qtexto.h"
#include "viewer/de_paso.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <utility>

/// An information box: text to read. Where it is wider than its place it shows the end, which
/// tells name, date and size, and the whole as a tooltip.
class clsCajaInfo : public QLineEdit {
public:
    /// @param strAccesible what screen readers call it.
    clsCajaInfo(const char *strNombre, const QString &strAccesible, QWidget *padre);

    /// Limits the text to the part of the box that can be seen.
    /// @param intX where something else begins, in coordinates of the parent.
    void fHasta(int intX);

    /// Makes it a label on a ground of its own, hidden at first.
    void fColorear(const QColor &color);

protected:
    bool event(QEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;

private:
    [[nodiscard]] QRect fSitio() const;
    [[nodiscard]] bool fCabe() const;
};

clsCajaInfo::clsCajaInfo(const char *strNombre, const QString &strAccesible, QWidget *padre)
    : QLineEdit(padre)
{
    setObjectName(QString::fromLatin1(strNombre));
    setAccessibleName(strAccesible);
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void clsCajaInfo::fHasta(int intX)
{
    setTextMargins(0, 0, std::max(geometry().right() + 1 - intX, 0), 0);
}

void clsCajaInfo::fColorear(const QColor &color)
{
    QPalette colores = palette();
    colores.setColor(QPalette::Base, color);
    colores.setColor(QPalette::Text, Qt::white);
    setPalette(colores);
    setAlignment(Qt::AlignCenter);
    hide();
}

QRect clsCajaInfo::fSitio() const
{
    constexpr int intMargen = 2; // what a line edit leaves free beside its text, in pixels
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &opcion, this)
        .marginsRemoved(textMargins())
        .adjusted(intMargen, 0, -intMargen, 0);
}

bool clsCajaInfo::fCabe() const
{
    return fontMetrics().horizontalAdvance(text()) <= fSitio().width();
}

bool clsCajaInfo::event(QEvent *evento)
{
    if (evento->type() != QEvent::ToolTip) {
        return QLineEdit::event(evento);
    }
    // A path that looks like markup is still a path.
    QToolTip::showText(static_cast<QHelpEvent *>(evento)->globalPos(),
                       fCabe()                       ? QString()
                       : Qt::mightBeRichText(text()) ? Qt::convertFromPlainText(text())
                                                     : text(),
                       this);
    return true;
}

void clsCajaInfo::paintEvent(QPaintEvent *evento)
{
    if (hasSelectedText() || fCabe()) {
        QLineEdit::paintEvent(evento);
        return;
    }
    QStylePainter pintor(this);
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    pintor.drawPrimitive(QStyle::PE_PanelLineEdit, opcion);
    const QRect sitio = fSitio();
    pintor.drawItemText(sitio, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        fontMetrics().elidedText(text(), Qt::ElideLeft, sitio.width()),
                        QPalette::Text);
}

clsInformacion::clsInformacion(QWidget *cliente, clsSignos signos, int intArriba)
    : QObject(cliente), m_cliente(cliente), m_signos(std::move(signos)),
      m_txtInfo1(new clsCajaInfo("txtInfo1", QStringLiteral("Posición en la lista"), cliente)),
      m_txtInfo2(new clsCajaInfo("txtInfo2", QStringLiteral("Archivo actual"), cliente)),
      m_txtInfo3(new clsCajaInfo("txtInfo3", QStringLiteral("Aviso de fechas"), cliente)),
      m_jueces({.intHilos = 2, .fAvisar = fAvisarA(this)})
{
    fCrearAviso();
    fCrearEtiquetas();
    const QFontMetrics letra = cliente->fontMetrics();
    const int intAlto = m_txtInfo1->sizeHint().height();
    const int intAncho1 = letra.horizontalAdvance(QStringLiteral("  1000000 de 1000000  "));
    const int intAncho3 = letra.horizontalAdvance(m_txtInfo3->text()) + intAlto;
    m_txtInfo1->setAlignment(Qt::AlignCenter);
    m_txtInfo1->setGeometry(0, intArriba, intAncho1, intAlto);
    m_txtInfo2->setGeometry(intAncho1, intArriba, cliente->screen()->size().width(), intAlto);
    m_txtInfo3->setGeometry(0, intArriba, intAncho3, intAlto);
}

void clsInformacion::fCrearAviso()
{
    m_txtInfo3->setText(QStringLiteral("CONFLICTO FECHAS"));
    m_txtInfo3->fColorear(QColor(0xb3, 0x26, 0x1e));
}

void clsInformacion::fCrearEtiquetas()
{
    constexpr const char *lstNombres[][2] = {
        {"txtEstado0", "Filtro"        },
        {"txtEstado1", "Marcas"        },
        {"txtEstado2", "Zoom"          },
        {"txtEstado3", "Carga"         },
        {"txtEstado4", "Copias"        },
        {"txtEstado5", "Otros formatos"}
    };
    static_assert(std::size(lstNombres) == std::tuple_size_v<clsEtiquetas>);
    for (std::size_t lng = 0; lng < m_lstEtiquetas.size(); ++lng) {
        m_lstEtiquetas[lng] = new clsCajaInfo(
            lstNombres[lng][0], QString::fromUtf8(lstNombres[lng][1]), m_txtInfo3->parentWidget());
        m_lstEtiquetas[lng]->fColorear(QColor(0x3f, 0x55, 0x6b)); // calmer than the warning
    }
}

void clsInformacion::fMostrar(const clsEstado &estado, bool bolDePaso)
{
    constexpr std::chrono::milliseconds usual{200};
    // A disk that has not given the picture has not answered a moment ago: it is not waited for.
    fJuzgar(estado.filas.fRutaDisco(estado.lngActual), estado.fSinFoto() ? usual.zero()
                                                       : bolDePaso       ? plazoDePaso
                                                                         : usual);
    fLugar(estado.lngActual, estado.filas.fCantidad());
    fNombrar(estado);
}

void clsInformacion::fNombrar(const clsEstado &estado)
{
    fDecir(fQ(fTextoInfo2(estado, m_signos)));
}

void clsInformacion::fEtiquetar(const clsEstado &estado)
{
    const clsEtiquetas lstTextos = fEtiquetas(estado);
    for (std::size_t lng = 0; lng < m_lstEtiquetas.size(); ++lng) {
        m_lstEtiquetas[lng]->setText(fQ(lstTextos[lng]));
    }
    fDisponerEtiquetas();
}

void clsInformacion::fLugar(int lngPos, int lngCantidad)
{
    m_txtInfo1->setText(fQ(fTextoInfo1(lngPos, lngCantidad)));
}

void clsInformacion::fDecir(const QString &strTexto)
{
    if (strTexto != m_txtInfo2->text()) { // else what the user has selected stays so
        m_txtInfo2->setText(strTexto);
        m_txtInfo2->setCursorPosition(0);
    }
}

void clsInformacion::fAnunciar(const QString &strTexto)
{
    fDecir(strTexto);
    m_txtInfo2->repaint();
}

QString clsInformacion::fDicho() const { return m_txtInfo2->text(); }

void clsInformacion::fVaciar()
{
    m_jueces.fAnular();
    m_txtInfo1->clear();
    m_txtInfo2->clear();
    fAvisar(false);
}

int clsInformacion::fAbajo() const { return m_txtInfo1->geometry().bottom() + 1; }

int clsInformacion::fAnchoAviso() const { return m_txtInfo3->width(); }

void clsInformacion::fDisponer(int intAviso)
{
    m_txtInfo1->raise();
    m_txtInfo2->raise();
    m_txtInfo3->raise();
    for (clsCajaInfo *const etiqueta : m_lstEtiquetas) {
        etiqueta->raise();
    }
    m_txtInfo3->move(intAviso, m_txtInfo3->y());
    fAvisar(!m_txtInfo3->isHidden());
}

/// Has a file's date judged. As a rule that takes no time worth mentioning; a disk that does not
/// answer must not hold the window up.
void clsInformacion::fJuzgar(const std::string &strRuta, std::chrono::milliseconds paciencia)
{
    m_jueces.fAnular();
    const auto orden = m_jueces.fPedir([strRuta] { return fFechaCorrecta(strRuta); },
                                       [this](bool bolCorrecta) { fAvisar(!bolCorrecta); });
    if (!m_jueces.fEsperar(orden, paciencia)) {
        fAvisar(false); // until it is known
    }
}

/// Shows or hides the warning.
void clsInformacion::fAvisar(bool bolMal)
{
    m_txtInfo3->setVisible(bolMal);
    fDisponerEtiquetas();
}

/// Places the labels from the right, left of the warning's place, so that it moves none of them;
/// one that finds no room is not shown. txtInfo2 goes on below them and beyond the window; its text
/// does not.
void clsInformacion::fDisponerEtiquetas()
{
    int intX = m_txtInfo3->x();
    int intFin = m_txtInfo3->isHidden() ? m_cliente->width() : intX;
    for (clsCajaInfo *const etiqueta : m_lstEtiquetas) {
        const int intAncho =
            m_cliente->fontMetrics().horizontalAdvance(etiqueta->text()) + m_txtInfo3->height();
        const bool bolCabe = !etiqueta->text().isEmpty() && intX - intAncho >= m_txtInfo2->x();
        if (bolCabe) {
            intX -= intAncho;
            etiqueta->setGeometry(intX, m_txtInfo3->y(), intAncho, m_txtInfo3->height());
            intFin = intX;
        }
        etiqueta->setVisible(bolCabe);
    }
    m_txtInfo2->fHasta(intFin);
}
