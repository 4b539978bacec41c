// Replaces the containers' heap while an object of this class lives: counts, remembers sizes, refuses large requests,
// and fails the test when a block is not given back or given back twice.

#pragma once

#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "ZorMFCTypes.h"

class CCountingAllocator final : public CMAllocator
{
public:
    // Requests above ulLimit bytes fail as those of an exhausted heap do.
    explicit CCountingAllocator(unsigned long ulLimit = 1UL << 24) : m_ulLimit(ulLimit) { m_poGlobalAllocator = this; }
    ~CCountingAllocator()
    {
        m_poGlobalAllocator = nullptr;
        EXPECT_EQ(0U, m_uiLive) << "blocks that were not given back, or given back twice";
    }

    void* Alloc(unsigned long ulSize) override
    {
        if (ulSize > m_ulLimit)
        {
            ++m_uiRefused;
            throw std::bad_alloc();
        }
        m_aulSizes.push_back(ulSize);
        void* p = ::operator new(ulSize); // the exact size, so that the sanitizers see each byte beyond it
        ++m_uiLive;
        return p;
    }

    void Free(const void* p) override
    {
        m_uiLive -= p != nullptr ? 1 : 0;
        ::operator delete(const_cast<void*>(p));
    }

    size_t GetAllocCount() const { return m_aulSizes.size(); }
    size_t GetLiveCount() const { return m_uiLive; }
    unsigned long GetLastSize() const { return m_aulSizes.back(); }
    const std::vector<unsigned long>& GetSizes() const { return m_aulSizes; }
    unsigned int GetRefusedCount() const { return m_uiRefused; }

private:
    unsigned long m_ulLimit;
    unsigned int m_uiRefused = 0;
    size_t m_uiLive = 0;
    std::vector<unsigned long> m_aulSizes;
};
