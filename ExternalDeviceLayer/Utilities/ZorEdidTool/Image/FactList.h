// The facts of an image as one list of named values, for JSON and for comparison. docs/zoredid.schema.json describes
// them; FactWords has them in words.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ZorEdidFacts.h"

class CJsonWriter;

// A value that an image says: yes or no, a whole number, a measure, a text, or several names or measures.
class CFactValue
{
public:
    CFactValue(bool bValue) : m_eKind(eKind_Flag), m_llNumber(bValue ? 1 : 0) {}
    CFactValue(long long llNumber) : m_eKind(eKind_Number), m_llNumber(llNumber) {}
    CFactValue(double dMeasure) : m_eKind(eKind_Measure), m_dMeasure(dMeasure) {}
    CFactValue(std::string sText) : m_eKind(eKind_Text), m_sText(std::move(sText)) {}
    CFactValue(std::vector<const char*> apszNames) : m_eKind(eKind_Names), m_apszNames(std::move(apszNames)) {}
    CFactValue(std::vector<double> adMeasures) : m_eKind(eKind_Measures), m_adMeasures(std::move(adMeasures)) {}
    CFactValue(std::vector<int> aiNumbers) : m_eKind(eKind_Numbers), m_aiNumbers(std::move(aiNumbers)) {}

    void Write(CJsonWriter& oJson) const;
    // For people: "yes", "48", "0.3127, 0.3290"; "none" for an empty list.
    std::string GetText() const;

private:
    enum EKind : unsigned char
    {
        eKind_Flag,
        eKind_Number,
        eKind_Measure,
        eKind_Text,
        eKind_Names,
        eKind_Measures,
        eKind_Numbers
    };

    EKind m_eKind;
    long long m_llNumber = 0;
    double m_dMeasure = 0;
    std::string m_sText;
    std::vector<const char*> m_apszNames;
    std::vector<double> m_adMeasures;
    std::vector<int> m_aiNumbers;
};

struct SNamedFact
{
    // "link.frl.lanes": the members of JSON from the outermost one on. "link.vrr.ranges#.min_hz" is of an element of a
    // list of objects, of which a path has at most one.
    const char* m_pszPath;
    unsigned int m_uiElement; // of the list, from 0; else 0
    CFactValue m_oValue;
    EZorEdidField m_eId; // the field that says it; eZorEdidField_None for what follows from several
};
using CFactList = std::vector<SNamedFact>;

// The fields of all flags that make up one fact, of which the record has one; of other facts that field alone.
std::vector<EZorEdidField> ListFields(EZorEdidField eId);

// Facts that the image does not say are left out. Members of an object, and elements of a list, follow each other.
CFactList ListFacts(const CZorEdidFacts& oFacts);

// Whether the display takes PQ with static metadata of type 1, which is what HDR10 means.
bool HasHdr10(const CZorEdidFacts::SColour& oColour);

// The ranges of refresh rates that are declared to be variable, the best source first. Range limits are not among them:
// every display has rates, and EDID has no word for varying them.
std::vector<CZorEdidFacts::SVariableRefresh> ListVariableRefresh(const CZorEdidFacts::SLink& oLink);

// "E-AC-3", "AC-4"; "format 15" for a code without a name.
std::string NameAudioFormat(const CZorEdidFacts::SAudioFormat& oFormat);

// Members of the object that is open: a member for each section of the facts, in the order of the list.
void WriteFacts(const CFactList& aoFacts, CJsonWriter& oJson);
// The members "PATH": "ID" for all facts of one field, of lists for the first element.
void WriteFactIds(const CFactList& aoFacts, CJsonWriter& oJson);
