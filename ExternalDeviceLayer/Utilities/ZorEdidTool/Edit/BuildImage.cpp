// Which leaves of a document were changed, and these written by SetField.

#include "BuildImage.h"

#include <stdlib.h>

#include <bit>
#include <charconv>

#include "EditSet.h"
#include "FieldEdits.h"
#include "Findings.h"
#include "MapText.h"
#include "ZorEdidWriter.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
constexpr size_t gsc_uiMostChanges = 1000; // each reads the image again

const CZorEdidMap::SPiece& GetFirstPiece(const SExplained& oExplained, const SExplainedLeaf& oLeaf)
{
    return oExplained.m_aoPieces[oLeaf.m_uiFirstPiece];
}

// The leaf with its highest bit, if it is the same one by its id.
unsigned int FindLeafOf(const CZorEdidMap& oMap, const SExplained& oExplained, const SExplainedLeaf& oLeaf)
{
    const CZorEdidMap::SPiece& oPiece = GetFirstPiece(oExplained, oLeaf);
    const unsigned int uiBit = static_cast<unsigned int>(std::bit_width(unsigned{ oPiece.m_ui8Mask })) - 1;
    const unsigned int uiField = oMap.FindLeaf(oPiece.m_uiOffset, uiBit);
    return uiField != gsc_uiNone && oMap.GetField(uiField).m_eId == oLeaf.m_eId ? uiField : gsc_uiNone;
}

bool HasSamePieces(const CZorEdidMap& oMap, unsigned int uiField, const SExplained& oExplained,
                   const SExplainedLeaf& oLeaf)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    bool bSame = oField.m_uiPieces == oLeaf.m_uiPieces;
    for (unsigned int i = 0; bSame && i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.GetPiece(oField.m_uiFirstPiece + i);
        const CZorEdidMap::SPiece& oOther = oExplained.m_aoPieces[oLeaf.m_uiFirstPiece + i];
        bSame = oPiece.m_uiOffset == oOther.m_uiOffset && oPiece.m_uiLength == oOther.m_uiLength &&
                oPiece.m_ui8Mask == oOther.m_ui8Mask;
    }
    return bSame;
}

bool IsRawChanged(const SExplained& oExplained, const SExplainedLeaf& oLeaf)
{
    for (size_t i = oLeaf.m_uiFirstPiece; i < oLeaf.m_uiFirstPiece + oLeaf.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oExplained.m_aoPieces[i];
        for (unsigned int j = oPiece.m_uiOffset; j < oPiece.m_uiOffset + oPiece.m_uiLength; ++j)
        {
            if (((oExplained.m_aui8Read[j] ^ oExplained.m_aui8Built[j]) & oPiece.m_ui8Mask) != 0)
            {
                return true;
            }
        }
    }
    return false;
}

double ParseDouble(const SExplainedLeaf& oLeaf) { return strtod(oLeaf.m_sValue.c_str(), nullptr); }

// Numbers are compared as doubles, which is how tools keep those of JSON.
bool IsValueChanged(const CZorEdidMap& oMap, unsigned int uiField, const SExplainedLeaf& oLeaf)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    if (!oLeaf.m_bValue)
    {
        return false;
    }
    switch (GetValueForm(oField))
    {
    case eValue_Number:
        return !oLeaf.m_bNumber || ParseDouble(oLeaf) != GetFieldNumber(oField);
    case eValue_Text:
        return oLeaf.m_bNumber || oLeaf.m_sValue != static_cast<const char*>(oMap.GetValue(uiField));
    default:
        return true;
    }
}

// As the writer takes it: without an exponent.
std::string GetWrittenValue(const SExplainedLeaf& oLeaf)
{
    if (!oLeaf.m_bNumber || oLeaf.m_sValue.find_first_of("eE") == std::string::npos)
    {
        return oLeaf.m_sValue;
    }
    char szDigits[1100]; // the smallest double has 1074 decimals
    const auto oResult =
        std::to_chars(szDigits, szDigits + sizeof(szDigits), ParseDouble(oLeaf), std::chars_format::fixed);
    return { szDigits, oResult.ptr };
}

