#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What lies below a folder, to be changed by its paths one file after the other. Nothing that lies
/// elsewhere is changed, wherever a path leads to at that very moment: a file's folder is entered
/// from the open one part by part, and links on the way count only when they lead to a folder
/// below it. The folder that was used last stays open, so that files should come folder by folder.
///
/// Paths begin with that of the folder. EXDEV: the path leads elsewhere; nothing was changed.
class clsRecinto {
public:
    /// @param strRaiz its path with a trailing "/".
    /// @param raiz    it, open; has to outlive this.
    clsRecinto(std::string strRaiz, const clsDescriptor &raiz);

    /// What has a path; of a link, the link.
    [[nodiscard]] clsResultado<clsDatosArchivo> fConsultar(const std::string &strRuta);

    /// Sets the modification time of a regular file; nothing else of it changes, and it is opened
    /// neither for reading nor for writing. A link's target gets the time, since it is the target's
    /// that the list shows.
    /// @param lngMomento      whole seconds since 1970, universal time.
    /// @param lngNanosegundos the rest of the time.
    /// @param bolArchivo      it was seen to be a regular file a while ago, and is not looked at
    ///                        before. What has taken its place meanwhile has its own time changed
    ///                        instead: in this folder, of a link the link's; that is an error.
    /// @return ERANGE when the file system took a time more than 2 seconds off: it has fewer years.
    [[nodiscard]] clsError fFechar(const std::string &strRuta, std::int64_t lngMomento,
                                   long lngNanosegundos = 0, bool bolArchivo = false);

    /// Gives a file or a link another name in its folder, as the function of that name in
    /// cambios.h. Right behind fFechar it takes the file for what that has seen.
    [[nodiscard]] clsError fRenombrar(const std::string &strRuta, std::string_view strNombre);
    /// Takes a file's name when it has the other one in its folder, too.
    [[nodiscard]] clsError fSoltarNombre(const std::string &strRuta, std::string_view strOtro);

private:
    [[nodiscard]] clsError fEntrar(const std::string &strRuta);
    [[nodiscard]] clsError fFecharDestino(std::int64_t lngMomento, long lngNanosegundos) const;
    [[nodiscard]] const clsDescriptor &fCarpeta() const;

    const std::string m_strRaiz;
    const clsDescriptor &m_raiz;
    std::optional<std::string> m_strCarpeta;  ///< path of the folder that is entered
    clsDescriptor m_carpeta;                  ///< it, open; of the root folder not
    std::string m_strNombre;                  ///< in there, of the path that was asked for last
    std::optional<clsDatosArchivo> m_fechado; ///< what fFechar has seen last
    std::string m_strFechado;                 ///< and its path
};
