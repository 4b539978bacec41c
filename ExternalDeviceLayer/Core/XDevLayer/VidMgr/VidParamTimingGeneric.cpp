// The timing value in hertz: what is more than reading or writing one field.

#include "VidParamTimingGeneric.h"

unsigned int CVidParamTimingGeneric::GetHorizontalTotal() const { return CVidParamTiming::GetHorizontalTotal(); }

unsigned int CVidParamTimingGeneric::GetVerticalTotal() const { return CVidParamTiming::GetVerticalTotal(); }

int CVidParamTimingGeneric::IsOverscan() const { return 0; }
