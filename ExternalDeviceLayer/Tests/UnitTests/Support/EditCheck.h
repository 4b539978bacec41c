// The one check for operations that edit EDID bytes. Make the object before the operation, then say how it ended:
// an edit leaves the checksum of each block it touched right and every byte that it does not name as it was; a refusal
// leaves all bytes as they were.
//
//     CEditCheck oCheck(oEdid);
//     ASSERT_EQ(1, oEdid.RemoveDetailed(1));
//     oCheck.ExpectEdited({ { 72, 18 } });

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <numeric>
#include <utility>
#include <vector>

#include "Edid.h"
#include "EdidBase.h"
#include "EdidExtBlock.h"

// Bytes that an operation may change, from the first byte of what is checked: the whole EDID or one block.
struct SEditedBytes
{
    unsigned int m_uiOffset;
    unsigned int m_uiCount;
};

class CEditCheck
{
public:
    using Bytes = std::vector<unsigned char>;

    explicit CEditCheck(std::function<Bytes()> fnRead) : m_fnRead(std::move(fnRead)), m_aui8Before(m_fnRead()) {}

    explicit CEditCheck(const CEdid& oEdid)
        : CEditCheck([&oEdid] {
              const CMArray<unsigned char, const unsigned char&> aui8Data = oEdid.GetEdidBuffer();
              return Bytes(aui8Data.GetData(), aui8Data.GetData() + aui8Data.GetCount());
          })
    {
    }
    explicit CEditCheck(const CEdidBase& oBase)
        : CEditCheck([&oBase] { return Bytes(oBase.GetBaseBlock(), oBase.GetBaseBlock() + msc_uiBlockSize); })
    {
    }
    explicit CEditCheck(const CEdidExtBlock& oBlock)
        : CEditCheck([&oBlock] { return Bytes(oBlock.GetData(), oBlock.GetData() + oBlock.GetSize()); })
    {
    }

    // Some byte differs now, and only bytes named here do, apart from the last byte of the blocks that they lie in,
    // whose checksums hold.
    void ExpectEdited(std::initializer_list<SEditedBytes> aoEdited) const
    {
        const Bytes aui8Now = m_fnRead();
        ASSERT_EQ(m_aui8Before.size(), aui8Now.size());
        EXPECT_NE(m_aui8Before, aui8Now) << "nothing was edited";
        std::vector<bool> abMayDiffer(aui8Now.size(), false);
        std::vector<bool> abTouched(aui8Now.size() / msc_uiBlockSize, false);
        for (const SEditedBytes& oEdited : aoEdited)
        {
            for (unsigned int ui = oEdited.m_uiOffset; ui < oEdited.m_uiOffset + oEdited.m_uiCount; ++ui)
            {
                ASSERT_LT(ui, aui8Now.size());
                const unsigned int uiBlock = ui / msc_uiBlockSize;
                abMayDiffer[ui] = true;
                abMayDiffer[(uiBlock + 1) * msc_uiBlockSize - 1] = true;
                abTouched[uiBlock] = true;
            }
        }
        for (unsigned int ui = 0; ui < aui8Now.size(); ++ui)
        {
            if (!abMayDiffer[ui])
            {
                EXPECT_EQ(m_aui8Before[ui], aui8Now[ui]) << "byte " << ui << " is none of the edit's";
            }
        }
        for (unsigned int uiBlock = 0; uiBlock < abTouched.size(); ++uiBlock)
        {
            const auto itBlock = aui8Now.begin() + uiBlock * msc_uiBlockSize;
            EXPECT_TRUE(!abTouched[uiBlock] || std::accumulate(itBlock, itBlock + msc_uiBlockSize, 0U) % 256 == 0)
                << "checksum of block " << uiBlock;
        }
    }

    void ExpectUnchanged() const { EXPECT_EQ(m_aui8Before, m_fnRead()); }

private:
    static constexpr unsigned int msc_uiBlockSize = 128;

    std::function<Bytes()> m_fnRead;
    Bytes m_aui8Before;
};
