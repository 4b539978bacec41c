// The facts of an image as JSON: one shape, which docs/zoredid.schema.json describes. Numbers are numbers, frequencies
// are in hertz, bytes are strings of hexadecimal digits, and what an image does not say is absent.

#pragma once

#include <string>

#include "ImageModes.h"
#include "JsonWriter.h"
#include "LoadedImage.h"

inline constexpr unsigned int gsc_uiFormatVersion = 2; // "version"

// Opens the object of a document with the members that each begins with: "format" and "version".
void BeginDocument(CJsonWriter& oJson);

// Where an image comes from, as members: its file, and of several in it which one.
void WriteSource(const SInput& oInput, CJsonWriter& oJson);

// A timing of the library's lists as members of the object that is open, without its place in an image.
void WriteListTiming(const CVidParamTimingGeneric& oTiming, const SVics& oVics, CJsonWriter& oJson);

// A mode as an object.
void WriteMode(const SModeRow& oRow, CJsonWriter& oJson);

// An image with its file and its modes; with everything that is known of it. Load of oImage may have failed: then what
// the bytes say is there, with the reason, and the library's lists are not.
std::string MakeImageOfModes(const SInput& oInput, CLoadedImage& oImage, const CImageModes& oModes,
                             CJsonWriter::EStyle eStyle);
std::string MakeImage(const SInput& oInput, CLoadedImage& oImage, CJsonWriter::EStyle eStyle);

// In place of an image that cannot be read.
std::string MakeFailure(const SInput& oInput, const std::string& sReason, CJsonWriter::EStyle eStyle);

// A document that is written piece by piece: its head up to the list of this name, and its end. A comma separates the
// elements of the list.
std::string OpenDocument(const char* pszList);
inline constexpr const char* gsc_pszCloseDocument = "\n]}\n";
