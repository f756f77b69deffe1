#include "catalogue/frmBusqueda.h"

#include "shared/errores.h"
#include "shared/hilos.h"
#include "shared/qtexto.h"
#include "shared/recados.h"
#include "shared/ritmo.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QVBoxLayout>

#include <chrono>
#include <memory>
#include <mutex>
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

} // namespace

/// What the thread that builds has in common with the window. It may outlive that.
class frmBusqueda::clsEnlace : public clsObservador {
public:
    /// @param fAviso shows an error in the window's thread.
    explicit clsEnlace(std::function<void(clsError)> fAviso) : m_fAviso(std::move(fAviso)) {}

    // On the thread that builds
    void fCarpeta(const std::string &strCarpeta) override
    {
        const std::lock_guard guarda(m_cerrojo);
        m_strCarpeta = strCarpeta;
        m_noticia = Reloj::now();
    }
    void fError(clsError error) override
    {
        recados.fPedir([this, error] { m_fAviso(error); });
        const std::lock_guard guarda(m_cerrojo);
        m_noticia = Reloj::now();
    }
    bool fSeguir() override { return !recados.fCerrados(); }

    // In the window's thread
    [[nodiscard]] std::string fCarpeta() const
    {
        const std::lock_guard guarda(m_cerrojo);
        return m_strCarpeta;
    }
    [[nodiscard]] bool fCallado() const
    {
        constexpr std::chrono::seconds plazo(2);
        const std::lock_guard guarda(m_cerrojo);
        return Reloj::now() - m_noticia > plazo;
    }
    clsRecados recados;

private:
    using Reloj = std::chrono::steady_clock;
    const std::function<void(clsError)> m_fAviso;
    mutable std::mutex m_cerrojo;
    std::string m_strCarpeta;
    Reloj::time_point m_noticia = Reloj::now(); ///< when something was last heard of the disk
};

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
                                             ? fConstruirAlLado(strRaiz)
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

clsConstruccion frmBusqueda::fConstruirAlLado(const std::string &strRaiz)
{
    constexpr std::chrono::milliseconds paciencia(500); // with a thread that is to end
    clsConstruccion construccion{Construccion::Interrumpida, {}};
    const auto enlace = std::make_shared<clsEnlace>(
        [this](clsError error) { m_mensajes.fAvisoEnSerie(fTextoError(error)); });
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    const auto orden = hilos.fPedir([enlace, strRaiz] { return fConstruir(strRaiz, *enlace); },
                                    [&](clsConstruccion suya) { construccion = suya; });
    bool bolSeguir = true;
    while (bolSeguir && !hilos.fEsperar(orden, pausaRitmo)) {
        m_lblMsg->setText(fQPantalla(enlace->fCarpeta()));
        enlace->recados.fAtender();
        bolSeguir = m_fSeguir(enlace->fCallado());
    }
    enlace->recados.fCerrar();
    if (!bolSeguir) {
        static_cast<void>(hilos.fEsperar(orden, paciencia));
    }
    return construccion;
}

void frmBusqueda::closeEvent(QCloseEvent *evento) { evento->ignore(); }

void frmBusqueda::paintEvent(QPaintEvent *evento)
{
    m_bolPintado = true;
    QDialog::paintEvent(evento);
}
