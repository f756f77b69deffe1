#include "sistema/recinto.h"

#include "sistema/cambios.h"
#include "sistema/llamadas.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <utility>

namespace {

/// What stands before the name in a path, with its "/".
std::string_view fSinNombre(std::string_view strRuta)
{
    return strRuta.substr(0, strRuta.rfind('/') + 1);
}

using clsTiempos = std::array<timespec, 2>; ///< of the last access and of the last change

clsTiempos fTiemposDe(std::int64_t lngMomento, long lngNanosegundos)
{
    return {
        {{0, UTIME_OMIT}, {lngMomento, lngNanosegundos}}
    };
}

constexpr int intModoCarpeta = O_PATH | O_DIRECTORY | O_CLOEXEC;

clsResultado<clsDescriptor> fSenalar(int intCarpeta, const std::string &strRuta, int intModo)
{
    clsDescriptor abierto{
        fInsistir<&clsLlamadas::fAbrir>(intCarpeta, strRuta.c_str(), intModo, mode_t{})};
    if (!abierto.fAbierto()) {
        return clsError(errno);
    }
    return abierto;
}

/// Opens the folder strRelativa ("a/b/") below an open one, part by part: no part is a link, and
/// none leads up.
clsResultado<clsDescriptor> fBajar(const clsDescriptor &raiz, std::string_view strRelativa)
{
    clsResultado<clsDescriptor> carpeta = clsError(ENOENT);
    for (int intDesde = raiz.fFd(); !strRelativa.empty(); intDesde = carpeta->fFd()) {
        const std::size_t lngBarra = strRelativa.find('/');
        const std::string strParte(strRelativa.substr(0, lngBarra));
        if (strParte == "..") {
            return clsError(EXDEV);
        }
        // Only then: what is open is closed when the next one takes its place.
        auto parte = fSenalar(intDesde, strParte, intModoCarpeta | O_NOFOLLOW);
        if (!parte) {
            return parte;
        }
        carpeta = std::move(parte);
        strRelativa.remove_prefix(lngBarra + 1);
    }
    return carpeta;
}

/// A path to what is open, which needs no right to read it.
std::string fRutaAbierto(const clsDescriptor &abierto)
{
    return "/proc/self/fd/" + std::to_string(abierto.fFd());
}

/// Where what is open lies now.
clsResultado<std::string> fLugar(const clsDescriptor &abierto)
{
    std::string strLugar(PATH_MAX, '\0'); // the system tells no longer ones
    const ssize_t lngLargo = fInsistir<&clsLlamadas::fLeerEnlace>(fRutaAbierto(abierto).c_str(),
                                                                  strLugar.data(), strLugar.size());
    if (lngLargo < 0) {
        return clsError(errno);
    }
    strLugar.resize(static_cast<std::size_t>(lngLargo));
    return strLugar;
}

/// EXDEV when what is open is neither an open folder nor lies below it.
clsError fEstaEn(const clsDescriptor &abierto, const clsDescriptor &carpeta)
{
    const auto strLugar = fLugar(abierto);
    const auto strCarpeta = fLugar(carpeta);
    if (!strLugar || !strCarpeta) {
        return strLugar ? strCarpeta.fError() : strLugar.fError();
    }
    const bool bolBarra = strCarpeta->ends_with('/'); // of the file system's own root
    return (*strLugar + '/').starts_with(*strCarpeta + (bolBarra ? "" : "/")) ? 0 : EXDEV;
}

/// Why something cannot have a time set.
clsError fNoEsArchivo(const clsResultado<clsDatosArchivo> &datos)
{
    return !datos                                ? datos.fError()
           : datos->tipo == TipoArchivo::Archivo ? clsError()
           : datos->tipo == TipoArchivo::Carpeta ? clsError(EISDIR)
                                                 : clsError(EINVAL);
}

/// Sets the time of a name in an open folder; of a link there, its own.
clsError fPonerFechaEn(const clsDescriptor &carpeta, const std::string &strNombre,
                       const clsTiempos &lstTiempos)
{
    return fInsistir<&clsLlamadas::fFechar>(carpeta.fFd(), strNombre.c_str(), lstTiempos.data(),
                                            AT_SYMLINK_NOFOLLOW) == 0
               ? 0
               : errno;
}

/// Sets the time of what is open.
clsError fPonerFecha(const clsDescriptor &abierto, const clsTiempos &lstTiempos)
{
    int intFin =
        fInsistir<&clsLlamadas::fFechar>(abierto.fFd(), "", lstTiempos.data(), AT_EMPTY_PATH);
    if (intFin != 0 && errno == EINVAL) { // before Linux 5.8
        intFin = fInsistir<&clsLlamadas::fFechar>(AT_FDCWD, fRutaAbierto(abierto).c_str(),
                                                  lstTiempos.data(), 0);
    }
    return intFin == 0 ? 0 : errno;
}

/// ERANGE when what got a time without an error has another one.
clsError fEsLaPuesta(const clsResultado<clsDatosArchivo> &visto, const clsTiempos &lstTiempos)
{
    constexpr std::int64_t lngHolgura = 2; // FAT has even seconds only
    const std::int64_t lngMomento = lstTiempos[1].tv_sec;
    const std::int64_t lngPuesto = visto ? visto->huella.lngSegundos : lngMomento;
    const bool bolCerca =
        lngPuesto >= lngMomento - lngHolgura && lngPuesto <= lngMomento + lngHolgura;
    return bolCerca ? 0 : ERANGE;
}

} // namespace

