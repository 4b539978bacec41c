// JSON of explain and back: the same bytes for any image, what a change in the document makes of them, and documents
// that are refused.

#include <gtest/gtest.h>

#include <random>

#include <nlohmann/json.hpp>

#include "BuildImage.h"
#include "CapturedOutput.h"
#include "Damages.h"
#include "DisplayIdImages.h"
#include "MapJson.h"
#include "SharedFiles.h"

namespace
{
using nlohmann::json;

std::string Explain(const CBytes& aui8Image)
{
    const CQuietMessages oQuiet;
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    return MakeExplanation({ "name", aui8Image, "form", "" }, oMap, std::vector<bool>(oMap.GetFieldCount(), true));
}

// The reader gets a few bytes at a time.
SBuilt Build(const std::string& sDocument)
{
    size_t uiNext = 0;
    CJsonReader oReader([&](char* pcBytes, size_t uiSize) {
        constexpr size_t uiMost = 1000;
        const size_t uiCopied = sDocument.copy(pcBytes, std::min(uiSize, uiMost), uiNext);
        uiNext += uiCopied;
        return uiCopied;
    });
    SExplained oExplained;
    const std::string sProblem = oReader.HasMore() ? ReadExplained(oReader, oExplained) : "is empty";
    return sProblem.empty() ? BuildImage(oExplained) : SBuilt{ {}, sProblem };
}

// A base block of 1.3 and a CTA-861 block.
CBytes GetMonitor() { return ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin"); }

void ExpectSameBytes(const CBytes& aui8Image)
{
    const SBuilt oBuilt = Build(Explain(aui8Image));
    EXPECT_EQ("", oBuilt.m_sProblem);
    EXPECT_EQ(aui8Image, oBuilt.m_aui8Bytes);
    EXPECT_TRUE(oBuilt.m_asNotes.empty());
}

TEST(BuiltImage, HasTheBytesOfAnyImage)
{
    const CBytes aui8Blocks = MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock(), CBytes(128, 0x99) });
    for (const unsigned int uiSize : { 1U, 2U, 54U, 126U, 127U, 128U, 129U, 132U, 200U, 255U, 383U, 511U })
    {
        ExpectSameBytes(CBytes(aui8Blocks.begin(), aui8Blocks.begin() + uiSize));
    }
    std::minstd_rand oRandom(22);
    for (unsigned int i = 0; i < 150; ++i)
    {
        CBytes aui8Image = i % 2 == 0 ? GetMonitor() : aui8Blocks;
        for (unsigned int j = 0; j < 1 + i % 12; ++j)
        {
            aui8Image[oRandom() % aui8Image.size()] = static_cast<unsigned char>(oRandom());
        }
        ExpectSameBytes(i % 3 == 0 ? FixChecksums(aui8Image) : aui8Image);
        if (HasFailure())
        {
            FAIL() << "image " << i;
        }
    }
}

// ---- Changes ----

json* FindField(json& oFields, const std::string& sId)
{
    for (json& oField : oFields)
    {
        if (oField["id"] == sId)
        {
            return &oField;
        }
        json* const poFound = oField.contains("fields") ? FindField(oField["fields"], sId) : nullptr;
        if (poFound != nullptr)
        {
            return poFound;
        }
    }
    return nullptr;
}

struct SChange
{
    const char* m_pszName;
    const char* m_pszId;            // of the first field with it
    const char* m_pszMembers;       // put into the field; null takes one out
    std::vector<SDamage> m_aoBytes; // that the image then has
    bool m_bChecksums;              // follow
    const char* m_pszProblem = "";  // a part of it
    const char* m_pszNote = "";     // a part of the first one
};

void PrintTo(const SChange& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }

class ChangedDocument : public testing::TestWithParam<SChange>
{
};

