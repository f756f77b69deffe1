#include "catalogue/diario.h"

#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "sistema/cambios.h"
#include "sistema/carpeta.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <tuple>

namespace {

constexpr std::int64_t lngMaximo = 256 << 20; ///< bytes; a million files of usual paths
constexpr std::string_view strFormaCopia = "yyyyMMddHHmmss";

std::string fFin(const clsDiario &diario)
{
    return (diario.bolDeshace ? "deshacer " : "fin ") +
           std::to_string(diario.lstAnotaciones.size());
}

void fAnadir(std::string &strTexto, const clsAnotacion &anotacion)
{
    strTexto.append(anotacion.strDe).append("\r\n").append(anotacion.strA).append("\r\n");
    strTexto += fEscribirFecha(anotacion.fecha);
    const auto fNumero = [&strTexto](auto lngNumero) {
        std::array<char, 24> lstCifras{' '};
        char *const chrFin = lstCifras.data() + lstCifras.size();
        strTexto.append(lstCifras.data(),
                        std::to_chars(lstCifras.data() + 1, chrFin, lngNumero).ptr);
    };
    const auto &[huella, identidad, lngNombres, bolRoto, bolArchivo] = anotacion.antes;
    fNumero(anotacion.despues.lngSegundos);
    fNumero(anotacion.despues.lngNanosegundos);
    fNumero(huella.lngSegundos);
    fNumero(huella.lngNanosegundos);
    fNumero(huella.lngBytes);
    fNumero(lngNombres);
    fNumero(identidad.lngDisco);
    fNumero(identidad.lngNumero);
    strTexto += "\r\n";
}

/// Takes a blank and a number from the start of a text.
template <typename Numero> bool fTomar(std::string_view &strTexto, Numero &lngNumero)
{
    if (!strTexto.starts_with(' ')) {
        return false;
    }
    const char *const chrFin = strTexto.data() + strTexto.size();
    const auto [chr, error] = std::from_chars(strTexto.data() + 1, chrFin, lngNumero);
    strTexto = {chr, chrFin};
    return error == std::errc();
}

bool fTomarHora(std::string_view &strTexto, clsHuella &huella)
{
    constexpr long lngSegundo = 1'000'000'000;
    constexpr std::int64_t lngLejos = std::int64_t{1} << 40; // far beyond any date
    return fTomar(strTexto, huella.lngSegundos) && fTomar(strTexto, huella.lngNanosegundos) &&
           huella.lngSegundos > -lngLejos && huella.lngSegundos < lngLejos &&
           huella.lngNanosegundos >= 0 && huella.lngNanosegundos < lngSegundo;
}

bool fLeerDatos(std::string_view strTexto, clsAnotacion &anotacion)
{
    const auto fecha = fLeerFecha(strTexto.substr(0, strFormaCatalogo.size()));
    if (!fecha) {
        return false;
    }
    anotacion.fecha = *fecha;
    strTexto.remove_prefix(strFormaCatalogo.size());
    auto &[huella, identidad, lngNombres, bolRoto, bolArchivo] = anotacion.antes;
    const bool bolBien = fTomarHora(strTexto, anotacion.despues) && fTomarHora(strTexto, huella) &&
                         fTomar(strTexto, huella.lngBytes) && fTomar(strTexto, lngNombres) &&
                         fTomar(strTexto, identidad.lngDisco) &&
                         fTomar(strTexto, identidad.lngNumero) && strTexto.empty();
    anotacion.despues.lngBytes = huella.lngBytes;
    return bolBien;
}

/// Whether a path below the root leads to a file there.
bool fRutaValida(const std::string &strRuta)
{
    return !fNombreDe(strRuta).empty() && !strRuta.starts_with('/') && fBajoRaiz(strRuta, "");
}

std::optional<clsAnotacion> fAnotacion(const clsRegistro &registro)
{
    const auto &[de, a, datos] = registro.lstLineas;
    clsAnotacion anotacion{std::string(de.strTexto), std::string(a.strTexto), {}, {}, {}};
    const bool bolBien = fRutaValida(anotacion.strDe) && fRutaValida(anotacion.strA) &&
                         fCarpetaDe(anotacion.strDe) == fCarpetaDe(anotacion.strA) &&
                         datos.strFin == "\r\n" && fLeerDatos(datos.strTexto, anotacion);
    return bolBien ? std::optional(std::move(anotacion)) : std::nullopt;
}

/// The date behind a name that something begins with and a dot.
std::optional<clsFecha> fFechaTras(std::string_view strNombre, std::string_view strInicio)
{
    if (!strNombre.starts_with(strInicio) || !strNombre.substr(strInicio.size()).starts_with('.')) {
        return {};
    }
    return fLeerFecha(strNombre.substr(strInicio.size() + 1), strFormaCopia);
}

std::string fNombreGuardado(clsFecha fecha)
{
    return std::string(strFicheroDiario) + '.' + fEscribirFecha(fecha, strFormaCopia);
}

/// Whether a file is the one that was written down. The number of its disk can have changed; on
/// disks without numbers of their own that of the file, too.
bool fEsLaMisma(const clsDatosArchivo &datos, const clsAnotacion &anotacion)
{
    return datos.identidad.lngNumero == anotacion.antes.identidad.lngNumero &&
           datos.huella.lngBytes == anotacion.antes.huella.lngBytes;
}

} // namespace

