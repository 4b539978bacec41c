// The search for the raw value that says what is asked for: each raw value of up to 16 bits is tried, of wider leaves
// those that numbers in rising or falling order lead to.

#include "MapWrite.h"

#include <limits.h>
#include <string.h>

#include <bit>
#include <iterator>

#include "ZorTools.h"

namespace ZorMap
{
namespace
{
using CField = CZorEdidMap::SField;

constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
constexpr unsigned int gsc_uiMostTriedBits = 16;
constexpr unsigned int gsc_uiMostWalkedBits = 8; // where each trial reads the whole image

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// 0 to 15; 16 for another character.
unsigned int GetHexDigit(char c)
{
    return IsDigit(c)             ? static_cast<unsigned int>(c - '0')
           : c >= 'a' && c <= 'f' ? static_cast<unsigned int>(c - 'a') + 10
           : c >= 'A' && c <= 'F' ? static_cast<unsigned int>(c - 'A') + 10
                                  : 16;
}

const char* SkipBlanks(const char* pszText) { return pszText + strspn(pszText, " "); }

// ---- The number that is asked for ----

// Numbers are compared in more decimals than a field has, so that the nearest one is found.
constexpr unsigned int gsc_uiMoreDecimals = 3;
constexpr long long gsc_llMoreDecimals = 1000;
constexpr long long gsc_llMostNumber = 4000000000000000000LL; // beyond it all are the same, and out of range

struct SAskedNumber
{
    bool m_bNumber = false;
    bool m_bRounded = false; // more digits than are compared
    long long m_llNumber = 0;
};

void AppendDigit(SAskedNumber& oAsked, unsigned int uiBase, unsigned int uiDigit)
{
    const bool bFits = oAsked.m_llNumber < gsc_llMostNumber / uiBase;
    oAsked.m_llNumber = bFits ? oAsked.m_llNumber * uiBase + uiDigit : gsc_llMostNumber;
}

// The singular of a unit is its beginning: "1 byte".
bool IsUnit(const char* pszText, const char* pszUnit)
{
    if (*pszText == '\0')
    {
        return true;
    }
    if (pszUnit == nullptr)
    {
        return false;
    }
    CMString oOne = pszUnit;
    oOne.TrimRight("s");
    return IsSameText(pszText, pszUnit) || IsSameText(pszText, oOne);
}

// A sign, digits, decimals, a unit.
SAskedNumber ParseAsked(const char* pszText, const char* pszUnit, unsigned int uiDecimals)
{
    SAskedNumber oAsked;
    const bool bNegative = *pszText == '-';
    const char* pszNext = pszText + (bNegative || *pszText == '+' ? 1 : 0);
    const bool bHex = pszNext[0] == '0' && (pszNext[1] == 'x' || pszNext[1] == 'X');
    pszNext += bHex ? 2 : 0;
    const unsigned int uiBase = bHex ? 16 : 10;
    bool bDigits = false;
    for (; GetHexDigit(*pszNext) < uiBase; ++pszNext, bDigits = true)
    {
        AppendDigit(oAsked, uiBase, GetHexDigit(*pszNext));
    }
    unsigned int uiLeft = uiDecimals + gsc_uiMoreDecimals;
    if (*pszNext == '.' && !bHex)
    {
        for (++pszNext; IsDigit(*pszNext); ++pszNext, bDigits = true)
        {
            oAsked.m_bRounded = oAsked.m_bRounded || (uiLeft == 0 && *pszNext != '0');
            if (uiLeft != 0)
            {
                AppendDigit(oAsked, 10, GetHexDigit(*pszNext));
                --uiLeft;
            }
        }
    }
    for (; uiLeft != 0; --uiLeft)
    {
        AppendDigit(oAsked, 10, 0);
    }
    oAsked.m_llNumber = bNegative ? -oAsked.m_llNumber : oAsked.m_llNumber;
    oAsked.m_bNumber = bDigits && IsUnit(SkipBlanks(pszNext), pszUnit);
    return oAsked;
}

long long Scale(long long llNumber)
{
    constexpr long long llMost = gsc_llMostNumber / gsc_llMoreDecimals;
    return llNumber > llMost    ? gsc_llMostNumber
           : llNumber < -llMost ? -gsc_llMostNumber
                                : llNumber * gsc_llMoreDecimals;
}

// 1 or 0; any other number for other words.
unsigned int ParseFlag(const char* pszText)
{
    static constexpr const char* apszWords[] = { "no", "yes", "false", "true", "off", "on", "0", "1" };
    unsigned int uiWord = 0;
    while (uiWord < std::size(apszWords) && !IsSameText(pszText, apszWords[uiWord]))
    {
        ++uiWord;
    }
    return uiWord < std::size(apszWords) ? uiWord % 2 : gsc_uiNone;
}

// ---- What a leaf would say ----

// Findings that say that the raw value is reserved at its place, where no meaning says so.
bool IsReservedRule(EZorEdidRule eRule)
{
    return eRule == eZorEdidRule_RangeZero || eRule == eZorEdidRule_StandardTimingZero ||
           eRule == eZorEdidRule_CvtLines || eRule == eZorEdidRule_BaseMaker;
}

// A leaf with another raw value. Its row says what it means, unless the walk over the image gave it its meaning: then
// the image is read again.
class CTrial
{
public:
    CTrial(const SMapContent& oMap, unsigned int uiField) : m_oMap(oMap), m_oEntry(oMap.m_aoEntries[uiField])
    {
        const SOrigin& oOrigin = m_oEntry.m_oOrigin;
        m_aui8Record.SetCount(oOrigin.m_uiLength, -1);
        ZorTools_memcpy(m_aui8Record.GetData(), oMap.GetData() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
        m_uiRead = GetRaw(oMap, m_oEntry.m_oField);
        Put(m_uiRead);
        m_bWalk = GetText() != FormatValue(oMap, uiField);
    }

    unsigned int GetRead() const { return m_uiRead; }
    bool IsWalked() const { return m_bWalk; }

    // False where another field would take the place.
    bool Put(unsigned int uiRaw)
    {
        m_uiRaw = uiRaw;
        return m_bWalk ? PutInImage() : PutInRecord();
    }

    const CField& GetField() const { return m_oField; }

    CMString GetText() const
    {
        return m_bWalk ? FormatValue(m_oOther, m_uiOther)
                       : FormatValue(m_oMap, m_oField, { m_oEntry.m_oOrigin.m_poRow, nullptr, GetRecord() });
    }

    // Neither reserved, unknown nor out of range.
    bool IsAllowed() const
    {
        const SRow& oRow = *m_oEntry.m_oOrigin.m_poRow;
        const bool bExpected = oRow.m_oForm.m_uiExpected == SForm::msc_uiAny || m_uiRaw == oRow.m_oForm.m_uiExpected;
        const EZorEdidRule eRule = Check();
        return bExpected && eRule != eZorEdidRule_OutOfRange && !IsReserved() &&
               (m_oField.m_eKind != CZorEdidMap::eKind_Name || GetText().Find("unknown (", 0) != 0);
    }

    bool IsReserved() const { return m_oField.m_pszMeaning == gsc_szReserved || IsReservedRule(Check()); }

private:
    EZorEdidRule Check() const
    {
        const SRow& oRow = *m_oEntry.m_oOrigin.m_poRow;
        return oRow.m_pfnCheck != nullptr ? oRow.m_pfnCheck(GetRecord(), m_uiRaw).m_eRule : eZorEdidRule_None;
    }

    CRecord GetRecord() const { return { m_oMap.m_oFacts, m_aui8Record.GetData(), m_aui8Record.GetCount() }; }

    bool PutInRecord()
    {
        const SRow& oRow = *m_oEntry.m_oOrigin.m_poRow;
        oRow.m_oPlace.Write(m_aui8Record.GetData(), m_uiRaw);
        m_oField = MakeLeaf(oRow, m_oEntry.m_oField.m_eArea, GetRecord(), m_uiRaw);
        return true;
    }

    bool PutInImage()
    {
        CImageBytes aui8Image = m_oMap.m_aui8Data;
        PutRaw(m_oMap, m_oEntry.m_oField, m_uiRaw, aui8Image);
        PutInRecord();
        CMapWriter::Write(m_oOther, aui8Image.GetCount(), aui8Image.GetData());
        m_uiOther = FindLeafOf(m_oOther, m_oMap, m_oEntry.m_oField);
        m_oField = m_oOther.GetField(m_uiOther);
        return m_oField.m_eId == m_oEntry.m_oField.m_eId && m_oField.m_uiLength == m_oEntry.m_oField.m_uiLength;
    }

    const SMapContent& m_oMap;
    const SEntry& m_oEntry;
    CImageBytes m_aui8Record;
    CField m_oField = {};
    unsigned int m_uiRead = 0;
    unsigned int m_uiRaw = 0;
    bool m_bWalk = false;
    SMapContent m_oOther; // of a walk
    unsigned int m_uiOther = 0;
};

// ---- The search ----

class CSearch
{
public:
    CSearch(const SMapContent& oMap, unsigned int uiField, const char* pszValue)
        : m_oMap(oMap), m_uiField(uiField), m_oTrial(oMap, uiField), m_oField(oMap.GetField(uiField)),
          m_pszValue(pszValue), m_oAsked(ParseAsked(pszValue, m_oField.m_pszUnit, m_oField.m_uiDecimals)),
          m_uiFlag(ParseFlag(pszValue)), m_uiBits(CountBits(oMap, m_oField))
    {
    }

