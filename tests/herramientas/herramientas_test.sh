#!/usr/bin/env bash
# The programs that stand in for the windows. herramientas_test.sh DRIVER EXIF_TEXT
# shellcheck disable=SC2317 # most functions are called through variables
set -uo pipefail
export TZ=Europe/Madrid LC_ALL=C.UTF-8

driver=$1
exif_text=$2
intFallos=0
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
raiz="$carpeta/Mis fotos"
salida=$carpeta/salida
readonly strNada='(No se ha encontrado información)'

fExigir() { # text, command...: the command must succeed
    local strFrase=$1
    shift
    "$@" && return
    echo "FAIL: $strFrase" >&2
    sed 's/^/    /' "$salida" >&2
    intFallos=$((intFallos + 1))
}

fSale() { # expected exit status, command...: its output goes to a file
    local intEsperado=$1
    shift
    "$@" >"$salida" 2>"$carpeta/errores"
    [ $? -eq "$intEsperado" ]
}

fEstado() { # everything below the root, with contents and times
    (cd "$raiz" && find . -type f -printf '%p %s %T@\n' -exec sha256sum {} + | sort)
}

fDice() { [ "$(<"$salida")" = "$1" ]; }
fHayLinea() { tr -d '\r' <"$raiz/Miravel.dat" | grep -qxF -- "$1"; }
fFaltaLinea() { ! fHayLinea "$1"; }

mkdir -p "$raiz/año"
printf 'one' >"$raiz/uno.jpg"
printf 'two' >"$raiz/año/dos.jpg"
printf 'text' >"$raiz/nota.txt"

# build: three files and the catalogue that stood empty during the walk
fExigir "build" fSale 0 "$driver" build "$raiz"
fExigir "build says nothing" test ! -s "$salida"
fExigir "four records" test "$(wc -l <"$raiz/Miravel.dat")" -eq 12
fExigir "a path" fHayLinea "$raiz/año/dos.jpg"
fExigir "a relative root" fSale 0 env -C "$carpeta" "$driver" build 'Mis fotos'
fExigir "absolute paths" fHayLinea "$raiz/año/dos.jpg"
fExigir "build without the root" fSale 1 "$driver" build "$carpeta/no"
fExigir "what the box says" fDice 'Ruta no válida.'
exec 9<"$raiz"
flock 9
fExigir "build beside another program" fSale 1 "$driver" build "$raiz"
exec 9<&-
fExigir "what the box says then" fDice \
    'Otro Miravel está trabajando con estos archivos. Inténtalo cuando termine.'

# correct: what cannot be done touches nothing
estado=$(fEstado)
fExigir "a day that does not exist" fSale 1 "$driver" correct "$raiz" 31/02/2003 "$raiz/uno.jpg"
fExigir "the warning" test "$(head -n 1 "$salida")" = \
    "'31/02/2003 12:00:00' no es una fecha válida."
fExigir "a missing file" fSale 1 "$driver" correct "$raiz" 05/03/2003 "$raiz/uno.jpg" "$raiz/no"
fExigir "its warning" fDice "Hay algún problema con el fichero: 
$raiz/no"
fExigir "nothing is changed" test "$estado" = "$(fEstado)"

# correct: two files, one of them with a name that is taken
fExigir "correct" fSale 0 "$driver" correct "$raiz" 05/03/2003 "$raiz/año/dos.jpg"
fExigir "correct says nothing" test ! -s "$salida"
nuevo="$raiz/año/20030305_dos.jpg"
fExigir "renamed" test -f "$nuevo" -a ! -e "$raiz/año/dos.jpg"
fExigir "its time" test "$(date -r "$nuevo" '+%F %T')" = '2003-03-05 12:00:00'
fExigir "its path in the catalogue" fHayLinea "$nuevo"
fExigir "its date in the catalogue" fHayLinea '2003/03/05 12:00:00'
fExigir "the old path is gone" fFaltaLinea "$raiz/año/dos.jpg"
fExigir "one backup" test "$(find "$raiz" -name 'Miravel.dat.*' | wc -l)" -eq 1
printf 'taken' >"$raiz/20030305_uno.jpg"
fExigir "a taken name" fSale 1 "$driver" correct "$raiz" '05/03/2003 10:20' "$raiz/uno.jpg"
fExigir "path and error" test "$(head -n 1 "$salida")" = "$raiz/uno.jpg"
fExigir "the other file is as it was" test "$(<"$raiz/20030305_uno.jpg")" = taken

