/// CMString: 8-bit text whose copies share one buffer until one of them changes.
///
/// A header with reference count, length and capacity precedes the characters in the same allocation. All
/// empty strings made by default share one constant, so that they need no memory. Buffers are exact: no size classes,
/// no growth reserve. Counts are plain integers: a string and all that share its buffer belong to one thread.
///
/// When memory runs out, every operation leaves all strings as they were before it (strong guarantee).
///
/// Indexes and lengths count characters without the terminator. A null text counts as empty unless stated otherwise; a
/// text of 2147483647 characters or more fits in no buffer: storing it reports and changes nothing. Where an operation
/// exists with int and with unsigned int, the unsigned form forwards to the other one: an index or a count above
/// 2147483647 is negative there, and is treated as the operation treats negative ones.

#pragma once

#include <stdarg.h>

#include "ZorMFCTypes/CMArray.h"

#pragma GCC visibility push(default)

class CMString
{
public:
    /// Walks the tokens of a text: runs of characters that are not separators. Empty tokens do not occur.
    class CIterator;

    /// Precedes the characters of a buffer.
    struct SMetaData
    {
        int m_iRefs;        ///< strings that share the buffer; -1: locked, or the shared empty string
        int m_iDataLength;  ///< characters in use
        int m_iAllocLength; ///< characters that the buffer can hold
    };

    // ---- Making and assigning ----

    constexpr CMString() noexcept : m_pszData(m_pszNil) {}
    CMString(const char* pszText);
    /// iCount copies of c; a count below 1 gives the empty string.
    CMString(char c, int iCount);
    CMString(char c, unsigned int uiCount);
    /// Shares the buffer; a locked source is copied character by character.
    CMString(const CMString& oSource);
    constexpr ~CMString()
    {
        if (m_pszData != m_pszNil)
        {
            Release(GetMetaData());
        }
    }

    /// Shares the buffer unless one of the two is locked; a locked string receives the characters and stays locked
    /// where they fit. An empty text gives the buffer back instead, which ends the lock. The text given may be a part
    /// of this string.
    CMString& operator=(const CMString& oSource);
    CMString& operator=(const char* pszText);
    CMString& operator=(char c);

    // ---- Reading ----

    int GetLength() const { return GetMetaData()->m_iDataLength; }
    /// Characters that fit without another allocation.
    int GetAllocLength() const { return GetMetaData()->m_iAllocLength; }
    /// An index outside the text reports and gives NUL.
    char GetAt(int iIndex) const
    {
        if (iIndex < 0 || iIndex >= GetLength())
        {
            MASSERT_FAILED();
            return '\0';
        }
        return m_pszData[iIndex];
    }
    /// Never null. Valid until the string changes. Write the cast out when the text goes into a variable argument list.
    operator const char*() const { return m_pszData; }

    /// Compare texts, not buffers.
    bool operator==(const CMString& oOther) const { return ZorTools_strcmp(m_pszData, oOther.m_pszData) == 0; }
    bool operator==(const char* pszText) const
    {
        return ZorTools_strcmp(m_pszData, pszText != nullptr ? pszText : m_pszNil) == 0;
    }

    // ---- Appending ----

    /// Appends iLength characters of pszText, which must have as many and may be a part of this string. Null appends
    /// nothing.
    void ConcatInPlace(int iLength, const char* pszText);
    CMString& operator+=(char c);
    CMString& operator+=(const char* pszText);
    CMString& operator+=(const CMString& oText);

    friend CMString operator+(const CMString& oFirst, const CMString& oSecond);
    friend CMString operator+(const CMString& oFirst, const char* pszSecond);
    friend CMString operator+(const char* pszFirst, const CMString& oSecond);
    friend CMString operator+(const CMString& oFirst, char cSecond);
    friend CMString operator+(char cFirst, const CMString& oSecond);

    // ---- The buffer itself ----

    /// A buffer of this string alone with room for at least iMinLength characters; the text stays. Up to iMinLength
    /// characters may be written, then ReleaseBuffer must be called. GetBuffer(0) may give the shared empty string,
    /// which must not be written. A negative length counts as 0. A length of INT_MAX reports, changes nothing and gives
    /// null.
    char* GetBuffer(int iMinLength);
    char* GetBuffer(unsigned int uiMinLength) { return GetBuffer(static_cast<int>(uiMinLength)); }
    /// GetBuffer, then the length is iLength; new characters have no defined value. The shared empty string stays as it
    /// is with a length below 1. On any other a negative length reports, changes nothing and gives null.
    char* GetBufferSetLength(int iLength);
    char* GetBufferSetLength(unsigned int uiLength) { return GetBufferSetLength(static_cast<int>(uiLength)); }
    /// Ends direct writing: sets the length, -1 takes it from the first NUL. A length that the buffer cannot hold
    /// reports and changes nothing. The buffer keeps its size.
    void ReleaseBuffer(int iLength);
    /// Makes the buffer as long as the text. A buffer that is replaced for that is not locked afterwards.
    void FreeExtra();
    /// A locked buffer belongs to this string alone and takes part in no sharing. Locking does not nest. An operation
    /// that needs another buffer, a longer one or in FreeExtra a shorter one, takes one that is not locked.
    char* LockBuffer();
    /// Reports and changes nothing when the string is not locked.
    void UnlockBuffer();

