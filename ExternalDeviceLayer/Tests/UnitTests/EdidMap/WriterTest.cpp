// The writer against the map: what the map says of a field with certain bits, the writer must bring about.

#include "ZorEdidWriter.h"

#include <string.h>

#include <bit>
#include <regex>
#include <set>
#include <tuple>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "MapCases.h"
#include "MapValue.h"
#include "OsServices.h"
#include "SharedFiles.h"

namespace
{
using CField = CZorEdidMap::SField;

class Writer : public testing::Test
{
protected:
    Writer() { OsServices::SetMsgLevel(0, 0, 0); }
};

void Read(CZorEdidWriter& oWriter, const CBytes& aui8Image)
{
    ASSERT_EQ(1, oWriter.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
}

CBytes GetBytes(const CZorEdidMap& oMap) { return { oMap.GetData(), oMap.GetData() + oMap.GetSize() }; }

// Those with a value that has a meaning.
bool IsSettable(const CField& oField)
{
    return oField.m_eKind == CZorEdidMap::eKind_Number || oField.m_eKind == CZorEdidMap::eKind_Flag ||
           oField.m_eKind == CZorEdidMap::eKind_Name || oField.m_eKind == CZorEdidMap::eKind_Text ||
           (oField.m_eKind == CZorEdidMap::eKind_Bytes && oField.m_eArea != CZorEdidMap::eArea_Structure);
}

unsigned int CountBits(const CZorEdidMap& oMap, const CField& oField)
{
    unsigned int uiBits = 0;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
        uiBits += static_cast<unsigned int>(std::popcount(oPiece.m_ui8Mask)) * oPiece.m_uiLength;
    }
    return uiBits;
}

// Whether the change of a field's bits is one that the writer must make: nothing else reads differently, and the value
// is neither reserved, unknown nor out of range.
bool IsPlain(const CZorEdidMap& oMap, unsigned int uiField, const CZorEdidWriter& oRaw,
             const CZorEdidWriter::SAnswer& oAnswer)
{
    const CZorEdidMap& oChanged = oRaw.GetMap();
    bool bSame = oAnswer.m_auiOthers.GetCount() == 0 && oChanged.GetFieldCount() == oMap.GetFieldCount();
    for (unsigned int i = 0; i < oMap.GetFieldCount() && bSame; ++i)
    {
        bSame = oMap.GetField(i).m_eId == oChanged.GetField(i).m_eId &&
                oMap.GetField(i).m_eKind == oChanged.GetField(i).m_eKind &&
                std::string(oMap.GetField(i).m_pszName) == oChanged.GetField(i).m_pszName &&
                oMap.GetField(i).m_uiOffset == oChanged.GetField(i).m_uiOffset;
    }
    if (!bSame)
    {
        return false;
    }
    const CField& oField = oChanged.GetField(uiField);
    for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
    {
        const EZorEdidRule eRule = oChanged.GetNote(oField.m_uiFirstNote + i).m_eRule;
        if (eRule != eZorEdidRule_None)
        {
            return false; // some of them are refused
        }
    }
    return std::string(oChanged.GetValue(uiField)).rfind("unknown (", 0) != 0;
}

struct SCounts
{
    std::set<CZorEdidMap::EKind> m_oKinds;
    unsigned int m_uiSet = 0;
    unsigned int m_uiRefused = 0;
};

// The field with this raw value, which the text for it must bring back.
void ExpectRaw(const CBytes& aui8Image, unsigned int uiField, unsigned int uiRaw, SCounts& oCounts)
{
    CZorEdidWriter oRaw;
    Read(oRaw, aui8Image);
    CZorEdidWriter::SAnswer oRawAnswer;
    ASSERT_EQ(1, oRaw.Set(uiField, ("raw:" + std::to_string(uiRaw)).c_str(), oRawAnswer));
    CZorEdidWriter oWriter;
    Read(oWriter, aui8Image);
    const CField oField = oWriter.GetMap().GetField(uiField);
    const bool bPlain = IsPlain(oWriter.GetMap(), uiField, oRaw, oRawAnswer);
    const std::string sValue = static_cast<const char*>(oRawAnswer.m_oAfter);
    CZorEdidWriter::SAnswer oAnswer;
    const int iSet = oWriter.Set(uiField, sValue.c_str(), oAnswer);
    const std::string sWhere = std::string(CZorEdidMap::GetId(oField.m_eId)) + "=" + sValue + ", raw " +
                               std::to_string(uiRaw) + ": " + static_cast<const char*>(oAnswer.m_oReason);
    EXPECT_TRUE(iSet == 1 || !bPlain) << sWhere;
    if (iSet == 1)
    {
        EXPECT_EQ(sValue, static_cast<const char*>(oWriter.GetMap().GetValue(uiField))) << sWhere;
        EXPECT_TRUE(oAnswer.m_bExact) << sWhere;
        oCounts.m_oKinds.insert(oField.m_eKind);
        ++oCounts.m_uiSet;
    }
    else
    {
        EXPECT_EQ(aui8Image, GetBytes(oWriter.GetMap())) << sWhere;
        EXPECT_NE(0, oAnswer.m_oReason.GetLength()) << sWhere;
        ++oCounts.m_uiRefused;
    }
}

std::map<std::string, CBytes> GetImages()
{
    std::map<std::string, CBytes> oImages = { { "both", MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) } };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        oImages[oImage.m_pszName] = ToBytes(*oImage.m_paui8Image);
    }
    oImages.merge(ReadImages(ZOREDID_SHARED_DIR "/corpus"));
    return oImages;
}

