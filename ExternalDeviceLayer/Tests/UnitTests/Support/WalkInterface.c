/* The walk, in C89. */

#include "WalkInterface.h"

#include <limits.h>
#include <string.h>

#define COUNT_OF(array) (sizeof(array) / sizeof((array)[0]))

typedef struct objects
{
    zoredid_image* image;
    zoredid_facts* facts;
    zoredid_modes* modes;
    zoredid_map* map;
    zoredid_check* check;
    zoredid_repair* repair;
    zoredid_writer* writer;
} objects;

static const char* broken; /* the first promise; the walk runs in one thread */

static void require(int holds, const char* promise)
{
    if (!holds && broken == NULL)
        broken = promise;
}

/* Of a text that is there the length is right, and each byte belongs to a character of UTF-8. */
static void require_text(const char* text, size_t length)
{
    size_t i, rest = 0;
    if (text == NULL)
    {
        require(length == 0, "no text has no length");
        return;
    }
    require(strlen(text) == length, "a text has its length");
    for (i = 0; i < length; ++i)
    {
        const unsigned int c = (unsigned char)text[i];
        require((rest != 0) == ((c & 0xC0) == 0x80) && c >= ' ' && c < 0xF0, "a text is UTF-8");
        rest = rest != 0 ? rest - 1 : c >= 0xE0 ? 2U : c >= 0xC0 ? 1U : 0U;
    }
    require(rest == 0, "a text ends with a character");
}

static void require_bytes(const unsigned char* data, size_t size)
{
    size_t i;
    unsigned int sum = 0;
    require((data != NULL) == (size != 0), "bytes have a length");
    for (i = 0; i < size; ++i)
        sum += data[i]; /* all of them are there */
    require(sum <= size * UCHAR_MAX, "bytes are bytes");
}

static void walk_image(const zoredid_image* image)
{
    size_t i, size = 1, sum = 0, all = 0;
    const unsigned char* bytes;
    const size_t count = zoredid_image_get_count(image);
    bytes = zoredid_image_get_data(image, &all);
    require_bytes(bytes, all);
    for (i = 0; i < count; ++i)
    {
        bytes = zoredid_image_get_edid(image, i, &size);
        require_bytes(bytes, size);
        sum += size;
    }
    require(sum == all, "the EDIDs are all bytes");
    require(zoredid_image_get_edid(image, count, &size) == NULL && size == 0, "no EDID beyond the last one");
    require(zoredid_image_get_edid(image, ZOREDID_NONE, NULL) == NULL, "no EDID without a number");
}

static void walk_fact(const zoredid_facts* facts, zoredid_fact fact)
{
    int64_t number = 7;
    double real = 7;
    uint32_t id = 7;
    size_t offset = 7, text_length = 7, bytes_length = 7;
    const int said = zoredid_facts_is_said(facts, fact);
    const int has_number = zoredid_facts_get_number(facts, fact, &number);
    const int has_real = zoredid_facts_get_real(facts, fact, &real);
    const char* text = zoredid_facts_get_text(facts, fact, &text_length);
    const unsigned char* bytes = zoredid_facts_get_bytes(facts, fact, &bytes_length);
    const zoredid_fact_type type = zoredid_fact_get_type(fact);
    require(has_number == (said && type <= ZOREDID_FACT_TYPE_NUMBER), "a number of its type");
    require(has_real == (said && type <= ZOREDID_FACT_TYPE_REAL), "a real of its type");
    require((text != NULL) == (said && type == ZOREDID_FACT_TYPE_TEXT), "a text of its type");
    require((bytes != NULL) == (said && type == ZOREDID_FACT_TYPE_BYTES), "bytes of their type");
    require((has_number || number == 7) && (has_real || real > 6), "what is not said leaves all as it is");
    require(!has_number || (double)number == real, "a number is a real"); /* NOLINT: whole numbers are equal */
    require(type != ZOREDID_FACT_TYPE_FLAG || !has_number || number == 0 || number == 1, "a flag is 0 or 1");
    require_text(text, text_length);
    require_bytes(bytes, bytes_length);
    require(zoredid_facts_get_source(facts, fact, &id, &offset) == said && (said || (id == 7 && offset == 7)),
            "what is said has a source");
    require(!said || zoredid_id_get_text(id) != NULL, "a source is a field");
    require((zoredid_fact_get_name(fact) != NULL) == (type != ZOREDID_FACT_TYPE_UNKNOWN), "a fact has a name");
    require(zoredid_fact_get_unit(fact) == NULL || type != ZOREDID_FACT_TYPE_UNKNOWN, "a unit is of a fact");
    zoredid_facts_get_number(facts, fact, NULL);
    zoredid_facts_get_real(facts, fact, NULL);
    zoredid_facts_get_text(facts, fact, NULL);
    zoredid_facts_get_bytes(facts, fact, NULL);
    zoredid_facts_get_source(facts, fact, NULL, NULL);
}

