#!/bin/sh
# Builds the commit at hand twice, in two folders of different names, and compares what would be delivered byte by byte:
#   packaging/due_volte.sh [debian|windows]        without a word both
# One folder comes before /usr and one behind it: a linker that sorts by path would lay out two programs.
set -eu
radice=$(cd "$(dirname "$0")/.." && pwd)
[ "${1:-windows}" != windows ] || [ -d "$radice/build/qt6-mingw" ] || {
    echo "due_volte.sh: manca build/qt6-mingw: prima packaging/windows/costruisci.sh" >&2
    exit 2
}
prima=$(mktemp -d /tmp/due-volte-XXXXXX)
seconda=$(mktemp -d "/var/tmp/due volte, altrove-XXXXXX")
trap 'rm -rf "$prima" "$seconda"' EXIT
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
    for cartella in "$prima" "$seconda"; do
        git -c safe.directory='*' clone -q "$radice" "$cartella/lumira"
        mkdir "$cartella/lumira/build"
        (cd "$cartella/lumira" && "costruisci_$1" >"$cartella/registro" 2>&1) || {
            tail -n 40 "$cartella/registro" >&2
            return 1
        }
    done
    for pacchetto in "$prima/lumira/build/$2/pacchetti"/lumira*.*; do
        nome=$(basename "$pacchetto")
        cmp "$pacchetto" "$seconda/lumira/build/$2/pacchetti/$nome"
        echo "$nome: $(sha256sum <"$pacchetto" | cut -c 1-64), twice"
    done
    rm -rf "$prima/lumira" "$seconda/lumira"
}

[ $# -gt 0 ] || set -- debian windows
for sistema in "$@"; do
    case $sistema in
        debian) confronta debian release ;;
        windows) confronta windows windows ;;
        *) echo "due_volte.sh: debian, windows" >&2 && exit 2 ;;
    esac
done