    // ---- Searching: an index from 0, or -1 ----

    /// iStart must not be negative; c is not found at or past the end, an empty text is found at the end.
    int Find(char c, int iStart) const;
    /// A null text reports and gives -1.
    int Find(const char* pszText, int iStart) const;
    int ReverseFind(char c) const;
    /// The same without regard to the case of ASCII letters; a null text counts as empty.
    int FindNoCase(char c, int iStart) const;
    int FindNoCase(const char* pszText, int iStart) const;
    int ReverseFindNoCase(char c) const;
    /// How often c occurs.
    int CountOf(char c) const;
    int CountOfNoCase(char c) const;

    // ---- Changing in place ----

    /// ASCII letters only.
    CMString& MakeUpper();
    CMString& MakeLower();
    CMString& MakeReverse();
    /// An index outside the text reports and changes nothing.
    void SetAt(int iIndex, char c);
    void SetAt(unsigned int uiIndex, char c) { SetAt(static_cast<int>(uiIndex), c); }
    /// Inserts in front of iIndex, which is taken as 0 when negative and as the length when beyond it. Gives the new
    /// length. The text given may be a part of this string.
    int Insert(int iIndex, char c);
    int Insert(int iIndex, const char* pszText);
    int Insert(unsigned int uiIndex, char c) { return Insert(static_cast<int>(uiIndex), c); }
    int Insert(unsigned int uiIndex, const char* pszText) { return Insert(static_cast<int>(uiIndex), pszText); }
    /// Takes out up to iCount characters from iIndex on. Gives the length before. A negative index counts as 0, but the
    /// count is cut by its distance to the end first; a count that still passes the end then changes nothing.
    int Delete(int iIndex, int iCount);
    int Delete(unsigned int uiIndex, unsigned int uiCount)
    {
        return Delete(static_cast<int>(uiIndex), static_cast<int>(uiCount));
    }
    /// The empty string; a locked buffer stays in place and locked.
    void Empty();
    /// Take the characters in pszTargets off the ends; null and empty lists change nothing.
    CMString& TrimLeft(const char* pszTargets);
    CMString& TrimRight(const char* pszTargets);
    CMString& Trim(const char* pszTargets);

    // ---- Taking parts. Negative arguments count as 0, what lies beyond the end is left out. ----
    /// A part that is the whole string shares the buffer.

    CMString Mid(int iFirst, int iCount) const;
    CMString Mid(int iFirst) const;
    CMString Mid(unsigned int uiFirst, unsigned int uiCount) const
    {
        return Mid(static_cast<int>(uiFirst), static_cast<int>(uiCount));
    }
    CMString Mid(unsigned int uiFirst) const { return Mid(static_cast<int>(uiFirst)); }
    CMString Left(int iCount) const;
    CMString Left(unsigned int uiCount) const { return Left(static_cast<int>(uiCount)); }
    CMString Right(int iCount) const;
    CMString Right(unsigned int uiCount) const { return Right(static_cast<int>(uiCount)); }

    // ---- Formatting. A null format reports and changes nothing. ----
    /// The room is estimated by GetFormattedLength. A text that turns out longer is cut. Neither the format nor an
    /// argument may point into this string: its buffer may go before they are read.

    /// Replace the text. A conversion that fails and a text that is cut by more than one character report.
    void Format(const char* pszFormat, ...) __attribute__((format(printf, 2, 3)));
    void FormatV(const char* pszFormat, va_list oList) __attribute__((format(printf, 2, 0)));
    /// Append, without a report for a text that is cut; a format that is estimated at nothing appends nothing.
    void AppendFormat(const char* pszFormat, ...) __attribute__((format(printf, 2, 3)));
    void AppendFormatV(const char* pszFormat, va_list oList) __attribute__((format(printf, 2, 0)));

    /// An estimate of the formatted length; oList stays usable. Known are the conversions c C s S d i u x X o p e E g G
    /// f n with the size prefixes h, l and (but for c C s S) ll. Others report, count nothing and take no argument.
    /// A sum beyond INT_MAX reports and gives -1, a null format reports and gives 0.
    ///
    /// Must not be used, as this estimate and the C library read different arguments:
    /// - hh, z, j and t, a, A and F as conversions, the flag ', numbered arguments, and ll with c, C, s and S: the
    ///   estimate takes no argument for what it does not know;
    /// - L, and ll with e, E, f, g and G: the estimate takes a double, the C library a long double;
    /// - hS: the estimate takes a narrow text, the C library a wide one and reads beyond the narrow one's end;
    /// - a text without a NUL, whatever the precision: the estimate looks for the NUL.
    ///
    /// It is enough for every text but these:
    /// - an integer with a sign and a precision above 31, without a width;
    /// - p with a precision above 30 and a width below 2; with a sign, above 29 and below 3;
    /// - f with a width above 312 and its precision together, and f without a precision from magnitudes of 1e304 on;
    /// - e and g with a precision above 120;
    /// - a negative width or precision from an argument, which reports: the C library takes the width without its sign
    ///   and the precision as none;
    /// - wide characters in a locale that writes them as several bytes each. Where one byte is missing, such a
    /// character
    ///   is broken without a report.
    static int GetFormattedLength(const char* pszFormat, va_list oList) __attribute__((format(printf, 1, 0)));

