#include "filter/frmFiltro.h"

#include "filter/mayusculas.h"
#include "filter/txtFecha.h"
#include "shared/qtexto.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

template <typename Control> Control *fNombrar(Control *control, const char *strNombre)
{
    control->setObjectName(QString::fromLatin1(strNombre));
    return control;
}

QPushButton *fBoton(QWidget *padre, const char *strNombre, const QString &strTexto)
{
    auto *const boton = fNombrar(new QPushButton(strTexto, padre), strNombre);
    boton->setAutoDefault(false); // Enter is the acceptance, wherever the focus is
    return boton;
}

} // namespace

frmFiltro::frmFiltro(QWidget *padre, const clsFilas &filas, clsValoresFiltro &valores,
                     clsMensajes &mensajes, clsSeguir fSeguir, bool bolFormatos)
    : QDialog(padre), m_filas(filas), m_valores(valores), m_mensajes(mensajes),
      m_fSeguir(std::move(fSeguir)),
      m_bolFormatos(bolFormatos), m_lstFechas{fNombrar(new txtFecha(this), "txtFecha0"),
                                              fNombrar(new txtFecha(this), "txtFecha1")},
      m_txtTexto(fNombrar(new QLineEdit(this), "txtTexto")),
      m_chkCarpeta(fNombrar(new QCheckBox(QStringLiteral("Incluir carpeta"), this), "chkCarpeta")),
      m_lblFiltrando(
          fNombrar(new QLabel(QStringLiteral("... FILTRANDO ..."), this), "lblFiltrando")),
      m_prgFiltrando(fNombrar(new QProgressBar(this), "prgFiltrando")),
      m_cmdAceptar(fBoton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      m_cmdCancelar(fBoton(this, "cmdCancelar", QStringLiteral("&Cancelar")))
{
    setObjectName(QStringLiteral("frmFiltro"));
    setWindowTitle(fQ(fTituloFiltro(m_filas.fCantidad())));
    m_lstMarcos = {fCrearFechas(), fCrearTexto()};
    auto *const caja = new QVBoxLayout(this);
    for (QWidget *const marco : m_lstMarcos) {
        caja->addWidget(marco);
    }
    caja->addStretch();
    caja->addLayout(fCrearPie());
    fCrearCarpeta();
    fCargarValores();
    connect(m_cmdAceptar, &QPushButton::clicked, this, &frmFiltro::fAceptar);
    connect(m_cmdCancelar, &QPushButton::clicked, this, &frmFiltro::reject);
    // Whenever a control of the dialog takes the focus, a box may have been left.
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget * /*antes*/, const QWidget *ahora) {
                if (ahora != nullptr && isAncestorOf(ahora)) {
                    QMetaObject::invokeMethod(this, &frmFiltro::fValidarSalida,
                                              Qt::QueuedConnection);
                }
            });
    m_lstFechas[0]->setFocus();
}

frmFiltro::~frmFiltro()
{
    // A dialog that goes while it shows hands the focus on; nobody is left here to hear of it.
    disconnect(qApp, nullptr, this, nullptr);
}

QWidget *frmFiltro::fCrearFechas()
{
    auto *const marco = fNombrar(new QGroupBox(QStringLiteral("Fecha:"), this), "frmFechaFiltro");
    auto *const caja = new QHBoxLayout(marco);
    const auto fAnadir = [&](const char *strNombre, const char *strTexto, txtFecha *txtCaja) {
        auto *const lblEtiqueta =
            fNombrar(new QLabel(QString::fromUtf8(strTexto), marco), strNombre);
        lblEtiqueta->setBuddy(txtCaja);
        caja->addWidget(lblEtiqueta);
        caja->addWidget(txtCaja);
    };
    fAnadir("lblEtiqueta0", "Desde", m_lstFechas[0]);
    caja->addSpacing(fontMetrics().averageCharWidth() * 2);
    fAnadir("lblEtiqueta1", "Hasta  ", m_lstFechas[1]); // Deliberate: the blanks
    caja->addStretch();
    return marco;
}

QWidget *frmFiltro::fCrearTexto()
{
    auto *const marco = fNombrar(new QGroupBox(QStringLiteral("Texto:"), this), "frmTexto");
    auto *const lblEtiqueta =
        fNombrar(new QLabel(QStringLiteral("(separa con comas)"), marco), "lblEtiqueta2");
    m_txtTexto->setAccessibleName(QStringLiteral("Texto"));
    m_txtTexto->setAccessibleDescription(lblEtiqueta->text());
    m_txtTexto->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    auto *const caja = new QGridLayout(marco);
    caja->addWidget(m_txtTexto, 0, 0);
    caja->addWidget(lblEtiqueta, 0, 1);
    caja->addWidget(fCrearOpciones(), 1, 0, 1, 2);
    return marco;
}

