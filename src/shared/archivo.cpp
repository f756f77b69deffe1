#include "shared/archivo.h"

#include "shared/rutas.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view strFinTemporal = ".tmp";

clsHuella fHuellaDe(const struct stat &datos)
{
    return {datos.st_size, datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec};
}

bool fEsNumero(std::string_view strTexto)
{
    return !strTexto.empty() && std::all_of(strTexto.begin(), strTexto.end(),
                                            [](char chr) { return chr >= '0' && chr <= '9'; });
}

/// Flushes a folder; file systems that cannot flush one (EINVAL) count as done.
int fVolcarCarpeta(const std::string &strCarpeta, const clsDisco &disco)
{
    const clsDescriptor carpeta{
        open(strCarpeta.empty() ? "." : strCarpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (!carpeta.fAbierto() || (disco.fVolcar(carpeta.fFd()) != 0 && errno != EINVAL)) {
        return errno;
    }
    return 0;
}

} // namespace

clsDescriptor::~clsDescriptor() { fCerrar(); }

int clsDescriptor::fCerrar()
{
    const int intFd = std::exchange(m_intFd, -1);
    return intFd >= 0 && close(intFd) != 0 ? errno : 0;
}

clsDescriptor fAbrirRegular(const std::string &strRuta, int &intError, clsHuella *huella)
{
    clsDescriptor archivo{open(strRuta.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)};
    struct stat datos {};
    if (!archivo.fAbierto() || fstat(archivo.fFd(), &datos) != 0) {
        intError = errno;
        return {};
    }
    if (!S_ISREG(datos.st_mode)) {
        intError = S_ISDIR(datos.st_mode) ? EISDIR : EINVAL;
        return {};
    }
    if (huella != nullptr) {
        *huella = fHuellaDe(datos);
    }
    return archivo;
}

std::optional<clsHuella> fHuella(const std::string &strRuta, int *intError)
{
    struct stat datos {};
    const int intFallo = stat(strRuta.c_str(), &datos) != 0 ? errno : EINVAL;
    if (intFallo == EINVAL && S_ISREG(datos.st_mode)) {
        return fHuellaDe(datos);
    }
    if (intError != nullptr) {
        *intError = intFallo;
    }
    return {};
}

bool fExisteArchivo(const std::string &strRuta) { return fHuella(strRuta).has_value(); }

bool fExisteCarpeta(const std::string &strRuta)
{
    struct stat datos {};
    return stat(strRuta.c_str(), &datos) == 0 && S_ISDIR(datos.st_mode);
}

std::optional<std::string> fLeerArchivo(const std::string &strRuta, int &intError)
{
    clsHuella huella;
    const clsDescriptor archivo = fAbrirRegular(strRuta, intError, &huella);
    if (!archivo.fAbierto()) {
        return {};
    }
    // One byte more than the size, so that the last read sees the end without another call.
    std::string strBytes(static_cast<std::size_t>(huella.lngBytes) + 1, '\0');
    std::size_t lngLeidos = 0;
    while (true) {
        if (lngLeidos == strBytes.size()) {
            strBytes.resize(strBytes.size() * 2);
        }
        const ssize_t lngTrozo =
            read(archivo.fFd(), strBytes.data() + lngLeidos, strBytes.size() - lngLeidos);
        if (lngTrozo < 0 && errno == EINTR) {
            continue;
        }
        if (lngTrozo < 0) {
            intError = errno;
            return {};
        }
        if (lngTrozo == 0) {
            break;
        }
        lngLeidos += static_cast<std::size_t>(lngTrozo);
    }
    strBytes.resize(lngLeidos);
    return strBytes;
}

int fEscribirTodo(int intFd, std::string_view strBytes, const clsDisco &disco)
{
    while (!strBytes.empty()) {
        const ssize_t lngEscritos = disco.fEscribir(intFd, strBytes.data(), strBytes.size());
        if (lngEscritos <= 0 && (lngEscritos == 0 || errno != EINTR)) {
            return lngEscritos == 0 ? EIO : errno;
        }
        strBytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(lngEscritos, 0)));
    }
    return 0;
}