    // ---- Tokens ----

    /// An iterator over a copy of this text, on its first token. pszSeparators is not copied and must outlive it.
    CIterator Begin(const char* pszSeparators) const;
    CIterator End() const;

    /// An empty string that is always there; not to be changed.
    static CMString* const m_poEmptyString;

protected:
    /// Header and NUL of the shared empty string.
    struct SInitData
    {
        SMetaData m_oMetaData;
        char m_acText[4];
    };
    static_assert(sizeof(SInitData) == 16, "the characters follow the header without a gap");

    static constexpr SInitData m_aiInitData = { { -1, 0, 0 }, { '\0', '\0', '\0', '\0' } };
    /// Constant all the same: nothing writes a header or a character of the shared empty string. The casts let it be
    /// used where buffers are.
    static constexpr SMetaData* m_poDataNil = const_cast<SMetaData*>(&m_aiInitData.m_oMetaData);
    static constexpr char* m_pszNil = const_cast<char*>(m_aiInitData.m_acText);

    SMetaData* GetMetaData() const
    {
        if (m_pszData == nullptr)
        {
            MASSERT_FAILED();
            return m_poDataNil;
        }
        return reinterpret_cast<SMetaData*>(m_pszData) - 1;
    }
    bool IsNil() const { return m_pszData == m_pszNil; }

    /// Takes a new buffer of exactly iLength characters, of which only the terminator is written; forgets the present
    /// one. A negative length or INT_MAX reports, leaves the shared empty string and gives false.
    bool AllocData(int iLength);
    /// Frees without a look at the count.
    static void FreeData(const SMetaData* poData);
    /// Gives up the share in the buffer; the string becomes the shared empty one.
    void Release();
    static void Release(SMetaData* poData);
    /// Becomes one more holder of a buffer that is not locked; holds none itself.
    void Share(const CMString& oSource);
    /// Gives a string that shares its buffer an exact one of its own.
    void CopyBeforeWrite();
    /// Makes room for iLength characters to be written; the text is lost where the buffer is replaced. False, with
    /// nothing changed, for a length that no buffer can have.
    bool AllocBeforeWrite(int iLength);
    /// iLength characters of pszText, which may lie in this string; 0 and null release the buffer.
    void AssignCopy(int iLength, const char* pszText);
    /// iCopyLength characters from iCopyIndex, and room for iExtraLength more.
    void AllocCopy(CMString& oDestination, int iCopyLength, int iCopyIndex, int iExtraLength) const;
    /// Fills a string that holds no buffer of its own. False when the sum is too long.
    bool ConcatCopy(int iLength1, const char* pszText1, int iLength2, const char* pszText2);

private:
    /// iLength characters at iIndex, which lies inside the text or at its end.
    int InsertText(int iIndex, int iLength, const char* pszText);
    /// Formats to the end of the text that stays in front of pszAt. The result is the length that the whole formatted
    /// text has, negative when a conversion failed.
    int PrintInto(char* pszAt, unsigned int uiSize, const char* pszFormat, va_list oList)
        __attribute__((format(printf, 4, 0)));
    /// Sets length and terminator; the buffer is private and long enough, or the shared empty string with length 0.
    void SetLength(int iLength);

    char* m_pszData; ///< never null
};

/// The pointer to the buffer does not depend on where the object lies.
template <>
inline constexpr bool gsc_bByteRelocatable<CMString> = true;

/// When memory runs out, making and copying an iterator leave no trace; an iterator that is assigned to is at its end.
class CMString::CIterator
{
public:
    /// The end state.
    CIterator() = default;
    /// On the first token of pszText, which is copied; without a token the end state. pszSeparators is not copied and
    /// must outlive the iterator; null reports and gives the end state.
    CIterator(const char* pszSeparators, const char* pszText);
    /// The copy walks the same cut-up text: advancing both is advancing in one buffer.
    CIterator(const CIterator& oSource);
    CIterator& operator=(const CIterator& oSource);
    ~CIterator();

    /// Frees the copy and goes to the end state.
    void Reset();

    CIterator& operator++();
    CIterator operator++(int);
    /// The current token; empty at the end.
    CMString operator*() const;

    /// Compare the texts of the four fields, not positions. Equal to End() exactly at the end.
    bool operator==(const CIterator& oOther) const;
    bool operator!=(const CIterator& oOther) const { return !(*this == oOther); }

private:
    void SetText(const CMString& oText);

    const char* m_pszSeparators = nullptr;
    CMString* m_poText = nullptr; ///< the copy being cut up; owned
    char* m_pszContext = nullptr; ///< position of the cutting
    char* m_pszToken = nullptr;   ///< inside the copy
};

#pragma GCC visibility pop
