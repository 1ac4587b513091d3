// What a process holds at a moment: all of it has to come back to where it was when a vehicle has been
// tested.
#pragma once

#include <QList>

namespace resistenza {

struct Misura
{
    qint64 Heap = 0;      ///< bytes in use, without the pictures that the toolkit keeps
    qint64 Immagini = 0;  ///< bytes of those pictures, see QPixmapCache
    qint64 Residente = 0; ///< bytes that the system counts
    int Descrittori = 0;
    int Thread = 0;
    int Widget = 0;
    int Oggetti = 0; ///< of the toolkit, widgets among them
    int Timer = 0;   ///< of the toolkit, running
    int Sveglie = 0; ///< armed, of the test's clock
};

/// Counts objects from now on: to be called before there is any.
void Oggetti_Conta();

/// The moment as it is. The pictures that the toolkit has kept are thrown away: what the next measure finds
/// has been kept since.
Misura Misura_Adesso();

/// One of them, at two moments.
struct Crescita
{
    const char *Nome;
    qint64 Prima;
    qint64 Dopo;
    bool Contato; ///< things, which must not become more; of bytes a hundredth may

    double Parte() const; ///< hundredths
    bool Ferma() const;
};

QList<Crescita> Crescite(const Misura &prima, const Misura &dopo);
/// The names of what has grown.
QList<QByteArray> Cresciute(const QList<Crescita> &crescite);

} // namespace resistenza
