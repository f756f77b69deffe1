#pragma once

#include "sistema/archivo.h"

#include <string>
#include <string_view>
#include <vector>

/// Opens a folder.
/// @param bolSeguir whether a link to a folder counts as one.
[[nodiscard]] clsResultado<clsDescriptor> fAbrirCarpeta(const std::string &strRuta,
                                                        bool bolSeguir = true);

/// Opens the folder strRelativa ("" or "a/b/") below an open one, however long the path is. It is
/// not opened when it is a link.
[[nodiscard]] clsResultado<clsDescriptor> fAbrirCarpetaEn(const clsDescriptor &raiz,
                                                          std::string_view strRelativa);

/// One entry of a folder as a listing tells it: a link is unknown, too.
enum class Entrada { Archivo, Carpeta, Desconocida };

struct clsEntradaCarpeta {
    std::string strNombre;
    Entrada entrada = Entrada::Archivo;
};

/// Adds the entries of an open folder in the order of the file system; "." and "..", pipes, sockets
/// and devices are left out.
/// @return why the listing ended early; what was listed before stays.
[[nodiscard]] clsError fListarCarpeta(const clsDescriptor &carpeta,
                                      std::vector<clsEntradaCarpeta> &lstEntradas);

/// Makes a folder, for the user alone.
clsError fCrearCarpeta(const std::string &strRuta);

/// Makes a folder and those above it, for the user alone; whether it is there.
[[nodiscard]] bool fAsegurarCarpeta(const std::string &strRuta);

/// Deletes a file or a link by its name in an open folder.
clsError fBorrarEn(const clsDescriptor &carpeta, const std::string &strNombre);

/// Whether the folder strRuta is certainly neither the open one nor below it. By what the folders
/// are, not by their names: a folder can be reached under several.
[[nodiscard]] bool fQuedaFuera(const std::string &strRuta, const clsDescriptor &carpeta);

/// A new folder of the user's own for one file, whose name is given; both go with the object.
class clsCarpetaPasajera {
public:
    /// @param strInicio path that the folder's own begins with.
    clsCarpetaPasajera(const std::string &strInicio, std::string_view strNombre);
    ~clsCarpetaPasajera();
    clsCarpetaPasajera(const clsCarpetaPasajera &) = delete;
    clsCarpetaPasajera &operator=(const clsCarpetaPasajera &) = delete;

    /// Path of the file; empty when no folder could be made.
    [[nodiscard]] const std::string &fRuta() const { return m_strRuta; }

private:
    std::string m_strCarpeta;
    std::string m_strRuta;
};

/// The right to write an archive's catalogue, held by one program at a time (flock on the root).
class clsCerrojoArchivo {
public:
    /// fTenido tells whether it was free. A file system without locks counts as free.
    explicit clsCerrojoArchivo(const std::string &strRaiz);
    [[nodiscard]] bool fTenido() const { return m_bolTenido; }
    /// The root folder, open; not open when it could not be opened.
    [[nodiscard]] const clsDescriptor &fCarpeta() const { return m_carpeta; }

private:
    clsDescriptor m_carpeta;
    bool m_bolTenido = true;
};