QWidget *frmFiltro::fCrearOpciones()
{
    constexpr const char *lstModos[][3] = {
        {"optTexto0", "AND", "Archivos que contienen todas las palabras"        },
        {"optTexto1", "OR",  "Archivos que contienen alguna de las palabras"    },
        {"optTexto2", "NOR", "Archivos que no contienen ninguna de las palabras"}
    };
    auto *const fila = new QWidget(this);
    auto *const caja = new QHBoxLayout(fila);
    caja->setContentsMargins(0, 0, 0, 0);
    caja->addWidget(m_chkCarpeta);
    caja->addStretch();
    for (std::size_t lng = 0; const auto &[strNombre, strTexto, strConsejo] : lstModos) {
        auto *const opt =
            fNombrar(new QRadioButton(QString::fromLatin1(strTexto), fila), strNombre);
        m_lstModos[lng++] = opt;
        opt->setToolTip(QString::fromUtf8(strConsejo));
        caja->addWidget(opt);
        // Tab stops at the button that is set, also before the focus has been there.
        opt->setFocusPolicy(Qt::ClickFocus);
        connect(opt, &QRadioButton::toggled, this, [opt](bool bolSi) {
            opt->setFocusPolicy(bolSi ? Qt::StrongFocus : Qt::ClickFocus);
        });
    }
    return fila;
}

/// The frame of folders. Deliberate: nothing is attached to it, so it is never shown.
void frmFiltro::fCrearCarpeta()
{
    auto *const marco = fNombrar(new QGroupBox(QStringLiteral("Carpeta:"), this), "frmCarpeta");
    marco->setVisible(false);
    auto *const caja = new QVBoxLayout(marco);
    auto *const treLista = fNombrar(new QTreeWidget(marco), "treLista");
    treLista->setAccessibleName(QStringLiteral("Carpetas"));
    caja->addWidget(treLista);
    caja->addWidget(fBoton(marco, "cmdExpand0", QStringLiteral("Contraer todo")));
    caja->addWidget(fBoton(marco, "cmdExpand1", QStringLiteral("Expandir todo")));
}

QLayout *frmFiltro::fCrearPie()
{
    m_prgFiltrando->setAccessibleName(QStringLiteral("Progreso"));
    m_prgFiltrando->setTextVisible(false);
    m_prgFiltrando->setMaximum(std::max(m_filas.fCantidad(), 1));
    auto *const caja = new QHBoxLayout;
    for (QWidget *const control :
         std::initializer_list<QWidget *>{m_lblFiltrando, m_prgFiltrando}) {
        // Their place is kept, so that nothing moves when they appear.
        QSizePolicy politica = control->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        control->setSizePolicy(politica);
        control->setVisible(false);
        caja->addWidget(control);
    }
    caja->setStretchFactor(m_prgFiltrando, 1);
    caja->addWidget(m_cmdAceptar);
    caja->addWidget(m_cmdCancelar);
    m_cmdAceptar->setDefault(true);
    // In the order in which they are read.
    QWidget *const lstOrden[] = {m_lstFechas[0], m_lstFechas[1], m_txtTexto,
                                 m_chkCarpeta,   m_lstModos[0],  m_lstModos[1],
                                 m_lstModos[2],  m_cmdAceptar,   m_cmdCancelar};
    for (std::size_t lng = 1; lng < std::size(lstOrden); ++lng) {
        setTabOrder(lstOrden[lng - 1], lstOrden[lng]);
    }
    return caja;
}

void frmFiltro::fCargarValores()
{
    m_lstFechas[0]->fPoner(m_valores.strFiltroDesde);
    m_lstFechas[1]->fPoner(m_valores.strFiltroHasta);
    m_txtTexto->setText(fQ(m_valores.strFiltroTexto));
    m_chkCarpeta->setChecked(m_valores.strFiltroCarpeta == "S");
    m_lstModos[static_cast<std::size_t>(m_valores.intFiltroModo)]->setChecked(true);
}

