#!/usr/bin/env bash
# The package as the user has it: installed by dpkg into a root folder of its own, which needs no
# rights of root, started from there, removed again. paquete_test.sh DEB MIRAVEL_DEMO CERRAR_VENTANA
# shellcheck disable=SC1091,SC2034,SC2154,SC2317 # of binario_comun.sh; called through variables
set -uo pipefail

deb=$1
# shellcheck source=tests/ui/binario_comun.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/../ui/binario_comun.sh" '' "$2" "$3"

instalado=$carpeta/instalado
entradas=$instalado/usr/share/applications
readonly strGestor=org.gnome.Nautilus.desktop
# What a shell, a desktop entry and a careless script would spoil.
readonly strRara=$'Fotos  de "Ñu" & 100% \'x\' $HOME `id` \\ %f ;#~\nfin '

fDpkg() { # arguments: no packages of this machine are looked at, no scripts of a package expected
    dpkg --root="$instalado" --force-not-root --force-bad-path --force-depends --log=/dev/null "$@" \
        >>"$carpeta/salida" 2>&1
}

fContenido() { (cd "$instalado" && find . -path ./var/lib/dpkg -prune -o -print | LC_ALL=C sort); }

fGestores() { # two file managers are there already
    local strEntrada
    mkdir -p "$entradas"
    for strEntrada in "$strGestor" thunar.desktop; do
        printf '%s\n' '[Desktop Entry]' Type=Application Name=Carpetas 'Exec=true %U' \
            'MimeType=inode/directory;' >"$entradas/$strEntrada"
    done
    update-desktop-database "$entradas"
}

# command...: gio looks for the programs of entries, too.
fConEntradas() { PATH=$instalado/usr/bin:$PATH XDG_DATA_DIRS=$instalado/usr/share "$@" 2>>"$carpeta/salida"; }

fCarpetasCon() { # what opens folders, here and where gio is asked, and what else is offered for them
    update-desktop-database "$entradas" # as the machine's dpkg does by a trigger
    fConEntradas xdg-mime query default inode/directory
    fConEntradas gio mime inode/directory
}

fPruebaInstall() {
    mkdir -p "$instalado/var/lib/dpkg/info" "$instalado/var/lib/dpkg/updates"
    touch "$instalado/var/lib/dpkg/status"
    fGestores
    fCarpetasCon >"$carpeta/carpetas"
    fContenido >"$carpeta/antes"
    fExigir "dpkg installs it" fDpkg -i "$deb"
    fExigir "man pages are where man looks" test -s "$instalado/usr/share/man/es/man1/miravel-abrir.1.gz"
}

fPruebaFolders() {
    fExigir "a file manager opens folders" grep -qx "$strGestor" "$carpeta/carpetas"
    fExigir "what opens folders stays" diff "$carpeta/carpetas" <(fCarpetasCon)

    # What the man page says.
    fConEntradas xdg-mime default "$strGestor" inode/directory
    printf '\n[Added Associations]\ninode/directory=%s;alt.miravel.miravel.desktop;\n' "$strGestor" \
        >>"$HOME/.config/mimeapps.list"
    fCarpetasCon >"$carpeta/carpetas"
    fExigir "Miravel is offered" grep -q alt.miravel.miravel "$carpeta/carpetas"
    fExigir "and is no default" test "$(head -n 2 "$carpeta/carpetas" | grep -c "$strGestor")" = 2
    rm "$HOME/.config/mimeapps.list"
}

fPruebaIcons() {
    local strIcono intLado
    strIcono=$(sed -n 's/^Icon=//p' "$entradas/alt.miravel.miravel.desktop")
    fExigir "its drawing" test -s "$instalado/usr/share/icons/hicolor/scalable/apps/$strIcono.svg"
    for intLado in 48 64 96 128 256; do
        fExigir "the icon of $intLado pixels is one" grep -q "$intLado x $intLado" \
            <(file "$instalado/usr/share/icons/hicolor/${intLado}x$intLado/apps/$strIcono.png")
    done
    fExigir "named for the application" test "$strIcono" = alt.miravel.miravel
}

# --- The menu entry, with a program that only says what it was given ---

fSoltar() { # command...: what the program was given, every argument ended by |
    rm -f "$carpeta/dicho"
    "$@" >>"$carpeta/salida" 2>&1
    fEsperar test -s "$carpeta/dicho"
    strDicho=$(<"$carpeta/dicho")
}

