#include "shared/numeros.h"

#include "shared/texto.h"

#include <algorithm>
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
    const clsSignos signos = fSignosLocale();
    // A locale of an 8-bit character set can hold a sign that is no UTF-8 text.
    const bool bolSirven =
        !signos.strGrupo.empty() && fEsUtf8(signos.strGrupo) && fEsUtf8(signos.strDecimal);
    return bolSirven ? signos : clsSignos();
}

std::string fConGrupos(std::int64_t lngValor, const clsSignos &signos)
{
    std::string strTexto = std::to_string(lngValor);
    const std::size_t lngPrimeras = lngValor < 0 ? 4 : 3; // with the sign
    for (std::size_t lng = strTexto.size(); lng > lngPrimeras;) {
        strTexto.insert(lng -= 3, signos.strGrupo);
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
    const std::string strNumero = fConGrupos(fKilobytes(lngBytes), signos);
    const int intFaltan = std::max(11 - fContarCaracteres(strNumero), 0);
    return std::string(static_cast<std::size_t>(intFaltan), ' ') + strNumero + " KB";
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
