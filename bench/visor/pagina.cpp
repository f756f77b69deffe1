// The page of thumbnails in the real window: miravel_bench_pagina FOLDER [SECONDS]. FOLDER holds
// photos and gets a catalogue. Prints when the first and the last cell of the first page were
// painted, and the last one sharply, against the pure decode of the same files on all cores, and
// then what holding F12 does.

#include "app/aplicacion.h"
#include "app/frmMain.h"
#include "callado.h"
#include "manejo.h"
#include "medir.h"
#include "sistema/proceso.h"
#include "viewer/cmdMini.h"
#include "viewer/extraccion.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

/// Notes when cells have been painted.
class clsRelojPagina : public QObject {
public:
    clsRelojPagina() { m_reloj.start(); }
    void fEmpezar()
    {
        m_reloj.start();
        dblPrimera = dblUltima = 0;
    }
    double dblPrimera = 0; ///< milliseconds
    double dblUltima = 0;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint && qobject_cast<cmdMini *>(objeto) != nullptr) {
            dblUltima = static_cast<double>(m_reloj.nsecsElapsed()) / 1e6;
            dblPrimera = dblPrimera == 0 ? dblUltima : dblPrimera;
        }
        return false;
    }

private:
    QElapsedTimer m_reloj;
};

double fDescifrar(const std::vector<std::string> &lstRutas, int intLado)
{
    QElapsedTimer reloj;
    reloj.start();
    std::atomic<std::size_t> lngSiguiente = 0;
    const std::atomic<bool> bolAnulado = false;
    std::vector<std::thread> lstHilos;
    for (unsigned intHilo = 0; intHilo < std::thread::hardware_concurrency(); ++intHilo) {
        lstHilos.emplace_back([&] {
            for (std::size_t lngFoto = lngSiguiente++; lngFoto < lstRutas.size();
                 lngFoto = lngSiguiente++) {
                static_cast<void>(fExtraerFoto(lstRutas[lngFoto], intLado, bolAnulado));
            }
        });
    }
    for (std::thread &hilo : lstHilos) {
        hilo.join();
    }
    return static_cast<double>(reloj.nsecsElapsed()) / 1e6;
}

/// How long the event loop was out of reach at worst, in milliseconds.
class clsLatido : public QObject {
public:
    clsLatido()
    {
        startTimer(0);
        m_reloj.start();
    }
    double dblPeor = 0;

protected:
    void timerEvent(QTimerEvent *) override
    {
        dblPeor = std::max(dblPeor, static_cast<double>(m_reloj.nsecsElapsed()) / 1e6);
        m_reloj.start();
    }

private:
    QElapsedTimer m_reloj;
};

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    if (intArgumentos < 2) {
        std::fputs("Usage: miravel_bench_pagina FOLDER [SECONDS]\n", stderr);
        return 1;
    }
    fPrepararAplicacion(aplicacion);
    const int intSegundos = intArgumentos > 2 ? std::atoi(lstArgumentos[2]) : 10;
    const std::string strRaiz = std::string(lstArgumentos[1]) + '/';
    clsCallado mensajes;
    clsAjustes ajustes(strRaiz + "Miravel.ini", false);
    clsAjustes escritorio({}, false);
    frmMain ventana({strRaiz, true, {}}, ajustes, escritorio, mensajes);
    // The whole display, although no window manager is there that would maximise it.
    ventana.setMinimumSize(ventana.screen()->availableSize());
    ventana.fIniciar();
    constexpr int intReposo = 2000;
    fDescansar(intReposo);
    auto *const lista = ventana.findChild<QTableView *>(QStringLiteral("lstFotos"));
    while (ventana.findChild<QLineEdit *>(QStringLiteral("txtInfo1"))->text().isEmpty()) {
        fDescansar(intReposo);
    }
    // One page to know its cells; its pictures are then forgotten with the window's size of cells.
    fPulsar(lista, Qt::Key_M);
    fDescansar(intReposo);
    const auto lstCeldas = ventana.findChildren<cmdMini *>();
    std::vector<std::string> lstRutas;
    for (int lngFila = 0;
         lngFila < std::min(lstCeldas.size(), qsizetype{lista->model()->rowCount()}); ++lngFila) {
        const auto fTexto = [&](int intColumna) {
            return lista->model()->index(lngFila, intColumna).data().toString().toStdString();
        };
        lstRutas.push_back(fTexto(3) + fTexto(0));
    }
    const int intLado = static_cast<int>(133 * ventana.devicePixelRatioF());
    fPulsar(lista, Qt::Key_M);
    const double dblPuro = std::min({fDescifrar(lstRutas, intLado), fDescifrar(lstRutas, intLado),
                                     fDescifrar(lstRutas, intLado)});
    std::printf("%zu cells; pure decode on all cores %.1f ms\n", lstRutas.size(), dblPuro);

    frmMain otra({strRaiz, true, {}}, ajustes, escritorio, mensajes); // with nothing kept
    otra.setMinimumSize(otra.screen()->availableSize());
    otra.fIniciar();
    fDescansar(intReposo);
    clsRelojPagina vigia;
    qApp->installEventFilter(&vigia);
    auto *const otraLista = otra.findChild<QTableView *>(QStringLiteral("lstFotos"));
    vigia.fEmpezar();
    fPulsar(otraLista, Qt::Key_M);
    constexpr int intPintar = 20;
    fDescansar(intPintar);
    const double dblLlena = vigia.dblUltima;
    for (double dblAntes = 0; dblAntes != vigia.dblUltima;) { // until nothing is painted any more
        dblAntes = vigia.dblUltima;
        fDescansar(intReposo);
    }
    std::printf("after M: first cell %.1f ms, last cell %.1f ms, sharp %.1f ms (%.2f times)\n",
                vigia.dblPrimera, dblLlena, vigia.dblUltima, vigia.dblUltima / dblPuro);
    qApp->removeEventFilter(&vigia);

    const long lngAntes = fMemoria("VmRSS");
    clsLatido latido;
    QElapsedTimer reloj;
    reloj.start();
    const auto procesador = fProcesadorDelHilo();
    int intPaginas = 0;
    while (reloj.elapsed() < intSegundos * 1000) {
        const int lngFila = otraLista->currentIndex().row();
        fPulsar(otraLista, Qt::Key_F12);
        QApplication::processEvents();
        if (otraLista->currentIndex().row() == lngFila) {
            break; // the last page
        }
        ++intPaginas;
    }
    const double dblSegundos = static_cast<double>(reloj.elapsed()) / 1000;
    const std::chrono::duration<double, std::milli> suyo = fProcesadorDelHilo() - procesador;
    std::printf(
        "F12 held for %.1f s: %d pages, %.1f a second, %.1f ms of the window's thread each; "
        "longest stall %.1f ms; VmRSS %ld kB before, %ld kB after\n",
        dblSegundos, intPaginas, intPaginas / dblSegundos, suyo.count() / std::max(intPaginas, 1),
        latido.dblPeor, lngAntes, fMemoria("VmRSS"));
    return 0;
}
