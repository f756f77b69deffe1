/// How long a correction of many files takes, and taking it back, beside a bare loop that sets a
/// time and a name for each, and flushes as often.

#include "catalogue/registro.h"
#include "dates/deshacer.h"
#include "medir.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

const clsFecha fechaNueva = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});

[[noreturn]] void fFallar(const char *strQue)
{
    std::perror(strQue);
    std::_Exit(1);
}

void fVolcarCarpeta(const std::string &strCarpeta)
{
    const int intCarpeta = open(strCarpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (intCarpeta < 0 || fsync(intCarpeta) != 0) {
        fFallar("fsync");
    }
    close(intCarpeta);
}

/// A file written, and flushed.
void fEscribirVolcado(const std::string &strCarpeta, const std::string &strNombre,
                      const std::string &strBytes, bool bolVolcar = true)
{
    const std::string strRuta = strCarpeta + strNombre;
    const int intFd = open(strRuta.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (intFd < 0 ||
        write(intFd, strBytes.data(), strBytes.size()) != static_cast<ssize_t>(strBytes.size())) {
        fFallar(strRuta.c_str());
    }
    if (bolVolcar && fsync(intFd) != 0) {
        fFallar("fsync");
    }
    close(intFd);
}

/// The archive: 200 files to a folder.
struct clsArchivo {
    std::string strRaiz;
    std::vector<clsCorregido> lstFicheros;
    std::string strCatalogo;

    clsArchivo(const std::string &strCarpeta, int intCuantos) : strRaiz(strCarpeta)
    {
        for (int intNumero = 0; intNumero < intCuantos; ++intNumero) {
            const std::string strSuya = strRaiz + "c" + std::to_string(intNumero / 200) + '/';
            const std::string strNombre = "IMG_" + std::to_string(intNumero) + ".JPG";
            lstFicheros.push_back({strSuya + strNombre, fechaNueva});
            fAnadirRegistro(strCatalogo, strSuya, strNombre, fechaNueva, 1);
        }
    }
    void fHacer() const
    {
        std::filesystem::remove_all(strRaiz);
        for (const clsCorregido &fichero : lstFicheros) {
            const std::filesystem::path ruta(fichero.strFilePath);
            std::filesystem::create_directories(ruta.parent_path());
            fEscribirVolcado(ruta.parent_path().string() + '/', ruta.filename().string(), "x",
                             false);
        }
        fEscribirVolcado(strRaiz, std::string(strFicheroCatalogo), strCatalogo, false);
        sync();
    }
    void fCorregirTodo()
    {
        if (fCorregir(strRaiz, true, lstFicheros, {}).correccion != Correccion::Hecha) {
            fFallar("correct");
        }
    }
};

/// Catalogue, journal, each file its time and its name; flushed as ours: the folder behind the
/// journal, and at the end, when it carries all that was changed.
void fBucleDesnudo(const clsArchivo &archivo)
{
    fEscribirVolcado(archivo.strRaiz, ".catalogo", archivo.strCatalogo);
    fEscribirVolcado(archivo.strRaiz, ".diario", archivo.strCatalogo + archivo.strCatalogo);
    fVolcarCarpeta(archivo.strRaiz);
    const timespec lstMomentos[2] = {
        {0,                                UTIME_OMIT},
        {fMomento(fechaNueva).value_or(0), 0         }
    };
    for (const clsCorregido &fichero : archivo.lstFicheros) {
        const std::string strNueva = fRutaCorregida(fichero.strFilePath, fechaNueva);
        if (utimensat(AT_FDCWD, fichero.strFilePath.c_str(), lstMomentos, 0) != 0 ||
            renameat2(AT_FDCWD, fichero.strFilePath.c_str(), AT_FDCWD, strNueva.c_str(),
                      RENAME_NOREPLACE) != 0) {
            fFallar(strNueva.c_str());
        }
    }
    if (rename((archivo.strRaiz + ".catalogo").c_str(),
               (archivo.strRaiz + "Miravel.dat").c_str()) != 0) {
        fFallar("rename");
    }
    fVolcarCarpeta(archivo.strRaiz);
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        std::fputs("miravel_bench_corregir FOLDER [FILES [ROUNDS]]\n", stderr);
        return 2;
    }
    const std::string strRaiz = std::string(lstArgumentos[1]) + "/corregir/";
    clsArchivo archivo(strRaiz, intArgumentos > 2 ? std::atoi(lstArgumentos[2]) : 5000);
    const auto fPreparar = [&] { archivo.fHacer(); };
    const auto fCorregido = [&] {
        archivo.fHacer();
        archivo.fCorregirTodo();
        sync();
    };
    const auto fVolver = [&] {
        if (fDeshacer(strRaiz, true).bolPendiente) {
            fFallar("undo");
        }
    };
    const auto fDesnudo = [&] { fBucleDesnudo(archivo); };
    const int intFin = fComparar(
        {
            {"bare loop",        fDesnudo,                         fPreparar },
            {"correct",          [&] { archivo.fCorregirTodo(); }, fPreparar },
            {"undo",             fVolver,                          fCorregido},
            {"bare loop, again", fDesnudo,                         fPreparar }
    },
        intArgumentos > 3 ? std::atoi(lstArgumentos[3]) : 5);
    std::filesystem::remove_all(strRaiz);
    return intFin;
}
