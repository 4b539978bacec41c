// Writes the images of the self-check, NAME.bin each, for tests that run the command. WriteImages FOLDER

#include <stdio.h>

#include <string>

#include "CEdidTestImages.h"

int main(int iCount, char** ppszArguments)
{
    bool bWritten = iCount == 2;
    for (size_t i = 0; bWritten && i < std::size(gsc_aoEdidTestImages); ++i)
    {
        const SNamedEdidImage& oImage = gsc_aoEdidTestImages[i];
        const std::string sPath = std::string(ppszArguments[1]) + "/" + oImage.m_pszName + ".bin";
        FILE* pFile = fopen(sPath.c_str(), "wb");
        bWritten = pFile != nullptr &&
                   fwrite(oImage.m_paui8Image->data(), oImage.m_paui8Image->size(), 1, pFile) == 1 &&
                   fclose(pFile) == 0;
    }
    return bWritten ? 0 : 1;
}
