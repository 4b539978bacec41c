// Fuzz target: the input is a program over several strings, run on CMString and on std::string side by side. Contents
// and lengths stay equal; a write to one string never shows in another; a text never outgrows its estimate.

#include <ctype.h>
#include <limits.h>
#include <stdarg.h>
#include <string.h>

#include <array>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "ZorMFCTypes.h"

namespace
{
constexpr size_t gsc_uiStrings = 4;
constexpr size_t gsc_uiLongest = 600; // longer strings are cut back, so that doubling ends
constexpr unsigned int gsc_uiMostSteps = 200;

class CProgram
{
public:
    CProgram(const uint8_t* pui8Data, size_t uiSize) : m_oInput(pui8Data, uiSize) {}

    void Run()
    {
        for (unsigned int i = 0; i < gsc_uiMostSteps && !m_oInput.IsEmpty(); ++i)
        {
            Step();
            CheckAll();
        }
    }

private:
    using Operation = void (CProgram::*)();

    static const Operation msc_apfnOperations[];

    void Step();

    CMString& Own() { return m_aoStrings[m_uiOwn]; }
    std::string& Model() { return m_asModels[m_uiOwn]; }
    CMString& Other() { return m_aoStrings[m_uiOther]; }
    std::string& OtherModel() { return m_asModels[m_uiOther]; }
    int Length() const { return static_cast<int>(m_asModels[m_uiOwn].size()); }

    char TakeChar()
    {
        const unsigned int uiByte = m_oInput.TakeByte();
        return uiByte == 0 ? 'a' : static_cast<char>(uiByte);
    }

    std::string TakeText()
    {
        std::string sText(m_oInput.TakeByte() % 24, ' ');
        for (char& c : sText)
        {
            c = TakeChar();
        }
        return sText;
    }

    // Indexes and counts around the ends, and beyond all reason.
    int TakeNumber()
    {
        const unsigned int uiByte = m_oInput.TakeByte();
        const int aiEnds[] = { 0, 1, -1, Length(), Length() - 1, Length() + 1, INT_MAX, INT_MIN, INT_MIN + 1 };
        return uiByte < 128 ? static_cast<int>(uiByte) - 16 : aiEnds[uiByte % 9];
    }

    void CheckAll();

    // ---- Operations ----

