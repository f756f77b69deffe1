#pragma once

#include "shared/hilos.h"
#include "viewer/extraccion.h"

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class clsTallerMiniaturas;

/// A thumbnail that is wanted.
struct clsEncargo {
    std::string strRuta;
    int intLado = 0; ///< side of the box in device pixels
    friend bool operator==(const clsEncargo &, const clsEncargo &) = default;
};

/// Makes thumbnails on worker threads, photos on all cores and videos beside them, so that a video
/// that takes its time holds no photo up. Belongs to the user-interface thread.
///
/// Memory: what was made is kept by path, time and size of the file and box, up to
/// lngMaximoGuardado bytes, besides what was last asked for.
class clsAlmacenMiniaturas : public QObject {
    Q_OBJECT
public:
    /// @param fFotograma makes the frames of videos; an empty one makes none.
    explicit clsAlmacenMiniaturas(clsFotograma fFotograma, QObject *padre = nullptr);
    ~clsAlmacenMiniaturas() override;

    /// What is wanted from now on, the most urgent first. Whatever else was wanted and is not made
    /// yet is dropped. fLlegada follows for each.
    void fEncargar(std::vector<clsEncargo> lstEncargos);
    /// What was made of an order of the last fEncargar; nothing when that is still to come. A video
    /// whose file was reached but whose frame is not made yet is "Pendiente".
    [[nodiscard]] std::optional<clsMiniatura> fTomar(const clsEncargo &encargo) const;

    static constexpr qint64 lngMaximoGuardado = qint64{192} << 20;

signals:
    /// Something that was wanted has been made, or could not be.
    void fLlegada();

private:
    std::atomic<bool> m_bolAvisado = false;
    clsHilos m_fotos;
    clsHilos m_videos;
    std::shared_ptr<clsTallerMiniaturas> m_taller;
};
