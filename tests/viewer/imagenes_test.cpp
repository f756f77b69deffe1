// Pictures of other formats than JPEG: the real child program.
#include "viewer/imagenes.h"

#include "soporte/arbol.h"
#include "viewer/extraccion.h"
#include "viewer/hijo.h"
#include "viewer/pieza_mini.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sys/stat.h>

namespace {

const std::atomic<bool> bolSinAnular{false};

/// Four plain quarters: red, green / blue, yellow.
QImage fCuatro(QSize tam, QImage::Format formato = QImage::Format_RGB32)
{
    QImage imagen(tam, QImage::Format_RGB32);
    QPainter pintor(&imagen);
    const QPoint medio(tam.width() / 2, tam.height() / 2);
    pintor.fillRect(QRect({0, 0}, medio), Qt::red);
    pintor.fillRect(imagen.rect(), Qt::yellow);
    pintor.fillRect(0, 0, medio.x(), medio.y(), Qt::red);
    pintor.fillRect(medio.x(), 0, medio.x(), medio.y(), Qt::green);
    pintor.fillRect(0, medio.y(), medio.x(), medio.y(), Qt::blue);
    pintor.end();
    return imagen.convertToFormat(formato);
}

std::string fEscrita(const QImage &imagen, const char *strFormato,
                     QImageIOHandler::Transformations giro = QImageIOHandler::TransformationNone)
{
    QBuffer bufer;
    bufer.open(QIODevice::WriteOnly);
    QImageWriter escritor(&bufer, strFormato);
    escritor.setTransformation(giro);
    EXPECT_TRUE(escritor.write(imagen)) << strFormato;
    return bufer.data().toStdString();
}

std::string fSemilla(const char *strNombre)
{
    std::ifstream fichero(std::string(MIRAVEL_FOTOS_PRUEBA "/") + strNombre, std::ios::binary);
    return {std::istreambuf_iterator<char>(fichero), {}};
}

/// A GIF of two pictures of 2 x 1, the first red and blue, the second one blue. Qt writes none.
std::string fGif()
{
    const std::string strPantalla("GIF89a\2\0\1\0\x80\0\0\xFF\0\0\0\0\xFF", 19);
    const auto fCuadro = [](char chrPuntos) {
        return std::string("\x2C\0\0\0\0\2\0\1\0\0\2\2", 12) + chrPuntos + std::string("\n\0", 2);
    };
    return strPantalla + fCuadro('\x44') + fCuadro('\x4C') + ';';
}

/// A PNG with the orientation 6 in its EXIF data, before its pixels.
std::string fPngGirado(const std::string &strPng)
{
    const std::string strExif("\0\0\0\x1A"
                              "eXIfMM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
                              34);
    const std::size_t lngCabeza = 8 + 25; // the signature and the first chunk
    // Readers pass over a chunk of this kind whatever its sum is.
    return strPng.substr(0, lngCabeza) + strExif + "crc!" + strPng.substr(lngCabeza);
}

bool fCerca(QRgb uno, const QColor &otro)
{
    constexpr int intMargen = 40; // what lossy formats make of plain colours
    return std::abs(qRed(uno) - otro.red()) < intMargen &&
           std::abs(qGreen(uno) - otro.green()) < intMargen &&
           std::abs(qBlue(uno) - otro.blue()) < intMargen;
}

/// The colours of the four quarters.
testing::AssertionResult fTiene(const QImage &imagen, const std::array<QColor, 4> &lstColores)
{
    for (int intCual = 0; intCual < 4; ++intCual) {
        const QPoint punto(imagen.width() * (1 + 2 * (intCual % 2)) / 4,
                           imagen.height() * (1 + 2 * (intCual / 2)) / 4);
        const QColor &color = lstColores[static_cast<std::size_t>(intCual)];
        if (!imagen.valid(punto) || !fCerca(imagen.pixel(punto), color)) {
            return testing::AssertionFailure()
                   << "quarter " << intCual << " is not " << color.name().toStdString();
        }
    }
    return testing::AssertionSuccess();
}

const std::array<QColor, 4> lstRectos{Qt::red, Qt::green, Qt::blue, Qt::yellow};
const std::array<QColor, 4> lstGirados{Qt::blue, Qt::red, Qt::yellow, Qt::green}; // orientation 6

clsFuente fNatural(const std::string &strRuta)
{
    return fDecodificar({strRuta, {}, 100, lngMaximoFoto}, bolSinAnular);
}

TEST(Imagenes, AreDecodedFromEveryFormatUprightInEverySize)
{
    const QImage cuatro = fCuatro({64, 48});
    struct clsCaso {
        const char *strNombre;
        std::string strBytes;
        const std::array<QColor, 4> &lstColores;
    };
    const clsCaso lstCasos[] = {
        {"a.png", fEscrita(cuatro, "png"), lstRectos},
        {"16.png", fEscrita(fCuatro({64, 48}, QImage::Format_RGBX64), "png"), lstRectos},
        {"girada.png", fPngGirado(fEscrita(cuatro, "png")), lstGirados},
        {"a.webp", fEscrita(cuatro, "webp"), lstRectos},
        {"a.tif", fEscrita(cuatro, "tiff"), lstRectos},
        {"girada.tiff", fEscrita(cuatro, "tiff", QImageIOHandler::TransformationRotate90),
         lstGirados},
        {"a.bmp", fEscrita(cuatro, "bmp"), lstRectos},
        {"a.heic", fSemilla("cuartos.heic"), lstRectos},
        {"a.avif", fSemilla("cuartos.avif"), lstRectos},
        {"a.dng", fSemilla("cuartos.dng"), lstGirados},
        {"a.jpeg", fEscrita(cuatro, "jpeg"), lstRectos},
        {"png.jpg", fEscrita(cuatro, "png"), lstRectos},
        {"heic.jpeg", fSemilla("cuartos.heic"), lstRectos},
    };
    const clsArbol arbol;
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strNombre);
        arbol.fCrear(caso.strNombre, caso.strBytes);
        const std::string strRuta = arbol.fRuta(caso.strNombre);
        const bool bolGirada = &caso.lstColores == &lstGirados;
        const QSize natural = bolGirada ? QSize(48, 64) : QSize(64, 48);
        const clsFuente entera = fNatural(strRuta);
        EXPECT_EQ(entera.natural, natural);
        EXPECT_EQ(entera.imagen.size(), natural);
        EXPECT_TRUE(fTiene(entera.imagen, caso.lstColores));
        const clsFuente ajustada =
            fDecodificar({strRuta, {32, 32}, 0, lngMaximoFoto}, bolSinAnular);
        EXPECT_EQ(ajustada.natural, natural);
        EXPECT_TRUE(fTiene(ajustada.imagen, caso.lstColores));
        const clsMiniatura mini = fExtraerFoto(strRuta, 32, bolSinAnular);
        EXPECT_EQ(mini.extraccion, Extraccion::Hecha);
        EXPECT_EQ(mini.imagen.size(), natural / 2);
        EXPECT_TRUE(fTiene(mini.imagen, caso.lstColores));
    }
}

