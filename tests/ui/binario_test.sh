#!/usr/bin/env bash
# The program as the user has it: how it starts, and what it does where it must not write or read.
# binario_test.sh MIRAVEL MIRAVEL_DEMO CERRAR_VENTANA DISCO_PARADO
# shellcheck disable=SC2317,SC2154 # most functions are called through variables
# shellcheck source=binario_comun.sh
. "$(dirname "$0")/binario_comun.sh"

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

fEmpezarComoNadie() { # root: a small archive of somebody who may not read all, with its first file shown
    fArchivoPequeno "$1"
    [ "$(id -u)" -ne 0 ] || chown -R 65534:65534 "$1"
    fArrancar fComoNadie "$carpeta/bin/miravel" "___$1"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$1"
}

# One box for each cell, which all can be left by closing the window beside the first.
fPruebaClosingBesideABox() {
    local raiz=$carpeta/dañado
    fEmpezarComoNadie "$raiz"
    find "$raiz/uno" "$raiz/dos" -name '*.jpg' -exec sh -c 'for f; do rm "$f"; ln -s "$f" "$f"; done' - {} +
    fEsperarA "the first box" fMiniaturas
    fAceptar
    fEsperarA "the second box" fVisible "$strCaja"
    fCerrar
}
fMiniaturas() { fTecla "$strPrincipal" m && fEsperarUnPoco fVisible "$strCaja"; }

fAbre() { fTecla "$strPrincipal" Return && fEsperarUnPoco test -s "$1"; }

# Whatever waits for the disk, closing the window ends the process.
fPruebaClosingWhileTheDiskDoesNotAnswer() {
    local raiz=$carpeta/parado parado=$carpeta/no strTecla
    fArchivoPequeno "$raiz"
    fArrancar miravel "___$raiz"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fCerrar
    for strTecla in F12 i m; do # the settings, a command, the thumbnails
        rm "$raiz/Miravel.ini"
        fArrancar env LD_PRELOAD="$disco_parado" DISCO="$raiz" PARADO="$parado" miravel "___$raiz"
        fEsperarA "the first file shown again" fHaySelec "$raiz"
        : >"$parado"
        fEsperarA "$strTecla asks the disk" fPide "$strTecla" "$parado"
        fCerrar
        rm "$parado"
    done
}
fPide() { fTecla "$strPrincipal" "$1" && fEsperarUnPoco test -s "$2"; } # key, file of the shim

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
    fEmpezarComoNadie "$raiz"
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
fTiene() { [ "$(fLista "$1" | wc -l)" -eq "$2" ]; } # root, number of listed files
fRestos() { find "$1" -maxdepth 1 -name '*Miravel.dat*' -not -name Miravel.dat | grep -q .; }
fSinRestos() { ! fRestos "$1"; }

fPreparar
for strPrueba in fPruebaFirstStart fPruebaSecondStart fPruebaProgramInTheArchive \
    fPruebaMissingRoot fPruebaDateFormat fPruebaBadSetting \
    fPruebaReadOnlyRoot fPruebaClosingBesideABox fPruebaClosingWhileTheDiskDoesNotAnswer \
    fPruebaUnreadableFolder fPruebaKilledDuringABuild; do
    fProbar "$strPrueba"
    fMatar
done
exit $((intFallos > 0))
