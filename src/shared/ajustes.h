#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/// Its name in an archive's root.
inline constexpr std::string_view strFicheroAjustes = "Miravel.ini";

/// The settings file: every key is read when asked for and written at once, one by one.
///
/// Writing happens on a thread of its own, in the order of the calls, because every change of the
/// current file writes a key and a flush on a slow disk or a NAS can take longer than a held key
/// repeats. Reading waits for what is still to be written; so does the destructor.
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

    /// Writes a key. Errors are not reported; an unchanged value is not written again.
    void fGuardarIni(std::string_view strSeccion, std::string_view strClave,
                     std::string_view strValor);

    /// Returns when everything that was given to fGuardarIni is on the disk or has failed.
    void fEsperar();

private:
    struct clsCambio {
        std::string strSeccion;
        std::string strClave;
        std::string strValor;
    };
    void fEscritor();
    void fAplicar(const std::vector<clsCambio> &lstCambios) const;

    const std::string m_strRuta;
    const bool m_bolEscritura;
    std::mutex m_cerrojo;
    std::condition_variable m_aviso;
    std::vector<clsCambio> m_lstCambios;
    bool m_bolEscribiendo = false;
    bool m_bolFin = false;
    std::thread m_hilo;
};
