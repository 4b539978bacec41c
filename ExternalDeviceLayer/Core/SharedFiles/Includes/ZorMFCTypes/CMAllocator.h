// The one door through which the containers take and give back memory.

#pragma once

// Stateless: any instance serves, a local one is as good as a shared one. To replace the heap, derive from this class,
// override both operations and set m_poGlobalAllocator before any container is used; no lock guards the pointer.
class CMAllocator
{
public:
    // ulSize bytes, aligned for every ordinary type. When memory is exhausted the exception of operator new[] passes
    // through; nothing in the library catches it.
    virtual void* Alloc(unsigned long ulSize);

    // Gives back what Alloc gave; null is allowed.
    virtual void Free(const void* p);

    static CMAllocator* m_poGlobalAllocator; // null at start; not owned
};
