/// From a size and a rate to the timing that an EDID image is to announce: a row of a table or the answer of a formula,
/// with exact numbers.

#pragma once

#include "EdidMode.h"

#pragma GCC visibility push(default)

enum EZorTimingSource : unsigned char
{
    /// What has the wished rate: of CTA-861, then of VESA DMT, there reduced blanking first. Else what is nearest to it
    /// of these and of CVT with reduced blanking, of equally near ones the first in this order.
    eZorTimingSource_Any,
    eZorTimingSource_Cta, ///< a video code of CTA-861, at its rate or at 1000/1001 of it
    eZorTimingSource_Dmt, ///< standard blanking first
    eZorTimingSource_DmtReduced,
    eZorTimingSource_Cvt,
    eZorTimingSource_CvtReduced1,
    eZorTimingSource_CvtReduced2,
    eZorTimingSource_Gtf
};

/// Finds the timing of a mode: m_uiWidth, m_uiHeight, m_bInterlaced and m_oNominalRate of oWanted, the rate in Hz, of
/// interlaced modes of fields. Rates that differ by less than 0.005 Hz are the same. bRepeated: modes whose pixels are
/// sent twice count, too. oTiming has all numbers then; of a table also the kind of the mode and its code. Returns 1;
/// 0, and oTiming unchanged, where the source has no such timing. oTiming and oWanted may be the same.
int FindZorTiming(const SZorMode& oWanted, EZorTimingSource eSource, bool bRepeated, SZorMode& oTiming);

#pragma GCC visibility pop
