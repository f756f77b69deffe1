#include "shared/ini.h"

#include "shared/texto.h"

namespace {

/// The byte-order mark of UTF-8. In front of the first line it is no part of it.
constexpr std::string_view strMarca = "\xEF\xBB\xBF";

/// One line of the text: where it stands, and what it says.
struct clsLinea {
    std::size_t lngInicio = 0;
    std::size_t lngFin = 0;       ///< first position behind the line's own text
    std::size_t lngSiguiente = 0; ///< first position of the next line
};

clsLinea fLineaEn(std::string_view strIni, std::size_t lngInicio)
{
    const std::size_t lngSalto = strIni.find('\n', lngInicio);
    if (lngSalto == std::string_view::npos) {
        return {lngInicio, strIni.size(), strIni.size()};
    }
    const bool bolRetorno = lngSalto > lngInicio && strIni[lngSalto - 1] == '\r';
    return {lngInicio, bolRetorno ? lngSalto - 1 : lngSalto, lngSalto + 1};
}

/// The name between the brackets of a section line; nothing for any other line.
std::optional<std::string_view> fSeccion(std::string_view strLinea)
{
    const std::string_view strTexto = fSinBlancos(strLinea);
    const std::size_t lngCierre = strTexto.find(']');
    if (!strTexto.starts_with('[') || lngCierre == std::string_view::npos) {
        return {};
    }
    return fSinBlancos(strTexto.substr(1, lngCierre - 1));
}

bool fEsClave(std::string_view strLinea, std::string_view strClave)
{
    const std::size_t lngIgual = strLinea.find('=');
    return lngIgual != std::string_view::npos && !fSinBlancos(strLinea).starts_with(';') &&
           fIgualSinCaja(fSinBlancos(strLinea.substr(0, lngIgual)), strClave);
}

/// Where a key stands, or where it has to be put.
struct clsSitio {
    bool bolSeccion = false;
    std::optional<clsLinea> linea; ///< the key's line
    std::size_t lngHueco = 0;      ///< behind the section's last line that is not blank
};

clsSitio fBuscar(std::string_view strIni, std::string_view strSeccion, std::string_view strClave)
{
    clsSitio sitio;
    std::size_t lngPos = strIni.starts_with(strMarca) ? strMarca.size() : 0;
    while (lngPos < strIni.size()) {
        const clsLinea linea = fLineaEn(strIni, lngPos);
        lngPos = linea.lngSiguiente;
        const std::string_view strLinea =
            strIni.substr(linea.lngInicio, linea.lngFin - linea.lngInicio);
        if (const auto strNombre = fSeccion(strLinea)) {
            if (sitio.bolSeccion) {
                break;
            }
            sitio.bolSeccion = fIgualSinCaja(*strNombre, strSeccion);
            sitio.lngHueco = lngPos;
        } else if (sitio.bolSeccion && fEsClave(strLinea, strClave)) {
            sitio.linea = linea;
            break;
        } else if (!fSinBlancos(strLinea).empty()) {
            sitio.lngHueco = lngPos;
        }
    }
    return sitio;
}

std::string_view fSinComillas(std::string_view strValor)
{
    if (strValor.size() >= 2 && strValor.front() == strValor.back() &&
        (strValor.front() == '"' || strValor.front() == '\'')) {
        return strValor.substr(1, strValor.size() - 2);
    }
    return strValor;
}

} // namespace

std::optional<std::string> fLeerClave(std::string_view strIni, std::string_view strSeccion,
                                      std::string_view strClave)
{
    const clsSitio sitio = fBuscar(strIni, strSeccion, strClave);
    if (!sitio.linea) {
        return {};
    }
    const std::string_view strLinea =
        strIni.substr(sitio.linea->lngInicio, sitio.linea->lngFin - sitio.linea->lngInicio);
    return std::string(fSinComillas(fSinBlancos(strLinea.substr(strLinea.find('=') + 1))));
}

std::string fCambiarClave(std::string_view strIni, std::string_view strSeccion,
                          std::string_view strClave, std::string_view strValor)
{
    const clsSitio sitio = fBuscar(strIni, strSeccion, strClave);
    std::string strEscrito(strValor);
    if (fSinComillas(fSinBlancos(strValor)) != strValor) {
        strEscrito = '"' + strEscrito + '"';
    }
    std::string strNuevo(strIni);
    if (sitio.linea) {
        const std::size_t lngIgual = strIni.find('=', sitio.linea->lngInicio);
        return strNuevo.replace(lngIgual + 1, sitio.linea->lngFin - lngIgual - 1, strEscrito);
    }
    const std::string strLinea = std::string(strClave) + '=' + strEscrito + "\r\n";
    std::size_t lngHueco = sitio.bolSeccion ? sitio.lngHueco : strNuevo.size();
    const std::string_view strDelante = strIni.substr(0, lngHueco);
    if (!strDelante.empty() && !strDelante.ends_with('\n') && strDelante != strMarca) {
        strNuevo.insert(lngHueco, "\r\n");
        lngHueco += 2;
    }
    const std::string strCabeza =
        sitio.bolSeccion ? std::string() : '[' + std::string(strSeccion) + "]\r\n";
    return strNuevo.insert(lngHueco, strCabeza + strLinea);
}
