// Frames of videos: the real child, children that misbehave, other programs, the shared cache.
#include "viewer/fotogramas.h"

#include "../../data/demo/escritores.h"
#include "shared/uri.h"
#include "sistema/entorno.h"
#include "soporte/arbol.h"
#include "viewer/fechas_videos.h"

#include <QBuffer>
#include <QColor>
#include <QCryptographicHash>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sys/stat.h>
#include <thread>

namespace {

using std::chrono::milliseconds;
const std::atomic<bool> bolQuerido{false};

/// Bytes of a picture of one colour.
QByteArray fBytes(const QColor &color, QSize tam, const char *strFormato)
{
    QImage imagen(tam, QImage::Format_RGB32);
    imagen.fill(color);
    QBuffer bufer;
    bufer.open(QIODevice::WriteOnly);
    imagen.save(&bufer, strFormato, 90);
    return bufer.data();
}

/// Twenty frames of Motion-JPEG; the one at a tenth of the length is red, with a green top, the
/// others are blue.
std::vector<QByteArray> fCuadros(QSize tam)
{
    std::vector<QByteArray> lstCuadros(20, fBytes(Qt::blue, tam, "jpg"));
    QImage rojo = QImage::fromData(fBytes(Qt::red, tam, "png"));
    for (int intY = 0; intY < tam.height() / 4; ++intY) {
        for (int intX = 0; intX < tam.width(); ++intX) {
            rojo.setPixelColor(intX, intY, Qt::green);
        }
    }
    QBuffer bufer(&lstCuadros[2]);
    bufer.open(QIODevice::WriteOnly | QIODevice::Truncate);
    rojo.save(&bufer, "jpg", 90);
    return lstCuadros;
}

std::string fAviRojo(QSize tam = {320, 180})
{
    return demo::fAvi(fCuadros(tam), tam, 10).toStdString();
}

std::string fMovRojo(QSize tam, bool bolGirado)
{
    std::string strMov = demo::fMov(fCuadros(tam), tam, 10, 0).toStdString();
    if (bolGirado) {
        // QuickTime: the matrix lies 40 bytes behind the beginning of a tkhd atom's content.
        const std::string strGiro("\0\0\0\0\0\1\0\0\0\0\0\0\xff\xff\0\0\0\0\0\0", 20);
        strMov.replace(strMov.find("tkhd") + 4 + 40, strGiro.size(), strGiro);
    }
    return strMov;
}

bool fEs(const QImage &imagen, const QColor &color, QPoint punto)
{
    const QColor suyo = imagen.pixelColor(punto);
    return suyo.isValid() && std::abs(suyo.red() - color.red()) < 20 &&
           std::abs(suyo.green() - color.green()) < 20 && std::abs(suyo.blue() - color.blue()) < 20;
}

bool fEs(const QImage &imagen, const QColor &color)
{
    return !imagen.isNull() && fEs(imagen, color, imagen.rect().center());
}

/// A folder with a cache, data folders, and videos.
class Fotogramas : public testing::Test {
protected:
    Fotogramas()
    {
        m_origen.lstHijos = {m_strHijo};
        m_origen.lstThumbnailers = {m_arbol.fRuta("thumbnailers/")};
        m_origen.strCache = m_arbol.fRuta("cache/thumbnails/");
    }
    std::string fPrograma(const std::string &strNombre, const std::string &strLineas)
    {
        m_arbol.fCrear(strNombre, "#!/bin/sh\n" + strLineas + "\n");
        chmod(m_arbol.fRuta(strNombre).c_str(), S_IRWXU);
        return m_arbol.fRuta(strNombre);
    }
    QImage fTomar(const std::string &strNombre, int intLado = 100,
                  const std::atomic<bool> &bolAnulado = bolQuerido)
    {
        const std::string strRuta = m_arbol.fRuta(strNombre);
        if (!m_fotogramas) {
            m_fotogramas = std::make_unique<clsFotogramas>(m_origen);
        }
        return m_fotogramas->fFotograma(strRuta, fHuella(strRuta).value_or(clsHuella{}), intLado,
                                        bolAnulado);
    }
    std::string fEntrada(const std::string &strCarpeta, const std::string &strNombre)
    {
        const auto uri = QByteArray::fromStdString(fUriDeRuta(m_arbol.fRuta(strNombre)));
        return "cache/thumbnails/" + strCarpeta + "/" +
               QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex().toStdString() +
               ".png";
    }
    /// "", "fail" or "fail for a day".
    std::string fFallo(const std::string &strNombre)
    {
        const std::string strEntrada = fEntrada("fail/miravel-1", strNombre);
        if (!fExisteArchivo(m_arbol.fRuta(strEntrada))) {
            return "";
        }
        const bool bolUnDia =
            m_arbol.fLeer(strEntrada).find("X-Miravel::Until") != std::string::npos;
        return bolUnDia ? "fail for a day" : "fail";
    }

