// The reader of dumps with addresses: xxd, od, hexdump, i2cdump, ddcutil.
//   00000000: 00ff ffff ffff ff00 4c2d 6f79 5744 3031  ........L-oyWD01     bytes in order, any grouping
//   +0000   00 ff ff ff ff ff ff 00 4c 2d 6f 79 57 44 30 31   ........L-oyWD01
//   000000 00 ff ff ff ff ff ff 00  >........<                             a byte a group
//   0000000 177400 177777 177777 000377                                    words, low byte first
// A line "*" repeats the line before it.

#include <algorithm>

#include "InputReaders.h"

namespace
{
class CDumpReader
{
public:
    explicit CDumpReader(SInput& oInput) : m_oInput(oInput) {}

    // After that the lines belong to the dump until one does not.
    bool HasBegun() const { return m_bBegun; }
    bool IsXxd() const { return m_bColon; }

    // False for a line that is not part of a dump. Problems go to the input.
    bool TakeLine(std::string_view sLine, size_t uiLine)
    {
        sLine = Trim(sLine);
        if (m_bBegun && sLine == "*")
        {
            m_bStar = true;
            return true;
        }
        std::string_view sAddress;
        bool bColon = false;
        if (!SplitAddress(sLine, sAddress, bColon))
        {
            return false;
        }
        if (!m_bBegun)
        {
            m_bColon = bColon;
            const std::string_view sGroups = CutText(sLine);
            m_bBegun = CheckAddress(sAddress) && AddGroups(sGroups) && m_uiLineSize != 0;
            if (const char* pszRadix = FindOtherRadix(sGroups); pszRadix != nullptr)
            {
                m_oInput.m_sProblem = AtLine(uiLine, pszRadix);
                m_bBegun = true;
            }
            if (!m_bBegun)
            {
                m_oInput.m_aui8Bytes.clear();
            }
            return m_bBegun;
        }
        if (!CheckAddress(sAddress))
        {
            m_oInput.m_sProblem = AtLine(uiLine, "its address does not follow the bytes before it");
        }
        else if (!AddGroups(CutText(sLine)))
        {
            m_oInput.m_sProblem = AtLine(uiLine, "not hexadecimal or octal bytes");
        }
        return true;
    }

private:
    // The address in front, zero at first; sLine becomes what follows. Without a colon it has six digits or more; a
    // plus in front of it is as good as a colon.
    bool SplitAddress(std::string_view& sLine, std::string_view& sAddress, bool& bColon) const
    {
        const bool bPlus = StartsWith(sLine, "+");
        sLine.remove_prefix(bPlus ? 1 : 0);
        const size_t uiLength = std::min(sLine.find_first_not_of(gsc_sHexDigits), sLine.size());
        sAddress = sLine.substr(0, uiLength);
        bColon = uiLength < sLine.size() && sLine[uiLength] == ':';
        const size_t uiBehind = uiLength + (bColon ? 1 : 0);
        bColon = bColon || bPlus;
        const bool bBlank = uiBehind == sLine.size() || sLine[uiBehind] == ' ' || sLine[uiBehind] == '\t';
        sLine.remove_prefix(uiBehind);
        const bool bZero = sAddress.find_first_not_of('0') == std::string_view::npos;
        return bBlank && uiLength >= (bColon ? 2 : 6) && uiLength <= 12 && (m_bBegun || bZero);
    }

    // The readable column goes: after two blanks in a dump with colons, else after a bar or an angle.
    std::string_view CutText(std::string_view sLine) const
    {
        if (m_bColon)
        {
            sLine = Trim(sLine);
            return sLine.substr(0, sLine.find("  "));
        }
        return sLine.substr(0, sLine.find_first_of("|>"));
    }

    // The radix of a first line whose numbers are not read, recognised by how an EDID begins in it.
    static const char* FindOtherRadix(std::string_view sGroups)
    {
        std::string sDigits; // with one blank before each group, whatever the columns are
        for (int i = 0; i < 3; ++i)
        {
            sDigits.append(" ").append(TakeToken(sGroups, " \t"));
        }
        return sDigits == " 00000000 11111111 11111111" ? "binary digits are not read (xxd without -b)"
               : sDigits == " 0 255 255"                ? "decimal bytes are not read (od -tx1)"
                                                        : nullptr;
    }

