// What a monitor is: the lines of C++ in README.md. five_lines FILE

#include <stdio.h>

#include "ZorEdidFacts.h"

namespace
{
void Show(const unsigned char* pui8Data, unsigned int uiSize)
{
    CZorEdidFacts oFacts; // values of which each knows its byte
    oFacts.Read(uiSize, pui8Data);
    puts(oFacts.GetIdentity().m_oName.m_oValue.m_szText);
    if (oFacts.GetSize().m_oSize.IsSaid())
        printf("%.1f inches across\n", oFacts.GetSize().GetDiagonal());
}
} // namespace

int main(int iCount, char** apszArguments)
{
    static unsigned char s_aui8Bytes[256 * 128];
    FILE* const poFile = iCount == 2 ? fopen(apszArguments[1], "rb") : nullptr;
    if (poFile == nullptr)
    {
        return 1;
    }
    const size_t uiSize = fread(s_aui8Bytes, 1, sizeof(s_aui8Bytes), poFile);
    fclose(poFile);
    Show(s_aui8Bytes, static_cast<unsigned int>(uiSize));
}