TEST_F(Writer, WhatAFieldSaysChangesNothing)
{
    for (const auto& [sName, aui8Image] : GetImages())
    {
        CZorEdidWriter oWriter;
        Read(oWriter, aui8Image);
        for (unsigned int i = 0; i < oWriter.GetMap().GetFieldCount(); ++i)
        {
            const CMString oValue = oWriter.GetMap().GetValue(i);
            CZorEdidWriter::SAnswer oAnswer;
            EXPECT_EQ(IsSettable(oWriter.GetMap().GetField(i)) ? 1 : 0, oWriter.Set(i, oValue, oAnswer))
                << sName << ": " << oWriter.GetMap().GetField(i).m_pszName << ": " << oAnswer.m_oReason;
        }
        EXPECT_EQ(aui8Image, GetBytes(oWriter.GetMap())) << sName;
    }
}

TEST_F(Writer, EachFieldTakesWhatItsBitsSay)
{
    SCounts oCounts;
    std::set<std::tuple<EZorEdidField, std::string, unsigned int>> oSeen;
    for (const auto& [sName, aui8Image] : GetImages())
    {
        CZorEdidMap oMap;
        ASSERT_EQ(1, oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CField& oField = oMap.GetField(i);
            const unsigned int uiBits = CountBits(oMap, oField);
            const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece);
            if (!IsSettable(oField) || uiBits > 32 || (oField.m_uiPieces == 1 && oPiece.m_uiLength > 1) ||
                !oSeen.emplace(oField.m_eId, oField.m_pszName, uiBits).second)
            {
                continue;
            }
            SCOPED_TRACE(sName);
            const unsigned int uiMost = 0xFFFFFFFFU >> (32 - uiBits);
            for (const unsigned int uiRaw : std::set<unsigned int>{ 0, uiMost, uiMost / 2, uiMost / 3 })
            {
                ExpectRaw(aui8Image, i, uiRaw, oCounts);
            }
            CZorEdidWriter oWriter;
            Read(oWriter, aui8Image);
            CZorEdidWriter::SAnswer oAnswer;
            EXPECT_EQ(0, oWriter.Set(i, "no such value", oAnswer)) << oField.m_pszName;
            EXPECT_EQ(aui8Image, GetBytes(oWriter.GetMap()));
        }
    }
    EXPECT_LE(3U, oCounts.m_oKinds.size());
    EXPECT_LT(oCounts.m_uiRefused, oCounts.m_uiSet);
}

// "2.5 to 3.54 MHz, or not given, other" as values: both ends with the unit, and each name.
std::vector<std::string> SplitOffer(const std::string& sOffer, const char* pszUnit)
{
    const std::string sUnit = pszUnit != nullptr ? std::string(" ") + pszUnit : "";
    std::vector<std::string> asValues;
    std::smatch oMatch;
    std::string sNames = sOffer;
    if (std::regex_search(sOffer, oMatch, std::regex("^(-?[0-9a-f.]+) to (-?[0-9a-f.]+)")))
    {
        asValues = { oMatch[1].str() + sUnit, oMatch[2].str() + sUnit };
        const size_t uiNames = sOffer.find(", or ");
        sNames = uiNames != std::string::npos ? sOffer.substr(uiNames + strlen(", or ")) : "";
    }
    return sNames.empty() || sNames.find(", ") != std::string::npos || sNames.ends_with("...")
               ? asValues
               : (asValues.push_back(sNames), asValues);
}

