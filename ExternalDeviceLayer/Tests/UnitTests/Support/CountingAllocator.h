// Replaces the containers' heap while an object of this class lives: counts, remembers sizes, refuses large requests,
// and fails the test when a block is not given back or given back twice.

#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <map>
#include <new>
#include <vector>

#include "ZorMFCTypes.h"

class CCountingAllocator final : public CMAllocator
{
public:
    static constexpr unsigned long msc_ulDefaultLimit = 1UL << 24;

    // Requests above ulLimit bytes fail as those of an exhausted heap do.
    explicit CCountingAllocator(unsigned long ulLimit = msc_ulDefaultLimit) : m_ulLimit(ulLimit)
    {
        m_poGlobalAllocator = this;
    }
    ~CCountingAllocator()
    {
        m_poGlobalAllocator = nullptr;
        EXPECT_TRUE(m_oLive.empty()) << m_oLive.size() << " blocks were not given back";
    }
    CCountingAllocator(const CCountingAllocator&) = delete;
    CCountingAllocator& operator=(const CCountingAllocator&) = delete;

    void* Alloc(unsigned long ulSize) override
    {
        if (ulSize > m_ulLimit)
        {
            ++m_uiRefused;
            throw std::bad_alloc();
        }
        void* p = malloc(ulSize); // the exact size, so that the sanitizers see each byte beyond it
        m_oLive[p] = ulSize;
        m_aulSizes.push_back(ulSize);
        return p;
    }

    void Free(const void* p) override
    {
        if (p == nullptr)
        {
            ++m_uiFreedNull;
            return;
        }
        EXPECT_EQ(1U, m_oLive.erase(p)) << "a block that is not live was given back";
        free(const_cast<void*>(p));
    }

    size_t GetAllocCount() const { return m_aulSizes.size(); }
    size_t GetLiveCount() const { return m_oLive.size(); }
    unsigned long GetLastSize() const { return m_aulSizes.back(); }
    const std::vector<unsigned long>& GetSizes() const { return m_aulSizes; }
    unsigned int GetRefusedCount() const { return m_uiRefused; }
    unsigned int GetFreedNullCount() const { return m_uiFreedNull; }

private:
    unsigned long m_ulLimit;
    unsigned int m_uiRefused = 0;
    unsigned int m_uiFreedNull = 0;
    std::map<const void*, unsigned long> m_oLive;
    std::vector<unsigned long> m_aulSizes;
};
