// The formats besides JPEG: when they are listed, and what is shown of them.
#include "sesion.h"

#include <QFile>

namespace {

/// A photo of the usual format, two files of others, one of none.
std::vector<std::pair<std::string, std::string>> fMezcla()
{
    return {{"a.jpg", fJpeg(fCuartos({40, 30}))},
            {"b.heic", "no picture"},
            {"c.mkv", "no film"},
            {"d.txt", "text"}};
}

std::string fSemilla(const char *strNombre)
{
    QFile fichero(QStringLiteral(MIRAVEL_FOTOS_PRUEBA "/") + QString::fromUtf8(strNombre));
    return fichero.open(QIODevice::ReadOnly) ? fichero.readAll().toStdString() : std::string();
}

} // namespace

class clsPruebasFormatos : public QObject {
    Q_OBJECT
private slots:
    void fAreListedWhenTheUserWantsThemAndTheirNumberIsToldBefore()
    {
        clsSesion sesion(fMezcla());
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fNombres(), QStringList({QStringLiteral("a.jpg")}));
        QCOMPARE(sesion.fTexto("txtEstado5"), QStringLiteral("2 de otros formatos"));
        QCOMPARE(sesion.fAjuste("FORMATOS"), "");
        const auto fMarcada = [&sesion] {
            return sesion.fControl<QAction>("mnuMasFormatos")->isChecked();
        };
        QVERIFY(!fMarcada());
        sesion.fElegirEntrada("mnuMasFormatos");
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.fNombres(), QStringList({QStringLiteral("a.jpg"), QStringLiteral("b.heic"),
                                                 QStringLiteral("c.mkv")}));
        QCOMPARE(sesion.fTexto("txtEstado5"), QString());
        QCOMPARE(sesion.fAjuste("FORMATOS"), "1");
        QVERIFY(fMarcada());
        sesion.fElegirEntrada("mnuOpcionesFotosVideos0");
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.fNombres(),
                 QStringList({QStringLiteral("a.jpg"), QStringLiteral("b.heic")}));
        sesion.fElegirEntrada("mnuMasFormatos");
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.fNombres(), QStringList({QStringLiteral("a.jpg")}));
        QCOMPARE(sesion.fTexto("txtEstado5"), QString()); // once a start
        QCOMPARE(sesion.fAjuste("FORMATOS"), "0");
        QVERIFY(!fMarcada());
    }

    void fAreShownLikeAnyPhoto()
    {
        clsSesion sesion({{"a.jpg", fJpeg(fCuartos({40, 30}))},
                          {"b.heic", fSemilla("cuartos.heic")},
                          {"c.dng", fSemilla("cuartos.dng")},
                          {"d.mkv", fSemilla("roja.mkv")}});
        QVERIFY(sesion.fAbrir());
        static_cast<void>(sesion.mensajes.fDichos());
        sesion.fElegirEntrada("mnuMasFormatos");
        QVERIFY(sesion.fEsperarLista());
        for (const auto &[intPosicion, tam] : {std::pair(1, QSize(64, 48)), {2, QSize(48, 64)}}) {
            sesion.fTecla(Qt::Key_F12);
            QTRY_COMPARE(sesion.fPosicion(), intPosicion);
            QTRY_COMPARE(sesion.fTamFoto(), tam);
            QVERIFY(!sesion.fSinImagen());
        }
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 3);
        QVERIFY(sesion.fSinImagen()); // a video has none as a single picture
        QVERIFY(sesion.mensajes.fDichos().isEmpty());
    }
};

static const clsTema temaFormatos{"formatos", fCorrer<clsPruebasFormatos>};

#include "formatos_test.moc"
