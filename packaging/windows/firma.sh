#!/bin/sh
# Signs a program or an installer of ours, in place: firma.sh FILE
# LUMIRA_FIRMA holds the command, {} in it the file. Whoever signs has a certificate; without the variable nothing is
# signed. A tool that does not sign in place leaves its result beside the file, as {}.firmato:
#   LUMIRA_FIRMA='osslsigncode sign -pkcs12 /chiavi/ditta.p12 -readpass /chiavi/parola -in {} -out {}.firmato'
# Neither the path of a key nor of a file may hold blanks.
set -eu
[ -n "${LUMIRA_FIRMA:-}" ] || exit 0
file=$1
rm -f "$file.firmato"
comando=$(printf '%s\n' "$LUMIRA_FIRMA" | sed "s|{}|$file|g")
# shellcheck disable=SC2086 # one word an argument
$comando >&2
[ ! -f "$file.firmato" ] || mv "$file.firmato" "$file"
