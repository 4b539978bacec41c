// The ids of fields and their numbers: ZorEdidMapIds.h as a table.

#include <string.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "MapIds.h"

namespace ZorMap
{
namespace
{
// A line of the list. Its id follows from its name unless it has a text.
struct SListed
{
    unsigned short m_usNumber; // 0 for a beginning only
    std::string_view m_oName;
    std::string_view m_oText = {};
};

constexpr SListed gsc_aoListed[] = {
#define ZOR_EDID_S(NUMBER, NAME, ID) { (NUMBER), #NAME, ID },
#define ZOR_EDID_P(NAME, ID) { 0, #NAME, ID },
#define ZOR_EDID_X(NUMBER, NAME) { (NUMBER), #NAME },
    ZOR_EDID_FIELDS(ZOR_EDID_S, ZOR_EDID_P, ZOR_EDID_X)
#undef ZOR_EDID_X
#undef ZOR_EDID_P
#undef ZOR_EDID_S
};

struct SId
{
    EZorEdidField m_eId = eZorEdidField_None;
    char m_szText[56] = {}; // a longer one does not compile
};

// "SyncOnGreen" as "sync-on-green".
constexpr void AppendName(char* pszText, std::string_view oName)
{
    for (const char& c : oName)
    {
        const bool bCapital = c >= 'A' && c <= 'Z';
        if (c == '_' || (bCapital && &c != oName.data()))
        {
            *pszText++ = '-';
        }
        if (c != '_')
        {
            *pszText++ = bCapital ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
}

constexpr SId MakeId(const SListed* poListed)
{
    SId oId = { static_cast<EZorEdidField>(poListed->m_usNumber) };
    const SListed* poStart = poListed; // one without a beginning does not compile
    while (poStart->m_oText.empty() || !poListed->m_oName.starts_with(poStart->m_oName))
    {
        --poStart;
    }
    char* pszEnd = std::copy(poStart->m_oText.begin(), poStart->m_oText.end(), oId.m_szText);
    const std::string_view oOwn = poListed->m_oName.substr(poStart->m_oName.size());
    if (!oOwn.empty())
    {
        *pszEnd++ = '.';
        AppendName(pszEnd, oOwn);
    }
    return oId;
}

constexpr bool HasNumber(const SListed& oListed) { return oListed.m_usNumber != 0; }

constexpr auto gsc_aoIds = [] {
    std::array<SId, std::count_if(std::begin(gsc_aoListed), std::end(gsc_aoListed), HasNumber)> aoIds = {};
    SId* poId = aoIds.data();
    for (const SListed& oListed : gsc_aoListed)
    {
        if (HasNumber(oListed))
        {
            *poId++ = MakeId(&oListed);
        }
    }
    return aoIds;
}();

constexpr bool IsBefore(const SId& oFirst, const SId& oSecond) { return oFirst.m_eId < oSecond.m_eId; }
// No number is in the list twice, and each is found by halving.
static_assert(std::adjacent_find(std::begin(gsc_aoIds), std::end(gsc_aoIds), [](const SId& oFirst, const SId& oSecond) {
                  return !IsBefore(oFirst, oSecond);
              }) == std::end(gsc_aoIds));

// The first of those that have an id: other forms of the same field follow.
class CIdFinder final : public CIdVisitor
{
public:
    CIdFinder(EZorEdidField eId, CZorEdidMap::SIdDescription& oFound) : m_eId(eId), m_oFound(oFound) {}

private:
    void OnPart(EZorEdidField eId, const char* pszName, CZorEdidMap::EKind eKind, const char* pszUnit) override
    {
        if (eId == m_eId && m_oFound.m_pszName == nullptr)
        {
            m_oFound = { pszName, pszUnit, eKind };
        }
    }

    EZorEdidField m_eId;
    CZorEdidMap::SIdDescription& m_oFound;
};
} // namespace

void VisitIds(CIdVisitor& oVisitor)
{
    VisitSharedIds(oVisitor);
    VisitOtherIds(oVisitor);
    VisitBaseIds(oVisitor);
    VisitDescriptorIds(oVisitor);
    VisitCtaIds(oVisitor);
    VisitCtaVideoIds(oVisitor);
    VisitCtaAudioIds(oVisitor);
    VisitCtaColourIds(oVisitor);
    VisitCtaHdmiIds(oVisitor);
    VisitCtaVendorIds(oVisitor);
    VisitDisplayIdIds(oVisitor);
    VisitProductIds(oVisitor);
    VisitInterfaceIds(oVisitor);
    VisitTimingIds(oVisitor);
    VisitDisplayInformationIds(oVisitor);
}
} // namespace ZorMap

const char* CZorEdidMap::GetId(EZorEdidField eId)
{
    const ZorMap::SId* const poEnd = std::end(ZorMap::gsc_aoIds);
    const ZorMap::SId* poFound =
        std::lower_bound(std::begin(ZorMap::gsc_aoIds), poEnd, ZorMap::SId{ eId }, ZorMap::IsBefore);
    return poFound != poEnd && poFound->m_eId == eId ? poFound->m_szText : nullptr;
}

EZorEdidField CZorEdidMap::FindId(const char* pszId)
{
    for (const ZorMap::SId& oId : ZorMap::gsc_aoIds)
    {
        if (pszId != nullptr && strcmp(oId.m_szText, pszId) == 0)
        {
            return oId.m_eId;
        }
    }
    return eZorEdidField_None;
}

int CZorEdidMap::DescribeId(EZorEdidField eId, SIdDescription& oDescription)
{
    oDescription = {};
    ZorMap::CIdFinder oFinder(eId, oDescription);
    ZorMap::VisitIds(oFinder);
    return oDescription.m_pszName != nullptr ? 1 : 0;
}
