#pragma once

#include "sistema/disco.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
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
