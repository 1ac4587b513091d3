// The question for a folder's rights on Windows, which is put to the system's own call: what is asked for,
// and what its answers mean. A stand-in for Windows may open every folder for whoever asks.
#include "strumenti/scrivibile.h"

#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QTest>

#include <qt_windows.h>

#include <optional>

namespace {

/// What was asked of the system.
struct Domanda
{
    QString nome;
    DWORD accesso = 0;
    DWORD modo = 0;
    DWORD attributi = 0;
};

std::optional<DWORD> gRifiuto; // what the system answers; nothing: what it answers by itself
Domanda gDomanda;
int gAperte = 0;

template <typename Chiamata>
Chiamata *Vera(const char *nome)
{
    return reinterpret_cast<Chiamata *>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), nome)));
}

/// Stands before the system's own call in this program.
HANDLE WINAPI Apri(const wchar_t *nome, DWORD accesso, DWORD condivisa, SECURITY_ATTRIBUTES *diritti,
                   DWORD modo, DWORD attributi, HANDLE modello)
{
    gDomanda = {QString::fromWCharArray(nome), accesso, modo, attributi};
    if (gRifiuto) {
        SetLastError(*gRifiuto);
        return INVALID_HANDLE_VALUE;
    }
    ++gAperte;
    return Vera<decltype(CreateFileW)>("CreateFileW")(nome, accesso, condivisa, diritti, modo, attributi,
                                                      modello);
}

BOOL WINAPI Chiudi(HANDLE aperta)
{
    --gAperte;
    return Vera<decltype(CloseHandle)>("CloseHandle")(aperta);
}

} // namespace

// The places through which a program calls the system. The linker takes these for its own, by the names that
// it gives them.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
extern decltype(&CreateFileW) const __imp_CreateFileW = Apri;
extern decltype(&CloseHandle) const __imp_CloseHandle = Chiudi;
}
// NOLINTEND(bugprone-reserved-identifier)

class tst_scrivibile_win32 : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_cartella = m_stazione.Percorso(QStringLiteral("DIR_FAR"));

private Q_SLOTS:
    void init()
    {
        gRifiuto.reset();
        gDomanda = {};
        gAperte = 0;
    }

    /// The right to add a file, to a folder that is there, and nothing is left open or behind.
    void chiedeDiAggiungereUnFile()
    {
        QVERIFY(Cartella_Scrivibile(m_cartella));
        QCOMPARE(QDir::fromNativeSeparators(gDomanda.nome), m_stazione.Nativo(QStringLiteral("DIR_FAR")));
        QCOMPARE(gDomanda.accesso, DWORD{FILE_ADD_FILE});
        QCOMPARE(gDomanda.modo, DWORD{OPEN_EXISTING});
        QVERIFY((gDomanda.attributi & FILE_FLAG_BACKUP_SEMANTICS) != 0); // without it no folder opens
        QCOMPARE(gAperte, 0);
        QVERIFY(QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR"))).isEmpty());
    }

    void risposte_data()
    {
        QTest::addColumn<quint32>("rifiuto");
        QTest::addColumn<bool>("scrivibile");
        QTest::newRow("no right") << quint32{ERROR_ACCESS_DENIED} << false;
        QTest::newRow("write-protected disk") << quint32{ERROR_WRITE_PROTECT} << false;
        QTest::newRow("share that has gone") << quint32{ERROR_NETNAME_DELETED} << false;
        // Somebody else has it open alone: that says nothing of rights.
        QTest::newRow("in use") << quint32{ERROR_SHARING_VIOLATION} << true;
    }
    void risposte()
    {
        QFETCH(quint32, rifiuto);
        gRifiuto = rifiuto;
        QTEST(Cartella_Scrivibile(m_cartella), "scrivibile");
    }

    void cartellaCheManca() { QVERIFY(!Cartella_Scrivibile(m_stazione.Percorso(QStringLiteral("manca")))); }
};

QTEST_GUILESS_MAIN(tst_scrivibile_win32)
#include "tst_scrivibile_win32.moc"
