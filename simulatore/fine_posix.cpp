// The signals of the system, through a pipe to the loop. It knows nothing of the instrument.
#include "simulatore/fine.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int tubo[2] = {-1, -1};

extern "C" void Segnale_Arrivato(int)
{
    // Nearly nothing is allowed here; the loop does the rest.
    const char byte = 0;
    [[maybe_unused]] const ssize_t scritti = ::write(tubo[1], &byte, 1);
}

} // namespace

void Fine_Prepara()
{
    if (::pipe2(tubo, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *avviso = new QSocketNotifier(tubo[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(avviso, &QSocketNotifier::activated, avviso, [avviso] {
        avviso->setEnabled(false);
        QCoreApplication::quit();
    });
    for (const int segnale : {SIGINT, SIGTERM, SIGHUP})
        static_cast<void>(std::signal(segnale, Segnale_Arrivato));
    // The log may go to a pipe whose reader ends first: the simulator plays on.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}