/* The numbers of a list, of all elements and beyond. */
#define WALK(object, index, functions)                                                                                 \
    for (f = 0; f < COUNT_OF(functions); ++f)                                                                          \
    require(functions[f](object, index) == 0 || index < count, "nothing beyond the list")

typedef uint32_t (*fact_number)(const zoredid_facts*, size_t);
typedef size_t (*fact_size)(const zoredid_facts*, size_t);
typedef int (*fact_flag)(const zoredid_facts*, size_t);

static void walk_ranges(const zoredid_facts* facts)
{
    static const fact_number numbers[] = { zoredid_facts_get_vrr_min, zoredid_facts_get_vrr_max,
                                           zoredid_facts_get_vrr_max_increase, zoredid_facts_get_vrr_max_decrease,
                                           zoredid_facts_get_vrr_id };
    static const fact_flag flags[] = { zoredid_facts_get_vrr_native, zoredid_facts_get_vrr_seamless,
                                       zoredid_facts_get_vrr_adaptive };
    const size_t count = zoredid_facts_get_vrr_count(facts);
    size_t i, f;
    require(count <= 16, "ranges are limited");
    for (i = 0; i <= count; ++i)
    {
        WALK(facts, i, numbers);
        WALK(facts, i, flags);
        require((zoredid_facts_get_vrr_source(facts, i) != ZOREDID_VRR_UNKNOWN) == (i < count), "a range has a source");
        require(zoredid_facts_get_vrr_offset(facts, i) == 0 || i < count, "a range has a place");
    }
}

static void walk_lists(const zoredid_facts* facts)
{
    static const fact_number formats[] = { zoredid_facts_get_audio_format,   zoredid_facts_get_audio_extended_format,
                                           zoredid_facts_get_audio_channels, zoredid_facts_get_audio_rates,
                                           zoredid_facts_get_audio_bit_rate, zoredid_facts_get_audio_sample_sizes,
                                           zoredid_facts_get_audio_byte };
    static const fact_number conflicts[] = { zoredid_facts_get_conflict_taken_id, zoredid_facts_get_conflict_other_id };
    static const fact_size places[] = { zoredid_facts_get_conflict_taken_offset,
                                        zoredid_facts_get_conflict_other_offset };
    size_t i, f, count = zoredid_facts_get_audio_count(facts);
    for (i = 0; i <= count; ++i)
    {
        WALK(facts, i, formats);
        require(zoredid_facts_get_audio_hdmi_3d(facts, i) == 0 || i < count, "nothing beyond the list");
    }
    count = zoredid_facts_get_conflict_count(facts);
    for (i = 0; i <= count; ++i)
    {
        WALK(facts, i, conflicts);
        WALK(facts, i, places);
        require((zoredid_facts_get_conflict_question(facts, i) != ZOREDID_QUESTION_UNKNOWN) == (i < count),
                "a conflict has a question");
    }
    count = zoredid_facts_get_space_count(facts);
    for (i = 0; i <= count; ++i)
    {
        const zoredid_space space = zoredid_facts_get_space(facts, i);
        const zoredid_transfer transfer = zoredid_facts_get_space_transfer(facts, i);
        const int known = space > ZOREDID_SPACE_UNKNOWN && space <= ZOREDID_SPACE_CUSTOM &&
                          transfer > ZOREDID_TRANSFER_UNKNOWN && transfer <= ZOREDID_TRANSFER_CUSTOM;
        require(zoredid_facts_takes_space(facts, space, transfer) == (known && i < count), "a listed space is taken");
    }
}

