// The forms in which an image is written. All of them are read, too (InputForms.cpp).

#pragma once

#include <span>
#include <string>
#include <vector>

#include "Output.h"

struct SOutputForm
{
    const char* m_pszName;        // as --form takes it
    const char* m_pszEnding;      // of a file's name that asks for this form, such as ".hex"
    const char* m_pszOtherEnding; // null without one
    bool m_bText;
    // The image in this form. A text table takes whole blocks only.
    std::string (*m_pfnMake)(const std::vector<unsigned char>& aui8Bytes);
};

std::span<const SOutputForm> GetOutputForms();

// The form that the ending of a file's name asks for, in either case; the raw image for a name without an ending and
// for any unknown one. Null, with the reason in sProblem, for the ending of a text that is not written here, such as
// ".json": a raw image under that name would mislead.
const SOutputForm* FindOutputForm(const std::string& sPath, std::string& sProblem);

// The image as a file in the form of FindOutputForm; else as WriteOutput.
SWritten WriteImage(const std::string& sPath, const std::vector<unsigned char>& aui8Bytes, bool bForce);

// ".bin .xxd .hex ...": the endings of all forms.
std::string ListEndings();
