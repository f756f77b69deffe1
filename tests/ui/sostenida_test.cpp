// Steps that quickly follow each other, as those of a held key do: what is shown of each at once,
// and what when the key rests.
#include "jpeg_soporte.h"
#include "sesion.h"

#include "viewer/visor.h"

#include <QPainter>

#include <chrono>

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

/// So large that it is not decoded while it is passed by, and of one colour in its middle.
/// @param bolCrecida whether more of it has that colour, so that its file is shorter.
QImage fGrande(const QColor &color, bool bolCrecida = false)
{
    QImage imagen = fDibujo({2000, 1500});
    QPainter pintor(&imagen);
    const int intX = bolCrecida ? 740 : 750;
    pintor.fillRect(intX, 500, 2000 - 2 * intX, 500, color);
    return imagen;
}

/// With a thumbnail inside that has another colour than its middle.
clsJpegConMini fConMini(const QColor &color, const QColor &colMini, int intOrientacion = 1)
{
    QImage mini(160, 120, QImage::Format_RGB32);
    mini.fill(colMini);
    return {fGrande(color), mini, intOrientacion};
}

/// What ends after the head of its picture: it has a thumbnail, and cannot be decoded.
std::string fSinCuerpo(const clsJpegConMini &foto)
{
    std::string strBytes = foto.fBytes();
    const std::size_t lngTodos = strBytes.size();
    strBytes.resize(strBytes.rfind("\xff\xda")); // of the picture: the thumbnail's stands before
    strBytes.resize(lngTodos, '\0');
    return strBytes;
}

} // namespace

class clsPruebasSostenida : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        // From films on a photo is reached without having been a neighbour of one that was seen.
        std::vector<std::pair<std::string, std::string>> lstFotos{
            {"0.mp4", "no film"}, {"1.mp4", "no film"}, {"2.mp4", "no film"}};
        for (int intFoto = 3; intFoto < intFotos; ++intFoto) {
            const int intOrientacion = intFoto == 4 ? 6 : 1;
            const clsJpegConMini foto =
                fConMini(fDeFoto(intFoto), fDeMini(intFoto), intOrientacion);
            lstFotos.emplace_back(std::to_string(intFoto) + ".jpg",
                                  intFoto == 6 ? fSinCuerpo(foto) : foto.fBytes());
            QVERIFY(lstFotos.back().second.size() > 600000);
        }
        m_sesion = std::make_unique<clsSesion>(lstFotos);
        QVERIFY(m_sesion->fAbrir());
        m_sesion->fTecla(Qt::Key_J);
        m_visor = m_sesion->ventana->findChild<clsVisor *>();
        m_visor->fFijarReposo(hours(1)); // every step is quick
    }
    void cleanup() { m_sesion.reset(); }

    void fPassesBySmallPicturesAndShowsTheLastOneSharply()
    {
        fIrA(5);
        const QRect sitio = m_sesion->fControl("imgFoto")->geometry();
        m_visor->fFijarReposo(milliseconds(0));
        QTRY_COMPARE(fEnMedio(), fDeFoto(5));
        QCOMPARE(m_sesion->fControl("imgFoto")->geometry(), sitio);
        QCOMPARE(m_sesion->fPosicion(), 5);
    }

    void fDecodesNothingThatIsOnlyPassedBy()
    {
        fIrA(7);
        const clsArbol &arbol = *m_sesion->arbol;
        // Had the picture been decoded, it would be shown as it was: the file looks the same.
        const std::string strAntes = arbol.fLeer("4.jpg");
        clsJpegConMini otra = fConMini(Qt::white, fDeMini(4), 6);
        otra.imagen = fGrande(Qt::white, true);
        std::string strBytes = otra.fBytes();
        QVERIFY(strBytes.size() <= strAntes.size());
        strBytes.resize(strAntes.size(), '\0');
        arbol.fCrear("4.jpg", strBytes, fMomento("2001-01-01 00:00:00") + 4 * 366 * 86400);
        m_visor->fFijarReposo(milliseconds(0));
        QTRY_COMPARE(fEnMedio(), fDeFoto(7));
        m_sesion->fClicFila(4);
        QTRY_COMPARE(m_sesion->fPosicion(), 4);
        QCOMPARE(fEnMedio(), QColor(Qt::white));
    }

    void fOtherCommandsActInBetween()
    {
        fIrA(4);
        QVERIFY(m_sesion->fTamFoto().width() < m_sesion->fTamFoto().height());
        m_sesion->fTecla(Qt::Key_F8); // on its side, from upright
        QVERIFY(m_sesion->fTamFoto().width() > m_sesion->fTamFoto().height());
        QCOMPARE(fEnMedio(), fDeMini(4));
        m_sesion->fTecla(Qt::Key_Less);
        m_sesion->fTecla(Qt::Key_Escape);
        fPaso(5);
        m_sesion->fElegirEntrada("mnuFotoValor2");
        QCOMPARE(m_sesion->fTamFoto(), QSize(2000, 1500)); // its place at 100 %
        QCOMPARE(fEnMedio(), fDeMini(5));
        m_sesion->fTecla(Qt::Key_F11);
        QTRY_COMPARE(m_sesion->fPosicion(), 4);
        QTRY_COMPARE(fEnMedio(), fDeMini(4));
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini0")->isVisible());
        m_sesion->fTecla(Qt::Key_M);
        QTRY_COMPARE(m_sesion->fPosicion(), 4);
        QTRY_COMPARE(fEnMedio(), fDeFoto(4)); // that was no step
    }

    void fWhatCannotBeDecodedIsNotShownByItsThumbnailForLong()
    {
        fIrA(6);
        QVERIFY(m_sesion->fControl("imgFoto")->accessibleName().startsWith("Fotografía: 6.jpg"));
        m_visor->fFijarReposo(milliseconds(0));
        QTRY_VERIFY(m_sesion->fControl("imgFoto")->accessibleName().startsWith("Sin imagen: 6"));
        QCOMPARE(m_sesion->fPosicion(), 6);
    }

    void fWithoutAThumbnailAnEighthIsDecoded()
    {
        fSinMini(3, false);
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        QCOMPARE(fEnMedio(), fDeFoto(3));
    }

    void fAPictureThatIsNotThereAtOnceComesWhenTheKeyRests()
    {
        fSinMini(3, true); // no less than all of it has to be decoded
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F12);
        QCOMPARE(m_sesion->fLista()->currentIndex().row(), 3);
        QCOMPARE(m_sesion->fTexto("txtInfo1"), QString("4 de %1").arg(intFotos));
        QVERIFY(m_sesion->fProcesando());
        QVERIFY(!m_sesion->fControl("imgFoto")->isVisible());
        fPaso(4); // and holds nobody up
        m_sesion->fTecla(Qt::Key_F11);
        QVERIFY(m_sesion->fProcesando());
        m_visor->fFijarReposo(milliseconds(0));
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        QCOMPARE(fEnMedio(), fDeFoto(3));
    }

