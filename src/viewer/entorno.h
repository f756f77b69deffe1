#pragma once

#include <functional>

/// What drawing the viewing panel needs from above.
struct clsEntorno {
    std::function<void()> fProcesando; ///< says that pictures are being loaded
    std::function<void(bool)> fCeder;  ///< lets events run; true: waits for the next one
    std::function<bool()> fVigente;    ///< whether this drawing is still wanted
    std::function<void()> fFalta;      ///< a file is not on the disk
};
