#include "sistema/copia_archivo.h"

#include "sistema/carpeta.h"
#include "sistema/llamadas.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

constexpr unsigned lngPermisosCopia = 0777; // a copy is no program that runs with other rights

/// Pours the content of one open file into another, new one.
class clsTrasvase {
public:
    clsTrasvase(const clsDescriptor &origen, const clsDescriptor &destino,
                const std::atomic<bool> *fin)
        : m_origen(origen), m_destino(destino), m_fin(fin)
    {
    }
    clsError fVerter(const clsDatosArchivo &datos)
    {
        if (fInsistir<&clsLlamadas::fClonar>(m_origen.fFd(), m_destino.fFd()) == 0) {
            return fComprobar(datos);
        }
        fAnunciarLectura(m_origen);
        constexpr std::int64_t lngBloque = 512; // the disk is given out in whole ones
        const bool bolHuecos = datos.lngOcupados < datos.huella.lngBytes / lngBloque * lngBloque;
        const clsError error =
            bolHuecos ? fVerterIslas(datos.huella.lngBytes) : fVerterTramo(lngTodo);
        return error ? error : fComprobar(datos);
    }

private:
    static constexpr off_t lngTodo = std::numeric_limits<off_t>::max();

    static off_t fIr(const clsDescriptor &abierto, off_t lngPos, int intDesde)
    {
        return fInsistir<&clsLlamadas::fIr>(abierto.fFd(), lngPos, intDesde);
    }

    /// Only what lies between the holes.
    clsError fVerterIslas(off_t lngFin)
    {
        off_t lngPos = 0;
        while (lngPos < lngFin) {
            const off_t lngDesde = fIr(m_origen, lngPos, SEEK_DATA);
            if (lngDesde < 0 && errno == ENXIO) {
                break; // nothing but a hole is left
            }
            const off_t lngHasta = lngDesde < 0 ? -1 : fIr(m_origen, lngDesde, SEEK_HOLE);
            const bool bolIsla = lngHasta > lngDesde; // else nothing can be told about holes here
            lngPos = bolIsla ? lngDesde : lngPos;
            if (fIr(m_origen, lngPos, SEEK_SET) < 0 || fIr(m_destino, lngPos, SEEK_SET) < 0) {
                return errno;
            }
            if (const clsError error = fVerterTramo(bolIsla ? lngHasta - lngPos : lngTodo)) {
                return error;
            }
            lngPos = bolIsla ? lngHasta : lngFin;
        }
        return fInsistir<&clsLlamadas::fAlargar>(m_destino.fFd(), lngFin) == 0 ? 0 : errno;
    }

    /// From where both files stand; ends before lngBytes where the source ends.
    clsError fVerterTramo(off_t lngBytes)
    {
        bool bolFinal = false;
        while (lngBytes > 0 && !bolFinal) {
            if (m_fin != nullptr && *m_fin) {
                return ECANCELED;
            }
            const auto lngHechos = m_bolTrasladar ? fTrasladar(lngBytes) : fPorMemoria(lngBytes);
            if (!lngHechos) {
                return lngHechos.fError();
            }
            // Some file systems cannot carry and say so by 0, as at the end: reading tells.
            bolFinal = *lngHechos == 0 && !std::exchange(m_bolTrasladar, false);
            lngBytes -= static_cast<off_t>(*lngHechos);
        }
        return {};
    }

    /// The system carries the bytes, on a server perhaps without moving them. 0 when it does not,
    /// for whatever reason: a real one meets the reading and writing that follow as well.
    clsResultado<std::size_t> fTrasladar(off_t lngBytes)
    {
        constexpr off_t lngMaximo = 4 << 20; // between two looks at whether to go on
        const auto lngTramo = static_cast<std::size_t>(std::min(lngBytes, lngMaximo));
        const ssize_t lngHechos =
            fInsistir<&clsLlamadas::fTrasladar>(m_origen.fFd(), m_destino.fFd(), lngTramo);
        return static_cast<std::size_t>(std::max<ssize_t>(lngHechos, 0));
    }