TEST(Imagenes, ShowTheFirstOfAGifAndTheGroundThroughWhatIsClear)
{
    const clsArbol arbol;
    arbol.fCrear("a.gif", fGif());
    const QImage gif = fNatural(arbol.fRuta("a.gif")).imagen;
    ASSERT_EQ(gif.size(), QSize(2, 1));
    EXPECT_EQ(QColor(gif.pixel(0, 0)), QColor(Qt::red));
    QImage clara(4, 4, QImage::Format_ARGB32);
    clara.fill(QColor(255, 255, 255, 0));
    arbol.fCrear("a.png", fEscrita(clara, "png"));
    const QImage fondo = fNatural(arbol.fRuta("a.png")).imagen;
    EXPECT_FALSE(fondo.hasAlphaChannel());
    EXPECT_EQ(fondo.pixel(1, 1), qRgb(0x2b, 0x2b, 0x2b));
}

TEST(Imagenes, AreInTheColoursOfTheScreen)
{
    const clsArbol arbol;
    QImage ancha(4, 4, QImage::Format_RGB32);
    ancha.fill(QColor(200, 100, 50));
    ancha.setColorSpace(QColorSpace::AdobeRgb);
    arbol.fCrear("a.png", fEscrita(ancha, "png"));
    const QRgb suyo = ancha.convertedToColorSpace(QColorSpace::SRgb).pixel(1, 1);
    ASSERT_GT(qRed(suyo), 215); // it differs
    const QRgb color = fNatural(arbol.fRuta("a.png")).imagen.pixel(1, 1);
    EXPECT_NEAR(qRed(color), qRed(suyo), 3);
    EXPECT_NEAR(qGreen(color), qGreen(suyo), 3);
}

