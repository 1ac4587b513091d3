// The print system on Qt's print support and the system's queues.
#pragma once

#include "platform/stampante.h"

class SistemaStampaQt : public SistemaStampa
{
public:
    qint16 Count() const override;
    std::shared_ptr<OggettoStampa> Printers(qint16 numero) const override;
    std::shared_ptr<OggettoStampa> Printer() const override;
};
