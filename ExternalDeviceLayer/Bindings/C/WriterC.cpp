// An image under edit.

#include <algorithm>

#include "HandlesC.h"
#include "Standards/BaseBlock.h"
#include "ZorEdidParts.h"
#include "ZorEdidWriter.h"

using namespace ZorC;

struct zoredid_writer
{
    CZorEdidWriter m_oWriter;
    CZorEdidWriter::SAnswer m_oAnswer;
    CZorEdidParts::SAnswer m_oOfParts;
    zoredid_map m_oMap; // of the writer's bytes; without any where nothing was read
};

namespace
{
void ClearAnswers(zoredid_writer& oWriter)
{
    oWriter.m_oAnswer = {};
    oWriter.m_oOfParts = {};
}

// An edit that names no field or no bytes leaves no answer, as the last one is another field's.
zoredid_status Fail(zoredid_writer* poWriter, zoredid_status status)
{
    if (poWriter != nullptr)
    {
        ClearAnswers(*poWriter);
    }
    return status;
}

// After an edit for which the memory ran out, the map means nothing.
zoredid_status Close(zoredid_writer& oWriter, zoredid_status status)
{
    if (status == ZOREDID_ERROR_MEMORY)
    {
        oWriter.m_oMap.m_poMap = nullptr;
        ClearAnswers(oWriter);
    }
    return status;
}

zoredid_status Set(zoredid_writer& oWriter, unsigned int uiField, const char* pszValue)
{
    const zoredid_status status = Guard([&] {
        CZorEdidWriter::SAnswer oAnswer; // the value may be a text of the last one
        const int iSet = oWriter.m_oWriter.Set(uiField, pszValue, oAnswer);
        oWriter.m_oAnswer = oAnswer;
        oWriter.m_oOfParts = {};
        return iSet != 0 ? ZOREDID_OK : ZOREDID_ERROR_REFUSED;
    });
    return Close(oWriter, status);
}

// A part is edited by fnEdit(parts, answer) on a copy of the bytes, which the writer then takes.
template <class EDIT>
zoredid_status EditParts(zoredid_writer* poWriter, bool bGood, const EDIT& fnEdit)
{
    if (!bGood || poWriter == nullptr || poWriter->m_oMap.m_poMap == nullptr)
    {
        return Fail(poWriter, ZOREDID_ERROR_ARGUMENT);
    }
    const zoredid_status status = Guard([&] {
        const CZorEdidMap& oMap = *poWriter->m_oMap.m_poMap;
        CZorEdidParts oParts;
        CZorEdidParts::SAnswer oAnswer;
        oParts.Read(oMap.GetSize(), oMap.GetData());
        const bool bEdited = fnEdit(oParts, oAnswer) != 0;
        if (bEdited)
        {
            poWriter->m_oWriter.Read(oParts.GetMap().GetSize(), oParts.GetMap().GetData());
        }
        poWriter->m_oAnswer = {};
        poWriter->m_oAnswer.m_oReason = oAnswer.m_oReason;
        poWriter->m_oAnswer.m_auiFollowed = oAnswer.m_auiFollowed;
        poWriter->m_oOfParts = oAnswer;
        return bEdited ? ZOREDID_OK : ZOREDID_ERROR_REFUSED;
    });
    return Close(*poWriter, status);
}

bool HasField(const zoredid_writer* poWriter, size_t uiField)
{
    return uiField < zoredid_map_get_count(zoredid_writer_get_map(poWriter));
}

bool HasBytes(const void* pvBytes, size_t uiBytes)
{
    return (pvBytes != nullptr || uiBytes == 0) && uiBytes <= INT_MAX;
}

// An edit of a list of a kind, which a text names.
template <class EDIT>
zoredid_status EditList(zoredid_writer* poWriter, const char* pszId, bool bGood, const EDIT& fnEdit)
{
    return EditParts(poWriter, pszId != nullptr && bGood, [&](auto& oParts, auto& oAnswer) {
        const auto eId = static_cast<EZorEdidField>(zoredid_id_find(pszId));
        if (eId == eZorEdidField_None)
        {
            oAnswer.m_oReason = "no field has this id";
            return 0;
        }
        return fnEdit(oParts, eId, oAnswer);
    });
}

// Higher than any block or place where it is not ZOREDID_NONE and does not fit.
unsigned int ToPlace(size_t uiPlace)
{
    constexpr size_t uiMost = CZorEdidParts::msc_uiAny;
    return static_cast<unsigned int>(uiPlace == ZOREDID_NONE ? uiMost : std::min(uiPlace, uiMost - 1));
}

CZorEdidParts::SWhere ToWhere(size_t uiBlock, size_t uiPlace)
{
    CZorEdidParts::SWhere oWhere;
    oWhere.m_uiBlock = ToPlace(uiBlock);
    oWhere.m_uiPlace = ToPlace(uiPlace);
    return oWhere;
}

const unsigned char* ToBytes(const void* pvBytes)
{
    static constexpr unsigned char aui8None[1] = {};
    return pvBytes != nullptr ? static_cast<const unsigned char*>(pvBytes) : aui8None;
}

size_t GiveField(const CZorEdidWriter::CFields* pauiFields, size_t index)
{
    const bool bGood = pauiFields != nullptr && index < pauiFields->GetCount();
    return bGood ? (*pauiFields)[static_cast<unsigned int>(index)] : ZOREDID_NONE;
}

const char* GiveAnswer(const zoredid_writer* writer, const CMString CZorEdidWriter::SAnswer::*psText, size_t* length)
{
    return GiveText(writer != nullptr ? static_cast<const char*>(writer->m_oAnswer.*psText) : nullptr, length);
}
} // namespace

