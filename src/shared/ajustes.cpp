#include "shared/ajustes.h"

#include "shared/ini.h"
#include "shared/texto.h"
#include "sistema/reemplazo.h"

#include <cerrno>
#include <utility>

clsAjustes::clsAjustes(std::string strRuta, bool bolEscritura)
    : m_strRuta(std::move(strRuta)), m_bolEscritura(bolEscritura)
{
}

clsAjustes::~clsAjustes()
{
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolFin = true;
    }
    m_aviso.notify_all();
    if (m_hilo.joinable()) {
        m_hilo.join();
    }
}

std::string clsAjustes::fLeerIni(std::string_view strSeccion, std::string_view strClave,
                                 std::string_view strDefecto)
{
    std::string strValor = fConsultar(strSeccion, strClave);
    if (!strValor.empty() || fSinBlancos(strDefecto).empty()) {
        return strValor.empty() ? std::string(strDefecto) : strValor;
    }
    fGuardarIni(strSeccion, strClave, strDefecto);
    return std::string(strDefecto);
}

std::string clsAjustes::fConsultar(std::string_view strSeccion, std::string_view strClave)
{
    if (!m_bolEscritura) {
        return {};
    }
    fEsperar();
    int intError = 0;
    const std::string strIni = fLeerArchivo(m_strRuta, intError).value_or("");
    return fLeerClave(strIni, strSeccion, strClave).value_or("");
}

void clsAjustes::fGuardarIni(std::string_view strSeccion, std::string_view strClave,
                             std::string_view strValor)
{
    if (!m_bolEscritura) {
        return;
    }
    {
        const std::lock_guard guarda(m_cerrojo);
        m_lstCambios.push_back(
            {std::string(strSeccion), std::string(strClave), std::string(strValor)});
        if (!m_hilo.joinable()) {
            m_hilo = std::thread([this] { fEscritor(); });
        }
    }
    m_aviso.notify_all();
}

void clsAjustes::fEsperar()
{
    std::unique_lock guarda(m_cerrojo);
    m_aviso.wait(guarda, [this] { return m_lstCambios.empty() && !m_bolEscribiendo; });
}

void clsAjustes::fEscritor()
{
    std::unique_lock guarda(m_cerrojo);
    while (true) {
        m_aviso.wait(guarda, [this] { return m_bolFin || !m_lstCambios.empty(); });
        if (m_lstCambios.empty()) {
            return;
        }
        const std::vector<clsCambio> lstCambios = std::exchange(m_lstCambios, {});
        m_bolEscribiendo = true;
        guarda.unlock();
        fAplicar(lstCambios);
        guarda.lock();
        m_bolEscribiendo = false;
        m_aviso.notify_all();
    }
}

void clsAjustes::fAplicar(const std::vector<clsCambio> &lstCambios) const
{
    int intError = 0;
    const auto strLeido = fLeerArchivo(m_strRuta, intError);
    // A file that is there but cannot be read is left alone: it would lose its other lines.
    if (!strLeido && intError != ENOENT) {
        return;
    }
    const std::string strAntes = strLeido.value_or("");
    std::string strIni = strAntes;
    for (const clsCambio &cambio : lstCambios) {
        if (fLeerClave(strIni, cambio.strSeccion, cambio.strClave) != cambio.strValor) {
            strIni = fCambiarClave(strIni, cambio.strSeccion, cambio.strClave, cambio.strValor);
        }
    }
    if (strIni == strAntes) {
        return;
    }
    clsReemplazo archivo(m_strRuta);
    archivo.fEscribir(strIni);
    static_cast<void>(archivo.fConfirmar(false));
}
