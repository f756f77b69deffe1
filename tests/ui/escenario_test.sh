#!/usr/bin/env bash
# A visit to the demonstration archive by the keys and mouse clicks a user would give, and what the
# disk holds afterwards: only what was asked for may change, to the byte and the second.
# escenario_test.sh MIRAVEL MIRAVEL_DEMO CERRAR_VENTANA
# shellcheck disable=SC2317,SC2154 # most functions are called through variables
# shellcheck source=binario_comun.sh
. "$(dirname "$0")/binario_comun.sh"

# --- The program's answer ---

fALaPrincipal() { xdotool windowfocus "$lngPrincipal" key --clearmodifiers "$@"; }

fLineas() { wc -l <"$ABIERTOS"; }
fMasLineas() { [ "$(fLineas)" -gt "$1" ]; }

# Keys that come while the program works are dropped, so every step begins when it has answered:
# Enter opens the current file, and the stand-in for xdg-open tells which one that is.
fListo() {
    local intVez intAntes
    intAntes=$(fLineas)
    for ((intVez = 1; intVez <= 40; ++intVez)); do
        fALaPrincipal Return
        fEsperarUnPoco fMasLineas "$intAntes" || continue
        # Of several, some may only have been slow: they must not answer later.
        [ "$intVez" -eq 1 ] || fEsperarUnPoco fMasLineas $((intAntes + intVez - 1))
        return 0
    done
    fEsperarA "an answer to Enter" false
}
fExigirActual() { # text, file
    fListo
    fExigir "$1: the current file is $(tail -n 1 "$ABIERTOS") instead of $2" \
        test "$(tail -n 1 "$ABIERTOS")" = "<$2>"
}
fOrden() { # keys...
    fListo
    fALaPrincipal "$@"
}
fDebeIrA() { # key, file
    fOrden "$1"
    fExigirActual "$1" "$2"
}
fRepetir() { # times, key
    local intVez
    for ((intVez = 0; intVez < $1; ++intVez)); do echo "$2"; done
}

# An open menu has no title: it is the window that is not the main one.
fHayMenu() { xdotool search --onlyvisible --class '^miravel$' 2>/dev/null | grep -qvx "$lngPrincipal"; }
fSinMenu() { ! fHayMenu; }

# Chooses an entry of "Opciones" by the arrows: which one from above (1 is the first) or, negative,
# from below. Disabled ones do not count.
fOpcion() {
    fListo
    fALaPrincipal Alt_L Right Down
    fEsperarA "the menu" fHayMenu
    # shellcheck disable=SC2046
    xdotool key $(fRepetir $(($1 > 0 ? $1 - 1 : 0)) Down) $(fRepetir $(($1 < 0 ? -$1 : 0)) Up) Return
}
readonly intCopiar=2 intTotal=3 intActualizar=4 intTodo=-4 intQuitar=-11

fDialogo() { # title, then keys...: waits for a window, gives it keys, waits for its end
    local strTitulo=$1
    shift
    fEsperarA "the window $strTitulo" fVisible "$strTitulo"
    fTecla "$strTitulo" "$@"
    fEsperarA "the end of $strTitulo" fOculta "$strTitulo"
}

# --- What lies on the disk ---

# Every file of the archive but what the program itself writes: path, then inode, size and access
# time, modification time, content. The access times lie in the future, where reading leaves them
# alone, unless the file system notes every reading.
fInventario() {
    find "$archivo" -type f -not -name 'Miravel.*' -not -name '.Miravel.*' -not -name 'Ayuda_*' -print0 | sort -z >"$carpeta/nombres"
    paste -d '|' <(xargs -0 stat -c "%n|%i %s $strAcceso|%.9Y" <"$carpeta/nombres") \
        <(xargs -0 sha256sum <"$carpeta/nombres" | cut -c -64) | sort
}
fExigirInventario() { # text
    fInventario >"$carpeta/hay"
    fExigir "$1" diff "$carpeta/debe" "$carpeta/hay"
}
# What the catalogue tells of every file but the program's own, and what the disk does.
fRegistros() { tr -d '\r' <"$archivo/Miravel.dat" | paste -d '|' - - - | grep -v '/Miravel\.\|/\.Miravel\.\|/Ayuda_' | sort; }
fFicheros() {
    find "$archivo" -type f -not -name 'Miravel.*' -not -name '.Miravel.*' -not -name 'Ayuda_*' -printf '%p|%TY/%Tm/%Td %TH:%TM:%TS| %s \n' |
        sed 's/\.[0-9]*| /| /' | sort
}
fTiene() { [ "$(find "$1" -mindepth 1 2>/dev/null | wc -l)" -eq "$2" ]; } # folder, entries

