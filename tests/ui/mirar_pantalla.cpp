// mirar_pantalla X Y ANCHO ALTO: one number for what a part of the screen shows, in pixels. Equal
// numbers, equal pictures (but for the odds of 1 in 2^64).
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

int main(int intArgumentos, char **lstArgumentos)
{
    Display *const pantalla = intArgumentos == 5 ? XOpenDisplay(nullptr) : nullptr;
    if (pantalla == nullptr) {
        std::fputs("uso: mirar_pantalla X Y ANCHO ALTO (con DISPLAY)\n", stderr);
        return 1;
    }
    const int intAncho = std::atoi(lstArgumentos[3]);
    const int intAlto = std::atoi(lstArgumentos[4]);
    XImage *const imagen =
        XGetImage(pantalla, DefaultRootWindow(pantalla), std::atoi(lstArgumentos[1]),
                  std::atoi(lstArgumentos[2]), static_cast<unsigned>(intAncho),
                  static_cast<unsigned>(intAlto), AllPlanes, ZPixmap);
    std::uint64_t lngHuella = 14695981039346656037U; // FNV-1a, by pixels
    for (int intY = 0; imagen != nullptr && intY < intAlto; ++intY) {
        for (int intX = 0; intX < intAncho; ++intX) {
            lngHuella = (lngHuella ^ XGetPixel(imagen, intX, intY)) * 1099511628211U;
        }
    }
    std::printf("%016" PRIx64 "\n", lngHuella);
    XCloseDisplay(pantalla);
    return imagen != nullptr ? 0 : 1;
}
