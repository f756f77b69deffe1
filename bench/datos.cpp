/// Makes data to measure with: a tree of small files like a family's archive, or a catalogue file
/// of an archive that does not exist.

#include "catalogue/registro.h"
#include "sistema/reemplazo.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>

namespace {

constexpr int intPorCarpeta = 200;

/// One file of the pretended archive: 200 to a folder, about 40 folders to a year.
struct clsFicha {
    std::string strCarpeta; ///< below the root, with a trailing "/"
    std::string strNombre;
    clsFecha fecha;
    std::int64_t lngBytes = 0;
};

std::string fNumero(const char *strForma, int intNumero)
{
    char chrTexto[64];
    std::snprintf(chrTexto, sizeof chrTexto, strForma, intNumero);
    return chrTexto;
}

clsFicha fFicha(int intFichero)
{
    // Extensions as they lie in an archive; some in small letters, some that the list never shows.
    static constexpr const char *lstExtensiones[] = {"JPG", "JPG", "jpg", "JPG", "JPG",
                                                     "JPG", "MP4", "JPG", "THM", "AVI"};
    const int intCarpeta = intFichero / intPorCarpeta;
    const std::string strClase = intCarpeta % 20 == 7 ? "X_Carpeta %02d/" : "Carpeta %02d/";
    const std::string strForma = std::string(intFichero % 50 == 3 ? "X_IMG_%04d." : "IMG_%04d.") +
                                 lstExtensiones[intFichero % 10];
    // A folder is an event of two days with a picture every seven minutes of twelve hours; the
    // next one follows nine days later.
    const int intFoto = intFichero % intPorCarpeta;
    const clsFecha fecha = fFechaDe({1995 + intCarpeta / 40 % 8000, 1, 1}).value_or(clsFecha{});
    const std::int64_t lngSegundos = std::int64_t{intCarpeta % 40} * 9 * 86400 +
                                     intFoto / 100 * 86400 + 9 * 3600 + intFoto % 100 * 433;
    return {fNumero("%04d/", 1995 + intCarpeta / 40) + fNumero(strClase.c_str(), intCarpeta % 40),
            fNumero(strForma.c_str(), intFichero % 10000),
            {fecha.lngSegundos + lngSegundos},
            100'000 + std::int64_t{intFichero} * 7777 % 5'000'000};
}

bool fHacerFichero(const std::string &strRaiz, const clsFicha &ficha)
{
    const std::string strRuta = strRaiz + ficha.strCarpeta + ficha.strNombre;
    const clsDescriptor archivo{open(strRuta.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)};
    // 30/12/1899 lies 25,569 days before 1970. The time zone does not matter here.
    const timespec lstTiempos[2] = {
        {0,                                        UTIME_OMIT},
        {ficha.fecha.lngSegundos - 25569 * 86400L, 0         }
    };
    const std::string strBytes(static_cast<std::size_t>(ficha.lngBytes % 100), 'x');
    return archivo.fAbierto() && !fEscribirTodo(archivo, strBytes) &&
           futimens(archivo.fFd(), lstTiempos) == 0;
}

int fHacerArbol(const std::string &strRaiz, int intFicheros)
{
    for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
        const clsFicha ficha = fFicha(intFichero);
        std::error_code error;
        if (intFichero % intPorCarpeta == 0) {
            std::filesystem::create_directories(strRaiz + ficha.strCarpeta, error);
        }
        if (error || !fHacerFichero(strRaiz, ficha)) {
            std::perror((strRaiz + ficha.strCarpeta).c_str());
            return 1;
        }
    }
    return 0;
}

int fHacerCatalogo(const std::string &strRuta, int intFicheros)
{
    clsReemplazo archivo(strRuta);
    std::string strBytes;
    for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
        const clsFicha ficha = fFicha(intFichero);
        fAnadirRegistro(strBytes, "/media/disco/Fotos/" + ficha.strCarpeta, ficha.strNombre,
                        ficha.fecha, ficha.lngBytes);
    }
    archivo.fEscribir(strBytes);
    return archivo.fConfirmar(false) == 0 ? 0 : 1;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 3) {
        std::fputs("miravel_bench_datos arbol|catalogo N [FOLDER]\n", stderr);
        return 2;
    }
    const std::string strClase = lstArgumentos[1];
    const int intFicheros = std::atoi(lstArgumentos[2]);
    std::error_code error;
    std::string strCarpeta = intArgumentos > 3 ? lstArgumentos[3] : "";
    if (strCarpeta.empty()) {
        strCarpeta =
            (std::filesystem::temp_directory_path(error) / "miravel-bench-XXXXXX").string();
        if (mkdtemp(strCarpeta.data()) == nullptr) {
            std::perror(strCarpeta.c_str());
            return 1;
        }
    }
    std::filesystem::create_directories(strCarpeta, error);
    const bool bolArbol = strClase == "arbol";
    const std::string strRuta =
        strCarpeta + (bolArbol ? "/arbol-" : "/catalogo-") + std::to_string(intFicheros);
    const int intEstado =
        bolArbol ? fHacerArbol(strRuta + '/', intFicheros) : fHacerCatalogo(strRuta, intFicheros);
    std::puts(strRuta.c_str());
    return intEstado;
}
