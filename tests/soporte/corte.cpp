#include "soporte/corte.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

/// A change of names or times that is not on the disk yet.
struct clsCambio {
    std::function<void()> fDeshacer;
    std::string strRepuesto{}; ///< another name of the file whose name went; empty: none
};

/// A file with bytes that are not on the disk yet.
struct clsSinVolcar {
    int intFd;
    off_t lngSeguros; ///< bytes from its beginning that are
};

std::vector<clsCambio> lstCambios;
std::map<std::pair<dev_t, ino_t>, clsSinVolcar> mapSinVolcar;

/// The descriptor of a folder or file, for later.
int fRetener(int intFd) { return intFd == AT_FDCWD ? AT_FDCWD : fcntl(intFd, F_DUPFD_CLOEXEC, 0); }

bool fEsta(int intCarpeta, const char *strRuta)
{
    struct stat datos {};
    return fstatat(intCarpeta, strRuta, &datos, AT_SYMLINK_NOFOLLOW) == 0;
}

/// A folder for files whose names went, on the disk of the temporary folder.
const std::string &fAlmacenRepuestos()
{
    static const std::string strSitio = [] {
        std::string strPlantilla = std::filesystem::temp_directory_path() / "corte.XXXXXX";
        return std::string(mkdtemp(strPlantilla.data()));
    }();
    return strSitio;
}

/// Gives a file another name, out of the way; empty when it is not there.
std::string fRepuesto(int intCarpeta, const char *strRuta)
{
    static int intCuantos = 0;
    const std::string strRepuesto = fAlmacenRepuestos() + '/' + std::to_string(++intCuantos);
    return linkat(intCarpeta, strRuta, AT_FDCWD, strRepuesto.c_str(), 0) == 0 ? strRepuesto : "";
}

/// Notes a call that gave a name to a file and maybe took it from another one.
int fAnotar(int intFin, std::string strRepuesto, std::function<void()> fDeshacer)
{
    if (intFin == 0) {
        lstCambios.push_back({std::move(fDeshacer), std::move(strRepuesto)});
    } else if (!strRepuesto.empty()) {
        unlink(strRepuesto.c_str());
    }
    return intFin;
}

void fReponer(const std::string &strRepuesto, int intCarpeta, const std::string &strRuta)
{
    if (!strRepuesto.empty()) {
        renameat(AT_FDCWD, strRepuesto.c_str(), intCarpeta, strRuta.c_str());
    }
}

void fAsegurarNombres()
{
    for (const clsCambio &cambio : std::exchange(lstCambios, {})) {
        if (!cambio.strRepuesto.empty()) {
            unlink(cambio.strRepuesto.c_str());
        }
    }
}

int fAbrirNuevo(int intCarpeta, const char *strRuta, int intModo, mode_t modo)
{
    const bool bolNuevo = (intModo & O_CREAT) != 0 && !fEsta(intCarpeta, strRuta);
    const int intFd = llamadasReales.fAbrir(intCarpeta, strRuta, intModo, modo);
    if (bolNuevo && intFd >= 0) {
        lstCambios.push_back({[intDonde = fRetener(intCarpeta), strNombre = std::string(strRuta)] {
            unlinkat(intDonde, strNombre.c_str(), 0);
        }});
    }
    return intFd;
}

/// Notes that bytes of a file are going to change.
void fEnsuciar(int intFd)
{
    struct stat datos {};
    fstat(intFd, &datos);
    const bool bolDetras = lseek(intFd, 0, SEEK_CUR) == datos.st_size;
    const auto [it, bolPrimera] =
        mapSinVolcar.try_emplace({datos.st_dev, datos.st_ino}, clsSinVolcar{-1, datos.st_size});
    if (bolPrimera) {
        it->second.intFd = fRetener(intFd);
    }
    if (!bolDetras) {
        it->second.lngSeguros = 0;
    }
}

int fVolcarApuntando(int intFd)
{
    struct stat datos {};
    fstat(intFd, &datos);
    if (const auto it = mapSinVolcar.find({datos.st_dev, datos.st_ino}); it != mapSinVolcar.end()) {
        close(it->second.intFd);
        mapSinVolcar.erase(it);
    }
    fAsegurarNombres();
    return 0;
}