// What a refusal offers is taken: the ends of its range, and a single name. So are all names that are listed.
TEST_F(Writer, TakesWhatRefusalsOfferAndListsName)
{
    std::set<std::pair<EZorEdidField, std::string>> oSeen;
    for (const auto& [sName, aui8Image] : GetImages())
    {
        CZorEdidMap oMap;
        oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CField oField = oMap.GetField(i);
            if (!IsSettable(oField) || !oSeen.emplace(oField.m_eId, oField.m_pszName).second)
            {
                continue;
            }
            CZorEdidWriter oWriter;
            CZorEdidWriter::SAnswer oAnswer;
            Read(oWriter, aui8Image);
            oWriter.Set(i, "no such value", oAnswer); // a text takes it, and offers nothing
            const std::string sReason = static_cast<const char*>(oAnswer.m_oReason);
            const size_t uiOffer = sReason.find("; it takes ");
            const std::string sOffer =
                uiOffer != std::string::npos ? sReason.substr(uiOffer + strlen("; it takes ")) : "";
            for (const std::string& sValue : SplitOffer(sOffer, oField.m_pszUnit))
            {
                const bool bWords = sValue == "three letters A to Z" || sValue.starts_with("a code such as");
                CZorEdidWriter oOther;
                Read(oOther, aui8Image);
                EXPECT_TRUE(bWords || oOther.Set(i, sValue.c_str(), oAnswer) == 1)
                    << sName << ": " << CZorEdidMap::GetId(oField.m_eId) << "=" << sValue << " of '" << sOffer
                    << "': " << oAnswer.m_oReason;
            }
            CZorEdidWriter oListed;
            Read(oListed, aui8Image);
            CMArrayString aoNames;
            const bool bNumber = oField.m_eKind == CZorEdidMap::eKind_Number; // of which the refusal takes as long
            const unsigned int uiCount = bNumber ? 0 : oListed.ListNames(i, aoNames);
            for (unsigned int j = 0; j < uiCount; j += std::max(1U, uiCount - 1)) // the first and the last one
            {
                CZorEdidWriter oOther;
                Read(oOther, aui8Image);
                EXPECT_TRUE(oOther.Set(i, aoNames[j], oAnswer) == 1 && oAnswer.m_bExact)
                    << sName << ": " << CZorEdidMap::GetId(oField.m_eId) << "=" << aoNames[j];
            }
        }
    }
}

// Rates past 255 take their offset with them, from revision 4 on.
TEST_F(Writer, RatesTakeTheirOffsets)
{
    CBytes aui8Image = MakeEdid({});
    const CBytes aui8Range = ParseBytes("00 00 00 FD 00 30 4B 1E 53 11 01 0A 20 20 20 20 20 20");
    std::copy(aui8Range.begin(), aui8Range.end(), aui8Image.begin() + 0x6C);
    aui8Image[0x13] = 4;
    constexpr unsigned int uiOffsets = 0x70;
    const struct
    {
        unsigned int m_uiOffset;
        const char* m_pszValue;
        const char* m_pszAfter;
        unsigned char m_ui8Offsets;
        unsigned char m_ui8Byte;
    } aoSteps[] = {
        { 0x71, "256", "!out of range; it takes 1 to 255 Hz", 0, 0x30 },
        { 0x72, "511", "!out of range; it takes 1 to 510 Hz", 0, 0x4B },
        { 0x72, "300 Hz", "300 Hz", 0x02, 45 },
        { 0x71, "260", "260 Hz", 0x03, 5 },
        { 0x72, "200", "!out of range; it takes 256 to 510 Hz", 0x03, 45 },
        { 0x74, "510", "510 kHz", 0x0B, 255 },
        { 0x71, "48", "48 Hz", 0x0A, 48 },
        { 0x72, "144", "144 Hz", 0x08, 144 },
    };
    CZorEdidWriter oWriter;
    Read(oWriter, FixChecksums(aui8Image));
    for (const auto& oStep : aoSteps)
    {
        CZorEdidWriter::SAnswer oAnswer;
        const int iSet = oWriter.Set(oWriter.GetMap().FindLeaf(oStep.m_uiOffset, 0), oStep.m_pszValue, oAnswer);
        EXPECT_EQ(oStep.m_pszAfter, std::string(iSet == 1 ? oAnswer.m_oAfter : "!" + oAnswer.m_oReason));
        EXPECT_EQ(oStep.m_ui8Offsets, oWriter.GetMap().GetData()[uiOffsets]) << oStep.m_pszValue;
        EXPECT_EQ(oStep.m_ui8Byte, oWriter.GetMap().GetData()[oStep.m_uiOffset]) << oStep.m_pszValue;
    }
}

