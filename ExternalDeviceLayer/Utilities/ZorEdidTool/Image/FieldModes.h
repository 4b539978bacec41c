// The modes that fields of the map announce.

#pragma once

#include <string>
#include <vector>

#include "EdidBase.h"
#include "VidParamTimingGeneric.h"
#include "ZorEdidMap.h"

struct SFieldMode
{
    CVidParamTimingGeneric m_oTiming;
    std::string m_sBareRate; // of a mode without a timing
    std::string m_sText;     // of the map
    bool m_bNative;
    bool m_bPreferred; // of the image
};

class CFieldModes
{
public:
    explicit CFieldModes(const CZorEdidMap& oMap);
    std::vector<SFieldMode> Read(unsigned int uiField) const;

private:
    const CZorEdidMap& m_oMap;
    CEdidBase m_oBase;
};
