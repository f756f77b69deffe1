#pragma once

#include "browse/avance.h"
#include "browse/mover.h"
#include "catalogue/filas.h"
#include "catalogue/orden.h"
#include "dates/malas.h"
#include "shared/giros.h"
#include "shared/medios.h"
#include "shared/numeros.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct clsCorregido;

/// Whether what is under way is to end: no; search and copies, because Esc was pressed; all of it,
/// because the window closes.
enum class Parada { Ninguna, Esc, Cierre };

/// What a copy has done.
struct clsCopiados {
    int lngHechos = 0;
    int lngReemplazados = 0; ///< so many of them took the place of another file
};

/// What is listed.
struct clsLista {
    clsFilas filas;
    int lngActual = 0; ///< position of the current file, from 0
    Columna columna = Columna::Fecha;
    bool bolDescendente = false;
    std::int64_t lngTotalKB = 0; ///< size of all rows, whole kilobytes
    bool bolFiltrada = false;    ///< only what passed a filter
};

/// Where we are: the rows of the list, which of them is current and how it is shown.
struct clsEstado : clsLista {
    Medios medios = Medios::Todos; ///< which files the list shows
    bool bolFormatos = false;      ///< and those of other formats, too
    int lngOtros =
        -1; ///< those that it does not show, as long as that is told; below 0: not counted yet
    Avance avance = Avance::Normal;
    bool bolMiniaturas = false;      ///< the panel shows a page of thumbnails
    bool bolCompleta = false;        ///< the panel has the whole screen
    bool bolTiempo = false;          ///< the strip of time is wanted beside it
    clsMalas malas;                  ///< files whose dates were found wrong
    int intTamMini = 2;              ///< index of their size
    int intZoom = 100;               ///< of the single picture, percent; 0 fits
    clsGiros giros;                  ///< how files are seen turned
    int intCeldas = 1;               ///< how many fit on a page
    int lngEnBaul = 0;               ///< files in the Baúl
    clsCopiados copiados;            ///< what is told of the last copy; none done: nothing any more
    bool bolIncidencias = false;     ///< that files of the list are missing has been said
    std::uint64_t lngGeneracion = 0; ///< raised by every layout, draw and list change

    bool bolOcupado = false; ///< the window is busy: what the user does to it is dropped
    bool bolPaso = false;    ///< a command that moves is under way
    Parada parada = Parada::Ninguna;
    int intDibujos = 0;        ///< draws that are under way: what is current is not shown yet
    bool bolPendiente = false; ///< none is, but pictures of what the panel shows are still to come

    /// Whether the single picture is still to come.
    [[nodiscard]] bool fSinFoto() const { return bolPendiente && !bolMiniaturas; }
    [[nodiscard]] bool fCerrando() const { return parada == Parada::Cierre; }
};

// What an operation does to the state. Each that changes the list raises the generation.

/// Lists something else: as long as the list is being filled anew no rows, no filter, by date
/// ascending.
/// @return what was listed before.
clsLista fEmpezarLista(clsEstado &estado, clsLista nueva = {});

/// What becomes current when the list has been filled and ordered.
/// @param strRuta full path of the file that was current; empty, or not in the list: the first is.
[[nodiscard]] int fActualTrasLlenar(const clsEstado &estado, std::string_view strRuta);

/// The path of the file to go on with after a correction: the current one, if it has kept its name,
/// else the next of the list that has, else the nearest one before. When none is left, the
/// current file under its new name. The list must not be empty.
[[nodiscard]] std::string fRutaAlSeguir(const clsEstado &estado,
                                        const std::vector<clsCorregido> &lstCorregidos);

/// The turns of files follow their names, which a correction has changed.
void fSeguirNombres(clsEstado &estado, const std::vector<clsCorregido> &lstCorregidos);

/// Makes a position current; one outside the list, which must not be empty, gives its nearer end.
void fHacerActual(clsEstado &estado, int lngPos);

/// The user asks for an order: by another column ascending, by the same one the other way round.
void fElegirColumna(clsEstado &estado, Columna columna);
/// Orders the rows so. The current file stays current.
void fOrdenarFilas(clsEstado &estado, const clsRangos &fRangos);

/// Takes what passed a filter. When that is fewer rows, the list counts as filtered and its first
/// file becomes current; else these are the same files, and the position stays.
void fTomarFiltradas(clsEstado &estado, const std::vector<clsConservada> &lstFilas,
                     std::int64_t lngTotalKB);

/// Where a movement or a step by the advance mode leads to; nothing when it changes nothing.
[[nodiscard]] std::optional<int> fDestino(const clsEstado &estado, Movimiento movimiento);
[[nodiscard]] std::optional<int> fDestino(const clsEstado &estado, Sentido sentido);

/// The positions the viewing panel shows.
[[nodiscard]] clsTramo fALaVista(const clsEstado &estado);
/// The positions that are likely to be current next.
[[nodiscard]] std::vector<int> fVecinas(const clsEstado &estado);
/// The rows a command acts on: those with a tick, else the current one.
[[nodiscard]] std::vector<int> fMarcadasOActual(const clsEstado &estado);
/// The rows a command for many files acts on: those with a tick, else all.
[[nodiscard]] std::vector<int> fMarcadasOTodas(const clsEstado &estado);

/// "n de m" for a position (from 0) of so many.
[[nodiscard]] std::string fTextoInfo1(int lngPos, int lngCantidad);
/// Path, date and size of the current file (UTF-8), as the list shows them; the date day first, if
/// it is one. As long as its picture is still to come: that it is.
[[nodiscard]] std::string fTextoInfo2(const clsEstado &estado, const clsSignos &signos);
