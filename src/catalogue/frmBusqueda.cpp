#include "catalogue/frmBusqueda.h"

#include "shared/errores.h"
#include "shared/qtexto.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QVBoxLayout>

namespace {

/// A label that shows a path too long for it with its middle left out.
class clsEtiquetaRuta : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, fontMetrics().height()}; }
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter pintor(this);
        pintor.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                        fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
    }
};

} // namespace

frmBusqueda::frmBusqueda(QWidget *padre, clsMensajes &mensajes, clsSeguir fSeguir)
    : QDialog(padre), m_mensajes(mensajes), m_fSeguir(std::move(fSeguir)),
      m_lblMsg(new clsEtiquetaRuta(QStringLiteral("Buscando..."), this))
{
    setObjectName(QStringLiteral("frmBusqueda"));
    setWindowTitle(QStringLiteral("Analizando..."));
    m_lblMsg->setObjectName(QStringLiteral("lblMsg"));
    m_lblMsg->setTextFormat(Qt::PlainText);
    auto *const caja = new QVBoxLayout(this);
    caja->addWidget(m_lblMsg);
    const QSize tam(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 5);
    setFixedSize(tam.boundedTo(screen()->availableSize() * 0.9));
}

clsConstruccion frmBusqueda::fBuscar(const std::string &strRaiz)
{
    m_lblMsg->clear();
    show();
    // The build starts once the window can be seen; one that is never shown (minimised) is not
    // waited for long.
    constexpr int intEspera = 500; // milliseconds
    bool bolSeguir = true;
    QElapsedTimer reloj;
    reloj.start();
    while (!m_bolPintado && bolSeguir && reloj.elapsed() < intEspera) {
        bolSeguir = m_fSeguir();
        QThread::msleep(1);
    }
    const clsConstruccion construccion =
        bolSeguir ? fConstruir(strRaiz, *this) : clsConstruccion{Construccion::Interrumpida, 0};
    hide();
    static_cast<void>(m_fSeguir());
    return construccion;
}

void frmBusqueda::closeEvent(QCloseEvent *evento) { evento->ignore(); }

void frmBusqueda::paintEvent(QPaintEvent *evento)
{
    m_bolPintado = true;
    QDialog::paintEvent(evento);
}

void frmBusqueda::fCarpeta(const std::string &strCarpeta) { m_strCarpeta = strCarpeta; }

void frmBusqueda::fError(clsError error)
{
    m_lblMsg->setText(fQPantalla(m_strCarpeta));
    m_mensajes.fAvisoEnSerie(fTextoError(error));
}

bool frmBusqueda::fSeguir()
{
    m_lblMsg->setText(fQPantalla(m_strCarpeta));
    return m_fSeguir();
}