TEST(Imagenes, OfAnySizeStayWithinBounds)
{
    const clsArbol arbol;
    QImage larga(30000, 2000, QImage::Format_RGB32);
    larga.fill(Qt::blue);
    QPainter(&larga).fillRect(0, 0, 15000, 1000, Qt::red);
    arbol.fCrear("larga.png", fEscrita(larga, "png"));
    const std::string strLarga = arbol.fRuta("larga.png");
    const std::array<QColor, 4> lstColores{Qt::red, Qt::blue, Qt::blue, Qt::blue};
    const clsFuente entera = fNatural(strLarga);
    EXPECT_EQ(entera.natural, QSize(30000, 2000));
    EXPECT_EQ(entera.imagen.size(), QSize(30000, 2000));
    EXPECT_TRUE(fTiene(entera.imagen, lstColores));
    // With less memory: smaller, but for a neighbour, which is not decoded then.
    clsPedido pedido{strLarga, {}, 100, qint64{60} << 20};
    const clsFuente menor = fDecodificar(pedido, bolSinAnular);
    EXPECT_EQ(menor.natural, QSize(30000, 2000));
    EXPECT_LE(menor.imagen.sizeInBytes(), pedido.lngMaximo);
    EXPECT_TRUE(fTiene(menor.imagen, lstColores));
    pedido.bolVecina = true;
    EXPECT_TRUE(fDecodificar(pedido, bolSinAnular).imagen.isNull());
    // A head that claims more than anybody decodes.
    std::string strFalsa = fEscrita(fCuatro({64, 48}), "bmp");
    strFalsa.replace(18, 8, std::string("\xFF\xFF\0\0\xFF\xFF\0\0", 8));
    arbol.fCrear("falsa.bmp", strFalsa);
    EXPECT_TRUE(fNatural(arbol.fRuta("falsa.bmp")).imagen.isNull());
}

TEST(Imagenes, ThatAreNoneLeaveTheNextOneAlone)
{
    const clsArbol arbol;
    arbol.fCrear("buena.png", fEscrita(fCuatro({64, 48}), "png"));
    for (const char *const strNombre : {"cuartos.heic", "cuartos.avif", "cuartos.dng"}) {
        const std::string strEntera = fSemilla(strNombre);
        ASSERT_GT(strEntera.size(), 300U);
        for (const std::size_t lngCorte : {2, 9, 40, 150, 290}) {
            SCOPED_TRACE(std::string(strNombre) + ' ' + std::to_string(lngCorte));
            arbol.fCrear(strNombre, strEntera.substr(0, lngCorte));
            EXPECT_TRUE(fNatural(arbol.fRuta(strNombre)).imagen.isNull());
            EXPECT_FALSE(fNatural(arbol.fRuta("buena.png")).imagen.isNull());
        }
    }
    arbol.fCrear("nada.cr2", std::string(4000, 'x'));
    EXPECT_EQ(fExtraerFoto(arbol.fRuta("nada.cr2"), 32, bolSinAnular).extraccion,
              Extraccion::SinImagen);
    arbol.fCrear("dibujo.png", "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>");
    EXPECT_TRUE(fNatural(arbol.fRuta("dibujo.png")).imagen.isNull());
}

/// Kills the children of this program.
void fMatarHijos()
{
    for (const auto &hilo : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream hijos(hilo.path() / "children");
        for (pid_t pid = 0; hijos >> pid;) {
            kill(pid, SIGKILL);
        }
    }
}

