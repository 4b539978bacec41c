// What the CTA-861 files of the map share: the payload that a data block's walk is given, the tables and walks that
// MapCta.cpp dispatches to, and helpers of walks. For MapCta*.cpp only.
//
// Rows of data blocks count from the payload: the first byte after the header, the extended tag and the OUI.

#pragma once

#include "MapForms.h"
#include "MapNames.h"

namespace ZorMap
{
// ---- What walks are given ----

// The short video descriptors in the order that bit maps and indexes of other data blocks count them: over all Video
// Data Blocks of all CTA-861 blocks, or of one collection in a DisplayID block, reserved codes counted.
struct SCtaVideoCodes
{
    static constexpr unsigned int msc_uiMost = 256; // more than bit maps and indexes count
    unsigned char m_aui8Codes[msc_uiMost];
    unsigned int m_uiCount = 0;

    void Add(unsigned char ui8Code)
    {
        if (m_uiCount < msc_uiMost)
        {
            m_aui8Codes[m_uiCount++] = ui8Code;
        }
    }
};

struct SCtaPayload
{
    unsigned int m_uiField;  // of the data block
    unsigned int m_uiOffset; // in the image
    unsigned int m_uiLength;
    unsigned int m_uiHead; // bytes before it that the length of the data block counts: extended tag, OUI
    const SCtaVideoCodes& m_oVideoCodes;
};

using CtaWalk = void (*)(CMapWriter& oWriter, const SCtaPayload& oPayload);

// ---- Helpers of walks ----

// Records with their length in their first byte, up to the end; the last one is cut there and noted. pfnLength gives 1
// or more.
void AddCtaItems(CMapWriter& oWriter, const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                 unsigned int (*pfnLength)(unsigned int uiFirstByte));

// Items of uiSize bytes end uiUsed bytes into the payload. What is left is part of one more: unknown, with a note of
// the data block.
void AddCtaPart(CMapWriter& oWriter, const SCtaPayload& oPayload, unsigned int uiUsed, unsigned int uiSize);

// The bits of a byte that select video codes, bit 0 for the one at uiFirst: fields of the names of these codes. aoRows
// has a row for each bit, from bit 0 on; uiMarks is what the bits say of the modes. Bits without a code are left, or
// noted where they are set.
void AddVideoCodeBits(CMapWriter& oWriter, const SCtaVideoCodes& oCodes, unsigned int uiOffset, unsigned int uiFirst,
                      std::span<const SRow, gsc_uiBits> aoRows, unsigned int uiMarks);

// ---- Data blocks ----

// MapCtaVideo.cpp
extern const STable g_oCtaVideoTable;      // an item of the Video and YCbCr 4:2:0 Video Data Blocks
extern const STable g_oCtaPreferenceTable; // an item of the Video Format Preference Data Block
extern const STable g_oCtaVideoCapabilityTable;
void MapCtaNative(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaVideoFormats(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCta420Video(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaCapabilityMap(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaTypeVii(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaTypeViii(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaTypeX(CMapWriter& oWriter, const SCtaPayload& oPayload);

// MapCtaAudio.cpp
extern const STable g_oCtaAudioTable; // an item of the Audio Data Block
extern const STable g_oCtaDolbyAudioTable;
void MapCtaSpeakers(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaHdmiAudio(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaRoom(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaSpeakerLocations(CMapWriter& oWriter, const SCtaPayload& oPayload);

// MapCtaColour.cpp
extern const STable g_oCtaColorimetryTable;
extern const STable g_oCtaStaticHdrTable;
extern const STable g_oCtaHdr10PlusTable;
extern const STable g_oCtaDolbyVisionTable;
void MapCtaDynamicHdr(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaTransfer(CMapWriter& oWriter, const SCtaPayload& oPayload);

// MapCtaHdmi.cpp
void MapCtaExtensionOverride(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaHdmi(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaHdmiForum(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaHdmiSink(CMapWriter& oWriter, const SCtaPayload& oPayload);
void MapCtaToneMapping(CMapWriter& oWriter, const SCtaPayload& oPayload);

// MapCtaVendor.cpp
extern const STable g_oCtaAmdTable;
extern const STable g_oCtaMicrosoftTable;
extern const STable g_oCtaUhdTable;
extern const STable g_oCtaDisplayDeviceTable;
void MapCtaInfoFrames(CMapWriter& oWriter, const SCtaPayload& oPayload);
} // namespace ZorMap
