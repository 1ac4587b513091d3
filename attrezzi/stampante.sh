#!/bin/sh
# A print scheduler of a test's own, with one queue, Rapporto, whose pages come out as PDF files. It touches
# nothing of the machine's scheduler: no network port, no service manager, no file of it.
#
#   stampante.sh start DIR     starts it and returns when the queue takes jobs
#   stampante.sh stop DIR      ends it, also when it stands still; DIR stays
#
# It does not outlive the process that called start. A program prints there, and the commands lpadmin, cupsreject
# and the like work there, with CUPS_SERVER=DIR/cups.sock and CUPS_SERVERROOT=DIR/lavoro in their environment. A
# page is DIR/uscita/N.pdf with the number of its job, under that name only when it is whole. A machine without
# the packages (cups, cups-client, cups-filters) gets status 77 and the reason.
set -eu

PPD=/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd
PATH=$PATH:/usr/sbin:/sbin

manca() {
    echo "stampante.sh: $1" >&2
    exit 77
}

scrivi_configurazione() {
    cat > "$LAVORO/cupsd.conf" <<FINE
Listen $LAVORO/cups.sock
Browsing No
WebInterface No
LogLevel warn
AccessLogLevel all
IdleExitTimeout 0
<Location />
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
FINE
    cat > "$LAVORO/cups-files.conf" <<FINE
ServerRoot $LAVORO
ServerBin $LAVORO/bin
CacheDir $LAVORO/cache
StateDir $LAVORO/stato
RequestRoot $LAVORO/lavori
TempDir $LAVORO/tmp
AccessLog $LAVORO/accessi.log
ErrorLog $LAVORO/errori.log
PageLog $LAVORO/pagine.log
FINE
}

# The printer itself: it lays its sheets into a folder. Nobody but its owner may run it: so the scheduler does
# not run it as the user of the filters, who may not write there.
scrivi_stampante() {
    cat > "$LAVORO/bin/backend/carta" <<FINE
#!/bin/sh
[ \$# -gt 0 ] || exit 0
foglio=$DIR/uscita/.\$1
cat "\${6:--}" > "\$foglio" && [ -s "\$foglio" ] && mv "\$foglio" "$DIR/uscita/\$1.pdf"
FINE
    chmod 700 "$LAVORO/bin/backend/carta"
}

avvia() {
    command -v cupsd > /dev/null || manca "cupsd non è installato"
    command -v lpadmin > /dev/null || manca "lpadmin non è installato (cups-client)"
    [ -f "$PPD" ] || manca "cups-filters non è installato"
    [ "$(id -u)" = 0 ] || manca "il gestore delle code si avvia da root"
    # Not below DIR: the filters run as another user, who may not enter a test's folder.
    LAVORO=$(mktemp -d /tmp/stampante-XXXXXX)
    chmod 755 "$LAVORO"
    ln -s "$LAVORO" "$DIR/lavoro"
    ln -s "$LAVORO/cups.sock" "$DIR/cups.sock"
    mkdir -p "$DIR/uscita" "$LAVORO/bin/backend"
    for parte in cache lavori ppd stato tmp; do
        mkdir "$LAVORO/$parte"
    done
    chmod 1777 "$LAVORO/tmp"
    for parte in /usr/lib/cups/*; do
        [ "${parte##*/}" = backend ] || ln -s "$parte" "$LAVORO/bin/"
    done
    scrivi_configurazione
    scrivi_stampante
    cupsd -f -c "$LAVORO/cupsd.conf" -s "$LAVORO/cups-files.conf" < /dev/null > "$LAVORO/cupsd.log" 2>&1 &
    echo $! > "$LAVORO/cupsd.pid"
    accompagna $! "$PPID" &
    # The second keeps lpadmin from the machine's own files of a queue of that name.
    export CUPS_SERVER="$LAVORO/cups.sock" CUPS_SERVERROOT="$LAVORO"
    attendi_gestore
    # What it says of the future of printer drivers is of no use here.
    lpadmin -p Rapporto -E -v "carta:/$DIR" -P "$PPD" -o PageSize=A4 2> "$LAVORO/lpadmin.log" || fallito
    lpadmin -d Rapporto 2>> "$LAVORO/lpadmin.log" || fallito
}

# Waits for the end of the scheduler or of the caller.
accompagna() {
    # It holds nothing of the caller's, who may wait for the end of what is written.
    exec < /dev/null > /dev/null 2>&1
    while kill -0 "$1" && kill -0 "$2"; do
        sleep 1
    done
    spegni "$1"
}

attendi_gestore() {
    prove=100
    until lpstat -r 2> /dev/null | grep -q 'is running'; do
        prove=$((prove - 1))
        if [ $prove = 0 ] || ! kill -0 "$(cat "$LAVORO/cupsd.pid")" 2> /dev/null; then
            fallito
        fi
        sleep 0.1
    done
}

fallito() {
    cat "$LAVORO"/*.log >&2
    ferma
    exit 1
}

# Nothing of it is kept: there is no need to ask it, which would take a second.
spegni() {
    kill -KILL "$1" 2> /dev/null || true
    rm -rf "$LAVORO" 2> /dev/null || true
}

ferma() {
    LAVORO=$(readlink "$DIR/lavoro") || return 0
    spegni "$(cat "$LAVORO/cupsd.pid" 2> /dev/null)"
    rm -f "$DIR/lavoro" "$DIR/cups.sock"
}

if [ $# != 2 ]; then
    sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
fi
mkdir -p "$2"
DIR=$(cd "$2" && pwd)
case $1 in
    start) avvia ;;
    stop) ferma ;;
    *) exit 2 ;;
esac
