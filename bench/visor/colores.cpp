// What a colour profile adds to decoding a photo, in processor time:
// miravel_bench_colores WIDTH HEIGHT PHOTO [ROUNDS]. The photo is stored in several colour spaces
// and decoded for the fit view in a box of that size, at 100 % with what such a box shows of it in
// a corner, at 100 % with all pixels, and as a thumbnail of 133 pixels.

#include "viewer/extraccion.h"
#include "viewer/fuente.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Milliseconds of all processors that it takes. No child process: QImage may have started threads
/// of its own by now, which a fork would leave behind.
double fMs(const std::function<bool()> &fHacer)
{
    const std::clock_t lngInicio = std::clock();
    if (!fHacer()) {
        std::fputs("Cannot decode it\n", stderr);
        std::exit(1);
    }
    return static_cast<double>(std::clock() - lngInicio) * 1000.0 / CLOCKS_PER_SEC;
}

/// Runs them in turn and prints the best time of each and its ratio to the first.
void fComparar(const char *strQue,
               const std::vector<std::pair<const char *, std::string>> &lstFotos, int intVueltas,
               const std::function<bool(const std::string &)> &fHacer)
{
    std::vector<double> lstMs(lstFotos.size(), 1e9);
    for (int intVuelta = 0; intVuelta < intVueltas; ++intVuelta) {
        for (std::size_t lng = 0; lng < lstFotos.size(); ++lng) {
            lstMs[lng] = std::min(lstMs[lng], fMs([&] { return fHacer(lstFotos[lng].second); }));
        }
    }
    for (std::size_t lng = 0; lng < lstFotos.size(); ++lng) {
        std::printf("%-10s %-10s %8.1f ms  %.2f\n", strQue, lstFotos[lng].first, lstMs[lng],
                    lstMs[lng] / lstMs[0]);
    }
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 4) {
        std::fputs("Usage: miravel_bench_colores WIDTH HEIGHT PHOTO [ROUNDS]\n", stderr);
        return 1;
    }
    const QCoreApplication aplicacion(intArgumentos, lstArgumentos);
    const QSize recuadro(std::atoi(lstArgumentos[1]), std::atoi(lstArgumentos[2]));
    const int intVueltas = intArgumentos > 4 ? std::atoi(lstArgumentos[4]) : 9;
    const QTemporaryDir carpeta;
    std::vector<std::pair<const char *, std::string>> lstFotos;
    QImage foto(QString::fromLocal8Bit(lstArgumentos[3]));
    foto.setColorSpace(QColorSpace::SRgb);
    for (const auto &[strNombre, espacio] : {
             std::pair<const char *, QColorSpace>{"no profile", {}                      },
             {"sRGB",       QColorSpace::SRgb       },
             {"Adobe RGB",  QColorSpace::AdobeRgb   },
             {"Display P3", QColorSpace::DisplayP3  },
             {"ROMM",       QColorSpace::ProPhotoRgb}
    }) {
        QImage copia = espacio.isValid() ? foto.convertedToColorSpace(espacio) : foto;
        copia.setColorSpace(espacio);
        const QString strRuta = carpeta.filePath(QLatin1String(strNombre) + ".jpg");
        copia.save(strRuta, "JPG", 92);
        lstFotos.emplace_back(strNombre, strRuta.toStdString());
    }
    const std::atomic<bool> bolAnulado{false};
    fComparar("fit view", lstFotos, intVueltas, [&](const auto &strRuta) {
        return !fDecodificar({strRuta, recuadro, 0, lngMaximoFoto}, bolAnulado).imagen.isNull();
    });
    // At 100 % the decoder leaves what lies aside in its own colours.
    for (const QRect visible : {QRect({}, recuadro), foto.rect()}) {
        fComparar(
            visible == foto.rect() ? "100 %, all" : "100 %", lstFotos, intVueltas,
            [&](const auto &strRuta) {
                const auto fuente = fDecodificar({strRuta, {}, 100, lngMaximoFoto}, bolAnulado);
                if (fuente.tinte) {
                    fuente.tinte->fTenir(fuente.imagen, visible);
                }
                return !fuente.imagen.isNull();
            });
    }
    fComparar("thumbnail", lstFotos, intVueltas, [&](const auto &strRuta) {
        constexpr int intLado = 133;
        return !fExtraerFoto(strRuta, intLado, bolAnulado).imagen.isNull();
    });
    return 0;
}
