/// Does without windows what the program does with them. What its boxes would say goes to standard
/// output; what copying has to say, to the error output. Ends with 0 when everything was done, 1
/// when not, 2 when it was called wrongly.

#include "app/arranque.h"
#include "browse/baul.h"
#include "browse/copia.h"
#include "catalogue/constructor.h"
#include "catalogue/lector.h"
#include "catalogue/registro.h"
#include "dates/clsFile.h"
#include "dates/correccion.h"
#include "dates/deshacer.h"
#include "dates/formulario_fecha.h"
#include "dates/informe.h"
#include "repair/reparacion.h"
#include "shared/errores.h"
#include "shared/medios.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"
#include "sistema/entorno.h"
#include "viewer/fechas_videos.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int intSalidaBien = 0;
constexpr int intSalidaMal = 1;
constexpr int intSalidaUso = 2;

using clsArgumentos = std::vector<std::string>;

/// Prints the text of a box; its line breaks become line feeds.
void fAvisar(std::string_view strTexto)
{
    std::string strLineas;
    for (const char chrLetra : strTexto) {
        if (chrLetra != '\r') {
            strLineas += chrLetra;
        }
    }
    std::puts(strLineas.c_str());
    std::fflush(stdout);
}

void fAvisarOcupada()
{
    fAvisar("Otro Miravel está trabajando con estos archivos. Inténtalo cuando termine.");
}

void fAvisarSinLista(const std::string &strMotivo)
{
    fAvisar("No se puede generar la lista de ficheros.\r\n" + strMotivo);
}

/// The root folder as the program takes it from its command line.
std::string fRaiz(const std::string &strArgumento)
{
    return fBarraFinal(fRutaAbsoluta(strArgumento, fCarpetaTrabajo()), false);
}

class clsAvisador : public clsObservador {
public:
    void fCarpeta(const std::string & /*strCarpeta*/) override {}
    void fError(clsError error) override { fAvisar(fTextoError(error)); }
    bool fSeguir() override { return true; }
};

int fOrdenBuild(const clsArgumentos &lstArgumentos)
{
    const std::string strRaiz = fRaiz(lstArgumentos[0]);
    if (!fExisteCarpeta(strRaiz)) {
        fAvisar("Ruta no válida.");
        return intSalidaMal;
    }
    if (!fProbarEscritura(strRaiz)) {
        fAvisarSinLista("No tienes permiso de escritura.");
        return intSalidaMal;
    }
    clsAvisador avisador;
    const clsConstruccion hecha = fConstruir(strRaiz, avisador);
    if (hecha.construccion == Construccion::Ocupada) {
        fAvisarOcupada();
    } else if (hecha.construccion == Construccion::SinEscribir) {
        fAvisarSinLista(fTextoError(hecha.error));
    }
    return hecha.construccion == Construccion::Hecha ? intSalidaBien : intSalidaMal;
}

/// Loads the files as the date window does before it opens. False when one is missing.
bool fCargarFicheros(const clsArgumentos &lstArgumentos, std::vector<clsCorregido> &lstCorregidos)
{
    for (std::size_t lngPos = 2; lngPos < lstArgumentos.size(); ++lngPos) {
        const std::string &strRuta = lstArgumentos[lngPos];
        clsFile fichero;
        fichero.fCargar(strRuta);
        if (!fichero.bolDatos()) {
            fAvisar(fAvisoFichero(fTextoPantalla(strRuta)));
            return false;
        }
        lstCorregidos.push_back({fichero.strFilePath()});
    }
    return true;
}

/// Says what kept the catalogue from being written, if anything did.
void fAvisarFin(const clsFinCorreccion &fin, const std::vector<clsCorregido> &lstCorregidos)
{
    if (fin.correccion == Correccion::Ocupada) {
        fAvisarOcupada();
    } else if (const std::string strMotivo = fMotivoSinCatalogo(fin, lstCorregidos);
               !strMotivo.empty()) {
        fAvisarSinLista(strMotivo);
    }
}

