// The chapters that the help key opens: each form of the program has one, and the manual has it.
#include "app/manuale.h"
#include "tests/casa/regole_casa.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

namespace {

/// Anchors of the manual's headings, as its own links write them: small letters, hyphens, no other signs.
QStringList Ancore_Di(const QString &manuale)
{
    static const QRegularExpression TITOLO(QStringLiteral("^#+ (.*)$"), QRegularExpression::MultilineOption);
    static const QRegularExpression SEGNI(QStringLiteral("[^\\w -]"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    QStringList ancore;
    for (auto trovati = TITOLO.globalMatch(manuale); trovati.hasNext();)
        ancore.append(trovati.next().captured(1).toLower().remove(SEGNI).replace(u' ', u'-'));
    return ancore;
}

/// Names of the forms of the house.
QStringList Form_Della(const Sorgenti &casa)
{
    static const QRegularExpression FORM(QStringLiteral("\\bModulo\\(QStringLiteral\\(\"(\\w+)\"\\)\\)"));
    QStringList form;
    for (auto file = casa.cbegin(); file != casa.cend(); ++file) {
        if (!file.key().startsWith(u"tests/") && FORM.match(file.value()).hasMatch())
            form.append(FORM.match(file.value()).captured(1));
    }
    form.sort(Qt::CaseInsensitive);
    return form;
}

QString Manuale()
{
    QFile file(QStringLiteral(LUMIRA_SORGENTE "/docs/manuale.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString File_Di(const QUrl &indirizzo)
{
    return QFileInfo(indirizzo.toLocalFile()).fileName();
}

} // namespace

class tst_manuale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ancoreSiLeggono()
    {
        QCOMPARE(Ancore_Di(QStringLiteral("# Così è\ntesto # no\n\n### lumira.ini, a-b (F12)\n")),
                 (QStringList{QStringLiteral("così-è"), QStringLiteral("lumiraini-a-b-f12")}));
    }
    void ogniFormHaIlSuoCapitolo()
    {
        QStringList form;
        for (const Capitolo &capitolo : CAPITOLI)
            form.append(QString::fromUtf16(capitolo.Modulo));
        QCOMPARE(form, Form_Della(Sorgenti_Leggi(QStringLiteral(LUMIRA_SORGENTE))));
    }
    void ogniCapitoloCe()
    {
        const QStringList ancore = Ancore_Di(Manuale());
        for (const Capitolo &capitolo : CAPITOLI) {
            const QString ancora = QString::fromUtf16(capitolo.Ancora);
            QVERIFY2(ancore.count(ancora) == 1, qPrintable(ancora));
        }
    }
    /// A link to a chapter that has another name leads nowhere, and nobody would tell.
    void ogniRimandoHaIlSuoTitolo()
    {
        static const QRegularExpression RIMANDO(QStringLiteral("\\]\\(#([^)]+)\\)"));
        const QStringList ancore = Ancore_Di(Manuale());
        int rimandi = 0;
        for (auto trovati = RIMANDO.globalMatch(Manuale()); trovati.hasNext(); ++rimandi) {
            const QString ancora = trovati.next().captured(1);
            QVERIFY2(ancore.contains(ancora), qPrintable(ancora));
        }
        QVERIFY(rimandi > 5);
    }

    void indirizzi()
    {
        const StazioneProva stazione;
        const QString link = QStringLiteral("frmComm");
        QVERIFY(Manuale_Indirizzo(link).isEmpty()); // a station without its manual

        stazione.Scrivi(QStringLiteral("manuale.html"), "manuale");
        QCOMPARE(File_Di(Manuale_Indirizzo(link)), QStringLiteral("manuale.html"));

        stazione.Scrivi(QStringLiteral("manuale\\i-messaggi-e-che-cosa-fare.html"), "capitolo");
        const QUrl capitolo = Manuale_Indirizzo(link);
        QVERIFY(capitolo.isLocalFile());
        QCOMPARE(QFileInfo(capitolo.toLocalFile()),
                 QFileInfo(stazione.Nativo(QStringLiteral("manuale\\i-messaggi-e-che-cosa-fare.html"))));
        QCOMPARE(File_Di(Manuale_Indirizzo(QStringLiteral("frmNuovo"))), QStringLiteral("manuale.html"));
    }
};

QTEST_GUILESS_MAIN(tst_manuale)
#include "tst_manuale.moc"