int fFecharApuntando(int intCarpeta, const char *strRuta, const timespec *lstMomentos, int intModo)
{
    struct stat antes {};
    fstatat(intCarpeta, strRuta, &antes, intModo);
    return fAnotar(llamadasReales.fFechar(intCarpeta, strRuta, lstMomentos, intModo), {},
                   [=, intDonde = fRetener(intCarpeta), strNombre = std::string(strRuta)] {
                       const timespec lstAntes[2] = {antes.st_atim, antes.st_mtim};
                       utimensat(intDonde, strNombre.c_str(), lstAntes, intModo);
                   });
}

int fRenombrarApuntando(int intCarpeta, const char *strDe, const char *strA)
{
    const std::string strRepuesto = fRepuesto(intCarpeta, strA);
    return fAnotar(llamadasReales.fRenombrar(intCarpeta, strDe, strA), strRepuesto,
                   [=, intDonde = fRetener(intCarpeta), strViejo = std::string(strDe),
                    strNuevo = std::string(strA)] {
                       renameat(intDonde, strNuevo.c_str(), intDonde, strViejo.c_str());
                       fReponer(strRepuesto, intDonde, strNuevo);
                   });
}

int fRenombrarLibreApuntando(int intCarpeta, const char *strDe, const char *strA)
{
    return fAnotar(llamadasReales.fRenombrarLibre(intCarpeta, strDe, strA), {},
                   [intDonde = fRetener(intCarpeta), strViejo = std::string(strDe),
                    strNuevo = std::string(strA)] {
                       renameat(intDonde, strNuevo.c_str(), intDonde, strViejo.c_str());
                   });
}

int fEnlazarApuntando(int intCarpeta, const char *strDe, const char *strA)
{
    return fAnotar(llamadasReales.fEnlazar(intCarpeta, strDe, strA), {},
                   [intDonde = fRetener(intCarpeta), strNuevo = std::string(strA)] {
                       unlinkat(intDonde, strNuevo.c_str(), 0);
                   });
}

int fBorrarApuntando(int intCarpeta, const char *strRuta, int intModo)
{
    const std::string strRepuesto = fRepuesto(intCarpeta, strRuta);
    return fAnotar(llamadasReales.fBorrar(intCarpeta, strRuta, intModo), strRepuesto,
                   [=, intDonde = fRetener(intCarpeta), strNombre = std::string(strRuta)] {
                       fReponer(strRepuesto, intDonde, strNombre);
                   });
}

} // namespace

const clsLlamadas &fDiscoOlvidadizo()
{
    static const clsLlamadas disco = [] {
        clsLlamadas olvidadizo = llamadasReales;
        olvidadizo.fAbrir = fAbrirNuevo;
        olvidadizo.fEscribir = [](int intFd, const void *bytDatos, std::size_t lngBytes) {
            fEnsuciar(intFd);
            return llamadasReales.fEscribir(intFd, bytDatos, lngBytes);
        };
        olvidadizo.fAlargar = [](int intFd, off_t lngBytes) {
            fEnsuciar(intFd);
            return llamadasReales.fAlargar(intFd, lngBytes);
        };
        olvidadizo.fVolcar = fVolcarApuntando;
        olvidadizo.fFechar = fFecharApuntando;
        olvidadizo.fRenombrar = fRenombrarApuntando;
        olvidadizo.fRenombrarLibre = fRenombrarLibreApuntando;
        olvidadizo.fEnlazar = fEnlazarApuntando;
        olvidadizo.fBorrar = fBorrarApuntando;
        return olvidadizo;
    }();
    return disco;
}

void fCortarLuz(Olvido olvido)
{
    for (const auto &[fichero, sinVolcar] : mapSinVolcar) {
        static_cast<void>(ftruncate(sinVolcar.intFd, sinVolcar.lngSeguros));
    }
    if (olvido == Olvido::Todo) {
        for (auto it = lstCambios.rbegin(); it != lstCambios.rend(); ++it) {
            it->fDeshacer();
        }
    }
    fAsegurarNombres();
    rmdir(fAlmacenRepuestos().c_str());
}
