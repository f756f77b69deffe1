// How a thumbnail is made: what there is of it at once, and what follows.
#include "sesion.h"

#include "jpeg_soporte.h"
#include "viewer/pieza_mini.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace {

const QColor colDentro(200, 30, 30); // of the photo
const QColor colExif(30, 30, 200);   // of the thumbnail inside
const QColor colOtra(30, 160, 30);   // of the one that is kept

QImage fDeColor(QSize tam, const QColor &color)
{
    QImage imagen(tam, QImage::Format_RGB32);
    imagen.fill(color);
    return imagen;
}

/// A JPEG file whose head is whole, but nothing comes out of it.
std::string fSinImagen(const clsJpegConMini &jpeg)
{
    std::string strBytes = jpeg.fBytes();
    return strBytes.replace(strBytes.rfind("\xFF\xDA"), 2, "\xFF\xD9"); // no scan, but the end
}

/// The colour in the middle, told by name, and the size.
QString fQueEs(const clsMiniatura &miniatura)
{
    if (miniatura.extraccion != Extraccion::Hecha) {
        return miniatura.extraccion == Extraccion::Pendiente ? "pending" : "none";
    }
    const QImage &imagen = miniatura.imagen;
    const QColor color = imagen.pixelColor(imagen.rect().center());
    const QString strColor = color.red() > 120 ? "photo" : color.blue() > 120 ? "inside" : "kept";
    return QStringLiteral("%1 %2x%3%4")
        .arg(strColor)
        .arg(imagen.width())
        .arg(imagen.height())
        .arg(miniatura.bolFina ? "" : " blurred");
}

/// What a piece of work makes, step by step.
QStringList fPasos(const clsAlmacenMini::clsPieza &fPieza)
{
    const clsAnulado anulado = false;
    auto hecho = fPieza(anulado);
    QStringList lstPasos{fQueEs(hecho.valor.miniatura)};
    if (hecho.fSigue) {
        // What lacks a picture comes before what lacks some pixels.
        lstPasos.back() += hecho.intMas == 0 ? "" : ", later";
        hecho = hecho.fSigue(anulado);
        lstPasos.push_back(fQueEs(hecho.valor.miniatura));
    }
    return lstPasos;
}

} // namespace

class clsPruebasPiezas : public QObject {
    Q_OBJECT
private slots:
    void fAPhotoShowsFirstWhatThereIsAtOnce()
    {
        const clsArbol arbol;
        const QImage foto = fDeColor({400, 300}, colDentro);
        const clsJpegConMini conExif{foto, fDeColor({160, 120}, colExif)};
        const std::string strSinExif = fJpeg(foto);
        const struct {
            const char *strQue;
            std::string strBytes;
            int intLado;
            QSize guardada; ///< size of the kept one; empty: none
            int intLadoGuardada;
            bool bolFina;
            QStringList lstPasos;
        } lstCasos[] = {
            {"enough pixels inside", conExif.fBytes(), 133, {}, 0, true, {"inside 133x100"}},
            {"too few",
             conExif.fBytes(),
             266,
             {},
             0,
             true,
             {"inside 266x200 blurred, later", "photo 266x200"}},
            {"none", strSinExif, 133, {}, 0, true, {"pending", "photo 133x100"}},
            {"of other proportions",
             clsJpegConMini{foto, fDeColor({160, 90}, colExif)}.fBytes(),
             133,
             {},
             0,
             true,
             {"pending", "photo 133x100"}},
            {"for a smaller box",
             strSinExif,
             133,
             {66, 50},
             66,
             true,
             {"kept 133x100 blurred, later", "photo 133x100"}},
            {"for a larger one", strSinExif, 100, {133, 100}, 133, true, {"kept 100x75"}},
            {"for this one", strSinExif, 133, {133, 100}, 133, true, {"kept 133x100"}},
            {"for this one, given up",
             strSinExif,
             133,
             {133, 100},
             133,
             false,
             {"kept 133x100 blurred, later", "photo 133x100"}},
            {"all of a small picture",
             strSinExif,
             133,
             {60, 45},
             66,
             true,
             {"pending", "photo 133x100"}},
            {"rather from inside", conExif.fBytes(), 133, {66, 50}, 66, true, {"inside 133x100"}},
            {"the picture is broken",
             fSinImagen(conExif),
             266,
             {},
             0,
             true,
             {"inside 266x200 blurred, later", "inside 266x200"}},
            {"nothing at all", "", 133, {}, 0, true, {"pending", "none"}},
        };
        const std::string strRuta = arbol.fRuta("foto.jpg");
        for (const auto &caso : lstCasos) {
            arbol.fCrear("foto.jpg", caso.strBytes);
            std::optional<clsMiniGuardada> guardada;
            if (!caso.guardada.isEmpty()) {
                const QImage otra = fDeColor(caso.guardada, colOtra);
                guardada = {fHuella(strRuta).value(),
                            caso.intLadoGuardada,
                            {Extraccion::Hecha, otra, caso.bolFina}};
            }
            const QStringList lstPasos = fPasos(fPiezaMini(strRuta, caso.intLado, guardada, {}));
            QVERIFY2(lstPasos == caso.lstPasos,
                     qPrintable(QString(caso.strQue) + ": " + lstPasos.join(" | ")));
            if (guardada) { // of other content it is not looked at
                ++guardada->huella.lngNanosegundos;
                QVERIFY2(
                    !fPasos(fPiezaMini(strRuta, caso.intLado, guardada, {}))[0].startsWith("kept"),
                    caso.strQue);
            }
        }
    }

