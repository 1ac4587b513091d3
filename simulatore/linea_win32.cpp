// The lines on Windows: a COM port, one end of a null-modem pair or a cable to another computer, by the
// serial control that the station uses too. Windows has no pseudo terminals.
#include "simulatore/linea.h"

#include "core/parole.h"
#include "link/seriale.h"
#include "platform/errore_esecuzione.h"

#include <QRegularExpression>
#include <QTimer>

namespace {

constexpr Parole NON_PORTA = {u"%1: non è una porta COM", u"%1: this is no COM port"};
constexpr Parole SERVE_PORTA = {u"serve una porta: --dispositivo COMn",
                                u"a port is needed: --dispositivo COMn"};

/// How often the device is looked at.
constexpr int OGNI_MS = 250;

class LineaSeriale : public Linea
{
public:
    LineaSeriale(const QString &dispositivo, qint32 velocita)
        : m_dispositivo(dispositivo), m_velocita(velocita), m_porta(Crea_ControlloSeriale())
    {
        m_porta->OnComm = [this] {
            if (m_porta->CommEvent() == EventoRicezione)
                Ricevuti(m_porta->Input());
        };
        // The control tells of no adapter pulled out: it keeps the port as an empty line.
        QObject::connect(&m_sguardo, &QTimer::timeout, &m_sguardo, [this] { Guarda_Dispositivo(); });
    }

    bool Apri(QString &errore) override
    {
        static const QRegularExpression COM(QStringLiteral("^COM([1-9][0-9]{0,2})$"),
                                            QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch nome = COM.match(m_dispositivo);
        if (!nome.hasMatch()) {
            errore = In_Parole(NON_PORTA).arg(m_dispositivo);
            return false;
        }
        try {
            m_porta->CommPort(nome.captured(1).toShort());
            m_porta->PortOpen(true);
            m_porta->Settings(QStringLiteral("%1,N,8,1").arg(m_velocita));
            m_porta->RThreshold(1);
        } catch (const ErroreEsecuzione &perche) {
            errore = QStringLiteral("%1: %2").arg(m_dispositivo, perche.Descrizione());
            return false;
        }
        m_sguardo.start(OGNI_MS);
        return true;
    }
    void Chiudi() override
    {
        m_sguardo.stop();
        m_porta->PortOpen(false);
    }
    QString Nome() const override { return m_porta->PortOpen() ? m_dispositivo : QString(); }
    /// Nobody tells whether the other end is open: what the port takes counts as sent.
    bool Scrivi(const QByteArray &byte) override
    {
        if (!m_porta->PortOpen())
            return false;
        m_porta->Output(byte);
        return true;
    }

private:
    void Guarda_Dispositivo()
    {
        if (!m_porta->Persa())
            return;
        Chiudi();
        Perduta();
    }

    QString m_dispositivo;
    qint32 m_velocita;
    std::unique_ptr<ControlloSeriale> m_porta;
    QTimer m_sguardo;
};

class LineaMancante : public Linea
{
public:
    bool Apri(QString &errore) override
    {
        errore = In_Parole(SERVE_PORTA);
        return false;
    }
    void Chiudi() override {}
    QString Nome() const override { return {}; }
    bool Scrivi(const QByteArray &) override { return false; }
};

} // namespace

std::unique_ptr<Linea> Crea_LineaPty()
{
    return std::make_unique<LineaMancante>();
}

std::unique_ptr<Linea> Crea_LineaSeriale(const QString &dispositivo, qint32 velocita)
{
    return std::make_unique<LineaSeriale>(dispositivo, velocita);
}
