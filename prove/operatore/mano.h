// The hand of somebody who does anything: what a mouse and a keyboard can do to the window that has them, by
// chance. What a form makes of it is not known here.
#pragma once

#include <QApplication>
#include <QList>
#include <QPointer>
#include <QRandomGenerator>
#include <QString>
#include <QWindow>

class QWidget;

namespace operatore {

class Mano
{
public:
    explicit Mano(quint32 seme) : m_caso(seme) {}

    /// Does one thing. @return what it was about to do is told before it is done: the doing may not come
    /// back.
    /// @param racconta gets the words.
    template <typename P>
    void Fai(P racconta)
    {
        const Gesto &gesto = Scegli();
        m_racconto.clear();
        m_modale = QApplication::activeModalWidget();
        m_daRispondere = m_modale != nullptr;
        (this->*gesto.Prepara)();
        racconta(QString::fromLatin1(gesto.Nome) + m_racconto);
        (this->*gesto.Fai)();
    }

private:
    struct Gesto
    {
        int Peso;
        const char *Nome;
        void (Mano::*Prepara)(); ///< settles what is going to be done
        void (Mano::*Fai)();
    };
    static const Gesto GESTI[];

    const Gesto &Scegli();
    int Fra(int da, int a) { return m_caso.bounded(da, a + 1); }
    QWidget *Davanti() const;
    QString Testo_ACaso();
    void Tasto(Qt::Key tasto, Qt::KeyboardModifiers con, int volte);

    QList<QWidget *> Bersagli(QWidget *finestra);
    void Mira_A(QWidget *finestra, QWidget *scelto);
    void Mira();
    void Mira_Avanti();
    void Clicca();
    void Clicca_Doppio();
    void Clicca_Destro();
    void Gira_Rotella();
    void Trascina();
    void Sceglie_Tasto();
    void Batti_Tasto();
    void Tieni_Tasto();
    void Sceglie_Testo();
    void Batti_Testo();
    void Incolla();
    void Niente() {}
    void Chiudi();
    void Riduci();
    void Cambia();

    QRandomGenerator m_caso;
    QString m_racconto;
    QPointer<QWindow> m_finestra;
    QPointer<QWidget> m_modale; ///< in front when the thing begins
    bool m_daRispondere = false;
    QPoint m_punto;
    QString m_testo;
    Qt::Key m_tasto = Qt::Key_unknown;
    Qt::KeyboardModifiers m_con;
};

} // namespace operatore