TEST_P(ChangedDocument, MakesWhatItSays)
{
    const SChange& oCase = GetParam();
    json oDocument = json::parse(Explain(GetMonitor()));
    json* const poField = FindField(oDocument["fields"], oCase.m_pszId);
    ASSERT_NE(nullptr, poField);
    poField->merge_patch(json::parse(oCase.m_pszMembers));
    const SBuilt oBuilt = Build(oDocument.dump());
    EXPECT_TRUE(oBuilt.m_sProblem.find(oCase.m_pszProblem) != std::string::npos &&
                oBuilt.m_sProblem.empty() == (*oCase.m_pszProblem == '\0'))
        << oBuilt.m_sProblem;
    if (oBuilt.m_sProblem.empty())
    {
        const CBytes aui8Expected = WithDamages(GetMonitor(), oCase.m_aoBytes);
        EXPECT_EQ(oCase.m_bChecksums ? FixChecksums(aui8Expected) : aui8Expected, oBuilt.m_aui8Bytes);
        EXPECT_EQ(*oCase.m_pszNote == '\0', oBuilt.m_asNotes.empty());
        EXPECT_TRUE(oBuilt.m_asNotes.empty() || oBuilt.m_asNotes[0].find(oCase.m_pszNote) != std::string::npos)
            << oBuilt.m_asNotes[0];
    }
}

constexpr char gsc_szGamma[] = "base.display.gamma"; // byte 0x17, 2.20
constexpr char gsc_szPath[] = "block 0: Basic display parameters and features > Display transfer characteristic";
constexpr char gsc_szRaw[] = "\"raw\" bits are written";

const SChange gsc_aoChanges[] = {
    // Values. Text fills its room, and a flag is a bit of its byte.
    { "Number", gsc_szGamma, R"({ "value": 2.4 })", { { 0x17, "8C" } }, true, "", "2.20 became 2.40; followed" },
    { "NumberWithExponent", gsc_szGamma, R"({ "value": 2.4e-20 })", {}, true, "out of range" },
    { "NearestNumber", gsc_szGamma, R"({ "value": 2.4371 })", { { 0x17, "90" } }, true, "", "2.44, the nearest" },
    { "NumberAsText", gsc_szGamma, R"({ "value": "2.40" })", { { 0x17, "8C" } }, true, "", "2.20 became 2.40" },
    { "Meaning", gsc_szGamma, R"({ "value": "Not given here" })", { { 0x17, "FF" } }, true, "", "became not given" },
    { "Flag", "cta.underscan", R"({ "value": true })", { { 0x83, "F1" } }, true, "", "no became yes" },
    { "Text",
      "base.descriptor.text",
      R"({ "value": "SERIAL" })",
      { { 0x4D, "53 45 52 49 41 4C 0A 20*6" } },
      true,
      "",
      "became SERIAL" },
    { "OutOfRange", gsc_szGamma, R"({ "value": 9 })", {}, false, "gamma): out of range; it takes 1.00 to 3.54" },
    { "OfATag", "base.descriptor.tag", R"({ "value": 1 })", {}, false, "Display descriptor tag: " },
    { "OfAChecksum", "checksum", R"({ "value": 1 })", {}, false, "block 0: Checksum: it is a checksum" },
    { "OfAGroup", "base.name", R"({ "value": "X" })", {}, false, "base.name: a group has no value" },
    { "RawAsValue", "base.descriptor.text", R"({ "value": "raw:0102" })", {}, false, "its bits are in \"raw\"" },
    { "NulInText", "base.descriptor.text", "{ \"value\": \"A\\u0000B\" }", {}, false, "not a value" },
    { "NoText", "base.descriptor.text", R"({ "value": 5 })", { { 0x4D, "35 0A 20*11" } }, true, "", "became 5" },
    // Raw bytes: checksums stay, and bits of others count in these.
    { "Raw", gsc_szGamma, R"({ "raw": "8C" })", { { 0x17, "8C" } }, false, "", gsc_szRaw },
    { "RawOfBits", "cta.underscan", R"({ "raw": "8e" })", { { 0x83, "F1" } }, false, "", gsc_szRaw },
    { "BitsOfOthers", "cta.underscan", R"({ "raw": "0e" })", {}, false },
    { "RawChangesStructure", "cta.data-block.tag", R"({ "raw": "ef" })", { { 0x84, "EF" } }, false, "", gsc_szRaw },
    { "Checksum", "checksum", R"({ "raw": "00" })", { { 0x7F, "00" } }, false, "", gsc_szRaw },
    { "Both", gsc_szGamma, R"({ "raw": "8C", "value": 2.5 })", {}, false, gsc_szPath },
    // What does not count.
    { "NoValue", gsc_szGamma, R"({ "value": null })", {}, false },
    { "OtherText", gsc_szGamma, R"({ "text": "2.5", "notes": 7 })", {}, false, "", "\"text\" is not read" },
    { "OtherMeaning", gsc_szGamma, R"({ "meaning": "2.5" })", {}, false, "", "\"meaning\" is not read" },
    { "OtherNames", gsc_szGamma, R"({ "name": [[{}]], "unit": {}, "kind": "flag" })", {}, false },
    // What cannot be compared.
    { "UnknownId", gsc_szGamma, R"({ "id": "base.unknown" })", {}, false, "byte 0x17: this version" },
};

