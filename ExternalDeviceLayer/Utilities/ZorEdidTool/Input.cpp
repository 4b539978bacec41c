// Reading an input and telling its form.

#include "Input.h"

#include <fstream>
#include <iterator>

SInput DecodeInput(const std::string& sName, const std::string& sContent)
{
    return { sName, { sContent.begin(), sContent.end() }, "raw image", "" };
}

SInput ReadInput(const std::string& sName)
{
    std::ifstream oFile(sName, std::ios::binary);
    if (!oFile)
    {
        return { sName, {}, "", "cannot be opened" };
    }
    return DecodeInput(sName, { std::istreambuf_iterator<char>(oFile), {} });
}
