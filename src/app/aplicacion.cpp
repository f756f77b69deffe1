#include "app/aplicacion.h"

#include "viewer/decodificador.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

#include <string_view>

namespace {

/// Qt's texts in Spanish: its own file, and what that lacks.
class clsTextosQt : public QTranslator {
public:
    using QTranslator::QTranslator;
    [[nodiscard]] QString translate(const char *strContexto, const char *strTexto,
                                    const char *strAclaracion, int intNumero) const override
    {
        QString strHay = QTranslator::translate(strContexto, strTexto, strAclaracion, intNumero);
        if (!strHay.isEmpty() || std::string_view(strContexto) != "QAbstractFileIconProvider") {
            return strHay;
        }
        // The column "Tipo" where a folder is chosen.
        const std::string_view strIngles(strTexto);
        return strIngles == "Folder"  ? QStringLiteral("Carpeta")
               : strIngles == "Drive" ? QStringLiteral("Unidad")
                                      : QString();
    }
};

} // namespace

void fPrepararAplicacion(QApplication &aplicacion)
{
    // The files are part of a static library: without this nothing would link them.
    Q_INIT_RESOURCE(recursos);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/iconos/miravel.svg")));
    // Under Wayland the desktop finds name and icon of the window by it.
    QGuiApplication::setDesktopFileName(QStringLiteral("alt.miravel.miravel"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    auto *const textosQt = new clsTextosQt(&aplicacion);
    if (textosQt->load(QStringLiteral(":/textos/qtbase_es.qm"))) {
        QApplication::installTranslator(textosQt);
    }
    // All texts are Spanish, so they read from left to right on every desktop.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    // Damaged photos are the user's business, shown in the window, not the terminal's.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    // Photos of 50 megapixels and more; how much is really decoded the viewer decides. This holds
    // for files that hide another picture than the one they show.
    QImageReader::setAllocationLimit(lngMaximoEnMarcha >> 20);
}
