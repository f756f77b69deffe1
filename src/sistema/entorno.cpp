#include "sistema/entorno.h"

#include "sistema/llamadas.h"

#include <cstdlib>
#include <filesystem>
#include <langinfo.h>
#include <locale.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

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

// freedesktop Base Directory standard; as there, a relative path counts as none.
std::string fCarpetaDelUsuario(const char *strVariable, const char *strEnCasa)
{
    const std::string strSuya = fVariable(strVariable, "");
    if (fEsAbsoluta(strSuya)) {
        return fConBarra(strSuya);
    }
    const std::string strCasa = fCarpetaPersonal();
    return strCasa.empty() ? strCasa : strCasa + strEnCasa;
}

} // namespace

std::string fCarpetaPrograma()
{
    std::error_code error; // then it is empty
    const std::string strPrograma = std::filesystem::read_symlink("/proc/self/exe", error).native();
    return strPrograma.substr(0, strPrograma.rfind('/') + 1);
}

std::string fCarpetaTrabajo()
{
    std::error_code error; // then it is empty
    return std::filesystem::current_path(error).native();
}

std::string fCarpetaPersonal()
{
    const std::string strCasa = fVariable("HOME", "");
    return fEsAbsoluta(strCasa) ? fConBarra(strCasa) : std::string();
}

bool fTomarSinCarpeta()
{
    constexpr const char *strVariable = "MIRAVEL_SIN_CARPETA";
    const bool bolPuesta = !fVariable(strVariable, "").empty();
    unsetenv(strVariable);
    return bolPuesta;
}

std::string fRutaTemporal()
{
    const std::string strVariable = fVariable("TMPDIR", "");
    return fConBarra(fEsAbsoluta(strVariable) ? strVariable : "/tmp");
}

std::string fCarpetaCache() { return fCarpetaDelUsuario("XDG_CACHE_HOME", ".cache/"); }

std::string fCarpetaEstado() { return fCarpetaDelUsuario("XDG_STATE_HOME", ".local/state/"); }

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

clsSignos fSignosLocale()
{
    const locale_t loc = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (loc == nullptr) {
        return {};
    }
    clsSignos signos{nl_langinfo_l(THOUSEP, loc), nl_langinfo_l(RADIXCHAR, loc)};
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
    if (strRuta.empty()) {
        return;
    }
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
