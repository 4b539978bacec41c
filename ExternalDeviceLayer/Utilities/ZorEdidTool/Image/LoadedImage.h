// An input as the library sees it: the CEdid, and which of the image's blocks it has kept.

#pragma once

#include <string>
#include <vector>

#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "Input.h"

// An extension block of the image, loaded or not.
struct SImageBlock
{
    unsigned int m_uiNumber; // in the image; the base block is 0
    const unsigned char* m_pui8Bytes;
    CEdidExtBlock* m_poLoaded; // null for a block that the library does not read

    unsigned int GetTag() const { return m_pui8Bytes[0]; }
    // Null unless the block is loaded and a CTA-861 block.
    CEdidExtBlockCEA861* GetCea() const;
};

// The block as this class; null for another kind and for none.
CEdidExtBlockCEA861* AsCea(CEdidExtBlock* poBlock);

inline constexpr unsigned int gsc_uiDisplayIdTag = CEdidExtBlockDisplayID::msc_uiExtensionTag;

// Short name of a block's kind by its tag: "cea-861", "displayid" and those that the library does not read; "unknown".
const char* GetBlockKind(unsigned int uiTag);

// The number of CEdid::GetExtension of a block of the image that oEdid was loaded from; -1 for the base block and for a
// block that the library did not take.
int FindExtension(const CEdid& oEdid, unsigned int uiBlock);

class CLoadedImage
{
public:
    // False when the library refuses the image, with the reason in GetProblem. The bytes of oInput must outlive this
    // object.
    bool Load(const SInput& oInput);
    const std::string& GetProblem() const { return m_sProblem; }
    bool IsLoaded() const { return m_sProblem.empty(); }

    CEdid& GetEdid() { return m_oEdid; }
    // The extension blocks that are announced and present, in the order of the image.
    const std::vector<SImageBlock>& GetBlocks() const { return m_aoBlocks; }
    // How many extension blocks the base block announces.
    unsigned int GetAnnouncedCount() const;

private:
    void FindBlocks(const SInput& oInput);

    CEdid m_oEdid;
    std::vector<SImageBlock> m_aoBlocks;
    std::string m_sProblem;
};