zoredid_writer* zoredid_writer_create() { return Create<zoredid_writer>(); }
void zoredid_writer_free(zoredid_writer* writer) { delete writer; }

zoredid_status zoredid_writer_read(zoredid_writer* writer, const void* data, size_t size)
{
    if (writer == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    ClearAnswers(*writer);
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return writer->m_oWriter.Read(uiSize, pui8Data); });
    writer->m_oMap.m_poMap = status == ZOREDID_OK ? &writer->m_oWriter.GetMap() : nullptr;
    return status;
}

zoredid_status zoredid_writer_set(zoredid_writer* writer, size_t index, const char* value)
{
    const bool bGood = value != nullptr && index < zoredid_map_get_count(zoredid_writer_get_map(writer));
    return bGood ? Set(*writer, static_cast<unsigned int>(index), value) : Fail(writer, ZOREDID_ERROR_ARGUMENT);
}

zoredid_status zoredid_writer_set_by_id(zoredid_writer* writer, const char* id, size_t number, const char* value)
{
    if (writer == nullptr || id == nullptr || value == nullptr)
    {
        return Fail(writer, ZOREDID_ERROR_ARGUMENT);
    }
    const size_t index = zoredid_map_find(&writer->m_oMap, zoredid_id_find(id), number);
    if (index == ZOREDID_NONE)
    {
        return Fail(writer, ZOREDID_ERROR_NO_FIELD);
    }
    return Set(*writer, writer->m_oMap.m_poMap->GetTextOf(static_cast<unsigned int>(index)), value);
}

int zoredid_writer_is_exact(const zoredid_writer* writer)
{
    return writer != nullptr && writer->m_oAnswer.m_bExact ? 1 : 0;
}

const char* zoredid_writer_get_before(const zoredid_writer* writer, size_t* length)
{
    return GiveAnswer(writer, &CZorEdidWriter::SAnswer::m_oBefore, length);
}

const char* zoredid_writer_get_after(const zoredid_writer* writer, size_t* length)
{
    return GiveAnswer(writer, &CZorEdidWriter::SAnswer::m_oAfter, length);
}

const char* zoredid_writer_get_reason(const zoredid_writer* writer, size_t* length)
{
    return GiveAnswer(writer, &CZorEdidWriter::SAnswer::m_oReason, length);
}

size_t zoredid_writer_get_followed_count(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oAnswer.m_auiFollowed.GetCount() : 0;
}

size_t zoredid_writer_get_followed(const zoredid_writer* writer, size_t index)
{
    return GiveField(writer != nullptr ? &writer->m_oAnswer.m_auiFollowed : nullptr, index);
}

size_t zoredid_writer_get_other_count(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oAnswer.m_auiOthers.GetCount() : 0;
}

size_t zoredid_writer_get_other(const zoredid_writer* writer, size_t index)
{
    return GiveField(writer != nullptr ? &writer->m_oAnswer.m_auiOthers : nullptr, index);
}

const zoredid_map* zoredid_writer_get_map(const zoredid_writer* writer)
{
    return writer != nullptr ? &writer->m_oMap : nullptr;
}

const unsigned char* zoredid_writer_get_data(const zoredid_writer* writer, size_t* size)
{
    return zoredid_map_get_data(zoredid_writer_get_map(writer), size);
}

// ---- Parts ----

