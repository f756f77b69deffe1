#include "dates/fecha_nombre.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int intAnoPrimero = 1800;
constexpr int intAnoUltimo = 2199;
constexpr std::string_view strCifrasTodas = "0123456789";

bool fUnoDe(char chr, std::string_view strSignos) { return strSignos.find(chr) < strSignos.size(); }

/// Reads on in a name. What does not read leaves it where it was.
class clsCursor {
public:
    explicit clsCursor(std::string_view strTexto) : m_strResto(strTexto) {}

    [[nodiscard]] std::string_view fResto() const { return m_strResto; }
    /// How many digits follow.
    [[nodiscard]] std::size_t fLargoRacha() const
    {
        return std::min(m_strResto.find_first_not_of(strCifrasTodas), m_strResto.size());
    }
    void fPasar(std::size_t lngBytes) { m_strResto.remove_prefix(lngBytes); }
    void fPasarHastaCifra()
    {
        fPasar(std::min(m_strResto.find_first_of(strCifrasTodas), m_strResto.size()));
    }
    /// One of these characters; 0 when none of them follows.
    char fSigno(std::string_view strSignos)
    {
        if (m_strResto.empty() || !fUnoDe(m_strResto.front(), strSignos)) {
            return '\0';
        }
        const char chr = m_strResto.front();
        fPasar(1);
        return chr;
    }
    bool fPalabra(std::string_view strPalabra)
    {
        const bool bolEsta = m_strResto.starts_with(strPalabra);
        fPasar(bolEsta ? strPalabra.size() : 0);
        return bolEsta;
    }
    /// The next digits as a number, of which there must be that many at least.
    std::optional<int> fCifras(std::size_t lngCuantas)
    {
        if (fLargoRacha() < lngCuantas) {
            return {};
        }
        const std::string strNumero(m_strResto.substr(0, lngCuantas));
        fPasar(lngCuantas);
        return std::atoi(strNumero.c_str());
    }
    /// A number of exactly that many digits.
    std::optional<int> fNumeroDe(std::size_t lngCuantas)
    {
        return fLargoRacha() == lngCuantas ? fCifras(lngCuantas) : std::nullopt;
    }

private:
    std::string_view m_strResto;
};

/// A day of three numbers, if there is one.
std::optional<clsPartesFecha> fDiaDe(std::optional<int> intAno, std::optional<int> intMes,
                                     std::optional<int> intDia)
{
    if (!intAno || !intMes || !intDia || *intAno < intAnoPrimero || *intAno > intAnoUltimo) {
        return {};
    }
    const clsPartesFecha partes{*intAno, *intMes, *intDia};
    return fFechaDe(partes) ? std::optional(partes) : std::nullopt;
}

/// What has been read of a date in a name.
struct clsFechaLeida {
    clsPartesFecha partes;
    Precision precision = Precision::Dia;
    std::int32_t lngNanos = 0;
};

/// Puts a time of day into the date; nothing happens where there is no such time.
bool fPonerHora(clsFechaLeida &leida, std::optional<int> intHora, std::optional<int> intMinuto,
                std::optional<int> intSegundo, Precision precision)
{
    if (!intHora || !intMinuto || !intSegundo || *intHora > 23 || *intMinuto > 59 ||
        *intSegundo > 59) {
        return false;
    }
    leida.partes.intHora = *intHora;
    leida.partes.intMinuto = *intMinuto;
    leida.partes.intSegundo = *intSegundo;
    leida.precision = precision;
    return true;
}

/// yyyyMMdd, ddMMyyyy, and yyyyMMdd with hhmm, hhmmss or hhmmss and milliseconds in one run.
std::optional<clsFechaLeida> fLeerRacha(clsCursor &cursor)
{
    const std::size_t lngLargo = cursor.fLargoRacha();
    clsCursor otro = cursor;
    const auto intAno = cursor.fCifras(4);
    const auto intMes = cursor.fCifras(2);
    auto dia = fDiaDe(intAno, intMes, cursor.fCifras(2));
    if (!dia && lngLargo == 8) {
        const auto intDia = otro.fCifras(2);
        const auto intSuMes = otro.fCifras(2);
        dia = fDiaDe(otro.fCifras(4), intSuMes, intDia);
    }
    if (!dia) {
        return {};
    }
    clsFechaLeida leida{.partes = *dia};
    if (lngLargo == 8) {
        return leida;
    }
    const auto intHora = cursor.fCifras(2);
    const auto intMinuto = cursor.fCifras(2);
    const bool bolSegundos = lngLargo > 12;
    const auto intSegundo = bolSegundos ? cursor.fCifras(2) : 0;
    leida.lngNanos = lngLargo == 17 ? *cursor.fCifras(3) * 1'000'000 : 0;
    const Precision precision = bolSegundos ? Precision::Segundo : Precision::Minuto;
    return fPonerHora(leida, intHora, intMinuto, intSegundo, precision) ? std::optional(leida)
                                                                        : std::nullopt;
}

