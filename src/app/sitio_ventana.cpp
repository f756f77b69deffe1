#include "app/sitio_ventana.h"

#include "app/escritorio.h"
#include "shared/ajustes.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <vector>

namespace {

constexpr const char *strClave = "VENTANA";

clsRectEscritorio fRect(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

} // namespace

void fPonerEnSitio(QWidget &ventana, clsAjustes &escritorio)
{
    std::vector<clsRectEscritorio> lstPantallas;
    for (const QScreen *const pantalla : QGuiApplication::screens()) { // the main one first
        lstPantallas.push_back(fRect(pantalla->availableGeometry()));
    }
    const auto [normal, bolMaximizada] =
        fSitio(escritorio.fConsultar(strSeccionEscritorio, strClave), lstPantallas);
    ventana.setGeometry(normal.intX, normal.intY, normal.intAncho, normal.intAlto);
    ventana.setWindowState(bolMaximizada ? Qt::WindowMaximized : Qt::WindowNoState);
}

void fGuardarSitio(const QWidget &ventana, clsAjustes &escritorio)
{
    const bool bolMaximizada = ventana.windowState() & Qt::WindowMaximized;
    // Without a window manager there is no maximised state: then both are the same.
    const clsSitio sitio{fRect(ventana.normalGeometry()), bolMaximizada};
    escritorio.fGuardarIni(strSeccionEscritorio, strClave, fTextoSitio(sitio));
}
