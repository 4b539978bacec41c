// A timing as text.

#pragma once

#include <string>
#include <vector>

#include "VidParamTimingGeneric.h"

// Codes of CTA-861 with exactly the same timing, in rising order. They differ in picture aspect only.
struct SVics
{
    std::vector<unsigned int> m_auiCodes;
    bool m_bVariant = false; // the timing is their 1000/1001 variant
};

// Whether all numbers of two timings are the same, the source among them.
bool IsSameRecord(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond);

// Name of the source: "dmt", "dmt-rb", "cvt", "cvt-rb", "gtf", "cea", "smpte", "detailed"; null for none.
const char* GetTypeName(CVidParamTiming::EVidParamType eType);

// "VIC 16", "VIC 16/76", "VIC 16 at 1000/1001"; empty without codes.
std::string GetVicsText(const SVics& oVics);

// Lines of the whole frame, borders left out. An interlaced frame has half a line more in each field than its parts
// (CVidParamTiming::ComputeVerticalTotalLine), unless its clock is that of the frame without, as with code 39.
unsigned int GetVerticalTotal(const CVidParamTimingGeneric& oTiming);

// A line as xorg.conf and its relatives take it, such as
//   Modeline "1920x1080_60" 148.50 1920 2008 2052 2200 1080 1084 1089 1125 +hsync +vsync
// The clock in MHz keeps every hertz. The name holds the vertical rate of the library, of an interlaced mode the frame
// rate. The vertical numbers of an interlaced mode are those of the frame: the field's porches and sync count twice,
// and the total is GetVerticalTotal.
// A comment line for a timing whose sync does not end within its total.
std::string GetModeline(const CVidParamTimingGeneric& oTiming);
// The same under another name.
std::string GetModeline(const CVidParamTimingGeneric& oTiming, const std::string& sName);