# A folder gets exactly true copies of these files.
fExigirCopias() { # text, folder, beginning of the copies' names by date, files...
    local strFrase=$1 strDonde=$2 strFecha=$3 strRuta strCopia strFalta=
    shift 3
    fEsperarA "$strFrase: $# files" fTiene "$strDonde" $#
    fListo
    for strRuta in "$@"; do
        strCopia=$strDonde/$(date -r "$strRuta" "+$strFecha")$(basename "$strRuta")
        cmp -s "$strRuta" "$strCopia" &&
            [ "$(stat -c '%y %a' "$strRuta")" = "$(stat -c '%y %a' "$strCopia")" ] || strFalta+=" $strRuta"
    done
    fExigir "$strFrase: no true copies of:$strFalta" test -z "$strFalta"
    fExigir "$strFrase: nothing else" fTiene "$strDonde" $#
}
fListados() { # text, files...: the list holds exactly these, as the Baúl tells that gets them
    fOpcion "$intTodo"
    fOrden a
    fExigirCopias "$1" "$baul" %Y.%m.%d. "${@:2}"
    find "$baul" -mindepth 1 -delete
}

# --- The visit ---

# Without a window manager nobody gives the focus back when a box closes, so that this window is not
# the active one; the keys work after a walk through its menus nevertheless.
fPruebaMenusWithoutFocus() {
    fDebeIrA F12 "${lstRutas[1]}"
    fOpcion "$intTotal"
    fDialogo '^Totales$' Return
    xdotool mousemove 900 500 key Alt_L Right Down
    fEsperarA "the menu" fHayMenu
    xdotool key Escape Escape
    fEsperarA "its end" fSinMenu
    fDebeIrA F12 "${lstRutas[2]}"
}

fPruebaRebuild() {
    local strHuella nueva="$archivo/2011/Nueva.jpg"
    fExigirInventario "nothing has changed so far"
    cp -p "${lstRutas[intUltima]}" "$nueva"
    touch -d '2024-02-29 10:11:12' "$nueva"
    mkdir "$archivo/X_oculta"
    cp -p "$nueva" "$archivo/X_oculta/otra.jpg"
    strHuella=$(fHuella "$archivo/Miravel.dat")
    fOrden F5
    fDialogo "$strCaja" Return # No is the default
    fListo
    fExigir "nothing on No" test "$strHuella" = "$(fHuella "$archivo/Miravel.dat")"
    fOpcion "$intActualizar"
    fDialogo "$strCaja" Tab Return
    fEsperarA "the new catalogue" grep -qF "$nueva" "$archivo/Miravel.dat"
    fExigirActual "the same file" "${lstRutas[2]}"
    fDebeIrA shift+F12 "$nueva"
    fExigir "every file with its date and size, the hidden ones too" test "$(fRegistros)" = "$(fFicheros)"
    touch -a -d '+1 day' "$nueva" "$archivo/X_oculta/otra.jpg"
    fInventario >"$carpeta/debe"
}

fPruebaFilter() {
    mapfile -t lstGlobos < <(printf '%s\n' "$archivo/2019/Globos en Segovia/Globos 0"{1,2,3,4,5}.jpg)
    fOrden f
    fEsperarA "the filter" fVisible "^Filtro \\($((intUltima + 2)) archivos\\)$"
    fTecla '^Filtro' Tab Tab z z z Return
    fAceptar # nothing found
    fDialogo '^Filtro' ctrl+a G l o b o s Return
    fListados "by a word" "${lstGlobos[@]}"
}

