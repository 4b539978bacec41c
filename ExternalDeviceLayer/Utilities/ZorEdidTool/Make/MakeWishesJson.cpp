// The JSON form of the wishes: an object with the options by their names, a list of modes, and a profile.

#include <algorithm>

#include "InputFile.h"
#include "JsonReader.h"
#include "MakeWishes.h"
#include "TextFormat.h"

namespace
{
constexpr char gsc_szModes[] = "modes";
constexpr char gsc_szProfile[] = "profile";
constexpr char gsc_szSchema[] = "$schema"; // which editors ask for
constexpr size_t gsc_uiMostModes = 1024;

// "--serial-text" as "serial_text"
std::string GetKey(const SWishOption& oOption)
{
    std::string sKey = oOption.m_pszName + 2;
    std::ranges::replace(sKey, '-', '_');
    return sKey;
}

class CWishEvents : public CJsonEvents
{
public:
    explicit CWishEvents(SWishDocument& oDocument) : m_oDocument(oDocument) {}

    bool BeginObject() override
    {
        return ++m_uiDepth == 1 ? true : Refuse("an object where a text or a number belongs");
    }
    bool EndObject() override { return true; }
    bool BeginArray() override
    {
        m_bList = true;
        return m_uiDepth == 1 && m_sName == gsc_szModes ? true : Refuse("a list where none belongs");
    }
    bool EndArray() override
    {
        m_bList = false;
        return true;
    }
    bool Name(std::string_view sName) override
    {
        m_sName = sName;
        const bool bKnown =
            m_sName == gsc_szModes || m_sName == gsc_szProfile || m_sName == gsc_szSchema || FindOption() != nullptr;
        if (std::ranges::find(m_asSeen, m_sName) != m_asSeen.end())
        {
            return Refuse("is there twice");
        }
        m_asSeen.push_back(m_sName);
        return bKnown ? true : Refuse("is unknown");
    }
    bool Text(std::string_view sText) override
    {
        if (sText.find('\0') != std::string_view::npos)
        {
            return Refuse("has a character with the code 0");
        }
        return Expects(eValue_Text) ? Add(std::string(sText)) : RefuseType();
    }
    bool Number(std::string_view sDigits) override
    {
        return Expects(eValue_Number) ? Add(std::string(sDigits)) : RefuseType();
    }
    bool Word(std::string_view sWord) override
    {
        return sWord != "null" && Expects(eValue_Flag) ? Add(std::string(sWord)) : RefuseType();
    }

    const std::string& GetProblem() const { return m_sProblem; }

private:
    enum EValue
    {
        eValue_Text,
        eValue_Number,
        eValue_Flag
    };

    EValue GetExpected() const
    {
        const SWishOption* const poOption = FindOption();
        return poOption == nullptr               ? eValue_Text
               : poOption->m_pszValue[0] == '\0' ? eValue_Flag
               : poOption->m_bNumber             ? eValue_Number
                                                 : eValue_Text;
    }
    // Where no value belongs, Add says so.
    bool Expects(EValue eValue) const { return m_uiDepth == 0 || GetExpected() == eValue; }
    bool RefuseType()
    {
        constexpr const char* apszExpected[] = { "expected a text", "expected a number", "expected true or false" };
        return Refuse(apszExpected[GetExpected()]);
    }

    // By the member's name; "mode" is an item of a list.
    const SWishOption* FindOption() const
    {
        const std::string sKey = m_sName == gsc_szModes ? "mode" : m_sName == "mode" ? "" : m_sName;
        const auto aoOptions = GetWishOptions();
        const auto itOption =
            std::ranges::find_if(aoOptions, [&](const SWishOption& oOption) { return GetKey(oOption) == sKey; });
        return itOption == aoOptions.end() ? nullptr : &*itOption;
    }

    bool Add(const std::string& sValue)
    {
        if (m_uiDepth == 0 || (m_sName == gsc_szModes) != m_bList)
        {
            return Refuse(m_uiDepth == 0 ? "expected an object" : "expected a list of modes");
        }
        if (m_sName == gsc_szProfile)
        {
            m_oDocument.m_sProfile = sValue;
            return true;
        }
        if (m_sName == gsc_szSchema)
        {
            return true;
        }
        if (m_oDocument.m_aoValues.size() == gsc_uiMostModes)
        {
            return Refuse("has more than 1024 modes");
        }
        m_oDocument.m_aoValues.push_back({ FindOption(), sValue });
        return true;
    }

    bool Refuse(const char* pszReason)
    {
        m_sProblem = (m_sName.empty() ? "" : ShowName(m_sName) + ": ") + std::string(pszReason);
        return false;
    }

    SWishDocument& m_oDocument;
    unsigned int m_uiDepth = 0;
    bool m_bList = false;
    std::string m_sName;
    std::vector<std::string> m_asSeen;
    std::string m_sProblem;
};
} // namespace

std::string ReadWishes(const std::string& sFile, SWishDocument& oDocument)
{
    CInputFile oFile(sFile);
    CJsonReader oReader([&oFile](char* pcBytes, size_t uiSize) { return oFile.Read(pcBytes, uiSize); });
    CWishEvents oEvents(oDocument);
    const bool bRead = oReader.HasMore() && oReader.Read(oEvents);
    if (!oFile.GetProblem().empty())
    {
        return oFile.GetProblem();
    }
    if (!bRead)
    {
        return !oEvents.GetProblem().empty()   ? oEvents.GetProblem()
               : !oReader.GetProblem().empty() ? oReader.GetProblem()
                                               : "is empty";
    }
    return oReader.HasMore() ? "has more than one document" : "";
}
