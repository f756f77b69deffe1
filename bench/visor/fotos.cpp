// Makes test photos of 24 megapixels: miravel_bench_fotos FOLDER COUNT. The files have the size
// that photos of a camera have (6 to 9 MB).

#include "dibujo_foto.h"

#include <QDir>
#include <QString>

#include <cstdio>
#include <cstdlib>

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
        if (!fFoto({6000, 4000}, static_cast<unsigned>(intFoto)).save(strRuta, "JPG", 92)) {
            std::fprintf(stderr, "Cannot write %s\n", qPrintable(strRuta));
            return 1;
        }
    }
    return 0;
}
