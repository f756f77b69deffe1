// A program that locks itself in and then tries to get out: preso MODE, with the mode libre (no
// locks), landlock, todo. It says one line for each attempt: its name, a colon, and the error's
// number (0: it got through); before these, which descriptors it found open and how many variables.
// preso MODE PROGRAM: starts the program where seccomp is refused.

#include "sistema/encierro.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <sched.h>
#include <seccomp.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {

std::string strDicho;

void fDecir(const std::string &strNombre, const std::string &strQue)
{
    strDicho += strNombre + ":" + strQue + "\n";
}

void fDescriptores()
{
    std::string strAbiertos;
    DIR *carpeta = opendir("/proc/self/fd");
    while (const dirent *entrada = carpeta != nullptr ? readdir(carpeta) : nullptr) {
        if (entrada->d_name[0] != '.' && entrada->d_name != std::to_string(dirfd(carpeta))) {
            strAbiertos += std::string(" ") + entrada->d_name;
        }
    }
    closedir(carpeta);
    fDecir("descriptors", strAbiertos);
}

void fVariables()
{
    int intCuantas = 0;
    for (char **strUna = environ; *strUna != nullptr; ++strUna) {
        ++intCuantas;
    }
    fDecir("variables", std::to_string(intCuantas));
}

/// A socket that is not connected, and the address of one that would take it.
struct clsOyente {
    sockaddr_un direccion{};
    socklen_t lngLargo = sizeof direccion;
    int intCliente = socket(AF_UNIX, SOCK_DGRAM, 0);

    clsOyente()
    {
        const int intServidor = socket(AF_UNIX, SOCK_DGRAM, 0);
        direccion.sun_family = AF_UNIX;
        bind(intServidor, reinterpret_cast<const sockaddr *>(&direccion), sizeof(sa_family_t));
        getsockname(intServidor, reinterpret_cast<sockaddr *>(&direccion), &lngLargo);
    }
};

void fIntentarTodo(const clsOyente &oyente)
{
    struct clsIntento {
        const char *strNombre;
        std::function<long()> fHacer;
    };
    char *const lstNada[] = {nullptr};
    void *const pagina = mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    struct stat datos {};
    rlimit limite{};
    msghdr mensaje{};
    const clsIntento lstIntentos[] = {
        {"open", [] { return open("/etc/passwd", O_RDONLY); }},
        {"open folder", [] { return open("/", O_RDONLY | O_DIRECTORY); }},
        {"create", [] { return open("/tmp", O_RDWR | O_TMPFILE, 0600); }},
        {"stat", [&] { return stat("/", &datos); }},
        {"unlink", [] { return unlink("/no/such"); }},
        {"memory file", [] { return memfd_create("x", 0); }},
        {"socket", [] { return socket(AF_INET, SOCK_STREAM, 0); }},
        {"own socket", [] { return socket(AF_UNIX, SOCK_STREAM, 0); }},
        {"connect",
         [&] {
             return connect(oyente.intCliente,
                            reinterpret_cast<const sockaddr *>(&oyente.direccion), oyente.lngLargo);
         }},
        {"send", [&] { return sendmsg(STDOUT_FILENO, &mensaje, 0); }},
        {"write", [] { return write(STDERR_FILENO, "", 0); }},
        {"fork",
         [] {
             const long pid = syscall(SYS_clone, SIGCHLD, 0, 0, 0, 0);
             if (pid == 0) {
                 _exit(0);
             }
             return pid;
         }},
        {"execve", [&] { return execve("/", lstNada, lstNada); }},
        {"kill", [] { return kill(getppid(), 0); }},
        {"signal", [] { return syscall(SYS_tgkill, getpid(), gettid(), 0); }},
        {"ptrace", [] { return ptrace(PTRACE_CONT, getppid(), nullptr, nullptr); }},
        {"limits", [&] { return getrlimit(RLIMIT_CORE, &limite); }},
        {"code", [&] { return mprotect(pagina, 4096, PROT_READ | PROT_EXEC); }},
        {"new code",
         [] {
             void *const codigo =
                 mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
             return codigo == MAP_FAILED ? -1 : 0;
         }},
    };
    for (const clsIntento &intento : lstIntentos) {
        errno = 0;
        const long lngFin = intento.fHacer();
        fDecir(intento.strNombre, std::to_string(lngFin < 0 ? errno : 0));
    }
}

/// What has to work all the same.
void fTrabajar(int intArchivo)
{
    char chrPrimero = '\0';
    fDecir("given file", std::to_string(pread(intArchivo, &chrPrimero, 1, 0)));
    int intHecho = 0;
    std::thread([&] {
        intHecho = static_cast<int>(std::string(1 << 20, 'x').size() >> 20);
    }).join();
    fDecir("thread", std::to_string(intHecho));
}

int fSinSeccomp(char **lstPrograma)
{
    const scmp_filter_ctx filtro = seccomp_init(SCMP_ACT_ALLOW);
    constexpr int intNombre = 22; // PR_SET_SECCOMP
    seccomp_rule_add(filtro, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(seccomp), 0);
    seccomp_rule_add(filtro, SCMP_ACT_ERRNO(EINVAL), SCMP_SYS(prctl), 1,
                     SCMP_A0(SCMP_CMP_EQ, intNombre));
    if (seccomp_load(filtro) != 0) {
        return 1;
    }
    execv(lstPrograma[0], lstPrograma);
    return 1;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos > 2) {
        return fSinSeccomp(lstArgumentos + 2);
    }
    const std::string_view strModo = lstArgumentos[1];
    fDescriptores();
    fVariables();
    const clsOyente oyente;
    const int intArchivo = open("/proc/self/exe", O_RDONLY | O_CLOEXEC);
    if (strModo == "landlock") {
        fDecir("landlock", fCerrarArchivos() ? "1" : "0");
    }
    if (strModo == "todo") {
        fDecir("locked in", std::to_string(fEncerrar().fNumero()));
    }
    fIntentarTodo(oyente);
    fTrabajar(intArchivo);
    // At once: what a sanitizer does at the end is shut away, too.
    _exit(write(STDOUT_FILENO, strDicho.data(), strDicho.size()) < 0 ? 1 : 0);
}
