#include "sistema/entorno.h"

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// Calls a function that fills a buffer and returns the length it used, with buffers that grow
/// until the result fits.
template <typename Llenar> std::string fConBufer(Llenar fLlenar)
{
    for (std::vector<char> lstBufer(4096);; lstBufer.resize(lstBufer.size() * 2)) {
        const ssize_t lngUsados = fLlenar(lstBufer.data(), lstBufer.size());
        if (lngUsados < 0) {
            return {};
        }
        if (static_cast<std::size_t>(lngUsados) < lstBufer.size()) {
            return std::string(lstBufer.data(), static_cast<std::size_t>(lngUsados));
        }
    }
}

} // namespace

std::string fCarpetaPrograma()
{
    const std::string strPrograma = fConBufer([](char *chrBufer, std::size_t lngTam) {
        return readlink("/proc/self/exe", chrBufer, lngTam);
    });
    return strPrograma.substr(0, strPrograma.rfind('/') + 1);
}

std::string fCarpetaTrabajo()
{
    return fConBufer([](char *chrBufer, std::size_t lngTam) -> ssize_t {
        if (getcwd(chrBufer, lngTam) != nullptr) {
            return static_cast<ssize_t>(std::char_traits<char>::length(chrBufer));
        }
        return errno == ERANGE ? static_cast<ssize_t>(lngTam) : -1;
    });
}

void fAbrirConSistema(const std::string &strRuta)
{
    const std::string strCarpeta = fCarpetaPrograma();
    char strPrograma[] = "xdg-open";
    std::string strArgumento = strRuta;
    char *const lstArgumentos[] = {strPrograma, strArgumento.data(), nullptr};
    const pid_t pid = fork();
    if (pid == 0) {
        // The child ends at once, so that the grandchild belongs to the system, not to us.
        setsid();
        if (fork() == 0) {
            if (chdir(strCarpeta.c_str()) == 0) {
                execvp(strPrograma, lstArgumentos);
            }
            _exit(127);
        }
        _exit(0);
    }
    if (pid > 0) {
        while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}