TEST(Imagenes, AreTriedAgainOnlyWhereTheirFileIsNotToBlame)
{
    const clsArbol arbol;
    arbol.fCrear("grande.png", fEscrita(fCuatro({6000, 4000}), "png"));
    arbol.fCrear("rota.png", fEscrita(fCuatro({60, 40}), "png").substr(0, 60));
    const auto fMini = [&](const char *strNombre) {
        return fPiezaMini(arbol.fRuta(strNombre), 133, {}, {})(bolSinAnular).fSigue(bolSinAnular);
    };
    EXPECT_TRUE(fMini("rota.png").bolGuardar);
    auto hecho = std::async(std::launch::async, [&] { return fMini("grande.png"); });
    while (hecho.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
        fMatarHijos(); // as a system does that has no memory left
    }
    const auto matada = hecho.get();
    EXPECT_EQ(matada.valor.miniatura.extraccion, Extraccion::SinImagen);
    EXPECT_FALSE(matada.bolGuardar);
    EXPECT_EQ(fMini("grande.png").valor.miniatura.extraccion, Extraccion::Hecha);
}

TEST(Imagenes, HaveAReasonToBeMissing)
{
    using Fin = clsCuadroHijo::Fin;
    const struct {
        const char *strHace;
        Fin fin;
        bool bolPasajero;
    } lstCasos[] = {
        {"exit 124", Fin::Agotado, false},  {"exit 125", Fin::SinEncierro, false},
        {"exit 127", Fin::NoArranca, true}, {"exit 1", Fin::Roto, true},
        {"kill -9 $$", Fin::Roto, true},    {"exec sleep 60", Fin::Tarde, true},
    };
    const clsArbol arbol;
    arbol.fCrear("foto");
    const auto foto = fAbrirRegular(arbol.fRuta("foto"));
    ASSERT_TRUE(foto);
    for (const auto &caso : lstCasos) {
        arbol.fCrear("hijo", std::string("#!/bin/sh\n") + caso.strHace + '\n');
        chmod(arbol.fRuta("hijo").c_str(), S_IRWXU);
        clsProgramaHijo hijo(arbol.fRuta("hijo"),
                             std::chrono::milliseconds(caso.fin == Fin::Tarde ? 100 : 20000));
        const Fin fin =
            hijo.fPedirImagen(*foto, PeticionHijo::Imagen, marcoMayor, bolSinAnular).fin;
        EXPECT_EQ(fin, caso.fin) << caso.strHace;
        EXPECT_EQ(fPasajero(fin), caso.bolPasajero) << caso.strHace;
    }
}

/// The libraries that are loaded into this program.
std::set<std::string> fCargadas()
{
    std::ifstream fichero("/proc/self/maps");
    std::set<std::string> lstNombres;
    for (std::string strLinea; std::getline(fichero, strLinea);) {
        if (strLinea.find(".so") != std::string::npos) {
            lstNombres.insert(strLinea.substr(strLinea.rfind('/') + 1));
        }
    }
    return lstNombres;
}

TEST(Imagenes, NeverLoadTheirLibrariesIntoThisProgram)
{
    const clsArbol arbol;
    arbol.fCrear("a.heic", fSemilla("cuartos.heic"));
    arbol.fCrear("a.dng", fSemilla("cuartos.dng"));
    arbol.fCrear("a.gif", fGif());
    const std::set<std::string> lstAntes = fCargadas();
    for (const char *const strNombre : {"a.heic", "a.dng", "a.gif"}) {
        EXPECT_FALSE(fNatural(arbol.fRuta(strNombre)).imagen.isNull()) << strNombre;
    }
    EXPECT_EQ(fCargadas(), lstAntes);
    const auto fHay = [&](const char *strInicio) {
        return std::any_of(lstAntes.begin(), lstAntes.end(), [=](const std::string &strNombre) {
            return strNombre.starts_with(strInicio);
        });
    };
    EXPECT_TRUE(fHay("libQt6Gui.so")); // this is how it would be seen
    EXPECT_FALSE(fHay("libheif"));
    EXPECT_FALSE(fHay("libraw"));
}

} // namespace
