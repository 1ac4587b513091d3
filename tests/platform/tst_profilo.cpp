// Reading and writing of profiles: what comes out of which bytes, and which bytes a write leaves behind.
#include "platform/profilo.h"

#include "platform/codifica.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

namespace {

/// As many characters as the program's reads take, the closing NUL included.
constexpr int MISURA = 500;

struct Lettura
{
    const char *nome;
    const char *byte;
    const char16_t *sezione;
    const char16_t *chiave;
    const char16_t *valore;
};

// clang-format off
constexpr Lettura LETTURE[] = {
    {"plain",                           "[A]\r\nX=1\r\n",                      u"A",   u"X",   u"1"},
    {"second section",                  "[A]\r\nX=1\r\n[B]\r\nX=2\r\n",        u"B",   u"X",   u"2"},
    {"LF line ends",                    "[A]\nX=1\n[B]\nX=2\n",                u"B",   u"X",   u"2"},
    {"lone CR line ends",               "[A]\rX=1\r[B]\rX=2\r",                u"B",   u"X",   u"2"},
    {"lone CR line ends, first key",    "[A]\rX=1\rY=2\r",                     u"A",   u"X",   u"1"},
    {"lone CR among other line ends",   "[A]\nX=1\rY=2\r\n",                   u"A",   u"Y",   u"2"},
    {"lone CR behind a note",           "[A]\r;nota\rX=1\r",                   u"A",   u"X",   u"1"},
    {"lone CR behind a key",            "[A]\rX\rX=1\r",                       u"A",   u"X",   u"-"},
    {"head without bracket, lone CR",   "[A\rX=1\r",                           u"A",   u"X",   u"1"},
    {"CR CR LF",                        "[A]\r\r\nX=1\r\r\nY=w\r\r\n",          u"A",   u"Y",   u"w"},
    {"LF CR",                           "[A]\n\rX=1\n\rY=2",                    u"A",   u"X",   u"1"},
    {"no last line end",                "[A]\r\nX=1",                          u"A",   u"X",   u"1"},
    {"no last line end, LF",            "[A]\nX=1",                            u"A",   u"X",   u"1"},
    {"no last line end, lone CR",       "[A]\rX=1",                            u"A",   u"X",   u"1"},
    {"case of the section",             "[Sezione]\r\nX=1\r\n",                u"sEZIONE", u"X", u"1"},
    {"case of the key",                 "[A]\r\nChiave=1\r\n",                 u"A",   u"cHIAVE", u"1"},
    {"case of accented letters",        "[A]\r\nCitt\xE0=1\r\n",               u"A",   u"CITTÀ", u"1"},
    {"case beyond Latin-1",             "[A]\r\n\x9A=1\r\n",                   u"A",   u"Š",   u"1"},
    {"no letter becomes two",           "[A]\r\nSS=2\r\n\xDF=1\r\n",           u"A",   u"ß",   u"1"},
    {"an accent counts",                "[A]\r\nCitta=1\r\n",                  u"A",   u"Città", u"-"},
    {"blanks round the section",        "[ \t\vA\v\t ]\r\nX=1\r\n",            u"A",   u"X",   u"1"},
    {"blanks before the head",          " \t\v[A]\r\nX=1\r\n",                 u"A",   u"X",   u"1"},
    {"blanks inside the section",       "[A B]\r\nX=1\r\n",                    u"A B", u"X",   u"1"},
    {"blanks round the key",            "[A]\r\n \t\vX\v\t =1\r\n",            u"A",   u"X",   u"1"},
    {"blanks inside the key",           "[A]\r\nX Y=1\r\n",                    u"A",   u"X Y", u"1"},
    {"blanks round the value",          "[A]\r\nX= \t\v1\v\t \r\n",            u"A",   u"X",   u"1"},
    {"blanks inside the value",         "[A]\r\nX=1 \t2\r\n",                  u"A",   u"X",   u"1 \t2"},
    {"section asked with spaces",       "[A]\r\nX=1\r\n",                      u"  A ", u"X",  u"1"},
    {"key asked with spaces",           "[A]\r\nX=1\r\n",                      u"A",   u" X  ", u"1"},
    {"section asked with a tab",        "[A]\r\nX=1\r\n",                      u"A\t", u"X",   u"-"},
    {"key asked with a tab",            "[A]\r\nX=1\r\n",                      u"A",   u"\tX", u"-"},
    {"key asked with a vertical tab",   "[A]\r\nX=1\r\n",                      u"A",   u"X\v", u"-"},
    {"key asked with a line end",       "[A]\r\nX=1\r\n",                      u"A",   u"X\r\n", u"-"},
    {"double quotes",                   "[A]\r\nX=\"1\"\r\n",                  u"A",   u"X",   u"1"},
    {"single quotes",                   "[A]\r\nX='1'\r\n",                    u"A",   u"X",   u"1"},
    {"quotes keep the blanks inside",   "[A]\r\nX= \" 1 \" \r\n",              u"A",   u"X",   u" 1 "},
    {"one pair of quotes only",         "[A]\r\nX=\"\"1\"\"\r\n",              u"A",   u"X",   u"\"1\""},
    {"one kind inside the other",       "[A]\r\nX=\"'1'\"\r\n",                u"A",   u"X",   u"'1'"},
    {"quotes that differ",              "[A]\r\nX=\"1'\r\n",                   u"A",   u"X",   u"\"1'"},
    {"opening quote alone",             "[A]\r\nX=\"1\r\n",                    u"A",   u"X",   u"\"1"},
    {"closing quote alone",             "[A]\r\nX=1\"\r\n",                    u"A",   u"X",   u"1\""},
    {"a single quote character",        "[A]\r\nX=\"\r\n",                     u"A",   u"X",   u"\""},
    {"quotes inside",                   "[A]\r\nX=1\"2\"3\r\n",                u"A",   u"X",   u"1\"2\"3"},
    {"empty quotes",                    "[A]\r\nX=\"\"\r\nX=2\r\n",            u"A",   u"X",   u""},
    {"first section wins",              "[A]\r\nX=1\r\n[A]\r\nX=2\r\n",        u"A",   u"X",   u"1"},
    {"later section is not looked into", "[A]\r\nX=1\r\n[a]\r\nY=2\r\n",       u"A",   u"Y",   u"-"},
    {"first key wins",                  "[A]\r\nX=1\r\nx=2\r\n",               u"A",   u"X",   u"1"},
    {"first key wins, though empty",    "[A]\r\nX=\r\nX=2\r\n",                u"A",   u"X",   u""},
    {"comment line",                    "[A]\r\n;X=1\r\n",                     u"A",   u"X",   u"-"},
    {"comment line asked by its name",  "[A]\r\n;X=1\r\n",                     u"A",   u";X",  u"-"},
    {"comment line with blanks before", "[A]\r\n \t;X=1\r\nX=2\r\n",           u"A",   u";X",  u"-"},
    {"comment hides a head",            "[A]\r\n;[B]\r\nX=1\r\n",              u"A",   u"X",   u"1"},
    {"semicolon inside a value",        "[A]\r\nX=1;2\r\n",                    u"A",   u"X",   u"1;2"},
    {"text behind the bracket",         "[A] coda\r\nX=1\r\n",                 u"A",   u"X",   u"1"},
    {"name ends at the first bracket",  "[A]B]\r\nX=1\r\n",                    u"A",   u"X",   u"1"},
    {"key on the line of the head",     "[A]X=1\r\n",                          u"A",   u"X",   u"-"},
    {"head without bracket",            "[A\r\nX=1\r\n",                       u"A",   u"X",   u"1"},
    {"head without bracket at the end", "[A]\r\nX=1\r\n[B",                    u"A",   u"X",   u"1"},
    {"head without bracket ends a section", "[A]\r\n[B\r\nX=1\r\n",            u"A",   u"X",   u"-"},
    {"equals sign inside a value",      "[A]\r\nX=a=b\r\n",                    u"A",   u"X",   u"a=b"},
    {"line without equals sign",        "[A]\r\nX\r\n",                        u"A",   u"X",   u"-"},
    {"line without equals sign first",  "[A]\r\nX\r\nX=1\r\n",               u"A",   u"X",   u"-"},
    {"empty value",                     "[A]\r\nX=\r\n",                       u"A",   u"X",   u""},
    {"value of blanks",                 "[A]\r\nX= \t\r\n",                    u"A",   u"X",   u""},
    {"empty key",                       "[A]\r\n=1\r\n",                       u"A",   u"",    u"1"},
    {"empty section",                   "X=1\r\n[]\r\nX=2\r\n",                u"",    u"X",   u"2"},
    {"keys before the first head",      "X=1\r\n[A]\r\nY=2\r\n",               u"A",   u"X",   u"-"},
    {"missing key",                     "[A]\r\nX=1\r\n",                      u"A",   u"Y",   u"-"},
    {"missing section",                 "[A]\r\nX=1\r\n",                      u"B",   u"X",   u"-"},
    {"empty file",                      "",                                    u"A",   u"X",   u"-"},
    {"blank lines between",             "[A]\r\n\r\n \r\nX=1\r\n",             u"A",   u"X",   u"1"},
    {"code page",                       "[A]\r\nX=\x80 \x8A\xE9\x99\r\n",      u"A",   u"X",   u"€ Šé™"},
    {"byte order mark spoils its line", "\xEF\xBB\xBF[A]\r\nX=1\r\n[B]\r\n",   u"A",   u"X",   u"-"},
    {"byte order mark, second line",    "\xEF\xBB\xBF\r\n[A]\r\nX=1\r\n",      u"A",   u"X",   u"1"},
};

struct Scrittura
{
    const char *nome;
    const char *prima;
    const char16_t *sezione;
    const char16_t *chiave;
    const char16_t *valore;
    const char *dopo;
};

constexpr Scrittura SCRITTURE[] = {
    {"key in place",                    "[A]\r\nX=1\r\nY=2\r\n",        u"A",   u"X",   u"9",  "[A]\r\nX=9\r\nY=2\r\n"},
    {"longer value",                    "[A]\r\nX=1\r\nY=2\r\n",        u"A",   u"X",   u"99999", "[A]\r\nX=99999\r\nY=2\r\n"},
    {"empty value stays as a key",      "[A]\r\nX=1\r\nY=2\r\n",        u"A",   u"X",   u"",   "[A]\r\nX=\r\nY=2\r\n"},
    {"LF stays LF",                     "[A]\nX=1\nY=2\n",              u"A",   u"X",   u"9",  "[A]\nX=9\nY=2\n"},
    {"new key among LF lines",          "[A]\nX=1\n[B]\n",              u"A",   u"Y",   u"9",  "[A]\nX=1\nY=9\r\n[B]\n"},
    {"lone CR stays lone CR",           "[A]\rX=1\rY=2\r",              u"A",   u"X",   u"9",  "[A]\rX=9\rY=2\r"},
    {"lone CR, last key in place",      "[A]\r\nX=1\r",                u"A",   u"X",   u"9",  "[A]\r\nX=9\r"},
    {"lone CR, new key",                "[A]\rX=1\r[B]\r",              u"A",   u"Y",   u"9",  "[A]\rX=1\rY=9\r\n[B]\r"},
    {"lone CR, new section",            "[A]\rX=1\r",                   u"B",   u"Y",   u"9",  "[A]\rX=1\r[B]\r\nY=9\r\n"},
    {"lone CR, key without equals sign", "[A]\rX\rY=2\r",               u"A",   u"X",   u"9",  "[A]\rX=9\rY=2\r"},
    {"CR CR LF stays",                  "[A]\r\r\nX=1\r\r\nY=2\r\r\n", u"A",  u"X",   u"9",  "[A]\r\r\nX=9\r\r\nY=2\r\r\n"},
    {"CR CR LF, new key",               "[A]\r\r\nX=1\r\r\n[B]\r\r\n",  u"A",   u"Y",   u"9",  "[A]\r\r\nX=1\rY=9\r\n\r\n[B]\r\r\n"},
    {"no last line end, key in place",  "[A]\r\nX=1",                   u"A",   u"X",   u"9",  "[A]\r\nX=9"},
    {"no last line end, new key",       "[A]\r\nX=1",                   u"A",   u"Y",   u"9",  "[A]\r\nX=1\r\nY=9\r\n"},
    {"no last line end, new section",   "[A]\r\nX=1",                   u"B",   u"Y",   u"9",  "[A]\r\nX=1\r\n[B]\r\nY=9\r\n"},
    {"no last line end behind a head",  "[A]",                          u"A",   u"Y",   u"9",  "[A]\r\nY=9\r\n"},
    {"empty file",                      "",                             u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n"},
    {"section without keys",            "[A]\r\n[B]\r\n",               u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n[B]\r\n"},
    {"comments stay",                   "; 1\r\n[A]\r\n; 2\r\nX=1\r\n; 3\r\n", u"A", u"X", u"9", "; 1\r\n[A]\r\n; 2\r\nX=9\r\n; 3\r\n"},
    {"blank lines stay",                "\r\n[A]\r\n\r\nX=1\r\n\r\n\r\n", u"A", u"X",   u"9",  "\r\n[A]\r\n\r\nX=9\r\n\r\n\r\n"},
    {"new key before a comment",        "[A]\r\nX=1\r\n; 1\r\n[B]\r\n", u"A",   u"Y",   u"9",  "[A]\r\nX=1\r\nY=9\r\n; 1\r\n[B]\r\n"},
    {"new key before blank lines",      "[A]\r\nX=1\r\n\r\n\r\n[B]\r\n", u"A",  u"Y",   u"9",  "[A]\r\nX=1\r\nY=9\r\n\r\n\r\n[B]\r\n"},
    {"new key behind the last key",     "[A]\r\nX=1\r\n; 1\r\nY=2\r\n", u"A",   u"Z",   u"9",  "[A]\r\nX=1\r\n; 1\r\nY=2\r\nZ=9\r\n"},
    {"new key before a closing comment", "[A]\r\n; 1\r\n",              u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n; 1\r\n"},
    {"new section without blank line",  "[A]\r\nX=1\r\n\r\n",           u"B",   u"Y",   u"9",  "[A]\r\nX=1\r\n\r\n[B]\r\nY=9\r\n"},
    {"indentation stays",               "  [A]\r\n\tX\t=1\r\n\tY=2\r\n", u"A",  u"X",   u"9",  "  [A]\r\n\tX\t=9\r\n\tY=2\r\n"},
    {"spelling of the key stays",       "[Sez]\r\nChiAve=1\r\n",        u"SEZ", u"CHIAVE", u"9", "[Sez]\r\nChiAve=9\r\n"},
    {"first of two sections",           "[A]\r\nX=1\r\n[A]\r\nX=2\r\n", u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n[A]\r\nX=2\r\n"},
    {"new key in the first of two",     "[A]\r\nX=1\r\n[A]\r\nY=2\r\n", u"A",   u"Y",   u"9",  "[A]\r\nX=1\r\nY=9\r\n[A]\r\nY=2\r\n"},
    {"first of two keys",               "[A]\r\nX=1\r\nX=2\r\n",        u"A",   u"X",   u"9",  "[A]\r\nX=9\r\nX=2\r\n"},
    {"same key in another section",     "[A]\r\nX=1\r\n[B]\r\nX=2\r\n", u"B",   u"X",   u"9",  "[A]\r\nX=1\r\n[B]\r\nX=9\r\n"},
    {"text behind the bracket stays",   "[A] coda\r\nX=1\r\n",          u"A",   u"X",   u"9",  "[A] coda\r\nX=9\r\n"},
    {"name ends at the first bracket",  "[A]B]\r\nX=1\r\n",             u"A",   u"Y",   u"9",  "[A]B]\r\nX=1\r\nY=9\r\n"},
    {"head without bracket",            "[A\r\nX=1\r\n",                u"A",   u"X",   u"9",  "[A\r\nX=9\r\n"},
    {"head without bracket, new key",   "[A\r\nX=1\r\n[B]\r\n",         u"A",   u"Y",   u"9",  "[A\r\nX=1\r\nY=9\r\n[B]\r\n"},
    {"old quotes go with the value",    "[A]\r\nX=\"1\"\r\n",           u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n"},
    {"new quotes stay",                 "[A]\r\nX=1\r\n",               u"A",   u"X",   u"\" 9\"", "[A]\r\nX=\" 9\"\r\n"},
    {"blanks of the value stay",        "[A]\r\nX=1\r\n",               u"A",   u"X",   u" \t9 ", "[A]\r\nX= \t9 \r\n"},
    {"equals sign in the value",        "[A]\r\nX=1\r\n",               u"A",   u"X",   u"a=b", "[A]\r\nX=a=b\r\n"},
    {"old value with equals sign",      "[A]\r\nX=a=b\r\n",             u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n"},
    {"spaces round the names go",       "[A]\r\nX=1\r\n",               u" B ", u" Y ", u"9",  "[A]\r\nX=1\r\n[B]\r\nY=9\r\n"},
    {"spaces round a known key go",     "[A]\r\nX=1\r\n",               u" A ", u" X ", u"9",  "[A]\r\nX=9\r\n"},
    {"line without equals sign gets one", "[A]\r\nX\r\nX=1\r\n",      u"A",   u"X",   u"9",  "[A]\r\nX=9\r\nX=1\r\n"},
    {"new key behind a line without equals sign", "[A]\r\nX\r\n",    u"A",   u"Y",   u"9",  "[A]\r\nX\r\nY=9\r\n"},
    {"tabs of a name stay",             "[A]\r\nX=1\r\n",               u"A",   u"\tY", u"9",  "[A]\r\nX=1\r\n\tY=9\r\n"},
    {"comment is not updated",          "[A]\r\n;X=1\r\n",              u"A",   u"X",   u"9",  "[A]\r\nX=9\r\n;X=1\r\n"},
    {"semicolon inside the key",        "[A]\r\nX=1\r\n",               u"A",   u"Y;",  u"9",  "[A]\r\nX=1\r\nY;=9\r\n"},
    {"bracket inside the key",          "[A]\r\nX=1\r\n",               u"A",   u"Y[]", u"9",  "[A]\r\nX=1\r\nY[]=9\r\n"},
    {"value like a head",               "[A]\r\nX=1\r\n",               u"A",   u"X",   u"[B]", "[A]\r\nX=[B]\r\n"},
    {"value like a comment",            "[A]\r\nX=1\r\n",               u"A",   u"X",   u";9", "[A]\r\nX=;9\r\n"},
    {"empty section name",              "X=1\r\n[]\r\nX=2\r\n",         u"",    u"X",   u"9",  "X=1\r\n[]\r\nX=9\r\n"},
    {"empty section name, new",         "X=1\r\n",                      u"",    u"X",   u"9",  "X=1\r\n[]\r\nX=9\r\n"},
    {"keys before the first head",      "X=1\r\n[A]\r\n",               u"A",   u"X",   u"9",  "X=1\r\n[A]\r\nX=9\r\n"},
    {"code page",                       "[A]\r\nX=1\r\nY=\x80\xE9\r\n", u"A",   u"X",   u"Š€", "[A]\r\nX=\x8A\x80\r\nY=\x80\xE9\r\n"},
    {"outside the code page",           "[A]\r\nX=1\r\n",               u"A",   u"X",   u"Ж9Ω", "[A]\r\nX=?9?\r\n"},
    {"bytes that have no character",    "[A]\r\nX=1\r\nY=\x81\x8D\r\n", u"A",   u"X",   u"9",  "[A]\r\nX=9\r\nY=\x81\x8D\r\n"},
    {"head with a byte order mark",     "\xEF\xBB\xBF[A]\r\nX=1\r\n",   u"A",   u"X",   u"9",  "\xEF\xBB\xBF[A]\r\nX=1\r\n[A]\r\nX=9\r\n"},
};
// clang-format on

/// What would end its line early, or make another line of it.
struct Rifiuto
{
    const char *nome;
    const char16_t *sezione;
    const char16_t *chiave;
    const char16_t *valore;
};

// clang-format off
constexpr Rifiuto RIFIUTI[] = {
    {"value with CRLF",                 u"A",      u"X",      u"9\r\n[A]\r\nY=0"},
    {"value with LF",                   u"A",      u"X",      u"9\nY=0"},
    {"value with CR",                   u"A",      u"X",      u"9\rY=0"},
    {"value that is a line break",      u"A",      u"X",      u"\n"},
    {"value with a line break behind",  u"A",      u"X",      u"9\r\n"},
    {"new key with a line break",       u"A",      u"Y\n[B]\nZ", u"9"},
    {"known key with a line break",     u"A",      u"X\r\n", u"9"},
    {"section with a line break",       u"A]\r\nX=0\r\n[B", u"X", u"9"},
    {"section with LF",                 u"A\n",   u"X",      u"9"},
    {"key with an equals sign",         u"A",      u"X=0",    u"9"},
    {"key that is an equals sign",      u"A",      u"=",      u"9"},
    {"key like a head",                 u"A",      u"[B]",    u"9"},
    {"key like a head behind blanks",   u"A",      u" \t\v[B", u"9"},
    {"key like a comment",              u"A",      u";X",     u"9"},
    {"key like a comment behind blanks", u"A",     u"\t ;X",  u"9"},
    {"no key",                          u"A",      u"",       u"9"},
    {"key of spaces",                   u"A",      u"  ",     u"9"},
    {"key of blanks",                   u"A",      u"\t\v",  u"9"},
    {"section with a bracket",          u"A]B",    u"X",      u"9"},
    {"section that is a bracket",       u"]",      u"X",      u"9"},
};
// clang-format on

/// Pieces of which files at random are made.
constexpr const char *PEZZI[] = {
    "[A]", "[B]", "[a",  "[]", "]",     " ",    "\t", "\v", ";",  "=",    "X",
    "Y",   "x=",  "Y =", "1",  "\"2\"", "\xE0", "\r", "\n", "\n", "\r\n", "\r\n",
};

} // namespace

class tst_profilo : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("prova.ini");
    const QString m_file = m_stazione.Percorso(QStringLiteral("prova.ini"));

    void Scrivi(const QByteArray &byte) const { m_stazione.Scrivi(m_nome, byte); }
    QByteArray Byte() const { return m_stazione.Leggi(m_nome); }
    QString Valore(const QString &sezione, const QString &chiave) const
    {
        return Profilo_Leggi(sezione, chiave, QStringLiteral("-"), MISURA, m_file);
    }
    QString X() const { return Valore(QStringLiteral("A"), QStringLiteral("X")); }
    bool Imposta_X(const QString &valore) const
    {
        return Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), valore, m_file);
    }

private Q_SLOTS:
    void cleanup() { QFile::remove(m_stazione.Nativo(m_nome)); }

    void legge_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("valore");
        for (const Lettura &riga : LETTURE) {
            QTest::newRow(riga.nome) << QByteArray(riga.byte) << QString::fromUtf16(riga.sezione)
                                     << QString::fromUtf16(riga.chiave) << QString::fromUtf16(riga.valore);
        }
    }
    /// "-" is the default that the reads here are given.
    void legge()
    {
        QFETCH(QByteArray, byte);
        QFETCH(QString, sezione);
        QFETCH(QString, chiave);
        Scrivi(byte);
        QTEST(Valore(sezione, chiave), "valore");
        QCOMPARE(Byte(), byte);
    }

    void scrive_data()
    {
        QTest::addColumn<QByteArray>("prima");
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QByteArray>("dopo");
        for (const Scrittura &riga : SCRITTURE) {
            QTest::newRow(riga.nome) << QByteArray(riga.prima) << QString::fromUtf16(riga.sezione)
                                     << QString::fromUtf16(riga.chiave) << QString::fromUtf16(riga.valore)
                                     << QByteArray(riga.dopo);
        }
    }
    void scrive()
    {
        QFETCH(QByteArray, prima);
        QFETCH(QString, sezione);
        QFETCH(QString, chiave);
        QFETCH(QString, valore);
        Scrivi(prima);
        QVERIFY(Profilo_Scrivi(sezione, chiave, valore, m_file));
        QTEST(Byte(), "dopo");
    }

    void rifiuta_data()
    {
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("valore");
        for (const Rifiuto &riga : RIFIUTI) {
            QTest::newRow(riga.nome) << QString::fromUtf16(riga.sezione) << QString::fromUtf16(riga.chiave)
                                     << QString::fromUtf16(riga.valore);
        }
    }
    /// The file stays as it is, and none is made.
    void rifiuta()
    {
        QFETCH(QString, sezione);
        QFETCH(QString, chiave);
        QFETCH(QString, valore);
        const QByteArray prima = "[A]\r\nX=1\r\n[C]\r\n";
        Scrivi(prima);
        QVERIFY(!Profilo_Scrivi(sezione, chiave, valore, m_file));
        QCOMPARE(Byte(), prima);
        QVERIFY(QFile::remove(m_stazione.Nativo(m_nome)));
        QVERIFY(!Profilo_Scrivi(sezione, chiave, valore, m_file));
        QVERIFY(!QFile::exists(m_stazione.Nativo(m_nome)));
    }

    /// What stands behind a NUL is not written, and so stands in the way of nothing.
    void dietroIlNulNienteConta()
    {
        const QString nul = QChar(0) + QStringLiteral("\r\n]=");
        QVERIFY(Profilo_Scrivi(u'A' + nul, u'X' + nul, u'9' + nul, m_file));
        QCOMPARE(Byte(), "[A]\r\nX=9\r\n");
        QVERIFY(!Profilo_Scrivi(QStringLiteral("A"), nul, QStringLiteral("9"), m_file));
    }

    /// Texts of any characters: either refused, and the file untouched, or read back, and no line more.
    void testiACasoSiRileggonoOSiRifiutano()
    {
        static const QString CARATTERI = QStringLiteral("\r\n[]=;\t \vABab19");
        QRandomGenerator caso(19970101);
        const auto testo = [&caso] {
            QString pezzo;
            for (quint32 quanti = caso.bounded(6u); quanti > 0; --quanti)
                pezzo += CARATTERI[qsizetype(caso.bounded(quint32(CARATTERI.size())))];
            return pezzo;
        };
        int scritti = 0, rifiutati = 0;
        for (int giro = 0; giro < 1000; ++giro) {
            const QByteArray prima = "[Prima]\r\nX=1\r\n";
            Scrivi(prima);
            const QString sezione = testo(), chiave = testo(), valore = testo();
            if (!Profilo_Scrivi(sezione, chiave, valore, m_file)) {
                QCOMPARE(Byte(), prima);
                ++rifiutati;
                continue;
            }
            QCOMPARE(Byte().count('\n'), 4);
            QCOMPARE(Byte().count('\r'), 4);
            QVERIFY(Byte().startsWith(prima));
            // Blanks are dropped on the way back, round the names and the value.
            QCOMPARE(Valore(sezione.trimmed(), chiave.trimmed()), valore.trimmed());
            ++scritti;
        }
        QVERIFY2(scritti > 100 && rifiutati > 100, qPrintable(QString::number(scritti)));
    }

    /// A character outside the base plane is two units in memory and one "?" in the file.
    void carattereFuoriDalPianoDiBase()
    {
        QVERIFY(Imposta_X(QStringLiteral("a\U0001F600b")));
        QCOMPARE(Byte(), "[A]\r\nX=a?b\r\n");
    }

    /// To the calls a text ends at its first NUL.
    void testiFinisconoAlNul()
    {
        const QString nul = QChar(0) + QStringLiteral("coda");
        Scrivi("[A]\r\nX=1\r\n");
        QCOMPARE(Valore(u'A' + nul, u'X' + nul), QStringLiteral("1"));
        QVERIFY(Profilo_Scrivi(u'A' + nul, u'X' + nul, u'9' + nul, m_file));
        QCOMPARE(Byte(), "[A]\r\nX=9\r\n");
    }

    void valoreDi600Caratteri()
    {
        const QString lungo = QString(300, u'a') + QString(300, u'b');
        QVERIFY(Imposta_X(lungo));
        QCOMPARE(Byte(), "[A]\r\nX=" + lungo.toLatin1() + "\r\n");
        QCOMPARE(X(), lungo.left(499));
        QVERIFY(Imposta_X(u'"' + QString(499, u'c') + u'"'));
        QCOMPARE(X(), QString(499, u'c'));
    }

    void leggeAlPiuQuantoChiesto_data()
    {
        QTest::addColumn<int>("capienza");
        QTest::addColumn<QString>("valore");
        QTest::newRow("room to spare") << 5 << QStringLiteral("abc");
        QTest::newRow("just enough") << 4 << QStringLiteral("abc");
        QTest::newRow("one short") << 3 << QStringLiteral("ab");
        QTest::newRow("closing NUL only") << 1 << QString();
        QTest::newRow("nothing") << 0 << QString();
    }
    void leggeAlPiuQuantoChiesto()
    {
        QFETCH(int, capienza);
        Scrivi("[A]\r\nX=abc\r\n");
        const QString letto =
            Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QString(), capienza, m_file);
        QTEST(letto, "valore");
    }

    /// On a Windows that is set to another page than the station's, the folder may have no name in that page,
    /// and an accented letter is another character there, or half of one.
    void cartellaDiQualsiasiNome_data()
    {
        QTest::addColumn<QString>("cartella");
        for (const char16_t *nome : {u"Stazione è più", u"Łódź", u"Станция", u"検査", u"a\U0001F600"})
            QTest::newRow(qPrintable(QString::fromUtf16(nome))) << QString::fromUtf16(nome);
    }
    void cartellaDiQualsiasiNome()
    {
        QFETCH(QString, cartella);
        const QString nome = cartella + QStringLiteral("\\prova.ini");
        const QString file = m_stazione.Percorso(nome);
        m_stazione.Scrivi(nome, "[Unit\xE0]\r\nX=pi\xF9\r\n");
        QCOMPARE(Profilo_Leggi(QStringLiteral("Unità"), QStringLiteral("X"), QString(), MISURA, file),
                 QStringLiteral("più"));
        QVERIFY(Profilo_Scrivi(QStringLiteral("Unità"), QStringLiteral("Città"), QStringLiteral("è"), file));
        QCOMPARE(m_stazione.Leggi(nome), "[Unit\xE0]\r\nX=pi\xF9\r\nCitt\xE0=\xE8\r\n");
    }

    /// Each of the page's bytes alone and between others is read as its character and outlives a write beside
    /// it.
    void ogniByteDellaPagina()
    {
        for (int numero = 0x80; numero <= 0xFF; ++numero) {
            const QByteArray valore = QByteArray("a") + char(numero) + "b" + char(numero) + char(numero);
            Scrivi("[A]\r\nX=" + valore + "\r\n");
            QCOMPARE(X(), Testo_DaAnsi(valore));
            QVERIFY(Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("Y"), Testo_DaAnsi(valore), m_file));
            QCOMPARE(Byte(), "[A]\r\nX=" + valore + "\r\nY=" + valore + "\r\n");
        }
    }

