#!/bin/sh
# Runs a Windows program of build/windows under Wine: wine.sh PROGRAM.EXE [ARGUMENT ...]
# Wine keeps its registry and its drives in a folder of its own (WINEPREFIX, by default one under /tmp), made
# at the first run. The libraries of the Qt for Windows and of the compiler are found beside the build.
set -eu
radice=$(cd "$(dirname "$0")/../.." && pwd)
: "${WINEPREFIX:=${TMPDIR:-/tmp}/lumira-wine-$(id -u)}"
: "${WINEDEBUG:=-all}"
export WINEPREFIX WINEDEBUG

# Neither Mono nor Gecko is offered for installation: the program uses none of them.
export WINEDLLOVERRIDES="mscoree=;mshtml="

# A Windows machine has the two families of the screens; Wine is told of those of the same widths.
prepara() {
    wineboot -i
    for coppia in "Arial=Liberation Sans" "Courier New=Liberation Mono"; do
        wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "${coppia%%=*}" /t REG_SZ /d "${coppia#*=}" /f
    done
    wineserver -w
}

(
    flock 9
    [ -f "$WINEPREFIX/system.reg" ] || prepara
) 9>"$WINEPREFIX.lock" >"$WINEPREFIX.log" 2>&1

percorso=
librerie=$radice/build/windows/librerie.txt
if [ -f "$librerie" ]; then
    percorso=$(sed 's|/[^/]*$||' "$librerie" | sort -u | sed 's|^|Z:|' | tr '\n' ';')
fi
export WINEPATH="${percorso}${WINEPATH:-}"
exec wine "$@"
