// Every text that the program shows, asked of its file in every language as the station asks it.
#include "strumenti/diagnosi.h"

#include "core/lingue.h"
#include "core/modGeneral.h"
#include "core/parole.h"
#include "platform/percorsi.h"
#include "platform/profilo_testo.h"
#include "strumenti/codice_testo.h"

#include <QFile>
#include <QStringList>

#include <span>

namespace {

#define NUMERO(nome, numero) qint16{numero},
constexpr qint16 NUMERI_MCTC[] = {TESTI_MCTC(NUMERO)};
constexpr qint16 NUMERI_LINGUA[] = {TESTI_LINGUA(NUMERO)};
#undef NUMERO

struct FileTesti
{
    QStringView Nome;
    const QString *Percorso;
    std::span<const qint16> Numeri;
};

// clang-format off
constexpr FileTesti FILE_TESTI[] = {
    {u"lingue.ini",     &gFileLingue,     NUMERI_LINGUA},
    {u"lingueMCTC.ini", &gFileLingueMctc, NUMERI_MCTC  },
};
// clang-format on

constexpr Parole COMPLETI = {u"%1: %2 testi in %3 lingue", u"%1: %2 texts in %3 languages"};
constexpr Parole MANCANO = {u"%1, [%2]: mancano %3 testi su %4 (%5)",
                            u"%1, [%2]: %3 texts of %4 are missing (%5)"};
constexpr Parole AGGIORNARE = {u"mettere il file di testi della versione installata",
                               u"put the text file of the installed version in its place"};

constexpr Parole IN_UTF8 = {
    u"%1: lettere accentate in UTF-8, si leggeranno male (%2 righe, la prima è la %3)",
    u"%1: accented letters in UTF-8, they will read wrong (%2 lines, the first one is %3)"};
constexpr Parole SALVARE_ANSI = {u"salvare il file come ANSI (Windows-1252)",
                                 u"save the file as ANSI (Windows-1252)"};

constexpr qsizetype NUMERI_DETTI = 10;

QStringList Mancanti_In(const FileTesti &file, const QString &lingua)
{
    QStringList mancanti;
    for (const qint16 numero : file.Numeri) {
        if (Valore_Ini(*file.Percorso, lingua, Lingua_Id(numero)).isEmpty())
            mancanti.append(Lingua_Id(numero));
    }
    return mancanti;
}

QString Numeri_Detti(const QStringList &numeri)
{
    QString detti = numeri.first(std::min(numeri.size(), NUMERI_DETTI)).join(QStringLiteral(", "));
    return numeri.size() > NUMERI_DETTI ? detti + QStringLiteral(", ...") : detti;
}

/// One finding for the whole file: an editor saves all of it in one code.
void Guarda_Codice(Riscontri &riscontri, const FileTesti &testi)
{
    QFile file(Percorso_Nativo(*testi.Percorso));
    if (!file.open(QIODevice::ReadOnly))
        return; // the look at the files has told
    QList<RigaProfilo> righe = Righe_Profilo(file.readAll());
    righe.removeIf([](const RigaProfilo &riga) { return !E_Utf8(riga.Byte); });
    if (!righe.isEmpty())
        Trovato_Avviso(riscontri, Materia::Testi,
                       In_Parole(IN_UTF8).arg(testi.Nome.toString(), QString::number(righe.size()),
                                              QString::number(righe.first().Numero)),
                       In_Parole(SALVARE_ANSI));
}

} // namespace

void Diagnosi_Testi(Riscontri &riscontri)
{
    for (const FileTesti &file : FILE_TESTI) {
        const qsizetype prima = riscontri.size();
        Guarda_Codice(riscontri, file);
        const auto quanti = QString::number(file.Numeri.size());
        for (const LinguaStazione &voce : LINGUE) {
            const QString lingua = QString::fromUtf16(voce.codice).toUpper();
            const QStringList mancanti = Mancanti_In(file, lingua);
            if (mancanti.isEmpty())
                continue;
            // A language that nobody has chosen is missed when somebody does; the whole of the chosen one
            // now.
            const bool tutta = lingua == gLingua && std::cmp_equal(mancanti.size(), file.Numeri.size());
            riscontri.append(
                {Materia::Testi, tutta ? Grado::Guasto : Grado::Avviso,
                 In_Parole(MANCANO).arg(file.Nome.toString(), lingua, QString::number(mancanti.size()),
                                        quanti, Numeri_Detti(mancanti)),
                 In_Parole(AGGIORNARE)});
        }
        if (riscontri.size() == prima)
            Trovato_Buono(
                riscontri, Materia::Testi,
                In_Parole(COMPLETI).arg(file.Nome.toString(), quanti, QString::number(std::size(LINGUE))));
    }
}
