// Time from a press of F12 to the painted picture that was decoded ahead, in the fit view:
// miravel_bench_paso FOLDER [PRESSES]. FOLDER holds photos and gets a catalogue.

#include "app/aplicacion.h"
#include "app/frmMain.h"
#include "callado.h"
#include "manejo.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    if (intArgumentos < 2) {
        std::fputs("Usage: miravel_bench_paso FOLDER [PRESSES]\n", stderr);
        return 1;
    }
    fPrepararAplicacion(aplicacion);
    const int intPulsaciones = intArgumentos > 2 ? std::atoi(lstArgumentos[2]) : 20;
    const std::string strRaiz = std::string(lstArgumentos[1]) + '/';
    clsCallado mensajes;
    clsAjustes ajustes(strRaiz + "Miravel.ini", false);
    clsAjustes escritorio({}, false);
    frmMain ventana({strRaiz, true, {}}, ajustes, escritorio, mensajes);
    ventana.setMinimumSize(1800, 1100); // a frame of about 1600 x 1000
    ventana.fIniciar();
    constexpr int intReposo = 1500; // enough to decode two neighbours
    fDescansar(intReposo);
    auto *const lista = ventana.findChild<QWidget *>(QStringLiteral("lstFotos"));
    auto *const foto = ventana.findChild<QWidget *>(QStringLiteral("imgFoto"));
    clsVigia vigia(foto);
    fPulsar(lista, Qt::Key_J);
    std::vector<double> lstMs;
    for (int intVez = 0; intVez < intPulsaciones; ++intVez) {
        fDescansar(intReposo);
        vigia.bolPintado = false;
        QElapsedTimer reloj;
        reloj.start();
        fPulsar(lista, Qt::Key_F12);
        while (!vigia.bolPintado) {
            QApplication::processEvents(QEventLoop::AllEvents);
        }
        lstMs.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1e6);
    }
    std::sort(lstMs.begin(), lstMs.end());
    std::printf("picture %d x %d on screen; F12 to painted: median %.1f ms, worst %.1f ms (%zu)\n",
                foto->width(), foto->height(), lstMs[lstMs.size() / 2], lstMs.back(), lstMs.size());
    return 0;
}
