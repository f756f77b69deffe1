#include "browse/mandos.h"

#include "browse/teclas.h"

#include <utility>

void clsMandos::fAtender(std::string_view strObra, std::function<void(int)> fHacer)
{
    m_mapObras.emplace(strObra, std::move(fHacer));
}

void clsMandos::fAtender(std::string_view strObra, std::function<void()> fHacer)
{
    fAtender(strObra, [fHacer = std::move(fHacer)](int /*intValor*/) { fHacer(); });
}

void clsMandos::fEjecutar(const clsComando &comando) const
{
    const auto it = m_mapObras.find(comando.fObra());
    if (it != m_mapObras.end() && fPuede(comando, m_estado)) {
        it->second(comando.obra.intValor);
    }
}

bool clsMandos::fTecla(int intTecla, int intEstadoMayus) const
{
    if (m_estado.filas.fVacia()) {
        return false;
    }
    if (const clsComando *const comando = fComandoDeTecla(intTecla, intEstadoMayus)) {
        fEjecutar(*comando);
    }
    return fTragada(intTecla) || intTecla == intTeclaEsc || intTecla == intTeclaMenor;
}

std::vector<std::string_view> clsMandos::fSinAtender() const
{
    std::vector<std::string_view> lstNombres;
    for (const clsComando &comando : fComandos()) {
        if (!m_mapObras.contains(comando.fObra())) {
            lstNombres.push_back(comando.strNombre);
        }
    }
    return lstNombres;
}
