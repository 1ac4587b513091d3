#!/bin/sh
# Builds the commit at hand twice, in two folders of different names, and compares what would be delivered byte by byte:
#   packaging/due_volte.sh [debian|windows]        without a word both; CARTELLA: where to build, by default /tmp
set -eu
radice=$(cd "$(dirname "$0")/.." && pwd)
[ "${1:-windows}" != windows ] || [ -d "$radice/build/qt6-mingw" ] || {
    echo "due_volte.sh: manca build/qt6-mingw: prima packaging/windows/costruisci.sh" >&2
    exit 2
}
lavoro=$(mktemp -d "${CARTELLA:-/tmp}/due-volte-XXXXXX")
trap 'rm -rf "$lavoro"' EXIT
SOURCE_DATE_EPOCH=$(git -C "$radice" -c safe.directory='*' log -1 --format=%ct)
export SOURCE_DATE_EPOCH

costruisci_debian() {
    cmake --preset release -DLUMIRA_MISURE=OFF -DBUILD_TESTING=OFF
    cmake --build --preset release
    (cd build/release && cpack)
}

costruisci_windows() {
    ln -s "$radice/build/qt6-mingw" build/qt6-mingw
    packaging/windows/costruisci.sh
}

# confronta SYSTEM BUILD_FOLDER
confronta() {
    for cartella in prima/lumira "seconda, altrove"; do
        git -c safe.directory='*' clone -q "$radice" "$lavoro/$cartella"
        mkdir "$lavoro/$cartella/build"
        (cd "$lavoro/$cartella" && "costruisci_$1" >"$lavoro/registro" 2>&1) || {
            tail -n 40 "$lavoro/registro" >&2
            return 1
        }
    done
    for pacchetto in "$lavoro/prima/lumira/build/$2/pacchetti"/lumira*.*; do
        nome=$(basename "$pacchetto")
        cmp "$pacchetto" "$lavoro/seconda, altrove/build/$2/pacchetti/$nome"
        echo "$nome: $(sha256sum <"$pacchetto" | cut -c 1-64), twice"
    done
    rm -rf "$lavoro/prima" "$lavoro/seconda, altrove"
}

[ $# -gt 0 ] || set -- debian windows
for sistema in "$@"; do
    case $sistema in
        debian) confronta debian release ;;
        windows) confronta windows windows ;;
        *) echo "due_volte.sh: debian, windows" >&2 && exit 2 ;;
    esac
done
