// The result record written line by line beside the acceptance file. It judges nothing.
#include "mctc/far.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "platform/file.h"
#include "platform/una_riga.h"

QString gFileFar;

void Far_Scrivi(const QString &percorsoAcc)
{
    gFileFar = gDirAcc + Fs_Radice(percorsoAcc) + QStringLiteral(".far");
    QStringList righe{TESTA_FAR.toString()};
    // Whoever takes the file up reads it by its lines: a value is one line, whatever it holds.
    for (const VoceFar &riga : gRisultatoFar)
        righe.append(riga.Chiave + u'=' + Una_Riga(riga.Valore));
    File_ScriviRighe(gFileFar, righe);
}