static void walk_facts(const zoredid_facts* facts)
{
    char unread[80];
    int i;
    for (i = -1; i < 600; ++i)
        walk_fact(facts, (zoredid_fact)i);
    walk_fact(facts, (zoredid_fact)INT_MAX);
    walk_fact(facts, (zoredid_fact)INT_MIN);
    require(zoredid_facts_get_unread(facts, unread, sizeof(unread)) == strlen(unread), "why not all is known");
    walk_ranges(facts);
    walk_lists(facts);
}

static void walk_modes(const zoredid_modes* modes)
{
    static uint32_t (*const numbers[])(const zoredid_modes*, size_t) = { zoredid_modes_get_width,
                                                                         zoredid_modes_get_height,
                                                                         zoredid_modes_get_code,
                                                                         zoredid_modes_get_aspect_width,
                                                                         zoredid_modes_get_aspect_height,
                                                                         zoredid_modes_get_repetition,
                                                                         zoredid_modes_get_hdmi_3d,
                                                                         zoredid_modes_get_preference,
                                                                         zoredid_modes_get_id,
                                                                         zoredid_modes_get_rank,
                                                                         zoredid_modes_get_horizontal_front,
                                                                         zoredid_modes_get_horizontal_sync,
                                                                         zoredid_modes_get_horizontal_border,
                                                                         zoredid_modes_get_vertical_front,
                                                                         zoredid_modes_get_vertical_sync,
                                                                         zoredid_modes_get_vertical_border };
    static uint64_t (*const long_numbers[])(const zoredid_modes*, size_t) = {
        zoredid_modes_get_rate_numerator,         zoredid_modes_get_rate_denominator,
        zoredid_modes_get_nominal_rate_numerator, zoredid_modes_get_nominal_rate_denominator,
        zoredid_modes_get_fraction_clock,         zoredid_modes_get_clock
    };
    static int (*const flags[])(const zoredid_modes*, size_t) = { zoredid_modes_is_interlaced,
                                                                  zoredid_modes_has_fraction, zoredid_modes_is_native,
                                                                  zoredid_modes_is_horizontal_positive,
                                                                  zoredid_modes_is_vertical_positive };
    const size_t count = zoredid_modes_get_count(modes);
    const size_t preferred = zoredid_modes_get_preferred(modes);
    size_t i, f;
    require(preferred == ZOREDID_NONE || zoredid_modes_get_preference(modes, preferred) == 1, "preferred is the first");
    for (i = 0; i <= count; ++i)
    {
        const int bit = zoredid_modes_get_bit(modes, i);
        const zoredid_mode_numbers origin = zoredid_modes_get_numbers(modes, i);
        WALK(modes, i, numbers);
        WALK(modes, i, long_numbers);
        WALK(modes, i, flags);
        require((zoredid_modes_get_kind(modes, i) != ZOREDID_MODE_KIND_UNKNOWN) == (i < count), "a mode has a kind");
        require(zoredid_modes_get_offset(modes, i) == 0 || i < count, "a mode has a place");
        require(bit >= -1 && bit <= 7 && (bit == -1 || i < count), "a bit is one of a byte");
        require((zoredid_modes_get_reason(modes, i) != ZOREDID_MODE_REASON_UNKNOWN) ==
                    (zoredid_modes_get_preference(modes, i) != 0),
                "a preference has a reason");
        require((zoredid_modes_get_clock(modes, i) != 0) == (origin != ZOREDID_MODE_NUMBERS_UNKNOWN) || i < count,
                "numbers have an origin");
        require(zoredid_modes_get_horizontal_active(modes, i) <= zoredid_modes_get_horizontal_total(modes, i) &&
                    zoredid_modes_get_vertical_active(modes, i) <= zoredid_modes_get_vertical_total(modes, i),
                "a total is the most");
        require(zoredid_modes_get_blanking(modes, i) <= ZOREDID_BLANKING_CUSTOM &&
                    zoredid_modes_get_420(modes, i) <= ZOREDID_MODE_420_ONLY &&
                    zoredid_modes_get_stereo(modes, i) <= ZOREDID_STEREO_HDMI,
                "enumerations are known");
    }
}

