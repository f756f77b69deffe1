#include "viewer/hijos.h"

#include "sistema/entorno.h"

#include <algorithm>
#include <utility>

namespace {

/// How often a call that waits for its turn looks whether it is still wanted.
constexpr std::chrono::milliseconds pasoTurno(20);

} // namespace

clsHijos::clsHijos(const std::string &strPrograma, std::chrono::milliseconds plazo,
                   unsigned intCuantos)
{
    m_lstPuestos.resize(std::max(intCuantos, 1U));
    for (auto &puesto : m_lstPuestos) {
        puesto.reset(new clsPuesto{clsProgramaHijo(strPrograma, plazo), false});
    }
}

clsHijos::clsTurno clsHijos::fTomar(const std::atomic<bool> &bolAnulado)
{
    std::unique_lock guardia(m_cerrojo);
    while (!bolAnulado) {
        // Rather one that owes nothing; among these rather the first, whose child runs already.
        const auto fPeso = [](const auto &puesto) {
            return puesto->bolOcupado ? 2 : puesto->hijo.fDebe() ? 1 : 0;
        };
        clsPuesto &puesto = **std::ranges::min_element(m_lstPuestos, {}, fPeso);
        if (!puesto.bolOcupado) {
            puesto.bolOcupado = true;
            return {&puesto.hijo, [this, &puesto](clsProgramaHijo * /*suyo*/) {
                        {
                            const std::lock_guard cierre(m_cerrojo);
                            puesto.bolOcupado = false;
                        }
                        m_libre.notify_one();
                    }};
        }
        m_libre.wait_for(guardia, pasoTurno);
    }
    return {};
}

std::string fProgramaHijo(const std::vector<std::string> &lstRutas)
{
    const auto it = std::find_if(lstRutas.begin(), lstRutas.end(), fEjecutable);
    return it == lstRutas.end() ? std::string() : *it;
}

std::vector<std::string> fSitiosHijo(const std::string &strNombre)
{
    const std::string strCarpeta = fCarpetaPrograma();
    return {strCarpeta + strNombre, strCarpeta + "../libexec/miravel/" + strNombre};
}
