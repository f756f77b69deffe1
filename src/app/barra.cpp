#include "app/barra.h"

#include "browse/comandos.h"

#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

struct clsBoton {
    int intIndice;
    const char *strTexto; ///< also its accessible name; nullptr: a separator
    const char *strIcono;
};

constexpr int intBotonModo = 1;
constexpr int intBotonTeclas = 10;

constexpr clsBoton lstBotones[] = {
    {1,  "ThumbNail",                 "miniaturas"},
    {2,  nullptr,                     nullptr     },
    {3,  "Primera",                   "primera"   },
    {4,  "Anterior",                  "anterior"  },
    {5,  "Siguiente",                 "siguiente" },
    {6,  "Ultima",                    "ultima"    },
    {7,  nullptr,                     nullptr     },
    {8,  "Información EXIF",         "exif"      },
    {9,  nullptr,                     nullptr     },
    {10, "Teclas de acceso rápido.", "teclas"    },
};

QMenu *fMenuTeclas(QWidget *padre)
{
    auto *const menu = new QMenu(padre);
    menu->setObjectName(QStringLiteral("mnuTeclas"));
    for (const char *const strTexto : fTextosTeclas()) {
        QAction *const entrada = menu->addAction(QString::fromUtf8(strTexto)); // it does nothing
        entrada->setObjectName(QStringLiteral("mnuTeclas%1").arg(menu->actions().size() - 1));
    }
    return menu;
}

} // namespace

QToolBar *fCrearBarra(QWidget *cliente, const std::function<void(int)> &fPulsado)
{
    auto *const barra = new QToolBar(cliente);
    barra->setObjectName(QStringLiteral("toolBar"));
    barra->setAccessibleName(QStringLiteral("Barra de herramientas"));
    barra->setIconSize(QSize(24, 24));
    for (const clsBoton &datos : lstBotones) {
        if (datos.strTexto == nullptr) {
            barra->addSeparator();
            continue;
        }
        auto *const boton = new QToolButton(barra);
        const QString strTexto = QString::fromUtf8(datos.strTexto);
        boton->setObjectName(QStringLiteral("toolBar%1").arg(datos.intIndice));
        boton->setAccessibleName(strTexto);
        boton->setToolTip(strTexto);
        boton->setIcon(QIcon(QStringLiteral(":/iconos/%1.svg").arg(datos.strIcono)));
        boton->setAutoRaise(true);
        boton->setFocusPolicy(Qt::NoFocus);
        boton->setCheckable(datos.intIndice == intBotonModo);
        boton->setEnabled(datos.intIndice == intBotonTeclas ||
                          fComandoDeBoton(datos.intIndice) != nullptr);
        if (datos.intIndice == intBotonTeclas) {
            boton->setMenu(fMenuTeclas(boton));
            boton->setPopupMode(QToolButton::InstantPopup);
        } else {
            QObject::connect(boton, &QToolButton::clicked, boton,
                             [fPulsado, intIndice = datos.intIndice] { fPulsado(intIndice); });
        }
        barra->addWidget(boton);
    }
    return barra;
}
