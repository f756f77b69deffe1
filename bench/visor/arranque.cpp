// Time from the start of a program to its first picture on the screen: looks at the middle of the
// X display until it has the photo's colour, then ends the program.
// miravel_bench_arranque RRGGBB ROUNDS COMMAND... [--- COMMAND...]...

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Reloj = std::chrono::steady_clock;
using Orden = std::vector<char *>;

bool fCerca(unsigned long lngUno, unsigned long lngOtro)
{
    constexpr int intTolerancia = 40;
    for (int intBits = 0; intBits < 24; intBits += 8) {
        const int intUno = static_cast<int>((lngUno >> intBits) & 0xFF);
        const int intOtro = static_cast<int>((lngOtro >> intBits) & 0xFF);
        if (std::abs(intUno - intOtro) > intTolerancia) {
            return false;
        }
    }
    return true;
}

/// Whether a point right of the middle of the screen, where every viewer has its picture, has the
/// colour.
bool fSeVe(Display *pantalla, unsigned long lngColor)
{
    const int intAncho = DisplayWidth(pantalla, 0);
    const int intAlto = DisplayHeight(pantalla, 0);
    XImage *const imagen = XGetImage(pantalla, DefaultRootWindow(pantalla), intAncho * 55 / 100,
                                     intAlto / 2, 1, 1, AllPlanes, ZPixmap);
    if (imagen == nullptr) {
        return false;
    }
    const bool bolIgual = fCerca(XGetPixel(imagen, 0, 0), lngColor);
    XDestroyImage(imagen);
    return bolIgual;
}

double fMedir(Display *pantalla, unsigned long lngColor, const Orden &lstOrden)
{
    const auto lngInicio = Reloj::now();
    const pid_t pid = fork();
    if (pid == 0) {
        setpgid(0, 0);
        execvp(lstOrden[0], lstOrden.data());
        _exit(127);
    }
    double dblMs = -1;
    while (dblMs < 0 && Reloj::now() - lngInicio < std::chrono::seconds(60)) {
        if (fSeVe(pantalla, lngColor)) {
            dblMs = std::chrono::duration<double, std::milli>(Reloj::now() - lngInicio).count();
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    kill(-pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    while (fSeVe(pantalla, lngColor)) { // its window is gone
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return dblMs;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    Display *const pantalla = XOpenDisplay(nullptr);
    if (intArgumentos < 4 || pantalla == nullptr) {
        std::fputs("Usage (with a display): miravel_bench_arranque RRGGBB ROUNDS "
                   "COMMAND... [--- COMMAND...]...\n",
                   stderr);
        return 1;
    }
    const unsigned long lngColor = std::strtoul(lstArgumentos[1], nullptr, 16);
    std::vector<Orden> lstOrdenes(1);
    for (int intArgumento = 3; intArgumento < intArgumentos; ++intArgumento) {
        if (std::string("---") == lstArgumentos[intArgumento]) {
            lstOrdenes.back().push_back(nullptr);
            lstOrdenes.emplace_back();
        } else {
            lstOrdenes.back().push_back(lstArgumentos[intArgumento]);
        }
    }
    lstOrdenes.back().push_back(nullptr);
    std::vector<std::vector<double>> lstTiempos(lstOrdenes.size());
    for (int intVuelta = 0; intVuelta < std::atoi(lstArgumentos[2]); ++intVuelta) {
        for (std::size_t lng = 0; lng < lstOrdenes.size(); ++lng) {
            lstTiempos[lng].push_back(fMedir(pantalla, lngColor, lstOrdenes[lng]));
        }
    }
    double dblPrimera = 0;
    for (std::size_t lng = 0; lng < lstOrdenes.size(); ++lng) {
        std::sort(lstTiempos[lng].begin(), lstTiempos[lng].end());
        const double dblMediana = lstTiempos[lng][lstTiempos[lng].size() / 2];
        dblPrimera = lng == 0 ? dblMediana : dblPrimera;
        std::printf("%8.0f ms median, %8.0f best, ratio %.2f  %s\n", dblMediana,
                    lstTiempos[lng].front(), dblMediana / dblPrimera, lstOrdenes[lng][0]);
    }
    XCloseDisplay(pantalla);
    return 0;
}