// A document has its bits in a member where edit takes them after "raw:".
std::string NameMember(std::string sProblem)
{
    static constexpr char szHint[] = "; raw: writes";
    const size_t uiHint = sProblem.rfind(szHint);
    return uiHint != std::string::npos ? sProblem.replace(uiHint, sizeof(szHint) - 1, "; \"raw\" writes") : sProblem;
}

// Fields that have one line together.
struct SNotedFields
{
    const char* m_pszWhat; // of each
    std::string m_sFirst = {};
    size_t m_uiCount = 0;

    void Add(const CZorEdidMap& oMap, unsigned int uiField)
    {
        m_sFirst = m_uiCount++ == 0 ? NameField(oMap, uiField) : m_sFirst;
    }

    // A text for people that was changed, where nothing that counts was.
    void Compare(const SExplainedLeaf::SText& oText, std::string_view sExpected, const CZorEdidMap& oMap,
                 unsigned int uiField)
    {
        if (!IsText(oText, sExpected))
        {
            Add(oMap, uiField);
        }
    }

    static bool IsText(const SExplainedLeaf::SText& oText, std::string_view sExpected)
    {
        return !oText.m_bPresent || oText.m_uiHash == HashText(sExpected);
    }

    void Note(std::vector<std::string>& asNotes) const
    {
        if (m_uiCount != 0)
        {
            asNotes.push_back(m_sFirst + ": " + m_pszWhat +
                              (m_uiCount > 1 ? "; so of " + std::to_string(m_uiCount - 1) + " more" : ""));
        }
    }
};

class CBuilder
{
public:
    explicit CBuilder(const SExplained& oExplained) : m_oExplained(oExplained)
    {
        m_oRead.Read(static_cast<unsigned int>(oExplained.m_aui8Read.size()), oExplained.m_aui8Read.data());
        if (oExplained.m_aui8Built != oExplained.m_aui8Read)
        {
            m_oRaws.Read(static_cast<unsigned int>(oExplained.m_aui8Built.size()), oExplained.m_aui8Built.data());
        }
    }

    SBuilt Build()
    {
        for (const SExplainedLeaf& oLeaf : m_oExplained.m_aoLeaves)
        {
            if (!Compare(oLeaf))
            {
                return m_oBuilt;
            }
        }
        for (const SNotedFields& oNoted : { m_oRaw, m_oOtherText, m_oOtherMeaning })
        {
            oNoted.Note(m_oBuilt.m_asNotes);
        }
        m_oBuilt.m_aui8Bytes = m_oExplained.m_aui8Built;
        if (!m_apoChanged.empty())
        {
            SetValues();
        }
        if (m_oBuilt.m_sProblem.empty() && m_oBuilt.m_aui8Bytes != m_oExplained.m_aui8Read)
        {
            NoteFindings();
        }
        return m_oBuilt;
    }

private:
    bool Refuse(const std::string& sProblem)
    {
        m_oBuilt.m_sProblem = sProblem;
        return false;
    }

    // Lists the leaf if its value was changed.
    bool Compare(const SExplainedLeaf& oLeaf)
    {
        const unsigned int uiField = FindLeafOf(m_oRead, m_oExplained, oLeaf);
        if (uiField == gsc_uiNone || !HasSamePieces(m_oRead, uiField, m_oExplained, oLeaf))
        {
            return !oLeaf.m_bValue ||
                   Refuse("byte 0x" + GetOffsetText(GetFirstPiece(m_oExplained, oLeaf).m_uiOffset) +
                          ": this version reads another field there, so that its value cannot be compared");
        }
        const bool bRaw = IsRawChanged(m_oExplained, oLeaf);
        if (!IsValueChanged(m_oRead, uiField, oLeaf))
        {
            if (bRaw)
            {
                m_oRaw.Add(m_oRead, uiField);
            }
            else if (!HasTextsOfRaws(oLeaf))
            {
                m_oOtherText.Compare(oLeaf.m_oText, GetFieldValue(m_oRead, uiField), m_oRead, uiField);
                m_oOtherMeaning.Compare(oLeaf.m_oMeaning, GetMeaning(m_oRead, uiField), m_oRead, uiField);
            }
            return true;
        }
        if (bRaw)
        {
            return Refuse(NameField(m_oRead, uiField) +
                          ": both \"value\" and \"raw\" are other ones than in \"bytes\", and one of "
                          "them at most may be");
        }
        m_apoChanged.push_back(&oLeaf);
        return m_apoChanged.size() <= gsc_uiMostChanges ||
               Refuse("more than " + std::to_string(gsc_uiMostChanges) + " values were changed");
    }