static void walk_value(const zoredid_map* map, size_t index)
{
    char whole[2048], part[8];
    size_t room;
    const size_t length = zoredid_map_get_value(map, index, whole, sizeof(whole));
    require(zoredid_map_get_value(map, index, NULL, 0) == length, "the length needs no room");
    require(zoredid_map_get_value(map, index, NULL, 5) == length, "the length needs no buffer");
    if (length < sizeof(whole))
        require_text(whole, length);
    for (room = 0; room < sizeof(part); ++room)
    {
        memset(part, '?', sizeof(part));
        zoredid_map_get_value(map, index, part, room);
        require(part[room] == '?', "nothing beyond the room");
        if (room != 0)
        {
            require(strncmp(whole, part, strlen(part)) == 0, "the beginning of a value");
            require_text(part, strlen(part));
        }
    }
}

static void walk_field(const zoredid_map* map, size_t index, size_t size)
{
    const size_t count = zoredid_map_get_count(map);
    const size_t pieces = zoredid_map_get_piece_count(map, index);
    const int known = index < count;
    int64_t number = 7;
    unsigned int decimals = 7;
    size_t i;
    require((zoredid_map_get_name(map, index) != NULL) == known, "a field has a name");
    require((zoredid_map_get_kind(map, index) != ZOREDID_FIELD_KIND_UNKNOWN) == known, "a field has a kind");
    require((zoredid_map_get_area(map, index) != ZOREDID_AREA_UNKNOWN) == known, "a field has an area");
    require((zoredid_map_get_id(map, index) != 0) == known, "a field has an id");
    require((zoredid_map_get_end(map, index) > index) == known, "a field has an end");
    require(zoredid_map_get_group(map, index) == ZOREDID_NONE || zoredid_map_get_group(map, index) < index,
            "a group is before its fields");
    require((zoredid_map_get_depth(map, index) == 0) == (zoredid_map_get_group(map, index) == ZOREDID_NONE),
            "what has no depth has no group");
    require(zoredid_map_get_number_in_group(map, index) == ZOREDID_NONE || known, "nothing beyond the list");
    require((zoredid_map_get_unit(map, index) == NULL && zoredid_map_get_meaning(map, index) == NULL) || known,
            "nothing beyond the list");
    require(zoredid_map_get_number(map, index, &number, &decimals) || (number == 7 && decimals == 7),
            "no number leaves all as it is");
    zoredid_map_get_number(map, index, NULL, NULL);
    walk_value(map, index);
    require(zoredid_map_get_offset(map, index) + zoredid_map_get_length(map, index) <= size, "a field is in the image");
    for (i = 0; i <= pieces; ++i)
    {
        const size_t offset = zoredid_map_get_piece_offset(map, index, i);
        const size_t length = zoredid_map_get_piece_length(map, index, i);
        require(offset + length <= size && (length != 0) == (i < pieces), "a piece is in the image");
        require((zoredid_map_get_piece_mask(map, index, i) != 0) == (i < pieces), "a piece has bits");
    }
}

static void walk_map(const zoredid_map* map)
{
    size_t i, size = 0;
    const unsigned char* bytes;
    const size_t count = zoredid_map_get_count(map);
    bytes = zoredid_map_get_data(map, &size);
    require_bytes(bytes, size);
    require((count != 0) == (size != 0), "bytes have fields");
    for (i = 0; i <= count; ++i)
        walk_field(map, i, size);
    walk_field(map, ZOREDID_NONE - 1, size);
    for (i = 0; i < size; i += 31)
    {
        const size_t leaf = zoredid_map_find_at(map, i, (unsigned int)i % 8);
        const uint32_t id = zoredid_map_get_id(map, leaf);
        const size_t same = zoredid_map_count(map, id);
        require(leaf < count && same != 0, "each bit is of a leaf");
        require(zoredid_map_get_id(map, zoredid_map_find(map, id, same - 1)) == id, "a field is found by its id");
        require(zoredid_map_find(map, id, same) == ZOREDID_NONE, "as many as there are");
    }
    require(zoredid_map_find_at(map, size, 0) == ZOREDID_NONE && zoredid_map_find_at(map, 0, 8) == ZOREDID_NONE &&
                zoredid_map_find(map, UINT_MAX, 0) == ZOREDID_NONE && zoredid_map_count(map, UINT_MAX) == 0,
            "nothing beyond the image");
}

