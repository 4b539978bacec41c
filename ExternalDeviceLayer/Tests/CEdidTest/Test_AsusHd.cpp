// Suite 1: the identity and the timings that a real monitor declares.

#include <string.h>

#include "CEdidTestSuites.h"
#include "Edid.h"
#include "EdidUtils.h"
#include "VidParamCea.h"

namespace
{
constexpr std::array<STimingData, 13> g_auiEstablishedTimingNonVesa = { {
    GtfRow(720, 400, 70),
    DmtRow(640, 480, 60),
    GtfRow(640, 480, 67),
    DmtRow(640, 480, 75),
    DmtRow(800, 600, 56),
    DmtRow(800, 600, 60),
    DmtRow(800, 600, 72),
    DmtRow(800, 600, 75),
    GtfRow(832, 624, 75),
    DmtRow(1024, 768, 60),
    DmtRow(1024, 768, 70),
    DmtRow(1024, 768, 75),
    DmtRow(1280, 1024, 75),
} };

// The rows that a VESA table defines.
constexpr std::array<STimingData, 10> g_auiEstablishedTimingVesa = WithoutRows<0, 2, 8>(g_auiEstablishedTimingNonVesa);

constexpr std::array<STimingData, 7> g_auiBaseStandardTiming = { {
    DmtRow(1152, 864, 75),
    DmtRow(1280, 720, 60),
    DmtRow(1280, 960, 60),
    DmtRow(1280, 1024, 60),
    DmtRow(1440, 900, 60, CVidParamDmt::eModeListStandard),
    DmtRow(1680, 1050, 60, CVidParamDmt::eModeListStandard),
    DmtRow(1920, 1080, 60),
} };

constexpr unsigned int gsc_uiTextSize = 128; // room of the caller for a text of the base block

// Letter 0 to 2 of the manufacturer code: five bits each, the first one highest, in bytes 8 and 9.
char GetManufacturerLetter(const unsigned char* pui8Base, unsigned int uiLetter)
{
    const unsigned int uiCode = static_cast<unsigned int>(pui8Base[8]) << 8 | pui8Base[9];
    return static_cast<char>((uiCode >> (10 - 5 * uiLetter) & 0x1F) + 0x40);
}

int CheckIdentityBytes(const CEdid& oEdid)
{
    const unsigned char* const pui8Base = oEdid.GetBaseBlock();
    MTEST_STEP(GetManufacturerLetter(pui8Base, 0) == 'A' && GetManufacturerLetter(pui8Base, 1) == 'C' &&
               GetManufacturerLetter(pui8Base, 2) == 'I');
    MTEST_STEP(ReadLittleEndian(pui8Base + 10, 2) == 10228);
    MTEST_STEP(ReadLittleEndian(pui8Base + 12, 4) == 0x2397F);
    MTEST_STEP(pui8Base[16] == 34 && pui8Base[17] == 20);                 // week, year since 1990
    MTEST_STEP(pui8Base[18] == 1 && pui8Base[19] == 3);                   // version, revision
    MTEST_STEP((pui8Base[20] & 0x80) != 0 && (pui8Base[20] & 0x01) == 0); // digital, no DFP signalling
    MTEST_STEP((pui8Base[24] & 0x01) == 0);                               // no GTF support
    return 1;
}

int CheckEstablished(const CEdid& oEdid, CTimingTable aoTable, int bVesaOnly)
{
    MTEST_STEP(oEdid.GetEstablishedCount(bVesaOnly) == aoTable.size());
    for (unsigned int i = 0; i < aoTable.size(); ++i)
    {
        CVidParamTimingGeneric oExpected;
        CVidParamTimingGeneric oTiming;
        MTEST_STEP(GetVidParam(aoTable[i], oExpected));
        MTEST_STEP(oEdid.GetEstablished(i, &oTiming, bVesaOnly));
        MTEST_STEP(oExpected == oTiming);
    }
    return 1;
}

int CheckBaseStandard(const CEdid& oEdid, CTimingTable aoTable)
{
    MTEST_STEP(oEdid.GetBaseStandardCount() == aoTable.size());
    int iNative = 0;
    for (unsigned int i = 0; i < aoTable.size(); ++i)
    {
        CVidParamTimingGeneric oExpected;
        CVidParamTimingGeneric oTiming;
        MTEST_STEP(GetVidParam(aoTable[i], oExpected));
        MTEST_STEP(oEdid.GetStandard(i, &oTiming, &iNative));
        MTEST_STEP(oExpected == oTiming);
        MTEST_STEP(iNative == 0);
    }
    return 1;
}

// One timing in the base block and four in the extension block; the base block's is 1920 x 1080 at 60.
int CheckDetailed(const CEdid& oEdid)
{
    MTEST_STEP(oEdid.GetDetailedCount() == 5);

    CVidParamTimingGeneric oExpected;
    CVidParamTimingGeneric oTiming;
    MTEST_STEP(CVidParamCea::GetVidParam(0, &oExpected, 1920, 1080, 60, CVidParamCea::eScanTypeAny));
    MTEST_STEP(oEdid.GetDetailed(0, &oTiming));
    MTEST_STEP(oExpected == oTiming);

    CVidParamTimingGeneric oPreferred;
    MTEST_STEP(IsPreferredTimingProtected(oEdid));
    MTEST_STEP(oEdid.CEdidBase::GetDetailed(0, &oPreferred));
    MTEST_STEP(oExpected == oPreferred);
    return 1;
}

int CheckTextsAndSizes(const CEdid& oEdid, const SEdidImage& aui8Image)
{
    const unsigned char* const pui8Base = oEdid.GetBaseBlock();

    char szName[gsc_uiTextSize] = {};
    MTEST_STEP(oEdid.GetMonitorName(szName, gsc_uiTextSize));
    MTEST_STEP(strcmp(szName, "ASUS VE276") == 0);

    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(oEdid.GetSize() == 256);
    MTEST_STEP(pui8Base[126] == 1);
    MTEST_STEP(ReadLittleEndian(pui8Base + 8, 4) == 0x27F46904);

    char szId[gsc_uiTextSize] = {};
    MTEST_STEP(oEdid.GetMonitorID(szId, gsc_uiTextSize) == 7);
    MTEST_STEP(strcmp(szId, "ACI27F4") == 0);

    MTEST_STEP(memcmp(pui8Base, EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0);
    MTEST_STEP(CEdidUtils::Is8BitsChecksumValid(gsc_uiImageBlockSize, pui8Base));
    MTEST_STEP(CEdidBase::GetEdidSizeFromData(256, aui8Image.data()) == 256);

    char szSerial[gsc_uiTextSize] = {};
    MTEST_STEP(oEdid.GetMonitorSerialNumber(szSerial, gsc_uiTextSize));
    MTEST_STEP(strcmp(szSerial, "A8LMTF145791") == 0);

    char szString[gsc_uiTextSize] = {};
    MTEST_STEP(oEdid.GetMonitorString(szString, gsc_uiTextSize) == 0); // no such descriptor

    char szManufacturer[gsc_uiTextSize] = {};
    MTEST_STEP(oEdid.GetManufacturerName(szManufacturer, gsc_uiTextSize) == 21);
    MTEST_STEP(strcmp(szManufacturer, "ASUSTek Computer Inc.") == 0);
    return 1;
}
} // namespace

SAsusHdData GetAsusHdData()
{
    return { &AsusHd::g_auiAsusHdEdidData, g_auiEstablishedTimingNonVesa, g_auiEstablishedTimingVesa,
             g_auiBaseStandardTiming };
}

int RunAsusHd(const SAsusHdData& oData)
{
    CEdid oEdid;
    MTEST_STEP(oEdid.SetEdidBuffer(oData.m_paui8Image->data(), 256, 0));
    MTEST_PASS_ON(CheckIdentityBytes(oEdid));
    MTEST_PASS_ON(CheckEstablished(oEdid, oData.m_aoEstablished, 0));
    MTEST_PASS_ON(CheckEstablished(oEdid, oData.m_aoEstablishedVesa, 1));
    MTEST_PASS_ON(CheckBaseStandard(oEdid, oData.m_aoBaseStandard));
    MTEST_PASS_ON(CheckDetailed(oEdid));
    MTEST_PASS_ON(CheckTextsAndSizes(oEdid, *oData.m_paui8Image));

    CVidParamTimingGeneric oTiming;
    MTEST_STEP(oEdid.GetExtraStdTiming(0, oTiming) == 0); // no such descriptor
    return 1;
}

int Test_AsusHd() { return RunAsusHd(GetAsusHdData()); }
