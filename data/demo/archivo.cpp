#include "archivo.h"

#include "fecha.h"
#include "fichero.h"
#include "fotos.h"
#include "plan.h"
#include "videos.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace demo {

namespace {

namespace fs = std::filesystem;

// Set from a signal handler, so it must not need a lock.
std::atomic<bool> bolInterrumpido{false};
static_assert(std::atomic<bool>::is_always_lock_free);

/// One file to be made.
struct clsTarea {
    std::string strRuta;  // within the archive
    std::string strFecha; // its modification time
    std::function<QByteArray()> fHacer;
};

/// The folder with another name in which everything is made first. As long as it has not been
/// renamed, it removes itself.
class clsCarpetaTemporal {
public:
    explicit clsCarpetaTemporal(const fs::path &rutaFinal)
        : rutaAqui(rutaFinal.string() + ".parcial-" + std::to_string(::getpid()))
    {
        fCrearCarpeta(rutaAqui);
    }
    clsCarpetaTemporal(const clsCarpetaTemporal &) = delete;
    clsCarpetaTemporal &operator=(const clsCarpetaTemporal &) = delete;
    ~clsCarpetaTemporal()
    {
        if (!rutaAqui.empty()) {
            std::error_code error;
            fs::remove_all(rutaAqui, error); // nobody is left to hear about a failure here
        }
    }
    const fs::path &fRuta() const { return rutaAqui; }
    void fTerminar(const fs::path &rutaFinal)
    {
        fRenombrar(rutaAqui, rutaFinal);
        rutaAqui.clear();
    }

private:
    fs::path rutaAqui;
};

std::string fJuntar(const char *strCarpeta, const char *strNombre)
{
    return std::string(strCarpeta) + '/' + strNombre;
}

void fAnotarFotos(std::vector<clsTarea> &lstTareas, std::span<const clsCarpeta> lstCarpetas)
{
    for (const clsCarpeta &carpeta : lstCarpetas) {
        for (const clsFilaFoto &fila : carpeta.lstFotos) {
            const std::string strRuta = fJuntar(carpeta.strCarpeta, fila.strNombre);
            lstTareas.push_back(
                {strRuta, fFechaDelFichero(strRuta, fila.strFecha),
                 [&carpeta, &fila, strRuta] { return fFoto(carpeta.pCamara, fila, strRuta); }});
        }
    }
}

void fAnotarOtros(std::vector<clsTarea> &lstTareas)
{
    for (const clsFilaVideo &fila : fVideos()) {
        lstTareas.push_back({fila.strRuta, fila.strFecha, [&fila] { return fVideo(fila); }});
    }
    for (const clsFilaTexto &fila : fTextos()) {
        lstTareas.push_back(
            {fila.strRuta, fila.strFecha, [&fila] { return QByteArray(fila.strTexto); }});
    }
}

/// Makes the files on all processors. After a failure the others stop at their next file; the
/// first failure is thrown.
class clsObra {
public:
    clsObra(const fs::path &rutaBase, const std::vector<clsTarea> &lstTareas)
        : rutaRaiz(rutaBase), lstPendientes(lstTareas)
    {
    }

    std::uintmax_t fHacer()
    {
        const unsigned intHilos = std::clamp(std::thread::hardware_concurrency(), 1U, 8U);
        std::vector<std::jthread> lstHilos;
        for (unsigned intI = 0; intI < intHilos; ++intI) {
            lstHilos.emplace_back([this] { fTrabajar(); });
        }
        for (std::jthread &hilo : lstHilos) {
            hilo.join();
        }
        if (pFallo) {
            std::rethrow_exception(pFallo);
        }
        return lngBytes;
    }

private:
    void fTrabajar() noexcept
    {
        for (std::size_t lngI = lngSiguiente++; lngI < lstPendientes.size() && !bolParar;
             lngI = lngSiguiente++) {
            try {
                fHacerUna(lstPendientes[lngI]);
            } catch (...) {
                const std::lock_guard cerrojo(mtxFallo);
                pFallo = pFallo ? pFallo : std::current_exception();
                bolParar = true;
            }
        }
    }
    void fHacerUna(const clsTarea &tarea)
    {
        if (bolInterrumpido) {
            throw std::runtime_error("interrumpido");
        }
        const QByteArray datFichero = tarea.fHacer();
        fEscribirFichero(rutaRaiz / tarea.strRuta, datFichero, fInstante(tarea.strFecha));
        lngBytes += static_cast<std::uintmax_t>(datFichero.size());
    }

