// The map of an image, and the ids of fields.

#include "HandlesC.h"
#include "Utf8.h"

using namespace ZorC;

using CField = CZorEdidMap::SField;

static_assert(ZOREDID_FIELD_KIND_NO_MEANING == static_cast<int>(CZorEdidMap::eKind_Unknown) + 1);
static_assert(ZOREDID_AREA_UNUSED == static_cast<int>(CZorEdidMap::eArea_Unused) + 1);

namespace
{
EZorEdidField ToField(uint32_t id) { return id <= USHRT_MAX ? static_cast<EZorEdidField>(id) : eZorEdidField_None; }

const CField* Find(const zoredid_map* map, size_t index)
{
    return index < zoredid_map_get_count(map) ? &map->m_poMap->GetField(static_cast<unsigned int>(index)) : nullptr;
}

const CZorEdidMap::SPiece* FindPiece(const zoredid_map* map, size_t index, size_t piece)
{
    return piece < zoredid_map_get_piece_count(map, index)
               ? &map->m_poMap->GetPiece(Find(map, index)->m_uiFirstPiece + static_cast<unsigned int>(piece))
               : nullptr;
}

// The text of a leaf of characters is as long as its bytes, which lie in a row. Others are ASCII.
size_t GiveValue(const CZorEdidMap& oMap, unsigned int uiField, char* pszBuffer, size_t uiSize)
{
    const CMString sValue = oMap.GetValue(uiField);
    const CField& oField = oMap.GetField(uiField);
    const auto uiLength = static_cast<unsigned int>(sValue.GetLength());
    if (oField.m_eKind != CZorEdidMap::eKind_Text || oField.m_uiPieces != 1 || oField.m_uiLength != uiLength)
    {
        return CopyText(sValue, uiLength, pszBuffer, uiSize);
    }
    CMString sUtf8;
    char* const pszUtf8 = sUtf8.GetBuffer(static_cast<unsigned int>(uiLength * gsc_uiMostUtf8 + 1));
    const size_t uiUtf8 = ToUtf8(sValue, uiLength, oMap.GetData() + oField.m_uiOffset, pszUtf8);
    return CopyText(pszUtf8, uiUtf8, pszBuffer, uiSize);
}
} // namespace

const char* zoredid_id_get_text(uint32_t id) { return CZorEdidMap::GetId(ToField(id)); }
uint32_t zoredid_id_find(const char* text) { return CZorEdidMap::FindId(text); }

zoredid_map* zoredid_map_create() { return Create<zoredid_map>(); }
void zoredid_map_free(zoredid_map* map) { delete map; }

zoredid_status zoredid_map_read(zoredid_map* map, const void* data, size_t size)
{
    if (map == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return map->m_oOwn.Read(uiSize, pui8Data); });
    map->m_poMap = status == ZOREDID_OK ? &map->m_oOwn : nullptr;
    return status;
}

const unsigned char* zoredid_map_get_data(const zoredid_map* map, size_t* size)
{
    return map != nullptr && map->m_poMap != nullptr ? GiveBytes(map->m_poMap->GetData(), map->m_poMap->GetSize(), size)
                                                     : GiveBytes(nullptr, 0, size);
}

size_t zoredid_map_get_count(const zoredid_map* map)
{
    return map != nullptr && map->m_poMap != nullptr ? map->m_poMap->GetFieldCount() : 0;
}

size_t zoredid_map_count(const zoredid_map* map, uint32_t id)
{
    return zoredid_map_get_count(map) != 0 ? map->m_poMap->CountFields(ToField(id)) : 0;
}

size_t zoredid_map_find(const zoredid_map* map, uint32_t id, size_t number)
{
    // As many as there are fields: a higher number cannot be found.
    return number < zoredid_map_get_count(map)
               ? ToIndex(map->m_poMap->FindField(ToField(id), static_cast<unsigned int>(number)))
               : ZOREDID_NONE;
}

