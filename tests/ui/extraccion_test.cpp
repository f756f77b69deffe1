// Thumbnails of photos, the surface they are handed over on, and files that lie.
#include "sesion.h"

#include "jpeg_soporte.h"
#include "viewer/cThumbnailGenerator.h"
#include "viewer/extraccion.h"
#include "viewer/fuente.h"
#include "viewer/jpeg_vacio.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

#include <algorithm>
#include <fstream>

namespace {

const QColor colFoto(200, 30, 30);
const QColor colMini(30, 30, 200);

QImage fLlano(QSize tam, const QColor &color)
{
    QImage imagen(tam, QImage::Format_RGB32);
    imagen.fill(color);
    return imagen;
}

clsMiniatura fExtraer(const clsArbol &arbol, const std::string &strBytes, int intLado)
{
    const std::atomic<bool> bolAnulado = false;
    arbol.fCrear("foto.jpg", strBytes);
    return fExtraerFoto(arbol.fRuta("foto.jpg"), intLado, bolAnulado);
}

bool fEsAzul(const QImage &imagen)
{
    const QColor color = imagen.pixelColor(imagen.rect().center());
    return color.blue() > 120 && color.red() < 100;
}

/// A thumbnail as cameras fill it up: the picture in the middle of a black one of that size.
QImage fConFranjas(const QImage &imagen, QSize tam)
{
    QImage entera = fLlano(tam, Qt::black);
    QPainter(&entera).drawImage((tam.width() - imagen.width()) / 2,
                                (tam.height() - imagen.height()) / 2, imagen);
    return entera;
}

/// How far apart two colours are, in one of red, green and blue.
int fDistancia(const QColor &uno, const QColor &otro)
{
    return std::max({std::abs(uno.red() - otro.red()), std::abs(uno.green() - otro.green()),
                     std::abs(uno.blue() - otro.blue())});
}

/// How far apart the colours are in the middle of the four quarters, at most, of one of red, green
/// and blue.
int fDistancia(const QImage &una, const QImage &otra)
{
    int intMayor = 0;
    for (const QPointF &punto : {QPointF(.25, .25), {.75, .25}, {.25, .75}, {.75, .75}}) {
        const QPoint donde(static_cast<int>(punto.x() * una.width()),
                           static_cast<int>(punto.y() * una.height()));
        intMayor = std::max(intMayor, fDistancia(una.pixelColor(donde), otra.pixelColor(donde)));
    }
    return intMayor;
}

/// What is claimed is not what there is: a JPEG head for a picture of that size and hardly more.
std::string fJactancia(int intAncho, int intAlto, bool bolProgresivo)
{
    clsJpegConMini jpeg{fLlano({64, 64}, colFoto), fLlano({8, 8}, colMini)};
    jpeg.bolProgresivo = bolProgresivo;
    std::string strBytes = jpeg.fBytes();
    const std::size_t lngMarco = strBytes.rfind(bolProgresivo ? "\xFF\xC2" : "\xFF\xC0");
    strBytes[lngMarco + 5] = static_cast<char>(intAlto >> 8);
    strBytes[lngMarco + 6] = static_cast<char>(intAlto & 0xFF);
    strBytes[lngMarco + 7] = static_cast<char>(intAncho >> 8);
    strBytes[lngMarco + 8] = static_cast<char>(intAncho & 0xFF);
    return strBytes;
}

/// So many segments of nothing.
std::string fMarcas(int intCuantas)
{
    std::string strBytes;
    for (int intCual = 0; intCual < intCuantas; ++intCual) {
        strBytes.append("\xFF\xE1\0\2", 4);
    }
    return strBytes;
}

std::string fCodificar(const QImage &imagen, const char *strFormato)
{
    QByteArray lstBytes;
    QBuffer bufer(&lstBytes);
    imagen.save(&bufer, strFormato);
    return lstBytes.toStdString();
}

/// The most memory this program has had, in bytes.
qint64 fPico()
{
    const std::string strEstado = fLeerArchivo("/proc/self/status").value_or("");
    return 1024 * std::stoll(strEstado.substr(strEstado.find("VmHWM:") + 6));
}

} // namespace

