// Every mode that an image announces, exact, one rate a row, with the numbers that the library's lists have for it and
// what they have otherwise: the one list of `modes`, `show`, `compare`, the page and the JSON.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ModeList.h"
#include "ZorEdidModes.h"

struct SModeRow
{
    static constexpr unsigned int msc_uiNone = SZorImageMode::msc_uiNone;

    const SZorImageMode* m_poEntry; // the field that announces it
    SZorMode m_oMode;               // of the entry, or its partner at 1000/1001
    bool m_bPartner;

    CZorEdidMap::EList m_eList = CZorEdidMap::eList_None; // that edits take a number of
    unsigned int m_uiNumber = 0;
    unsigned int m_ui420Number = msc_uiNone; // of the same list: the mode once more, in YCbCr 4:2:0
    std::string m_sOtherwise = {};           // what the library's list has in its place; empty for the same
    // Of a byte that the list takes for another code: its numbers in the list of standard timings.
    std::vector<unsigned int> m_auiOtherNumbers = {};

    bool IsListed() const { return m_eList != CZorEdidMap::eList_None; }
    unsigned int GetBlock() const;
    bool Is3d() const { return m_poEntry->m_uiStereo != 0 || m_oMode.m_eStereo != SZorMode::eStereo_No; }
    bool IsPreferred() const { return m_poEntry->m_uiPreference == 1 && !m_bPartner; }
};

// A timing of the library's lists that no row has.
struct SStrayTiming
{
    SZorMode m_oMode; // with the exact rate
    CZorEdidMap::EList m_eList;
    unsigned int m_uiNumber;
    unsigned int m_uiOffset; // in the image, of the bytes that the list has it from
    std::string m_sReason;   // "the list takes byte dd for VIC 93"

    std::string GetNumberText() const; // "standard 27"
};

class CImageModes
{
public:
    // poEdid, loaded from these bytes, with ListTimings of it: null for an image that the library refuses, whose modes
    // have no numbers.
    CImageModes(const std::vector<unsigned char>& aui8Bytes, const CEdid* poEdid, const CModes& aoListed);
    CImageModes(const CImageModes&) = delete; // rows point into m_oModes
    CImageModes& operator=(const CImageModes&) = delete;

    const std::vector<SModeRow>& GetRows() const { return m_aoRows; }
    // The most preferred mode; null without one.
    const SModeRow* FindPreferred() const;
    // In the order of aoListed.
    const std::vector<SStrayTiming>& GetStrays() const { return m_aoStrays; }

private:
    CZorEdidModes m_oModes;
    std::vector<SModeRow> m_aoRows;
    std::vector<SStrayTiming> m_aoStrays;
};

// "3840 x 2160", "1920 x 1080i"; "119.88", "59.94", "60": two decimals, without zeros at the end.
std::string GetSizeText(const SZorMode& oMode);
std::string GetShortRate(const SZorMode& oMode);
std::string GetRateText(double dHz);
// The same as ParseExactMode takes it: "1920x1080i@59.94".
std::string GetModeName(const SZorMode& oMode);

// Hz; 0 where no rate is given, nor a nominal one.
double GetRate(const SZorMode& oMode);

// Where a row comes from, the same for all rows of a kind and block: "Established timings", "Video codes, block 1".
std::string GetSourceText(const SModeRow& oRow);

// "VIC 16", "HDMI VIC 1", "DMT 52h"; empty for a mode without a code.
std::string GetCodeMark(const SZorMode& oMode);

// What is to be known of a mode besides its numbers: "VIC 118", "native", "4:2:0 only"; in this order.
std::vector<std::string> ListMarks(const SModeRow& oRow);

// "standard 12", or "-" without a number.
std::string GetNumberText(const SModeRow& oRow);

// The name of what the numbers come from, for JSON and modelines: "cea", "dmt", "cvt", "gtf", "ovt", "detailed",
// "displayid".
const char* GetSourceName(const SZorImageMode& oEntry);
