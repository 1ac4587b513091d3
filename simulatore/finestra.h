// The window of an exercise: a teacher sees where the simulated instrument stands and what passes on the
// line, sets the figures of the vehicle and switches faults on. It moves the instrument by hand and knows no
// frame.
#pragma once

#include "simulatore/finestra_parole.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <initializer_list>
#include <utility>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QPlainTextEdit;
class QRadioButton;
class QSlider;
class QSpinBox;

class FinestraQx5 : public QWidget
{
public:
    explicit FinestraQx5(Lingua lingua);

    /// From now on the window shows this instrument and moves it. @param strumento outlives the window's use.
    /// @param porta what the station opens, for the title.
    void Comincia(Strumento &strumento, const QString &porta);

    /// One more line of the log. What it tells of has not happened yet: the rest of the window follows in the
    /// next turn of the loop.
    void Annota(const QString &riga);

    /// Shows words that end the exercise. @param poi called when they have been read.
    void Avvisa(const QString &testo, const std::function<void()> &poi);

private:
    /// The controls of one record.
    struct Fascio
    {
        QSlider *cursore = nullptr;
        QSpinBox *cifra = nullptr;
        QComboBox *verticale = nullptr;
        QComboBox *orizzontale = nullptr;
    };
    struct RigaGuasto
    {
        TipoGuasto tipo;
        QCheckBox *acceso;
        QComboBox *comando;
    };

    QWidget *Crea_Stato();
    QWidget *Crea_Veicolo();
    void Crea_Fascio(size_t numero, QGridLayout &griglia);
    void Collega_Fascio(Fascio &fascio);
    QComboBox *Crea_Mira(std::initializer_list<std::pair<char, Parola>> scelte);
    QWidget *Crea_Guasti();
    QWidget *Crea_Trame();
    QString Parole(Parola parola) const { return Testo(parola, m_lingua); }

    void Mostra();
    static void Mostra_Fascio(const Fascio &fascio, const QByteArray &record);
    RecordMisura Record_Scelti() const;
    void Fissa_Record();
    void Applica_Guasti();

    Lingua m_lingua;
    Strumento *m_strumento = nullptr;
    std::array<QRadioButton *, 3> m_stati{};
    QCheckBox *m_daSolo = nullptr;
    std::array<Fascio, 4> m_fasci;
    QCheckBox *m_tieni = nullptr;
    QList<RigaGuasto> m_guasti;
    QPlainTextEdit *m_trame = nullptr;
    QTimer m_dopo;         // a look at the instrument in the next turn of the loop
    bool m_mostra = false; // what changes in the controls is the instrument's doing, not the teacher's
};
