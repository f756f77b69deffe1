// How a thumbnail is made: what there is of it at once, and what follows.
#include "sesion.h"

#include "jpeg_soporte.h"
#include "viewer/pieza_mini.h"

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

    void fAVideoShowsFirstWhatIsKeptOfIt()
    {
        const clsArbol arbol;
        arbol.fCrear("cinta.avi", "a film");
        const std::string strRuta = arbol.fRuta("cinta.avi");
        const auto fFotograma = [](const std::string &, const clsHuella &, int intLado,
                                   const clsAnulado &) {
            return fDeColor({intLado, intLado / 2}, colDentro);
        };
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, {}, fFotograma)),
                 QStringList({"pending", "photo 100x50"}));
        const clsMiniGuardada guardada{
            fHuella(strRuta).value(), 66, {Extraccion::Hecha, fDeColor({66, 33}, colOtra)}};
        QCOMPARE(fPasos(fPiezaMini(strRuta, 100, guardada, fFotograma)),
                 QStringList({"kept 100x50 blurred, later", "photo 100x50"}));
    }
};

static const clsTema temaPiezas{"piezas", fCorrer<clsPruebasPiezas>};

#include "piezas_test.moc"
