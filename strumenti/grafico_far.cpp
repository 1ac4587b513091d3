// Bars a day, and a histogram a lamp. Colours differ for those too who do not tell red from green, and words
// stand beside them.
#include "strumenti/grafico_far.h"

#include "core/fari.h"
#include "core/limiti.h"
#include "core/parole.h"

#include <QDate>
#include <QMap>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double LARGO = 1000;
constexpr double ALTO = 1020;
constexpr double CORPO = 13;
constexpr double CORPO_TITOLO = 17;

constexpr quint32 NERO = 0x202020;
constexpr quint32 GRIGIO = 0xD0D0D0;
constexpr quint32 BLU = 0x1F6FB2;
constexpr quint32 ARANCIO = 0xD9822B;
constexpr quint32 ROSSO = 0xB00020;

/// Columns of a histogram: wide enough to be seen, narrow enough to tell the limits from what lies near them.
constexpr int COLONNE = 25;
/// Days that have their date written below.
constexpr int DATE_SCRITTE = 9;

constexpr Parole TITOLO = {u"Prove dei proiettori: %1 veicoli", u"Headlamp tests: %1 vehicles"};
constexpr Parole GIORNI = {u"Veicoli al giorno", u"Vehicles a day"};
constexpr Parole REGOLARI = {u"regolari", u"regular"};
constexpr Parole IRREGOLARI = {u"irregolari", u"irregular"};
constexpr Parole MINIMO = {u"minimo %1", u"lowest %1"};
constexpr Parole MASSIMO = {u"massimo %1", u"highest %1"};
constexpr Parole MAI_MISURATI = {u"%1 (%2 mai misurati)", u"%1 (%2 never measured)"};

/// By Faro.
constexpr Parole NOMI_FARI[] = {
    {u"Anabbagliante destro",   u"Dipped beam, right"},
    {u"Anabbagliante sinistro", u"Dipped beam, left" },
    {u"Abbagliante destro",     u"Main beam, right"  },
    {u"Abbagliante sinistro",   u"Main beam, left"   },
};

/// Where the bars of a diagram stand: its base line, its width, its height.
struct Riquadro
{
    double X, Base, Largo, Alto;
};

constexpr Riquadro RIQUADRO_GIORNI = {60, 380, 920, 270};
/// By Faro: left lamps on the left.
constexpr Riquadro RIQUADRI_FARI[] = {
    {550, 670, 410, 160},
    {60,  670, 410, 160},
    {550, 960, 410, 160},
    {60,  960, 410, 160},
};

static_assert(std::size(NOMI_FARI) == std::size(FARI) && std::size(RIQUADRI_FARI) == std::size(FARI));

/// The next of 2, 4, 6, 8, 10, 20, 40 ... that is not below: its half is a count too.
double Tondo(double valore)
{
    double decina = 1;
    while (decina * 10 < valore)
        decina *= 10;
    for (const double volte : {1.0, 2.0, 4.0, 6.0, 8.0}) {
        if (volte * decina >= valore)
            return volte * decina;
    }
    return 10 * decina; // above 8
}

void Scrivi(Disegno &disegno, double x, double y, Appoggio lato, const QString &testo, quint32 colore = NERO)
{
    disegno.Scritte.append({x, y, CORPO, colore, lato, testo});
}

/// The lines behind the bars, with their counts. @return the count at the top.
double Scala(Disegno &disegno, const Riquadro &riquadro, int massimo)
{
    const double cima = Tondo(std::max(2, massimo));
    for (int tacca = 0; tacca <= 2; ++tacca) {
        const double y = riquadro.Base - riquadro.Alto * tacca / 2;
        disegno.Rettangoli.append({riquadro.X, y, riquadro.Largo, 1, tacca == 0 ? NERO : GRIGIO});
        Scrivi(disegno, riquadro.X - 6, y + 4, Appoggio::Fine, QString::number(cima * tacca / 2));
    }
    return cima;
}

struct Giorno
{
    int regolari = 0;
    int irregolari = 0;
};

QMap<QString, Giorno> Giorni_Di(const RaccoltaFar &raccolta)
{
    QMap<QString, Giorno> giorni;
    for (const FileFar &file : raccolta) {
        Giorno &giorno = giorni[Giorno_Di(file.Letto)];
        const QString &esito = file.Letto.Righe[FarEsito].Valore;
        giorno.regolari += esito == FAR_REGOLARE ? 1 : 0;
        giorno.irregolari += esito == FAR_IRREGOLARE ? 1 : 0;
    }
    return giorni;
}

void Legenda(Disegno &disegno, double x, double y, quint32 colore, const Parole &parole)
{
    disegno.Rettangoli.append({x, y - 11, 12, 12, colore});
    Scrivi(disegno, x + 18, y, Appoggio::Inizio, In_Parole(parole));
}