# undo: the latest correction, then the one before, as far as it can be
catalogo="$raiz/Miravel.dat"
fExigir "undo" fSale 0 "$driver" undo "$raiz"
fExigir "its report" fDice '1 deshecho.'
fExigir "uno.jpg has its time again" test "$(date -r "$raiz/uno.jpg" '+%F %T')" != '2003-03-05 10:20:00'
printf 'taken' >"$raiz/año/dos.jpg"
fExigir "undo of a taken name" fSale 1 "$driver" undo "$raiz"
fExigir "its report" fDice "0 deshechos, 1 no:
$nuevo (17: El fichero ya existe)"
rm "$raiz/año/dos.jpg"
fExigir "undo when it is free" fSale 0 "$driver" undo "$raiz"
fExigir "the old path" test -f "$raiz/año/dos.jpg" -a ! -e "$nuevo"
fExigir "the old catalogue" cmp "$catalogo" "$(find "$raiz" -name 'Miravel.dat.*' | sort | head -n 1)"
fExigir "nothing left to undo" fSale 1 "$driver" undo "$raiz"
fExigir "it says so" fDice 'No hay ninguna corrección que deshacer.'
fExigir "correct again" fSale 0 "$driver" correct "$raiz" 05/03/2003 "$raiz/año/dos.jpg"

# repair: what the names tell, of one file and of all
repara="$carpeta/repara"
mkdir -p "$repara/sin"
for nombre in IMG_20080501_101112.jpg 20080502_b.jpg "IMG-20080503-WA0001.jpg" sin/nada.jpg; do
    printf 'x' >"$repara/$nombre"
    touch -d '2015-01-01 10:00:00.123456789' "$repara/$nombre"
done
fExigir "build" fSale 0 "$driver" build "$repara"
cp "$repara/Miravel.dat" "$carpeta/catalogo"
fInventario() { (cd "$repara" && find . -name '*.jpg' -printf '%p %s %T@\n' | sort); }
antes=$(fInventario)
fExigir "repair one" fSale 0 "$driver" repair "$repara" "$repara/20080502_b.jpg"
fExigir "its report" fDice '1 corregido.'
fExigir "days are not stacked" test "$(date -r "$repara/20080502_b.jpg" '+%F %T')" = '2008-05-02 12:00:00'
fExigir "repair all" fSale 1 "$driver" repair "$repara"
fExigir "the one without any date" grep -q 'nada.jpg' "$salida"
fExigir "its report" grep -q '^2 corregidos\.$' "$salida"
fExigir "a time of day" test -f "$repara/20080501_IMG_20080501_101112.jpg"
fExigir "its time" test 101112 = "$(date -r "$repara/20080501_IMG_20080501_101112.jpg" +%H%M%S)"
fExigir "undo the first" fSale 0 "$driver" undo "$repara"
fExigir "undo the other" fSale 0 "$driver" undo "$repara"
fExigir "all is as it was" test "$antes" = "$(fInventario)"
fExigir "the catalogue, too" cmp "$carpeta/catalogo" "$repara/Miravel.dat"
# a QuickTime film of a header only, made at 16:03:22 universal time
{
    printf '\0\0\0\x14ftypqt  \0\0\0\0qt  \0\0\0\x74moov\0\0\0\x6cmvhd\0\0\0\0'
    printf '\xc6\x82\x5c\xca\0\0\0\0\0\0\x03\xe8'
    head -c 84 /dev/zero
} >"$repara/v.mov"
fExigir "a video is asked" fSale 0 "$driver" repair "$repara" "$repara/v.mov"
fExigir "its report" fDice '1 corregido.'
fExigir "its time" test "$(date -r "$repara/20090714_v.mov" '+%F %T')" = '2009-07-14 18:03:22'
fExigir "a file from elsewhere is not repaired" fSale 1 "$driver" repair "$repara" "$raiz/uno.jpg"

