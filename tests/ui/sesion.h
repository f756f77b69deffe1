#pragma once

#include "app/aplicacion.h"
#include "app/frmMain.h"
#include "shared/ajustes.h"
#include "shared/mensajes.h"
#include "soporte/arbol.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QList>
#include <QSize>
#include <QStringList>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Seconds since 1970 of a moment "yyyy-MM-dd HH:mm:ss"; the tests run in universal time.
[[nodiscard]] std::time_t fMomento(const char *strMomento);

/// A picture of four plain quarters: red, green / blue, yellow.
[[nodiscard]] QImage fCuartos(QSize tam);
/// A picture in which hardly two pixels are alike.
[[nodiscard]] QImage fDibujo(QSize tam);

/// The bytes of a JPEG file.
/// @param intOrientacion EXIF orientation 1 to 8; 0: no EXIF segment.
[[nodiscard]] std::string fJpeg(const QImage &imagen, int intOrientacion = 0);

/// A catalogue record of a file of 2,048 bytes.
[[nodiscard]] std::string fRegistro(const std::string &strRuta, const char *strFecha);

/// Four files the list shows, one hidden and one that is no media file. By date: 2008/playa.jpg,
/// 2009/boda.JPG, 2009/brindis.mov (not a film in truth), 2010/nieve.jpg.
void fLlenarArbol(const clsArbol &arbol);

/// Records what the program says and asks, and answers from a script.
class clsMensajesGuion : public clsMensajes {
public:
    void fAviso(Icono icono, const std::string &strTexto, const std::string &strTitulo) override;
    [[nodiscard]] bool fSiNo(const std::string &strTexto) override;
    [[nodiscard]] bool fAceptarCancelar(const std::string &strTexto) override;
    [[nodiscard]] std::optional<std::string> fPedir(const std::string &strPregunta) override;
    [[nodiscard]] std::string fElegirCarpeta(const std::string &strTitulo,
                                             const std::string &strAntes) override;
    /// What was said since the last call.
    [[nodiscard]] QStringList fDichos();

    QStringList lstTextos;
    QList<Icono> lstIconos;
    QList<bool> lstRespuestas;       ///< to the next questions; afterwards No
    QStringList lstTecleado;         ///< what is typed next into boxes that ask; then Cancel
    std::string strCarpeta;          ///< the folder that is chosen; empty: Cancel
    std::string strCarpetaAntes;     ///< the folder the last choice began with
    QString strTitulo;               ///< of the last box
    std::function<void()> fMientras; ///< runs while a box is open
};

/// Runs something once, at the first chance after a condition holds, also in the middle of other
/// work.
class clsCuando : public QTimer {
public:
    clsCuando(const std::function<bool()> &fCondicion, const std::function<void()> &fHacer);
    [[nodiscard]] bool fHecho() const { return m_bolHecho; }

private:
    bool m_bolHecho = false;
};

/// Counts how often the program resized a control, hid it and so on.
class clsContador : public QObject {
public:
    clsContador(QObject *objeto, QEvent::Type tipo) : m_tipo(tipo)
    {
        objeto->installEventFilter(this);
    }
    int intVeces = 0;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        intVeces += evento->type() == m_tipo && !evento->spontaneous() ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_tipo;
};

/// Does something in the dialog of that name, once it is open.
[[nodiscard]] clsCuando fEnDialogo(const char *strNombre,
                                   const std::function<void(QDialog &)> &fHacer);

/// A stand-in for the desktop's opener, the only program there is while this lives; it writes its
/// arguments down.
class clsAbridor {
public:
    clsAbridor();
    ~clsAbridor() { qputenv("PATH", m_lstPath); }
    clsAbridor(const clsAbridor &) = delete;
    clsAbridor &operator=(const clsAbridor &) = delete;
    /// What was opened so far, each in "<>".
    [[nodiscard]] std::string fAbierto() const;

private:
    QTemporaryDir m_carpeta;
    QByteArray m_lstPath;
};

/// One run of the program on an archive: from the settings to the end of the main window.
class clsSesion {
public:
    /// @param strEscritorio the file of what the desktop remembers; empty: it remembers nothing.
    explicit clsSesion(const clsArbol &arbol, bool bolEscritura = true,
                       const std::string &strEscritorio = {});
    /// On an archive of its own with these files, name and bytes, a year each from 2001 on.
    explicit clsSesion(const std::vector<std::pair<std::string, std::string>> &lstFicheros);

