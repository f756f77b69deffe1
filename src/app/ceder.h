#pragma once

/// Lets pending events run; true waits for at least one. The only place where the program does so.
void fCederEventos(bool bolEsperar);