private:
    static constexpr int intFotos = 9;

    static QColor fDeFoto(int intFoto) { return intFoto % 2 != 0 ? Qt::red : Qt::blue; }
    static QColor fDeMini(int intFoto) { return intFoto % 2 != 0 ? Qt::green : Qt::yellow; }

    /// What the middle of the picture on the screen has, as a plain colour.
    QColor fEnMedio()
    {
        const QWidget *const foto = m_sesion->fControl("imgFoto");
        const QImage recuadro = m_sesion->fRecuadro();
        if (!foto->isVisible()) {
            return {};
        }
        const QColor color = recuadro.pixelColor(recuadro.rect().center());
        const auto fLleno = [](int intValor) { return intValor > 127 ? 255 : 0; };
        return {fLleno(color.red()), fLleno(color.green()), fLleno(color.blue())};
    }
    /// Writes a photo anew, without a thumbnail.
    void fSinMini(int intFoto, bool bolProgresivo)
    {
        clsJpegConMini foto = fConMini(fDeFoto(intFoto), {});
        foto.bolProgresivo = bolProgresivo;
        foto.strMini = "x";
        const std::string strBytes = foto.fBytes();
        QVERIFY(strBytes.size() > 600000);
        m_sesion->arbol->fCrear(std::to_string(intFoto) + ".jpg", strBytes,
                                fMomento("2010-01-01 00:00:00"));
    }
    /// A step that leads there, and shows the thumbnail.
    void fPaso(int lngPos)
    {
        m_sesion->fTecla(Qt::Key_F12);
        QCOMPARE(m_sesion->fLista()->currentIndex().row(), lngPos);
        QCOMPARE(m_sesion->fTexto("txtInfo1"),
                 QStringLiteral("%1 de %2").arg(lngPos + 1).arg(intFotos));
        QTRY_COMPARE(m_sesion->fPosicion(), lngPos);
        QCOMPARE(fEnMedio(), fDeMini(lngPos));
    }
    void fIrA(int lngPos)
    {
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 2); // a busy machine may be late
        for (int lngSiguiente = 3; lngSiguiente <= lngPos; ++lngSiguiente) {
            fPaso(lngSiguiente);
        }
    }

    std::unique_ptr<clsSesion> m_sesion;
    clsVisor *m_visor = nullptr;
};

static const clsTema temaSostenida{"sostenida", fCorrer<clsPruebasSostenida>};

#include "sostenida_test.moc"
