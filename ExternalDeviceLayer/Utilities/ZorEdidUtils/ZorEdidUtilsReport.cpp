// The monitor report, section by section in printed order. What the extended report adds to it is in
// ZorEdidUtilsReportExt.cpp.

#include "ZorEdidUtils.h"

#include "EdidUtils.h"
#include "Standards/BaseBlock.h"
#include "ZorAssert.h"
#include "ZorEdidUtilsReport.h"

using namespace ZorUtils;
using namespace ZorStandards::BaseBlock;

namespace
{
// The monitor report without additions: all blocks bear one type.
class CPlainReport final : public CMonitorReport
{
public:
    using CMonitorReport::CMonitorReport;

protected:
    void AddDigitalInterface() override {}
    CMString GetTypeText(const CEdidExtBlock& /*oBlock*/) override { return "Timing extension"; }
    void AddBlockDigest(const CEdidExtBlock& /*oBlock*/) override {}
    void AddExtStandardNative() override {}
};
} // namespace

void CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(const CEdid& oEdid, CMArrayString& oLines,
                                                      const char* pszLinePrefix)
{
    SModes oModes;
    if (ExtractOrEmpty(oEdid, oModes, oLines))
    {
        CPlainReport(oEdid, GetReportedModes(oModes), pszLinePrefix).Write(oLines);
    }
}

void CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(const CEdid& oEdid, const CVidParamTimingGeneric& oPreferred,
                                                      const CModeList& oEstablishedVesa,
                                                      const CModeList& oEstablishedAll, const CModeList& oBaseStandard,
                                                      const CModeList& oBaseDetailed, const CModeList& oExtStandard,
                                                      const CModeList& oExtDetailed, CMArrayString& oLines,
                                                      const char* pszLinePrefix)
{
    const SReportedModes oModes = { oPreferred,    oEstablishedVesa, oEstablishedAll, oBaseStandard,
                                    oBaseDetailed, oExtStandard,     oExtDetailed };
    CPlainReport(oEdid, oModes, pszLinePrefix).Write(oLines);
}

namespace
{
struct SExtensionType
{
    unsigned int m_uiTag;
    const char* m_pszName;
};

constexpr SExtensionType gsc_aoExtensionTypes[] = {
    { gsc_uiCeaExtensionTag, "EIA/CEA 861" },
    { 16, "Video timing block" },
    { 64, "Display information" },
    { 80, "Localized String" },
    { 96, "Digital Packet Video Link" },
    { 112, "DisplayID" },
    { 240, "Map" },
    { 255, "Defined by manufacturer" },
};
} // namespace

CMString CZorEdidUtils::GetExtensionType(const CEdidExtBlock& oBlock)
{
    for (const SExtensionType& oType : gsc_aoExtensionTypes)
    {
        if (oType.m_uiTag == oBlock.GetExtensionType())
        {
            return oType.m_pszName;
        }
    }
    return "Unknown";
}

// ---- Elements ----

namespace
{
constexpr char gsc_szSpacer[] = "\n";
constexpr char gsc_szSeparator[] = "------------------------------------------------------------------------------";
static_assert(sizeof(gsc_szSeparator) - 1 == 78);
} // namespace

CReportLines::CReportLines(const char* pszLinePrefix)
    : m_oLinePrefix(pszLinePrefix), m_oSpacer(m_oLinePrefix + gsc_szSpacer),
      m_oSeparator(m_oLinePrefix + gsc_szSeparator)
{
    m_oLines.SetSize(0, msc_iGrowth);
}

void CReportLines::BeginSection(const char* pszTitle)
{
    AddSeparator();
    Add(pszTitle);
    AddSpacer();
}

void CReportLines::EndSection()
{
    AddSeparator();
    Add("\n\n");
}

// ---- The report ----

bool ZorUtils::ExtractOrEmpty(const CEdid& oEdid, SModes& oModes, CMArrayString& oLines)
{
    if (!oModes.Extract(oEdid))
    {
        MASSERT_FAILED();
        oLines.RemoveAll();
        return false;
    }
    return true;
}

