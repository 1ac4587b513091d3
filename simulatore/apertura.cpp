// The line opened, linked and announced. Who speaks on it is not known here.
#include "simulatore/apertura.h"

#include <QTextStream>

std::unique_ptr<Linea> Linea_Stazione(const Opzioni &opzioni)
{
    return opzioni.dispositivo.isEmpty() ? Crea_LineaPty()
                                         : Crea_LineaSeriale(opzioni.dispositivo, opzioni.velocita);
}

bool Linea_Apri(Linea &linea, Collegamento &collegamento, QString &errore)
{
    if (!linea.Apri(errore))
        return false;
    if (!collegamento.Metti(linea.Nome(), errore)) {
        linea.Chiudi();
        return false;
    }
    // Not through the log, which may be a file: whoever started the program waits for this line, a script
    // too, so that it is the same in every language.
    QTextStream(stdout) << QStringLiteral("pronto: ") << linea.Nome() << Qt::endl;
    return true;
}
