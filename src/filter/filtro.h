#pragma once

#include "catalogue/filas.h"
#include "shared/fecha.h"
#include "shared/hilos.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How the words of the text filter are taken: all of them, at least one, none.
enum class ModoTexto { And = 0, Or = 1, Nor = 2 };

/// What the filter lets pass. With a date range the words are not looked at; without range and
/// words every file passes.
struct clsFiltro {
    bool bolFechas = false;
    clsFecha datDesde; ///< first and last moment of the range, both included
    clsFecha datHasta;
    std::vector<std::string> lstPalabras; ///< UTF-8; blanks around them do not count, empty ones do
    bool bolCarpeta = false;              ///< the words may lie in the folders, too
    ModoTexto modo = ModoTexto::And;
    bool bolFormatos = false; ///< other formats are listed: their whole extension is cut off
};

/// A UTF-8 text in capitals and composed (NFC).
using clsMayusculas = std::function<std::string(std::string_view)>;

/// Whether names and paths hold the words of a filter.
class clsBuscaTexto {
public:
    /// @param fMayusculas asked only for texts that hold, composed, other letters than Latin-1.
    clsBuscaTexto(const clsFiltro &filtro, clsMayusculas fMayusculas);

    /// Whether the row at that position (display order) passes.
    [[nodiscard]] bool fPasa(const clsFilas &filas, int lngPos);

private:
    void fAnadir(std::string &strSujeto, std::string_view strUtf8) const;
    void fComponerSujeto(const clsFilas &filas, int lngPos);
    [[nodiscard]] const std::string &fCarpeta(const clsFilas &filas, int lngPos);

    clsMayusculas m_fMayusculas;
    clsFiltro m_filtro;                     ///< with its words prepared
    std::vector<std::string> m_lstCarpetas; ///< prepared folders by their number; empty: not yet
    std::string m_strSujeto;
};

/// The rows that passed, in list order.
struct clsFiltrado {
    std::vector<clsConservada> lstFilas; ///< for clsFilas::fConservar; dates and sizes of the disk
    std::int64_t lngTotalKB = 0;         ///< size of these rows, whole kilobytes, rest dropped
};

/// Runs at most every 50 ms with the number of rows looked at; false ends the filter.
using clsPasoFiltro = std::function<bool(int)>;

/// Filters the rows. Every file that has not failed by its name is looked up once on the disk (one
/// stat), ahead on worker threads. A file that is gone fails a date range; the words keep its row.
/// @param filas    read in the calling thread only; when fPaso changes them the filter is
/// cancelled.
/// @param intHilos threads that look up.
/// @return nothing when it was cancelled.
[[nodiscard]] std::optional<clsFiltrado> fFiltrar(const clsFilas &filas, const clsFiltro &filtro,
                                                  const clsMayusculas &fMayusculas,
                                                  const clsPasoFiltro &fPaso,
                                                  int intHilos = intHilosUsuales);
