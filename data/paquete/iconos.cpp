// Draws an SVG picture as a square PNG: miravel_iconos SVG SIDE PNG
// Built and run on the building machine only; nothing of it is installed.

#include <QCoreApplication>
#include <QImageReader>
#include <QImageWriter>

#include <cstdio>

int main(int intArgumentos, char **lstArgumentos)
{
    // The plug-ins of Qt are found through it; no display is needed.
    const QCoreApplication aplicacion(intArgumentos, lstArgumentos);
    const QStringList lstOrden = QCoreApplication::arguments();
    const int intLado = lstOrden.size() == 4 ? lstOrden[2].toInt() : 0;
    if (intLado <= 0) {
        std::fputs("Usage: miravel_iconos SVG SIDE PNG\n", stderr);
        return 2;
    }
    QImageReader lector(lstOrden[1], "svg");
    lector.setScaledSize(QSize(intLado, intLado));
    QImageWriter escritor(lstOrden[3], "png");
    const QImage imagen = lector.read();
    if (imagen.isNull()) {
        std::fprintf(stderr, "%s: %s\n", lstArgumentos[1], qPrintable(lector.errorString()));
        return 1;
    }
    if (!escritor.write(imagen)) {
        std::fprintf(stderr, "%s: %s\n", lstArgumentos[3], qPrintable(escritor.errorString()));
        return 1;
    }
    return 0;
}
