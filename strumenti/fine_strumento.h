// How a run of a tool that reads files ends, for the script that started it.
#pragma once

#include <algorithm>

/// The exit status. The higher one says more of a run: who could not look at a file knows nothing of it.
enum class FineStrumento
{
    Buono = 0,
    Anomalie = 1,
    NonGuardato = 2, ///< a file or folder out of reach, no station, wrong use
};

inline void Peggiora(FineStrumento &fine, FineStrumento altra)
{
    fine = std::max(fine, altra);
}
