#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

/// By how many quarter turns to the right the user wants to see files, in this run of the program:
/// nothing of it gets into a file. By their full paths.
class clsGiros {
public:
    /// Turns a file so many quarters further; to the left below 0. An empty path is no file's.
    void fGirar(const std::string &strRuta, int intCuartos);
    /// 0 to 3.
    [[nodiscard]] int fCuartos(const std::string &strRuta) const;
    [[nodiscard]] bool fNinguno() const { return m_mapCuartos.empty(); }

private:
    std::unordered_map<std::string, int> m_mapCuartos; ///< none of them 0
};

/// How a turn is told (UTF-8); nothing for none.
/// @param intCuartos 0 to 3.
[[nodiscard]] std::string_view fTextoGiro(int intCuartos);
