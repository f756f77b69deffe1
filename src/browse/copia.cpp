#include "browse/copia.h"

#include "shared/errores.h"
#include "shared/hilos.h"
#include "shared/ritmo.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"
#include "sistema/copia_archivo.h"

#include <cerrno>
#include <chrono>
#include <memory>
#include <set>

namespace {

/// What the thread that copies works with. The caller's looks at nothing of it but the flag.
struct clsEnvio {
    clsDestino fDestino;
    std::set<clsIdentidad> lstOrigenes; ///< none of them may be replaced by the copy of another
    std::set<std::string> lstDudosos;   ///< those of which the disk told nothing, by their paths
    std::atomic<bool> bolFin{false};    ///< nothing more is wanted, or may be done
};

/// Whether something has the path of a copy; or why the copy may not have it: what is there is
/// sent, too (EEXIST), or cannot be told.
clsResultado<bool> fOcupa(const clsEnvio &envio, const std::string &strDestino)
{
    auto destino = fConsultar(strDestino);
    if (!destino) { // a link that leads nowhere may be replaced
        destino = fConsultar(strDestino, false);
    }
    if (!destino) {
        return destino.fError() == ENOENT ? clsResultado<bool>(false) : destino.fError();
    }
    if (envio.lstOrigenes.contains(destino->identidad) || envio.lstDudosos.contains(strDestino)) {
        return clsError(EEXIST);
    }
    return true;
}

/// @return whether all were looked at.
bool fApuntarOrigenes(clsEnvio &envio, const std::vector<std::string> &lstRutas)
{
    for (const std::string &strRuta : lstRutas) {
        if (envio.bolFin) { // on a slow disk these looks alone take their time
            return false;
        }
        if (const auto origen = fConsultar(strRuta)) {
            envio.lstOrigenes.insert(origen->identidad);
        } else if (origen.fError() != ENOENT) {
            envio.lstDudosos.insert(strRuta);
        }
    }
    return true;
}

/// Copies one file, unless an earlier one has failed.
/// @return what came of it alone.
clsFinCopia fCopiarUna(clsEnvio &envio, const std::string &strOrigen)
{
    if (envio.bolFin) {
        return {
            0, 0, clsFalloCopia{strOrigen, {}, ECANCELED}
        };
    }
    const std::string strDestino = envio.fDestino(strOrigen);
    const auto bolOcupa = fOcupa(envio, strDestino);
    const clsError error =
        bolOcupa ? fCopiar(strOrigen, strDestino, &envio.bolFin) : bolOcupa.fError();
    if (!error) {
        return {1, *bolOcupa ? 1 : 0, {}};
    }
    envio.bolFin = true;
    return {
        0, 0, clsFalloCopia{strOrigen, strDestino, error}
    };
}

} // namespace

std::string fMotivo(const clsFalloCopia &fallo)
{
    return fallo.error == EEXIST ? "Lo que tiene ese nombre en el destino es uno de los archivos "
                                   "que se están copiando: no se reemplaza."
                                 : fTextoError(fallo.error);
}

clsDestino fDestinoEn(const std::string &strCarpeta)
{
    return [strCarpeta = fBarraFinal(strCarpeta, false)](const std::string &strOrigen) {
        return strCarpeta + std::string(fNombreDe(strOrigen));
    };
}

clsFinCopia fCopiarLista(const std::vector<std::string> &lstRutas, const clsDestino &fDestino,
                         const std::function<bool(int)> &fPaso)
{
    constexpr std::chrono::milliseconds paciencia(200);
    clsFinCopia fin;
    if (!fPaso(0)) {
        return fin;
    }
    const auto envio = std::make_shared<clsEnvio>();
    envio->fDestino = fDestino;
    // One thread, which waits for nobody between two files: on a busy machine each waking up takes
    // milliseconds.
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    hilos.fPedir([envio, lstRutas] { return fApuntarOrigenes(*envio, lstRutas); }, [](bool) {});
    clsHilos::clsOrden ultima;
    for (const std::string &strRuta : lstRutas) {
        ultima = hilos.fPedir([envio, strRuta] { return fCopiarUna(*envio, strRuta); },
                              [&fin](const clsFinCopia &una) {
                                  fin.lngHechas += una.lngHechas;
                                  fin.lngReemplazadas += una.lngReemplazadas;
                                  if (una.fallo && una.fallo->error != ECANCELED) {
                                      fin.fallo = una.fallo;
                                  }
                              });
    }
    clsRitmo ritmo;
    while (hilos.fPendientes() > 0 && !fin.fallo) {
        hilos.fAtender(pausaRitmo);
        if (!ritmo.fSeguir([&] { return fPaso(fin.lngHechas); })) {
            envio->bolFin = true;
            static_cast<void>(hilos.fEsperar(ultima, paciencia));
            break;
        }
    }
    return fin;
}
