#include "soporte/proceso.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

clsHijo::clsHijo(const std::function<void()> &fComprobar)
{
    std::fflush(nullptr);
    m_pid = fork();
    if (m_pid == 0) {
        fComprobar();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
}

clsHijo::~clsHijo()
{
    if (m_pid > 0) {
        fMatar();
        fEsperar();
    }
}

void clsHijo::fMatar() const { kill(m_pid, SIGKILL); }

int clsHijo::fEsperar()
{
    int intEstado = 0;
    pid_t pid = -1;
    do {
        pid = waitpid(m_pid, &intEstado, 0);
    } while (pid < 0 && errno == EINTR);
    m_pid = -1;
    if (pid < 0) {
        return -1;
    }
    return WIFEXITED(intEstado) ? WEXITSTATUS(intEstado) : -WTERMSIG(intEstado);
}

int fEnHijo(const std::function<void()> &fComprobar) { return clsHijo(fComprobar).fEsperar(); }

bool fSoltarRaiz()
{
    constexpr uid_t lngNadie = 65534;
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setresgid(lngNadie, lngNadie, lngNadie) == 0 &&
            setresuid(lngNadie, lngNadie, lngNadie) == 0);
}
