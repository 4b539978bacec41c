// How often the program has asked the heap for memory.

#pragma once

// Calls of operator new since the start, array forms included. The program has one thread; nothing is locked.
unsigned long GetAllocationCount();