    SRawChoice Run()
    {
        if (m_oTrial.Put(m_oTrial.GetRead()) && IsSameText(m_pszValue, m_oTrial.GetText()))
        {
            Take(m_oTrial.GetRead(), true);
            return m_oChoice;
        }
        if (IsWide())
        {
            ConsiderWide();
        }
        else
        {
            Consider(m_oTrial.GetRead()); // preferred to others that are as near
            for (unsigned int i = 0; i < 1U << m_uiBits; ++i)
            {
                Consider(i);
            }
        }
        Judge();
        return m_oChoice;
    }

    void ListNames(CMArrayString& aoNames)
    {
        m_iMostLength = INT_MAX;
        FindNames();
        aoNames = m_aoNames;
    }

private:
    // The least or the most of all numbers.
    struct SEnd
    {
        unsigned int m_uiRaw;
        long long m_llNumber;
    };

    // Too many values to be tried one by one.
    bool IsWide() const
    {
        return m_uiBits > gsc_uiMostTriedBits || (m_oTrial.IsWalked() && m_uiBits > gsc_uiMostWalkedBits);
    }

    bool IsNumber() const { return m_oField.m_eKind == CZorEdidMap::eKind_Number; }
    unsigned int GetMostRaw() const { return gsc_uiNone >> (32 - m_uiBits); }

