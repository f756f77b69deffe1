#pragma once

/// Lets pending events run; with a number above 0 waits for one, so many milliseconds at most. The
/// only place where the program does so.
void fCederEventos(int intMs = 0);
