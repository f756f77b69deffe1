#include "sistema/carpeta.h"

#include "sistema/llamadas.h"

#include <array>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <unistd.h>

namespace {

clsResultado<clsDescriptor> fAbrirDesde(int intCarpeta, const std::string &strRuta, int intModo)
{
    clsDescriptor carpeta{fInsistir<&clsLlamadas::fAbrir>(
        intCarpeta, strRuta.c_str(), intModo | O_DIRECTORY | O_CLOEXEC, mode_t{})};
    if (!carpeta.fAbierto()) {
        return clsError(errno);
    }
    return carpeta;
}

Entrada fTipo(unsigned char bytTipo)
{
    if (bytTipo == DT_DIR) {
        return Entrada::Carpeta;
    }
    return bytTipo == DT_REG ? Entrada::Archivo : Entrada::Desconocida;
}

/// Whether an entry of this kind can be a file or a folder.
bool fInteresa(unsigned char bytTipo)
{
    return bytTipo == DT_DIR || bytTipo == DT_REG || bytTipo == DT_LNK || bytTipo == DT_UNKNOWN;
}

} // namespace

clsResultado<clsDescriptor> fAbrirCarpeta(const std::string &strRuta, bool bolSeguir)
{
    return fAbrirDesde(AT_FDCWD, strRuta, O_RDONLY | (bolSeguir ? 0 : O_NOFOLLOW));
}

clsResultado<clsDescriptor> fAbrirCarpetaEn(const clsDescriptor &raiz, std::string_view strRelativa)
{
    // The kernel takes paths below 4,096 bytes: longer ones are opened in several steps.
    constexpr std::size_t lngTramo = 4000;
    auto carpeta = fAbrirDesde(raiz.fFd(), ".", O_RDONLY | O_NOFOLLOW);
    while (carpeta && !strRelativa.empty()) {
        std::size_t lngCorte = strRelativa.size();
        if (lngCorte > lngTramo) {
            lngCorte = strRelativa.rfind('/', lngTramo) + 1;
        }
        carpeta = fAbrirDesde(carpeta->fFd(), std::string(strRelativa.substr(0, lngCorte - 1)),
                              O_RDONLY | O_NOFOLLOW);
        strRelativa.remove_prefix(lngCorte);
    }
    return carpeta;
}

clsError fListarCarpeta(const clsDescriptor &carpeta, std::vector<clsEntradaCarpeta> &lstEntradas)
{
    alignas(dirent64) std::array<char, 32768> lstBloque;
    while (true) {
        const ssize_t lngLeidos = fInsistir<&clsLlamadas::fListar>(
            carpeta.fFd(), static_cast<void *>(lstBloque.data()), lstBloque.size());
        if (lngLeidos <= 0) {
            // A folder that was deleted after it was opened has no entries any more.
            return lngLeidos < 0 && errno != ENOENT ? errno : 0;
        }
        for (const char *chr = lstBloque.data(); chr < lstBloque.data() + lngLeidos;) {
            const auto *const dirEntrada = reinterpret_cast<const dirent64 *>(chr);
            chr += dirEntrada->d_reclen;
            const std::string_view strNombre = dirEntrada->d_name;
            if (strNombre != "." && strNombre != ".." && fInteresa(dirEntrada->d_type)) {
                lstEntradas.push_back({std::string(strNombre), fTipo(dirEntrada->d_type)});
            }
        }
    }
}

clsError fCrearCarpeta(const std::string &strRuta)
{
    return fLlamadas().fCrearCarpeta(strRuta.c_str(), S_IRWXU) == 0 ? 0 : errno;
}

bool fAsegurarCarpeta(const std::string &strRuta)
{
    for (std::size_t lng = strRuta.find('/', 1); lng != std::string::npos;
         lng = strRuta.find('/', lng + 1)) {
        fCrearCarpeta(strRuta.substr(0, lng));
    }
    return fExisteCarpeta(strRuta);
}

clsError fBorrarEn(const clsDescriptor &carpeta, const std::string &strNombre)
{
    return fLlamadas().fBorrar(carpeta.fFd(), strNombre.c_str(), 0) == 0 ? 0 : errno;
}

bool fQuedaFuera(const std::string &strRuta, const clsDescriptor &carpeta)
{
    const auto buscada = fConsultar(carpeta);
    std::optional<clsIdentidad> anterior;
    auto nivel = fAbrirDesde(AT_FDCWD, strRuta, O_PATH);
    while (buscada && nivel) {
        const auto datos = fConsultar(*nivel);
        if (!datos || datos->identidad == buscada->identidad) {
            return false;
        }
        if (datos->identidad == anterior) {
            return true; // above the top is the top
        }
        anterior = datos->identidad;
        nivel = fAbrirDesde(nivel->fFd(), "..", O_PATH);
    }
    return false;
}

clsCarpetaPasajera::clsCarpetaPasajera(const std::string &strInicio, std::string_view strNombre)
    : m_strCarpeta(strInicio + "XXXXXX")
{
    if (mkdtemp(m_strCarpeta.data()) != nullptr) {
        m_strRuta = m_strCarpeta + '/' + std::string(strNombre);
    }
}

clsCarpetaPasajera::~clsCarpetaPasajera()
{
    if (!m_strRuta.empty()) {
        fBorrar(m_strRuta);
        rmdir(m_strCarpeta.c_str());
    }
}

clsCerrojoArchivo::clsCerrojoArchivo(const std::string &strRaiz)
{
    if (auto carpeta = fAbrirCarpeta(strRaiz)) {
        m_carpeta = std::move(*carpeta);
        m_bolTenido = fInsistir<&clsLlamadas::fBloquear>(m_carpeta.fFd(), LOCK_EX | LOCK_NB) == 0 ||
                      errno != EWOULDBLOCK;
    }
}
