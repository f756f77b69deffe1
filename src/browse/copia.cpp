#include "browse/copia.h"

#include "shared/rutas.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr mode_t modoPermisos = 0777; // a copy is no program that runs with other rights

/// Pours the content of one open file into another, new one.
class clsTrasvase {
public:
    clsTrasvase(int intDe, int intA, const clsDisco &disco, const std::atomic<bool> *fin)
        : m_intDe(intDe), m_intA(intA), m_disco(disco), m_fin(fin)
    {
    }
    /// 0 or the error number.
    int fVerter(const struct stat &datos)
    {
        if (m_disco.fClonar(m_intDe, m_intA) == 0) {
            return fComprobar(datos);
        }
        static_cast<void>(posix_fadvise(m_intDe, 0, 0, POSIX_FADV_SEQUENTIAL));
        constexpr off_t lngBloque = 512; // the unit of st_blocks, whatever the file system
        const bool bolHuecos = datos.st_blocks < datos.st_size / lngBloque;
        const int intError = bolHuecos ? fVerterIslas(datos.st_size) : fVerterTramo(lngTodo);
        return intError == 0 ? fComprobar(datos) : intError;
    }

private:
    static constexpr off_t lngTodo = std::numeric_limits<off_t>::max();

    /// Only what lies between the holes.
    int fVerterIslas(off_t lngFin)
    {
        off_t lngPos = 0;
        while (lngPos < lngFin) {
            const off_t lngDesde = lseek(m_intDe, lngPos, SEEK_DATA);
            if (lngDesde < 0 && errno == ENXIO) {
                break; // nothing but a hole is left
            }
            const off_t lngHasta = lngDesde < 0 ? -1 : lseek(m_intDe, lngDesde, SEEK_HOLE);
            const bool bolIsla = lngHasta > lngDesde; // else nothing can be told about holes here
            lngPos = bolIsla ? lngDesde : lngPos;
            if (lseek(m_intDe, lngPos, SEEK_SET) < 0 || lseek(m_intA, lngPos, SEEK_SET) < 0) {
                return errno;
            }
            if (const int intError = fVerterTramo(bolIsla ? lngHasta - lngPos : lngTodo)) {
                return intError;
            }
            lngPos = bolIsla ? lngHasta : lngFin;
        }
        return fInsistir([&] { return m_disco.fAlargar(m_intA, lngFin); }) == 0 ? 0 : errno;
    }

    /// From where both files stand; ends before lngBytes where the source ends.
    int fVerterTramo(off_t lngBytes)
    {
        bool bolFinal = false;
        while (lngBytes > 0 && !bolFinal) {
            if (m_fin != nullptr && *m_fin) {
                return ECANCELED;
            }
            const ssize_t lngHechos = m_bolTrasladar ? fTrasladar(lngBytes) : fPorMemoria(lngBytes);
            if (lngHechos < 0) {
                return errno;
            }
            // Some file systems cannot carry and say so by 0, as at the end: reading tells.
            bolFinal = lngHechos == 0 && !std::exchange(m_bolTrasladar, false);
            lngBytes -= lngHechos;
        }
        return 0;
    }

    /// The system carries the bytes, on a server perhaps without moving them. 0 when it does not,
    /// for whatever reason: a real one meets the reading and writing that follow as well.
    ssize_t fTrasladar(off_t lngBytes)
    {
        constexpr off_t lngMaximo = 4 << 20; // between two looks at whether to go on
        const auto lngTramo = static_cast<std::size_t>(std::min(lngBytes, lngMaximo));
        return std::max<ssize_t>(
            fInsistir([&] { return m_disco.fTrasladar(m_intDe, m_intA, lngTramo); }), 0);
    }

    ssize_t fPorMemoria(off_t lngBytes)
    {
        m_lstBufer.resize(256 << 10);
        const std::size_t lngTramo =
            static_cast<std::size_t>(std::min(lngBytes, static_cast<off_t>(m_lstBufer.size())));
        const ssize_t lngLeidos =
            fInsistir([&] { return m_disco.fLeer(m_intDe, m_lstBufer.data(), lngTramo); });
        if (lngLeidos > 0) {
            errno = fEscribirTodo(m_intA, {m_lstBufer.data(), static_cast<std::size_t>(lngLeidos)},
                                  m_disco);
            return errno == 0 ? lngLeidos : -1;
        }
        return lngLeidos;
    }

    /// A source that somebody writes to meanwhile gives a mixture, with a date that is not its own.
    [[nodiscard]] int fComprobar(const struct stat &antes) const
    {
        struct stat ahora {};
        struct stat copia {};
        if (fstat(m_intDe, &ahora) != 0 || fstat(m_intA, &copia) != 0) {
            return errno;
        }
        const bool bolQuieta = ahora.st_size == antes.st_size &&
                               ahora.st_mtim.tv_sec == antes.st_mtim.tv_sec &&
                               ahora.st_mtim.tv_nsec == antes.st_mtim.tv_nsec;
        return bolQuieta && copia.st_size == antes.st_size ? 0 : EBUSY;
    }

    int m_intDe;
    int m_intA;
    const clsDisco &m_disco;
    const std::atomic<bool> *m_fin;
    bool m_bolTrasladar = true;
    std::vector<char> m_lstBufer;
};

