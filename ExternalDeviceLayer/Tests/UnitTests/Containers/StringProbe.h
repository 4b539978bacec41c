// Looks at what CMString keeps to itself: how many strings share a buffer.

#pragma once

#include "ZorMFCTypes/CMString.h"

class CStringProbe : public CMString
{
public:
    static int GetRefs(const CMString& oString) { return (oString.*&CStringProbe::GetMetaData)()->m_iRefs; }
    static const char* GetNil() { return m_pszNil; }
};

inline const char* Text(const CMString& oString) { return oString; }
