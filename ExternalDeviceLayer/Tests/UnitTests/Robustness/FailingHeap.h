// The heap of a test program, which fails on demand and counts: operator new is replaced for all of it. The numbers are
// those of the calling thread.

#pragma once

namespace FailingHeap
{
// From now on allocation number uiNumber, counted from 1, throws std::bad_alloc; once. 0: none.
void FailAt(unsigned int uiNumber);

// Whether the allocation asked for has come and thrown.
bool HasFailed();

// Blocks taken since the start, and those of them that are not given back. Only differences mean something.
unsigned long GetTakenCount();
unsigned long GetHeldCount();
} // namespace FailingHeap
