#pragma once

#include "sistema/archivo.h"
#include "sistema/proceso.h"
#include "viewer/mensaje_hijo.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

/// A frame of a video, or why there is none.
struct clsCuadroVideo {
    enum class Fin {
        Imagen,
        SinImagen,   ///< no frame comes out of this file
        NoSeLee,     ///< the file could not be opened, or is none
        Tarde,       ///< no answer within the time limit
        Roto,        ///< the child died or answered nonsense
        NoArranca,   ///< the child program is missing or cannot run
        SinEncierro, ///< this system cannot lock it in, so it decodes nothing
        Anulado      ///< no longer wanted
    };
    Fin fin = Fin::SinImagen;
    int intAncho = 0; ///< pixels; 0 without an image
    int intAlto = 0;
    std::vector<std::uint32_t> lstPuntos; ///< 0xffRRGGBB, row by row
};

/// Our child program that takes frames of videos: started at the first request, kept for the next,
/// killed when it hangs, dies or answers nonsense. For one thread at a time.
class clsHijoVideo {
public:
    using clsReloj = std::chrono::steady_clock;

    /// @param strPrograma path of the program.
    /// @param plazo       time for one file, from request to answer.
    clsHijoVideo(std::string strPrograma, std::chrono::milliseconds plazo);

    /// Asks for a frame no larger than a box and waits for it. The child gets the open file and
    /// nothing else.
    /// @param intLado    side of the box in pixels, 1 to lngLadoMaximo.
    /// @param bolAnulado looked at every few milliseconds; true ends the wait. The child then still
    ///                   owes an answer, which the next request throws away by its number.
    [[nodiscard]] clsCuadroVideo fPedir(const clsAbierto &video, int intLado,
                                        const std::atomic<bool> &bolAnulado);

    /// Asks what the file says of its date, and waits for it likewise.
    /// @return lines "key=value", see fFechaDeVideo; empty when it says nothing, or cannot be read.
    [[nodiscard]] std::string fPedirFechas(const clsAbierto &video,
                                           const std::atomic<bool> &bolAnulado);

    /// Whether an answer that nobody wants any more is still to come.
    [[nodiscard]] bool fDebe() const { return m_lngVista != m_lngNumero; }

private:
    struct clsEspera {
        clsReloj::time_point limite;
        const std::atomic<bool> &bolAnulado;
    };
    /// What is asked for, and the side of the box that the answer must fit.
    struct clsPregunta {
        PeticionHijo cual;
        std::uint32_t lngLado;
    };
    [[nodiscard]] bool fPreparar();
    [[nodiscard]] clsCuadroVideo fPreguntar(const clsAbierto &video, clsPregunta pregunta,
                                            const std::atomic<bool> &bolAnulado);
    [[nodiscard]] clsCuadroVideo fIntentar(const clsAbierto &video, clsPregunta pregunta,
                                           clsEspera espera);
    [[nodiscard]] clsCuadroVideo fRespuesta(std::uint32_t lngLado, clsEspera &espera);
    [[nodiscard]] clsCuadroVideo::Fin fEnviar(const clsPeticionHijo &peticion,
                                              const clsDescriptor &video,
                                              const clsEspera &espera) const;
    [[nodiscard]] clsCuadroVideo::Fin fRecibir(void *datos, std::size_t lngBytes,
                                               const clsEspera &espera,
                                               std::size_t &lngHechos) const;
    void fDerribar(clsCuadroVideo::Fin &fin);

    const std::string m_strPrograma;
    const std::chrono::milliseconds m_plazo;
    clsProceso m_proceso;
    clsDescriptor m_canal;
    std::uint32_t m_lngNumero = 0; ///< of the last request
    std::uint32_t m_lngVista = 0;  ///< of the last answer; the child owes those between the two
    clsReloj::time_point m_limite; ///< by when it has to have answered the first that it owes
    bool m_bolRecien = true;       ///< has not answered anything yet
};
