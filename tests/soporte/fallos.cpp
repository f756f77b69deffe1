#include "soporte/fallos.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>

namespace {

std::atomic<int> intHechas;
const clsFallos::clsPlan *planActual = nullptr; // set while no call is made

/// A call that may fail without being made.
template <auto fLlamada, class... Argumentos> auto fFragil(Argumentos... argumentos)
{
    using clsFin = decltype((planActual->base.*fLlamada)(argumentos...));
    const clsFallos::clsPlan &plan = *planActual;
    const int intEsta = ++intHechas;
    if (plan.intPrimera == 0 || intEsta < plan.intPrimera ||
        (intEsta > plan.intPrimera && !plan.bolSiguen)) {
        return (plan.base.*fLlamada)(argumentos...);
    }
    errno = plan.intError;
    return clsFin{-1};
}

/// A file is closed even when that reports an error.
int fCerrarFragil(int intFd)
{
    const int intFin = fFragil<&clsLlamadas::fCerrar>(intFd);
    if (intFin != 0) {
        const int intError = errno;
        llamadasReales.fCerrar(intFd);
        errno = intError;
    }
    return intFin;
}

constexpr clsLlamadas llamadasFragiles = {
    fFragil<&clsLlamadas::fAbrir>,          fCerrarFragil,
    fFragil<&clsLlamadas::fLeer>,           fFragil<&clsLlamadas::fLeerEn>,
    fFragil<&clsLlamadas::fEscribir>,       fFragil<&clsLlamadas::fIr>,
    fFragil<&clsLlamadas::fVolcar>,         fFragil<&clsLlamadas::fAlargar>,
    fFragil<&clsLlamadas::fClonar>,         fFragil<&clsLlamadas::fTrasladar>,
    fFragil<&clsLlamadas::fListar>,         fFragil<&clsLlamadas::fLeerEnlace>,
    fFragil<&clsLlamadas::fConsultar>,      fFragil<&clsLlamadas::fPermitir>,
    fFragil<&clsLlamadas::fAgrupar>,        fFragil<&clsLlamadas::fFechar>,
    fFragil<&clsLlamadas::fFecharAbierto>,  fFragil<&clsLlamadas::fRenombrar>,
    fFragil<&clsLlamadas::fRenombrarLibre>, fFragil<&clsLlamadas::fEnlazar>,
    fFragil<&clsLlamadas::fBorrar>,         fFragil<&clsLlamadas::fCrearCarpeta>,
    fFragil<&clsLlamadas::fBloquear>,       fFragil<&clsLlamadas::fVolcarSistema>,
    fFragil<&clsLlamadas::fAhora>,
};

/// The nearest time that FAT can hold (Microsoft's fatgen103: an even second of 1980 to 2107).
timespec fMomentoFat(const timespec &momento)
{
    constexpr std::time_t lngPrimero = 315532800; // 1/1/1980
    constexpr std::time_t lngUltimo = 4354819198; // 31/12/2107 23:59:58
    if (momento.tv_nsec == UTIME_OMIT) {
        return momento;
    }
    return {std::clamp(momento.tv_sec / 2 * 2, lngPrimero, lngUltimo), 0};
}

std::array<timespec, 2> fMomentosFat(const timespec *lstMomentos)
{
    return {fMomentoFat(lstMomentos[0]), fMomentoFat(lstMomentos[1])};
}

clsLlamadas fHacerDiscoFat()
{
    clsLlamadas disco = llamadasReales;
    disco.fFechar = [](int intCarpeta, const char *strRuta, const timespec *lstMomentos,
                       int intModo) {
        return llamadasReales.fFechar(intCarpeta, strRuta, fMomentosFat(lstMomentos).data(),
                                      intModo);
    };
    disco.fFecharAbierto = [](int intFd, const timespec *lstMomentos) {
        return llamadasReales.fFecharAbierto(intFd, fMomentosFat(lstMomentos).data());
    };
    disco.fEnlazar = fFalla<EPERM>;
    disco.fRenombrarLibre = fFalla<EINVAL>;
    disco.fPermitir = fFalla<EPERM>;
    disco.fClonar = fFalla<EOPNOTSUPP>;
    return disco;
}

std::atomic<bool> bolParado;

/// A call that is made when the disk answers again.
template <auto fLlamada, class... Argumentos> auto fParada(Argumentos... argumentos)
{
    bolParado.wait(true);
    return (llamadasReales.*fLlamada)(argumentos...);
}

const clsLlamadas &fParar()
{
    static const clsLlamadas disco = [] {
        clsLlamadas parado = llamadasReales;
        parado.fAbrir = fParada<&clsLlamadas::fAbrir>;
        parado.fConsultar = fParada<&clsLlamadas::fConsultar>;
        parado.fEscribir = fParada<&clsLlamadas::fEscribir>;
        parado.fVolcar = fParada<&clsLlamadas::fVolcar>;
        parado.fVolcarSistema = fParada<&clsLlamadas::fVolcarSistema>;
        parado.fRenombrar = fParada<&clsLlamadas::fRenombrar>;
        parado.fRenombrarLibre = fParada<&clsLlamadas::fRenombrarLibre>;
        parado.fCrearCarpeta = fParada<&clsLlamadas::fCrearCarpeta>;
        return parado;
    }();
    bolParado = true;
    return disco;
}

const clsLlamadas &fPreparar(const clsFallos::clsPlan &plan)
{
    planActual = &plan;
    intHechas = 0;
    return llamadasFragiles;
}

} // namespace

clsFallos::clsFallos(const clsPlan &plan) : m_plan(plan), m_otras(fPreparar(m_plan)) {}

int clsFallos::fHechas() { return intHechas; }

clsDiscoParado::clsDiscoParado() : m_otras(fParar()) {}

clsDiscoParado::~clsDiscoParado()
{
    bolParado = false;
    bolParado.notify_all();
}

const clsLlamadas &fDiscoFat()
{
    static const clsLlamadas disco = fHacerDiscoFat();
    return disco;
}