    void AssignText()
    {
        Model() = TakeText();
        Own() = Model().c_str();
    }
    void AssignChar()
    {
        const char c = TakeChar();
        Own() = c;
        Model() = c;
    }
    void AssignOther()
    {
        Own() = Other();
        Model() = OtherModel();
    }
    void AssignPartOfItself()
    {
        const size_t uiFrom = Model().empty() ? 0 : m_oInput.TakeByte() % Model().size();
        Own() = static_cast<const char*>(Own()) + uiFrom;
        Model() = Model().substr(uiFrom);
    }
    void CopyAndChangeTheCopy()
    {
        CMString oCopy(Own());
        oCopy += TakeChar();
        CMString oFilled(TakeChar(), TakeNumber() % 64);
        oFilled = oCopy;
        oFilled.MakeUpper();
    }
    void AppendChar()
    {
        const char c = TakeChar();
        Own() += c;
        Model() += c;
    }
    void AppendOther()
    {
        const std::string sOther = OtherModel();
        Own() += Other();
        Model() += sOther;
    }
    void AppendText()
    {
        const std::string sText = TakeText();
        Own() += sText.c_str();
        Model() += sText;
    }
    void Sum()
    {
        const std::string sText = TakeText();
        const char c = TakeChar();
        const std::string sSum = Model() + OtherModel() + sText + c;
        Own() = Own() + Other() + sText.c_str() + c;
        Model() = sSum;
        Own() = c + Own();
        Model() = c + Model();
        Own() = sText.c_str() + Own();
        Model() = sText + Model();
    }
    void InsertChar()
    {
        const int iIndex = TakeNumber();
        const char c = TakeChar();
        Require(Own().Insert(iIndex, c) == Length() + 1, "Insert gives the new length");
        Model().insert(Clamp(iIndex), 1, c);
    }
    void InsertText()
    {
        const int iIndex = TakeNumber();
        const std::string sText = TakeText();
        Require(Own().Insert(iIndex, sText.c_str()) == Length() + static_cast<int>(sText.size()),
                "Insert gives the new length");
        Model().insert(Clamp(iIndex), sText);
    }
    void InsertItself()
    {
        const int iIndex = TakeNumber();
        const std::string sItself = Model();
        Own().Insert(iIndex, Own());
        Model().insert(Clamp(iIndex), sItself);
    }
    void Delete()
    {
        const int iIndex = TakeNumber();
        const int iCount = TakeNumber();
        Require(Own().Delete(iIndex, iCount) == Length(), "Delete gives the length before");
        const long long llCut = std::min<long long>(iCount, static_cast<long long>(Length()) - iIndex);
        const long long llFrom = std::max(iIndex, 0);
        if (llCut >= 1 && llFrom < Length() && llFrom + llCut <= Length())
        {
            Model().erase(static_cast<size_t>(llFrom), static_cast<size_t>(llCut));
        }
    }
    void SetChar()
    {
        const int iIndex = TakeNumber();
        const char c = TakeChar();
        Own().SetAt(iIndex, c);
        if (iIndex >= 0 && iIndex < Length())
        {
            Model()[static_cast<size_t>(iIndex)] = c;
        }
        Require(Own().GetAt(iIndex) == (iIndex >= 0 && iIndex < Length() ? c : '\0'), "GetAt gives what SetAt stored");
    }
    void ChangeCase()
    {
        const unsigned int uiKind = m_oInput.TakeByte() % 3;
        if (uiKind == 2)
        {
            Own().MakeReverse();
            std::reverse(Model().begin(), Model().end());
            return;
        }
        uiKind == 0 ? Own().MakeUpper() : Own().MakeLower();
        for (char& c : Model())
        {
            c = FoldCase(c, uiKind == 0);
        }
    }
    void Trim()
    {
        const std::string sTargets = TakeText();
        const unsigned int uiKind = m_oInput.TakeByte() % 3;
        uiKind == 0   ? Own().TrimLeft(sTargets.c_str())
        : uiKind == 1 ? Own().TrimRight(sTargets.c_str())
                      : Own().Trim(sTargets.c_str());
        if (sTargets.empty())
        {
            return;
        }
        if (uiKind != 1)
        {
            Model().erase(0, std::min(Model().find_first_not_of(sTargets), Model().size()));
        }
        if (uiKind != 0)
        {
            Model().erase(Model().find_last_not_of(sTargets) + 1);
        }
    }
    void TakePart()
    {
        const int iFirst = TakeNumber();
        const int iCount = TakeNumber();
        const size_t uiFirst = std::min(Clamp(iFirst), Model().size());
        const size_t uiCount = static_cast<size_t>(std::max(iCount, 0));
        const std::string sOwn = Model();
        switch (m_oInput.TakeByte() % 4)
        {
        case 0:
            Own() = Own().Mid(iFirst, iCount);
            Model() = iFirst > Length() ? "" : sOwn.substr(uiFirst, uiCount);
            break;
        case 1:
            Own() = Own().Mid(iFirst);
            Model() = iFirst > Length() ? "" : sOwn.substr(uiFirst);
            break;
        case 2:
            Own() = Own().Left(iCount);
            Model() = sOwn.substr(0, uiCount);
            break;
        default:
            Own() = Own().Right(iCount);
            Model() = uiCount >= sOwn.size() ? sOwn : sOwn.substr(sOwn.size() - uiCount);
            break;
        }
    }
    void Search()
    {
        const char c = TakeChar();
        const std::string sText = TakeText();
        const int iStart = std::max(TakeNumber(), 0);
        const size_t uiStart = static_cast<size_t>(iStart);
        Require(Own().Find(c, iStart) == IndexOf(Model().find(c, uiStart)), "Find a character");
        Require(Own().Find(sText.c_str(), iStart) == IndexOf(Model().find(sText, uiStart)), "Find a text");
        Require(Own().ReverseFind(c) == IndexOf(Model().rfind(c)), "ReverseFind");
        Require(Own().CountOf(c) == static_cast<int>(std::count(Model().begin(), Model().end(), c)), "CountOf");

        const std::string sUpper = Upper(Model());
        const char cUpper = FoldCase(c, true);
        Require(Own().FindNoCase(c, iStart) == IndexOf(sUpper.find(cUpper, uiStart)), "FindNoCase a character");
        Require(Own().FindNoCase(sText.c_str(), iStart) == IndexOf(sUpper.find(Upper(sText), uiStart)),
                "FindNoCase a text");
        Require(Own().ReverseFindNoCase(c) == IndexOf(sUpper.rfind(cUpper)), "ReverseFindNoCase");
        Require(Own().CountOfNoCase(c) == static_cast<int>(std::count(sUpper.begin(), sUpper.end(), cUpper)),
                "CountOfNoCase");
    }
    void Empty()
    {
        Own().Empty();
        Model().clear();
    }
    void WriteBuffer()
    {
        const std::string sText = TakeText();
        char* pszBuffer = Own().GetBuffer(static_cast<int>(sText.size()));
        if (sText.empty())
        {
            return; // perhaps the shared empty string, which must not be written
        }
        memcpy(pszBuffer, sText.c_str(), sText.size());
        Own().ReleaseBuffer(static_cast<int>(sText.size()));
        Model() = sText;
    }
    void SetBufferLength()
    {
        const std::string sText = TakeText();
        char* pszBuffer = Own().GetBufferSetLength(static_cast<int>(sText.size()));
        memcpy(pszBuffer, sText.c_str(), sText.size());
        Model() = sText;
    }
    void FreeExtra() { Own().FreeExtra(); }
    void Lock() { Own().LockBuffer(); }
    void Unlock() { Own().UnlockBuffer(); }
    void Format();
    void Tokens()
    {
        const std::string sSeparators = TakeText();
        std::vector<std::string> asExpected;
        for (size_t uiAt = Model().find_first_not_of(sSeparators); uiAt != std::string::npos;)
        {
            const size_t uiEnd = std::min(Model().find_first_of(sSeparators, uiAt), Model().size());
            asExpected.push_back(Model().substr(uiAt, uiEnd - uiAt));
            uiAt = Model().find_first_not_of(sSeparators, uiEnd);
        }
        size_t uiToken = 0;
        for (CMString::CIterator oToken = Own().Begin(sSeparators.c_str()); oToken != Own().End(); ++oToken)
        {
            Require(uiToken < asExpected.size() && asExpected[uiToken] == static_cast<const char*>(*oToken), "a token");
            ++uiToken;
        }
        Require(uiToken == asExpected.size(), "all tokens");

        CMArrayString oList;
        Require(oList.InitFromString(Own(), sSeparators.c_str()) == static_cast<int>(uiToken), "a list of tokens");
        std::string sJoined;
        for (size_t i = 0; i < asExpected.size(); ++i)
        {
            sJoined += (i == 0 ? "" : ", ") + asExpected[i];
        }
        Own() = oList.Join(", ");
        Model() = sJoined;
    }

