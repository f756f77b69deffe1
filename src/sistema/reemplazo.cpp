#include "sistema/reemplazo.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view strFinTemporal = ".tmp";

bool fEsNumero(std::string_view strTexto)
{
    return !strTexto.empty() && std::all_of(strTexto.begin(), strTexto.end(),
                                            [](char chr) { return chr >= '0' && chr <= '9'; });
}

/// Length of the folder at the start of a path, "/" included.
std::size_t fLargoCarpeta(const std::string &strRuta) { return strRuta.rfind('/') + 1; }

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

clsReemplazo::clsReemplazo(std::string strRuta, const clsDisco &disco, std::optional<mode_t> modo)
    : m_disco(disco), m_strRuta(std::move(strRuta))
{
    static std::atomic<unsigned> lngSiguiente{0};
    struct stat datos {};
    const bool bolHabia = !modo && lstat(m_strRuta.c_str(), &datos) == 0 && S_ISREG(datos.st_mode);
    // The name is cut so that the temporary one still fits where the final one does (255 bytes).
    const std::size_t lngCarpeta = fLargoCarpeta(m_strRuta);
    const std::string strBase = m_strRuta.substr(0, lngCarpeta) + '.' +
                                m_strRuta.substr(lngCarpeta, 200) + '.' + std::to_string(getpid()) +
                                '.';
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
        m_intError = fVolcarCarpeta(m_strRuta.substr(0, fLargoCarpeta(m_strRuta)), m_disco);
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