static void walk_check(const zoredid_check* check)
{
    size_t i, length = 7;
    const char* text;
    const size_t count = zoredid_check_get_count(check);
    for (i = 0; i <= count; ++i)
    {
        const uint32_t rule = zoredid_check_get_rule(check, i);
        require((zoredid_rule_get_id(rule) != NULL) == (i < count), "a finding has a rule");
        require((zoredid_check_get_severity(check, i) != ZOREDID_SEVERITY_UNKNOWN) == (i < count) &&
                    (zoredid_rule_get_severity(rule) != ZOREDID_SEVERITY_UNKNOWN) == (i < count),
                "a finding has a weight");
        require((zoredid_check_get_what(check, i) != NULL) == (i < count), "a finding has words");
        require((zoredid_check_get_field(check, i) == ZOREDID_NONE) == (i == count), "a finding has a field");
        require(zoredid_check_get_offset(check, i) == 0 || i < count, "a finding has a place");
        text = zoredid_check_get_reason(check, i, &length);
        require_text(text, length);
        text = zoredid_check_get_found(check, i, &length);
        require_text(text, length);
        text = zoredid_check_get_expected(check, i, &length);
        require_text(text, length);
    }
}

static void walk_repair(const zoredid_repair* repair)
{
    size_t i, size = 0;
    const unsigned char* bytes;
    const size_t count = zoredid_repair_get_count(repair);
    bytes = zoredid_repair_get_data(repair, &size);
    require_bytes(bytes, size);
    for (i = 0; i <= count; ++i)
    {
        require((zoredid_rule_get_what(zoredid_repair_get_rule(repair, i)) != NULL) == (i < count), "by a rule");
        require((zoredid_repair_get_length(repair, i) != 0) == (i < count), "a repair has bytes");
        require(zoredid_repair_get_offset(repair, i) + zoredid_repair_get_length(repair, i) <= size, "in the image");
    }
    for (i = 0; i <= zoredid_repair_get_withheld_count(repair); ++i)
    {
        const int is_one = i < zoredid_repair_get_withheld_count(repair);
        require((zoredid_rule_get_what(zoredid_repair_get_withheld_rule(repair, i)) != NULL) == is_one, "by a rule");
        require((zoredid_repair_get_withheld_reason(repair, i) != NULL) == is_one, "with a reason");
        require(!is_one || zoredid_repair_get_withheld_offset(repair, i) < size, "in the image");
    }
    require(zoredid_repair_leave_out(NULL, 1) == ZOREDID_ERROR_ARGUMENT, "no repair");
}

static void walk_answer(const zoredid_writer* writer)
{
    size_t i, length = 7;
    const char* text;
    const size_t fields = zoredid_map_get_count(zoredid_writer_get_map(writer));
    const size_t followed = zoredid_writer_get_followed_count(writer);
    const size_t others = zoredid_writer_get_other_count(writer);
    const size_t removable = zoredid_writer_get_removable_count(writer);
    text = zoredid_writer_get_before(writer, &length);
    require_text(text, length);
    text = zoredid_writer_get_after(writer, &length);
    require_text(text, length);
    text = zoredid_writer_get_reason(writer, &length);
    require_text(text, length);
    for (i = 0; i < followed; ++i)
        require(zoredid_writer_get_followed(writer, i) < fields, "what followed is a field");
    for (i = 0; i < others; ++i)
        require(zoredid_writer_get_other(writer, i) < fields, "what else changed is a field");
    for (i = 0; i < removable; ++i)
        require(zoredid_writer_get_removable(writer, i) < fields, "what may go is a field");
    require(zoredid_writer_get_followed(writer, followed) == ZOREDID_NONE &&
                zoredid_writer_get_other(writer, others) == ZOREDID_NONE &&
                zoredid_writer_get_removable(writer, removable) == ZOREDID_NONE,
            "nothing beyond the list");
    require(zoredid_writer_get_new_block(writer) < 256, "at most 255 blocks follow the base block");
    require(zoredid_writer_get_part(writer) == ZOREDID_NONE || zoredid_writer_get_part(writer) < fields,
            "a part is a field");
    require(removable == 0 || zoredid_writer_get_lacking(writer) != 0, "parts go for want of room");
}

