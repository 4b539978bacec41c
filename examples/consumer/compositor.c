/* What a compositor asks of a monitor: compositor FILE */

#include <inttypes.h>
#include <stdio.h>
#include <zoredid.h>

static void print_mode(const zoredid_modes* modes, size_t mode)
{
    const double rate =
        (double)zoredid_modes_get_rate_numerator(modes, mode) / (double)zoredid_modes_get_rate_denominator(modes, mode);
    printf("%" PRIu32 " x %" PRIu32 "%s @ %.3f Hz\n", zoredid_modes_get_width(modes, mode),
           zoredid_modes_get_height(modes, mode), zoredid_modes_is_interlaced(modes, mode) ? "i" : "", rate);
}

int main(int count, char** arguments)
{
    zoredid_image* image = zoredid_image_create();
    zoredid_facts* facts = zoredid_facts_create();
    zoredid_modes* modes = zoredid_modes_create();
    size_t size = 0;
    const unsigned char* data;
    int64_t eotfs = 0, spaces = 0, least = 0, most = 0, columns = 1, rows = 1;
    double width = 0, height = 0, luminance = 0;
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
        zoredid_facts_get_real(facts, ZOREDID_FACT_WIDTH, &width);
        zoredid_facts_get_real(facts, ZOREDID_FACT_HEIGHT, &height);
        printf("%s: %.0f x %.0f mm, %u modes, preferred ", name != NULL ? name : "no name", width, height,
               (unsigned int)zoredid_modes_get_count(modes));
        print_mode(modes, zoredid_modes_get_preferred(modes));

        /* What is not said leaves the number as it is. */
        zoredid_facts_get_number(facts, ZOREDID_FACT_EOTFS, &eotfs);
        zoredid_facts_get_real(facts, ZOREDID_FACT_CONTENT_MAX_LUMINANCE, &luminance);
        printf("HDR10: %s, %.0f cd/m2\n", eotfs & ZOREDID_EOTF_PQ ? "yes" : "no", luminance);
        zoredid_facts_get_number(facts, ZOREDID_FACT_COLORIMETRY, &spaces);
        printf("BT.2020 RGB: %s\n", spaces & ZOREDID_COLORIMETRY_BT2020RGB ? "yes" : "no");
        if (zoredid_facts_get_number(facts, ZOREDID_FACT_VRR_MIN, &least))
        {
            zoredid_facts_get_number(facts, ZOREDID_FACT_VRR_MAX, &most);
            printf("VRR: %" PRId64 " to %" PRId64 " Hz\n", least, most);
        }
        zoredid_facts_get_number(facts, ZOREDID_FACT_TILE_COLUMNS, &columns);
        zoredid_facts_get_number(facts, ZOREDID_FACT_TILE_ROWS, &rows);
        printf("tiles: %" PRId64 " x %" PRId64 "\n", columns, rows);
    }
    else
        fprintf(stderr, "%s\n", zoredid_status_get_text(status));
    zoredid_modes_free(modes);
    zoredid_facts_free(facts);
    zoredid_image_free(image);
    return status == ZOREDID_OK ? 0 : 1;
}
