#pragma once

#include "dates/cabecera.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// TIFF data made entry by entry: IFD0 first, then fExif and fIfd start the next ones. The IFDs
/// follow each other from offset 8 on, each with its long values behind it.
class clsTiff {
public:
    explicit clsTiff(Orden orden) : m_orden(orden), m_lstIfds(1) {}

    /// An entry with any type and count; bytes that fit lie in it, others behind the IFD.
    clsTiff &fEntrada(unsigned intCodigo, unsigned intTipo, std::uint32_t lngCuenta,
                      std::string_view strBytes)
    {
        m_lstIfds.back().lstEntradas.push_back(
            {intCodigo, intTipo, lngCuenta, std::string(strBytes)});
        return *this;
    }
    clsTiff &fCorto(unsigned intCodigo, unsigned intValor)
    {
        return fEntrada(intCodigo, 3, 1, fNumero(intValor, 2));
    }
    clsTiff &fLargo(unsigned intCodigo, std::uint32_t lngValor)
    {
        return fEntrada(intCodigo, 4, 1, fNumero(lngValor, 4));
    }
    /// A text as it stands, with the zero bytes it needs.
    clsTiff &fTexto(unsigned intCodigo, std::string_view strTexto)
    {
        return fEntrada(intCodigo, 2, static_cast<std::uint32_t>(strTexto.size()), strTexto);
    }
    /// Starts the Exif IFD; IFD0 gets its pointer.
    clsTiff &fExif()
    {
        fLargo(0x8769, 0);
        m_lstIfds.push_back({{}, {}, true});
        return *this;
    }
    clsTiff &fIfd()
    {
        m_lstIfds.emplace_back();
        return *this;
    }
    /// The present IFD's link, instead of the right one.
    clsTiff &fEnlace(std::uint32_t lngIfd)
    {
        m_lstIfds.back().lngEnlace = lngIfd;
        return *this;
    }

    [[nodiscard]] std::string fNumero(std::uint32_t lngValor, unsigned intBytes) const
    {
        std::string strBytes;
        for (unsigned intCual = 0; intCual < intBytes; ++intCual) {
            const unsigned intLugar = m_orden == Orden::II ? intCual : intBytes - 1 - intCual;
            strBytes += static_cast<char>(lngValor >> (8 * intLugar) & 0xFF);
        }
        return strBytes;
    }

    [[nodiscard]] std::string fHacer() const
    {
        std::string strTiff = m_orden == Orden::II ? "II" : "MM";
        strTiff += fNumero(42, 2) + fNumero(8, 4);
        for (std::size_t lngIfd = 0; lngIfd < m_lstIfds.size(); ++lngIfd) {
            fAnadir(strTiff, lngIfd);
        }
        return strTiff;
    }

private:
    struct clsEntrada {
        unsigned intCodigo;
        unsigned intTipo;
        std::uint32_t lngCuenta;
        std::string strBytes;
    };
    struct clsIfd {
        std::vector<clsEntrada> lstEntradas;
        std::optional<std::uint32_t> lngEnlace;
        bool bolExif = false;
    };

    [[nodiscard]] std::size_t fLugar(std::size_t lngIfd) const
    {
        std::size_t lngLugar = 8;
        for (std::size_t lng = 0; lng < lngIfd; ++lng) {
            lngLugar += 6;
            for (const clsEntrada &entrada : m_lstIfds[lng].lstEntradas) {
                lngLugar += 12 + (entrada.strBytes.size() > 4 ? entrada.strBytes.size() : 0);
            }
        }
        return lngLugar;
    }
    [[nodiscard]] std::uint32_t fSiguiente(std::size_t lngIfd, bool bolExif) const
    {
        for (std::size_t lng = lngIfd + 1; lng < m_lstIfds.size(); ++lng) {
            if (m_lstIfds[lng].bolExif == bolExif) {
                return static_cast<std::uint32_t>(fLugar(lng));
            }
        }
        return 0;
    }
    void fAnadir(std::string &strTiff, std::size_t lngIfd) const
    {
        const clsIfd &ifd = m_lstIfds[lngIfd];
        std::string strLargos;
        const std::size_t lngDetras = strTiff.size() + 6 + 12 * ifd.lstEntradas.size();
        strTiff += fNumero(static_cast<std::uint32_t>(ifd.lstEntradas.size()), 2);
        for (const clsEntrada &entrada : ifd.lstEntradas) {
            std::string strCampo = entrada.strBytes;
            if (entrada.intCodigo == 0x8769 && fSiguiente(lngIfd, true) != 0) {
                strCampo = fNumero(fSiguiente(lngIfd, true), 4);
            } else if (strCampo.size() > 4) {
                strCampo = fNumero(static_cast<std::uint32_t>(lngDetras + strLargos.size()), 4);
                strLargos += entrada.strBytes;
            }
            strCampo.resize(4);
            strTiff += fNumero(entrada.intCodigo, 2) + fNumero(entrada.intTipo, 2) +
                       fNumero(entrada.lngCuenta, 4) + strCampo;
        }
        const std::uint32_t lngNatural = ifd.bolExif ? 0 : fSiguiente(lngIfd, false);
        strTiff += fNumero(ifd.lngEnlace.value_or(lngNatural), 4) + strLargos;
    }

    Orden m_orden;
    std::vector<clsIfd> m_lstIfds;
};

/// A segment of a JPEG file: marker, length, content.
inline std::string fSegmento(char chrMarca, std::string_view strContenido)
{
    const std::size_t lngLargo = strContenido.size() + 2;
    return std::string{'\xFF', chrMarca, static_cast<char>(lngLargo >> 8 & 0xFF),
                       static_cast<char>(lngLargo & 0xFF)} +
           std::string(strContenido);
}

inline std::string fSegmentoExif(std::string_view strTiff)
{
    return fSegmento('\xE1', std::string("Exif\0\0", 6) + std::string(strTiff));
}

/// A JPEG file of those segments, with a start of scan and some picture data behind them.
inline std::string fJpeg(std::string_view strSegmentos)
{
    return "\xFF\xD8" + std::string(strSegmentos) + "\xFF\xDA....\xFF\xD9";
}

/// A photo taken at that moment.
inline std::string fFoto(std::string_view strTomada, Orden orden = Orden::II)
{
    return fJpeg(fSegmentoExif(clsTiff(orden).fExif().fTexto(0x9003, strTomada).fHacer()));
}
