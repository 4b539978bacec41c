// Edits by the words of the command line, done one after the other as the command does them.

#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "EditDisplayId.h"
#include "EditImage.h"
#include "EditPlan.h"
#include "EditVerify.h"
#include "FieldEdits.h"

// Empty, or what is wrong with the value.
inline std::string ParseOption(const std::string& sOption, const std::string& sValue, SEdit& oEdit)
{
    const auto itOption = std::ranges::find(GetEditOptions(), sOption, &SEditOption::m_pszName);
    return itOption != GetEditOptions().end() ? ParseEdit(*itOption, sValue, oEdit) : "no such option";
}

// Empty, or the reason of a refusal, or the fault that the verification finds.
inline std::string ApplyEdits(const CBytes& aui8Image, const std::vector<SEdit>& aoEdits, CBytes& aui8Edited)
{
    const auto fnIsOfFields = [](const SEdit& oEdit) {
        return oEdit.m_eKind == eEdit_Set || oEdit.m_eKind == eEdit_Named;
    };
    aui8Edited = aui8Image;
    std::string sReason;
    if (!std::ranges::all_of(aoEdits, fnIsOfFields))
    {
        CEditImage oImage;
        sReason = oImage.Load(aui8Image) ? "" : "the library refuses the image";
        for (auto it = aoEdits.begin(); it != aoEdits.end() && sReason.empty(); ++it)
        {
            sReason = oImage.Apply(*it);
        }
        if (!sReason.empty())
        {
            return sReason;
        }
        aui8Edited = oImage.GetBytes();
        const std::string sFault = VerifyEdits(aui8Image, aui8Edited, oImage.GetBlocks());
        sReason = sFault.empty() ? "" : "internal fault: " + sFault;
    }
    // DisplayID timings, those with numbers first, then fields and parts.
    std::vector<SEdit> aoLater = ListNumberedTimings(aui8Image, aoEdits);
    std::ranges::remove_copy_if(aoEdits, std::back_inserter(aoLater), fnIsOfFields);
    std::ranges::copy_if(aoEdits, std::back_inserter(aoLater), fnIsOfFields);
    CFieldEdits oFields(aui8Edited, aui8Image);
    for (auto it = aoLater.begin(); it != aoLater.end() && sReason.empty(); ++it)
    {
        const CNamedEdit fnSet = [it](CFieldEdits& oSet) { return oSet.Apply(it->m_oSetting); };
        const CNamedEdit& fnEdit = it->m_eKind == eEdit_Set ? fnSet : it->m_fnNamed;
        sReason = fnEdit != nullptr ? oFields.Do(fnEdit) : "";
    }
    aui8Edited = oFields.GetBytes();
    return sReason;
}
