#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// How long a picture of a slide show stays, in seconds, and what it begins with.
inline constexpr int lstSegundosPase[] = {3, 5, 10};
inline constexpr int intSegundosUsuales = 5;

/// One of them: that number, or the usual one when it is none of them.
[[nodiscard]] int fSegundosPase(int intSegundos);
/// The next one: above 0 longer, below 0 shorter; the same one at the ends.
[[nodiscard]] int fOtrosSegundos(int intSegundos, int intSentido);

/// How far a picture is.
enum class EstadoFoto { Pendiente, Lista, Falta };

/// A slide show: which of its pictures is shown, which comes next, and when. Pictures have places
/// from 0 on; behind the last comes the first. A step waits until its picture is there, so that
/// what is shown is always a picture; one that is missing, or does not come, is passed over.
class clsPase {
public:
    using Reloj = std::chrono::steady_clock;
    using Momento = Reloj::time_point;
    using clsEstadoDe = std::function<EstadoFoto(std::size_t lngLugar)>;
    /// So long a picture is waited for.
    static constexpr std::chrono::seconds paciencia{10};

    /// Begins with a step to a place.
    /// @param lngFotos there must be one.
    clsPase(std::size_t lngFotos, std::size_t lngLugar, int intSegundos, Momento ahora);

    /// The user steps: on above 0, back below.
    void fPaso(int intSentido, Momento ahora);
    /// Stops, or goes on: what is shown then stays for the whole time again.
    void fAlternar(Momento ahora);
    void fFijarSegundos(int intSegundos) { m_intSegundos = intSegundos; }

    /// Goes on as far as it can.
    /// @return the place that is to be shown from now on, if it is another one.
    std::optional<std::size_t> fSeguir(Momento ahora, const clsEstadoDe &fEstado);
    /// How long until there is something to do without anybody's doing; nothing: never.
    [[nodiscard]] std::optional<std::chrono::milliseconds> fFalta(Momento ahora) const;
    /// The places whose pictures are wanted: the one it waits for, or that is shown, first.
    [[nodiscard]] std::vector<std::size_t> fDeseadas() const;

    /// The place that is shown; nothing before the first.
    [[nodiscard]] std::optional<std::size_t> fVista() const { return m_lngVista; }
    [[nodiscard]] std::size_t fFotos() const { return m_lngFotos; }
    [[nodiscard]] bool fParado() const { return m_bolParado; }
    [[nodiscard]] int fSegundos() const { return m_intSegundos; }

private:
    [[nodiscard]] std::size_t fVecino(std::size_t lngLugar, int intSentido) const;
    void fQuerer(std::size_t lngLugar, Momento ahora);

    const std::size_t m_lngFotos;
    int m_intSegundos;
    bool m_bolParado = false;
    std::optional<std::size_t> m_lngVista;
    std::optional<std::size_t> m_lngQuerida; ///< a step to it is under way
    int m_intSentido = 1;                    ///< of that step
    std::size_t m_lngPasadas = 0;            ///< that it has passed over
    Momento m_desde;                         ///< since when what is shown is, or the step
};

/// The line below a picture (UTF-8): "14/07/2009 18:03:22 · 2009/Playa · 3 de 120".
struct clsPie {
    std::string strFecha;   ///< as the user reads it
    std::string strCarpeta; ///< below the root; may be empty
    bool bolVideo = false;
};
[[nodiscard]] std::string fTextoPie(const clsPie &pie, const clsPase &pase, std::size_t lngLugar);