TEST(ChangedDocument, SaysWhatRawBytesBreak)
{
    json oDocument = json::parse(Explain(GetMonitor()));
    (*FindField(oDocument["fields"], gsc_szGamma))["raw"] = "8C";
    const std::vector<std::string> asNotes = Build(oDocument.dump()).m_asNotes;
    ASSERT_EQ(2U, asNotes.size());
    EXPECT_TRUE(asNotes[1].starts_with("check then finds: Checksum")) << asNotes[1];
}

INSTANTIATE_TEST_SUITE_P(Cases, ChangedDocument, testing::ValuesIn(gsc_aoChanges),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

// ---- Documents ----

// An image of one byte has one leaf. The tables below replace a part of this.
constexpr char gsc_szByte[] =
    R"({"format":"zoredid","version":2,"size":1,"bytes":"00","fields":[{"id":"x","raw":"00","pieces":[{"offset":0,"length":1,"mask":255}]}]})";

struct SBadDocument
{
    const char* m_pszName;
    const char* m_pszOld;
    std::string m_sNew;
    const char* m_pszProblem; // a part of it
};

void PrintTo(const SBadDocument& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }

class BadDocument : public testing::TestWithParam<SBadDocument>
{
};

TEST_P(BadDocument, IsRefused)
{
    const SBadDocument& oCase = GetParam();
    std::string sDocument = gsc_szByte;
    ASSERT_EQ(CBytes{ 0 }, Build(sDocument).m_aui8Bytes);
    const size_t uiPlace = sDocument.find(oCase.m_pszOld);
    ASSERT_NE(std::string::npos, uiPlace);
    const SBuilt oBuilt = Build(sDocument.replace(uiPlace, strlen(oCase.m_pszOld), oCase.m_sNew));
    EXPECT_TRUE(oBuilt.m_aui8Bytes.empty());
    EXPECT_NE(std::string::npos, oBuilt.m_sProblem.find(oCase.m_pszProblem)) << oBuilt.m_sProblem;
    EXPECT_EQ(std::string::npos, oBuilt.m_sProblem.find('\n'));
}

std::string Repeat(const std::string& sText, size_t uiCount)
{
    std::string sAll;
    for (; uiCount != 0; --uiCount)
    {
        sAll += sText;
    }
    return sAll;
}

const SBadDocument gsc_aoBadDocuments[] = {
    { "AnotherDocument", "zoredid", "other", "is not a document" },
    { "AnArray", gsc_szByte, "[]", "is not a document" },
    { "ANumber", gsc_szByte, "1", "is not a document" },
    { "NoFields", "fields", "other", "is not a document" },
    { "AFailure", "\"size\":1", R"("error":"a")", "has no image: a" },
    { "AnotherVersion", ":2,", ":3,", "unknown version 3" },
    { "VersionAsText", ":2,", ":\"2\",", "\"version\" is not a number" },
    { "NoSize", "size", "length", "lacks \"size\"" },
    { "NegativeSize", "size\":1", "size\":-1", "\"size\" is not" },
    { "HugeSize", "size\":1", "size\":4294967297", "\"size\" is not" },
    { "BitsMissing", "255", "254", "lacks bits of byte 0x00: a part of an image" },
    { "BytesMissing", "size\":1", "size\":2", "lacks bits of byte 0x01" },
    { "BytesTooMany", "size\":1", "size\":0", "fields past its size of 0" },
    { "NoBytes", "bytes", "other", "lacks \"bytes\"" },
    { "BytesOfAnotherSize", "bytes\":\"00", "bytes\":\"0000", "of another size" },
    { "MoreBytesThanAnImage", "bytes\":\"00", "bytes\":\"" + std::string(65538, '0'), "\"bytes\" has more than" },
    { "NoDigits", "raw\":\"00", "raw\":\"0x", "\"raw\" is not hexadecimal" },
    { "RawOfAnotherSize", "raw\":\"00", "raw\":\"0000", "\"raw\" has 2 bytes, the pieces 1" },
    { "RawAsNumber", "\"raw\":\"00\"", "\"raw\":0", "\"raw\" is not hexadecimal" },
    { "NoRaw", "raw", "other", "lacks \"raw\"" },
    { "NoPieces", "pieces", "other", "lacks \"pieces\"" },
    { "EmptyPieces", R"({"offset":0,"length":1,"mask":255})", "", "the pieces 0" },
    { "ValueIsAnObject", "\"raw\"", "\"value\":{},\"raw\"", "\"value\" is not" },
    { "ValueIsNull", "\"raw\"", "\"value\":null,\"raw\"", "\"value\" is not" },
    { "LongValue", "\"raw\"", "\"value\":\"" + std::string(5000, 'a') + "\",\"raw\"", "longer than any" },
    { "PieceIsANumber", R"({"offset":0,"length":1,"mask":255})", "0", "is not what it should be" },
    { "FieldIsAnArray", "[{\"id\"", "[[],{\"id\"", "is not what it should be" },
    { "NoMask", ",\"mask\":255", "", "lacks \"mask\"" },
    { "MaskOfNothing", "255", "0", "a piece that no image" },
    { "WideMask", "255", "256", "a piece that no image" },
    { "NoLength", "length\":1", "length\":0", "a piece that no image" },
    { "PastEveryImage", "offset\":0", "offset\":32768", "a piece that no image" },
    { "LengthThatWraps", "length\":1", "length\":4294967295", "a piece that no image" },
    { "BitsTwice", R"({"offset")", R"({"offset":0,"length":1,"mask":8},{"offset")", "byte 0x00 in two fields" },
    { "MemberTwice", "\"raw\"", R"("raw":"00","raw")", "has \"raw\" twice" },
    { "HeadTwice", "\"size\"", R"("size":1,"size")", "has \"size\" twice" },
    { "OffsetsOfText", "\"size\"", R"("offsets":["0"],"size")", "\"offsets\" are not" },
    { "CutShort", "}]}]}", "}]}", "is not JSON at byte" },
    { "NulCharacter", "\"size\"", std::string("\0\"size\"", 7), "is not JSON at byte" },
    { "NoUtf8", "\"size\"", "\"\xFF\":1,\"size\"", "is not JSON at byte" },
    { "Deep", "\"size\"", "\"other\":" + std::string(100000, '[') + ",\"size\"", "is deeper than 64" },
    { "DeepFields", "[{\"id\"", Repeat("[{\"fields\":", 100) + "[{\"id\"", "is deeper than 64" },
    { "LongText", "\"size\"", "\"" + Repeat("\\u0041", 30000) + "\":1,\"size\"", "a text or a number of more than" },
    { "LongNumber", "\"size\":1", "\"size\":0." + std::string(200000, '1'), "a text or a number of more than" },
};

INSTANTIATE_TEST_SUITE_P(Cases, BadDocument, testing::ValuesIn(gsc_aoBadDocuments),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });
} // namespace
