// Which files of a station may change, and by what; and which run-time errors may end the program, and after
// what: looked at again and again while somebody works on it. What a form does is not known here, only what
// it may leave behind.
#pragma once

#include <QDateTime>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class Modulo;
class QPushButton;

namespace operatore {

/// What has been seen since it may last have had a consequence: a form that is open ("frmSetupO"), a button
/// of it that was pressed ("frmSetupO cmd_0"), a session by its mode ("frmComm 1"). And what is being done
/// right now: an error is held against that.
class Fatti
{
public:
    /// Looks at the open forms: to be called before every action, so that no press is missed.
    void Guarda();
    bool Visto(const QString &fatto) const { return m_fatti.contains(fatto); }
    /// Forgets the forms that have gone.
    void Dimentica();

    /// An action begins: what the program does from now on in this event loop follows it.
    /// @param azione in words ("clock").
    void Comincia(const QString &azione);
    /// What the program does from now on in this event loop follows this.
    /// @param fatto as Ultimo gives it.
    void Segue(const QString &fatto);
    /// @return what the program's doings follow: the button that was pressed ("frmMctcO cmd_0"), else the
    /// form that came up last and the action ("frmComm 0 clock"). Of the loops that are open the innermost
    /// counts.
    QString Ultimo() const;

private:
    void Osserva(const QString &modulo, QPushButton *pulsante);

    QSet<QString> m_fatti;
    QMap<int, QString> m_ultimi; ///< by the depth of the loop that it was done in
};

/// Whether the program may end by a run-time error there: no handler is meant to catch it.
/// @param errore its words, "run-time error 6: Overflow".
/// @param dopo as Fatti::Ultimo gives it.
bool Errore_Ammesso(const QString &errore, const QString &dopo);

/// The files of a station folder, against those of the last look.
class Regole
{
public:
    /// @param cartella the station's folder.
    explicit Regole(const QString &cartella);

    /// Takes the files as they are: what somebody else has put there is not the station's.
    void Prendi();
    /// @return what has changed although no rule changes it. The files are taken as they are.
    QStringList Controlla(const Fatti &fatti);

private:
    struct Visto
    {
        QDateTime Quando;
        qint64 Quanto = 0;
        QByteArray Byte; ///< of a small file
        bool operator==(const Visto &) const = default;
    };
    using Elenco = QMap<QString, Visto>; // by their paths in the folder

    Elenco Leggi() const;
    QString Giudica(const QString &nome, const Fatti &fatti, const Elenco &adesso) const;
    QString Giudica_Sparita(const QString &nome, const Fatti &fatti, const Elenco &adesso) const;

    QString m_cartella;
    Elenco m_prima;
};

} // namespace operatore
