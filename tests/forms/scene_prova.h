// Every form of the program as it stands on the screen in a working day: with a vehicle in it, with one that
// fails, with the longest message. What is to be seen there is the business of whoever looks.
#pragma once

#include <QString>

#include <functional>

class Modulo;

/// The languages that the program is delivered with.
inline constexpr const char *LINGUE_SCENE[] = {"IT", "FR", "EN", "ES", "DE"};

/// Opens the scenes one after the other and hands each to the procedure, while it shows.
/// @param lingua language in force, e.g. "DE". @param guarda gets the scene's name and its form.
void Scene_Percorri(const QString &lingua,
                    const std::function<void(const QString &scena, const Modulo &modulo)> &guarda);

/// How many scenes there are.
int Scene_Quante();
