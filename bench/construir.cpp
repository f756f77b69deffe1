/// How long making the catalogue takes, beside a bare walk of the same tree.

#include "catalogue/constructor.h"
#include "medir.h"
#include "paseo_desnudo.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class clsCallado : public clsObservador {
public:
    void fCarpeta(const std::string & /*strCarpeta*/) override { ++lngCarpetas; }
    void fError(clsError error) override { std::printf("error %d\n", error.fNumero()); }
    bool fSeguir() override { return true; }
    long lngCarpetas = 0;
};

void fPasear(const std::string &strRaiz, int intHilos)
{
    const clsCuenta cuenta = fPasearDesnudo(strRaiz, intHilos);
    std::printf("bare walk: %ld files, %ld bytes\n", static_cast<long>(cuenta.lngFicheros),
                static_cast<long>(cuenta.lngBytes));
}

void fHacer(const std::string &strRaiz, int intHilos)
{
    clsCallado callado;
    const clsConstruccion hecha = fConstruir(strRaiz, callado, intHilos);
    if (hecha.construccion != Construccion::Hecha) {
        std::fprintf(stderr, "not built: error %d\n", hecha.error.fNumero());
        std::_Exit(1);
    }
    std::printf("built: %ld folders, VmHWM %ld kB\n", callado.lngCarpetas, fMemoria("VmHWM"));
}

void fEjecutar(const std::string &strOrden)
{
    if (std::system(strOrden.c_str()) != 0) {
        std::_Exit(1);
    }
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        std::fputs("miravel_bench_construir ROOT [ROUNDS | paseo [THREADS] | nuestro [THREADS]]\n",
                   stderr);
        return 2;
    }
    const std::string strRaiz = std::string(lstArgumentos[1]) + '/';
    const std::string strCual = intArgumentos > 2 ? lstArgumentos[2] : "15";
    const int intHilos = intArgumentos > 3 ? std::atoi(lstArgumentos[3]) : 0;
    const auto fPaseo = [&](int intCuantos) { return [=] { fPasear(strRaiz, intCuantos); }; };
    const auto fNuestro = [&](int intCuantos) { return [=] { fHacer(strRaiz, intCuantos); }; };
    if (strCual == "paseo") {
        return fComparar(
            {
                {"bare walk", fPaseo(intHilos > 0 ? intHilos : 2)}
        },
            1);
    }
    if (strCual == "nuestro") {
        return fComparar(
            {
                {"catalogue", fNuestro(intHilos)}
        },
            1);
    }
    const std::string strFind = "find '" + strRaiz +
                                "' -type f -printf '%p\\n%TY/%Tm/%Td %TH:%TM:%TS\\n%s\\n'"
                                " >/dev/null";
    return fComparar(
        {
            {"bare walk, 2 threads",     fPaseo(2)                  },
            {"catalogue, usual threads", fNuestro(0)                },
            {"catalogue, 2 threads",     fNuestro(2)                },
            {"catalogue, 4 threads",     fNuestro(4)                },
            {"catalogue, 8 threads",     fNuestro(8)                },
            {"find -printf",             [&] { fEjecutar(strFind); }}
    },
        std::atoi(strCual.c_str()));
}
