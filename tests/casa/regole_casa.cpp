#include "tests/casa/regole_casa.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

/// The folders of the house, from the ground up: each may include those before it, and none behind it.
constexpr const char16_t *CARTELLE[] = {u"platform", u"toolkit", u"core",  u"dialogs", u"link",
                                        u"report",   u"mctc",    u"setup", u"app"};

QString Cartella_Di(const QString &file)
{
    return file.section(u'/', 0, 0);
}

/// Place of a file's folder in that order; behind them all stands what is beside the house, tests and tools.
qsizetype Piano_Di(const QString &file)
{
    const auto *posto = std::find(std::begin(CARTELLE), std::end(CARTELLE), Cartella_Di(file));
    return std::distance(std::begin(CARTELLE), posto);
}

bool Della_Casa(const QString &file)
{
    return Piano_Di(file) < std::ssize(CARTELLE);
}

bool E_Form(const QString &file)
{
    const QString nome = QFileInfo(file).completeBaseName();
    return Della_Casa(file) && (nome.startsWith(u"frm") || nome.startsWith(u"dlg"));
}

/// What must do without a window: all of the house above the toolkit but forms and the program's start.
bool Senza_Finestra(const QString &file)
{
    return Della_Casa(file) && Piano_Di(file) >= 2 && !E_Form(file) &&
           QFileInfo(file).completeBaseName() != u"modMain";
}

/// What of Qt a form may say: types of text, time, list and value, the sender of its signal, a value that is
/// put back.
constexpr const char16_t *QT_DEI_FORM[] = {
    u"QString",   u"QStringView", u"QStringList", u"QStringLiteral", u"QLatin1String",       u"QChar",
    u"QDateTime", u"QVariant",    u"QList",       u"QObject",        u"QScopedValueRollback"};

/// Who lets events run: the one name, a modal show, a box of the system, the program's own loop.
constexpr const char16_t *CON_EVENTI[] = {u"platform/eventi_posix.cpp", u"platform/eventi_win32.cpp",
                                          u"toolkit/modulo.h",          u"toolkit/modulo.cpp",
                                          u"toolkit/applicazione.cpp",  u"app/modMain.cpp"};

template <size_t N>
bool Compreso(const char16_t *const (&elenco)[N], const QString &nome)
{
    return std::find(std::begin(elenco), std::end(elenco), nome) != std::end(elenco);
}

/// Header and bodies of one thing: the path without extension and without the name of a system.
QString Unita_Di(const QString &file)
{
    static const QRegularExpression CODA(QStringLiteral("(_posix|_win32|_qt)?\\.(h|cpp)$"));
    return QString(file).remove(CODA);
}

/// What a file includes: files of the tree by their path, headers of the system by their name.
struct Inclusioni
{
    QStringList file;
    QStringList sistema;
};

QMap<QString, Inclusioni> Inclusioni_Di(const Sorgenti &sorgenti)
{
    static const QRegularExpression RIGA(
        QStringLiteral("^[ \\t]*#[ \\t]*include[ \\t]*([<\"])([^>\"]+)[>\"]"),
        QRegularExpression::MultilineOption);
    QMap<QString, Inclusioni> inclusioni;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        Inclusioni &sue = inclusioni[sorgente.key()];
        for (auto righe = RIGA.globalMatch(Spoglia(sorgente.value(), true)); righe.hasNext();) {
            const QRegularExpressionMatch riga = righe.next();
            const QString nome = riga.captured(2);
            const QString vicino = QFileInfo(sorgente.key()).path() + u'/' + nome;
            if (riga.captured(1) == u"<")
                sue.sistema.append(nome.section(u'/', -1));
            else if (sorgenti.contains(nome))
                sue.file.append(nome);
            else if (sorgenti.contains(vicino))
                sue.file.append(vicino);
        }
    }
    return inclusioni;
}

using Grafo = QMap<QString, QSet<QString>>;

/// Who includes whom, file by file.
Grafo Grafo_Di(const QMap<QString, Inclusioni> &inclusioni)
{
    Grafo grafo;
    for (auto i = inclusioni.cbegin(); i != inclusioni.cend(); ++i)
        grafo[i.key()] = QSet<QString>(i->file.cbegin(), i->file.cend());
    return grafo;
}

