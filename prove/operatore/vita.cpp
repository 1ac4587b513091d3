#include "prove/operatore/vita.h"

#include "app/avvio.h"
#include "app/frmMain.h"
#include "app/manuale.h"
#include "core/modGeneral.h"
#include "platform/eventi.h"
#include "prove/operatore/mano.h"
#include "prove/operatore/regole.h"
#include "prove/operatore/strumento_caso.h"
#include "tests/comuni/stampa_prova.h"
#include "tests/forms/banco_form.h"
#include "toolkit/aiuto.h"
#include "toolkit/applicazione.h"

#include <QAbstractEventDispatcher>
#include <QDesktopServices>
#include <QDir>
#include <QMessageBox>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

// Where the program lets events run, the operator has a turn; and how it ends is seen. The linker leads its
// calls here.
void Eventi_Veri() asm("__real__Z13Eventi_Eseguiv");
void Eventi_Chiesti() asm("__wrap__Z13Eventi_Eseguiv");
[[noreturn]] void Termina_Vera(int stato) asm("__real_" OPERATORE_FINE);
[[noreturn]] void Termina_Chiesta(int stato) asm("__wrap_" OPERATORE_FINE);

/// What a day keeps is not looked at here: a window that goes while the toolkit handles a key of it leaves 32
/// bytes of the toolkit's own, and what the station keeps is found vehicle by vehicle (prove/resistenza).
// NOLINTNEXTLINE(bugprone-reserved-identifier) -- the sanitizer's own name
extern "C" int __lsan_is_turned_off()
{
    return 1;
}

namespace operatore {

namespace {

constexpr int FRA_DUE_SGUARDI = 20; // actions between two looks at the files
constexpr int FRA_DUE_FATTI = 25;   // about, between two things that the network software does
constexpr size_t PROFONDO = 12;     // actions inside actions: then only time goes on
constexpr int TEMPI[] = {10, 50, 200, 200, 200, 2500, 4000, 31000}; // ms that pass between two actions

class Vita : public QObject
{
    Q_OBJECT

public:
    Vita(quint32 seme, int azioni);
    ~Vita() override;
    Q_DISABLE_COPY_MOVE(Vita)

    /// The program is started anew as often as it is left, until there are no actions any more.
    void Vivi();
    void Eventi();
    void Finita_PerErrore();
    /// In place of a browser.
    Q_INVOKABLE void apriPagina(const QUrl &) {}

private:
    void Prepara();
    void Apri();
    void Passo_Fra_Poco();
    void Passo();
    bool Deve_Finire(int ciclo);
    void Agisci();
    void Chiudi_Davanti();
    void Guarda();
    void Resta_InStazione();
    void Porta_Qualcosa();
    void Imposta(const char *sezione, const char *chiave, bool acceso) const;

