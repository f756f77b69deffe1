#pragma once

#include "sistema/archivo.h"
#include "sistema/proceso.h"
#include "viewer/mensaje_hijo.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

/// An image that a child has made, or why there is none.
struct clsCuadroHijo {
    enum class Fin {
        Imagen,
        SinImagen,   ///< no image comes out of this file
        NoSeLee,     ///< the file could not be opened, or is none
        Tarde,       ///< no answer within the time limit
        Agotado,     ///< the child gave the file up: it takes too much of the processors
        Roto,        ///< the child died or answered nonsense
        NoArranca,   ///< the child program is missing or cannot run
        SinEncierro, ///< this system cannot lock it in, so it decodes nothing
        Anulado      ///< no longer wanted
    };
    Fin fin = Fin::SinImagen;
    int intAncho = 0; ///< pixels; 0 without an image
    int intAlto = 0;
    std::vector<std::uint32_t> lstPuntos; ///< 0xffRRGGBB, row by row
    clsMedidaHijo natural{};              ///< of a picture
};

/// Whether the same request may end otherwise another time: a disk wakes up, memory is free again.
[[nodiscard]] bool fPasajero(clsCuadroHijo::Fin fin);

/// One of our child programs: started at the first request, kept for the next, killed when it
/// hangs, dies or answers nonsense. For one thread at a time.
class clsProgramaHijo {
public:
    using clsReloj = std::chrono::steady_clock;

    /// @param strPrograma path of the program.
    /// @param plazo       time for one file, from request to answer.
    clsProgramaHijo(std::string strPrograma, std::chrono::milliseconds plazo);

    /// Asks for a frame of a video, no larger than a box, and waits for it. The child gets the open
    /// file and nothing else.
    /// @param intLado    side of the box in pixels.
    /// @param bolAnulado looked at every few milliseconds; true ends the wait. The child then still
    ///                   owes an answer, which the next request throws away by its number.
    [[nodiscard]] clsCuadroHijo fPedir(const clsAbierto &video, int intLado,
                                       const std::atomic<bool> &bolAnulado);

    /// Asks for a picture, and waits for it likewise.
    /// @param cual  Imagen or Cruda.
    /// @param marco how large it may be; what is too large to ask for is brought within bounds.
    [[nodiscard]] clsCuadroHijo fPedirImagen(const clsAbierto &foto, PeticionHijo cual,
                                             clsMarcoHijo marco,
                                             const std::atomic<bool> &bolAnulado);

    /// Asks what a video says of its date, and waits for it likewise.
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
    /// What is asked for, and how large the answer may be.
    struct clsPregunta {
        PeticionHijo cual;
        clsMarcoHijo marco;
    };
    [[nodiscard]] bool fPreparar();
    [[nodiscard]] clsCuadroHijo fPreguntar(const clsAbierto &archivo, const clsPregunta &pregunta,
                                           const std::atomic<bool> &bolAnulado);
    [[nodiscard]] clsCuadroHijo fIntentar(const clsAbierto &archivo, const clsPregunta &pregunta,
                                          clsEspera espera);
    [[nodiscard]] clsCuadroHijo fRespuesta(const clsMarcoHijo &marco, clsEspera &espera);
    [[nodiscard]] clsCuadroHijo::Fin fEnviar(const clsPeticionHijo &peticion,
                                             const clsDescriptor &video,
                                             const clsEspera &espera) const;
    [[nodiscard]] clsCuadroHijo::Fin fRecibir(void *datos, std::size_t lngBytes,
                                              const clsEspera &espera,
                                              std::size_t &lngHechos) const;
    void fDerribar(clsCuadroHijo::Fin &fin);

    const std::string m_strPrograma;
    const std::chrono::milliseconds m_plazo;
    clsProceso m_proceso;
    clsDescriptor m_canal;
    std::uint32_t m_lngNumero = 0; ///< of the last request
    std::uint32_t m_lngVista = 0;  ///< of the last answer; the child owes those between the two
    clsReloj::time_point m_limite; ///< by when it has to have answered the first that it owes
    bool m_bolRecien = true;       ///< has not answered anything yet
};
