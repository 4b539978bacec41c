// Fuzz target: the input is a program over several strings, run on CMString and on std::string side by side. Contents,
// lengths and answers stay equal; a write to one string never shows in another; a text never outgrows its estimate.
//
//   a step  operation, strings (own: bits 0 and 1, other: bits 2 and 3), character, two numbers, length of the text,
//           the text; Format takes ten bytes more

#include <limits.h>
#include <math.h>
#include <stdarg.h>
#include <string.h>

#include <string>

#include "FuzzSupport.h"
#include "ZorMFCTypes.h"

namespace
{
constexpr size_t gsc_uiLongest = 600; // longer strings are emptied, so that doubling ends
constexpr unsigned int gsc_uiMostSteps = 200;

// One step of the program: the strings that it works on, and its arguments in the order of the input.
struct SStep
{
    char TakeChar() const
    {
        const unsigned int uiByte = m_oInput.TakeByte();
        return uiByte == 0 ? 'a' : static_cast<char>(uiByte);
    }
    // Indexes and counts around the ends, and beyond all reason.
    int TakeNumber() const
    {
        const unsigned int uiByte = m_oInput.TakeByte();
        const int iLength = static_cast<int>(m_s.size());
        const int aiEnds[] = { 0, 1, -1, iLength, iLength - 1, iLength + 1, INT_MAX, INT_MIN, INT_MIN + 1 };
        return uiByte < 128 ? static_cast<int>(uiByte) - 16 : aiEnds[uiByte % 9];
    }
    std::string TakeText() const
    {
        std::string sText(m_oInput.TakeByte() % 24, ' ');
        std::generate(sText.begin(), sText.end(), [&] { return TakeChar(); });
        return sText;
    }

    CInput& m_oInput;
    CMString& m_o;
    std::string& m_s; // the model of m_o
    CMString& m_oOther;
    std::string& m_sOther;
    const char m_c = TakeChar();
    const int m_iIndex = TakeNumber();
    const int m_iCount = TakeNumber();
    const std::string m_sText = TakeText();
    const char* const m_pszText = m_sText.c_str();

    // The same for the model.
    const int m_iStart = std::max(m_iIndex, 0);
    const size_t m_uiStart = static_cast<size_t>(m_iStart);
    const size_t m_uiAt = std::min(m_uiStart, m_s.size());
    const size_t m_uiInside = m_iIndex >= 0 && m_uiAt < m_s.size() ? 1 : 0; // characters at the index
    const size_t m_uiCount = static_cast<size_t>(std::max(m_iCount, 0));

