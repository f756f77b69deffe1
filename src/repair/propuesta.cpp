#include "repair/propuesta.h"

#include "shared/texto.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <tuple>

namespace {

constexpr std::int64_t lngUnaHora = 3600;
constexpr std::int64_t lngUnDia = 86400;
constexpr clsFecha datPrimeraSegura = fMedianoche(std::chrono::year{1970} / 1 / 1);

/// A source that takes part.
struct clsCandidata {
    int intLugar = -1; ///< in the file's list
    clsFechaFuente fuente;
    clsFecha local;
    int intAcuerdo = -1;
};

bool fEsExif(Fuente fuente) { return fuente <= Fuente::ExifCambiada; }

/// Sources of one kind were written by one hand: they do not confirm each other.
bool fMismaMano(const clsCandidata &una, const clsCandidata &otra)
{
    return una.fuente.fuente == otra.fuente.fuente ||
           (fEsExif(una.fuente.fuente) && fEsExif(otra.fuente.fuente));
}

bool fSoloDia(const clsFechaFuente &fuente) { return fuente.precision == Precision::Dia; }

/// Seconds between two dates: of moments where both are known, else of what the walls showed.
std::int64_t fDistancia(const clsCandidata &una, const clsCandidata &otra)
{
    const auto lngUna = fInstante(una.fuente);
    const auto lngOtra = fInstante(otra.fuente);
    return std::abs(lngUna && lngOtra ? *lngUna - *lngOtra
                                      : una.local.lngSegundos - otra.local.lngSegundos);
}

bool fDeAcuerdo(const clsCandidata &una, const clsCandidata &otra)
{
    return fMismoDia(una.local, otra.local) ||
           (!fSoloDia(una.fuente) && !fSoloDia(otra.fuente) && fDistancia(una, otra) <= lngUnaHora);
}

/// More than a day apart; of what is known by the day, days that are not neighbours.
bool fContrarias(const clsCandidata &una, const clsCandidata &otra)
{
    if (fSoloDia(una.fuente) || fSoloDia(otra.fuente)) {
        return std::abs((fDia(una.local) - fDia(otra.local)).count()) > 1;
    }
    return fDistancia(una, otra) > lngUnDia;
}

int fOrdenDe(const clsFechaFuente &fuente)
{
    constexpr std::array<int, intFuentes> lstOrden{
        0,  // ExifTomada
        1,  // ExifDigitalizada
        7,  // ExifCambiada
        6,  // Gps
        3,  // Xmp
        5,  // Iptc
        2,  // Video
        4,  // Nombre
        9,  // Carpeta
        10, // Archivo
        11  // Tecleada
    };
    return lstOrden[static_cast<std::size_t>(fuente.fuente)];
}

/// The less, the better.
std::tuple<int, bool, bool, int> fClave(const clsCandidata &una)
{
    constexpr int intSeguras = 3; // what was written when the picture was made
    const int intOrden = fOrdenDe(una.fuente);
    return {std::min(intOrden, intSeguras), intOrden >= intSeguras && una.intAcuerdo < 0,
            fSoloDia(una.fuente), intOrden};
}

std::vector<clsCandidata> fCandidatas(const clsFuentes &lstFuentes, const clsRelojLocal &reloj)
{
    const bool bolExifMejor =
        std::any_of(lstFuentes.begin(), lstFuentes.end(), [](const clsFechaFuente &una) {
            return fEsExif(una.fuente) && una.fuente != Fuente::ExifCambiada;
        });
    std::vector<clsCandidata> lstCandidatas;
    for (std::size_t lng = 0; lng < lstFuentes.size(); ++lng) {
        const clsFecha local = fLocal(lstFuentes[lng], reloj);
        if (local.fHay() && !(bolExifMejor && lstFuentes[lng].fuente == Fuente::ExifCambiada)) {
            lstCandidatas.push_back({static_cast<int>(lng), lstFuentes[lng], local, -1});
        }
    }
    return lstCandidatas;
}

void fAcordar(std::vector<clsCandidata> &lstCandidatas)
{
    for (clsCandidata &una : lstCandidatas) {
        const auto otra = std::find_if(
            lstCandidatas.begin(), lstCandidatas.end(), [&](const clsCandidata &posible) {
                return !fMismaMano(una, posible) && fDeAcuerdo(una, posible);
            });
        una.intAcuerdo = otra == lstCandidatas.end() ? -1 : otra->intLugar;
    }
}

/// EXIF is judged to the hour, even where it tells the day only.
bool fTieneYa(clsFecha datArchivo, const clsCandidata &una)
{
    return fSoloDia(una.fuente) && !fEsExif(una.fuente.fuente) ? fMismoDia(datArchivo, una.local)
                                                               : fMismaHora(datArchivo, una.local);
}

Reparo fLimites(clsFecha fecha, clsFecha datAhora)
{
    return fecha < datPrimeraSegura ? Reparo::Antiguo
           : fecha > datAhora       ? Reparo::Futuro
                                    : Reparo::Ninguno;
}

/// What is to be said of the best one, when there is something to propose.
Reparo fReparoDe(const clsPropuesta &propuesta, bool bolCorrecta, clsFecha datAhora)
{
    const Reparo reparo = fLimites(propuesta.fecha, datAhora);
    return reparo != Reparo::Ninguno     ? reparo
           : propuesta.intContraria >= 0 ? Reparo::Contradiccion
           : bolCorrecta                 ? Reparo::Correcta
                                         : Reparo::Ninguno;
}

std::string_view fConArticulo(Fuente fuente)
{
    return fuente == Fuente::Nombre    ? "el nombre"
           : fuente == Fuente::Carpeta ? "la carpeta"
           : fuente == Fuente::Video   ? "el vídeo"
                                       : fTextoFuente(fuente);
}

std::string fTextoContraria(const clsFechaFuente &fuente, const clsRelojLocal &reloj)
{
    std::string strTexto(fConArticulo(fuente.fuente));
    strTexto.front() = fMayuscula(strTexto.front());
    const auto strForma = fSoloDia(fuente) ? strFormaDia : strFormaUsuario;
    return strTexto + " dice " + fEscribirFecha(fLocal(fuente, reloj), strForma);
}

} // namespace

