// Big pictures in the real window: miravel_bench_grandes FOLDER [PICTURE [SCREENSHOTS]]. Makes the
// pictures below FOLDER where they are not there yet. Prints for each what its bare decode takes,
// and what the window does when it is stepped to, zoomed, dragged and left, each in a process of
// its own.

#include "app/aplicacion.h"
#include "app/frmMain.h"
#include "callado.h"
#include "dibujo_foto.h"
#include "manejo.h"
#include "medir.h"
#include "sistema/proceso.h"

#include <QColorSpace>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <QMouseEvent>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

struct clsGrande {
    const char *strNombre; ///< its folder
    const char *strTipo;
    QSize tam;
    bool bolProgresiva = false;
    QColorSpace espacio{};
};

const std::vector<clsGrande> &fGrandes()
{
    static const std::vector<clsGrande> lstGrandes{
        {"cien",            "jpg",         {12000, 8400}              },
        {"cien-progresiva", "jpg",         {12000, 8400},               true},
        {"cien-adobe",                 "jpg",                   {12000, 8400},                         false, QColorSpace::AdobeRgb},
        {"panorama",            "jpg",    {30000, 2000}      },
        {"panorama-progresiva", "jpg",{30000, 2000},                   true},
        {"panorama-png",            "png",               {30000, 2000}                   },
        {"dieciseis",    "png", {6000, 4000}},
    };
    return lstGrandes;
}

QString fRutaDe(const QString &strCarpeta, const clsGrande &grande)
{
    return QStringLiteral("%1/%2/grande.%3")
        .arg(strCarpeta, QLatin1String(grande.strNombre), QLatin1String(grande.strTipo));
}

/// The same with 16 bits a colour, the lower ones noise.
QImage fDieciseis(const QImage &imagen)
{
    QImage fina = imagen.convertToFormat(QImage::Format_RGBX64);
    std::uint32_t lngAzar = 1;
    for (int intY = 0; intY < fina.height(); ++intY) {
        auto *const linea = reinterpret_cast<quint16 *>(fina.scanLine(intY));
        for (int intX = 0; intX < fina.width() * 4; ++intX) {
            lngAzar = lngAzar * 1664525U + 1013904223U;
            linea[intX] = static_cast<quint16>(
                intX % 4 == 3 ? 0xFFFF : (linea[intX] & 0xFF00U) | lngAzar >> 24);
        }
    }
    return fina;
}

/// The picture, after some small ones, so that it is not decoded ahead.
bool fHacer(const QString &strCarpeta, const clsGrande &grande)
{
    const std::filesystem::path ruta = fRutaDe(strCarpeta, grande).toStdString();
    if (std::filesystem::exists(ruta)) {
        return true;
    }
    std::filesystem::create_directories(ruta.parent_path());
    for (char chrNombre = 'a'; chrNombre < 'h'; ++chrNombre) {
        const auto pequena = ruta.parent_path() / (std::string(1, chrNombre) + ".jpg");
        fFoto({800, 600}, static_cast<unsigned>(chrNombre)).save(QString::fromStdString(pequena));
        std::filesystem::last_write_time(pequena, std::filesystem::file_time_type::clock::now() -
                                                      std::chrono::hours(24));
    }
    QImage foto = fFoto(grande.tam, 1);
    foto.setColorSpace(grande.espacio);
    QImageWriter escritor(QString::fromStdString(ruta));
    escritor.setQuality(grande.strTipo == std::string("jpg") ? 92 : -1);
    escritor.setProgressiveScanWrite(grande.bolProgresiva);
    return escritor.write(grande.strNombre == std::string("dieciseis") ? fDieciseis(foto) : foto);
}

double fMs(const QElapsedTimer &reloj) { return static_cast<double>(reloj.nsecsElapsed()) / 1e6; }

double fMegas(long lngKb) { return static_cast<double>(lngKb) / 1024; }

int fReferencia(const QString &strRuta)
{
    QImageReader::setAllocationLimit(0);
    QElapsedTimer reloj;
    reloj.start();
    const QImage imagen = QImageReader(strRuta).read();
    std::printf("  bare decode     %7.0f ms, VmHWM %.0f MB\n", fMs(reloj),
                fMegas(fMemoria("VmHWM")));
    return imagen.isNull() ? 1 : 0;
}

