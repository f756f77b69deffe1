#include "app/comun.h"
#include "app/vigilia.h"
#include "dates/fuentes.h"
#include "shared/numeros.h"
#include "shared/texto.h"
#include "sistema/entorno.h"
#include "viewer/frmPresentacion.h"

#include <algorithm>
#include <memory>

namespace {

constexpr const char *strClavePase = "PRESENTACION";

/// What is told of the file at a position.
clsPie fPie(const clsComun &comun, int lngPos)
{
    const clsFilas &filas = comun.estado.filas;
    const std::string strRuta = filas.fRuta(lngPos);
    const std::string strFecha(filas.fFecha(lngPos));
    const auto fecha = fLeerFecha(strFecha);
    return {fecha ? fEscribirFecha(*fecha, strFormaUsuario) : strFecha,
            fSinGiros(fTextoPantalla(fCarpetasBajo(strRuta, comun.archivo.strRaiz))),
            fEsVideo(strRuta)};
}

clsEntornoPresentacion fEntornoPase(const clsComun &comun, const std::vector<int> &lstPosiciones,
                                    clsVigilia &vigilia)
{
    const auto fPos = [&lstPosiciones](std::size_t lngLugar) { return lstPosiciones[lngLugar]; };
    return {lstPosiciones.size(),
            [&comun, fPos](std::size_t lngLugar) {
                return comun.estado.filas.fRutaDisco(fPos(lngLugar));
            },
            [&comun, fPos](std::size_t lngLugar) { return fPie(comun, fPos(lngLugar)); },
            comun.estado.giros,
            comun.fuentes.fFotograma,
            [&comun, fPos](std::size_t lngLugar) {
                fAbrirConSistema(comun.estado.filas.fRutaDisco(fPos(lngLugar)));
            },
            [&comun](int intSegundos) {
                comun.ajustes.fGuardarIni(strSeccionGeneral, strClavePase,
                                          std::to_string(intSegundos));
            },
            [&vigilia](bool bolEnMarcha) { vigilia.fVelar(bolEnMarcha); },
            clsPase::Reloj::now};
}

/// Shows the ticked files, or all from the current one on. Afterwards the one that was shown last
/// is current.
void fPresentar(const clsComun &comun, clsVigilia &vigilia)
{
    const std::vector<int> lstPosiciones = fMarcadasOTodas(comun.estado);
    const auto it =
        std::lower_bound(lstPosiciones.begin(), lstPosiciones.end(), comun.estado.lngActual);
    const auto lngLugar = static_cast<std::size_t>(
        it == lstPosiciones.end() ? 0 : std::distance(lstPosiciones.begin(), it));
    const auto intSegundos = fLeerEntero(comun.ajustes.fConsultar(strSeccionGeneral, strClavePase));
    frmPresentacion ventana(comun.ventana, fEntornoPase(comun, lstPosiciones, vigilia), lngLugar,
                            fSegundosPase(intSegundos.value_or(intSegundosUsuales)));
    ventana.setWindowIcon(comun.ventana->windowIcon());
    ventana.exec();
    if (const auto lngVista = ventana.fVista(); lngVista && !comun.estado.fCerrando()) {
        const clsOcupado ocupado(comun.ocupacion);
        comun.fMostrar(lstPosiciones[*lngVista]);
    }
}

} // namespace

void fAtenderPresentacion(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("presentacion", [&comun, vigilia = std::make_shared<clsVigilia>()] {
        fPresentar(comun, *vigilia);
    });
}