clsPropuesta fProponer(const clsFechasFichero &fechas, clsFecha datAhora,
                       const clsRelojLocal &reloj)
{
    clsPropuesta propuesta;
    if (!fechas.bolExiste) {
        propuesta.reparo = Reparo::NoExiste;
        return propuesta;
    }
    std::vector<clsCandidata> lstCandidatas = fCandidatas(fechas.lstFuentes, reloj);
    fAcordar(lstCandidatas);
    const auto mejor = std::min_element(
        lstCandidatas.begin(), lstCandidatas.end(),
        [](const auto &una, const auto &otra) { return fClave(una) < fClave(otra); });
    if (mejor == lstCandidatas.end()) {
        propuesta.reparo = Reparo::SinFuentes;
        return propuesta;
    }
    if (fTieneYa(fechas.datArchivo, *mejor)) {
        propuesta.reparo = Reparo::Coincide;
        return propuesta;
    }
    const auto contraria =
        std::find_if(lstCandidatas.begin(), lstCandidatas.end(),
                     [&](const clsCandidata &una) { return fContrarias(una, *mejor); });
    propuesta.fecha = mejor->local;
    propuesta.fuente = mejor->fuente.fuente;
    propuesta.intAcuerdo = mejor->intAcuerdo;
    propuesta.intContraria = contraria == lstCandidatas.end() ? -1 : contraria->intLugar;
    propuesta.reparo = fReparoDe(propuesta, fechas.bolCorrecta, datAhora);
    return propuesta;
}

clsPropuesta fProponerManual(clsFecha fecha, Fuente fuente, clsFecha datAhora)
{
    return {.fecha = fecha, .fuente = fuente, .reparo = fLimites(fecha, datAhora)};
}

std::string fTextoReparo(const clsPropuesta &propuesta, const clsFuentes &lstFuentes,
                         const clsRelojLocal &reloj)
{
    switch (propuesta.reparo) {
    case Reparo::NoExiste:
        return "No existe";
    case Reparo::SinFuentes:
        return "No se conoce otra fecha";
    case Reparo::Coincide:
        return "La fecha actual coincide";
    case Reparo::Correcta:
        return "La fecha actual se da por correcta";
    case Reparo::Contradiccion:
        return fTextoContraria(lstFuentes.at(static_cast<std::size_t>(propuesta.intContraria)),
                               reloj);
    case Reparo::Antiguo:
        return "Anterior a 1970";
    case Reparo::Futuro:
        return "En el futuro";
    case Reparo::Ninguno:
        break;
    }
    if (propuesta.intAcuerdo < 0) {
        return {};
    }
    const auto lngAcuerdo = static_cast<std::size_t>(propuesta.intAcuerdo);
    return "Coincide con " + std::string(fConArticulo(lstFuentes.at(lngAcuerdo).fuente));
}