clsResultado<clsVisto> fVer(const std::string &strRuta)
{
    return fVer(strRuta, fConsultar(strRuta, false));
}

clsResultado<clsVisto> fVer(const std::string &strRuta, const clsResultado<clsDatosArchivo> &nombre)
{
    if (!nombre) {
        return nombre.fError();
    }
    clsVisto visto{nombre->huella, nombre->identidad, nombre->lngNombres};
    const auto archivo = nombre->tipo == TipoArchivo::Enlace ? fConsultar(strRuta) : nombre;
    visto.bolRoto = !archivo;
    visto.bolArchivo = nombre->tipo == TipoArchivo::Archivo;
    if (archivo) {
        visto.huella.lngSegundos = archivo->huella.lngSegundos;
        visto.huella.lngNanosegundos = archivo->huella.lngNanosegundos;
    }
    return visto;
}

bool clsAnotacion::fIntacta() const { return strDe == strA && despues == antes.huella; }

bool fParecida(const clsHuella &una, const clsHuella &otra)
{
    constexpr std::int64_t lngHolgura = 2; // FAT has even seconds only
    return una.lngBytes == otra.lngBytes && una.lngSegundos >= otra.lngSegundos - lngHolgura &&
           una.lngSegundos <= otra.lngSegundos + lngHolgura;
}

clsError fEscribirDiario(const std::string &strRaiz, const clsDiario &diario)
{
    constexpr std::size_t lngUsual = 200; // bytes for a file, its two paths among them
    std::string strTexto;
    strTexto.reserve(diario.lstAnotaciones.size() * lngUsual);
    for (const clsAnotacion &anotacion : diario.lstAnotaciones) {
        fAnadir(strTexto, anotacion);
    }
    strTexto += diario.strCopia + "\r\n" + fFin(diario) + "\r\n";
    if (static_cast<std::int64_t>(strTexto.size()) > lngMaximo) {
        return EFBIG;
    }
    clsReemplazo archivo(strRaiz + std::string(strFicheroDiario));
    archivo.fEscribir(strTexto);
    return archivo.fConfirmar(true);
}

