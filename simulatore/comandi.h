// The commands as the instrument knows them: code on the wire, name in logs and scenarios, what a frame
// carries, and where its reply tells its kind. It is the instrument's own table on purpose: a station that
// sends a wrong code meets silence here.
#pragma once

#include <QString>

#include <span>

enum class CodiceComando : quint8
{
    Stato = 0x10,
    Misura = 0x20,
    LeggiDati = 0x50,
    ScriviDati1 = 0x60,
    ScriviDati2 = 0x80,
    LeggiTaratura = 0x90,
    ScriviTaratura = 0xA0,
};

/// What stands between the code and the check character.
enum class CaricoComando : quint8
{
    Nessuno,         ///< nothing
    Testi,           ///< texts, each closed by a separator
    TestiRiempitivo, ///< texts or nothing, then one byte 0x00
};

struct DefComando
{
    const char16_t *nome;
    CodiceComando codice;
    CaricoComando carico;
    quint8 postoGenere; ///< offset in the reply of the byte by which the station tells its kind
};

/// All commands, in the order of the documents.
std::span<const DefComando> Comandi_Tutti();

/// The command with that code on the wire; nullptr when there is none.
const DefComando *Comando_DaCodice(quint8 codice);

/// The command with that name, without regard to case; nullptr when there is none.
const DefComando *Comando_DaNome(const QString &nome);
