// What the demonstration archive consists of: folders, photos, films and notes.
#pragma once

#include "bytes.h"

#include <ctime>
#include <QSize>
#include <span>
#include <string>

namespace demo {

struct clsCamara {
    const char *strMarca;
    const char *strModelo;
    enmOrden ordenBytes;
    bool bolMiniatura; // writes a thumbnail into its photos
    quint32 lngDiafragmaDecimos;
};

/// A row of the plan: a folder for the rows below it, with the camera of its photos (none: they
/// have no Exif); a photo; a film, in the container that its name tells; a note.
struct clsFila {
    const char *strNombre;
    const char *strEscena = nullptr;
    QSize tamFoto = {};                    // of the upright picture
    int intOrientacion = 1;                // as Exif has it
    const char *strFecha = nullptr;        // when it was taken or written; none: a folder
    const char *strFechaFichero = nullptr; // where the file has another date than that
    int intCuadros = 0;                    // of films
    const char *strTexto = nullptr;        // of notes
    const clsCamara *pCamara = nullptr;    // of folders
};

std::span<const clsFila> fPlan();

/// The finished file of a row: painted, turned as its orientation demands, encoded, with Exif.
/// Throws std::runtime_error if that is not possible. The same path gives the same picture.
QByteArray fFoto(const clsCamara *pCamara, const clsFila &fila, const std::string &strRuta);
QByteArray fVideo(const clsFila &fila, const std::string &strRuta);

/// The instant of a local date of the plan, "2009-07-14 12:03:11". Throws std::runtime_error if the
/// text is no such date.
std::time_t fInstante(const std::string &strFecha);

} // namespace demo
