#pragma once

#include "sistema/archivo.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

/// Another program, run without a shell in a process group of its own. When the object goes, the
/// whole group is killed. Only this process is ever waited for, so nobody else's is disturbed.
class clsProceso {
public:
    clsProceso() = default;
    ~clsProceso();
    clsProceso(const clsProceso &) = delete;
    clsProceso &operator=(const clsProceso &) = delete;

    /// Starts it, with its messages thrown away and nothing else open. Kills the one that is still
    /// running.
    /// @param lstArgumentos the program (looked for in PATH when it has no "/") and its arguments.
    /// @param canal         what it gets as standard input and output, and then no environment; not
    ///                      open: nothing, and ours.
    /// @return whether it was started. One that cannot run may still end at once with code 127.
    [[nodiscard]] bool fIniciar(std::vector<std::string> lstArgumentos,
                                const clsDescriptor &canal = {});

    /// Whether it was started and its end was not seen yet.
    [[nodiscard]] bool fIniciado() const { return m_intNumero > 0; }

    /// Without waiting: its exit code, or minus the signal that ended it, once it has ended (what
    /// is left of its group is killed then); nothing while it runs or when there is none.
    [[nodiscard]] std::optional<int> fFin();

    /// Kills it and everything it has started in its group.
    void fMatar();

private:
    int m_intNumero = -1; ///< the system's for it
};

/// Processor time that the calling thread has taken.
[[nodiscard]] std::chrono::nanoseconds fProcesadorDelHilo();
