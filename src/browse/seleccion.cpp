#include "browse/seleccion.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_set>

namespace {

/// Gives every row of a stretch the tick that a function says for its present one.
template <typename Marca> void fRecorrer(clsFilas &filas, clsTramo tramo, const Marca &fMarca)
{
    const int lngHasta = std::min(tramo.lngHasta, filas.fCantidad());
    for (int lngPos = std::max(tramo.lngDesde, 0); lngPos < lngHasta; ++lngPos) {
        filas.fMarcar(lngPos, fMarca(filas.fMarcada(lngPos)));
    }
}

bool fContraria(bool bolMarca) { return !bolMarca; }

/// Kilobytes as megabytes, "#,##0.0": one decimal, halves away from zero.
std::string fTextoMb(std::int64_t lngKB, const clsSignos &signos)
{
    const std::int64_t lngResto = lngKB % 1024;
    // In tenths, rounded; the rest alone, so that no total overflows.
    const std::int64_t lngDecimas = (lngResto * 10 + (lngResto < 0 ? -512 : 512)) / 1024;
    const std::int64_t lngMb = lngKB / 1024 + lngDecimas / 10;
    // A damaged catalogue can hold negative sizes.
    std::string strMb = lngMb == 0 && lngDecimas < 0 ? "-" : "";
    strMb += fConGrupos(lngMb, signos);
    return strMb + signos.strDecimal + std::to_string(std::abs(lngDecimas % 10));
}

} // namespace

void fSeleccionar(clsFilas &filas, Seleccion seleccion, clsTramo pagina)
{
    const clsTramo todo{0, filas.fCantidad()};
    switch (seleccion) {
    case Seleccion::Todo:
        return fRecorrer(filas, todo, [](bool) { return true; });
    case Seleccion::Pantalla:
        return fRecorrer(filas, pagina, [](bool) { return true; });
    case Seleccion::Nada:
        return fRecorrer(filas, todo, [](bool) { return false; });
    case Seleccion::Invertir:
        return fRecorrer(filas, todo, fContraria);
    }
}

void fInvertirEntre(clsFilas &filas, int lngUna, int lngOtra)
{
    const auto [lngMenor, lngMayor] = std::minmax(lngUna, lngOtra);
    fRecorrer(filas, {lngMenor, lngMayor + 1}, fContraria);
}

void fMarcarSolo(clsFilas &filas, const std::vector<std::string> &lstRutas)
{
    const std::unordered_set<std::string> lstCuales(lstRutas.begin(), lstRutas.end());
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        filas.fMarcar(lngPos, lstCuales.contains(filas.fRuta(lngPos)));
    }
}

std::vector<int> fMarcadas(const clsFilas &filas)
{
    std::vector<int> lstPosiciones;
    lstPosiciones.reserve(static_cast<std::size_t>(filas.fContarMarcados()));
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        if (filas.fMarcada(lngPos)) {
            lstPosiciones.push_back(lngPos);
        }
    }
    return lstPosiciones;
}

std::string fTextoTotales(int lngFotos, std::int64_t lngTotalKB, const clsSignos &signos)
{
    // The blanks at the ends are part of the text.
    return std::to_string(lngFotos) + " fotos.      \r\n\r\n" + fTextoMb(lngTotalKB, signos) +
           " Mb.      \r\n";
}
