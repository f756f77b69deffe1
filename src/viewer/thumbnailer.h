#pragma once

#include <atomic>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The programs that a desktop registers for making thumbnails: files *.thumbnailer, as GNOME's
/// desktop library describes them (group "Thumbnailer Entry", keys TryExec, Exec, MimeType).

/// What such a file says.
struct clsThumbnailer {
    std::string strTryExec; ///< program that has to exist; empty: none
    std::string strExec;    ///< command line with its codes %u %i %o %s %%
    std::vector<std::string> lstTipos;
};

/// Reads such a file; nothing without a command line.
[[nodiscard]] std::optional<clsThumbnailer> fLeerThumbnailer(std::string_view strTexto);

/// The program and its arguments. Quotes and backslashes as in the Exec key of the freedesktop
/// Desktop Entry standard, single quotes, too; a code never becomes more than one argument.
/// @param codigos what stands for the codes: u the URI, i the path, o a PNG file to be written, s
/// the
///                side in pixels.
/// @return empty when a quote is left open, or when a code is unknown.
[[nodiscard]] std::vector<std::string> fOrden(std::string_view strExec,
                                              std::map<char, std::string> codigos);

/// The command line that is registered for the type of a video, which its extension tells.
/// @param lstCarpetas the folders "thumbnailers/", each with its final "/"; the first one counts
///                    more, a file hides those of the same name further on.
/// @return nothing when there is none whose program exists.
[[nodiscard]] std::optional<std::string>
fBuscarThumbnailer(const std::vector<std::string> &lstCarpetas, std::string_view strRuta);

/// Runs a program and waits for its end; it is killed, with all it has started, after the time
/// limit, or when bolAnulado becomes true.
/// @return its exit code, or minus the signal; nothing when it was not started or was killed.
[[nodiscard]] std::optional<int> fEjecutar(std::vector<std::string> lstOrden,
                                           std::chrono::milliseconds plazo,
                                           const std::atomic<bool> &bolAnulado);
