#!/bin/sh
# Runs a Windows program of build/windows under Wine: wine.sh PROGRAM.EXE [ARGUMENT ...]
# Wine keeps its registry and its drives in a folder of its own (WINEPREFIX, by default one under /tmp), made
# at the first run. The libraries of the Qt for Windows and of the compiler are found beside the build.
# Language, code page and separators of the system are those of LC_ALL: C.UTF-8 is page 1252 with a decimal point,
# it_IT.UTF-8 the same with a comma, pl_PL.UTF-8 page 1250, hi_IN.UTF-8 page 65001.
set -eu
radice=$(cd "$(dirname "$0")/../.." && pwd)
: "${WINEPREFIX:=${TMPDIR:-/tmp}/lumira-wine-$(id -u)}"
: "${WINEDEBUG:=-all}"
export WINEPREFIX WINEDEBUG

# Neither Mono nor Gecko is offered for installation: the program uses none of them.
export WINEDLLOVERRIDES="mscoree=;mshtml="

MASSIMO=120 # seconds that the making of a machine may take, some ten when nothing else is done

# A Windows machine has the two families of the screens; Wine is told of those of the same widths.
sostituisci() {
    timeout "$MASSIMO" wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$1" /t REG_SZ /d "$2" /f
}
# A workshop has a network: \\localhost\condivisa, with a folder in it.
prepara() {
    timeout "$MASSIMO" wineboot -i && mkdir -p "$WINEPREFIX/dosdevices/unc/localhost/condivisa/cartella" &&
        sostituisci "Arial" "Liberation Sans" && sostituisci "Courier New" "Liberation Mono" &&
        timeout "$MASSIMO" wineserver -w
}

# On a busy computer the making of a machine breaks off now and then, or does not end; half made it is of no use.
prepara_intero() {
    for _ in 1 2 3; do
        prepara && return
        timeout "$MASSIMO" wineserver -k || true
        rm -rf "$WINEPREFIX"
    done
    return 1
}

# Names of files reach Wine whole only in a locale that this machine has: it is made beside the registry.
LOCPATH=$WINEPREFIX.locali
export LOCPATH
prepara_lingua() {
    mkdir -p "$LOCPATH"
    localedef -i "${LC_ALL%.UTF-8}" -f UTF-8 "$LOCPATH/$LC_ALL"
}

(
    flock 9
    case ${LC_ALL:-} in
        *_*.UTF-8) [ -d "$LOCPATH/$LC_ALL" ] || prepara_lingua ;;
    esac
    # What Wine leaves running does not keep the others waiting: the lock is not handed on.
    [ -f "$WINEPREFIX/system.reg" ] || prepara_intero 9>&-
) 9>"$WINEPREFIX.lock" >"$WINEPREFIX.log" 2>&1

percorso=
librerie=$radice/build/windows/librerie.txt
if [ -f "$librerie" ]; then
    percorso=$(sed 's|/[^/]*$||' "$librerie" | sort -u | sed 's|^|Z:|' | tr '\n' ';')
fi
export WINEPATH="${percorso}${WINEPATH:-}"
exec wine "$@"
