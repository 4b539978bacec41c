// The one check for operations that edit EDID bytes. Make the object before the operation, then say how it ended.
//
//     CEditCheck oCheck(oEdid);
//     ASSERT_EQ(1, oEdid.RemoveDetailed(1));
//     oCheck.ExpectEdited({ { 72, 18 } });

#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "TestBytes.h"

class CEditCheck
{
public:
    explicit CEditCheck(const CEdid& oEdid) : m_fnRead([&] { return Serialise(oEdid); }) {}
    explicit CEditCheck(const CEdidBase& oBase) : m_fnRead([&] { return GetBytes(oBase); }) {}
    explicit CEditCheck(const CEdidExtBlock& oBlock) : m_fnRead([&] { return GetBytes(oBlock); }) {}

    // Some byte differs now, and CheckEditedBytes finds nothing.
    void ExpectEdited(std::initializer_list<SEditedBytes> aoEdited) const
    {
        EXPECT_NE(m_aui8Before, m_fnRead()) << "nothing was edited";
        EXPECT_EQ("", CheckEditedBytes(m_aui8Before, m_fnRead(), aoEdited));
    }

    void ExpectUnchanged() const { EXPECT_EQ(m_aui8Before, m_fnRead()); }

private:
    std::function<CBytes()> m_fnRead;
    CBytes m_aui8Before = m_fnRead();
};
