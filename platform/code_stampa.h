// The system's print queues: which there are, what paper they take by default, and the handing over of a
// sheet. What is painted on the sheet is not their business.
#pragma once

#include <QList>
#include <QSizeF>
#include <QString>

#include <memory>

class QPageSize;
class QPagedPaintDevice;

struct CodaStampa
{
    QString nome;
    bool predefinita = false;
    bool accetta = false; ///< takes jobs at this moment
};

/// In millimetres.
inline constexpr QSizeF A4(210, 297);

/// The queues, none when the print system does not answer within seconds.
QList<CodaStampa> Code_Elenca();

/// Name of the default queue; empty when there is none. It asks no other queue.
QString Coda_Predefinita();

/// Default paper of a queue, in millimetres; A4 where the queue does not tell.
QSizeF Coda_Carta(const QString &nome);

/// A sheet for one queue: painted, then handed over.
class FoglioStampa
{
public:
    virtual ~FoglioStampa() = default;
    /// Lays in the paper, upright: the surface goes from its corner to its edges, whatever margins the queue
    /// has of its own. Called before a painter begins. @return false when the queue has it otherwise.
    virtual bool Imposta_Carta(const QPageSize &carta) = 0;
    /// What a painter begins on. The painter has ended before the sheet is handed over.
    virtual QPagedPaintDevice &Superficie() = 0;
    /// @return false when the system does not take it.
    virtual bool Consegna() = 0;
};

/// @param coda the queue's name. @param titolo name of the job.
std::unique_ptr<FoglioStampa> Foglio_Nuovo(const QString &coda, const QString &titolo);
