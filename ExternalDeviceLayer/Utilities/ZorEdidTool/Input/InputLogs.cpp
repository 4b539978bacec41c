// The readers of logs, and of what tools print about all monitors of a machine: EDIDs among many other lines.

#include <algorithm>
#include <utility>

#include "InputReaders.h"

namespace
{
// ---- Logs of X servers and of the kernel ----
//   [    18.246] (II) modeset(0): EDID for output HDMI-1
//   [    18.246] (II) modeset(0): EDID (in hex):
//   [    18.246] (II) modeset(0): 	00ffffffffffff0010ace1a05a564b30
//   Nov 26 12:00:00 host kernel: [    3.141] i915 0000:00:02.0: eDP-1: EDID is invalid:
//   Nov 26 12:00:00 host kernel: [    3.141] 	[00] BAD  00 ff ff ff ff ff ff 00 06 af ed 21 00 00 00 00
// A line has what the logger adds, then 16 bytes, with the number and the state of their block or without, and of some
// drivers two blanks and the bytes as characters. Lines of others may come between these.

constexpr std::string_view gsc_sInvalidHead = "EDID is invalid:";
constexpr std::string_view gsc_asLogHeads[] = { "EDID (in hex):", "Raw EDID:", "Raw EDID bytes:", gsc_sInvalidHead };

struct SLogBytes
{
    std::string m_sDigits;     // empty where the line has no bytes
    bool m_bLogged = false;    // a logger has added something
    bool m_bBaseBlock = false; // the line says that these are bytes of block 0
};

// Where a tab is spelled, that goes, too: of loggers that write no control characters.
std::string_view CutTabs(std::string_view sText)
{
    for (const std::string_view sTab : { "\\t", "\\x09", "#011" })
    {
        sText = Trim(StartsWith(sText, sTab) ? sText.substr(sTab.size()) : sText);
    }
    return sText;
}

// Whether a text ends in 16 bytes of two digits each, with a blank between them, and one or two in the middle.
bool EndsInRow(std::string_view sText)
{
    for (unsigned int uiByte = 16; uiByte-- > 0;)
    {
        if (sText.size() < 2 || !IsHex(sText.substr(sText.size() - 2)))
        {
            return false;
        }
        sText.remove_suffix(2);
        const bool bBlank = sText.ends_with(' ');
        const bool bGap = uiByte == 8 && sText.ends_with("  ");
        if (!bBlank && uiByte != 0)
        {
            return false;
        }
        sText.remove_suffix(bGap ? 2 : bBlank ? 1 : 0);
    }
    return true;
}

// Takes off the characters after the 16 bytes, which may look like anything.
std::string_view CutCharacters(std::string_view sLine)
{
    constexpr std::string_view sGap = "  ";
    constexpr size_t uiRow = 16 * 3 - 1; // columns at least: two digits and a blank for each byte but the last one
    for (size_t uiEnd = sLine.find(sGap, uiRow); uiEnd < sLine.size(); uiEnd = sLine.find(sGap, uiEnd + 1))
    {
        if (EndsInRow(sLine.substr(0, uiEnd)))
        {
            return sLine.substr(0, uiEnd);
        }
    }
    return sLine;
}

SLogBytes ReadLogLine(std::string_view sLine)
{
    constexpr size_t uiFewest = 16; // digits that are not mistaken for bytes
    sLine = CutCharacters(sLine);
    size_t uiCut = 0;
    for (const std::string_view sEnd : { ": ", ":\t", "] ", "]\t" })
    {
        const size_t uiEnd = sLine.rfind(sEnd);
        uiCut = uiEnd == std::string_view::npos ? uiCut : std::max(uiCut, uiEnd + sEnd.size());
    }
    const std::string_view sAdded = Trim(sLine.substr(0, uiCut));
    std::string_view sRest = CutTabs(Trim(sLine.substr(uiCut)));
    std::string_view sAfterState = sRest;
    const std::string_view sState = TakeToken(sAfterState, gsc_sBlanks);
    sRest = sState == "GOOD" || sState == "BAD" || sState == "ZERO" ? sAfterState : sRest;

    SLogBytes oBytes;
    for (std::string_view sRun = TakeToken(sRest, gsc_sBlanks); !sRun.empty(); sRun = TakeToken(sRest, gsc_sBlanks))
    {
        if (sRun.size() % 2 != 0 || !IsHex(sRun))
        {
            return {};
        }
        oBytes.m_sDigits += sRun;
    }
    if (oBytes.m_sDigits.size() < uiFewest)
    {
        return {};
    }
    oBytes.m_bLogged = sAdded.find_first_not_of("0123456789abcdefABCDEF: \t") != std::string_view::npos;
    oBytes.m_bBaseBlock = sAdded.ends_with("[00]");
    return oBytes;
}

class CLogReader
{
public:
    void TakeLine(std::string_view sLine, size_t uiLine)
    {
        sLine = Trim(sLine);
        FindName(sLine);
        const auto itHead = std::find_if(std::begin(gsc_asLogHeads), std::end(gsc_asLogHeads),
                                         [&](std::string_view sHead) { return sLine.ends_with(sHead); });
        if (itHead != std::end(gsc_asLogHeads))
        {
            Begin(uiLine);
            return;
        }
        const SLogBytes oBytes = ReadLogLine(sLine);
        if (oBytes.m_sDigits.empty())
        {
            ++m_uiLinesBetween;
            m_bOpen = m_bOpen && m_uiLinesBetween <= msc_uiMostBetween && !IsComplete();
            return;
        }
        // Those without a head are known by their first line.
        const bool bFirst = oBytes.m_bBaseBlock || (oBytes.m_bLogged && IsHeader(oBytes.m_sDigits));
        if (bFirst && (!m_bOpen || (!IsEmpty() && IsAtBlock())))
        {
            Begin(uiLine);
        }
        if (m_bOpen)
        {
            AddHex(m_aoMonitors.back(), oBytes.m_sDigits);
            m_uiLinesBetween = 0;
        }
    }

