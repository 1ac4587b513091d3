#include "tests/casa/testi_usati.h"

#include <QRegularExpression>

#include <optional>

namespace {

using Ids = std::optional<QSet<int>>; // none: they cannot be told

/// Where an expression stands. The texts are without comments and literals.
struct Luogo
{
    const Sorgenti &tutti;
    const QString &testo;
    qsizetype posto;
};

Ids Ids_Di(QString espressione, const Luogo &luogo);

QRegularExpression Cerca(const QString &forma, const QString &nome)
{
    return QRegularExpression(QString(forma).replace(u'@', nome));
}

int Livello(QChar c)
{
    return (QStringView(u"([{").contains(c) ? 1 : 0) - (QStringView(u")]}").contains(c) ? 1 : 0);
}

/// What stands between a bracket and the one that closes it.
QString Chiuso(const QString &testo, qsizetype aperta)
{
    int dentro = 0;
    for (qsizetype i = aperta; i < testo.size(); ++i) {
        dentro += Livello(testo[i]);
        if (dentro == 0)
            return testo.mid(aperta + 1, i - aperta - 1);
    }
    return {};
}

/// The parts between commas; commas in brackets do not count, nor does an empty last part.
QStringList Parti(const QString &testo)
{
    QStringList parti(QString{});
    int dentro = 0;
    for (const QChar c : testo) {
        dentro += Livello(c);
        if (c == u',' && dentro == 0)
            parti.append(QString());
        else
            parti.last() += c;
    }
    for (QString &parte : parti)
        parte = parte.trimmed();
    if (parti.last().isEmpty())
        parti.removeLast();
    return parti;
}

Ids Ids_DiTutte(const QStringList &espressioni, const Luogo &luogo)
{
    if (espressioni.isEmpty())
        return {};
    QSet<int> ids;
    for (const QString &espressione : espressioni) {
        const Ids suoi = Ids_Di(espressione, luogo);
        if (!suoi)
            return {};
        ids += *suoi;
    }
    return ids;
}

std::optional<int> Uno(const QString &espressione, const Luogo &luogo)
{
    const Ids ids = Ids_Di(espressione, luogo);
    return ids && ids->size() == 1 ? std::optional<int>(*ids->cbegin()) : std::nullopt;
}

Ids Fila(std::optional<int> primo, std::optional<int> ultimo)
{
    if (!primo || !ultimo)
        return {};
    QSet<int> ids;
    for (int id = *primo; id <= *ultimo; ++id)
        ids.insert(id);
    return ids;
}

/// A constant of the file, or a list of them.
Ids Ids_DiCostante(const QString &nome, const Luogo &luogo)
{
    const auto trovata =
        Cerca(QStringLiteral("constexpr \\w+ @(?:\\[\\w*\\])?\\s*=\\s*([^;]*);"), nome).match(luogo.testo);
    if (!trovata.hasMatch())
        return {};
    const QString valore = trovata.captured(1);
    return valore.startsWith(u'{') ? Ids_DiTutte(Parti(Chiuso(valore, 0)), luogo) : Ids_Di(valore, luogo);
}

/// The first of a run, with an index: as many ids as the array that takes the texts has elements.
Ids Ids_DiSerie(const QString &primo, const Luogo &luogo)
{
    static const QRegularExpression RICEVE(QStringLiteral("(\\w+)\\[\\w+\\]\\s*=\\s*$"));
    const auto riceve = RICEVE.match(luogo.testo.left(luogo.posto));
    const std::optional<int> base = Uno(primo, luogo);
    if (!riceve.hasMatch() || !base)
        return {};
    const auto misura =
        Cerca(QStringLiteral("std::array<QString, (\\d+)>[^;(){}]*\\b@\\b"), riceve.captured(1));
    for (const QString &testo : luogo.tutti) {
        const auto trovata = misura.match(testo);
        if (trovata.hasMatch())
            return Fila(base, *base + trovata.captured(1).toInt() - 1);
    }
    return {};
}

/// The procedure that an expression stands in, up to there.
QString Procedura_FinQui(const Luogo &luogo)
{
    const QString prima = luogo.testo.left(luogo.posto);
    return prima.mid(prima.lastIndexOf(QStringLiteral("\n}")) + 1);
}

/// The variable of a loop.
Ids Ids_DiGiro(const QString &nome, const Luogo &luogo)
{
    const QRegularExpression giro = Cerca(QStringLiteral("for \\(\\w+ @ = ([^;]+); @ (<=?) ([^;]+);"), nome);
    QRegularExpressionMatch ultimo;
    if (Procedura_FinQui(luogo).lastIndexOf(giro, -1, &ultimo) < 0)
        return {};
    std::optional<int> fine = Uno(ultimo.captured(3), luogo);
    if (fine && ultimo.captured(2) == u"<")
        --*fine;
    return Fila(Uno(ultimo.captured(1), luogo), fine);
}

/// A parameter of the procedure: what its calls in the file give it.
Ids Ids_DiParametro(const QString &nome, const Luogo &luogo)
{
    const auto testata = Cerca(QStringLiteral("(\\w+)\\(([^()]*\\bqint16 @\\b[^()]*)\\)"), nome)
                             .match(Procedura_FinQui(luogo));
    if (!testata.hasMatch())
        return {};
    const qsizetype quale = Parti(testata.captured(2)).indexOf(QStringLiteral("qint16 ") + nome);
    const auto chiamata = Cerca(QStringLiteral("\\b@\\("), testata.captured(1));
    Ids tutti;
    for (auto chiamate = chiamata.globalMatch(luogo.testo); chiamate.hasNext();) {
        const auto una = chiamate.next();
        const QString argomenti = Chiuso(luogo.testo, una.capturedEnd() - 1);
        if (argomenti == testata.captured(2))
            continue;
        const Ids dati =
            Ids_Di(Parti(argomenti).value(quale), {luogo.tutti, luogo.testo, una.capturedStart()});
        if (!dati)
            return {};
        tutti = tutti.value_or(QSet<int>()) + *dati;
    }
    return tutti;
}

/// Place of a member in a struct, -1 for none.
qsizetype Posto_Membro(const QString &corpo, const QString &nome)
{
    static const QRegularExpression NOME(QStringLiteral("(\\w+)(?:\\[\\w*\\])?(?:\\s*=.*)?$"));
    QStringList membri;
    const QStringList dichiarazioni = corpo.split(u';');
    for (const QString &dichiarazione : dichiarazioni) {
        const QStringList parti = Parti(dichiarazione);
        for (const QString &parte : parti)
            membri.append(NOME.match(parte).captured(1));
    }
    return membri.indexOf(nome);
}

/// Rows of a table, from what its braces hold: one pair more of a std::array, none of a single row.
QStringList Righe(const QString &contenuto)
{
    const QStringList parti = Parti(contenuto);
    if (parti.isEmpty() || !parti[0].startsWith(u'{'))
        return {contenuto};
    const QString prima = Chiuso(parti[0], 0);
    if (parti.size() == 1 && prima.trimmed().startsWith(u'{'))
        return Righe(prima);
    QStringList righe;
    for (const QString &parte : parti)
        righe.append(Chiuso(parte, 0));
    return righe;
}

/// What the tables of some sources hold in a column.
QStringList Colonna(const QList<QString> &testi, const QString &nome)
{
    static const QRegularExpression STRUTTURA(QStringLiteral("struct (\\w+)\\s*\\{([^{}]*)\\}"));
    QStringList valori;
    for (const QString &testo : testi) {
        for (auto strutture = STRUTTURA.globalMatch(testo); strutture.hasNext();) {
            const auto struttura = strutture.next();
            const qsizetype posto = Posto_Membro(struttura.captured(2), nome);
            if (posto < 0)
                continue;
            const auto tabella =
                Cerca(QStringLiteral("\\b@(?:, \\w+>)?\\s+\\w+(?:\\[[^\\]]*\\])?\\s*=\\s*\\{"),
                      struttura.captured(1));
            for (const QString &altro : testi) {
                for (auto tabelle = tabella.globalMatch(altro); tabelle.hasNext();) {
                    const QStringList righe = Righe(Chiuso(altro, tabelle.next().capturedEnd() - 1));
                    for (const QString &riga : righe)
                        valori.append(Parti(riga).value(posto));
                }
            }
        }
    }
    return valori;
}

/// A member of a row: of the tables of the file, or else of any.
Ids Ids_DiColonna(const QString &nome, const Luogo &luogo)
{
    QStringList valori = Colonna({luogo.testo}, nome);
    if (valori.isEmpty())
        valori = Colonna(luogo.tutti.values(), nome);
    return Ids_DiTutte(valori, luogo);
}

Ids Ids_Di(QString espressione, const Luogo &luogo)
{
    static const QRegularExpression CONVERSIONE(QStringLiteral("static_cast<\\w+>"));
    static const QRegularExpression SCELTA(QStringLiteral("^[^?]*\\?([^:?]*):([^:?]*)$"));
    static const QRegularExpression NUMERO(QStringLiteral("^-?\\d+$"));
    static const QRegularExpression NOME(QStringLiteral("^(\\w+)(\\[[^\\]]*\\])?$"));
    static const QRegularExpression SERIE(QStringLiteral("^(\\w+) \\+ "));
    static const QRegularExpression MEMBRO(QStringLiteral("^[\\w.\\[\\]]+\\.(\\w+)$"));
    espressione = espressione.remove(CONVERSIONE).trimmed();
    if (espressione.startsWith(u'(') && Chiuso(espressione, 0).size() == espressione.size() - 2)
        espressione = espressione.mid(1, espressione.size() - 2);
    QRegularExpressionMatch forma;
    if ((forma = SCELTA.match(espressione)).hasMatch())
        return Ids_DiTutte({forma.captured(1), forma.captured(2)}, luogo);
    if (NUMERO.match(espressione).hasMatch())
        return espressione.startsWith(u'-') ? QSet<int>() : QSet<int>{espressione.toInt()};
    if ((forma = SERIE.match(espressione)).hasMatch())
        return Ids_DiSerie(forma.captured(1), luogo);
    if ((forma = MEMBRO.match(espressione)).hasMatch())
        return Ids_DiColonna(forma.captured(1), luogo);
    if (!(forma = NOME.match(espressione)).hasMatch())
        return {};
    for (const auto &ids_di : {Ids_DiCostante, Ids_DiGiro, Ids_DiParametro}) {
        if (Ids ids = ids_di(forma.captured(1), luogo))
            return ids;
    }
    return {};
}

/// The modules and forms; the module that fills and reads the tables is not one of those that show a text.
Sorgenti Sorgenti_CheMostrano(const Sorgenti &sorgenti)
{
    static const QRegularExpression POSTO(
        QStringLiteral("^(app|core|link|mctc|report|setup|dialogs)/(?!modGeneral\\.)"));
    Sorgenti spogli;
    for (auto sorgente = sorgenti.cbegin(); sorgente != sorgenti.cend(); ++sorgente) {
        if (POSTO.match(sorgente.key()).hasMatch())
            spogli.insert(sorgente.key(), Spoglia(sorgente.value(), false));
    }
    return spogli;
}

} // namespace

