#pragma once

#include "shared/giros.h"
#include "viewer/almacen.h"
#include "viewer/extraccion.h"
#include "viewer/fuente.h"
#include "viewer/presentacion.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class imgFoto;
class QLabel;
class QPropertyAnimation;

/// A picture of a slide show as it is kept.
struct clsDiapositiva {
    std::shared_ptr<const clsFuente> fuente; ///< nothing: the file is missing
    [[nodiscard]] qint64 fBytes() const { return fuente ? fuente->imagen.sizeInBytes() : 0; }
};

/// What a slide show takes from the program. Places count from 0 on.
struct clsEntornoPresentacion {
    std::size_t lngFotos = 0;                               ///< how many there are
    std::function<std::string(std::size_t lngLugar)> fRuta; ///< empty: nothing is there
    std::function<clsPie(std::size_t lngLugar)> fPie;       ///< what is told of it
    const clsGiros &giros;                                  ///< how files are seen turned
    clsFotograma fFotograma;                                ///< makes frames of videos
    std::function<void(std::size_t lngLugar)> fAbrir;       ///< by its own program
    std::function<void(int intSegundos)> fGuardarSegundos;  ///< for the next show
    std::function<void(bool bolEnMarcha)> fVelar;           ///< keeps the screen awake
    std::function<clsPase::Momento()> fAhora;               ///< the clock
};

/// A slide show on the whole screen: one picture after the other, decoded ahead.
class frmPresentacion : public QDialog {
    Q_OBJECT
public:
    /// @param lngLugar    what it begins with.
    /// @param intSegundos how long a picture stays.
    frmPresentacion(QWidget *padre, clsEntornoPresentacion entorno, std::size_t lngLugar,
                    int intSegundos);
    ~frmPresentacion() override;

    /// The place that was shown last; nothing when none was.
    [[nodiscard]] std::optional<std::size_t> fVista() const { return m_pase.fVista(); }
    /// Looks at the clock, and at what has been decoded, and goes on accordingly.
    void fMirar();

protected:
    void keyPressEvent(QKeyEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void resizeEvent(QResizeEvent *evento) override;

private:
    [[nodiscard]] std::string fClaveDe(std::size_t lngLugar) const;
    [[nodiscard]] QSize fRecuadroDe(const std::string &strRuta) const;
    [[nodiscard]] clsAlmacen<clsDiapositiva>::clsPieza fPieza(std::size_t lngLugar) const;
    void fEncargar();
    void fAfinar();
    void fPaso(int intSentido);
    void fAlternar();
    void fCambiarSegundos(int intSentido);
    void fAbrir();
    void fContar();

    const clsEntornoPresentacion m_entorno;
    clsPase m_pase;
    std::shared_ptr<const clsFuente> m_imgNoImagen;
    std::shared_ptr<const clsFuente> m_imgPuente; ///< what is shown
    QTimer m_reloj;
    imgFoto *m_imgFoto;
    QLabel *m_lblPie;
    QPropertyAnimation *m_desvanecer; ///< of that line
    clsAlmacen<clsDiapositiva> m_almacen;
};
