#pragma once

#include "shared/fecha.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The catalogue file `Miravel.dat`, as its writer makes it and its reader expects it:
///
/// Plain bytes, one value a line, every line ended by CR LF; no header, no count, no trailer. A
/// file of the archive is three lines:
///   1. its full path, byte by byte as the disk gave it (CR and LF in it as "?");
///   2. its modification time in local time, "yyyy/MM/dd HH:mm:ss";
///   3. its length in bytes, decimal, with one blank before and one behind.
/// Order is that of the folder walk: a folder's files as the file system lists them, then each of
/// its subfolders with everything below it. Every file is recorded, hidden or not, media or not.
inline constexpr std::string_view strFicheroCatalogo = "Miravel.dat";

/// Appends the three lines of one file.
void fAnadirRegistro(std::string &strCatalogo, std::string_view strCarpeta,
                     std::string_view strNombre, clsFecha fecha, std::int64_t lngBytes);
