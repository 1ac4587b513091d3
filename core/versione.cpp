// The number is given by the build, which keeps it in one place. In the program it stands behind a few words
// of ours: there whoever has the file alone finds it, and takes no other number for it.
#include "core/versione.h"

#include <QStringView>

namespace {

constexpr QStringView SEGNATA = u"lumira, versione " LUMIRA_VERSIONE;
constexpr qsizetype SEGNO = SEGNATA.size() - QStringView(u"" LUMIRA_VERSIONE).size();

QByteArray Byte_Di(QStringView testo)
{
    return QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * qsizetype{2});
}

} // namespace

QString Versione_Programma()
{
    return SEGNATA.sliced(SEGNO).toString();
}

QString Versione_Di(const QByteArray &programma)
{
    constexpr qsizetype LUNGA = 20; // characters: no version is
    const QByteArray segno = Byte_Di(SEGNATA.first(SEGNO));
    const qsizetype posto = programma.indexOf(segno);
    if (posto < 0)
        return {};
    const QByteArray dopo = programma.mid(posto + segno.size(), LUNGA * 2);
    QString versione;
    for (qsizetype i = 0; i + 1 < dopo.size(); i += 2) {
        const QChar carattere(static_cast<uchar>(dopo[i]), static_cast<uchar>(dopo[i + 1]));
        if (carattere.isNull())
            return versione;
        versione += carattere;
    }
    return {};
}
