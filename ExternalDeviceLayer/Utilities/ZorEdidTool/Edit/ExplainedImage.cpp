// The members of a document that say what the image is, taken as they come; all others are passed over. Members may be
// in any order, as tools sort them. What a document claims is checked before anything is kept of it.

#include "ExplainedImage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <iterator>

#include "InputReaders.h"
#include "Json.h"
#include "MapText.h"

namespace
{
using CBytes = std::vector<unsigned char>;
using CPiece = CZorEdidMap::SPiece;

constexpr unsigned int gsc_uiWholeByte = 0xFF;
constexpr size_t gsc_uiMostOffsets = gsc_uiMaxSize / gsc_uiBlockSize;
constexpr size_t gsc_uiLongestName = 100;   // characters; more than any id has, and enough in a message
constexpr size_t gsc_uiLongestValue = 4096; // characters; more than any text of an EDID has

// ---- Members ----

// What an object or an array is.
enum EPlace : unsigned int
{
    ePlace_Document,
    ePlace_Fields,
    ePlace_Field,
    ePlace_Pieces,
    ePlace_Piece,
    ePlace_Offsets,
    ePlace_Other // of a member that is passed over, and all in it
};

enum EMember : unsigned int
{
    eMember_Format,
    eMember_Version,
    eMember_Error,
    eMember_Image,
    eMember_Offsets,
    eMember_Size,
    eMember_Bytes,
    eMember_Fields,
    eMember_Id,
    eMember_Value,
    eMember_Text,
    eMember_Meaning,
    eMember_Raw,
    eMember_Pieces,
    eMember_FieldsOfGroup,
    eMember_Offset,
    eMember_Length,
    eMember_Mask
};

enum EType : unsigned int // bits
{
    eType_Text = 1,
    eType_Number = 2,
    eType_Flag = 4, // true or false
    eType_Array = 8
};

struct SMember
{
    EMember m_eMember;
    EPlace m_ePlace; // of the object that it is in
    const char* m_pszName;
    unsigned int m_uiTypes;
    const char* m_pszType; // in words
    EPlace m_eInner;       // what its array is
};

constexpr SMember gsc_aoMembers[] = {
    { eMember_Format, ePlace_Document, "format", eType_Text, "a text", ePlace_Other },
    { eMember_Version, ePlace_Document, "version", eType_Number, "a number", ePlace_Other },
    { eMember_Error, ePlace_Document, "error", eType_Text, "a text", ePlace_Other },
    { eMember_Image, ePlace_Document, "image", eType_Number, "a number", ePlace_Other },
    { eMember_Offsets, ePlace_Document, "offsets", eType_Array, "an array", ePlace_Offsets },
    { eMember_Size, ePlace_Document, "size", eType_Number, "a number", ePlace_Other },
    { eMember_Bytes, ePlace_Document, "bytes", eType_Text, "hexadecimal digits", ePlace_Other },
    { eMember_Fields, ePlace_Document, "fields", eType_Array, "an array", ePlace_Fields },
    { eMember_Id, ePlace_Field, "id", eType_Text, "a text", ePlace_Other },
    { eMember_Value, ePlace_Field, "value", eType_Text | eType_Number | eType_Flag, "a number or a text",
      ePlace_Other },
    { eMember_Text, ePlace_Field, "text", eType_Text, "a text", ePlace_Other },
    { eMember_Meaning, ePlace_Field, "meaning", eType_Text, "a text", ePlace_Other },
    { eMember_Raw, ePlace_Field, "raw", eType_Text, "hexadecimal digits", ePlace_Other },
    { eMember_Pieces, ePlace_Field, "pieces", eType_Array, "an array", ePlace_Pieces },
    { eMember_FieldsOfGroup, ePlace_Field, "fields", eType_Array, "an array", ePlace_Fields },
    { eMember_Offset, ePlace_Piece, "offset", eType_Number, "a number", ePlace_Other },
    { eMember_Length, ePlace_Piece, "length", eType_Number, "a number", ePlace_Other },
    { eMember_Mask, ePlace_Piece, "mask", eType_Number, "a number", ePlace_Other },
};

constexpr unsigned int GetBit(EMember eMember) { return 1U << eMember; }

const SMember* FindMember(EPlace ePlace, std::string_view sName)
{
    const auto* const poMember = std::ranges::find_if(gsc_aoMembers, [&](const SMember& oMember) {
        return oMember.m_ePlace == ePlace && sName == oMember.m_pszName;
    });
    return poMember != std::end(gsc_aoMembers) ? poMember : nullptr;
}

bool ParseCount(std::string_view sDigits, unsigned int& uiCount)
{
    const auto [pcEnd, eError] = std::from_chars(sDigits.data(), sDigits.data() + sDigits.size(), uiCount);
    return eError == std::errc() && pcEnd == sDigits.data() + sDigits.size();
}

// ---- The document ----

// A field that is open: of a leaf all that it says.
struct SOpenField
{
    SExplainedLeaf m_oLeaf = {};
    std::string m_sId = {};
    CBytes m_aui8Raw = {};
};

class CExplainedEvents : public CJsonEvents
{
public:
    explicit CExplainedEvents(SExplained& oExplained) : m_oExplained(oExplained) {}