# copy and baul: names, what is refused, what the error output says
mkdir "$carpeta/t" "$raiz/d"
fExigir "copy" fSale 0 env -C "$carpeta" "$driver" copy 'Mis fotos' t uno.jpg "$nuevo"
fExigir "copied" cmp "$nuevo" "$carpeta/t/${nuevo##*/}"
fExigir "its time is kept" test ! "$nuevo" -nt "$carpeta/t/${nuevo##*/}" -a \
    ! "$nuevo" -ot "$carpeta/t/${nuevo##*/}"
fExigir "copy stops at a missing file" fSale 1 "$driver" copy "$raiz" "$raiz/d" uno.jpg no dos.jpg
fExigir "what was copied" test "$(ls -A "$raiz/d")" = uno.jpg
fExigir "path and error of a copy" test "$(head -n 1 "$carpeta/errores")" = "$raiz/no"
fExigir "a file from elsewhere" fSale 1 "$driver" copy "$raiz" "$raiz/d" "$carpeta/t/uno.jpg"
touch -d '2010-05-07 00:30' "$raiz/uno.jpg"
fExigir "baul" fSale 0 env TMPDIR="$carpeta/t" "$driver" baul "$raiz" uno.jpg
fExigir "its name there" cmp "$raiz/uno.jpg" "$carpeta/t/Miravel/2010.05.07.uno.jpg"
fExigir "baul without a place" fSale 1 env TMPDIR="$carpeta/no" "$driver" baul "$raiz" uno.jpg
fExigir "where it should have been" test "$(head -n 1 "$carpeta/errores")" = "$carpeta/no/Miravel/"

# wrong usage
fExigir "no command" fSale 2 "$driver"
fExigir "usage" grep -q '^driver build ROOT$' "$carpeta/errores"
fExigir "an unknown command" fSale 2 "$driver" nada "$raiz"
fExigir "no file" fSale 2 "$driver" correct "$raiz" 05/03/2003

# exif_text
fExigir "a text file" fSale 0 "$exif_text" "$raiz/nota.txt"
fExigir "no information" test "$(od -c "$salida")" = "$(printf %s "$strNada" | od -c)"
fExigir "dates" fSale 0 "$exif_text" --dates "$raiz/nota.txt"
fExigir "no dates" fDice $'0132 -\n9003 -\nexif -'
printf '%s\0' "$raiz/nota.txt" "$nuevo" >"$carpeta/rutas"
fExigir "batch" fSale 0 "$exif_text" --batch <"$carpeta/rutas"
fExigir "two answers" fDice "34
${strNada}34
$strNada"
fExigir "batch of dates" fSale 0 "$exif_text" --dates --batch <"$carpeta/rutas"
fExigir "two answers of dates" fDice $'21\n0132 -\n9003 -\nexif -\n21\n0132 -\n9003 -\nexif -'
mv "$raiz/nota.txt" "$raiz/nota 2009-07-14 a las 18.03.22.txt"
fExigir "sources" fSale 0 "$exif_text" --sources "$raiz/nota 2009-07-14 a las 18.03.22.txt"
fExigir "a date in a name" fDice $'nombre\t14/07/2009 18:03:22'
fExigir "no file for the text" fSale 2 "$exif_text"

[ "$intFallos" -gt 0 ] || echo "PASS"
exit $((intFallos > 0))
