#include "browse/baul.h"

#include "catalogue/carpeta.h"
#include "shared/fecha.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

constexpr int intModoCarpeta = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

/// The folder, opened if it is one of the user's own and no link. No "/" at its end.
clsDescriptor fAbrirPropia(const std::string &strCarpeta)
{
    clsDescriptor carpeta{open(fBarraFinal(strCarpeta, true).c_str(), intModoCarpeta)};
    struct stat datos {};
    if (carpeta.fAbierto() && (fstat(carpeta.fFd(), &datos) != 0 || datos.st_uid != geteuid())) {
        return {};
    }
    return carpeta;
}

/// 0 when the folder stands there and is the user's own, else why not: EPERM when something else
/// bears the name.
int fAsegurar(const std::string &strCarpeta)
{
    if (mkdir(strCarpeta.c_str(), S_IRWXU) == 0) {
        return 0;
    }
    const int intError = errno;
    struct stat datos {};
    if (lstat(strCarpeta.c_str(), &datos) != 0) {
        return intError;
    }
    return S_ISDIR(datos.st_mode) && datos.st_uid == geteuid() ? 0 : EPERM;
}

/// Names of the files and links directly in an open folder.
std::vector<std::string> fFicheros(int intFdCarpeta)
{
    std::vector<clsEntrada> lstEntradas;
    static_cast<void>(fListarCarpeta(intFdCarpeta, lstEntradas)); // what was listed counts
    std::vector<std::string> lstNombres;
    lstNombres.reserve(lstEntradas.size());
    for (clsEntrada &entrada : lstEntradas) {
        struct stat datos {};
        const bool bolFichero =
            entrada.entrada == Entrada::Archivo ||
            (entrada.entrada == Entrada::Desconocida &&
             fstatat(intFdCarpeta, entrada.strNombre.c_str(), &datos, AT_SYMLINK_NOFOLLOW) == 0 &&
             (S_ISREG(datos.st_mode) || S_ISLNK(datos.st_mode)));
        if (bolFichero) {
            lstNombres.push_back(std::move(entrada.strNombre));
        }
    }
    return lstNombres;
}

/// Whether the archive's root is certainly neither the open folder nor below it. By what the
/// folders are, not by their names: a folder can be reached under several.
bool fRaizFuera(const std::string &strRaiz, int intFdCarpeta)
{
    struct stat carpeta {};
    struct stat anterior {};
    clsDescriptor nivel{open(strRaiz.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
    if (fstat(intFdCarpeta, &carpeta) != 0) {
        return false;
    }
    while (nivel.fAbierto()) {
        struct stat datos {};
        if (fstat(nivel.fFd(), &datos) != 0 ||
            (datos.st_dev == carpeta.st_dev && datos.st_ino == carpeta.st_ino)) {
            return false;
        }
        if (datos.st_dev == anterior.st_dev && datos.st_ino == anterior.st_ino) {
            return true; // above the top is the top
        }
        anterior = datos;
        nivel = clsDescriptor{openat(nivel.fFd(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC)};
    }
    return false;
}

} // namespace

std::string fRutaTemporal()
{
    const char *const strVariable = std::getenv("TMPDIR");
    const bool bolVale = strVariable != nullptr && *strVariable == '/';
    return fBarraFinal(bolVale ? strVariable : "/tmp", false);
}

clsLugarBaul fAsegurarBaul(const std::string &strTemporal)
{
    const std::string strPrimera = strTemporal + "Miravel";
    const int intError = fAsegurar(strPrimera);
    if (intError != EPERM) {
        return {strPrimera + '/', intError};
    }
    const std::string strSegunda = strPrimera + '-' + std::to_string(geteuid());
    return {strSegunda + '/', fAsegurar(strSegunda)};
}

int fContarBaul(const std::string &strCarpeta)
{
    const clsDescriptor carpeta = fAbrirPropia(strCarpeta);
    return carpeta.fAbierto() ? static_cast<int>(fFicheros(carpeta.fFd()).size()) : 0;
}

void fVaciarBaul(const std::string &strCarpeta, const std::string &strRaiz)
{
    const clsDescriptor carpeta = fAbrirPropia(strCarpeta);
    if (!carpeta.fAbierto() || !fRaizFuera(strRaiz, carpeta.fFd())) {
        return;
    }
    for (const std::string &strNombre : fFicheros(carpeta.fFd())) {
        static_cast<void>(unlinkat(carpeta.fFd(), strNombre.c_str(), 0));
    }
}

std::string fNombreEnBaul(const std::string &strRuta)
{
    std::string strNombre(fNombreDe(strRuta));
    const auto huella = fHuella(strRuta);
    if (!huella) {
        return strNombre;
    }
    return fEscribirFecha(fFechaLocal(huella->lngSegundos), "yyyy.MM.dd.") + strNombre;
}

clsDestino fDestinoEnBaul(const std::string &strCarpeta)
{
    return [strCarpeta](const std::string &strOrigen) {
        return strCarpeta + fNombreEnBaul(strOrigen);
    };
}