/// All that can be reached from a place in one step or more.
QSet<QString> Raggiunti(const Grafo &grafo, const QString &da)
{
    QSet<QString> raggiunti;
    QStringList attesa = grafo.value(da).values();
    while (!attesa.isEmpty()) {
        const QString posto = attesa.takeLast();
        if (raggiunti.contains(posto))
            continue;
        raggiunti.insert(posto);
        attesa += grafo.value(posto).values();
    }
    return raggiunti;
}

/// The text at namespace scope: what stands inside other braces, and inside parentheses, is cut out, and a
/// body of a procedure ends a statement.
QString Livello_Esterno(const QString &testo)
{
    static const QRegularExpression PREPROCESSORE(QStringLiteral("^[ \\t]*#(?:[^\\n]*\\\\\\n)*[^\\n]*"),
                                                  QRegularExpression::MultilineOption);
    static const QRegularExpression SPAZIO(QStringLiteral("(?:inline\\s+)?namespace(?:\\s+[\\w:]+)?\\s*$|"
                                                          "extern\\s*\"\"\\s*$"));
    static const QRegularExpression CORPO(
        QStringLiteral("\\(\\)(?:\\s*(?:const|noexcept|override|final|mutable))*\\s*\\{\\}"));
    const QString spoglio = Spoglia(testo, false).remove(PREPROCESSORE);
    QString esterno;
    QList<bool> graffe; // true: of a namespace
    int dentro = 0;     // braces and parentheses that hide what they hold
    for (const QChar c : spoglio) {
        if (c == u'{' || c == u'(') {
            const bool spazio = c == u'{' && dentro == 0 && SPAZIO.match(esterno).hasMatch();
            graffe.append(spazio);
            if (!spazio && dentro++ == 0)
                esterno += c;
            if (spazio)
                esterno += u';';
        } else if ((c == u'}' || c == u')') && !graffe.isEmpty()) {
            if (!graffe.takeLast() && --dentro == 0)
                esterno += c;
        } else if (dentro == 0) {
            esterno += c;
        }
    }
    return esterno.replace(CORPO, QStringLiteral("();"));
}

/// Variables of the program's state that one statement defines or, with extern, declares.
QStringList Nomi_Globali(const QString &istruzione)
{
    static const QRegularExpression NOME(
        QStringLiteral("\\b(g[A-Z]\\w*)\\s*(?:\\[[^\\]]*\\]|\\{\\}|\\(\\))*\\s*$"));
    QStringList nomi;
    const QStringList pezzi = istruzione.split(u',');
    for (const QString &pezzo : pezzi) {
        const QRegularExpressionMatch nome = NOME.match(pezzo.section(u'=', 0, 0));
        const bool primo = &pezzo == &pezzi.first();
        // A name alone is a statement of something else, such as a macro: a definition begins with a type.
        if (nome.hasMatch() && !(primo && pezzo.left(nome.capturedStart()).trimmed().isEmpty()))
            nomi.append(nome.captured(1));
    }
    return nomi;
}

} // namespace