/// Notes when the picture was painted, and how long the event loop was out of reach at worst.
class clsVigia : public QObject {
public:
    explicit clsVigia(QWidget *foto)
    {
        foto->installEventFilter(this);
        startTimer(1, Qt::PreciseTimer);
    }
    void fEmpezar()
    {
        dblPrimera = dblUltima = dblPeor = dblPeorPropio = 0;
        m_reloj.start();
        fLatir();
    }
    [[nodiscard]] double fCallada() const { return fMs(m_reloj) - dblUltima; }
    double dblPrimera = 0; ///< milliseconds
    double dblUltima = 0;
    double dblPeor = 0;
    double dblPeorPropio = 0; ///< of that, processor time of the thread

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint) {
            dblUltima = fMs(m_reloj);
            dblPrimera = dblPrimera == 0 ? dblUltima : dblPrimera;
        }
        return false;
    }
    void timerEvent(QTimerEvent *) override
    {
        dblPeor = std::max(dblPeor, fMs(m_latido));
        const std::chrono::duration<double, std::milli> propio = fProcesadorDelHilo() - m_propio;
        dblPeorPropio = std::max(dblPeorPropio, propio.count());
        fLatir();
    }

private:
    void fLatir()
    {
        m_latido.start();
        m_propio = fProcesadorDelHilo();
    }

    std::chrono::nanoseconds m_propio{};
    QElapsedTimer m_reloj;
    QElapsedTimer m_latido;
};

/// The most memory that a child has taken, in kilobytes.
long fHijos()
{
    long lngMas = 0;
    for (const auto &hilo : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream lista(hilo.path() / "children");
        for (std::string strHijo; lista >> strHijo;) {
            lngMas = std::max(lngMas, fMemoria("VmHWM", strHijo));
        }
    }
    return lngMas;
}

class clsRecorridoFoto {
public:
    clsRecorridoFoto(frmMain &ventana, QString strCapturas)
        : m_ventana(ventana), m_foto(ventana.findChild<QWidget *>(QStringLiteral("imgFoto"))),
          m_lista(ventana.findChild<QWidget *>(QStringLiteral("lstFotos"))), m_vigia(m_foto),
          m_strCapturas(std::move(strCapturas))
    {
    }

    /// A key, until nothing has been painted for so long.
    void fTecla(const char *strQue, int intTecla, Qt::KeyboardModifiers mayus, int intQuieto)
    {
        m_vigia.fEmpezar();
        QKeyEvent evento(QEvent::KeyPress, intTecla, mayus);
        QApplication::sendEvent(m_lista, &evento);
        do {
            fDescansar(intQuieto / 4);
        } while (m_vigia.fCallada() < intQuieto);
        std::printf("  %-15s %7.0f ms, last pixels %.0f ms, longest stall %.1f ms (%.1f)\n", strQue,
                    m_vigia.dblPrimera, m_vigia.dblUltima, m_vigia.dblPeor, m_vigia.dblPeorPropio);
        m_lngHijos = std::max(m_lngHijos, fHijos());
        if (!m_strCapturas.isEmpty()) {
            m_ventana.grab().save(m_strCapturas + QLatin1Char(' ') + QLatin1String(strQue) +
                                  QStringLiteral(".png"));
        }
    }

    /// Drags the picture from its middle to its top left corner and then across.
    void fArrastrar(const char *strQue)
    {
        std::vector<double> lstMs;
        m_vigia.fEmpezar();
        for (const int intSentido : {1, -1}) {
            const QPoint medio = m_foto->parentWidget()->rect().center();
            fRaton(QEvent::MouseButtonPress, medio);
            QPoint antes;
            int intPaso = 0;
            do {
                antes = m_foto->pos();
                QElapsedTimer reloj;
                reloj.start();
                fRaton(QEvent::MouseMove, medio + intSentido * QPoint(20 + intPaso % 2, 20));
                QApplication::processEvents();
                lstMs.push_back(fMs(reloj));
            } while (m_foto->pos() != antes && ++intPaso < 500);
            fRaton(QEvent::MouseButtonRelease, medio);
        }
        std::sort(lstMs.begin(), lstMs.end());
        std::printf("  %-15s %zu steps, median %.1f ms, longest stall %.1f ms (%.1f)\n", strQue,
                    lstMs.size(), lstMs[lstMs.size() / 2], m_vigia.dblPeor, m_vigia.dblPeorPropio);
    }