    void Take(unsigned int uiRaw, bool bExact)
    {
        m_oChoice.m_bFound = true;
        m_oChoice.m_bExact = bExact;
        m_oChoice.m_uiRaw = uiRaw;
        m_oTrial.Put(uiRaw);
        m_oChoice.m_oText = m_oTrial.GetText();
        m_bNamed = m_bNamed || bExact;
    }

    // Whether words say it: its text, its meaning, or of a flag and a code their number.
    bool IsNamed(const CMString& oText) const
    {
        const CField& oField = m_oTrial.GetField();
        if (IsSameText(m_pszValue, oText) ||
            (oField.m_pszMeaning != nullptr && IsSameText(m_pszValue, oField.m_pszMeaning)))
        {
            return true;
        }
        if (oField.m_eKind == CZorEdidMap::eKind_Flag)
        {
            return m_uiFlag == static_cast<unsigned int>(oField.m_llNumber);
        }
        return oField.m_eKind == CZorEdidMap::eKind_Name && m_oAsked.m_bNumber && !m_oAsked.m_bRounded &&
               m_oAsked.m_llNumber == Scale(oField.m_llNumber);
    }

    void Consider(unsigned int uiRaw)
    {
        if (m_bNamed || !m_oTrial.Put(uiRaw))
        {
            return;
        }
        const CField oField = m_oTrial.GetField();
        // Of numbers that are nothing but numbers, no text is made.
        const bool bPlain = oField.m_bNumber && oField.m_pszMeaning == nullptr && m_oAsked.m_bNumber;
        const bool bNamed = !bPlain && IsNamed(m_oTrial.GetText());
        if (!m_oTrial.IsAllowed())
        {
            const bool bReserved = bPlain && m_oAsked.m_llNumber == Scale(oField.m_llNumber) && m_oTrial.IsReserved();
            m_bNotAllowed = m_bNotAllowed || bNamed || bReserved;
            m_bReserved = m_bReserved || bReserved;
            return;
        }
        if (bNamed)
        {
            Take(uiRaw, true);
            return;
        }
        if (oField.m_bNumber)
        {
            ConsiderNumber(uiRaw, oField.m_llNumber);
        }
    }

