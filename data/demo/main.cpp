// miravel_demo FOLDER: makes the demonstration archive, drawn photos and films of an invented
// family. The same run gives the same bytes and dates.
#include "archivo.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <QGuiApplication>

namespace {

void fAlRecibirSenal(int) { demo::fInterrumpir(); }

} // namespace

int main(int intArgumentos, char *lstArgumentos[])
{
    if (intArgumentos != 2 || lstArgumentos[1][0] == '\0') {
        std::fputs("uso: miravel_demo CARPETA (nueva o vacía)\n", stderr);
        return 1;
    }
    try {
        const std::filesystem::path rutaFinal = demo::fDestino(lstArgumentos[1]);
        qputenv("QT_QPA_PLATFORM", "offscreen"); // painting needs no display
        const QGuiApplication aplicacion(intArgumentos, lstArgumentos);
        std::signal(SIGINT, fAlRecibirSenal);
        std::signal(SIGTERM, fAlRecibirSenal);
        std::signal(SIGHUP, fAlRecibirSenal);
        const demo::clsResumen resumen = demo::fHacerArchivo(rutaFinal);
        std::printf("%d fotos, %d vídeos, %d notas: %.1f MB\n", resumen.intFotos, resumen.intVideos,
                    resumen.intTextos, static_cast<double>(resumen.lngBytes) / 1e6);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "miravel_demo: %s\n", error.what());
        return 1;
    }
    return 0;
}