    [[nodiscard]] long fMemoriaHijos() const { return m_lngHijos; }

private:
    void fRaton(QEvent::Type tipo, QPoint punto)
    {
        QMouseEvent evento(tipo, m_foto->mapFrom(m_foto->parentWidget(), punto),
                           m_foto->parentWidget()->mapToGlobal(punto),
                           tipo == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                           tipo == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(m_foto, &evento);
    }

    frmMain &m_ventana;
    QWidget *m_foto;
    QWidget *m_lista;
    clsVigia m_vigia;
    const QString m_strCapturas;
    long m_lngHijos = 0;
};

int fMedir(const QString &strRuta, const QString &strCapturas)
{
    fPrepararAplicacion(*qApp);
    const std::string strRaiz = strRuta.toStdString().substr(
        0, static_cast<std::size_t>(strRuta.lastIndexOf(QLatin1Char('/'))) + 1);
    clsCallado mensajes;
    clsAjustes ajustes(strRaiz + "Miravel.ini", false);
    clsAjustes escritorio({}, false);
    clsPreferencias preferencias;
    preferencias.bolFormatos = true;
    frmMain ventana({strRaiz, true, preferencias}, ajustes, escritorio, mensajes);
    ventana.setMinimumSize(ventana.screen()->availableSize());
    ventana.fIniciar();
    constexpr int intReposo = 1500;
    fDescansar(intReposo);
    clsRecorridoFoto prueba(ventana, strCapturas);
    constexpr int intDecodificar = 8000; // longer than any of them takes
    constexpr int intCorto = 1000;
    fPulsar(ventana.findChild<QWidget *>(QStringLiteral("lstFotos")), Qt::Key_J);
    fDescansar(intReposo);
    const long lngAntes = fMemoria("VmHWM");
    prueba.fTecla("fit view", Qt::Key_F12, Qt::ShiftModifier, intDecodificar);
    prueba.fTecla("100 %", Qt::Key_Plus, Qt::KeypadModifier, intDecodificar);
    prueba.fArrastrar("dragged");
    prueba.fTecla("200 %", Qt::Key_Plus, Qt::KeypadModifier, intCorto);
    prueba.fTecla("400 %", Qt::Key_Plus, Qt::KeypadModifier, intCorto);
    prueba.fArrastrar("dragged");
    prueba.fTecla("turned", Qt::Key_F8, {}, intCorto);
    prueba.fArrastrar("dragged");
    prueba.fTecla("fit view again", Qt::Key_J, {}, intCorto);
    prueba.fTecla("the one before", Qt::Key_F11, {}, intCorto);
    std::printf("  VmHWM %.0f MB, %.0f of it before; of the largest child %.0f MB\n",
                fMegas(fMemoria("VmHWM")), fMegas(lngAntes), fMegas(prueba.fMemoriaHijos()));
    return 0;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    const QStringList lstTextos = QApplication::arguments();
    if (lstTextos.size() < 2) {
        std::fputs("Usage: miravel_bench_grandes FOLDER [PICTURE [SCREENSHOTS]]\n", stderr);
        return 1;
    }
    if (lstTextos[1] == QLatin1String("--bare")) {
        return fReferencia(lstTextos.value(2));
    }
    if (lstTextos[1] == QLatin1String("--window")) {
        return fMedir(lstTextos.value(2), lstTextos.value(3));
    }
    for (const clsGrande &grande : fGrandes()) {
        const QString strNombre = QLatin1String(grande.strNombre);
        if (lstTextos.size() > 2 && lstTextos[2] != strNombre) {
            continue;
        }
        if (!fHacer(lstTextos[1], grande)) {
            std::fprintf(stderr, "Cannot make %s\n", grande.strNombre);
            return 1;
        }
        const QString strRuta = fRutaDe(lstTextos[1], grande);
        const QString strCapturas = lstTextos.value(3);
        std::printf("%s, %d x %d, %.1f MB\n", grande.strNombre, grande.tam.width(),
                    grande.tam.height(),
                    static_cast<double>(std::filesystem::file_size(strRuta.toStdString())) / 1e6);
        std::fflush(stdout);
        QProcess::execute(lstTextos[0], {QStringLiteral("--bare"), strRuta});
        QProcess::execute(
            lstTextos[0],
            {QStringLiteral("--window"), strRuta,
             strCapturas.isEmpty() ? QString() : strCapturas + QLatin1Char('/') + strNombre});
    }
    return 0;
}
