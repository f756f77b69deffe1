#include "dates/catalogo_corregido.h"

#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "sistema/cambios.h"
#include "sistema/entorno.h"

#include <cerrno>

namespace {

/// Writes a record.
/// @return whether it has become another one.
bool fEscribirCorregido(clsReemplazo &nuevo, const clsRegistro &registro,
                        const clsDestinos &destinos)
{
    const auto &[ruta, fecha, tamano] = registro.lstLineas;
    const bool bolEntero = registro.lngLineas == registro.lstLineas.size();
    const auto destino = bolEntero ? destinos.find(ruta.strTexto) : destinos.end();
    if (destino == destinos.end()) {
        nuevo.fEscribir(registro.strBytes);
        return false;
    }
    const std::string strFecha = fEscribirFecha(destino->second.fecha);
    for (const std::string_view str :
         {destino->second.strRuta, ruta.strFin, std::string_view(strFecha), fecha.strFin,
          tamano.strTexto, tamano.strFin}) {
        nuevo.fEscribir(str);
    }
    return destino->second.strRuta != ruta.strTexto || strFecha != fecha.strTexto;
}

/// Gives the catalogue the name of a backup.
clsError fApartar(const std::string &strCatalogo, std::string &strCopia)
{
    clsError error = fRenombrar(strCatalogo, strCopia);
    // Others may take a free name, but not all of them.
    for (int intOtras = 2; error == EEXIST && intOtras > 0; --intOtras) {
        strCopia = fCopiaLibre(strCatalogo);
        error = fRenombrar(strCatalogo, strCopia);
    }
    if (error) {
        strCopia.clear();
    }
    return error;
}

} // namespace

clsCatalogoCorregido::clsCatalogoCorregido(std::string strRuta, const std::string &strViejo)
    : m_strRuta(std::move(strRuta)), m_viejo(fAbrirRegular(strViejo, false)),
      m_nuevo(m_strRuta, m_viejo ? fConsultar(m_viejo->descriptor) : m_viejo.fError())
{
}

clsError clsCatalogoCorregido::fEscribir(const clsDestinos &destinos)
{
    m_nuevo.fEmpezar();
    clsRegistros registros(
        [this, lngPos = std::int64_t{0}](char *chrDestino, std::size_t lngBytes) mutable {
            auto lngLeidos = fLeerEn(m_viejo->descriptor, lngPos, chrDestino, lngBytes);
            lngPos += static_cast<std::int64_t>(lngLeidos.value_or(0));
            return lngLeidos;
        });
    m_bolCambia = false;
    while (const clsRegistro *const registro = registros.fSiguiente()) {
        m_bolCambia |= fEscribirCorregido(m_nuevo, *registro, destinos);
    }
    return registros.fError() ? registros.fError() : m_nuevo.fVolcar();
}

clsError clsCatalogoCorregido::fPublicar(std::string &strCopia)
{
    clsError error = m_nuevo.fCerrar();
    if (!error && !strCopia.empty()) {
        error = fApartar(m_strRuta, strCopia);
    }
    if (error) {
        strCopia.clear();
        return error;
    }
    error = m_nuevo.fConfirmar(true);
    if (error && !strCopia.empty() && !fRenombrar(strCopia, m_strRuta)) {
        strCopia.clear();
    }
    return error;
}

std::string fCopiaLibre(const std::string &strCatalogo)
{
    constexpr int intNombres = 86'400; // a day of corrections, one a second
    clsFecha fecha = fFechaLocal(fAhora());
    std::string strCopia;
    for (int intNombre = 0; intNombre < intNombres; ++intNombre) {
        strCopia = strCatalogo + '.' + fEscribirFecha(fecha, "yyyyMMddHHmmss");
        ++fecha.lngSegundos;
        // Neither may a journal be kept beside a backup of another time.
        const std::string strDiario =
            std::string(fCarpetaDe(strCopia)) + fNombreGuardado(fNombreDe(strCopia));
        if (!fConsultar(strCopia, false) && !fConsultar(strDiario, false)) {
            break;
        }
    }
    return strCopia;
}
