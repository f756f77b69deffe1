#include "catalogue/carpeta.h"

#include "catalogue/registro.h"
#include "shared/fecha.h"

#include <array>
#include <cerrno>

namespace {

/// Asks for an entry: itself first, then, for a link, its target.
/// @return nothing for one that is to be left out, with an error when that ends its folder.
clsResultado<clsDatosArchivo> fMirar(const clsDescriptor &carpeta, const clsEntradaCarpeta &entrada)
{
    auto datos = fConsultarEn(carpeta, entrada.strNombre, false);
    if (datos.fError() == ENOENT) {
        return clsError(); // vanished meanwhile
    }
    if (!datos) {
        // It alone, unless the folder cannot be asked even for itself: nobody may enter it, its
        // server is gone.
        return fConsultarEn(carpeta, ".", false).fError();
    }
    if (datos->tipo != TipoArchivo::Enlace) {
        return datos;
    }
    auto destino = fConsultarEn(carpeta, entrada.strNombre, true);
    if (!destino) {
        return clsError(); // leads nowhere, or where it cannot be followed
    }
    if (destino->tipo == TipoArchivo::Carpeta) {
        destino->tipo = TipoArchivo::Otro; // such links are not entered
    }
    return destino;
}

/// Local dates of many files. Asking the zone tables is slow, and threads wait for each other
/// there, but the files of one folder are mostly of a few days. On a day whose local time begins
/// and ends as far apart as it should, clocks were not changed: no zone ever changed forth and back
/// within one (the shortest time in the zone database is four days, Freetown 1939).
class clsReloj {
public:
    clsFecha fLocal(std::time_t lngMomento)
    {
        const std::time_t lngDia = lngMomento / lngSegundosDia;
        if (lngDia <= 0 || lngDia > lngUltimoDia) {
            return fFechaLocal(lngMomento);
        }
        clsDia &dia = m_lstDias[static_cast<std::size_t>(lngDia) % m_lstDias.size()];
        if (dia.lngDia != lngDia) {
            dia = fMedir(lngDia);
        }
        return dia.datInicio.fHay()
                   ? clsFecha{dia.datInicio.lngSegundos + lngMomento % lngSegundosDia}
                   : fFechaLocal(lngMomento);
    }

private:
    struct clsDia {
        std::time_t lngDia = 0; ///< since 1970, universal time; 0: none yet
        clsFecha datInicio;     ///< its start in local time; none where clocks were changed
    };
    static constexpr std::time_t lngSegundosDia = 86400;
    static constexpr std::time_t lngUltimoDia = 2'932'000; ///< in the year 9997

    static clsDia fMedir(std::time_t lngDia)
    {
        const clsFecha datInicio = fFechaLocal(lngDia * lngSegundosDia);
        const clsFecha datFin = fFechaLocal((lngDia + 1) * lngSegundosDia);
        const bool bolParejo = datFin.lngSegundos - datInicio.lngSegundos == lngSegundosDia;
        return {lngDia, bolParejo ? datInicio : clsFecha{}};
    }

    std::array<clsDia, 64> m_lstDias{};
};

} // namespace

clsExamen fExaminar(const clsDescriptor &carpeta, const std::string &strCarpeta,
                    const clsEntradaCarpeta *primera, const clsEntradaCarpeta *fin,
                    const std::function<bool(std::string_view)> &fOmitir)
{
    clsExamen examen;
    clsReloj reloj;
    // The folder, a name of usual length, date, size and signs between them.
    examen.strLineas.reserve(static_cast<std::size_t>(fin - primera) * (strCarpeta.size() + 64));
    for (const clsEntradaCarpeta *entrada = primera; entrada != fin && !examen.error; ++entrada) {
        if (entrada->entrada == Entrada::Carpeta) {
            examen.lstCarpetas.push_back(entrada->strNombre);
            continue;
        }
        const auto datos = fMirar(carpeta, *entrada);
        examen.error = datos.fError();
        if (!datos) {
            continue;
        }
        if (datos->tipo == TipoArchivo::Carpeta) {
            examen.lstCarpetas.push_back(entrada->strNombre);
        } else if (datos->tipo == TipoArchivo::Archivo &&
                   !(fOmitir && fOmitir(entrada->strNombre))) {
            fAnadirRegistro(examen.strLineas, strCarpeta, entrada->strNombre,
                            reloj.fLocal(datos->huella.lngSegundos), datos->huella.lngBytes);
        }
    }
    return examen;
}
