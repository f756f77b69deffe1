#pragma once

#include "shared/giros.h"
#include "shared/hilos.h"
#include "viewer/almacen.h"
#include "viewer/entorno.h"
#include "viewer/fuente.h"
#include "viewer/geometria.h"

#include <QObject>

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
    clsVisor(QWidget *cliente, const clsGiros &giros);

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
    /// frame empty and appears when it comes, as long as the drawing is up to date.
    /// @return false when it was superseded or the window closes: nothing of it is shown then.
    [[nodiscard]] bool fMostrar(const std::string &strRuta, const clsEntorno &entorno);
    /// Whether the disk has not given it in time.
    [[nodiscard]] bool fPendiente() const { return m_bolPendiente; }
    /// Begins to decode the file that is going to be shown first, while the window is being built.
    void fAnticipar(const std::string &strRuta);
    /// Has the files that are likely to come next decoded ahead.
    void fAdelantar(const std::vector<std::string> &lstRutas);

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
    void fColocar();
    void fRecolocar();
    void fPoner(std::shared_ptr<const clsFuente> fuente);
    void fPonerTarde(std::shared_ptr<const clsFuente> fuente);
    void fTomarMirada(const std::string &strRuta, const std::optional<clsHuella> &huella,
                      const clsEntorno &entorno);
    [[nodiscard]] std::optional<clsPedido> fPrevia(const std::string &strRuta,
                                                   const clsHuella &huella) const;
    void fEncargar(bool bolPrevia);
    [[nodiscard]] std::shared_ptr<const clsFuente> fGuardada(const clsPedido &pedido);
    void fLlegar(const std::string &strClave);
    void fAfinar();

    const clsGiros &m_giros;
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
    int m_intZoom = 100;
};
