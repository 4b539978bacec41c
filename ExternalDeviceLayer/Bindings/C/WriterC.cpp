// An image under edit.

#include "ZorEdidWriter.h"

#include "HandlesC.h"

using namespace ZorC;

struct zoredid_writer
{
    CZorEdidWriter m_oWriter;
    CZorEdidWriter::SAnswer m_oAnswer;
    zoredid_map m_oMap; // of the writer's bytes; without any where nothing was read
};

namespace
{
zoredid_status Set(zoredid_writer& oWriter, unsigned int uiField, const char* pszValue)
{
    const zoredid_status status = Guard([&] {
        CZorEdidWriter::SAnswer oAnswer; // the value may be a text of the last one
        const int iSet = oWriter.m_oWriter.Set(uiField, pszValue, oAnswer);
        oWriter.m_oAnswer = oAnswer;
        return iSet != 0 ? ZOREDID_OK : ZOREDID_ERROR_REFUSED;
    });
    if (status == ZOREDID_ERROR_MEMORY) // and the map means nothing
    {
        oWriter.m_oMap.m_poMap = nullptr;
        oWriter.m_oAnswer = {};
    }
    return status;
}

// A set that no field is asked for leaves no answer, as the last one is another field's.
zoredid_status Fail(zoredid_writer* poWriter, zoredid_status status)
{
    if (poWriter != nullptr)
    {
        poWriter->m_oAnswer = {};
    }
    return status;
}

size_t GiveField(const zoredid_writer* writer, const CZorEdidWriter::CFields CZorEdidWriter::SAnswer::*pauiFields,
                 size_t index)
{
    if (writer == nullptr || index >= (writer->m_oAnswer.*pauiFields).GetCount())
    {
        return ZOREDID_NONE;
    }
    return (writer->m_oAnswer.*pauiFields)[static_cast<unsigned int>(index)];
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
    writer->m_oAnswer = {};
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
    return GiveField(writer, &CZorEdidWriter::SAnswer::m_auiFollowed, index);
}

size_t zoredid_writer_get_other_count(const zoredid_writer* writer)
{
    return writer != nullptr ? writer->m_oAnswer.m_auiOthers.GetCount() : 0;
}

size_t zoredid_writer_get_other(const zoredid_writer* writer, size_t index)
{
    return GiveField(writer, &CZorEdidWriter::SAnswer::m_auiOthers, index);
}

const zoredid_map* zoredid_writer_get_map(const zoredid_writer* writer)
{
    return writer != nullptr ? &writer->m_oMap : nullptr;
}

const unsigned char* zoredid_writer_get_data(const zoredid_writer* writer, size_t* size)
{
    return zoredid_map_get_data(zoredid_writer_get_map(writer), size);
}
