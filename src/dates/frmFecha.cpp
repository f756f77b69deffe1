#include "dates/frmFecha.h"

#include "shared/fecha.h"
#include "shared/qtexto.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace {

constexpr const char *lstEtiquetas[] = {"Fecha EXIF:", "Fecha Nombre1:", "Fecha Nombre2:"};

/// A colour between two, nearer to the first.
QColor fMezcla(const QColor &uno, const QColor &otro)
{
    constexpr int intDeUno = 70; // per cent
    const auto fParte = [](int intUno, int intOtro) {
        return (intUno * intDeUno + intOtro * (100 - intDeUno)) / 100;
    };
    return {fParte(uno.red(), otro.red()), fParte(uno.green(), otro.green()),
            fParte(uno.blue(), otro.blue())};
}

} // namespace

frmFecha::frmFecha(QWidget *padre, const clsFormularioFecha &formulario, clsMensajes &mensajes,
                   std::function<bool(clsFecha)> fAplicar)
    : QDialog(padre), m_mensajes(mensajes), m_fAplicar(std::move(fAplicar)),
      m_txtDateTime(new QLineEdit(this))
{
    setObjectName(QStringLiteral("frmFecha"));
    setWindowTitle(QStringLiteral("Fechas"));
    m_txtDateTime->setObjectName(QStringLiteral("txtDateTime"));
    m_txtDateTime->setPlaceholderText(QStringLiteral("dd/mm/yyyy hh:mm:ss"));
    // Readable in every theme, and no text yet: more of that than of the ground.
    QPalette paleta = m_txtDateTime->palette();
    paleta.setColor(QPalette::PlaceholderText,
                    fMezcla(paleta.color(QPalette::Text), paleta.color(QPalette::Base)));
    m_txtDateTime->setPalette(paleta);
    m_txtDateTime->setMinimumWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("  dd/mm/yyyy hh:mm:ss  ")));
    auto *const filas = new QFormLayout(this);
    auto *const lblTextoActual = new QLabel(QStringLiteral("ACTUAL:"), this);
    lblTextoActual->setObjectName(QStringLiteral("lblTextoActual"));
    filas->addRow(lblTextoActual, fCrearActual(formulario));
    for (int intIndice = 0; intIndice < 3; ++intIndice) {
        filas->addRow(
            QString::fromUtf8(lstEtiquetas[intIndice]),
            fCrearBotonFecha(intIndice, formulario.lstFechas[static_cast<std::size_t>(intIndice)]));
    }
    filas->addRow(QStringLiteral("Fecha manual:"), m_txtDateTime);
    filas->addRow(fCrearBotones());
    m_txtDateTime->setFocus();
}

QWidget *frmFecha::fCrearActual(const clsFormularioFecha &formulario)
{
    auto *const lblActual = new QLabel(fQ(formulario.strActual), this);
    lblActual->setObjectName(QStringLiteral("lblActual"));
    lblActual->setAlignment(Qt::AlignCenter);
    lblActual->setAccessibleDescription(QString::fromUtf8(formulario.strJuicio));
    lblActual->setMargin(4);
    lblActual->setAutoFillBackground(true);
    QPalette paleta = lblActual->palette();
    paleta.setColor(QPalette::Window, QColor(formulario.fondo.intRojo, formulario.fondo.intVerde,
                                             formulario.fondo.intAzul));
    // The light grounds need dark letters on dark desktops, too.
    paleta.setColor(QPalette::WindowText, Qt::black);
    lblActual->setPalette(paleta);
    return lblActual;
}

QWidget *frmFecha::fCrearBotonFecha(int intIndice, const std::string &strFecha)
{
    auto *const boton =
        new QPushButton(strFecha.empty() ? QStringLiteral("(no válida)") : fQ(strFecha), this);
    boton->setObjectName(QStringLiteral("cmdDateTime%1").arg(intIndice));
    // Its text alone does not say where the date comes from.
    boton->setAccessibleName(QString::fromUtf8(lstEtiquetas[intIndice]) + QLatin1Char(' ') +
                             boton->text());
    boton->setEnabled(!strFecha.empty());
    boton->setAutoDefault(false);
    connect(boton, &QPushButton::clicked, m_txtDateTime,
            [this, boton] { m_txtDateTime->setText(boton->text()); });
    return boton;
}

QLayout *frmFecha::fCrearBotones()
{
    auto *const caja = new QHBoxLayout;
    const auto fBoton = [&](const char *strNombre, const QString &strTexto) {
        auto *const boton = new QPushButton(strTexto, this);
        boton->setObjectName(QString::fromLatin1(strNombre));
        boton->setAutoDefault(false);
        caja->addWidget(boton);
        return boton;
    };
    auto *const moverse = fBoton("cmdAceptar0", QStringLiteral("Cambiar y moverse"));
    auto *const quedarse = fBoton("cmdAceptar1", QStringLiteral("Cambiar y quedarse"));
    auto *const cancelar = fBoton("cmdCancelar", QStringLiteral("Cancelar"));
    moverse->setDefault(true);
    connect(moverse, &QPushButton::clicked, this, [this] { fAceptar(Cierre::Moverse); });
    connect(quedarse, &QPushButton::clicked, this, [this] { fAceptar(Cierre::Quedarse); });
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    return caja;
}

void frmFecha::fAceptar(Cierre cierre)
{
    const std::string strTexto = fNormalizarTecleada(fUtf8(m_txtDateTime->text()));
    m_txtDateTime->setText(fQ(strTexto));
    const auto fecha = fLeerFecha(strTexto, strFormaUsuario);
    if (!fecha) {
        m_mensajes.fAviso(Icono::Problema, fAvisoFechaNoValida(strTexto));
        m_txtDateTime->setFocus();
        return;
    }
    // Pressing again while the files are being corrected must not correct them twice.
    setEnabled(false);
    const bool bolHecho = m_fAplicar(*fecha);
    setEnabled(true);
    if (bolHecho) {
        m_cierre = cierre;
        accept();
    }
}

frmFecha::Cierre frmFecha::fMostrar()
{
    exec();
    return m_cierre;
}
