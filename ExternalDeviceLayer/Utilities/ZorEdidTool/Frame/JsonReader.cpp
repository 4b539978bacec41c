// RapidJSON fed with bytes within the limits, and its calls handed on.

#include "JsonReader.h"

#include <string.h>

#include <array>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace
{
constexpr size_t gsc_uiPiece = size_t{ 1 } << 16;

// A stream of RapidJSON. It ends early, with a problem, where a limit is passed: RapidJSON keeps each text and number
// whole.
class CStream
{
public:
    using Ch = char;

    explicit CStream(const CJsonReader::TRead& fnRead) : m_fnRead(fnRead) { Fill(); }

    // A NUL, which no JSON has, ends it for RapidJSON, too.
    Ch Peek() const { return m_uiNext < m_uiEnd ? m_acPiece[m_uiNext] : '\0'; }

    Ch Take()
    {
        const Ch cTaken = Peek();
        if (m_uiNext < m_uiEnd)
        {
            Count(cTaken);
            ++m_uiNext;
            Fill();
        }
        return cTaken;
    }

    size_t Tell() const { return m_uiBefore + m_uiNext; }

    // Of streams that are written, too.
    void Put(Ch /*cNext*/) {}
    void Flush() {}
    Ch* PutBegin() { return nullptr; }
    size_t PutEnd(Ch* /*pcBegin*/) { return 0; }

    bool IsAtEnd() const { return m_uiNext >= m_uiEnd; }
    const std::string& GetProblem() const { return m_sProblem; }

private:
    void Fill()
    {
        if (m_uiNext == m_uiEnd && m_sProblem.empty())
        {
            m_uiBefore += m_uiEnd;
            m_uiNext = 0;
            m_uiEnd = m_fnRead(m_acPiece.data(), m_acPiece.size());
        }
        if (Tell() >= CJsonReader::msc_uiMostBytes && !IsAtEnd())
        {
            Stop("is longer than " + std::to_string(CJsonReader::msc_uiMostBytes >> 20) + " MiB");
        }
    }

    // The characters of the text or the number that it is in.
    void Count(Ch cTaken)
    {
        const bool bQuote = cTaken == '"' && !m_bEscaped;
        m_bText = m_bText != bQuote;
        m_bEscaped = m_bText && cTaken == '\\' && !m_bEscaped;
        const bool bInside = m_bText ? !bQuote : strchr(",:[]{}\" \t\r\n", cTaken) == nullptr;
        m_uiCharacters = bInside ? m_uiCharacters + 1 : 0;
        if (m_uiCharacters > CJsonReader::msc_uiMostCharacters)
        {
            Stop("has a text or a number of more than " + std::to_string(CJsonReader::msc_uiMostCharacters) +
                 " characters");
        }
    }

    void Stop(const std::string& sProblem)
    {
        m_sProblem = sProblem;
        m_uiEnd = m_uiNext;
    }

    const CJsonReader::TRead& m_fnRead;
    std::array<char, gsc_uiPiece> m_acPiece;
    size_t m_uiNext = 0;
    size_t m_uiEnd = 0;
    size_t m_uiBefore = 0; // bytes before the piece
    bool m_bText = false;
    bool m_bEscaped = false;
    size_t m_uiCharacters = 0;
    std::string m_sProblem;
};

// A handler of RapidJSON.
class CHandler
{
public:
    explicit CHandler(CJsonEvents& oEvents) : m_oEvents(oEvents) {}

    bool StartObject() { return Enter() && m_oEvents.BeginObject(); }
    bool StartArray() { return Enter() && m_oEvents.BeginArray(); }
    bool EndObject(rapidjson::SizeType /*uiMembers*/) { return Leave() && m_oEvents.EndObject(); }
    bool EndArray(rapidjson::SizeType /*uiElements*/) { return Leave() && m_oEvents.EndArray(); }
    bool Key(const char* pcText, rapidjson::SizeType uiSize, bool /*bCopy*/)
    {
        return m_oEvents.Name({ pcText, uiSize });
    }
    bool String(const char* pcText, rapidjson::SizeType uiSize, bool /*bCopy*/)
    {
        return m_oEvents.Text({ pcText, uiSize });
    }
    bool RawNumber(const char* pcText, rapidjson::SizeType uiSize, bool /*bCopy*/)
    {
        return m_oEvents.Number({ pcText, uiSize });
    }
    bool Null() { return m_oEvents.Word("null"); }
    bool Bool(bool bValue) { return m_oEvents.Word(bValue ? "true" : "false"); }

    // Never called: all numbers are taken as text.
    bool Int(int /*iNumber*/) { return false; }
    bool Uint(unsigned int /*uiNumber*/) { return false; }
    bool Int64(int64_t /*iNumber*/) { return false; }
    bool Uint64(uint64_t /*uiNumber*/) { return false; }
    bool Double(double /*dNumber*/) { return false; }

    bool IsTooDeep() const { return m_uiDepth > CJsonReader::msc_uiMostDepth; }

private:
    bool Enter()
    {
        ++m_uiDepth;
        return !IsTooDeep();
    }

    bool Leave()
    {
        --m_uiDepth;
        return true;
    }

    CJsonEvents& m_oEvents;
    unsigned int m_uiDepth = 0;
};
} // namespace

struct CJsonReader::SState
{
    explicit SState(const TRead& fnRead) : m_fnRead(fnRead), m_oStream(m_fnRead) {}

    TRead m_fnRead;
    CStream m_oStream;
    std::string m_sProblem = {};
    size_t m_uiOffset = 0;
};

CJsonReader::CJsonReader(const TRead& fnRead) : m_poState(std::make_unique<SState>(fnRead)) {}

CJsonReader::~CJsonReader() = default;

bool CJsonReader::HasMore()
{
    rapidjson::SkipWhitespace(m_poState->m_oStream);
    return !m_poState->m_oStream.IsAtEnd() || !m_poState->m_oStream.GetProblem().empty();
}

bool CJsonReader::Read(CJsonEvents& oEvents)
{
    constexpr unsigned int uiFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag |
                                     rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;
    SState& oState = *m_poState;
    CHandler oHandler(oEvents);
    rapidjson::Reader oReader;
    const rapidjson::ParseResult oResult = oReader.Parse<uiFlags>(oState.m_oStream, oHandler);
    if (!oResult.IsError())
    {
        return true;
    }
    oState.m_uiOffset = oResult.Offset();
    if (!oState.m_oStream.GetProblem().empty())
    {
        oState.m_sProblem = oState.m_oStream.GetProblem();
    }
    else if (oHandler.IsTooDeep())
    {
        oState.m_sProblem = "is deeper than " + std::to_string(msc_uiMostDepth) + " objects and arrays";
    }
    else if (oResult.Code() != rapidjson::kParseErrorTermination)
    {
        oState.m_sProblem = std::string("is not JSON at byte ") + std::to_string(oResult.Offset()) + ": " +
                            rapidjson::GetParseError_En(oResult.Code());
    }
    return false;
}

const std::string& CJsonReader::GetProblem() const { return m_poState->m_sProblem; }

size_t CJsonReader::GetOffset() const { return m_poState->m_uiOffset; }
