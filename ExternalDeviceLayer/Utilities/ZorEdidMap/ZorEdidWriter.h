/// Writes the fields of an EDID image: what CZorEdidMap reads, by the same tables read backwards.

#pragma once

#include "ZorEdidMap.h"

#pragma GCC visibility push(default)

/// One image under edit, with the map of its present bytes. A field is set by the value that it is to have; which bytes
/// make it is looked up in the map. Each change is read back before it counts: the field then reads as asked, and no
/// other field reads differently, apart from the checksums over the changed bytes, which are made right, and a minimum
/// luminance that is stored as a fraction of the maximum that was set. Otherwise the bytes stay as they were.
class CZorEdidWriter
{
public:
    using CFields = CMArray<unsigned int, const unsigned int&>;

    struct SAnswer
    {
        bool m_bExact = false; ///< the field reads as asked; false where the nearest value took its place
        CMString m_oBefore;    ///< the value before, as CZorEdidMap::GetValue
        CMString m_oAfter;     ///< the value now
        CMString m_oReason;    ///< of a refusal, with what is allowed
        CFields m_auiFollowed; ///< the checksums that were changed, as fields of the present map
        CFields m_auiOthers; ///< after "raw:" and of a maximum luminance the other leaves that read differently, in the
                             ///< present map
    };

    /// As CZorEdidMap::Read: takes the bytes of an image in any state, and makes its map.
    int Read(unsigned int uiSize, const unsigned char* pui8Data);

    /// The map of the present bytes, which are its GetData. References into it are good until the next Set.
    const CZorEdidMap& GetMap() const { return m_oMap; }

    /// Sets a leaf, or the text of a text descriptor that has none, which is a group. Returns 1, and 0 for a refusal,
    /// which changes nothing. pszValue is one of
    ///   a value as CZorEdidMap::GetValue gives it, in letters of either case: "not given", "DisplayPort", "2.20"
    ///   a number with or without the unit of the field; the nearest one that the field can say is taken. Decimal, or
    ///   hexadecimal after 0x. Of a name its code
    ///   a flag as yes or no, true or false, on or off, 1 or 0
    ///   characters of a text, which a text that is shorter than its room fills up with blanks
    ///   hexadecimal digits of bytes, with or without blanks between the bytes
    ///   "raw:" and the bits of the field themselves: a number, or hexadecimal digits where the field is more than one
    ///   byte and not a number. Other fields may then read differently
    /// Reserved, unknown and fixed bits and checksums are written by "raw:" alone. A value that is reserved, unknown or
    /// out of range is refused; one that the field has already is not.
    ///
    /// Fields keep their indexes, unless the value is a text or "raw:". uiField must be below GetFieldCount.
    int Set(unsigned int uiField, const char* pszValue, SAnswer& oAnswer);

    /// The names that Set takes of a leaf, each once, in the order of their codes: "yes" and "no" of a flag. Numbers
    /// have names such as "not given". Of a leaf of more than 16 bits only its lowest and highest value are tried. None
    /// of texts and bytes, and of a leaf that "raw:" alone writes.
    /// Returns their number. uiField must be below GetFieldCount.
    unsigned int ListNames(unsigned int uiField, CMArrayString& aoNames) const;

private:
    CZorEdidMap m_oMap;
};

#pragma GCC visibility pop
