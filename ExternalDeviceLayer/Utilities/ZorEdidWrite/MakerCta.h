// The CTA-861 blocks of the image that CZorEdidMaker makes. Private to the library.

#pragma once

#include "MakerDonor.h"
#include "MakerParts.h"
#include "MakerPlan.h"

namespace ZorWrite
{
// Each function returns false with the reason in the parts.
class CMakerCta
{
public:
    CMakerCta(const CMakerPlan& oPlan, const SDonor& oDonor, CMakerParts& oParts, CMArrayString& asNotes)
        : m_oPlan(oPlan), m_oWishes(oPlan.GetWishes()), m_oDonor(oDonor), m_oParts(oParts), m_asNotes(asNotes)
    {
    }

    // The block with all data blocks.
    bool Add();
    // A block for detailed timings. The first one of the image has a data block, without which sources doubt its flags.
    bool AddFurtherBlock();

private:
    bool AddBlock();
    bool AddCode(const SPlannedMode& oMode);
    bool AddCodes();
    bool AddAudio();
    bool AddDonorsAudio();
    bool AddHdmi();
    bool AddForum();
    bool AddVideoCapability();
    bool AddHdr();
    bool SetLuminances();
    bool Add420();
    bool AddPreference();

    const CMakerPlan& m_oPlan;
    const SZorEdidWishes& m_oWishes;
    const SDonor& m_oDonor;
    CMakerParts& m_oParts;
    CMArrayString& m_asNotes;
    CByteArray m_aui8Codes; // as listed
    bool m_bBegun = false;
};
} // namespace ZorWrite
