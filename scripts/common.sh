# What scripts/run and scripts/test share. Sourced, not run.

# The program: compiler, Qt with SVG, picture formats and Spanish texts, libav for frames of videos,
# libheif and LibRaw for pictures, seccomp to lock these in, a font, and xdg-open.
packages_program=(cmake g++ ninja-build qt6-base-dev libqt6svg6 qt6-translations-l10n
    libavformat-dev libavcodec-dev libswscale-dev libavutil-dev libseccomp-dev pkg-config
    qt6-image-formats-plugins libheif-dev libraw-dev
    fonts-dejavu-core xdg-utils)
# The package besides: what it depends on is found by dpkg-shlibdeps, which asks file.
packages_package=(dpkg-dev file)
# The tests besides: GoogleTest, a display without a screen, the accessibility bus, the checkers,
# libFuzzer; gio, which starts desktop entries as a desktop does.
packages_tests=(libgtest-dev xvfb xauth xdotool locales util-linux procps
    at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-gi
    desktop-file-utils appstream lintian libglib2.0-bin
    clang clang-format clang-tidy)

say() { printf '== %s\n' "$*"; }

# Installs the Debian packages of these names that are missing. Does nothing when all are there.
install_packages() {
    local name missing=()
    for name in "$@"; do
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q '^install ok installed$' \
            || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    say "Installing Debian packages: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and installing them needs root or sudo: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Installs what the program needs, and further packages. Qt's SVG plug-in, which draws the icons, comes
# with its library on Debian 12, later in a package of its own; so do libheif's decoders.
install_program() {
    install_packages "${packages_program[@]}" "$@"
    dpkg-query -L libqt6svg6 | grep '/libqsvg\.so$' >/dev/null || install_packages qt6-svg-plugins
    dpkg --compare-versions "$(dpkg-query -W -f '${Version}' libheif1)" lt 1.16 \
        || install_packages libheif-plugin-libde265 libheif-plugin-dav1d
}

# The name of the package with clang's sanitizers and libFuzzer, which holds clang's version.
package_libfuzzer() { echo "libclang-rt-$(clang -dumpversion | cut -d. -f1)-dev"; }

# Configures and builds a preset; further arguments go to the build (targets).
build_preset() {
    local preset=$1
    shift
    say "Building ($preset)"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" "$@"
}