class clsPruebasExtraccion : public QObject {
    Q_OBJECT
private slots:
    void fThumbnailsFitTheBox()
    {
        const clsArbol arbol;
        clsJpegConMini progresivo{fLlano({400, 300}, colFoto), fLlano({8, 8}, colMini)};
        progresivo.bolProgresivo = true;
        const auto fPlana = [](int intAncho, int intAlto) {
            return fJpeg(fLlano(QSize(intAncho, intAlto), colFoto));
        };
        const std::string strEntero = fPlana(400, 300);
        const QImage gris = fLlano({400, 300}, colFoto).convertToFormat(QImage::Format_Grayscale8);
        const auto fMide = [&arbol](const std::string &strBytes, QSize tam) {
            return fExtraer(arbol, strBytes, 100).imagen.size() == tam;
        };
        QVERIFY2(fMide(fPlana(400, 300), QSize(100, 75)), "landscape");
        QVERIFY2(fMide(fPlana(300, 400), QSize(75, 100)), "portrait");
        QVERIFY2(fMide(fPlana(30, 20), QSize(30, 20)), "never enlarged");
        QVERIFY2(fMide(fPlana(1, 1), QSize(1, 1)), "one pixel");
        QVERIFY2(fMide(fPlana(20000, 1), QSize(100, 1)), "a line");
        QVERIFY2(fMide(strEntero.substr(0, strEntero.size() / 2), QSize(100, 75)), "half of it");
        QVERIFY2(fMide(progresivo.fBytes(), QSize(100, 75)), "progressive");
        QVERIFY2(fMide(fJpeg(gris), QSize(100, 75)), "grey");
        QVERIFY2(fMide(fJpegCmyk(), QSize(24, 16)), "four colours");
        QVERIFY2(fMide(fJactancia(5000, 4000, false), QSize(0, 0)), "20 megapixels grey");
        QVERIFY2(fMide(fJactancia(65000, 65000, true), QSize(0, 0)), "the same at once");
        const QColor color = fExtraer(arbol, fJpegCmyk(), 100).imagen.pixelColor(12, 8);
        QVERIFY(color.red() > 200 && color.green() < 60 && color.blue() < 60);
    }

