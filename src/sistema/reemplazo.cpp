#include "sistema/reemplazo.h"

#include "sistema/cambios.h"
#include "sistema/carpeta.h"
#include "sistema/llamadas.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::string_view strFinTemporal = ".tmp";

/// Length of the folder at the start of a path, "/" included.
std::size_t fLargoCarpeta(const std::string &strRuta) { return strRuta.rfind('/') + 1; }

/// Flushes a folder, where that can be done.
void fVolcarCarpeta(const std::string &strCarpeta)
{
    if (const auto carpeta = fAbrirCarpeta(strCarpeta.empty() ? "." : strCarpeta)) {
        fInsistir<&clsLlamadas::fVolcar>(carpeta->fFd());
    }
}

} // namespace

clsReemplazo::clsReemplazo(const std::string &strRuta)
    : clsReemplazo(strRuta, fConsultar(strRuta, false))
{
}

clsReemplazo::clsReemplazo(std::string strRuta, const clsResultado<clsDatosArchivo> &viejo)
    : m_strRuta(std::move(strRuta))
{
    const bool bolNuevo = viejo ? viejo->tipo != TipoArchivo::Archivo : viejo.fError() == ENOENT;
    fCrear(bolNuevo ? 0666 : 0600); // who may read more is told before there is something to read
    if (m_descriptor.fAbierto() && viejo && !bolNuevo) {
        fVestir(*viejo);
    }
}

clsReemplazo::clsReemplazo(std::string strRuta, unsigned permisos) : m_strRuta(std::move(strRuta))
{
    fCrear(permisos);
}

void clsReemplazo::fCrear(unsigned permisos)
{
    static std::atomic<unsigned> lngSiguiente{0};
    // The name is cut so that the temporary one still fits where the final one does (255 bytes).
    const std::size_t lngCarpeta = fLargoCarpeta(m_strRuta);
    const std::string strBase = m_strRuta.substr(0, lngCarpeta) + '.' +
                                m_strRuta.substr(lngCarpeta, 200) + '.' + std::to_string(getpid()) +
                                '.';
    constexpr int intModo = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    for (int intIntento = 0; intIntento < 1000 && !m_descriptor.fAbierto(); ++intIntento) {
        m_strTemporal = strBase + std::to_string(lngSiguiente++) + std::string(strFinTemporal);
        m_descriptor = clsDescriptor{fInsistir<&clsLlamadas::fAbrir>(
            AT_FDCWD, m_strTemporal.c_str(), intModo, mode_t{permisos})};
        if (!m_descriptor.fAbierto() && errno != EEXIST) {
            break;
        }
    }
    if (!m_descriptor.fAbierto()) {
        m_error = errno;
        m_strTemporal.clear();
    }
}

/// Best effort: a file system without permission bits is no reason to refuse.
void clsReemplazo::fVestir(const clsDatosArchivo &viejo)
{
    const bool bolGrupo =
        fInsistir<&clsLlamadas::fAgrupar>(m_descriptor.fFd(), gid_t{viejo.lngGrupo}) == 0;
    // Another group gets no more than all others had.
    const unsigned lngGrupo = bolGrupo ? 070U : (viejo.lngPermisos & 07U) << 3U;
    fInsistir<&clsLlamadas::fPermitir>(m_descriptor.fFd(),
                                       mode_t{viejo.lngPermisos & (0707U | lngGrupo)});
}

clsReemplazo::~clsReemplazo() { fDescartar(); }

void clsReemplazo::fDescartar()
{
    m_descriptor.fCerrar();
    if (!m_strTemporal.empty()) {
        fBorrar(m_strTemporal);
        m_strTemporal.clear();
    }
}

void clsReemplazo::fEscribir(std::string_view strBytes)
{
    constexpr std::size_t lngTramo = 1 << 18;
    if (m_error) {
        return;
    }
    m_bolVolcado = false;
    m_strPendiente.append(strBytes);
    if (m_strPendiente.size() >= lngTramo) {
        fVaciar();
    }
}

/// Hands over what was written so far.
void clsReemplazo::fVaciar()
{
    if (m_error || m_strPendiente.empty()) {
        return;
    }
    m_error = fEscribirTodo(m_descriptor, m_strPendiente);
    m_lngEscritos += static_cast<std::int64_t>(m_strPendiente.size());
    m_strPendiente.clear();
    // Starts the disk early, so that the final flush has little left to wait for.
    constexpr std::int64_t lngTramo = 1 << 20;
    if (m_lngEscritos - m_lngEnviados >= lngTramo) {
        static_cast<void>(sync_file_range(m_descriptor.fFd(), m_lngEnviados,
                                          m_lngEscritos - m_lngEnviados, SYNC_FILE_RANGE_WRITE));
        m_lngEnviados = m_lngEscritos;
    }
}

void clsReemplazo::fEmpezar()
{
    fVaciar();
    if (!m_error && m_lngEscritos > 0 &&
        fInsistir<&clsLlamadas::fIr>(m_descriptor.fFd(), off_t{0}, SEEK_SET) != 0) {
        m_error = errno;
    }
    m_lngLargo = std::max(m_lngLargo, m_lngEscritos);
    m_lngEscritos = 0;
    m_lngEnviados = 0;
}

clsError clsReemplazo::fVolcar()
{
    fVaciar();
    const bool bolSobra = m_lngEscritos < m_lngLargo;
    if (!m_error && bolSobra &&
        fInsistir<&clsLlamadas::fAlargar>(m_descriptor.fFd(), off_t{m_lngEscritos}) != 0) {
        m_error = errno;
    }
    if (!m_error && fInsistir<&clsLlamadas::fVolcar>(m_descriptor.fFd()) != 0) {
        m_error = errno;
    }
    m_bolVolcado = !m_error;
    return m_error;
}

clsError clsReemplazo::fCerrar()
{
    fVaciar();
    if (!m_error) {
        m_error = m_descriptor.fCerrar();
    }
    return m_error;
}

clsError clsReemplazo::fConfirmar(bool bolCarpeta)
{
    if (!m_error && m_descriptor.fAbierto()) {
        m_error = m_bolVolcado ? m_error : fVolcar();
        m_error = fCerrar();
    }
    if (!m_error) {
        m_error = fSustituir(m_strTemporal, m_strRuta);
    }
    if (m_error) {
        fDescartar();
        return m_error;
    }
    m_strTemporal.clear();
    if (bolCarpeta) {
        fVolcarCarpeta(m_strRuta.substr(0, fLargoCarpeta(m_strRuta)));
    }
    return {};
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
    constexpr std::string_view strCifras = "0123456789";
    const std::size_t lngPunto = strNumeros.find_first_not_of(strCifras);
    return lngPunto != 0 && lngPunto < strNumeros.size() - 1 && strNumeros[lngPunto] == '.' &&
           strNumeros.find_first_not_of(strCifras, lngPunto + 1) == std::string_view::npos;
}

bool clsReemplazo::fEsResto(std::string_view strNombre, std::string_view strDestino)
{
    if (!fEsTemporal(strNombre, strDestino)) {
        return false;
    }
    pid_t proceso = 0; // stays, and means this program, where the number is none of a process
    strNombre.remove_prefix(strDestino.size() + 2);
    std::from_chars(strNombre.data(), strNombre.data() + strNombre.size(), proceso);
    return kill(proceso, 0) != 0 && errno == ESRCH;
}
