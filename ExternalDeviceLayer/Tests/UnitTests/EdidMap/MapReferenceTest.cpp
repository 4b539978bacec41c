// Rows of the map against tables of fields in the optional folder with further data (docs/test-data.md), which come
// from other sources than the map: where each field lies, and what its codes mean. Their wording differs, so that texts
// are compared by their words.

#include "MapReference.h"
#include "MapRowCases.h"

namespace
{
std::vector<std::string> GetWords(std::string sText)
{
    std::ranges::transform(sText, sText.begin(), [](unsigned char ui8One) {
        return std::isalnum(ui8One) != 0 ? static_cast<char>(std::tolower(ui8One)) : ' ';
    });
    std::istringstream oStream(sText);
    return { std::istream_iterator<std::string>(oStream), std::istream_iterator<std::string>() };
}

// What the table and the map say in other words.
struct SSame
{
    const char* m_pszTable;
    const char* m_pszMap;
};
constexpr SSame gsc_aoSame[] = {
    { "Interlaced", "Frame scanning type" },
    { "Interlaced", "Signal interface type" },
    { "Aspect and size bytes 0Eh..10h follow", "Aspect ratio and size present" },
    { "14-byte record", "no" },
    { "17-byte record", "yes" },
    { "Preferred timing includes native pixel format and preferred refresh rate", "Preferred timing mode is native" },
    { "Week of manufacture or model year flag", "Week of manufacture" },
    { "no string", "0 bytes" },
    { "bezel bytes given", "given" },
    { "do not use", "not given" },
    { "not here: given in an extension block", "not given here" },
    { "not given (not allowed in 1.4)", "not given" },
    { "not a timing: display descriptor", "00 00" },
    { "progressive", "non-interlaced" },
    { "none", "normal display, no stereo" },
    { "none beyond default GTF (default GTF if bit 0 of 18h)", "no secondary timing formula" },
    { "no second white point", "unused" },
    { "reserved", "unused" }, // the first white point is there in any case
};

// Most words of the table are in the text of the map, or begin like a word of it: "Preferred" and "preference".
bool AreAlike(const std::string& sTable, const std::string& sMap)
{
    constexpr size_t uiStem = 5;
    const std::vector<std::string> asMap = GetWords(sMap);
    const std::vector<std::string> asTable = GetWords(sTable);
    const auto iFound = std::ranges::count_if(asTable, [&](const std::string& sWord) {
        return std::ranges::any_of(
            asMap, [&](const std::string& sOne) { return sOne.substr(0, uiStem) == sWord.substr(0, uiStem); });
    });
    return 2 * iFound >= static_cast<std::ptrdiff_t>(asTable.size()) ||
           std::ranges::any_of(
               gsc_aoSame, [&](const SSame& oSame) { return sTable == oSame.m_pszTable && sMap == oSame.m_pszMap; });
}

bool IsMeaning(const std::string& sTable, const std::string& sMap)
{
    return sTable == "no"    ? sMap.starts_with("no")
           : sTable == "yes" ? sMap == "yes" || sMap == "supported"
                             : AreAlike(sTable, sMap);
}

unsigned int ParseOffset(const std::string& sText) // "0Ch" or "12"
{
    return static_cast<unsigned int>(std::stoul(sText, nullptr, sText.ends_with('h') ? 16 : 10));
}

// Columns of the tables.
enum EColumn : size_t
{
    eColumn_Where,
    eColumn_Condition,
    eColumn_Offset,
    eColumn_Bits,
    eColumn_Name,
    eColumn_Kind,
    eColumn_Values = 8
};

// "05h[7..0] 04h[7..0]" and "7..4" as the places of rows: "05 04", "04.7-4". Empty for runs of bytes.
std::string GetPlace(const CLine& asLine)
{
    std::istringstream oStream(asLine[eColumn_Bits]);
    std::string sPlace;
    for (std::string sToken; oStream >> sToken;)
    {
        const auto aasPieces = FindAll(sToken, "^(?:(\\w+)h\\[)?(\\d)(?:\\.\\.(\\d))?\\]?$");
        if (aasPieces.empty())
        {
            return "";
        }
        const std::string& sByte = aasPieces[0][1];
        const std::string& sHigh = aasPieces[0][2];
        const std::string& sLow = aasPieces[0][3].empty() ? sHigh : aasPieces[0][3];
        CMString sPiece;
        sPiece.Format("%02X", ParseOffset(sByte.empty() ? asLine[eColumn_Offset] : sByte + "h"));
        sPlace.append(sPlace.empty() ? "" : " ").append(sPiece);
        if (sHigh != "7" || sLow != "0")
        {
            sPlace.append(".").append(sHigh).append(sHigh == sLow ? "" : "-" + sLow);
        }
    }
    return sPlace;
}

// A record, and the rows of a table that it has fields of.
struct SKind
{
    const char* m_pszWhere;      // beginning of the column
    const char* m_pszConditions; // those that the record fulfils, each between bars
    SRecord m_oRecord;
    unsigned int m_uiFields; // so many at least
};

class CReferenceCase
{
public:
    CReferenceCase(const SKind& oKind, const CLine& asLine)
        : m_oKind(oKind), m_asLine(asLine), m_sPlace(GetPlace(asLine))
    {
    }

