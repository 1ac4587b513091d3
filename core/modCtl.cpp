// Controls made and filled row by row, and the scale of the grid. It knows no form in particular.
#include "core/modCtl.h"

#include "core/modGeneral.h"
#include "platform/colori.h"
#include "platform/errore_esecuzione.h"
#include "platform/profilo.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <algorithm>

namespace {

/// Counters of the three kinds of control, in row order.
struct Contatori
{
    qint16 txt = 0;
    qint16 cbo = 0;
    qint16 chk = 0;
};

qint32 Scala(qint32 valore, qint32 schermo, double griglia)
{
    return Arrotonda(Intero32(qint64{valore} * schermo) / griglia);
}

/// Member 0 stands since design time; the others are made.
template <typename T>
T &Membro(ArrayControlli<T> &array, qint16 indice)
{
    return array.Esiste(indice) ? array[indice] : array.Carica(indice);
}

template <typename T>
T &Prepara_Controllo(ArrayControlli<T> &array, qint16 &contatore, CampoForm &campo, qint16 riga)
{
    T &controllo = Membro(array, contatore);
    campo.CtlIndex = contatore++;
    controllo.Tag(QString::number(riga));
    controllo.Left(campo.CtlLeft);
    controllo.Top(campo.CtlTop);
    if (campo.CtlWidth != -1 && campo.Kind != CampoSpunta)
        controllo.Width(campo.CtlWidth);
    return controllo;
}

void Mostra_Combo(const CampoForm &campo, CasellaCombinata &combo)
{
    for (const QString &voce : campo.List)
        combo.AddItem(voce);
    if (campo.ListIndexDefault < 0 || campo.ListIndexDefault >= campo.List.size())
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    combo.Text(campo.List[campo.ListIndexDefault]);
}

void Mostra_Spunta(const CampoForm &campo, CasellaSpunta &spunta)
{
    Spunta_Imposta(spunta, campo.ListIndexDefault);
    if (campo.Value == u"S")
        Spunta_Imposta(spunta, 1);
    else if (campo.Value == u"N")
        Spunta_Imposta(spunta, 0);
}

/// What a screen reader calls a row: its caption, with the key where other rows have the same one, or the key
/// alone of a row that has none.
QString Nome_Letto(TabellaCampi tabella, const CampoForm &campo)
{
    if (campo.LabelId == MctcNessuno)
        return campo.Key;
    const QString didascalia = Testo_Mctc(campo.LabelId);
    const auto uguali = std::count_if(tabella.begin(), tabella.end(), [&didascalia](const CampoForm &riga) {
        return riga.LabelId != MctcNessuno && Testo_Mctc(riga.LabelId) == didascalia;
    });
    return uguali > 1 ? didascalia + u' ' + campo.Key : didascalia;
}

void Nome_Accessibile(const CampoForm &campo, Modulo &form, const QString &nome)
{
    if (campo.Kind == CampoTesto)
        form.txt[campo.CtlIndex].NomeAccessibile(nome);
    else if (campo.Kind == CampoCombo)
        form.cbo[campo.CtlIndex].NomeAccessibile(nome);
    else if (campo.Kind == CampoSpunta)
        form.chk[campo.CtlIndex].NomeAccessibile(nome);
}

template <typename T>
void Scarica_Membri(ArrayControlli<T> &array)
{
    for (qint16 i = array.UBound(); i >= 1; --i) {
        if (array.Esiste(i))
            array.Scarica(i);
    }
}

} // namespace

qint32 ScalaX(qint32 x)
{
    return Scala(x, gScreenW, GRIGLIA_X);
}
qint32 ScalaY(qint32 y)
{
    return Scala(y, gScreenH, GRIGLIA_Y);
}
qint16 ScalaX_16(qint32 x)
{
    return Intero16(ScalaX(x));
}
qint16 ScalaY_16(qint32 y)
{
    return Intero16(ScalaY(y));
}

