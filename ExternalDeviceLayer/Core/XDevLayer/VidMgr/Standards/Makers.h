// Makers by the three letters of the base block. Private to the library.

#pragma once

namespace ZorStandards
{
inline constexpr unsigned int gsc_uiMakerLetters = 3;

// The name to show for a maker; null for letters that the list lacks. pszLetters has three characters.
const char* FindMakerName(const char* pszLetters);
} // namespace ZorStandards
