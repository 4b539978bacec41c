// The library inside the browser app: what App.js calls. Texts and bytes go in and out as lists.
//
// A call is app_add_argument for each argument, whose bytes App.js writes to the place that it gets; then the function,
// which takes all of them; then app_get_result for what came out. A function returns how many results there are, or -1
// where the only result is the reason of a refusal. Nothing is kept from one function to the next.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "EditSet.h"
#include "Input.h"
#include "MapText.h"
#include "PageImage.h"
#include "PageParts.h"
#include "TextFormat.h"
#include "ZorEdidWriter.h"

#if defined(__EMSCRIPTEN__)
#define APP_EXPORT(name) extern "C" __attribute__((export_name(#name)))
#else
#define APP_EXPORT(name) extern "C"
#endif

namespace
{
using CTexts = std::vector<std::string>;

constexpr int gsc_iRefused = -1;

CTexts& GetArguments()
{
    static CTexts s_asArguments;
    return s_asArguments;
}

CTexts& GetResults()
{
    static CTexts s_asResults;
    return s_asResults;
}

CTexts TakeArguments() { return std::exchange(GetArguments(), {}); }

int Give(CTexts asResults)
{
    GetResults() = std::move(asResults);
    return static_cast<int>(GetResults().size());
}

int Refuse(const std::string& sReason)
{
    Give({ sReason });
    return gsc_iRefused;
}

std::vector<unsigned char> ToBytes(std::string_view sBytes) { return { sBytes.begin(), sBytes.end() }; }

std::string ToText(const unsigned char* pui8Bytes, size_t uiCount) { return { pui8Bytes, pui8Bytes + uiCount }; }

// False for a text that is not bytes, and for a field that the bytes do not have.
bool ReadField(const std::string& sImage, const std::string& sField, CZorEdidWriter& oWriter, unsigned int& uiField)
{
    const std::vector<unsigned char> aui8Image = ToBytes(sImage);
    return oWriter.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()) != 0 &&
           ParseNumber(sField, uiField) && uiField < oWriter.GetMap().GetFieldCount();
}

// "base.standard[2]" where there are several.
std::string GetFieldId(const CZorEdidMap& oMap, unsigned int uiField)
{
    const EZorEdidField eId = oMap.GetField(uiField).m_eId;
    if (eId == eZorEdidField_None)
    {
        return "";
    }
    unsigned int uiNumber = 0;
    while (oMap.FindField(eId, uiNumber) != uiField)
    {
        ++uiNumber;
    }
    const std::string sNumber = oMap.CountFields(eId) > 1 ? "[" + std::to_string(uiNumber) + "]" : "";
    return CZorEdidMap::GetId(eId) + sNumber;
}

// As SetField; the reason of a refusal does not begin with the field.
std::string SetValue(CZorEdidWriter& oWriter, unsigned int uiField, const std::string& sValue, std::string& sNote)
{
    const size_t uiName = NameField(oWriter.GetMap(), uiField).size() + 2; // "NAME: "
    const std::string sReason = SetField(oWriter, uiField, sValue, sNote);
    return sReason.empty() ? "" : sReason.substr(uiName);
}

// "it takes 1990 to 2245", or why only bits can be given: from the refusal of what no field takes.
std::string DescribeAllowed(CZorEdidWriter& oWriter, unsigned int uiField)
{
    constexpr std::string_view svTakes = "it takes ";
    std::string sNote;
    std::string sReason = SetValue(oWriter, uiField, "\x7F", sNote);
    const size_t uiTakes = sReason.find(svTakes);
    if (uiTakes == std::string::npos)
    {
        return sReason;
    }
    const std::string sAllowed = sReason.substr(uiTakes + svTakes.size());
    return sAllowed == static_cast<const char*>(oWriter.GetMap().GetValue(uiField))
               ? "other fields depend on it, so that it keeps its value; raw: writes its bits"
               : std::string(svTakes) + sAllowed;
}
} // namespace