    bool Concerns() const
    {
        const std::string& sCondition = m_asLine[eColumn_Condition];
        return m_asLine[eColumn_Where].starts_with(m_oKind.m_pszWhere) && !m_sPlace.empty() &&
               m_asLine[eColumn_Kind] != "reserved" && m_asLine[eColumn_Kind] != "list" && !IsPart() &&
               (sCondition.empty() ||
                std::string(m_oKind.m_pszConditions).find("|" + sCondition + "|") != std::string::npos);
    }

    void Compare() const
    {
        const auto aasBits = FindAll(m_asLine[eColumn_Values], "bit (\\d)=([^;]*)");
        if (aasBits.empty())
        {
            ExpectField(m_sPlace, m_asLine[eColumn_Name]);
            CompareCodes();
        }
        for (const std::vector<std::string>& asBit : aasBits)
        {
            ExpectField(m_sPlace.substr(0, 2) + "." + asBit[1], asBit[2]);
        }
    }

private:
    // Of a field that the map has whole, and that has tests of its own, or bits of the makers.
    bool IsPart() const
    {
        return m_asLine[eColumn_Name].find(", letter ") != std::string::npos ||
               m_asLine[eColumn_Name].starts_with("Manufacturer's timings");
    }

    // Place, name and value of the leaf there when the place holds this code.
    std::vector<std::string> Read(const std::string& sPlace, unsigned int uiCode) const
    {
        SRecord oRecord = m_oKind.m_oRecord;
        SetBits(oRecord.m_aui8Image, oRecord.m_uiOffset, sPlace, uiCode);
        CZorEdidMap oMap;
        oMap.Read(static_cast<unsigned int>(oRecord.m_aui8Image.size()), oRecord.m_aui8Image.data());
        const SPlaceBits oFirst = ParsePlace(sPlace).front();
        const unsigned int uiLeaf = oMap.FindLeaf(oRecord.m_uiOffset + oFirst.m_uiOffset, oFirst.m_uiHigh);
        const std::string sLine = FormatLeaf(oMap, uiLeaf, oRecord.m_uiOffset);
        return { sLine.substr(0, sLine.find(" | ")), oMap.GetField(uiLeaf).m_pszName,
                 static_cast<const char*>(oMap.GetValue(uiLeaf)) };
    }

    void ExpectField(const std::string& sPlace, const std::string& sName) const
    {
        const std::vector<std::string> asField = Read(sPlace, 1);
        EXPECT_EQ(sPlace, asField[0]) << m_asLine[eColumn_Where] << ": " << sName << ", " << asField[1];
        EXPECT_TRUE(AreAlike(sName, asField[1])) << m_asLine[eColumn_Where] << ": " << sName << ", " << asField[1];
    }

    void CompareCodes() const
    {
        constexpr char szPattern[] = "(?:^|;)([0-9A-F]+h?)(?:\\.\\.([0-9A-F]+h?))?=([^;]*)";
        for (const std::vector<std::string>& asCode : FindAll(m_asLine[eColumn_Values], szPattern))
        {
            const std::string& sFirst = asCode[1];
            const std::string& sLast = asCode[2].empty() ? sFirst : asCode[2];
            const std::string& sMeaning = asCode[3];
            if (m_asLine[eColumn_Kind] == "uint" && !asCode[2].empty()) // a range of numbers
            {
                continue;
            }
            for (const unsigned int uiCode : { ParseOffset(sFirst), ParseOffset(sLast) })
            {
                const std::string sValue = Read(m_sPlace, uiCode)[2];
                EXPECT_TRUE(IsMeaning(sMeaning, sValue)) << m_asLine[eColumn_Where] << ": " << m_asLine[eColumn_Name]
                                                         << ", code " << uiCode << ": " << sMeaning << ", " << sValue;
            }
        }
    }

