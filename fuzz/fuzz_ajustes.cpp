// A key written into any text reads back, and every other key reads as before.

#include "shared/ini.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void fExigir(bool bolCierto)
{
    if (!bolCierto) {
        std::abort();
    }
}

struct clsClave {
    const char *strSeccion;
    const char *strClave;
};
constexpr std::array lstClaves = {
    clsClave{"GENERAL", "ANCHO"},
    clsClave{"GENERAL", "SELEC"},
    clsClave{"general", "A B"  },
    clsClave{"OTRA",    "ANCHO"},
    clsClave{"",        ""     },
};

/// Whether two keys are the same one.
bool fMisma(const clsClave &una, const clsClave &otra) { return &una == &otra; }

} // namespace

/// The first byte chooses the key, the first line behind it is the value, the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    if (lngBytes == 0) {
        return 0;
    }
    const clsClave &clave = lstClaves[bytDatos[0] % lstClaves.size()];
    const std::string_view strTodo(reinterpret_cast<const char *>(bytDatos) + 1, lngBytes - 1);
    const std::size_t lngSalto = std::min(strTodo.find('\n'), strTodo.size());
    // A value is one line.
    std::string strValor(strTodo.substr(0, lngSalto));
    std::erase(strValor, '\r');
    const std::string_view strIni = strTodo.substr(std::min(lngSalto + 1, strTodo.size()));

    const std::string strNuevo = fCambiarClave(strIni, clave.strSeccion, clave.strClave, strValor);
    fExigir(fLeerClave(strNuevo, clave.strSeccion, clave.strClave) == strValor);
    for (const clsClave &otra : lstClaves) {
        fExigir(fMisma(otra, clave) || fLeerClave(strNuevo, otra.strSeccion, otra.strClave) ==
                                           fLeerClave(strIni, otra.strSeccion, otra.strClave));
    }
    fExigir(fCambiarClave(strNuevo, clave.strSeccion, clave.strClave, strValor) == strNuevo);
    return 0;
}
