#pragma once

#include "dates/exif.h"
#include "dates/origen.h"

/// Byte order of the TIFF data: "II" has the least significant byte first, "MM" the most.
enum class Orden { II, MM };

/// The number of the first 2 bytes; 0 when they are not all there.
[[nodiscard]] std::uint32_t fCorto(std::string_view strBytes, Orden orden);
/// The number of the first 4 bytes; 0 when they are not all there.
[[nodiscard]] std::uint32_t fLargo(std::string_view strBytes, Orden orden);

/// How much of a JPEG file's head is recorded.
enum class Busqueda { SoloApp1, Completa };

/// Finds the TIFF data in a file and reads their header.
/// @param marcas positions found; lngInicioTiff and lngIfd0 are set when all went well.
/// @return empty or the message.
[[nodiscard]] std::string_view fLeerCabecera(clsLector &lector, Busqueda busqueda,
                                             clsMarcas &marcas, Orden &orden);

/// The part of it that a JPEG file needs: where its TIFF data start.
[[nodiscard]] std::string_view fPasoJpeg(clsLector &lector, Busqueda busqueda, clsMarcas &marcas);

/// And the part behind that: byte order and the first IFD, from marcas.lngInicioTiff on.
[[nodiscard]] std::string_view fCabeceraTiff(clsLector &lector, clsMarcas &marcas, Orden &orden);