    CMonitors Finish()
    {
        for (size_t i = 0; i < m_aoMonitors.size(); ++i)
        {
            const size_t uiSize = m_aoMonitors[i].m_aui8Bytes.size();
            if (uiSize % gsc_uiBlockSize != 0)
            {
                m_aoMonitors[i].m_sProblem =
                    AtLine(m_auiLines[i], "an EDID that breaks off after " + std::to_string(uiSize) + " bytes");
            }
        }
        return std::move(m_aoMonitors);
    }

private:
    static constexpr size_t msc_uiMostBetween = 16; // lines between those of one EDID

    static bool IsHeader(std::string_view sDigits) { return EqualsNoCase(sDigits.substr(0, 16), "00ffffffffffff00"); }
    bool IsEmpty() const { return m_aoMonitors.back().m_aui8Bytes.empty(); }
    bool IsAtBlock() const { return m_aoMonitors.back().m_aui8Bytes.size() % gsc_uiBlockSize == 0; }
    bool IsComplete() const { return !IsEmpty() && IsAtBlock() && !LacksBlocks(m_aoMonitors.back()); }

    // A name is that of the next EDID only.
    void Begin(size_t uiLine)
    {
        m_aoMonitors.push_back({ std::exchange(m_sName, ""), {}, "", "" });
        m_auiLines.push_back(uiLine);
        m_bOpen = true;
        m_uiLinesBetween = 0;
    }

    void FindName(std::string_view sLine)
    {
        constexpr std::string_view sOutput = "EDID for output "; // "EDID for output HDMI-1"
        constexpr std::string_view sConnector = "[CONNECTOR:";   // "[CONNECTOR:95:eDP-1]"
        if (const size_t uiPlace = sLine.find(sOutput); uiPlace != std::string_view::npos)
        {
            m_sName = Trim(sLine.substr(uiPlace + sOutput.size()));
        }
        else if (const size_t uiStart = sLine.find(sConnector); uiStart != std::string_view::npos)
        {
            std::string_view sRest = sLine.substr(uiStart + sConnector.size());
            TakeToken(sRest, ":]");
            m_sName = TakeToken(sRest, ":]");
        }
        else if (sLine.ends_with(gsc_sInvalidHead)) // "eDP-1: EDID is invalid:"
        {
            sLine = Trim(sLine.substr(0, sLine.size() - gsc_sInvalidHead.size()));
            const std::string_view sLast = sLine.substr(sLine.find_last_of(" \t") + 1);
            m_sName = sLast.ends_with(':') ? sLast.substr(0, sLast.size() - 1) : "";
        }
    }

    CMonitors m_aoMonitors;
    std::vector<size_t> m_auiLines; // where they begin
    std::string m_sName;            // of the next one, or empty
    size_t m_uiLinesBetween = 0;    // since the last bytes
    bool m_bOpen = false;           // the last one may go on
};
} // namespace

bool ReadLog(const std::string& sText, CMonitors& aoMonitors)
{
    CLogReader oReader;
    std::string_view sRest = sText;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        oReader.TakeLine(TakeLine(sRest), uiLine);
    }
    aoMonitors = oReader.Finish();
    return std::any_of(aoMonitors.begin(), aoMonitors.end(),
                       [](const SInput& oMonitor) { return !oMonitor.m_aui8Bytes.empty(); });
}

