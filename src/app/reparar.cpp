#include "app/al_lado.h"
#include "dates/correccion.h"
#include "dates/deshacer.h"
#include "dates/fuentes.h"
#include "dates/informe.h"
#include "repair/frmReparar.h"
#include "repair/frmRevisar.h"
#include "repair/textos_reparar.h"
#include "sistema/archivo.h"
#include "sistema/entorno.h"
#include "viewer/fechas_videos.h"
#include "viewer/hijos.h"
#include "viewer/pieza_mini.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <iterator>
#include <memory>
#include <numeric>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace {

/// Does what changes many files beside the window. It ends between two files when the user wants
/// that; only when the disk does not answer nobody waits.
/// @param fHacer runs on a thread, and gets what asks after each file whether to go on.
/// @param fPaso  gets how many files are done, and lets events run; false: no further ones.
template <typename Hacer, typename Paso>
auto fCambiarAparte(const clsComun &comun, const Hacer &fHacer, const Paso &fPaso)
{
    constexpr std::chrono::milliseconds paciencia(700);
    const auto parar = std::make_shared<std::atomic<bool>>(false);
    clsTrabajo trabajo(comun);
    return fHacerAparte(
        [parar, fHacer](clsRecados &recados) {
            return fHacer([parar, &recados, lngHechos = 0]() mutable {
                recados.fDecir(std::to_string(++lngHechos));
                return !*parar;
            });
        },
        [&](const clsRecados &recados) {
            int lngHechos = 0;
            const std::string strDicho = recados.fDicho();
            std::from_chars(strDicho.data(), strDicho.data() + strDicho.size(), lngHechos);
            const bool bolPaso = fPaso(lngHechos);
            *parar = !trabajo.fSeguir() || !bolPaso || *parar;
            return !*parar || !recados.fCallado(paciencia);
        });
}

/// Says what became of the files, and of the catalogue.
void fInformar(const clsComun &comun, const clsFinCorreccion &fin,
               const std::vector<clsCorregido> &lstFicheros, std::string_view strHecho)
{
    if (fin.correccion == Correccion::Ocupada) {
        fAvisarOcupada(comun.mensajes);
        return;
    }
    if (const std::string strMotivo = fMotivoSinCatalogo(fin, lstFicheros); !strMotivo.empty()) {
        fAvisarSinCatalogo(comun.mensajes, strMotivo);
    }
    if (fin.correccion != Correccion::Imposible) {
        const bool bolTodos = std::all_of(lstFicheros.begin(), lstFicheros.end(),
                                          [](const clsCorregido &uno) { return uno.fBien(); });
        comun.mensajes.fAviso(bolTodos ? Icono::Aviso : Icono::Problema,
                              fInforme(lstFicheros, strHecho));
    }
}

/// Whether the files are other ones now than the list has them.
bool fHaCambiado(const clsFinCorreccion &fin)
{
    return fin.correccion == Correccion::Hecha || fin.correccion == Correccion::SinCatalogo;
}

bool fEscribible(const clsComun &comun)
{
    if (!comun.archivo.bolEscritura) {
        comun.mensajes.fAviso(Icono::Problema, "No tienes permiso de escritura.");
    }
    return comun.archivo.bolEscritura;
}

struct clsFinReparacion {
    clsFinCorreccion fin;
    std::vector<clsCorregido> lstFicheros;
};

/// Corrects the files.
/// @return what became of them; nothing when it was left, or nothing was done.
std::optional<clsFinReparacion> fCorregirReparados(const clsComun &comun,
                                                   const std::vector<clsReparado> &lstReparados,
                                                   const std::function<bool(int)> &fPaso)
{
    clsFinReparacion fin;
    std::transform(lstReparados.begin(), lstReparados.end(), std::back_inserter(fin.lstFicheros),
                   [](const clsReparado &uno) {
                       return clsCorregido{.strFilePath = uno.strRuta,
                                           .fecha = uno.fecha,
                                           .bolNombre = uno.strRutaNueva != uno.strRuta};
                   });
    return fCambiarAparte(
        comun,
        [fin, strRaiz = comun.archivo.strRaiz,
         bolEscritura = comun.archivo.bolEscritura](const clsSeguir &fSeguir) {
            clsFinReparacion suyo = fin;
            // Who could not be renamed stands in the report.
            suyo.fin = fCorregir(strRaiz, bolEscritura, suyo.lstFicheros, {}, fSeguir);
            return suyo;
        },
        fPaso);
}

/// Reads the dates of files, of videos by the child program. The threads that call it keep that
/// alive.
clsLectorFechas fLector(const clsComun &comun)
{
    const auto videos =
        std::make_shared<clsFechasVideos>(fProgramaHijo(fSitiosHijo("miravel-fotograma")));
    return [videos, strRaiz = comun.archivo.strRaiz](const std::string &strRuta) {
        return fLeerFechas(strRuta, strRaiz, [&](const clsAbierto &video) {
            return videos->fDatos(video, clsAnulado(false));
        });
    };
}

/// What the window that repairs dates takes from the program.
clsEntornoReparar fEntorno(const clsComun &comun)
{
    return {
        fLector(comun),
        [](const std::string &strRuta) { return fConsultar(strRuta, false).fError() != ENOENT; },
        fImagenes(comun),
        {},
        comun.mensajes};
}

