#!/bin/sh
# Makes the Windows program on this machine: a complete station folder, build/windows/consegna, and from it a zip
# and an installer, in build/windows/pacchetti.
#   packaging/windows/costruisci.sh
# The Qt for Windows lies in build/qt6-mingw. If it is not there yet it is unpacked from QT6_MINGW_ARCHIVIO, by
# default ../shared/windows/qt6-mingw.tar.xz. COMPITI: how many compilers at a time. LUMIRA_FIRMA: how programs and
# installer are signed (firma.sh); without it they are not. SOURCE_DATE_EPOCH: the date of all that is delivered, by
# default the commit's: the same commit gives the same packages.
set -eu
cd "$(dirname "$0")/../.."
if [ -z "${SOURCE_DATE_EPOCH:-}" ] && data=$(git -c safe.directory='*' log -1 --format=%ct 2>/dev/null); then
    export SOURCE_DATE_EPOCH="$data"
fi
radice=$PWD
consegna=$radice/build/windows/consegna
archivio=${QT6_MINGW_ARCHIVIO:-$radice/../shared/windows/qt6-mingw.tar.xz}

command -v x86_64-w64-mingw32-g++-posix >/dev/null || {
    echo "costruisci.sh: manca il compilatore: apt-get install g++-mingw-w64-x86-64-posix" >&2
    exit 1
}
if [ ! -d build/qt6-mingw ]; then
    [ -f "$archivio" ] || {
        echo "costruisci.sh: manca la Qt per Windows: $archivio, oppure packaging/windows/costruisci_qt.sh" >&2
        exit 1
    }
    mkdir -p build
    rm -rf build/qt6-mingw.nuovo
    mkdir build/qt6-mingw.nuovo
    tar -xf "$archivio" -C build/qt6-mingw.nuovo
    mv build/qt6-mingw.nuovo/qt6-mingw build/qt6-mingw
    rmdir build/qt6-mingw.nuovo
fi

cmake --preset windows
cmake --build build/windows -j "${COMPITI:-$(nproc)}"

# A new folder at every run: the last one might hold the lumira.ini of somebody's trial.
rm -rf "$consegna"
cmake --install build/windows --strip --prefix "$consegna"
for programma in "$consegna"/*.exe; do
    packaging/windows/firma.sh "$programma"
done
cpack --config build/windows/CPackConfig.cmake
ls -l build/windows/pacchetti/lumira-*
