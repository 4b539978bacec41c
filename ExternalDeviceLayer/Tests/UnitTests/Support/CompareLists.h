// Compares the lists that an edited block holds with those of its bytes loaded afresh.

#pragma once

class CEdidExtBlockCEA861;
class CVidParamTimingGeneric;

// In everything that is stored.
bool IsSameTiming(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond);

// Null when the lists are the same, else a text that names the first one that is not.
const char* CompareTableTimings(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond);
const char* CompareOtherLists(const CEdidExtBlockCEA861& oFirst, const CEdidExtBlockCEA861& oSecond); // all but those