/* A field is given its own value, another one bits, and then what the writer said last. */
static void edit(zoredid_writer* writer, unsigned int order)
{
    char value[256];
    size_t size = 0, length = 0;
    const unsigned char* bytes;
    const size_t count = zoredid_map_get_count(zoredid_writer_get_map(writer));
    const size_t index = count != 0 ? order % count : 0;
    zoredid_status status;
    zoredid_map_get_value(zoredid_writer_get_map(writer), index, value, sizeof(value));
    status = zoredid_writer_set(writer, index, value);
    require((status == ZOREDID_ERROR_ARGUMENT) == (count == 0), "a set is done or refused");
    zoredid_writer_get_reason(writer, &length);
    require((status == ZOREDID_ERROR_REFUSED) == (length != 0) || status == ZOREDID_ERROR_ARGUMENT ||
                status == ZOREDID_ERROR_MEMORY,
            "a refusal has a reason");
    walk_answer(writer);
    zoredid_writer_set(writer, order / 7 % (count + 1), "raw:1");
    require(zoredid_writer_is_exact(writer) <= 1, "a flag is 0 or 1");
    walk_answer(writer);
    zoredid_writer_set(writer, index, zoredid_writer_get_before(writer, NULL));
    zoredid_writer_set_by_id(writer, zoredid_id_get_text(zoredid_map_get_id(zoredid_writer_get_map(writer), index)),
                             order % 3, "1");
    zoredid_writer_set(writer, ZOREDID_NONE, "1");
    zoredid_writer_set(writer, 0, NULL);
    zoredid_writer_set_by_id(writer, "no.such.id", 0, "1");
    zoredid_writer_set_by_id(writer, NULL, 0, "1");
    walk_answer(writer);
    bytes = zoredid_writer_get_data(writer, &size);
    require_bytes(bytes, size);
}

/* A part of each kind is added, one is moved, and one is removed. */
static void edit_parts(zoredid_writer* writer, unsigned int order)
{
    static const unsigned char bytes[18] = { 0xd1, 0xc0, 0, 0xfc, 0, 'A', '\n' };
    const char* const id = zoredid_id_get_text(1 + order % 1000);
    const size_t block = order % 4 != 0 ? ZOREDID_NONE : order / 4 % 4,
                 place = order % 3 != 0 ? ZOREDID_NONE : order % 7;
    const size_t count = zoredid_map_get_count(zoredid_writer_get_map(writer));
    size_t size = 0, before = 0;
    zoredid_writer_add_block(writer, order % 2 != 0 ? 2 : 0x70, NULL, place);
    walk_answer(writer);
    zoredid_writer_add_standard(writer, bytes, place);
    walk_answer(writer);
    zoredid_writer_add_descriptor(writer, order % 2 != 0 ? bytes : bytes + 1, block, place);
    walk_answer(writer);
    zoredid_writer_add_text(writer, order % 2 != 0 ? "base.name" : id, "Name");
    walk_answer(writer);
    zoredid_writer_add_data_block(writer, id, bytes, order % (sizeof(bytes) + 1), block, place);
    walk_answer(writer);
    zoredid_writer_add_item(writer, order % 5 != 0 ? "cta.video" : id, bytes, 1 + order % 3, block, place);
    walk_answer(writer);
    zoredid_writer_move(writer, count != 0 ? order % count : 0, place);
    walk_answer(writer);
    zoredid_writer_get_data(writer, &before);
    if (zoredid_writer_remove(writer, count != 0 ? order / 3 % count : 0) == ZOREDID_OK)
        require(zoredid_writer_get_part(writer) == ZOREDID_NONE, "it is gone");
    zoredid_writer_get_data(writer, &size);
    require(size <= before, "a removal adds nothing");
    require(zoredid_writer_add_block(writer, 2, bytes, 0) != ZOREDID_OK &&
                zoredid_writer_add_standard(writer, NULL, 0) == ZOREDID_ERROR_ARGUMENT &&
                zoredid_writer_add_descriptor(writer, NULL, 0, 0) == ZOREDID_ERROR_ARGUMENT &&
                zoredid_writer_add_data_block(writer, "no.such.id", bytes, 1, 0, 0) != ZOREDID_OK &&
                zoredid_writer_add_item(writer, NULL, bytes, 1, 0, 0) == ZOREDID_ERROR_ARGUMENT &&
                zoredid_writer_add_text(writer, "base.name", NULL) == ZOREDID_ERROR_ARGUMENT &&
                zoredid_writer_add_text(writer, "base.name", "fourteen chars") != ZOREDID_OK &&
                zoredid_writer_remove(writer, ZOREDID_NONE) == ZOREDID_ERROR_ARGUMENT &&
                zoredid_writer_move(NULL, 0, 0) == ZOREDID_ERROR_ARGUMENT,
            "what names no part or no bytes");
    walk_answer(writer);
}

