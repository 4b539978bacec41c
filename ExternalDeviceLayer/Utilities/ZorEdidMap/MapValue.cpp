// Values as text: what CZorEdidMap::GetValue gives.

#include "MapValue.h"

#include "MapNames.h"
#include "ZorTools.h"

namespace ZorMap
{
namespace
{
constexpr unsigned int gsc_uiByteMask = 0xFF;
constexpr unsigned int gsc_uiMostBytes = 32768; // whole blocks; only what follows them is longer
constexpr char gsc_szDigits[] = "0123456789abcdef";

CMString FormatBytes(const unsigned char* pui8Bytes, unsigned int uiLength)
{
    constexpr unsigned int uiCharacters = 3; // of a byte
    const unsigned int uiShown = uiLength < gsc_uiMostBytes ? uiLength : gsc_uiMostBytes;
    if (uiShown == 0)
    {
        return {};
    }
    CMString oText;
    char* pszText = oText.GetBuffer(uiShown * uiCharacters);
    for (unsigned int i = 0; i < uiShown; ++i)
    {
        *pszText++ = gsc_szDigits[pui8Bytes[i] >> 4];
        *pszText++ = gsc_szDigits[pui8Bytes[i] & 0xF];
        *pszText++ = ' ';
    }
    oText.ReleaseBuffer(static_cast<int>(uiShown * uiCharacters) - 1);
    return uiShown < uiLength ? oText + " ..." : oText;
}

// Whole bytes one after the other are shown as such; other bits as one number, the most significant piece first.
CMString FormatBits(const SMapContent& oMap, const CZorEdidMap::SField& oField)
{
    const CZorEdidMap::SPiece& oFirst = oMap.m_aoPieces[oField.m_uiFirstPiece];
    if (oField.m_uiPieces == 1 && oFirst.m_ui8Mask == gsc_uiByteMask)
    {
        return FormatBytes(oMap.GetData() + oFirst.m_uiOffset, oFirst.m_uiLength);
    }
    CMString oText;
    oText.Format("0x%x", GetRaw(oMap, oField));
    return oText;
}

CMString FormatChecksum(const CZorEdidMap::SField& oField, const CRecord& oRecord)
{
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < oRecord.GetSize(); ++i)
    {
        uiSum += oRecord.GetByte(i);
    }
    const unsigned int uiStored = static_cast<unsigned int>(oField.m_llNumber) & gsc_uiByteMask;
    const unsigned int uiRight = (uiStored - uiSum) & gsc_uiByteMask;
    CMString oText;
    oText.Format("0x%02x", uiStored);
    if (uiRight != uiStored)
    {
        oText.AppendFormat(", should be 0x%02x", uiRight);
    }
    return oText;
}

CMString FormatCharacters(const SMapContent& oMap, const CZorEdidMap::SField& oField)
{
    CMString oText;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.m_aoPieces[oField.m_uiFirstPiece + i];
        for (unsigned int j = 0; j < oPiece.m_uiLength; ++j)
        {
            const unsigned char ui8Character = oMap.GetData()[oPiece.m_uiOffset + j];
            oText += ui8Character != 0 ? static_cast<char>(ui8Character) : '.';
        }
    }
    return oText;
}

// Units that are counted, and what one of them is called.
struct SCounted
{
    const char* m_pszMany;
    const char* m_pszOne;
};
constexpr SCounted gsc_aoCounted[] = {
    { "bits", "bit" },         { "bits per color", "bit per color" },
    { "blocks", "block" },     { "bytes", "byte" },
    { "channels", "channel" }, { "L-PCM channels", "L-PCM channel" },
    { "lines", "line" },       { "pixels", "pixel" },
    { "sections", "section" }, { "streams", "stream" },
    { "timings", "timing" },   { "video codes", "video code" },
};

const char* GetSingular(const char* pszUnit)
{
    for (const SCounted& oUnit : gsc_aoCounted)
    {
        if (ZorTools_strcmp(oUnit.m_pszMany, pszUnit) == 0)
        {
            return oUnit.m_pszOne;
        }
    }
    return pszUnit;
}

CMString FormatCode(const CZorEdidMap::SField& oField)
{
    CMString oText;
    oText.Format("unknown (%lld)", oField.m_llNumber);
    return oText;
}

