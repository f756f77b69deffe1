#pragma once

#include "app/comun.h"
#include "app/informacion.h"
#include "shared/hilos.h"

#include <QString>

#include <optional>
#include <type_traits>
#include <utility>

/// While it lives the information box says what is waited for.
class clsProcesando {
public:
    explicit clsProcesando(clsInformacion &informacion,
                           const QString &strTexto = QStringLiteral("Procesando..."))
        : m_informacion(informacion), m_strAntes(informacion.fDicho())
    {
        m_informacion.fDecir(strTexto);
    }
    ~clsProcesando() { m_informacion.fDecir(m_strAntes); }
    clsProcesando(const clsProcesando &) = delete;
    clsProcesando &operator=(const clsProcesando &) = delete;

private:
    clsInformacion &m_informacion;
    const QString m_strAntes;
};

/// Does a piece of work beside the window, which is busy meanwhile and answers whatever the disk
/// does; when that takes long, it says so.
/// @param fHacer runs on a thread, perhaps still when nobody waits for it any more: it must not
///               refer to anything that may be gone by then.
/// @param textos how it says so, if not by "Procesando...".
/// @return what it gave; nothing when Esc was pressed or the window is to close: what has begun
///         goes on without anybody who waits for it.
template <typename Hacer, typename... Textos>
auto fAlLado(const clsComun &comun, Hacer fHacer, const Textos &...textos)
{
    const clsOcupado ocupado(comun.ocupacion);
    std::optional<std::invoke_result_t<Hacer>> respuesta;
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    const auto orden = hilos.fPedir(
        std::move(fHacer), [&respuesta](auto suya) { respuesta.emplace(std::move(suya)); });
    if (!hilos.fEsperar(orden, pausaRitmo)) { // what answers at once is not announced
        const clsProcesando procesando(comun.informacion, textos...);
        while (comun.fSeguirSinEsc() && !hilos.fEsperar(orden, pausaRitmo)) {
        }
    }
    if (comun.estado.fCerrando()) {
        respuesta.reset();
    }
    return respuesta;
}
