#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Replaces a file whole or not at all: the bytes go to a temporary file of the same folder, which
/// takes the final name only in fConfirmar. Without it the destructor deletes the temporary file.
class clsReemplazo {
public:
    /// Creates the temporary file; fError tells whether that worked. Group and permission bits are
    /// those of the file that is replaced, else the usual ones.
    explicit clsReemplazo(const std::string &strRuta);
    /// The same for bytes that come from the file that is replaced.
    /// @param viejo what that one was when it was opened (ENOENT: there was none): by now another
    ///        file may have its name, and more may be allowed to read that.
    clsReemplazo(std::string strRuta, const clsResultado<clsDatosArchivo> &viejo);
    /// @param permisos bits for the new file, which the user's mask narrows.
    clsReemplazo(std::string strRuta, unsigned permisos);
    ~clsReemplazo();
    clsReemplazo(const clsReemplazo &) = delete;
    clsReemplazo &operator=(const clsReemplazo &) = delete;

    /// The first error so far. After it nothing more is written.
    [[nodiscard]] clsError fError() const { return m_error; }
    /// Takes bytes, however few at a time: they go to the disk in large pieces, the last ones with
    /// fVolcar, fCerrar or fConfirmar.
    void fEscribir(std::string_view strBytes);
    /// The temporary file, for those who fill it themselves; they check what they write, and do not
    /// confirm when that went wrong. Not open after an error, or when it was closed.
    [[nodiscard]] const clsDescriptor &fDescriptor() const { return m_descriptor; }
    /// Closes it without waiting for the disk, so that fConfirmar only renames. Only for content
    /// that also lies elsewhere, or may be lost.
    [[nodiscard]] clsError fCerrar();
    /// Flushes to the disk, so that only closing and renaming are left. For those who have
    /// something to do before that; see fConfirmar.
    [[nodiscard]] clsError fVolcar();
    /// What is written next replaces what was written so far, in its room on the disk.
    void fEmpezar();
    /// Flushes to the disk, if that is not done yet, and renames into place.
    /// @param bolCarpeta also flushes the folder, so that the new name survives a power cut; when
    ///        that fails, the new file stands all the same, and it is no error.
    /// @return on an error the old file is untouched.
    [[nodiscard]] clsError fConfirmar(bool bolCarpeta);

    /// Whether a name is that of a temporary file of this class for a file of name strDestino.
    [[nodiscard]] static bool fEsTemporal(std::string_view strNombre, std::string_view strDestino);
    /// Whether it is, and the program that made it does not run on this machine any more.
    [[nodiscard]] static bool fEsResto(std::string_view strNombre, std::string_view strDestino);

private:
    void fCrear(unsigned permisos);
    void fVestir(const clsDatosArchivo &viejo);
    void fVaciar();
    void fDescartar();

    std::string m_strRuta;
    std::string m_strTemporal;
    clsDescriptor m_descriptor;
    clsError m_error;
    std::string m_strPendiente; ///< bytes that are still to be handed to the system
    std::int64_t m_lngEscritos = 0;
    std::int64_t m_lngEnviados = 0;
    std::int64_t m_lngLargo = 0; ///< bytes that were written before fEmpezar
    bool m_bolVolcado = false;   ///< nothing was written since it was flushed
};
