// The About box.
#include "app/frmAcerca.h"

#include "sesion.h"

#include <QLabel>
#include <QPushButton>

class clsPruebasAcerca : public QObject {
    Q_OBJECT
private slots:
    void fItTellsWhatTheProgramIs()
    {
        const frmAcerca ventana(nullptr);
        const auto fEtiqueta = [&](const char *strNombre) {
            return ventana.findChild<QLabel *>(QString::fromLatin1(strNombre));
        };
        QCOMPARE(fEtiqueta("lblNombre")->text(), QString("Miravel"));
        QCOMPARE(fEtiqueta("lblVersion")->text(), QString("Versión 1.3"));
        QVERIFY(fEtiqueta("lblLicencia")->text().contains("GNU General Public License"));
        // The picture is drawn, not only framed.
        const QImage logo = fEtiqueta("imgLogo")->pixmap().toImage();
        QCOMPARE(logo.deviceIndependentSize().toSize(), QSize(96, 96));
        QCOMPARE(logo.pixelColor(logo.width() / 2, logo.height() / 4), QColor(0x1f, 0x3f, 0x66));
        // What has no text has a name for those who cannot see it.
        for (const QLabel *const etiqueta : ventana.findChildren<QLabel *>()) {
            QVERIFY(!etiqueta->objectName().isEmpty());
            QVERIFY(!etiqueta->text().isEmpty() || !etiqueta->accessibleName().isEmpty());
        }
    }

    void fItLeadsToTheHelpAndCloses()
    {
        for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Escape}) {
            frmAcerca ventana(nullptr);
            const QSignalSpy espia(&ventana, &frmAcerca::fAyudaPedida);
            ventana.show();
            QVERIFY(QTest::qWaitForWindowActive(&ventana));
            QTest::mouseClick(ventana.findChild<QPushButton *>("cmdAyuda"), Qt::LeftButton);
            QCOMPARE(espia.count(), 1);
            QVERIFY(ventana.isVisible());
            ventana.findChild<QPushButton *>("cmdAceptar")->setFocus();
            QTest::keyClick(QApplication::focusWidget(), tecla);
            QVERIFY(!ventana.isVisible());
            QCOMPARE(espia.count(), 1);
        }
    }
};

static const clsTema temaAcerca{"acerca", fCorrer<clsPruebasAcerca>};

#include "acerca_test.moc"
