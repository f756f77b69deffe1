#include "shared/ajustes.h"

#include "shared/ini.h"
#include "shared/texto.h"
#include "sistema/reemplazo.h"

#include <cerrno>
#include <chrono>
#include <mutex>
#include <utility>
#include <vector>

namespace {

constexpr std::chrono::milliseconds paciencia{800}; ///< with the last writing, at the end

struct clsCambio {
    std::string strSeccion;
    std::string strClave;
    std::string strValor;
};

/// What the file holds; nothing where there is none yet.
clsResultado<std::string> fLeerTexto(const clsResultado<clsAbierto> &archivo)
{
    if (!archivo) {
        return archivo.fError() == ENOENT ? std::string()
                                          : clsResultado<std::string>(archivo.fError());
    }
    return fLeerArchivo(*archivo);
}

void fAplicar(const std::string &strRuta, const std::vector<clsCambio> &lstCambios)
{
    if (lstCambios.empty()) {
        return;
    }
    const auto viejo = fAbrirRegular(strRuta, false);
    const auto strAntes = fLeerTexto(viejo);
    // A file that is there but cannot be read is left alone: it would lose its other lines.
    if (!strAntes) {
        return;
    }
    std::string strIni = *strAntes;
    for (const clsCambio &cambio : lstCambios) {
        if (fLeerClave(strIni, cambio.strSeccion, cambio.strClave) != cambio.strValor) {
            strIni = fCambiarClave(strIni, cambio.strSeccion, cambio.strClave, cambio.strValor);
        }
    }
    if (strIni == *strAntes) {
        return;
    }
    clsReemplazo archivo(strRuta, viejo ? fConsultar(viejo->descriptor) : viejo.fError());
    archivo.fEscribir(strIni);
    static_cast<void>(archivo.fConfirmar(false));
}

} // namespace

/// What is still to be written; the writing thread holds it, too.
struct clsAjustes::clsCambios {
    std::mutex cerrojo;
    std::vector<clsCambio> lstCambios;

    /// All that came by now; whoever was asked for one of these finds nothing to do then.
    std::vector<clsCambio> fSacar()
    {
        const std::lock_guard guarda(cerrojo);
        return std::exchange(lstCambios, {});
    }
};

clsAjustes::clsAjustes(std::string strRuta, bool bolEscritura)
    : m_strRuta(std::move(strRuta)), m_bolEscritura(bolEscritura),
      m_cambios(std::make_shared<clsCambios>())
{
}

clsAjustes::~clsAjustes() { fEsperar(paciencia); }

std::string clsAjustes::fLeerIni(std::string_view strSeccion, std::string_view strClave,
                                 std::string_view strDefecto)
{
    const auto strIni = fTexto();
    std::string strValor = fLeerClave(strIni.value_or(""), strSeccion, strClave).value_or("");
    // A file that cannot be read just now may have the key.
    if (strIni && strValor.empty() && !fSinBlancos(strDefecto).empty()) {
        fGuardarIni(strSeccion, strClave, strDefecto);
    }
    return strValor.empty() ? std::string(strDefecto) : strValor;
}

std::string clsAjustes::fConsultar(std::string_view strSeccion, std::string_view strClave)
{
    return fLeerClave(fTexto().value_or(""), strSeccion, strClave).value_or("");
}

clsResultado<std::string> clsAjustes::fTexto()
{
    if (!m_bolEscritura) {
        return std::string();
    }
    fEsperar();
    return fLeerTexto(fAbrirRegular(m_strRuta, false));
}

void clsAjustes::fGuardarIni(std::string_view strSeccion, std::string_view strClave,
                             std::string_view strValor)
{
    if (!m_bolEscritura) {
        return;
    }
    {
        const std::lock_guard guarda(m_cambios->cerrojo);
        m_cambios->lstCambios.push_back(
            {std::string(strSeccion), std::string(strClave), std::string(strValor)});
    }
    while (m_hilos.fAtender()) { // of what is done nothing is left
    }
    m_ultima = m_hilos.fPedir(
        [cambios = m_cambios, strRuta = m_strRuta] {
            fAplicar(strRuta, cambios->fSacar());
            return true;
        },
        [](bool /*bolHecho*/) {});
}

void clsAjustes::fEsperar(std::chrono::milliseconds plazo)
{
    // There is one thread: what was asked for before is done by then.
    if (m_ultima) {
        static_cast<void>(m_hilos.fEsperar(m_ultima, plazo));
    }
}
