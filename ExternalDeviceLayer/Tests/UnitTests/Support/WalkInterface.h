/* Calls every function of the interface for C, from C: on whatever bytes, with null, beyond each list, into buffers
 * that are too short. Unit tests, the tests of failing memory and a fuzz target share it. */

#pragma once

#include "zoredid.h"

#ifdef __cplusplus
extern "C"
{
#endif

/* Reads size bytes into objects of all kinds, asks them everything, frees some, which ones says order, and asks the
 * rest again. Returns null, or the promise that was broken. Memory may run out. */
const char* walk_interface(const unsigned char* data, size_t size, unsigned int order);

/* The same of what needs no object: facts, rules and ids by their names. */
const char* walk_tables(void);

#ifdef __cplusplus
}
#endif