int fSalida(const clsFinCorreccion &fin, const std::vector<clsCorregido> &lstCorregidos)
{
    const bool bolTodos = std::all_of(lstCorregidos.begin(), lstCorregidos.end(),
                                      [](const clsCorregido &fichero) { return fichero.fBien(); });
    return fin.correccion == Correccion::Hecha && bolTodos ? intSalidaBien : intSalidaMal;
}

int fCorregirFicheros(const std::string &strRaiz, std::vector<clsCorregido> &lstCorregidos,
                      clsFecha fecha)
{
    for (clsCorregido &fichero : lstCorregidos) {
        fichero.fecha = fecha;
    }
    const clsFinCorreccion fin = fCorregir(strRaiz, true, lstCorregidos,
                                           [](const std::string &strAviso) { fAvisar(strAviso); });
    fAvisarFin(fin, lstCorregidos);
    if (const std::string strAviso = fAvisoSinFecha(lstCorregidos); !strAviso.empty()) {
        fAvisar(strAviso);
    }
    return fSalida(fin, lstCorregidos);
}

/// In the order of the program: the files, the right to write, the typed date.
int fOrdenCorrect(const clsArgumentos &lstArgumentos)
{
    const std::string strRaiz = fRaiz(lstArgumentos[0]);
    if (!fExisteCarpeta(strRaiz)) {
        fAvisar("Ruta no válida.");
        return intSalidaMal;
    }
    std::vector<clsCorregido> lstCorregidos;
    if (!fCargarFicheros(lstArgumentos, lstCorregidos)) {
        return intSalidaMal;
    }
    if (!fProbarEscritura(strRaiz)) {
        fAvisar("No tienes permiso de escritura.");
        return intSalidaMal;
    }
    const std::string strTecleada = fNormalizarTecleada(lstArgumentos[1]);
    const auto fecha = fLeerFecha(strTecleada, strFormaUsuario);
    if (!fecha) {
        fAvisar(fAvisoFechaNoValida(strTecleada));
        return intSalidaMal;
    }
    return fCorregirFicheros(strRaiz, lstCorregidos, *fecha);
}

/// The files that the list shows, by the catalogue.
clsArgumentos fFicherosListados(const std::string &strRaiz)
{
    clsFilas filas;
    static_cast<void>(fLeerFicheroCatalogo(strRaiz + std::string(strFicheroCatalogo),
                                           fExtensionesVisibles(Medios::Todos), filas));
    clsArgumentos lstRutas;
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        if (std::string strRuta = filas.fRutaDisco(lngPos); !strRuta.empty()) {
            lstRutas.push_back(std::move(strRuta));
        }
    }
    return lstRutas;
}

/// The proposals for these files.
/// @param bolPedidos they were named: all that have a sure proposal are ticked, not only the wrong.
clsTablaReparacion fProponerTodos(const std::string &strRaiz, const clsArgumentos &lstRutas,
                                  bool bolPedidos)
{
    clsTablaReparacion tabla(strRaiz, fFechaLocal(fAhora()));
    clsFechasVideos videos(fCarpetaPrograma() + "miravel-fotograma");
    const std::atomic<bool> bolAnulado = false;
    const auto fVideo = [&](const clsAbierto &video) { return videos.fDatos(video, bolAnulado); };
    for (const std::string &strRuta : lstRutas) {
        const int lngFila = tabla.fFilas();
        tabla.fAgregar(strRuta, fLeerFechas(strRuta, strRaiz, fVideo));
        const clsPropuesta &propuesta = tabla.fPropuesta(lngFila);
        if (bolPedidos && propuesta.fHay() && !propuesta.fDudosa()) {
            tabla.fMarcar(lngFila, true);
        }
    }
    std::vector<std::pair<std::string, bool>> lstExisten;
    for (const std::string &strRuta : tabla.fPorComprobar()) {
        lstExisten.emplace_back(strRuta, fConsultar(strRuta, false).has_value());
    }
    tabla.fComprobado(lstExisten);
    return tabla;
}