    int m_iAnswer = 0; // of an operation that gives one
};

// An index or a length; npos gives -1.
template <class NUMBER>
int Int(NUMBER xNumber)
{
    return static_cast<int>(xNumber);
}

// The 26 letters from cFirst on change their case.
std::string Fold(std::string sText, char cFirst)
{
    for (char& c : sText)
    {
        c = c >= cFirst && c < cFirst + 26 ? static_cast<char>(c ^ 0x20) : c;
    }
    return sText;
}
std::string Upper(const std::string& sText) { return Fold(sText, 'a'); }

int Count(const std::string& sText, char c) { return Int(std::count(sText.begin(), sText.end(), c)); }

void DeleteInModel(SStep& o)
{
    o.m_iAnswer = Int(o.m_s.size());
    const long long llLength = o.m_iAnswer;
    const long long llCut = std::min<long long>(o.m_iCount, llLength - o.m_iIndex);
    if (llCut >= 1 && o.m_iStart + llCut <= llLength)
    {
        o.m_s.erase(o.m_uiAt, static_cast<size_t>(llCut));
    }
}

// ---- Operations on both ----

void CopyAndChangeTheCopy(SStep& o)
{
    CMString oCopy(o.m_o);
    oCopy += o.m_c;
    CMString oFilled(o.m_c, o.m_iCount % 64);
    oFilled = oCopy;
    oFilled.MakeUpper();
}

void WriteBuffer(SStep& o)
{
    char* pszBuffer = o.m_o.GetBuffer(Int(o.m_sText.size()));
    if (!o.m_sText.empty()) // else it is perhaps the shared empty string, which must not be written
    {
        memcpy(pszBuffer, o.m_pszText, o.m_sText.size());
        o.m_o.ReleaseBuffer(Int(o.m_sText.size()));
        o.m_s = o.m_sText;
    }
}

// Ends with the tokens joined.
void Tokens(SStep& o)
{
    CMArrayString oList;
    const int iTokens = oList.InitFromString(o.m_o, o.m_pszText);
    CMString::CIterator oToken = o.m_o.Begin(o.m_pszText);
    std::string sJoined;
    int i = 0;
    for (size_t uiAt = o.m_s.find_first_not_of(o.m_sText); uiAt != std::string::npos; ++i)
    {
        const size_t uiEnd = std::min(o.m_s.find_first_of(o.m_sText, uiAt), o.m_s.size());
        const std::string sToken = o.m_s.substr(uiAt, uiEnd - uiAt);
        Require(oToken != o.m_o.End() && sToken == static_cast<const char*>(*oToken), "a token");
        ++oToken;
        sJoined += (i == 0 ? "" : ", ") + sToken;
        uiAt = o.m_s.find_first_not_of(o.m_sText, uiEnd);
    }
    Require(oToken == o.m_o.End() && iTokens == i, "all tokens");
    o.m_o = oList.Join(", ");
    o.m_s = sJoined;
}

// One string gets the text, the other one is extended by it.
void __attribute__((format(printf, 2, 3))) FormatBoth(SStep& o, const char* pszFormat, ...)
{
    va_list oList;
    va_start(oList, pszFormat);
    va_list oCopy;
    va_copy(oCopy, oList);
    char szExpected[2048];
    const int iLength = vsnprintf(szExpected, sizeof(szExpected), pszFormat, oCopy);
    va_end(oCopy);
    Require(CMString::GetFormattedLength(pszFormat, oList) >= iLength, "the estimate is enough");
    va_copy(oCopy, oList);
    o.m_o.FormatV(pszFormat, oList);
    o.m_s = szExpected;
    o.m_oOther.AppendFormatV(pszFormat, oCopy);
    o.m_sOther += szExpected;
    va_end(oCopy);
    va_end(oList);
}

// A format with one conversion between two literals. Width and precision stay below where the estimate is known to be
// too short (CMString::GetFormattedLength).
void Format(SStep& o)
{
    const struct
    {
        const char* m_pszSize;
        std::string m_sConversions;
        unsigned int m_uiPrecisions; // 0: none is given
    } aoKinds[] = {
        { "", "diuxXo", 30 }, { "ll", "diuxXo", 30 }, { "", "s", 40 }, { "", "c", 0 }, { "", "eEgGf", 100 }
    };
    const unsigned int uiFlags = o.m_oInput.TakeByte();
    const unsigned int uiWidth = o.m_oInput.TakeByte() % 96;
    const unsigned int uiPrecision = o.m_oInput.TakeByte();
    const unsigned int uiConversion = o.m_oInput.TakeByte();
    const unsigned int uiArgument = o.m_oInput.Take32();
    const unsigned int uiKind = uiConversion % 5;
    const auto& [pszSize, sConversions, uiPrecisions] = aoKinds[uiKind];

    std::string sFormat = o.m_sText;
    std::erase(sFormat, '%');
    sFormat += uiFlags / 32 == 0 ? "%%%" : "%";
    for (unsigned int i = 0; i < 5; ++i)
    {
        sFormat.append(uiFlags >> i & 1, "+- 0#"[i]);
    }
    sFormat += uiWidth != 0 ? std::to_string(uiWidth) : "";
    sFormat += uiPrecisions != 0 && uiPrecision % 4 != 0 ? "." + std::to_string(uiPrecision % uiPrecisions) : "";
    sFormat += pszSize + std::string(1, sConversions[uiConversion / 5 % sConversions.size()]) + "|";
    const std::string sArgument = o.m_sOther;
    const double dArgument = static_cast<int>(uiArgument) * pow(uiPrecision % 2 != 0 ? 1000.5 : 0.001, uiWidth);
    const char* pszFormat = sFormat.c_str();
    uiKind == 0   ? FormatBoth(o, pszFormat, uiArgument)
    : uiKind == 1 ? FormatBoth(o, pszFormat, static_cast<unsigned long long>(uiArgument) << uiPrecision % 32)
    : uiKind == 2 ? FormatBoth(o, pszFormat, sArgument.c_str())
    : uiKind == 3 ? FormatBoth(o, pszFormat, static_cast<int>(uiArgument % 255 + 1))
                  : FormatBoth(o, pszFormat, dArgument);
}

// ---- The table ----

struct SOperation
{
    const char* m_pszName;
    void (*m_fnLibrary)(SStep&);
    void (*m_fnModel)(SStep&); // null: nothing changes, or the other one has changed both
};

const SOperation gsc_aoOperations[] = {
    { "assign a text", [](SStep& o) { o.m_o = o.m_pszText; }, [](SStep& o) { o.m_s = o.m_sText; } },
    { "assign a character", [](SStep& o) { o.m_o = o.m_c; }, [](SStep& o) { o.m_s = o.m_c; } },
    { "assign a string", [](SStep& o) { o.m_o = o.m_oOther; }, [](SStep& o) { o.m_s = o.m_sOther; } },
    { "assign a part of itself", [](SStep& o) { o.m_o = static_cast<const char*>(o.m_o) + o.m_uiAt; },
      [](SStep& o) { o.m_s.erase(0, o.m_uiAt); } },
    { "append a character", [](SStep& o) { o.m_o += o.m_c; }, [](SStep& o) { o.m_s += o.m_c; } },
    { "append a string", [](SStep& o) { o.m_o += o.m_oOther; }, [](SStep& o) { o.m_s += std::string(o.m_sOther); } },
    { "append a text", [](SStep& o) { o.m_o += o.m_pszText; }, [](SStep& o) { o.m_s += o.m_sText; } },
    { "a copy changes", CopyAndChangeTheCopy, nullptr },
    { "sum", [](SStep& o) { o.m_o = o.m_pszText + (o.m_c + (o.m_o + o.m_oOther + o.m_pszText + o.m_c)); },
      [](SStep& o) { o.m_s = o.m_sText + o.m_c + o.m_s + o.m_sOther + o.m_sText + o.m_c; } },
    { "insert a character", [](SStep& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_c); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.insert(o.m_uiAt, 1, o.m_c).size()); } },
    { "insert a text", [](SStep& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_pszText); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.insert(o.m_uiAt, o.m_sText).size()); } },
    { "insert itself", [](SStep& o) { o.m_iAnswer = o.m_o.Insert(o.m_iIndex, o.m_o); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.insert(o.m_uiAt, std::string(o.m_s)).size()); } },
    { "delete", [](SStep& o) { o.m_iAnswer = o.m_o.Delete(o.m_iIndex, o.m_iCount); }, DeleteInModel },
    { "set a character", [](SStep& o) { o.m_o.SetAt(o.m_iIndex, o.m_c); },
      [](SStep& o) { o.m_s.replace(o.m_uiAt, o.m_uiInside, o.m_uiInside, o.m_c); } },
    { "get a character", [](SStep& o) { o.m_iAnswer = o.m_o.GetAt(o.m_iIndex); },
      [](SStep& o) { o.m_iAnswer = o.m_iIndex < 0 ? '\0' : o.m_s.c_str()[o.m_uiAt]; } },
    { "upper case", [](SStep& o) { o.m_o.MakeUpper(); }, [](SStep& o) { o.m_s = Upper(o.m_s); } },
    { "lower case", [](SStep& o) { o.m_o.MakeLower(); }, [](SStep& o) { o.m_s = Fold(o.m_s, 'A'); } },
    { "reverse", [](SStep& o) { o.m_o.MakeReverse(); }, [](SStep& o) { std::reverse(o.m_s.begin(), o.m_s.end()); } },
    { "trim left", [](SStep& o) { o.m_o.TrimLeft(o.m_pszText); },
      [](SStep& o) { o.m_s.erase(0, o.m_s.find_first_not_of(o.m_sText)); } },
    { "trim right", [](SStep& o) { o.m_o.TrimRight(o.m_pszText); },
      [](SStep& o) { o.m_s.erase(o.m_s.find_last_not_of(o.m_sText) + 1); } },
    { "trim both", [](SStep& o) { o.m_o.Trim(o.m_pszText); },
      [](SStep& o) {
          o.m_s.erase(o.m_s.find_last_not_of(o.m_sText) + 1).erase(0, o.m_s.find_first_not_of(o.m_sText));
      } },
    { "middle", [](SStep& o) { o.m_o = o.m_o.Mid(o.m_iIndex, o.m_iCount); },
      [](SStep& o) { o.m_s = o.m_s.substr(o.m_uiAt, o.m_uiCount); } },
    { "rest", [](SStep& o) { o.m_o = o.m_o.Mid(o.m_iIndex); }, [](SStep& o) { o.m_s.erase(0, o.m_uiAt); } },
    { "left", [](SStep& o) { o.m_o = o.m_o.Left(o.m_iCount); },
      [](SStep& o) { o.m_s = o.m_s.substr(0, o.m_uiCount); } },
    { "right", [](SStep& o) { o.m_o = o.m_o.Right(o.m_iCount); },
      [](SStep& o) { o.m_s.erase(0, o.m_s.size() - std::min(o.m_s.size(), o.m_uiCount)); } },
    { "find a character", [](SStep& o) { o.m_iAnswer = o.m_o.Find(o.m_c, o.m_iStart); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.find(o.m_c, o.m_uiStart)); } },
    { "find a text", [](SStep& o) { o.m_iAnswer = o.m_o.Find(o.m_pszText, o.m_iStart); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.find(o.m_sText, o.m_uiStart)); } },
    { "find backwards", [](SStep& o) { o.m_iAnswer = o.m_o.ReverseFind(o.m_c); },
      [](SStep& o) { o.m_iAnswer = Int(o.m_s.rfind(o.m_c)); } },
    { "count", [](SStep& o) { o.m_iAnswer = o.m_o.CountOf(o.m_c); },
      [](SStep& o) { o.m_iAnswer = Count(o.m_s, o.m_c); } },
    { "find a character of any case", [](SStep& o) { o.m_iAnswer = o.m_o.FindNoCase(o.m_c, o.m_iStart); },
      [](SStep& o) { o.m_iAnswer = Int(Upper(o.m_s).find(Upper({ o.m_c }), o.m_uiStart)); } },
    { "find a text of any case", [](SStep& o) { o.m_iAnswer = o.m_o.FindNoCase(o.m_pszText, o.m_iStart); },
      [](SStep& o) { o.m_iAnswer = Int(Upper(o.m_s).find(Upper(o.m_sText), o.m_uiStart)); } },
    { "find backwards in any case", [](SStep& o) { o.m_iAnswer = o.m_o.ReverseFindNoCase(o.m_c); },
      [](SStep& o) { o.m_iAnswer = Int(Upper(o.m_s).rfind(Upper({ o.m_c }))); } },
    { "count in any case", [](SStep& o) { o.m_iAnswer = o.m_o.CountOfNoCase(o.m_c); },
      [](SStep& o) { o.m_iAnswer = Count(Upper(o.m_s), Upper({ o.m_c })[0]); } },
    { "empty", [](SStep& o) { o.m_o.Empty(); }, [](SStep& o) { o.m_s.clear(); } },
    { "write the buffer", WriteBuffer, nullptr },
    { "set the buffer's length",
      [](SStep& o) { memcpy(o.m_o.GetBufferSetLength(Int(o.m_sText.size())), o.m_pszText, o.m_sText.size()); },
      [](SStep& o) { o.m_s = o.m_sText; } },
    { "free extra", [](SStep& o) { o.m_o.FreeExtra(); }, nullptr },
    { "lock", [](SStep& o) { o.m_o.LockBuffer(); }, nullptr },
    { "unlock", [](SStep& o) { o.m_o.UnlockBuffer(); }, nullptr },
    { "format", Format, nullptr },
    { "tokens", Tokens, nullptr },
};

