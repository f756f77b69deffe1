#pragma once

#include "catalogue/filas.h"
#include "shared/giros.h"
#include "shared/numeros.h"
#include "viewer/cThumbnailGenerator.h"
#include "viewer/entorno.h"
#include "viewer/geometria.h"
#include "viewer/pieza_mini.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <string>
#include <vector>

class cmdMini;
class QWidget;

/// The page of thumbnails: the cells that lie on the viewing panel, and the loop that draws them.
///
/// A cell knows the file it shows by the list's revision and the position, so that it is drawn
/// again when any of the two changes, and not else.
class clsMiniaturas : public QObject {
    Q_OBJECT
public:
    /// Shows a message; false: those that would follow are not wanted.
    using clsAvisar = std::function<bool(const std::string &strTexto)>;

    /// @param filas must outlive it.
    /// @param giros how files are seen turned; must outlive it, too.
    clsMiniaturas(QWidget *cliente, const clsFilas &filas, clsSignos signos, clsAvisar fAvisar,
                  clsFuentesMini fuentes, const clsGiros &giros);

    /// Lays the cells out on the viewing panel, all hidden and empty.
    /// @param intTam index of the thumbnail size, 0 to 2.
    void fDisponer(const clsRect &fondo, int intTam);
    /// Hides and empties all cells.
    void fVaciar();
    /// Makes no more thumbnails until the next page.
    void fParar()
    {
        m_reposo.stop();
        m_almacen.fEncargar({});
    }
    /// Draws the page that holds the current file. The list must not be empty. Thumbnails appear in
    /// order: those there are at once, sharp or not, then those that have to be decoded. The frames
    /// of videos are waited for by nobody and appear later, and so do sharper pictures, files that
    /// the disk does not give in time, and new pictures of files that were replaced while their
    /// cells showed them.
    /// @return false when it was superseded or the window closes.
    [[nodiscard]] bool fMostrar(int lngActual, const clsEntorno &entorno);

    /// The position of the file whose cell that is; -1 when it is none.
    [[nodiscard]] int fPosicion(const QWidget *control) const;
    /// Cells of a page.
    [[nodiscard]] int fCeldas() const { return m_rejilla.intCeldas; }

    /// Whether something that the page shows is still to come.
    [[nodiscard]] bool fPendiente() const;

signals:
    /// Something of that has come.
    void fLlegada();
    /// A mouse button went down on the cell of a file.
    void fPulsada(int lngPos, Qt::MouseButton boton, Qt::KeyboardModifiers mayus);
    /// A double click on the cell of a file, after fPulsada.
    void fDobleClic(int lngPos);

private:
    struct clsCelda {
        cmdMini *boton = nullptr;
        int lngPos = -1; ///< position of the file it shows; -1: hidden
        std::uint64_t lngRevision = 0;
        int intLado = 0;           ///< side of the box in device pixels
        std::string strClave{};    ///< of its thumbnail
        qint64 lngImagen = 0;      ///< QImage::cacheKey of the thumbnail, 0: none
        bool bolPendiente = false; ///< what it is to show is still to come
        bool bolFina = false;      ///< it shows all pixels it can
    };
    void fCargarCeldas();
    void fVaciar(clsCelda &celda);
    void fRepartir(int lngInicio, int lngActual);
    [[nodiscard]] bool fMuestra(const clsCelda &celda, int lngPos) const;
    [[nodiscard]] bool fDePaso(int lngInicio);
    void fEncargar(int lngInicio, bool bolAfinar = true);
    [[nodiscard]] bool fDibujar(std::size_t lngCelda, int lngPos, bool bolTodo,
                                const clsEntorno &entorno);
    [[nodiscard]] bool fPintar(std::size_t lngCelda, int lngPos,
                               const std::function<bool()> &fVigente);
    void fMarcar(const clsCelda &celda, int lngActual);
    void fQueja(const std::string &strTexto);
    void fTomarLlegadas();
    void fLlegar(const std::string &strClave);
    void fRenovar(std::size_t lngCelda);
    [[nodiscard]] int fLado() const;
    [[nodiscard]] std::optional<clsMiniatura> fHecha(const std::string &strRuta);
    [[nodiscard]] std::optional<clsMiniGuardada> fGuardada(const std::string &strRuta);

    QWidget *m_cliente;
    const clsFilas &m_filas;
    const clsSignos m_signos;
    const clsAvisar m_fAvisar;
    const clsFuentesMini m_fuentes;
    const clsGiros &m_giros;
    clsAlmacenMini m_almacen;
    cThumbnailGenerator m_generador;
    clsRejilla m_rejilla;
    std::vector<clsCelda> m_lstCeldas;
    std::deque<std::string> m_lstLlegadas; ///< thumbnails that have come and were not looked at
    bool m_bolAvisando = false;            ///< a message is open
    bool m_bolCallar = false;              ///< of this page no more messages are wanted
    int m_lngActual = 0;
    int m_lngInicio = -1;        ///< first position of the page that was drawn last
    QElapsedTimer m_desdePagina; ///< since pages last changed
    QTimer m_reposo;             ///< until a page that was turned to quickly is made sharp
    QElapsedTimer m_desdeCeder;
    QElapsedTimer m_desdeNovedad;   ///< since a thumbnail was last made
    std::function<void()> m_fFalta; ///< tells that a file is not on the disk
};
