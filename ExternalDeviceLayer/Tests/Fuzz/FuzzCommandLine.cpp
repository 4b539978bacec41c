// Fuzz target: the input as a value on the command line, of an edit and as a mode. A problem is one line, whatever the
// value holds; the timings of a mode are of the source that was asked.
//
//   byte 0  which edit, modulo their number
//   then    the value

#include <string>

#include "EditPlan.h"
#include "ExactTimings.h"
#include "FuzzSupport.h"
#include "ModeSources.h"
#include "Timings.h"
#include "Tool.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    const size_t uiEdit = oInput.Take(1) % GetEditOptions().size();
    const CBytes aui8Value = oInput.TakeRest();
    const std::string sValue(aui8Value.begin(), aui8Value.end());
    SEdit oEdit = {};
    const std::string sLine = MakeErrorLine(sValue, ParseEdit(GetEditOptions()[uiEdit], sValue, oEdit));
    Require(sLine.find('\n') == sLine.size() - 1, "a problem is one line");
    if (SZorMode oExact = {}; ParseExactMode(sValue, oExact))
    {
        const CExactTimings aoTimings = FindTimings(oExact, "all");
        Require(GetExactModelines(aoTimings).empty() == aoTimings.empty(), "each timing has a line");
    }
    SAskedMode oMode;
    if (!ParseMode(sValue, oMode))
    {
        return 0;
    }
    for (const STimingSource& oSource : GetModeSources())
    {
        for (const CVidParamTimingGeneric& oTiming : AskSource(oSource, oMode).m_aoTimings)
        {
            const char* pszType = GetTypeName(oTiming.GetVideoFamilyType());
            Require(pszType != nullptr && std::string(pszType) == oSource.m_pszName, "a timing is of its source");
        }
    }
    return 0;
}
