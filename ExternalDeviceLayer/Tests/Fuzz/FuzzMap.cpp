// Fuzz target: the input is an EDID image in any state; its map says each bit once, its facts are fields of the map,
// the list of modes has those of the map, the findings are about its fields, and repairs change what they name.

#include "FactsCheck.h"
#include "FindingsCheck.h"
#include "FuzzSupport.h"
#include "MapCheck.h"
#include "ModesCheck.h"
#include "RepairCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    // Every other image gets its checksums repaired, so that the classes take its blocks and number their timings.
    const CBytes aui8Input(pui8Data, pui8Data + uiSize);
    const CBytes aui8Image = uiSize % 2 == 0 ? RepairImage(aui8Input) : aui8Input;
    CZorEdidMap oMap;
    const unsigned int uiImage = static_cast<unsigned int>(aui8Image.size());
    const auto pui8Copy = CopyToHeap(aui8Image);
    const int iRead = oMap.Read(uiImage, pui8Copy.get());
    Require((iRead != 0) == !aui8Image.empty(), "any bytes are read");
    const std::string sBroken = CheckMap(oMap);
    Require(sBroken.empty(), sBroken.c_str());
    const std::string sFinding = CheckFindings(oMap);
    Require(sFinding.empty(), sFinding.c_str());
    CZorEdidFacts oFacts;
    oFacts.Read(uiImage, pui8Copy.get());
    const std::string sWrong = CheckFacts(oFacts, oMap);
    Require(sWrong.empty(), sWrong.c_str());
    CZorEdidModes oModes;
    const int iListed = oModes.Read(uiImage, pui8Copy.get());
    Require((iListed != 0) == (aui8Image.size() >= gsc_uiBlockSize), "any base block is read");
    const std::string sOther = iListed != 0 ? CheckModes(oModes, oMap) : "";
    Require(sOther.empty(), sOther.c_str());
    const std::string sRepair = aui8Image.empty() ? "" : CheckRepair(aui8Image);
    Require(sRepair.empty(), sRepair.c_str());
    return 0;
}
