// zoredid edit --set: which field is meant, and its new value by CZorEdidWriter.

#pragma once

#include <string>

#include "ZorEdidWriter.h"

// ID=VALUE, ID[N]=VALUE or OFFSET[.BIT]=VALUE
struct SSetting
{
    static constexpr unsigned int msc_uiNone = 0xFFFFFFFF;

    EZorEdidField m_eId = eZorEdidField_None; // none: a place
    unsigned int m_uiNumber = msc_uiNone;     // among the fields of the id, or the offset; none for the only one
    unsigned int m_uiBit = msc_uiNone;        // of a place; none for the field of the whole byte
    std::string m_sValue = {};
};

// Empty, or what is wrong with the text: ID, ID[N] or OFFSET[.BIT]; the same with a value.
std::string ParseField(const std::string& sField, SSetting& oSetting);
std::string ParseSetting(const std::string& sText, SSetting& oSetting,
                         const char* pszForms = "ID=VALUE, ID[N]=VALUE or OFFSET.BIT=VALUE");

// "block 1: Video data block > Native"
std::string NameField(const CZorEdidMap& oMap, unsigned int uiField);

// "; followed: block 1: Checksum"; empty without a field.
std::string NameFollowed(const CZorEdidMap& oMap, const CZorEdidWriter::CFields& auiFollowed);

// Sets a leaf to a value as CZorEdidWriter::Set takes it. Empty, or the reason of a refusal, which changes nothing.
// sNote says what the value was, what it became, and which checksums followed. Both begin with the field. bNew: the
// edit has just made the field, so that what it was means nothing.
std::string SetField(CZorEdidWriter& oWriter, unsigned int uiField, const std::string& sValue, std::string& sNote,
                     bool bNew = false);

// Empty, or why no field is meant.
std::string FindSetting(const CZorEdidMap& oMap, const SSetting& oSetting, unsigned int& uiField);
