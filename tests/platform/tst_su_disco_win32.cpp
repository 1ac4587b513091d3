// What is sent to the disk on Windows: the file that was written, when all of its bytes have left the
// program, and what the disk says to it. That the machine keeps them then is the system's word.
#include "platform/su_disco.h"

#include "platform/file.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <qt_windows.h>

namespace {

/// A file in the moment when it is sent to the disk.
struct Mandato
{
    QString nome;
    QByteArray byte; ///< as somebody else finds it there
};

DWORD gErroreDisco = ERROR_SUCCESS; // what the disk says
QList<Mandato> gMandati;

QString Nome_Di(HANDLE aperto)
{
    wchar_t nome[MAX_PATH] = {};
    GetFinalPathNameByHandleW(aperto, nome, MAX_PATH, FILE_NAME_NORMALIZED);
    return QString::fromWCharArray(nome).remove(QStringLiteral("\\\\?\\"));
}

QByteArray Byte_Di(const QString &nome)
{
    QFile file(nome);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?");
}

/// Stands before the system's own call in this program.
BOOL WINAPI Manda(HANDLE aperto)
{
    const QString nome = Nome_Di(aperto);
    gMandati.append({nome, Byte_Di(nome)});
    if (gErroreDisco == ERROR_SUCCESS) {
        static const auto vera = reinterpret_cast<decltype(&FlushFileBuffers)>(
            reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "FlushFileBuffers")));
        return vera(aperto);
    }
    SetLastError(gErroreDisco);
    return FALSE;
}

} // namespace

// The place through which a program calls the system. The linker takes this for its own, by the name that it
// gives it.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
extern decltype(&FlushFileBuffers) const __imp_FlushFileBuffers = Manda;
}
// NOLINTEND(bugprone-reserved-identifier)

class tst_su_disco_win32 : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("DIR_FAR\\prova.txt");

private Q_SLOTS:
    void init()
    {
        gMandati.clear();
        gErroreDisco = ERROR_SUCCESS;
    }

    /// A result: its bytes are there, and it is they that are sent, once.
    void ilFileScrittoEIntero()
    {
        m_stazione.Scrivi(QStringLiteral("DIR_FAR\\altro.txt"), "altro");
        File_ScriviRighe(m_stazione.Percorso(m_nome), {QStringLiteral("a"), QStringLiteral("è")});
        QCOMPARE(gMandati.size(), 1);
        QCOMPARE(QFileInfo(gMandati[0].nome).canonicalFilePath(),
                 QFileInfo(m_stazione.Nativo(m_nome)).canonicalFilePath());
        QCOMPARE(gMandati[0].byte, "a\r\n\xE8\r\n");
    }

    /// Of two files that are open the one that was asked for.
    void dueFileAperti()
    {
        QFile uno(m_stazione.Nativo(QStringLiteral("DIR_FAR\\uno.txt")));
        QFile due(m_stazione.Nativo(QStringLiteral("DIR_FAR\\due.txt")));
        QVERIFY(uno.open(QIODevice::WriteOnly) && due.open(QIODevice::WriteOnly));
        for (QFile *file : {&due, &uno}) {
            QVERIFY(File_SuDisco(file->handle()));
            QCOMPARE(QFileInfo(gMandati.last().nome).fileName(), QFileInfo(*file).fileName());
        }
    }

    /// A share may take every byte and tell only when it is asked to keep them that it has no room.
    void rifiutoDelDisco_data()
    {
        QTest::addColumn<quint32>("rifiuto");
        QTest::addColumn<int>("errore");
        QTest::newRow("full") << quint32{ERROR_DISK_FULL} << 61;
        QTest::newRow("quota") << quint32{ERROR_NOT_ENOUGH_QUOTA} << 61;
        QTest::newRow("connection lost") << quint32{ERROR_NETNAME_DELETED} << 61;
        QTest::newRow("read-only") << quint32{ERROR_ACCESS_DENIED} << 61;
        QTest::newRow("a file system without the call") << quint32{ERROR_INVALID_FUNCTION} << 0;
        QTest::newRow("a share without the call") << quint32{ERROR_NOT_SUPPORTED} << 0;
    }
    void rifiutoDelDisco()
    {
        QFETCH(quint32, rifiuto);
        QFETCH(int, errore);
        gErroreDisco = rifiuto;
        QCOMPARE(Errore_Di([this] { File_ScriviRighe(m_stazione.Percorso(m_nome), {QStringLiteral("a")}); }),
                 errore);
        QCOMPARE(gMandati.size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_su_disco_win32)
#include "tst_su_disco_win32.moc"
