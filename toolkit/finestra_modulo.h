// The window of a form: its place and look, and what the window system tells it, which goes to the form. It
// knows no control, and outlives its form's unloading until the loop has control again.
#pragma once

#include <QWidget>

#include <vector>

class GestoriModulo;
class TastieraModulo;

class FinestraModulo : public QWidget
{
public:
    /// @param nome the form's name.
    FinestraModulo(GestoriModulo &modulo, TastieraModulo &tastiera, const QString &nome);
    /// From now on it tells nobody anything.
    void Stacca() { m_modulo = nullptr; }

    /// Lays the window so on the screen; lengths in twips.
    void Disponi(qint32 left, qint32 top, qint32 width, qint32 height);
    /// Covers the screen, a desktop's panels included, with no frame. Lengths as Disponi takes them.
    void Massimizza(qint32 width, qint32 height);
    /// Shows the window. A small one belongs to the window that has the keyboard.
    /// @param altrimenti the one it belongs to when none has; nullptr for none.
    void Mostra(const QWidget *altrimenti);
    void PortaAvanti();
    void InPrimoPiano();
    /// One more segment of the painting that is running, in twips.
    void Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2);

protected:
    bool event(QEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    bool focusNextPrevChild(bool avanti) override;

private:
    void Diventa_Dialogo();
    void Posa_Sopra(const QWidget *altrimenti);

    struct Segmento
    {
        qint32 x1, y1, x2, y2;
    };

    GestoriModulo *m_modulo;
    TastieraModulo &m_tastiera; ///< goes with the form: for use as long as m_modulo is there
    bool m_intero = false;      ///< covers the screen
    std::vector<Segmento> m_segmenti;
};
