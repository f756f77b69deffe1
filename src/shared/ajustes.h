#pragma once

#include "shared/hilos.h"
#include "sistema/resultado.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

/// Its name in an archive's root.
inline constexpr std::string_view strFicheroAjustes = "Miravel.ini";

/// The settings file: every key is read when asked for and written at once, one by one.
///
/// Writing happens on a thread of its own, in the order of the calls, because every change of the
/// current file writes a key and a flush on a slow disk or a NAS can take longer than a held key
/// repeats. Reading waits for what is still to be written; the destructor does, too, but no longer
/// than 800 ms: a disk that does not answer must not keep the program from ending.
class clsAjustes {
public:
    /// @param strRuta     the file.
    /// @param bolEscritura false: nothing is read nor written, every key has its default.
    clsAjustes(std::string strRuta, bool bolEscritura);
    ~clsAjustes();
    clsAjustes(const clsAjustes &) = delete;
    clsAjustes &operator=(const clsAjustes &) = delete;

    /// The value of a key; the default when it is absent or empty, which is then also written
    /// unless it is blank.
    [[nodiscard]] std::string fLeerIni(std::string_view strSeccion, std::string_view strClave,
                                       std::string_view strDefecto);

    /// The value of a key as it stands in the file, empty when there is none. Writes nothing.
    [[nodiscard]] std::string fConsultar(std::string_view strSeccion, std::string_view strClave);

    /// Why the file cannot be read, if it cannot: every key then has its default and none is
    /// written.
    [[nodiscard]] clsError fError() { return fTexto().fError(); }

    /// Writes a key. Errors are not reported; an unchanged value is not written again.
    void fGuardarIni(std::string_view strSeccion, std::string_view strClave,
                     std::string_view strValor);

    /// Returns when everything that was given to fGuardarIni is on the disk or has failed, or when
    /// the time is over.
    void fEsperar(std::chrono::milliseconds plazo = std::chrono::hours(1));

private:
    struct clsCambios;
    [[nodiscard]] clsResultado<std::string> fTexto();

    const std::string m_strRuta;
    const bool m_bolEscritura;
    const std::shared_ptr<clsCambios> m_cambios;
    clsHilos m_hilos{
        {.intHilos = 1, .intMaximo = 1}
    };
    clsHilos::clsOrden m_ultima; ///< to write
};
