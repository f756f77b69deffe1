#pragma once

#include "app/comun.h"
#include "browse/mandos.h"

/// Attends to the commands about the list as a whole: what it holds, what is ticked, its totals.
void fAtenderListado(const clsComun &comun, clsMandos &mandos);
