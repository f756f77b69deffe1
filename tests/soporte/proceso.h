#pragma once

#include <functional>
#include <sys/types.h>

/// A child process that runs a check of its own; killed when it is still there at the end.
class clsHijo {
public:
    /// The child's exit code is 0 when none of the EXPECT_ in fComprobar failed.
    explicit clsHijo(const std::function<void()> &fComprobar);
    ~clsHijo();
    clsHijo(const clsHijo &) = delete;
    clsHijo &operator=(const clsHijo &) = delete;

    void fMatar() const;
    /// Waits for the end; the exit code, or minus the signal that ended it.
    int fEsperar();

private:
    pid_t m_pid = -1;
};

/// Runs a check in a child process; 0 when nothing in it failed.
[[nodiscard]] int fEnHijo(const std::function<void()> &fComprobar);

/// Gives up the rights of root, for whom permission bits do not hold. Whether that worked; true
/// when there were none. For child processes only.
[[nodiscard]] bool fSoltarRaiz();
