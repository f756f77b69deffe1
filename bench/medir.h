#pragma once

#include <functional>
#include <string>
#include <vector>

/// One of the things that are compared.
struct clsPrueba {
    const char *strNombre;
    std::function<void()> fHacer;
    std::function<void()> fPreparar = {}; ///< runs before each round and is not measured
};

/// Runs the tests in turn, each time in a child process of its own, so that none finds the memory
/// of another; prints for each the best and the median time, and the median and the best of the
/// ratios to the first one, which is the reference. What a test prints to standard output shows
/// once, in the first round.
/// @return 0, or 1 when a child failed.
int fComparar(const std::vector<clsPrueba> &lstPruebas, int intVueltas);

using clsRutas = std::vector<std::string>;

/// Every regular file below a folder, sorted by path.
[[nodiscard]] clsRutas fRutas(const char *strCarpeta);

/// Kilobytes of a line of /proc/self/status, such as "VmRSS"; -1 when there is none.
/// @param strProceso another process' number.
[[nodiscard]] long fMemoria(const char *strLinea, const std::string &strProceso = "self");
