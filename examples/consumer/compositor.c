/* What a compositor asks of a monitor: compositor FILE */

#include <errno.h>
#include <inttypes.h>
#include <stdio.h>
#include <string.h>
#include <zoredid.h>

static void print_preferred(const zoredid_modes* modes)
{
    const size_t mode = zoredid_modes_get_preferred(modes);
    const uint64_t denominator = zoredid_modes_get_rate_denominator(modes, mode);
    if (mode == ZOREDID_NONE)
    {
        printf("no preferred mode\n");
        return;
    }
    printf("preferred %" PRIu32 " x %" PRIu32 "%s", zoredid_modes_get_width(modes, mode),
           zoredid_modes_get_height(modes, mode), zoredid_modes_is_interlaced(modes, mode) ? "i" : "");
    if (denominator != 0) /* else the image leaves the rate open */
        printf(" @ %.3f Hz", (double)zoredid_modes_get_rate_numerator(modes, mode) / (double)denominator);
    printf("\n");
}

static void print_size(const zoredid_facts* facts)
{
    double width, height;
    if (zoredid_facts_get_real(facts, ZOREDID_FACT_WIDTH, &width) &&
        zoredid_facts_get_real(facts, ZOREDID_FACT_HEIGHT, &height))
        printf("%.0f x %.0f mm", width, height);
    else
        printf("size not known");
}

static void print_facts(const zoredid_facts* facts)
{
    /* What is not said leaves the number as it is. */
    int64_t hdr10 = 0, spaces = 0, least = 0, most = 0, columns = 1, rows = 1;
    double luminance = 0;

    zoredid_facts_get_number(facts, ZOREDID_FACT_HDR10, &hdr10);
    printf("HDR10: %s", hdr10 ? "yes" : "no");
    if (hdr10 && zoredid_facts_get_real(facts, ZOREDID_FACT_CONTENT_MAX_LUMINANCE, &luminance))
        printf(", %.0f cd/m2", luminance);
    zoredid_facts_get_number(facts, ZOREDID_FACT_COLORIMETRY, &spaces);
    printf("\nBT.2020 RGB: %s\n", spaces & ZOREDID_COLORIMETRY_BT2020RGB ? "yes" : "no");
    if (zoredid_facts_get_number(facts, ZOREDID_FACT_VRR_MIN, &least))
    {
        printf("VRR: %" PRId64 " Hz to ", least);
        if (zoredid_facts_get_number(facts, ZOREDID_FACT_VRR_MAX, &most))
            printf("%" PRId64 " Hz\n", most);
        else
            printf("the rate of the mode\n");
    }
    zoredid_facts_get_number(facts, ZOREDID_FACT_TILE_COLUMNS, &columns);
    zoredid_facts_get_number(facts, ZOREDID_FACT_TILE_ROWS, &rows);
    printf("tiles: %" PRId64 " x %" PRId64 "\n", columns, rows);
}

int main(int count, char** arguments)
{
    zoredid_image* image = zoredid_image_create();
    zoredid_facts* facts = zoredid_facts_create();
    zoredid_modes* modes = zoredid_modes_create();
    size_t size = 0;
    const unsigned char* data;
    const char* name;

    zoredid_status status = zoredid_image_open(image, count == 2 ? arguments[1] : NULL);
    data = zoredid_image_get_edid(image, 0, &size);
    if (status == ZOREDID_OK)
        status = zoredid_facts_read(facts, data, size);
    if (status == ZOREDID_OK)
        status = zoredid_modes_read(modes, data, size);
    if (status == ZOREDID_OK)
    {
        name = zoredid_facts_get_text(facts, ZOREDID_FACT_NAME, NULL);
        printf("%s: ", name != NULL ? name : "no name");
        print_size(facts);
        printf(", %u modes, ", (unsigned int)zoredid_modes_get_count(modes));
        print_preferred(modes);
        print_facts(facts);
    }
    else if (count != 2)
        fprintf(stderr, "usage: compositor FILE\n");
    else
        fprintf(stderr, "%s: %s\n", arguments[1],
                status == ZOREDID_ERROR_FILE ? strerror(errno) : zoredid_status_get_text(status));
    zoredid_modes_free(modes);
    zoredid_facts_free(facts);
    zoredid_image_free(image);
    return status == ZOREDID_OK ? 0 : 1;
}
