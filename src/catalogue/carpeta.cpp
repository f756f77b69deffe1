#include "catalogue/carpeta.h"

#include "catalogue/registro.h"
#include "shared/fecha.h"

#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
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

/// Local dates of many files. Asking the zone tables is slow, and threads wait for each other
/// there, but the files of one folder are mostly of a few days. On a day whose local time begins
/// and ends as far apart as it should, clocks were not changed: no zone ever changed forth and back
/// within one (the shortest time in the zone database is four days, Freetown 1939).
class clsReloj {
public:
    clsFecha fLocal(std::time_t lngMomento)
    {
        const std::time_t lngDia = lngMomento / lngSegundosDia;
        if (lngDia <= 0 || lngDia > lngUltimoDia) {
            return fFechaLocal(lngMomento);
        }
        clsDia &dia = m_lstDias[static_cast<std::size_t>(lngDia) % m_lstDias.size()];
        if (dia.lngDia != lngDia) {
            dia = fMedir(lngDia);
        }
        return dia.datInicio.fHay()
                   ? clsFecha{dia.datInicio.lngSegundos + lngMomento % lngSegundosDia}
                   : fFechaLocal(lngMomento);
    }

private:
    struct clsDia {
        std::time_t lngDia = 0; ///< since 1970, universal time; 0: none yet
        clsFecha datInicio;     ///< its start in local time; none where clocks were changed
    };
    static constexpr std::time_t lngSegundosDia = 86400;
    static constexpr std::time_t lngUltimoDia = 2'932'000; ///< in the year 9997

    static clsDia fMedir(std::time_t lngDia)
    {
        const clsFecha datInicio = fFechaLocal(lngDia * lngSegundosDia);
        const clsFecha datFin = fFechaLocal((lngDia + 1) * lngSegundosDia);
        const bool bolParejo = datFin.lngSegundos - datInicio.lngSegundos == lngSegundosDia;
        return {lngDia, bolParejo ? datInicio : clsFecha{}};
    }

    std::array<clsDia, 64> m_lstDias{};
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
    alignas(dirent64) std::array<char, 32768> lstBloque;
    while (true) {
        const ssize_t lngLeidos = getdents64(intFdCarpeta, lstBloque.data(), lstBloque.size());
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

clsExamen fExaminar(int intFdCarpeta, const std::string &strCarpeta, const clsEntrada *primera,
                    const clsEntrada *fin, const std::function<bool(std::string_view)> &fOmitir)
{
    clsExamen examen;
    clsReloj reloj;
    // The folder, a name of usual length, date, size and signs between them.
    examen.strLineas.reserve(static_cast<std::size_t>(fin - primera) * (strCarpeta.size() + 64));
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
