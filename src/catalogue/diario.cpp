#include "catalogue/diario.h"

#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "sistema/reemplazo.h"

#include <cerrno>
#include <charconv>

namespace {

constexpr std::int64_t lngMaximo = 256 << 20; ///< bytes; a million files of usual paths
constexpr std::string_view strFormaCopia = "yyyyMMddHHmmss";

std::string fFin(const clsDiario &diario)
{
    return "fin " + std::to_string(diario.lstAnotaciones.size());
}

void fAnadir(std::string &strTexto, const clsAnotacion &anotacion)
{
    strTexto += anotacion.strDe + "\r\n" + anotacion.strA + "\r\n";
    strTexto += fEscribirFecha(anotacion.fecha);
    const auto fNumero = [&strTexto](auto lngNumero) {
        strTexto += ' ' + std::to_string(lngNumero);
    };
    fNumero(anotacion.antes.lngSegundos);
    fNumero(anotacion.antes.lngNanosegundos);
    fNumero(anotacion.antes.lngBytes);
    fNumero(anotacion.identidad.lngDisco);
    fNumero(anotacion.identidad.lngNumero);
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

bool fLeerDatos(std::string_view strTexto, clsAnotacion &anotacion)
{
    const auto fecha = fLeerFecha(strTexto.substr(0, strFormaCatalogo.size()));
    if (!fecha) {
        return false;
    }
    anotacion.fecha = *fecha;
    strTexto.remove_prefix(strFormaCatalogo.size());
    return fTomar(strTexto, anotacion.antes.lngSegundos) &&
           fTomar(strTexto, anotacion.antes.lngNanosegundos) &&
           fTomar(strTexto, anotacion.antes.lngBytes) &&
           fTomar(strTexto, anotacion.identidad.lngDisco) &&
           fTomar(strTexto, anotacion.identidad.lngNumero) && strTexto.empty();
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
                         datos.strFin == "\r\n" && fLeerDatos(datos.strTexto, anotacion);
    return bolBien ? std::optional(std::move(anotacion)) : std::nullopt;
}

bool fEsCopia(std::string_view strNombre)
{
    const std::string strInicio = std::string(strFicheroCatalogo) + '.';
    return strNombre.starts_with(strInicio) &&
           fLeerFecha(strNombre.substr(strInicio.size()), strFormaCopia);
}

/// Whether a file is the one that was written down. The number of its disk can have changed; on
/// disks without numbers of their own that of the file, too.
bool fEsLaMisma(const clsDatosArchivo &datos, const clsAnotacion &anotacion)
{
    return datos.identidad.lngNumero == anotacion.identidad.lngNumero &&
           datos.huella.lngBytes == anotacion.antes.lngBytes;
}

} // namespace

clsError fEscribirDiario(const std::string &strRaiz, const clsDiario &diario)
{
    std::string strTexto;
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

std::optional<clsDiario> fLeerDiario(const std::string &strRaiz)
{
    const auto archivo = fAbrirRegular(strRaiz + std::string(strFicheroDiario), false);
    if (!archivo || archivo->huella.lngBytes > lngMaximo) {
        return {};
    }
    clsRegistros registros(fBytesDe(archivo->descriptor));
    clsDiario diario;
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
    const bool bolEntero = fin.strTexto == fFin(diario) && fin.strFin == "\r\n";
    return bolEntero && fEsCopia(diario.strCopia) ? std::optional(std::move(diario)) : std::nullopt;
}

void fBorrarDiario(const std::string &strRaiz) { fBorrar(strRaiz + std::string(strFicheroDiario)); }

bool fRenombrado(const std::string &strRaiz, const clsAnotacion &anotacion)
{
    const auto nueva = fConsultar(strRaiz + anotacion.strA, false);
    const auto vieja = fConsultar(strRaiz + anotacion.strDe, false);
    if (!nueva || nueva->huella.lngBytes != anotacion.antes.lngBytes) {
        return false;
    }
    // With both names there, the old one counts, unless it means another file by now.
    return vieja ? fEsLaMisma(*nueva, anotacion) && !fEsLaMisma(*vieja, anotacion)
                 : vieja.fError() == ENOENT;
}
