// Programs over four strings, run on CMString and on its model side by side. Contents, lengths and answers stay equal;
// a write to one string never shows in another. The fuzz target looks for programs, the test of strings takes random
// ones.
//
//   a step  operation, strings (own: bits 0 and 1, other: bits 2 and 3), character, two numbers, a number of 32 bits,
//           length of the text, the text

#pragma once

#include "InputReader.h"
#include "StringOperations.h"

namespace StringProgram
{
constexpr size_t gsc_uiLongest = 600; // longer strings are emptied, so that doubling ends
constexpr unsigned int gsc_uiMostSteps = 200;

inline char TakeChar(CInput& oInput)
{
    const unsigned int uiByte = oInput.Take(1);
    return uiByte == 0 ? 'a' : static_cast<char>(uiByte);
}

// Indexes and counts around the ends, and beyond all reason.
inline int TakeNumber(CInput& oInput, int iLength)
{
    const unsigned int uiByte = oInput.Take(1);
    const int aiEnds[] = { 0, 1, -1, iLength, iLength - 1, iLength + 1, INT_MAX, INT_MIN, INT_MIN + 1 };
    return uiByte < 128 ? static_cast<int>(uiByte) - 16 : aiEnds[uiByte % 9];
}

// Contents, length, and a capacity that holds them.
inline bool IsSameString(const CMString& oString, const CModelString& oModel)
{
    const std::string& sModel = oModel.Get();
    const int iLength = oString.GetLength();
    return GetText(oString) == sModel && sModel.size() == static_cast<size_t>(iLength) &&
           oString.GetAllocLength() >= iLength;
}

// Gives the name of the first operation after which string and model differ, null where they agree.
inline const char* Run(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    CMString aoStrings[4];
    CModelString aoModels[4];
    for (unsigned int i = 0; i < gsc_uiMostSteps && !oInput.IsEmpty(); ++i)
    {
        const auto& oOperation = gsc_aoStringOperations[oInput.Take(1) % std::size(gsc_aoStringOperations)];
        const unsigned int uiStrings = oInput.Take(1);
        CMString& oOwn = aoStrings[uiStrings % 4];
        CMString& oOther = aoStrings[uiStrings / 4 % 4];
        CModelString& oOwnModel = aoModels[uiStrings % 4];
        CModelString& oOtherModel = aoModels[uiStrings / 4 % 4];
        const char c = TakeChar(oInput);
        const int iIndex = TakeNumber(oInput, oOwn.GetLength());
        const int iCount = TakeNumber(oInput, oOwn.GetLength());
        const unsigned int uiNumber = oInput.Take(4);
        std::string sText(oInput.Take(1) % 24, ' ');
        std::generate(sText.begin(), sText.end(), [&] { return TakeChar(oInput); });
        SStringStep<CMString> oStep = { oOwn, oOther, c, iIndex, iCount, sText, uiNumber };
        SStringStep<CModelString> oModel = { oOwnModel, oOtherModel, c, iIndex, iCount, sText, uiNumber };
        if (oOwnModel.Get().size() + oOtherModel.Get().size() > gsc_uiLongest)
        {
            oOwn.Empty();
            oOwnModel.Empty();
            continue;
        }
        oOperation.m_pfnLibrary(oStep);
        oOperation.m_pfnModel(oModel);
        if (oStep.m_iAnswer != oModel.m_iAnswer || !std::ranges::equal(aoStrings, aoModels, IsSameString))
        {
            return oOperation.m_pszName;
        }
    }
    return nullptr;
}
} // namespace StringProgram