std::optional<clsDiario> fLeerDiario(const std::string &strRaiz, std::string_view strFichero)
{
    const auto archivo = fAbrirRegular(strRaiz + std::string(strFichero), false);
    if (!archivo || archivo->huella.lngBytes > lngMaximo) {
        return {};
    }
    clsRegistros registros(fBytesDe(archivo->descriptor));
    clsDiario diario;
    constexpr std::int64_t lngCorta = 100; // bytes of a file; the paths can be shorter
    diario.lstAnotaciones.reserve(static_cast<std::size_t>(archivo->huella.lngBytes / lngCorta));
    const clsRegistro *registro = registros.fSiguiente();
    for (; registro != nullptr && registro->lngLineas == 3; registro = registros.fSiguiente()) {
        auto anotacion = fAnotacion(*registro);
        if (!anotacion) {
            return {};
        }
        diario.lstAnotaciones.push_back(std::move(*anotacion));
    }
    if (registro == nullptr || registro->lngLineas != 2) {
        return {};
    }
    const auto &[copia, fin, nada] = registro->lstLineas;
    diario.strCopia = copia.strTexto;
    diario.bolDeshace = fin.strTexto.starts_with('d');
    const bool bolEntero = fin.strTexto == fFin(diario) && fin.strFin == "\r\n" &&
                           fFechaTras(diario.strCopia, strFicheroCatalogo);
    return bolEntero ? std::optional(std::move(diario)) : std::nullopt;
}

void fBorrarDiario(const std::string &strRaiz, std::string_view strFichero)
{
    fBorrar(strRaiz + std::string(strFichero));
}

clsError fGuardarDiario(const std::string &strRaiz, const clsDiario &diario)
{
    constexpr int intNombres = 3; // others may take a free name, but not all of them
    clsFecha fecha = fFechaDeCopia(diario.strCopia).value_or(clsFecha{});
    const std::string strDe = strRaiz + std::string(strFicheroDiario);
    clsError error = EEXIST;
    for (int intNombre = 0; error == EEXIST && intNombre < intNombres; ++intNombre) {
        const std::string strA = strRaiz + fNombreGuardado(fecha);
        error = fRenombrar(strDe, strA);
        // Killed while it was renamed, it can have both names.
        error = error == EEXIST ? fSoltarNombre(strDe, strA) : error;
        ++fecha.lngSegundos;
    }
    return error;
}

std::string fNombreGuardado(std::string_view strCopia)
{
    return fNombreGuardado(fFechaDeCopia(strCopia).value_or(clsFecha{}));
}

std::vector<std::string> fDiariosGuardados(const std::string &strRaiz)
{
    std::vector<clsEntradaCarpeta> lstEntradas;
    if (const auto carpeta = fAbrirCarpeta(strRaiz)) {
        static_cast<void>(fListarCarpeta(*carpeta, lstEntradas)); // what it gave counts
    }
    std::vector<std::tuple<std::int64_t, long, std::string>> lstDiarios;
    for (const clsEntradaCarpeta &entrada : lstEntradas) {
        const auto huella = fFechaTras(entrada.strNombre, strFicheroDiario)
                                ? fHuella(strRaiz + entrada.strNombre, false)
                                : clsError(ENOENT);
        if (huella) {
            lstDiarios.emplace_back(huella->lngSegundos, huella->lngNanosegundos,
                                    entrada.strNombre);
        }
    }
    std::sort(lstDiarios.rbegin(), lstDiarios.rend());
    std::vector<std::string> lstNombres;
    lstNombres.reserve(lstDiarios.size());
    for (auto &[lngSegundos, lngNanosegundos, strNombre] : lstDiarios) {
        lstNombres.push_back(std::move(strNombre));
    }
    return lstNombres;
}

std::optional<clsFecha> fFechaDeCopia(std::string_view strNombre)
{
    const auto fecha = fFechaTras(strNombre, strFicheroCatalogo);
    return fecha ? fecha : fFechaTras(strNombre, strFicheroDiario);
}

bool fRenombrado(const std::string &strRaiz, const clsAnotacion &anotacion)
{
    if (anotacion.strA == anotacion.strDe) {
        return false;
    }
    const auto nueva = fConsultar(strRaiz + anotacion.strA, false);
    const auto vieja = fConsultar(strRaiz + anotacion.strDe, false);
    if (!nueva || nueva->huella.lngBytes != anotacion.antes.huella.lngBytes) {
        return false;
    }
    // With both names there, the old one counts, unless it means another file by now.
    return vieja ? fEsLaMisma(*nueva, anotacion) && !fEsLaMisma(*vieja, anotacion)
                 : vieja.fError() == ENOENT;
}
