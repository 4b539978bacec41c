// Fuzz target: the input as a file that the command is given. What is taken for an image is written in each form and
// read back, with all EDIDs in it; what is not has a reason of one line.

#include <algorithm>
#include <string>

#include "FuzzSupport.h"
#include "Input.h"
#include "OutputForms.h"

namespace
{
bool HaveSameBytes(const CInputs& aoOne, const CInputs& aoOther)
{
    return std::ranges::equal(aoOne, aoOther, {}, &SInput::m_aui8Bytes, &SInput::m_aui8Bytes);
}

void TestInput(const SInput& oInput)
{
    constexpr size_t uiBlockSize = 128;
    constexpr size_t uiMaxSize = 256 * uiBlockSize;
    const size_t uiBytes = oInput.m_aui8Bytes.size();
    Require(oInput.IsGood() == (uiBytes != 0) && uiBytes <= uiMaxSize, "there is an image or a problem");
    Require(oInput.m_sProblem.find('\n') == std::string::npos, "a problem is one line");
    if (uiBytes == 0 || uiBytes % uiBlockSize != 0)
    {
        return;
    }
    // Without the header, bytes may look like another form: base64 that is all hexadecimal digits, raw bytes without
    // zero. With right checksums, more blocks may begin an EDID.
    const CBytes aui8Image = RepairImage(oInput.m_aui8Bytes);
    const CInputs aoImages = DecodeInputs("name", std::string(aui8Image.begin(), aui8Image.end()));
    size_t uiSize = 0;
    for (const SInput& oImage : aoImages)
    {
        uiSize += oImage.m_aui8Bytes.size();
        const CInputs aoChosen =
            DecodeInputs("name", std::string(aui8Image.begin(), aui8Image.end()), "", oImage.m_uiImage);
        Require(oImage.m_uiImage == 0 || HaveSameBytes(aoChosen, { oImage }), "an image can be chosen by its number");
    }
    Require(aoImages[0].m_sImages.empty() ? uiSize == aui8Image.size() : uiSize <= aui8Image.size(),
            "all bytes are of one image");
    for (const SOutputForm& oForm : GetOutputForms())
    {
        Require(HaveSameBytes(DecodeInputs("name", oForm.m_pfnMake(aui8Image)), aoImages), oForm.m_pszName);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    for (const SInput& oInput : DecodeInputs("name", std::string(pui8Data, pui8Data + uiSize), "all"))
    {
        TestInput(oInput);
    }
    return 0;
}
