// Fuzz target: the input as a file that the command is given. What is taken for an image is written in each form and
// read back; what is not has a reason of one line.

#include <string>

#include "FuzzSupport.h"
#include "Input.h"
#include "OutputForms.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    constexpr size_t uiBlockSize = 128;
    constexpr size_t uiMaxSize = 256 * uiBlockSize;
    const std::string sContent(pui8Data, pui8Data + uiSize);
    const SInput oInput = DecodeInput("name", sContent);
    const size_t uiBytes = oInput.m_aui8Bytes.size();
    Require(oInput.IsGood() == (uiBytes != 0) && uiBytes <= uiMaxSize, "there is an image or a problem");
    Require(oInput.m_sProblem.find('\n') == std::string::npos, "a problem is one line");
    if (uiBytes == 0 || uiBytes % uiBlockSize != 0)
    {
        return 0;
    }
    // Without the header, bytes may look like another form: base64 that is all hexadecimal digits, raw bytes without
    // zero.
    const CBytes aui8Image = RepairImage(oInput.m_aui8Bytes);
    for (const SOutputForm& oForm : GetOutputForms())
    {
        Require(DecodeInput("name", oForm.m_pfnMake(aui8Image)).m_aui8Bytes == aui8Image, oForm.m_pszName);
    }
    return 0;
}
