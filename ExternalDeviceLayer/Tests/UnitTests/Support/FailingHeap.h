// The heap of a test program, which fails on demand and counts: operator new is replaced for all of it.

#pragma once

struct SFailingHeap
{
    unsigned int m_uiLeft = 0;       // counts allocations down to a single std::bad_alloc; 0: none
    unsigned long m_ulTaken = 0;     // blocks taken since the start,
    unsigned long m_ulBytes = 0;     // the bytes asked for,
    unsigned long m_ulGivenBack = 0; // and the blocks that were given back
};

extern constinit thread_local SFailingHeap g_oFailingHeap;