void Disegna_Cornice(Modulo &form, qint32 x1, qint32 y1, qint32 x2, qint32 y2)
{
    form.Linea(x1, y1, x2, y1);
    form.Linea(x2, y1, x2, y2);
    form.Linea(x2, y2, x1, y2);
    form.Linea(x1, y2, x1, y1);
}

void Campi_Crea(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form)
{
    Contatori contatori;
    for (qint16 riga = 0; riga <= ultimaRiga; ++riga) {
        CampoForm &campo = tabella[static_cast<size_t>(riga)];
        if (campo.Kind == CampoTesto) {
            CasellaTesto &casella = Prepara_Controllo(form.txt, contatori.txt, campo, riga);
            casella.Visible(true);
            Testo_Blocca(casella, !campo.Editable);
        } else if (campo.Kind == CampoCombo) {
            CasellaCombinata &combo = Prepara_Controllo(form.cbo, contatori.cbo, campo, riga);
            combo.Enabled(campo.Editable);
            combo.Visible(true);
        } else if (campo.Kind == CampoSpunta) {
            CasellaSpunta &spunta = Prepara_Controllo(form.chk, contatori.chk, campo, riga);
            spunta.Enabled(campo.Editable);
            spunta.Visible(true);
        }
        if (riga > 0)
            form.lbl.Carica(riga);
    }
}

void Campi_Carattere(Modulo &form, double punti)
{
    form.lbl[0].FontSize(punti);
    form.txt[0].FontSize(punti);
    form.cbo[0].FontSize(punti);
}

void Campi_Applica(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form)
{
    if (tabella.empty())
        return;
    const ProfiloFermo letto(tabella.front().File); // most often that of all the rows
    for (qint16 riga = 0; riga <= ultimaRiga; ++riga) {
        CampoForm &campo = tabella[static_cast<size_t>(riga)];
        Campo_Leggi(campo);
        // Campo_Formato leaves the value of a row without a display form as it is.
        if (campo.Kind == CampoTesto)
            form.txt[campo.CtlIndex].Text(Campo_Formato(campo.Value, campo.DateFormat));
        else if (campo.Kind == CampoCombo)
            Mostra_Combo(campo, form.cbo[campo.CtlIndex]);
        else if (campo.Kind == CampoSpunta)
            Mostra_Spunta(campo, form.chk[campo.CtlIndex]);
    }
    Campi_Didascalie(tabella, ultimaRiga, form);
}

void Campi_Didascalie(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form)
{
    Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    for (qint16 riga = 0; riga <= ultimaRiga; ++riga) {
        const CampoForm &campo = tabella[static_cast<size_t>(riga)];
        const QString nome = Nome_Letto(tabella.first(static_cast<size_t>(ultimaRiga) + 1), campo);
        Nome_Accessibile(campo, form, nome);
        if (campo.LabelId == MctcNessuno)
            continue;
        Etichetta &etichetta = form.lbl[riga];
        etichetta.Caption(Testo_Mctc(campo.LabelId));
        etichetta.NomeAccessibile(nome); // a list box is told by its label
        etichetta.Left(campo.LabelLeft);
        etichetta.Top(campo.LabelTop);
        etichetta.Visible(true);
        if (campo.Kind == CampoCombo)
            etichetta.Etichetta_Di(form.cbo[campo.CtlIndex]);
        etichetta.Enabled(campo.LabelEnabledByEditable != 1 || campo.Editable);
    }
}

void Campi_Scarica(Modulo &form)
{
    Scarica_Membri(form.txt);
    Scarica_Membri(form.lbl);
    Scarica_Membri(form.cbo);
}

qint16 Riga_Di(const Controllo &controllo)
{
    return Intero16(controllo.Tag().toInt());
}

void Testo_Blocca(CasellaTesto &casella, bool bloccata)
{
    casella.BackColor(bloccata ? COLORE_SISTEMA_GRIGIO : COLORE_SISTEMA_FINESTRA);
    casella.Locked(bloccata);
}

void Spunta_Imposta(CasellaSpunta &casella, qint16 valore)
{
    gCaricamento = Vero;
    casella.Value(valore);
    gCaricamento = Falso; // a box that stood there already caused no click
}