fPruebaCopies() { # of what the filter has left
    local copias="$carpeta/copias"
    mkdir "$copias"
    echo "an older file of that name" >"$copias/Globos 02.jpg"
    fOpcion "$intTodo"
    fOpcion "$intCopiar"
    fDialogo '^Selecciona carpeta de destino:$' Escape
    fOpcion "$intCopiar"
    fEsperarA "the picker" fVisible '^Selecciona carpeta de destino:$'
    fTecla '^Selecciona carpeta de destino:$' ctrl+a
    xdotool type "$copias"
    fDialogo '^Selecciona carpeta de destino:$' Return
    fExigirCopias "copied, also over the older one" "$copias" '' "${lstGlobos[@]}"
    fOrden shift+f
    fDialogo "$strCaja" Return # Cancelar is the default
    fDebeIrA shift+F11 "${lstGlobos[0]}"
    fOpcion "$intQuitar"
    fDialogo "$strCaja" Tab Return
    fDebeIrA shift+F11 "${lstRutas[0]}"
}

# A corrected file is the same one under the new name, with the new time; nothing else changes.
fPruebaSearchAndCorrection() {
    local playa="$archivo/2009/Verano en Cádiz"
    local mala="$playa/20090718_IMG_0040.JPG" buena="$playa/20090718_20090718_IMG_0040.JPG" copias
    fOrden d
    fDialogo "$strCaja" 3 1 1 2 2 0 1 3 Return
    fExigirActual "the day" "$archivo/2013/Año Nuevo/DSC_3001.JPG"
    fOrden w
    fListo
    fExigir "W leaves right dates alone" fOculta '^Fechas$'
    fDebeIrA e "$mala"
    fDebeIrA e "$mala" # the search begins with the current file
    cp "$archivo/Miravel.dat" "$carpeta/catalogo"
    fOrden w
    # An impossible date leaves everything open.
    fEsperarA "the dates" fVisible '^Fechas$'
    xdotool windowfocus "$(fVentana '^Fechas$')" type '31/02/2009'
    fTecla '^Fechas$' Return
    fAceptar
    # The first button carries the date of the Exif data; Return is "Cambiar y moverse".
    fDialogo '^Fechas$' Tab space Return
    fEsperarA "the new name" test -e "$buena"
    fExigirActual "moved on to what followed it in the list" "$archivo/2013/Año Nuevo/DSC_3001.JPG"
    sed -i "s#^$mala|\([^|]*\)|[^|]*#$buena|\1|$(date -d '2009-07-18 12:55:01' +%s).000000000#" "$carpeta/debe"
    sort -o "$carpeta/debe" "$carpeta/debe"
    copias=$(find "$archivo" -maxdepth 1 -name 'Miravel.dat.*')
    fExigir "the backup is the old catalogue" cmp -s "$carpeta/catalogo" "$copias"
    fExigirInventario "one file has changed"
    fExigir "and its record" test "$(fRegistros)" = "$(fFicheros)"
}

fPruebaNothingElseHasChanged() {
    fListo
    fSinCaja
    fCerrar
    fExigirInventario "the archive is as it was but for that"
    fExigir "no temporary files" test -z "$(find "$carpeta" -name '.*.tmp' -o -name 'prueba_escritura.txt')"
    fExigir "nothing else in the folder for temporary files" test "$(ls -A "$TMPDIR")" = Miravel
    fExigir "what the program keeps in the archive" test 3 -eq \
        "$(find "$archivo" -maxdepth 1 -name 'Miravel.*' | wc -l)"
}

fPreparar
find "$archivo" -type f -exec touch -a -d '+1 day' {} +
strAcceso=%.9X
touch -a -d '+1 day' "$carpeta/demo.log"
strAntes=$(stat -c %x "$carpeta/demo.log")
cat "$carpeta/demo.log" >/dev/null
[ "$strAntes" = "$(stat -c %x "$carpeta/demo.log")" ] || strAcceso=-
baul=$TMPDIR/Miravel
: >"$ABIERTOS"
fInventario >"$carpeta/debe"
fArrancar miravel "___$archivo"
fAceptar
fEsperarA "the first file shown" fHaySelec "$archivo"
lngPrincipal=$(fVentana "$strPrincipal")
mapfile -t lstRutas < <(fLista "$archivo")
intUltima=$((${#lstRutas[@]} - 1))
for strPrueba in fPruebaMenusWithoutFocus fPruebaRebuild fPruebaFilter fPruebaCopies \
    fPruebaSearchAndCorrection fPruebaNothingElseHasChanged; do
    fProbar "$strPrueba"
done
exit $((intFallos > 0))
