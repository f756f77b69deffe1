#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Replaces a file whole or not at all: the bytes go to a temporary file of the same folder, which
/// takes the final name only in fConfirmar. Without it the destructor deletes the temporary file.
class clsReemplazo {
public:
    /// Creates the temporary file; fError tells whether that worked. The permission bits are those
    /// of the file that is replaced, else the usual ones.
    /// @param disco must outlive it.
    /// @param modo  other permission bits for the new file, which the user's mask narrows.
    explicit clsReemplazo(std::string strRuta, const clsDisco &disco = discoReal,
                          std::optional<mode_t> modo = {});
    ~clsReemplazo();
    clsReemplazo(const clsReemplazo &) = delete;
    clsReemplazo &operator=(const clsReemplazo &) = delete;

    /// The first error number so far, 0 when all went well. After an error nothing more is written.
    [[nodiscard]] int fError() const { return m_intError; }
    void fEscribir(std::string_view strBytes);
    /// The temporary file, for those who fill it themselves; they check what they write, and do not
    /// confirm when that went wrong. -1 after an error, or when it is closed.
    [[nodiscard]] int fFd() const { return m_descriptor.fFd(); }
    /// Closes it without waiting for the disk, so that fConfirmar only renames; 0 or the error
    /// number. Only for content that also lies elsewhere.
    [[nodiscard]] int fCerrar();
    /// Flushes to the disk, so that only the renaming is left; 0 or the error number. Nothing more
    /// can be written then. For those who have something to do between the two; see fConfirmar.
    [[nodiscard]] int fVolcar();
    /// Flushes to the disk, if that is not done yet, and renames into place.
    /// @param bolCarpeta also flushes the folder, so that the new name survives a power cut.
    /// @return 0 or the error number. On an error the old file is untouched, unless only the
    ///         flush of the folder failed, after the new one had taken its place.
    [[nodiscard]] int fConfirmar(bool bolCarpeta);

    /// Whether a name is that of a temporary file of this class for a file of name strDestino.
    [[nodiscard]] static bool fEsTemporal(std::string_view strNombre, std::string_view strDestino);

private:
    void fDescartar();

    const clsDisco &m_disco;
    std::string m_strRuta;
    std::string m_strTemporal;
    clsDescriptor m_descriptor;
    int m_intError = 0;
    std::int64_t m_lngEscritos = 0;
    std::int64_t m_lngEnviados = 0;
};
