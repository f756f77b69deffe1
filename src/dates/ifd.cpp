#include "dates/ifd.h"

#include "dates/valor.h"

#include <algorithm>
#include <set>

namespace {

constexpr std::uint32_t lngPunteroExif = 0x8769;
constexpr std::size_t lngBytesEntrada = 12;

class clsPaseo {
public:
    clsPaseo(const clsDatosTiff &tiff, const std::function<bool(const clsEntradaIfd &)> &fVisitar)
        : m_tiff(tiff), m_fVisitar(fVisitar)
    {
    }

    void fUno(std::uint32_t lngIfd) { fIfd(lngIfd, nullptr); }

    void fTodo(std::uint32_t lngIfd0, const std::function<bool()> &fMas)
    {
        std::uint32_t lngExif = 0;
        std::uint32_t lngEnlace = fIfd(lngIfd0, &lngExif);
        fIfd(lngExif, nullptr);
        while (lngEnlace != 0 && !m_bolFin && (!fMas || fMas())) {
            lngEnlace = fIfd(lngEnlace, nullptr);
        }
    }

private:
    /// TIFF 6.0, section 2: number of entries, the entries, offset of the next IFD.
    /// @param lngExif takes the offset of the Exif IFD, null where it is not looked for.
    /// @return offset of the next IFD; 0 ends the walk.
    std::uint32_t fIfd(std::uint32_t lngIfd, std::uint32_t *lngExif)
    {
        const std::int64_t lngPos = m_tiff.lngInicio + lngIfd;
        if (m_bolFin || lngIfd == 0 || lngPos >= m_tiff.lector.fTamano() ||
            m_lstIfds.size() >= std::size_t{intMaximoIfds} || !m_lstIfds.insert(lngIfd).second) {
            return 0;
        }
        const std::size_t lngEntradas = fCorto(m_tiff.lector.fMirar(lngPos, 2), m_tiff.orden);
        const std::size_t lngBytes = lngEntradas * lngBytesEntrada;
        // The entries together with the link, which stands behind them.
        const std::string strTodo = m_tiff.lector.fCopiar(lngPos + 2, lngBytes + 4);
        const std::string_view strBytes = strTodo;
        const std::size_t lngEnteras = std::min(lngEntradas, strBytes.size() / lngBytesEntrada);
        for (std::size_t lng = 0; lng < lngEnteras && !m_bolFin; ++lng) {
            const std::size_t lngDesde = lng * lngBytesEntrada;
            fEntrada(strBytes.substr(lngDesde, lngBytesEntrada), static_cast<int>(lngDesde + 2),
                     lngExif);
        }
        return fLargo(strBytes.substr(std::min(strBytes.size(), lngBytes)), m_tiff.orden);
    }

    void fEntrada(std::string_view strBytes, int intPosicion, std::uint32_t *lngExif)
    {
        const clsEntradaIfd entrada{
            fCorto(strBytes, m_tiff.orden), fCorto(strBytes.substr(2), m_tiff.orden),
            fLargo(strBytes.substr(4), m_tiff.orden), strBytes.substr(8), intPosicion};
        m_bolFin = !m_fVisitar(entrada) || ++m_intFilas >= intMaximoFilas;
        if (lngExif != nullptr && entrada.lngCodigo == lngPunteroExif) {
            *lngExif = fPrimerNumero(m_tiff, entrada).value_or(*lngExif);
        }
    }

    const clsDatosTiff &m_tiff;
    const std::function<bool(const clsEntradaIfd &)> &m_fVisitar;
    std::set<std::uint32_t> m_lstIfds;
    int m_intFilas = 0;
    bool m_bolFin = false;
};

} // namespace

void fRecorrerIfds(const clsDatosTiff &tiff, std::uint32_t lngIfd0,
                   const std::function<bool(const clsEntradaIfd &)> &fVisitar,
                   const std::function<bool()> &fMas)
{
    clsPaseo(tiff, fVisitar).fTodo(lngIfd0, fMas);
}

void fRecorrerIfd(const clsDatosTiff &tiff, std::uint32_t lngIfd,
                  const std::function<bool(const clsEntradaIfd &)> &fVisitar)
{
    clsPaseo(tiff, fVisitar).fUno(lngIfd);
}