clsRecinto::clsRecinto(std::string strRaiz, const clsDescriptor &raiz)
    : m_strRaiz(std::move(strRaiz)), m_raiz(raiz)
{
}

const clsDescriptor &clsRecinto::fCarpeta() const
{
    return m_carpeta.fAbierto() ? m_carpeta : m_raiz;
}

/// Opens the folder of a path, unless it is the one that is entered, and notes the name in it.
clsError clsRecinto::fEntrar(const std::string &strRuta)
{
    const std::string_view strCarpeta = fSinNombre(strRuta);
    m_strNombre.assign(strRuta, strCarpeta.size());
    if (m_strCarpeta == strCarpeta) {
        return {};
    }
    m_strCarpeta.reset();
    m_carpeta.fCerrar();
    if (strCarpeta != m_strRaiz) {
        clsResultado<clsDescriptor> carpeta = clsError(EXDEV);
        if (strCarpeta.starts_with(m_strRaiz)) {
            carpeta = fBajar(m_raiz, strCarpeta.substr(m_strRaiz.size()));
        }
        if (!carpeta) { // there may be links on the way
            carpeta = fSenalar(AT_FDCWD, std::string(strCarpeta), intModoCarpeta);
            if (const clsError error = carpeta ? fEstaEn(*carpeta, m_raiz) : carpeta.fError()) {
                return error;
            }
        }
        m_carpeta = std::move(*carpeta);
    }
    m_strCarpeta = strCarpeta;
    return {};
}

clsResultado<clsDatosArchivo> clsRecinto::fConsultar(const std::string &strRuta)
{
    if (const clsError error = fEntrar(strRuta)) {
        return error;
    }
    return fConsultarEn(fCarpeta(), m_strNombre, false);
}

/// The same for a link: wherever it leads to is opened, then looked at. So what is looked at is
/// what is changed, whatever becomes of its names meanwhile.
clsError clsRecinto::fFecharDestino(std::int64_t lngMomento, long lngNanosegundos) const
{
    const auto archivo = fSenalar(fCarpeta().fFd(), m_strNombre, O_PATH | O_CLOEXEC);
    if (!archivo) {
        return archivo.fError();
    }
    clsError error = fNoEsArchivo(::fConsultar(*archivo));
    error = error ? error : fEstaEn(*archivo, m_raiz);
    const clsTiempos lstTiempos = fTiemposDe(lngMomento, lngNanosegundos);
    error = error ? error : fPonerFecha(*archivo, lstTiempos);
    return error ? error : fEsLaPuesta(::fConsultar(*archivo), lstTiempos);
}

clsError clsRecinto::fFechar(const std::string &strRuta, std::int64_t lngMomento,
                             long lngNanosegundos, bool bolArchivo)
{
    m_fechado.reset();
    if (const clsError error = fEntrar(strRuta)) {
        return error;
    }
    if (!bolArchivo) {
        const auto visto = fConsultarEn(fCarpeta(), m_strNombre, false);
        if (visto && visto->tipo == TipoArchivo::Enlace) {
            return fFecharDestino(lngMomento, lngNanosegundos);
        }
        if (const clsError error = fNoEsArchivo(visto)) {
            return error;
        }
    }
    // By its name, in half the calls of opening it; no link is followed, whoever puts one there.
    const clsTiempos lstTiempos = fTiemposDe(lngMomento, lngNanosegundos);
    clsError error = fPonerFechaEn(fCarpeta(), m_strNombre, lstTiempos);
    const auto puesto = fConsultarEn(fCarpeta(), m_strNombre, false);
    m_fechado = puesto;
    m_strFechado = strRuta;
    error = error || !puesto ? error : fNoEsArchivo(puesto);
    return error ? error : fEsLaPuesta(puesto, lstTiempos);
}

clsError clsRecinto::fRenombrar(const std::string &strRuta, std::string_view strNombre)
{
    const auto visto = std::exchange(m_fechado, {});
    const clsError error = fEntrar(strRuta);
    return error ? error
                 : fRenombrarEn(fCarpeta(), m_strNombre, std::string(strNombre),
                                m_strFechado == strRuta ? visto : std::nullopt);
}

clsError clsRecinto::fSoltarNombre(const std::string &strRuta, std::string_view strOtro)
{
    const clsError error = fEntrar(strRuta);
    return error ? error : fSoltarNombreEn(fCarpeta(), m_strNombre, std::string(strOtro));
}
