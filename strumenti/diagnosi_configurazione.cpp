// lumira.ini twice: line by line as the profile calls understand it, and value by value as the station takes
// it. The station's own readings judge wherever there is one.
#include "strumenti/diagnosi.h"

#include "app/stato_stazione.h"
#include "core/limiti.h"
#include "core/lingue.h"
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "core/parole.h"
#include "link/modComm.h"
#include "link/seriale_comune.h"
#include "platform/errore_esecuzione.h"
#include "platform/localita.h"
#include "platform/numeri.h"
#include "platform/orologio.h"
#include "platform/percorsi.h"
#include "platform/profilo_testo.h"
#include "strumenti/codice_testo.h"
#include "strumenti/password_coperta.h"
#include "strumenti/scrivibile.h"

#include <QDate>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace {

#define CHIAVE(nome, sezione, chiave, predefinito) nome,
constexpr ChiaveIni CHIAVI[] = {CHIAVI_INI(CHIAVE)};
#undef CHIAVE

constexpr Parole IN_ORDINE = {u"lumira.ini: %1 chiavi in ordine", u"lumira.ini: %1 keys in order"};
constexpr Parole CORREGGERE = {u"correggere lumira.ini a stazione chiusa",
                               u"mend lumira.ini with the station closed"};

// --- line by line -----------------------------------------------------------------------------------------

constexpr Parole NON_ANSI = {u"lumira.ini è in UTF-16: la stazione non vi trova niente",
                             u"lumira.ini is in UTF-16: the station finds nothing in it"};
constexpr Parole CON_SEGNO = {u"lumira.ini comincia con il segno di UTF-8: la prima sezione non si trova",
                              u"lumira.ini begins with the mark of UTF-8: its first section is not found"};
constexpr Parole SALVARE_ANSI = {u"salvarlo come ANSI (Windows-1252)", u"save it as ANSI (Windows-1252)"};
constexpr Parole IN_UTF8 = {u"riga %1, %2: lettere accentate in UTF-8, si leggeranno male",
                            u"line %1, %2: accented letters in UTF-8, they will read wrong"};
constexpr Parole RISCRIVERE = {u"riscrivere il valore dalla stazione, o salvare il file come ANSI",
                               u"write the value again from the station, or save the file as ANSI"};
constexpr Parole SEZIONE_DOPPIA = {u"riga %1: seconda sezione [%2], nessuno la legge",
                                   u"line %1: second section [%2], nobody reads it"};
constexpr Parole CHIAVE_DOPPIA = {u"riga %1: %2 c'è già, questa nessuno la legge",
                                  u"line %1: %2 stands there before, nobody reads this one"};
constexpr Parole SENZA_UGUALE = {u"riga %1: %2 non ha il segno =", u"line %1: %2 has no sign ="};
constexpr Parole UNIRE = {u"tenere una volta sola ciò che vale", u"keep once what holds"};

bool E_Password(const QString &nome)
{
    return nome == Nome_DaConfrontare(ChiavePassword.Nome.toString()) ||
           nome == Nome_DaConfrontare(ChiavePassword2.Nome.toString());
}

/// The name of a key as it may be told. Without "=" the whole line is its name: the first word of it tells
/// which line is meant, and the rest may be a password.
QString Nome_Dicibile(const RigaProfilo &riga)
{
    static const QRegularExpression DOPO_LA_PAROLA(QStringLiteral("[\\s:].*"));
    if (E_Password(riga.Nome))
        return riga.Nome;
    return Password_Coperte(riga.Uguale ? riga.Nome : QString(riga.Nome).remove(DOPO_LA_PAROLA));
}

QString Nome_Detto(const QString &sezione, const QString &chiave)
{
    return QStringLiteral("[%1] %2").arg(sezione, chiave);
}
QString Nome_Detto(const ChiaveIni &chiave)
{
    return Nome_Detto(chiave.Sezione.toString(), chiave.Nome.toString());
}

/// Walks the lines once. Names come as they are compared, in capitals.
class Lettura
{
public:
    explicit Lettura(Riscontri &riscontri) : m_riscontri(riscontri) {}

