#pragma once

#include "shared/giros.h"
#include "shared/hilos.h"
#include "viewer/almacen.h"
#include "viewer/cache_fotos.h"
#include "viewer/de_paso.h"
#include "viewer/entorno.h"
#include "viewer/fuente.h"
#include "viewer/geometria.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QFrame;
class QLabel;
class imgFoto;

/// A rectangle in pixels.
[[nodiscard]] QRect fPixeles(const clsRect &rect);

/// The viewing panel: its background, the frame and the one picture in it.
class clsVisor : public QObject {
    Q_OBJECT
public:
    /// @param giros how files are seen turned; must outlive it.
    /// @param fotos thumbnails on the disk; null: there are none.
    clsVisor(QWidget *cliente, const clsGiros &giros, std::shared_ptr<const clsCacheFotos> fotos);

    /// Places background and frame and hides the picture, which fills the frame until it is drawn.
    /// @param bolRecuadro whether the frame is shown: it is not beside the page of thumbnails.
    void fDisponer(const clsDisposicion &sitio, bool bolRecuadro);
    /// Tells assistive technology which file the picture is of.
    /// @param strArchivo its name and date.
    void fDescribir(const QString &strArchivo);
    /// Brings background, frame and picture before all that stands beside them.
    void fAlFrente();
    /// Where the panel lies in its parent.
    [[nodiscard]] QRect fSitio() const;
    /// Gives the background a new height in pixels, ahead of the next layout.
    void fAltura(int intPixeles);
    /// Empties the picture.
    void fVaciar();
    /// Shows a file as one picture: loads, places and shows it. Missing files, videos and what
    /// cannot be decoded show the no-image picture. What the disk does not give in time leaves the
    /// frame empty and appears when it comes, as long as the drawing is up to date. Steps that
    /// quickly follow each other show what there is at once, and no picture is decoded for them
    /// before the last one.
    /// @return false when it was superseded or the window closes: nothing of it is shown then.
    [[nodiscard]] bool fMostrar(const std::string &strRuta, const clsEntorno &entorno);
    /// Whether the disk has not given it in time.
    [[nodiscard]] bool fPendiente() const { return m_bolPendiente; }
    /// Whether that file is only passed by, and not decoded yet.
    [[nodiscard]] bool fPasando() const { return m_bolDePaso; }
    /// Begins to decode the file that is going to be shown first, while the window is being built.
    void fAnticipar(const std::string &strRuta);
    /// Has the files that are likely to come next decoded ahead.
    void fAdelantar(const std::vector<std::string> &lstRutas);

    /// How long a key rests before what it led to is decoded.
    void fFijarReposo(std::chrono::milliseconds reposo) { m_reposo.setInterval(reposo); }

    /// Percentage of the natural size; 0 fits.
    void fFijarZoom(int intZoom);
    /// Shows the picture as it is turned by now.
    void fGirar() { fRecolocar(); }

signals:
    /// What the disk did not give in time is shown.
    void fLlegada();
    /// Right button on panel, frame or picture, in screen coordinates.
    void fMenuPedido(const QPoint &punto);
    /// Middle button on one of them.
    void fCompletaPedida();
    /// Double click on the picture.
    void fAbrirPedido();

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    [[nodiscard]] clsPedido fPedido(const std::string &strRuta, qint64 lngMaximo) const;
    [[nodiscard]] std::shared_ptr<const clsFuente> fCargar(const std::string &strRuta,
                                                           const clsEntorno &entorno);
    [[nodiscard]] std::shared_ptr<const clsFuente> fEsperar(const clsEntorno &entorno);
    [[nodiscard]] std::shared_ptr<const clsFuente>
    fOjear(std::chrono::steady_clock::time_point limite);
    [[nodiscard]] std::shared_ptr<const clsFuente> fDescifrada();
    [[nodiscard]] std::shared_ptr<const clsFuente> fMejor();
    void fCambiar(const std::shared_ptr<const clsFuente> &fuente, bool bolEntera);
    void fReposar();
    void fColocar();
    void fRecolocar();
    void fPoner(std::shared_ptr<const clsFuente> fuente);
    void fPonerTarde(std::shared_ptr<const clsFuente> fuente);
    void fTomarMirada(const std::string &strRuta, const std::optional<clsHuella> &huella,
                      const clsEntorno &entorno);
    [[nodiscard]] std::optional<clsPedido> fPrevia(const std::string &strRuta,
                                                   const clsHuella &huella) const;
    void fEncargar(bool bolPrevia);
    [[nodiscard]] std::shared_ptr<const clsFuente> fGuardada(const std::string &strClave);
    [[nodiscard]] std::string fClaveEntera() const;
    void fLlegar(const std::string &strClave);
    void fAfinar();

    const clsGiros &m_giros;
    const std::shared_ptr<const clsCacheFotos> m_fotos;
    QLabel *m_lblFondo;
    QFrame *m_frmRecuadro;
    imgFoto *m_imgFoto;
    clsAlmacen<clsFoto> m_almacen;
    std::shared_ptr<const clsFuente> m_imgPuente; ///< the picture that is shown
    std::string m_strRuta;                        ///< its file; empty when it is no photo
    clsHuella m_huella;                           ///< the file's content
    std::shared_ptr<const clsFuente> m_imgNoImagen;
    std::vector<std::string> m_lstVecinas;         ///< files that are likely to come next
    std::map<std::string, clsHuella> m_mapHuellas; ///< theirs, once they were looked up
    std::vector<clsHilos::clsOrden> m_lstMiradas;  ///< at neighbours
    clsHilos m_miradas;    ///< at size and time of files: a disk that wakes up takes seconds for it
    QString m_strDescrito; ///< what the picture was last said to be of
    bool m_bolPendiente = false; ///< the picture is still to come
    bool m_bolNitida = false;    ///< the last file was seen with all the pixels it needs
    bool m_bolDePaso = false;    ///< the shown file is only passed by
    QElapsedTimer m_desdePaso;   ///< since the last step was done; not valid: that was none
    QTimer m_reposo;             ///< until the key has rested
    int m_intZoom = 100;
};