Sorgenti Sorgenti_Leggi(const QString &radice)
{
    Sorgenti sorgenti;
    const QDir casa(radice);
    QDirIterator file(radice, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (file.hasNext()) {
        const QString percorso = file.next();
        const QString relativo = casa.relativeFilePath(percorso);
        if (relativo.startsWith(u"build") || relativo.startsWith(u'.'))
            continue;
        QFile aperto(percorso);
        if (aperto.open(QIODevice::ReadOnly))
            sorgenti.insert(relativo, QString::fromUtf8(aperto.readAll()));
    }
    return sorgenti;
}

QString Spoglia(const QString &testo, bool conLetterali)
{
    static const QRegularExpression PEZZO(
        QStringLiteral(
            "//[^\\n]*|/\\*.*?\\*/|\"(?:\\\\.|[^\"\\\\\\n])*\"|(?<![0-9])'(?:\\\\.|[^'\\\\\\n])*'"),
        QRegularExpression::DotMatchesEverythingOption);
    QString spoglio;
    qsizetype da = 0;
    for (auto trovati = PEZZO.globalMatch(testo); trovati.hasNext();) {
        const QRegularExpressionMatch pezzo = trovati.next();
        spoglio += testo.mid(da, pezzo.capturedStart() - da);
        const bool commento = pezzo.capturedView().startsWith(u'/');
        spoglio += commento ? QStringLiteral(" ") : conLetterali ? pezzo.captured() : QStringLiteral("\"\"");
        da = pezzo.capturedEnd();
    }
    return spoglio + testo.mid(da);
}

QStringList Anelli(const Sorgenti &sorgenti)
{
    Grafo grafo;
    const QMap<QString, Inclusioni> inclusioni = Inclusioni_Di(sorgenti);
    for (auto i = inclusioni.cbegin(); i != inclusioni.cend(); ++i) {
        const QString unita = Unita_Di(i.key());
        for (const QString &altro : i->file) {
            if (Unita_Di(altro) != unita)
                grafo[unita].insert(Unita_Di(altro));
        }
    }
    QMap<QString, QSet<QString>> raggiunti;
    for (auto i = grafo.cbegin(); i != grafo.cend(); ++i)
        raggiunti.insert(i.key(), Raggiunti(grafo, i.key()));

    QStringList anelli;
    QSet<QString> visti;
    for (auto i = raggiunti.cbegin(); i != raggiunti.cend(); ++i) {
        QStringList anello;
        for (const QString &altro : *i) {
            if (raggiunti.value(altro).contains(i.key()))
                anello.append(altro);
        }
        anello.sort();
        if (!anello.isEmpty() && !visti.contains(i.key()))
            anelli.append(anello.join(QStringLiteral(" <-> ")));
        visti += QSet<QString>(anello.cbegin(), anello.cend());
    }
    return anelli;
}

QStringList Simulatore_Dipendente(const Sorgenti &sorgenti)
{
    static const QRegularExpression AMMESSO(
        QStringLiteral("^(simulatore|platform|core)/|^link/(seriale|controllo_seriale|dispositivo_qt)\\.h$"));
    QStringList falli;
    const Grafo grafo = Grafo_Di(Inclusioni_Di(sorgenti));
    for (auto i = grafo.cbegin(); i != grafo.cend(); ++i) {
        if (Cartella_Di(i.key()) != u"simulatore")
            continue;
        const QSet<QString> raggiunti = Raggiunti(grafo, i.key());
        for (const QString &altro : raggiunti) {
            if (!AMMESSO.match(altro).hasMatch())
                falli.append(i.key() + QStringLiteral(" reaches ") + altro);
        }
    }
    falli.sort();
    return falli;
}

QStringList Prove_ConAltroNome(const Sorgenti &sorgenti)
{
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        const QFileInfo file(sorgente.key());
        const QString nome = file.completeBaseName();
        if (!nome.startsWith(u"tst_") || file.suffix() != u"cpp")
            continue;
        const QRegularExpression classe(QStringLiteral("\\bclass\\s+%1\\s*(final\\s*)?:").arg(nome));
        if (!classe.match(Spoglia(sorgente.value(), false)).hasMatch())
            falli.append(sorgente.key() + QStringLiteral(" has no class ") + nome);
    }
    return falli;
}

QStringList Finestre_NeiModuli(const Sorgenti &sorgenti, const QSet<QString> &finestre)
{
    QMap<QString, QString> diretta; // file: the window's header that it includes itself
    const QMap<QString, Inclusioni> inclusioni = Inclusioni_Di(sorgenti);
    const Grafo grafo = Grafo_Di(inclusioni);
    for (auto i = inclusioni.cbegin(); i != inclusioni.cend(); ++i) {
        for (const QString &nome : i->sistema) {
            if (finestre.contains(nome))
                diretta.insert(i.key(), nome);
        }
    }

    QStringList falli;
    for (auto i = grafo.cbegin(); i != grafo.cend(); ++i) {
        if (!Senza_Finestra(i.key()))
            continue;
        if (diretta.contains(i.key()))
            falli.append(i.key() + QStringLiteral(" includes ") + diretta.value(i.key()));
        // These two make the controls and the drawings of the forms, through types of toolkit/ and platform/.
        const QString unita = Unita_Di(i.key());
        if (unita == u"core/modCtl" || unita == u"report/modPrn")
            continue;
        const QSet<QString> raggiunti = Raggiunti(grafo, i.key());
        for (const QString &altro : raggiunti) {
            if (diretta.contains(altro))
                falli.append(i.key() + QStringLiteral(" reaches ") + altro);
        }
    }
    falli.sort();
    return falli;
}

QStringList Qt_NeiForm(const Sorgenti &sorgenti)
{
    static const QRegularExpression PAROLA(QStringLiteral("\\bQt::\\w+|\\bQt?[A-Z]\\w*"));
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!E_Form(sorgente.key()))
            continue;
        const QString testo = Spoglia(sorgente.value(), false);
        for (auto parole = PAROLA.globalMatch(testo); parole.hasNext();) {
            const QString parola = parole.next().captured();
            if (!Compreso(QT_DEI_FORM, parola))
                falli.append(sorgente.key() + QStringLiteral(": ") + parola);
        }
    }
    return falli;
}

