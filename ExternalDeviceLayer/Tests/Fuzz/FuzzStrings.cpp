// Fuzz target: the input is a program over four strings, run on CMString and on its model side by side. Contents,
// lengths and answers stay equal; a write to one string never shows in another.
//
//   a step  operation, strings (own: bits 0 and 1, other: bits 2 and 3), character, two numbers, a number of 32 bits,
//           length of the text, the text

#include "FuzzSupport.h"
#include "StringOperations.h"

namespace
{
constexpr size_t gsc_uiLongest = 600; // longer strings are emptied, so that doubling ends
constexpr unsigned int gsc_uiMostSteps = 200;

char TakeChar(CInput& oInput)
{
    const unsigned int uiByte = oInput.Take(1);
    return uiByte == 0 ? 'a' : static_cast<char>(uiByte);
}

// Indexes and counts around the ends, and beyond all reason.
int TakeNumber(CInput& oInput, int iLength)
{
    const unsigned int uiByte = oInput.Take(1);
    const int aiEnds[] = { 0, 1, -1, iLength, iLength - 1, iLength + 1, INT_MAX, INT_MIN, INT_MIN + 1 };
    return uiByte < 128 ? static_cast<int>(uiByte) - 16 : aiEnds[uiByte % 9];
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
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
        Require(oStep.m_iAnswer == oModel.m_iAnswer, oOperation.m_pszName);
        for (size_t j = 0; j < std::size(aoStrings); ++j)
        {
            const std::string& sModel = aoModels[j].Get();
            const int iLength = aoStrings[j].GetLength();
            Require(GetText(aoStrings[j]) == sModel && sModel.size() == static_cast<size_t>(iLength),
                    oOperation.m_pszName);
            Require(aoStrings[j].GetAllocLength() >= iLength, "capacity holds the text");
        }
    }
    return 0;
}
