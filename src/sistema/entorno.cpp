#include "sistema/entorno.h"

#include "sistema/llamadas.h"

#include <cstdlib>
#include <langinfo.h>
#include <locale.h>
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

/// An environment variable; another text when it is empty or not set.
std::string fVariable(const char *strNombre, const std::string &strSiNo)
{
    const char *const strValor = std::getenv(strNombre);
    return strValor == nullptr || *strValor == '\0' ? strSiNo : strValor;
}

bool fEsAbsoluta(const std::string &strRuta) { return strRuta.starts_with('/'); }

std::string fConBarra(const std::string &strRuta)
{
    return strRuta.ends_with('/') ? strRuta : strRuta + '/';
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

std::string fRutaTemporal()
{
    const std::string strVariable = fVariable("TMPDIR", "");
    return fConBarra(fEsAbsoluta(strVariable) ? strVariable : "/tmp");
}

// In these two a relative path counts as none (freedesktop Base Directory standard).
std::string fCarpetaCache()
{
    const std::string strCache = fVariable("XDG_CACHE_HOME", "");
    if (fEsAbsoluta(strCache)) {
        return fConBarra(strCache);
    }
    const std::string strCasa = fVariable("HOME", "");
    return fEsAbsoluta(strCasa) ? fConBarra(strCasa) + ".cache/" : std::string();
}

std::vector<std::string> fCarpetasDatos()
{
    std::vector<std::string> lstCarpetas;
    std::string strTodas = fVariable("XDG_DATA_HOME", fVariable("HOME", "") + "/.local/share") +
                           ':' + fVariable("XDG_DATA_DIRS", "/usr/local/share:/usr/share") + ':';
    for (std::size_t lng = 0; (lng = strTodas.find(':')) != std::string::npos;) {
        if (fEsAbsoluta(strTodas)) {
            lstCarpetas.push_back(fConBarra(strTodas.substr(0, lng)));
        }
        strTodas.erase(0, lng + 1);
    }
    return lstCarpetas;
}

unsigned fUsuario() { return geteuid(); }

std::time_t fAhora() { return fLlamadas().fAhora(); }

std::optional<clsSignosLocale> fSignosLocale()
{
    const locale_t loc = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (loc == nullptr) {
        return {};
    }
    clsSignosLocale signos{nl_langinfo_l(THOUSEP, loc), nl_langinfo_l(RADIXCHAR, loc)};
    freelocale(loc);
    return signos;
}

std::string fDFmtLocale(const std::string &strLocale)
{
    const locale_t loc = newlocale(LC_TIME_MASK, strLocale.c_str(), nullptr);
    if (loc == nullptr) {
        return {};
    }
    std::string strDFmt = nl_langinfo_l(D_FMT, loc);
    freelocale(loc);
    return strDFmt;
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
