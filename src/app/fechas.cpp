#include "app/al_lado.h"
#include "dates/busqueda.h"
#include "dates/correccion.h"
#include "dates/exif.h"
#include "dates/formulario_fecha.h"
#include "dates/frmExif.h"
#include "dates/frmFecha.h"
#include "shared/en_orden.h"
#include "shared/errores.h"
#include "shared/qtexto.h"

#include <optional>

namespace {

void fMostrarExif(const clsComun &comun)
{
    const auto strTexto =
        fAlLado(comun, [strRuta = comun.estado.filas.fRutaDisco(comun.estado.lngActual)] {
            return GetExifText(strRuta);
        });
    if (!strTexto) {
        return;
    }
    frmExif ventana(comun.ventana);
    ventana.setWindowIcon(comun.ventana->windowIcon());
    ventana.fbolShow(fQ(*strTexto));
}

void fBuscar(const clsComun &comun)
{
    const clsOcupado ocupado(comun.ocupacion);
    ++comun.estado.lngGeneracion;
    comun.fVaciarPanel();
    bool bolSeguir = comun.fSeguirSinEsc();
    clsRitmo ritmo;
    clsPreguntas preguntas;
    preguntas.fRuta = [&comun](int lngPos) { return comun.estado.filas.fRutaDisco(lngPos); };
    preguntas.fCorrecta = fFechaCorrecta;
    preguntas.fPaso = [&](int lngPos) {
        bolSeguir = bolSeguir && ritmo.fSeguir([&] {
            comun.informacion.fLugar(lngPos, comun.estado.filas.fCantidad());
            return comun.fSeguirSinEsc();
        });
        return bolSeguir;
    };
    const auto lngHallada = fBuscarIncorrecta(comun.estado.lngActual, preguntas);
    if (!comun.estado.fCerrando()) {
        comun.fMostrar(lngHallada.value_or(comun.estado.lngActual));
    }
}

/// Loads the records of the files a command acts on, up to the first that is not there.
/// @return whether all are there, and nobody has left.
[[nodiscard]] bool fCargar(const clsComun &comun, std::vector<clsFile> &lstFicheros)
{
    const clsOcupado ocupado(comun.ocupacion);
    const clsFilas &filas = comun.estado.filas;
    const std::vector<int> lstPosiciones = fMarcadasOActual(comun.estado);
    const auto fPos = [&](int lngLugar) {
        return lstPosiciones[static_cast<std::size_t>(lngLugar)];
    };
    const auto lngCuantas = static_cast<int>(lstPosiciones.size());
    std::optional<clsProcesando> procesando;
    clsRitmo ritmo;
    const bool bolTodas = fEnOrden(
        lngCuantas, intHilosUsuales,
        [&](int lngLugar) {
            return [strRuta = filas.fRutaDisco(fPos(lngLugar))] {
                clsFile fichero;
                fichero.fCargar(strRuta);
                return fichero;
            };
        },
        [&](int lngLugar, clsFile fichero) {
            lstFicheros.push_back(std::move(fichero));
            if (!lstFicheros.back().bolDatos()) {
                comun.mensajes.fAviso(Icono::Problema,
                                      fAvisoFichero(fTextoPantalla(filas.fRuta(fPos(lngLugar)))));
            }
            return lstFicheros.back().bolDatos();
        },
        [&](int lngLugar) {
            return ritmo.fSeguir([&] {
                if (!procesando) {
                    procesando.emplace(comun.informacion);
                }
                comun.informacion.fLugar(lngLugar, lngCuantas);
                return comun.fSeguirSinEsc();
            });
        });
    comun.informacion.fLugar(comun.estado.lngActual, filas.fCantidad());
    return bolTodas && !comun.estado.fCerrando();
}

[[nodiscard]] bool fAplicar(const clsComun &comun, std::vector<clsCorregido> &lstFicheros,
                            clsFecha fecha)
{
    const clsOcupado ocupado(comun.ocupacion);
    clsRitmo ritmo;
    const auto fFallo = [&comun](const std::string &strAviso) {
        comun.mensajes.fAviso(Icono::Problema, strAviso);
    };
    // What has been begun is done to its end, also when the window is to close.
    const auto fPaso = [&] { static_cast<void>(ritmo.fSeguir(comun.fSeguir)); };
    const clsFinCorreccion fin = fCorregir(comun.archivo.strRaiz, comun.archivo.bolEscritura,
                                           lstFicheros, fecha, fFallo, fPaso);
    if (fin.correccion == Correccion::Ocupada) {
        fAvisarOcupada(comun.mensajes);
    } else if (const std::string strMotivo = fMotivoSinCatalogo(fin, lstFicheros);
               !strMotivo.empty()) {
        fAvisarSinCatalogo(comun.mensajes, strMotivo);
    }
    if (const std::string strAviso = fAvisoSinFecha(lstFicheros); !strAviso.empty()) {
        comun.mensajes.fAviso(Icono::Problema, strAviso);
    }
    return fin.correccion == Correccion::Hecha || fin.correccion == Correccion::SinCatalogo;
}

void fModificar(const clsComun &comun, bool bolSiempre)
{
    std::vector<clsFile> lstFicheros;
    if (!fCargar(comun, lstFicheros) || !fSeCorrige(lstFicheros, bolSiempre)) {
        return;
    }
    if (!comun.archivo.bolEscritura) {
        comun.mensajes.fAviso(Icono::Problema, "No tienes permiso de escritura.");
        return;
    }
    std::vector<clsCorregido> lstCorregidos;
    lstCorregidos.reserve(lstFicheros.size());
    for (const clsFile &fichero : lstFicheros) {
        lstCorregidos.push_back({fichero.strFilePath(), {}, {}, {}});
    }
    frmFecha dialogo(comun.ventana, fFormularioFecha(lstFicheros), comun.mensajes,
                     [&](clsFecha fecha) { return fAplicar(comun, lstCorregidos, fecha); });
    const frmFecha::Cierre cierre = dialogo.fMostrar();
    if (cierre == frmFecha::Cierre::Cancelada) {
        return;
    }
    // Moving on: when the current file has a new name, the row that takes its place is current.
    const int lngAntes = comun.estado.lngActual;
    const std::string strActual = comun.estado.filas.fRuta(comun.estado.lngActual);
    const bool bolQuedarse = cierre == frmFecha::Cierre::Quedarse;
    comun.fLlenar(false, bolQuedarse ? lstCorregidos.back().strFilePathNew : strActual, lngAntes);
}

} // namespace

void fAtenderFechas(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("exif", [&comun] { fMostrarExif(comun); });
    mandos.fAtender("buscarFecha", [&comun] { fBuscar(comun); });
    mandos.fAtender("corregir", [&comun](int bolSiempre) { fModificar(comun, bolSiempre != 0); });
}
