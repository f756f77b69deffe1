#!/usr/bin/env bash
# The programs as the user has them: started, seen and steered from outside, on an X server of the
# test's own. binario_test.sh MIRAVEL MIRAVEL_DEMO CERRAR_VENTANA
# shellcheck disable=SC2317 # most functions are called through variables
set -uo pipefail

miravel=$1
miravel_demo=$2
cerrar_ventana=$3
intFallos=0
strPrueba=
lngPid=

carpeta=$(mktemp -d)
chmod 755 "$carpeta"
trap 'fSalir' EXIT

fSalir() {
    [ -z "$lngPid" ] || kill -KILL "$lngPid" 2>/dev/null
    [ -z "${lngXvfb:-}" ] || kill "$lngXvfb" 2>/dev/null
    chmod -R u+rwX "$carpeta"
    rm -rf "$carpeta"
}

fFallo() {
    echo "FAIL: $strPrueba: $*" >&2
    intFallos=$((intFallos + 1))
}

fExigir() { # text, command...: the command must succeed
    local strFrase=$1
    shift
    "$@" || fFallo "$strFrase"
}

fEsperar() { # command...: until it succeeds, 20 seconds at most
    local intVez
    for ((intVez = 0; intVez < 400; ++intVez)); do
        "$@" && return 0
        sleep 0.05
    done
    return 1
}

fEsperarA() { # text, command...
    local strFrase=$1
    shift
    fEsperar "$@" && return
    # What comes next would wait in vain, too.
    fFallo "waited in vain: $strFrase"
    sed 's/^/    /' "$carpeta/salida" >&2
    exit 1
}

fEsperarUnPoco() { # command...: half a second at most
    local intVez
    for ((intVez = 0; intVez < 10; ++intVez)); do
        "$@" && return 0
        sleep 0.05
    done
    return 1
}

# --- The X server and what the program finds around it ---

fServidor() {
    # -displayfd finds a free display; it writes the number once it is ready. Without -noreset the
    # server would start over, and refuse clients, whenever the program ends.
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -ac -noreset 3>"$carpeta/pantalla" \
        >"$carpeta/xvfb.log" 2>&1 &
    lngXvfb=$!
    fEsperar test -s "$carpeta/pantalla" || return 1
    DISPLAY=:$(<"$carpeta/pantalla")
    export DISPLAY
}

fEntorno() {
    mkdir -p "$carpeta/bin" "$carpeta/casa" "$carpeta/ejecucion"
    chmod 700 "$carpeta/ejecucion"
    cat >"$carpeta/bin/xdg-open" <<'FIN'
#!/bin/sh
for argumento in "$@"; do printf '<%s>' "$argumento" >>"$ABIERTOS"; done
echo >>"$ABIERTOS"
FIN
    chmod 755 "$carpeta/bin/xdg-open"
    cp "$miravel" "$carpeta/bin/miravel"
    export ABIERTOS=$carpeta/abiertos
    export PATH=$carpeta/bin:$PATH
    export HOME=$carpeta/casa XDG_RUNTIME_DIR=$carpeta/ejecucion
    export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 TZ=Europe/Madrid
    # What system libraries keep to the end is no business of a sanitizer.
    export ASAN_OPTIONS=detect_leaks=0
    unset QT_SCALE_FACTOR QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE LANG LC_TIME
}

# --- Steering the program ---

fArrancar() { # command...
    "$@" >"$carpeta/salida" 2>&1 &
    lngPid=$!
}

fVisible() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
fVentana() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1; }
fOculta() { ! fVisible "$1"; }
fViva() { kill -0 "$lngPid" 2>/dev/null; }
fMuerta() { ! fViva; }
readonly strPrincipal='^Miravel 1\.3$' strCaja='^Miravel$'

fTecla() { # window, keys...
    local strVentana=$1
    shift
    xdotool windowfocus "$(fVentana "$strVentana")" key --clearmodifiers "$@" 2>/dev/null
}

fAceptar() { # accepts the box that comes
    local intVez
    fEsperarA "a box" fVisible "$strCaja"
    local lngCaja
    lngCaja=$(fVentana "$strCaja")
    for ((intVez = 0; intVez < 40; ++intVez)); do
        [ "$(fVentana "$strCaja")" = "$lngCaja" ] || return 0
        fTecla "$strCaja" Return
        sleep 0.05
    done
    fFallo "the box stays"
}

fSinCaja() { fExigir "a box nobody expects" fOculta "$strCaja"; }

