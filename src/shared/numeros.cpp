#include "shared/numeros.h"

#include "shared/texto.h"
#include "sistema/entorno.h"

#include <charconv>
#include <cmath>

namespace {

template <typename Numero> std::optional<Numero> fLeerTodo(std::string_view strTexto)
{
    strTexto = fSinBlancos(strTexto);
    if (strTexto.starts_with('+') && strTexto.size() > 1 && strTexto[1] != '-') {
        strTexto.remove_prefix(1);
    }
    Numero numero{};
    const char *const chrFin = strTexto.data() + strTexto.size();
    const auto [chrLeido, error] = std::from_chars(strTexto.data(), chrFin, numero);
    if (error != std::errc{} || chrLeido != chrFin) {
        return {};
    }
    return numero;
}

} // namespace

clsSignos fSignosLocales()
{
    const auto signos = fSignosLocale();
    // A locale of an 8-bit character set can hold a sign that is no UTF-8 text.
    if (!signos || signos->strGrupo.empty() || !fEsUtf8(signos->strGrupo) ||
        !fEsUtf8(signos->strDecimal)) {
        return {};
    }
    return {signos->strGrupo, signos->strDecimal};
}

std::string fConGrupos(std::int64_t lngValor, const clsSignos &signos)
{
    const std::string strCifras = std::to_string(lngValor);
    const std::size_t lngSigno = lngValor < 0 ? 1 : 0;
    std::string strTexto = strCifras.substr(0, lngSigno);
    for (std::size_t lng = lngSigno; lng < strCifras.size(); ++lng) {
        if (lng > lngSigno && (strCifras.size() - lng) % 3 == 0) {
            strTexto += signos.strGrupo;
        }
        strTexto += strCifras[lng];
    }
    return strTexto;
}

std::int64_t fKilobytes(std::int64_t lngBytes)
{
    const std::int64_t lngUtiles = lngBytes < 1 ? 1 : lngBytes;
    return lngUtiles / 1024 + (lngUtiles % 1024 >= 512 ? 1 : 0);
}

std::string fTextoKB(std::int64_t lngBytes, const clsSignos &signos)
{
    constexpr int intAncho = 11;
    const std::string strNumero = fConGrupos(fKilobytes(lngBytes), signos);
    const int intFaltan = intAncho - fContarCaracteres(strNumero);
    return std::string(static_cast<std::size_t>(intFaltan > 0 ? intFaltan : 0), ' ') + strNumero +
           " KB";
}

std::optional<std::int64_t> fLeerTamano(std::string_view strTexto)
{
    if (const auto lngEntero = fLeerTodo<std::int64_t>(strTexto)) {
        return lngEntero;
    }
    const auto dblValor = fLeerTodo<double>(strTexto);
    constexpr double dblLimite = 9.2e18;
    if (!dblValor || !std::isfinite(*dblValor) || std::abs(*dblValor) > dblLimite) {
        return {};
    }
    return static_cast<std::int64_t>(*dblValor);
}

std::optional<int> fLeerEntero(std::string_view strTexto) { return fLeerTodo<int>(strTexto); }