fPruebaMenuEntry() {
    local entrada=$entradas/alt.miravel.miravel.desktop
    mkdir -p "$carpeta/doble" "$HOME/$strRara"
    cp "$instalado/usr/bin/miravel-abrir" "$carpeta/doble"
    cat >"$carpeta/doble/miravel" <<FIN
#!/bin/sh
printf '%s|' "\${MIRAVEL_SIN_CARPETA-con}" "\$@" >'$carpeta/dicho.parte' && mv '$carpeta/dicho.parte' '$carpeta/dicho'
FIN
    chmod 755 "$carpeta/doble"/*
    local PATH=$carpeta/doble:$PATH strDicho
    fSoltar gio launch "$entrada" "$HOME/$strRara"
    fExigir "a folder arrives unharmed: $strDicho" test "$strDicho" = "con|___$HOME/$strRara|"
    fSoltar gio launch "$entrada"
    fExigir "that there is none does, too: $strDicho" test "$strDicho" = "1|"
    fSoltar miravel-abrir ''
    fExigir "nor is an empty one: $strDicho" test "$strDicho" = "1|"
    fExigir "two folders are a mistake" test "$(miravel-abrir a b 2>/dev/null; echo $?)" = 2
}

# --- The installed program itself ---

fPruebaStart() {
    # A catalogue has no place for a line feed in a path.
    local raiz="$carpeta/${strRara//$'\n'/ }"
    mkdir "$raiz"
    "$miravel_demo" "$carpeta/demo" >>"$carpeta/salida" 2>&1
    find "$carpeta/demo" \( -iname '*.mov' -o -iname '*.jpg' \) -size -400k -print0 | sort -z |
        head -z -n 12 | xargs -0 cp -pt "$raiz"
    find "$carpeta/demo" -iname '*.mov' -exec cp -p {} "$raiz" \;
    fArrancar "$instalado/usr/bin/miravel-abrir" "$raiz"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fSinCaja
    fExigir "an absolute path is recorded" grep -qaF "$carpeta/Fotos  de" "$raiz/Miravel.dat"
    # Thumbnails: the child program is found where it is installed.
    fExigir "the child program runs" fEsperarUnPoco fConHijo
    fCerrar
}

# --- Without a folder ---

readonly strElegir='^Selecciona la carpeta de fotos y vídeos:$'

fElegir() { # path
    local intVez
    fEsperarA "the choice of a folder" fVisible "$strElegir"
    xdotool windowfocus "$(fVentana "$strElegir")" key --clearmodifiers ctrl+a type -- "$1"
    fTecla "$strElegir" Return
    for ((intVez = 0; intVez < 40; ++intVez)); do fOculta "$strElegir" && return; sleep 0.05; done
    fFallo "the choice stays"
}

fPruebaNoFolder() {
    local abrir=$instalado/usr/bin/miravel-abrir raiz="$carpeta/otra"
    fArrancar "$abrir"
    fEsperarA "the archive of last time" fVisible "$strPrincipal"
    fCerrar

    # The first time: a choice; the home folder is not taken just so, and Cancel ends it.
    rm "$HOME/.local/state/miravel/escritorio.ini"
    fArrancar "$abrir"
    fElegir "$HOME"
    fAceptar # the default is No
    fEsperarA "another choice" fVisible "$strElegir"
    fTecla "$strElegir" Escape
    fFin 0
    fArrancar "$abrir" "$HOME"
    fAceptar
    fFin 0
    fExigir "the home folder is untouched" test -z "$(find "$HOME" -maxdepth 1 -iname '*miravel*')"

    cp -a "$carpeta/demo/2019/Globos en Segovia" "$raiz"
    fArrancar "$abrir"
    fElegir "$raiz"
    fAceptar
    fEsperarA "the first file shown" fHaySelec "$raiz"
    fCerrar
}

fConHijo() {
    fTecla "$strPrincipal" m
    fEsperarUnPoco pgrep -P "$lngPid" -f "^$instalado/.*libexec/miravel/miravel-fotograma" >/dev/null
}

fPruebaRemove() {
    fExigir "dpkg removes it" fDpkg --purge miravel
    update-desktop-database "$entradas"
    fContenido >"$carpeta/despues"
    fExigir "nothing is left over" diff "$carpeta/antes" "$carpeta/despues"
}

fServidor || exit 1
fEntorno
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_STATE_HOME XDG_DATA_HOME
for strUna in fPruebaInstall fPruebaFolders fPruebaIcons fPruebaMenuEntry fPruebaStart fPruebaNoFolder \
    fPruebaRemove; do
    fProbar "$strUna"
done
[ "$intFallos" -eq 0 ]