/// Whether a file is right as it is, or will be.
bool fAtendida(const clsTablaReparacion &tabla, int lngFila, bool bolPedidos)
{
    if (tabla.fMarcada(lngFila)) {
        return tabla.fChoque(lngFila) == Choque::Ninguno;
    }
    return tabla.fPropuesta(lngFila).reparo == Reparo::Coincide ||
           (!bolPedidos && tabla.fFechas(lngFila).bolCorrecta);
}

/// Names the files that are left, with the remark of their row.
/// @return whether there is none.
bool fAvisarDejadas(const clsTablaReparacion &tabla, bool bolPedidos)
{
    bool bolNinguna = true;
    for (int lngFila = 0; lngFila < tabla.fFilas(); ++lngFila) {
        if (!fAtendida(tabla, lngFila, bolPedidos)) {
            bolNinguna = false;
            fAvisar(fTextoPantalla(tabla.fRuta(lngFila)) + " (" +
                    tabla.fTexto(lngFila, ColumnaReparacion::Reparo) + ")");
        }
    }
    return bolNinguna;
}

int fReparar(const std::string &strRaiz, const clsTablaReparacion &tabla)
{
    std::vector<clsCorregido> lstCorregidos;
    for (const clsReparado &reparado : tabla.fReparados()) {
        lstCorregidos.push_back(
            {reparado.strRuta, reparado.fecha, reparado.strRutaNueva != reparado.strRuta});
    }
    clsFinCorreccion fin;
    if (!lstCorregidos.empty()) {
        fin = fCorregir(strRaiz, true, lstCorregidos, {});
    }
    fAvisarFin(fin, lstCorregidos);
    fAvisar(fInforme(lstCorregidos, "corregido"));
    return fSalida(fin, lstCorregidos);
}

int fOrdenRepair(const clsArgumentos &lstArgumentos)
{
    const std::string strRaiz = fRaiz(lstArgumentos[0]);
    const bool bolPedidos = lstArgumentos.size() > 1;
    clsArgumentos lstRutas = bolPedidos ? clsArgumentos() : fFicherosListados(strRaiz);
    for (std::size_t lngPos = 1; lngPos < lstArgumentos.size(); ++lngPos) {
        lstRutas.push_back(fRutaAbsoluta(lstArgumentos[lngPos], fCarpetaTrabajo()));
    }
    const bool bolDentro =
        std::all_of(lstRutas.begin(), lstRutas.end(),
                    [&](const std::string &strRuta) { return fBajoRaiz(strRuta, strRaiz); });
    if (!fExisteCarpeta(strRaiz) || !bolDentro) {
        fAvisar("Ruta no válida.");
        return intSalidaMal;
    }
    if (!fProbarEscritura(strRaiz)) {
        fAvisar("No tienes permiso de escritura.");
        return intSalidaMal;
    }
    const clsTablaReparacion tabla = fProponerTodos(strRaiz, lstRutas, bolPedidos);
    const bool bolNinguna = fAvisarDejadas(tabla, bolPedidos);
    const int intSalida = fReparar(strRaiz, tabla);
    return bolNinguna ? intSalida : intSalidaMal;
}

int fOrdenUndo(const clsArgumentos &lstArgumentos)
{
    const std::string strRaiz = fRaiz(lstArgumentos[0]);
    if (!fExisteCarpeta(strRaiz)) {
        fAvisar("Ruta no válida.");
        return intSalidaMal;
    }
    const clsFinDeshacer deshecha = fDeshacer(strRaiz, fProbarEscritura(strRaiz));
    if (deshecha.fin.correccion == Correccion::SinPermiso) {
        fAvisar("No tienes permiso de escritura.");
    } else if (deshecha.fin.correccion == Correccion::Ninguna) {
        fAvisar("No hay ninguna corrección que deshacer.");
    }
    fAvisarFin(deshecha.fin, {});
    if (!deshecha.lstFicheros.empty()) {
        fAvisar(fInforme(deshecha.lstFicheros, "deshecho"));
    }
    return fSalida(deshecha.fin, deshecha.lstFicheros);
}

