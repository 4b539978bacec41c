// Fuzz target: the input as a file that the command is given. What is taken for an image is written in each form and
// read back; what is not has a reason of one line.

#include <string>

#include "FuzzSupport.h"
#include "Input.h"
#include "OutputForms.h"

namespace
{
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
    // zero.
    const CBytes aui8Image = RepairImage(oInput.m_aui8Bytes);
    for (const SOutputForm& oForm : GetOutputForms())
    {
        const CInputs aoRead = DecodeInputs("name", oForm.m_pfnMake(aui8Image));
        Require(aoRead.size() == 1 && aoRead[0].m_aui8Bytes == aui8Image, oForm.m_pszName);
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
