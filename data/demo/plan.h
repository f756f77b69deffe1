// What the demonstration archive consists of: tables of folders, photos, films and notes.
#pragma once

#include "bytes.h"
#include "escenas.h"

#include <QSize>
#include <span>
#include <string>

namespace demo {

// Sizes of the upright picture.
inline constexpr QSize tamAntigua(320, 240);
inline constexpr QSize tamNormal(1600, 1200);
inline constexpr QSize tamAlta(1200, 1600);
inline constexpr QSize tamReflex(1620, 1080);
inline constexpr QSize tamReflexAlta(1080, 1620);
inline constexpr QSize tamCine(1600, 900);
inline constexpr QSize tamMovil(1080, 1920);
inline constexpr QSize tamCuadrada(1200, 1200);
inline constexpr QSize tamPanorama(4200, 1050);
inline constexpr QSize tamEnorme(4000, 3000);

struct clsCamara {
    const char *strMarca;
    const char *strModelo;
    enmOrden ordenBytes;
    bool bolMiniatura; // writes a thumbnail into its photos
    quint32 lngDiafragmaDecimos;
};

struct clsFilaFoto {
    const char *strNombre;
    fnEscena fPintar;
    QSize tamFoto;
    int intOrientacion; // the Exif value; 1 where there is no Exif
    const char *strFecha;
};

/// The photos of one camera in one folder. Without a camera they carry no Exif.
struct clsCarpeta {
    const char *strCarpeta;
    const clsCamara *pCamara;
    std::span<const clsFilaFoto> lstFotos;
};

enum class enmContenedor { Avi, Mov };

struct clsFilaVideo {
    const char *strRuta;
    enmContenedor contenedor;
    fnEscena fPintar;
    int intCuadros;
    const char *strFecha;
};

struct clsFilaTexto {
    const char *strRuta;
    const char *strFecha;
    const char *strTexto;
};

/// A file whose modification time is not the date on which the photo was taken.
struct clsFechaErronea {
    const char *strRuta;
    const char *strFecha;
};

std::span<const clsCarpeta> fCarpetasAntiguas(); // 1998 to 2008
std::span<const clsCarpeta> fCarpetasNuevas();   // 2009 to 2023
std::span<const clsFilaVideo> fVideos();
std::span<const clsFilaTexto> fTextos();

/// The modification time of the photo at this path: nearly always the given date of its taking.
std::string fFechaDelFichero(const std::string &strRuta, const char *strFecha);

} // namespace demo