// ---- ddcutil detect --verbose ----
//   DRM connector:           card0-DP-1
//   EDID hex dump:
//              +0          +4          +8          +c            0   4   8   c
//      +0000   00 ff ff ff ff ff ff 00 10 ac e1 a0 5a 56 4b 30   ............ZVK0

bool ReadDdcDump(const std::string& sText, CMonitors& aoMonitors)
{
    constexpr std::string_view sHead = "EDID hex dump:";
    std::string_view sRest = sText;
    std::string sName;
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        const std::string_view sLine = Trim(TakeLine(sRest));
        const size_t uiColon = sLine.find(':');
        const std::string_view sField = sLine.substr(0, uiColon);
        if (sField == "I2C bus" || sField == "DRM connector" || sField == "DRM_connector") // the bus comes first
        {
            sName = Trim(sLine.substr(std::min(uiColon + 1, sLine.size())));
        }
        SInput oMonitor = { sName, {}, "", "" };
        if (sLine == sHead && ReadDumpAt(sRest.substr(0, sRest.find(sHead)), uiLine + 1, oMonitor))
        {
            aoMonitors.push_back(oMonitor);
        }
    }
    return !aoMonitors.empty();
}

// ---- ioreg -l: "IODisplayEDID" = <00ffffffffffff00...> ----

bool ReadIoRegistry(const std::string& sText, CMonitors& aoMonitors)
{
    constexpr std::string_view sKeyEnd = "EDID\"";
    std::string_view sRest = sText;
    size_t uiLine = 1;
    for (size_t uiKey = sRest.find(sKeyEnd); uiKey != std::string_view::npos; uiKey = sRest.find(sKeyEnd))
    {
        const std::string_view sBefore = sRest.substr(0, uiKey);
        uiLine += static_cast<size_t>(std::count(sBefore.begin(), sBefore.end(), '\n'));
        sRest.remove_prefix(uiKey + sKeyEnd.size());
        const size_t uiDigits = std::min(sRest.find_first_not_of(" ="), sRest.size());
        const bool bKey = sBefore.ends_with('"') || sBefore.ends_with("\"IODisplay");
        if (!bKey || uiDigits == 0 || !StartsWith(sRest.substr(uiDigits), "<"))
        {
            continue;
        }
        sRest.remove_prefix(uiDigits + 1);
        const size_t uiEnd = std::min(sRest.find_first_not_of(gsc_sHexDigits), sRest.size());
        SInput& oMonitor = aoMonitors.emplace_back();
        if (!StartsWith(sRest.substr(uiEnd), ">") || !AddHex(oMonitor, sRest.substr(0, uiEnd)))
        {
            oMonitor.m_sProblem = AtLine(uiLine, "not hexadecimal bytes");
        }
    }
    return !aoMonitors.empty();
}

// ---- modetest -c ----
//   95      94      connected       eDP-1           310x170         4       94
//     props:
//           1 EDID:
//                   flags: immutable blob
//                   blobs:
//
//                   value:
//                           00ffffffffffff0010ace1a05a564b30
//           2 DPMS:
// Other properties that are blobs have digits, too.

bool ReadModetest(const std::string& sText, CMonitors& aoMonitors)
{
    constexpr std::string_view asStates[] = { "connected", "disconnected", "unknown" };
    std::string_view sRest = sText;
    std::string_view sName;
    bool bEdid = false;   // in that property
    bool bDigits = false; // in its value
    for (size_t uiLine = 1; !sRest.empty(); ++uiLine)
    {
        const std::string_view sLine = Trim(TakeLine(sRest));
        std::string_view sWords = sLine;
        unsigned long long ullId = 0;
        const bool bId = ParseDigits(TakeToken(sWords, gsc_sBlanks), 10, ullId);
        const std::string_view sSecond = TakeToken(sWords, gsc_sBlanks);
        if (bId && sSecond.ends_with(':'))
        {
            bEdid = sSecond == "EDID:";
            bDigits = false;
        }
        else if (bId && std::ranges::find(asStates, TakeToken(sWords, gsc_sBlanks)) != std::end(asStates))
        {
            sName = TakeToken(sWords, gsc_sBlanks);
            bEdid = false;
        }
        else if (bEdid && sLine == "value:")
        {
            aoMonitors.push_back({ std::string(sName), {}, "", "" });
            bDigits = true;
            continue;
        }
        bDigits = bDigits && bEdid && AddRow(aoMonitors.back(), sLine, uiLine);
    }
    return !aoMonitors.empty();
}
