// cerrar_ventana ID: asks a window to close, as the button of a window manager does (ICCCM 4.2.8).
// The X server of the tests has no window manager.
#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

int main(int intArgumentos, char **lstArgumentos)
{
    Display *const pantalla = intArgumentos == 2 ? XOpenDisplay(nullptr) : nullptr;
    if (pantalla == nullptr) {
        std::fputs("uso: cerrar_ventana VENTANA (con DISPLAY)\n", stderr);
        return 1;
    }
    XEvent evento = {};
    evento.xclient.type = ClientMessage;
    evento.xclient.window = std::strtoul(lstArgumentos[1], nullptr, 0);
    evento.xclient.message_type = XInternAtom(pantalla, "WM_PROTOCOLS", False);
    evento.xclient.format = 32;
    evento.xclient.data.l[0] = static_cast<long>(XInternAtom(pantalla, "WM_DELETE_WINDOW", False));
    evento.xclient.data.l[1] = CurrentTime;
    const int intEnviado = XSendEvent(pantalla, evento.xclient.window, False, NoEventMask, &evento);
    XCloseDisplay(pantalla); // flushes
    return intEnviado != 0 ? 0 : 1;
}
