/// Makes right what is wrong in an EDID image and has one right answer: checksums, counts of blocks, and bytes that say
/// nothing but have a value that the standards fix. What an image announces is left as it is, and nothing is repaired
/// that would cause a finding that was not there, but for those of blocks that are counted anew.

#pragma once

#include "ZorEdidRules.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

/// Bytes that were made right.
struct SZorRepair
{
    EZorEdidRule m_eRule;    ///< that they broke
    unsigned int m_uiOffset; ///< of the first one in the image
    unsigned int m_uiLength; ///< bytes, at least 1
};

/// A fault that is left, and why it has no right answer here.
struct SZorWithheld
{
    EZorEdidRule m_eRule;    ///< that is broken
    unsigned int m_uiOffset; ///< in the image
    const char* m_pszReason;
};

/// A repaired copy of an image, and what was repaired. Read makes it, everything else asks it.
class CZorEdidRepair
{
public:
    CZorEdidRepair() = default;
    CZorEdidRepair(const CZorEdidRepair&) = delete;
    CZorEdidRepair& operator=(const CZorEdidRepair&) = delete;

    /// Repairs a copy of uiSize bytes, which keep their number:
    ///   - one or two bytes of the header, where the checksum of the base block is right with them. With a header that
    ///     is wrong otherwise nothing is repaired: a new checksum would hide that the block is damaged
    ///   - checksums of the blocks that are counted, and of their DisplayID sections
    ///   - the number of extension blocks, where whole blocks with right checksums and known tags are not counted;
    ///     where fewer follow than are counted, it stays: an image that was cut has its right count
    ///   - the number of further DisplayID sections in the first one
    ///   - padding, line feeds and blanks that end texts, unused standard timings
    /// A checksum is right again after any of these, but for one that shows that the header or the number of blocks is
    /// left wrong: it stays what it would be with the right bytes. Returns 1; 0 when uiSize is 0 or above INT_MAX, or
    /// pui8Data is null, and then there are no bytes. When memory runs out, the result means nothing until the next
    /// Read.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);

    /// Faults of this rule are left as they are by each Read from now on.
    void LeaveOut(EZorEdidRule eRule) { m_aeLeftOut.Add(eRule); }

    /// The repaired bytes, as many as were read. The pointer is good until the next Read.
    const unsigned char* GetData() const { return m_aui8Data.GetData(); }
    unsigned int GetSize() const { return m_aui8Data.GetCount(); }

    /// What was repaired, in the order of its bytes; 0 for an image without such faults, whose bytes are as they were.
    unsigned int GetCount() const { return m_aoRepairs.GetCount(); }
    /// uiIndex must be below GetCount. The reference is good until the next Read.
    const SZorRepair& Get(unsigned int uiIndex) const { return m_aoRepairs[uiIndex]; }

    /// What looks as if it had one right answer, and was left.
    unsigned int GetWithheldCount() const { return m_aoWithheld.GetCount(); }
    /// uiIndex must be below GetWithheldCount. The reference is good until the next Read.
    const SZorWithheld& GetWithheld(unsigned int uiIndex) const { return m_aoWithheld[uiIndex]; }

private:
    CMArray<unsigned char, const unsigned char&> m_aui8Data;
    CMArray<SZorRepair, const SZorRepair&> m_aoRepairs;
    CMArray<SZorWithheld, const SZorWithheld&> m_aoWithheld;
    CMArray<EZorEdidRule, EZorEdidRule> m_aeLeftOut;
};

#pragma GCC visibility pop
