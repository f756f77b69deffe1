#pragma once

#include "app/comun.h"
#include "browse/mandos.h"

/// Attends to the commands about the dates of files: EXIF, search for wrong ones, correction.
void fAtenderFechas(const clsComun &comun, clsMandos &mandos);
