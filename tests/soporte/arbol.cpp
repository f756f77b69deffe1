#include "soporte/arbol.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

constexpr int intModoCarpeta = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

int fExigir(int intResultado, std::string_view strQue)
{
    if (intResultado < 0) {
        throw std::system_error(errno, std::generic_category(), std::string(strQue));
    }
    return intResultado;
}

/// A folder handle that closes itself.
class clsFd {
public:
    explicit clsFd(int intFd) : m_intFd(intFd) {}
    ~clsFd() { close(m_intFd); }
    clsFd(const clsFd &) = delete;
    clsFd &operator=(const clsFd &) = delete;
    [[nodiscard]] int fFd() const { return m_intFd; }
    void fCambiar(int intFd) { close(std::exchange(m_intFd, intFd)); }

private:
    int m_intFd;
};

/// Goes down to the folder of a path, level by level, and makes what is missing.
/// @return what stands behind the last "/".
std::string fBajar(clsFd &carpeta, std::string_view strRelativa)
{
    std::size_t lngBarra = 0;
    while ((lngBarra = strRelativa.find('/')) != std::string_view::npos) {
        const std::string strNivel(strRelativa.substr(0, lngBarra));
        if (mkdirat(carpeta.fFd(), strNivel.c_str(), 0755) != 0 && errno != EEXIST) {
            fExigir(-1, strNivel);
        }
        carpeta.fCambiar(
            fExigir(openat(carpeta.fFd(), strNivel.c_str(), intModoCarpeta), strNivel));
        strRelativa.remove_prefix(lngBarra + 1);
    }
    return std::string(strRelativa);
}

std::vector<std::string> fEntradas(int intFd)
{
    std::vector<std::string> lstNombres;
    DIR *const dir = fdopendir(openat(intFd, ".", intModoCarpeta));
    while (const dirent *const entrada = dir == nullptr ? nullptr : readdir(dir)) {
        const std::string strNombre = entrada->d_name;
        if (strNombre != "." && strNombre != "..") {
            lstNombres.push_back(strNombre);
        }
    }
    if (dir != nullptr) {
        closedir(dir);
    }
    return lstNombres;
}

} // namespace

clsArbol::clsArbol(const std::string &strDonde)
{
    m_strRaiz = strDonde.empty() ? std::filesystem::temp_directory_path().string() : strDonde;
    m_strRaiz += "/miravel-prueba-XXXXXX";
    fExigir(mkdtemp(m_strRaiz.data()) == nullptr ? -1 : 0, m_strRaiz);
    // Some checks run as another user.
    fExigir(chmod(m_strRaiz.c_str(), 0777), m_strRaiz);
    m_strRaiz += '/';
}

clsArbol::~clsArbol()
{
    // Every folder is first moved up into the root: no depth needs more than two handles.
    static_cast<void>(chmod(m_strRaiz.c_str(), 0700));
    const clsFd raiz(open(m_strRaiz.c_str(), intModoCarpeta));
    std::vector<std::string> lstNombres = fEntradas(raiz.fFd());
    unsigned lngSiguiente = 0;
    while (!lstNombres.empty()) {
        const std::string strNombre = std::move(lstNombres.back());
        lstNombres.pop_back();
        if (unlinkat(raiz.fFd(), strNombre.c_str(), 0) == 0) {
            continue;
        }
        static_cast<void>(fchmodat(raiz.fFd(), strNombre.c_str(), 0700, 0));
        const clsFd carpeta(openat(raiz.fFd(), strNombre.c_str(), intModoCarpeta));
        for (const std::string &strEntrada : fEntradas(carpeta.fFd())) {
            if (unlinkat(carpeta.fFd(), strEntrada.c_str(), 0) != 0) {
                std::string strArriba = "resto-" + std::to_string(lngSiguiente++);
                static_cast<void>(fchmodat(carpeta.fFd(), strEntrada.c_str(), 0700, 0));
                renameat(carpeta.fFd(), strEntrada.c_str(), raiz.fFd(), strArriba.c_str());
                lstNombres.push_back(std::move(strArriba));
            }
        }
        unlinkat(raiz.fFd(), strNombre.c_str(), AT_REMOVEDIR);
    }
    rmdir(m_strRaiz.c_str());
}

std::string clsArbol::fRuta(std::string_view strRelativa) const
{
    return m_strRaiz + std::string(strRelativa);
}

void clsArbol::fCarpeta(std::string_view strRelativa) const
{
    clsFd carpeta(fExigir(open(m_strRaiz.c_str(), intModoCarpeta), m_strRaiz));
    fBajar(carpeta, std::string(strRelativa) + '/');
}

void clsArbol::fCrear(std::string_view strRelativa, std::string_view strBytes,
                      std::time_t lngFecha) const
{
    clsFd carpeta(fExigir(open(m_strRaiz.c_str(), intModoCarpeta), m_strRaiz));
    const std::string strNombre = fBajar(carpeta, strRelativa);
    const clsFd archivo(fExigir(
        openat(carpeta.fFd(), strNombre.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644),
        strNombre));
    if (write(archivo.fFd(), strBytes.data(), strBytes.size()) !=
        static_cast<ssize_t>(strBytes.size())) {
        fExigir(-1, strNombre);
    }
    const timespec lstMomentos[2] = {{lngFecha, 0}, {lngFecha, 0}};
    fExigir(futimens(archivo.fFd(), lstMomentos), strNombre);
}

void clsArbol::fEnlace(std::string_view strRelativa, const std::string &strDestino) const
{
    clsFd carpeta(fExigir(open(m_strRaiz.c_str(), intModoCarpeta), m_strRaiz));
    const std::string strNombre = fBajar(carpeta, strRelativa);
    fExigir(symlinkat(strDestino.c_str(), carpeta.fFd(), strNombre.c_str()), strNombre);
}

void clsArbol::fTuberia(std::string_view strRelativa) const
{
    clsFd carpeta(fExigir(open(m_strRaiz.c_str(), intModoCarpeta), m_strRaiz));
    const std::string strNombre = fBajar(carpeta, strRelativa);
    fExigir(mkfifoat(carpeta.fFd(), strNombre.c_str(), 0644), strNombre);
}

std::string clsArbol::fLeer(std::string_view strRelativa) const
{
    std::ifstream archivo(fRuta(strRelativa), std::ios::binary);
    return {std::istreambuf_iterator<char>(archivo), {}};
}

std::vector<std::string> clsArbol::fNombres(std::string_view strRelativa) const
{
    const clsFd carpeta(fExigir(open(fRuta(strRelativa).c_str(), intModoCarpeta), strRelativa));
    std::vector<std::string> lstNombres = fEntradas(carpeta.fFd());
    std::sort(lstNombres.begin(), lstNombres.end());
    return lstNombres;
}

clsZona::clsZona(const char *strZona)
{
    setenv("TZ", strZona, 1);
    tzset();
}

clsZona::~clsZona()
{
    unsetenv("TZ");
    tzset();
}
