// JSON that is written call by call, without a tree in memory. RapidJSON does that, inside JsonWriter.cpp alone.

#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A document, or one value of it. Begin and End calls pair up; a value in an object follows its Name.
class CJsonWriter
{
public:
    enum EStyle
    {
        eStyle_Line,    // everything in one line
        eStyle_Indented // by two blanks
    };

    explicit CJsonWriter(EStyle eStyle);
    ~CJsonWriter();
    CJsonWriter(const CJsonWriter&) = delete;
    CJsonWriter& operator=(const CJsonWriter&) = delete;

    void Name(std::string_view sName);
    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();

    // Bytes that are not UTF-8 become U+FFFD.
    void Value(std::string_view sText);
    void Value(const char* pszText) { Value(std::string_view(pszText)); }
    void Value(const std::string& sText) { Value(std::string_view(sText)); }
    void Value(bool bValue);
    void Value(double dValue); // with as many digits as it needs
    template <std::integral NUMBER>
    void Value(NUMBER iNumber)
    {
        std::is_signed_v<NUMBER> ? WriteSigned(static_cast<long long>(iNumber))
                                 : WriteUnsigned(static_cast<unsigned long long>(iNumber));
    }
    template <class VALUE>
    void Value(const std::vector<VALUE>& aoValues)
    {
        BeginArray();
        for (const VALUE& oValue : aoValues)
        {
            Value(oValue);
        }
        EndArray();
    }

    void Raw(const std::string& sJson); // a value that another writer has made

    template <class VALUE>
    void Member(std::string_view sName, const VALUE& oValue)
    {
        Name(sName);
        Value(oValue);
    }
    void BeginObject(std::string_view sName);
    void BeginArray(std::string_view sName);

    // The text so far, which is whole when all that was begun is ended.
    std::string GetText() const;

private:
    void WriteSigned(long long llNumber);
    void WriteUnsigned(unsigned long long ullNumber);

    struct SState;
    std::unique_ptr<SState> m_poState;
};
