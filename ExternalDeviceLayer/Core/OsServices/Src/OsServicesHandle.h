// The handle pattern of OsServices: the class owns the memory of a handle, the client works in place on it.
// Private to the two sources that create handles.

#pragma once

#include <new>

// Gives the handle its memory and lets the client's fnCreate make the record in it. On a result of 0 the memory is
// given back and the handle is null. Throws std::bad_alloc, with the handle left alone, when memory for it runs out.
template <class HANDLE, class CREATE>
int CreateHandle(HANDLE*& hHandle, unsigned int uiHandleSize, CREATE fnCreate)
{
    hHandle = static_cast<HANDLE*>(::operator new[](uiHandleSize));
    const int iResult = fnCreate(hHandle);
    if (iResult == 0)
    {
        ::operator delete[](hHandle);
        hHandle = nullptr;
    }
    return iResult;
}

// Lets the client end the record; frees the memory when that went well. A handle that a host has made comes here, too,
// so hosts allocate as CreateHandle does.
template <class HANDLE>
int DestroyHandle(HANDLE* hHandle, int (*pfnDestroy)(HANDLE*))
{
    const int iResult = pfnDestroy(hHandle);
    if (iResult != 0 && hHandle != nullptr)
    {
        ::operator delete[](hHandle);
    }
    return iResult;
}