void Disegna_Giorni(Disegno &disegno, const QMap<QString, Giorno> &giorni)
{
    const Riquadro &r = RIQUADRO_GIORNI;
    Scrivi(disegno, r.X, r.Base - r.Alto - 30, Appoggio::Inizio, In_Parole(GIORNI));
    Legenda(disegno, r.X + 620, r.Base - r.Alto - 30, BLU, REGOLARI);
    Legenda(disegno, r.X + 770, r.Base - r.Alto - 30, ARANCIO, IRREGOLARI);
    int massimo = 0;
    for (const Giorno &giorno : giorni)
        massimo = std::max(massimo, giorno.regolari + giorno.irregolari);
    const double cima = Scala(disegno, r, massimo);

    const double passo = r.Largo / static_cast<double>(std::max<qsizetype>(1, giorni.size()));
    const double largo = std::min(passo * 0.8, 60.0);
    const auto ogni = std::max<qsizetype>(1, (giorni.size() + DATE_SCRITTE - 1) / DATE_SCRITTE);
    qsizetype posto = 0;
    for (auto giorno = giorni.cbegin(); giorno != giorni.cend(); ++giorno, ++posto) {
        const double mezzo = r.X + (static_cast<double>(posto) + 0.5) * passo;
        const double regolari = r.Alto * giorno->regolari / cima;
        const double irregolari = r.Alto * giorno->irregolari / cima;
        disegno.Rettangoli.append({mezzo - largo / 2, r.Base - regolari, largo, regolari, BLU});
        disegno.Rettangoli.append(
            {mezzo - largo / 2, r.Base - regolari - irregolari, largo, irregolari, ARANCIO});
        if (posto % ogni == 0)
            Scrivi(disegno, mezzo, r.Base + 18, Appoggio::Centro, giorno.key());
    }
}

/// The figures of one lamp; what was never measured is no figure.
struct Figure
{
    QList<qint32> lux;
    int maiMisurati = 0;
};

Figure Figure_Di(const RaccoltaFar &raccolta, RigaFar riga)
{
    Figure figure;
    for (const FileFar &file : raccolta) {
        bool numero = false;
        const qint32 lux = file.Letto.Righe[riga].Valore.toInt(&numero);
        if (numero && lux >= 0)
            figure.lux.append(lux);
        else
            ++figure.maiMisurati;
    }
    return figure;
}

void Disegna_Limite(Disegno &disegno, const Riquadro &r, double fondo, qint32 limite, const Parole &parole,
                    Appoggio lato)
{
    const double x = r.X + r.Largo * limite / fondo;
    disegno.Linee.append({x, r.Base, x, r.Base - r.Alto - 6, ROSSO});
    Scrivi(disegno, x, r.Base - r.Alto - 10, lato, In_Parole(parole).arg(limite), ROSSO);
}

void Disegna_Faro(Disegno &disegno, Faro faro, const Figure &figure)
{
    const Riquadro &r = RIQUADRI_FARI[faro];
    const LimitiFascio limiti = Limiti_Di(FARI[faro].fascio);
    qint32 massimo = limiti.massimo;
    for (const qint32 lux : figure.lux)
        massimo = std::max(massimo, lux);
    const double fondo =
        std::max(1.0, massimo * 1.05); // the last figure and the limit stand clear of the edge

    std::array<int, COLONNE> colonne{};
    for (const qint32 lux : figure.lux)
        ++colonne[static_cast<size_t>(lux / fondo * COLONNE)];
    const QString nome = In_Parole(NOMI_FARI[faro]);
    Scrivi(disegno, r.X, r.Base - r.Alto - 34, Appoggio::Inizio,
           figure.maiMisurati == 0 ? nome : In_Parole(MAI_MISURATI).arg(nome).arg(figure.maiMisurati));
    const double cima = Scala(disegno, r, *std::max_element(colonne.begin(), colonne.end()));
    const double passo = r.Largo / COLONNE;
    for (size_t i = 0; i < colonne.size(); ++i) {
        const double alto = r.Alto * colonne[i] / cima;
        if (alto > 0)
            disegno.Rettangoli.append(
                {r.X + static_cast<double>(i) * passo + 1, r.Base - alto, passo - 2, alto, BLU});
    }
    Disegna_Limite(disegno, r, fondo, limiti.minimo, MINIMO, Appoggio::Inizio);
    Disegna_Limite(disegno, r, fondo, limiti.massimo, MASSIMO, Appoggio::Fine);
    Scrivi(disegno, r.X, r.Base + 18, Appoggio::Centro, QStringLiteral("0"));
    Scrivi(disegno, r.X + r.Largo, r.Base + 18, Appoggio::Fine,
           QStringLiteral("%1 lux").arg(std::floor(fondo), 0, 'f', 0));
}

} // namespace

Disegno Raccolta_Grafico(const RaccoltaFar &raccolta)
{
    Disegno disegno;
    disegno.Largo = LARGO;
    disegno.Alto = ALTO;
    disegno.Titolo = In_Parole(TITOLO).arg(raccolta.size());
    disegno.Rettangoli.append({0, 0, LARGO, ALTO, 0xFFFFFF});
    disegno.Scritte.append({LARGO / 2, 36, CORPO_TITOLO, NERO, Appoggio::Centro, disegno.Titolo});
    Disegna_Giorni(disegno, Giorni_Di(raccolta));
    for (const Faro faro : {FaroAnabDx, FaroAnabSx, FaroAbbDx, FaroAbbSx})
        Disegna_Faro(disegno, faro, Figure_Di(raccolta, FARI[faro].lux));
    return disegno;
}