fCerrar() { # closes the main window and looks at the exit status
    "$cerrar_ventana" "$(fVentana "$strPrincipal")"
    fEsperarA "the end of the program" fMuerta
    wait "$lngPid"
    local intSalida=$?
    lngPid=
    fExigir "exit status $intSalida" test "$intSalida" -eq 0
}

fFin() { # expected exit status: the program ends by itself
    fEsperarA "the end of the program" fMuerta
    wait "$lngPid"
    local intSalida=$?
    lngPid=
    fExigir "exit status $intSalida instead of $1" test "$intSalida" -eq "$1"
}

fSelec() { # root: the stored current file
    sed -n 's/\r$//; s/^SELEC=//p' "$1/Miravel.ini" 2>/dev/null
}
fSelecEs() { [ "$(fSelec "$1")" = "$2" ]; }
fHaySelec() { [ -n "$(fSelec "$1")" ]; }
fPaso() { fTecla "$strPrincipal" "$1" && fEsperarUnPoco fSelecEs "$archivo" "$2"; } # key, file
fConLetra() { xdotool key "$1" && fEsperarUnPoco fVisible "$2"; } # key, window: nobody sets the focus
fHuella() { stat -c '%s %y %i' "$1" && sha256sum <"$1"; }

# Paths of the listed files, in the order of the list: by date, as the catalogue has them.
fLista() { # root
    tr -d '\r' <"$1/Miravel.dat" | paste -d '\t' - - - | grep -aviE '/x_' |
        grep -aiE '^[^	]*\.(jpg|mpg|avi|wmv|3gp|flv|mov|mp4)	' |
        LC_ALL=C sort -s -t '	' -k 2,2 | cut -f 1
}

fArchivoPequeno() { # root: a few photos of the large archive
    mkdir -p "$1/uno" "$1/dos"
    find "$archivo" -name '*.jpg' -size -200k -not -path '*/[Xx]_*' -print0 | sort -z |
        head -z -n 6 | xargs -0 cp -pt "$1/uno"
    cp -p "$1/uno/"* "$1/dos"
}

# --- The tests ---

