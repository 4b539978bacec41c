/// Umbrella over the containers: allocator, array, string, string list, block pool, hash map. They know no EDID.

#pragma once

#include "ZorMFCTypes/CMAllocator.h"
#include "ZorMFCTypes/CMArray.h"
#include "ZorMFCTypes/CMArrayString.h"
#include "ZorMFCTypes/CMMap.h"
#include "ZorMFCTypes/CMPlex.h"
#include "ZorMFCTypes/CMString.h"
