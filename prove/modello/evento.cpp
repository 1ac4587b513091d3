#include "prove/modello/evento.h"

namespace modello {

QByteArray Risposta(const QByteArray &corpo)
{
    unsigned somma = 2;
    for (const char c : corpo)
        somma += static_cast<unsigned char>(c);
    const char cifra = static_cast<char>('0' + somma % 256 % 10);
    return '\x02' + corpo + cifra + '\x03';
}

namespace {

const QByteArray UNO = Risposta("ABC1");
const QByteArray QUATTRO = Risposta("ABC4");

QByteArray Guasta(QByteArray risposta)
{
    risposta[risposta.size() - 2] ^= '\x01';
    return risposta;
}

QByteArray Taratura()
{
    QByteArray corpo = "ABC";
    for (int testo = 10; testo < 20; ++testo)
        corpo += QByteArray::number(testo) + '\x17';
    return Risposta(corpo);
}

// clang-format off
QList<Evento> Componi()
{
    using G = Genere;
    return {
        // The replies of the instrument, each of them also the wrong one for most commands.
        {"stato 1",               G::Byte, UNO},
        {"stato 2",               G::Byte, Risposta("ABC2")},
        {"stato 4",               G::Byte, QUATTRO},
        {"stato 9",               G::Byte, Risposta("ABC9")},
        {"misura",                G::Byte, Risposta("ABC0123O#0456##0789OX9999OO")},
        {"misura oltre 16 bit",   G::Byte, Risposta("ABC0001OOz000OO0000OO0000OO")},
        {"dati",                  G::Byte, Risposta("ABCUQX5\x17M\x17O\x17S\x17R\x17Op\x17")},
        {"taratura",              G::Byte, Taratura()},
        {"scritto",               G::Byte, Risposta("ABC\xFF")},
        {"senza C",               G::Byte, Risposta("ABD1\x17")},
        // What a line makes of them.
        {"guasta",                G::Byte, Guasta(UNO)},
        {"corta",                 G::Byte, Risposta("")},
        {"lunga",                 G::Byte, Risposta("ABC4" + QByteArray(99, 'x'))},
        {"troppo lunga",          G::Byte, Risposta("ABC4" + QByteArray(103, 'x'))},
        {"doppia",                G::Byte, UNO + QUATTRO},
        {"testa",                 G::Byte, QUATTRO.first(2)},
        {"coda",                  G::Byte, QUATTRO.mid(2)},
        {"rumore",                G::Byte, QByteArray("\x00\xFF\x41\x03\x31", 5)},
        {"interruzione di linea", G::Linea, {}, 1001},
        {"portante caduta",       G::Linea, {}, 5},
        {"evento senza byte",     G::Vuoto},
        // The station, time, and the ends.
        {"profilo cambiato",      G::Profilo},
        {"battito",               G::Battito},
        {"battito con la lista",  G::BattitoConLista},
        {"battito senza uscita",  G::BattitoSenzaUscita},
        {"pulsante",              G::Pulsante},
    };
}
// clang-format on

} // namespace

const QList<Evento> &Alfabeto()
{
    static const QList<Evento> ALFABETO = Componi();
    return ALFABETO;
}

} // namespace modello