CMString FormatField(const SMapContent& oMap, const CZorEdidMap::SField& oField, const SValueSource& oSource)
{
    if (oField.m_eKind == CZorEdidMap::eKind_Group)
    {
        const STable* poTable = oSource.m_poTable;
        if (poTable == nullptr || poTable->m_pfnSummary != nullptr)
        {
            return poTable != nullptr ? poTable->m_pfnSummary(oSource.m_oRecord) : CMString();
        }
        CZorEdidMap::SMode oMode = {};
        const bool bMode = poTable->m_pfnMode != nullptr && poTable->m_pfnMode(oSource.m_oRecord, {}, oMode);
        return bMode ? CZorEdidMap::GetModeText(oMode) : CMString();
    }
    if (oSource.m_poRow != nullptr && oSource.m_poRow->m_oForm.m_pfnText != nullptr)
    {
        return oSource.m_poRow->m_oForm.m_pfnText(oSource.m_oRecord, oSource.m_oRecord.Get(oSource.m_poRow->m_oPlace));
    }
    if (oField.m_pszMeaning != nullptr)
    {
        return oField.m_pszMeaning;
    }
    switch (oField.m_eKind)
    {
    case CZorEdidMap::eKind_Number:
    case CZorEdidMap::eKind_Flag:
        return FormatNumber(oField.m_llNumber, oField.m_uiDecimals, oField.m_pszUnit);
    case CZorEdidMap::eKind_Name:
        return FormatCode(oField);
    case CZorEdidMap::eKind_Text:
        return FormatCharacters(oMap, oField);
    case CZorEdidMap::eKind_Checksum:
        return FormatChecksum(oField, oSource.m_oRecord);
    default:
        return FormatBits(oMap, oField);
    }
}
} // namespace

CMString FormatNumber(long long llNumber, unsigned int uiDecimals, const char* pszUnit)
{
    long long llScale = 1;
    for (unsigned int i = 0; i < uiDecimals; ++i)
    {
        llScale *= 10;
    }
    const long long llSize = llNumber < 0 ? -llNumber : llNumber;
    CMString oText;
    oText.Format("%s%lld", llNumber < 0 ? "-" : "", llSize / llScale);
    if (uiDecimals != 0)
    {
        oText.AppendFormat(".%0*lld", static_cast<int>(uiDecimals), llSize % llScale);
    }
    if (pszUnit != nullptr)
    {
        oText.AppendFormat(" %s", llNumber == 1 && uiDecimals == 0 ? GetSingular(pszUnit) : pszUnit);
    }
    return oText;
}

CMString FormatValue(const SMapContent& oMap, const CZorEdidMap::SField& oField, const SValueSource& oSource)
{
    constexpr char cFirst = ' ';
    constexpr char cLast = '~';
    CMString oText = FormatField(oMap, oField, oSource);
    for (int i = 0; i < oText.GetLength(); ++i)
    {
        if (oText.GetAt(i) < cFirst || oText.GetAt(i) > cLast)
        {
            oText.SetAt(i, '.');
        }
    }
    return oText;
}

CMString FormatValue(const SMapContent& oMap, unsigned int uiField)
{
    const auto& [oField, oOrigin] = oMap.m_aoEntries[uiField];
    const CRecord oRecord(oMap.m_oFacts, oMap.GetData() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
    return FormatValue(oMap, oField, { oOrigin.m_poRow, oOrigin.m_poTable, oRecord });
}

unsigned int GetRaw(const SMapContent& oMap, const CZorEdidMap::SField& oField)
{
    unsigned int uiValue = 0;
    for (unsigned int i = 0; i < oField.m_uiPieces; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oMap.m_aoPieces[oField.m_uiFirstPiece + i];
        for (unsigned int uiBit = oPiece.m_uiLength * gsc_uiBits; uiBit-- > 0;)
        {
            const unsigned int uiInByte = uiBit % gsc_uiBits;
            if (((oPiece.m_ui8Mask >> uiInByte) & 1U) != 0)
            {
                const unsigned int uiOffset = oPiece.m_uiOffset + oPiece.m_uiLength - 1 - uiBit / gsc_uiBits;
                uiValue = (uiValue << 1) | ((oMap.GetData()[uiOffset] >> uiInByte) & 1U);
            }
        }
    }
    return uiValue;
}
} // namespace ZorMap
