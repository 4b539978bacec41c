// The ten suites of the self-check and the run over them.
//
// A suite is a list of steps over a data record: the images and expected tables that it works with. Test_X() runs the
// steps of suite X over the suite's own record. A test compiles the suites against a library with wrong answers, to see
// that each step can fail. Records hold views: the data stays where it is and must outlive the run. A suite builds its
// own CEdid objects and shares nothing with another one, so that the order of the suites changes no result.

#pragma once

#include "CEdidTestHelp.h"

// ---- The suites: 1 when every step held, else 0, with at least one assertion line written. ----

int Test_AsusHd();         // a real monitor's identity and timings
int Test_BaseStandard();   // serial number and standard timings of the base block
int Test_BaseDetailed();   // detailed timings of the base block
int Test_ExtDetailed();    // detailed timings across both blocks, removed from the last one down
int Test_ExtDetailed2();   // the same, removed in the middle
int Test_ExtStandard();    // short video descriptors
int Test_ExtStandard2();   // HDMI codes of a vendor block
int Test_ColorBitDepth();  // colour depth of the base block and of the HDMI vendor block
int Test_TimingsCompare(); // two units of one model announce the same modes
int Test_Audio();          // short audio descriptors

// ---- The run. ----

struct SSuite
{
    int (*m_pfnRun)();             // 1 or another value that is not 0 when the suite passed
    const char* m_pszResultFormat; // with one %d for the result; ends the line
};

inline constexpr unsigned int gsc_uiSuiteCount = 10;

// In the order of the run.
std::array<SSuite, gsc_uiSuiteCount> GetSuites();

// Runs the suites in their order and prints the result line of each at once, then the number of those that gave 0, an
// empty line and the closing prompt, which has no line end. Reads no input.
void RunSuites(std::span<const SSuite> aoSuites);

// ---- The data records, and the steps over them. ----

struct SAsusHdData
{
    const SEdidImage* m_paui8Image;
    CTimingTable m_aoEstablished; // all of them
    CTimingTable m_aoEstablishedVesa;
    CTimingTable m_aoBaseStandard;
};
SAsusHdData GetAsusHdData();
int RunAsusHd(const SAsusHdData& oData);

struct SBaseStandardData
{
    const SEdidImage* m_paui8SerialImage;
    const SEdidImage* m_paui8StandardImage;
    std::array<CTimingTable, 3> m_aaoTiming; // as loaded, and after each removal
};
SBaseStandardData GetBaseStandardData();
int RunBaseStandard(const SBaseStandardData& oData);

struct SBaseDetailedData
{
    const SEdidImage* m_paui8Image;
    std::array<CVidParamTable, 2> m_aaoTiming; // as loaded, and after the removal
};
SBaseDetailedData GetBaseDetailedData();
int RunBaseDetailed(const SBaseDetailedData& oData);

// Of both suites on detailed timings.
struct SExtDetailedData
{
    std::array<const SEdidImage*, 4> m_apaui8Image; // as loaded, and after each removal
    std::array<CVidParamTable, 4> m_aaoTiming;      // the same
    CVidParamTable m_aoPreferred;                   // one row, written as preferred timing at the end
};
SExtDetailedData GetExtDetailedData();
int RunExtDetailed(const SExtDetailedData& oData);
SExtDetailedData GetExtDetailed2Data();
int RunExtDetailed2(const SExtDetailedData& oData);

struct SExtStandardData
{
    std::array<const SEdidImage*, 5> m_apaui8Image; // as loaded, and after each removal
    std::array<CTimingTable, 5> m_aaoTiming;        // the same
};
SExtStandardData GetExtStandardData();
int RunExtStandard(const SExtStandardData& oData);

struct SExtStandard2Data
{
    std::array<const SEdidImage*, 2> m_apaui8Image; // as loaded, and after the removal
    std::array<CTimingTable, 2> m_aaoTiming;        // the same
};
SExtStandard2Data GetExtStandard2Data();
int RunExtStandard2(const SExtStandard2Data& oData);

struct SColorBitDepthData
{
    const SEdidImage* m_paui8Image;
    const SEdidImage* m_paui8Revision3Image;
};
SColorBitDepthData GetColorBitDepthData();
int RunColorBitDepth(const SColorBitDepthData& oData);

struct STimingsCompareData
{
    const SEdidImage* m_paui8FirstImage;
    const SEdidImage* m_paui8SecondImage;
};
STimingsCompareData GetTimingsCompareData();
int RunTimingsCompare(const STimingsCompareData& oData);

struct SAudioData
{
    // Loaded.
    const SEdidImage* m_paui8OneBlock;
    const SEdidImage* m_paui8NoBlock;
    const SEdidImage* m_paui8Full;
    const SEdidImage* m_paui8TwoDescriptors;
    const SEdidImage* m_paui8Ten;
    // Expected.
    const SEdidImage* m_paui8Filtered;
    const SEdidImage* m_paui8Added;
    const SEdidImage* m_paui8FullAdded;
    const SEdidImage* m_paui8AddBlock;
    const SEdidImage* m_paui8Removed;
    const SEdidImage* m_paui8Eleven;
    const SEdidImage* m_paui8Add2; // loaded too
    const SEdidImage* m_paui8Set;
};
SAudioData GetAudioData();
int RunAudio(const SAudioData& oData);