    void ConsiderNumber(unsigned int uiRaw, long long llNumber)
    {
        m_oLeast = m_bNumbers && m_oLeast.m_llNumber < llNumber ? m_oLeast : SEnd{ uiRaw, llNumber };
        m_oMost = m_bNumbers && m_oMost.m_llNumber > llNumber ? m_oMost : SEnd{ uiRaw, llNumber };
        m_bNumbers = true;
        const long long llScaled = Scale(llNumber);
        const long long llDistance =
            llScaled < m_oAsked.m_llNumber ? m_oAsked.m_llNumber - llScaled : llScaled - m_oAsked.m_llNumber;
        if (IsNumber() && m_oAsked.m_bNumber && (!m_bNearest || llDistance < m_llDistance))
        {
            m_bNearest = true;
            m_llDistance = llDistance;
            m_uiNearest = uiRaw;
        }
    }

    // ---- What a refusal offers: values that are accepted ----

    // Finds the next accepted number, of those that rise or fall with the raw value. False if none is.
    bool Narrow(SEnd& oEnd, bool bUp)
    {
        constexpr unsigned int uiMostSteps = 256;
        for (unsigned int i = 0; i < uiMostSteps; ++i)
        {
            if (IsAcceptedRaw(m_oMap, m_uiField, oEnd.m_uiRaw))
            {
                return true;
            }
            const SEnd oBefore = oEnd;
            for (const unsigned int uiRaw : { oBefore.m_uiRaw + 1, oBefore.m_uiRaw - 1 })
            {
                const bool bBits = uiRaw <= GetMostRaw();
                const bool bAllowed =
                    bBits && m_oTrial.Put(uiRaw) && m_oTrial.IsAllowed() && m_oTrial.GetField().m_bNumber;
                const long long llNumber = bAllowed ? m_oTrial.GetField().m_llNumber : oBefore.m_llNumber;
                if (bUp ? llNumber > oBefore.m_llNumber : llNumber < oBefore.m_llNumber)
                {
                    oEnd = { uiRaw, llNumber };
                }
            }
            if (oEnd.m_uiRaw == oBefore.m_uiRaw)
            {
                return false;
            }
        }
        return false;
    }

    void FindNames()
    {
        if (m_oField.m_eId == eId_BaseIdentityManufacturer)
        {
            return;
        }
        if (IsWide()) // whose names are those of the ends, such as "not given"
        {
            FindName(0);
            FindName(GetMostRaw());
            return;
        }
        for (unsigned int i = 0; i < 1U << m_uiBits; ++i)
        {
            FindName(i);
        }
    }

