// OsServices: the library's view of the operating system.
//
// The message members are static: they need no object, and they are all that the EDID side uses (target
// zor_os_messages). The other members come from the target zor_os_services, which also links threads and libpci.

#pragma once

class OsServices
{
public:
    // ---- Messages. One line on standard output: head "PREFIX[ID]: (Level) ", then the caller's text. ----
    // The caller's format carries its own line end. Head and text are two writes; nothing is flushed.
    // The switches are plain unlocked words: set them from one thread, before others write.

    static void WriteErrorMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2))); // "(Error)"
    static void WriteUserMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));  // "(Info)"
    static void WriteMsg(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));      // "(Debug)"

    // Writes the text at once, without gate and head.
    static void WriteMsgInternal(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));

    // The three gates. Any non-zero value is on; values are kept as given. At start: error and user on, debug off.
    static void SetMsgLevel(int bError, int bUser, int bInfo);
    // Each pointer may be null.
    static void GetMsgLevel(int* pbError, int* pbUser, int* pbInfo);

    // First field of the head, "nr4" at start; cut to 63 characters.
    static void SetMsgPrefix(const char* pszPrefix);
    // 0 leaves the head out.
    static void SetMsgPrefixEnable(int bEnable);
    // Second field of the head, 0 at start.
    static void SetMsgReferenceId(unsigned long uiId);

    // The part of a path behind its last slash or backslash, as a pointer into pszPath. A separator that is the very
    // first character does not count; a path that ends in a separator gives an empty text.
    static const char* GetFileNameOnlySubSring(const char* pszPath);

private:
    static constexpr unsigned int msc_uiMsgPrefixSize = 64; // characters, with the terminator

    static int ms_bEnableErrorMsg;
    static int ms_bEnableUserMsg;
    static int ms_bEnableInfo;
    static int ms_bIsMessagePrefixEnabled;
    static char ms_szMsgPrefix[msc_uiMsgPrefixSize];
    static unsigned long ms_uiReferenceId;
};