/// Where the current file is now.
std::string fRutaTras(const clsComun &comun, const std::vector<clsCorregido> &lstFicheros)
{
    const std::string strActual = comun.estado.filas.fRuta(comun.estado.lngActual);
    const auto cual =
        std::find_if(lstFicheros.begin(), lstFicheros.end(),
                     [&](const clsCorregido &uno) { return uno.strFilePath == strActual; });
    return cual == lstFicheros.end() ? strActual : cual->strFilePathNew;
}

/// The files at some positions, without those that are not the archive's.
std::vector<std::string> fRutas(const clsComun &comun, const std::vector<int> &lstPosiciones)
{
    std::vector<std::string> lstRutas;
    for (const int lngPos : lstPosiciones) {
        if (std::string strRuta = comun.estado.filas.fRutaDisco(lngPos); !strRuta.empty()) {
            lstRutas.push_back(std::move(strRuta));
        }
    }
    return lstRutas;
}

void fReparar(const clsComun &comun, std::vector<std::string> lstRutas)
{
    std::optional<clsFinReparacion> fin;
    clsEntornoReparar entorno = fEntorno(comun);
    entorno.fCorregir = [&](const std::vector<clsReparado> &lstReparados,
                            const std::function<bool(int)> &fPaso) {
        if (!fEscribible(comun)) {
            return false;
        }
        fin = fCorregirReparados(comun, lstReparados, fPaso);
        if (fin) {
            fInformar(comun, fin->fin, fin->lstFicheros, "corregido");
        }
        return !fin || fHaCambiado(fin->fin);
    };
    frmReparar ventana(comun.ventana, std::move(lstRutas),
                       clsTablaReparacion(comun.archivo.strRaiz, fFechaLocal(fAhora())),
                       std::move(entorno));
    ventana.setWindowIcon(comun.ventana->windowIcon());
    ventana.exec();
    if (fin && fHaCambiado(fin->fin) && !comun.estado.fCerrando()) {
        fSeguirNombres(comun.estado, fin->lstFicheros);
        comun.fLlenar(false, fRutaTras(comun, fin->lstFicheros));
    }
}

/// Remembers which files of the list the overview has as dated wrong.
void fAnotarMalas(const clsComun &comun, const clsResumenFechas &resumen)
{
    std::unordered_set<std::string_view> lstMalas;
    for (const clsAnoResumen &uno : resumen.fAnos()) {
        const auto &lstSuyas = uno.lstRutas[static_cast<std::size_t>(EstadoFecha::Incorrecta)];
        lstMalas.insert(lstSuyas.begin(), lstSuyas.end());
    }
    const clsFilas &filas = comun.estado.filas;
    for (int lngPos = 0; !lstMalas.empty() && lngPos < filas.fCantidad(); ++lngPos) {
        if (lstMalas.contains(filas.fRuta(lngPos))) {
            comun.estado.malas.fAnotar(filas, lngPos);
        }
    }
    comun.fEstadoCambiado();
}

void fRevisar(const clsComun &comun)
{
    std::vector<int> lstTodas(static_cast<std::size_t>(comun.estado.filas.fCantidad()));
    std::iota(lstTodas.begin(), lstTodas.end(), 0);
    frmRevisar ventana(comun.ventana, fRutas(comun, lstTodas), fLector(comun));
    ventana.setWindowIcon(comun.ventana->windowIcon());
    auto lstRutas = ventana.fMostrar();
    fAnotarMalas(comun, ventana.fResumen());
    if (!lstRutas.empty()) {
        fReparar(comun, std::move(lstRutas));
    }
}

/// Takes the latest correction back.
void fVolverAtras(const clsComun &comun)
{
    if (!fEscribible(comun)) {
        return;
    }
    const auto lstHechas =
        fAlLado(comun, [strRaiz = comun.archivo.strRaiz] { return fCorreccionesHechas(strRaiz); });
    if (!lstHechas) {
        return;
    }
    if (lstHechas->empty()) {
        comun.mensajes.fAviso(Icono::Aviso, "No hay ninguna corrección que se pueda deshacer.");
        return;
    }
    if (!comun.mensajes.fAceptarCancelar(fPreguntaDeshacer(*lstHechas))) {
        return;
    }
    const auto fin = fCambiarAparte(
        comun,
        [strRaiz = comun.archivo.strRaiz, bolEscritura = comun.archivo.bolEscritura](
            const clsSeguir &fSeguir) { return fDeshacer(strRaiz, bolEscritura, fSeguir); },
        [&, intCuantos = lstHechas->front().intFicheros](int lngHechos) {
            comun.informacion.fLugar(std::min(lngHechos, intCuantos - 1), intCuantos);
            return true;
        });
    if (!fin) {
        return;
    }
    fInformar(comun, fin->fin, fin->lstFicheros, "deshecho");
    if (fHaCambiado(fin->fin) && !comun.estado.fCerrando()) {
        fSeguirNombres(comun.estado, fin->lstFicheros);
        comun.fLlenar(false, fRutaTras(comun, fin->lstFicheros));
    }
}

} // namespace

clsImagenes fImagenes(const clsComun &comun)
{
    return [fuentes = comun.fuentes](const std::string &strRuta, int intLado) {
        const clsAnulado anulado = false;
        auto hecho = fPiezaMini(strRuta, intLado, {}, fuentes)(anulado);
        return (hecho.fSigue ? hecho.fSigue(anulado) : hecho).valor.miniatura.imagen;
    };
}

void fAtenderReparaciones(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("reparar",
                    [&comun] { fReparar(comun, fRutas(comun, fMarcadasOTodas(comun.estado))); });
    mandos.fAtender("revisar", [&comun] { fRevisar(comun); });
    mandos.fAtender("deshacer", [&comun] { fVolverAtras(comun); });
}
