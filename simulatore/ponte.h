// The bridge: between a station and a real instrument it passes every byte on at once, both ways, and keeps
// the record of them.
#pragma once

#include "simulatore/linea.h"
#include "simulatore/registrazione.h"
#include "simulatore/registro.h"

#include <QElapsedTimer>

#include <functional>

class Ponte
{
public:
    /// Both lines and the record are open already, or will be before the first byte.
    Ponte(Linea &stazione, Linea &strumento, ScrittoreRegistrazione &registrazione, Registro &registro);

    /// Something to tell beside the bytes: it goes to the log, and to the record as a comment.
    void Annota(const QString &testo);

    /// The record can no longer be written, the disk being full or gone.
    std::function<void()> Senza_Registrazione;

private:
    void Passa(Voce voce, Linea &verso, const QByteArray &byte);
    void Esigi(bool scritto);

    Linea &m_stazione;
    Linea &m_strumento;
    ScrittoreRegistrazione &m_registrazione;
    Registro &m_registro;
    QElapsedTimer m_orologio;
};