    void Riga(const RigaProfilo &riga)
    {
        if (riga.Testa)
            Testa(riga);
        else
            Chiave(riga);
    }
    bool Ha_Sezione(QStringView nome) const { return m_chiavi.contains(Nome_DaConfrontare(nome.toString())); }
    bool Ha(const ChiaveIni &chiave) const
    {
        return m_chiavi.value(Nome_DaConfrontare(chiave.Sezione.toString()))
            .contains(Nome_DaConfrontare(chiave.Nome.toString()));
    }

private:
    void Testa(const RigaProfilo &riga)
    {
        m_sezione = riga.Nome;
        m_letta = !m_chiavi.contains(riga.Nome);
        if (m_letta)
            m_chiavi.insert(riga.Nome, {});
        else
            Trovato_Guasto(m_riscontri, Materia::Configurazione,
                           In_Parole(SEZIONE_DOPPIA).arg(QString::number(riga.Numero), riga.Nome),
                           In_Parole(UNIRE));
    }
    void Chiave(const RigaProfilo &riga)
    {
        const QString numero = QString::number(riga.Numero);
        const QString nome = Nome_Detto(m_sezione, Nome_Dicibile(riga));
        if (!riga.Uguale)
            Trovato_Avviso(m_riscontri, Materia::Configurazione, In_Parole(SENZA_UGUALE).arg(numero, nome),
                           In_Parole(CORREGGERE));
        // A scrambled password is no text: its bytes fall as they fall.
        if (E_Utf8(riga.Byte) && !E_Password(riga.Nome))
            Trovato_Avviso(m_riscontri, Materia::Configurazione, In_Parole(IN_UTF8).arg(numero, nome),
                           In_Parole(RISCRIVERE));
        if (!m_letta)
            return;
        QStringList &chiavi = m_chiavi[m_sezione];
        if (chiavi.contains(riga.Nome))
            Trovato_Avviso(m_riscontri, Materia::Configurazione, In_Parole(CHIAVE_DOPPIA).arg(numero, nome),
                           In_Parole(UNIRE));
        chiavi.append(riga.Nome);
    }

    Riscontri &m_riscontri;
    QMap<QString, QStringList> m_chiavi; ///< of the first section of each name
    QString m_sezione;
    bool m_letta = false; ///< the section at hand is the first of its name
};

constexpr Parole SEZIONE_MANCA = {u"manca la sezione [%1]", u"section [%1] is missing"};
constexpr Parole CHIAVE_MANCA = {u"manca %1: vale \"%2\"", u"%1 is missing: \"%2\" is taken"};
constexpr Parole CHIAVE_NECESSARIA = {u"manca %1, che la stazione deve trovare",
                                      u"%1 is missing, which the station has to find"};
constexpr Parole RIMETTERE = {u"rimetterla come nel lumira.ini consegnato",
                              u"put it back as in the delivered lumira.ini"};

/// In the order of the keys, which is that of their sections.
void Guarda_Mancanti(const Lettura &lettura, Riscontri &riscontri)
{
    QStringView sezione;
    for (const ChiaveIni &chiave : CHIAVI) {
        const bool nuova = chiave.Sezione != sezione;
        sezione = chiave.Sezione;
        if (lettura.Ha(chiave))
            continue;
        if (!lettura.Ha_Sezione(sezione)) {
            if (nuova)
                Trovato_Guasto(riscontri, Materia::Configurazione,
                               In_Parole(SEZIONE_MANCA).arg(sezione.toString()), In_Parole(RIMETTERE));
        } else if (chiave.Predefinito.isNull()) {
            Trovato_Guasto(riscontri, Materia::Configurazione,
                           In_Parole(CHIAVE_NECESSARIA).arg(Nome_Detto(chiave)), In_Parole(RIMETTERE));
        } else {
            Trovato_Avviso(riscontri, Materia::Configurazione,
                           In_Parole(CHIAVE_MANCA).arg(Nome_Detto(chiave), chiave.Predefinito.toString()),
                           In_Parole(RIMETTERE));
        }
    }
}

/// @return false when nothing in the file can be found.
bool Guarda_Righe(Riscontri &riscontri)
{
    QFile file(Percorso_Nativo(gFileIni));
    if (!file.open(QIODevice::ReadOnly))
        return false; // the look at the files has told
    const QByteArray byte = file.readAll();
    if (byte.contains('\0')) {
        Trovato_Guasto(riscontri, Materia::Configurazione, In_Parole(NON_ANSI), In_Parole(SALVARE_ANSI));
        return false;
    }
    if (byte.isEmpty())
        return false;
    if (byte.startsWith("\xEF\xBB\xBF"))
        Trovato_Guasto(riscontri, Materia::Configurazione, In_Parole(CON_SEGNO), In_Parole(SALVARE_ANSI));
    Lettura lettura(riscontri);
    const QList<RigaProfilo> righe = Righe_Profilo(byte);
    for (const RigaProfilo &riga : righe)
        lettura.Riga(riga);
    Guarda_Mancanti(lettura, riscontri);
    return true;
}

