/* Loops for the Python package, over the C interface: one call of Python for many of C. */

enum
{
    ZORPY_MOST_FACTS = 256,
    ZORPY_BLOCK = 128, /* bytes of the smallest EDID */
    ZORPY_CELL = 384   /* bytes of a text, more than any fact has */
};

/* The facts that an image says, each by its index in zoredid_fact_get. */
typedef struct zorpy_facts
{
    size_t numbers, reals, texts, text_bytes;
    unsigned char number_facts[ZORPY_MOST_FACTS]; /* flags are numbers, too */
    int64_t number_values[ZORPY_MOST_FACTS];
    unsigned char real_facts[ZORPY_MOST_FACTS];
    double real_values[ZORPY_MOST_FACTS];
    unsigned char text_facts[16];
    size_t text_ends[16]; /* in characters, one after the other */
    char characters[16 * ZORPY_CELL];
} zorpy_facts;

zoredid_status zorpy_read_facts(const void* data, size_t size, zorpy_facts* said);

/* A column of a table: a value for each image, in the array of its type; the others are null. */
typedef struct zorpy_column
{
    zoredid_fact fact;
    int64_t* numbers;
    double* reals;
    char* cells; /* of ZORPY_CELL bytes */
    uint16_t* lengths;
    unsigned char* said;
} zorpy_column;

/*
 * Reads count images. Their bytes, or their paths with a NUL, follow one another; sizes has the length of each,
 * with the highest bit for a path. statuses and errors (errno) get how each ended.
 */
void zorpy_read_many(const char* inputs, const uint64_t* sizes, size_t count, const zorpy_column* columns,
                     size_t column_count, unsigned char* statuses, int* errors);

/* The elements of a list, at most as many as rows has room for: a row of columns numbers of each. Returns how many. */
typedef enum zorpy_list
{
    ZORPY_LIST_VRR = 0,
    ZORPY_LIST_SPACES = 1,
    ZORPY_LIST_AUDIO = 2,
    ZORPY_LIST_CONFLICTS = 3
} zorpy_list;
size_t zorpy_read_list(const void* data, size_t size, zorpy_list list, size_t columns, size_t most, int64_t* rows);
void zorpy_fill_modes(const zoredid_modes* modes, size_t columns, int64_t* rows);
