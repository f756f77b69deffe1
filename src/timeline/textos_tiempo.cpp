#include "timeline/textos_tiempo.h"

#include "shared/numeros.h"

#include <array>

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

namespace {

/// A month, and how it is cut in Spanish.
struct clsNombreMes {
    const char *strNombre;
    const char *strCorto;
};
constexpr std::array<clsNombreMes, 12> lstMeses{
    {{"enero", "ene."},
     {"febrero", "feb."},
     {"marzo", "mar."},
     {"abril", "abr."},
     {"mayo", "may."},
     {"junio", "jun."},
     {"julio", "jul."},
     {"agosto", "ago."},
     {"septiembre", "sept."},
     {"octubre", "oct."},
     {"noviembre", "nov."},
     {"diciembre", "dic."}}
};

const clsNombreMes &fMes(year_month_day dia)
{
    return lstMeses[static_cast<unsigned>(dia.month()) - 1];
}

std::string fTextoMes(sys_days dia) { return fMes(dia).strNombre + (" de " + fTextoAno(dia)); }

std::string fTextoDia(sys_days dia)
{
    return std::to_string(static_cast<unsigned>(year_month_day{dia}.day())) + " de " +
           fTextoMes(dia);
}

bool fEmpiezaMes(sys_days dia) { return fPeriodo(dia, Unidad::Mes).desde == dia; }

} // namespace

std::string fTextoPeriodo(const clsPeriodo &periodo)
{
    const sys_days ultimo = periodo.hasta - days{1};
    const bool bolMeses = fEmpiezaMes(periodo.desde) && fEmpiezaMes(periodo.hasta);
    const auto fTexto = bolMeses ? fTextoMes : fTextoDia;
    const std::string strDesde = fTexto(periodo.desde);
    const std::string strHasta = fTexto(ultimo);
    return strDesde == strHasta ? strDesde
           : bolMeses           ? "de " + strDesde + " a " + strHasta
                                : "del " + strDesde + " al " + strHasta;
}

std::string fTextoBarra(const clsBarra &barra)
{
    // Spanish points whatever the locale says: the rest of the text is Spanish, too.
    const std::string strCuantos = barra.lngArchivos == 0 ? "ningún archivo"
                                   : barra.lngArchivos == 1
                                       ? "1 archivo"
                                       : fConGrupos(barra.lngArchivos, {}) + " archivos";
    return (barra.fSinFecha() ? "sin fecha" : fTextoPeriodo(barra.periodo)) + ": " + strCuantos +
           (barra.lngMalos == 0
                ? ""
                : ", " + fConGrupos(barra.lngMalos, {}) + " con la fecha incorrecta");
}

std::string fTextoMesCorto(sys_days dia)
{
    return std::string(fMes(dia).strCorto) + ' ' + fTextoAno(dia);
}

std::string fTextoAno(sys_days dia)
{
    return std::to_string(static_cast<int>(year_month_day{dia}.year()));
}