/// 0, or why nothing may take the place of the target.
int fRechazo(const struct stat &origen, const std::string &strDestino)
{
    struct stat destino {};
    if (stat(strDestino.c_str(), &destino) != 0) {
        return 0; // nothing there, or nothing that can be reached: making the copy will tell
    }
    if (destino.st_dev == origen.st_dev && destino.st_ino == origen.st_ino) {
        return EEXIST;
    }
    return S_ISDIR(destino.st_mode) ? EISDIR : 0;
}

/// 0 or the error number. The time is last, behind everything that changes it.
int fRevestir(int intFd, const struct stat &datos, const clsDisco &disco)
{
    const mode_t modo = datos.st_mode & modoPermisos;
    if (fInsistir([&] { return disco.fPermitir(intFd, modo); }) != 0 && errno != EPERM &&
        errno != EOPNOTSUPP && errno != ENOSYS) { // a disk without such bits is no reason to refuse
        return errno;
    }
    const timespec lstMomentos[2] = {
        {0, UTIME_OMIT},
        datos.st_mtim
    };
    return fInsistir([&] { return disco.fFecharAbierto(intFd, lstMomentos); }) == 0 ? 0 : errno;
}

/// Device and number of a file.
using clsIdentidad = std::pair<dev_t, ino_t>;

std::optional<clsIdentidad> fIdentidad(const std::string &strRuta)
{
    struct stat datos {};
    return stat(strRuta.c_str(), &datos) == 0
               ? std::optional(clsIdentidad(datos.st_dev, datos.st_ino))
               : std::nullopt;
}

/// What the caller's thread and the one that copies share.
struct clsMesa {
    std::vector<std::string> lstRutas;
    clsDestino fDestino;
    clsDisco disco;
    std::mutex cerrojo; ///< of fin and bolHecho
    std::condition_variable hayNovedad;
    std::set<clsIdentidad> lstOrigenes; ///< none of them may be replaced by the copy of another
    clsFinCopia fin;
    bool bolHecho = false;           ///< nothing more will come
    std::atomic<bool> bolFin{false}; ///< nothing more is wanted
};

/// Whether to go on with the next file.
bool fCopiarUna(clsMesa &mesa, const std::string &strOrigen)
{
    const std::string strDestino = mesa.fDestino(strOrigen);
    const auto destino = fIdentidad(strDestino);
    const bool bolEsOrigen = destino && mesa.lstOrigenes.contains(*destino);
    const int intError =
        bolEsOrigen ? EEXIST : fCopiar(strOrigen, strDestino, mesa.disco, &mesa.bolFin);
    {
        const std::lock_guard guarda(mesa.cerrojo);
        if (intError == 0) {
            ++mesa.fin.lngHechas;
        } else if (!mesa.bolFin || intError != ECANCELED) {
            mesa.fin.fallo = {strOrigen, strDestino, intError};
        }
    }
    mesa.hayNovedad.notify_one();
    return intError == 0 && !mesa.bolFin;
}

void fCopiarTodas(clsMesa &mesa)
{
    for (const std::string &strRuta : mesa.lstRutas) {
        if (mesa.bolFin) { // on a slow disk these looks alone take their time
            break;
        }
        if (const auto origen = fIdentidad(strRuta)) {
            mesa.lstOrigenes.insert(*origen);
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

int fCopiar(const std::string &strOrigen, const std::string &strDestino, const clsDisco &disco,
            const std::atomic<bool> *fin)
{
    int intError = 0;
    const clsDescriptor origen = fAbrirRegular(strOrigen, intError);
    struct stat datos {};
    if (!origen.fAbierto() || fstat(origen.fFd(), &datos) != 0) {
        return origen.fAbierto() ? errno : intError;
    }
    if ((intError = fRechazo(datos, strDestino)) != 0) {
        return intError;
    }
    // Nobody may read the copy who may not read the source, not even while it is being made.
    constexpr mode_t modoPropio = 0600;
    clsReemplazo copia(strDestino, disco, (datos.st_mode & modoPermisos) | modoPropio);
    if (copia.fError() != 0) {
        return copia.fError();
    }
    // Deliberate: no flush. Waiting for the disk makes a thousand photos take more than twice the
    // time of cp, and what a power cut takes from a copy still lies in its source. What closing
    // reports counts: network file systems send the bytes then at the latest.
    intError = clsTrasvase(origen.fFd(), copia.fFd(), disco, fin).fVerter(datos);
    intError = intError == 0 ? fRevestir(copia.fFd(), datos, disco) : intError;
    intError = intError == 0 ? copia.fCerrar() : intError;
    if (intError == 0 && fin != nullptr && *fin) {
        intError = ECANCELED;
    }
    return intError == 0 ? copia.fConfirmar(false) : intError;
}

clsDestino fDestinoEn(const std::string &strCarpeta)
{
    return [strCarpeta = fBarraFinal(strCarpeta, false)](const std::string &strOrigen) {
        return strCarpeta + std::string(fNombreDe(strOrigen));
    };
}

clsFinCopia fCopiarLista(const std::vector<std::string> &lstRutas, const clsDestino &fDestino,
                         const std::function<bool(int)> &fPaso, const clsDisco &disco)
{
    constexpr std::chrono::milliseconds lngPausa(50);
    constexpr std::chrono::milliseconds lngPaciencia(5000);
    if (!fPaso(0)) {
        return {};
    }
    const auto mesa = std::make_shared<clsMesa>();
    mesa->lstRutas = lstRutas;
    mesa->fDestino = fDestino;
    mesa->disco = disco;
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
