/* Gives a monitor another name and its preferred timing another clock: rename FILE NAME NEWFILE */

#include <stdio.h>
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

int main(int count, char** arguments)
{
    zoredid_image* image = zoredid_image_create();
    zoredid_writer* writer = zoredid_writer_create();
    size_t size = 0;
    const unsigned char* data;
    FILE* file = NULL;
    int done = 0;

    if (count == 4 && zoredid_image_open(image, arguments[1]) == ZOREDID_OK)
    {
        data = zoredid_image_get_data(image, &size);
        if (zoredid_writer_read(writer, data, size) == ZOREDID_OK)
        {
            set(writer, "base.detailed.pixel-clock", 0, "9999 MHz"); /* more than the field can say */
            set(writer, "base.detailed.pixel-clock", 0, "148.354 MHz");
            done = set(writer, "base.name", 0, arguments[2]);
        }
    }
    if (done)
    {
        data = zoredid_writer_get_data(writer, &size); /* with right checksums */
        file = fopen(arguments[3], "wb");
        done = file != NULL && fwrite(data, 1, size, file) == size;
        done = file != NULL && fclose(file) == 0 && done;
    }
    zoredid_writer_free(writer);
    zoredid_image_free(image);
    return done ? 0 : 1;
}
