// What F1 opens from every form: a page of the manual, in whatever program the system shows it with. Which
// page belongs to which form is the roof's to say.
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

/// @param indirizzo gives the page for a form, by the form's name, e.g. frmComm; an empty address for none.
void Aiuto_Imposta(std::function<QUrl(const QString &modulo)> indirizzo);

/// Opens the page of a form and returns at once; the form stays as it is. Without a page, or a program that
/// shows it, nothing happens: nobody shall have to close a message before going on.
void Aiuto_Apri(const QString &modulo);
