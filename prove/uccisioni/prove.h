// Killings in the middle of a whole test, from the first frame to the removal of the acceptance file: a
// vehicle goes from the exchange folder only when its result is there, whole.
#pragma once

#include <QList>
#include <QString>

namespace uccisioni {

/// What killings of one kind left in the exchange folder.
struct Prove
{
    int Uccise = 0;
    int MaiUccise = 0;
    int SenzaRisultato = 0;    ///< no result file, or that of an earlier test, and the vehicle still listed
    int Vuote = 0;             ///< an empty result file, the vehicle still listed
    int ParteDelRisultato = 0; ///< a part of one, the vehicle still listed
    int ConRisultato = 0;      ///< whole, the vehicle still listed
    int Concluse = 0;          ///< whole, the vehicle gone
    int Chiamate = 0;
    QStringList Guaste; ///< anything else
};

/// Kills at random moments. Every second test answers to a vehicle that has a result already.
Prove Prove_ACaso(int quante, quint32 seme);
/// The same over the evaluation alone, where the files are written.
Prove Prove_ACasoAllaFine(int quante, quint32 seme);
/// Kills the evaluation before and behind each of its system calls, without an earlier result and with one.
Prove Prove_AOgniConfine();
/// What the evaluation does to the disk, see Effetti_Di.
QList<QByteArray> Prova_Effetti();

} // namespace uccisioni
