// The page and its parts.

#pragma once

#include "PageHtml.h"
#include "PageImage.h"

// The page as a file (PageWhole.cpp). One that would be too large for browsers gets limits, which oPage keeps.
std::string MakeWholePage(SPage& oPage);

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

// A mode in short: "1920 × 1080 at 59.94 Hz", "1920 × 1080i at 60 Hz (fields)", "640 × 480" without a rate.
std::string GetModeTitle(const SZorMode& oMode);
// "1920 × 1080i"
std::string GetModeSize(const SZorMode& oMode);
// kHz; 0 without a timing.
double GetLineRate(const SZorMode& oMode);
// The text with multiplication signs in place of the letter between two blanks.
std::string WithTimes(std::string sText);
