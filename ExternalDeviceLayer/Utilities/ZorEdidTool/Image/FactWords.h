// The facts of an image in words, a text for each question: what `show` and the head of the page say. A text is empty
// where the image does not say it.

#pragma once

#include <string>

#include "ZorEdidFacts.h"

// "Dell Inc.": CZorEdidFacts::FindMakerName, which each thread asks once for each maker; empty without a name.
const std::string& NameMaker(const std::string& sLetters);
// "Dell Inc. (DEL)"
std::string DescribeMaker(const CZorEdidFacts::SIdentity& oIdentity);
// The name of the product, else the first other text, else its code.
std::string DescribeName(const CZorEdidFacts::SIdentity& oIdentity);
// "product 0x27f4"
std::string DescribeCode(const CZorEdidFacts::SIdentity& oIdentity);
std::string DescribeSerial(const CZorEdidFacts::SIdentity& oIdentity);
std::string DescribeDate(const CZorEdidFacts::SIdentity& oIdentity);

// "27.0 in, 598 x 336 mm"; what kind of display it is, its shape, and its place in a tiled one.
std::string DescribeSize(const CZorEdidFacts::SSize& oSize);
std::string DescribeShape(const CZorEdidFacts::SSize& oSize);

// The interface and how much it carries: "HDMI 2.1, FRL 4 x 12 Gbit/s, TMDS to 600 MHz, DSC".
std::string DescribeLink(const CZorEdidFacts& oFacts);
// "ALLM, QMS, fast Vactive": what helps games and changes of rate.
std::string DescribeTransport(const CZorEdidFacts::SLink& oLink);
// "48 to 120 Hz (HDMI Forum), 40 to 120 Hz (AMD)"; without any "not announced", or why it is not known: what a block
// that was not read whole may say is not denied. Continuous frequency without a range is said, and announces nothing.
std::string DescribeVariableRefresh(const CZorEdidFacts& oFacts);
bool HasVariableRefresh(const CZorEdidFacts::SLink& oLink);
// "48 to 144 Hz, 30 to 160 kHz, clock to 600 MHz".
std::string DescribeRanges(const CZorEdidFacts::SLink& oLink);

// "HDR10, HLG, HDR10+, Dolby Vision; peak 603 cd/m2 ..."; without any as above. The kinds alone are empty then.
std::string DescribeHdr(const CZorEdidFacts& oFacts);
std::string NameHdrKinds(const CZorEdidFacts::SColour& oColour);
// Depths, formats and colour spaces.
std::string DescribeColour(const CZorEdidFacts::SColour& oColour);

// Formats with their channels and highest rates, each once; "none", or why it is not known.
std::string DescribeAudio(const CZorEdidFacts& oFacts);