QStringList Eventi_FuoriPosto(const Sorgenti &sorgenti)
{
    static const QRegularExpression GIRO(
        QStringLiteral("\\b(?:processEvents|sendPostedEvents|QEventLoop)\\b|\\bexec(?=\\s*\\()"));
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!Della_Casa(sorgente.key()) || Compreso(CON_EVENTI, sorgente.key()))
            continue;
        const QString testo = Spoglia(sorgente.value(), false);
        for (auto giri = GIRO.globalMatch(testo); giri.hasNext();)
            falli.append(sorgente.key() + QStringLiteral(": ") + giri.next().captured());
    }
    return falli;
}

QStringList Sistemi_FuoriPosto(const Sorgenti &sorgenti)
{
    static const QRegularExpression CONDIZIONE(
        QStringLiteral("^[ \\t]*#[ \\t]*(?:if|ifdef|ifndef|elif|elifdef|elifndef)\\b[^\\n]*\\b"
                       "(_?WIN(?:32|64)|__(?:unix|linux|APPLE|MINGW32|MINGW64|CYGWIN)(?:__)?|Q_OS_\\w+)\\b"),
        QRegularExpression::MultilineOption);
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (Cartella_Di(sorgente.key()) == u"platform" || sorgente.key().startsWith(u"link/seriale_"))
            continue;
        const QString testo = Spoglia(sorgente.value(), false).replace(QStringLiteral("\\\n"), QString());
        for (auto righe = CONDIZIONE.globalMatch(testo); righe.hasNext();)
            falli.append(sorgente.key() + QStringLiteral(": ") + righe.next().captured(1));
    }
    return falli;
}

QStringList Inclusioni_InSalita(const Sorgenti &sorgenti)
{
    QStringList falli;
    const QMap<QString, Inclusioni> inclusioni = Inclusioni_Di(sorgenti);
    for (auto i = inclusioni.cbegin(); i != inclusioni.cend(); ++i) {
        for (const QString &altro : i->file) {
            if (Piano_Di(altro) > Piano_Di(i.key()))
                falli.append(i.key() + QStringLiteral(" includes ") + altro);
        }
    }
    return falli;
}

QStringList Globali_Doppie(const Sorgenti &sorgenti)
{
    static const QRegularExpression ALTRO(QStringLiteral("^(?:using|typedef|friend|return|template)\\b"));
    QMap<QString, QStringList> definite, dichiarate;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (Cartella_Di(sorgente.key()) == u"tests")
            continue;
        const QStringList istruzioni = Livello_Esterno(sorgente.value()).split(u';');
        for (const QString &intera : istruzioni) {
            const QString istruzione = intera.trimmed();
            if (ALTRO.match(istruzione).hasMatch())
                continue;
            QMap<QString, QStringList> &dove = istruzione.startsWith(u"extern") ? dichiarate : definite;
            for (const QString &nome : Nomi_Globali(istruzione))
                dove[nome].append(sorgente.key());
        }
    }

    QStringList falli;
    const auto fallo = [&falli](const QString &nome, const char *quale, const QStringList &file) {
        falli.append(nome + QLatin1String(quale) + file.join(QStringLiteral(", ")));
    };
    for (auto i = definite.cbegin(); i != definite.cend(); ++i) {
        if (i->size() > 1)
            fallo(i.key(), " is defined more than once: ", *i);
        const QStringList testate = dichiarate.value(i.key());
        if (!testate.isEmpty() && Unita_Di(testate.first()) != Unita_Di(i->first()))
            fallo(i.key(), " is not defined beside its header: ", testate + *i);
    }
    for (auto i = dichiarate.cbegin(); i != dichiarate.cend(); ++i) {
        if (i->size() > 1)
            fallo(i.key(), " is declared more than once: ", *i);
        if (!i->first().endsWith(u".h"))
            fallo(i.key(), " is declared outside a header: ", *i);
    }
    return falli;
}

