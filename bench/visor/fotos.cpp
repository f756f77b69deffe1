// Makes test photos of 24 megapixels: miravel_miravel_bench_fotos FOLDER COUNT. Soft shapes with
// fine grain, so that the files have the size that photos of a camera have (6 to 9 MB).

#include <QColor>
#include <QDir>
#include <QImage>
#include <QString>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int intAncho = 6000;
constexpr int intAlto = 4000;

QImage fFoto(unsigned intSemilla)
{
    QImage imagen(intAncho, intAlto, QImage::Format_RGB32);
    std::uint32_t lngAzar = intSemilla * 2654435761U + 1;
    const double dblFase = intSemilla * 0.7;
    for (int intY = 0; intY < intAlto; ++intY) {
        auto *const linea = reinterpret_cast<QRgb *>(imagen.scanLine(intY));
        for (int intX = 0; intX < intAncho; ++intX) {
            lngAzar = lngAzar * 1664525U + 1013904223U;
            const int intGrano = static_cast<int>(lngAzar >> 28) - 8;
            const double dblOnda = std::sin(intX * 0.004 + dblFase) * std::cos(intY * 0.006);
            const int intLuz = 128 + static_cast<int>(90 * dblOnda) + intGrano;
            linea[intX] = qRgb(qBound(0, intLuz + 20, 255), qBound(0, intLuz, 255),
                               qBound(0, 230 - intLuz + intGrano, 255));
        }
    }
    return imagen;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos != 3 || !QDir().mkpath(QString::fromLocal8Bit(lstArgumentos[1]))) {
        std::fputs("Usage: miravel_bench_fotos FOLDER COUNT\n", stderr);
        return 1;
    }
    for (int intFoto = 0; intFoto < std::atoi(lstArgumentos[2]); ++intFoto) {
        const QString strRuta = QStringLiteral("%1/IMG_%2.JPG")
                                    .arg(QString::fromLocal8Bit(lstArgumentos[1]))
                                    .arg(intFoto, 4, 10, QLatin1Char('0'));
        if (!fFoto(static_cast<unsigned>(intFoto)).save(strRuta, "JPG", 92)) {
            std::fprintf(stderr, "Cannot write %s\n", qPrintable(strRuta));
            return 1;
        }
    }
    return 0;
}
