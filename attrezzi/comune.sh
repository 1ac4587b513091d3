# Shell pieces that ./run and ./test share; sourced with the project's root as the working directory.
# Debian packages by purpose, their installation, and steps that are quiet as long as they go well.
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists of packages are for those who source this

export LC_ALL=C.UTF-8

REGISTRI=build/registri # one log a step

# ccache keeps what is compiled with headers that were read before only when it is told so.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime

PACCHETTI_COSTRUZIONE=(g++ cmake ninja-build qt6-base-dev qt6-serialport-dev libcups2-dev)
# The manual that is delivered: its page and its print.
PACCHETTI_MANUALE=(cmark-gfm weasyprint)
# Type with the measures of Arial and Courier New; python3 lays out the demonstration station.
PACCHETTI_STAZIONE=(fonts-liberation python3)
PACCHETTI_SCHERMO_VIRTUALE=(xvfb xdotool imagemagick dbus at-spi2-core python3-gi)
# Desktops in the small, with a panel: window managers of two families, and what asks about windows.
PACCHETTI_SCRIVANIA=(openbox xfwm4 tint2 x11-utils)
# A folder that is slow, full or gone when the tests want it so.
PACCHETTI_DISCHI=(fuse3 python3-fuse)
# A print queue that makes PDFs, and what looks into them.
PACCHETTI_STAMPA=(cups cups-client cups-filters ghostscript printer-driver-cups-pdf poppler-utils)
# The Windows program: its compiler, its installer, and what it runs on here. Wine prints where it finds libcups2;
# the tests sign with a certificate of their own.
PACCHETTI_WINDOWS=(g++-mingw-w64-x86-64-posix nsis wine64 wine locales libcups2 openssl osslsigncode)
# What builds the tests and the fuzzers, in half of the time of the compiler that builds what a workshop gets; llvm names
# the lines of what a sanitizer has found.
PACCHETTI_PROVE=(clang libclang-rt-14-dev lld llvm)
# The Debian package is made and looked into: dpkg-dev and file. Mutants are made by what clang knows of a source
# (python3-clang-14).
PACCHETTI_CONTROLLI=(git clang-format clang-tidy cppcheck shellcheck pyflakes3 dpkg-dev file python3-clang-14)

errore() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# installa PACKAGE ...: installs what is missing. Elsewhere than on Debian the tools must be there already.
installa() {
    command -v dpkg-query >/dev/null || return 0
    local pacchetto mancanti=()
    for pacchetto in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$pacchetto" 2>/dev/null)" = installed ] || mancanti+=("$pacchetto")
    done
    [ ${#mancanti[@]} -gt 0 ] || return 0

    local comando=(env DEBIAN_FRONTEND=noninteractive apt-get -o Acquire::Retries=3)
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || errore "mancano, e senza sudo non si installano: ${mancanti[*]}"
        comando=(sudo "${comando[@]}")
    fi
    passo pacchetti-elenco "elenco dei pacchetti" "${comando[@]}" update || errore "l'elenco dei pacchetti non arriva"
    passo pacchetti "installazione di ${#mancanti[@]} pacchetti" \
        "${comando[@]}" install -y --no-install-recommends "${mancanti[@]}" ||
        errore "non si installano: ${mancanti[*]}"
}

# passo NAME TITLE COMMAND ...: runs a step into its log; shows the log's end when the step fails. NAME.tempo tells what
# it took: seconds by the clock, of the processor for the programs, for the system.
passo() {
    local nome=$1 titolo=$2 inizio=$SECONDS stato=0 TIMEFORMAT='%0R %0U %0S'
    shift 2
    mkdir -p "$REGISTRI"
    printf '%s... ' "$titolo"
    { time "$@" >"$REGISTRI/$nome.log" 2>&1 </dev/null; } 2>"$REGISTRI/$nome.tempo" || stato=$?
    if [ $stato -eq 0 ]; then
        echo "fatto ($((SECONDS - inizio)) s)"
    else
        echo "NON RIUSCITO ($((SECONDS - inizio)) s): $REGISTRI/$nome.log"
        tail -n 40 "$REGISTRI/$nome.log"
    fi
    return $stato
}

# configura PRESET OPTION ...: with ccache where it is at hand.
configura() {
    local preset=$1 opzioni=()
    shift
    command -v ccache >/dev/null && opzioni+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    passo "$preset-configurazione" "configurazione $preset" cmake --preset "$preset" "${opzioni[@]}" "$@"
}

# What a workshop gets: without tests and benchmarks, which have their own place.
costruisci_release() {
    configura release -DBUILD_TESTING=OFF -DLUMIRA_MISURE=OFF &&
        passo release-costruzione "costruzione release" cmake --build --preset release
}