// --- the file itself --------------------------------------------------------------------------------------

constexpr Parole NON_SCRIVIBILE = {u"lumira.ini non si può scrivere: ogni modifica andrà persa",
                                   u"lumira.ini cannot be written: every change will be lost"};
constexpr Parole DARE_DIRITTI = {
    u"dare all'utente della stazione il diritto di scrivere il file e la sua cartella",
    u"let the station's user write the file and its folder"};

/// The station says so at its start, once, to whoever sits there then.
void Guarda_Scrittura(Riscontri &riscontri)
{
    if (!Configurazione_Scrivibile(gFileIni))
        Trovato_Avviso(riscontri, Materia::Configurazione, In_Parole(NON_SCRIVIBILE),
                       In_Parole(DARE_DIRITTI));
}

// --- value by value ---------------------------------------------------------------------------------------

bool E_Flag(const QString &valore)
{
    return valore == u"0" || valore == u"1";
}
bool E_Camera(const QString &valore)
{
    return E_Flag(valore) || valore == u"S" || valore == u"N";
}
/// A point in it would part thousands to the eye and decimals to the station: 90.000 is ninety.
bool E_Lux(const QString &valore)
{
    constexpr int MASSIMO = 999900; // the instrument's figure has four digits, and stands for hundreds
    const bool cifre =
        std::all_of(valore.cbegin(), valore.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return cifre && valore.toInt() > 0 && valore.toInt() <= MASSIMO;
}
/// By the machine that the tool runs on: it is the station's.
bool E_Numero(const QString &valore)
{
    return Numero_Valido(Con_Separatore(valore, Locale_Info(LOCALE_SEPARATORE_DECIMALE)));
}
/// As the entry form takes it, with no word for it: what it cannot take ends the program.
bool E_Altezza(const QString &valore)
{
    try {
        Numero_Doppio(valore);
        return true;
    } catch (const ErroreEsecuzione &) {
        return false;
    }
}
bool E_DataControllo(const QString &valore)
{
    return QDate::fromString(valore, QStringLiteral("ddMMyyyy")).isValid();
}
bool E_Versione(const QString &valore)
{
    return std::all_of(valore.cbegin(), valore.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}
bool E_Lingua(const QString &valore)
{
    return std::any_of(std::begin(LINGUE), std::end(LINGUE), [&valore](const LinguaStazione &lingua) {
        return valore.compare(QStringView(lingua.codice), Qt::CaseInsensitive) == 0;
    });
}
bool E_Cartella(const QString &valore)
{
    return valore.endsWith(u'\\');
}
bool E_Password_Leggibile(const QString &valore)
{
    try {
        Pwd_Decifra(valore);
        return true;
    } catch (const ErroreEsecuzione &) {
        return false;
    }
}

constexpr Parole FLAG = {u"0 o 1", u"0 or 1"};
constexpr Parole CAMERA = {u"S, N, 0 o 1", u"S, N, 0 or 1"};
constexpr Parole LUX = {u"un intero di sole cifre, da 1 a 999900",
                        u"a whole number of digits alone, 1 to 999900"};
constexpr Parole NUMERO = {u"un numero", u"a number"};
constexpr Parole ALTEZZA = {u"l'altezza in cm: senza, la prova finisce con l'errore 13",
                            u"the height in cm: without it a test ends with error 13"};
constexpr Parole DATA = {u"una data, ggmmaaaa", u"a date, ddmmyyyy"};
constexpr Parole VERSIONE = {u"una versione di sole cifre", u"a version of digits alone"};
constexpr Parole LINGUA = {u"una di IT, FR, EN, ES, DE: senza, lo schermo resta senza testi",
                           u"one of IT, FR, EN, ES, DE: without it the screen has no texts"};
constexpr Parole CARTELLA = {u"una cartella con la barra rovescia in fondo",
                             u"a folder with a backslash at its end"};
constexpr Parole PASSWORD = {u"una password scritta da lumira-password",
                             u"a password written by lumira-password"};

enum class SeVuoto : quint8
{
    Ammesso, ///< as good as none: the station has its own value, or needs none
    Rifiutato,
};

struct RegolaChiave
{
    ChiaveIni Chiave;
    bool (*Regolare)(const QString &valore);
    Parole Atteso;
    Grado SeNo;
    SeVuoto Vuoto = SeVuoto::Ammesso;
};

// clang-format off
/// What may stand behind a key.
constexpr RegolaChiave REGOLE[] = {
    {ChiaveDebug,               E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLingua,              E_Lingua,             LINGUA,   Grado::Guasto, SeVuoto::Rifiutato},
    {ChiavePassword,            E_Password_Leggibile, PASSWORD, Grado::Guasto},
    {ChiavePassword2,           E_Password_Leggibile, PASSWORD, Grado::Guasto},
    {ChiaveSimmetrico,          E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveAltezzaFaro,         E_Altezza,            ALTEZZA,  Grado::Guasto, SeVuoto::Rifiutato},
    {ChiaveInclinazioneFaro,    E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveModelloSeriale,      E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveAzzeraTelecamera,    E_Camera,             CAMERA,   Grado::Avviso},
    {ChiaveModalita,            E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveReteDati,            E_Cartella,           CARTELLA, Grado::Guasto, SeVuoto::Rifiutato},
    {ChiaveReteRisultati,       E_Cartella,           CARTELLA, Grado::Avviso},
    {ChiaveLocaleDati,          E_Cartella,           CARTELLA, Grado::Guasto, SeVuoto::Rifiutato},
    {ChiaveLocaleRisultati,     E_Cartella,           CARTELLA, Grado::Avviso},
    {ChiaveIniFile,             E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveEsce,                E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveControlloVisivo,     E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveAllarmeAcustico,     E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveAlimentazione,       E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveAltezzaFaroAuto,     E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLuxMaxAbb,           E_Lux,                LUX,      Grado::Guasto},
    {ChiaveLuxMaxAnab,          E_Lux,                LUX,      Grado::Guasto},
    {ChiaveLuxMinAbb,           E_Lux,                LUX,      Grado::Guasto},
    {ChiaveLuxMinAnab,          E_Lux,                LUX,      Grado::Guasto},
    {ChiaveDevVertAbb,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveDevVertAnab,         E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveDevOrizAbb,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveDevOrizAnab,         E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveIncVertMin80An,      E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveIncVertMin80Ab,      E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveIncVertMax80An,      E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveIncVertMax80Ab,      E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveLivelloNomeFile,     E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloSezDuplicate, E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloSezEstranee,  E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloSezMancanti,  E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloKeyDuplicate, E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloKeyEstranee,  E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloKeyMancanti,  E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloSpazi,        E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloDati,         E_Flag,               FLAG,     Grado::Avviso},
    {ChiaveLivelloData,         E_DataControllo,      DATA,     Grado::Avviso},
    {ChiaveLivelloVersione,     E_Versione,           VERSIONE, Grado::Avviso},
    {ChiaveTaraturaMaxManopola, E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaMinManopola, E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS1,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS2,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS3,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS4,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS5,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS6,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS7,          E_Numero,             NUMERO,   Grado::Avviso},
    {ChiaveTaraturaS8,          E_Numero,             NUMERO,   Grado::Avviso},
};
// clang-format on

constexpr Parole NON_PLAUSIBILE = {u"%1=%2 non va bene", u"%1=%2 is not good"};
constexpr Parole METTERE = {u"mettere %1", u"put %1"};
constexpr Parole NASCOSTO = {u"(non mostrato)", u"(not shown)"};

void Guarda_Valori(Riscontri &riscontri)
{
    for (const RegolaChiave &regola : REGOLE) {
        const QString valore = Valore_Ini(gFileIni, regola.Chiave);
        if (valore.isEmpty() ? regola.Vuoto == SeVuoto::Ammesso : regola.Regolare(valore))
            continue;
        const bool password = E_Password(Nome_DaConfrontare(regola.Chiave.Nome.toString()));
        riscontri.append({Materia::Configurazione, regola.SeNo,
                          In_Parole(NON_PLAUSIBILE)
                              .arg(Nome_Detto(regola.Chiave), password ? In_Parole(NASCOSTO) : valore),
                          In_Parole(METTERE).arg(In_Parole(regola.Atteso))});
    }
}

struct LimitiDetti
{
    Fascio Di;
    ChiaveIni Minimo, Massimo;
};

constexpr LimitiDetti LIMITI[] = {
    {FascioAbbagliante,   ChiaveLuxMinAbb,  ChiaveLuxMaxAbb },
    {FascioAnabbagliante, ChiaveLuxMinAnab, ChiaveLuxMaxAnab},
};

constexpr Parole LIMITI_ROVESCIATI = {u"%1 (%2) non è sotto %3 (%4): nessun faro può essere regolare",
                                      u"%1 (%2) is not below %3 (%4): no lamp can be regular"};
constexpr Parole LIMITI_NON_LETTI = {u"[%1]: i limiti non si possono leggere (%2)",
                                     u"[%1]: the limits cannot be read (%2)"};
constexpr Parole RIVEDERE_LIMITI = {u"rimettere i limiti dalle impostazioni",
                                    u"set the limits again in the settings"};

void Guarda_Limiti(Riscontri &riscontri)
{
    // The station reads its password with the limits. One that is no password has been told as such; the
    // limits cannot be judged then.
    if (!E_Password_Leggibile(Valore_Ini(gFileIni, ChiavePassword)))
        return;
    try {
        Carica_Limiti();
    } catch (const ErroreEsecuzione &errore) {
        Trovato_Guasto(riscontri, Materia::Configurazione,
                       In_Parole(LIMITI_NON_LETTI).arg(SezioneParametri.toString(), errore.Descrizione()),
                       In_Parole(RIVEDERE_LIMITI));
        return;
    }
    for (const LimitiDetti &detti : LIMITI) {
        const LimitiFascio limiti = Limiti_Di(detti.Di);
        // Neither limit is regular itself.
        if (limiti.minimo >= limiti.massimo)
            Trovato_Guasto(riscontri, Materia::Configurazione,
                           In_Parole(LIMITI_ROVESCIATI)
                               .arg(detti.Minimo.Nome.toString(), QString::number(limiti.minimo),
                                    detti.Massimo.Nome.toString(), QString::number(limiti.massimo)),
                           In_Parole(RIVEDERE_LIMITI));
    }
}

constexpr Parole PORTA_NON_LETTA = {u"[%1]: porta, velocità e formato non si possono leggere (%2)",
                                    u"[%1]: port, speed and format cannot be read (%2)"};
constexpr Parole PORTA_SENZA_NUMERO = {u"%1=%2: non è il numero di una porta",
                                       u"%1=%2: that is no port's number"};
constexpr Parole FORMATO_IGNOTO = {u"[%1]: %2 non è una velocità con il suo formato, la porta resterà sorda",
                                   u"[%1]: %2 is no speed with its format, the port will be deaf"};
constexpr Parole SCEGLIERE_PORTA = {u"scegliere la porta nelle impostazioni; di solito 9600,N,8,1",
                                    u"choose the port in the settings; usually 9600,N,8,1"};

void Guarda_Porta(Riscontri &riscontri)
{
    const QString sezione = SezionePorta.toString();
    try {
        Leggi_Porta(gFileIni);
    } catch (const ErroreEsecuzione &errore) {
        Trovato_Guasto(riscontri, Materia::Configurazione,
                       In_Parole(PORTA_NON_LETTA).arg(sezione, errore.Descrizione()),
                       In_Parole(SCEGLIERE_PORTA));
        return;
    }
    if (gPortaNum <= 0)
        Trovato_Guasto(
            riscontri, Materia::Configurazione,
            In_Parole(PORTA_SENZA_NUMERO).arg(Nome_Detto(ChiavePortaNumero), QString::number(gPortaNum)),
            In_Parole(SCEGLIERE_PORTA));
    try {
        Formato_Di(Impostazioni_Porta());
    } catch (const ErroreEsecuzione &) {
        Trovato_Guasto(riscontri, Materia::Configurazione,
                       In_Parole(FORMATO_IGNOTO).arg(sezione, Impostazioni_Porta()),
                       In_Parole(SCEGLIERE_PORTA));
    }
}

} // namespace

void Diagnosi_Configurazione(Riscontri &riscontri)
{
    const qsizetype prima = riscontri.size();
    if (!Guarda_Righe(riscontri))
        return;
    Guarda_Scrittura(riscontri);
    Guarda_Valori(riscontri);
    Guarda_Limiti(riscontri);
    Guarda_Porta(riscontri);
    if (riscontri.size() == prima)
        Trovato_Buono(riscontri, Materia::Configurazione, In_Parole(IN_ORDINE).arg(std::size(CHIAVI)));
    Verifica_Aggiungi(riscontri, Materia::Configurazione, Valore_Ini(gFileIni, ChiaveStrumentoScadenza));
}