    const std::string m_strHijo = fCarpetaPrograma() + "miravel-fotograma";
    clsArbol m_arbol;
    clsOrigenFotogramas m_origen;
    std::unique_ptr<clsFotogramas> m_fotogramas;
};

TEST_F(Fotogramas, AreUprightFitTheBoxAndComeFromATenthOfTheLength)
{
    struct clsCaso {
        const char *strNombre;
        std::string strBytes;
        int intLado;
        QSize tam;
    };
    const clsCaso lstCasos[] = {
        {"ancho.avi", fAviRojo(), 100, {100, 56}},
        {"alto.MOV", fMovRojo({180, 320}, false), 133, {75, 133}},
        {"girado.mov", fMovRojo({320, 180}, true), 66, {37, 66}},
        {"peque\xf1o.avi", fAviRojo({48, 32}), 300, {48, 32}},
        {"C\xc3\xa1/a #1 100%d:\"q'\n\xff.mp4", fAviRojo(), 1000, {320, 180}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strNombre);
        m_arbol.fCrear(caso.strNombre, caso.strBytes);
        const QImage imagen = fTomar(caso.strNombre, caso.intLado);
        EXPECT_EQ(imagen.size(), caso.tam);
        EXPECT_EQ(imagen.format(), QImage::Format_RGB32);
        EXPECT_TRUE(fEs(imagen, Qt::red));
        // The film's top is on the right once it has been turned clockwise.
        const bool bolGirado = caso.strNombre == std::string("girado.mov");
        EXPECT_TRUE(fEs(imagen, Qt::green,
                        bolGirado ? QPoint(imagen.width() - 4, imagen.height() / 2)
                                  : QPoint(imagen.width() / 2, 3)));
    }
}

TEST_F(Fotogramas, ComeWithWhatTheFileSaysOfItsDate)
{
    constexpr std::time_t lngMomento = 1247587402; // 2009/07/14 16:03:22 universal time
    const QSize tam(64, 36);
    std::string strAvi = fAviRojo(tam);
    // RIFF: what a camera says when it recorded stands in the list of headers.
    const std::string strIdit("IDIT\x1a\0\0\0Tue Jul 14 18:03:22 2009\n\0", 34);
    const std::size_t lngLista = strAvi.find("hdrl");
    strAvi.insert(strAvi.find("LIST", lngLista), strIdit);
    strAvi[lngLista - 4] = static_cast<char>(strAvi[lngLista - 4] + strIdit.size());
    m_arbol.fCrear("a.mov", demo::fMov(fCuadros(tam), tam, 10, lngMomento).toStdString());
    m_arbol.fCrear("a.avi", strAvi);
    m_arbol.fCrear("sin.avi", fAviRojo(tam));
    m_arbol.fCrear("a.mp4", "no video");
    clsFechasVideos fechas(m_strHijo);
    const auto fDatos = [&](const char *strNombre) {
        return fechas.fDatos(fAbrirRegular(m_arbol.fRuta(strNombre)).value(), bolQuerido);
    };
    EXPECT_EQ(fDatos("a.mov"), "creation_time=2009-07-14T16:03:22.000000Z\n");
    EXPECT_EQ(fDatos("a.avi"), "creation_time=2009-07-14 18:03:22\n");
    EXPECT_EQ(fDatos("sin.avi"), "");
    EXPECT_EQ(fDatos("a.mp4"), "");
    EXPECT_EQ(fDatos("a.mov"), "creation_time=2009-07-14T16:03:22.000000Z\n") << "still alive";
}

TEST_F(Fotogramas, AreTakenFromTheOtherFormatsAndTheirDatesRead)
{
    // Films of 64 x 48 whose upper left quarter is red, from 2019/07/14 16:03:22 universal time.
    clsFechasVideos fechas(m_strHijo);
    for (const char *const strNombre :
         {"roja.mkv", "roja.webm", "roja.mts", "roja.vob", "roja.ogv", "roja.m4v"}) {
        SCOPED_TRACE(strNombre);
        std::ifstream semilla(std::string(MIRAVEL_FOTOS_PRUEBA "/") + strNombre, std::ios::binary);
        const std::string strBytes{std::istreambuf_iterator<char>(semilla), {}};
        m_arbol.fCrear(strNombre, strBytes.empty() ? fMovRojo({64, 48}, false) : strBytes);
        const QImage imagen = fTomar(strNombre);
        EXPECT_EQ(imagen.size(), QSize(64, 48));
        EXPECT_TRUE(fEs(imagen, Qt::red, {16, 18}));
        const std::string strFechas =
            fechas.fDatos(fAbrirRegular(m_arbol.fRuta(strNombre)).value(), bolQuerido);
        if (std::string_view(strNombre).ends_with("mkv")) {
            EXPECT_EQ(strFechas, "creation_time=2019-07-14T16:03:22.000000Z\n");
        }
    }
}

TEST_F(Fotogramas, AreNullForWhatIsNoVideo)
{
    const std::string strAvi = fAviRojo();
    m_arbol.fCrear("cortado.avi", strAvi.substr(0, strAvi.find("movi") + 4));
    m_arbol.fCrear("vacio.mpg", "");
    m_arbol.fCrear("basura.flv", std::string(100000, '\x47'));
    m_arbol.fCrear("lista.mp4", "#EXTM3U\n#EXTINF:1,\n" + m_arbol.fRuta("bueno.avi") + "\n");
    m_arbol.fCarpeta("carpeta.avi");
    m_arbol.fTuberia("tuberia.mpg");
    m_arbol.fCrear("bueno.avi", strAvi);
    const std::pair<const char *, const char *> lstCasos[] = {
        {"cortado.avi", "fail"}, {"vacio.mpg", "fail"}, {"basura.flv", "fail"},
        {"lista.mp4", "fail"},   {"carpeta.avi", ""},   {"tuberia.mpg", ""},
        {"falta.avi", ""},
    };
    for (const auto &[strNombre, strFallo] : lstCasos) {
        SCOPED_TRACE(strNombre);
        EXPECT_TRUE(fTomar(strNombre).isNull());
        EXPECT_EQ(fFallo(strNombre), strFallo);
    }
    EXPECT_TRUE(fEs(fTomar("bueno.avi"), Qt::red));
    // Cut in its data, without an index, it still has its first frame.
    m_arbol.fCrear("medio.avi", strAvi.substr(0, strAvi.size() / 2));
    EXPECT_FALSE(fTomar("medio.avi").isNull());
}

TEST_F(Fotogramas, SurviveAChildThatMisbehavesOnce)
{
    for (const char *strMal :
         {"exec sleep 60", "kill -9 $$", "yes basura", "head -c 10 >/dev/null"}) {
        SCOPED_TRACE(strMal);
        const std::string strVez = m_arbol.fRuta("vez");
        unlink(strVez.c_str());
        m_origen.lstHijos = {m_arbol.fRuta("nada"),
                             fPrograma("hijo", "[ -e '" + strVez + "' ] && exec '" + m_strHijo +
                                                   "'\n: >'" + strVez + "'\n" + strMal)};
        m_origen.plazo = milliseconds(2000);
        m_fotogramas.reset();
        const std::string strUno = std::string(strMal) + ".avi";
        m_arbol.fCrear(strUno, fAviRojo());
        m_arbol.fCrear("2" + strUno, fAviRojo());
        EXPECT_TRUE(fTomar(strUno).isNull());
        // Who comes late may have waited for a disk that woke up: the next visit tries again.
        const bool bolTarde = std::string_view(strMal).starts_with("exec sleep");
        EXPECT_EQ(fFallo(strUno), bolTarde ? "" : "fail for a day");
        EXPECT_FALSE(fTomar("2" + strUno).isNull());
        EXPECT_EQ(fTomar(strUno).isNull(), !bolTarde); // noted
    }
}

TEST_F(Fotogramas, DoNotBlameAFileForTheDeathOfAnIdleChild)
{
    m_arbol.fCrear("1.avi", fAviRojo());
    m_arbol.fCrear("2.avi", fAviRojo());
    m_origen.intHijos = 1;
    m_origen.lstHijos = {
        fPrograma("hijo", "echo $$ >'" + m_arbol.fRuta("pid") + "'\nexec '" + m_strHijo + "'")};
    EXPECT_FALSE(fTomar("1.avi").isNull());
    kill(std::stoi(m_arbol.fLeer("pid")), SIGKILL);
    EXPECT_FALSE(fTomar("2.avi").isNull());
}

TEST_F(Fotogramas, ComeFromAChildThatIsLockedIn)
{
    const clsDescriptor heredable(open("/dev/null", O_RDONLY)); // not closed by starting a program
    m_arbol.fCrear("1.avi", fAviRojo());
    m_origen.lstHijos = {
        fPrograma("hijo", "echo $$ >'" + m_arbol.fRuta("pid") + "'\nexec '" + m_strHijo + "'")};
    EXPECT_FALSE(fTomar("1.avi").isNull());
    const std::string strProc = "/proc/" + std::to_string(std::stoi(m_arbol.fLeer("pid")));
    std::vector<std::string> lstDescriptores;
    for (const auto &entrada : std::filesystem::directory_iterator(strProc + "/fd")) {
        lstDescriptores.push_back(entrada.path().filename());
    }
    std::sort(lstDescriptores.begin(), lstDescriptores.end());
    EXPECT_EQ(lstDescriptores, (std::vector<std::string>{"0", "1", "2"}));
    const auto fContiene = [](const std::string &strRuta, const char *strExpresion) {
        std::ifstream archivo(strRuta);
        const std::string strTodo{std::istreambuf_iterator<char>(archivo), {}};
        EXPECT_TRUE(std::regex_search(strTodo, std::regex(strExpresion)))
            << strRuta << ": " << strExpresion << "\n"
            << strTodo;
    };
    int intHilos = 0;
    for (const auto &hilo : std::filesystem::directory_iterator(strProc + "/task")) {
        fContiene(hilo.path() / "status", "NoNewPrivs:\\s+1\n");
        fContiene(hilo.path() / "status", "Seccomp:\\s+2\n");
        ++intHilos;
    }
    EXPECT_EQ(intHilos, 2);
    for (const char *strLimite : {"Max cpu time +120 +120 ", "Max file size +0 +0 ",
                                  "Max core file size +0 +0 ", "Max open files +4 +4 "
#ifndef __SANITIZE_ADDRESS__
                                  ,
                                  "Max address space +2147483648 +2147483648 "
#endif
         }) {
        fContiene(strProc + "/limits", strLimite);
    }
}

TEST_F(Fotogramas, AreNotMadeWhereTheChildCannotLockItselfIn)
{
    m_arbol.fCrear("a.avi", fAviRojo());
    m_arbol.fCrear("thumbnailers/x.thumbnailer",
                   "[Thumbnailer Entry]\nMimeType=video/x-msvideo;\nExec=" +
                       fPrograma("ajeno", ": >'" + m_arbol.fRuta("llamado") + "'") + " %o\n");
    const std::string strPreso = fCarpetaPrograma() + "preso";
    m_origen.lstHijos = {fPrograma("hijo", "exec '" + strPreso + "' sin '" + m_strHijo + "'")};
    EXPECT_TRUE(fTomar("a.avi").isNull());
    EXPECT_EQ(fFallo("a.avi"), "");
    // Nor by a program of others, which would not be locked in either.
    EXPECT_FALSE(fExisteArchivo(m_arbol.fRuta("llamado")));
}

TEST_F(Fotogramas, NeverTakeALateAnswerForThatOfTheNextFile)
{
    m_arbol.fCrear("1.avi");
    m_arbol.fCrear("2.avi");
    for (std::uint32_t lngNumero : {1U, 2U}) {
        const clsRespuestaHijo respuesta{clsRespuestaHijo::lngMarcaBuena, lngNumero,
                                         EstadoHijo::Imagen, 1, 1};
        const quint32 lngPunto = lngNumero == 1 ? 0xff0000ffU : 0xffff0000U;
        std::string strBytes(reinterpret_cast<const char *>(&respuesta), sizeof respuesta);
        strBytes.append(reinterpret_cast<const char *>(&lngPunto), sizeof lngPunto);
        m_arbol.fCrear("respuesta" + std::to_string(lngNumero), strBytes);
    }
    const std::string strLeer =
        "head -c " + std::to_string(sizeof(clsPeticionHijo)) + " >/dev/null\n";
    m_origen.intHijos = 1;
    m_origen.lstHijos = {
        fPrograma("hijo", "cd " + m_arbol.fRaiz() + "\n" + strLeer + ": >pedida\n" +
                              "while [ ! -e suelta ]; do sleep 0.01; done\ncat respuesta1\n" +
                              strLeer + "cat respuesta2\nsleep 60")};
    std::atomic<bool> bolAnulado{false};
    std::thread hilo([&] {
        while (!fExisteArchivo(m_arbol.fRuta("pedida"))) {
            std::this_thread::sleep_for(milliseconds(1));
        }
        bolAnulado = true;
    });
    EXPECT_TRUE(fTomar("1.avi", 100, bolAnulado).isNull());
    hilo.join();
    EXPECT_EQ(fFallo("1.avi"), "");
    m_arbol.fCrear("suelta");
    EXPECT_TRUE(fEs(fTomar("2.avi"), Qt::red));
}

TEST_F(Fotogramas, AreTakenForManyThreadsAtOnce)
{
    m_origen.intHijos = 2;
    m_fotogramas = std::make_unique<clsFotogramas>(m_origen);
    std::atomic<int> intBuenas{0};
    std::vector<std::thread> lstHilos;
    for (int intHilo = 0; intHilo < 6; ++intHilo) {
        m_arbol.fCrear(std::to_string(intHilo) + ".avi", fAviRojo());
        lstHilos.emplace_back([&, intHilo] {
            for (const int intLado : {66, 200, 400}) {
                const QImage imagen = fTomar(std::to_string(intHilo) + ".avi", intLado);
                intBuenas += fEs(imagen, Qt::red) && imagen.width() == std::min(intLado, 320);
            }
        });
    }
    for (std::thread &hilo : lstHilos) {
        hilo.join();
    }
    EXPECT_EQ(intBuenas, 18);
}

TEST_F(Fotogramas, ComeFromTheRegisteredProgramWhereTheChildIsMissing)
{
    m_arbol.fCrear("verde.png", fBytes(Qt::green, {256, 128}, "png").toStdString());
    m_arbol.fCrear("a.avi");
    m_arbol.fCrear("b \"'.mpg");
    m_arbol.fCrear("c.wmv");
    m_arbol.fCrear("d.flv");
    m_arbol.fTuberia("t.avi");
    m_origen.plazo = milliseconds(2000);
    m_origen.lstHijos = {m_arbol.fRuta("nada"), fPrograma("roto", "exit 127")};
    const auto fRegistrar = [&](const char *strTipo, const std::string &strLineas) {
        const std::string strNombre = QByteArray(strTipo).replace('/', '_').toStdString();
        m_arbol.fCrear("thumbnailers/" + strNombre + ".thumbnailer",
                       "[Thumbnailer Entry]\nExec=" + fPrograma(strNombre, strLineas) +
                           " %i %o %s\nMimeType=" + strTipo + ";\n");
    };
    fRegistrar("video/x-msvideo",
               "[ -f \"$1\" ] && [ $3 = 128 ] && cp \"${0%/*}/verde.png\" \"$2\"");
    fRegistrar("video/x-ms-wmv", "exit 1");
    fRegistrar("video/x-flv", "sleep 60 &\necho $! >\"${0%/*}/nieto\"\nwait");
    EXPECT_EQ(fTomar("a.avi").size(), QSize(100, 50));
    EXPECT_TRUE(fEs(fTomar("a.avi"), Qt::green));
    EXPECT_TRUE(fTomar("b \"'.mpg").isNull()); // nothing registered: it may come tomorrow
    EXPECT_EQ(fFallo("b \"'.mpg"), "");
    EXPECT_TRUE(fTomar("c.wmv").isNull());
    EXPECT_EQ(fFallo("c.wmv"), "fail for a day");
    EXPECT_TRUE(fTomar("t.avi").isNull());
    EXPECT_TRUE(fTomar("d.flv").isNull());
    // What it had started is gone, too, or waits as a zombie for somebody to take note.
    std::string strEstado;
    const auto limite = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    do {
        std::ifstream estado("/proc/" + std::to_string(std::stoi(m_arbol.fLeer("nieto"))) +
                             "/stat");
        strEstado.clear();
        std::getline(estado, strEstado);
        ASSERT_LT(std::chrono::steady_clock::now(), limite) << strEstado;
    } while (!strEstado.empty() && strEstado.find(" Z ") == std::string::npos);
}

TEST_F(Fotogramas, AreKeptInTheSharedCache)
{
    m_arbol.fCrear("a b.avi", fAviRojo());
    EXPECT_FALSE(fTomar("a b.avi", 133).isNull());
    const std::string strEntrada = fEntrada("large", "a b.avi");
    const std::string strPng = m_arbol.fLeer(strEntrada);
    const QImage imagen = QImage::fromData(QByteArray::fromStdString(strPng));
    EXPECT_EQ(imagen.size(), QSize(256, 144));
    EXPECT_EQ(imagen.text(QStringLiteral("Software")), QStringLiteral("Miravel"));
    const std::string strTexto =
        std::string("tEXtThumb::URI") + '\0' + fUriDeRuta(m_arbol.fRuta("a b.avi"));
    EXPECT_NE(strPng.find(strTexto), std::string::npos);
    struct stat datos {};
    EXPECT_EQ(stat(m_arbol.fRuta(strEntrada).c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 0777U, 0600U);
    EXPECT_EQ(stat(m_arbol.fRuta("cache/thumbnails/large").c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 0777U, 0700U);
    EXPECT_EQ(m_arbol.fNombres("cache/thumbnails/large").size(), 1U); // no temporary file
    // The next program start needs no child; a larger entry serves a smaller box.
    m_origen.lstHijos.clear();
    m_fotogramas.reset();
    EXPECT_EQ(fTomar("a b.avi", 66).size(), QSize(66, 37));
    EXPECT_TRUE(fTomar("a b.avi", 300).isNull());
}

TEST_F(Fotogramas, ComeFromTheCacheOnlyWhenTheEntryIsOfThisFileAsItIs)
{
    const clsCacheEscritorio cache(m_origen.strCache);
    m_origen.lstHijos.clear();
    m_arbol.fCrear("a.avi", "123");
    m_arbol.fCrear("b.avi", "123");
    const std::string strRuta = m_arbol.fRuta("a.avi");
    const clsHuella buena = fHuella(strRuta).value_or(clsHuella{});
    QImage verde(128, 72, QImage::Format_RGB32);
    verde.fill(Qt::green);
    const auto fGuardar = [&](clsHuella huella) { cache.fGuardar(strRuta, huella, 128, verde); };
    const std::string strEntrada = fEntrada("normal", "a.avi");
    const std::pair<const char *, std::function<void()>> lstMalas[] = {
        {"another second",
         [&] {
             fGuardar({3, buena.lngSegundos + 1, 0});
         }},
        {"another size",
         [&] {
             fGuardar({4, buena.lngSegundos, 0});
         }},
        {"cut", [&] { m_arbol.fCrear(strEntrada, m_arbol.fLeer(strEntrada).substr(0, 300)); }},
        {"no PNG", [&] { m_arbol.fCrear(strEntrada, "x"); }},
        {"of another file",
         [&] {
             cache.fGuardar(m_arbol.fRuta("b.avi"), buena, 128, verde);
             m_arbol.fCrear(strEntrada, m_arbol.fLeer(fEntrada("normal", "b.avi")));
         }},
    };
    for (const auto &[strFrase, fEstropear] : lstMalas) {
        SCOPED_TRACE(strFrase);
        fGuardar({3, buena.lngSegundos, 999});
        EXPECT_TRUE(fEs(fTomar("a.avi"), Qt::green));
        fEstropear();
        EXPECT_TRUE(fTomar("a.avi").isNull());
    }
    // The example of the standard.
    const std::string strCasa = "/home/jens/photos/me.png";
    cache.fGuardar(strCasa, buena, 128, verde);
    EXPECT_TRUE(fExisteArchivo(m_origen.strCache + "normal/c6ee772d9e49320e97ec29a7eb5b1697.png"));
}

TEST_F(Fotogramas, RememberAFailureAsLongAsTheFileStaysTheSame)
{
    const clsCacheEscritorio cache(m_origen.strCache);
    const clsHuella huella{10, 1000, 5};
    for (const bool bolPasajero : {false, true}) {
        cache.fApuntarFallo("/a.avi", huella, bolPasajero);
        EXPECT_TRUE(cache.fFallido("/a.avi", huella));
        EXPECT_FALSE(cache.fFallido("/a.avi", {10, 1001, 5}));
        EXPECT_FALSE(cache.fFallido("/b.avi", huella));
    }
}

TEST_F(Fotogramas, NeedNoCacheThatCanBeWritten)
{
    m_arbol.fCrear("cache2/thumbnails/propio.avi", fAviRojo());
    m_arbol.fCrear("cache/archivo");
    for (const std::string &strCache :
         {std::string(), m_arbol.fRuta("cache/archivo/thumbnails/"),
          std::string("/proc/thumbnails/"), m_arbol.fRuta("cache2/thumbnails/")}) {
        SCOPED_TRACE(strCache);
        m_origen.strCache = strCache;
        m_fotogramas.reset();
        EXPECT_TRUE(fEs(fTomar("cache2/thumbnails/propio.avi"), Qt::red));
    }
    // The last one could be written, but the video lies in it.
    EXPECT_EQ(m_arbol.fNombres("cache2/thumbnails"), std::vector<std::string>{"propio.avi"});
}

} // namespace
