#pragma once

#include <cstddef>
#include <vector>

/// A part of a picture, in its pixels.
struct clsTesela {
    int intX = 0;
    int intY = 0;
    int intAncho = 0;
    int intAlto = 0;
    friend bool operator==(const clsTesela &, const clsTesela &) = default;
};

/// The squares of a picture in which something is done to it, each of them once.
class clsTeselas {
public:
    static constexpr int intLado = 256;

    /// @param intAncho, intAlto size of the picture in pixels.
    clsTeselas(int intAncho, int intAlto);
    /// The squares that a part of the picture touches and that were not given out before, cut at
    /// the picture's edges. The part may reach beyond them.
    [[nodiscard]] std::vector<clsTesela> fNuevas(const clsTesela &parte);
    /// Whether the square of a pixel was given out.
    [[nodiscard]] bool fDada(int intX, int intY) const { return m_lstDadas[fLugar(intX, intY)]; }

private:
    [[nodiscard]] std::size_t fLugar(int intX, int intY) const
    {
        return static_cast<std::size_t>(intY / intLado) * m_lngColumnas +
               static_cast<std::size_t>(intX / intLado);
    }

    int m_intAncho;
    int m_intAlto;
    std::size_t m_lngColumnas;
    std::vector<bool> m_lstDadas; ///< row by row
};
