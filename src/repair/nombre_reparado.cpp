#include "repair/nombre_reparado.h"

#include "dates/correccion.h"
#include "dates/fecha_nombre.h"
#include "shared/rutas.h"

std::string fRutaReparada(std::string_view strRuta, clsFecha fecha, NombreReparado nombre)
{
    if (nombre == NombreReparado::SinCambio) {
        return std::string(strRuta);
    }
    const auto principio = fFechaAlPrincipio(fNombreDe(strRuta));
    const bool bolYa = principio && fDia(principio->fecha) == fDia(fecha);
    return bolYa ? std::string(strRuta) : fRutaCorregida(strRuta, fecha);
}

void clsNombresNuevos::fSaber(std::string strRuta, bool bolExiste)
{
    m_mapHay.insert_or_assign(std::move(strRuta), bolExiste);
}

bool clsNombresNuevos::fSabido(const std::string &strRuta) const
{
    return m_mapHay.find(strRuta) != m_mapHay.end();
}

void clsNombresNuevos::fSoltar(const std::string &strA)
{
    if (const auto pedido = m_mapPedidos.find(strA);
        pedido != m_mapPedidos.end() && --pedido->second <= 0) {
        m_mapPedidos.erase(pedido);
    }
}

Choque clsNombresNuevos::fChoque(const std::string &strA) const
{
    const auto hay = m_mapHay.find(strA);
    if (hay != m_mapHay.end() && hay->second) {
        return Choque::Existe;
    }
    const auto pedido = m_mapPedidos.find(strA);
    return pedido != m_mapPedidos.end() && pedido->second > 1 ? Choque::Repetido : Choque::Ninguno;
}
