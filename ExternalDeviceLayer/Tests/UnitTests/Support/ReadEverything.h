// Calls every reading operation that an EDID has: of CEdid, of each block by its type, of CZorEdidUtils, and every
// timing into both storage classes. For damaged and hostile bytes, under the sanitizers.

#pragma once

class CEdid;

// The result is a digest of all answers: the same bytes give the same number, in every run. Changes nothing.
unsigned long long ReadEverything(const CEdid& oEdid);
