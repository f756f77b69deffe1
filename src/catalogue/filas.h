#pragma once

#include "shared/fecha.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// Field codes of a row.
enum class Campo { Ruta = 0, Nombre = 1, Fecha = 2, Tamano = 3, Carpeta = 4 };

/// A row that stays when others go.
struct clsConservada {
    int lngPos = 0;            ///< where it stands in the display order
    std::int64_t lngBytes = 0; ///< its file's size now; below 0: the row keeps date and size
    clsFecha fecha;            ///< and modification time
};

/// The list: one row per listed file, in display order, with its tick. It holds the file's name,
/// date, size and folder; about 60 bytes a row, since folders are shared and a date is a number. A
/// date text that is no date, or has another form than the catalogue's, stays a text besides.
///
/// Positions count from 0 in display order. Paths are bytes. Every change of which rows there are
/// or of their order raises fRevision.
class clsFilas {
public:
    [[nodiscard]] int fCantidad() const { return static_cast<int>(m_lstOrden.size()); }
    [[nodiscard]] bool fVacia() const { return m_lstOrden.empty(); }
    [[nodiscard]] std::uint64_t fRevision() const { return m_lngRevision; }

    /// The fields of a row; the position must be below fCantidad.
    [[nodiscard]] std::string_view fNombre(int lngPos) const
    {
        return fTextoNombre(fNumero(lngPos));
    }
    [[nodiscard]] std::string_view fCarpeta(int lngPos) const;
    [[nodiscard]] std::string fRuta(int lngPos) const;
    /// The path for whoever goes to the disk, or to another program, with it: empty, so that
    /// nothing is there, for a row that does not lie below the root.
    [[nodiscard]] std::string fRutaDisco(int lngPos) const;
    [[nodiscard]] std::string fFecha(int lngPos) const { return fTextoFecha(fNumero(lngPos)); }
    [[nodiscard]] std::int64_t fTamano(int lngPos) const { return fBytes(fNumero(lngPos)); }

    [[nodiscard]] bool fMarcada(int lngPos) const { return m_lstMarcas[fNumero(lngPos)]; }
    void fMarcar(int lngPos, bool bolMarca);
    [[nodiscard]] int fContarMarcados() const { return m_lngMarcados; }

    /// The last position whose full path is exactly this one; -1 when there is none.
    [[nodiscard]] int fBuscarRuta(std::string_view strRuta) const;

    /// The archive's root, with a trailing "/".
    void fFijarRaiz(std::string strRaiz) { m_strRaiz = std::move(strRaiz); }

    void fVaciar();
    /// Comes in the place of another list: with its root, and a revision that neither had.
    void fSuceder(const clsFilas &antes);
    /// Adds a row at the end. strRuta: full path; strFecha: date text as it stands; lngBytes: size.
    void fAgregarFila(std::string_view strRuta, std::string_view strFecha, std::int64_t lngBytes);
    /// Room for that many more rows and bytes of names, so that adding them moves nothing. Memory
    /// that stays unused costs nothing but addresses.
    void fReservar(std::size_t lngFilas, std::size_t lngBytesTexto);

    /// Keeps these rows only, in the order given, and clears every tick. No text is copied: those
    /// of the rows that go stay in memory until fVaciar.
    void fConservar(const std::vector<clsConservada> &lstConservadas);

    /// Fields of a row by its fixed number (order of adding).
    [[nodiscard]] std::int64_t fBytes(std::uint32_t lngFila) const
    {
        return m_lstFilas[lngFila].lngBytes;
    }
    /// The number of its folder, see fTextosCarpeta.
    [[nodiscard]] std::uint32_t fNumeroCarpeta(std::uint32_t lngFila) const
    {
        return m_lstCarpetaDe[lngFila];
    }
    /// What its date text means, blanks around it left out; datNinguna when that is no date.
    [[nodiscard]] clsFecha fDatFecha(std::uint32_t lngFila) const { return m_lstFechas[lngFila]; }
    static constexpr clsFecha datNinguna{INT64_MIN}; ///< earlier than every date
    /// Whether every date text is that of its date, so that texts order as the dates do.
    [[nodiscard]] bool fFechasExactas() const;
    [[nodiscard]] std::string_view fTextoNombre(std::uint32_t lngFila) const;
    [[nodiscard]] std::string fTextoFecha(std::uint32_t lngFila) const;
    [[nodiscard]] const std::vector<std::string> &fTextosCarpeta() const { return m_lstCarpetas; }
    [[nodiscard]] const std::vector<std::uint32_t> &fOrden() const { return m_lstOrden; }
    /// The position of a row by its number; -1 when there is no such row.
    [[nodiscard]] int fPosicion(std::uint32_t lngFila) const;
    /// Takes a new display order: a permutation of the row numbers.
    void fReordenar(std::vector<std::uint32_t> lstOrden);

private:
    struct clsFila {
        std::uint64_t lngTexto;      ///< where the name starts in m_strTextos
        std::int64_t lngBytes;       ///< size of the file
        std::uint32_t lngNombre;     ///< length of the name
        std::uint32_t lngTextoFecha; ///< length of the date text behind it; 0: that of the date
    };
    [[nodiscard]] std::uint32_t fNumero(int lngPos) const
    {
        return m_lstOrden[static_cast<std::size_t>(lngPos)];
    }
    std::uint32_t fAnotarCarpeta(std::string_view strCarpeta);

    std::string m_strRaiz;
    std::string m_strTextos;
    std::vector<clsFila> m_lstFilas;
    // Apart from the rest of a row, since a step can have to look at those of all rows at once.
    std::vector<std::uint32_t> m_lstCarpetaDe; ///< index into m_lstCarpetas
    std::vector<clsFecha> m_lstFechas;         ///< datNinguna where the text is no date
    std::vector<std::uint32_t> m_lstOrden;
    std::vector<bool> m_lstMarcas;
    int m_lngMarcados = 0; ///< every step asks for it
    std::vector<std::string> m_lstCarpetas;
    std::unordered_map<std::string, std::uint32_t> m_mapCarpetas;
    std::uint64_t m_lngRevision = 0;
};

/// A field of a row counted from 1, as the other windows read it; date and size without the blanks
/// around them. Empty for a row or a code that does not exist.
/// @param signos for the text of the size column.
[[nodiscard]] std::string fCampo(const clsFilas &filas, int lngFila, Campo campo,
                                 const struct clsSignos &signos);
