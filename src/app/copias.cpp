#include "app/al_lado.h"
#include "app/escritorio.h"
#include "browse/baul.h"
#include "catalogue/modelo_fotos.h"
#include "shared/errores.h"
#include "shared/texto.h"
#include "sistema/copia_archivo.h"
#include "sistema/entorno.h"

#include <QString>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

void fAvisarFallo(clsMensajes &mensajes, const std::string &strOrigen, const clsFalloCopia &fallo)
{
    mensajes.fAviso(Icono::Problema,
                    "No se ha podido copiar el archivo.\r\n" + fTextoPantalla(strOrigen) + "\r\n" +
                        fTextoPantalla(fallo.strDestino) + "\r\n" + fMotivo(fallo));
}

/// Does something with the folder of the Baúl, then counts what is in it; says when there is none
/// and none can be made.
template <typename Hacer> void fConBaul(const clsComun &comun, const Hacer &fHacer)
{
    const clsOcupado ocupado(comun.ocupacion); // one Esc leaves all of it
    const auto lugar = fAlLado(comun, [] { return fAsegurarBaul(); });
    if (lugar && lugar->error) {
        comun.mensajes.fAviso(Icono::Problema, fTextoPantalla(lugar->strCarpeta) + "\r\n" +
                                                   fTextoError(lugar->error));
    } else if (lugar) {
        fHacer(lugar->strCarpeta);
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

/// Has the disk take what the system still holds of the copies of the first so many files, unless
/// nobody waits for that.
/// @return a failure of the last of them; nothing when all is there.
[[nodiscard]] std::optional<clsFalloCopia> fTerminar(const clsComun &comun, int lngHechas,
                                                     const std::string &strCarpeta)
{
    if (lngHechas == 0 || comun.estado.parada != Parada::Ninguna) {
        return {};
    }
    const auto error = fAlLado(
        comun, [strCarpeta] { return fVolcarDisco(strCarpeta); },
        QStringLiteral("Terminando de escribir en el disco..."));
    if (!error || !*error) {
        return {};
    }
    return clsFalloCopia{{}, strCarpeta, *error};
}

/// Tells for some seconds what a copy has done.
void fContarlo(const clsComun &comun, const clsCopiados &copiados)
{
    constexpr int intPlazo = 8000; // milliseconds
    static constexpr const char *strReloj = "tmrCopiados";
    auto *reloj = comun.ventana->findChild<QTimer *>(QLatin1String(strReloj));
    if (reloj == nullptr) {
        reloj = new QTimer(comun.ventana);
        reloj->setObjectName(QLatin1String(strReloj));
        reloj->setSingleShot(true);
        QObject::connect(reloj, &QTimer::timeout, comun.ventana, [&comun] {
            comun.estado.copiados = {};
            comun.fEstadoCambiado();
        });
    }
    reloj->start(intPlazo);
    comun.estado.copiados = copiados;
    comun.fEstadoCambiado();
}

/// Copies the ticked files, or the current one, into a folder. What was copied loses its tick; what
/// comes after a failure keeps it.
void fEnviar(const clsComun &comun, const std::string &strCarpeta, const clsDestino &fDestino)
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
        return comun.fSeguirSinEsc();
    });
    fQuitarMarcas(fin.lngHechas);
    const auto falloDisco = fTerminar(comun, fin.lngHechas, strCarpeta);
    if (comun.estado.fCerrando()) {
        return;
    }
    fContarlo(comun, {fin.lngHechas, fin.lngReemplazadas});
    const auto fAvisar = [&](int lngLugar, const clsFalloCopia &fallo) {
        const int lngPos = lstPosiciones[static_cast<std::size_t>(lngLugar)];
        fAvisarFallo(comun.mensajes, comun.estado.filas.fRuta(lngPos), fallo);
    };
    if (fin.fallo) {
        fAvisar(fin.lngHechas, *fin.fallo);
    } else if (falloDisco) {
        fAvisar(fin.lngHechas - 1, *falloDisco);
    }
    comun.fMostrar(comun.estado.lngActual);
}

void fCopiarA(const clsComun &comun)
{
    constexpr const char *strClave = "COPIAR_A";
    const std::string strCarpeta =
        comun.mensajes.fElegirCarpeta("Selecciona carpeta de destino:",
                                      comun.escritorio.fConsultar(strSeccionEscritorio, strClave));
    if (!strCarpeta.empty() && !comun.estado.fCerrando()) {
        comun.escritorio.fGuardarIni(strSeccionEscritorio, strClave, strCarpeta);
        fEnviar(comun, strCarpeta, fDestinoEn(strCarpeta));
    }
}

void fAgregar(const clsComun &comun)
{
    fConBaul(comun,
             [&](const std::string &strBaul) { fEnviar(comun, strBaul, fDestinoEnBaul(strBaul)); });
}

void fVaciarElBaul(const clsComun &comun)
{
    if (!comun.mensajes.fAceptarCancelar("¿Quieres vaciar el Baul?")) {
        fContarElBaul(comun);
        return;
    }
    fConBaul(comun, [&](const std::string &strBaul) {
        fAlLado(comun, [strBaul, strRaiz = comun.archivo.strRaiz] {
            fVaciarBaul(strBaul, strRaiz);
            return true;
        });
    });
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
    const auto lngHay = fAlLado(comun, [] {
        const clsLugarBaul lugar = fAsegurarBaul();
        return lugar.error ? 0 : fContarBaul(lugar.strCarpeta);
    });
    comun.estado.lngEnBaul = lngHay.value_or(comun.estado.lngEnBaul);
    comun.fEstadoCambiado();
}
