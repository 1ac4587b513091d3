#include "prove/resistenza/turno.h"

#include "tests/forms/seriale_prova.h"

#include <QEventLoop>
#include <QFile>
#include <QListWidget>
#include <QTest>
#include <QTimer>

namespace resistenza {

namespace {

constexpr qint64 SESSIONE = 3 * 200 + 2000; // ms: three replies looked at, and the last text
constexpr qint64 SGUARDO = 100;             // ms until the menu looks at its folder
constexpr int PAZIENZA = 120000; // ms: the director gives up before, also on a machine that builds besides
constexpr int RIGA_GUASTA = 1;

const QString VEICOLO = QStringLiteral("DIR_FAR\\01234567.acc");
const QString RISULTATO = QStringLiteral("DIR_FAR\\01234567.far");
const QString GUASTO = QStringLiteral("DIR_FAR\\01234568.acc");

void Clicca_Riga(Modulo &lista, int riga)
{
    auto *elenco = Widget_Di<QListWidget>(lista, "lstAuto");
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {},
                      elenco->visualItemRect(elenco->item(riga)).center());
}

} // namespace

Turno::Turno() : m_menu(Nuovo<frmMain>())
{
    Linee_Prepara([](LineaProva &linea) {
        linea.Copione({Risposta_Stato('1'), Risposta_Stato('4'),
                       Risposta_Misura("0123O#", "0456OO", "0789OO", "0999##")});
    });
    m_stampa.Aggiungi(QStringLiteral("foglio"));
    m_stampa.Predefinita(QStringLiteral("foglio"));
    for (int i = 0; i < 8; ++i)
        m_banco.Stazione.Accettazione(QStringLiteral("2345678%1.acc").arg(i));
    m_banco.Stazione.Scrivi(
        GUASTO,
        m_banco.Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")).replace("Sesso=M", "Sesso=MASCHIO"));
    m_menu->Mostra();
    if (!Attiva(*m_menu))
        qFatal("the menu does not come up");
}

Turno::~Turno()
{
    Linee_Prepara({});
}

/// As the network software does: the result of the vehicle before is fetched, a new vehicle comes in.
void Turno::Accetta() const
{
    QFile::remove(m_banco.Stazione.Nativo(RISULTATO));
    m_banco.Stazione.Scrivi(VEICOLO, m_banco.Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")));
}

QString Turno::Prova_Veicolo()
{
    Accetta();
    m_stampa.Corrente->Operazioni.clear();
    m_stampa.Corrente->Pagine = {{}};
    QEventLoop giro; // as the program has it: what has been unloaded goes when the loop has control again
    Regia regia;
    regia.Quando("frmMain", [](Modulo &menu) { Premi(menu, "cmdMnu_2"); })
        .Quando("frmMctcO", [](Modulo &lista) { Clicca_Riga(lista, RIGA_GUASTA); })
        .Quando("frmMsg", [](Modulo &messaggio) { Premi(messaggio, "cmd_0"); })
        .Quando("frmMctcO",
                [](Modulo &lista) {
                    Clicca_Riga(lista, 0);
                    Premi(lista, "cmd_0");
                })
        .Quando("frmMctc2", [](Modulo &veicolo) { Premi(veicolo, "cmd_0"); })
        .Quando("frmComm", [](Modulo &) { Orologio_Banco().Avanza(SESSIONE); })
        .Quando("frmEsito",
                [](Modulo &esito) {
                    Premi(esito, "cmd_1");
                    Premi(esito, "cmd_0");
                })
        .Quando("frmMain", [&giro](Modulo &) {
            Orologio_Banco().Avanza(SGUARDO);
            giro.quit();
        });
    QTimer rete;
    QObject::connect(&rete, &QTimer::timeout, &giro, &QEventLoop::quit);
    rete.start(PAZIENZA);
    giro.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!regia.Finita())
        return QStringLiteral("the way has come to a stand before ") + Nomi_Caricati().join(u' ');
    return Esito_Veicolo();
}

QString Turno::Esito_Veicolo() const
{
    if (!m_banco.Stazione.Leggi(RISULTATO).contains("\r\nEsito="))
        return QStringLiteral("no result");
    if (QFile::exists(m_banco.Stazione.Nativo(VEICOLO)))
        return QStringLiteral("the vehicle is still listed");
    if (m_stampa.Corrente->Finite() != 1)
        return QStringLiteral("no page");
    return {};
}

} // namespace resistenza
