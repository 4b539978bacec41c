// What the reports share: adding elements, and the monitor report with the places where the extended one differs.
// Not installed.

#pragma once

#include "EdidTextLine.h"
#include "ZorEdidUtils.h"
#include "ZorEdidUtilsModes.h"

namespace ZorUtils
{

using ZorCore::CTextLine;

inline constexpr unsigned int gsc_uiCeaExtensionTag = 2; // of a CTA-861 block

// Appends all fields of a timing as the full form of CZorEdidUtils::GetFormatedVideoParam has them.
CTextLine& AppendAllFields(CTextLine& oLine, const SVidParamGenericData& oData);

// Collects the elements of a report, each after the line prefix.
class CReportLines
{
public:
    explicit CReportLines(const char* pszLinePrefix);

    void Add(const char* pszText) { m_oLines.Add(m_oLinePrefix + pszText); }
    void Add(CTextLine& oLine) { Add(oLine.Get()); }

    // The elements that come again and again share one text each: 9 % of the instructions of a report.
    void AddSpacer() { m_oLines.Add(m_oSpacer); }
    void AddSeparator() { m_oLines.Add(m_oSeparator); }

    // What each section opens with: separator, title, spacer.
    void BeginSection(const char* pszTitle);
    // What all sections but the last close with, and each extension block too: separator, spacer of two line feeds.
    void EndSection();

    // Elements that bear the prefix already.
    void Append(const CMArrayString& oLines) { m_oLines.Append(oLines); }

    const CMArrayString& GetLines() const { return m_oLines; }
    const char* GetLinePrefix() const { return m_oLinePrefix; }

private:
    // Elements; a report has about a hundred. Growth by the array's own steps took 5 % of the instructions of a report.
    static constexpr int msc_iGrowth = 128;

    CMArrayString m_oLines;
    const CMString m_oLinePrefix;
    const CMString m_oSpacer;
    const CMString m_oSeparator;
};

// The lists that the monitor report prints, with the meaning that ExtractModeList gives them. The caller's.
struct SReportedModes
{
    const CVidParamTimingGeneric& m_oPreferred;
    const CZorEdidUtils::CModeList& m_oEstablishedVesa; // only to mark the entries of m_oEstablishedAll
    const CZorEdidUtils::CModeList& m_oEstablishedAll;
    const CZorEdidUtils::CModeList& m_oBaseStandard;
    const CZorEdidUtils::CModeList& m_oBaseDetailed;
    const CZorEdidUtils::CModeList& m_oExtStandard;
    const CZorEdidUtils::CModeList& m_oExtDetailed;
};

inline SReportedModes GetReportedModes(const SModes& oModes)
{
    return { oModes.m_oPreferred,    oModes.m_oEstablishedVesa, oModes.m_oEstablishedAll, oModes.m_oBaseStandard,
             oModes.m_oBaseDetailed, oModes.m_oExtStandard,     oModes.m_oExtDetailed };
}

// What the short forms of both reports open with. False, with an assertion line and no lines, where the EDID has no
// modes to report; on success the lines are left alone, since the prefix may be one of them.
bool ExtractOrEmpty(const CEdid& oEdid, SModes& oModes, CMArrayString& oLines);

// The monitor report. Refers to its arguments, which must outlive it.
class CMonitorReport
{
public:
    // The prefix is copied: it may be one of the lines that the report replaces.
    CMonitorReport(const CEdid& oEdid, const SReportedModes& oModes, const char* pszLinePrefix)
        : m_oEdid(oEdid), m_oModes(oModes), m_oReport(pszLinePrefix)
    {
    }
    CMonitorReport(const CMonitorReport&) = delete;
    CMonitorReport& operator=(const CMonitorReport&) = delete;

    // Replaces oLines by the report.
    void Write(CMArrayString& oLines);

protected:
    ~CMonitorReport() = default;

    // Where the two reports differ: a line after the signal type, the type of a block, lines after a block's
    // checksum, and timings at the head of those of the extension blocks.
    virtual void AddDigitalInterface() = 0;
    virtual CMString GetTypeText(const CEdidExtBlock& oBlock) = 0;
    virtual void AddBlockDigest(const CEdidExtBlock& oBlock) = 0;
    virtual void AddExtStandardNative() = 0;

    // One element for each timing: size, rate, then the mark.
    void AddTimings(const CZorEdidUtils::CModeList& oTimings, const char* pszMark);

    const CEdid& m_oEdid;
    const SReportedModes m_oModes;
    CReportLines m_oReport;

private:
    void AddGenericInformation();
    void AddIdentity();
    void AddExtensions();
    void AddExtension(unsigned int uiIndex, const CEdidExtBlock& oBlock);
    void AddSupportedTimings();
    void AddEstablishedTimings();
    void AddTiming(const CVidParamTimingGeneric& oTiming, const char* pszMark);
    void AddRawData();

    unsigned int GetBaseByte(unsigned int uiOffset) const { return m_oEdid.GetBaseBlock()[uiOffset]; }
};

} // namespace ZorUtils
