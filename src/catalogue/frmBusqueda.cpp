#include "catalogue/frmBusqueda.h"

#include "shared/errores.h"
#include "shared/qtexto.h"
#include "shared/recados.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

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

/// Passes on what the thread that builds tells.
class clsMensajero : public clsObservador {
public:
    /// @param fAviso shows an error in the window's thread.
    clsMensajero(clsRecados &recados, const std::function<void(clsError)> &fAviso)
        : m_recados(recados), m_fAviso(fAviso)
    {
    }
    void fCarpeta(const std::string &strCarpeta) override { m_recados.fDecir(strCarpeta); }
    void fError(clsError error) override
    {
        m_recados.fPedir([&] { m_fAviso(error); });
    }
    bool fSeguir() override { return !m_recados.fCerrados(); }

private:
    clsRecados &m_recados;
    const std::function<void(clsError)> &m_fAviso;
};

} // namespace

frmBusqueda::frmBusqueda(QWidget *padre, clsMensajes &mensajes, clsSeguirBusqueda fSeguir)
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
    const clsConstruccion construccion = fEsperarPintado()
                                             ? fConstruirAparte(strRaiz)
                                             : clsConstruccion{Construccion::Interrumpida, {}};
    hide();
    static_cast<void>(m_fSeguir(false));
    return construccion;
}

/// The build starts once the window can be seen; one that is never shown (minimised) is not waited
/// for long.
bool frmBusqueda::fEsperarPintado()
{
    constexpr int intEspera = 500; // milliseconds
    bool bolSeguir = true;
    QElapsedTimer reloj;
    reloj.start();
    while (!m_bolPintado && bolSeguir && reloj.elapsed() < intEspera) {
        bolSeguir = m_fSeguir(false);
        QThread::msleep(1);
    }
    return bolSeguir;
}

clsConstruccion frmBusqueda::fConstruirAparte(const std::string &strRaiz)
{
    static constexpr std::chrono::seconds paciencia(2);
    const std::function<void(clsError)> fAviso = [&mensajes = m_mensajes](clsError error) {
        mensajes.fAvisoEnSerie(fTextoError(error));
    };
    return fHacerAparte(
               [fAviso, strRaiz](clsRecados &recados) {
                   clsMensajero mensajero(recados, fAviso);
                   return fConstruir(strRaiz, mensajero);
               },
               [this](const clsRecados &recados) {
                   m_lblMsg->setText(fQPantalla(recados.fDicho()));
                   return m_fSeguir(recados.fCallado(paciencia));
               })
        .value_or(clsConstruccion{Construccion::Interrumpida, {}});
}

void frmBusqueda::closeEvent(QCloseEvent *evento) { evento->ignore(); }

void frmBusqueda::paintEvent(QPaintEvent *evento)
{
    m_bolPintado = true;
    QDialog::paintEvent(evento);
}
