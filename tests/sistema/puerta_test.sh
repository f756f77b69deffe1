#!/usr/bin/env bash
# One door to the system: its headers are included in src/sistema/ only, there not by the headers
# that others include, and that folder includes nothing of those above it.
# Usage: puerta_test.sh SRC
set -uo pipefail
cd -- "$1/sistema/.." || exit 1
strSistema='(unistd|fcntl|dirent|poll|signal|spawn|langinfo|locale|malloc|grp|pwd|sched|seccomp|(sys|linux|net|arpa)/[a-z_/]+)\.h'
intFin=0

# fProhibir PHRASE GREP_ARGUMENTS...: nothing may be found.
fProhibir() {
    local strFrase=$1
    shift
    if grep -rnE --include='*.cpp' --include='*.h' "$@"; then
        echo "FAILED: $strFrase" >&2
        intFin=1
    fi
}

fProhibir "a header of the system outside sistema/" --exclude-dir=sistema "#include <$strSistema>" .
fProhibir "a header of the system for everybody" --exclude='*.cpp' --exclude=llamadas.h \
    "#include <$strSistema>" sistema
fProhibir "the table of calls outside sistema/" --exclude-dir=sistema '#include "sistema/llamadas.h"' .
fProhibir "another folder in sistema/" '#include "(shared|catalogue|dates|browse|filter|viewer|repair|duplicates|app)/' sistema
exit "$intFin"