TestiUsati Testi_Usati(const Sorgenti &sorgenti)
{
    // A call, a row's caption, or anything else that touches the texts.
    static const QRegularExpression PRESA(
        QStringLiteral("\\bTesto_(Mctc|Lingua)\\b(\\(?)|\\.LabelId\\s*=(?!=)([^;]*);|"
                       "(?<!ULTIMO_TESTO_MCTC, |ULTIMO_TESTO_LINGUA, )\\bgTab(?:Mctc|Lingua)\\b"));
    TestiUsati usati;
    const Sorgenti spogli = Sorgenti_CheMostrano(sorgenti);
    for (auto sorgente = spogli.cbegin(); sorgente != spogli.cend(); ++sorgente) {
        for (auto prese = PRESA.globalMatch(*sorgente); prese.hasNext();) {
            const auto presa = prese.next();
            const bool chiamata = !presa.captured(2).isEmpty();
            const QString espressione =
                chiamata ? Chiuso(*sorgente, presa.capturedEnd() - 1) : presa.captured(3);
            const Ids ids = Ids_Di(espressione, {spogli, *sorgente, presa.capturedStart()});
            if (!ids)
                usati.oscuri.append(sorgente.key() + QStringLiteral(": ") + presa.captured() +
                                    (chiamata ? espressione + u')' : QString()));
            else
                (presa.captured(1) == u"Lingua" ? usati.lingua : usati.mctc) += *ids;
        }
    }
    return usati;
}