    void fileMancanteDaIlPredefinito() { QCOMPARE(X(), QStringLiteral("-")); }

    void percorsoVuoto()
    {
        QCOMPARE(
            Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("-"), MISURA, QString()),
            QStringLiteral("-"));
        QVERIFY(!Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("9"), QString()));
    }

    void fileMancanteVieneCreato()
    {
        QVERIFY(Imposta_X(QStringLiteral("9")));
        QCOMPARE(Byte(), "[A]\r\nX=9\r\n");
    }

    void cartellaMancanteNonVieneCreata()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("manca\\prova.ini"));
        QVERIFY(!Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("9"), file));
        QVERIFY(!QFile::exists(m_stazione.Nativo(QStringLiteral("manca"))));
    }

    /// A folder in the place of the file can neither be read nor written.
    void cartellaAlPostoDelFile()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR"));
        QCOMPARE(Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("-"), MISURA, file),
                 QStringLiteral("-"));
        QVERIFY(!Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("9"), file));
        QVERIFY(QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR"))).exists());
    }

    void percorsoScrittoInAltroCaso()
    {
        m_stazione.Scrivi(QStringLiteral("DIR_FAR\\prova.ini"), "[A]\r\nX=1\r\n");
        const QString altro = m_stazione.Percorso(QStringLiteral("dir_far\\PROVA.INI"));
        const auto leggi = [&altro] {
            return Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QString(), MISURA, altro);
        };
        QCOMPARE(leggi(), QStringLiteral("1"));
        QVERIFY(Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("9"), altro));
        QCOMPARE(leggi(), QStringLiteral("9"));
        QCOMPARE(m_stazione.Leggi(QStringLiteral("DIR_FAR\\prova.ini")), "[A]\r\nX=9\r\n");
        QCOMPARE(QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR"))).entryList(QDir::Files),
                 QStringList{QStringLiteral("prova.ini")});
    }

    void percorsoInAltroCasoVedeOgniCambio()
    {
        const QString altro = m_stazione.Percorso(QStringLiteral("PROVA.INI"));
        const auto leggi = [&altro] {
            return Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("-"), MISURA,
                                 altro);
        };
        Scrivi("[A]\r\nX=1\r\n");
        QCOMPARE(leggi(), QStringLiteral("1"));
        Scrivi("[A]\r\nX=2\r\n");
        QCOMPARE(leggi(), QStringLiteral("2"));
        QVERIFY(QFile::remove(m_stazione.Nativo(m_nome)));
        QCOMPARE(leggi(), QStringLiteral("-"));
        m_stazione.Scrivi(QStringLiteral("Prova.ini"), "[A]\r\nX=3\r\n");
        QCOMPARE(leggi(), QStringLiteral("3"));
        QVERIFY(QFile::rename(m_stazione.Nativo(QStringLiteral("Prova.ini")), m_stazione.Nativo(m_nome)));
        QCOMPARE(leggi(), QStringLiteral("3"));
    }

    void nonLasciaAltriFile()
    {
        const QDir cartella(m_stazione.Nativo(QStringLiteral("DIR_FAR")));
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\solo.ini"));
        for (int volta = 0; volta < 20; ++volta)
            QVERIFY(Profilo_Scrivi(QStringLiteral("A"), QString::number(volta), QStringLiteral("9"), file));
        QCOMPARE(cartella.entryList({QStringLiteral("solo*")}, QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("solo.ini")});
        QVERIFY(QFile::remove(cartella.filePath(QStringLiteral("solo.ini"))));
    }

    void cioCheSiScriveSiRileggeSubito()
    {
        for (int volta = 0; volta < 100; ++volta) {
            QVERIFY(Imposta_X(QString::number(volta % 7)));
            QCOMPARE(X(), QString::number(volta % 7));
        }
    }

    /// Two values of equal length, written in place: neither the size of the file nor its name nor, for most
    /// rounds, the clock tells the one state from the other.
    void vedeOgniRiscritturaSulPosto()
    {
        Scrivi("[A]\r\nX=1\r\nY=2\r\n");
        QFile altro(m_stazione.Nativo(m_nome));
        QVERIFY(altro.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        for (int volta = 0; volta < 5000; ++volta) {
            const char cifra = volta % 2 == 0 ? '8' : '9';
            QVERIFY(altro.seek(7) && altro.putChar(cifra));
            QCOMPARE(X(), QString(QLatin1Char(cifra)));
        }
    }

    void vedeIlFileSostituito()
    {
        const QString nuovo = m_stazione.Nativo(QStringLiteral("nuovo.ini"));
        for (int volta = 0; volta < 500; ++volta) {
            const QByteArray valore = QByteArray::number(volta % 10);
            m_stazione.Scrivi(QStringLiteral("nuovo.ini"), "[A]\r\nX=" + valore + "\r\n");
            QFile::remove(m_stazione.Nativo(m_nome));
            QVERIFY(QFile::rename(nuovo, m_stazione.Nativo(m_nome)));
            QCOMPARE(X(), QString::fromLatin1(valore));
        }
    }

    void vedeIlFileToltoERimesso()
    {
        for (int volta = 0; volta < 100; ++volta) {
            Scrivi("[A]\r\nX=1\r\n");
            QCOMPARE(X(), QStringLiteral("1"));
            QVERIFY(QFile::remove(m_stazione.Nativo(m_nome)));
            QCOMPARE(X(), QStringLiteral("-"));
        }
    }

    /// What another program writes between our read and our write is not lost.
    void scriveSuCioCheIlFileContieneOra()
    {
        Scrivi("[A]\r\nX=1\r\nY=1\r\n");
        QCOMPARE(X(), QStringLiteral("1"));
        QFile altro(m_stazione.Nativo(m_nome));
        QVERIFY(altro.open(QIODevice::ReadWrite) && altro.seek(12) && altro.putChar('7'));
        altro.close();
        QVERIFY(Imposta_X(QStringLiteral("9")));
        QCOMPARE(Byte(), "[A]\r\nX=9\r\nY=7\r\n");
    }

    void moltiFileATurno()
    {
        const auto nome = [](int i) { return QStringLiteral("DIR_FAR\\%1.acc").arg(i); };
        for (int i = 0; i < 40; ++i)
            m_stazione.Scrivi(nome(i), "[A]\r\nX=" + QByteArray::number(i) + "\r\n");
        for (int giro = 0; giro < 3; ++giro) {
            for (int i = 0; i < 40; ++i) {
                QCOMPARE(Profilo_Leggi(QStringLiteral("A"), QStringLiteral("X"), QString(), MISURA,
                                       m_stazione.Percorso(nome(i))),
                         QString::number(i));
            }
        }
    }

    /// Files of any bytes: a write gives its value back, changes no other key, and replaces a piece of one
    /// line at most.
    void fileACaso_data()
    {
        QTest::addColumn<quint32>("seme");
        for (quint32 seme = 1; seme <= 200; ++seme)
            QTest::newRow(qPrintable(QString::number(seme))) << seme;
    }
    void fileACaso()
    {
        QFETCH(quint32, seme);
        QRandomGenerator caso(seme);
        QByteArray prima;
        for (quint32 pezzi = caso.bounded(60u); pezzi > 0; --pezzi)
            prima += PEZZI[caso.bounded(quint32(std::size(PEZZI)))];
        Scrivi(prima);
        const QString yPrima = Valore(QStringLiteral("A"), QStringLiteral("Y"));
        const QString bPrima = Valore(QStringLiteral("B"), QStringLiteral("X"));

        QVERIFY(Imposta_X(QStringLiteral("nuovo")));
        QCOMPARE(X(), QStringLiteral("nuovo"));
        QCOMPARE(Valore(QStringLiteral("A"), QStringLiteral("Y")), yPrima);
        QCOMPARE(Valore(QStringLiteral("B"), QStringLiteral("X")), bPrima);

        const QByteArray dopo = Byte();
        const auto [p, d] = std::mismatch(prima.cbegin(), prima.cend(), dopo.cbegin(), dopo.cend());
        const qsizetype testa = p - prima.cbegin();
        qsizetype coda = 0;
        while (coda < std::min(prima.size(), dopo.size()) - testa &&
               prima[prima.size() - 1 - coda] == dopo[dopo.size() - 1 - coda])
            ++coda;
        const QByteArray tolto = prima.mid(testa, prima.size() - testa - coda);
        QVERIFY2(!tolto.contains('\n') && !tolto.contains('\r'), tolto.constData());
    }

    void fileGrandeSiLeggeInTempo()
    {
        QByteArray byte = "[A]\r\n";
        for (int i = 0; i < 20000; ++i)
            byte += "K" + QByteArray::number(i) + "=" + QByteArray::number(i) + "\r\n";
        Scrivi(byte + QByteArray(200000, '[') + "\r\n" + QByteArray(200000, '=') + "\r\n");
        for (int i = 0; i < 20000; i += 1999)
            QCOMPARE(Valore(QStringLiteral("A"), u'K' + QString::number(i)), QString::number(i));
    }
};

QTEST_GUILESS_MAIN(tst_profilo)
#include "tst_profilo.moc"