fPruebaFirstStart() {
    fArrancar miravel "___$archivo"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$archivo"
    fExigir "window title" fVisible "$strPrincipal"
    fSinCaja
    mapfile -t lstRutas < <(fLista "$archivo")
    local intUltima=$((${#lstRutas[@]} - 1))
    fExigir "the archive has films and photos" test "$intUltima" -gt 100
    fEsperarA "first" fSelecEs "$archivo" "${lstRutas[0]}"
    fTecla "$strPrincipal" F12
    fEsperarA "F12" fSelecEs "$archivo" "${lstRutas[1]}"
    fTecla "$strPrincipal" F12
    fEsperarA "F12 again" fSelecEs "$archivo" "${lstRutas[2]}"
    fTecla "$strPrincipal" shift+F12
    fEsperarA "Shift+F12" fSelecEs "$archivo" "${lstRutas[intUltima]}"
    fTecla "$strPrincipal" F11
    fEsperarA "F11" fSelecEs "$archivo" "${lstRutas[intUltima - 1]}"
    fCerrar
}

fPruebaSecondStart() {
    local strHuella
    strHuella=$(fHuella "$archivo/Miravel.dat")
    fArrancar miravel "___$archivo/"
    fEsperarA "the window" fVisible "$strPrincipal"
    # The file of last time is current: one step back leads to the one before it. Keys that come
    # while the list is being filled are dropped.
    local strAntes=${lstRutas[${#lstRutas[@]} - 3]}
    fEsperarA "F11" fPaso F11 "$strAntes"
    # Letters reach the commands although no window manager has made the window the active one.
    fEsperarA "the EXIF window" fConLetra i '^Información EXIF$'
    fTecla '^Información EXIF$' Escape
    fEsperarA "its end" fOculta '^Información EXIF$'
    fEsperarA "the date correction" fConLetra shift+w '^Fechas$'
    fTecla '^Fechas$' Escape
    fEsperarA "its end" fOculta '^Fechas$'
    fSinCaja
    fCerrar
    fExigir "the catalogue is as it was" test "$strHuella" = "$(fHuella "$archivo/Miravel.dat")"
}

fPruebaEnterOpensTheFileOnce() {
    # A path with blanks and accents.
    local intPos strRuta='' intCual=0
    for intPos in "${!lstRutas[@]}"; do
        if [[ ${lstRutas[intPos]} == *' '* && ${lstRutas[intPos]} == *[ñáéíóú]* ]]; then
            strRuta=${lstRutas[intPos]} intCual=$intPos
            break
        fi
    done
    fExigir "a name with blanks and accents" test -n "$strRuta"
    sed -i "s|^SELEC=.*|SELEC=$strRuta\r|" "$archivo/Miravel.ini"
    rm -f "$ABIERTOS"
    fArrancar miravel "___$archivo"
    fEsperarA "the window" fVisible "$strPrincipal"
    fEsperarA "F12" fPaso F12 "${lstRutas[intCual + 1]}"
    fTecla "$strPrincipal" F11
    fEsperarA "the file" fSelecEs "$archivo" "$strRuta"
    fTecla "$strPrincipal" Return
    fEsperarA "opened" test -s "$ABIERTOS"
    # What comes afterwards shows that the key was handled to its end.
    fTecla "$strPrincipal" F12
    fEsperarA "F12" fSelecEs "$archivo" "${lstRutas[intCual + 1]}"
    fExigir "opened once, with its exact path: $(<"$ABIERTOS")" \
        test "$(<"$ABIERTOS")" = "<$strRuta>"
    fCerrar
}

fPruebaProgramInTheArchive() {
    local raiz="$carpeta/archivo propio"
    fArchivoPequeno "$raiz"
    cp "$miravel" "$raiz/miravel"
    cd / || return
    fArrancar "$raiz/miravel"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fExigir "its own folder" test "$(fLista "$raiz" | wc -l)" -eq 12
    fExigir "the program is recorded, too" grep -qF "$raiz/miravel" "$raiz/Miravel.dat"
    fCerrar
}

fPruebaMissingRoot() {
    fArrancar miravel "___$carpeta/no existe"
    fAceptar
    fFin 1
    fExigir "no window" fOculta "$strPrincipal"
}

fPruebaDateFormat() {
    mkdir -p "$carpeta/locales"
    if ! localedef -i en_US -f UTF-8 "$carpeta/locales/en_US.UTF-8" 2>/dev/null ||
        ! localedef -i es_ES -f UTF-8 "$carpeta/locales/es_ES.UTF-8" 2>/dev/null; then
        echo "SKIP: $strPrueba: no sources of locales"
        return
    fi
    export LOCPATH="$carpeta/locales"
    fArrancar env LC_ALL=en_US.UTF-8 "$carpeta/bin/miravel" "___$archivo"
    fAceptar
    fFin 1
    fArrancar env LC_ALL=es_ES.UTF-8 "$carpeta/bin/miravel" "___$archivo"
    unset LOCPATH
    fEsperarA "the window" fVisible "$strPrincipal"
    fSinCaja
    fCerrar
}

fPruebaBadSetting() {
    local raiz=$carpeta/mal
    fArchivoPequeno "$raiz"
    printf '[GENERAL]\r\nAncho = 2000\r\nTAM_MINI=abc\r\notra=1' >"$raiz/Miravel.ini"
    local strHuella
    strHuella=$(fHuella "$raiz/Miravel.ini")
    fArrancar miravel "___$raiz"
    fAceptar
    fFin 1
    fExigir "the file is as it was" test "$strHuella" = "$(fHuella "$raiz/Miravel.ini")"
    fExigir "no catalogue" test ! -e "$raiz/Miravel.dat"
}

# Becomes the program, without the rights of root, for whom permission bits do not hold.
fComoNadie() {
    [ "$(id -u)" -eq 0 ] || exec "$@"
    mkdir -p "$carpeta/nadie/ejecucion"
    chown -R 65534:65534 "$carpeta/nadie"
    chmod 700 "$carpeta/nadie/ejecucion"
    export HOME="$carpeta/nadie" XDG_RUNTIME_DIR="$carpeta/nadie/ejecucion"
    export ABIERTOS="$carpeta/nadie/abiertos"
    exec setpriv --reuid 65534 --regid 65534 --clear-groups "$@"
}

fPruebaReadOnlyRoot() {
    local raiz=$carpeta/lectura
    fArchivoPequeno "$raiz"
    fArrancar miravel "___$raiz"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fCerrar
    rm "$raiz/Miravel.ini"
    chmod 555 "$raiz"
    local strAntes
    strAntes=$(ls -lA --time-style=full-iso "$raiz")
    local abiertos=$ABIERTOS
    [ "$(id -u)" -ne 0 ] || abiertos=$carpeta/nadie/abiertos
    rm -f "$abiertos"
    fArrancar fComoNadie "$carpeta/bin/miravel" "___$raiz"
    fEsperarA "the window" fVisible "$strPrincipal"
    fEsperarA "Enter opens the first file" fAbre "$abiertos"
    fExigir "its path" test "$(head -n 1 "$abiertos")" = "<$(fLista "$raiz" | head -n 1)>"
    fSinCaja
    fCerrar
    fExigir "nothing changed" test "$strAntes" = "$(ls -lA --time-style=full-iso "$raiz")"
    chmod 755 "$raiz"
}

fAbre() { fTecla "$strPrincipal" Return && fEsperarUnPoco test -s "$1"; }

fPruebaUnreadableFolder() {
    local raiz=$carpeta/trozos
    fArchivoPequeno "$raiz"
    mkdir -p "$raiz/cerrada/debajo"
    cp -p "$raiz/uno/"* "$raiz/cerrada"
    [ "$(id -u)" -ne 0 ] || chown -R 65534:65534 "$raiz"
    chmod 0 "$raiz/cerrada"
    fArrancar fComoNadie "$carpeta/bin/miravel" "___$raiz"
    fAceptar # the catalogue is going to be made
    fAceptar # the folder cannot be read
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fSinCaja
    fExigir "the rest is listed" test "$(fLista "$raiz" | wc -l)" -eq 12
    fCerrar
    chmod 755 "$raiz/cerrada"
}

fPruebaKilledDuringABuild() {
    local raiz=$carpeta/matado lngPregunta strHuella
    fArchivoPequeno "$raiz"
    [ "$(id -u)" -ne 0 ] || chown -R 65534:65534 "$raiz"
    fArrancar fComoNadie "$carpeta/bin/miravel" "___$raiz"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    strHuella=$(fHuella "$raiz/Miravel.dat")
    cp -p "$raiz/uno/"*.jpg "$raiz"
    chmod 0 "$raiz/dos"
    fEsperarA "the question" fPregunta
    lngPregunta=$(fVentana "$strCaja")
    fTecla "$strCaja" Tab Return # from No to Yes
    # The box about the folder holds the build in its middle.
    fEsperarA "the box about the folder" fOtraCaja "$lngPregunta"
    fExigir "the build is under way" fRestos "$raiz"
    kill -KILL "$lngPid"
    wait "$lngPid" 2>/dev/null
    lngPid=
    fExigir "the catalogue is as it was" test "$strHuella" = "$(fHuella "$raiz/Miravel.dat")"
    chmod 755 "$raiz/dos"
    fArrancar fComoNadie "$carpeta/bin/miravel" "___$raiz"
    fEsperarA "the window" fVisible "$strPrincipal"
    fEsperarA "the question" fPregunta
    fTecla "$strCaja" Tab Return
    fEsperarA "the new catalogue" fTiene "$raiz" 18
    fExigir "nothing is left over" fSinRestos "$raiz"
    fEsperarA "the end of the build" fOculta '^Analizando'
    fSinCaja
    fCerrar
}

fPregunta() { fTecla "$strPrincipal" F5 && fEsperarUnPoco fVisible "$strCaja"; }
fOtraCaja() { fVisible "$strCaja" && [ "$(fVentana "$strCaja")" != "$1" ]; } # window of the first
fTiene() { [ "$(fLista "$1" | wc -l)" -eq "$2" ]; } # root, number of listed files
fRestos() { find "$1" -maxdepth 1 -name '*Miravel.dat*' -not -name Miravel.dat | grep -q .; }
fSinRestos() { ! fRestos "$1"; }

fServidor || {
    echo "FAIL: the X server does not start" >&2
    exit 1
}
fEntorno
archivo="$carpeta/Archivo de la familia"
"$miravel_demo" "$archivo" >"$carpeta/demo.log" 2>&1 || {
    cat "$carpeta/demo.log" >&2
    exit 1
}
for strPrueba in fPruebaFirstStart fPruebaSecondStart fPruebaEnterOpensTheFileOnce \
    fPruebaProgramInTheArchive fPruebaMissingRoot fPruebaDateFormat fPruebaBadSetting \
    fPruebaReadOnlyRoot fPruebaUnreadableFolder fPruebaKilledDuringABuild; do
    intAntes=$intFallos
    "$strPrueba"
    if [ -n "$lngPid" ]; then
        kill -KILL "$lngPid" 2>/dev/null
        wait "$lngPid" 2>/dev/null
        lngPid=
    fi
    [ "$intFallos" -gt "$intAntes" ] && sed 's/^/    /' "$carpeta/salida" >&2
    [ "$intFallos" -gt "$intAntes" ] || echo "PASS: $strPrueba"
done
exit $((intFallos > 0))