    BancoForm m_banco;
    StampaProva m_stampa;
    QRandomGenerator m_caso;
    Mano m_mano;
    StrumentoCaso m_strumento;
    Fatti m_fatti;
    std::unique_ptr<Regole> m_regole;
    std::vector<int> m_cicli;                // of the actions at work: the loop that they began in
    std::vector<QPointer<QWidget>> m_modali; // of the loops, from the program's own on: what each waits for
    int m_azioni;
    int m_fatte = 0;
};

Vita *corrente = nullptr;

Vita::Vita(quint32 seme, int azioni) : m_caso(seme), m_mano(seme + 1), m_strumento(seme + 2), m_azioni(azioni)
{
    corrente = this;
    Prepara();
    m_regole = std::make_unique<Regole>(m_banco.Stazione.Nativo(QString()));
    Aiuto_Imposta(Manuale_Indirizzo);
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "apriPagina");
}

Vita::~Vita()
{
    corrente = nullptr;
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void Vita::Imposta(const char *sezione, const char *chiave, bool acceso) const
{
    m_banco.Stazione.Imposta(QString::fromLatin1(sezione), QString::fromLatin1(chiave),
                             acceso ? QStringLiteral("1") : QStringLiteral("0"));
}

/// A station as some workshop has it.
void Vita::Prepara()
{
    const auto forse = [this] { return m_caso.bounded(2) == 0; };
    Imposta("MCTC", "Modalita", m_caso.bounded(3) != 0);
    Imposta("MCTC", "IniFile", m_caso.bounded(4) != 0);
    Imposta("MCTC", "ControlloVisivo", forse());
    Imposta("MCTC", "AltezzaFaroAuto", forse());
    Imposta("GENERAL", "Debug", m_caso.bounded(6) == 0);
    if (forse())
        m_banco.Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd"), QString());
    for (int i = 0; i < 6; ++i)
        m_banco.Stazione.Accettazione(QStringLiteral("2345678%1.acc").arg(i));
    QDir().mkpath(m_banco.Stazione.Nativo(QStringLiteral("ESITO")));
    m_stampa.Aggiungi(QStringLiteral("foglio"));
    if (forse())
        m_stampa.Predefinita(QStringLiteral("foglio"));
}

void Vita::Apri()
{
    Avvio_Impostazioni();
    Nuovo<frmMain>()->Mostra();
    Passo_Fra_Poco();
}

void Vita::Vivi()
{
    while (m_fatte < m_azioni) {
        Apri();
        QCoreApplication::exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Guarda();
    }
}

// --- a step
// -------------------------------------------------------------------------------------------------

/// A new single shot each time: a step may show a box and not come back before somebody has answered it.
void Vita::Passo_Fra_Poco()
{
    QTimer::singleShot(0, this, &Vita::Passo);
}

/// Inside an action the operator has a turn where the program waits for one, in a loop of its own, or lets
/// events run; not while the action itself is being told to the window.
void Vita::Passo()
{
    if (Moduli_Caricati().empty() && QApplication::activeModalWidget() == nullptr)
        return;
    Passo_Fra_Poco();
    const int ciclo = QThread::currentThread()->loopLevel();
    if ((!m_cicli.empty() && ciclo <= m_cicli.back()) || Deve_Finire(ciclo))
        return;
    m_cicli.push_back(ciclo);
    if (m_fatte >= m_azioni)
        Chiudi_Davanti();
    else
        Agisci();
    m_cicli.pop_back();
    // The test library lets events run behind its every press, not only in Eventi_Esegui: the loop around has
    // to hear of its end all the same (platform/eventi_win32.cpp).
    QAbstractEventDispatcher::instance()->wakeUp();
}

/// A loop in a loop is a modal window's: when that has gone the loop is about to end, and no operator is
/// quick enough to do something before it has. What waits for it below still stands on controls of the forms.
/// @param ciclo depth of the loop at work, 1 for the program's own.
bool Vita::Deve_Finire(int ciclo)
{
    m_modali.resize(size_t(ciclo)); // those above have ended
    if (ciclo == 1)
        return false;
    QWidget *davanti = QApplication::activeModalWidget();
    QPointer<QWidget> &suo = m_modali.back();
    if (suo != nullptr && suo->isVisible())
        return false;
    if (std::find(m_modali.begin(), m_modali.end() - 1, davanti) != m_modali.end() - 1)
        return true;
    suo = davanti;
    return false;
}

void Vita::Agisci()
{
    m_fatti.Guarda();
    m_fatti.Comincia(QStringLiteral("clock"));
    Orologio_Banco().Avanza(TEMPI[m_caso.bounded(int(std::size(TEMPI)))]);
    m_fatti.Guarda();
    if (m_cicli.size() > PROFONDO || Deve_Finire(m_cicli.back()))
        return;
    if (++m_fatte % FRA_DUE_SGUARDI == 0)
        Guarda();
    Resta_InStazione();
    if (m_caso.bounded(FRA_DUE_FATTI) == 0)
        Porta_Qualcosa();
    m_mano.Fai([this](const QString &racconto) {
        m_fatti.Comincia(racconto);
        std::printf("%d %s\n", m_fatte, racconto.toUtf8().constData());
        static_cast<void>(std::fflush(stdout));
    });
}

/// What is in front first, and one at a time: the form below has its turn before it goes too.
void Vita::Chiudi_Davanti()
{
    m_fatti.Comincia(QStringLiteral("close"));
    QWidget *box = QApplication::activeModalWidget();
    if (qobject_cast<QMessageBox *>(box) != nullptr)
        box->close();
    else if (const auto moduli = Moduli_Caricati(); !moduli.empty())
        moduli.back()->Scarica();
}

void Vita::Eventi()
{
    const bool ancora = m_cicli.size() < PROFONDO;
    const QString prima = m_fatti.Ultimo();
    if (ancora)
        m_cicli.push_back(-1);
    Eventi_Veri();
    if (ancora)
        m_cicli.pop_back();
    m_fatti.Segue(prima);
}

// --- the files
// ----------------------------------------------------------------------------------------------

void Vita::Guarda()
{
    const QStringList guasti = m_regole->Controlla(m_fatti);
    m_fatti.Dimentica();
    for (const QString &guasto : guasti)
        std::printf("! %s\n", guasto.toUtf8().constData());
    static_cast<void>(std::fflush(stdout));
    if (!guasti.isEmpty())
        Termina_Vera(VitaGuasta);
}

/// The program ends in the middle of whatever it was at: what it has done to the files until then has to be
/// right too.
void Vita::Finita_PerErrore()
{
    std::printf("%s%s\n", SEGNO_DOPO, m_fatti.Ultimo().toUtf8().constData());
    m_fatti.Guarda();
    Guarda();
}

/// Whoever types any folder may name one of this machine's: the files in there are not the test's.
void Vita::Resta_InStazione()
{
    if (gDirAcc.startsWith(gAppPath, Qt::CaseInsensitive))
        return;
    Guarda();
    for (const char16_t *chiave : {u"DirDati", u"DirRisultati", u"ReteDati", u"ReteRisultati"})
        m_banco.Stazione.Imposta(QStringLiteral("MCTC"), QString::fromUtf16(chiave), gAppPath);
    Imposta_Cartelle();
    m_regole->Prendi();
}

/// The network software: a vehicle comes in, or one that is not in order, or goes.
void Vita::Porta_Qualcosa()
{
    Guarda();
    const QString nome = QStringLiteral("%1.acc").arg(m_caso.bounded(10000000, 99999999));
    const QString cartella = gModalita ? QStringLiteral("DIR_FAR\\") : QStringLiteral("ESITO\\");
    QByteArray veicolo = m_banco.Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc"));
    switch (m_caso.bounded(6)) {
    case 0:
        veicolo.replace("Sesso=M", "Sesso=MASCHIO").replace("Telaio=", "Telai=");
        break;
    case 1:
        veicolo.truncate(m_caso.bounded(int(veicolo.size())));
        break;
    case 2: {
        QDir dir(m_banco.Stazione.Nativo(cartella));
        const QStringList voci = dir.entryList({QStringLiteral("*.acc")}, QDir::Files);
        if (!voci.isEmpty())
            dir.remove(voci[m_caso.bounded(int(voci.size()))]);
        m_regole->Prendi();
        return;
    }
    default:
        break;
    }
    m_banco.Stazione.Scrivi(cartella + nome, veicolo);
    m_regole->Prendi();
}

} // namespace

int Vita_Vivi(int &quanti, char **argomenti)
{
    Applicazione applicazione(quanti, argomenti);
    const QStringList parole = QCoreApplication::arguments();
    Vita vita(parole.value(2).toUInt(), parole.value(3).toInt());
    vita.Vivi();
    return VitaBuona;
}

} // namespace operatore

void Eventi_Chiesti()
{
    if (operatore::corrente != nullptr)
        operatore::corrente->Eventi();
    else
        Eventi_Veri();
}

void Termina_Chiesta(int stato)
{
    if (operatore::corrente != nullptr)
        operatore::corrente->Finita_PerErrore();
    Termina_Vera(stato);
}

#include "vita.moc"
