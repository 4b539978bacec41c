// CMArrayString: joining and cutting. The list itself is CMArray.

#include "ZorMFCTypes/CMArrayString.h"

CMString CMArrayString::Join(const char* pszSeparator) const
{
    const CMString oSeparator(pszSeparator);
    CMString oJoined;
    for (unsigned int i = 0; i < GetCount(); ++i)
    {
        if (i != 0)
        {
            oJoined += oSeparator;
        }
        oJoined += GetAt(i);
    }
    return oJoined;
}

int CMArrayString::InitFromString(const char* pszText, const char* pszSeparators)
{
    const CMString oText(pszText);
    const CMString::CIterator oEnd = oText.End();
    for (CMString::CIterator oToken = oText.Begin(pszSeparators); oToken != oEnd; ++oToken)
    {
        Add(*oToken);
    }
    return static_cast<int>(GetCount());
}
