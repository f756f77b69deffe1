#pragma once

#include <cstdint>
#include <string>

/// What the bare walk counts, so that no compiler leaves anything out.
struct clsCuenta {
    std::int64_t lngFicheros = 0;
    std::int64_t lngBytes = 0;
};

/// Reads a tree on some threads with nothing but openat, getdents64 and one fstatat a file.
[[nodiscard]] clsCuenta fPasearDesnudo(const std::string &strRaiz, int intHilos);