    bool BeginObject() override
    {
        if (m_aoLevels.empty())
        {
            return Open(ePlace_Document);
        }
        const EPlace eOuter = m_aoLevels.back().m_ePlace;
        if (eOuter == ePlace_Fields)
        {
            m_aoFields.emplace_back();
            return Open(ePlace_Field);
        }
        if (eOuter == ePlace_Pieces)
        {
            m_oPiece = {};
            return Open(ePlace_Piece);
        }
        return IsPassedOver() ? Open(ePlace_Other) : RefuseType();
    }

    bool EndObject() override
    {
        const SLevel oLevel = m_aoLevels.back();
        m_aoLevels.pop_back();
        switch (oLevel.m_ePlace)
        {
        case ePlace_Piece:
            return Require(oLevel, { eMember_Offset, eMember_Length, eMember_Mask }) && AddPiece();
        case ePlace_Field:
            return EndField(oLevel);
        case ePlace_Document:
            return EndDocument(oLevel);
        default:
            return true;
        }
    }

    bool BeginArray() override
    {
        if (m_aoLevels.empty())
        {
            return Refuse(msc_pszNone);
        }
        if (IsPassedOver())
        {
            return Open(ePlace_Other);
        }
        const SMember* const poMember = m_aoLevels.back().m_poMember;
        if (poMember == nullptr || (poMember->m_uiTypes & eType_Array) == 0)
        {
            return RefuseType();
        }
        if (poMember->m_eMember == eMember_Pieces)
        {
            m_aoFields.back().m_oLeaf.m_uiFirstPiece = m_oExplained.m_aoPieces.size();
        }
        return Open(poMember->m_eInner);
    }

    bool EndArray() override
    {
        m_aoLevels.pop_back();
        return true;
    }

    bool Name(std::string_view sName) override
    {
        SLevel& oLevel = m_aoLevels.back();
        oLevel.m_poMember = FindMember(oLevel.m_ePlace, sName);
        if (oLevel.m_poMember == nullptr)
        {
            return true;
        }
        const unsigned int uiBit = GetBit(oLevel.m_poMember->m_eMember);
        if ((oLevel.m_uiMembers & uiBit) != 0)
        {
            return Refuse("has \"" + std::string(sName) + "\" twice");
        }
        oLevel.m_uiMembers |= uiBit;
        return true;
    }

    bool Text(std::string_view sText) override { return Take(eType_Text, sText); }
    bool Number(std::string_view sDigits) override { return Take(eType_Number, sDigits); }
    bool Word(std::string_view sWord) override { return Take(sWord == "null" ? 0U : eType_Flag, sWord); }

    const std::string& GetProblem() const { return m_sProblem; }

private:
    static constexpr const char* msc_pszNone = "is not a document of zoredid explain --json";

    struct SLevel
    {
        EPlace m_ePlace;
        unsigned int m_uiMembers = 0;        // bits of those that it has
        const SMember* m_poMember = nullptr; // the present one; null for one that is passed over
    };

    bool Refuse(const std::string& sProblem)
    {
        m_sProblem = sProblem;
        return false;
    }

    bool RefuseType()
    {
        const SMember* const poMember = m_aoLevels.back().m_poMember;
        return Refuse(poMember != nullptr ? "\"" + std::string(poMember->m_pszName) + "\" is not " + poMember->m_pszType
                                          : "an element of a list is not what it should be");
    }

    bool Open(EPlace ePlace)
    {
        m_aoLevels.push_back({ ePlace });
        return true;
    }

    bool IsPassedOver() const
    {
        const SLevel& oLevel = m_aoLevels.back();
        const bool bObject =
            oLevel.m_ePlace == ePlace_Document || oLevel.m_ePlace == ePlace_Field || oLevel.m_ePlace == ePlace_Piece;
        return oLevel.m_ePlace == ePlace_Other || (bObject && oLevel.m_poMember == nullptr);
    }

