#include "app/aplicacion.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

void fPrepararAplicacion(QApplication &aplicacion)
{
    // The files are part of a static library: without this nothing would link them.
    Q_INIT_RESOURCE(recursos);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/iconos/miravel.svg")));
    // Under Wayland the desktop finds name and icon of the window by it.
    QGuiApplication::setDesktopFileName(QStringLiteral("alt.miravel.miravel"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    auto *const textosQt = new QTranslator(&aplicacion);
    if (textosQt->load(QStringLiteral(":/textos/qtbase_es.qm"))) {
        QApplication::installTranslator(textosQt);
    }
    // Damaged photos are the user's business, shown in the window, not the terminal's.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    // Photos of 50 megapixels and more; how much is really decoded the viewer decides.
    QImageReader::setAllocationLimit(0);
}
