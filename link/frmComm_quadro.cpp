// The steps, the lamp's word and the times of a session. It knows no frame and no reply.
#include "link/frmComm_quadro.h"

#include "core/codici.h"
#include "core/modGeneral.h"
#include "core/testo_riempito.h"
#include "link/modComm.h"
#include "link/scambio.h"
#include "toolkit/aspetto.h"
#include "toolkit/lettura.h"
#include "toolkit/modulo.h"
#include "toolkit/schermo.h"

namespace {

constexpr int SECONDO = 1000; // ms

/// The lamp's words, in the order of ParolaLampada.
constexpr TestoMctc TESTI_PAROLE[] = {MctcLampadaAttesa, MctcLampadaFermo, MctcLampadaChiusa};

// A step behind, the present one, one to come: told apart by a tick and by dark and light, not by the hue.
constexpr Tinta FONDO_PRESENTE = Tinta::Fuoco;
constexpr Tinta FONDO_PASSATO = Tinta::FuocoTenue;
constexpr Tinta FONDO_FUTURO = Tinta::Sfondo;
constexpr Tinta SCRITTA_FUTURO = Tinta::TestoSpento;
const QString SPUNTA = QStringLiteral("√ "); // every type family of the screen has it

/// Part of the width that the words of the lamp take of their line; the rest is the time's.
constexpr qint32 PARTE_PAROLA = 75; // hundredths

} // namespace

QuadroSessione::QuadroSessione(const Modulo &form)
    : lblPasso(QStringLiteral("lblPasso")),
      lblLampada(form.Finestra(), QStringLiteral("lblLampada")),
      lblDurata(form.Finestra(), QStringLiteral("lblDurata")),
      lblRisposta(form.Finestra(), QStringLiteral("lblRisposta")),
      tmrSecondi([this] { Mostra_Tempi(); })
{
    lblPasso.Inizia(form.Finestra());
    for (qint16 i = 0; i < PASSI; ++i) {
        lblPasso.Carica(i).Allineamento(Orizzontale::Centro);
        lblPasso[i].FontSize(Punti_Normali() * LETTURA_SCHERMO);
    }
    for (Etichetta *etichetta : {&lblLampada, &lblDurata, &lblRisposta}) {
        etichetta->FontSize(Punti_Normali() * LETTURA_SCHERMO);
        etichetta->Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    }
    lblDurata.Allineamento(Orizzontale::Destra, Verticale::Basso);
}

void QuadroSessione::Inizia(const QString &primoPasso, bool conStato)
{
    m_conStato = conStato;
    m_nomiPassi = {primoPasso, Testo_Mctc(MctcPassoDati), Testo_Mctc(MctcPassoFatto)};
    m_parole.clear();
    for (const TestoMctc id : TESTI_PAROLE)
        m_parole.append(Testo_Mctc(id));
    m_testoRisposta = Testo_Mctc(MctcRispostaFa);
    m_testoNessuna = Testo_Mctc(MctcNessunaRisposta);
    lblDurata.NomeAccessibile(Testo_Mctc(MctcDurata));
    m_durata.Parti();
    tmrSecondi.Interval(SECONDO);
    tmrSecondi.Enabled(true);
    Passi_Visibili(true);
    Mostra_Passo(conStato ? PassoStato : PassoDati);
    Mostra_Tempi();
}

void QuadroSessione::Ferma()
{
    tmrSecondi.Enabled(false);
}

void QuadroSessione::Posto_Passi(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const qint16 primo = m_conStato ? PassoStato : PassoDati;
    const qint32 larghezza = width / (PASSI - primo);
    for (qint16 i = primo; i < PASSI; ++i)
        lblPasso[i].Posto(left + (i - primo) * larghezza, top, larghezza, height);
}

void QuadroSessione::Posto_Righe(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const qint32 parola = width * PARTE_PAROLA / 100;
    const qint32 riga = height / 2;
    lblLampada.Posto(left, top, parola, riga);
    lblDurata.Posto(left + parola, top, width - parola, riga);
    lblRisposta.Posto(left, top + riga, width, riga);
}

void QuadroSessione::Passi_Visibili(bool visibili)
{
    for (qint16 i = 0; i < PASSI; ++i)
        lblPasso[i].Visible(visibili && (m_conStato || i != PassoStato));
}

void QuadroSessione::Porta(const MacchinaScambio &macchina)
{
    Mostra_Parola(macchina);
}

void QuadroSessione::Avanza(const MacchinaScambio &macchina)
{
    const bool chiusura = macchina.Stato == StatoChiusura;
    tmrSecondi.Enabled(!chiusura);
    if (!chiusura)
        Mostra_Passo(macchina.Comando == CmdStato ? PassoStato : PassoDati);
    else if (macchina.Esito == SessioneCompletata)
        Mostra_Passo(PASSI); // all of them are behind
    Mostra_Parola(macchina);
}

void QuadroSessione::Lampada(quint32 colore)
{
    if (colore != COLORE_VERDE)
        return;
    m_risposta.Parti();
    Mostra_Tempi();
}

void QuadroSessione::Mostra_Passo(qint16 passo)
{
    if (passo == m_passo)
        return;
    m_passo = passo;
    for (qint16 i = 0; i < PASSI; ++i) {
        Etichetta &etichetta = lblPasso[i];
        const Tinta fondo = i == passo ? FONDO_PRESENTE : i < passo ? FONDO_PASSATO : FONDO_FUTURO;
        const quint32 scritta = i == passo  ? COLORE_BIANCO
                                : i < passo ? COLORE_NERO
                                            : Numero_Tinta(SCRITTA_FUTURO);
        etichetta.Cella(scritta, Numero_Tinta(fondo));
        etichetta.Caption((i < passo ? SPUNTA : QString()) + m_nomiPassi[i]);
    }
}

/// By the session, not by the lamp, whose colour goes with the beats. On a port that did not open nothing
/// runs that could stand still.
void QuadroSessione::Mostra_Parola(const MacchinaScambio &macchina)
{
    const ParolaLampada corso = macchina.Stato == StatoChiusura ? ParolaFermo : ParolaAttesa;
    const QString &testo = m_parole[macchina.PortaAperta ? corso : ParolaChiusa];
    const QString scritta =
        testo.isEmpty() ? Porta_Nome() : QStringLiteral("%1: %2").arg(Porta_Nome(), testo);
    if (scritta != lblLampada.Caption())
        lblLampada.Caption(scritta);
}

void QuadroSessione::Mostra_Tempi()
{
    const qint64 durata = m_durata.Secondi();
    const QString secondi = QString::number(durata % 60).rightJustified(2, u'0');
    lblDurata.Caption(QStringLiteral("%1:%2").arg(durata / 60).arg(secondi));
    const QString risposta = m_risposta.Partito()
                                 ? Testo_Riempito(m_testoRisposta, QString::number(m_risposta.Secondi()))
                                 : m_testoNessuna;
    if (risposta != lblRisposta.Caption())
        lblRisposta.Caption(risposta);
}
