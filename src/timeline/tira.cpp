#include "timeline/tira.h"

#include <algorithm>
#include <utility>

using std::chrono::days;
using std::chrono::sys_days;

namespace {

/// So many days are shown at least, as far as there are as many.
constexpr double dblMenosDias = 14;

} // namespace

void clsTira::fMostrar(clsDias dias)
{
    m_dias = std::move(dias);
    const days span{std::ssize(m_dias.lstArchivos)};
    clsEje eje(::fBarras(m_dias, ::fUnidad(span)));
    const bool bolOtro = eje != m_eje;
    m_eje = std::move(eje);
    fDisponer(m_sitio, m_dblSinFecha);
    fVer(bolOtro ? 0 : m_dblDesde, bolOtro ? m_eje.fLargo() : m_dblLargo);
    fHacerBarras();
}

void clsTira::fDisponer(const clsIntervalo &sitio, double dblSinFecha)
{
    m_sitio = sitio;
    m_dblSinFecha = dblSinFecha;
    m_dblIzq = sitio.dblDesde;
    if (m_dias.lngSinFecha > 0) {
        m_dblIzq = std::min(m_dblIzq + dblSinFecha, sitio.dblHasta);
    }
}

double clsTira::fEscala() const
{
    return m_dblLargo > 0 ? (m_sitio.dblHasta - m_dblIzq) / m_dblLargo : 0;
}

/// The place on the axis at a point.
double clsTira::fLugar(double dblX) const
{
    const double dblEscala = fEscala();
    return dblEscala > 0 ? m_dblDesde + (std::max(dblX, m_dblIzq) - m_dblIzq) / dblEscala
                         : m_dblDesde;
}

clsIntervalo clsTira::fSitio(const clsPeriodo &periodo) const
{
    const auto fX = [this](sys_days dia) {
        return m_dblIzq + (m_eje.fLugar(dia) - m_dblDesde) * fEscala();
    };
    return {fX(periodo.desde), fX(periodo.hasta)};
}

clsIntervalo clsTira::fSitio(const clsBarra &barra) const
{
    return barra.fSinFecha() ? clsIntervalo{m_sitio.dblDesde, m_dblIzq} : fSitio(barra.periodo);
}

clsBarra clsTira::fEn(double dblX) const
{
    if (m_lstBarras.empty()) {
        return {};
    }
    if (dblX < m_dblIzq || m_eje.fTrechos().empty()) {
        return m_lstBarras.front();
    }
    const double dblLugar = fLugar(dblX);
    if (const clsTrecho *const pliegue = m_eje.fPlegadoEn(dblLugar); pliegue != nullptr) {
        return {pliegue->periodo};
    }
    const sys_days dia =
        std::min(m_eje.fDiaEn(dblLugar), m_eje.fTrechos().back().periodo.hasta - days{1});
    const int lngBarra = fBarraDe(m_lstBarras, fMedianoche(dia));
    return lngBarra >= 0 ? m_lstBarras[static_cast<std::size_t>(lngBarra)]
                         : clsBarra{fPeriodo(dia, m_unidad)};
}

int clsTira::fDesde(double dblX) const
{
    const clsBarra barra = fEn(dblX);
    return barra.fSinFecha() && !m_lstBarras.empty()
               ? 0
               : fBarraDesde(m_lstBarras, barra.periodo.desde);
}

clsBarra clsTira::fEntre(double dblX, double dblOtra) const
{
    const clsBarra primera = fEn(std::max(std::min(dblX, dblOtra), m_dblIzq));
    const clsBarra ultima = fEn(std::max({dblX, dblOtra, m_dblIzq}));
    clsBarra todas{
        {primera.periodo.desde, ultima.periodo.hasta}
    };
    for (const clsBarra &barra : m_lstBarras) {
        if (!barra.fSinFecha() && barra.periodo.desde >= todas.periodo.desde &&
            barra.periodo.hasta <= todas.periodo.hasta) {
            todas.lngArchivos += barra.lngArchivos;
            todas.lngMalos += barra.lngMalos;
        }
    }
    return todas;
}

void clsTira::fAmpliar(double dblX, double dblFactor)
{
    const double dblFoco = fLugar(dblX);
    const double dblParte = m_dblLargo > 0 ? (dblFoco - m_dblDesde) / m_dblLargo : 0;
    const double dblTodo = m_eje.fLargo();
    const double dblLargo =
        std::clamp(m_dblLargo / dblFactor, std::min(dblMenosDias, dblTodo), dblTodo);
    fVer(dblFoco - dblParte * dblLargo, dblLargo);
}

void clsTira::fCorrer(double dblPixeles)
{
    const double dblEscala = fEscala();
    fVer(m_dblDesde + (dblEscala > 0 ? dblPixeles / dblEscala : 0), m_dblLargo);
}

void clsTira::fIncluir(const clsBarra &barra)
{
    const double dblDesde = m_eje.fLugar(barra.periodo.desde);
    const double dblHasta = m_eje.fLugar(barra.periodo.hasta);
    if (!barra.fSinFecha() && (dblDesde < m_dblDesde || dblHasta > m_dblDesde + m_dblLargo)) {
        fVer((dblDesde + dblHasta - m_dblLargo) / 2, m_dblLargo);
    }
}

/// Shows a part of the axis, moved so that it lies in it.
void clsTira::fVer(double dblDesde, double dblLargo)
{
    m_dblLargo = dblLargo;
    m_dblDesde = std::clamp(dblDesde, 0.0, std::max(m_eje.fLargo() - dblLargo, 0.0));
    if (m_eje.fTrechos().empty()) {
        return;
    }
    const Unidad antes = std::exchange(
        m_unidad, ::fUnidad(m_eje.fDiaEn(m_dblDesde + m_dblLargo) - m_eje.fDiaEn(m_dblDesde)));
    if (m_unidad != antes) {
        fHacerBarras();
    }
}

void clsTira::fHacerBarras()
{
    m_lstBarras = ::fBarras(m_dias, m_unidad);
    m_lngMayor = 0;
    for (const clsBarra &barra : m_lstBarras) {
        m_lngMayor = std::max(m_lngMayor, barra.lngArchivos);
    }
}