/// yyyy-MM-dd or dd-MM-yyyy.
std::optional<clsFechaLeida> fLeerSeparada(clsCursor &cursor)
{
    const bool bolAnoPrimero = cursor.fLargoRacha() == 4;
    const auto intUno = cursor.fCifras(bolAnoPrimero ? 4 : 2);
    const char chrEntre = cursor.fSigno("-_ .");
    const auto intMes = cursor.fNumeroDe(2);
    if (chrEntre == '\0' || !intMes || cursor.fSigno({&chrEntre, 1}) == '\0') {
        return {};
    }
    const auto intOtro = cursor.fNumeroDe(bolAnoPrimero ? 2 : 4);
    const auto dia =
        bolAnoPrimero ? fDiaDe(intUno, intMes, intOtro) : fDiaDe(intOtro, intMes, intUno);
    return dia ? std::optional(clsFechaLeida{.partes = *dia}) : std::nullopt;
}

/// What stands between a day and its time of day; whether anything does.
bool fPasarEntre(clsCursor &cursor)
{
    const std::size_t lngAntes = cursor.fResto().size();
    if (!cursor.fPalabra(" at ") && !cursor.fPalabra(" a las ") && !cursor.fPalabra(" - ")) {
        cursor.fSigno("_- .T");
    }
    return cursor.fResto().size() != lngAntes;
}

/// Milliseconds behind the seconds.
std::int32_t fLeerMilisegundos(clsCursor &cursor)
{
    clsCursor adelante = cursor;
    const bool bolSigno = adelante.fSigno("._-,") != '\0' || adelante.fSigno("s") != '\0';
    const auto intMilis = bolSigno ? adelante.fNumeroDe(3) : std::nullopt;
    if (!intMilis) {
        return 0;
    }
    cursor = adelante;
    return *intMilis * 1'000'000;
}

/// hhmmss, or with milliseconds, in one run.
bool fLeerHoraJunta(clsCursor &cursor, clsFechaLeida &leida)
{
    const bool bolMilis = cursor.fLargoRacha() == 9;
    const auto intHora = cursor.fCifras(2);
    const auto intMinuto = cursor.fCifras(2);
    if (!fPonerHora(leida, intHora, intMinuto, cursor.fCifras(2), Precision::Segundo)) {
        return false;
    }
    leida.lngNanos = bolMilis ? *cursor.fCifras(3) * 1'000'000 : fLeerMilisegundos(cursor);
    return true;
}

/// "AM" or "PM", also "p. m.", behind a blank or a narrow one; 0 where there is neither.
char fLeerMitad(clsCursor &cursor)
{
    clsCursor adelante = cursor;
    if (!adelante.fPalabra("\u202F") && !adelante.fPalabra("\u00A0")) {
        adelante.fSigno(" ");
    }
    const char chrMitad = adelante.fSigno("AaPp");
    adelante.fSigno(".");
    adelante.fSigno(" ");
    if (chrMitad == '\0' || adelante.fSigno("Mm") == '\0') {
        return '\0';
    }
    cursor = adelante;
    return fUnoDe(chrMitad, "Aa") ? 'A' : 'P';
}

/// The hour of a clock of twelve hours.
std::optional<int> fHoraDeDoce(std::optional<int> intHora, char chrMitad)
{
    if (!intHora || chrMitad == '\0') {
        return intHora;
    }
    const bool bolDoce = *intHora >= 1 && *intHora <= 12;
    return bolDoce ? std::optional(*intHora % 12 + (chrMitad == 'P' ? 12 : 0)) : std::nullopt;
}

/// hh.mm.ss, hh-mm-ss, hh:mm:ss, hh_mm_ss, hhhmmmsss; the seconds may be missing where the sign
/// between the two others does not look like one between any numbers.
bool fLeerHoraSeparada(clsCursor &cursor, clsFechaLeida &leida)
{
    const std::size_t lngLargo = cursor.fLargoRacha();
    const auto intHora = cursor.fCifras(lngLargo);
    const char chrEntre = cursor.fSigno(".-:_h");
    const auto intMinuto = chrEntre == '\0' ? std::nullopt : cursor.fNumeroDe(2);
    clsCursor adelante = cursor;
    const char chrOtro = adelante.fSigno(chrEntre == 'h' ? "m" : std::string_view(&chrEntre, 1));
    const auto intSegundo = chrOtro == '\0' ? std::nullopt : adelante.fNumeroDe(2);
    if (intSegundo) {
        cursor = adelante;
        leida.lngNanos = fLeerMilisegundos(cursor);
    }
    const auto intReal = fHoraDeDoce(intHora, fLeerMitad(cursor));
    if (intSegundo) {
        return fPonerHora(leida, intReal, intMinuto, intSegundo, Precision::Segundo);
    }
    return lngLargo == 2 && fUnoDe(chrEntre, ".:h") &&
           fPonerHora(leida, intReal, intMinuto, 0, Precision::Minuto);
}