struct SSetCase
{
    const char* m_pszId;
    const char* m_pszValue;
    const char* m_pszAfter; // or the beginning of the refusal's reason
    bool m_bExact;
};

// In units, in words, in bits; the nearest value; and refusals.
TEST_F(Writer, TakesWordsNumbersAndBits)
{
    static constexpr SSetCase aoCases[] = {
        { "base.display.gamma", "2.5", "2.50", true },
        { "base.display.gamma", "2.304", "2.30", false },
        { "base.display.gamma", "9", "!out of range; it takes 1.00 to 3.54", false },
        { "base.display.gamma", "2.2 cm", "!not a value", false },
        { "base.edid.version", "2", "!out of range; it takes 1", false },
        { "base.identity.manufacturer", "abc", "ABC", true },
        { "base.identity.manufacturer", "@@@", "!a reserved, unknown or forbidden value; it takes three letters",
          false },
        { "base.identity.manufacturer", "12", "!not a value of this field; it takes three letters A to Z", false },
        { "base.identity.serial-number", "0xFFFFFFFE", "4294967294", true },
        { "base.identity.serial-number", "4294967296", "!out of range; it takes ", false },
        { "base.display.standby", "yes", "supported", true },
        { "cta.hdmi.physical-address", "A.0.0.0", "a.0.0.0", true },
        { "cta.hdmi.physical-address", "10.0.0.0", "!not a value of this field; it takes 0.0.0.0 to f.f.f.f", false },
        { "checksum", "0", "!it is a checksum", false },
        { "base.header", "00", "!the standard fixes it", false },
        { "base.range.max-vertical-rate", "0", "!a reserved, unknown or forbidden value; it takes 1 to 510 Hz", false },
    };
    CBytes aui8Image = MakeEdid({ ParseBytes("02 03 0A 00 65 03 0C 00 10 00 ..128") });
    const CBytes aui8Range = ParseBytes("00 00 00 FD 00 30 4B 1E 53 11 00 0A 20 20 20 20 20 20");
    std::copy(aui8Range.begin(), aui8Range.end(), aui8Image.begin() + 0x6C);
    aui8Image = FixChecksums(aui8Image);
    for (const SSetCase& oCase : aoCases)
    {
        CZorEdidWriter oWriter;
        Read(oWriter, aui8Image);
        const CZorEdidMap& oMap = oWriter.GetMap();
        unsigned int uiField = 0;
        while (uiField < oMap.GetFieldCount() &&
               std::string(CZorEdidMap::GetId(oMap.GetField(uiField).m_eId)) != oCase.m_pszId)
        {
            ++uiField;
        }
        if (uiField == oMap.GetFieldCount())
        {
            ADD_FAILURE() << oCase.m_pszId;
            continue;
        }
        CZorEdidWriter::SAnswer oAnswer;
        const int iSet = oWriter.Set(uiField, oCase.m_pszValue, oAnswer);
        const std::string sSaid = static_cast<const char*>(iSet == 1 ? oAnswer.m_oAfter : "!" + oAnswer.m_oReason);
        EXPECT_TRUE(sSaid.starts_with(oCase.m_pszAfter)) << oCase.m_pszId << ": " << sSaid;
        EXPECT_EQ(oCase.m_bExact, oAnswer.m_bExact) << oCase.m_pszId << "=" << oCase.m_pszValue;
        EXPECT_EQ(static_cast<unsigned int>(iSet), oAnswer.m_auiFollowed.GetCount()) << oCase.m_pszId;
    }
}

