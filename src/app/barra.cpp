#include "app/barra.h"

#include "shared/qtexto.h"

#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <map>

namespace {

QString fNombre(int intIndice) { return QStringLiteral("toolBar%1").arg(intIndice); }

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
    boton->setObjectName(fNombre(datos.intIndice));
    boton->setAccessibleName(fQ(datos.strTexto));
    boton->setToolTip(boton->accessibleName());
    boton->setIcon(QIcon(QStringLiteral(":/iconos/%1.svg").arg(fQ(datos.strIcono))));
    boton->setAutoRaise(true);
    boton->setFocusPolicy(Qt::NoFocus);
    barra.addWidget(boton);
    return boton;
}

} // namespace

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

QToolButton *fBoton(const QObject &ventana, int intIndice)
{
    return ventana.findChild<QToolButton *>(fNombre(intIndice));
}
