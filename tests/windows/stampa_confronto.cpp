// The report page on the default printer: stampa_confronto STATION. What the print system tells goes to the
// standard output; the comparison of two systems' pages stands in prova_stampa.py, and nothing is judged
// here.
//
// STATION is a folder with the texts and the configuration of a station. The answer is a line each:
//   coda NAME WIDTH HEIGHT      a queue that takes jobs, its paper in twips
//   predefinita NAME            the default one, "-" when there is none
//   stampata 1                  the page was taken; 0 when it was not
#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "platform/stampante.h"
#include "report/pagina.h"
#include "toolkit/applicazione.h"

#include <cstdio>

namespace {

constexpr quint8 STADI[] = {0, 1, 2, 3};

void Apri_Stazione(const QString &cartella)
{
    gAppPath = cartella + u'\\';
    gFileIni = gAppPath + QStringLiteral("lumira.ini");
    gFileLingue = gAppPath + QStringLiteral("lingue.ini");
    gFileLingueMctc = gAppPath + QStringLiteral("lingueMCTC.ini");
    gLingua = QStringLiteral("IT");
    gTipoProva = ProvaConfermata;
    Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
}

void Racconta_Code()
{
    const SistemaStampa &sistema = Stampa_Corrente();
    for (qint16 i = 0; i < sistema.Count(); ++i) {
        const auto coda = sistema.Printers(i);
        std::printf("coda %s %d %d\n", qUtf8Printable(coda->DeviceName()), coda->Width(), coda->Height());
    }
    const auto predefinita = sistema.Printer();
    std::printf("predefinita %s\n", predefinita ? qUtf8Printable(predefinita->DeviceName()) : "-");
}

/// The tables as a test leaves them; date and times are the same on every machine.
void Riempi_Tabelle()
{
    Far_Azzera();
    for (const RigaFar riga : {FarIllumLuxAnabDx, FarIllumLuxAnabSx, FarIllumLuxAbbDx, FarIllumLuxAbbSx})
        Far_Imposta(riga, QStringLiteral("30500"));
    for (const RigaFar riga : {FarVertAnabDx, FarOrizzAnabSx, FarEsitoIllumLuxAbbDx})
        Far_Imposta(riga, QStringLiteral("R"));
    for (const quint8 stadio : STADI)
        Report_Dati(stadio);
    gRepMisure[RepData] = QStringLiteral("05-03-2024");
    gRepMisure[RepInizio] = QStringLiteral("09:07:08");
    gRepMisure[RepFine] = QStringLiteral("09:10:11");
}

} // namespace

int main(int quanti, char **argomenti)
{
    if (quanti != 2)
        return 2;
    Applicazione applicazione(quanti, argomenti);
    Apri_Stazione(QString::fromLocal8Bit(argomenti[1]));
    Racconta_Code();
    Riempi_Tabelle();
    std::printf("stampata %d\n", Report_Invia() != Falso ? 1 : 0);
    return 0;
}
