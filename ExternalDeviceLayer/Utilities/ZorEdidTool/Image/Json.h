// The facts of an image as JSON: one shape, which docs/zoredid.schema.json describes. Numbers are numbers, frequencies
// are in hertz, bytes are strings of hexadecimal digits, and what an image does not say is absent.

#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "LoadedImage.h"
#include "ModeList.h"

// The members that every document begins with: "format" and "version".
nlohmann::ordered_json MakeDocument();

// A timing without its place in an image.
nlohmann::ordered_json MakeTiming(const CVidParamTimingGeneric& oTiming, const SVics& oVics);

// An image with its file and its timings; with everything that the library knows of it.
nlohmann::ordered_json MakeImageOfTimings(const SInput& oInput, const CModes& aoModes);
nlohmann::ordered_json MakeImage(const SInput& oInput, CLoadedImage& oImage);

// In place of an image that cannot be read or loaded.
nlohmann::ordered_json MakeFailure(const SInput& oInput, const std::string& sReason);

// A document that is written piece by piece: its head up to the list of this name, and its end. A comma separates the
// elements of the list.
std::string OpenDocument(const char* pszList);
inline constexpr const char* gsc_pszCloseDocument = "\n]}\n";

// As text, in one line with its line feed, or indented without one. Bytes that are not UTF-8 become U+FFFD.
std::string WriteLine(const nlohmann::ordered_json& oJson);
std::string WriteIndented(const nlohmann::ordered_json& oJson);
