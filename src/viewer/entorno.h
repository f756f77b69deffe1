#pragma once

#include <functional>

/// What drawing the viewing panel needs from above.
struct clsEntorno {
    std::function<void()> fProcesando; ///< says that pictures are being loaded
    /// Lets events run; with a number above 0 waits for one so many milliseconds at most.
    std::function<void(int)> fCeder;
    std::function<bool()> fVigente; ///< whether this drawing is still wanted
    std::function<void()> fFalta;   ///< a file is not on the disk
    bool bolPaso = false;           ///< it is drawn for a step, and others may follow at once
};