clsReemplazo::clsReemplazo(std::string strRuta, const clsDisco &disco, std::optional<mode_t> modo)
    : m_disco(disco), m_strRuta(std::move(strRuta))
{
    static std::atomic<unsigned> lngSiguiente{0};
    struct stat datos {};
    const bool bolHabia = !modo && lstat(m_strRuta.c_str(), &datos) == 0 && S_ISREG(datos.st_mode);
    // The name is cut so that the temporary one still fits where the final one does (255 bytes).
    const std::string strBase = std::string(fCarpetaDe(m_strRuta)) + '.' +
                                std::string(fNombreDe(m_strRuta).substr(0, 200)) + '.' +
                                std::to_string(getpid()) + '.';
    constexpr int intModo = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    for (int intIntento = 0; intIntento < 1000 && !m_descriptor.fAbierto(); ++intIntento) {
        m_strTemporal = strBase + std::to_string(lngSiguiente++) + std::string(strFinTemporal);
        m_descriptor = clsDescriptor{fInsistir(
            [&] { return m_disco.fAbrir(m_strTemporal.c_str(), intModo, modo.value_or(0666)); })};
        if (!m_descriptor.fAbierto() && errno != EEXIST) {
            break;
        }
    }
    if (!m_descriptor.fAbierto()) {
        m_intError = errno;
        m_strTemporal.clear();
    } else if (bolHabia) {
        // Best effort: a file system without permission bits is no reason to refuse.
        static_cast<void>(fchmod(m_descriptor.fFd(), datos.st_mode & 07777));
    }
}

clsReemplazo::~clsReemplazo() { fDescartar(); }

void clsReemplazo::fDescartar()
{
    m_descriptor.fCerrar();
    if (!m_strTemporal.empty()) {
        m_disco.fBorrar(m_strTemporal.c_str());
        m_strTemporal.clear();
    }
}

void clsReemplazo::fEscribir(std::string_view strBytes)
{
    if (m_intError != 0) {
        return;
    }
    m_intError = fEscribirTodo(m_descriptor.fFd(), strBytes, m_disco);
    m_lngEscritos += static_cast<std::int64_t>(strBytes.size());
    // Starts the disk early, so that the final flush has little left to wait for.
    constexpr std::int64_t lngTramo = 1 << 20;
    if (m_lngEscritos - m_lngEnviados >= lngTramo) {
        static_cast<void>(sync_file_range(m_descriptor.fFd(), m_lngEnviados,
                                          m_lngEscritos - m_lngEnviados, SYNC_FILE_RANGE_WRITE));
        m_lngEnviados = m_lngEscritos;
    }
}

int clsReemplazo::fVolcar()
{
    if (m_intError == 0 && m_disco.fVolcar(m_descriptor.fFd()) != 0) {
        m_intError = errno;
    }
    return fCerrar();
}

int clsReemplazo::fCerrar()
{
    if (m_intError == 0 && m_descriptor.fAbierto() &&
        m_disco.fCerrar(m_descriptor.fSoltar()) != 0) {
        m_intError = errno;
    }
    return m_intError;
}

int clsReemplazo::fConfirmar(bool bolCarpeta)
{
    if (m_intError == 0 && m_descriptor.fAbierto()) {
        static_cast<void>(fVolcar());
    }
    if (m_intError == 0 && m_disco.fRenombrar(m_strTemporal.c_str(), m_strRuta.c_str()) != 0) {
        m_intError = errno;
    }
    if (m_intError != 0) {
        fDescartar();
        return m_intError;
    }
    m_strTemporal.clear();
    if (bolCarpeta) {
        m_intError = fVolcarCarpeta(std::string(fCarpetaDe(m_strRuta)), m_disco);
    }
    return m_intError;
}

bool clsReemplazo::fEsTemporal(std::string_view strNombre, std::string_view strDestino)
{
    const std::string strInicio = '.' + std::string(strDestino) + '.';
    if (!strNombre.starts_with(strInicio) || !strNombre.ends_with(strFinTemporal) ||
        strNombre.size() <= strInicio.size() + strFinTemporal.size()) {
        return false;
    }
    const std::string_view strNumeros = strNombre.substr(
        strInicio.size(), strNombre.size() - strInicio.size() - strFinTemporal.size());
    const std::size_t lngPunto = strNumeros.find('.');
    return lngPunto != std::string_view::npos && fEsNumero(strNumeros.substr(0, lngPunto)) &&
           fEsNumero(strNumeros.substr(lngPunto + 1));
}
