#include "app/menus.h"

#include "shared/qtexto.h"

#include <QAccessible>
#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <map>

namespace {

/// Shows the key of a command beside its entry. Letters are the business of the table of keys, as
/// is what another command does with the key: to such entries they are only written.
void fPonerAtajo(QAction &accion, const clsComando &comando)
{
    accion.setShortcut(QKeySequence(fQ(comando.entrada.strAtajo)));
    accion.setShortcutVisibleInContextMenu(true);
    if (comando.entrada.bolOtraTecla) {
        accion.setShortcutContext(Qt::WidgetShortcut);
    }
    const int intTecla = comando.tecla.intNumero;
    if (intTecla >= 'A' && intTecla <= 'Z') {
        const auto mayus = comando.tecla.mayus == Mayus::Con ? Qt::ShiftModifier : Qt::NoModifier;
        accion.setShortcut(QKeyCombination(mayus, static_cast<Qt::Key>(intTecla)));
        accion.setShortcutContext(Qt::WidgetShortcut);
    }
}

QAction *fCrearEntrada(QMenu &menu, const clsComando &comando, const clsElegido &fElegido)
{
    QAction *const accion = menu.addAction(fQ(comando.entrada.strTexto));
    accion->setObjectName(fQ(comando.entrada.strNombre));
    accion->setCheckable(comando.fMarca != nullptr);
    accion->setMenuRole(QAction::NoRole);
    fPonerAtajo(*accion, comando);
    QObject::connect(accion, &QAction::triggered, accion, [accion, fElegido, &comando] {
        if (QAccessible::isActive()) {
            // Assistive technology waits for the answer, and many an entry opens a dialog.
            QTimer::singleShot(0, accion, [fElegido, &comando] { fElegido(comando); });
        } else {
            fElegido(comando);
        }
    });
    return accion;
}

void fLlenar(QMenu &menu, Menu cual, const clsElegido &fElegido)
{
    const clsComando *anterior = nullptr;
    QAction *accionAnterior = nullptr;
    for (const clsComando &comando : fComandos()) {
        if (comando.entrada.menu != cual) {
            continue;
        }
        if (comando.entrada.bolRaya) {
            menu.addSeparator();
        }
        QAction *const accion = fCrearEntrada(menu, comando, fElegido);
        if (comando.fMarca != nullptr && anterior != nullptr &&
            anterior->fMarca == comando.fMarca) {
            // Not for one alone: its mark comes and goes.
            if (accionAnterior->actionGroup() == nullptr) {
                accionAnterior->setActionGroup(new QActionGroup(&menu));
            }
            accion->setActionGroup(accionAnterior->actionGroup());
        }
        anterior = &comando;
        accionAnterior = accion;
    }
}

QString fNombreBoton(int intIndice) { return QStringLiteral("toolBar%1").arg(intIndice); }

QMenu *fMenuTeclas(QWidget *padre)
{
    std::map<int, const char *> mapLineas;
    for (const clsComando &comando : fComandos()) {
        mapLineas.emplace(comando.linea.intLugar, comando.linea.strTexto);
    }
    mapLineas.erase(0);
    auto *const menu = new QMenu(padre);
    menu->setObjectName(QStringLiteral("mnuTeclas"));
    for (const auto &[intLugar, strTexto] : mapLineas) {
        QAction *const entrada = menu->addAction(fQ(strTexto)); // it does nothing
        entrada->setObjectName(QStringLiteral("mnuTeclas%1").arg(intLugar - 1));
    }
    return menu;
}

QToolButton *fPonerBoton(QToolBar &barra, const clsComando::clsBoton &datos)
{
    auto *const boton = new QToolButton(&barra);
    boton->setObjectName(fNombreBoton(datos.intIndice));
    boton->setAccessibleName(fQ(datos.strTexto));
    boton->setToolTip(boton->accessibleName());
    boton->setIcon(QIcon(QStringLiteral(":/iconos/%1.svg").arg(fQ(datos.strIcono))));
    boton->setAutoRaise(true);
    boton->setFocusPolicy(Qt::NoFocus);
    barra.addWidget(boton);
    return boton;
}

void fMostrarEstado(const QMainWindow &ventana, const clsComando &comando, const clsEstado &estado)
{
    const bool bolMarca =
        comando.fMarca != nullptr && comando.fMarca(estado, comando.obra.intValor);
    if (comando.entrada.menu != Menu::Ninguno) {
        auto *const accion = ventana.menuBar()->findChild<QAction *>(fQ(comando.entrada.strNombre));
        accion->setEnabled(comando.fPermitido(estado));
        accion->setChecked(bolMarca);
    }
    if (comando.boton.intIndice != 0 && comando.fMarca != nullptr) {
        ventana.findChild<QToolButton *>(fNombreBoton(comando.boton.intIndice))
            ->setChecked(bolMarca);
    }
}

} // namespace