    // Keeps those radices in which this address follows, and makes up for a star: in the first radix that fits.
    bool CheckAddress(std::string_view sAddress)
    {
        bool bAny = false;
        for (SRadix& oRadix : m_aoRadices)
        {
            unsigned long long ullAddress = 0;
            oRadix.m_bPossible = oRadix.m_bPossible && ParseDigits(sAddress, oRadix.m_uiRadix, ullAddress) &&
                                 Follows(ullAddress) && !(m_bStar && bAny);
            if (oRadix.m_bPossible && m_bStar)
            {
                Repeat(ullAddress);
            }
            bAny = bAny || oRadix.m_bPossible;
        }
        m_bStar = false;
        return bAny;
    }

    bool Follows(unsigned long long ullAddress) const
    {
        const size_t uiSize = m_oInput.m_aui8Bytes.size();
        return ullAddress == uiSize ||
               (m_bStar && m_uiLineSize != 0 && ullAddress > uiSize && (ullAddress - uiSize) % m_uiLineSize == 0);
    }

    void Repeat(unsigned long long ullAddress)
    {
        std::vector<unsigned char>& aui8Bytes = m_oInput.m_aui8Bytes;
        while (aui8Bytes.size() < ullAddress && aui8Bytes.size() <= gsc_uiMaxSize)
        {
            AddByte(m_oInput, aui8Bytes[aui8Bytes.size() - m_uiLineSize]);
        }
    }

    bool AddGroups(std::string_view sRest)
    {
        const size_t uiBefore = m_oInput.m_aui8Bytes.size();
        for (std::string_view sGroup = TakeToken(sRest, " \t"); !sGroup.empty(); sGroup = TakeToken(sRest, " \t"))
        {
            if (!(m_bColon ? AddHex(m_oInput, sGroup) : AddNumber(sGroup)))
            {
                return false;
            }
        }
        m_uiLineSize = m_oInput.m_aui8Bytes.size() - uiBefore;
        return true;
    }

    // A group of od: its digits give the size, and the low byte comes first.
    bool AddNumber(std::string_view sGroup)
    {
        const size_t uiDigits = sGroup.size();
        const bool bOctal = uiDigits == 3 || uiDigits == 6;
        unsigned long long ullValue = 0;
        if ((!bOctal && uiDigits != 2 && uiDigits != 4 && uiDigits != 8) ||
            !ParseDigits(sGroup, bOctal ? 8 : 16, ullValue))
        {
            return false;
        }
        const size_t uiBytes = bOctal ? uiDigits / 3 : uiDigits / 2;
        if (ullValue >> 8 * uiBytes != 0) // octal digits hold more
        {
            return false;
        }
        for (size_t i = 0; i < uiBytes; ++i)
        {
            AddByte(m_oInput, ullValue >> 8 * i);
        }
        return true;
    }

    struct SRadix
    {
        unsigned int m_uiRadix;
        bool m_bPossible = true;
    };

    SInput& m_oInput;
    SRadix m_aoRadices[3] = { { 16 }, { 8 }, { 10 } }; // in which the addresses may be
    size_t m_uiLineSize = 0;                           // bytes of the last line
    bool m_bBegun = false;
    bool m_bColon = false;
    bool m_bStar = false;
};
} // namespace

// Lines before the dump are skipped; the first other line after its start ends it.
bool ReadDumpAt(std::string_view sText, size_t uiLine, SInput& oInput)
{
    CDumpReader oReader(oInput);
    for (; !sText.empty() && oInput.IsGood(); ++uiLine)
    {
        const std::string_view sLine = TakeLine(sText);
        if (!oReader.TakeLine(sLine, uiLine) && oReader.HasBegun() && !Trim(sLine).empty())
        {
            break;
        }
    }
    oInput.m_sForm = oReader.IsXxd() ? "xxd dump" : "dump with addresses";
    return oReader.HasBegun();
}

bool ReadDump(const std::string& sText, SInput& oInput) { return ReadDumpAt(sText, 1, oInput); }
