// Loops for the Python package. cffi lets other threads of Python run while one of these does.

#include <errno.h>
#include <string.h>

static zoredid_fact_type g_types[ZORPY_MOST_FACTS];

// Types are asked for once: before any thread, as the module is loaded.
__attribute__((constructor)) static void zorpy_list_types(void)
{
    size_t index;
    for (index = 0; index < zoredid_fact_get_count() && index < ZORPY_MOST_FACTS; ++index)
        g_types[index] = zoredid_fact_get_type(zoredid_fact_get(index));
}

static const void* zorpy_get_text(const zoredid_facts* facts, zoredid_fact fact, zoredid_fact_type type, size_t* length)
{
    return type == ZOREDID_FACT_TYPE_TEXT ? (const void*)zoredid_facts_get_text(facts, fact, length)
                                          : (const void*)zoredid_facts_get_bytes(facts, fact, length);
}

static void zorpy_add_text(zorpy_facts* said, size_t index, const void* text, size_t length)
{
    if (length > sizeof(said->characters) - said->text_bytes || said->texts == sizeof(said->text_facts))
        return;
    memcpy(said->characters + said->text_bytes, text, length);
    said->text_bytes += length;
    said->text_facts[said->texts] = (unsigned char)index;
    said->text_ends[said->texts++] = said->text_bytes;
}

static void zorpy_add_fact(zorpy_facts* said, const zoredid_facts* facts, size_t index)
{
    const zoredid_fact fact = zoredid_fact_get(index);
    const void* text;
    size_t length;
    switch (g_types[index])
    {
    case ZOREDID_FACT_TYPE_FLAG:
    case ZOREDID_FACT_TYPE_NUMBER:
        said->number_facts[said->numbers] = (unsigned char)index;
        said->numbers += (size_t)zoredid_facts_get_number(facts, fact, &said->number_values[said->numbers]);
        break;
    case ZOREDID_FACT_TYPE_REAL:
        said->real_facts[said->reals] = (unsigned char)index;
        said->reals += (size_t)zoredid_facts_get_real(facts, fact, &said->real_values[said->reals]);
        break;
    default:
        text = zorpy_get_text(facts, fact, g_types[index], &length);
        if (text != NULL)
            zorpy_add_text(said, index, text, length);
        break;
    }
}

zoredid_status zorpy_read_facts(const void* data, size_t size, zorpy_facts* said)
{
    zoredid_facts* const facts = zoredid_facts_create();
    zoredid_status status = ZOREDID_ERROR_MEMORY;
    size_t index;
    if (facts != NULL)
        status = zoredid_facts_read(facts, data, size);
    said->numbers = said->reals = said->texts = said->text_bytes = 0;
    for (index = 0; status == ZOREDID_OK && index < zoredid_fact_get_count() && index < ZORPY_MOST_FACTS; ++index)
        zorpy_add_fact(said, facts, index);
    zoredid_facts_free(facts);
    return status;
}

static void zorpy_set_cell(const zorpy_column* column, const zoredid_facts* facts, size_t row)
{
    size_t length;
    const void* const text = zorpy_get_text(facts, column->fact, zoredid_fact_get_type(column->fact), &length);
    column->said[row] = text != NULL && length <= ZORPY_CELL;
    column->lengths[row] = column->said[row] ? (uint16_t)length : 0;
    if (column->said[row])
        memcpy(column->cells + row * ZORPY_CELL, text, length);
}

static void zorpy_set_row(const zorpy_column* columns, size_t column_count, const zoredid_facts* facts, size_t row)
{
    const zorpy_column* column;
    for (column = columns; column != columns + column_count; ++column)
    {
        if (column->numbers != NULL)
            column->said[row] = (unsigned char)zoredid_facts_get_number(facts, column->fact, &column->numbers[row]);
        else if (column->reals != NULL)
            column->said[row] = (unsigned char)zoredid_facts_get_real(facts, column->fact, &column->reals[row]);
        else
            zorpy_set_cell(column, facts, row);
    }
}

static zoredid_status zorpy_read_first(const zoredid_image* image, zoredid_facts* facts)
{
    size_t size;
    const unsigned char* const data = zoredid_image_get_edid(image, 0, &size);
    return zoredid_facts_read(facts, data, size);
}

static zoredid_status zorpy_read_path(zoredid_image* image, const char* path, zoredid_facts* facts)
{
    const zoredid_status status = zoredid_image_open(image, path);
    return status != ZOREDID_OK ? status : zorpy_read_first(image, facts);
}

/* Bytes with room for two EDIDs may hold several: a copy finds where the first one ends. */
static zoredid_status zorpy_read_bytes(zoredid_image* image, const char* data, size_t size, zoredid_facts* facts)
{
    zoredid_status status;
    if (size < 2 * ZORPY_BLOCK)
        return zoredid_facts_read(facts, data, size);
    status = zoredid_image_load(image, data, size);
    return status != ZOREDID_OK ? status : zorpy_read_first(image, facts);
}

void zorpy_read_many(const char* inputs, const uint64_t* sizes, size_t count, const zorpy_column* columns,
                     size_t column_count, unsigned char* statuses, int* errors)
{
    const uint64_t path = (uint64_t)1 << 63;
    zoredid_facts* const facts = zoredid_facts_create();
    zoredid_image* const image = zoredid_image_create();
    size_t row;
    for (row = 0; row < count; ++row)
    {
        const size_t size = (size_t)(sizes[row] & ~path);
        zoredid_status status = ZOREDID_ERROR_MEMORY;
        errno = 0;
        if (facts != NULL && image != NULL)
            status = (sizes[row] & path) != 0 ? zorpy_read_path(image, inputs, facts)
                                              : zorpy_read_bytes(image, inputs, size, facts);
        errors[row] = status == ZOREDID_ERROR_FILE ? errno : 0;
        statuses[row] = (unsigned char)status;
        inputs += size;
        if (status == ZOREDID_OK)
            zorpy_set_row(columns, column_count, facts, row);
    }
    zoredid_image_free(image);
    zoredid_facts_free(facts);
}

size_t zorpy_read_list(const void* data, size_t size, zorpy_list list, size_t columns, size_t most, int64_t* rows)
{
    static const struct
    {
        size_t (*count)(const zoredid_facts* facts);
        void (*fill)(const zoredid_facts* facts, size_t index, int64_t* row);
    } lists[] = { { zoredid_facts_get_vrr_count, zorpy_fill_VrrRange },
                  { zoredid_facts_get_space_count, zorpy_fill_ColourSpace },
                  { zoredid_facts_get_audio_count, zorpy_fill_AudioFormat },
                  { zoredid_facts_get_conflict_count, zorpy_fill_Conflict } };
    zoredid_facts* const facts = zoredid_facts_create();
    size_t count = 0;
    size_t index;
    if (facts != NULL && zoredid_facts_read(facts, data, size) == ZOREDID_OK)
        count = lists[list].count(facts);
    if (count > most)
        count = most;
    for (index = 0; index < count; ++index)
        lists[list].fill(facts, index, rows + index * columns);
    zoredid_facts_free(facts);
    return count;
}

void zorpy_fill_modes(const zoredid_modes* modes, size_t columns, int64_t* rows)
{
    size_t index;
    for (index = 0; index < zoredid_modes_get_count(modes); ++index)
        zorpy_fill_ModeRecord(modes, index, rows + index * columns);
}