QMenu *fCrearMenus(QMainWindow &ventana, const clsElegido &fElegido)
{
    QMenuBar *const barra = ventana.menuBar();
    barra->setObjectName(QStringLiteral("menuBar"));
    QMenu *mnuFoto = nullptr;
    for (const clsMenu &datos : fMenus()) {
        const bool bolFoto = datos.menu == Menu::Foto;
        QMenu *const menu = bolFoto ? new QMenu(barra) : barra->addMenu(fQ(datos.strTexto));
        mnuFoto = bolFoto ? menu : mnuFoto;
        menu->setObjectName(fQ(datos.strNombre));
        menu->menuAction()->setObjectName(menu->objectName());
        fLlenar(*menu, datos.menu, fElegido);
    }
    // Shows the advance mode; it has no entries of its own.
    QAction *const avance = barra->addAction(QStringLiteral("[avance]"));
    avance->setObjectName(QStringLiteral("mnuAVance"));
    return mnuFoto;
}

QToolBar *fCrearBarra(QWidget *cliente, const clsElegido &fElegido)
{
    auto *const barra = new QToolBar(cliente);
    barra->setObjectName(QStringLiteral("toolBar"));
    barra->setAccessibleName(QStringLiteral("Barra de herramientas"));
    barra->setIconSize(QSize(24, 24));
    int intSiguiente = 1;
    for (const clsComando &comando : fComandos()) {
        if (comando.boton.intIndice == 0) {
            continue;
        }
        if (comando.boton.intIndice != intSiguiente) {
            barra->addSeparator();
        }
        intSiguiente = comando.boton.intIndice + 1;
        QToolButton *const boton = fPonerBoton(*barra, comando.boton);
        boton->setCheckable(comando.fMarca != nullptr);
        QObject::connect(boton, &QToolButton::clicked, boton,
                         [fElegido, &comando] { fElegido(comando); });
    }
    barra->addSeparator();
    QToolButton *const teclas = fPonerBoton(*barra, {10, "Teclas de acceso rápido.", "teclas"});
    teclas->setMenu(fMenuTeclas(teclas));
    teclas->setPopupMode(QToolButton::InstantPopup);
    return barra;
}

void fMostrarEstado(const QMainWindow &ventana, const clsEstado &estado)
{
    for (const clsComando &comando : fComandos()) {
        fMostrarEstado(ventana, comando, estado);
    }
    ventana.menuBar()
        ->findChild<QMenu *>(QStringLiteral("mnuBaul"))
        ->setTitle(QStringLiteral("Baú&l (%1)").arg(estado.lngEnBaul));
    auto *const avance = ventana.menuBar()->findChild<QAction *>(QStringLiteral("mnuAVance"));
    avance->setVisible(estado.avance != Avance::Normal);
    if (avance->isVisible()) {
        avance->setText(fQ(fTextoAvance(estado.avance)));
    }
}
