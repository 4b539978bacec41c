// The calls handed to RapidJSON.

#include "JsonWriter.h"

#include <variant>

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "Characters.h"

namespace
{
using CLineWriter = rapidjson::Writer<rapidjson::StringBuffer>;
using CIndentedWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

bool IsAscii(std::string_view sText)
{
    for (const char cNext : sText)
    {
        if ((static_cast<unsigned char>(cNext) & 0x80U) != 0)
        {
            return false;
        }
    }
    return true;
}

std::string MakeUtf8(std::string_view sText)
{
    std::string sGood;
    for (size_t i = 0; i < sText.size();)
    {
        const size_t uiLength = GetCharacterLength(sText, i);
        sGood += uiLength != 0 ? sText.substr(i, uiLength) : "\uFFFD";
        i += uiLength != 0 ? uiLength : 1;
    }
    return sGood;
}
} // namespace

struct CJsonWriter::SState
{
    explicit SState(bool bIndented)
    {
        constexpr unsigned int uiIndent = 2;
        if (bIndented)
        {
            m_oWriter.emplace<CIndentedWriter>(m_oText).SetIndent(' ', uiIndent);
        }
    }

    template <class CALL>
    void Call(const CALL& fnCall)
    {
        std::visit(fnCall, m_oWriter);
    }

    void WriteText(std::string_view sText, bool bName)
    {
        Call([&](auto& oWriter) {
            const rapidjson::SizeType uiSize = static_cast<rapidjson::SizeType>(sText.size());
            bName ? oWriter.Key(sText.data(), uiSize) : oWriter.String(sText.data(), uiSize);
        });
    }

    rapidjson::StringBuffer m_oText;
    std::variant<CLineWriter, CIndentedWriter> m_oWriter{ std::in_place_type<CLineWriter>, m_oText };
};

CJsonWriter::CJsonWriter(EStyle eStyle) : m_poState(std::make_unique<SState>(eStyle == eStyle_Indented)) {}

CJsonWriter::~CJsonWriter() = default;

void CJsonWriter::Name(std::string_view sName) { m_poState->WriteText(sName, true); }

void CJsonWriter::BeginObject()
{
    m_poState->Call([](auto& oWriter) { oWriter.StartObject(); });
}

void CJsonWriter::EndObject()
{
    m_poState->Call([](auto& oWriter) { oWriter.EndObject(); });
}

void CJsonWriter::BeginArray()
{
    m_poState->Call([](auto& oWriter) { oWriter.StartArray(); });
}

void CJsonWriter::EndArray()
{
    m_poState->Call([](auto& oWriter) { oWriter.EndArray(); });
}

void CJsonWriter::Value(std::string_view sText)
{
    IsAscii(sText) ? m_poState->WriteText(sText, false) : m_poState->WriteText(MakeUtf8(sText), false);
}

void CJsonWriter::Raw(const std::string& sJson)
{
    m_poState->Call([&](auto& oWriter) { oWriter.RawValue(sJson.data(), sJson.size(), rapidjson::kObjectType); });
}

void CJsonWriter::Value(bool bValue)
{
    m_poState->Call([bValue](auto& oWriter) { oWriter.Bool(bValue); });
}

void CJsonWriter::Value(double dValue)
{
    m_poState->Call([dValue](auto& oWriter) { oWriter.Double(dValue); });
}

void CJsonWriter::WriteSigned(long long llNumber)
{
    m_poState->Call([llNumber](auto& oWriter) { oWriter.Int64(llNumber); });
}

void CJsonWriter::WriteUnsigned(unsigned long long ullNumber)
{
    m_poState->Call([ullNumber](auto& oWriter) { oWriter.Uint64(ullNumber); });
}

void CJsonWriter::BeginObject(std::string_view sName)
{
    Name(sName);
    BeginObject();
}

void CJsonWriter::BeginArray(std::string_view sName)
{
    Name(sName);
    BeginArray();
}

std::string CJsonWriter::GetText() const { return { m_poState->m_oText.GetString(), m_poState->m_oText.GetSize() }; }
