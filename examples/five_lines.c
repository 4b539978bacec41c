/* The mode that a monitor prefers: the lines of C in README.md. five_lines_c FILE */

#include <stdio.h>
#include <zoredid.h>

static void show(const unsigned char* data, size_t size)
{
    zoredid_modes* modes = zoredid_modes_create();
    zoredid_modes_read(modes, data, size); /* what cannot be read has no modes */
    size_t mode = zoredid_modes_get_preferred(modes);
    printf("%u x %u\n", zoredid_modes_get_width(modes, mode), zoredid_modes_get_height(modes, mode));
    zoredid_modes_free(modes);
}

int main(int count, char** arguments)
{
    static unsigned char bytes[256 * 128];
    FILE* file = count == 2 ? fopen(arguments[1], "rb") : NULL;
    size_t size;
    if (file == NULL)
        return 1;
    size = fread(bytes, 1, sizeof(bytes), file);
    fclose(file);
    show(bytes, size);
    return 0;
}
