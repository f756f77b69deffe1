#include "catalogue/carpeta.h"

#include "catalogue/registro.h"
#include "shared/fecha.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int intModoCarpeta = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

Entrada fTipo(unsigned char bytTipo)
{
    if (bytTipo == DT_DIR) {
        return Entrada::Carpeta;
    }
    return bytTipo == DT_REG ? Entrada::Archivo : Entrada::Desconocida;
}

/// Whether an entry of this kind can be anything that the walk records or enters.
bool fInteresa(unsigned char bytTipo)
{
    return bytTipo == DT_DIR || bytTipo == DT_REG || bytTipo == DT_LNK || bytTipo == DT_UNKNOWN;
}

/// Asks for an entry: itself first, then, for a link, its target.
/// @param bolCarpeta set when the entry itself is a folder.
/// @return whether datos describe a regular file.
bool fConsultar(int intFd, const clsEntrada &entrada, struct stat &datos, bool &bolCarpeta,
                int &intError)
{
    const char *const strNombre = entrada.strNombre.c_str();
    bool bolEnlace = false;
    if (fstatat(intFd, strNombre, &datos, AT_SYMLINK_NOFOLLOW) != 0) {
        intError = errno == ENOENT ? 0 : errno; // vanished meanwhile: not an error
        return false;
    }
    bolCarpeta = S_ISDIR(datos.st_mode);
    bolEnlace = S_ISLNK(datos.st_mode);
    if (bolEnlace && fstatat(intFd, strNombre, &datos, 0) != 0) {
        const bool bolSinDestino = errno == ENOENT || errno == ELOOP || errno == ENOTDIR;
        intError = bolSinDestino ? 0 : errno;
        return false;
    }
    return S_ISREG(datos.st_mode);
}

/// Local dates of many files. Offsets from universal time change on quarters of an hour at the
/// soonest, and files of one folder are of the same days: asking the zone tables once a quarter
/// saves most of the conversions.
class clsReloj {
public:
    clsFecha fLocal(std::time_t lngMomento)
    {
        constexpr std::time_t lngCuarto = 900;
        const std::time_t lngResto = ((lngMomento % lngCuarto) + lngCuarto) % lngCuarto;
        const std::time_t lngInicio = lngMomento - lngResto;
        if (lngInicio != m_lngInicio || !m_datInicio.fHay()) {
            m_lngInicio = lngInicio;
            m_datInicio = fFechaLocal(lngInicio);
        }
        // Only quarters that lie whole within the valid years are counted on from their start.
        if (!m_datInicio.fHay() || fPartes(m_datInicio).intAno >= 9999) {
            return fFechaLocal(lngMomento);
        }
        return {m_datInicio.lngSegundos + lngResto};
    }

private:
    std::time_t m_lngInicio = 0;
    clsFecha m_datInicio;
};

} // namespace

clsDescriptor fAbrirCarpeta(int intFdRaiz, std::string_view strRelativa, int &intError)
{
    // The kernel takes paths below 4,096 bytes: longer ones are opened in several steps.
    constexpr std::size_t lngTramo = 4000;
    clsDescriptor carpeta{openat(intFdRaiz, ".", intModoCarpeta)};
    while (carpeta.fAbierto() && !strRelativa.empty()) {
        std::size_t lngCorte = strRelativa.size();
        if (lngCorte > lngTramo) {
            lngCorte = strRelativa.rfind('/', lngTramo) + 1;
        }
        const std::string strTramo(strRelativa.substr(0, lngCorte - 1));
        carpeta = clsDescriptor{openat(carpeta.fFd(), strTramo.c_str(), intModoCarpeta)};
        strRelativa.remove_prefix(lngCorte);
    }
    if (!carpeta.fAbierto()) {
        intError = errno;
    }
    return carpeta;
}

int fListarCarpeta(int intFdCarpeta, std::vector<clsEntrada> &lstEntradas)
{
    // The stream closes its descriptor; the caller keeps its own to examine the entries.
    const int intFd = fcntl(intFdCarpeta, F_DUPFD_CLOEXEC, 0);
    DIR *const dirAbierta = intFd < 0 ? nullptr : fdopendir(intFd);
    if (dirAbierta == nullptr) {
        const int intError = errno;
        const clsDescriptor cierre{intFd};
        return intError;
    }
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(dirAbierta, closedir);
    while (true) {
        errno = 0;
        const dirent *const dirEntrada = readdir(dir.get());
        if (dirEntrada == nullptr) {
            return errno;
        }
        const std::string_view strNombre = dirEntrada->d_name;
        if (strNombre != "." && strNombre != ".." && fInteresa(dirEntrada->d_type)) {
            lstEntradas.push_back({std::string(strNombre), fTipo(dirEntrada->d_type)});
        }
    }
}

clsExamen fExaminar(int intFdCarpeta, const std::string &strCarpeta, const clsEntrada *primera,
                    const clsEntrada *fin, const std::function<bool(std::string_view)> &fOmitir)
{
    clsExamen examen;
    clsReloj reloj;
    for (const clsEntrada *entrada = primera; entrada != fin && examen.intError == 0; ++entrada) {
        if (entrada->entrada == Entrada::Carpeta) {
            examen.lstCarpetas.push_back(entrada->strNombre);
            continue;
        }
        struct stat datos {};
        bool bolCarpeta = false;
        const bool bolArchivo =
            fConsultar(intFdCarpeta, *entrada, datos, bolCarpeta, examen.intError);
        if (bolCarpeta) {
            examen.lstCarpetas.push_back(entrada->strNombre);
        } else if (bolArchivo && !(fOmitir && fOmitir(entrada->strNombre))) {
            fAnadirRegistro(examen.strLineas, strCarpeta, entrada->strNombre,
                            reloj.fLocal(datos.st_mtim.tv_sec), datos.st_size);
        }
    }
    return examen;
}