    const SKind& m_oKind;
    const CLine& m_asLine;
    std::string m_sPlace;
};

void CompareKinds(const std::vector<CLine>& aoLines, std::span<const SKind> aoKinds)
{
    for (const SKind& oKind : aoKinds)
    {
        unsigned int uiCompared = 0;
        for (const CLine& asLine : aoLines)
        {
            const CReferenceCase oCase(oKind, asLine);
            if (oCase.Concerns())
            {
                oCase.Compare();
                ++uiCompared;
            }
        }
        EXPECT_LE(oKind.m_uiFields, uiCompared) << oKind.m_pszWhere;
    }
}

// One of the records that the payload of a data block is made of.
SRecord MakeItemRecord(unsigned int uiTag, unsigned int uiFlags, const char* pszPayload)
{
    SRecord oRecord = MakeDisplayIdRecord(uiTag, uiFlags, pszPayload);
    oRecord.m_uiOffset += oRecord.m_uiFirst;
    return oRecord;
}

TEST(MapReference, DisplayId)
{
    READ_OR_SKIP(aoLines, "displayid-fields.csv");
    SRecord oSection = MakeDisplayIdRecord(0x7F, 0, "44 45 4C");
    oSection.m_uiOffset = gsc_uiBlockSize + 1;
    SRecord oSection2 = oSection;
    SetBits(oSection2.m_aui8Image, oSection2.m_uiOffset, "00", 0x20);
    const SKind aoKinds[] = {
        { "section 1.x", "", oSection, 5 },
        { "section 2.x", "", oSection2, 5 },
        { "00h Product", "", MakeDisplayIdRecord(0x00, 0, "44 45 4C ..12"), 5 },
        { "20h Product", "", MakeDisplayIdRecord(0x20, 0, "3A 02 92 ..12"), 5 },
        { "01h Display", "", MakeDisplayIdRecord(0x01, 0, "00*12"), 16 },
        { "21h Display", "|01h bit 7 is 0|revision >=1|", MakeDisplayIdRecord(0x21, 1, "00*29"), 24 },
        { "02h Color", "|no primaries|", MakeDisplayIdRecord(0x02, 0, "00*5"), 5 },
        { "03h Type I", "", MakeItemRecord(0x03, 0, "00*20"), 15 },
        { "22h Type VII timing", "|revision <2|", MakeItemRecord(0x22, 1, "00*20"), 15 },
        { "22h Type VII timing", "|revision >=2|", MakeItemRecord(0x22, 2, "00*20"), 15 },
        { "04h Type II", "", MakeItemRecord(0x04, 0, "00*11"), 13 },
        { "05h Type III", "", MakeItemRecord(0x05, 0, "00*3"), 6 },
        { "09h Video", "", MakeDisplayIdRecord(0x09, 0, "00*15"), 12 },
        { "0Ch Display", "", MakeDisplayIdRecord(0x0C, 0, "00*13"), 16 },
        { "0Dh Interface", "", MakeDisplayIdRecord(0x0D, 0, "00*6"), 7 },
        { "0Fh Display", "|type not 0|type 1 (LVDS)|", MakeDisplayIdRecord(0x0F, 0, "10 ..10"), 18 },
        { "0Fh Display", "|type 11 (proprietary)|", MakeDisplayIdRecord(0x0F, 0, "B0 ..10"), 13 },
        { "0Fh Display", "|type 0|", MakeDisplayIdRecord(0x0F, 0, "00*10"), 11 },
        { "11h Type V", "", MakeItemRecord(0x11, 0, "00*7"), 7 },
        { "12h Tiled", "|bezel information|", MakeDisplayIdRecord(0x12, 0, "40 ..22"), 17 },
        { "28h Tiled", "|bezel information|", MakeDisplayIdRecord(0x28, 0, "40 ..22"), 17 },
        { "13h Type VI", "|17-byte record|", MakeItemRecord(0x13, 0, "00 00 40 ..17"), 17 },
        { "24h Type IX", "", MakeItemRecord(0x24, 0, "00*6"), 6 },
        { "2Ah Type X timing", "|6 bytes|formula 2|", MakeItemRecord(0x2A, 0, "02 ..6"), 6 },
        { "2Ah Type X timing", "|7 or 8 bytes|8 bytes|formula 3|", MakeItemRecord(0x2A, 0x20, "03 ..8"), 8 },
        { "25h Dynamic", "|revision 0|", MakeDisplayIdRecord(0x25, 0, "00*9"), 5 },
        { "25h Dynamic", "|revision >=1|", MakeDisplayIdRecord(0x25, 1, "00*9"), 5 },
        { "26h Display", "", MakeDisplayIdRecord(0x26, 0, "00*9"), 9 },
        { "2Bh Adaptive sync descriptor", "", MakeItemRecord(0x2B, 0, "00*6"), 9 },
        { "2Ch ARVR", "|03h bit 0|03h bit 1|05h bit 4|", MakeDisplayIdRecord(0x2C, 1, "03 00 10 ..79"), 50 },
        { "2Dh ARVR", "|11h bit 6|", MakeDisplayIdRecord(0x2D, 1, "3A 02 92 ..14 40 ..20"), 25 },
        { "2Eh Brightness", "", MakeDisplayIdRecord(0x2E, 0, "00*6"), 3 },
        { "7Eh Vendor-specific, VESA", "", MakeDisplayIdRecord(0x7E, 0, "3A 02 92 ..5"), 4 },
    };
    CompareKinds(aoLines, aoKinds);
}

TEST(MapReference, BaseBlock)
{
    READ_OR_SKIP(aoLines, "base-fields.csv");
    const auto fnMakeBase = [](unsigned int uiRevision, unsigned int uiInput) {
        SRecord oRecord = MakeDescriptorRecord(uiRevision, "00 00 00 10 ..18");
        oRecord.m_aui8Image[0x14] = static_cast<unsigned char>(uiInput);
        oRecord.m_uiOffset = 0;
        return oRecord;
    };
    const SKind aoKinds[] = {
        { "base", "|digital, >=1.4|>=1.4|both 15h and 16h nonzero|", fnMakeBase(4, 0x80), 26 },
        { "base", "|analog|<1.4|analog, or <1.4|", fnMakeBase(3, 0), 26 },
        { "dtd", "|sync type 0 or 1|", MakeDescriptorRecord(4, "01 ..18"), 17 },
        { "dtd", "|sync type 2|", MakeDescriptorRecord(4, "01 ..17 10"), 17 },
        { "dtd", "|sync type 3|", MakeDescriptorRecord(4, "01 ..17 18"), 17 },
        { "FDh", "|>=1.4|0Ah is 4|", MakeDescriptorRecord(4, "00 00 00 FD 00 01*5 04 ..18"), 24 },
        { "FDh", "|<1.4|0Ah is 2|", MakeDescriptorRecord(3, "00 00 00 FD 00 01*5 02 ..18"), 10 },
        { "FBh", "|0Ah nonzero|", MakeDescriptorRecord(4, "00 00 00 FB 00 01 ..10 02 ..18"), 8 },
        { "F9h", "", MakeDescriptorRecord(4, "00 00 00 F9 00 03 ..18"), 7 },
        { "F8h", "", MakeDescriptorRecord(4, "00 00 00 F8 00 01 ..18"), 1 },
    };
    CompareKinds(aoLines, aoKinds);
}

TEST(MapReference, DisplayInformation)
{
    READ_OR_SKIP(aoLines, "other-ext-fields.csv");
    constexpr const char* pszWhere = "40h DI-EXT";
    const auto fnMake = [](const char* pszBytes) -> SRecord {
        return { BehindBaseBlock(ParseBytes(pszBytes)), gsc_uiBlockSize, 0, gsc_uiBlockSize };
    };
    const SKind aoKinds[] = {
        { pszWhere, "|03h kind 1|07h bit 7|", fnMake("40 01 01 40 00 00 00 80"), 59 },
        { pszWhere, "|03h kind 3|", fnMake("40 01 01 C0"), 56 },
    };
    CompareKinds(aoLines, aoKinds);
}
} // namespace
