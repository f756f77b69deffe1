#include "repair/frmDesfase.h"

#include "shared/qtexto.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <utility>

namespace {

/// A number of the form: name, label, and how far it goes both ways.
struct clsCasillaDesfase {
    const char *strNombre;
    const char *strTexto;
    int intMaximo;
};
constexpr clsCasillaDesfase lstCasillas[] = {
    {"spnDias",     "Días:",    99'999},
    {"spnHoras",    "Horas:",    99'999},
    {"spnMinutos",  "Minutos:",  99'999},
    {"spnSegundos", "Segundos:", 99'999},
};

} // namespace

frmDesfase::frmDesfase(QWidget *padre, std::function<std::string(std::int64_t)> fResultado)
    : QDialog(padre), m_fResultado(std::move(fResultado)), m_lblResultado(new QLabel(this))
{
    setObjectName(QStringLiteral("frmDesfase"));
    setWindowTitle(QStringLiteral("Desfase"));
    auto *const filas = new QFormLayout(this);
    auto *const lblAyuda =
        new QLabel(QStringLiteral("Lo que hay que sumar a la fecha de los archivos marcados\n"
                                  "(con signo menos, lo que hay que restar):"),
                   this);
    lblAyuda->setObjectName(QStringLiteral("lblAyudaDesfase"));
    filas->addRow(lblAyuda);
    for (std::size_t lng = 0; lng < m_lstNumeros.size(); ++lng) {
        auto *const numero = m_lstNumeros[lng] = new QSpinBox(this);
        numero->setObjectName(QString::fromLatin1(lstCasillas[lng].strNombre));
        numero->setRange(-lstCasillas[lng].intMaximo, lstCasillas[lng].intMaximo);
        filas->addRow(QString::fromUtf8(lstCasillas[lng].strTexto), numero);
        connect(numero, &QSpinBox::valueChanged, this, &frmDesfase::fMostrarResultado);
    }
    m_lblResultado->setObjectName(QStringLiteral("lblResultado"));
    filas->addRow(QStringLiteral("Resultado:"), m_lblResultado);
    auto *const botones = new QHBoxLayout;
    auto *const aplicar = new QPushButton(QStringLiteral("Aplicar"), this);
    auto *const cancelar = new QPushButton(QStringLiteral("Cancelar"), this);
    aplicar->setObjectName(QStringLiteral("cmdAplicarDesfase"));
    aplicar->setDefault(true);
    cancelar->setObjectName(QStringLiteral("cmdCancelarDesfase"));
    cancelar->setAutoDefault(false);
    botones->addStretch();
    botones->addWidget(aplicar);
    botones->addWidget(cancelar);
    filas->addRow(botones);
    connect(aplicar, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    fMostrarResultado();
}

std::int64_t frmDesfase::fSegundos() const
{
    const auto &[dias, horas, minutos, segundos] = m_lstNumeros;
    return clsDesfase{dias->value(), horas->value(), minutos->value(), segundos->value()}
        .fSegundos();
}

void frmDesfase::fMostrarResultado() { m_lblResultado->setText(fQ(m_fResultado(fSegundos()))); }

std::optional<std::int64_t> frmDesfase::fPedir()
{
    return exec() == QDialog::Accepted ? std::optional(fSegundos()) : std::nullopt;
}
