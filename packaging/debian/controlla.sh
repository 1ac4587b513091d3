#!/bin/sh
# Has Debian's own checker look at the package: every error and warning that lintian-overrides does not explain.
#   packaging/debian/controlla.sh [PACKAGE]      by default the one in build/release/pacchetti
# The checker brings a hundred packages of its own and is not among those that ./test installs.
set -eu
cd "$(dirname "$0")/../.."
command -v lintian >/dev/null || { echo "controlla.sh: manca lintian: apt-get install lintian" >&2; exit 1; }
exec lintian --allow-root --fail-on error,warning --tag-display-limit 0 "${1:-$(ls build/release/pacchetti/lumira_*.deb)}"
