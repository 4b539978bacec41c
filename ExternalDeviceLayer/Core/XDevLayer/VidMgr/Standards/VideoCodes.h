// The video identification codes of CTA-861-H, what a short video descriptor makes of them, and HDMI's own codes.
// Private to the library.

#pragma once

#include <iterator>

#include "Place.h"
#include "PublishedTiming.h"

namespace ZorStandards
{
struct SVideoCode
{
    unsigned char m_ui8Code;
    SPublishedTiming m_oTiming;
    bool m_bFraction;              // the code means 1000/1001 of the clock as well
    unsigned char m_ui8Repetition; // how often each pixel is sent; 1 as well where several are allowed
    SRatio m_oAspect;
};

namespace Rows
{
// CTA-861-H 4. Of codes 8, 9, 12, 13, 23, 24, 27 and 28, which allow for several totals, the least one.
// clang-format off
inline constexpr SVideoCode gsc_aoVideoCodes[] = {
    // code   sent       rate clock kHz h front sync back v front sync back     fraction, repetition, aspect ratio
    {   1, {   640,  480, eP,  60,   25200,   16,  96,  48, 10,  2,  33, eNN }, true, 1, { 4, 3 } },
    {   2, {   720,  480, eP,  60,   27027,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 4, 3 } },
    {   3, {   720,  480, eP,  60,   27027,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 16, 9 } },
    {   4, {  1280,  720, eP,  60,   74250,  110,  40, 220,  5,  5,  20, ePP }, true, 1, { 16, 9 } },
    {   5, {  1920, 1080, eI,  60,   74250,   88,  44, 148,  2,  5,  15, ePP }, true, 1, { 16, 9 } },
    {   6, {  1440,  480, eI,  60,   27027,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 4, 3 } },
    {   7, {  1440,  480, eI,  60,   27027,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 16, 9 } },
    {   8, {  1440,  240, eP,  60,   27027,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 4, 3 } },
    {   9, {  1440,  240, eP,  60,   27027,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 16, 9 } },
    {  10, {  2880,  480, eI,  60,   54054,   76, 248, 228,  4,  3,  15, eNN }, true, 1, { 4, 3 } },
    {  11, {  2880,  480, eI,  60,   54054,   76, 248, 228,  4,  3,  15, eNN }, true, 1, { 16, 9 } },
    {  12, {  2880,  240, eP,  60,   54054,   76, 248, 228,  4,  3,  15, eNN }, true, 1, { 4, 3 } },
    {  13, {  2880,  240, eP,  60,   54054,   76, 248, 228,  4,  3,  15, eNN }, true, 1, { 16, 9 } },
    {  14, {  1440,  480, eP,  60,   54054,   32, 124, 120,  9,  6,  30, eNN }, true, 1, { 4, 3 } },
    {  15, {  1440,  480, eP,  60,   54054,   32, 124, 120,  9,  6,  30, eNN }, true, 1, { 16, 9 } },
    {  16, {  1920, 1080, eP,  60,  148500,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 16, 9 } },
    {  17, {   720,  576, eP,  50,   27000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 4, 3 } },
    {  18, {   720,  576, eP,  50,   27000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 16, 9 } },
    {  19, {  1280,  720, eP,  50,   74250,  440,  40, 220,  5,  5,  20, ePP }, false, 1, { 16, 9 } },
    {  20, {  1920, 1080, eI,  50,   74250,  528,  44, 148,  2,  5,  15, ePP }, false, 1, { 16, 9 } },
    {  21, {  1440,  576, eI,  50,   27000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 4, 3 } },
    {  22, {  1440,  576, eI,  50,   27000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 16, 9 } },
    {  23, {  1440,  288, eP,  50,   27000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 4, 3 } },
    {  24, {  1440,  288, eP,  50,   27000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 16, 9 } },
    {  25, {  2880,  576, eI,  50,   54000,   48, 252, 276,  2,  3,  19, eNN }, false, 1, { 4, 3 } },
    {  26, {  2880,  576, eI,  50,   54000,   48, 252, 276,  2,  3,  19, eNN }, false, 1, { 16, 9 } },
    {  27, {  2880,  288, eP,  50,   54000,   48, 252, 276,  2,  3,  19, eNN }, false, 1, { 4, 3 } },
    {  28, {  2880,  288, eP,  50,   54000,   48, 252, 276,  2,  3,  19, eNN }, false, 1, { 16, 9 } },
    {  29, {  1440,  576, eP,  50,   54000,   24, 128, 136,  5,  5,  39, eNN }, false, 1, { 4, 3 } },
    {  30, {  1440,  576, eP,  50,   54000,   24, 128, 136,  5,  5,  39, eNN }, false, 1, { 16, 9 } },
    {  31, {  1920, 1080, eP,  50,  148500,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 16, 9 } },
    {  32, {  1920, 1080, eP,  24,   74250,  638,  44, 148,  4,  5,  36, ePP }, true, 1, { 16, 9 } },
    {  33, {  1920, 1080, eP,  25,   74250,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 16, 9 } },
    {  34, {  1920, 1080, eP,  30,   74250,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 16, 9 } },
    {  35, {  2880,  480, eP,  60,  108108,   64, 248, 240,  9,  6,  30, eNN }, true, 1, { 4, 3 } },
    {  36, {  2880,  480, eP,  60,  108108,   64, 248, 240,  9,  6,  30, eNN }, true, 1, { 16, 9 } },
    {  37, {  2880,  576, eP,  50,  108000,   48, 256, 272,  5,  5,  39, eNN }, false, 1, { 4, 3 } },
    {  38, {  2880,  576, eP,  50,  108000,   48, 256, 272,  5,  5,  39, eNN }, false, 1, { 16, 9 } },
    {  39, {  1920, 1080, eE,  50,   72000,   32, 168, 184, 23,  5,  57, ePN }, false, 1, { 16, 9 } },
    {  40, {  1920, 1080, eI, 100,  148500,  528,  44, 148,  2,  5,  15, ePP }, false, 1, { 16, 9 } },
    {  41, {  1280,  720, eP, 100,  148500,  440,  40, 220,  5,  5,  20, ePP }, false, 1, { 16, 9 } },
    {  42, {   720,  576, eP, 100,   54000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 4, 3 } },
    {  43, {   720,  576, eP, 100,   54000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 16, 9 } },
    {  44, {  1440,  576, eI, 100,   54000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 4, 3 } },
    {  45, {  1440,  576, eI, 100,   54000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 16, 9 } },
    {  46, {  1920, 1080, eI, 120,  148500,   88,  44, 148,  2,  5,  15, ePP }, true, 1, { 16, 9 } },
    {  47, {  1280,  720, eP, 120,  148500,  110,  40, 220,  5,  5,  20, ePP }, true, 1, { 16, 9 } },
    {  48, {   720,  480, eP, 120,   54054,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 4, 3 } },
    {  49, {   720,  480, eP, 120,   54054,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 16, 9 } },
    {  50, {  1440,  480, eI, 120,   54054,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 4, 3 } },
    {  51, {  1440,  480, eI, 120,   54054,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 16, 9 } },
    {  52, {   720,  576, eP, 200,  108000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 4, 3 } },
    {  53, {   720,  576, eP, 200,  108000,   12,  64,  68,  5,  5,  39, eNN }, false, 1, { 16, 9 } },
    {  54, {  1440,  576, eI, 200,  108000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 4, 3 } },
    {  55, {  1440,  576, eI, 200,  108000,   24, 126, 138,  2,  3,  19, eNN }, false, 2, { 16, 9 } },
    {  56, {   720,  480, eP, 240,  108108,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 4, 3 } },
    {  57, {   720,  480, eP, 240,  108108,   16,  62,  60,  9,  6,  30, eNN }, true, 1, { 16, 9 } },
    {  58, {  1440,  480, eI, 240,  108108,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 4, 3 } },
    {  59, {  1440,  480, eI, 240,  108108,   38, 124, 114,  4,  3,  15, eNN }, true, 2, { 16, 9 } },
    {  60, {  1280,  720, eP,  24,   59400, 1760,  40, 220,  5,  5,  20, ePP }, true, 1, { 16, 9 } },
    {  61, {  1280,  720, eP,  25,   74250, 2420,  40, 220,  5,  5,  20, ePP }, false, 1, { 16, 9 } },
    {  62, {  1280,  720, eP,  30,   74250, 1760,  40, 220,  5,  5,  20, ePP }, true, 1, { 16, 9 } },
    {  63, {  1920, 1080, eP, 120,  297000,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 16, 9 } },
    {  64, {  1920, 1080, eP, 100,  297000,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 16, 9 } },
    {  65, {  1280,  720, eP,  24,   59400, 1760,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  66, {  1280,  720, eP,  25,   74250, 2420,  40, 220,  5,  5,  20, ePP }, false, 1, { 64, 27 } },
    {  67, {  1280,  720, eP,  30,   74250, 1760,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  68, {  1280,  720, eP,  50,   74250,  440,  40, 220,  5,  5,  20, ePP }, false, 1, { 64, 27 } },
    {  69, {  1280,  720, eP,  60,   74250,  110,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  70, {  1280,  720, eP, 100,  148500,  440,  40, 220,  5,  5,  20, ePP }, false, 1, { 64, 27 } },
    {  71, {  1280,  720, eP, 120,  148500,  110,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  72, {  1920, 1080, eP,  24,   74250,  638,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    {  73, {  1920, 1080, eP,  25,   74250,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 64, 27 } },
    {  74, {  1920, 1080, eP,  30,   74250,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    {  75, {  1920, 1080, eP,  50,  148500,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 64, 27 } },
    {  76, {  1920, 1080, eP,  60,  148500,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    {  77, {  1920, 1080, eP, 100,  297000,  528,  44, 148,  4,  5,  36, ePP }, false, 1, { 64, 27 } },
    {  78, {  1920, 1080, eP, 120,  297000,   88,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    {  79, {  1680,  720, eP,  24,   59400, 1360,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  80, {  1680,  720, eP,  25,   59400, 1228,  40, 220,  5,  5,  20, ePP }, false, 1, { 64, 27 } },
    {  81, {  1680,  720, eP,  30,   59400,  700,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  82, {  1680,  720, eP,  50,   82500,  260,  40, 220,  5,  5,  20, ePP }, false, 1, { 64, 27 } },
    {  83, {  1680,  720, eP,  60,   99000,  260,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    {  84, {  1680,  720, eP, 100,  165000,   60,  40, 220,  5,  5,  95, ePP }, false, 1, { 64, 27 } },
    {  85, {  1680,  720, eP, 120,  198000,   60,  40, 220,  5,  5,  95, ePP }, true, 1, { 64, 27 } },
    {  86, {  2560, 1080, eP,  24,   99000,  998,  44, 148,  4,  5,  11, ePP }, true, 1, { 64, 27 } },
    {  87, {  2560, 1080, eP,  25,   90000,  448,  44, 148,  4,  5,  36, ePP }, false, 1, { 64, 27 } },
    {  88, {  2560, 1080, eP,  30,  118800,  768,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    {  89, {  2560, 1080, eP,  50,  185625,  548,  44, 148,  4,  5,  36, ePP }, false, 1, { 64, 27 } },
    {  90, {  2560, 1080, eP,  60,  198000,  248,  44, 148,  4,  5,  11, ePP }, true, 1, { 64, 27 } },
    {  91, {  2560, 1080, eP, 100,  371250,  218,  44, 148,  4,  5, 161, ePP }, false, 1, { 64, 27 } },
    {  92, {  2560, 1080, eP, 120,  495000,  548,  44, 148,  4,  5, 161, ePP }, true, 1, { 64, 27 } },
    {  93, {  3840, 2160, eP,  24,  297000, 1276,  88, 296,  8, 10,  72, ePP }, true, 1, { 16, 9 } },
    {  94, {  3840, 2160, eP,  25,  297000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 16, 9 } },
    {  95, {  3840, 2160, eP,  30,  297000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 16, 9 } },
    {  96, {  3840, 2160, eP,  50,  594000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 16, 9 } },
    {  97, {  3840, 2160, eP,  60,  594000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 16, 9 } },
    {  98, {  4096, 2160, eP,  24,  297000, 1020,  88, 296,  8, 10,  72, ePP }, true, 1, { 256, 135 } },
    {  99, {  4096, 2160, eP,  25,  297000,  968,  88, 128,  8, 10,  72, ePP }, false, 1, { 256, 135 } },
    { 100, {  4096, 2160, eP,  30,  297000,   88,  88, 128,  8, 10,  72, ePP }, true, 1, { 256, 135 } },
    { 101, {  4096, 2160, eP,  50,  594000,  968,  88, 128,  8, 10,  72, ePP }, false, 1, { 256, 135 } },
    { 102, {  4096, 2160, eP,  60,  594000,   88,  88, 128,  8, 10,  72, ePP }, true, 1, { 256, 135 } },
    { 103, {  3840, 2160, eP,  24,  297000, 1276,  88, 296,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 104, {  3840, 2160, eP,  25,  297000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 64, 27 } },
    { 105, {  3840, 2160, eP,  30,  297000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 106, {  3840, 2160, eP,  50,  594000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 64, 27 } },
    { 107, {  3840, 2160, eP,  60,  594000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 108, {  1280,  720, eP,  48,   90000,  960,  40, 220,  5,  5,  20, ePP }, true, 1, { 16, 9 } },
    { 109, {  1280,  720, eP,  48,   90000,  960,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    { 110, {  1680,  720, eP,  48,   99000,  810,  40, 220,  5,  5,  20, ePP }, true, 1, { 64, 27 } },
    { 111, {  1920, 1080, eP,  48,  148500,  638,  44, 148,  4,  5,  36, ePP }, true, 1, { 16, 9 } },
    { 112, {  1920, 1080, eP,  48,  148500,  638,  44, 148,  4,  5,  36, ePP }, true, 1, { 64, 27 } },
    { 113, {  2560, 1080, eP,  48,  198000,  998,  44, 148,  4,  5,  11, ePP }, true, 1, { 64, 27 } },
    { 114, {  3840, 2160, eP,  48,  594000, 1276,  88, 296,  8, 10,  72, ePP }, true, 1, { 16, 9 } },
    { 115, {  4096, 2160, eP,  48,  594000, 1020,  88, 296,  8, 10,  72, ePP }, true, 1, { 256, 135 } },
    { 116, {  3840, 2160, eP,  48,  594000, 1276,  88, 296,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 117, {  3840, 2160, eP, 100, 1188000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 16, 9 } },
    { 118, {  3840, 2160, eP, 120, 1188000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 16, 9 } },
    { 119, {  3840, 2160, eP, 100, 1188000, 1056,  88, 296,  8, 10,  72, ePP }, false, 1, { 64, 27 } },
    { 120, {  3840, 2160, eP, 120, 1188000,  176,  88, 296,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 121, {  5120, 2160, eP,  24,  396000, 1996,  88, 296,  8, 10,  22, ePP }, true, 1, { 64, 27 } },
    { 122, {  5120, 2160, eP,  25,  396000, 1696,  88, 296,  8, 10,  22, ePP }, false, 1, { 64, 27 } },
    { 123, {  5120, 2160, eP,  30,  396000,  664,  88, 128,  8, 10,  22, ePP }, true, 1, { 64, 27 } },
    { 124, {  5120, 2160, eP,  48,  742500,  746,  88, 296,  8, 10, 297, ePP }, true, 1, { 64, 27 } },
    { 125, {  5120, 2160, eP,  50,  742500, 1096,  88, 296,  8, 10,  72, ePP }, false, 1, { 64, 27 } },
    { 126, {  5120, 2160, eP,  60,  742500,  164,  88, 128,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 127, {  5120, 2160, eP, 100, 1485000, 1096,  88, 296,  8, 10,  72, ePP }, false, 1, { 64, 27 } },
    { 193, {  5120, 2160, eP, 120, 1485000,  164,  88, 128,  8, 10,  72, ePP }, true, 1, { 64, 27 } },
    { 194, {  7680, 4320, eP,  24, 1188000, 2552, 176, 592, 16, 20, 144, ePP }, true, 1, { 16, 9 } },
    { 195, {  7680, 4320, eP,  25, 1188000, 2352, 176, 592, 16, 20,  44, ePP }, false, 1, { 16, 9 } },
    { 196, {  7680, 4320, eP,  30, 1188000,  552, 176, 592, 16, 20,  44, ePP }, true, 1, { 16, 9 } },
    { 197, {  7680, 4320, eP,  48, 2376000, 2552, 176, 592, 16, 20, 144, ePP }, true, 1, { 16, 9 } },
    { 198, {  7680, 4320, eP,  50, 2376000, 2352, 176, 592, 16, 20,  44, ePP }, false, 1, { 16, 9 } },
    { 199, {  7680, 4320, eP,  60, 2376000,  552, 176, 592, 16, 20,  44, ePP }, true, 1, { 16, 9 } },
    { 200, {  7680, 4320, eP, 100, 4752000, 2112, 176, 592, 16, 20, 144, ePP }, false, 1, { 16, 9 } },
    { 201, {  7680, 4320, eP, 120, 4752000,  352, 176, 592, 16, 20, 144, ePP }, true, 1, { 16, 9 } },
    { 202, {  7680, 4320, eP,  24, 1188000, 2552, 176, 592, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 203, {  7680, 4320, eP,  25, 1188000, 2352, 176, 592, 16, 20,  44, ePP }, false, 1, { 64, 27 } },
    { 204, {  7680, 4320, eP,  30, 1188000,  552, 176, 592, 16, 20,  44, ePP }, true, 1, { 64, 27 } },
    { 205, {  7680, 4320, eP,  48, 2376000, 2552, 176, 592, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 206, {  7680, 4320, eP,  50, 2376000, 2352, 176, 592, 16, 20,  44, ePP }, false, 1, { 64, 27 } },
    { 207, {  7680, 4320, eP,  60, 2376000,  552, 176, 592, 16, 20,  44, ePP }, true, 1, { 64, 27 } },
    { 208, {  7680, 4320, eP, 100, 4752000, 2112, 176, 592, 16, 20, 144, ePP }, false, 1, { 64, 27 } },
    { 209, {  7680, 4320, eP, 120, 4752000,  352, 176, 592, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 210, { 10240, 4320, eP,  24, 1485000, 1492, 176, 592, 16, 20, 594, ePP }, true, 1, { 64, 27 } },
    { 211, { 10240, 4320, eP,  25, 1485000, 2492, 176, 592, 16, 20,  44, ePP }, false, 1, { 64, 27 } },
    { 212, { 10240, 4320, eP,  30, 1485000,  288, 176, 296, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 213, { 10240, 4320, eP,  48, 2970000, 1492, 176, 592, 16, 20, 594, ePP }, true, 1, { 64, 27 } },
    { 214, { 10240, 4320, eP,  50, 2970000, 2492, 176, 592, 16, 20,  44, ePP }, false, 1, { 64, 27 } },
    { 215, { 10240, 4320, eP,  60, 2970000,  288, 176, 296, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 216, { 10240, 4320, eP, 100, 5940000, 2192, 176, 592, 16, 20, 144, ePP }, false, 1, { 64, 27 } },
    { 217, { 10240, 4320, eP, 120, 5940000,  288, 176, 296, 16, 20, 144, ePP }, true, 1, { 64, 27 } },
    { 218, {  4096, 2160, eP, 100, 1188000,  800,  88, 296,  8, 10,  72, ePP }, false, 1, { 256, 135 } },
    { 219, {  4096, 2160, eP, 120, 1188000,   88,  88, 128,  8, 10,  72, ePP }, true, 1, { 256, 135 } },
};
// clang-format on
} // namespace Rows

inline constexpr auto& gsc_aoVideoCodes = Rows::gsc_aoVideoCodes;
static_assert(std::size(gsc_aoVideoCodes) == 154);

// The row of a code; null for a code that is not published.
constexpr const SVideoCode* FindVideoCode(unsigned int uiCode)
{
    constexpr unsigned int uiLastLow = 127;
    constexpr unsigned int uiFirstHigh = 193;
    const unsigned int uiRow = uiCode >= uiFirstHigh ? uiCode - uiFirstHigh + uiLastLow : uiCode - 1; // 0 wraps
    return uiRow < std::size(gsc_aoVideoCodes) && gsc_aoVideoCodes[uiRow].m_ui8Code == uiCode ? &gsc_aoVideoCodes[uiRow]
                                                                                              : nullptr;
}

// "Video code 6, 720(1440)x480i 59.94/60 Hz 4:3", and the same without the code. Active pixels and lines, scan, rate in
// Hz (frames, of interlaced formats fields), aspect ratio. Where pixels are sent twice the sent width is in brackets.
// Null for a code that is not published.
const char* GetVideoCodeName(unsigned int uiCode);
const char* GetVideoFormatName(unsigned int uiCode);

// ---- Short video descriptors: CTA-861-H 7.5.1 ----

// The byte of one. Code 0: the byte is reserved.
struct SShortVideo
{
    unsigned int m_uiCode;
    bool m_bNative;
};

inline constexpr SPlace gsc_oSvdNative = Bit(0, 7); // of codes that have it; others take the whole byte
inline constexpr SPlace gsc_oSvdCode = Bits(0, 6, 0);
inline constexpr unsigned int gsc_uiNativeBit = gsc_oSvdNative.m_aoPieces[0].GetMask();
inline constexpr unsigned int gsc_uiHighestSvd = 253;
inline constexpr unsigned int gsc_uiLastNativeSvd = 192; // past it all 8 bits are the code

constexpr bool HasNativeBit(unsigned int uiSvd)
{
    return uiSvd <= gsc_uiLastNativeSvd && (uiSvd & ~gsc_uiNativeBit) != 0;
}

constexpr SShortVideo ReadShortVideo(unsigned int uiSvd)
{
    return HasNativeBit(uiSvd) ? SShortVideo{ uiSvd & ~gsc_uiNativeBit, uiSvd >= gsc_uiNativeBit }
           : uiSvd > gsc_uiLastNativeSvd && uiSvd <= gsc_uiHighestSvd ? SShortVideo{ uiSvd, false }
                                                                      : SShortVideo{ 0, false };
}

// As CTA-861-E reads it, which the library's list keeps to: 193 to 253 are the native forms of 65 to 125.
constexpr SShortVideo ReadListedShortVideo(unsigned int uiSvd)
{
    const unsigned int uiCode = uiSvd & ~gsc_uiNativeBit;
    return uiSvd <= gsc_uiHighestSvd && uiCode != 0 ? SShortVideo{ uiCode, uiSvd >= gsc_uiNativeBit }
                                                    : SShortVideo{ 0, false };
}

// Whether the library's list has another code for the byte than it means.
constexpr bool IsListedAsOther(unsigned int uiSvd)
{
    return ReadShortVideo(uiSvd).m_uiCode != ReadListedShortVideo(uiSvd).m_uiCode;
}

// ---- Short video references: CTA-861-H 7.5.12; rates of a video format descriptor by CTA-861.6 ----

// What the byte of one points at. Timings are counted from 0: the detailed ones over the base block and all CTA-861
// blocks, those of Types VII and X over the CTA-861 data blocks. The descriptor of a rate and the code of Type VIII are
// the first ones.
struct SVideoReference
{
    enum EKind : unsigned char
    {
        eReserved,
        eVideoCode,
        eDetailed,
        eType7Or10,
        eFormatRate,
        eType8
    };
    EKind m_eKind;
    unsigned int m_uiNumber; // the video code, which timing, or the rate in Hz; else 0
};

constexpr SVideoReference ReadVideoReference(unsigned int uiByte)
{
    constexpr unsigned int uiFirstDetailed = 129;
    constexpr unsigned int uiFirstType7Or10 = 145;
    constexpr unsigned int uiFirstRate = 161;
    constexpr unsigned int auiRates[] = { 24, 25, 30, 48, 50, 60, 100, 120, 144, 200, 240, 300, 360, 400, 480 };
    constexpr unsigned int uiType8 = 254;
    using enum SVideoReference::EKind;
    const bool bVideoCode = uiByte < gsc_uiNativeBit || uiByte > gsc_uiLastNativeSvd;
    return uiByte == uiType8                                               ? SVideoReference{ eType8, 0 }
           : uiByte == 0 || uiByte > gsc_uiHighestSvd                      ? SVideoReference{ eReserved, 0 }
           : bVideoCode                                                    ? SVideoReference{ eVideoCode, uiByte }
           : uiByte >= uiFirstRate + std::size(auiRates) || uiByte == 0x80 ? SVideoReference{ eReserved, 0 }
           : uiByte >= uiFirstRate      ? SVideoReference{ eFormatRate, auiRates[uiByte - uiFirstRate] }
           : uiByte >= uiFirstType7Or10 ? SVideoReference{ eType7Or10, uiByte - uiFirstType7Or10 }
                                        : SVideoReference{ eDetailed, uiByte - uiFirstDetailed };
}

// ---- Resolution identifiers of video format descriptors, CTA-861.6 ----

struct SFormatResolution
{
    unsigned short m_ui16Width;
    unsigned short m_ui16Height;
    SRatio m_oAspect;
};

inline constexpr SFormatResolution gsc_aoFormatResolutions[] = {
    { 0, 0, { 0, 0 } },          { 1280, 720, { 16, 9 } },    { 1280, 720, { 64, 27 } },  { 1680, 720, { 64, 27 } },
    { 1920, 1080, { 16, 9 } },   { 1920, 1080, { 64, 27 } },  { 2560, 1080, { 64, 27 } }, { 3840, 1080, { 32, 9 } },
    { 2560, 1440, { 16, 9 } },   { 3440, 1440, { 64, 27 } },  { 5120, 1440, { 32, 9 } },  { 3840, 2160, { 16, 9 } },
    { 3840, 2160, { 64, 27 } },  { 5120, 2160, { 64, 27 } },  { 7680, 2160, { 32, 9 } },  { 5120, 2880, { 16, 9 } },
    { 5120, 2880, { 64, 27 } },  { 6880, 2880, { 64, 27 } },  { 10240, 2880, { 32, 9 } }, { 7680, 4320, { 16, 9 } },
    { 7680, 4320, { 64, 27 } },  { 10240, 4320, { 64, 27 } }, { 15360, 4320, { 32, 9 } }, { 11520, 6480, { 16, 9 } },
    { 11520, 6480, { 64, 27 } }, { 15360, 6480, { 64, 27 } }, { 15360, 8640, { 16, 9 } }, { 15360, 8640, { 64, 27 } },
    { 20480, 8640, { 64, 27 } },
};
inline constexpr unsigned int gsc_uiFormatResolutions = 29;
static_assert(std::size(gsc_aoFormatResolutions) == gsc_uiFormatResolutions);

// "1280x720 16:9". Below gsc_uiFormatResolutions.
const char* GetFormatResolutionName(unsigned int uiResolution);

// ---- Codes of HDMI 1.4b, table 8-13, which are other names of video codes ----

struct SHdmiCode
{
    unsigned char m_ui8VideoCode;
    bool m_bFraction; // the last one is 24 Hz only
};

inline constexpr SHdmiCode gsc_aoHdmiCodes[] = { { 95, true }, { 94, false }, { 93, true }, { 98, false } };
static_assert(std::size(gsc_aoHdmiCodes) == 4);

// Codes count from 1. Null for a code that is not published.
constexpr const SHdmiCode* FindHdmiCode(unsigned int uiCode)
{
    return uiCode - 1 < std::size(gsc_aoHdmiCodes) ? &gsc_aoHdmiCodes[uiCode - 1] : nullptr;
}

// As GetVideoFormatName: "3840x2160p 29.97/30 Hz 16:9".
const char* GetHdmiCodeName(unsigned int uiCode);
} // namespace ZorStandards
