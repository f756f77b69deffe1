// A small generator of pseudo-random numbers (SplitMix64, public domain): the same everywhere.
#pragma once

#include <cstdint>
#include <string_view>

namespace demo {

class clsAzar {
public:
    /// The same text always gives the same numbers (its seed is FNV-1a).
    explicit clsAzar(std::string_view strTexto)
    {
        for (const char chrLetra : strTexto) {
            lngEstado = (lngEstado ^ static_cast<unsigned char>(chrLetra)) * 1099511628211ULL;
        }
    }

    /// Evenly between the two limits.
    double fEntre(double dblDesde, double dblHasta)
    {
        const double dblParte = static_cast<double>(fSiguiente() >> 11) / 9007199254740992.0;
        return dblDesde + (dblHasta - dblDesde) * dblParte;
    }

    /// A whole number, both limits included.
    int fEntero(int intDesde, int intHasta)
    {
        const auto lngCuantos = static_cast<std::uint64_t>(intHasta - intDesde + 1);
        return intDesde + static_cast<int>(fSiguiente() % lngCuantos);
    }

    bool fMoneda(double dblProbabilidad = 0.5) { return fEntre(0, 1) < dblProbabilidad; }

private:
    std::uint64_t fSiguiente()
    {
        lngEstado += 0x9E3779B97F4A7C15ULL;
        std::uint64_t lngZ = (lngEstado ^ (lngEstado >> 30)) * 0xBF58476D1CE4E5B9ULL;
        lngZ = (lngZ ^ (lngZ >> 27)) * 0x94D049BB133111EBULL;
        return lngZ ^ (lngZ >> 31);
    }

    std::uint64_t lngEstado = 14695981039346656037ULL;
};

} // namespace demo
