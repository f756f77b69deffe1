#!/usr/bin/env bash
# One long visit to the demonstration archive: every command once, by the keys and mouse clicks a
# user would give, and what the disk holds afterwards.
# escenario_test.sh MIRAVEL MIRAVEL_DEMO CERRAR_VENTANA MIRAR_PANTALLA
# shellcheck disable=SC2317,SC2154 # most functions are called through variables
# shellcheck source=binario_comun.sh
. "$(dirname "$0")/binario_comun.sh"
mirar_pantalla=$4

# --- The program's answer ---

fALaPrincipal() { xdotool windowfocus "$lngPrincipal" key --clearmodifiers "$@"; }

fLineas() { wc -l <"$ABIERTOS"; }
fMasLineas() { [ "$(fLineas)" -gt "$1" ]; }
fUltimaAbierta() { tail -n 1 "$ABIERTOS"; }
fAbierta() { grep -qxF "<$1>" "$ABIERTOS"; }

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
fActual() { fListo && fUltimaAbierta | sed 's/^<//; s/>$//'; }
fExigirActual() { # text, file
    local strHay
    strHay=$(fActual)
    fExigir "$1: the current file is $strHay instead of $2" test "$strHay" = "$2"
}

fOrden() { # keys...
    fListo
    fALaPrincipal "$@"
}
fDebeIrA() { # key, file
    fOrden "$1"
    fExigirActual "$1" "$2"
}
fRaton() { xdotool mousemove "$1" "$2" click "${3:-1}"; } # x, y, button
fPulsar() { # x, y, button
    fListo
    fRaton "$@"
}
fCon() { # key held down, x, y
    fListo
    xdotool windowfocus "$lngPrincipal" keydown "$1" mousemove "$2" "$3" click 1 keyup "$1"
}
fRepetir() { # times, key
    local intVez
    for ((intVez = 0; intVez < $1; ++intVez)); do echo "$2"; done
}

# An open menu has no title: it is the window that is not the main one.
fAbierto() {
    xdotool search --onlyvisible --class '^miravel$' 2>/dev/null | grep -vx "$lngPrincipal" | tail -n 1
}
fHayMenu() { [ -n "$(fAbierto)" ]; }
fSinMenu() { ! fHayMenu; }

# Chooses an entry of a menu by the arrows: which menu from the left (0 is the first), which entry
# from above (1 is the first) or, negative, from below. Disabled ones do not count.
fMenu() { # menu, entry
    fListo
    # shellcheck disable=SC2046
    fALaPrincipal Alt_L $(fRepetir "$1" Right) Down
    fEsperarA "the menu" fHayMenu
    # shellcheck disable=SC2046
    xdotool key $(fRepetir $(($2 > 0 ? $2 - 1 : 0)) Down) $(fRepetir $(($2 < 0 ? -$2 : 0)) Up) Return
}
fOpcion() { fMenu 1 "$1"; }
readonly intCarpeta=1 intCopiar=2 intTotal=3 intActualizar=4 intFiltrar=5
readonly intInvertir=-1 intNada=-2 intPantalla=-3 intTodo=-4
readonly intGrande=-5 intMedio=-6 intPequeno=-7 intTodos=-8 intVideos=-9 intFotos=-10 intQuitar=-11

fDialogo() { # title, then keys...: waits for a window, gives it keys, waits for its end
    local strTitulo=$1
    shift
    fEsperarA "the window $strTitulo" fVisible "$strTitulo"
    fTecla "$strTitulo" "$@"
    fEsperarA "the end of $strTitulo" fOculta "$strTitulo"
}