size_t zoredid_map_find_at(const zoredid_map* map, size_t offset, unsigned int bit)
{
    return zoredid_map_get_count(map) != 0 && offset < map->m_poMap->GetSize()
               ? ToIndex(map->m_poMap->FindLeaf(static_cast<unsigned int>(offset), bit))
               : ZOREDID_NONE;
}

// A function for each member of a field: its result, its name, what it is beyond the list, and its value of field o.
#define ZOR_FIELD(result, name, none, value)                                                                           \
    result zoredid_map_##name(const zoredid_map* map, size_t index)                                                    \
    {                                                                                                                  \
        return Ask<result>(Find(map, index), none, [](const CField& o) { return value; });                             \
    }

ZOR_FIELD(uint32_t, get_id, 0, o.m_eId)
ZOR_FIELD(const char*, get_name, nullptr, o.m_pszName)
ZOR_FIELD(const char*, get_unit, nullptr, o.m_pszUnit)
ZOR_FIELD(const char*, get_meaning, nullptr, o.m_pszMeaning)
ZOR_FIELD(zoredid_field_kind, get_kind, ZOREDID_FIELD_KIND_UNKNOWN, CountFromOne<zoredid_field_kind>(o.m_eKind))
ZOR_FIELD(zoredid_area, get_area, ZOREDID_AREA_UNKNOWN, CountFromOne<zoredid_area>(o.m_eArea))
ZOR_FIELD(size_t, get_offset, 0, o.m_uiOffset)
ZOR_FIELD(size_t, get_length, 0, o.m_uiLength)
ZOR_FIELD(size_t, get_depth, 0, o.m_uiDepth)
ZOR_FIELD(size_t, get_group, ZOREDID_NONE, ToIndex(o.m_uiGroup))
ZOR_FIELD(size_t, get_end, 0, o.m_uiEnd)
ZOR_FIELD(size_t, get_number_in_group, ZOREDID_NONE, ToIndex(o.m_uiIndex))
ZOR_FIELD(size_t, get_piece_count, 0, o.m_uiPieces)

int zoredid_map_get_number(const zoredid_map* map, size_t index, int64_t* number, unsigned int* decimals)
{
    const CField* const poField = Find(map, index);
    if (poField == nullptr)
    {
        return 0;
    }
    const bool bNumber = poField->m_eKind == CZorEdidMap::eKind_Number && poField->m_bNumber;
    if (!bNumber && poField->m_eKind != CZorEdidMap::eKind_Flag && poField->m_eKind != CZorEdidMap::eKind_Name &&
        poField->m_eKind != CZorEdidMap::eKind_Checksum)
    {
        return 0;
    }
    if (number != nullptr)
    {
        *number = poField->m_llNumber;
    }
    if (decimals != nullptr)
    {
        *decimals = poField->m_uiDecimals;
    }
    return 1;
}

size_t zoredid_map_get_value(const zoredid_map* map, size_t index, char* buffer, size_t size)
{
    return GiveMade(Find(map, index) != nullptr, buffer, size,
                    [&] { return GiveValue(*map->m_poMap, static_cast<unsigned int>(index), buffer, size); });
}

size_t zoredid_map_get_piece_offset(const zoredid_map* map, size_t index, size_t piece)
{
    return Ask<size_t>(FindPiece(map, index, piece), 0, [](const auto& o) { return o.m_uiOffset; });
}

size_t zoredid_map_get_piece_length(const zoredid_map* map, size_t index, size_t piece)
{
    return Ask<size_t>(FindPiece(map, index, piece), 0, [](const auto& o) { return o.m_uiLength; });
}

uint32_t zoredid_map_get_piece_mask(const zoredid_map* map, size_t index, size_t piece)
{
    return Ask<uint32_t>(FindPiece(map, index, piece), 0, [](const auto& o) { return o.m_ui8Mask; });
}
