// One writer at a time in a folder: programs that change a file by reading it, changing the bytes and putting
// a new file in its place agree by this lock. It knows none of the files.
#pragma once

#include <QString>

/// Holds the lock of a folder for as long as it lives. The lock lies on the folder itself: no file is made, a
/// rename of the files inside leaves it alone, reading the folder is right enough, and the system drops it
/// with the process. No child of the process inherits it. On a network share it stands between the programs
/// of one computer.
///
/// A lock that is not to be had is gone without: where the folder cannot be opened or knows no locks, and
/// after two seconds. A writer takes milliseconds, so whoever holds the lock for that long hangs; what the
/// operator saves is worth more than what a hung program may still come to write. Until the lock has been
/// free again, nobody is waited for any more, so that saving a form of many values is held up once.
class Serratura
{
public:
    /// @param cartella path of the folder, for the file system.
    explicit Serratura(const QString &cartella);
    ~Serratura();
    Q_DISABLE_COPY_MOVE(Serratura)

private:
    const int m_descrittore;
};