    clsResultado<std::size_t> fPorMemoria(off_t lngBytes)
    {
        m_lstBufer.resize(256 << 10);
        const std::size_t lngTramo =
            static_cast<std::size_t>(std::min(lngBytes, static_cast<off_t>(m_lstBufer.size())));
        auto lngLeidos = fLeer(m_origen, m_lstBufer.data(), lngTramo);
        if (!lngLeidos) {
            return lngLeidos;
        }
        const clsError error = fEscribirTodo(m_destino, {m_lstBufer.data(), *lngLeidos});
        return error ? clsResultado<std::size_t>(error) : lngLeidos;
    }

    /// A source that somebody writes to meanwhile gives a mixture, with a date that is not its own.
    [[nodiscard]] clsError fComprobar(const clsDatosArchivo &antes) const
    {
        const auto ahora = fConsultar(m_origen);
        const auto copia = fConsultar(m_destino);
        if (!ahora || !copia) {
            return ahora ? copia.fError() : ahora.fError();
        }
        const bool bolQuieta =
            ahora->huella == antes.huella && copia->huella.lngBytes == antes.huella.lngBytes;
        return bolQuieta ? 0 : EBUSY;
    }

    const clsDescriptor &m_origen;
    const clsDescriptor &m_destino;
    const std::atomic<bool> *m_fin;
    bool m_bolTrasladar = true;
    std::vector<char> m_lstBufer;
};

/// Why nothing may take the place of the target, if so.
clsError fRechazo(const clsDatosArchivo &origen, const std::string &strDestino)
{
    const auto destino = fConsultar(strDestino);
    if (!destino) {
        return {}; // nothing there, or nothing that can be reached: making the copy will tell
    }
    if (destino->identidad == origen.identidad) {
        return EEXIST;
    }
    return destino->tipo == TipoArchivo::Carpeta ? EISDIR : 0;
}

/// Permissions and time; the time is last, behind everything that changes it.
clsError fRevestir(const clsDescriptor &copia, const clsDatosArchivo &origen)
{
    const mode_t modo = origen.lngPermisos & lngPermisosCopia;
    if (fInsistir<&clsLlamadas::fPermitir>(copia.fFd(), modo) != 0 && errno != EPERM &&
        errno != EOPNOTSUPP && errno != ENOSYS) { // a disk without such bits is no reason to refuse
        return errno;
    }
    const timespec lstMomentos[2] = {
        {0,                         UTIME_OMIT                   },
        {origen.huella.lngSegundos, origen.huella.lngNanosegundos}
    };
    return fInsistir<&clsLlamadas::fFecharAbierto>(copia.fFd(), &lstMomentos[0]) == 0 ? 0 : errno;
}

} // namespace

clsError fCopiar(const std::string &strOrigen, const std::string &strDestino,
                 const std::atomic<bool> *fin)
{
    const auto origen = fAbrirRegular(strOrigen);
    if (!origen) {
        return origen.fError();
    }
    const auto datos = fConsultar(origen->descriptor);
    if (!datos) {
        return datos.fError();
    }
    if (const clsError error = fRechazo(*datos, strDestino)) {
        return error;
    }
    // Nobody may read the copy who may not read the source, not even while it is being made.
    constexpr unsigned lngPropios = 0600;
    clsReemplazo copia(strDestino, (datos->lngPermisos & lngPermisosCopia) | lngPropios);
    if (copia.fError()) {
        return copia.fError();
    }
    // Deliberate: no flush. Waiting for the disk makes a thousand photos take more than twice the
    // time of cp; fVolcarDisco does it for all of them. What closing reports counts: network file
    // systems send the bytes then at the latest.
    clsError error = clsTrasvase(origen->descriptor, copia.fDescriptor(), fin).fVerter(*datos);
    error = error ? error : fRevestir(copia.fDescriptor(), *datos);
    error = error ? error : copia.fCerrar();
    if (!error && fin != nullptr && *fin) {
        error = ECANCELED;
    }
    return error ? error : copia.fConfirmar(false);
}

clsError fVolcarDisco(const std::string &strCarpeta)
{
    const auto carpeta = fAbrirCarpeta(strCarpeta);
    if (!carpeta) {
        return carpeta.fError();
    }
    return fInsistir<&clsLlamadas::fVolcarSistema>(carpeta->fFd()) == 0 ? 0 : errno;
}
