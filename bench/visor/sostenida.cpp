// F12 held in the single view of the real window: miravel_bench_sostenida FOLDER [PRESSES]. FOLDER
// holds photos and gets a catalogue. Each press comes as soon as what the last one led to is
// painted; fitted, then at 100 %. The reference is a bare window that decodes the same photos by
// QImageReader in the size of its frame and paints them.

#include "app/aplicacion.h"
#include "app/frmMain.h"
#include "callado.h"
#include "manejo.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

double fMs(const QElapsedTimer &reloj) { return static_cast<double>(reloj.nsecsElapsed()) / 1e6; }

/// Bytes that the program has read so far.
double fLeidos()
{
    QFile cuentas(QStringLiteral("/proc/self/io"));
    static_cast<void>(cuentas.open(QIODevice::ReadOnly));
    return cuentas.readLine().mid(int{sizeof "rchar:"}).toDouble();
}

/// What steps took.
struct clsMedida {
    std::vector<double> lstMs{};
    double dblProcesador = 0; ///< milliseconds of all threads, all steps
    double dblLeidos = 0;     ///< bytes
    void fDecir(const char *strQue, double dblBytesFoto)
    {
        std::sort(lstMs.begin(), lstMs.end());
        const auto dblCuantos = static_cast<double>(lstMs.size());
        std::printf("%s: %zu steps, best %.1f ms, median %.1f ms, worst %.1f ms; %.1f ms of "
                    "all processors each; as many bytes read as in %.1f photos\n",
                    strQue, lstMs.size(), lstMs.front(), lstMs[lstMs.size() / 2], lstMs.back(),
                    dblProcesador / dblCuantos, dblLeidos / dblBytesFoto);
    }
};

/// Takes steps until one says that it was the last.
template <typename Paso> clsMedida fMedir(Paso paso)
{
    clsMedida medida;
    const std::clock_t procesador = std::clock();
    const double dblLeidos = fLeidos();
    QElapsedTimer reloj;
    for (bool bolMas = true; bolMas;) {
        reloj.start();
        bolMas = paso();
        medida.lstMs.push_back(fMs(reloj));
    }
    medida.dblProcesador = static_cast<double>(std::clock() - procesador) * 1000.0 / CLOCKS_PER_SEC;
    medida.dblLeidos = fLeidos() - dblLeidos;
    return medida;
}

/// The bare window.
class clsDesnuda : public QWidget {
public:
    void fMostrar(const QString &strRuta)
    {
        const QSize tam = size() * devicePixelRatioF();
        QImageReader lector(strRuta);
        lector.setAutoTransform(true);
        const bool bolTumbada = lector.transformation() & QImageIOHandler::TransformationRotate90;
        lector.setScaledSize(
            lector.size().scaled(bolTumbada ? tam.transposed() : tam, Qt::KeepAspectRatio));
        m_imagen = lector.read();
        m_imagen.setDevicePixelRatio(devicePixelRatioF());
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_imagen); }

private:
    QImage m_imagen;
};

void fHastaPintar(const clsVigia &vigia, const QWidget *foto)
{
    do {
        QApplication::processEvents();
    } while (!vigia.bolPintado && foto->isVisible());
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    if (intArgumentos < 2) {
        std::fputs("Usage: miravel_bench_sostenida FOLDER [PRESSES]\n", stderr);
        return 1;
    }
    fPrepararAplicacion(aplicacion);
    const std::string strRaiz = std::string(lstArgumentos[1]) + '/';
    clsCallado mensajes;
    clsAjustes ajustes(strRaiz + "Miravel.ini", false);
    clsAjustes escritorio({}, false);
    frmMain ventana({strRaiz, true, {}}, ajustes, escritorio, mensajes);
    ventana.setMinimumSize(ventana.screen()->availableSize());
    ventana.fIniciar();
    constexpr int intReposo = 3000;
    fDescansar(intReposo);
    auto *const lista = ventana.findChild<QTableView *>(QStringLiteral("lstFotos"));
    auto *const foto = ventana.findChild<QWidget *>(QStringLiteral("imgFoto"));
    const int lngFilas = lista->model()->rowCount();
    const int intPasos =
        std::min(intArgumentos > 2 ? std::atoi(lstArgumentos[2]) : lngFilas, lngFilas - 1);
    std::vector<QString> lstRutas;
    double dblBytes = 0;
    for (int lngFila = 0; lngFila <= intPasos; ++lngFila) {
        const auto fTexto = [&](int intColumna) {
            return lista->model()->index(lngFila, intColumna).data().toString();
        };
        lstRutas.push_back(fTexto(3) + fTexto(0));
        dblBytes += static_cast<double>(QFile(lstRutas.back()).size());
    }
    const double dblBytesFoto = dblBytes / static_cast<double>(lstRutas.size());

    {
        clsDesnuda desnuda;
        desnuda.resize(foto->parentWidget()->size());
        desnuda.show();
        fDescansar(intReposo);
        clsVigia vigia(&desnuda);
        auto it = lstRutas.cbegin();
        fMedir([&] {
            vigia.bolPintado = false;
            desnuda.fMostrar(*++it);
            fHastaPintar(vigia, &desnuda);
            return it + 1 != lstRutas.cend();
        }).fDecir("bare window", dblBytesFoto);
    }

    clsVigia vigia(foto);
    for (const char *const strZoom : {"mnuFotoAjustar", "mnuFotoValor2"}) {
        QKeyEvent inicio(QEvent::KeyPress, Qt::Key_F11, Qt::ShiftModifier);
        QApplication::sendEvent(lista, &inicio);
        ventana.findChild<QAction *>(QLatin1String(strZoom))->trigger();
        fDescansar(intReposo);
        int intSinFoto = 0;
        fMedir([&] {
            vigia.bolPintado = false;
            fPulsar(lista, Qt::Key_F12);
            fHastaPintar(vigia, foto);
            intSinFoto += foto->isVisible() ? 0 : 1;
            return lista->currentIndex().row() < intPasos;
        }).fDecir(strZoom, dblBytesFoto);
        // Sharper pixels are painted once more.
        QElapsedTimer reloj;
        reloj.start();
        double dblNitida = 0;
        while (reloj.elapsed() < intReposo) {
            vigia.bolPintado = false;
            QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
            dblNitida = vigia.bolPintado ? fMs(reloj) : dblNitida;
        }
        std::printf("    %d steps without a picture; sharp %.0f ms after the last\n", intSinFoto,
                    dblNitida);
    }
    return 0;
}
