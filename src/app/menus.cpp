#include "app/menus.h"

#include <QAccessible>
#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenuBar>
#include <QTimer>

namespace {

/// One entry. Its menu is the last one begun.
struct clsEntrada {
    const char *strNombre; ///< nullptr: a separator
    const char *strTexto;
    bool bolMarca; ///< it can carry a check mark
    const char *strAtajo;
};

struct clsMenu {
    const char *strNombre;
    const char *strTexto;
    std::initializer_list<clsEntrada> lstEntradas;
};

const clsMenu lstMenus[] = {
    {"mnuBaul",
     "Baúl (0)", {
         {"mnuBaulAñadir", "Añadir", false, nullptr},
         {"mnuBaulVaciar", "Vacíar", false, nullptr},
         {"mnuBaulAbrir", "Mostrar", false, nullptr},
     }},
    {"mnuOpciones",
     "Opciones",  {
         {"mnuAbrirCarpetaContenedora", "Abrir carpeta contenedora", false, nullptr},
         {"mnuOpcionesCopiar", "Copiar a ...", false, nullptr},
         {"mnuOpcionesTotal", "Mostrar Total", false, nullptr},
         {"mnuOpcionesActualizar", "Actualizar lista de archivos", false, "F5"},
         {nullptr, nullptr, false, nullptr},
         {"mnuOpcionesFiltrar", "Filtrar", false, nullptr},
         {"mnuOpcionesQuitarFiltro", "Quitar Filtro", false, nullptr},
         {nullptr, nullptr, false, nullptr},
         {"mnuOpcionesFotosVideos0", "Mostrar solo Fotos", true, nullptr},
         {"mnuOpcionesFotosVideos1", "Mostrar solo Vídeos", true, nullptr},
         {"mnuOpcionesFotosVideos2", "Mostrar Fotos y Vídeos", true, nullptr},
         {nullptr, nullptr, false, nullptr},
         {"mnuOpcionesThump0", "Thumbnail Pequeño", true, nullptr},
         {"mnuOpcionesThump1", "Thumbnail Medio", true, nullptr},
         {"mnuOpcionesThump2", "Thumbnail Grande", true, nullptr},
         {nullptr, nullptr, false, nullptr},
         {"mnuSeleccion0", "Seleccionar Todo", false, nullptr},
         {"mnuSeleccion1", "Seleccionar Pantalla", false, nullptr},
         {"mnuSeleccion2", "Deseleccionar Todo", false, nullptr},
         {"mnuSeleccion3", "Invertir Seleccion", false, nullptr},
     } },
    {"mnuAyuda",
     "Ayuda",     {
         {"mnuAyudaAyuda", "Ayuda", false, "F1"},
         {"mnuAyudaAcerca", "Acerca de ...", false, nullptr},
     }    },
};

const clsMenu menuFoto = {
    "mnuFoto",
    "",
    {
      {"mnuFotoMiniaturas", "Miniaturas", false, nullptr},
      {"mnuFotoAjustar", "Ajustar", false, nullptr},
      {nullptr, nullptr, false, nullptr},
      {"mnuFotoValor0", "400%", false, nullptr},
      {"mnuFotoValor1", "200%", false, nullptr},
      {"mnuFotoValor2", "100%", false, nullptr},
      {"mnuFotoValor3", "50%", false, nullptr},
      {"mnuFotoValor4", "25%", false, nullptr},
      {"mnuFotoValor5", "12%", false, nullptr},
      }
};

void fLlenar(QMenu &menu, const clsMenu &datos,
             const std::function<void(const QString &)> &fElegida)
{
    menu.setObjectName(QString::fromUtf8(datos.strNombre));
    menu.menuAction()->setObjectName(menu.objectName());
    QActionGroup *grupo = nullptr;
    for (const clsEntrada &entrada : datos.lstEntradas) {
        if (entrada.strNombre == nullptr) {
            menu.addSeparator();
            grupo = nullptr;
            continue;
        }
        const QString strNombre = QString::fromUtf8(entrada.strNombre);
        QAction *const accion = menu.addAction(QString::fromUtf8(entrada.strTexto));
        accion->setObjectName(strNombre);
        accion->setCheckable(entrada.bolMarca);
        grupo = !entrada.bolMarca ? nullptr : grupo != nullptr ? grupo : new QActionGroup(&menu);
        accion->setActionGroup(grupo); // one of those that follow each other has the mark
        accion->setMenuRole(QAction::NoRole);
        if (entrada.strAtajo != nullptr) {
            accion->setShortcut(QKeySequence(QString::fromLatin1(entrada.strAtajo)));
        }
        QObject::connect(accion, &QAction::triggered, accion, [accion, fElegida, strNombre] {
            if (QAccessible::isActive()) {
                // Assistive technology waits for the answer, and many an entry opens a dialog.
                QTimer::singleShot(0, accion, [fElegida, strNombre] { fElegida(strNombre); });
            } else {
                fElegida(strNombre);
            }
        });
    }
}

} // namespace

QMenu *fCrearMenus(QMenuBar &barra, const std::function<void(const QString &)> &fElegida)
{
    for (const clsMenu &datos : lstMenus) {
        fLlenar(*barra.addMenu(QString::fromUtf8(datos.strTexto)), datos, fElegida);
    }
    // Shows the advance mode; it has no entries of its own.
    QAction *const avance = barra.addAction(QStringLiteral("[avance]"));
    avance->setObjectName(QStringLiteral("mnuAVance"));
    avance->setVisible(false);
    auto *const mnuFoto = new QMenu(&barra);
    fLlenar(*mnuFoto, menuFoto, fElegida);
    return mnuFoto;
}

void fMarcarEntrada(QMenuBar &barra, const char *strArreglo, int intIndice)
{
    for (int intEntrada = 0; intEntrada < 3; ++intEntrada) {
        const QString strNombre = QString::fromUtf8(strArreglo) + QString::number(intEntrada);
        if (QAction *const accion = barra.findChild<QAction *>(strNombre)) {
            accion->setChecked(intEntrada == intIndice);
        }
    }
}

void fHabilitarEntradas(QMenuBar &barra, const clsEstado &estado)
{
    for (const clsComando &comando : fComandos()) {
        QAction *const accion =
            comando.strMenu == nullptr
                ? nullptr
                : barra.findChild<QAction *>(QString::fromUtf8(comando.strMenu));
        if (accion != nullptr) {
            accion->setEnabled(comando.fPermitido(estado));
        }
    }
}
