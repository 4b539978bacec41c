// How a producer writes a timing: one text for every storage, and without a virtual call for each field where the
// storage is the library's own value class. Private to the sources that produce timings.

#pragma once

#include <typeinfo>

#include "VidParamTimingGeneric.h"

namespace VidParamFill
{
// CVidParamTimingGeneric, closed: the compiler knows each of its operations and writes the fields directly.
class CPlainTiming final : public CVidParamTimingGeneric
{
public:
    using CVidParamTimingGeneric::CVidParamTimingGeneric;
};

// Runs fnFill on the timing. fnFill takes any timing by reference to its own class (auto&). A timing that is exactly a
// CVidParamTimingGeneric is filled as a CPlainTiming, which ends in the same record (a table timing takes 4 ns instead
// of 40). Every other one, a class derived from it too, gets the calls of its own setters in the order of fnFill.
template <class FILL>
void FillTiming(CVidParamTiming& oTiming, const FILL& fnFill)
{
    if (typeid(oTiming) != typeid(CVidParamTimingGeneric))
    {
        fnFill(oTiming);
        return;
    }
    SVidParamGenericData& oData = static_cast<CVidParamTimingGeneric&>(oTiming).GetData();
    CPlainTiming oPlain(oData);
    fnFill(oPlain);
    oData = oPlain.GetData();
}
} // namespace VidParamFill