    bool Require(const SLevel& oLevel, std::initializer_list<EMember> aeMembers)
    {
        for (const EMember eMember : aeMembers)
        {
            if ((oLevel.m_uiMembers & GetBit(eMember)) == 0)
            {
                return Refuse(std::string("lacks \"") + gsc_aoMembers[eMember].m_pszName + "\"");
            }
        }
        return true;
    }

    bool Take(unsigned int uiType, std::string_view sText)
    {
        if (m_aoLevels.empty())
        {
            return Refuse(msc_pszNone);
        }
        if (IsPassedOver())
        {
            return true;
        }
        if (m_aoLevels.back().m_ePlace == ePlace_Offsets)
        {
            m_oExplained.m_auiOffsets.push_back(0);
            const bool bGood = uiType == eType_Number && ParseCount(sText, m_oExplained.m_auiOffsets.back()) &&
                               m_oExplained.m_auiOffsets.size() <= gsc_uiMostOffsets;
            return bGood || Refuse("\"offsets\" are not offsets in a file");
        }
        const SMember* const poMember = m_aoLevels.back().m_poMember;
        if (poMember == nullptr || (poMember->m_uiTypes & uiType) == 0)
        {
            return RefuseType();
        }
        return m_aoLevels.back().m_ePlace == ePlace_Field ? TakeOfField(poMember->m_eMember, uiType, sText)
                                                          : TakeOther(*poMember, sText);
    }

    bool TakeOfField(EMember eMember, unsigned int uiType, std::string_view sText)
    {
        SOpenField& oField = m_aoFields.back();
        switch (eMember)
        {
        case eMember_Id:
            oField.m_sId = sText.substr(0, gsc_uiLongestName);
            return true;
        case eMember_Value:
            oField.m_oLeaf.m_bValue = true;
            oField.m_oLeaf.m_bNumber = uiType == eType_Number;
            oField.m_oLeaf.m_sValue = sText;
            return sText.size() <= gsc_uiLongestValue || Refuse("\"value\" is longer than any field");
        case eMember_Text:
            oField.m_oLeaf.m_oText = { true, HashText(sText) };
            return true;
        case eMember_Meaning:
            oField.m_oLeaf.m_oMeaning = { true, HashText(sText) };
            return true;
        default:
            return TakeHex(sText, oField.m_aui8Raw);
        }
    }

    bool TakeHex(std::string_view sDigits, CBytes& aui8Bytes)
    {
        SInput oInput;
        if (!AddHex(oInput, sDigits))
        {
            return RefuseType();
        }
        aui8Bytes = oInput.m_aui8Bytes;
        return aui8Bytes.size() <= gsc_uiMaxSize ||
               Refuse("\"" + std::string(m_aoLevels.back().m_poMember->m_pszName) + "\" has more than " +
                      std::to_string(gsc_uiMaxSize) + " bytes");
    }

    bool TakeOther(const SMember& oMember, std::string_view sText)
    {
        switch (oMember.m_eMember)
        {
        case eMember_Format:
            return sText == "zoredid" || Refuse(msc_pszNone);
        case eMember_Error:
            return Refuse("has no image: " + std::string(sText.substr(0, gsc_uiLongestName)));
        case eMember_Bytes:
            return TakeHex(sText, m_oExplained.m_aui8Read);
        case eMember_Version:
            return sText == std::to_string(gsc_uiFormatVersion) ||
                   Refuse("has the unknown version " + std::string(sText.substr(0, gsc_uiLongestName)));
        case eMember_Image:
            return ParseCount(sText, m_oExplained.m_uiImage) || RefuseType();
        case eMember_Size:
            return ParseCount(sText, m_uiSize) || RefuseType();
        case eMember_Offset:
            return ParseCount(sText, m_oPiece.m_uiOffset) || RefuseType();
        case eMember_Length:
            return ParseCount(sText, m_oPiece.m_uiLength) || RefuseType();
        default:
            return ParseCount(sText, m_uiMask) || RefuseType();
        }
    }

    bool AddPiece()
    {
        if (m_oPiece.m_uiOffset >= gsc_uiMaxSize || m_oPiece.m_uiLength > gsc_uiMaxSize - m_oPiece.m_uiOffset ||
            m_oPiece.m_uiLength == 0 || m_uiMask == 0 || m_uiMask > gsc_uiWholeByte)
        {
            return Refuse("has a piece that no image of up to " + std::to_string(gsc_uiMaxSize) + " bytes has");
        }
        m_oPiece.m_ui8Mask = static_cast<unsigned char>(m_uiMask);
        for (unsigned int i = m_oPiece.m_uiOffset; i < m_oPiece.m_uiOffset + m_oPiece.m_uiLength; ++i)
        {
            if ((m_aui8Taken[i] & m_uiMask) != 0)
            {
                return Refuse("has bits of byte 0x" + GetOffsetText(i) + " in two fields");
            }
            m_aui8Taken[i] = static_cast<unsigned char>(m_aui8Taken[i] | m_uiMask);
        }
        m_oExplained.m_aoPieces.push_back(m_oPiece);
        return true;
    }

