#pragma once

#include "shared/fecha.h"

#include <cstdint>
#include <optional>

/// By how much a clock was wrong. Each number may be negative.
struct clsDesfase {
    int intDias = 0;
    int intHoras = 0;
    int intMinutos = 0;
    int intSegundos = 0;

    /// All of it in seconds.
    [[nodiscard]] std::int64_t fSegundos() const;
};

/// The date so many seconds later (below 0: earlier), by the clock on the wall: summer time plays
/// no part. Nothing for the zero date, and for what leaves the years 100 to 9999.
[[nodiscard]] std::optional<clsFecha> fDesplazar(clsFecha fecha, std::int64_t lngSegundos);