QStringList Testi_SenzaNome(const Sorgenti &sorgenti)
{
    static const QRegularExpression PRESA(
        QStringLiteral("static_cast<\\s*Testo(?:Mctc|Lingua)\\s*>|\\bTesto(?:Mctc|Lingua)[({]|"
                       "\\b(?:Leggi|Valore)_Ini\\(\\s*gFileLingue\\w*|"
                       "(?<!ULTIMO_TESTO_MCTC, |ULTIMO_TESTO_LINGUA, )\\bgTab(?:Mctc|Lingua)\\b"));
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!Della_Casa(sorgente.key()) || Unita_Di(sorgente.key()) == u"core/modGeneral")
            continue;
        const QString testo = Spoglia(sorgente.value(), false);
        for (auto prese = PRESA.globalMatch(testo); prese.hasNext();)
            falli.append(sorgente.key() + QStringLiteral(": ") + prese.next().captured());
    }
    return falli;
}

QStringList Nomi_NonUsati(const Sorgenti &sorgenti, const QStringList &nomi)
{
    static const QRegularExpression PAROLA(QStringLiteral("\\b[A-Za-z]\\w*"));
    QMap<QString, QSet<QString>> dove; // name: the files that it stands in
    for (const QString &nome : nomi)
        dove.insert(nome, {});
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!Della_Casa(sorgente.key()))
            continue;
        const QString testo = Spoglia(sorgente.value(), false);
        for (auto parole = PAROLA.globalMatch(testo); parole.hasNext();) {
            const auto nome = dove.find(parole.next().captured());
            if (nome != dove.end())
                nome->insert(sorgente.key());
        }
    }
    QStringList falli;
    for (auto nome = dove.cbegin(); nome != dove.cend(); ++nome) {
        if (nome->size() < 2)
            falli.append(nome.key());
    }
    return falli;
}

QStringList Letterali_Vietati(const Sorgenti &sorgenti, const QStringList &parole)
{
    static const QRegularExpression LETTERALE(QStringLiteral("\"((?:\\\\.|[^\"\\\\\\n])*)\""));
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!Della_Casa(sorgente.key()) && Cartella_Di(sorgente.key()) != u"strumenti")
            continue;
        const QString testo = Spoglia(sorgente.value(), true);
        for (auto trovati = LETTERALE.globalMatch(testo); trovati.hasNext();) {
            const QString letterale = trovati.next().captured(1);
            if (parole.contains(letterale))
                falli.append(sorgente.key() + QStringLiteral(": ") + letterale);
        }
    }
    falli.removeDuplicates();
    return falli;
}

QStringList Procedure_Lunghe(const Sorgenti &sorgenti)
{
    constexpr qsizetype MASSIMO = 50;
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (Cartella_Di(sorgente.key()) == u"tests")
            continue;
        const QStringList righe = sorgente.value().split(u'\n');
        qsizetype inizio = -1;
        for (qsizetype i = 0; i < righe.size(); ++i) {
            if (righe[i] == u"{") {
                inizio = i;
            } else if (inizio >= 0 && righe[i].startsWith(u'}')) {
                if (righe[i] == u"}" && i - inizio - 1 > MASSIMO) // a class ends otherwise
                    falli.append(QStringLiteral("%1:%2").arg(sorgente.key()).arg(inizio));
                inizio = -1;
            }
        }
    }
    return falli;
}

QStringList Numeri_Nudi(const Sorgenti &sorgenti)
{
    // Nothing is 0 but the row where a loop begins, and a code before there is one.
    static const QRegularExpression NUDO(
        QStringLiteral("\\bg(?:Campi|ErroriCampi|Rep|Risultato)\\w*\\[\\s*\\d+|"
                       "\\bREGOLE_ACC\\[\\s*\\d+|"
                       "\\bCampo(?:_Acc)?\\(\\s*\\d+|"
                       "\\b[rR]iga\\s*[=!<>]=?\\s*[1-9]\\d*|"
                       "\\b(?:codice|gTipoProva|\\w*[eE]sito)\\s*[=!<>]=?\\s*(?:q?u?int\\d+\\{)?[1-9]\\d*|"
                       "\\b[1-9]\\d*\\s*[=!]=\\s*(?:codice|riga|gTipoProva)\\b|"
                       "\\b(?:Riga|Rep|Notifica)[A-Z]\\w*>?[({]\\s*\\d+|"
                       "<size_t>\\(\\s*[1-9]\\d*|"
                       "\\bcase\\s+\\d+"));
    QStringList falli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (!Della_Casa(sorgente.key()))
            continue;
        for (auto trovati = NUDO.globalMatch(Spoglia(sorgente.value(), false)); trovati.hasNext();)
            falli.append(sorgente.key() + QStringLiteral(": ") + trovati.next().captured());
    }
    return falli;
}