void CMonitorReport::Write(CMArrayString& oLines)
{
    oLines.RemoveAll();
    AddGenericInformation();
    AddExtensions();
    AddSupportedTimings();
    AddRawData();
    oLines = m_oReport.GetLines();
}

namespace
{
constexpr unsigned int gsc_uiNameBufferSize = 64;

const char* ValidOrNot(int bValid) { return bValid != 0 ? "Valid" : "Not valid"; }
} // namespace

void CMonitorReport::AddGenericInformation()
{
    m_oReport.BeginSection("                           Generic Monitor Information\n");
    AddIdentity();
    m_oReport.Add(CTextLine("  Preferred mode:              ")
                      .Decimal(m_oModes.m_oPreferred.GetHorizontalActive())
                      .Text(" x ")
                      .Decimal(m_oModes.m_oPreferred.GetVerticalActive())
                      .Text(" @ ")
                      .Decimal(m_oModes.m_oPreferred.GetVerticalRateInHz())
                      .Text(".00 Hz"));
    m_oReport.AddSpacer();
    const bool bDigital = (GetBaseByte(gsc_uiVideoInputOffset) & gsc_uiDigitalMask) != 0;
    m_oReport.Add(CTextLine("  Monitor signal type:         ").Text(bDigital ? "Digital" : "Analog"));
    AddDigitalInterface();
    m_oReport.AddSpacer();
    m_oReport.Add(CTextLine("  Extension(s):                ").Decimal(m_oEdid.GetExtensionCount()));
    m_oReport.AddSpacer();
    m_oReport.EndSection();
}

void CMonitorReport::AddIdentity()
{
    const SManufacturerCode oCode = ReadManufacturerCode(m_oEdid.GetBaseBlock());
    char szManufacturer[gsc_uiNameBufferSize] = {};
    char szMonitor[gsc_uiNameBufferSize] = {};
    m_oEdid.GetManufacturerName(szManufacturer, sizeof(szManufacturer)); // without a name the text stays empty
    m_oEdid.GetMonitorName(szMonitor, sizeof(szMonitor));

    m_oReport.Add(CTextLine("  EDID version:                ")
                      .Decimal(GetBaseByte(gsc_uiVersionOffset))
                      .Text(".")
                      .Decimal(GetBaseByte(gsc_uiRevisionOffset)));
    m_oReport.AddSpacer();
    m_oReport.Add(
        CTextLine("  Manufacturer name:           ").Text(oCode.m_szCode).Text(" (").Text(szManufacturer).Text(")"));
    m_oReport.Add(CTextLine("  Product code:                ").Hex(ReadProductCode(m_oEdid.GetBaseBlock()), 4));
    m_oReport.Add(CTextLine("  Monitor name:                ").Text(szMonitor));
    m_oReport.Add(CTextLine("  Serial number:               ").Decimal(ReadSerialNumber(m_oEdid.GetBaseBlock())));
    m_oReport.AddSpacer();
    m_oReport.Add(CTextLine("  Week of manufacture:         ").Decimal(GetBaseByte(gsc_uiWeekOffset)));
    m_oReport.Add(
        CTextLine("  Year of manufacture:         ").Decimal(GetBaseByte(gsc_uiYearOffset) + gsc_uiFirstYear));
    m_oReport.AddSpacer();
}

void CMonitorReport::AddExtensions()
{
    if (m_oEdid.GetExtensionCount() == 0)
    {
        return;
    }
    m_oReport.BeginSection("                           Extension(s) Information");
    for (unsigned int i = 0; i < m_oEdid.GetExtensionCount(); ++i)
    {
        if (const CEdidExtBlock* poBlock = m_oEdid.GetExtension(i))
        {
            AddExtension(i, *poBlock);
        }
    }
}

