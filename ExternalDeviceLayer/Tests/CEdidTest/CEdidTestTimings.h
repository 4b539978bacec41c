// The four detailed timings of the LG Ultra HD image, which three suites expect.

#pragma once

#include "RVidParamTiming.h"

// clang-format off
//                                                           active       V rate H rate clock kHz  h front sync back v front sync back
inline constexpr tagRVideo_VidParam gsc_oLgUltraHdBase0 = { 3840, 2160,  60,    133,   533250,       48,  32,  80,   54,   5,   3,  0, { 0, 0 } };
inline constexpr tagRVideo_VidParam gsc_oLgUltraHdBase1 = { 3840, 2160,  30,     66,   266640,        8, 144,   8,   54,   5,   3,  0, { 0, 0 } };
inline constexpr tagRVideo_VidParam gsc_oLgUltraHdExt0  = { 1920, 1080,  60,     67,   148500,       88,  44, 148,    4,   5,  36,  0, { 0, 0 } };
inline constexpr tagRVideo_VidParam gsc_oLgUltraHdExt1  = { 2560, 1440,  60,     88,   241500,       48,  32,  80,    3,   5,  33,  0, { 0, 0 } };
// clang-format on
