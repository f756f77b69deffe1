#include "sesion.h"

#include "app/arranque.h"
#include "dates/tiff_prueba.h"
#include "shared/texto.h"
#include "viewer/visor.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QTableView>
#include <qtestspontaneevent.h>
#include <QWheelEvent>
#include <QWindow>

#include <cmath>
#include <utility>

namespace {

constexpr int intEspera = 20000; // milliseconds; far beyond what anything takes
constexpr const char *strNingunArchivo = "No se ha encontrado ningún archivo.";
constexpr QSize tamNoImagen(640, 480);

} // namespace

std::time_t fMomento(const char *strMomento)
{
    std::tm partes = {};
    strptime(strMomento, "%Y-%m-%d %H:%M:%S", &partes);
    return timegm(&partes);
}

QImage fCuartos(QSize tam)
{
    QImage imagen(tam, QImage::Format_RGB32);
    QPainter pintor(&imagen);
    const int intX = tam.width() / 2;
    const int intY = tam.height() / 2;
    pintor.fillRect(0, 0, intX, intY, Qt::red);
    pintor.fillRect(intX, 0, tam.width(), intY, Qt::green);
    pintor.fillRect(0, intY, intX, tam.height(), Qt::blue);
    pintor.fillRect(intX, intY, tam.width(), tam.height(), Qt::yellow);
    return imagen;
}

QImage fDibujo(QSize tam)
{
    QImage imagen(tam, QImage::Format_RGB32);
    for (int intY = 0; intY < tam.height(); ++intY) {
        for (int intX = 0; intX < tam.width(); ++intX) {
            imagen.setPixel(intX, intY,
                            qRgb(intX * 7 % 256, intY * 11 % 256, (intX * 3 + intY * 5) % 256));
        }
    }
    return imagen;
}

std::string fJpeg(const QImage &imagen, int intOrientacion)
{
    QByteArray lstBytes;
    QBuffer bufer(&lstBytes);
    bufer.open(QIODevice::WriteOnly);
    imagen.save(&bufer, "JPG", 95);
    std::string strJpeg = lstBytes.toStdString();
    if (intOrientacion != 0) {
        const auto lngValor = static_cast<unsigned>(intOrientacion);
        strJpeg.insert(2, fSegmentoExif(clsTiff(Orden::II).fCorto(0x0112, lngValor).fHacer()));
    }
    return strJpeg;
}

std::string fRegistro(const std::string &strRuta, const char *strFecha)
{
    return strRuta + "\r\n" + strFecha + "\r\n 2048 \r\n";
}

void fLlenarArbol(const clsArbol &arbol)
{
    arbol.fCrear("2008/playa.jpg", fJpeg(fCuartos({120, 80})), fMomento("2008-08-10 11:00:00"));
    arbol.fCrear("2009/boda.JPG", fJpeg(fCuartos({80, 120})), fMomento("2009-07-14 16:03:22"));
    arbol.fCrear("2009/brindis.mov", "no film", fMomento("2009-07-14 18:30:00"));
    arbol.fCrear("2010/nieve.jpg", fJpeg(fCuartos({100, 100})), fMomento("2010-01-06 09:15:00"));
    arbol.fCrear("2010/x_privado/regalo.jpg", fJpeg(fCuartos({20, 20})));
    arbol.fCrear("leeme.txt", "text");
}

// --- clsMensajesGuion ---

void clsMensajesGuion::fAviso(Icono icono, const std::string &strTexto,
                              const std::string &strDelTitulo)
{
    strTitulo = QString::fromStdString(strDelTitulo);
    lstTextos.push_back(QString::fromStdString(strTexto));
    lstIconos.push_back(icono);
    if (fMientras) {
        fMientras();
    }
}

bool clsMensajesGuion::fSiNo(const std::string &strTexto)
{
    fAviso(Icono::Aviso, strTexto, {});
    return !lstRespuestas.isEmpty() && lstRespuestas.takeFirst();
}

QStringList clsMensajesGuion::fDichos()
{
    lstIconos.clear();
    return std::exchange(lstTextos, {});
}

bool clsMensajesGuion::fAceptarCancelar(const std::string &strTexto) { return fSiNo(strTexto); }

std::optional<std::string> clsMensajesGuion::fPedir(const std::string &strPregunta)
{
    fAviso(Icono::Aviso, strPregunta, {});
    return lstTecleado.isEmpty() ? std::optional<std::string>()
                                 : lstTecleado.takeFirst().toStdString();
}

std::string clsMensajesGuion::fElegirCarpeta(const std::string &strDelTitulo,
                                             const std::string &strAntes)
{
    strCarpetaAntes = strAntes;
    fAviso(Icono::Aviso, strDelTitulo, {});
    return strCarpeta;
}

// --- clsCuando ---

clsCuando::clsCuando(const std::function<bool()> &fCondicion, const std::function<void()> &fHacer)
{
    connect(this, &QTimer::timeout, this, [this, fCondicion, fHacer] {
        if (!m_bolHecho && fCondicion()) {
            m_bolHecho = true;
            stop();
            fHacer();
        }
    });
    start(0);
}