// The minimum is stored as a fraction of the maximum. It follows, and the answer names it; it is not lost.
TEST_F(Writer, AMinimumLuminanceFollowsItsMaximum)
{
    const CBytes aui8Image = MakeEdid({ FixChecksums(ParseBytes("02 03 0B 00 E6 06 05 01 60 60 32 ..128")) });
    CZorEdidWriter oWriter;
    Read(oWriter, aui8Image);
    const CZorEdidMap& oMap = oWriter.GetMap();
    const unsigned int uiMinimum = oMap.FindField(CZorEdidMap::FindId("cta.hdr-static.min-luminance"));
    const unsigned int uiMaximum = oMap.FindField(CZorEdidMap::FindId("cta.hdr-static.max-luminance"));
    ASSERT_NE(CZorEdidMap::msc_uiNone, uiMinimum);
    CZorEdidWriter::SAnswer oAnswer;
    EXPECT_EQ(1, oWriter.Set(uiMaximum, "1000", oAnswer)) << oAnswer.m_oReason;
    ASSERT_EQ(1U, oAnswer.m_auiOthers.GetCount());
    EXPECT_EQ(uiMinimum, oAnswer.m_auiOthers[0]);
    EXPECT_EQ(0, oWriter.Set(uiMaximum, "not indicated", oAnswer));
    EXPECT_EQ(1, oWriter.Set(uiMinimum, "not indicated", oAnswer)) << oAnswer.m_oReason;
    EXPECT_EQ(1, oWriter.Set(uiMaximum, "not indicated", oAnswer)) << oAnswer.m_oReason;
}

// A name of any length up to its room: the line feed and the blanks move. Nothing else does.
TEST_F(Writer, TextsFillTheirRoom)
{
    CBytes aui8Image = MakeEdid({});
    const CBytes aui8Name = ParseBytes("00 00 00 FC 00 41 42 43 0A 20 20 20 20 20 20 20 20 20");
    std::copy(aui8Name.begin(), aui8Name.end(), aui8Image.begin() + 0x6C);
    CZorEdidWriter oWriter;
    Read(oWriter, aui8Image);
    CZorEdidWriter::SAnswer oAnswer;
    for (const char* pszName : { "ABCDEFGHIJKLM", "A", "AB CD" })
    {
        EXPECT_EQ(1, oWriter.Set(oWriter.GetMap().FindLeaf(0x71, 0), pszName, oAnswer)) << oAnswer.m_oReason;
        EXPECT_EQ(pszName, std::string(oAnswer.m_oAfter));
    }
    EXPECT_EQ(ParseBytes("41 42 20 43 44 0A 20 20 20 20 20 20 20"),
              CBytes(oWriter.GetMap().GetData() + 0x71, oWriter.GetMap().GetData() + 0x7E));
    EXPECT_EQ(0, oWriter.Set(oWriter.GetMap().FindLeaf(0x71, 0), "ABCDEFGHIJKLMN", oAnswer));
    EXPECT_EQ("it takes 1 to 13 ASCII characters", std::string(oAnswer.m_oReason));
}

// An empty name has no text field: its descriptor takes the text.
TEST_F(Writer, AnEmptyTextIsSetAsAnother)
{
    CBytes aui8Image = MakeEdid({});
    const CBytes aui8Name = ParseBytes("00 00 00 FC 00 0A 20 20 20 20 20 20 20 20 20 20 20 20");
    std::copy(aui8Name.begin(), aui8Name.end(), aui8Image.begin() + 0x6C);
    CZorEdidWriter oWriter;
    Read(oWriter, FixChecksums(aui8Image));
    const CZorEdidMap& oMap = oWriter.GetMap();
    const unsigned int uiName = oMap.FindField(CZorEdidMap::FindId("base.name"));
    CZorEdidWriter::SAnswer oAnswer;
    EXPECT_EQ(0, oWriter.Set(oMap.GetTextOf(uiName), "ABCDEFGHIJKLMN", oAnswer));
    EXPECT_EQ("it takes 1 to 13 ASCII characters", std::string(oAnswer.m_oReason));
    EXPECT_EQ(1, oWriter.Set(oMap.GetTextOf(uiName), "0a", oAnswer)) << oAnswer.m_oReason;
    EXPECT_EQ("", std::string(oAnswer.m_oBefore));
    EXPECT_EQ("0a", std::string(oAnswer.m_oAfter));
    EXPECT_EQ(0, oWriter.Set(oMap.GetTextOf(uiName) + 1, "A", oAnswer)); // a line feed after a text is one
}
} // namespace
