#pragma once

#include "shared/disco.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
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
    ~clsDescriptor();

    [[nodiscard]] int fFd() const { return m_intFd; }
    [[nodiscard]] bool fAbierto() const { return m_intFd >= 0; }
    /// Closes it and forgets it; 0, or the error number that close reported.
    int fCerrar();
    /// Forgets it without closing it; whoever asks closes it.
    [[nodiscard]] int fSoltar() { return std::exchange(m_intFd, -1); }

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

/// Calls a system call again as long as a signal interrupts it.
template <typename Llamada> auto fInsistir(const Llamada &fLlamar)
{
    auto lngResultado = fLlamar();
    while (lngResultado < 0 && errno == EINTR) {
        lngResultado = fLlamar();
    }
    return lngResultado;
}

/// Opens a regular file for reading. Pipes, sockets and devices are refused without waiting for
/// them (error EINVAL), folders with EISDIR.
/// @param intError set to the error number when the result is closed.
/// @param huella   set when the file was opened, may be null.
[[nodiscard]] clsDescriptor fAbrirRegular(const std::string &strRuta, int &intError,
                                          clsHuella *huella = nullptr);

/// Size and time of a regular file (links followed); nothing when there is none of that path.
/// @param intError set to the error number then (EINVAL: something else than a file), may be null.
[[nodiscard]] std::optional<clsHuella> fHuella(const std::string &strRuta, int *intError = nullptr);

/// Whether a regular file of that path exists (links followed).
[[nodiscard]] bool fExisteArchivo(const std::string &strRuta);

/// Whether a folder of that path exists (links followed).
[[nodiscard]] bool fExisteCarpeta(const std::string &strRuta);

/// Reads a regular file as a whole; nothing on any error, whose number goes to intError.
[[nodiscard]] std::optional<std::string> fLeerArchivo(const std::string &strRuta, int &intError);

/// Writes all bytes; 0 or the error number.
[[nodiscard]] int fEscribirTodo(int intFd, std::string_view strBytes,
                                const clsDisco &disco = discoReal);

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