/* An image like another one, wishes that cannot be, and no wishes. */
static void make(const unsigned char* data, size_t size, unsigned int order)
{
    zoredid_maker* const maker = zoredid_maker_create();
    const unsigned char* bytes;
    const char* text;
    size_t i, length = 1;
    int wish;
    zoredid_status status = zoredid_maker_make(maker);
    require(status == ZOREDID_ERROR_ARGUMENT, "nothing is made of no mode");
    zoredid_maker_set_donor(maker, data, size);
    zoredid_maker_add_mode(maker, 1920, 1080, (int)(order & 1), 60000, 1001, ZOREDID_TIMING_SOURCE_UNKNOWN);
    zoredid_maker_set_text(maker, ZOREDID_WISH_NAME, "Name");
    for (wish = 0; wish < 32; ++wish)
        if (order % 32 == (unsigned int)wish)
            zoredid_maker_set_number(maker, (zoredid_wish)wish, order % 5);
    status = zoredid_maker_make(maker);
    bytes = zoredid_maker_get_data(maker, &length);
    require_bytes(bytes, length);
    require((status == ZOREDID_OK) == (bytes != NULL), "what is made has bytes");
    text = zoredid_maker_get_reason(maker, &length);
    require((status == ZOREDID_ERROR_REFUSED) == (length != 0) || status == ZOREDID_ERROR_MEMORY ||
                status == ZOREDID_ERROR_ARGUMENT,
            "a refusal has a reason");
    require_text(text, length);
    for (i = 0; i <= zoredid_maker_get_note_count(maker); ++i)
    {
        text = zoredid_maker_get_note(maker, i, &length);
        require_text(text, length);
    }
    zoredid_maker_free(maker);
}

const char* walk_tables(void)
{
    size_t i;
    char name[64];
    broken = NULL;
    for (i = 0; i < zoredid_fact_get_count(); ++i)
        require(zoredid_fact_find(zoredid_fact_get_name(zoredid_fact_get(i))) == zoredid_fact_get(i), "facts by name");
    for (i = 0; i < zoredid_rule_get_count(); ++i)
    {
        const uint32_t rule = zoredid_rule_get(i);
        require(zoredid_rule_find(zoredid_rule_get_id(rule)) == rule, "rules by id");
        require(zoredid_rule_get_why(rule) != NULL && zoredid_rule_get_standard(rule) != NULL, "rules have a reason");
    }
    for (i = 0; i < 70000; i += 13)
        require(zoredid_id_get_text((uint32_t)i) == NULL || zoredid_id_find(zoredid_id_get_text((uint32_t)i)) == i,
                "ids by text");
    require(zoredid_fact_get(zoredid_fact_get_count()) == ZOREDID_FACT_UNKNOWN &&
                zoredid_fact_find(NULL) == ZOREDID_FACT_UNKNOWN && zoredid_rule_get(zoredid_rule_get_count()) == 0 &&
                zoredid_rule_find(NULL) == 0 && zoredid_id_find(NULL) == 0,
            "nothing is nothing");
    require(zoredid_get_maker_name(NULL, NULL, 0) == 0 && zoredid_get_maker_name("DEL", name, sizeof(name)) <= 63,
            "a maker");
    require(zoredid_status_get_text((zoredid_status)INT_MIN) != NULL && zoredid_get_version() != NULL, "texts");
    return broken;
}

