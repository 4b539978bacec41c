// Names and texts that tables of several files use. A list of names is headed by its standard. Private to this folder.

#pragma once

#include <array>

#include "MapWriter.h"
#include "Standards/Ouis.h"

namespace ZorMap
{
// ---- Lists of names ----

// Values count from 0.
template <unsigned int N>
constexpr std::array<SMeaning, N> Listed(const char* const (&apszNames)[N])
{
    std::array<SMeaning, N> aoMeanings = {};
    for (unsigned int i = 0; i < N; ++i)
    {
        aoMeanings[i] = { i, i, apszNames[i] };
    }
    return aoMeanings;
}

// The same, with all later values up to uiLast reserved.
template <unsigned int N>
constexpr std::array<SMeaning, N + 1> ListedTo(unsigned int uiLast, const char* const (&apszNames)[N])
{
    std::array<SMeaning, N + 1> aoMeanings = {};
    for (unsigned int i = 0; i < N; ++i)
    {
        aoMeanings[i] = { i, i, apszNames[i] };
    }
    aoMeanings[N] = { N, uiLast, gsc_szReserved };
    return aoMeanings;
}

// The keys of a list of kinds, with their names.
template <class KIND, size_t N>
constexpr std::array<SMeaning, N> TakeKeys(const KIND (&aoKinds)[N])
{
    std::array<SMeaning, N> aoKeys = {};
    for (size_t i = 0; i < N; ++i)
    {
        aoKeys[i] = aoKinds[i].m_oKey;
    }
    return aoKeys;
}

// ---- Words ----

inline constexpr SMeaning gsc_aoZeroNotGiven[] = { { 0, 0, "not given" } };
inline constexpr SMeaning gsc_aoZeroNotIndicated[] = { { 0, 0, "not indicated" } };
inline constexpr SMeaning gsc_aoZeroNone[] = { { 0, 0, "none" } };
inline constexpr SMeaning gsc_aoFFNotGiven[] = { { 0xFF, 0xFF, "not given" } };
inline constexpr auto gsc_aoSigns = Listed({ "negative", "positive" });
inline constexpr auto gsc_aoPrecisions = Listed({ "0.1 mm", "1 mm" });

// ---- Panels: DisplayID 1.3 and VESA DDDB 1.0; of DI-EXT, release A, the first two orientations and the corners ----

inline constexpr auto gsc_aoOrientations = Listed({ "landscape", "portrait", "not fixed", "undefined" });
inline constexpr auto gsc_aoRotations =
    Listed({ "none", "90 degrees clockwise", "90 degrees counterclockwise", "90 degrees either way" });
inline constexpr auto gsc_aoZeroPixels = Listed({ "upper left", "upper right", "lower left", "lower right" });
inline constexpr auto gsc_aoTransitions = Listed({ "black to white", "white to black" });

// Of DisplayID 1.3 and DI-EXT, release A.
inline constexpr auto gsc_aoScanDirections =
    Listed({ "not defined", "fast on long axis, slow on short", "fast on short axis, slow on long", gsc_szReserved });

// ---- Codes of timings: DisplayID 1.3 and 2.0; their sizes CTA-861-H, too ----

inline constexpr auto gsc_aoCodeTypes = Listed({ "VESA DMT", "CTA-861 VIC", "HDMI VIC", gsc_szReserved });
inline constexpr auto gsc_aoCodeSizes = Listed({ "1 byte", "2 bytes" });

// ---- Companies: as IEEE assigns identifiers; CTA-861 stores the least significant byte first, DisplayID last ----

// "00-0C-03 HDMI Licensing"
CMString OuiText(const CRecord& oRecord, unsigned int uiOui);
constexpr SForm Oui() { return Names(FindOuiName).Text(OuiText); }

// ---- Texts ----

// The meaning of a value; null when the list lacks it.
const char* FindMeaning(std::span<const SMeaning> aoMeanings, unsigned int uiValue);

// "16, 1920x1080p 59.94/60 Hz 16:9"; "unknown (16)" without a name.
CMString CodeText(unsigned int uiCode, const char* pszName);

// A container ID: 16 bytes from uiOffset of the record on, in stored order. "041e0a63-f0b6-4dee-97a1-0123456789ab"
inline constexpr unsigned int gsc_uiContainerIdSize = 16;
CMString ContainerIdText(const CRecord& oRecord, unsigned int uiOffset);
template <unsigned int OFFSET>
constexpr SRow ContainerIdRow(EZorEdidField eId)
{
    return { eId, Run(OFFSET, gsc_uiContainerIdSize), "Container ID",
             Text().Text([](const CRecord& oRecord, unsigned int) { return ContainerIdText(oRecord, OFFSET); }) };
}
} // namespace ZorMap
