// The making of the whole archive.
#pragma once

#include <cstdint>
#include <filesystem>

namespace demo {

struct clsResumen {
    int intFotos;
    int intVideos;
    int intTextos;
    std::uintmax_t lngBytes;
};

/// The real path of the folder to be made: no links, no slash at the end. Throws a std::exception
/// with a one-line message, here as below, if something is there that is no empty folder.
std::filesystem::path fDestino(const std::filesystem::path &rutaCarpeta);

/// Fills a temporary folder beside the destination and renames it at the end. After a failure
/// nothing is left behind.
clsResumen fHacerArchivo(const std::filesystem::path &rutaFinal);

/// For signal handlers: the making stops soon, as if it had failed.
void fInterrumpir();

} // namespace demo
