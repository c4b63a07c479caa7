#pragma once

/// \file
/// The records of a channel's functions and calibres, read from the console at the call. An index
/// outside 0 to 255 counts as beyond every count. The record is all zero when the read fails.

#include "channels/tvl_voie_orvane.h"

/// A function of the channel.
bool ReadFunction(const TvlVoieOrvane& voie, int fonction, tFunctionDesc& desc);

/// The function that the channel's snapshot has as the selected one.
bool ReadSelectedFunction(const TvlVoieOrvane& voie, tFunctionDesc& desc);

/// A calibre of that function.
bool ReadCalibre(const TvlVoieOrvane& voie, int calibre, tCalibreDesc& desc);
