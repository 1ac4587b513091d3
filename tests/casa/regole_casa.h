// The rules of the house that a reader of the source can check by machine. Each check takes the texts of a
// tree and returns its faults, one line each.
#pragma once

#include <QMap>
#include <QSet>
#include <QStringList>

/// Text of each source file, by its path from the root of the tree.
using Sorgenti = QMap<QString, QString>;

/// Reads the .h and .cpp files of a tree, all but those of hidden folders and of build folders.
Sorgenti Sorgenti_Leggi(const QString &radice);

/// The text without its comments, and with its literals emptied if they are not wanted.
QString Spoglia(const QString &testo, bool conLetterali);

/// A file stands for its unit: header and bodies together. Units that include each other, in a ring of any
/// length.
QStringList Anelli(const Sorgenti &sorgenti);

/// Modules that include a header of a window, or reach one through what they include.
/// @param finestre names of the toolkit's headers that need a display, e.g. QWidget.
QStringList Finestre_NeiModuli(const Sorgenti &sorgenti, const QSet<QString> &finestre);

/// What a form says in Qt: headers, classes, constants. A form has its handlers, its signal and the types of
/// text, time, list and value; all else of Qt is the toolkit's.
QStringList Qt_NeiForm(const Sorgenti &sorgenti);

/// Places where events may run in the middle of a procedure otherwise than by Eventi_Esegui, a modal show or
/// a box of the system.
QStringList Eventi_FuoriPosto(const Sorgenti &sorgenti);

/// Conditions on the operating system outside platform/ and the bodies of the serial control.
QStringList Sistemi_FuoriPosto(const Sorgenti &sorgenti);

/// What the stand-in for the instrument includes of the house beyond the serial port and the ground: with the
/// station's own protocol in it a mistake in that would be made at both ends of the line, and pass every
/// test.
QStringList Simulatore_Dipendente(const Sorgenti &sorgenti);

/// Tests whose class does not bear the name of its file: CTest, the test's own output and the file say one
/// name.
QStringList Prove_ConAltroNome(const Sorgenti &sorgenti);

/// Includes that go up in the list of folders, from the ground to the roof.
QStringList Inclusioni_InSalita(const Sorgenti &sorgenti);

/// State of the program (gName) that is defined or declared more than once, declared outside a header, or
/// defined elsewhere than beside its header.
QStringList Globali_Doppie(const Sorgenti &sorgenti);

/// Places of the program that take a screen text otherwise than by a name of its header: a number made a
/// name, the tables or the files of texts reached past the procedures that give a text.
QStringList Testi_SenzaNome(const Sorgenti &sorgenti);

/// Of some names that a header of the program gives, those that no other file of the program uses.
QStringList Nomi_NonUsati(const Sorgenti &sorgenti, const QStringList &nomi);

/// Texts in quotes of the program and of the technician's tools that are one of some words.
QStringList Letterali_Vietati(const Sorgenti &sorgenti, const QStringList &parole);

/// Procedures of the programs whose body has more than 50 lines.
QStringList Procedure_Lunghe(const Sorgenti &sorgenti);

/// Numbers in the house where a row or a code has an enumerator: an element of a table of rows, a row
/// compared, a code (gTipoProva, Notifica, a result) set, compared or switched on.
QStringList Numeri_Nudi(const Sorgenti &sorgenti);
