#include "browse/estado.h"

#include "browse/seleccion.h"
#include "dates/correccion.h"
#include "shared/texto.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace {

int fUltima(const clsEstado &estado) { return estado.filas.fCantidad() - 1; }

/// Files that the panel shows at a time.
int fCeldas(const clsEstado &estado) { return estado.bolMiniaturas ? estado.intCeldas : 1; }

} // namespace

clsLista fEmpezarLista(clsEstado &estado, clsLista nueva)
{
    ++estado.lngGeneracion;
    nueva.filas.fSuceder(estado.filas);
    return std::exchange<clsLista>(estado, std::move(nueva));
}

int fActualTrasLlenar(const clsEstado &estado, std::string_view strRuta)
{
    return std::max(0, strRuta.empty() ? 0 : estado.filas.fBuscarRuta(strRuta));
}

std::string fRutaAlSeguir(const clsEstado &estado, const std::vector<clsCorregido> &lstCorregidos)
{
    std::unordered_map<std::string_view, std::string_view> mapNuevas;
    for (const clsCorregido &corregido : lstCorregidos) {
        mapNuevas.emplace(corregido.strFilePath, corregido.strFilePathNew);
    }
    const auto fConserva = [&](const std::string &strRuta) {
        const auto it = mapNuevas.find(strRuta);
        return it == mapNuevas.end() || it->second == strRuta;
    };
    for (const int intPaso : {1, -1}) {
        for (int lngPos = estado.lngActual; lngPos >= 0 && lngPos <= fUltima(estado);
             lngPos += intPaso) {
            if (std::string strRuta = estado.filas.fRuta(lngPos); fConserva(strRuta)) {
                return strRuta;
            }
        }
    }
    return std::string(mapNuevas.at(estado.filas.fRuta(estado.lngActual)));
}

void fSeguirNombres(clsEstado &estado, const std::vector<clsCorregido> &lstCorregidos)
{
    if (estado.giros.fNinguno()) {
        return;
    }
    const clsGiros antes = estado.giros;
    for (const clsCorregido &uno : lstCorregidos) { // one may have got another's former name
        estado.giros.fGirar(uno.strFilePath, -antes.fCuartos(uno.strFilePath));
    }
    for (const clsCorregido &uno : lstCorregidos) {
        estado.giros.fGirar(uno.strFilePathNew, antes.fCuartos(uno.strFilePath));
    }
}

void fHacerActual(clsEstado &estado, int lngPos)
{
    estado.lngActual = std::clamp(lngPos, 0, fUltima(estado));
}

void fElegirColumna(clsEstado &estado, Columna columna)
{
    estado.bolDescendente = columna == estado.columna && !estado.bolDescendente;
    estado.columna = columna;
}

void fOrdenarFilas(clsEstado &estado, const clsRangos &fRangos)
{
    if (estado.filas.fVacia()) {
        return;
    }
    ++estado.lngGeneracion;
    const std::uint32_t lngFila = estado.filas.fOrden()[static_cast<std::size_t>(estado.lngActual)];
    fOrdenar(estado.filas, estado.columna, estado.bolDescendente, fRangos);
    estado.lngActual = estado.filas.fPosicion(lngFila);
}

void fTomarFiltradas(clsEstado &estado, const std::vector<clsConservada> &lstFilas,
                     std::int64_t lngTotalKB)
{
    ++estado.lngGeneracion;
    if (static_cast<int>(lstFilas.size()) < estado.filas.fCantidad()) {
        estado.bolFiltrada = true;
        estado.lngActual = 0;
    }
    estado.filas.fConservar(lstFilas);
    estado.lngTotalKB = lngTotalKB;
}

std::optional<int> fDestino(const clsEstado &estado, Movimiento movimiento)
{
    return fDestino(movimiento, estado.lngActual, fUltima(estado), fCeldas(estado));
}

std::optional<int> fDestino(const clsEstado &estado, Sentido sentido)
{
    if (estado.avance == Avance::Normal) {
        return fDestino(estado,
                        sentido == Sentido::Atras ? Movimiento::Anterior : Movimiento::Siguiente);
    }
    return fAvanzar(estado.filas, estado.lngActual, estado.avance, sentido);
}

clsTramo fALaVista(const clsEstado &estado)
{
    return fTramoPagina(estado.lngActual, estado.filas.fCantidad(), fCeldas(estado));
}

std::vector<int> fVecinas(const clsEstado &estado)
{
    std::vector<int> lstPosiciones;
    for (const int lngPos : {estado.lngActual + 1, estado.lngActual - 1}) {
        if (lngPos >= 0 && lngPos <= fUltima(estado)) {
            lstPosiciones.push_back(lngPos);
        }
    }
    return lstPosiciones;
}

std::vector<int> fMarcadasOActual(const clsEstado &estado)
{
    std::vector<int> lstPosiciones = fMarcadas(estado.filas);
    if (lstPosiciones.empty()) {
        lstPosiciones.push_back(estado.lngActual);
    }
    return lstPosiciones;
}

std::vector<int> fMarcadasOTodas(const clsEstado &estado)
{
    std::vector<int> lstPosiciones = fMarcadas(estado.filas);
    if (lstPosiciones.empty()) {
        lstPosiciones.resize(static_cast<std::size_t>(estado.filas.fCantidad()));
        std::iota(lstPosiciones.begin(), lstPosiciones.end(), 0);
    }
    return lstPosiciones;
}

std::string fTextoInfo1(int lngPos, int lngCantidad)
{
    return std::to_string(lngPos + 1) + " de " + std::to_string(lngCantidad);
}

std::string fTextoInfo2(const clsEstado &estado, const clsSignos &signos)
{
    if (estado.fSinFoto()) {
        return "Procesando...";
    }
    const clsFilas &filas = estado.filas;
    const std::string strFecha(filas.fFecha(estado.lngActual));
    const auto fecha = fLeerFecha(strFecha);
    // Folder and name each in its own encoding, as the list shows them.
    return fSinGiros(fTextoPantalla(filas.fCarpeta(estado.lngActual))) +
           fSinGiros(fTextoPantalla(filas.fNombre(estado.lngActual))) +
           "      Fecha: " + (fecha ? fEscribirFecha(*fecha, strFormaUsuario) : strFecha) +
           "      Tamaño: " + fCampo(filas, estado.lngActual + 1, Campo::Tamano, signos);
}
