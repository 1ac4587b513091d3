#include "prove/operatore/regole.h"

#include "core/chiavi.h"
#include "link/frmComm.h"
#include "link/protocollo.h"
#include "mctc/lettura_far.h"
#include "toolkit/modulo.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPushButton>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <iterator>
#include <span>

namespace operatore {

namespace {

constexpr qint64 PICCOLO = 100000; // bytes: of a picture its time and size tell enough

// The keys that a form writes, by what the operator does there.
constexpr ChiaveIni INCLINAZIONE[] = {ChiaveInclinazioneFaro};
constexpr ChiaveIni LINGUA[] = {ChiaveLingua};
constexpr ChiaveIni FARO[] = {ChiaveAltezzaFaro, ChiaveInclinazioneFaro, ChiaveSimmetrico};
constexpr ChiaveIni VEICOLO[] = {
    ChiaveVeicoloMarca,  ChiaveVeicoloModello,  ChiaveVeicoloAllestimento, ChiaveVeicoloTarga,
    ChiaveVeicoloTelaio, ChiaveVeicoloAnno,     ChiaveClienteNome,         ChiaveClienteIndirizzo,
    ChiaveClienteCitta,  ChiaveClienteTelefono, ChiaveOperatore,           ChiaveVeicoloNote,
};
constexpr ChiaveIni OFFICINA[] = {ChiaveOfficinaDenominazione, ChiaveOfficinaIndirizzo,
                                  ChiaveOfficinaLocalita, ChiaveOfficinaTelefonoFax, ChiaveOfficinaSitoWeb};
constexpr ChiaveIni STRUMENTO[] = {ChiaveStrumentoMarca, ChiaveStrumentoModello, ChiaveStrumentoOmologazione,
                                   ChiaveStrumentoSerie, ChiaveStrumentoScadenza};
constexpr ChiaveIni OPERATORE[] = {ChiaveOperatore};
constexpr ChiaveIni CARTELLE[] = {ChiaveReteDati, ChiaveReteRisultati, ChiaveLocaleDati,
                                  ChiaveLocaleRisultati};
constexpr ChiaveIni IMPOSTAZIONI[] = {
    ChiaveOperatore,       ChiaveLingua,           ChiaveLuxMaxAnab,
    ChiaveLuxMaxAbb,       ChiaveLuxMinAnab,       ChiaveLuxMinAbb,
    ChiaveModalita,        ChiaveIniFile,          ChiaveEsce,
    ChiaveControlloVisivo, ChiaveAllarmeAcustico,  ChiaveAlimentazione,
    ChiaveAltezzaFaroAuto, ChiaveAzzeraTelecamera, ChiaveModelloSeriale,
    ChiavePortaNumero,
};

struct RegolaChiavi
{
    const char *Fatto;
    std::span<const ChiaveIni> Chiavi;
};

/// A press of Cancel stands nowhere here: it writes nothing.
constexpr RegolaChiavi REGOLE[] = {
    {"frmMctc2",          INCLINAZIONE   }, // emptied for every vehicle
    {"frmMctc2 cmd_0",    FARO           },
    {"frmMctc2 cmd_0",    VEICOLO        },
    {"frmAnagOffO cmd_0", OFFICINA       },
    {"frmAnagOffO cmd_0", LINGUA         },
    {"frmVerPerO cmd_0",  STRUMENTO      },
    {"frmVerPerO cmd_0",  LINGUA         },
    {"frmSetupO",         CARTELLE       }, // when a box is left, not only by the save
    {"frmSetupO cmd_0",   IMPOSTAZIONI   },
    {"frmSetupO cmd_0",   STRUMENTO      },
    {"frmComm 1",         STRUMENTO      }, // the instrument was read
    {"frmComm 1",         OPERATORE      },
    {"frmComm 1",         CHIAVI_TARATURA},
};

struct RegolaErrore
{
    const char *Errore;
    const char *Dopo;
};

/// What ends the program as it has to: nobody may go on with figures that are none.
// clang-format off
constexpr RegolaErrore ERRORI[] = {
    // A figure of the measure is far from any digit; or a limit is past 32 bits when the measure is judged.
    {"run-time error 6: Overflow",               "frmComm 0 clock"},
    // With the list of the line open the form stays, and the measure is judged when somebody closes it.
    {"run-time error 6: Overflow",               "frmComm 0 cmd_0"},
    {"run-time error 6: Overflow",               "frmComm 0 close"},
    // Texts so long that the sum of their frame passes 16 bits.
    {"run-time error 6: Overflow",               "frmComm 2 clock"},
    // The files have vanished under a confirm button that a clean one enabled.
    {"run-time error 9: Subscript out of range", "frmMctcO cmd_0" },
};
// clang-format on

// The files.
constexpr const char *CONFIGURAZIONE = "lumira.ini";
constexpr const char *RISULTATO = ".far";
constexpr const char *ACCETTAZIONE = ".acc";
constexpr int RIGHE_FAR = 31;

bool Ammessa(const QString &sezione, const QString &chiave, const Fatti &fatti)
{
    for (const RegolaChiavi &regola : REGOLE) {
        if (!fatti.Visto(QString::fromLatin1(regola.Fatto)))
            continue;
        for (const ChiaveIni &voce : regola.Chiavi) {
            if (sezione.compare(voce.Sezione, Qt::CaseInsensitive) == 0 &&
                chiave.compare(voce.Nome, Qt::CaseInsensitive) == 0)
                return true;
        }
    }
    return false;
}

/// What no rule changes: every line but those of the keys that may have been written. Wine writes the whole
/// file anew, without its blank lines.
QStringList Righe_Ferme(const QByteArray &byte, const Fatti &fatti)
{
    const bool riscritto = QSysInfo::kernelType() == QStringLiteral("winnt");
    QStringList ferme;
    QString sezione;
    for (const QString &intera : QString::fromLatin1(byte).split(u'\n')) {
        const QString riga = intera.trimmed();
        if (riga.startsWith(u'['))
            sezione = riga.mid(1, riga.indexOf(u']') - 1);
        const qsizetype uguale = riga.indexOf(u'=');
        const bool nota = riga.startsWith(u';');
        if (!nota && uguale > 0 && Ammessa(sezione, riga.first(uguale).trimmed(), fatti))
            continue;
        if (!riscritto)
            ferme.append(intera);
        else if (!riga.isEmpty())
            ferme.append(riga);
    }
    return ferme;
}

QString Prima_Diversa(const QStringList &prima, const QStringList &dopo)
{
    const auto [una, altra] = std::mismatch(prima.cbegin(), prima.cend(), dopo.cbegin(), dopo.cend());
    const auto testo = [](const QStringList &righe, QStringList::const_iterator riga) {
        return riga == righe.cend() ? QStringLiteral("(end)") : riga->left(80).trimmed();
    };
    return testo(prima, una) + QStringLiteral(" -> ") + testo(dopo, altra);
}

bool Far_Intero(const QByteArray &byte)
{
    return byte.startsWith("[Kandelo]\r\n") && byte.endsWith("\r\n") && byte.count('\n') == RIGHE_FAR;
}

/// A form by its name, the link form by its session's mode too: each mode has consequences of its own.
QString Nome_Di(const Modulo &modulo)
{
    const auto *sessione = dynamic_cast<const frmComm *>(&modulo);
    return sessione == nullptr ? modulo.objectName()
                               : modulo.objectName() + u' ' + QString::number(int{sessione->Modo});
}

} // namespace

// --- what has been seen
// -------------------------------------------------------------------------------------

void Fatti::Guarda()
{
    for (const auto &modulo : Moduli_Caricati()) {
        m_fatti.insert(modulo->objectName());
        m_fatti.insert(Nome_Di(*modulo));
        if (modulo->Finestra() == nullptr)
            continue;
        for (QPushButton *pulsante : modulo->Finestra()->findChildren<QPushButton *>())
            Osserva(Nome_Di(*modulo), pulsante);
    }
}

void Fatti::Osserva(const QString &modulo, QPushButton *pulsante)
{
    constexpr const char *OSSERVATO = "osservato";
    if (pulsante->property(OSSERVATO).toBool())
        return;
    pulsante->setProperty(OSSERVATO, true);
    const QString fatto = modulo + u' ' + pulsante->objectName();
    QObject::connect(pulsante, &QPushButton::pressed, pulsante, [this, fatto] {
        m_fatti.insert(fatto);
        Segue(fatto);
    });
}

void Fatti::Dimentica()
{
    QSet<QString> aperti;
    for (const auto &modulo : Moduli_Caricati())
        aperti.insert(modulo->objectName());
    m_fatti.removeIf([&aperti](const QString &fatto) { return !aperti.contains(fatto.section(u' ', 0, 0)); });
}

void Fatti::Comincia(const QString &azione)
{
    const auto moduli = Moduli_Caricati();
    Segue((moduli.empty() ? QString() : Nome_Di(*moduli.back())) + u' ' + azione);
}

void Fatti::Segue(const QString &fatto)
{
    m_ultimi[QThread::currentThread()->loopLevel()] = fatto;
}

/// What a loop did that has come to its end is no matter any more: what waited for it goes on.
QString Fatti::Ultimo() const
{
    const auto dopo = m_ultimi.upperBound(QThread::currentThread()->loopLevel());
    return dopo == m_ultimi.cbegin() ? QString() : *std::prev(dopo);
}

bool Errore_Ammesso(const QString &errore, const QString &dopo)
{
    return std::any_of(std::begin(ERRORI), std::end(ERRORI), [&](const RegolaErrore &regola) {
        return errore == QLatin1String(regola.Errore) && dopo == QLatin1String(regola.Dopo);
    });
}

// --- the files
// ----------------------------------------------------------------------------------------------

Regole::Regole(const QString &cartella) : m_cartella(cartella)
{
    Prendi();
}

Regole::Elenco Regole::Leggi() const
{
    Elenco elenco;
    QDirIterator voci(m_cartella, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (voci.hasNext()) {
        voci.next();
        const QFileInfo voce = voci.fileInfo();
        Visto visto{voce.lastModified(), voce.size(), {}};
        QFile file(voce.filePath());
        if (visto.Quanto < PICCOLO && file.open(QIODevice::ReadOnly))
            visto.Byte = file.readAll();
        elenco.insert(QDir(m_cartella).relativeFilePath(voce.filePath()), visto);
    }
    return elenco;
}

void Regole::Prendi()
{
    m_prima = Leggi();
}

QStringList Regole::Controlla(const Fatti &fatti)
{
    const Elenco adesso = Leggi();
    QStringList guasti;
    for (auto voce = adesso.cbegin(); voce != adesso.cend(); ++voce) {
        if (m_prima.value(voce.key()) != voce.value())
            guasti.append(Giudica(voce.key(), fatti, adesso));
    }
    for (auto voce = m_prima.cbegin(); voce != m_prima.cend(); ++voce) {
        if (!adesso.contains(voce.key()))
            guasti.append(Giudica_Sparita(voce.key(), fatti, adesso));
    }
    guasti.removeAll(QString());
    m_prima = adesso;
    return guasti;
}

/// @return what is wrong with a file that is new, or another than before; empty when a rule changes it.
QString Regole::Giudica(const QString &nome, const Fatti &fatti, const Elenco &adesso) const
{
    const Visto &visto = adesso[nome];
    if (nome == QLatin1String(CONFIGURAZIONE) && m_prima.contains(nome)) {
        const QStringList prima = Righe_Ferme(m_prima[nome].Byte, fatti);
        const QStringList dopo = Righe_Ferme(visto.Byte, fatti);
        return prima == dopo ? QString() : nome + QStringLiteral(": ") + Prima_Diversa(prima, dopo);
    }
    if (nome.endsWith(QLatin1String(RISULTATO), Qt::CaseInsensitive)) {
        if (!fatti.Visto(QStringLiteral("frmEsito")))
            return nome + QStringLiteral(": a result that nobody has seen");
        return Far_Intero(visto.Byte) ? QString() : nome + QStringLiteral(": not whole");
    }
    return nome + (m_prima.contains(nome) ? QStringLiteral(": changed") : QStringLiteral(": made"));
}

/// @return what is wrong with a file that has gone; empty when a rule takes it away.
QString Regole::Giudica_Sparita(const QString &nome, const Fatti &fatti, const Elenco &adesso) const
{
    if (!nome.endsWith(QLatin1String(ACCETTAZIONE), Qt::CaseInsensitive))
        return nome + QStringLiteral(": gone");
    const QString radice = nome.chopped(qsizetype(qstrlen(ACCETTAZIONE)));
    const auto risultato = std::find_if(adesso.keyBegin(), adesso.keyEnd(), [&radice](const QString &altro) {
        return altro.compare(radice + QLatin1String(RISULTATO), Qt::CaseInsensitive) == 0;
    });
    const bool misurata = risultato != adesso.keyEnd() && adesso[*risultato] != m_prima.value(*risultato) &&
                          Far_Intero(adesso[*risultato].Byte);
    return misurata && fatti.Visto(QStringLiteral("frmEsito"))
               ? QString()
               : nome + QStringLiteral(": gone without a result");
}

} // namespace operatore
