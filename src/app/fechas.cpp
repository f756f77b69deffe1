#include "app/al_lado.h"
#include "dates/busqueda.h"
#include "dates/correccion.h"
#include "dates/exif.h"
#include "dates/formulario_fecha.h"
#include "dates/frmExif.h"
#include "dates/frmFecha.h"
#include "dates/informe.h"
#include "shared/en_orden.h"
#include "shared/errores.h"
#include "shared/qtexto.h"

#include <chrono>
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
    if (lngHallada) {
        comun.estado.malas.fAnotar(comun.estado.filas, *lngHallada);
    }
    if (!comun.estado.fCerrando()) {
        comun.fMostrar(lngHallada.value_or(comun.estado.lngActual));
    }
}

/// Loads the records of the files a command acts on, up to the first that is not there.
/// @return whether all are there, and nobody has left.
[[nodiscard]] bool fCargar(const clsComun &comun, std::vector<clsFile> &lstFicheros)
{
    clsTrabajo trabajo(comun);
    const clsFilas &filas = comun.estado.filas;
    const std::vector<int> lstPosiciones = fMarcadasOActual(comun.estado);
    const auto fPos = [&](int lngLugar) {
        return lstPosiciones[static_cast<std::size_t>(lngLugar)];
    };
    const auto lngCuantas = static_cast<int>(lstPosiciones.size());
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
                comun.informacion.fLugar(lngLugar, lngCuantas);
                return trabajo.fSeguir();
            });
        });
    comun.informacion.fLugar(comun.estado.lngActual, filas.fCantidad());
    return bolTodas && !comun.estado.fCerrando();
}

/// What became of a correction.
struct clsObra {
    clsFinCorreccion fin;
    std::vector<clsCorregido> lstFicheros;
};

/// Corrects files beside the window. What has been begun is done to its end, also when the window
/// is to close; only when the disk does not answer nobody waits for that.
[[nodiscard]] std::optional<clsObra> fHacerObra(const clsComun &comun,
                                                std::vector<clsCorregido> lstFicheros)
{
    constexpr std::chrono::milliseconds paciencia(700);
    clsTrabajo trabajo(comun);
    return fHacerAparte(
        [lstFicheros = std::move(lstFicheros), strRaiz = comun.archivo.strRaiz,
         bolEscritura = comun.archivo.bolEscritura,
         &mensajes = comun.mensajes](clsRecados &recados) {
            const auto fFallo = [&](const std::string &strAviso) {
                recados.fPedir([&] { mensajes.fAviso(Icono::Problema, strAviso); });
            };
            clsObra obra{{}, lstFicheros};
            obra.fin = fCorregir(strRaiz, bolEscritura, obra.lstFicheros, fFallo, [&recados] {
                recados.fDecir();
                return true;
            });
            return obra;
        },
        [&](const clsRecados &recados) {
            const bool bolSeguir = trabajo.fSeguir();
            if (recados.fCallado(paciencia)) {
                return bolSeguir;
            }
            comun.estado.parada = comun.estado.fCerrando() ? Parada::Cierre : Parada::Ninguna;
            return true;
        });
}

/// Corrects the files and says what went wrong.
/// @param lstFicheros what became of them; none when the disk does not answer and was left.
/// @return false: nothing was done.
[[nodiscard]] bool fAplicar(const clsComun &comun, std::vector<clsCorregido> &lstFicheros,
                            clsFecha fecha)
{
    const clsOcupado ocupado(comun.ocupacion);
    for (clsCorregido &fichero : lstFicheros) {
        fichero.fecha = fecha;
    }
    auto obra = fHacerObra(comun, std::move(lstFicheros)).value_or(clsObra());
    lstFicheros = std::move(obra.lstFicheros);
    const clsFinCorreccion &fin = obra.fin;
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
        lstCorregidos.push_back({fichero.strFilePath()});
    }
    frmFecha dialogo(comun.ventana, fFormularioFecha(lstFicheros), comun.mensajes,
                     [&](clsFecha fecha) { return fAplicar(comun, lstCorregidos, fecha); });
    const frmFecha::Cierre cierre = dialogo.fMostrar();
    if (cierre == frmFecha::Cierre::Cancelada || lstCorregidos.empty()) {
        return;
    }
    fSeguirNombres(comun.estado, lstCorregidos);
    comun.fLlenar(false, cierre == frmFecha::Cierre::Quedarse
                             ? lstCorregidos.back().strFilePathNew
                             : fRutaAlSeguir(comun.estado, lstCorregidos));
}

} // namespace

void fAtenderFechas(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("exif", [&comun] { fMostrarExif(comun); });
    mandos.fAtender("buscarFecha", [&comun] { fBuscar(comun); });
    mandos.fAtender("corregir", [&comun](int bolSiempre) { fModificar(comun, bolSiempre != 0); });
}
