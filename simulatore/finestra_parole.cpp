// The words by table. Where they stand is not known here.
#include "simulatore/finestra_parole.h"

#include <QLocale>

#include <algorithm>
#include <iterator>

namespace {

struct DefLingua
{
    Lingua lingua;
    const char16_t *sigla;
    QLocale::Language sistema;
};

struct DefParola
{
    Parola parola;
    const char16_t *testi[5]; ///< in the order of Lingua
};

// clang-format off
constexpr DefLingua LINGUE[] = {
    {Lingua::Italiano, u"IT", QLocale::Italian},
    {Lingua::Francese, u"FR", QLocale::French},
    {Lingua::Inglese,  u"EN", QLocale::English},
    {Lingua::Spagnolo, u"ES", QLocale::Spanish},
    {Lingua::Tedesco,  u"DE", QLocale::German},
};

constexpr DefParola PAROLE[] = {
    {Parola::Titolo,           {u"Strumento QX5 simulato", u"Instrument QX5 simulé", u"Simulated QX5 instrument", u"Instrumento QX5 simulado", u"Simuliertes Prüfgerät QX5"}},
    {Parola::Stato,            {u"Stato", u"État", u"State", u"Estado", u"Zustand"}},
    {Parola::StatoRiposo,      {u"A riposo", u"Au repos", u"Idle", u"En reposo", u"In Ruhe"}},
    {Parola::StatoProva,       {u"Prova in corso", u"Mesure en cours", u"Measuring", u"Midiendo", u"Messung läuft"}},
    {Parola::StatoPronta,      {u"Misura pronta", u"Mesure prête", u"Measure ready", u"Medida lista", u"Messung bereit"}},
    {Parola::DaSolo,           {u"Avanza da solo", u"Avance seul", u"Goes on by itself", u"Avanza solo", u"Läuft von selbst weiter"}},
    {Parola::Veicolo,          {u"Veicolo", u"Véhicule", u"Vehicle", u"Vehículo", u"Fahrzeug"}},
    {Parola::AnabSx,           {u"Anabbagliante sinistro", u"Croisement gauche", u"Left dipped beam", u"Cruce izquierdo", u"Abblendlicht links"}},
    {Parola::AbbSx,            {u"Abbagliante sinistro", u"Route gauche", u"Left main beam", u"Carretera izquierdo", u"Fernlicht links"}},
    {Parola::AnabDx,           {u"Anabbagliante destro", u"Croisement droit", u"Right dipped beam", u"Cruce derecho", u"Abblendlicht rechts"}},
    {Parola::AbbDx,            {u"Abbagliante destro", u"Route droit", u"Right main beam", u"Carretera derecho", u"Fernlicht rechts"}},
    {Parola::Intensita,        {u"Intensità", u"Intensité", u"Intensity", u"Intensidad", u"Stärke"}},
    {Parola::Verticale,        {u"Verticale", u"Vertical", u"Vertical", u"Vertical", u"Vertikal"}},
    {Parola::Orizzontale,      {u"Orizzontale", u"Horizontal", u"Horizontal", u"Horizontal", u"Horizontal"}},
    {Parola::Regolare,         {u"Regolare", u"Régulier", u"In order", u"Correcto", u"In Ordnung"}},
    {Parola::Alto,             {u"Troppo alto", u"Trop haut", u"Too high", u"Demasiado alto", u"Zu hoch"}},
    {Parola::Basso,            {u"Troppo basso", u"Trop bas", u"Too low", u"Demasiado bajo", u"Zu tief"}},
    {Parola::Sinistra,         {u"A sinistra", u"À gauche", u"To the left", u"A la izquierda", u"Nach links"}},
    {Parola::Destra,           {u"A destra", u"À droite", u"To the right", u"A la derecha", u"Nach rechts"}},
    {Parola::Tieni,            {u"Tieni questi valori", u"Garder ces valeurs", u"Keep these values", u"Mantener estos valores", u"Diese Werte behalten"}},
    {Parola::Guasti,           {u"Guasti", u"Pannes", u"Faults", u"Averías", u"Störungen"}},
    {Parola::GuastoSilenzio,   {u"Nessuna risposta", u"Aucune réponse", u"No reply", u"Sin respuesta", u"Keine Antwort"}},
    {Parola::GuastoControllo,  {u"Controllo errato", u"Contrôle erroné", u"Wrong check", u"Control erróneo", u"Falsche Prüfziffer"}},
    {Parola::GuastoTipo,       {u"Tipo errato", u"Type erroné", u"Wrong type", u"Tipo erróneo", u"Falsche Art"}},
    {Parola::GuastoSpezzata,   {u"In due pezzi", u"En deux morceaux", u"In two pieces", u"En dos trozos", u"In zwei Teilen"}},
    {Parola::GuastoUnita,      {u"Unita alla seguente", u"Jointe à la suivante", u"Joined to the next", u"Unida a la siguiente", u"Mit der nächsten"}},
    {Parola::GuastoRumore,     {u"Rumore sulla linea", u"Bruit sur la ligne", u"Noise on the line", u"Ruido en la línea", u"Rauschen"}},
    {Parola::GuastoLunga,      {u"Troppo lunga", u"Trop longue", u"Too long", u"Demasiado larga", u"Zu lang"}},
    {Parola::GuastoSeconda,    {u"Ripetuta", u"Répétée", u"Sent twice", u"Repetida", u"Wiederholt"}},
    {Parola::GuastoRitardo,    {u"In ritardo", u"En retard", u"Late", u"Con retraso", u"Verspätet"}},
    {Parola::GuastoRiaggancio, {u"Linea staccata", u"Ligne coupée", u"Line hung up", u"Línea cortada", u"Leitung getrennt"}},
    {Parola::Comando,          {u"comando", u"commande", u"command", u"comando", u"Befehl"}},
    {Parola::Tutti,            {u"tutti", u"toutes", u"all", u"todos", u"alle"}},
    {Parola::Trame,            {u"Trame", u"Trames", u"Frames", u"Tramas", u"Telegramme"}},
};
// clang-format on

/// Both tables are entered by the number of what they are of.
constexpr bool Tabelle_InOrdine()
{
    size_t riga = 0;
    for (const DefParola &def : PAROLE) {
        if (static_cast<size_t>(def.parola) != riga++)
            return false;
    }
    riga = 0;
    for (const DefLingua &def : LINGUE) {
        if (static_cast<size_t>(def.lingua) != riga++)
            return false;
    }
    return std::size(PAROLE) == static_cast<size_t>(Parola::Trame) + 1;
}
static_assert(Tabelle_InOrdine());

template <typename Indice>
Parola Parola_Dopo(Parola prima, Indice indice)
{
    return static_cast<Parola>(static_cast<size_t>(prima) + static_cast<size_t>(indice));
}

} // namespace

Lingua Lingua_Scelta(const QString &sigla)
{
    const QLocale::Language sistema = QLocale::system().language();
    const auto *def = std::find_if(std::begin(LINGUE), std::end(LINGUE), [&](const DefLingua &d) {
        return sigla.isEmpty() ? d.sistema == sistema : sigla == QStringView(d.sigla);
    });
    return def == std::end(LINGUE) ? Lingua::Italiano : def->lingua;
}

QString Testo(Parola parola, Lingua lingua)
{
    return QString::fromUtf16(PAROLE[static_cast<size_t>(parola)].testi[static_cast<size_t>(lingua)]);
}

Parola Parola_Stato(StatoStrumento stato)
{
    return Parola_Dopo(Parola::StatoRiposo, stato);
}

Parola Parola_Record(size_t numero)
{
    return Parola_Dopo(Parola::AnabSx, numero);
}

Parola Parola_Guasto(TipoGuasto tipo)
{
    return Parola_Dopo(Parola::GuastoSilenzio, tipo);
}
