// The parts of the page. For Page.cpp, which puts them together.

#pragma once

#include "PageHtml.h"
#include "PageImage.h"

// Each part is the content below a title; empty where the image has none.

// What the monitor is, in words, with its size beside a sheet of paper (PageHead.cpp).
CHtml MakeHead(const SPage& oPage);
// The findings of the check; of a pair all that differs (PageFindings.cpp).
CHtml MakeFindings(const SPage& oPage);
CHtml MakeDifferences(const SPage& oPage);
// The bytes as a grid and the fields as a tree (PageBytes.cpp).
CHtml MakeBytes(const SPage& oPage);
// The timings as a table and as pictures to scale (PageTimings.cpp).
CHtml MakeTimings(const SPage& oPage);
// Modes over width and rates, with the range limits (PagePlots.cpp).
CHtml MakeModePlots(const SPage& oPage);
// The colour triangle (PageColour.cpp), and how much of two common ones it covers, in words; empty without colours.
CHtml MakeColours(const SPage& oPage);
std::string DescribeColours(const SPageImage& oImage);

// A mode in short: "1920 × 1080 at 59.94 Hz", "1920 × 1080i at 60 Hz (fields)".
std::string DescribeMode(const SImageMode& oMode);
// Frames a second, of an interlaced mode fields: what range limits are about. 0 without totals; of two rates that a
// code has the higher one, as text both: "60", "59.94", "119.88/120".
double GetRate(const SImageMode& oMode);
std::string GetRateText(const SImageMode& oMode);
double GetFieldRate(const CVidParamTimingGeneric& oTiming);
// A rate or clock as all parts of the page write it: "60", "59.94".
std::string FormatRate(double dRate);
