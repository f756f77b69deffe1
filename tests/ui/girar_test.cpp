// What is seen is turned; what is in the file is not.
#include "sesion.h"

#include "sistema/archivo.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr const char *strAncha = "2001/20010101_ancha.jpg";

/// The colours of the four quarters of what a picture shows, row by row: R, G, B, A (yellow).
std::string fColores(const QImage &imagen)
{
    std::string strColores;
    for (const QPoint cuarto : {QPoint(1, 1), QPoint(3, 1), QPoint(1, 3), QPoint(3, 3)}) {
        const QColor color =
            imagen.pixelColor(imagen.width() * cuarto.x() / 4, imagen.height() * cuarto.y() / 4);
        const bool bolRojo = color.red() > 127;
        const bool bolVerde = color.green() > 127;
        strColores += bolRojo && bolVerde ? 'A' : bolRojo ? 'R' : bolVerde ? 'G' : 'B';
    }
    return strColores;
}

} // namespace

class clsPruebasGirar : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fTheKeysTurnThePicture()
    {
        const struct {
            Qt::Key tecla;
            const char *strColores;
            const char *strDicho;
        } lstPasos[] = {
            {Qt::Key_F8, "BRAG", ", girada a la derecha"},
            {Qt::Key_F8, "ABGR", ", girada media vuelta"},
            {Qt::Key_F8, "GARB", ", girada a la izquierda"},
            {Qt::Key_F8, "RGBA", ""},
            {Qt::Key_F7, "GARB", ", girada a la izquierda"},
        };
        for (const auto &paso : lstPasos) {
            m_sesion->fTecla(paso.tecla);
            QCOMPARE(fColores(fFoto()), std::string(paso.strColores));
            const bool bolTumbada = paso.strColores[0] == 'B' || paso.strColores[0] == 'G';
            QCOMPARE(m_sesion->fTamFoto(), bolTumbada ? QSize(80, 120) : QSize(120, 80));
            QCOMPARE(m_sesion->fControl("imgFoto")->accessibleName(),
                     QString("Fotografía: 20010101_ancha.jpg (2001/01/01 12:00:00)") +
                         paso.strDicho);
        }
        m_sesion->fElegirEntrada("mnuFotoValor1");
        QCOMPARE(m_sesion->fTamFoto(), QSize(160, 240));
        QCOMPARE(fColores(fFoto()), std::string("GARB"));
        m_sesion->fElegirEntrada("mnuFotoAjustar");
        const QWidget *const foto = m_sesion->fControl("imgFoto");
        const QSize recuadro = m_sesion->fControl("frmRecuadro")->size();
        QVERIFY(foto->height() == recuadro.height() || foto->width() == recuadro.width());
        QVERIFY(foto->width() < foto->height());
        QCOMPARE(fColores(fFoto()), std::string("GARB"));
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        QTRY_COMPARE(fColores(fFoto()), std::string("RGBA")); // each for itself
        m_sesion->fTecla(Qt::Key_F12);                        // a film's picture stays as it is
        QTRY_VERIFY(m_sesion->fPosicion() == 2 && foto->width() > foto->height());
        m_sesion->fTecla(Qt::Key_F8);
        QVERIFY(foto->width() > foto->height());
    }

    void fEveryPixelIsStillShownAsItIs()
    {
        const std::string strJpeg = fJpeg(fDibujo({2400, 2000}));
        clsSesion sesion({{"a.jpg", strJpeg}});
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_F8);
        const QWidget *const foto = sesion.fControl("imgFoto");
        QCOMPARE(sesion.fTamFoto(), QSize(2000, 2400));
        const QImage girada = QImage::fromData(QByteArray::fromStdString(strJpeg))
                                  .convertToFormat(QImage::Format_RGB32)
                                  .transformed(QTransform().rotate(90));
        const auto fExacta = [&] {
            QImage recuadro = sesion.fRecuadro().convertToFormat(QImage::Format_RGB32);
            recuadro.setDevicePixelRatio(1);
            return recuadro ==
                   girada.copy(QRect(-foto->pos() * foto->devicePixelRatioF(), recuadro.size()));
        };
        QTRY_VERIFY(fExacta());
        // A drag moves what is seen.
        const QPoint antes = foto->pos();
        QWidget *const recuadro = sesion.fControl("frmRecuadro");
        const QPoint medio = recuadro->rect().center();
        sesion.fPulsar(recuadro, medio);
        sesion.fMoverRaton(recuadro, medio - QPoint(0, 30));
        sesion.fSoltar(recuadro, medio - QPoint(0, 30));
        QCOMPARE(foto->pos(), antes - QPoint(0, 32));
        QTRY_VERIFY(fExacta());
    }

    void fThumbnailsTurnAndTheFileStaysAsItWas()
    {
        const std::string strBytes = m_arbol->fLeer(strAncha);
        const auto antes = fConsultar(m_arbol->fRuta(strAncha), false);
        const auto *const celda = m_sesion->fControl<QPushButton>("cmdMini0");
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini1") != nullptr);
        QTRY_VERIFY(!m_sesion->fProcesando() && m_sesion->fControl("cmdMini1")->isVisible());
        const QSize tam = fIcono(*celda).size();
        m_sesion->fTecla(Qt::Key_F7);
        QTRY_COMPARE(fColores(fIcono(*celda)), std::string("GARB"));
        QCOMPARE(fIcono(*celda).size(), tam.transposed());
        QCOMPARE(fColores(fDentro(*celda, tam.transposed())), std::string("GARB"));
        QVERIFY(celda->accessibleName().endsWith(", girada a la izquierda"));
        QCOMPARE(fColores(fIcono(*m_sesion->fControl<QPushButton>("cmdMini1"))),
                 std::string("RGBA"));
        // The list and the page anew: it stays.
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_VERIFY(m_sesion->fEsperarLista());
        QTRY_COMPARE(fColores(fIcono(*celda)), std::string("GARB"));
        m_sesion->fTecla(Qt::Key_M);
        QTRY_COMPARE(m_sesion->fTamFoto(), QSize(80, 120));
        QCOMPARE(m_arbol->fLeer(strAncha), strBytes);
        const auto ahora = fConsultar(m_arbol->fRuta(strAncha), false);
        QVERIFY(ahora->huella == antes->huella);
        QVERIFY(fReabrir()); // but not beyond the end of the program
        QCOMPARE(m_sesion->fTamFoto(), QSize(120, 80));
    }

    void fACorrectedNameKeepsItsTurn()
    {
        m_sesion->fTecla(Qt::Key_F8);
        const clsCuando cuando = fEnDialogo("frmFecha", [](QDialog &dialogo) {
            auto *const caja = dialogo.findChild<QLineEdit *>("txtDateTime");
            caja->selectAll();
            QTest::keyClicks(caja, "24/12/2000");
            QTest::mouseClick(dialogo.findChild<QPushButton *>("cmdAceptar1"), Qt::LeftButton);
        });
        m_sesion->fTecla(Qt::Key_W, Qt::ShiftModifier);
        QVERIFY(cuando.fHecho());
        QTRY_COMPARE(m_sesion->fCelda(0, 0), QString("20001224_20010101_ancha.jpg"));
        QTRY_COMPARE(fColores(fFoto()), std::string("BRAG"));
    }

private:
    void fLlenar(const clsArbol &arbol) override
    {
        arbol.fCrear(strAncha, fJpeg(fCuartos({120, 80})), fMomento("2001-01-01 12:00:00"));
        arbol.fCrear("2002/alta.jpg", fJpeg(fCuartos({80, 120})), fMomento("2002-01-01 12:00:00"));
        arbol.fCrear("2003/film.mov", "no film", fMomento("2003-01-01 12:00:00"));
    }
    QImage fFoto() { return m_sesion->fControl("imgFoto")->grab().toImage(); }
    static QImage fIcono(const QPushButton &celda) { return celda.icon().pixmap(400).toImage(); }
    /// What the middle of a cell shows.
    static QImage fDentro(const QPushButton &celda, QSize tam)
    {
        QRect sitio({}, tam / celda.devicePixelRatioF());
        sitio.moveCenter(celda.rect().center());
        return const_cast<QPushButton &>(celda).grab(sitio).toImage();
    }
};

static const clsTema temaGirar{"girar", fCorrer<clsPruebasGirar>};

#include "girar_test.moc"
