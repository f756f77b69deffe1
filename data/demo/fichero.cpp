#include "fichero.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace demo {

namespace {

[[noreturn]] void fFallar(const char *strQue, const std::filesystem::path &ruta, int intError)
{
    throw std::runtime_error(std::string(strQue) + " " + ruta.string() + ": " +
                             std::strerror(intError));
}

/// Closes the descriptor on every way out; the good way closes it itself to see the result.
class clsDescriptor {
public:
    explicit clsDescriptor(int intNumero) : intFd(intNumero) {}
    clsDescriptor(const clsDescriptor &) = delete;
    clsDescriptor &operator=(const clsDescriptor &) = delete;
    ~clsDescriptor()
    {
        if (intFd >= 0) {
            ::close(intFd);
        }
    }
    int fNumero() const { return intFd; }
    int fCerrar()
    {
        const int intAntes = intFd;
        intFd = -1;
        return ::close(intAntes);
    }

private:
    int intFd;
};

void fEscribirTodo(int intFd, const QByteArray &datos, const std::filesystem::path &ruta)
{
    const char *pDesde = datos.constData();
    auto lngFaltan = static_cast<std::size_t>(datos.size());
    while (lngFaltan > 0) {
        const ssize_t lngEscritos = ::write(intFd, pDesde, lngFaltan);
        if (lngEscritos < 0 && errno != EINTR) {
            fFallar("no se puede escribir", ruta, errno);
        }
        if (lngEscritos > 0) {
            pDesde += lngEscritos;
            lngFaltan -= static_cast<std::size_t>(lngEscritos);
        }
    }
}

} // namespace

void fEscribirFichero(const std::filesystem::path &ruta, const QByteArray &datos,
                      std::time_t datModificacion)
{
    clsDescriptor fichero(::open(ruta.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (fichero.fNumero() < 0) {
        fFallar("no se puede crear", ruta, errno);
    }
    fEscribirTodo(fichero.fNumero(), datos, ruta);
    const timespec lstTiempos[2] = {
        {datModificacion, 0},
        {datModificacion, 0}
    };
    if (::futimens(fichero.fNumero(), lstTiempos) != 0) {
        fFallar("no se puede fechar", ruta, errno);
    }
    if (fichero.fCerrar() != 0) { // some file systems report a full disk only here
        fFallar("no se puede cerrar", ruta, errno);
    }
}

void fCrearCarpeta(const std::filesystem::path &ruta)
{
    if (::mkdir(ruta.c_str(), 0777) != 0) {
        fFallar("no se puede crear la carpeta", ruta, errno);
    }
}

void fRenombrar(const std::filesystem::path &rutaDe, const std::filesystem::path &rutaA)
{
    if (::rename(rutaDe.c_str(), rutaA.c_str()) != 0) {
        fFallar("no se puede dar su nombre a la carpeta", rutaA, errno);
    }
}

void fFecharCarpeta(const std::filesystem::path &ruta, std::time_t datModificacion)
{
    const timespec lstTiempos[2] = {
        {datModificacion, 0},
        {datModificacion, 0}
    };
    if (::utimensat(AT_FDCWD, ruta.c_str(), lstTiempos, 0) != 0) {
        fFallar("no se puede fechar", ruta, errno);
    }
}

} // namespace demo