void fQuejarse(std::string_view strRuta, clsError error)
{
    std::fprintf(stderr, "%s\n%s\n", fTextoPantalla(strRuta).c_str(), fTextoError(error).c_str());
}

/// Copies the files behind the first arguments; those that are not below the root are refused.
int fCopiarFicheros(const clsArgumentos &lstArgumentos, std::size_t lngPrimero,
                    const clsDestino &fDestino)
{
    const std::string strRaiz = fRaiz(lstArgumentos[0]);
    clsArgumentos lstRutas;
    lstRutas.reserve(lstArgumentos.size());
    for (std::size_t lngPos = lngPrimero; lngPos < lstArgumentos.size(); ++lngPos) {
        lstRutas.push_back(fRutaAbsoluta(lstArgumentos[lngPos], strRaiz));
        if (!lstRutas.back().starts_with(strRaiz)) {
            fQuejarse(lstRutas.back(), EINVAL);
            return intSalidaMal;
        }
    }
    const clsFinCopia fin = fCopiarLista(lstRutas, fDestino, [](int) { return true; });
    if (fin.fallo) {
        fQuejarse(fin.fallo->strOrigen, fin.fallo->error);
    }
    return static_cast<std::size_t>(fin.lngHechas) == lstRutas.size() ? intSalidaBien
                                                                      : intSalidaMal;
}

int fOrdenCopy(const clsArgumentos &lstArgumentos)
{
    return fCopiarFicheros(lstArgumentos, 2,
                           fDestinoEn(fRutaAbsoluta(lstArgumentos[1], fCarpetaTrabajo())));
}

int fOrdenBaul(const clsArgumentos &lstArgumentos)
{
    const clsLugarBaul lugar = fAsegurarBaul();
    if (lugar.error) {
        fQuejarse(lugar.strCarpeta, lugar.error);
        return intSalidaMal;
    }
    return fCopiarFicheros(lstArgumentos, 1, fDestinoEnBaul(lugar.strCarpeta));
}

struct clsOrden {
    std::string_view strNombre;
    const char *strArgumentos;
    std::size_t lngMinimo; ///< arguments behind the name
    std::size_t lngMaximo;
    int (*fHacer)(const clsArgumentos &);
};

constexpr std::size_t lngCualquiera = static_cast<std::size_t>(-1);

constexpr clsOrden lstOrdenes[] = {
    {"build", "ROOT", 1, 1, fOrdenBuild},
    {"correct", "ROOT DATE FILE...", 3, lngCualquiera, fOrdenCorrect},
    {"repair", "ROOT [FILE...]", 1, lngCualquiera, fOrdenRepair},
    {"undo", "ROOT", 1, 1, fOrdenUndo},
    {"copy", "ROOT TARGET FILE...", 3, lngCualquiera, fOrdenCopy},
    {"baul", "ROOT FILE...", 2, lngCualquiera, fOrdenBaul},
};

int fUso()
{
    for (const clsOrden &orden : lstOrdenes) {
        std::fprintf(stderr, "driver %s %s\n", std::string(orden.strNombre).c_str(),
                     orden.strArgumentos);
    }
    return intSalidaUso;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        return fUso();
    }
    const clsArgumentos lstResto(lstArgumentos + 2, lstArgumentos + intArgumentos);
    for (const clsOrden &orden : lstOrdenes) {
        if (orden.strNombre == lstArgumentos[1] && lstResto.size() >= orden.lngMinimo &&
            lstResto.size() <= orden.lngMaximo) {
            return orden.fHacer(lstResto);
        }
    }
    return fUso();
}
