#pragma once

#include "shared/fecha.h"
#include "sistema/reemplazo.h"

#include <string>
#include <string_view>
#include <unordered_map>

/// What the records of a corrected file get, by the path that the catalogue has for it.
struct clsDestino {
    std::string_view strRuta;
    clsFecha fecha;
};
using clsDestinos = std::unordered_map<std::string_view, clsDestino>;

/// The successor of a catalogue. It has its room on the disk before anything else is changed.
class clsCatalogoCorregido {
public:
    /// @param strRuta  the catalogue.
    /// @param strViejo what its records come from: itself, or its backup when it is missing.
    clsCatalogoCorregido(std::string strRuta, const std::string &strViejo);

    /// Why the old one could not be opened.
    [[nodiscard]] clsError fErrorViejo() const { return m_viejo.fError(); }
    /// Writes and flushes all records, those of corrected files with their new path and date, any
    /// other byte by byte, an incomplete one at the end too. Another time it takes the same room,
    /// and more only where paths have become longer.
    [[nodiscard]] clsError fEscribir(const clsDestinos &destinos);
    /// Whether any record has become another one.
    [[nodiscard]] bool fCambia() const { return m_bolCambia; }
    /// Puts it in the catalogue's place. On an error the old one keeps its name.
    /// @param strCopia name that the old one gets as a backup, or a later one when it is taken; set
    ///                 to the one it has, empty when it has none. Empty: the old one stays as it
    ///                 is.
    [[nodiscard]] clsError fPublicar(std::string &strCopia);

private:
    const std::string m_strRuta;
    clsResultado<clsAbierto> m_viejo;
    clsReemplazo m_nuevo;
    bool m_bolCambia = false;
};

/// The path of a catalogue's backup: that of the present second, or of the next one that is free,
/// as is the name of the journal that belongs to it.
[[nodiscard]] std::string fCopiaLibre(const std::string &strCatalogo);
