// The heap of the test program, which fails on demand: operator new is replaced for all of it.

#pragma once

namespace FailingHeap
{
// From now on the allocation number uiNumber of this thread, counted from 1, throws std::bad_alloc; once. 0: none.
void FailAt(unsigned int uiNumber);

// Whether the allocation asked for has come and thrown.
bool HasFailed();

// Blocks that this thread has taken and not given back. Only differences mean something.
long GetHeldCount();
}
