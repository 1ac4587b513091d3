// Lines of the standard input. It shows nothing.
#include "strumenti/riga_ingresso.h"

#include <iostream>
#include <string>

std::optional<QString> Riga_Ingresso()
{
    std::string riga;
    if (!std::getline(std::cin, riga))
        return std::nullopt;
    if (riga.ends_with('\r'))
        riga.pop_back();
    return QString::fromStdString(riga);
}