    void FindName(unsigned int uiRaw)
    {
        if (m_oTrial.Put(uiRaw) && m_oTrial.IsAllowed() && !m_oTrial.GetField().m_bNumber)
        {
            AddName(uiRaw);
        }
    }

    void AddName(unsigned int uiRaw)
    {
        const CMString oText = m_oTrial.GetText();
        const bool bLast = m_aoNames.GetCount() != 0 && oText == m_aoNames[m_aoNames.GetCount() - 1];
        if (m_iNameLength > m_iMostLength || bLast)
        {
            m_bMoreNames = m_bMoreNames || !bLast;
            return;
        }
        if (!IsAcceptedRaw(m_oMap, m_uiField, uiRaw))
        {
            return;
        }
        m_iNameLength += oText.GetLength();
        m_aoNames.Add(oText);
    }

    // What a refusal says of names.
    CMString DescribeNames()
    {
        if (m_oField.m_eId == eId_BaseIdentityManufacturer)
        {
            return "three letters A to Z";
        }
        if (m_uiBits > gsc_uiMostTriedBits && !IsNumber())
        {
            return "a code such as 00-0C-03";
        }
        FindNames();
        return m_aoNames.Join(", ") + (m_bMoreNames ? " ..." : "");
    }

    // The first raw value from uiFirst on for which fnIsPast is true; it is for all that follow.
    template <class IS_PAST>
    static unsigned int Bisect(unsigned int uiFirst, unsigned int uiLast, IS_PAST fnIsPast)
    {
        while (uiFirst < uiLast)
        {
            const unsigned int uiMiddle = uiFirst + (uiLast - uiFirst) / 2;
            const bool bPast = fnIsPast(uiMiddle);
            uiFirst = bPast ? uiFirst : uiMiddle + 1;
            uiLast = bPast ? uiMiddle : uiLast;
        }
        return uiFirst;
    }

    // Of two's complement and of signed fractions each half rises or falls.
    void ConsiderWide()
    {
        const unsigned int uiMost = GetMostRaw();
        const unsigned int uiHalf = uiMost / 2;
        Consider(m_oTrial.GetRead());
        Consider(0);
        Consider(1); // the least number where 0 is "not given", which the search below takes for past it
        Consider(uiHalf);
        Consider(uiMost);
        for (const bool bRising : { true, false })
        {
            for (const unsigned int uiFirst : { 0U, uiHalf + 1 })
            {
                const unsigned int uiFound = Bisect(uiFirst, uiFirst + uiHalf, [&](unsigned int uiRaw) {
                    const CField& oField = m_oTrial.Put(uiRaw) ? m_oTrial.GetField() : m_oField;
                    const long long llNumber = Scale(oField.m_llNumber);
                    return !oField.m_bNumber ||
                           (bRising ? llNumber >= m_oAsked.m_llNumber : llNumber <= m_oAsked.m_llNumber);
                });
                Consider(uiFound);
                Consider(uiFound == 0 ? uiFound : uiFound - 1);
            }
        }
        CImageBytes aui8Bytes;
        const CMString oCode = CMString(m_pszValue).Left(static_cast<int>(strcspn(m_pszValue, " ")));
        if (ParseHexBytes(oCode, aui8Bytes) && aui8Bytes.GetCount() * gsc_uiBits == m_uiBits)
        {
            unsigned int uiRaw = 0;
            for (unsigned int i = 0; i < aui8Bytes.GetCount(); ++i)
            {
                uiRaw = (uiRaw << gsc_uiBits) | aui8Bytes[i];
            }
            ConsiderCode(uiRaw, oCode);
        }
    }

    // A code of three bytes, whose name may follow it.
    void ConsiderCode(unsigned int uiRaw, const CMString& oCode)
    {
        if (!m_bNamed && m_oTrial.Put(uiRaw) && m_oTrial.IsAllowed() &&
            m_oTrial.GetField().m_eKind == CZorEdidMap::eKind_Name &&
            IsSameText(oCode, m_oTrial.GetText().Left(oCode.GetLength())))
        {
            Take(uiRaw, IsSameText(m_pszValue, oCode) || IsSameText(m_pszValue, m_oTrial.GetText()));
        }
    }

