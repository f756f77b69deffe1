# shellcheck shell=bash disable=SC2034,SC2317
# What the tests of the programs themselves share: an X server of their own, the way to steer a
# program from outside, and what it leaves on the disk. Sourced with MIRAVEL MIRAVEL_DEMO
# CERRAR_VENTANA [DISCO_PARADO] as arguments; an empty MIRAVEL is none.
set -uo pipefail

miravel=$1
miravel_demo=$2
cerrar_ventana=$3
disco_parado=${4:-}
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

fEsperarVeces() { # number, command...: until it succeeds, every 50 ms, so often at most
    local intVez intVeces=$1
    shift
    for ((intVez = 0; intVez < intVeces; ++intVez)); do
        "$@" && return 0
        sleep 0.05
    done
    return 1
}
fEsperar() { fEsperarVeces 400 "$@"; }      # command...: 20 seconds at most
fEsperarUnPoco() { fEsperarVeces 10 "$@"; } # command...: half a second at most

fEsperarA() { # text, command...
    local strFrase=$1
    shift
    fEsperar "$@" && return
    # What comes next would wait in vain, too.
    fFallo "waited in vain: $strFrase"
    if [ -n "$lngPid" ] && fMuerta; then
        wait "$lngPid"
        echo "    the program has ended with status $?" >&2
    fi
    sed 's/^/    /' "$carpeta/salida" >&2
    exit 1
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
    mkdir -p "$carpeta"/{bin,casa,ejecucion,temporal,cache}
    chmod 1777 "$carpeta/temporal"
    chmod 700 "$carpeta/ejecucion"
    cat >"$carpeta/bin/xdg-open" <<'FIN'
#!/bin/sh
for argumento in "$@"; do printf '<%s>' "$argumento" >>"$ABIERTOS"; done
echo >>"$ABIERTOS"
FIN
    chmod 755 "$carpeta/bin/xdg-open"
    [ -z "$miravel" ] || cp "$miravel" "$carpeta/bin/miravel"
    export ABIERTOS=$carpeta/abiertos
    export PATH=$carpeta/bin:$PATH
    export HOME=$carpeta/casa XDG_RUNTIME_DIR=$carpeta/ejecucion
    export TMPDIR=$carpeta/temporal XDG_CACHE_HOME=$carpeta/cache XDG_STATE_HOME=$carpeta/estado
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

fOtraCaja() { fVisible "$strCaja" && [ "$(fVentana "$strCaja")" != "$1" ]; } # window of the first
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

fPreparar() { # the display, what the program finds around it, and the demonstration archive
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
}

fMatar() {
    [ -n "$lngPid" ] || return 0
    kill -KILL "$lngPid" 2>/dev/null
    wait "$lngPid" 2>/dev/null
    lngPid=
}

fProbar() { # test
    local intAntes=$intFallos
    strPrueba=$1
    "$strPrueba"
    [ "$intFallos" -gt "$intAntes" ] && sed 's/^/    /' "$carpeta/salida" >&2
    [ "$intFallos" -gt "$intAntes" ] || echo "PASS: $strPrueba"
}
