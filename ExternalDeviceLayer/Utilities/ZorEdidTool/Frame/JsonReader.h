// JSON documents read piece by piece, without a tree in memory. RapidJSON does that, inside JsonReader.cpp alone.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

// What a document holds, in its order. Begin and End calls pair up; a value in an object follows its Name. Texts are
// UTF-8 and good for the call. Each call returns false to end the reading.
class CJsonEvents
{
public:
    virtual ~CJsonEvents() = default;

    virtual bool BeginObject() = 0;
    virtual bool EndObject() = 0;
    virtual bool BeginArray() = 0;
    virtual bool EndArray() = 0;
    virtual bool Name(std::string_view sName) = 0;
    virtual bool Text(std::string_view sText) = 0;
    virtual bool Number(std::string_view sDigits) = 0; // as written: "-1.5e3"
    virtual bool Word(std::string_view sWord) = 0;     // true, false or null
};

// Reads documents that follow each other. Its memory does not grow with them: what is longer, deeper or larger than any
// document of this command is a problem.
class CJsonReader
{
public:
    static constexpr size_t msc_uiMostBytes = size_t{ 1 }
                                              << 28;         // of all documents; that of 256 blocks of flags has 160 MB
    static constexpr size_t msc_uiMostCharacters = 1U << 17; // of one text or number, escapes as written
    static constexpr unsigned int msc_uiMostDepth = 64;

    // Up to so many bytes into the buffer; 0 at the end.
    using TRead = std::function<size_t(char*, size_t)>;

    explicit CJsonReader(const TRead& fnRead);
    ~CJsonReader();
    CJsonReader(const CJsonReader&) = delete;
    CJsonReader& operator=(const CJsonReader&) = delete;

    // Whether anything but white space follows: another document, or garbage.
    bool HasMore();

    // Reads one. False when it is not JSON, or a call has returned false.
    bool Read(CJsonEvents& oEvents);

    // Why it is not JSON, one line; empty where a call has ended the reading. And where in the bytes that was.
    const std::string& GetProblem() const;
    size_t GetOffset() const;

private:
    struct SState;
    std::unique_ptr<SState> m_poState;
};
