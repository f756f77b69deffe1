#pragma once

#include "app/comun.h"
#include "browse/mandos.h"

/// Attends to the commands that send copies of files to a folder and to the Baúl.
void fAtenderCopias(const clsComun &comun, clsMandos &mandos);

/// Counts the files in the Baúl.
void fContarElBaul(const clsComun &comun);