    /// Shows the window and waits until the list is filled and the first file shown.
    [[nodiscard]] bool fAbrir();
    /// Waits until nothing is being done and a file is shown, or the program said there is none.
    [[nodiscard]] bool fEsperarLista();
    /// Gives the window a size and waits for the layout that follows.
    [[nodiscard]] bool fTamano(int intAncho, int intAlto);
    /// Waits until the panels fit the window.
    [[nodiscard]] bool fEsperarDisposicion();

    template <typename Control> [[nodiscard]] Control *fControl(const char *strNombre)
    {
        return ventana->findChild<Control *>(QString::fromUtf8(strNombre));
    }
    [[nodiscard]] QWidget *fControl(const char *strNombre) { return fControl<QWidget>(strNombre); }
    [[nodiscard]] QTableView *fLista();
    [[nodiscard]] QString fTexto(const char *strCaja);
    /// Text of the list in a row and a column, both from 0.
    [[nodiscard]] QString fCelda(int lngFila, int intColumna);
    [[nodiscard]] QStringList fNombres();
    [[nodiscard]] bool fMarcada(int lngFila);
    /// The selected row, from 0; -1 when the boxes above the panel tell another one.
    [[nodiscard]] int fPosicion();
    /// A key of section GENERAL in the settings file.
    [[nodiscard]] std::string fAjuste(const char *strClave);
    /// Size of the picture in picture pixels, as far as the screen shows it at that zoom.
    [[nodiscard]] QSize fTamFoto();
    [[nodiscard]] bool fSinImagen();
    /// Whether the window of the catalogue build can be seen, or a picture is being loaded.
    [[nodiscard]] bool fConstruyendo();
    [[nodiscard]] bool fProcesando()
    {
        return fTexto("txtInfo2") == QLatin1String("Procesando...");
    }
    /// The frame as it is on the screen, in device pixels.
    [[nodiscard]] QImage fRecuadro();

    // What the user does. Keys go where the focus is, the mouse to what lies under it.
    void fTecla(Qt::Key tecla, Qt::KeyboardModifiers mayus = Qt::NoModifier);
    void fElegirEntrada(const char *strNombre);
    void fClic(QWidget *control, QPoint punto, Qt::MouseButton boton = Qt::LeftButton);
    void fClicFila(int lngFila, int intColumna = 0);
    void fClicCasilla(int lngFila);
    void fPulsar(QWidget *control, QPoint punto);
    void fMoverRaton(QWidget *control, QPoint punto);
    void fSoltar(QWidget *control, QPoint punto);
    /// Turns the wheel over the middle of a control.
    void fGirar(QWidget *control, int intGiro, Qt::KeyboardModifiers mayus = {});

    const std::shared_ptr<const clsArbol> arbol;
    clsMensajesGuion mensajes;
    clsAjustes ajustes;
    clsAjustes escritorio;
    std::unique_ptr<frmMain> ventana;

private:
    clsSesion(std::shared_ptr<const clsArbol> deQuien, bool bolEscritura,
              const std::string &strEscritorio);
    [[nodiscard]] QPoint fEnVentana(const QWidget *control, QPoint punto) const;
    [[nodiscard]] clsPreferencias fPreferencias();
};

/// Tests that begin with the program open on an archive of their own, with nothing said yet.
class clsPruebasSesion : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

protected:
    virtual void fLlenar(const clsArbol &arbol) { fLlenarArbol(arbol); }
    /// Starts the program anew on the same archive.
    [[nodiscard]] bool fReabrir(bool bolEscritura = true);

    std::unique_ptr<clsArbol> m_arbol;
    std::unique_ptr<clsSesion> m_sesion;
};

/// The tests of one subject. The program runs those whose name is its first argument; what follows
/// goes to Qt's test runner. One program, because thirteen would each link the whole window.
struct clsTema {
    using fnCorrer = int (*)(const QStringList &lstArgumentos);
    clsTema(const char *strNombre, fnCorrer fCorrer);
};

template <typename Pruebas> int fCorrer(const QStringList &lstArgumentos)
{
    Pruebas pruebas;
    return QTest::qExec(&pruebas, lstArgumentos);
}
