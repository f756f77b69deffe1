#pragma once

#include "shared/ajustes.h"
#include "shared/mensajes.h"

#include <optional>
#include <string>
#include <vector>

/// What a start says of the folder to open.
struct clsInicio {
    std::vector<std::string> lstArgumentos; ///< without the program's name
    std::string strPrograma;                ///< the folder of the program's file
    std::string strTrabajo;                 ///< the working folder
    std::string strCasa;                    ///< the home folder; empty when there is none
    bool bolPreguntar = false; ///< without arguments: the archive of last time, or whatever the
                               ///< user chooses, instead of the program's folder
};

/// The root folder to open, with a trailing "/". One that is the whole home folder or the whole
/// file system, and no archive yet, is asked about first; where the user chooses, he then chooses
/// again.
/// @param escritorio what is remembered for the desktop.
/// @return nothing when the user wants none. It may not exist.
[[nodiscard]] std::optional<std::string> fElegirRaiz(const clsInicio &inicio,
                                                     clsAjustes &escritorio, clsMensajes &mensajes);

/// Remembers a root folder as that of last time.
void fRecordarRaiz(clsAjustes &escritorio, const std::string &strRaiz);
