#pragma once

#include "shared/fecha.h"
#include "sistema/archivo.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The catalogue file `Miravel.dat`, as its writer makes it and its readers expect it:
///
/// Plain bytes, one value a line, every line ended by CR LF; no header, no count, no trailer. A
/// file of the archive is three lines:
///   1. its full path, byte by byte as the disk gave it (CR and LF in it as "?");
///   2. its modification time in local time, "yyyy/MM/dd HH:mm:ss";
///   3. its length in bytes, decimal, with one blank before and one behind.
/// Order is that of the folder walk: a folder's files as the file system lists them, then each of
/// its subfolders with everything below it. Every file is recorded, hidden or not, media or not.
inline constexpr std::string_view strFicheroCatalogo = "Miravel.dat";

/// Appends the three lines of one file.
void fAnadirRegistro(std::string &strCatalogo, std::string_view strCarpeta,
                     std::string_view strNombre, clsFecha fecha, std::int64_t lngBytes);

/// One line as it stands in a catalogue.
struct clsLinea {
    std::string_view strTexto; ///< without its end
    std::string_view strFin;   ///< CR LF, LF; at the end of the file CR or nothing, too
};

/// The lines of one record. Records are told apart by counting lines, nothing is validated.
struct clsRegistro {
    std::array<clsLinea, 3> lstLineas;
    std::size_t lngLineas = 0; ///< fewer than three at the end of a cut catalogue
    std::string_view strBytes; ///< all of them, byte by byte
};

/// Where the bytes of a catalogue come from: fills in at most that many; how many there were, 0 at
/// the end.
using clsSurtidor =
    std::function<clsResultado<std::size_t>(char *chrDestino, std::size_t lngBytes)>;

/// The bytes of an open file, which has to stay open.
[[nodiscard]] clsSurtidor fBytesDe(const clsDescriptor &archivo);

/// The records of a catalogue one after the other. It is never in memory as a whole: a mebibyte of
/// zero bytes, as holes of a file have them, or a record of more than 16 MiB ends it with EBADMSG.
class clsRegistros {
public:
    /// @param lngBloque bytes read at a time, at least; as many as stay in the processor's cache.
    explicit clsRegistros(clsSurtidor fSurtir, std::size_t lngBloque = 1 << 18)
        : m_fSurtir(std::move(fSurtir)), m_lstBloque(lngBloque)
    {
    }
    /// The next record, whose texts live until the next call; none at the end and after an error.
    [[nodiscard]] const clsRegistro *fSiguiente();
    /// The error that ended the records, if one did.
    [[nodiscard]] clsError fError() const { return m_error; }

private:
    [[nodiscard]] bool fCortar();
    void fRellenar();

    clsSurtidor m_fSurtir;
    std::vector<char> m_lstBloque; ///< what is not read yet lies from m_lngDesde to m_lngHasta
    std::size_t m_lngDesde = 0;
    std::size_t m_lngHasta = 0;
    bool m_bolFin = false; ///< nothing follows what is in the block
    clsError m_error;
    clsRegistro m_registro;
};