    bool EndField(const SLevel& oLevel)
    {
        SOpenField oField = std::move(m_aoFields.back());
        m_aoFields.pop_back();
        if ((oLevel.m_uiMembers & GetBit(eMember_FieldsOfGroup)) != 0)
        {
            return !oField.m_oLeaf.m_bValue ||
                   Refuse(oField.m_sId + ": a group has no value; the fields in it have theirs");
        }
        return Require(oLevel, { eMember_Id, eMember_Raw, eMember_Pieces }) && AddLeaf(oField);
    }

    bool AddLeaf(SOpenField& oField)
    {
        SExplainedLeaf& oLeaf = oField.m_oLeaf;
        oLeaf.m_uiPieces = m_oExplained.m_aoPieces.size() - oLeaf.m_uiFirstPiece;
        const std::vector<SFieldByte> aoBytes =
            GetPieceBytes(std::span(m_oExplained.m_aoPieces).subspan(oLeaf.m_uiFirstPiece, oLeaf.m_uiPieces));
        if (aoBytes.empty() || aoBytes.size() != oField.m_aui8Raw.size())
        {
            return Refuse(oField.m_sId + ": \"raw\" has " + std::to_string(oField.m_aui8Raw.size()) +
                          " bytes, the pieces " + std::to_string(aoBytes.size()));
        }
        CBytes& aui8Built = m_oExplained.m_aui8Built;
        aui8Built.resize(std::max(aui8Built.size(), size_t{ aoBytes.back().m_uiOffset } + 1));
        for (size_t i = 0; i < aoBytes.size(); ++i)
        {
            unsigned char& ui8Byte = aui8Built[aoBytes[i].m_uiOffset];
            ui8Byte = static_cast<unsigned char>(ui8Byte | (oField.m_aui8Raw[i] & aoBytes[i].m_uiMask));
        }
        oLeaf.m_eId = CZorEdidMap::FindId(oField.m_sId.c_str());
        m_oExplained.m_aoLeaves.push_back(std::move(oLeaf));
        return true;
    }

    bool EndDocument(const SLevel& oLevel)
    {
        if ((oLevel.m_uiMembers & GetBit(eMember_Format)) == 0 || (oLevel.m_uiMembers & GetBit(eMember_Fields)) == 0)
        {
            return Refuse(msc_pszNone);
        }
        if (!Require(oLevel, { eMember_Version, eMember_Size }))
        {
            return false;
        }
        const auto* const pui8Taken =
            std::ranges::find_if(m_aui8Taken, [](unsigned char ui8Bits) { return ui8Bits != gsc_uiWholeByte; });
        const size_t uiWhole = static_cast<size_t>(pui8Taken - m_aui8Taken.begin());
        if (uiWhole < m_uiSize)
        {
            return Refuse("lacks bits of byte 0x" + GetOffsetText(static_cast<unsigned int>(uiWhole)) +
                          ": a part of an image, as --at, --block and --find print it, builds none");
        }
        if (m_oExplained.m_aui8Built.size() != m_uiSize)
        {
            return Refuse("has fields past its size of " + std::to_string(m_uiSize) + " bytes");
        }
        return Require(oLevel, { eMember_Bytes }) &&
               (m_oExplained.m_aui8Read.size() == m_uiSize ||
                Refuse("has \"bytes\" of another size than " + std::to_string(m_uiSize)));
    }

    SExplained& m_oExplained;
    std::vector<SLevel> m_aoLevels;
    std::vector<SOpenField> m_aoFields;
    CPiece m_oPiece = {};
    unsigned int m_uiMask = 0;
    unsigned int m_uiSize = 0;
    std::array<unsigned char, gsc_uiMaxSize> m_aui8Taken = {}; // bits that a field has
    std::string m_sProblem;
};
} // namespace

size_t HashText(std::string_view sText) { return std::hash<std::string_view>()(sText); }

std::string ReadExplained(CJsonReader& oReader, SExplained& oExplained)
{
    oExplained = {};
    const auto poEvents = std::make_unique<CExplainedEvents>(oExplained); // too large for the stack
    if (oReader.Read(*poEvents))
    {
        return "";
    }
    return oReader.GetProblem().empty()
               ? poEvents->GetProblem() + " (at byte " + std::to_string(oReader.GetOffset()) + ")"
               : oReader.GetProblem();
}