void Run(const SOperation& oOperation, SStep oStep)
{
    if (oStep.m_s.size() + oStep.m_sOther.size() > gsc_uiLongest)
    {
        oStep.m_o.Empty();
        oStep.m_s.clear();
        return;
    }
    oOperation.m_fnLibrary(oStep);
    if (oOperation.m_fnModel != nullptr)
    {
        const int iAnswer = oStep.m_iAnswer;
        oOperation.m_fnModel(oStep);
        Require(iAnswer == oStep.m_iAnswer, oOperation.m_pszName);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    CMString aoStrings[4];
    std::string asModels[4];
    for (unsigned int i = 0; i < gsc_uiMostSteps && !oInput.IsEmpty(); ++i)
    {
        const SOperation& oOperation = gsc_aoOperations[oInput.TakeByte() % std::size(gsc_aoOperations)];
        const unsigned int uiOwn = oInput.TakeByte();
        const unsigned int uiOther = uiOwn / 4 % 4;
        Run(oOperation, { oInput, aoStrings[uiOwn % 4], asModels[uiOwn % 4], aoStrings[uiOther], asModels[uiOther] });
        for (size_t j = 0; j < std::size(aoStrings); ++j)
        {
            const std::string& sModel = asModels[j];
            Require(aoStrings[j].GetLength() == Int(sModel.size()), oOperation.m_pszName);
            Require(aoStrings[j].GetAllocLength() >= Int(sModel.size()), "capacity holds the text");
            Require(memcmp(static_cast<const char*>(aoStrings[j]), sModel.c_str(), sModel.size() + 1) == 0,
                    oOperation.m_pszName);
        }
    }
    return 0;
}
