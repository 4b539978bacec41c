/// The rules that an EDID image is judged by: the notes of CZorEdidMap and the findings of CZorEdidCheck name them.
/// Numbers and ids stay, texts may improve; a retired one is never reused.

#pragma once

#include "ZorEdidMap.h"

#pragma GCC visibility push(default)

/// 1 to 499 are about one structure, which the map sees; 500 to 899 about several of them or about the image as a
/// whole; from 900 on about what this library does not read.
enum EZorEdidRule : unsigned short
{
    eZorEdidRule_None = 0,

    // ---- Any structure ----
    eZorEdidRule_Checksum = 1,

    // ---- What the library does not read ----
    eZorEdidRule_UnreadBlock = 900,
};

/// What is known of a rule. All texts are static and never null.
struct SZorEdidRule
{
    EZorEdidRule m_eRule;
    CZorEdidMap::ESeverity m_eSeverity; ///< as a rule: a finding may weigh less, as by revision
    const char* m_pszId;          ///< "checksum", "timing.out-of-range": lower case, dots and hyphens
    const char* m_pszWhat;        ///< the finding in words: "the checksum is wrong"
    const char* m_pszStandard;    ///< "E-EDID 1.4, 3.11"; empty where no standard asks for it
    const char* m_pszWhy;         ///< one sentence: why it matters, and what sources do with it
};

/// The rules in the order of their numbers. uiIndex must be below GetZorEdidRuleCount.
unsigned int GetZorEdidRuleCount();
const SZorEdidRule& GetZorEdidRule(unsigned int uiIndex);

/// Null for eZorEdidRule_None and unknown numbers; the other for an unknown id and for null.
const SZorEdidRule* FindZorEdidRule(EZorEdidRule eRule);
const SZorEdidRule* FindZorEdidRule(const char* pszId);

#pragma GCC visibility pop
