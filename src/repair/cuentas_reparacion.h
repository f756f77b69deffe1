#pragma once

#include "dates/fecha_fuente.h"

/// How many files have which kind of proposal.
struct clsCuentasReparacion {
    int intFicheros = 0;
    int intExif = 0;
    int intGps = 0;
    int intXmp = 0;
    int intIptc = 0;
    int intVideo = 0;
    int intNombre = 0;
    int intCarpeta = 0;
    int intManual = 0; ///< typed, or the file's own time shifted
    int intSinPropuesta = 0;
    int intMarcados = 0; ///< not in the text

    /// Counts a file that has a proposal from there.
    void fContar(Fuente fuente);
};

/// The text of the foot: "3.214 archivos: 2.950 por EXIF, 210 por el nombre, 54 sin propuesta".
/// Kinds that nothing has are left out.
[[nodiscard]] std::string fTextoCuentas(const clsCuentasReparacion &cuentas);
