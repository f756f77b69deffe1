// Writing to the disk, with every result checked. All functions throw std::runtime_error with a
// one-line message in Spanish.
#pragma once

#include <ctime>
#include <filesystem>
#include <QByteArray>

namespace demo {

/// Creates a new file with these bytes and this modification time. Never overwrites.
void fEscribirFichero(const std::filesystem::path &ruta, const QByteArray &datos,
                      std::time_t datModificacion);

/// Creates one folder, which must not exist yet.
void fCrearCarpeta(const std::filesystem::path &ruta);

/// Gives the folder its final name. Replaces an empty folder, never one with something in it.
void fRenombrar(const std::filesystem::path &rutaDe, const std::filesystem::path &rutaA);

/// Sets the modification time of a folder (the files inside have already been written).
void fFecharCarpeta(const std::filesystem::path &ruta, std::time_t datModificacion);

} // namespace demo