void CMonitorReport::AddExtension(unsigned int uiIndex, const CEdidExtBlock& oBlock)
{
    m_oReport.Add(CTextLine("  Extension #").Decimal(uiIndex + 1));
    m_oReport.AddSpacer();
    m_oReport.Add(CTextLine("      Type:                    ").Text(GetTypeText(oBlock)));
    m_oReport.Add(CTextLine("      Revision:                ").Decimal(oBlock.GetRevision()));
    m_oReport.Add(CTextLine("      Checksum:                ").Text(ValidOrNot(oBlock.IsChecksumValid())));
    m_oReport.AddSpacer();
    AddBlockDigest(oBlock);
    m_oReport.EndSection();
}

void CMonitorReport::AddSupportedTimings()
{
    m_oReport.BeginSection("                          Monitor Supported Timings");
    m_oReport.Add("  Established timing(s):");
    m_oReport.AddSpacer();
    AddEstablishedTimings();
    m_oReport.AddSpacer();
    m_oReport.Add("  Standard timing(s):");
    m_oReport.AddSpacer();
    AddTimings(m_oModes.m_oBaseStandard, "");
    m_oReport.AddSpacer();
    m_oReport.Add("  Detailed timing(s):");
    m_oReport.AddSpacer();
    AddTimings(m_oModes.m_oBaseDetailed, "");
    m_oReport.AddSpacer();
    m_oReport.Add("  Extension block(s) timing(s):\n");
    m_oReport.AddSpacer();
    AddExtStandardNative();
    AddTimings(m_oModes.m_oExtStandard, "");
    AddTimings(m_oModes.m_oExtDetailed, "");
    m_oReport.AddSpacer();
    m_oReport.EndSection();
}

namespace
{
// The tolerance of the comparison is that of the list's entry.
bool IsListed(const CZorEdidUtils::CModeList& oList, const CVidParamTimingGeneric& oTiming)
{
    for (unsigned int i = 0; i < oList.GetCount(); ++i)
    {
        if ((oList[i] == oTiming) != 0)
        {
            return true;
        }
    }
    return false;
}
} // namespace

void CMonitorReport::AddEstablishedTimings()
{
    const CZorEdidUtils::CModeList& oAll = m_oModes.m_oEstablishedAll;
    for (unsigned int i = 0; i < oAll.GetCount(); ++i)
    {
        AddTiming(oAll[i], IsListed(m_oModes.m_oEstablishedVesa, oAll[i]) ? "" : " (Not VESA compliant)");
    }
}

void CMonitorReport::AddTimings(const CZorEdidUtils::CModeList& oTimings, const char* pszMark)
{
    for (unsigned int i = 0; i < oTimings.GetCount(); ++i)
    {
        AddTiming(oTimings[i], pszMark);
    }
}

void CMonitorReport::AddTiming(const CVidParamTimingGeneric& oTiming, const char* pszMark)
{
    m_oReport.Add(CTextLine("        ")
                      .Decimal(oTiming.GetHorizontalActive(), 4)
                      .Text(" x ")
                      .Decimal(oTiming.GetVerticalActive(), 4)
                      .Text(" @ ")
                      .Decimal(oTiming.GetVerticalRateInHz())
                      .Text(".00 Hz")
                      .Text(pszMark));
}

void CMonitorReport::AddRawData()
{
    const CZorEdidUtils::CByteArray oImage = m_oEdid.GetEdidBuffer();
    CMArrayString oDump; // its lines bear the prefix already
    CEdidUtils::GetFormatedEdidDataStrings(oImage.GetCount(), oImage.GetData(), oDump, m_oReport.GetLinePrefix());

    m_oReport.BeginSection("                            Monitor EDID Raw Data");
    m_oReport.Append(oDump);
    m_oReport.Add(CTextLine("  Checksum is ").Text(ValidOrNot(m_oEdid.IsChecksumValid())));
    m_oReport.AddSpacer();
    m_oReport.AddSeparator();
}
