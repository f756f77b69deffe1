// The window that repairs dates, with all photos below a folder: how fast it reads, and how long
// its thread keeps the user waiting for each thing a person does. miravel_bench_tabla FOLDER

#include "app/aplicacion.h"
#include "callado.h"
#include "dates/fuentes.h"
#include "manejo.h"
#include "medir.h"
#include "repair/frmReparar.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

/// The longest time between two turns of the window's events, in milliseconds.
class clsPulso {
public:
    clsPulso()
    {
        m_reloj.start();
        QObject::connect(&m_latido, &QTimer::timeout, &m_latido, [this] { fLatir(); });
        m_latido.start(0);
    }
    double fTomar() { return std::exchange(m_dblPeor, 0); }

private:
    void fLatir()
    {
        m_dblPeor = std::max(m_dblPeor, static_cast<double>(m_reloj.nsecsElapsed()) / 1e6);
        m_reloj.start();
    }
    QTimer m_latido;
    QElapsedTimer m_reloj;
    double m_dblPeor = 0;
};

std::vector<std::string> fFotos(const std::string &strCarpeta)
{
    std::vector<std::string> lstRutas;
    for (const auto &entrada : std::filesystem::recursive_directory_iterator(strCarpeta)) {
        if (entrada.is_regular_file() && entrada.path().extension() == ".JPG") {
            lstRutas.push_back(entrada.path().string());
        }
    }
    std::sort(lstRutas.begin(), lstRutas.end());
    return lstRutas;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    if (intArgumentos < 2) {
        std::fputs("Usage: miravel_bench_tabla FOLDER\n", stderr);
        return 2;
    }
    fPrepararAplicacion(aplicacion);
    const std::string strRaiz = std::string(lstArgumentos[1]) + '/';
    std::vector<std::string> lstRutas = fFotos(strRaiz);
    const std::size_t lngFotos = lstRutas.size();
    clsCallado mensajes;
    frmReparar ventana(
        nullptr, std::move(lstRutas), clsTablaReparacion(strRaiz),
        {[strRaiz](const std::string &strRuta) { return fLeerFechas(strRuta, strRaiz, {}); },
         [](const std::string &strRuta) { return std::filesystem::exists(strRuta); },
         [](const std::string &, int) { return QImage(); },
         [](const auto &, const auto &) { return false; }, mensajes});
    clsPulso pulso;
    QElapsedTimer reloj;
    reloj.start();
    ventana.show();
    const auto *const lblProgreso = ventana.findChild<QLabel *>(QStringLiteral("lblProgreso"));
    do {
        fDescansar(5);
    } while (!lblProgreso->text().isEmpty());
    const double dblSegundos = static_cast<double>(reloj.nsecsElapsed()) / 1e9;
    std::printf("%zu photos read and listed in %.2f s, %.0f a minute; longest wait %.1f ms; VmRSS "
                "%ld kB\n",
                lngFotos, dblSegundos, 60 * static_cast<double>(lngFotos) / dblSegundos,
                pulso.fTomar(), fMemoria("VmRSS"));
    auto *const tabla = ventana.findChild<QTableView *>(QStringLiteral("tblReparar"));
    const auto fMedir = [&](const char *strQue, int intVeces, const auto &fHacer) {
        fDescansar(300); // what looks at the disk comes to its end
        double dblMejor = 1e9;
        static_cast<void>(pulso.fTomar());
        for (int intVez = 0; intVez < intVeces; ++intVez) {
            reloj.start();
            fHacer(intVez);
            fDescansar(0);
            dblMejor = std::min(dblMejor, static_cast<double>(reloj.nsecsElapsed()) / 1e6);
        }
        fDescansar(300);
        std::printf("%-28s best %6.1f ms, longest wait %6.1f ms\n", strQue, dblMejor,
                    pulso.fTomar());
    };
    fMedir("PageDown", 500, [&](int) { fPulsar(tabla, Qt::Key_PageDown); });
    fMedir("another order, each column", tabla->model()->columnCount(),
           [&](int intColumna) { emit tabla->horizontalHeader()->sectionClicked(intColumna); });
    const auto fBoton = [&](const char *strNombre) {
        ventana.findChild<QPushButton *>(QString::fromLatin1(strNombre))->click();
    };
    fMedir("tick none, all", 10,
           [&](int intVez) { fBoton(intVez % 2 == 0 ? "cmdDesmarcar" : "cmdMarcar"); });
    return 0;
}