    // ---- Helpers of the model ----

    size_t Clamp(int iIndex) const { return static_cast<size_t>(std::clamp(iIndex, 0, Length())); }
    static int IndexOf(size_t uiFound) { return uiFound == std::string::npos ? -1 : static_cast<int>(uiFound); }
    static char FoldCase(char c, bool bUp)
    {
        const char cFirst = bUp ? 'a' : 'A';
        return c >= cFirst && c < cFirst + 26 ? static_cast<char>(c ^ 0x20) : c;
    }
    static std::string Upper(std::string sText)
    {
        for (char& c : sText)
        {
            c = FoldCase(c, true);
        }
        return sText;
    }
    void FormatBoth(bool bAppend, const char* pszFormat, ...) __attribute__((format(printf, 3, 4)));

    CInput m_oInput;
    size_t m_uiOwn = 0;
    size_t m_uiOther = 0;
    std::array<CMString, gsc_uiStrings> m_aoStrings;
    std::array<std::string, gsc_uiStrings> m_asModels;
};

const CProgram::Operation CProgram::msc_apfnOperations[] = {
    &CProgram::AssignText, &CProgram::AssignChar,  &CProgram::AssignOther,     &CProgram::AssignPartOfItself,
    &CProgram::AppendChar, &CProgram::AppendOther, &CProgram::AppendText,      &CProgram::CopyAndChangeTheCopy,
    &CProgram::Sum,        &CProgram::InsertChar,  &CProgram::InsertText,      &CProgram::InsertItself,
    &CProgram::Delete,     &CProgram::SetChar,     &CProgram::ChangeCase,      &CProgram::Trim,
    &CProgram::TakePart,   &CProgram::Search,      &CProgram::Empty,           &CProgram::WriteBuffer,
    &CProgram::FreeExtra,  &CProgram::Lock,        &CProgram::SetBufferLength, &CProgram::Unlock,
    &CProgram::Format,     &CProgram::Tokens,
};

void CProgram::Step()
{
    const unsigned int uiOperation = m_oInput.TakeByte();
    const unsigned int uiStrings = m_oInput.TakeByte();
    m_uiOwn = uiStrings % gsc_uiStrings;
    m_uiOther = uiStrings / gsc_uiStrings % gsc_uiStrings;
    if (Model().size() + OtherModel().size() > gsc_uiLongest)
    {
        Empty();
        return;
    }
    (this->*msc_apfnOperations[uiOperation % std::size(msc_apfnOperations)])();
}

void CProgram::CheckAll()
{
    for (size_t i = 0; i < gsc_uiStrings; ++i)
    {
        const char* pszText = m_aoStrings[i];
        const std::string& sModel = m_asModels[i];
        Require(m_aoStrings[i].GetLength() == static_cast<int>(sModel.size()), "a length");
        Require(memcmp(pszText, sModel.c_str(), sModel.size() + 1) == 0, "contents");
        Require(m_aoStrings[i].GetAllocLength() >= m_aoStrings[i].GetLength(), "capacity holds the text");
    }
}

void CProgram::FormatBoth(bool bAppend, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    va_list oCopy;
    va_copy(oCopy, oList);
    char szExpected[2048];
    const int iLength = vsnprintf(szExpected, sizeof(szExpected), pszFormat, oCopy);
    va_end(oCopy);
    Require(CMString::GetFormattedLength(pszFormat, oList) >= iLength, "the estimate is enough");
    if (bAppend)
    {
        Own().AppendFormatV(pszFormat, oList);
        Model() += szExpected;
    }
    else
    {
        Own().FormatV(pszFormat, oList);
        Model() = szExpected;
    }
    va_end(oList);
}

// A format with one conversion between two literals. Width and precision stay below where the estimate is known to be
// too short (CMString::GetFormattedLength).
void CProgram::Format()
{
    const bool bAppend = m_oInput.TakeByte() % 2 != 0;
    std::string sFormat = TakeText();
    std::erase(sFormat, '%');
    sFormat += m_oInput.TakeByte() % 8 == 0 ? "%%%" : "%";
    const unsigned int uiFlags = m_oInput.TakeByte();
    const char szFlags[] = "+- 0#";
    for (unsigned int i = 0; i < 5; ++i)
    {
        sFormat += (uiFlags >> i & 1) != 0 ? std::string(1, szFlags[i]) : "";
    }
    const unsigned int uiWidth = m_oInput.TakeByte() % 96;
    const unsigned int uiPrecision = m_oInput.TakeByte();
    const std::string sWidth = uiWidth != 0 ? std::to_string(uiWidth) : "";
    const auto Precision = [&](unsigned int uiLimit) {
        return uiPrecision % 4 == 0 ? "" : "." + std::to_string(uiPrecision % uiLimit);
    };
    const unsigned int uiConversion = m_oInput.TakeByte();
    const unsigned int uiArgument = m_oInput.Take32();
    const std::string sTail = "|";
    switch (uiConversion % 5)
    {
    case 0:
        FormatBoth(bAppend,
                   (sFormat + sWidth + Precision(30) + std::string(1, "diuxXo"[uiConversion / 5 % 6]) + sTail).c_str(),
                   uiArgument);
        break;
    case 1:
        FormatBoth(bAppend, (sFormat + sWidth + Precision(30) + "ll" + "diuxXo"[uiConversion / 5 % 6] + sTail).c_str(),
                   static_cast<unsigned long long>(uiArgument) << uiPrecision % 32);
        break;
    case 2:
        FormatBoth(bAppend, (sFormat + sWidth + Precision(40) + "s" + sTail).c_str(), OtherModel().c_str());
        break;
    case 3:
        FormatBoth(bAppend, (sFormat + sWidth + "c" + sTail).c_str(), static_cast<int>(uiArgument % 255 + 1));
        break;
    default: {
        double dArgument = static_cast<int>(uiArgument);
        for (unsigned int i = 0; i < uiWidth; ++i)
        {
            dArgument *= uiPrecision % 2 != 0 ? 1000.5 : 0.001;
        }
        FormatBoth(bAppend, (sFormat + sWidth + Precision(100) + "eEgGf"[uiConversion / 5 % 5] + sTail).c_str(),
                   dArgument);
        break;
    }
    }
}
}

extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    SilenceMessages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CProgram(pui8Data, uiSize).Run();
    return 0;
}
