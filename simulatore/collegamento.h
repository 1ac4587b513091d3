// The link under which a station finds the pseudo terminal, e.g. porte/COM1 in its folder: the terminal's own
// name changes at every start.
#pragma once

#include <QString>

class Collegamento
{
public:
    /// @param percorso of the link; empty for none, and then every call does nothing.
    explicit Collegamento(const QString &percorso) : m_percorso(percorso) {}
    ~Collegamento() { Togli(); }
    Collegamento(const Collegamento &) = delete;
    Collegamento &operator=(const Collegamento &) = delete;

    /// Makes the link, its folder too, and replaces an older one in one step: a station that opens it finds
    /// either. A file or folder in its place is left alone.
    /// @param destinazione what it points to. @param[out] errore why not, when it returns false.
    bool Metti(const QString &destinazione, QString &errore);

    /// Removes the link, unless another simulator has taken it over.
    void Togli();

private:
    QString m_percorso;
    QString m_destinazione;
};
