#include "browse/copia.h"

#include "shared/rutas.h"
#include "sistema/archivo.h"
#include "sistema/copia_archivo.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <thread>

namespace {

/// What the caller's thread and the one that copies share.
struct clsMesa {
    std::vector<std::string> lstRutas;
    clsDestino fDestino;
    std::mutex cerrojo; ///< of fin and bolHecho
    std::condition_variable hayNovedad;
    std::set<clsIdentidad> lstOrigenes; ///< none of them may be replaced by the copy of another
    std::set<std::string> lstDudosos;   ///< those of which the disk told nothing, by their paths
    clsFinCopia fin;
    bool bolHecho = false;           ///< nothing more will come
    std::atomic<bool> bolFin{false}; ///< nothing more is wanted
};

/// Why a copy may not have its path: what is there is sent, too (EEXIST), or cannot be told.
clsError fChoque(const clsMesa &mesa, const std::string &strDestino)
{
    auto destino = fConsultar(strDestino);
    if (!destino) { // a link that leads nowhere may be replaced
        destino = fConsultar(strDestino, false);
    }
    if (!destino) {
        return destino.fError() == ENOENT ? 0 : destino.fError();
    }
    const bool bolEsOrigen = mesa.lstOrigenes.contains(destino->identidad);
    return bolEsOrigen || mesa.lstDudosos.contains(strDestino) ? EEXIST : 0;
}

/// Whether to go on with the next file.
bool fCopiarUna(clsMesa &mesa, const std::string &strOrigen)
{
    const std::string strDestino = mesa.fDestino(strOrigen);
    clsError error = fChoque(mesa, strDestino);
    error = error ? error : fCopiar(strOrigen, strDestino, &mesa.bolFin);
    {
        const std::lock_guard guarda(mesa.cerrojo);
        if (!error) {
            ++mesa.fin.lngHechas;
        } else if (!mesa.bolFin || error != ECANCELED) {
            mesa.fin.fallo = {strOrigen, strDestino, error};
        }
    }
    mesa.hayNovedad.notify_one();
    return !error && !mesa.bolFin;
}

void fCopiarTodas(clsMesa &mesa)
{
    for (const std::string &strRuta : mesa.lstRutas) {
        if (mesa.bolFin) { // on a slow disk these looks alone take their time
            break;
        }
        if (const auto origen = fConsultar(strRuta)) {
            mesa.lstOrigenes.insert(origen->identidad);
        } else if (origen.fError() != ENOENT) {
            mesa.lstDudosos.insert(strRuta);
        }
    }
    for (const std::string &strRuta : mesa.lstRutas) {
        if (mesa.bolFin || !fCopiarUna(mesa, strRuta)) {
            break;
        }
    }
    {
        const std::lock_guard guarda(mesa.cerrojo);
        mesa.bolHecho = true;
    }
    mesa.hayNovedad.notify_one();
}

} // namespace

clsDestino fDestinoEn(const std::string &strCarpeta)
{
    return [strCarpeta = fBarraFinal(strCarpeta, false)](const std::string &strOrigen) {
        return strCarpeta + std::string(fNombreDe(strOrigen));
    };
}

clsFinCopia fCopiarLista(const std::vector<std::string> &lstRutas, const clsDestino &fDestino,
                         const std::function<bool(int)> &fPaso)
{
    constexpr std::chrono::milliseconds lngPausa(50);
    constexpr std::chrono::milliseconds lngPaciencia(5000);
    if (!fPaso(0)) {
        return {};
    }
    const auto mesa = std::make_shared<clsMesa>();
    mesa->lstRutas = lstRutas;
    mesa->fDestino = fDestino;
    // Not joined: it can hang in a call to a server that is gone, and whoever closes the window
    // must not hang with it. It shares nothing but the table, and ends by itself. It does not wait
    // for anybody between two files: on a busy machine each waking up takes milliseconds.
    std::thread([mesa] { fCopiarTodas(*mesa); }).detach();
    std::unique_lock guarda(mesa->cerrojo);
    int lngVistas = 0;
    const auto fHayNovedad = [&] { return mesa->bolHecho || mesa->fin.lngHechas > lngVistas; };
    mesa->hayNovedad.wait_for(guarda, lngPausa, fHayNovedad);
    while (!mesa->bolHecho) {
        lngVistas = mesa->fin.lngHechas;
        guarda.unlock();
        mesa->bolFin = !fPaso(lngVistas);
        guarda.lock();
        if (mesa->bolFin) {
            mesa->hayNovedad.wait_for(guarda, lngPaciencia, [&] { return mesa->bolHecho; });
            break;
        }
        mesa->hayNovedad.wait_for(guarda, lngPausa, fHayNovedad);
    }
    return mesa->fin;
}
