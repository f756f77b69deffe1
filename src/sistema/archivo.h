#pragma once

#include "sistema/resultado.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// An open file or folder; closed when it goes out of scope. -1 holds nothing.
class clsDescriptor {
public:
    clsDescriptor() = default;
    explicit clsDescriptor(int intFd) : m_intFd(intFd) {}
    clsDescriptor(clsDescriptor &&otro) noexcept : m_intFd(std::exchange(otro.m_intFd, -1)) {}
    clsDescriptor &operator=(clsDescriptor &&otro) noexcept
    {
        std::swap(m_intFd, otro.m_intFd);
        return *this;
    }
    clsDescriptor(const clsDescriptor &) = delete;
    clsDescriptor &operator=(const clsDescriptor &) = delete;
    ~clsDescriptor() { fCerrar(); }

    [[nodiscard]] int fFd() const { return m_intFd; }
    [[nodiscard]] bool fAbierto() const { return m_intFd >= 0; }
    /// Closes it and forgets it; what closing reported.
    clsError fCerrar();

private:
    int m_intFd = -1;
};

/// What identifies the content of a regular file without reading it.
struct clsHuella {
    std::int64_t lngBytes = 0;
    std::int64_t lngSegundos = 0; ///< modification time since 1970
    long lngNanosegundos = 0;     ///< and the rest of it
    friend bool operator==(const clsHuella &, const clsHuella &) = default;
};

/// Which file it is, whatever it is called: its disk and its number there.
struct clsIdentidad {
    std::uint64_t lngDisco = 0;
    std::uint64_t lngNumero = 0;
    friend auto operator<=>(const clsIdentidad &, const clsIdentidad &) = default;
};

enum class TipoArchivo { Archivo, Carpeta, Enlace, Otro };

/// What the system knows of a file, a folder, or whatever else has a name.
struct clsDatosArchivo {
    TipoArchivo tipo = TipoArchivo::Otro;
    clsHuella huella;
    clsIdentidad identidad;
    unsigned lngPermisos = 0;     ///< the twelve bits
    unsigned lngDueno = 0;        ///< number of the user it belongs to
    unsigned lngGrupo = 0;        ///< and of the group
    std::int64_t lngOcupados = 0; ///< bytes it takes on the disk
    std::uint64_t lngNombres = 0; ///< names it has there
};

/// @param bolSeguir of a link: tells of what it leads to.
[[nodiscard]] clsResultado<clsDatosArchivo> fConsultar(const std::string &strRuta,
                                                       bool bolSeguir = true);
[[nodiscard]] clsResultado<clsDatosArchivo> fConsultar(const clsDescriptor &abierto);
/// The same of a name in an open folder.
[[nodiscard]] clsResultado<clsDatosArchivo>
fConsultarEn(const clsDescriptor &carpeta, const std::string &strNombre, bool bolSeguir);

/// Size and time of a regular file. EINVAL: something else has that path.
[[nodiscard]] clsResultado<clsHuella> fHuella(const std::string &strRuta, bool bolSeguir = true);

/// Whether a regular file of that path exists (links followed).
[[nodiscard]] bool fExisteArchivo(const std::string &strRuta);

/// Whether a folder of that path exists (links followed).
[[nodiscard]] bool fExisteCarpeta(const std::string &strRuta);

/// Whether there is a program of that path that the user may run.
[[nodiscard]] bool fEjecutable(const std::string &strRuta);

/// The path without links; empty when it leads nowhere.
[[nodiscard]] std::string fRutaReal(const std::string &strRuta);

/// A file open for reading.
struct clsAbierto {
    clsDescriptor descriptor;
    clsHuella huella;
};

/// Opens a regular file for reading. Pipes, sockets and devices are refused without waiting for
/// them (EINVAL), folders with EISDIR.
/// @param bolSeguir false: a link counts as absent (ENOENT). For the program's own files, in whose
///        folder others may put a link to what only this user may read.
[[nodiscard]] clsResultado<clsAbierto> fAbrirRegular(const std::string &strRuta,
                                                     bool bolSeguir = true);

/// Reads on from where the file stands; 0 bytes: its end.
[[nodiscard]] clsResultado<std::size_t> fLeer(const clsDescriptor &abierto, void *bytDatos,
                                              std::size_t lngBytes);
/// Reads from a position (not negative) and leaves alone where the file stands.
[[nodiscard]] clsResultado<std::size_t> fLeerEn(const clsDescriptor &abierto, std::int64_t lngPos,
                                                void *bytDatos, std::size_t lngBytes);

/// Tells the system that an open file is going to be read from its beginning to its end, so that it
/// reads ahead.
void fAnunciarLectura(const clsDescriptor &abierto);

/// Reads a regular file as a whole. EFBIG: it is longer than a mebibyte.
[[nodiscard]] clsResultado<std::string> fLeerArchivo(const std::string &strRuta);
[[nodiscard]] clsResultado<std::string> fLeerArchivo(const clsAbierto &archivo);

/// Writes all bytes.
[[nodiscard]] clsError fEscribirTodo(const clsDescriptor &abierto, std::string_view strBytes);

/// Makes an empty file; EEXIST when anything has that path.
clsError fCrearVacio(const std::string &strRuta);

/// Tries whether a file can be made there; it is deleted again. EEXIST: what has that path stays.
[[nodiscard]] clsError fProbarCrear(const std::string &strRuta);

/// Deletes a file or a link.
clsError fBorrar(const std::string &strRuta);