    CMString GetAllowed()
    {
        if (m_oField.m_eId == eId_CtaHdmiPhysicalAddress) // as it is shown, with hexadecimal digits
        {
            return "0.0.0.0 to f.f.f.f";
        }
        CMString oAllowed;
        const CMString oNames = DescribeNames();
        const bool bNumbers = m_bNumbers && Narrow(m_oLeast, true) && Narrow(m_oMost, false);
        if (bNumbers)
        {
            oAllowed = m_oLeast.m_llNumber == m_oMost.m_llNumber
                           ? CMString()
                           : FormatNumber(m_oLeast.m_llNumber, m_oField.m_uiDecimals, nullptr) + " to ";
            oAllowed += FormatNumber(m_oMost.m_llNumber, m_oField.m_uiDecimals, m_oField.m_pszUnit);
        }
        if (oNames.GetLength() != 0)
        {
            oAllowed += bNumbers ? ", or " : "";
            oAllowed += oNames;
        }
        return oAllowed;
    }

    void Judge()
    {
        const bool bInRange = m_bNearest && !m_bReserved && m_oAsked.m_llNumber >= Scale(m_oLeast.m_llNumber) &&
                              m_oAsked.m_llNumber <= Scale(m_oMost.m_llNumber);
        if (!m_oChoice.m_bFound && bInRange)
        {
            Take(m_uiNearest, m_llDistance == 0 && !m_oAsked.m_bRounded);
        }
        if (!m_oChoice.m_bFound)
        {
            const CMString oAllowed = GetAllowed();
            m_oChoice.m_oReason =
                m_bNotAllowed ? "a reserved, unknown or forbidden value" : "not a value of this field";
            m_oChoice.m_oReason = m_bNearest && !m_bReserved ? "out of range" : m_oChoice.m_oReason;
            m_oChoice.m_oReason += oAllowed.GetLength() != 0 ? "; it takes " + oAllowed : CMString();
        }
    }

