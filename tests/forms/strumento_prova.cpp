#include "tests/forms/strumento_prova.h"

#include "tests/forms/banco_form.h"

#include <QFile>

namespace {

/// One vehicle that never comes: the instrument says that it is at rest.
constexpr char SCENARIO[] = "[VEICOLO1]\nRiposo=1000\nProva=0\n";

QString Scenario_Scritto(const QTemporaryDir &cartella)
{
    QFile file(cartella.filePath(QStringLiteral("scenario.ini")));
    if (!file.open(QIODevice::WriteOnly) || file.write(SCENARIO) < 0)
        qFatal("cannot write the scenario");
    return file.fileName();
}

} // namespace

StrumentoProva::StrumentoProva()
    : m_memoria(Scenario_Scritto(m_cartella), m_cartella.filePath(QStringLiteral("stato.ini"))),
      m_strumento(std::make_unique<Strumento>(m_cartella.filePath(QStringLiteral("scenario.ini")),
                                              m_cartella.filePath(QStringLiteral("stato.ini")), 1U,
                                              [](const QString &) {}))
{
    Linee_Prepara([this](LineaProva &linea) {
        linea.Rispondi = [this, &linea](const QByteArray &frame) { return Prendi(linea, frame); };
    });
}

StrumentoProva::~StrumentoProva()
{
    Linee_Prepara({});
}

/// Hands a frame to the instrument; its replies come by the clock.
QByteArray StrumentoProva::Prendi(LineaProva &linea, const QByteArray &frame)
{
    Comandi.append(frame);
    if (AlComando)
        AlComando(frame);
    for (const Invio &invio : m_strumento->Ricevi(frame))
        linea.Arriva_Dopo(invio.ritardo, invio.byte);
    return {};
}

QStringList StrumentoProva::Testi(Blocco blocco) const
{
    return m_memoria.Leggi(blocco);
}

void StrumentoProva::Imposta(Blocco blocco, const QStringList &testi) const
{
    for (qsizetype i = 0; i < testi.size(); ++i)
        m_memoria.Scrivi(blocco, i, testi[i]);
}

QByteArray Carico_Di(const QByteArray &comando)
{
    return comando.mid(5, comando.size() - 7);
}

QByteArray Testi_Chiusi(const QStringList &testi)
{
    QByteArray carico;
    for (const QString &testo : testi)
        carico += testo.toLatin1() + '\x17';
    return carico;
}