clsValoresFiltro frmFiltro::fValores() const
{
    const auto it = std::find_if(m_lstModos.begin(), m_lstModos.end(),
                                 [](const QRadioButton *opt) { return opt->isChecked(); });
    return {fUtf8(m_lstFechas[0]->text()), fUtf8(m_lstFechas[1]->text()), fUtf8(m_txtTexto->text()),
            m_chkCarpeta->isChecked() ? "S" : "N", static_cast<int>(it - m_lstModos.begin())};
}

std::optional<clsFiltrado> frmFiltro::fMostrar()
{
    exec();
    return std::move(m_filtrado);
}

/// Validates the boxes that have not the focus. Cancelar takes it without that, and a press on
/// Aceptar validates by itself when it is done: a box between press and release would swallow it.
void frmFiltro::fValidarSalida()
{
    const QWidget *const foco = focusWidget();
    if (m_fase != Fase::Ninguna || !isVisible() || foco == m_cmdCancelar ||
        m_cmdCancelar->isDown() || m_cmdAceptar->isDown()) {
        return;
    }
    const QScopedValueRollback<Fase> fase(m_fase, Fase::Validando);
    static_cast<void>(fValidarCajas(foco));
}

bool frmFiltro::fValidarCajas(const QWidget *salvo)
{
    for (txtFecha *const caja : m_lstFechas) {
        const bool bolSalvo = salvo != nullptr && caja == salvo;
        const std::string_view strFallo = bolSalvo ? "" : caja->fDejar();
        if (!strFallo.empty()) {
            m_mensajes.fAviso(Icono::Problema, std::string(strFallo));
            caja->setFocus();
            caja->selectAll();
            return false;
        }
    }
    return true;
}

void frmFiltro::fAceptar()
{
    if (m_fase != Fase::Ninguna) {
        return;
    }
    const QScopedValueRollback<Fase> fase(m_fase, Fase::Validando);
    if (!fValidarCajas(nullptr)) {
        return;
    }
    clsValoresFiltro valores = fValores();
    clsPeticionFiltro peticion = fPedirFiltro(valores);
    if (!peticion.strFallo.empty()) {
        fSeguirAbierto(peticion.strFallo);
        return;
    }
    m_txtTexto->setText(fQ(valores.strFiltroTexto));
    peticion.filtro.bolFormatos = m_bolFormatos;
    fFiltrarPor(peticion.filtro, valores);
}

void frmFiltro::fFiltrarPor(const clsFiltro &filtro, const clsValoresFiltro &valores)
{
    QWidget *const foco = focusWidget();
    fTrabajar(true);
    const auto fPaso = [this](int lngHechas) {
        m_prgFiltrando->setValue(lngHechas);
        return m_fSeguir() && m_fase != Fase::Parando;
    };
    if (fPaso(0)) {
        m_filtrado = fFiltrar(m_filas, filtro, fMayusculasCompuestas, fPaso);
    }
    fTrabajar(false);
    if (!m_filtrado) {
        reject();
        return;
    }
    m_valores = valores;
    if (!m_filtrado->lstFilas.empty()) {
        accept();
        return;
    }
    m_filtrado.reset();
    if (foco != nullptr) {
        foco->setFocus();
    }
    fSeguirAbierto(strNingunaImagen);
}

/// Shows that the filter runs. Only Cancelar can be pressed meanwhile.
void frmFiltro::fTrabajar(bool bolTrabaja)
{
    if (bolTrabaja) {
        m_cmdCancelar->setFocus();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
    m_fase = bolTrabaja ? Fase::Filtrando : Fase::Validando;
    for (QWidget *const marco : m_lstMarcos) {
        marco->setEnabled(!bolTrabaja);
    }
    m_cmdAceptar->setEnabled(!bolTrabaja);
    m_lblFiltrando->setVisible(bolTrabaja);
    m_prgFiltrando->setVisible(bolTrabaja);
    setWindowTitle(bolTrabaja ? m_lblFiltrando->text() : fQ(fTituloFiltro(m_filas.fCantidad())));
}

/// Says why the dialog stays open, and makes the box that has the focus ready for typing again.
void frmFiltro::fSeguirAbierto(std::string_view strMotivo)
{
    m_mensajes.fAviso(Icono::Problema, std::string(strMotivo));
    for (txtFecha *const caja : m_lstFechas) {
        if (caja == focusWidget()) {
            caja->fEditar();
            caja->selectAll();
        }
    }
}

void frmFiltro::reject()
{
    if (m_fase == Fase::Filtrando || m_fase == Fase::Parando) {
        m_fase = Fase::Parando;
    } else {
        QDialog::reject();
    }
}
