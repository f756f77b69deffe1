// miravel_demo FOLDER: makes the demonstration archive, drawn photos and films of an invented
// family. The same run gives the same bytes and dates.
#include "plan.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

using namespace demo;
namespace fs = std::filesystem;

volatile std::sig_atomic_t intSenal = 0; // the signal that came; the making stops soon

/// One file to be made.
struct clsTarea {
    std::string strRuta; // within the archive
    const clsFila *pFila;
    const clsCamara *pCamara;

    std::time_t fFecha() const
    {
        return fInstante(pFila->strFechaFichero ? pFila->strFechaFichero : pFila->strFecha);
    }
};

[[noreturn]] void fFallar(const char *strQue, const fs::path &ruta)
{
    throw std::runtime_error(std::string(strQue) + ' ' + ruta.string() + ": " +
                             std::strerror(errno));
}

void fFechar(const fs::path &ruta, std::time_t datModificacion)
{
    const timespec momento{datModificacion, 0};
    const timespec lstTiempos[] = {momento, momento};
    if (::utimensat(AT_FDCWD, ruta.c_str(), lstTiempos, 0) != 0) {
        fFallar("no se puede fechar", ruta);
    }
}

/// Creates a new file with these bytes and this modification time. Never overwrites.
void fEscribir(const fs::path &ruta, const QByteArray &datos, std::time_t datModificacion)
{
    std::FILE *const pFichero = std::fopen(ruta.c_str(), "wxe");
    const auto lngBytes = static_cast<std::size_t>(datos.size());
    const bool bolEscrito =
        pFichero != nullptr && std::fwrite(datos.constData(), 1, lngBytes, pFichero) == lngBytes;
    if (!bolEscrito || std::fclose(pFichero) != 0) { // a full disk may be reported only here
        fFallar("no se puede escribir", ruta);
    }
    fFechar(ruta, datModificacion);
}

std::vector<clsTarea> fTareas()
{
    std::vector<clsTarea> lstTareas;
    const clsFila *pCarpeta = nullptr;
    for (const clsFila &fila : fPlan()) {
        if (fila.strFecha == nullptr) {
            pCarpeta = &fila;
            continue;
        }
        const std::string strRuta = (fs::path(pCarpeta->strNombre) / fila.strNombre).string();
        lstTareas.push_back({strRuta, &fila, pCarpeta->pCamara});
    }
    return lstTareas;
}

QByteArray fHacer(const clsTarea &tarea)
{
    return tarea.pFila->strTexto     ? QByteArray(tarea.pFila->strTexto)
           : tarea.pFila->intCuadros ? fVideo(*tarea.pFila, tarea.strRuta)
                                     : fFoto(tarea.pCamara, *tarea.pFila, tarea.strRuta);
}

void fHacerTareas(const fs::path &rutaRaiz, const std::vector<clsTarea> &lstTareas)
{
    for (const clsTarea &tarea : lstTareas) {
        if (intSenal != 0) {
            throw std::runtime_error("interrumpido");
        }
        fs::create_directories((rutaRaiz / tarea.strRuta).parent_path());
        fEscribir(rutaRaiz / tarea.strRuta, fHacer(tarea), tarea.fFecha());
    }
}

/// Every folder gets the date of the newest file below it; otherwise it would have today's.
void fFecharCarpetas(const fs::path &rutaRaiz, const std::vector<clsTarea> &lstTareas)
{
    std::map<fs::path, std::time_t> lstFechas;
    for (const clsTarea &tarea : lstTareas) {
        for (fs::path ruta = tarea.strRuta; !ruta.empty();) {
            ruta = ruta.parent_path();
            lstFechas[ruta] = std::max(lstFechas[ruta], tarea.fFecha());
        }
    }
    for (const auto &[rutaCarpeta, datFecha] : lstFechas) {
        fFechar(rutaRaiz / rutaCarpeta, datFecha);
    }
}

/// The real path of the folder to be made: no links, no slash at the end.
fs::path fDestino(const fs::path &rutaCarpeta)
{
    const fs::path rutaReal = fs::weakly_canonical(fs::absolute(rutaCarpeta));
    const fs::path rutaFinal = rutaReal.has_filename() ? rutaReal : rutaReal.parent_path();
    if (fs::exists(rutaFinal) && (!fs::is_directory(rutaFinal) || !fs::is_empty(rutaFinal))) {
        throw std::runtime_error(rutaFinal.string() + " existe y no es una carpeta vacía");
    }
    return rutaFinal;
}

/// Makes everything in a temporary folder beside this one, which is empty or not there, and renames
/// it at the end. After a failure nothing is left behind. Throws a std::exception with a one-line
/// message.
/// @return how many files there are.
std::size_t fHacerArchivo(const fs::path &rutaCarpeta)
{
    const fs::path rutaFinal = fDestino(rutaCarpeta);
    const QTemporaryDir temporal(QFile::decodeName(rutaFinal.c_str()) + ".parcial-XXXXXX");
    if (!temporal.isValid()) {
        throw std::runtime_error(temporal.errorString().toStdString());
    }
    const fs::path rutaRaiz = QFile::encodeName(temporal.filePath("archivo")).toStdString();
    const std::vector<clsTarea> lstTareas = fTareas();
    fHacerTareas(rutaRaiz, lstTareas);
    fFecharCarpetas(rutaRaiz, lstTareas);
    if (::rename(rutaRaiz.c_str(), rutaFinal.c_str()) != 0) { // never onto a folder with files
        fFallar("no se puede dar su nombre a la carpeta", rutaFinal);
    }
    return lstTareas.size();
}

} // namespace

int main(int intArgumentos, char *lstArgumentos[])
{
    if (intArgumentos != 2 || lstArgumentos[1][0] == '\0') {
        std::fputs("uso: miravel_demo CARPETA (nueva o vacía)\n", stderr);
        return 1;
    }
    const std::string strCarpeta = lstArgumentos[1];
    qputenv("QT_QPA_PLATFORM", "offscreen"); // painting needs no display
    const QGuiApplication aplicacion(intArgumentos, lstArgumentos);
    for (const int intCual : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(intCual, [](int intCualVino) { intSenal = intCualVino; });
    }
    try {
        std::printf("%zu archivos\n", fHacerArchivo(strCarpeta));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "miravel_demo: %s\n", error.what());
        return 1;
    }
    return 0;
}