clsCuando fEnDialogo(const char *strNombre, const std::function<void(QDialog &)> &fHacer)
{
    const auto fAbierto = [strNombre] {
        auto *const dialogo = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        return dialogo != nullptr && dialogo->objectName() == strNombre ? dialogo : nullptr;
    };
    return {[fAbierto] { return fAbierto() != nullptr; },
            [fAbierto, fHacer] { fHacer(*fAbierto()); }};
}

// --- clsAbridor ---

clsAbridor::clsAbridor() : m_lstPath(qgetenv("PATH"))
{
    QFile abridor(m_carpeta.filePath("xdg-open"));
    abridor.open(QIODevice::WriteOnly);
    abridor.write("#!/bin/sh\nprintf '<%s>' \"$@\" >> '" + m_carpeta.filePath("abierto").toUtf8() +
                  "'\n");
    abridor.close();
    abridor.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", m_carpeta.path().toUtf8());
}

std::string clsAbridor::fAbierto() const
{
    QFile archivo(m_carpeta.filePath("abierto"));
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll().toStdString() : "";
}

// --- clsSesion ---

clsSesion::clsSesion(std::shared_ptr<const clsArbol> deQuien, bool bolEscritura,
                     const std::string &strEscritorio)
    : arbol(std::move(deQuien)), ajustes(arbol->fRuta("Miravel.ini"), bolEscritura),
      escritorio(strEscritorio, !strEscritorio.empty()),
      ventana(std::make_unique<frmMain>(clsArchivo{arbol->fRaiz(), bolEscritura, fPreferencias()},
                                        ajustes, escritorio, mensajes))
{
    // Keys of tests come as fast as those that are held: each counts as a step of its own.
    ventana->findChild<clsVisor *>()->fFijarReposo({});
}

clsSesion::clsSesion(const clsArbol &deQuien, bool bolEscritura, const std::string &strEscritorio)
    : clsSesion(std::shared_ptr<const clsArbol>(std::shared_ptr<void>(), &deQuien), bolEscritura,
                strEscritorio)
{
}

clsSesion::clsSesion(const std::vector<std::pair<std::string, std::string>> &lstFicheros)
    : clsSesion(std::make_shared<const clsArbol>(), true, {})
{
    std::time_t lngFecha = fMomento("2001-01-01 00:00:00");
    for (const auto &[strNombre, strBytes] : lstFicheros) {
        arbol->fCrear(strNombre, strBytes, lngFecha);
        lngFecha += 366 * 86400;
    }
}

clsPreferencias clsSesion::fPreferencias()
{
    clsPreferencias preferencias;
    static_cast<void>(fLeerPreferencias(ajustes, preferencias));
    return preferencias;
}

bool clsSesion::fAbrir()
{
    ventana->fIniciar();
    return fEsperarLista();
}

bool clsSesion::fEsperarLista()
{
    const bool bolQuieta = QTest::qWaitFor(
        [this] {
            const bool bolMostrado =
                !fTexto("txtInfo1").isEmpty() ||
                mensajes.lstTextos.contains(QString::fromUtf8(strNingunArchivo));
            return bolMostrado && QApplication::overrideCursor() == nullptr && !fProcesando();
        },
        intEspera);
    // Without a window manager nobody gives the focus back when the window of the build closes.
    ventana->activateWindow();
    return bolQuieta && QTest::qWaitForWindowActive(ventana.get()) && fEsperarDisposicion();
}

bool clsSesion::fTamano(int intAncho, int intAlto)
{
    ventana->showNormal();
    ventana->resize(intAncho, intAlto);
    return fEsperarDisposicion();
}

bool clsSesion::fEsperarDisposicion()
{
    const QWidget *const cliente = fControl("frmMainCliente");
    const QWidget *const fondo = fControl("lblFondo");
    return QTest::qWaitFor(
        [=, this] {
            const QWidget *const franja = fControl("frmTiempo"); // below the panel, if there is one
            const int intAbajo = franja != nullptr && franja->isVisible()
                                     ? franja->geometry().top() - 1
                                     : cliente->rect().bottom();
            return fondo->geometry().right() == cliente->rect().right() &&
                   fondo->geometry().bottom() == intAbajo &&
                   (franja == nullptr || franja->isHidden() ||
                    franja->geometry().bottom() == cliente->rect().bottom()) &&
                   !fProcesando();
        },
        intEspera);
}

QTableView *clsSesion::fLista() { return fControl<QTableView>("lstFotos"); }

QString clsSesion::fTexto(const char *strCaja) { return fControl<QLineEdit>(strCaja)->text(); }

QString clsSesion::fCelda(int lngFila, int intColumna)
{
    return fLista()->model()->index(lngFila, intColumna).data().toString();
}

