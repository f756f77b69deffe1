#pragma once

#include <ctime>
#include <string>
#include <vector>

/// The folder the program's file lies in, with a trailing "/".
[[nodiscard]] std::string fCarpetaPrograma();

/// The present working folder.
[[nodiscard]] std::string fCarpetaTrabajo();

/// The user's home folder with a trailing "/"; empty when there is none.
[[nodiscard]] std::string fCarpetaPersonal();

/// Whether miravel-abrir started the program without a folder. To be asked once, while there are no
/// other threads: what the program starts does not learn of it.
[[nodiscard]] bool fTomarSinCarpeta();

/// The folder for temporary files with a trailing "/" (TMPDIR, else the system's).
[[nodiscard]] std::string fRutaTemporal();

/// The folder for what can be made anew, with a trailing "/"; empty when the user has none.
[[nodiscard]] std::string fCarpetaCache();

/// The folder for what programs remember between starts, with a trailing "/"; empty when the user
/// has none.
[[nodiscard]] std::string fCarpetaEstado();

/// The folders in which desktops keep data, with a trailing "/", the user's own first.
[[nodiscard]] std::vector<std::string> fCarpetasDatos();

/// The number of the user this program runs for.
[[nodiscard]] unsigned fUsuario();

/// Seconds since 1970.
[[nodiscard]] std::time_t fAhora();

/// The signs between groups of three digits and before the decimals.
struct clsSignos {
    std::string strGrupo = ".";
    std::string strDecimal = ",";
};
/// Those of the user's locale, in the bytes of its character set; the Spanish ones when it is not
/// installed.
[[nodiscard]] clsSignos fSignosLocale();

/// The short date format (D_FMT, see strftime) of a locale; empty when it is not installed.
[[nodiscard]] std::string fDFmtLocale(const std::string &strLocale);

/// Has the desktop open a file or a folder with its default program (xdg-open), detached, with the
/// program's folder as working folder. The path reaches it byte by byte as its only argument.
/// Nothing is reported when that fails; nothing happens without a path.
void fAbrirConSistema(const std::string &strRuta);
