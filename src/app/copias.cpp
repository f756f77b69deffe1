#include "app/comun.h"
#include "app/informacion.h"
#include "browse/baul.h"
#include "catalogue/modelo_fotos.h"
#include "shared/errores.h"
#include "shared/texto.h"
#include "sistema/entorno.h"

#include <QString>

#include <algorithm>
#include <vector>

namespace {

void fAvisarFallo(clsMensajes &mensajes, const std::string &strOrigen, const clsFalloCopia &fallo)
{
    mensajes.fAviso(Icono::Problema,
                    "No se ha podido copiar el archivo.\r\n" + fTextoPantalla(strOrigen) + "\r\n" +
                        fTextoPantalla(fallo.strDestino) + "\r\n" + fTextoError(fallo.error));
}

/// Does something with the folder of the Baúl, then counts what is in it; says when there is none
/// and none can be made.
template <typename Hacer> void fConBaul(const clsComun &comun, const Hacer &fHacer)
{
    const clsLugarBaul lugar = fAsegurarBaul();
    if (lugar.error) {
        comun.mensajes.fAviso(Icono::Problema,
                              fTextoPantalla(lugar.strCarpeta) + "\r\n" + fTextoError(lugar.error));
    } else {
        fHacer(lugar.strCarpeta);
    }
    fContarElBaul(comun);
}

void fMarcar(clsModeloFotos &modelo, std::span<const int> lstPosiciones, bool bolMarca)
{
    modelo.fMarcar([=](clsFilas &filas) {
        for (const int lngPos : lstPosiciones) {
            filas.fMarcar(lngPos, bolMarca);
        }
    });
}

/// Copies the ticked files, or the current one. What was copied loses its tick; what comes after a
/// failure keeps it.
void fEnviar(const clsComun &comun, const clsDestino &fDestino)
{
    const clsOcupado ocupado(comun.ocupacion);
    const std::vector<int> lstPosiciones = fMarcadasOActual(comun.estado);
    fMarcar(comun.modelo, lstPosiciones, true);
    std::vector<std::string> lstRutas;
    lstRutas.reserve(lstPosiciones.size());
    for (const int lngPos : lstPosiciones) {
        lstRutas.push_back(comun.estado.filas.fRutaDisco(lngPos));
    }
    std::span<const int> lstConMarca = lstPosiciones;
    const auto fQuitarMarcas = [&](int lngHechas) {
        const auto lngNuevas =
            lstConMarca.size() + static_cast<std::size_t>(lngHechas) - lstPosiciones.size();
        fMarcar(comun.modelo, lstConMarca.first(lngNuevas), false);
        lstConMarca = lstConMarca.subspan(lngNuevas);
    };
    const clsFinCopia fin = fCopiarLista(lstRutas, fDestino, [&](int lngHechas) {
        fQuitarMarcas(lngHechas);
        const auto lngCuantos = static_cast<int>(lstRutas.size());
        comun.informacion.fDecir(
            QStringLiteral("%1 de %2 ...")
                .arg(std::min(lngHechas + 1, lngCuantos)) // the last one may be done by now
                .arg(lngCuantos));
        return comun.fSeguir() && comun.estado.parada == Parada::Ninguna;
    });
    fQuitarMarcas(fin.lngHechas);
    if (comun.estado.fCerrando()) {
        return;
    }
    if (fin.fallo) {
        const int lngPos = lstPosiciones[static_cast<std::size_t>(fin.lngHechas)];
        fAvisarFallo(comun.mensajes, comun.estado.filas.fRuta(lngPos), *fin.fallo);
    }
    comun.fMostrar(comun.estado.lngActual);
}

void fCopiarA(const clsComun &comun)
{
    const std::string strCarpeta = comun.mensajes.fElegirCarpeta("Selecciona carpeta de destino:");
    if (!strCarpeta.empty() && !comun.estado.fCerrando()) {
        fEnviar(comun, fDestinoEn(strCarpeta));
    }
}

void fAgregar(const clsComun &comun)
{
    fConBaul(comun, [&](const std::string &strBaul) { fEnviar(comun, fDestinoEnBaul(strBaul)); });
}

void fVaciarElBaul(const clsComun &comun)
{
    if (!comun.mensajes.fAceptarCancelar("¿Quieres vaciar el Baul?")) {
        fContarElBaul(comun);
        return;
    }
    fConBaul(comun,
             [&](const std::string &strBaul) { fVaciarBaul(strBaul, comun.archivo.strRaiz); });
}

} // namespace

void fAtenderCopias(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("copiar", [&comun] { fCopiarA(comun); });
    mandos.fAtender("agregar", [&comun] { fAgregar(comun); });
    mandos.fAtender("vaciar", [&comun] { fVaciarElBaul(comun); });
    mandos.fAtender("baul", [&comun] { fConBaul(comun, fAbrirConSistema); });
}

void fContarElBaul(const clsComun &comun)
{
    const clsLugarBaul lugar = fAsegurarBaul();
    comun.estado.lngEnBaul = lugar.error ? 0 : fContarBaul(lugar.strCarpeta);
    comun.fEstadoCambiado();
}