// Where the bytes of the next argument go.
APP_EXPORT(app_add_argument) char* app_add_argument(size_t uiSize)
{
    return GetArguments().emplace_back(uiSize, '\0').data();
}

APP_EXPORT(app_get_result) const char* app_get_result(size_t uiResult) { return GetResults()[uiResult].data(); }
APP_EXPORT(app_get_result_size) size_t app_get_result_size(size_t uiResult) { return GetResults()[uiResult].size(); }

// NAME CONTENT: of each image in a file or a text its name, the form that it was taken for, its bytes, and what else
// the file holds.
APP_EXPORT(app_read) int app_read()
{
    const CTexts asArguments = TakeArguments();
    CTexts asResults;
    std::string sProblem;
    for (const SInput& oInput : DecodeInputs(asArguments[0], asArguments[1], "all"))
    {
        if (!oInput.IsGood())
        {
            sProblem = sProblem.empty() ? ShowName(oInput.m_sName) + ": " + oInput.m_sProblem : sProblem;
            continue;
        }
        asResults.push_back(ShowName(oInput.m_sName));
        asResults.push_back(oInput.m_sForm + (oInput.m_sHint.empty() ? "" : ": " + oInput.m_sHint));
        asResults.push_back(ToText(oInput.m_aui8Bytes.data(), oInput.m_aui8Bytes.size()));
        asResults.push_back(oInput.m_sImages);
    }
    return asResults.empty() ? Refuse(sProblem) : Give(std::move(asResults));
}

// NUMBERED NAME BYTES REST [NAME BYTES REST]: the page of an image, or of two, with REST as app_read gives it last.
// With NUMBERED "1" its fields have the numbers that the functions below take.
APP_EXPORT(app_make_page) int app_make_page()
{
    const CTexts asArguments = TakeArguments();
    SPage oPage;
    oPage.m_bNumbered = asArguments[0] == "1";
    for (size_t i = 1; i + 2 < asArguments.size(); i += 3)
    {
        SInput oInput = { asArguments[i], ToBytes(asArguments[i + 1]), gsc_szRawForm, "" };
        oInput.m_sImages = asArguments[i + 2];
        oPage.m_apoImages.push_back(std::make_unique<SPageImage>(std::move(oInput), GetThisYear()));
    }
    if (oPage.IsPair())
    {
        CompareImages(oPage);
    }
    return Give({ MakeWholePage(oPage) });
}

// BYTES FIELD: the id, the place in words, the value as it is typed, and what the field takes.
APP_EXPORT(app_describe_field) int app_describe_field()
{
    const CTexts asArguments = TakeArguments();
    CZorEdidWriter oWriter;
    unsigned int uiField = 0;
    if (!ReadField(asArguments[0], asArguments[1], oWriter, uiField))
    {
        return Refuse("no such field");
    }
    const CZorEdidMap& oMap = oWriter.GetMap();
    // A refusal leaves the map as it is.
    return Give({ GetFieldId(oMap, uiField), NameField(oMap, uiField), static_cast<const char*>(oMap.GetValue(uiField)),
                  DescribeAllowed(oWriter, uiField) });
}

// BYTES FIELD VALUE: the new bytes, and what was done.
APP_EXPORT(app_set_field) int app_set_field()
{
    const CTexts asArguments = TakeArguments();
    CZorEdidWriter oWriter;
    unsigned int uiField = 0;
    if (!ReadField(asArguments[0], asArguments[1], oWriter, uiField))
    {
        return Refuse("no such field");
    }
    std::string sNote;
    const std::string sProblem = SetValue(oWriter, uiField, asArguments[2], sNote);
    const CZorEdidMap& oMap = oWriter.GetMap();
    return sProblem.empty() ? Give({ ToText(oMap.GetData(), oMap.GetSize()), sNote }) : Refuse(sProblem);
}
