#pragma once

#include "sistema/archivo.h"

#include <string>

/// The right to write an archive's catalogue, held by one program at a time (flock on the root).
class clsCerrojoArchivo {
public:
    /// fTenido tells whether it was free. A file system without locks counts as free.
    explicit clsCerrojoArchivo(const std::string &strRaiz);
    [[nodiscard]] bool fTenido() const { return m_bolTenido; }

private:
    clsDescriptor m_carpeta;
    bool m_bolTenido = true;
};
