#pragma once

#include "app/comun.h"
#include "app/informacion.h"
#include "shared/recados.h"

#include <QString>

#include <optional>
#include <utility>

/// A busy period of the window that takes long, perhaps: then the information box says so.
class clsTrabajo {
public:
    explicit clsTrabajo(const clsComun &comun, QString strTexto = QStringLiteral("Procesando..."))
        : m_comun(comun), m_strTexto(std::move(strTexto)), m_ocupado(comun.ocupacion)
    {
    }
    ~clsTrabajo()
    {
        if (m_strAntes) {
            m_comun.informacion.fDecir(*m_strAntes);
        }
    }
    clsTrabajo(const clsTrabajo &) = delete;
    clsTrabajo &operator=(const clsTrabajo &) = delete;

    /// It takes long. Lets events run; false when Esc was pressed or the window is to close.
    [[nodiscard]] bool fSeguir()
    {
        if (!m_strAntes) {
            m_strAntes = m_comun.informacion.fDicho();
            m_comun.informacion.fDecir(m_strTexto);
        }
        return m_comun.fSeguirSinEsc();
    }

private:
    const clsComun &m_comun;
    const QString m_strTexto;
    const clsOcupado m_ocupado;
    std::optional<QString> m_strAntes; ///< what the box said before
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
    clsTrabajo trabajo(comun, textos...);
    auto respuesta =
        fHacerAparte([fHacer = std::move(fHacer)](const clsRecados &) { return fHacer(); },
                     [&trabajo](const clsRecados &) { return trabajo.fSeguir(); });
    if (comun.estado.fCerrando()) {
        respuesta.reset();
    }
    return respuesta;
}
