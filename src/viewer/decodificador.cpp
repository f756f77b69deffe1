#include "viewer/decodificador.h"

#include "dates/origen.h"
#include "sistema/proceso.h"
#include "viewer/cabecera_jpeg.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace {

/// Processor time a picture may take: 100 megapixels take less, and have a file of many megabytes.
std::chrono::nanoseconds fPlazo(qint64 lngBytes)
{
    return std::chrono::milliseconds(2000 + lngBytes / 25000);
}

/// Bytes of an open file that come to an end when the picture is no longer wanted, or when decoding
/// it has taken too much processor time of its thread.
class clsArchivoAnulable : public QFile, public clsOrigen {
public:
    clsArchivoAnulable(const clsAbierto &abierto, const std::atomic<bool> &bolAnulado)
        : m_bolAnulado(bolAnulado), m_origen(abierto),
          m_limite(fProcesadorDelHilo() + fPlazo(abierto.huella.lngBytes))
    {
        open(abierto.descriptor.fFd(), QIODevice::ReadOnly);
    }
    [[nodiscard]] bool fParado()
    {
        m_bolParado = m_bolParado || m_bolAnulado || fProcesadorDelHilo() > m_limite;
        return m_bolParado;
    }
    [[nodiscard]] const std::atomic<bool> &fAnulado() const { return m_bolAnulado; }
    [[nodiscard]] std::int64_t fTamano() const override { return m_origen.fTamano(); }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override
    {
        return fParado() ? 0 : m_origen.fLeer(lngPos, chrDestino, lngBytes);
    }

protected:
    qint64 readData(char *chrDatos, qint64 lngMaximo) override
    {
        return fParado() ? -1 : QFile::readData(chrDatos, lngMaximo);
    }

private:
    const std::atomic<bool> &m_bolAnulado;
    clsOrigenArchivo m_origen;
    const std::chrono::nanoseconds m_limite;
    bool m_bolParado = false;
};

/// A share of the memory for pictures under way, for as long as it lives.
class clsReserva {
public:
    /// Waits until there is so much.
    clsReserva(qint64 lngBytes, const std::atomic<bool> &bolAnulado) : m_lngBytes(lngBytes)
    {
        constexpr std::chrono::milliseconds turno{20};
        clsCaja &caja = fCaja();
        std::unique_lock guarda(caja.cerrojo);
        while (!bolAnulado && caja.lngLibres < lngBytes) {
            caja.hayMas.wait_for(guarda, turno);
        }
        caja.lngLibres -= lngBytes;
    }
    ~clsReserva()
    {
        clsCaja &caja = fCaja();
        const std::lock_guard guarda(caja.cerrojo);
        caja.lngLibres += m_lngBytes;
        caja.hayMas.notify_all();
    }
    clsReserva(const clsReserva &) = delete;
    clsReserva &operator=(const clsReserva &) = delete;

private:
    struct clsCaja {
        std::mutex cerrojo;
        std::condition_variable hayMas;
        qint64 lngLibres = lngMaximoEnMarcha;
    };
    static clsCaja &fCaja()
    {
        static auto *const caja = new clsCaja; // threads may outlive the end of main()
        return *caja;
    }
    const qint64 m_lngBytes;
};

qint64 fPixeles(QSize tam) { return qint64{tam.width()} * tam.height(); }

} // namespace

class clsDecodificador::clsLectura {
public:
    clsLectura(const clsAbierto &abierto, const std::atomic<bool> &bolAnulado)
        : archivo(abierto, bolAnulado), lector(&archivo, "jpeg")
    {
        // Whatever else it is, nothing is loaded for it here.
        lector.setAutoDetectImageFormat(false);
        if (lector.canRead()) {
            fMedir(abierto.huella.lngBytes);
        }
    }

    /// The most that decoding it takes besides what comes out, where that is bounded.
    void fMedir(qint64 lngBytes)
    {
        clsLector bytes(archivo);
        // Before anything else: the size alone makes the decoder read all that stands before.
        const auto esfuerzo = fMedirJpeg(bytes);
        if (!esfuerzo || !fDecodificable(*esfuerzo, lngBytes)) {
            return;
        }
        lngFijos = esfuerzo->lngCoeficientes;
        if (lngFijos < lngMaximoEnMarcha) {
            tam = lector.size();
        }
    }

    /// Copies of the pixels while they are turned upright.
    [[nodiscard]] int fCopias() const
    {
        return lector.transformation() == QImageIOHandler::TransformationNone ? 1 : 2;
    }

    clsArchivoAnulable archivo;
    QImageReader lector;
    QSize tam;
    qint64 lngFijos = 0;
};

clsDecodificador::clsDecodificador(const clsAbierto &abierto, const std::atomic<bool> &bolAnulado)
    : m_lectura(std::make_unique<clsLectura>(abierto, bolAnulado))
{
}

clsDecodificador::~clsDecodificador() = default;

QSize clsDecodificador::fTam() const { return m_lectura->tam; }

bool clsDecodificador::fGirada() const
{
    return m_lectura->lector.transformation() & QImageIOHandler::TransformationRotate90;
}

qint64 clsDecodificador::fSitio() const
{
    return (lngMaximoEnMarcha - m_lectura->lngFijos) / m_lectura->fCopias();
}

QImage clsDecodificador::fLeer(QSize tam)
{
    clsLectura &lectura = *m_lectura;
    // The JPEG decoder itself goes down to one eighth.
    const qint64 lngPixeles = std::max(fPixeles(tam), fPixeles(lectura.tam) / 64);
    if (lngPixeles * 4 > fSitio()) {
        return {};
    }
    const clsReserva reserva(lectura.lngFijos + lngPixeles * 4 * lectura.fCopias(),
                             lectura.archivo.fAnulado());
    if (lectura.archivo.fParado()) {
        return {};
    }
    if (tam != lectura.tam) {
        lectura.lector.setScaledSize(tam);
    }
    lectura.lector.setAutoTransform(true);
    QImage imagen = lectura.lector.read();
    // What ended too early is grey from there on.
    return lectura.archivo.fParado() ? QImage() : imagen;
}

bool clsDecodificador::fFalloDisco() const
{
    return m_lectura->archivo.error() == QFileDevice::ReadError && !m_lectura->archivo.fParado();
}