    void fPicturesThatClaimTooMuchAreNotDecoded()
    {
        const clsArbol arbol;
        const std::string strRuta = arbol.fRuta("foto.jpg");
        QImage puntos(20000, 20000, QImage::Format_Mono);
        puntos.fill(0);
        const std::pair<const char *, std::string> lstCasos[] = {
            {"a few bytes", fJactancia(65500, 65500, true)},
            {"all coefficients", clsJpegVacio{30000, 30000, true, 1, {}, 1 << 22}.fBytes()},
            {"of components, too",
             clsJpegVacio{30000, 30000, false, 3, {}, 1 << 20, true}.fBytes()},
            {"scans", clsJpegVacio{20000, 20000, true, 300, {}, 4000}.fBytes()},
            {"more scans", clsJpegVacio{4000, 4000, true, 1500}.fBytes()},
            {"markers", clsJpegVacio{64, 64, false, 1, fMarcas(5'000'000)}.fBytes()},
            {"points, each of which takes four bytes", fCodificar(puntos, "PNG")},
            {"a drawing", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>"},
        };
        for (const auto &[strQue, strBytes] : lstCasos) {
            arbol.fCrear("foto.jpg", strBytes);
            std::ofstream("/proc/self/clear_refs") << '5'; // the peak begins anew
            const qint64 lngAntes = fPico();
            const std::atomic<bool> bolAnulado = false;
            QVERIFY2(fExtraerFoto(strRuta, 100, bolAnulado).extraccion == Extraccion::SinImagen,
                     strQue);
            const clsPedido pedido{strRuta, QSize(800, 600), 0, lngMaximoFoto};
            QVERIFY2(fDecodificar(pedido, bolAnulado).imagen.isNull(), strQue);
            QVERIFY2(fPico() - lngAntes < qint64{100} << 20, strQue);
        }
    }

    void fAThumbnailOfThousandsOfScansIsNotTaken()
    {
        const clsArbol arbol;
        clsJpegConMini jpeg{fLlano({100, 100}, colFoto), {}};
        jpeg.strMini = clsJpegVacio{1000, 1000, true, 5000, {}, 1}.fBytes();
        const QImage imagen = fExtraer(arbol, jpeg.fBytes(), 66).imagen;
        QVERIFY(imagen.pixelColor(33, 33).red() > 150);
    }

    void fAThumbnailInsideIsTakenWhenItIsGoodEnough()
    {
        const clsArbol arbol;
        const QImage foto = fLlano({400, 300}, colFoto);
        const QImage mini = fLlano({160, 120}, colMini);
        const QImage otra = fLlano({160, 119}, colMini);
        const QImage ancha = fLlano({450, 300}, colFoto);
        const QImage cuadrada = fLlano({300, 300}, colFoto);
        const QImage franjas = fConFranjas(fLlano({160, 107}, colMini), {160, 120});
        const QImage lados = fConFranjas(fLlano({120, 120}, colMini), {160, 120});
        QImage media = franjas;
        QPainter(&media).fillRect(0, 0, 160, 60, colMini);
        struct {
            const char *strQue;
            clsJpegConMini jpeg;
            int intLado;
            bool bolTomada;
        } const lstCasos[] = {
            {"as it should be", {foto, mini}, 133, true},
            {"a pixel off", {foto, otra}, 133, true},
            {"too few pixels", {foto, mini}, 200, false},
            {"as small as its photo", {mini, mini}, 200, true},
            {"other proportions", {ancha, mini}, 66, false},
            {"bars above and below", {ancha, franjas}, 133, true},
            {"bars left and right", {cuadrada, lados}, 100, true},
            {"too few pixels between them", {cuadrada, lados}, 133, false},
            {"a bar below only", {ancha, media}, 66, false},
            {"bars where none belong", {cuadrada, franjas}, 66, false},
            {"past the end", {foto, mini, 1, 1 << 30}, 66, false},
            {"4 GB long", {foto, mini, 1, 0, 0xFFFFFFFF}, 66, false},
            {"not there", {foto, mini, 1, 7}, 66, false},
            {"cut", {foto, mini, 1, 0, 40}, 66, false},
        };
        for (const auto &caso : lstCasos) {
            const clsMiniatura miniatura = fExtraer(arbol, caso.jpeg.fBytes(), caso.intLado);
            QVERIFY2(!miniatura.imagen.isNull(), caso.strQue);
            QVERIFY2(fEsAzul(miniatura.imagen) == caso.bolTomada, caso.strQue);
            QVERIFY2(qMax(miniatura.imagen.width(), miniatura.imagen.height()) <= caso.intLado,
                     caso.strQue);
        }
    }

    void fEveryOrientationComesOutUpright()
    {
        const clsArbol arbol;
        const std::pair<QSize, QImage> lstCasos[] = {
            {QSize(400, 300), fCuartos({160, 120})},
            {QSize(500, 300), fConFranjas(fCuartos({160, 96}), {160, 120})},
        };
        for (const auto &[tam, mini] : lstCasos) {
            for (int intOrientacion = 1; intOrientacion <= 8; ++intOrientacion) {
                const clsJpegConMini jpeg{fCuartos(tam), mini, intOrientacion};
                const QImage miniatura = fExtraer(arbol, jpeg.fBytes(), 100).imagen;
                QCOMPARE(miniatura.size(), (intOrientacion < 5 ? tam : tam.transposed())
                                               .scaled(100, 100, Qt::KeepAspectRatio));
                QImageReader lector(QString::fromStdString(arbol.fRuta("foto.jpg")));
                lector.setAutoTransform(true);
                const QImage debida = lector.read().scaled(miniatura.size());
                for (const QPoint punto : {QPoint(20, 20), QPoint(60, 20), QPoint(20, 60)}) {
                    QVERIFY(fDistancia(miniatura.pixelColor(punto), debida.pixelColor(punto)) < 40);
                }
                for (const QPoint punto : {QPoint(20, 0), QPoint(0, 20)}) { // no bar is left
                    QVERIFY(miniatura.pixelColor(punto).value() > 120);
                }
            }
        }
    }

    void fAPhotoHasItsColoursWhateverSpaceItIsStoredIn()
    {
        const clsArbol arbol;
        const QPointF blanco(0.3127, 0.3290);
        const std::pair<const char *, QColorSpace> lstCasos[] = {
            {"none", {}},
            {"sRGB", QColorSpace::SRgb},
            {"Adobe RGB", QColorSpace::AdobeRgb},
            {"of screens", QColorSpace::DisplayP3},
            {"ROMM", QColorSpace::ProPhotoRgb},
            {"linear", QColorSpace::SRgbLinear},
            {"beyond what is looked up", QColorSpace(blanco, {1, 0}, {0, 1}, {0, 0},
                                                     QColorSpace::TransferFunction::Gamma, 1.8F)},
        };
        QImage foto = fCuartos({400, 300});
        {
            // Strong colours, but none at the edge of sRGB: 8 bits of a larger space are too few
            // there.
            QPainter pintor(&foto);
            pintor.fillRect(foto.rect(), QColor(128, 128, 128, 100));
        }
        for (const auto &[strQue, espacio] : lstCasos) {
            const auto fEn = [&espacio = espacio](QImage imagen) {
                imagen.setColorSpace(QColorSpace::SRgb);
                imagen.convertToColorSpace(espacio.isValid() ? espacio : QColorSpace::SRgb);
                imagen.setColorSpace(espacio);
                return imagen;
            };
            const auto fIgual = [&](const QImage &imagen, QSize tam) {
                return imagen.size() == tam && fDistancia(imagen, foto.scaled(tam)) < 12;
            };
            QVERIFY2(fIgual(fExtraer(arbol, fJpeg(fEn(foto)), 100).imagen, QSize(100, 75)), strQue);
            const std::atomic<bool> bolAnulado = false;
            const clsPedido pedido{arbol.fRuta("foto.jpg"), QSize(400, 300), 0, lngMaximoFoto};
            QVERIFY2(fIgual(fDecodificar(pedido, bolAnulado).imagen, QSize(400, 300)), strQue);
            // The thumbnail inside has no profile of its own.
            QImage mini = fEn(foto.scaled(160, 120));
            mini.setColorSpace({});
            for (const int intLado : {66, 133}) { // made smaller in two ways
                const clsJpegConMini jpeg{fEn(fLlano({400, 300}, colFoto)), mini};
                QVERIFY2(fIgual(fExtraer(arbol, jpeg.fBytes(), intLado).imagen,
                                QSize(intLado, qRound(intLado * 0.75))),
                         strQue);
            }
            // Frames that were kept, and pictures of other kinds.
            QVERIFY2(fIgual(fEncajada(fEn(foto), 100), QSize(100, 75)), strQue);
            const QImage alfa = fEn(foto.convertToFormat(QImage::Format_ARGB32));
            QVERIFY2(fIgual(fExtraer(arbol, fCodificar(alfa, "PNG"), 100).imagen, QSize(100, 75)),
                     strQue);
        }
    }

    void fWhatIsNoPhotoGivesAReason()
    {
        const clsArbol arbol;
        arbol.fCrear("basura", "no picture");
        arbol.fCrear("vacio", "");
        arbol.fCarpeta("carpeta");
        arbol.fTuberia("tuberia");
        arbol.fEnlace("bucle", arbol.fRuta("bucle"));
        const std::pair<const char *, Extraccion> lstCasos[] = {
            {"basura", Extraccion::SinImagen}, {"vacio", Extraccion::SinImagen},
            {"carpeta", Extraccion::Falta},    {"tuberia", Extraccion::Falta},
            {"no hay", Extraccion::Falta},     {"basura/no", Extraccion::Falta},
            {"bucle", Extraccion::Disco},
        };
        const std::atomic<bool> bolAnulado = false;
        for (const auto &[strNombre, extraccion] : lstCasos) {
            const clsMiniatura miniatura = fExtraerFoto(arbol.fRuta(strNombre), 100, bolAnulado);
            QVERIFY2(miniatura.extraccion == extraccion && miniatura.imagen.isNull(), strNombre);
        }
    }

    void fTheSurfaceGrowsAndCopies()
    {
        pcMemDC superficie;
        QVERIFY(superficie.GetPicture(0, 0, -1, -1).isNull());
        superficie.Width(100);
        superficie.Height(100);
        superficie.hDC().fill(Qt::green);
        superficie.Width(50); // not smaller
        QCOMPARE(superficie.GetPicture(99, 99, 1, 1).pixelColor(0, 0), QColor(Qt::green));
        QVERIFY(superficie.GetPicture(0, 0, 0, 0).isNull()); // no size is not the whole
        QVERIFY(superficie.GetPicture(0, 0, 0, 5).isNull());
        superficie.CreateFromHBitmap(fLlano({96, 72}, colFoto));
        QCOMPARE(QSize(superficie.Width(), superficie.Height()), QSize(100, 100));
        const QImage toda = superficie.GetPicture(0, 0, -1, -1);
        superficie.Width(200); // grows, and forgets
        QCOMPARE(QSize(superficie.Width(), superficie.Height()), QSize(200, 100));
        QCOMPARE(superficie.GetPicture(0, 0, -1, -1).pixelColor(10, 10).alpha(), 0);
        QCOMPARE(toda.pixelColor(95, 71), colFoto); // a picture of its own
        QCOMPARE(toda.pixelColor(96, 71), QColor(Qt::green));
        const QImage dada = fLlano({200, 100}, colFoto);
        superficie.CreateFromHBitmap(dada); // all of it
        const QImage antes = superficie.GetPicture(0, 0, -1, -1);
        superficie.hDC().fill(Qt::green);
        QCOMPARE(dada.pixelColor(10, 10), colFoto); // each has pixels of its own
        QCOMPARE(antes.pixelColor(10, 10), colFoto);
        QCOMPARE(superficie.GetPicture(0, 0, 1, 1).pixelColor(0, 0), QColor(Qt::green));
        QImage otra = fLlano({20, 20}, Qt::white);
        {
            pcMemDC pequena;
            pequena.CreateFromPicture(QPixmap::fromImage(fLlano({8, 8}, colMini)));
            QPainter pintor(&otra);
            pequena.PaintPicture(pintor, 5, 6, 3, -1, 2, 0);
        }
        QCOMPARE(otra.pixelColor(5, 6), colMini);
        QCOMPARE(otra.pixelColor(7, 13), colMini);
        QCOMPARE(otra.pixelColor(8, 6), QColor(Qt::white));
    }

    void fTheGeneratorHasItsStartingValues()
    {
        clsMensajesGuion mensajes;
        const auto fQueja = [&](const std::string &strTexto) { mensajes.fAvisoEnSerie(strTexto); };
        cThumbnailGenerator generador(fQueja, [](const std::string &, int intLado) {
            return clsMiniatura{Extraccion::Hecha, fLlano({intLado, intLado}, colMini)};
        });
        QCOMPARE(generador.Options, 288U);
        QCOMPARE(generador.DesiredWidth + generador.DesiredHeight, 200);
        QVERIFY(generador.Filename.empty());
        bool bolHay = false;
        std::unique_ptr<pcMemDC> superficie;
        generador.DesiredWidth = generador.DesiredHeight = 66;
        generador.fGetThumbnail(bolHay, superficie);
        QVERIFY(bolHay && superficie->Width() == 66 && mensajes.lstTextos.isEmpty());
    }
};

static const clsTema temaExtraccion{"extraccion", fCorrer<clsPruebasExtraccion>};

#include "extraccion_test.moc"
