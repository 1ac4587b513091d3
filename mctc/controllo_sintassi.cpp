// The scan of a file's lines. It knows no template, and no name or value that the format admits.
#include "mctc/controllo_sintassi.h"

#include "core/modFs.h"
#include "platform/errore_esecuzione.h"
#include "platform/file.h"

ListaAnomalie gAnomalieSintassi;

namespace {

/// The scan of one file: where it stands and what it has found.
class Scansione
{
public:
    explicit Scansione(ListaAnomalie &lista) : m_lista(lista) {}

    void Riga(const QString &riga)
    {
        ++m_numero;
        if (riga.isEmpty())
            return;
        const bool uguale = riga.contains(u'=');
        Testa(riga);
        if (!m_vista)
            Aggiungi(riga, AnomaliaEntry, AnomaliaPosto);
        if (uguale)
            Entry(riga);
        if (!uguale && !riga.contains(u'['))
            Aggiungi(riga, AnomaliaFile, AnomaliaEstranea);
    }

private:
    /// Any bracket pair counts as a section head, also one inside a value: what follows it is then reported
    /// under that name.
    void Testa(const QString &riga)
    {
        const qsizetype aperta = riga.indexOf(u'[');
        const qsizetype chiusa = aperta < 0 ? -1 : riga.indexOf(u']', aperta);
        if (chiusa < 0)
            return;
        m_sezione = riga.mid(aperta + 1, chiusa - aperta - 1);
        m_vista = true;
        if (riga.front() != u'[')
            Aggiungi(riga, AnomaliaSezione, AnomaliaInizio);
        if (riga.back() != u']')
            Aggiungi(riga, AnomaliaSezione, AnomaliaFine);
    }

    /// A blank at an end and a blank beside the sign are told apart, so that one line may yield both.
    void Entry(const QString &riga)
    {
        if (riga.front() == u' ')
            Aggiungi(riga, AnomaliaEntry, AnomaliaInizio, m_sezione);
        if (riga.back() == u' ')
            Aggiungi(riga, AnomaliaEntry, AnomaliaFine, m_sezione);
        if (riga.size() < 3) {
            Aggiungi(riga, AnomaliaEntry, AnomaliaPosto, m_sezione);
            return;
        }
        if (riga.contains(u" ="))
            Aggiungi(riga, AnomaliaEntry, AnomaliaInizio, m_sezione);
        if (riga.contains(u"= "))
            Aggiungi(riga, AnomaliaEntry, AnomaliaFine, m_sezione);
    }

    void Aggiungi(const QString &testo, quint8 tipo, quint8 errore, const QString &sezione = {})
    {
        m_lista.append({testo, tipo, errore, sezione, m_numero});
    }

    ListaAnomalie &m_lista;
    QString m_sezione;
    qint32 m_numero = 0;  // of the line
    bool m_vista = false; // some section head has been seen
};

} // namespace

qint16 Acc_ControllaSintassi(const QString &file, ListaAnomalie &lista)
{
    const AnomaliaAcc nonDisponibile{file, AnomaliaFile, AnomaliaNonDisponibile, {}};
    lista.clear();
    if (!Fs_Esiste(file, 0)) {
        lista.append(nonDisponibile);
        return 0;
    }
    try {
        FileRighe righe(file);
        Scansione scansione(lista);
        while (!righe.Fine())
            scansione.Riga(righe.Leggi());
    } catch (const ErroreEsecuzione &) {
        // The network software may take the file away at any moment: that too is a finding.
        lista.append(nonDisponibile);
    }
    return Intero16(lista.size() - 1);
}
