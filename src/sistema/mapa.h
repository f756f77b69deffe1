#pragma once

#include "sistema/archivo.h"

#include <string_view>

/// The bytes of an open file, as if they lay in memory: read when they are looked at. Whoever does
/// is killed when the disk does not give them, or the file has become shorter meanwhile: for
/// programs that may die over a file.
class clsMapa {
public:
    /// @param archivo its length, too; it can be closed afterwards.
    explicit clsMapa(const clsAbierto &archivo);
    ~clsMapa();
    clsMapa(const clsMapa &) = delete;
    clsMapa &operator=(const clsMapa &) = delete;

    /// Empty when the file is, or there is no room for it.
    [[nodiscard]] std::string_view fBytes() const { return m_strBytes; }

private:
    std::string_view m_strBytes;
};
