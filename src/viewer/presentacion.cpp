#include "viewer/presentacion.h"

#include <algorithm>
#include <iterator>

int fSegundosPase(int intSegundos)
{
    const auto fin = std::end(lstSegundosPase);
    return std::find(std::begin(lstSegundosPase), fin, intSegundos) == fin ? intSegundosUsuales
                                                                           : intSegundos;
}

int fOtrosSegundos(int intSegundos, int intSentido)
{
    const auto fin = std::end(lstSegundosPase);
    const auto it = std::find(std::begin(lstSegundosPase), fin, fSegundosPase(intSegundos));
    if (intSentido > 0) {
        return std::next(it) == fin ? *it : *std::next(it);
    }
    return it == std::begin(lstSegundosPase) ? *it : *std::prev(it);
}

clsPase::clsPase(std::size_t lngFotos, std::size_t lngLugar, int intSegundos, Momento ahora)
    : m_lngFotos(lngFotos), m_intSegundos(intSegundos)
{
    fQuerer(lngLugar, ahora);
}

void clsPase::fPaso(int intSentido, Momento ahora)
{
    m_intSentido = intSentido < 0 ? -1 : 1;
    fQuerer(fVecino(m_lngQuerida.value_or(m_lngVista.value_or(0)), m_intSentido), ahora);
}

void clsPase::fAlternar(Momento ahora)
{
    m_bolParado = !m_bolParado;
    m_desde = ahora;
}

std::size_t clsPase::fVecino(std::size_t lngLugar, int intSentido) const
{
    return (lngLugar + (intSentido < 0 ? m_lngFotos - 1 : 1)) % m_lngFotos;
}

void clsPase::fQuerer(std::size_t lngLugar, Momento ahora)
{
    m_lngQuerida = lngLugar;
    m_lngPasadas = 0;
    m_desde = ahora;
}

std::optional<std::size_t> clsPase::fSeguir(Momento ahora, const clsEstadoDe &fEstado)
{
    if (!m_lngQuerida) {
        if (m_bolParado || ahora - m_desde < std::chrono::seconds(m_intSegundos)) {
            return {};
        }
        m_intSentido = 1;
        fQuerer(fVecino(*m_lngVista, 1), ahora);
    }
    while (m_lngPasadas < m_lngFotos) {
        const EstadoFoto estado = fEstado(*m_lngQuerida);
        if (estado == EstadoFoto::Pendiente && ahora - m_desde < paciencia) {
            return {};
        }
        if (estado == EstadoFoto::Lista) {
            const bool bolOtra = m_lngVista != m_lngQuerida;
            m_lngVista = m_lngQuerida;
            m_lngQuerida.reset();
            m_desde = ahora;
            return bolOtra ? m_lngVista : std::nullopt;
        }
        m_lngQuerida = fVecino(*m_lngQuerida, m_intSentido);
        ++m_lngPasadas;
        m_desde = ahora;
    }
    // There is none of them: what is shown stays; before the first, all are tried anew.
    if (m_lngVista) {
        m_lngQuerida.reset();
    }
    m_lngPasadas = 0;
    return {};
}

std::optional<std::chrono::milliseconds> clsPase::fFalta(Momento ahora) const
{
    if (!m_lngQuerida && m_bolParado) {
        return {};
    }
    const auto plazo = m_lngQuerida ? paciencia : std::chrono::seconds(m_intSegundos);
    return std::max(std::chrono::ceil<std::chrono::milliseconds>(m_desde + plazo - ahora),
                    std::chrono::milliseconds(0));
}

std::vector<std::size_t> clsPase::fDeseadas() const
{
    const std::size_t lngLugar = m_lngQuerida.value_or(m_lngVista.value_or(0));
    std::vector<std::size_t> lstLugares{lngLugar};
    const auto fAnadir = [&](std::size_t lngOtro) {
        if (std::find(lstLugares.begin(), lstLugares.end(), lngOtro) == lstLugares.end()) {
            lstLugares.push_back(lngOtro);
        }
    };
    fAnadir(fVecino(lngLugar, m_intSentido));
    fAnadir(fVecino(fVecino(lngLugar, m_intSentido), m_intSentido));
    fAnadir(fVecino(lngLugar, -m_intSentido));
    if (m_lngVista) {
        fAnadir(*m_lngVista);
    }
    return lstLugares;
}

std::string fTextoPie(const clsPie &pie, const clsPase &pase, std::size_t lngLugar)
{
    const std::string strSitio =
        std::to_string(lngLugar + 1) + " de " + std::to_string(pase.fFotos());
    const std::string strRitmo =
        pase.fParado() ? "parada" : "cada " + std::to_string(pase.fSegundos()) + " segundos";
    std::string strTexto = pie.strFecha;
    for (const std::string &strParte :
         {pie.strCarpeta, strSitio, strRitmo,
          std::string(pie.bolVideo ? "v\u00EDdeo: Enter lo abre" : "")}) {
        if (!strParte.empty()) {
            strTexto += " \u00B7 ";
            strTexto += strParte;
        }
    }
    return strTexto;
}