    void fWhatIsPassedByIsNotMadeSharp()
    {
        const clsArbol arbol;
        const QImage foto = fDeColor({400, 300}, colDentro);
        const std::string strRuta = arbol.fRuta("foto.jpg");
        const auto fDePaso = [&] { return fPasos(fSinAfinar(fPiezaMini(strRuta, 266, {}, {}))); };
        arbol.fCrear("foto.jpg", clsJpegConMini{foto, fDeColor({160, 120}, colExif)}.fBytes());
        QCOMPARE(fDePaso(), QStringList({"inside 266x200 blurred"}));
        arbol.fCrear("foto.jpg", fJpeg(foto));
        QCOMPARE(fDePaso(), QStringList({"pending", "photo 266x200"}));
    }

    void fAVideoShowsFirstWhatIsKeptOfIt()
    {
        const clsArbol arbol;
        arbol.fCrear("cinta.avi", "a film");
        const std::string strRuta = arbol.fRuta("cinta.avi");
        const auto fFotograma = [](const std::string &, const clsHuella &, int intLado,
                                   const clsAnulado &) {
            return fDeColor({intLado, intLado / 2}, colDentro);
        };
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, {}, {fFotograma})),
                 QStringList({"pending", "photo 100x50"}));
        const clsMiniGuardada guardada{
            fHuella(strRuta).value(), 66, {Extraccion::Hecha, fDeColor({66, 33}, colOtra)}};
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, guardada, {fFotograma})),
                 QStringList({"kept 100x50 blurred, later", "photo 100x50"}));
    }

    void fWhatTakesLongIsKeptOnTheDisk()
    {
        const clsArbol arbol;
        const std::string strRuta = arbol.fRuta("foto.jpg");
        const std::string strPropia = arbol.fRuta("propia/");
        const std::string strEscritorio = arbol.fRuta("escritorio/");
        const auto fCache = [&](int intMinimo = 0) {
            return clsFuentesMini{{},
                                  std::make_shared<clsCacheFotos>(clsCacheFotos::clsOrigen{
                                      strPropia, strEscritorio, std::chrono::hours(intMinimo)})};
        };
        const auto fVer = [&](int intLado) {
            return fPasos(fPiezaMini(strRuta, intLado, {}, fCache()));
        };
        const QStringList lstDescifrada{"pending", "photo 133x100"};
        const QImage foto = fDeColor({1200, 900}, colDentro);
        arbol.fCrear("foto.jpg", fJpeg(foto));
        QCOMPARE(fPasos(fPiezaMini(strRuta, 133, {}, fCache(1))), lstDescifrada);
        QVERIFY(!fExisteCarpeta(strPropia)); // it took hardly any time
        QCOMPARE(fVer(133), lstDescifrada);
        QCOMPARE(arbol.fNombres("propia").size(), std::size_t{1});
        // From now on it is there at once, also for two pixels to one.
        QCOMPARE(fVer(66), QStringList({"photo 66x50"}));
        QCOMPARE(fVer(133), QStringList({"photo 133x100"}));
        QCOMPARE(fVer(266), QStringList({"photo 266x200"}));
        QCOMPARE(fVer(399), QStringList({"photo 399x300 blurred, later", "photo 399x299"}));
        // Another content, of the same size in the same second.
        struct stat datos {};
        QVERIFY(stat(strRuta.c_str(), &datos) == 0);
        const timespec lstMomentos[] = {datos.st_mtim, {datos.st_mtim.tv_sec, 1}};
        QVERIFY(utimensat(AT_FDCWD, strRuta.c_str(), lstMomentos, 0) == 0);
        QCOMPARE(fVer(133), lstDescifrada);
        QCOMPARE(fVer(133), QStringList({"photo 133x100"}));
        // Damaged, or whole and no picture.
        const std::string strEntrada = "propia/" + arbol.fNombres("propia").at(0);
        const std::string strBuena = arbol.fLeer(strEntrada);
        arbol.fCrear(strEntrada, strBuena.substr(0, strBuena.size() - 1));
        QCOMPARE(fVer(133), lstDescifrada);
        const auto huella = fHuella(strRuta).value();
        for (const std::string &strImagen :
             {std::string("no picture"), fJpeg(fDeColor({1200, 900}, colOtra))}) {
            arbol.fCrear(strEntrada, fEmpaquetarMini(strRuta, huella, strImagen));
            QCOMPARE(fVer(133), lstDescifrada);
        }
        // A good thumbnail inside needs none.
        QCOMPARE(fCache().fotos->fVaciar(), clsError());
        arbol.fCrear("foto.jpg", clsJpegConMini{foto, fDeColor({160, 120}, colExif)}.fBytes());
        QCOMPARE(fVer(133), QStringList({"inside 133x100"}));
        QVERIFY(arbol.fNombres("propia").empty());
        QVERIFY(!fExisteCarpeta(strEscritorio)); // photos are nobody else's business
    }

    void fTheDesktopsThumbnailsServeForPhotos()
    {
        const clsArbol arbol;
        const std::string strRuta = arbol.fRuta("foto.jpg");
        const std::string strEscritorio = arbol.fRuta("escritorio/");
        const clsFuentesMini fuentes{
            {}, std::make_shared<clsCacheFotos>(clsCacheFotos::clsOrigen{{}, strEscritorio})};
        arbol.fCrear("foto.jpg", fJpeg(fDeColor({1200, 900}, colDentro)));
        const clsCacheEscritorio escritorio(strEscritorio);
        const auto huella = fHuella(strRuta).value();
        escritorio.fGuardar(strRuta, huella, 128, fDeColor({128, 96}, colOtra));
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, {}, fuentes)), QStringList({"kept 100x75"}));
        QCOMPARE(fPasos(fPiezaMini(strRuta, 133, {}, fuentes)),
                 QStringList({"kept 133x100 blurred, later", "photo 133x100"}));
        arbol.fCrear("foto.jpg", fJpeg(fDeColor({1200, 900}, colDentro)), 1'000'000'000);
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, {}, fuentes)),
                 QStringList({"pending", "photo 100x75"}));
    }

    void fTheCommandEmptiesTheCache()
    {
        clsSesion sesion({{"foto.jpg", fJpeg(fDeColor({60, 40}, colDentro))}});
        QVERIFY(sesion.fAbrir());
        const std::string strCarpeta = clsCacheMini::fCarpetaUsual();
        clsCacheMini cache(strCarpeta);
        const clsHuella huella{1, 2, 3};
        cache.fGuardar("/foto.jpg", huella, "picture");
        QVERIFY(!cache.fLeer("/foto.jpg", huella).empty());
        sesion.mensajes.lstTextos.clear();
        sesion.fElegirEntrada("mnuMasVaciarCache");
        QTRY_COMPARE(sesion.mensajes.lstTextos,
                     QStringList({"Se ha vaciado la caché de miniaturas."}));
        QVERIFY(cache.fLeer("/foto.jpg", huella).empty());
    }
};

static const clsTema temaPiezas{"piezas", fCorrer<clsPruebasPiezas>};

#include "piezas_test.moc"