QStringList clsSesion::fNombres()
{
    QStringList lstNombres;
    for (int lngFila = 0; lngFila < fLista()->model()->rowCount(); ++lngFila) {
        lstNombres.push_back(fCelda(lngFila, 0));
    }
    return lstNombres;
}

bool clsSesion::fMarcada(int lngFila)
{
    return fLista()->model()->index(lngFila, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

int clsSesion::fPosicion()
{
    const int lngFila = fLista()->currentIndex().row();
    const QString strInfo1 =
        QStringLiteral("%1 de %2").arg(lngFila + 1).arg(fLista()->model()->rowCount());
    const std::string strMostrada =
        fSinGiros((fCelda(lngFila, 3) + fCelda(lngFila, 0)).toStdString());
    const QString strRuta = QString::fromStdString(strMostrada) + QLatin1String("      ");
    const bool bolDeAcuerdo = fLista()->selectionModel()->isRowSelected(lngFila) &&
                              fTexto("txtInfo1") == strInfo1 &&
                              fTexto("txtInfo2").startsWith(strRuta);
    return bolDeAcuerdo ? lngFila : -1;
}

std::string clsSesion::fAjuste(const char *strClave)
{
    return ajustes.fConsultar(strSeccionGeneral, strClave);
}

QSize clsSesion::fTamFoto()
{
    const QWidget *const foto = fControl("imgFoto");
    return foto->isVisible() ? foto->size() * foto->devicePixelRatioF() : QSize();
}

bool clsSesion::fSinImagen() { return fTamFoto() == tamNoImagen; }

bool clsSesion::fConstruyendo()
{
    const auto *const busqueda = fControl<QDialog>("frmBusqueda");
    return busqueda != nullptr && busqueda->isVisible();
}

QImage clsSesion::fRecuadro() { return fControl("frmRecuadro")->grab().toImage(); }

void clsSesion::fTecla(Qt::Key tecla, Qt::KeyboardModifiers mayus)
{
    QElapsedTimer reloj;
    reloj.start();
    QTest::keyClick(ventana->windowHandle(), tecla, mayus);
    // A wait for an event that has already been is ended by any other one, so tests would pass.
    if (reloj.elapsed() > intEspera / 2) {
        QTest::qFail("the program was waiting for nothing", __FILE__, __LINE__);
    }
}

void clsSesion::fElegirEntrada(const char *strNombre) { fControl<QAction>(strNombre)->trigger(); }

QPoint clsSesion::fEnVentana(const QWidget *control, QPoint punto) const
{
    return control->mapTo(ventana.get(), punto);
}

void clsSesion::fClic(QWidget *control, QPoint punto, Qt::MouseButton boton)
{
    QTest::mouseClick(ventana->windowHandle(), boton, {}, fEnVentana(control, punto));
}

void clsSesion::fClicFila(int lngFila, int intColumna)
{
    const QModelIndex indice = fLista()->model()->index(lngFila, intColumna);
    fClic(fLista()->viewport(), fLista()->visualRect(indice).center());
}

void clsSesion::fClicCasilla(int lngFila)
{
    const QRect celda = fLista()->visualRect(fLista()->model()->index(lngFila, 0));
    const QStyle *const estilo = fLista()->style();
    const int intX = estilo->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1 +
                     estilo->pixelMetric(QStyle::PM_IndicatorWidth) / 2;
    fClic(fLista()->viewport(), {celda.left() + intX, celda.center().y()});
}

void clsSesion::fPulsar(QWidget *control, QPoint punto)
{
    QTest::mousePress(ventana->windowHandle(), Qt::LeftButton, {}, fEnVentana(control, punto));
}

void clsSesion::fMoverRaton(QWidget *control, QPoint punto)
{
    QTest::mouseMove(ventana->windowHandle(), fEnVentana(control, punto));
}

void clsSesion::fSoltar(QWidget *control, QPoint punto)
{
    QTest::mouseRelease(ventana->windowHandle(), Qt::LeftButton, {}, fEnVentana(control, punto));
}

void clsSesion::fGirar(QWidget *control, int intGiro, Qt::KeyboardModifiers mayus)
{
    const QPoint punto = fEnVentana(control, control->rect().center());
    QWheelEvent evento(punto, ventana->mapToGlobal(punto), {}, {0, intGiro}, Qt::NoButton, mayus,
                       Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&evento); // another would not be handed on to parents
    qApp->notify(ventana->windowHandle(), &evento);
}

// --- clsPruebasSesion ---

void clsPruebasSesion::init()
{
    m_arbol = std::make_unique<clsArbol>();
    fLlenar(*m_arbol);
    QVERIFY(fReabrir());
}

void clsPruebasSesion::cleanup()
{
    m_sesion.reset();
    m_arbol.reset();
}

bool clsPruebasSesion::fReabrir(bool bolEscritura)
{
    m_sesion.reset();
    m_sesion = std::make_unique<clsSesion>(*m_arbol, bolEscritura);
    const bool bolAbierta = m_sesion->fAbrir();
    static_cast<void>(m_sesion->mensajes.fDichos());
    return bolAbierta;
}
