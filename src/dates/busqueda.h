#pragma once

#include <functional>
#include <optional>
#include <string>

/// What a search through the list asks of its surroundings.
struct clsPreguntas {
    /// Full path of the file at a position. Called in the searching thread.
    std::function<std::string(int)> fRuta;
    /// Whether a file is right. Called on several threads at once, and perhaps still when the
    /// search is over: it must not refer to anything that ends with it.
    std::function<bool(const std::string &)> fCorrecta;
    /// Runs before a file's answer is looked at, again every 50 ms while it is waited for; false
    /// ends the search. Called in the searching thread.
    std::function<bool(int)> fPaso;
};

/// Searches from a position (itself included) towards the first row for a file that is not right.
/// Files are asked ahead on worker threads, but the answers are taken in the order of the list.
/// @param intHilos threads that ask; 0: as many as suit slow disks.
/// @return its position; nothing when all were right or the search was ended.
[[nodiscard]] std::optional<int> fBuscarIncorrecta(int lngDesde, const clsPreguntas &preguntas,
                                                   int intHilos = 0);
