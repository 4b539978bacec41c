// The answer of everything that declares no tile. Private to the sources that give it.

#pragma once

#include <initializer_list>

namespace ZorCore
{
// Stores 0 through each pointer that is not null.
template <class VALUE>
void ZeroTileOutputs(std::initializer_list<VALUE*> apoOutputs)
{
    for (VALUE* poOutput : apoOutputs)
    {
        if (poOutput != nullptr)
        {
            *poOutput = 0;
        }
    }
}
} // namespace ZorCore
