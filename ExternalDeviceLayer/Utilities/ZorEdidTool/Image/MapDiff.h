// What differs between the maps of two images, by meaning: offsets, and places in a list, play no part.

#pragma once

#include <stddef.h>

#include <functional>
#include <set>
#include <vector>

#include "ZorEdidMap.h"

// A map of which some fields are left out, groups with all that they hold.
struct SMapPart
{
    CZorEdidMap m_oMap;
    std::set<unsigned int> m_oWithout = {};

    const CZorEdidMap::SField& Get(unsigned int uiField) const { return m_oMap.GetField(uiField); }
    bool Is(unsigned int uiField, EZorEdidField eId) const { return Get(uiField).m_eId == eId; }
    bool IsIn(unsigned int uiField, EZorEdidField eGroup) const; // right in it
    std::vector<unsigned char> GetBytes(unsigned int uiField) const;
    std::vector<unsigned int> ListBlock(size_t uiBlock) const; // all of its fields, in the order of the map

    // What is left out of a group, counted from it.
    std::vector<unsigned int> ListWithout(unsigned int uiGroup) const;

    // Leaves out what goes with the fields that are left out: formats and bits of video codes, then 4:2:0 maps that
    // lose their last bit and groups of which nothing but a header is left, and last all counts of bytes. Returns what
    // these are without the bytes left out.
    std::vector<long long> LeaveOutRest();

private:
    bool IsBits(unsigned int uiField) const; // a leaf of less than a byte
    unsigned int CountBytesWithout(unsigned int uiGroup, EZorEdidField eId) const;
    void LeaveOutCodes(const std::vector<unsigned int>& auiBlock);
    void LeaveOutEmptiedMaps();
    void LeaveOutEmptied();
};

// A leaf that both maps have with another value, or a leaf or group that only one of them has: msc_uiNone in the other.
struct SMapDifference
{
    unsigned int m_uiFirst;
    unsigned int m_uiSecond;
};

// Blocks of the same bytes at the same place are equal, others are paired by their ids and names. In a pair of groups
// as many fields as possible that say the same are paired, in their order, and between these the others by ids and
// names. Of the fields that say nothing there may be more or fewer: reserved bits that are 0, and bits that are 0 in a
// list of codes.
std::vector<SMapDifference> CompareMaps(const SMapPart& oFirst, const SMapPart& oSecond);

// Whether a group of the first map and one of the second are of the same thing, such as a mode, and differ in what they
// say besides.
using CSameThing = std::function<bool(unsigned int uiFirst, unsigned int uiSecond)>;

// As CompareMaps, but fields of a group are paired whatever their order: those that say the same, then groups of the
// same thing, then the others by ids and names.
std::vector<SMapDifference> CompareMapsInAnyOrder(const SMapPart& oFirst, const SMapPart& oSecond,
                                                  const CSameThing& fnIsSameThing);
