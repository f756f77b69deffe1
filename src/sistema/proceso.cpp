#include "sistema/proceso.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

/// The two structures that tell posix_spawn how.
class clsModo {
public:
    explicit clsModo(int intCanal) : m_bolConCanal(intCanal >= 0)
    {
        posix_spawn_file_actions_init(&m_acciones);
        posix_spawnattr_init(&m_rasgos);
        // Handing over to a number of its own is what takes the close-on-exec flag away.
        if (m_bolConCanal) {
            posix_spawn_file_actions_adddup2(&m_acciones, intCanal, STDIN_FILENO);
            posix_spawn_file_actions_adddup2(&m_acciones, intCanal, STDOUT_FILENO);
        } else {
            fNada(STDIN_FILENO);
            fNada(STDOUT_FILENO);
        }
        fNada(STDERR_FILENO);
        // Whoever started this program may have left something open, and so may a library.
        posix_spawn_file_actions_addclosefrom_np(&m_acciones, STDERR_FILENO + 1);
        // It starts with the usual signals, whatever this program ignores or blocks.
        sigset_t lstSenales;
        sigemptyset(&lstSenales);
        posix_spawnattr_setsigmask(&m_rasgos, &lstSenales);
        sigaddset(&lstSenales, SIGPIPE);
        sigaddset(&lstSenales, SIGCHLD);
        posix_spawnattr_setsigdefault(&m_rasgos, &lstSenales);
        posix_spawnattr_setpgroup(&m_rasgos, 0);
        posix_spawnattr_setflags(&m_rasgos, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF |
                                                POSIX_SPAWN_SETSIGMASK);
    }
    ~clsModo()
    {
        posix_spawn_file_actions_destroy(&m_acciones);
        posix_spawnattr_destroy(&m_rasgos);
    }
    clsModo(const clsModo &) = delete;
    clsModo &operator=(const clsModo &) = delete;

    [[nodiscard]] pid_t fIniciar(char *const *lstArgumentos) const
    {
        pid_t pid = -1;
        char *const lstSinEntorno[] = {nullptr};
        const int intError = posix_spawnp(&pid, lstArgumentos[0], &m_acciones, &m_rasgos,
                                          lstArgumentos, m_bolConCanal ? lstSinEntorno : environ);
        return intError == 0 ? pid : -1;
    }

private:
    void fNada(int intFd)
    {
        posix_spawn_file_actions_addopen(&m_acciones, intFd, "/dev/null", O_RDWR, 0);
    }

    const bool m_bolConCanal;
    posix_spawn_file_actions_t m_acciones{};
    posix_spawnattr_t m_rasgos{};
};

void fRecoger(pid_t pid)
{
    while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Of a child that hangs in the kernel, over a disk that does not answer. Nobody waits for that;
/// its end is taken note of when the next one hangs.
void fRecogerLuego(pid_t pid)
{
    static std::mutex cerrojo;
    static std::vector<pid_t> lstColgados;
    const std::lock_guard guarda(cerrojo);
    lstColgados.push_back(pid);
    std::erase_if(lstColgados, [](pid_t otro) { return waitpid(otro, nullptr, WNOHANG) != 0; });
}

} // namespace

clsProceso::~clsProceso() { fMatar(); }

bool clsProceso::fIniciar(std::vector<std::string> lstArgumentos, const clsDescriptor &canal)
{
    fMatar();
    std::vector<char *> lstPunteros;
    lstPunteros.reserve(lstArgumentos.size() + 1);
    for (std::string &strArgumento : lstArgumentos) {
        lstPunteros.push_back(strArgumento.data());
    }
    lstPunteros.push_back(nullptr);
    m_intNumero = lstArgumentos.empty() ? -1 : clsModo(canal.fFd()).fIniciar(lstPunteros.data());
    return fIniciado();
}

std::optional<int> clsProceso::fFin()
{
    // As long as its end is not taken note of, its number cannot become another group's.
    siginfo_t fin{};
    if (!fIniciado() ||
        (waitid(P_PID, static_cast<id_t>(m_intNumero), &fin, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         fin.si_pid == 0)) {
        return std::nullopt;
    }
    kill(-m_intNumero, SIGKILL);
    fRecoger(std::exchange(m_intNumero, -1));
    return fin.si_code == CLD_EXITED ? fin.si_status : -fin.si_status;
}

void clsProceso::fMatar()
{
    if (!fIniciado()) {
        return;
    }
    kill(-m_intNumero, SIGKILL);
    const pid_t pid = std::exchange(m_intNumero, -1);
    for (int intVez = 0; intVez < 20; ++intVez) {
        const pid_t pidFin = waitpid(pid, nullptr, WNOHANG);
        if (pidFin == pid || (pidFin < 0 && errno != EINTR)) {
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    fRecogerLuego(pid);
}

std::chrono::nanoseconds fProcesadorDelHilo()
{
    timespec tiempo{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &tiempo);
    return std::chrono::seconds(tiempo.tv_sec) + std::chrono::nanoseconds(tiempo.tv_nsec);
}
