#include "viewer/conversion_color.h"

#include <qrgbafloat.h>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace {

using clsLuz = clsConversion::clsLuz;

// Light in whole numbers: so many make white. Colours of larger spaces reach below and above what
// the screen has.
constexpr int intBlanco = 8192;
constexpr int intDebajo = 2 * intBlanco;
constexpr int intPuntos = 5 * intBlanco;
constexpr int intBits = 21; ///< for one colour of the three that share a number
constexpr quint64 lngMascara = (quint64{1} << intBits) - 1;

using clsSalida = std::array<uchar, intPuntos>;

/// The screen's values of light; what it has not is cut off. Source: IEC 61966-2-1.
const clsSalida &fSalida()
{
    static const clsSalida *const salida = [] {
        auto *const lstValores = new clsSalida; // threads may outlive the end of main()
        for (int int1 = 0; int1 < intPuntos; ++int1) {
            const double dblLuz = std::clamp((int1 - intDebajo) / double{intBlanco}, 0.0, 1.0);
            const double dblValor =
                dblLuz <= 0.0031308 ? 12.92 * dblLuz : 1.055 * std::pow(dblLuz, 1 / 2.4) - 0.055;
            (*lstValores)[static_cast<std::size_t>(int1)] =
                static_cast<uchar>(std::lround(dblValor * 255));
        }
        return lstValores;
    }();
    return *salida;
}

/// The least and the most light of each colour.
using clsAlcance = std::array<std::pair<float, float>, 3>;

/// Whether sums of light so far apart can be looked up.
bool fCabe(const std::pair<float, float> &luz)
{
    constexpr float fltRedondeo = 0.01F;
    return luz.first > -intDebajo / float{intBlanco} + fltRedondeo &&
           luz.second < (intPuntos - intDebajo) / float{intBlanco} - fltRedondeo;
}

/// Widens a reach; false for light beyond all measure, or none that is a number.
bool fAnotar(const clsLuz &luz, clsAlcance &alcance)
{
    constexpr float fltMaxima = 16;
    for (std::size_t lng = 0; lng < luz.size(); ++lng) {
        if (!(std::abs(luz[lng]) < fltMaxima)) {
            return false;
        }
        alcance[lng].first = std::min(alcance[lng].first, luz[lng]);
        alcance[lng].second = std::max(alcance[lng].second, luz[lng]);
    }
    return true;
}

/// The three colours of light in one number, red lowest. Negative ones borrow from the next; the
/// sum of three of them, one of which is raised, has none left.
quint64 fSumando(const clsLuz &luz, bool bolAlzada)
{
    quint64 lngSumando = 0;
    for (std::size_t lng = luz.size(); lng-- > 0;) {
        lngSumando =
            (lngSumando << intBits) +
            static_cast<quint64>(std::llround(luz[lng] * intBlanco) + (bolAlzada ? intDebajo : 0));
    }
    return lngSumando;
}

} // namespace

clsConversion::clsConversion(const QColorSpace &espacio)
    : m_espacio(espacio), m_aLuz(espacio.transformationToColorSpace(QColorSpace::SRgbLinear)),
      m_bolVale(fLlenar())
{
}

clsLuz clsConversion::fLuz(const clsLuz &valores) const
{
    const QRgbaFloat32 luz = m_aLuz.map(QRgbaFloat32{valores[0], valores[1], valores[2], 1});
    return {luz.r, luz.g, luz.b};
}

/// Whether the light of mixed colours is the sum of what their parts give.
bool clsConversion::fSuma() const
{
    for (const auto &[fltRojo, fltVerde, fltAzul] : {
             clsLuz{1,    1,    1   },
             clsLuz{0.5,  0.5,  0.5 },
             clsLuz{0.8F, 0.3F, 0.1F},
             clsLuz{0.1F, 0.7F, 0.9F}
    }) {
        const clsLuz junta = fLuz({fltRojo, fltVerde, fltAzul});
        const clsLuz roja = fLuz({fltRojo, 0, 0});
        const clsLuz verde = fLuz({0, fltVerde, 0});
        const clsLuz azul = fLuz({0, 0, fltAzul});
        for (std::size_t lng = 0; lng < junta.size(); ++lng) {
            constexpr float fltMargen = 0.005F;
            if (!(std::abs(roja[lng] + verde[lng] + azul[lng] - junta[lng]) < fltMargen)) {
                return false;
            }
        }
    }
    return true;
}

bool clsConversion::fLlenar()
{
    clsAlcance todo{};
    for (std::size_t lngColor = 0; lngColor < m_lstSumandos.size(); ++lngColor) {
        clsAlcance deEste{};
        for (std::size_t lngValor = 0; lngValor < m_lstSumandos[lngColor].size(); ++lngValor) {
            clsLuz valores{};
            valores[lngColor] = static_cast<float>(lngValor) / 255;
            const clsLuz luz = fLuz(valores);
            if (!fAnotar(luz, deEste)) {
                return false;
            }
            m_lstSumandos[lngColor][lngValor] = fSumando(luz, lngColor == 0);
        }
        for (std::size_t lng = 0; lng < todo.size(); ++lng) {
            todo[lng].first += deEste[lng].first;
            todo[lng].second += deEste[lng].second;
        }
    }
    return std::all_of(todo.begin(), todo.end(), fCabe) && fSuma();
}

void clsConversion::fConvertir(std::span<QRgb> lstPuntos) const
{
    const clsSalida &salida = fSalida();
    const auto &[rojos, verdes, azules] = m_lstSumandos;
    for (QRgb &punto : lstPuntos) {
        const quint64 lngLuz =
            rojos[punto >> 16 & 0xFF] + verdes[punto >> 8 & 0xFF] + azules[punto & 0xFF];
        punto = 0xFF000000U | QRgb{salida[lngLuz & lngMascara]} << 16 |
                QRgb{salida[lngLuz >> intBits & lngMascara]} << 8 | salida[lngLuz >> 2 * intBits];
    }
}

std::shared_ptr<const clsConversion> fConversion(const QColorSpace &espacio)
{
    static auto *const cerrojo = new std::mutex;
    static auto *const ultima = new std::shared_ptr<const clsConversion>;
    const std::lock_guard guarda(*cerrojo);
    if (*ultima == nullptr || (*ultima)->fEspacio() != espacio) {
        *ultima = std::make_shared<const clsConversion>(espacio);
    }
    return *ultima;
}