    static const char* GetMeaning(const CZorEdidMap& oMap, unsigned int uiField)
    {
        const char* pszMeaning = oMap.GetField(uiField).m_pszMeaning;
        return pszMeaning != nullptr ? pszMeaning : "";
    }

    // Where "bytes" alone was changed, the raw bits are the image that was explained: so are the texts, as that of a
    // checksum over the change.
    bool HasTextsOfRaws(const SExplainedLeaf& oLeaf) const
    {
        const unsigned int uiField = m_oRaws.GetSize() != 0 ? FindLeafOf(m_oRaws, m_oExplained, oLeaf) : gsc_uiNone;
        return uiField != gsc_uiNone && SNotedFields::IsText(oLeaf.m_oText, GetFieldValue(m_oRaws, uiField)) &&
               SNotedFields::IsText(oLeaf.m_oMeaning, GetMeaning(m_oRaws, uiField));
    }

    void SetValues()
    {
        CZorEdidWriter oWriter;
        oWriter.Read(static_cast<unsigned int>(m_oBuilt.m_aui8Bytes.size()), m_oBuilt.m_aui8Bytes.data());
        for (const SExplainedLeaf* poLeaf : m_apoChanged)
        {
            m_oBuilt.m_sProblem = SetValue(oWriter, *poLeaf);
            if (!m_oBuilt.m_sProblem.empty())
            {
                return;
            }
        }
        m_oBuilt.m_aui8Bytes.assign(oWriter.GetMap().GetData(),
                                    oWriter.GetMap().GetData() + oWriter.GetMap().GetSize());
    }

    // Checksums do not follow raw bytes, which may break more.
    void NoteFindings()
    {
        CZorEdidMap oAfter;
        oAfter.Read(static_cast<unsigned int>(m_oBuilt.m_aui8Bytes.size()), m_oBuilt.m_aui8Bytes.data());
        const std::vector<std::string> asFindings =
            NameNewFindings(CheckImage(m_oRead, GetThisYear()), CheckImage(oAfter, GetThisYear()));
        m_oBuilt.m_asNotes.insert(m_oBuilt.m_asNotes.end(), asFindings.begin(), asFindings.end());
    }

    std::string SetValue(CZorEdidWriter& oWriter, const SExplainedLeaf& oLeaf)
    {
        const std::string sField = NameField(m_oRead, FindLeafOf(m_oRead, m_oExplained, oLeaf));
        const unsigned int uiField = FindLeafOf(oWriter.GetMap(), m_oExplained, oLeaf);
        if (uiField == gsc_uiNone)
        {
            return sField + ": is another field with the changed raw bytes, so that its value cannot be set";
        }
        const std::string sValue = GetWrittenValue(oLeaf);
        if (sValue.starts_with("raw:") || sValue.find('\0') != std::string::npos)
        {
            return sField + ": not a value of this field; its bits are in \"raw\"";
        }
        std::string sNote;
        const std::string sProblem = SetField(oWriter, uiField, sValue, sNote);
        m_oBuilt.m_asNotes.push_back(sNote);
        return NameMember(sProblem);
    }

    const SExplained& m_oExplained;
    CZorEdidMap m_oRead;
    CZorEdidMap m_oRaws; // of the raw bits, where they are not those of "bytes"
    std::vector<const SExplainedLeaf*> m_apoChanged;
    SNotedFields m_oRaw = { "its \"raw\" bits are written, which are other ones than in \"bytes\"" };
    SNotedFields m_oOtherText = { "\"text\" is not read, \"value\" is" };
    SNotedFields m_oOtherMeaning = { "\"meaning\" is not read, \"value\" is" };
    SBuilt m_oBuilt;
};
} // namespace

SBuilt BuildImage(const SExplained& oExplained) { return CBuilder(oExplained).Build(); }