zoredid_status zoredid_writer_add_block(zoredid_writer* writer, uint32_t tag, const void* data, size_t place)
{
    return EditParts(writer, true, [&](auto& oParts, auto& oAnswer) {
        const auto* const pui8Block = static_cast<const unsigned char*>(data);
        if (tag == 0 || tag > UCHAR_MAX || (pui8Block != nullptr && *pui8Block != tag))
        {
            oAnswer.m_oReason = "the tag of an extension block is 1 to 255, and its first byte";
            return 0;
        }
        const unsigned int uiSize = pui8Block != nullptr ? ZorStandards::gsc_uiBlockSize : 0;
        return oParts.AddBlock(tag, uiSize, pui8Block, ToWhere(ZOREDID_NONE, place), oAnswer);
    });
}

zoredid_status zoredid_writer_add_standard(zoredid_writer* writer, const void* data, size_t place)
{
    return EditParts(writer, data != nullptr, [&](auto& oParts, auto& oAnswer) {
        return oParts.AddStandard(ToBytes(data), ToWhere(ZOREDID_NONE, place), oAnswer);
    });
}

zoredid_status zoredid_writer_add_descriptor(zoredid_writer* writer, const void* data, size_t block, size_t place)
{
    return EditParts(writer, data != nullptr, [&](auto& oParts, auto& oAnswer) {
        return oParts.AddDescriptor(ToBytes(data), ToWhere(block, place), oAnswer);
    });
}

zoredid_status zoredid_writer_add_text(zoredid_writer* writer, const char* id, const char* text)
{
    return EditList(writer, id, text != nullptr, [&](auto& oParts, auto eId, auto& oAnswer) {
        using namespace ZorStandards::Descriptors;
        const unsigned char ui8Tag = eId == eZorEdidField_BaseName     ? gsc_ui8TagName
                                     : eId == eZorEdidField_BaseSerial ? gsc_ui8TagSerialNumber
                                     : eId == eZorEdidField_BaseString ? gsc_ui8TagString
                                                                       : 0;
        const auto uiLength = static_cast<unsigned int>(strnlen(text, gsc_uiTextSize + 1));
        if (ui8Tag == 0 || !IsTextFor(text, uiLength))
        {
            oAnswer.m_oReason = ui8Tag == 0 ? "it is not a text of the base block" : gsc_pszTextFor;
            return 0;
        }
        unsigned char aui8Descriptor[gsc_uiDescriptorSize];
        WriteText(aui8Descriptor, ui8Tag, text, uiLength);
        return oParts.AddDescriptor(aui8Descriptor, ToWhere(0, ZOREDID_NONE), oAnswer);
    });
}

zoredid_status zoredid_writer_add_data_block(zoredid_writer* writer, const char* id, const void* payload, size_t size,
                                             size_t block, size_t place)
{
    return EditList(writer, id, HasBytes(payload, size), [&](auto& oParts, auto eId, auto& oAnswer) {
        return oParts.AddDataBlock(eId, static_cast<unsigned int>(size), ToBytes(payload), ToWhere(block, place),
                                   oAnswer);
    });
}

zoredid_status zoredid_writer_add_item(zoredid_writer* writer, const char* id, const void* item, size_t size,
                                       size_t block, size_t place)
{
    return EditList(writer, id, HasBytes(item, size), [&](auto& oParts, auto eId, auto& oAnswer) {
        return oParts.AddItem(eId, static_cast<unsigned int>(size), ToBytes(item), ToWhere(block, place), oAnswer);
    });
}

zoredid_status zoredid_writer_remove(zoredid_writer* writer, size_t index)
{
    return EditParts(writer, HasField(writer, index), [&](auto& oParts, auto& oAnswer) {
        return oParts.Remove(static_cast<unsigned int>(index), oAnswer);
    });
}

zoredid_status zoredid_writer_move(zoredid_writer* writer, size_t index, size_t place)
{
    return EditParts(writer, HasField(writer, index), [&](auto& oParts, auto& oAnswer) {
        return oParts.Move(static_cast<unsigned int>(index), ToPlace(place), oAnswer);
    });
}

size_t zoredid_writer_get_part(const zoredid_writer* writer)
{
    return writer != nullptr ? ToIndex(writer->m_oOfParts.m_uiField) : ZOREDID_NONE;
}

size_t zoredid_writer_get_new_block(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oOfParts.m_uiNewBlock : 0;
}

size_t zoredid_writer_get_lacking(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oOfParts.m_uiLacking : 0;
}

size_t zoredid_writer_get_removable_count(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oOfParts.m_auiRemovable.GetCount() : 0;
}

size_t zoredid_writer_get_removable(const zoredid_writer* writer, size_t index)
{
    return GiveField(writer != nullptr ? &writer->m_oOfParts.m_auiRemovable : nullptr, index);
}
