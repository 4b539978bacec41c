/* Gives a monitor another name and its preferred timing another clock: rename FILE NAME NEWFILE */

#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <zoredid.h>

/* Says what became of a field, or why it stays. */
static int set(zoredid_writer* writer, const char* id, size_t number, const char* value)
{
    const zoredid_status status = zoredid_writer_set_by_id(writer, id, number, value);
    if (status == ZOREDID_OK)
    {
        printf("%s: %s became %s%s\n", id, zoredid_writer_get_before(writer, NULL),
               zoredid_writer_get_after(writer, NULL), zoredid_writer_is_exact(writer) ? "" : ", the nearest");
    }
    else
    {
        printf("%s: %s", id, zoredid_status_get_text(status));
        printf(status == ZOREDID_ERROR_REFUSED ? ": %s\n" : "\n", zoredid_writer_get_reason(writer, NULL));
    }
    return status == ZOREDID_OK;
}

/* Writes the edited bytes, whose checksums are right. */
static int save(const zoredid_writer* writer, const char* path)
{
    size_t size = 0;
    const unsigned char* data = zoredid_writer_get_data(writer, &size);
    FILE* file = fopen(path, "wb");
    int done = file != NULL && fwrite(data, 1, size, file) == size;
    done = file != NULL && fclose(file) == 0 && done;
    if (!done)
        fprintf(stderr, "%s: %s\n", path, strerror(errno));
    return done;
}

int main(int count, char** arguments)
{
    zoredid_image* image = zoredid_image_create();
    zoredid_writer* writer = zoredid_writer_create();
    size_t size = 0;
    const unsigned char* data;
    int done = 0;

    zoredid_status status = zoredid_image_open(image, count == 4 ? arguments[1] : NULL);
    data = zoredid_image_get_data(image, &size);
    if (status == ZOREDID_OK)
        status = zoredid_writer_read(writer, data, size);
    if (status == ZOREDID_OK)
    {
        set(writer, "base.detailed.pixel-clock", 0, "9999 MHz"); /* more than the field can say */
        set(writer, "base.detailed.pixel-clock", 0, "148.354 MHz");
        done = set(writer, "base.name", 0, arguments[2]) && save(writer, arguments[3]);
    }
    else if (count != 4)
        fprintf(stderr, "usage: rename FILE NAME NEWFILE\n");
    else
        fprintf(stderr, "%s: %s\n", arguments[1],
                status == ZOREDID_ERROR_FILE ? strerror(errno) : zoredid_status_get_text(status));
    zoredid_writer_free(writer);
    zoredid_image_free(image);
    return done ? 0 : 1;
}
