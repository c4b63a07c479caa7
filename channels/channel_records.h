#pragma once

/// \file
/// The records of a channel's functions and calibres, read from the console at the call. An index
/// outside 0 to 255 counts as beyond every count.
///
/// A failed read writes nothing, and a console may succeed and write nothing too. So the caller
/// sets what it will read of the record to its neutral value first; clearing the whole record would
/// cost as much as reading it.

#include "channels/tvl_voie_orvane.h"

/// A function of the channel.
bool ReadFunction(const TvlVoieOrvane& voie, int fonction, tFunctionDesc& desc);

/// The function that the channel's snapshot has as the selected one.
bool ReadSelectedFunction(const TvlVoieOrvane& voie, tFunctionDesc& desc);

/// A calibre of that function.
bool ReadCalibre(const TvlVoieOrvane& voie, int calibre, tCalibreDesc& desc);