    const SMapContent& m_oMap;
    unsigned int m_uiField;
    CTrial m_oTrial;
    const CField& m_oField;
    const char* m_pszValue;
    SAskedNumber m_oAsked;
    unsigned int m_uiFlag;
    unsigned int m_uiBits;
    SRawChoice m_oChoice;
    bool m_bNamed = false;
    bool m_bNotAllowed = false; // it is the text of a value that is not allowed
    bool m_bReserved = false;   // it is the number of a reserved value, and no other is taken in its place
    bool m_bNumbers = false;    // there are any, from m_oLeast to m_oMost
    SEnd m_oLeast = { 0, 0 };
    SEnd m_oMost = { 0, 0 };
    bool m_bNearest = false;
    long long m_llDistance = 0;
    unsigned int m_uiNearest = 0;
    CMArrayString m_aoNames;
    int m_iNameLength = 0;
    int m_iMostLength = 600; // of the names of a refusal, which end with the one that goes past it
    bool m_bMoreNames = false;
};
} // namespace

bool ParseWholeNumber(const char* pszText, const char* pszUnit, unsigned int& uiNumber)
{
    const SAskedNumber oAsked = ParseAsked(pszText, pszUnit, 0);
    const bool bWhole = oAsked.m_bNumber && !oAsked.m_bRounded && oAsked.m_llNumber % gsc_llMoreDecimals == 0 &&
                        oAsked.m_llNumber >= 0 && oAsked.m_llNumber <= Scale(gsc_uiNone);
    uiNumber = bWhole ? static_cast<unsigned int>(oAsked.m_llNumber / gsc_llMoreDecimals) : 0;
    return bWhole;
}

void ListNames(const SMapContent& oMap, unsigned int uiField, CMArrayString& aoNames)
{
    CSearch(oMap, uiField, "").ListNames(aoNames);
}

SRawChoice ChooseRaw(const SMapContent& oMap, unsigned int uiField, const char* pszValue)
{
    return CSearch(oMap, uiField, pszValue).Run();
}

unsigned int FindLeafOf(const SMapContent& oOther, const SMapContent& oMap, const CZorEdidMap::SField& oField)
{
    const CZorEdidMap::SPiece& oPiece = oMap.m_aoPieces[oField.m_uiFirstPiece];
    const auto uiHigh = static_cast<unsigned int>(std::bit_width(unsigned{ oPiece.m_ui8Mask })) - 1;
    return oOther.FindLeaf(oPiece.m_uiOffset, uiHigh);
}

unsigned int CountBits(const SMapContent& oMap, const CZorEdidMap::SField& oField)
{
    unsigned int uiBits = 0;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.m_aoPieces[oField.m_uiFirstPiece + i];
        uiBits += static_cast<unsigned int>(std::popcount(unsigned{ oPiece.m_ui8Mask })) * oPiece.m_uiLength;
    }
    return uiBits;
}

void PutRaw(const SMapContent& oMap, const CZorEdidMap::SField& oField, unsigned int uiRaw, CImageBytes& aui8Image)
{
    for (unsigned int i = oField.m_uiPieces; i > 0; --i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.m_aoPieces[oField.m_uiFirstPiece + i - 1];
        for (unsigned int uiOffset = oPiece.m_uiOffset + oPiece.m_uiLength; uiOffset > oPiece.m_uiOffset; --uiOffset)
        {
            unsigned char& ui8Byte = aui8Image[uiOffset - 1];
            for (unsigned int uiMask = oPiece.m_ui8Mask; uiMask != 0; uiMask &= uiMask - 1, uiRaw >>= 1)
            {
                const unsigned int uiBit = uiMask & (~uiMask + 1);
                ui8Byte = static_cast<unsigned char>((uiRaw & 1U) != 0 ? ui8Byte | uiBit : ui8Byte & ~uiBit);
            }
        }
    }
}

bool ParseRaw(const char* pszText, unsigned int& uiRaw)
{
    const bool bHex = pszText[0] == '0' && (pszText[1] == 'x' || pszText[1] == 'X');
    const char* pszNext = pszText + (bHex ? 2 : 0);
    const unsigned int uiBase = bHex ? 16 : 10;
    unsigned long long ullRaw = 0;
    const char* pszFirst = pszNext;
    for (; GetHexDigit(*pszNext) < uiBase && ullRaw <= gsc_uiNone; ++pszNext)
    {
        ullRaw = ullRaw * uiBase + GetHexDigit(*pszNext);
    }
    uiRaw = static_cast<unsigned int>(ullRaw);
    return pszNext != pszFirst && *pszNext == '\0' && ullRaw <= gsc_uiNone;
}

bool ParseHexBytes(const char* pszText, CImageBytes& aui8Bytes)
{
    const size_t uiLength = strlen(pszText);
    aui8Bytes.RemoveAll();
    aui8Bytes.SetSize(0, static_cast<int>(uiLength / 2 + 1));
    for (const char* pszNext = pszText; *pszNext != '\0'; pszNext += 2, pszNext += strspn(pszNext, " -:"))
    {
        const unsigned int uiHigh = GetHexDigit(pszNext[0]);
        const unsigned int uiLow = uiHigh < 16 ? GetHexDigit(pszNext[1]) : 16;
        if (uiLow >= 16)
        {
            return false;
        }
        aui8Bytes.Add(static_cast<unsigned char>(uiHigh << 4 | uiLow));
    }
    return aui8Bytes.GetCount() != 0;
}

bool IsSameText(const char* pszFirst, const char* pszSecond)
{
    const auto fnLower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    for (; *pszFirst != '\0' && fnLower(*pszFirst) == fnLower(*pszSecond); ++pszFirst, ++pszSecond)
    {
    }
    return *pszFirst == '\0' && *pszSecond == '\0';
}
} // namespace ZorMap
