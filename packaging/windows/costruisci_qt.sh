#!/bin/sh
# Builds the Qt for Windows from Debian's own source of it, where no archive is at hand: build/qt6-mingw. It is the
# same Qt as this machine's, as its moc and rcc have to be.
#   packaging/windows/costruisci_qt.sh      20 minutes or more on two cores; needs Debian's source package
set -eu
cd "$(dirname "$0")/../.."
radice=$PWD
lavoro=$radice/build/qt6-sorgente

[ ! -d build/qt6-mingw ] || { echo "costruisci_qt.sh: build/qt6-mingw c'è già" >&2; exit 1; }
for comando in x86_64-w64-mingw32-g++-posix cmake ninja dpkg-source; do
    command -v $comando >/dev/null || { echo "costruisci_qt.sh: manca $comando" >&2; exit 1; }
done

# The machine's own list of packages names the same places without their sources: a list of this script's.
scarica() {
    mkdir -p "$lavoro/apt/liste/partial"
    for elenco in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$elenco" ] || sed -n 's/^deb /deb-src /p' "$elenco"
    done >"$lavoro/apt/sources.list"
    mkdir -p "$lavoro/apt/parti"
    for elenco in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$elenco" ] || sed 's/^Types:.*/Types: deb-src/' "$elenco" >"$lavoro/apt/parti/${elenco##*/}"
    done
    opzioni="-o Dir::Etc::SourceList=$lavoro/apt/sources.list -o Dir::Etc::SourceParts=$lavoro/apt/parti
             -o Dir::State::Lists=$lavoro/apt/liste"
    # shellcheck disable=SC2086 # one option a word
    apt-get $opzioni update
    # shellcheck disable=SC2086
    (cd "$lavoro" && apt-get $opzioni source --only-source qt6-base)
}

configura() {
    spente=
    # No type but the system's own, no network, no database, nothing of other systems. directwrite breaks the link
    # of the printing module with this compiler; tabletevent needs a header that Debian leaves out.
    for parte in opengl sql dbus network vulkan androiddeployqt zstd icu glib direct2d direct2d1_1 directwrite \
        directwrite3 tabletevent system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2 \
        system_doubleconversion; do
        spente="$spente -DFEATURE_$parte=OFF"
    done
    # shellcheck disable=SC2086
    cmake -G Ninja -S "$lavoro"/qt6-base-*/ -B "$lavoro/costruzione" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$radice/cmake/mingw-w64.cmake" -DQT6_MINGW="$lavoro/qt6-mingw" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake -DBUILD_SHARED_LIBS=ON \
        -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DINPUT_opengl=no $spente \
        -DCMAKE_INSTALL_PREFIX="$lavoro/qt6-mingw"
}

scarica
configura
cmake --build "$lavoro/costruzione" -j "${COMPITI:-$(nproc)}"
cmake --install "$lavoro/costruzione" --strip
# Under its name only when it is whole.
mv "$lavoro/qt6-mingw" build/qt6-mingw
rm -rf "$lavoro"
