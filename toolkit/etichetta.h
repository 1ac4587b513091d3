// A label: the text of a form, in one line or more.
#pragma once

#include "toolkit/controllo.h"

#include <optional>

enum class Orizzontale : quint8
{
    Sinistra,
    Centro,
    Destra
};
enum class Verticale : quint8
{
    Alto,
    Mezzo,
    Basso
};

class Etichetta : public Controllo
{
public:
    Etichetta(QWidget *finestra, const QString &nome);
    QString Caption() const;
    void Caption(const QString &testo);
    void ForeColor(quint32 colore);
    void BackColor(quint32 colore);
    /// A thin line round the label, as round the cell of a table.
    void Bordo();
    /// A thick one in the colour of the text: it stands out also to eyes that do not tell the colours.
    void Bordo_Evidente();
    /// Colours and border of a table's cell, in one go: a change of the look costs as much as the label
    /// itself.
    /// @param evidente  the border stands out; see Bordo_Evidente.
    void Cella(quint32 testo, quint32 fondo, bool evidente = false);
    /// Where the text stands in the label's place. At first it stands to the left, in the middle.
    void Allineamento(Orizzontale orizzontale, Verticale verticale = Verticale::Mezzo);
    /// A text without blanks, such as a run of hexadecimal digits, is broken wherever the line ends.
    void SpezzaOvunque();
    /// Tells an assistive technology that this is the label of a control. A list that drops down is known by
    /// the entry that it shows: no name of its own would be heard.
    void Etichetta_Di(const Controllo &controllo);
    /// The beginning of a text: what fills the label even in the smallest type, and as much again. Behind it
    /// nothing of the text could be seen, and a layout of all of it would cost its length.
    QString Principio(const QString &testo) const;
    /// Keeps strips of the label free of text, in twips: from the top, and from each side.
    void Margini(qint32 sopra, qint32 lati);
    /// Height that the caption and the free strip need at the present width, in twips.
    qint32 Altezza_Testo() const;
    bool Entra() const override;

private:
    enum LineaBordo
    {
        Senza,
        Sottile,
        Evidente
    };
    void Colora();
    std::optional<quint32> m_testo; // colours; none: those of the form
    std::optional<quint32> m_fondo;
    LineaBordo m_bordo = Senza;
};