fAjusteEs() { # key, value
    [ "$(sed -n "s/\r\$//; s/^$1=//p" "$archivo/Miravel.ini")" = "$2" ]
}
fEsperarAjuste() { fEsperarA "$1=$2 in the settings" fAjusteEs "$@"; }

fVista() { "$mirar_pantalla" 560 200 700 600; } # the panel, right of wherever the splitter stands
fVistaFirme() { # once it stays as it is
    local strHay=- strAntes=
    while [ "$strHay" != "$strAntes" ]; do
        strAntes=$strHay
        sleep 0.1
        strHay=$(fVista)
    done
    echo "$strHay"
}
fCambiaVista() { [ "$(fVista)" != "$1" ]; }
fVistaEs() { [ "$(fVista)" = "$1" ]; }

# --- What lies on the disk ---

# Every file of the archive but what the program itself writes: path, then inode, size and access
# time, modification time, content. The access times lie in the future, where reading leaves them
# alone, unless the file system notes every reading.
fInventario() {
    find "$archivo" -type f -not -name 'Miravel.*' -not -name 'Ayuda_*' -print0 | sort -z >"$carpeta/nombres"
    paste -d '|' <(xargs -0 stat -c "%n|%i %s $strAcceso|%.9Y" <"$carpeta/nombres") \
        <(xargs -0 sha256sum <"$carpeta/nombres" | cut -c -64) | sort
}
fExigirInventario() { # text
    fInventario >"$carpeta/hay"
    fExigir "$1" diff "$carpeta/debe" "$carpeta/hay"
}

fNombreBaul() { printf '%s.%s\n' "$(date -r "$1" +%Y.%m.%d)" "$(basename "$1")"; }
fEsCopia() { cmp -s "$1" "$2" && [ "$(stat -c '%y %a' "$1")" = "$(stat -c '%y %a' "$2")" ]; }
fTiene() { [ "$(find "$1" -mindepth 1 2>/dev/null | wc -l)" -eq "$2" ]; } # folder, entries

# The Baúl gets exactly copies of these files, and is emptied behind the program's back.
fExigirBaul() { # text, files...
    local strFrase=$1 strRuta strFalta=
    shift
    fEsperarA "$strFrase: $# files in the Baúl" fTiene "$baul" $#
    fListo
    for strRuta in "$@"; do
        fEsCopia "$strRuta" "$baul/$(fNombreBaul "$strRuta")" || strFalta+=" $strRuta"
    done
    fExigir "$strFrase: no true copies of:$strFalta" test -z "$strFalta"
    fExigir "$strFrase: nothing else" fTiene "$baul" $#
    find "$baul" -mindepth 1 -delete
}

# --- Moving ---

fClave() { # mode, file: what the files of one step have in common
    case $1 in
    carpeta) dirname "$2" ;;
    dia) date -r "$2" +%F ;;
    semana) date -r "$2" +%G-%V ;;
    mes) date -r "$2" +%Y-%m ;;
    ano) date -r "$2" +%Y ;;
    esac
}
fSiguienteDistinta() { # mode, position: position of the first file of the next step
    local intPos strClave
    strClave=$(fClave "$1" "${lstRutas[$2]}")
    for ((intPos = $2 + 1; intPos < ${#lstRutas[@]}; ++intPos)); do
        [ "$(fClave "$1" "${lstRutas[intPos]}")" = "$strClave" ] || break
    done
    echo "$intPos"
}

fPruebaSteps() {
    local strModo intPos=0
    fDebeIrA F12 "${lstRutas[1]}"
    fDebeIrA F12 "${lstRutas[2]}"
    fDebeIrA F11 "${lstRutas[1]}"
    fDebeIrA shift+F12 "${lstRutas[intUltima]}"
    fDebeIrA shift+F11 "${lstRutas[0]}"
    for strModo in carpeta dia semana mes ano; do
        fOrden less
        intPos=$(fSiguienteDistinta "$strModo" "$intPos")
        fDebeIrA F12 "${lstRutas[intPos]}"
    done
    # By years: back to the last file of the year before.
    fDebeIrA F11 "${lstRutas[intPos - 1]}"
    fOrden greater greater # past the last mode, and on to folders
    fDebeIrA shift+F11 "${lstRutas[0]}"
    intPos=$(fSiguienteDistinta carpeta 0)
    fDebeIrA F12 "${lstRutas[intPos]}"
    fDebeIrA F11 "${lstRutas[0]}" # to the first file of the folder before
    fOrden Escape
    fDebeIrA F12 "${lstRutas[1]}"
    # The buttons follow the mode, too.
    fOrden less less
    fPulsar 126 38
    fExigirActual "the button Siguiente by days" "${lstRutas[$(fSiguienteDistinta dia 1)]}"
    fOrden Escape
    fPulsar 159 38
    fExigirActual "the button Ultima" "${lstRutas[intUltima]}"
    fPulsar 92 38
    fExigirActual "the button Anterior" "${lstRutas[intUltima - 1]}"
    fPulsar 60 38
    fExigirActual "the button Primera" "${lstRutas[0]}"
}

fPruebaGoToADate() {
    local lngCaja
    fOrden d
    fEsperarA "the question" fVisible "$strCaja"
    lngCaja=$(fVentana "$strCaja")
    fTecla "$strCaja" 3 1 0 2 2 0 1 0 Return
    fEsperarA "the question again" fOtraCaja "$lngCaja"
    fDialogo "$strCaja" 1 7 0 2 2 0 0 7 Return
    fExigirActual "the first of that day" "$archivo/2007/Nieve en el Pirineo/DSC_1001.JPG"
    fOrden d
    fDialogo "$strCaja" 0 1 0 1 2 0 0 1 Escape
    fExigirActual "cancelled" "$archivo/2007/Nieve en el Pirineo/DSC_1001.JPG"
}

# --- Other windows and programs ---

fPruebaOpening() {
    local strRuta
    fListo
    strRuta=$(fActual)
    fOrden c
    fEsperarA "C opens the folder" fAbierta "$(dirname "$strRuta")/"
    : >"$ABIERTOS"
    fOpcion "$intCarpeta"
    fEsperarA "the menu opens the folder" fAbierta "$(dirname "$strRuta")/"
    fOrden b
    fEsperarA "B opens the Baúl" fAbierta "$baul/"
    fOrden F1
    fEsperarA "F1 opens the help" fAbierta "$archivo/Ayuda_Miravel.htm"
    cp "$archivo/Ayuda_Miravel.htm" "$carpeta/ayuda"
    fExigir "the help is whole" grep -q '</body></html>' "$carpeta/ayuda"
    : >"$ABIERTOS"
    fMenu 2 1
    fEsperarA "the menu opens the help" fAbierta "$archivo/Ayuda_Miravel.htm"
    fExigir "the same page" cmp -s "$carpeta/ayuda" "$archivo/Ayuda_Miravel.htm"
}

# Without a window manager nobody gives the focus back when a box closes, so that this window is not
# the active one; the keys work after a walk through its menus nevertheless.
fPruebaMenusWithoutFocus() {
    fDebeIrA shift+F11 "${lstRutas[0]}"
    fOpcion "$intTotal"
    fDialogo '^Totales$' Return
    xdotool mousemove 900 500 key Alt_L Right Down
    fEsperarA "the menu" fHayMenu
    xdotool key Escape Escape
    fEsperarA "its end" fSinMenu
    fDebeIrA F12 "${lstRutas[1]}"
}

fPruebaWindows() {
    fOrden i
    fDialogo '^Información EXIF$' Escape
    fPulsar 199 38
    fDialogo '^Información EXIF$' Escape
    fMenu 2 2
    fDialogo '^Acerca de' Return
    fOpcion "$intTotal"
    fDialogo '^Totales$' Return
    fPulsar 239 38
    fEsperarA "the keys" fHayMenu
    xdotool key Down Down Return
    fListo
    fSinCaja
}

# --- The picture ---

fOrdenVista() { # keys...: the panel must change
    local strAntes
    fListo
    strAntes=$(fVistaFirme)
    fALaPrincipal "$@"
    fEsperarA "$*: another view" fCambiaVista "$strAntes"
}
fMenuFoto() { # entry
    fPulsar $((600 + 40 * $1)) 500 3 # elsewhere each time: no double clicks
    fEsperarA "the zoom menu" fHayMenu
    # shellcheck disable=SC2046
    xdotool key $(fRepetir "$1" Down) Return
}

fPruebaZoom() {
    local strAjustada strCien strMaxima strAntes intEntrada
    fDebeIrA shift+F12 "${lstRutas[intUltima]}"
    strCien=$(fVistaFirme) # at the start
    fOrdenVista j
    strAjustada=$(fVistaFirme)
    fOrdenVista KP_Add
    fEsperarA "from fitted to 100 %" fVistaEs "$strCien"
    fOrdenVista KP_Add
    fOrdenVista KP_Add
    strMaxima=$(fVistaFirme)
    fOrden KP_Add
    fListo
    fExigir "400 % is the end" fVistaEs "$strMaxima"
    fOrdenVista KP_Subtract
    fOrden j
    fEsperarA "J fits it" fVistaEs "$strAjustada"
    for intEntrada in 8 7 6 4; do
        strAntes=$(fVistaFirme)
        fMenuFoto "$intEntrada"
        fEsperarA "entry $intEntrada of the menu" fCambiaVista "$strAntes"
    done
    fMenuFoto 5
    fEsperarA "100 % in the menu" fVistaEs "$strCien"
    fMenuFoto 3
    fEsperarA "400 % in the menu" fVistaEs "$strMaxima"
    fMenuFoto 2
    fEsperarA "Ajustar in the menu" fVistaEs "$strAjustada"
}

# --- Thumbnails ---

# Middle of a cell of the largest thumbnails: 2240 twips each, in a panel that begins at 3000.
fX() { echo $((200 + 4 + $1 * 149 + 75)); }
fY() { echo $((84 + $1 * 149 + 75)); }
readonly intColumnas=7 intCeldas=35

fPruebaThumbnails() {
    local strFoto
    fDebeIrA shift+F11 "${lstRutas[0]}"
    strFoto=$(fVistaFirme)
    fOrdenVista m
    fOrdenVista m
    fEsperarA "M once more" fVistaEs "$strFoto"
    fPulsar 20 38
    fEsperarA "the button ThumbNail" fCambiaVista "$strFoto"
    fDebeIrA F12 "${lstRutas[intCeldas]}"
    fDebeIrA F11 "${lstRutas[0]}"
    fOrden KP_Subtract
    fEsperarAjuste TAM_MINI 1
    fOrden KP_Subtract
    fEsperarAjuste TAM_MINI 0
    fOrden KP_Add
    fEsperarAjuste TAM_MINI 1
    fOpcion "$intPequeno"
    fEsperarAjuste TAM_MINI 0
    fOpcion "$intMedio"
    fEsperarAjuste TAM_MINI 1
    fOpcion "$intGrande"
    fEsperarAjuste TAM_MINI 2
}

fPruebaClicksOnCells() {
    fPulsar "$(fX 3)" "$(fY 0)"
    fExigirActual "a click" "${lstRutas[3]}"
    fCon ctrl "$(fX 1)" "$(fY 0)"
    fExigirActual "Ctrl and a click" "${lstRutas[1]}"
    fOrden a
    fExigirBaul "Ctrl and a click" "${lstRutas[1]}"
    fPulsar "$(fX 2)" "$(fY 0)"
    fCon ctrl "$(fX 4)" "$(fY 0)"
    # From the cell that was current to the clicked one, both turned round: the first loses its tick.
    fCon shift "$(fX 0)" "$(fY 1)"
    fExigirActual "Shift and a click" "${lstRutas[intColumnas]}"
    fOrden a
    fExigirBaul "Shift and a click" "${lstRutas[@]:5:3}"
    fPulsar "$(fX 5)" "$(fY 1)" 3
    fExigirActual "the right button" "${lstRutas[intColumnas + 5]}"
    fDebeIrA F12 "${lstRutas[intColumnas + 6]}" # one picture, not a page
    fMenuFoto 1
    fDebeIrA F12 "${lstRutas[intCeldas]}"
}

# --- Ticks, copies, the Baúl ---

fPruebaSelection() {
    fDebeIrA shift+F11 "${lstRutas[0]}"
    fDebeIrA F12 "${lstRutas[intCeldas]}"
    fOpcion "$intPantalla"
    fOrden a
    fExigirBaul "Seleccionar Pantalla" "${lstRutas[@]:intCeldas:intCeldas}"
    fOpcion "$intTodo"
    fOpcion "$intNada"
    fOrden a
    fExigirBaul "Deseleccionar Todo" "${lstRutas[intCeldas]}"
    fOpcion "$intTodo"
    fCon ctrl "$(fX 2)" "$(fY 0)"
    fOpcion "$intInvertir"
    fOrden a
    fExigirBaul "Invertir Seleccion" "${lstRutas[intCeldas + 2]}"
}

fPruebaBaulMenu() {
    fRatonMenu 1
    fEsperarA "Añadir" fTiene "$baul" 1
    : >"$ABIERTOS"
    fRatonMenu 3
    fEsperarA "Mostrar" fAbierta "$baul/"
    fRatonMenu 2
    fDialogo "$strCaja" Return # Cancelar is the default
    fListo
    fExigir "still there" fTiene "$baul" 1
    mkdir "$baul/a mano"
    touch "$baul/.oculto"
    fRatonMenu 2
    fDialogo "$strCaja" Tab Return
    fEsperarA "only the folder is left" fTiene "$baul" 1
    rmdir "$baul/a mano"
}
fRatonMenu() { # entry of the three of the first menu
    fPulsar 30 9
    fEsperarA "the menu" fHayMenu
    local X Y WIDTH HEIGHT
    eval "$(xdotool getwindowgeometry --shell "$(fAbierto)")"
    fRaton $((X + WIDTH / 2)) $((Y + HEIGHT * (2 * $1 - 1) / 6))
}

fPruebaCopies() {
    local copias="$carpeta/copias"
    mkdir "$copias"
    fPulsar "$(fX 1)" "$(fY 1)"
    fCon ctrl "$(fX 4)" "$(fY 1)"
    fCon ctrl "$(fX 0)" "$(fY 2)"
    local strUna=${lstRutas[intCeldas + intColumnas + 4]} strOtra=${lstRutas[intCeldas + 2 * intColumnas]}
    echo "an older file of that name" >"$copias/$(basename "$strOtra")"
    fOpcion "$intCopiar"
    fDialogo '^Selecciona carpeta de destino:$' Escape
    fOpcion "$intCopiar"
    fEsperarA "the picker" fVisible '^Selecciona carpeta de destino:$'
    fTecla '^Selecciona carpeta de destino:$' ctrl+a
    xdotool type "$copias"
    fDialogo '^Selecciona carpeta de destino:$' Return
    fEsperarA "both copies" fTiene "$copias" 2
    fListo
    fExigir "a copy, byte by byte" fEsCopia "$strUna" "$copias/$(basename "$strUna")"
    fExigir "over the older one" fEsCopia "$strOtra" "$copias/$(basename "$strOtra")"
    fOrden a
    fExigirBaul "the ticks are gone" "$strOtra"
}

# --- The list ---

fPosDe() { # file: its position
    local intPos
    for intPos in "${!lstRutas[@]}"; do
        [ "${lstRutas[intPos]}" != "$1" ] || echo "$intPos"
    done
}
fFilaEn() { # y, x: position of the row there
    fPulsar "${2:-100}" "$1"
    fPosDe "$(fActual)"
}
fArriba() { # y, position of its row: y where the row begins
    local intDentro=$1 intFuera=$(($1 - 64)) intX=60 intEntre
    while ((intDentro - intFuera > 1)); do
        intEntre=$(((intDentro + intFuera) / 2))
        intX=$((200 - intX)) # aside, or two clicks in a row would be a double click
        if [ "$(fFilaEn "$intEntre" "$intX")" -eq "$2" ]; then
            intDentro=$intEntre
        else
            intFuera=$intEntre
        fi
    done
    echo "$intDentro"
}

fPruebaList() {
    local intUna intOtra intYUna intYOtra intAlto
    fDebeIrA shift+F11 "${lstRutas[0]}"
    intUna=$(fFilaEn 300)
    intOtra=$(fFilaEn 600)
    fExigir "rows from above" test "$intUna" -gt 0 -a "$intOtra" -gt $((intUna + 4))
    # A tick leaves the current file alone.
    fPulsar 10 300
    fExigirActual "a tick" "${lstRutas[intOtra]}"
    fOrden a
    fExigirBaul "the ticked row" "${lstRutas[intUna]}"
    fCon shift 100 300
    fExigirActual "Shift and a click" "${lstRutas[intUna]}"
    fOrden a
    fExigirBaul "Shift and a click" "${lstRutas[@]:intUna:intOtra - intUna + 1}"
    : >"$ABIERTOS"
    fRaton 100 600
    fEsperarA "a click" fSelecEs "$archivo" "${lstRutas[intOtra]}"
    fExigir "opens nothing" test ! -s "$ABIERTOS"
    xdotool click --repeat 2 --delay 40 1
    fEsperarA "a double click opens" fAbierta "${lstRutas[intOtra]}"
    # The header lies half a row above the first row.
    intYUna=$(fArriba 300 "$intUna")
    intYOtra=$(fArriba 600 "$intOtra")
    intAlto=$(((intYOtra - intYUna) / (intOtra - intUna)))
    local strAntes
    strAntes=$(fActual)
    fPulsar 100 $((intYUna - intUna * intAlto - intAlto / 2))
    fExigirActual "ordered by name" "$strAntes"
    fDebeIrA shift+F11 "$archivo/2009/Verano en Cádiz/20090714_IMG_0012.JPG"
    fPulsar 60 $((intYUna - intUna * intAlto - intAlto / 2)) # aside: no double click
    fDebeIrA shift+F11 "$archivo/2011/Otoño/Puesta de sol.avi"
}

fPruebaSplitter() {
    fListo
    xdotool mousemove 202 500 mousedown 1 mousemove 300 510 mousemove 401 520 mouseup 1
    fEsperarAjuste ANCHO $((401 * 15))
    fListo
    xdotool mousemove 403 500 mousedown 1 mousemove 300 510 mousemove 200 520 mouseup 1
    fEsperarAjuste ANCHO 3000
}

# --- What is listed ---

fListados() { # text, files...: the list holds exactly these
    fOpcion "$intTodo"
    fOrden a
    fExigirBaul "$@"
}

fPruebaRebuild() {
    local strHuella strAntes nueva="$archivo/2011/Nueva.jpg"
    fExigirInventario "nothing has changed so far"
    cp -p "${lstRutas[intUltima]}" "$nueva"
    touch -d '2024-02-29 10:11:12' "$nueva"
    mkdir "$archivo/X_oculta"
    cp -p "$nueva" "$archivo/X_oculta/otra.jpg"
    strHuella=$(fHuella "$archivo/Miravel.dat")
    strAntes=$(fActual)
    fOrden F5
    fDialogo "$strCaja" Return # No is the default
    fListo
    fExigir "nothing on No" test "$strHuella" = "$(fHuella "$archivo/Miravel.dat")"
    fOpcion "$intActualizar"
    fDialogo "$strCaja" Tab Return
    fEsperarA "the new catalogue" grep -qF "$nueva" "$archivo/Miravel.dat"
    fExigirActual "the same file" "$strAntes"
    fDebeIrA shift+F12 "$nueva"
    fExigir "every file with its date and size, the hidden ones too" test "$(fRegistros)" = "$(fFicheros)"
    mapfile -t lstRutas < <(fLista "$archivo")
    intUltima=$((${#lstRutas[@]} - 1))
    touch -a -d '+1 day' "$nueva" "$archivo/X_oculta/otra.jpg"
    fInventario >"$carpeta/debe"
}
# What the catalogue tells of every file but the program's own.
fRegistros() { tr -d '\r' <"$archivo/Miravel.dat" | paste -d '|' - - - | grep -v '/Miravel\.\|/Ayuda_' | sort; }
fFicheros() {
    find "$archivo" -type f -not -name 'Miravel.*' -not -name 'Ayuda_*' -printf '%p|%TY/%Tm/%Td %TH:%TM:%TS| %s \n' |
        sed 's/\.[0-9]*| /| /' | sort
}

fPruebaKinds() {
    mapfile -t lstVideos < <(printf '%s\n' "${lstRutas[@]}" | grep -iE '\.(avi|mov)$')
    fOpcion "$intVideos"
    fEsperarAjuste FOTOVIDEO 1
    fListados "only films" "${lstVideos[@]}"
    fOpcion "$intFotos"
    fEsperarAjuste FOTOVIDEO 0
    fDebeIrA shift+F11 "${lstRutas[0]}"
    fOpcion "$intTodos"
    fEsperarAjuste FOTOVIDEO 2
    fDebeIrA shift+F12 "${lstRutas[intUltima]}"
}

fPruebaFilter() {
    local strRuta
    fOrden f
    fEsperarA "the filter" fVisible "^Filtro \\(${#lstRutas[@]} archivos\\)$"
    fTecla '^Filtro' Tab Tab z z z Return
    fAceptar # nothing found
    fDialogo '^Filtro' ctrl+a G l o b o s Return
    fListados "by a word" "$archivo/2019/Globos en Segovia/Globos 0"{1,2,3,4,5}.jpg
    fOrden shift+f
    fDialogo "$strCaja" Return # Cancelar is the default
    fDebeIrA shift+F11 "$archivo/2019/Globos en Segovia/Globos 01.jpg"
    fOpcion "$intQuitar"
    fDialogo "$strCaja" Tab Return
    fDebeIrA shift+F11 "${lstRutas[0]}"
    fOpcion "$intFiltrar"
    fDialogo '^Filtro' 2 4 1 2 0 3 Tab 2 6 1 2 0 3 Return
    mapfile -t lstHallados < <(for strRuta in "${lstRutas[@]}"; do
        [[ $(date -r "$strRuta" +%F) =~ 2003-12-2[45] ]] && echo "$strRuta"
    done)
    fListados "by dates, the last day only at midnight" "${lstHallados[@]}"
    fOrden shift+f
    fDialogo "$strCaja" Tab Return
    fDebeIrA shift+F12 "${lstRutas[intUltima]}"
}

# --- Dates ---

fIrA() { # file and digits of its day
    fOrden d
    # shellcheck disable=SC2046
    fDialogo "$strCaja" $(fold -w 1 <<<"$2") Return
    fExigirActual "the day" "$1"
}

# A corrected file: the same one under the new name, with the new time; nothing else of it changes.
fCorregido() { # old path, new path, new date
    sed -i "s#^$1|\([^|]*\)|[^|]*#$2|\1|$(date -d "$3" +%s).000000000#" "$carpeta/debe"
    sort -o "$carpeta/debe" "$carpeta/debe"
}
fCopiasCatalogo() { find "$archivo" -maxdepth 1 -name 'Miravel.dat.*' | sort; }
fUnaCopiaMas() { [ "$(fCopiasCatalogo | wc -l)" -eq "$1" ]; }

fPruebaSearchAndCorrection() {
    local playa="$archivo/2009/Verano en Cádiz"
    local mala="$playa/20090718_IMG_0040.JPG"
    fIrA "$archivo/2013/Año Nuevo/DSC_3001.JPG" 31122013
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
    fEsperarA "a backup of the catalogue" fUnaCopiaMas 1
    fExigirActual "moved on" "$playa/20090716_IMG_0027.JPG"
    fCorregido "$mala" "$playa/20090718_20090718_IMG_0040.JPG" '2009-07-18 12:55:01'
    fExigir "the backup is the old catalogue" cmp -s "$carpeta/catalogo" "$(fCopiasCatalogo)"
    fExigirInventario "one file has changed"
    fExigir "and its record" test "$(fRegistros)" = "$(fFicheros)"
}

fPruebaCorrectionOfSeveral() {
    local fiesta="$archivo/2009/Cumpleaños de Íñigo"
    fIrA "$fiesta/IMG_0101.JPG" 21112009
    fOrden w # its date is right
    fListo
    fExigir "W leaves right dates alone" fOculta '^Fechas$'
    mapfile -t lstRutas < <(fLista "$archivo")
    local intPos
    intPos=$(fPosDe "$fiesta/IMG_0101.JPG")
    # The first two of this day, wherever their page shows them.
    local intCelda=$((intPos % intCeldas))
    fCon ctrl "$(fX $((intCelda % intColumnas)))" "$(fY $((intCelda / intColumnas)))"
    fCon ctrl "$(fX $(((intCelda + 1) % intColumnas)))" "$(fY $(((intCelda + 1) / intColumnas)))"
    fOrden shift+w
    fEsperarA "the dates" fVisible '^Fechas$'
    xdotool windowfocus "$(fVentana '^Fechas$')" type '22/11/2009 09:30'
    fDialogo '^Fechas$' shift+Tab shift+Tab space # "Cambiar y quedarse"
    fEsperarA "another backup" fUnaCopiaMas 2
    fExigirActual "stayed" "$fiesta/20091122_IMG_0102.JPG"
    fCorregido "$fiesta/IMG_0101.JPG" "$fiesta/20091122_IMG_0101.JPG" '2009-11-22 09:30:00'
    fCorregido "$fiesta/IMG_0102.JPG" "$fiesta/20091122_IMG_0102.JPG" '2009-11-22 09:30:00'
    fExigirInventario "two files have changed"
    fExigir "and their records" test "$(fRegistros)" = "$(fFicheros)"
}

fPruebaNothingElseHasChanged() {
    fListo
    fSinCaja
    fCerrar
    fExigirInventario "the archive is as it was but for that"
    fExigir "no temporary files" test -z "$(find "$carpeta" -name '.*.tmp' -o -name 'prueba_escritura.txt')"
    fExigir "nothing else in the folder for temporary files" test "$(ls -A "$TMPDIR")" = Miravel
    fExigir "what the program keeps in the archive" test 5 -eq \
        "$(find "$archivo" -maxdepth 1 \( -name 'Miravel.*' -o -name Ayuda_Miravel.htm \) | wc -l)"
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
for strPrueba in fPruebaSteps fPruebaGoToADate fPruebaOpening \
    fPruebaMenusWithoutFocus fPruebaWindows fPruebaZoom \
    fPruebaThumbnails fPruebaClicksOnCells fPruebaSelection fPruebaBaulMenu fPruebaCopies \
    fPruebaList fPruebaSplitter fPruebaRebuild fPruebaKinds fPruebaFilter \
    fPruebaSearchAndCorrection fPruebaCorrectionOfSeveral fPruebaNothingElseHasChanged; do
    fProbar "$strPrueba"
done
exit $((intFallos > 0))