/// The time of day behind a day, if one follows.
void fLeerHora(clsCursor &cursor, clsFechaLeida &leida)
{
    clsCursor adelante = cursor;
    if (!fPasarEntre(adelante)) {
        return;
    }
    const std::size_t lngLargo = adelante.fLargoRacha();
    clsFechaLeida conHora = leida;
    const bool bolJunta = lngLargo == 6 || lngLargo == 9;
    const bool bolSeparada = lngLargo == 1 || lngLargo == 2;
    if ((bolJunta && fLeerHoraJunta(adelante, conHora)) ||
        (bolSeparada && fLeerHoraSeparada(adelante, conHora))) {
        cursor = adelante;
        leida = conHora;
    }
}

/// The date that the next digits are, with its time. The cursor moves on in any case.
std::optional<clsFechaLeida> fLeerUna(clsCursor &cursor)
{
    const std::size_t lngLargo = cursor.fLargoRacha();
    const bool bolRacha = lngLargo == 8 || lngLargo == 12 || lngLargo == 14 || lngLargo == 17;
    clsCursor adelante = cursor;
    std::optional<clsFechaLeida> leida;
    if (bolRacha) {
        leida = fLeerRacha(adelante);
    } else if (lngLargo == 4 || lngLargo == 2) {
        leida = fLeerSeparada(adelante);
    }
    if (!leida) {
        cursor.fPasar(lngLargo);
        return {};
    }
    cursor = adelante;
    if (leida->precision == Precision::Dia) {
        fLeerHora(cursor, *leida);
    } else if (lngLargo == 14) {
        leida->lngNanos = fLeerMilisegundos(cursor);
    }
    return leida;
}

clsFechaFuente fComoFuente(const clsFechaLeida &leida, Fuente fuente)
{
    const clsFecha fecha = fFechaDe(leida.partes).value_or(clsFecha{});
    const bool bolDia = leida.precision == Precision::Dia;
    return {.fecha = bolDia ? fMediodia(fDia(fecha)) : fecha,
            .fuente = fuente,
            .precision = leida.precision,
            .lngNanos = leida.lngNanos};
}

/// The whole text as a number of that many digits.
std::optional<int> fSoloCifras(std::string_view strTexto, std::size_t lngCuantas)
{
    return strTexto.size() == lngCuantas ? clsCursor(strTexto).fNumeroDe(lngCuantas) : std::nullopt;
}

std::string_view fQuitarUltima(std::string_view &strCarpeta)
{
    const std::size_t lngBarra = strCarpeta.rfind('/');
    const std::string_view strUltima =
        lngBarra == std::string_view::npos ? strCarpeta : strCarpeta.substr(lngBarra + 1);
    strCarpeta = lngBarra == std::string_view::npos ? "" : strCarpeta.substr(0, lngBarra);
    return strUltima;
}

/// The day of a folder's name, or of its number below those of a month and a year.
std::optional<clsFechaLeida> fDiaDeCarpeta(std::string_view strUltima, std::string_view strEncima)
{
    if (const clsFuentes lstFechas = fFechasEnNombre(strUltima); !lstFechas.empty()) {
        return clsFechaLeida{.partes = fPartes(lstFechas.front().fecha)};
    }
    const std::string_view strMes = fQuitarUltima(strEncima);
    const auto dia = fDiaDe(fSoloCifras(fQuitarUltima(strEncima), 4), fSoloCifras(strMes, 2),
                            fSoloCifras(strUltima, 2));
    return dia ? std::optional(clsFechaLeida{.partes = *dia}) : std::nullopt;
}

} // namespace

clsFuentes fFechasEnNombre(std::string_view strNombre)
{
    clsFuentes lstFechas;
    clsCursor cursor(strNombre);
    for (cursor.fPasarHastaCifra(); !cursor.fResto().empty() && lstFechas.size() < lngMaximoNombre;
         cursor.fPasarHastaCifra()) {
        if (const auto leida = fLeerUna(cursor)) {
            lstFechas.push_back(fComoFuente(*leida, Fuente::Nombre));
        }
    }
    return lstFechas;
}

std::optional<clsFechaFuente> fFechaAlPrincipio(std::string_view strNombre)
{
    clsCursor cursor(strNombre);
    const auto leida = fLeerUna(cursor);
    return leida ? std::optional(fComoFuente(*leida, Fuente::Nombre)) : std::nullopt;
}

std::optional<clsFechaFuente> fFechaEnCarpeta(std::string_view strCarpeta)
{
    while (!strCarpeta.empty()) {
        const std::string_view strUltima = fQuitarUltima(strCarpeta);
        if (const auto leida = fDiaDeCarpeta(strUltima, strCarpeta)) {
            return fComoFuente(*leida, Fuente::Carpeta);
        }
    }
    return {};
}
