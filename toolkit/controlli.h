// The controls of a form, with the properties that the forms use, in twips. Each wraps one widget, which
// belongs to the form's window; a control whose window has gone takes every call and does nothing.
#pragma once

#include "platform/tipi.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

class Controllo
{
public:
    /// Takes its widget away with it.
    virtual ~Controllo();
    Controllo(const Controllo &) = delete;
    Controllo &operator=(const Controllo &) = delete;

    qint32 Left() const { return m_left; }
    qint32 Top() const { return m_top; }
    qint32 Width() const { return m_width; }
    qint32 Height() const { return m_height; }
    void Left(qint32 twip);
    void Top(qint32 twip);
    void Width(qint32 twip);
    void Height(qint32 twip);
    void Posto(qint32 left, qint32 top, qint32 width, qint32 height);

    bool Visible() const;
    void Visible(bool visibile);
    bool Enabled() const;
    void Enabled(bool abilitato);
    const QString &Tag() const { return m_tag; }
    void Tag(const QString &testo) { m_tag = testo; }
    double FontSize() const { return m_punti; }
    /// A text that does not fit its place at this size is shown in a smaller one, down to what can be read.
    void FontSize(double punti);
    void FontBold(bool grassetto);
    void FontName(const QString &nome);
    void SetFocus();
    /// True when the text fits the control's place in the type that it is shown in.
    virtual bool Entra() const { return true; }
    /// What a screen reader calls the control; a caption of its own needs none.
    void NomeAccessibile(const QString &nome);

    QWidget *Widget() const { return m_widget; }
    /// Takes size and type from the member that was placed at design time.
    void Copia_Disegno(const Controllo &modello);

protected:
    explicit Controllo(QWidget *widget, const QString &nome);
    /// Lays a style sheet on the widget and keeps its type.
    void Stile(const QString &foglio);
    /// Chooses the type anew: the text, the place or the look has changed.
    void Adatta();

private:
    void Disponi();
    void Carattere_Pixel(int pixel);

    QPointer<QWidget> m_widget;
    qint32 m_left = 0;
    qint32 m_top = 0;
    qint32 m_width = 0;
    qint32 m_height = 0;
    double m_punti = 0;
    QString m_tag;
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
    void Allineamento(Qt::Alignment allineamento);
    /// A text without blanks, such as a run of hexadecimal digits, is broken wherever the line ends.
    void SpezzaOvunque();
    /// Tells an assistive technology that this is the label of a control. A list that drops down is known by
    /// the entry that it shows: no name of its own would be heard.
    void Etichetta_Di(const Controllo &controllo);
    /// The beginning of a text: what fills the label even in the smallest type, and as much again. Behind it
    /// nothing of the text could be seen, and a layout of all of it would cost its length.
    QString Principio(const QString &testo) const;
    /// Keeps a strip of the label free of text. @param twip its height, from the top.
    void Margine_Sopra(qint32 twip);
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
    QLabel *Label() const;
    std::optional<quint32> m_testo; // colours; none: those of the form
    std::optional<quint32> m_fondo;
    LineaBordo m_bordo = Senza;
};

/// A box holds one line: a text is cut at its first CR, LF or NUL, whoever writes it. Every other character
/// stays.
class CasellaTesto : public Controllo
{
public:
    CasellaTesto(QWidget *finestra, const QString &nome);
    QString Text() const;
    /// Raises Change when the text is another.
    void Text(const QString &testo);
    /// True when the box shows all of its text.
    bool Intera() const;
    bool Locked() const;
    /// A locked box shows its text and takes none; the tab key passes it by.
    void Locked(bool bloccata);
    void BackColor(quint32 colore);
    /// Every character shows as this one.
    void Nascosta(bool nascosta);

    std::function<void()> Change;

private:
    QLineEdit *Riga() const;
};

class CasellaCombinata : public Controllo
{
public:
    CasellaCombinata(QWidget *finestra, const QString &nome);
    void AddItem(const QString &testo);
    void Clear();
    /// What drops down when the list is open.
    QWidget *Elenco() const;
    QString Text() const;
    /// Shows the item with that text.
    void Text(const QString &testo);
    qint16 ListIndex() const;
    /// @throws ErroreEsecuzione 380 when there is no such item. -1 shows none.
    void ListIndex(qint16 indice);

    /// The operator chose an item, also the one that was shown already.
    std::function<void()> Click;
    bool Entra() const override;

private:
    QComboBox *Combo() const;
};

class CasellaSpunta : public Controllo
{
public:
    CasellaSpunta(QWidget *finestra, const QString &nome);
    qint16 Value() const;
    /// 1 ticks the box, anything else clears it. A change raises Click, as the operator's own does.
    void Value(qint16 valore);

    std::function<void()> Click;

private:
    QCheckBox *Spunta() const;
};

class Pulsante : public Controllo
{
public:
    Pulsante(QWidget *finestra, const QString &nome);
    QString Caption() const;
    void Caption(const QString &testo);
    /// The button that Enter presses from any other control, and the one that Escape presses.
    bool Default() const { return m_default; }
    void Default(bool vero) { m_default = vero; }
    bool Cancel() const { return m_cancel; }
    void Cancel(bool vero) { m_cancel = vero; }

    std::function<void()> Click;
    bool Entra() const override;

private:
    QPushButton *Bottone() const;
    bool m_default = false;
    bool m_cancel = false;
};

/// A list of lines. A tab character in a line jumps to the tab stop.
class ElencoVoci : public Controllo
{
public:
    ElencoVoci(QWidget *finestra, const QString &nome);
    void AddItem(const QString &testo);
    void Clear();
    qint32 ListCount() const;
    QString List(qint32 indice) const;
    qint32 ListIndex() const;
    /// An index other than -1 selects the line and raises Click.
    /// @throws ErroreEsecuzione 380 when there is no such line.
    void ListIndex(qint32 indice);
    /// Sets the one tab stop. @param unita in quarters of a character's average width, as the system's list
    /// message takes it. @return its place in twips from the left edge.
    qint32 Tabulazione(qint32 unita);

    std::function<void()> Click;

private:
    QListWidget *Lista() const;
};

/// A picture, shown as large as its place lets it without distortion.
class Immagine : public Controllo
{
public:
    Immagine(QWidget *finestra, const QString &nome);
    /// Loads a picture file. @throws ErroreEsecuzione 53 when there is none, 481 when it is no picture.
    void Picture(const QString &percorso);
    /// Shows the warning sign.
    void Avviso();
    /// Shows a text in the picture's place.
    void Testo(const QString &testo);

private:
    QLabel *Label() const;
};

/// A filled shape: a lamp, or a form's border.
class Forma : public Controllo
{
public:
    enum Aspetto
    {
        Rettangolo,
        Cerchio
    };
    Forma(QWidget *finestra, const QString &nome, Aspetto aspetto);
    quint32 FillColor() const { return m_colore; }
    void FillColor(quint32 colore);

private:
    quint32 m_colore = 0xFFFFFF;
};
