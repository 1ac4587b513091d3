// A folder chosen from those that there are, in place of typing its path.
#pragma once

#include "toolkit/modulo.h"

class Titolo;

class frmCartella : public Modulo
{
    Q_OBJECT

public:
    frmCartella();
    ~frmCartella() override;

    QString Cartella;    ///< where to begin; after a choice the folder chosen, with a backslash at its end
    Flag Scelta = Falso; ///< the operator chose

protected:
    void Disegno() override;
    void Load() override;
    void cmd_Click(qint16 Index) override;

private:
    void Elenca(const QString &cartella);
    void Mostra_Indicata();
    QString Indicata() const;

    std::unique_ptr<Titolo> lblTitolo;
    std::unique_ptr<ElencoVoci> lstCartelle;
    QString mQui; // the folder whose folders are listed; empty: the drives are
};
