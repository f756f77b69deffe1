#include "app/menus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenuBar>

namespace {

/// One entry. Its menu is the last one begun.
struct clsEntrada {
    const char *strNombre; ///< nullptr: a separator
    const char *strTexto;
    bool bolHace;  ///< something is behind it
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
         {"mnuBaulAñadir", "Añadir", false, false, nullptr},
         {"mnuBaulVaciar", "Vacíar", false, false, nullptr},
         {"mnuBaulAbrir", "Mostrar", false, false, nullptr},
     }},
    {"mnuOpciones",
     "Opciones",  {
         {"mnuAbrirCarpetaContenedora", "Abrir carpeta contenedora", false, false, nullptr},
         {"mnuOpcionesCopiar", "Copiar a ...", false, false, nullptr},
         {"mnuOpcionesTotal", "Mostrar Total", false, false, nullptr},
         {"mnuOpcionesActualizar", "Actualizar lista de archivos", true, false, "F5"},
         {nullptr, nullptr, false, false, nullptr},
         {"mnuOpcionesFiltrar", "Filtrar", false, false, nullptr},
         {"mnuOpcionesQuitarFiltro", "Quitar Filtro", false, false, nullptr},
         {nullptr, nullptr, false, false, nullptr},
         {"mnuOpcionesFotosVideos0", "Mostrar solo Fotos", true, true, nullptr},
         {"mnuOpcionesFotosVideos1", "Mostrar solo Vídeos", true, true, nullptr},
         {"mnuOpcionesFotosVideos2", "Mostrar Fotos y Vídeos", true, true, nullptr},
         {nullptr, nullptr, false, false, nullptr},
         {"mnuOpcionesThump0", "Thumbnail Pequeño", true, true, nullptr},
         {"mnuOpcionesThump1", "Thumbnail Medio", true, true, nullptr},
         {"mnuOpcionesThump2", "Thumbnail Grande", true, true, nullptr},
         {nullptr, nullptr, false, false, nullptr},
         {"mnuSeleccion0", "Seleccionar Todo", false, false, nullptr},
         {"mnuSeleccion1", "Seleccionar Pantalla", false, false, nullptr},
         {"mnuSeleccion2", "Deseleccionar Todo", false, false, nullptr},
         {"mnuSeleccion3", "Invertir Seleccion", false, false, nullptr},
     } },
    {"mnuAyuda",
     "Ayuda",     {
         {"mnuAyudaAyuda", "Ayuda", false, false, "F1"},
         {"mnuAyudaAcerca", "Acerca de ...", false, false, nullptr},
     }    },
};

const clsMenu menuFoto = {
    "mnuFoto",
    "",
    {
      {"mnuFotoMiniaturas", "Miniaturas", true, false, nullptr},
      {"mnuFotoAjustar", "Ajustar", true, false, nullptr},
      {nullptr, nullptr, false, false, nullptr},
      {"mnuFotoValor0", "400%", true, false, nullptr},
      {"mnuFotoValor1", "200%", true, false, nullptr},
      {"mnuFotoValor2", "100%", true, false, nullptr},
      {"mnuFotoValor3", "50%", true, false, nullptr},
      {"mnuFotoValor4", "25%", true, false, nullptr},
      {"mnuFotoValor5", "12%", true, false, nullptr},
      }
};

void fLlenar(QMenu &menu, const clsMenu &datos,
             const std::function<void(const QString &)> &fElegida)
{
    menu.setObjectName(QString::fromUtf8(datos.strNombre));
    menu.menuAction()->setObjectName(menu.objectName());
    for (const clsEntrada &entrada : datos.lstEntradas) {
        if (entrada.strNombre == nullptr) {
            menu.addSeparator();
            continue;
        }
        const QString strNombre = QString::fromUtf8(entrada.strNombre);
        QAction *const accion = menu.addAction(QString::fromUtf8(entrada.strTexto));
        accion->setObjectName(strNombre);
        accion->setEnabled(entrada.bolHace);
        accion->setCheckable(entrada.bolMarca);
        accion->setMenuRole(QAction::NoRole);
        if (entrada.strAtajo != nullptr) {
            accion->setShortcut(QKeySequence(QString::fromLatin1(entrada.strAtajo)));
        }
        QObject::connect(accion, &QAction::triggered, accion,
                         [fElegida, strNombre] { fElegida(strNombre); });
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
