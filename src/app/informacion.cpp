#include "app/informacion.h"

#include "app/caja_info.h"
#include "dates/clsFile.h"
#include "dates/panel.h"
#include "shared/qhilos.h"
#include "shared/qtexto.h"

#include <QScreen>

#include <utility>

clsInformacion::clsInformacion(QWidget *cliente, clsSignos signos, int intArriba)
    : QObject(cliente), m_cliente(cliente), m_signos(std::move(signos)),
      m_txtInfo1(new clsCajaInfo("txtInfo1", QStringLiteral("Posición en la lista"), cliente)),
      m_txtInfo2(new clsCajaInfo("txtInfo2", QStringLiteral("Archivo actual"), cliente)),
      m_txtInfo3(new clsCajaInfo("txtInfo3", QStringLiteral("Aviso de fechas"), cliente)),
      m_jueces({.intHilos = 2, .fAvisar = fAvisarA(this)})
{
    fCrearAviso();
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
    QPalette aviso = m_txtInfo3->palette();
    aviso.setColor(QPalette::Base, QColor(0xb3, 0x26, 0x1e));
    aviso.setColor(QPalette::Text, Qt::white);
    m_txtInfo3->setPalette(aviso);
    m_txtInfo3->setAlignment(Qt::AlignCenter);
    m_txtInfo3->hide();
}

void clsInformacion::fMostrar(const clsEstado &estado)
{
    const clsFilas &filas = estado.filas;
    fJuzgar(filas.fRuta(estado.lngActual));
    fLugar(estado.lngActual, filas.fCantidad());
    // Folder and name each in its own encoding, as the list shows them.
    const std::string strRuta = fTextoPantalla(filas.fCarpeta(estado.lngActual)) +
                                fTextoPantalla(filas.fNombre(estado.lngActual));
    fDecir(fQ(fTextoInfo2(strRuta, filas.fFecha(estado.lngActual),
                          fCampo(filas, estado.lngActual + 1, Campo::Tamano, m_signos))));
}

void clsInformacion::fLugar(int lngPos, int lngCantidad)
{
    m_txtInfo1->setText(fQ(fTextoInfo1(lngPos, lngCantidad)));
}

void clsInformacion::fDecir(const QString &strTexto)
{
    m_txtInfo2->setText(strTexto);
    m_txtInfo2->setCursorPosition(0);
}

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
    m_txtInfo3->move(intAviso, m_txtInfo3->y());
    fAvisar(!m_txtInfo3->isHidden());
}

/// Has a file's date judged. As a rule that takes no time worth mentioning; a disk that does not
/// answer must not hold the window up.
void clsInformacion::fJuzgar(const std::string &strRuta)
{
    constexpr std::chrono::milliseconds paciencia(200);
    m_jueces.fAnular();
    const auto orden = m_jueces.fPedir(
        [strRuta] {
            clsFile fichero;
            fichero.fCargar(strRuta);
            return fichero.bolFechaCorrecta();
        },
        [this](bool bolCorrecta) { fAvisar(!bolCorrecta); });
    if (!m_jueces.fEsperar(orden, paciencia)) {
        fAvisar(false); // until it is known
    }
}

/// Shows or hides the warning. txtInfo2 goes on below it and beyond the window; its text does not.
void clsInformacion::fAvisar(bool bolMal)
{
    m_txtInfo3->setVisible(bolMal);
    m_txtInfo2->fHasta(bolMal ? m_txtInfo3->x() : m_cliente->width());
}
