#pragma once

#include "browse/avance.h"
#include "catalogue/filas.h"
#include "catalogue/orden.h"
#include "shared/medios.h"

#include <cstdint>

/// Where we are: the rows of the list, which of them is current and how it is shown.
struct clsEstado {
    clsFilas filas;
    int lngActual = 0; ///< position of the current file, from 0
    Columna columna = Columna::Fecha;
    bool bolDescendente = false;
    std::int64_t lngTotalKB = 0;   ///< size of all rows, whole kilobytes
    Medios medios = Medios::Todos; ///< which files the list shows
    bool bolFiltrada = false;      ///< and of these only what passed a filter
    Avance avance = Avance::Normal;
    bool bolMiniaturas = false;      ///< the panel shows a page of thumbnails
    int intTamMini = 2;              ///< index of their size
    int lngEnBaul = 0;               ///< files in the Baúl
    std::uint64_t lngGeneracion = 0; ///< raised by every layout, draw and list change

    bool bolOcupado = false; ///< the window is busy: what the user does to it is dropped
    bool bolPaso = false;    ///< a command that moves is under way
    int intDibujos = 0;      ///< draws that are under way: what is current is not shown yet
};