/* Objects are given their own bytes. */
static void read_own(const objects* all)
{
    size_t size = 0, same = 0, i, sum = 0, after = 0;
    zoredid_status status;
    const unsigned char* bytes;
    const size_t count = zoredid_image_get_count(all->image);
    bytes = zoredid_image_get_edid(all->image, count - 1, &size);
    for (i = 0; i < size; ++i)
        sum += bytes[i] * (i + 1);
    status = zoredid_image_load(all->image, bytes, size);
    bytes = zoredid_image_get_data(all->image, &same);
    for (i = 0; i < same; ++i)
        after += bytes[i] * (i + 1);
    require(status != ZOREDID_OK || (same == size && after == sum), "an image takes its own bytes");
    bytes = zoredid_repair_get_data(all->repair, &size);
    status = zoredid_repair_read(all->repair, bytes, size);
    zoredid_repair_get_data(all->repair, &same);
    require(status != ZOREDID_OK || same == size, "a repair takes its own bytes");
    bytes = zoredid_map_get_data(all->map, &size);
    zoredid_map_read(all->map, bytes, size);
    bytes = zoredid_writer_get_data(all->writer, &size);
    zoredid_writer_read(all->writer, bytes, size);
}

static void walk(const objects* all)
{
    walk_image(all->image);
    walk_facts(all->facts);
    walk_modes(all->modes);
    walk_map(all->map);
    walk_check(all->check);
    walk_repair(all->repair);
    walk_answer(all->writer);
}

static void read_all(const objects* all, const unsigned char* data, size_t size)
{
    zoredid_status status = zoredid_image_load(all->image, data, size);
    require((status == ZOREDID_OK) == (zoredid_image_get_count(all->image) != 0), "bytes are an image");
    status = zoredid_facts_read(all->facts, data, size);
    require(status != ZOREDID_ERROR_SIZE || size < 128 || size > INT_MAX, "a base block has facts");
    status = zoredid_modes_read(all->modes, data, size);
    require(status == ZOREDID_OK || zoredid_modes_get_count(all->modes) == 0, "a refusal leaves none");
    status = zoredid_map_read(all->map, data, size);
    require((status == ZOREDID_OK) == (zoredid_map_get_count(all->map) != 0), "bytes have a map");
    zoredid_check_read(all->check, all->map, 2026);
    zoredid_repair_read(all->repair, data, size);
    zoredid_writer_read(all->writer, data, size);
}

/* Which objects are gone, says order: a bit for each. */
static void free_some(objects* all, unsigned int order)
{
#define FREE(bit, name)                                                                                                \
    if (order >> bit & 1)                                                                                              \
    {                                                                                                                  \
        zoredid_##name##_free(all->name);                                                                              \
        all->name = NULL;                                                                                              \
    }
    FREE(0, image)
    FREE(1, facts)
    FREE(2, map)
    FREE(3, modes)
    FREE(4, writer)
    FREE(5, check)
    FREE(6, repair)
}

const char* walk_interface(const unsigned char* data, size_t size, unsigned int order)
{
    objects all;
    broken = NULL;
    all.image = zoredid_image_create();
    all.facts = zoredid_facts_create();
    all.modes = zoredid_modes_create();
    all.map = zoredid_map_create();
    all.check = zoredid_check_create();
    all.repair = zoredid_repair_create();
    all.writer = zoredid_writer_create();
    walk(&all); /* of nothing */
    read_all(&all, data, size);
    edit(all.writer, order);
    if (order % 4 == 1)
        edit_parts(all.writer, order);
    if (order % 8 == 0)
        make(data, size, order / 8);
    free_some(&all, order);
    walk(&all);
    read_own(&all);
    walk(&all);
    read_all(&all, NULL, size);
    read_all(&all, data, size / 2);
    read_all(&all, data, SIZE_MAX);
    require(zoredid_image_open(all.image, NULL) == ZOREDID_ERROR_ARGUMENT, "no file");
    walk(&all); /* of nothing again */
    free_some(&all, 0x7F);
    return broken;
}
