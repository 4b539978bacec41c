// The wishes of one call of `zoredid make`, from the texts of the command line and of a JSON document, which have the
// same values under the same names.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "ZorEdidMaker.h"

struct SWishOption
{
    const char* m_pszName;  // "--serial-text"; in JSON "serial_text"
    const char* m_pszValue; // placeholder in the help; empty for an option without a value
    const char* m_pszHelp;
    // Sets the wish. Empty, or why the text is not one of its values.
    std::string (*m_pfnSet)(const std::string& sValue, SZorEdidWishes& oWishes);
    bool m_bNumber = false; // in JSON; other values are texts
};

// The first one is --mode, the only one that may be there several times.
std::span<const SWishOption> GetWishOptions();

// Sets one wish. Empty, or what is wrong with the value, its range included.
std::string SetWish(const SWishOption& oOption, const std::string& sValue, SZorEdidWishes& oWishes);

struct SWishValue
{
    const SWishOption* m_poOption;
    std::string m_sValue;
};
using CWishValues = std::vector<SWishValue>;

// Takes the values over what oWishes has. Where there is a mode among them, the modes of before are gone. Empty, or
// what is wrong with a value: "--size: '1x1' ...".
std::string ApplyWishes(const CWishValues& aoValues, SZorEdidWishes& oWishes);

// ---- Profiles: values that go together ----

std::vector<std::string> ListProfiles();
// Of a profile of ListProfiles.
CWishValues GetProfile(const std::string& sName);

// ---- JSON ----

struct SWishDocument
{
    std::string m_sProfile; // empty without one
    CWishValues m_aoValues;
};

// Reads one document of a file, "-" for standard input. Empty, or why it cannot be read, one line.
std::string ReadWishes(const std::string& sFile, SWishDocument& oDocument);
