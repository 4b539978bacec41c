/// CMPlex: blocks of equal elements in a chain, freed together. Element objects are the owner's affair.

#pragma once

#pragma GCC visibility push(default)

/// The head of a block; the payload follows it in the same allocation.
class CMPlex
{
public:
    /// Puts a new block at the head of the chain and gives it. A number of 0 reports and gives null, as an allocator
    /// that has no memory does; the chain is then unchanged.
    ///   ulElementSize  bytes
    static CMPlex* Create(CMPlex*& poHead, unsigned long ulMaxElements, unsigned long ulElementSize);

    /// Frees poHead and all blocks that follow it; pointers to them are dead afterwards. Null does nothing.
    static void FreeDataChain(CMPlex* poHead);
    /// The same for the chain from this block on.
    void FreeDataChain() { FreeDataChain(this); }

    void* GetData() { return this + 1; }

private:
    CMPlex* m_poNext;
};

#pragma GCC visibility pop