    const fs::path &rutaRaiz;
    const std::vector<clsTarea> &lstPendientes;
    std::atomic<std::size_t> lngSiguiente{0};
    std::atomic<std::uintmax_t> lngBytes{0};
    std::atomic<bool> bolParar{false};
    std::mutex mtxFallo;
    std::exception_ptr pFallo;
};

void fCrearCarpetas(const fs::path &rutaRaiz, const std::vector<clsTarea> &lstTareas)
{
    for (const clsTarea &tarea : lstTareas) {
        fs::create_directories((rutaRaiz / tarea.strRuta).parent_path());
    }
}

/// Every folder gets the date of the newest file below it; otherwise it would have today's.
void fFecharCarpetas(const fs::path &rutaRaiz, const std::vector<clsTarea> &lstTareas)
{
    std::map<std::string, std::time_t> lstFechas;
    for (const clsTarea &tarea : lstTareas) {
        fs::path rutaRelativa = tarea.strRuta;
        while (!rutaRelativa.empty()) {
            rutaRelativa = rutaRelativa.parent_path();
            std::time_t &datFecha = lstFechas[rutaRelativa.string()];
            datFecha = std::max(datFecha, fInstante(tarea.strFecha));
        }
    }
    for (const auto &[strCarpeta, datFecha] : lstFechas) {
        fFecharCarpeta(strCarpeta.empty() ? rutaRaiz : rutaRaiz / strCarpeta, datFecha);
    }
}

int fContar(std::span<const clsCarpeta> lstCarpetas)
{
    std::size_t lngSuma = 0;
    for (const clsCarpeta &carpeta : lstCarpetas) {
        lngSuma += carpeta.lstFotos.size();
    }
    return static_cast<int>(lngSuma);
}

void fComprobarDestino(const fs::path &rutaFinal)
{
    if (!fs::exists(rutaFinal)) {
        return;
    }
    if (!fs::is_directory(rutaFinal)) {
        throw std::runtime_error(rutaFinal.string() + " existe y no es una carpeta");
    }
    if (!fs::is_empty(rutaFinal)) {
        throw std::runtime_error("la carpeta " + rutaFinal.string() + " no está vacía");
    }
}

} // namespace

fs::path fDestino(const fs::path &rutaCarpeta)
{
    fs::path rutaFinal = fs::weakly_canonical(fs::absolute(rutaCarpeta));
    if (!rutaFinal.has_filename()) {
        rutaFinal = rutaFinal.parent_path();
    }
    fComprobarDestino(rutaFinal);
    return rutaFinal;
}

clsResumen fHacerArchivo(const fs::path &rutaFinal)
{
    std::vector<clsTarea> lstTareas;
    fAnotarFotos(lstTareas, fCarpetasAntiguas());
    fAnotarFotos(lstTareas, fCarpetasNuevas());
    fAnotarOtros(lstTareas);

    clsCarpetaTemporal temporal(rutaFinal);
    fCrearCarpetas(temporal.fRuta(), lstTareas);
    const std::uintmax_t lngBytes = clsObra(temporal.fRuta(), lstTareas).fHacer();
    fFecharCarpetas(temporal.fRuta(), lstTareas);
    temporal.fTerminar(rutaFinal);
    return {fContar(fCarpetasAntiguas()) + fContar(fCarpetasNuevas()),
            static_cast<int>(fVideos().size()), static_cast<int>(fTextos().size()), lngBytes};
}

void fInterrumpir() { bolInterrumpido = true; }

} // namespace demo
