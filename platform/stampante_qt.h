// The print system on Qt's print support and the system's queues.
#pragma once

#include "platform/stampante.h"

#include <QStringList>

class SistemaStampaQt : public SistemaStampa
{
public:
    qint16 Count() const override;
    std::shared_ptr<OggettoStampa> Printers(qint16 numero) const override;
    std::shared_ptr<OggettoStampa> Printer() const override;

private:
    mutable QStringList m_pronte; // what was last counted: asking each queue takes its time
};
