#pragma once

#include <QColorSpace>
#include <QColorTransform>
#include <QRgb>

#include <array>
#include <memory>
#include <span>

/// From the values of a colour space to those of the screen, for pixels of 8 bits a colour. Light
/// adds up: what each value of red, green and blue gives is looked up, three sums in one number.
/// QImage's own conversion takes more than twice as long, and threads that are not ours.
class clsConversion {
public:
    explicit clsConversion(const QColorSpace &espacio);
    [[nodiscard]] const QColorSpace &fEspacio() const { return m_espacio; }
    /// Whether light adds up in that space, and stays within bounds.
    [[nodiscard]] bool fVale() const { return m_bolVale; }
    /// @param lstPuntos pixels of the format RGB32.
    void fConvertir(std::span<QRgb> lstPuntos) const;

    using clsLuz = std::array<float, 3>; ///< red, green, blue; 1 is white

private:
    [[nodiscard]] clsLuz fLuz(const clsLuz &valores) const;
    [[nodiscard]] bool fLlenar();
    [[nodiscard]] bool fSuma() const;

    const QColorSpace m_espacio;
    const QColorTransform m_aLuz;
    std::array<std::array<quint64, 256>, 3> m_lstSumandos{};
    const bool m_bolVale;
};

/// The conversion from a space. The last one is kept: the photos of a folder mostly have the same.
/// Safe on several threads.
[[nodiscard]] std::shared_ptr<const clsConversion> fConversion(const QColorSpace &espacio);
