// What the bits of audio descriptors mean, from bit 0 on.

#pragma once

inline constexpr int gsc_aiSamplingRates[] = { 32000, 44100, 48000, 88200, 96000, 176400, 192000 }; // Hz
inline constexpr int gsc_aiSampleBits[] = { 16, 20, 24 };                                           // of PCM
