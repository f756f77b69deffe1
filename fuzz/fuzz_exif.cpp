// The EXIF reader takes any bytes; the short way to the dates agrees with the table. A name's dates
// are whole days.

#include "dates/clsFile.h"
#include "dates/exif.h"
#include "dates/exif_fecha.h"
#include "dates/ifd.h"
#include "dates/origen_exif.h"
#include "dates/valor.h"
#include "shared/texto.h"

#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace {

void fExigir(bool bolCierto)
{
    if (!bolCierto) {
        std::abort();
    }
}

/// A beginning that leads the rest of the bytes to the IFD reader, drawn by the first byte.
std::string fPrincipio(unsigned intCual)
{
    const std::string strII("II*\0\x08\0\0\0", 8);
    const std::string strMM("MM\0*\0\0\0\x08", 8);
    const std::string strJpeg("\xFF\xD8\xFF\xE1\x10\0Exif\0\0", 12);
    // IFD0 with nothing but the dates and a pointer; the Exif IFD is what follows.
    const std::string strIfd("\0\x02\x01\x32\0\x02\0\0\0\x14\0\0\0\x2A\x87\x69\0\x04\0\0\0\x01"
                             "\0\0\0\x26\0\0\0\x26",
                             30);
    switch (intCual % 8) {
    case 0:
        return strII;
    case 1:
        return strMM;
    case 2:
        return strJpeg + strII;
    case 3:
        return strJpeg + strMM;
    case 4:
        return strMM + strIfd;
    case 5:
        return "\xFF\xD8";
    default:
        return {};
    }
}

clsFecha fFecha(const clsTablaExif &tabla, std::string_view strCodigo)
{
    const auto valor = GetExifValue(tabla, strCodigo, true);
    const auto *const fecha = valor ? std::get_if<clsFecha>(&*valor) : nullptr;
    return fecha != nullptr ? *fecha : clsFecha();
}

/// A file with these bytes, in memory; its path. The next call replaces it.
std::string fFichero(std::string_view strBytes)
{
    static const int intFd = memfd_create("foto", MFD_CLOEXEC);
    const auto lngBytes = static_cast<ssize_t>(strBytes.size());
    fExigir(intFd >= 0 && ftruncate(intFd, 0) == 0 &&
            pwrite(intFd, strBytes.data(), strBytes.size(), 0) == lngBytes);
    return "/proc/self/fd/" + std::to_string(intFd);
}

/// The text of the window, from a file, is that of the table and no longer than a window takes.
void fComprobarTexto(std::string_view strBytes, const clsTablaExif &tabla)
{
    const std::string strTexto = GetExifText(fFichero(strBytes));
    fExigir(strTexto == fTextoTabla(tabla));
    fExigir(strTexto.size() < std::size_t{32} << 20 && fEsUtf8(strTexto));
}

void fComprobarTabla(clsOrigen &origen, clsTablaExif &tabla)
{
    clsMarcas marcas;
    const bool bolLeido = ReadExifTable(origen, tabla, marcas).empty();
    fExigir(bolLeido || tabla.lstFilas.empty());
    fExigir(!bolLeido || (marcas.lngInicioTiff >= 0 && marcas.lngIfd0 >= 0));
    fExigir(tabla.lstFilas.size() <= std::size_t{intMaximoFilas});
    for (const clsFilaExif &fila : tabla.lstFilas) {
        fExigir(fila.strValor.size() <= lngMaximoValor && fila.strCodigo.size() == 4);
    }
    const clsFechasExif fechas = fLeerFechasExif(origen);
    fExigir(fechas.datFecha == fFecha(tabla, "0132"));
    fExigir(fechas.datTomada == fFecha(tabla, "9003"));
}

void fComprobarExif(std::string_view strBytes)
{
    clsOrigenMemoria origen(strBytes);
    clsTablaExif tabla;
    fComprobarTabla(origen, tabla);
    fComprobarTexto(strBytes, tabla);
    // As a file of another format, which may hold the data somewhere in it.
    if (const auto dentro = fExifDentro(origen)) {
        fExigir(dentro->fTamano() >= 0);
        fComprobarTabla(*dentro, tabla);
    }
}

void fComprobarFechas(std::string_view strTexto)
{
    const clsFechasNombre nombre = fFechasDeNombre(strTexto);
    for (const clsFecha fecha : {nombre.datAnoPrimero, nombre.datDiaPrimero}) {
        fExigir(fecha.lngSegundos % 86400 == 0);
        fExigir(fLeerFecha(fEscribirFecha(fecha)) == fecha);
    }
    if (const auto fecha = fLeerFechaExif(strTexto)) {
        fExigir(fLeerFechaExif(fEscribirFecha(*fecha).replace(4, 1, ":").replace(7, 1, ":")) ==
                fecha);
    }
}

} // namespace

/// The first byte chooses the beginning, the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    const std::string_view strTodo(reinterpret_cast<const char *>(bytDatos), lngBytes);
    fComprobarFechas(strTodo);
    if (!strTodo.empty()) {
        fComprobarExif(fPrincipio(bytDatos[0]) + std::string(strTodo.substr(1)));
    }
    return 0;
}
