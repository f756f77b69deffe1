#include "app/arranque.h"

#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/reemplazo.h"

#include <cerrno>

std::string fRaizDeOrdenes(const std::vector<std::string> &lstArgumentos,
                           std::string_view strCarpetaPrograma, std::string_view strCarpetaTrabajo)
{
    constexpr std::string_view strMarca = "___";
    std::string strOrden;
    for (const std::string &strArgumento : lstArgumentos) {
        strOrden += strOrden.empty() && &strArgumento == &lstArgumentos.front() ? "" : " ";
        strOrden += strArgumento;
    }
    if (!strOrden.starts_with(strMarca)) {
        return fBarraFinal(strCarpetaPrograma, false);
    }
    return fBarraFinal(fRutaAbsoluta(strOrden.substr(strMarca.size()), strCarpetaTrabajo), false);
}

bool fProbarEscritura(const std::string &strRaiz)
{
    const clsError error = fProbarCrear(strRaiz + "prueba_escritura.txt");
    // Where something of the user's has that name, a temporary file of our own tells as well.
    return error == EEXIST ? !clsReemplazo(strRaiz + std::string(strFicheroAjustes)).fError()
                           : !error;
}

std::optional<clsAjusteMalo> fLeerPreferencias(clsAjustes &ajustes, clsPreferencias &preferencias)
{
    struct clsFila {
        const char *strClave;
        int intDefecto;
        int intMaximo; ///< it is a number from 0 to that; 0: any number
        bool bolSuma;  ///< an addition: absent until it is chosen
    };
    static constexpr clsFila lstFilas[] = {
        {"ANCHO",     3000, 0, false},
        {"TAM_MINI",  2,    2, false},
        {"FOTOVIDEO", 2,    2, false},
        {"FORMATOS",  0,    1, true },
        {"TIEMPO",    0,    1, true },
    };
    std::vector<int> lstValores;
    for (const clsFila &fila : lstFilas) {
        const std::string strValor = ajustes.fConsultar(strSeccionGeneral, fila.strClave);
        const auto intValor = strValor.empty() ? fila.intDefecto : fLeerEntero(strValor);
        if (!intValor || (fila.intMaximo > 0 && (*intValor < 0 || *intValor > fila.intMaximo))) {
            return clsAjusteMalo{fila.strClave, fTextoPantalla(strValor)};
        }
        lstValores.push_back(*intValor);
    }
    for (const clsFila &fila : lstFilas) {
        if (!fila.bolSuma) {
            static_cast<void>(ajustes.fLeerIni(strSeccionGeneral, fila.strClave,
                                               std::to_string(fila.intDefecto)));
        }
    }
    preferencias = {lstValores[0], lstValores[1], static_cast<Medios>(lstValores[2]),
                    lstValores[3] == 1, lstValores[4] == 1};
    return {};
}
