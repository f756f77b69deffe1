// Time of the thumbnails of videos: miravel_bench_videos FOLDER [SIDE [ROUNDS]]
// Every video of the folder, with a cold cache of the desktop and with a warm one, against
// ffmpegthumbnailer run on each and against a bare seek and decode with libav in this process.

#include "medir.h"
#include "referencia_libav.h"

#include "shared/medios.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "viewer/fotogramas.h"
#include "viewer/thumbnailer.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <thread>

namespace {

const std::atomic<bool> bolAnulado{false};

struct clsBanco {
    clsRutas lstVideos;
    int intLado = 128;
    std::string strCarpeta; ///< for caches and pictures
};

/// Milliseconds of each video and of all together, in one round.
struct clsTiempos {
    std::vector<double> lstCada;
    double dblTodos = 0;
};

double fMilisegundos(const std::function<void()> &fHacer)
{
    const auto inicio = std::chrono::steady_clock::now();
    fHacer();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inicio)
        .count();
}

void fExigir(bool bolHecho, const std::string &strRuta)
{
    if (!bolHecho) {
        std::fprintf(stderr, "No frame of %s\n", strRuta.c_str());
        std::exit(1);
    }
}

/// Does something with every video, on so many threads.
clsTiempos fRonda(const clsBanco &banco, int intHilos, const std::function<bool(std::string)> &fUno)
{
    clsTiempos tiempos;
    tiempos.lstCada.resize(banco.lstVideos.size());
    std::atomic<std::size_t> lngSiguiente{0};
    const auto fTrabajar = [&] {
        for (std::size_t lng = 0; (lng = lngSiguiente++) < banco.lstVideos.size();) {
            tiempos.lstCada[lng] =
                fMilisegundos([&] { fExigir(fUno(banco.lstVideos[lng]), banco.lstVideos[lng]); });
        }
    };
    tiempos.dblTodos = fMilisegundos([&] {
        std::vector<std::jthread> lstHilos;
        for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
            lstHilos.emplace_back(fTrabajar);
        }
    });
    return tiempos;
}

clsTiempos fNuestra(const clsBanco &banco, int intHilos, bool bolFria)
{
    clsOrigenFotogramas origen = fOrigenUsual();
    origen.strCache = banco.strCarpeta + "thumbnails/";
    if (bolFria) {
        std::filesystem::remove_all(origen.strCache);
    } else {
        origen.lstHijos.clear();
        origen.lstThumbnailers.clear();
    }
    clsFotogramas fotogramas(origen);
    return fRonda(banco, intHilos, [&](const std::string &strRuta) {
        return !fotogramas
                    .fFotograma(strRuta, fHuella(strRuta).value_or(clsHuella{}), banco.intLado,
                                bolAnulado)
                    .isNull();
    });
}

clsTiempos fAjena(const clsBanco &banco)
{
    return fRonda(banco, 1, [&](const std::string &strRuta) {
        // Its own limit of time is far away; the loop that waits for it looks every 5 ms.
        return fEjecutar({"ffmpegthumbnailer", "-i", strRuta, "-o", banco.strCarpeta + "ajena.png",
                          "-s", std::to_string(banco.intLado)},
                         std::chrono::seconds(60), bolAnulado) == 0;
    });
}

struct clsMetodo {
    const char *strNombre;
    std::function<clsTiempos()> fHacer;
};

void fImprimir(const clsBanco &banco, const char *strNombre, const clsTiempos &mejor,
               double dblBase)
{
    std::map<std::string, std::pair<double, int>> lstClases;
    for (std::size_t lng = 0; lng < banco.lstVideos.size(); ++lng) {
        auto &[dblSuma, intCuantos] =
            lstClases[fMayusculasAscii(fExtensionDe(banco.lstVideos[lng]))];
        dblSuma += mejor.lstCada[lng];
        ++intCuantos;
    }
    std::printf("%-22s %8.1f ms %6.1fx  dearest %6.1f ms  each:", strNombre, mejor.dblTodos,
                dblBase / mejor.dblTodos,
                *std::max_element(mejor.lstCada.begin(), mejor.lstCada.end()));
    for (const auto &[strClase, suma] : lstClases) {
        std::printf(" %s %.1f", strClase.c_str(), suma.first / suma.second);
    }
    std::printf("\n");
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        std::fputs("Usage: miravel_bench_videos FOLDER [SIDE [ROUNDS]]\n", stderr);
        return 1;
    }
    const QCoreApplication aplicacion(intArgumentos, lstArgumentos);
    clsBanco banco;
    for (const std::string &strRuta : fRutas(lstArgumentos[1])) {
        if (fEsVideo(strRuta)) {
            banco.lstVideos.push_back(std::filesystem::absolute(strRuta));
        }
    }
    banco.intLado = intArgumentos > 2 ? std::atoi(lstArgumentos[2]) : 128;
    const int intVueltas = intArgumentos > 3 ? std::atoi(lstArgumentos[3]) : 5;
    std::string strCarpeta = std::filesystem::temp_directory_path() / "miravel-bench.XXXXXX";
    if (banco.lstVideos.empty() || mkdtemp(strCarpeta.data()) == nullptr) {
        std::fputs("No videos, or no temporary folder\n", stderr);
        return 1;
    }
    banco.strCarpeta = strCarpeta + "/";
    const int intNucleos = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    const clsMetodo lstMetodos[] = {
        {"ffmpegthumbnailer",    [&] { return fAjena(banco); }                    },
        {"bare libav",
         [&] {
             return fRonda(banco, 1, [&](const std::string &strRuta) {
                 return fReferenciaLibav(strRuta.c_str(), banco.intLado);
             });
         }                                                                        },
        {"cold, one thread",     [&] { return fNuestra(banco, 1, true); }         },
        {"cold, all processors", [&] { return fNuestra(banco, intNucleos, true); }},
        {"warm, one thread",     [&] { return fNuestra(banco, 1, false); }        },
    };
    std::vector<clsTiempos> lstMejores(std::size(lstMetodos));
    for (int intVuelta = 0; intVuelta < intVueltas; ++intVuelta) {
        for (std::size_t lng = 0; lng < std::size(lstMetodos); ++lng) {
            clsTiempos tiempos = lstMetodos[lng].fHacer();
            if (intVuelta == 0 || tiempos.dblTodos < lstMejores[lng].dblTodos) {
                lstMejores[lng] = std::move(tiempos);
            }
        }
    }
    std::printf("%zu videos, box %d, %d processors, best of %d rounds\n", banco.lstVideos.size(),
                banco.intLado, intNucleos, intVueltas);
    for (std::size_t lng = 0; lng < std::size(lstMetodos); ++lng) {
        fImprimir(banco, lstMetodos[lng].strNombre, lstMejores[lng], lstMejores[0].dblTodos);
    }
    std::filesystem::remove_all(strCarpeta);
    return 0;
}
