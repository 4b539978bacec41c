/// The one door through which the containers take and give back memory.

#pragma once

#pragma GCC visibility push(default)

/// Stateless: any instance serves, a local one is as good as a shared one. To replace the heap, derive from this class,
/// override both operations and set m_poGlobalAllocator before any container is used; no lock guards the pointer.
/// An override must not call CMAllocator::Alloc or CMAllocator::Free: they forward to the replacement, without end.
class CMAllocator
{
public:
    /// ulSize bytes, aligned for every ordinary type. The result is never null. When memory is exhausted, operator
    /// new[] throws and nothing in the library catches it; an override throws, too, or does not return. CMMap and
    /// CMPlex refuse a null block; CMArray and CMString write through it.
    virtual void* Alloc(unsigned long ulSize);

    /// Gives back what Alloc gave; null is allowed.
    virtual void Free(const void* p);

    static CMAllocator* m_poGlobalAllocator; ///< null at start; not owned
};

#pragma GCC visibility pop
