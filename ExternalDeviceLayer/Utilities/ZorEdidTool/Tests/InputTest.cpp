// The readers of the command: texts of other tools against the bytes that they mean, or against the refusal.

#include <gtest/gtest.h>

#include <string>

#include "Connectors.h"
#include "Input.h"
#include "ScratchFolder.h"
#include "TemporaryFile.h"
#include "TextFormat.h"

namespace
{
using namespace std::string_literals;

SInput Decode(const std::string& sName, const std::string& sContent, const std::string& sMonitor = "")
{
    return DecodeInputs(sName, sContent, sMonitor).front();
}

SInput ReadOne(const std::string& sName) { return ReadInputs(sName).front(); }

std::string Repeat(const std::string& sText, size_t uiTimes)
{
    std::string sAll;
    for (size_t i = 0; i < uiTimes; ++i)
    {
        sAll += sText;
    }
    return sAll;
}

// Two bytes a character, the low one first.
std::string Widen(const std::string& sText)
{
    std::string sWide;
    for (const char cOne : sText)
    {
        sWide += { cOne, '\0' };
    }
    return sWide;
}

struct SFormCase
{
    const char* m_pszName;
    std::string m_sText;
    const char* m_pszForm;
    std::string m_sBytes; // as ParseBytes takes them
};

void PrintTo(const SFormCase& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }

class InputForm : public testing::TestWithParam<SFormCase>
{
};

TEST_P(InputForm, GivesItsBytes)
{
    const SInput oInput = Decode("x", GetParam().m_sText);
    EXPECT_EQ("", oInput.m_sProblem);
    EXPECT_EQ(GetParam().m_pszForm, oInput.m_sForm);
    EXPECT_EQ(ParseBytes(GetParam().m_sBytes), oInput.m_aui8Bytes);
}

constexpr char gsc_szXxd[] = "xxd dump";
constexpr char gsc_szOd[] = "dump with addresses";
constexpr char gsc_szDigits[] = "hexadecimal digits";
constexpr char gsc_szArray[] = "C array";
constexpr char gsc_szBase64[] = "base64";
constexpr char gsc_szRegistry[] = "Windows registry export";
constexpr char gsc_szXrandr[] = "xrandr --verbose";

const SFormCase gsc_aoDumps[] = {
    { "TextThatLooksLikeBytes", "00000000: 00ff  beef cafe\n00000002: 10  ab\n", gsc_szXxd, "00 FF 10" },
    { "ByteGroupsAndNoLastLineEnd", "00000000: 00 ff 10 20", gsc_szXxd, "00 FF 10 20" },
    { "CarriageReturns", "00000000: 00ff\r\n00000002: 10\r\n", gsc_szXxd, "00 FF 10" },
    { "UpperCaseAndTabs", "\t0000:\t00FF\n\t0002:\t1A\n", gsc_szXxd, "00 FF 1A" },
    { "LongestAddress", "000000000000: 00ff\n000000000002: 10\n", gsc_szXxd, "00 FF 10" },
    { "LinesAheadAndBehind", "$ xxd a1\n10: 22\n00000000: 00ff\n\n00000002: 10\n$ exit\n00000003: 11\n", gsc_szXxd,
      "00 FF 10" },
    { "HeadOfBusDump", "     0  1  2  3    0123\n00: 00 ff ff 00    ....\n04: aa bb    ab\n", gsc_szXxd,
      "00 FF FF 00 AA BB" },
    { "TextBehindBar", "00000000  00 ff  |7f|\n00000002  10       |00|\n00000003\n", gsc_szOd, "00 FF 10" },
    { "TextBehindAngle", "0000000 00 ff  >7f<\n0000002\n", gsc_szOd, "00 FF" },
    { "WordsLowByteFirst", "0000000 ff00 0110\n0000004 0002\n", gsc_szOd, "00 FF 10 01 02 00" },
    { "LongWordsLowByteFirst", "0000000 33221100 77665544\n", gsc_szOd, "00 11 22 33 44 55 66 77" },
    { "OctalWords", "0000000 177400 000401\n", gsc_szOd, "00 FF 01 01" },
    { "OctalBytes", "0000000 000 377 012\n", gsc_szOd, "00 FF 0A" },
    // Only the second address reveals the radix: 18 bytes are 22 in octal digits and 12 in hexadecimal ones.
    { "OctalAddresses", "000000 " + Repeat("aa ", 18) + "\n000022 bb\n", gsc_szOd, "AA*18 BB" },
    { "DecimalAddresses", "000000 " + Repeat("aa ", 18) + "\n000018 bb\n", gsc_szOd, "AA*18 BB" },
    { "HexadecimalAddresses", "000000 " + Repeat("aa ", 18) + "\n000012 bb\n", gsc_szOd, "AA*18 BB" },
    { "StarRepeatsTheLastLine", "000000  01 02\n000002  03 04\n*\n000008  05\n000009\n", gsc_szOd,
      "01 02 03 04 03 04 03 04 05" },
    { "StarAheadOfTheEnd", "00000000: 0102\n*\n00000006:\n", gsc_szXxd, "01 02 01 02 01 02" },
    { "StarOfNoLine", "00000000: 0102\n*\n00000002: 03\n", gsc_szXxd, "01 02 03" },
    { "StarInTheRadixOfTheLinesAhead",
      "000000 " + Repeat("aa ", 16) + "\n000020 " + Repeat("aa ", 16) + "\n*\n000100 bb\n000101\n", gsc_szOd,
      "AA*64 BB" },
};
INSTANTIATE_TEST_SUITE_P(Dumps, InputForm, testing::ValuesIn(gsc_aoDumps),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

const SFormCase gsc_aoDigits[] = {
    { "AnySeparators", "00,fF;10:20-30\t40\v50\f60\n\n70\r\n", gsc_szDigits, "00 FF 10 20 30 40 50 60 70" },
    { "OneLineWithoutSeparators", "00ff10\n", gsc_szDigits, "00 FF 10" },
    { "ByteOrderMark",
      "\xEF\xBB\xBF"
      "00 ff\n",
      gsc_szDigits, "00 FF" },
    { "TwoBytesACharacter", "\xFF\xFE" + Widen("00 fF\n"), gsc_szDigits, "00 FF" },
    { "ShortWordAheadIsNoStart", "Dump:\nbeef\n00ff102030405060\n70\n", gsc_szDigits, "00 FF 10 20 30 40 50 60 70" },
    { "WordsEndThem", "\n00 ff\nBlock 0\n10 20\n", gsc_szDigits, "00 FF" },
    // Block 0 announces none: what follows is another image.
    { "DigitsOfAnotherImage", Repeat("00 ", 127) + "ff\nNext\n" + Repeat("11 ", 128), gsc_szDigits, "00*127 FF" },
    { "ArrayOfAnotherImage", "{ " + Repeat("0,", 128) + " } x[] = { 1 };", gsc_szArray, "00*128" },
    { "RulerEndsThem", "00 ff\n-----\n10 20\n", gsc_szDigits, "00 FF" },
    { "VeryLongLine", Repeat("00 ", 32767) + "ff", gsc_szDigits, "00*32767 FF" },
    { "ArrayWithComments", "/* {1,2} */ x[] = { 0, /* 0x10 */ 0XfF, // 7 }\n 010, 8u, }; // {9}", gsc_szArray,
      "00 FF 08 08" },
    { "ArrayBehindOtherBraces", "struct { int a; } x = { 7, 255U };", gsc_szArray, "07 FF" },
    { "ArrayOfRows", "a[][2] = {\n { 1, 2 }, // row\n /* last */ { 3, 4 },\n};\nb[] = { 5 };", gsc_szArray,
      "01 02 03 04" },
    { "ArrayEndsAtItsBrace", "a[] = { 1, 2 } ; { 3 }", gsc_szArray, "01 02" },
    { "NumbersWithoutBraces", "// {1}\n0x00 0xff,\n12\n", gsc_szArray, "00 FF 0C" },
    // 1024 bits are 170 digits and four bits.
    { "Base64", std::string(170, '/') + "8=", gsc_szBase64, "FF*128" },
    { "Base64OfAddressesWithoutPadding", std::string(170, '_') + "8", gsc_szBase64, "FF*128" },
    { "Base64OfAddresses", Repeat("-_", 86), gsc_szBase64, Repeat("FB FF BF ", 43) },
    { "Base64InLines", std::string(76, '+') + "\r\n" + std::string(76, '+') + "\r\n" + std::string(20, '+') + "\r\n",
      gsc_szBase64, Repeat("FB EF BE ", 43) },
    { "Base64Address", "data:x/y;base64," + std::string(170, '/') + "8=\n", gsc_szBase64, "FF*128" },
    // Three blocks, of which no digit marks the end: "exit" could be more of them.
    { "Base64BetweenEndsWithItsBlocks",
      "$ base64 x\nAP///////w" + std::string(118, 'A') + "\n" + std::string(41, 'A') + "g" + std::string(86, 'A') +
          "\n" + Repeat(std::string(128, 'A') + "\n", 2) + "exit\n",
      gsc_szBase64, "00 FF*6 00*119 02 00*257" },
    { "RegistryWithType", "\"EDID\"=hex(3):00,ff,\\\r\n  10\r\n\"Next\"=hex:11\r\n", gsc_szRegistry, "00 FF 10" },
    { "RegistryWithBlanksBehindTheMark", "REGEDIT4\n\"edid\"=hex:00, ff,\\ \n 10,\\", gsc_szRegistry, "00 FF 10" },
    { "RegistryOthersAreNotRead", "\"Other\"=hex:0,zz\n\"EDID\"=hex:00\n", gsc_szRegistry, "00" },
    { "RegistryOverride",
      "[X]\n\"0\"=hex:01\n[M]\n\"1\"=hex:10" + Repeat(",10", 127) + "\n\"0\"=hex:00" + Repeat(",00", 127) + "\n",
      gsc_szRegistry, "00*128 10*128" },
    { "RegistryEdidBehindOverride", "\"0\"=hex:00\n\"EDID\"=hex:11\n\"1\"=hex:22\n", gsc_szRegistry, "11" },
    { "XrandrEndsAtOtherLine", "DP-1\n\tEDID:\n\t\t00ff\n\t\t10\n\tGamma: 1\n\t\t20\n", gsc_szXrandr, "00 FF 10" },
    { "XrandrOutputWithoutDigits", "\tEDID:\n\tnone\n\tEDID_DATA:\n\t\t00ff\n", gsc_szXrandr, "00 FF" },
    { "XrandrSecondOutput", "\tEDID:\n\t\t00\n\tEDID:\n\t\t11\n\tEDID:\n\t\t2\n",
      "xrandr --verbose, the first EDID of 3", "00" },
    { "DdcDumpOfTwo",
      "I2C bus: /dev/i2c-4\nEDID hex dump:\nnone\nDRM connector: card1-DP-1\nEDID hex dump:\n +0\n +0000   00 ff  00\n"
      "EDID hex dump:\n +0000  01\n",
      "ddcutil dump, the first EDID of 2", "00 FF" },
    { "IoRegistryInOneLine", "{\"EDID\"=\"x\",\"MyEDID\"=<01>,\"EDID\"=<00ff>,\"IODisplayEDID\" = <00ff>}",
      "ioreg dump", "00 FF" },
    { "ModetestOfTwo",
      "9\t0\tdisconnected\tDP-1\n\t1 EDID:\n\t\tvalue:\n\n\t2 A:\n\t\tvalue:\n\t\t\t22\n"
      "9\t8\tconnected\tDP-2\n\t1 EDID:\n\t\tvalue:\n\t\t\t00ff\n\t\t\t10\n\t2 A:\n\t\t\t33\n",
      "modetest output", "00 FF 10" },
    { "RegistryQueryOfOverrides",
      "HKEY_X\n  0  REG_BINARY  0102\nHKEY_M1\n  0  REG_BINARY  " + Repeat("00", 128) +
          "\n  A b  REG_BINARY  7\nHKEY_M2\n  0  REG_BINARY  " + Repeat("00", 128) + "\n  1  REG_BINARY  " +
          Repeat("10", 128) + "\n",
      "reg query output, the first EDID of 2", "00*128" },
    { "NulMakesItRaw", "00 ff\n\0"s, "raw image", "30 30 20 66 66 0A 00" },
    { "RawLikeAByteOrderMark", "\xFF\xFE\0\0"s, "raw image", "FF FE 00 00" },
    { "BytesOfADeadBus", std::string(256, '\xFF'), "raw image", "FF*256" },
    { "ByteThatEndsNoCharacter", "\x80", "raw image", "80" },
    { "ControlCharacters", "00 \x02\x03", "raw image", "30 30 20 02 03" },
    { "DumpUnderOtherCharacters",
      "Gr\xF6\xDF"
      "e\n00000000: 00ff\n",
      gsc_szXxd, "00 FF" },
    { "RawOfMostBlocks", std::string(32768, '\0'), "raw image", "00*32768" },
};
INSTANTIATE_TEST_SUITE_P(Others, InputForm, testing::ValuesIn(gsc_aoDigits),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

// The form that a text was taken for, and why it holds no image.
TEST(InputRefusals, HaveTheirReasonAndNoBytes)
{
    const struct
    {
        std::string m_sText;
        const char* m_pszProblem;
    } aoCases[] = {
        { "", "is empty" },
        { "\xEF\xBB\xBF \r\n", "is empty" },
        { "\xFF\xFE", "is empty" },
        { "no EDID\n", "in no known form: no image, no digits, no base64" },
        { "\x1B[1mGr\xC3\xB6\xC3\x9F"
          "e\x1B[m\t\n",
          "in no known form: no image, no digits, no base64" },
        { "{ -1 }", "in no known form: no image, no digits, no base64" },
        { "0 1 2", "hexadecimal digits: line 1: an odd number of digits" },
        { "\n00 ff\n0 10\n", "hexadecimal digits: line 3: an odd number of digits" },
        { "00 ff\n10 2x\n", "hexadecimal digits: line 2: not hexadecimal bytes" },
        { "00 ff\n*\n", "hexadecimal digits: line 2: a star replaces repeated lines (od -v prints them)" },
        { "ffffff00 00ffffff", "hexadecimal digits whose bytes are swapped in each word (od -tx1 prints bytes)" },
        { "00000000: ff00 ffff ffff 00ff\n", "xxd dump whose bytes are swapped in each word (od -tx1 prints bytes)" },
        { Repeat("00 ", 126) + "02 00\nBlock 1\n" + Repeat("00 ", 8),
          "hexadecimal digits: line 2: ends the digits with fewer blocks than announced, and more follow" },
        // A line is missing, comes twice, or is in the wrong place.
        { "00000000: 00ff\n00000004: 10\n", "xxd dump: line 2: its address does not follow the bytes before it" },
        { "00000000: 00ff\n00000000: 00ff\n", "xxd dump: line 2: its address does not follow the bytes before it" },
        { "00000000: 00ff\n00000002: 0g\n", "xxd dump: line 2: not hexadecimal or octal bytes" },
        { "00: 00 ff\n02: XX XX\n", "xxd dump: line 2: not hexadecimal or octal bytes" },
        { "0000000 00 ff\n0000002 10000\n", "dump with addresses: line 2: not hexadecimal or octal bytes" },
        { "0000000 000 377\n0000002 400\n", "dump with addresses: line 2: not hexadecimal or octal bytes" },
        { "0000000 177777\n0000002 200000\n", "dump with addresses: line 2: not hexadecimal or octal bytes" },
        { "00000000: 00ff\n*\n00000005: 10\n", "xxd dump: line 3: its address does not follow the bytes before it" },
        { "000000 " + Repeat("aa ", 18) + "\n000022 " + Repeat("bb ", 18) + "\n000036 cc\n",
          "dump with addresses: line 3: its address does not follow the bytes before it" }, // 44 in octal digits
        { "0000000 00\n*\n4000000 01\n", "dump with addresses of more than 256 blocks" },
        { "{ 1,\n256 }", "C array: line 2: a number from 0 to 255 is missing in the array" },
        { "{ 1, 0x100 }", "C array: line 1: a number from 0 to 255 is missing in the array" },
        { "{ 08 }", "C array: line 1: a number from 0 to 255 is missing in the array" },
        { "{ 0x }", "C array: line 1: a number from 0 to 255 is missing in the array" },
        { "{ 1, 2", "C array: line 1: a number from 0 to 255 is missing in the array" },
        { "{ 1, /* 2 }", "C array: line 1: a number from 0 to 255 is missing in the array" },
        { "{ " + Repeat("1,", 128) + "}; y[] = { 3 };",
          "C array: an array with fewer blocks than it announces, and another array after it" },
        { "{ " + Repeat("1,", 32769) + "}", "C array of more than 256 blocks" },
        { Repeat("00", 32769), "hexadecimal digits of more than 256 blocks" },
        { std::string(32769, '\0'), "raw image of more than 256 blocks" },
        { std::string(173, '/'), "base64: ends in the middle of a byte" },
        { std::string(168, '/') + "==", "in no known form: no image, no digits, no base64" }, // 126 bytes
        { std::string(76, '/') + "\n" + std::string(96, '/'), "in no known form: no image, no digits, no base64" },
        { "REGEDIT4\n\"Other\"=hex:00\n", "Windows registry export: a registry export without a value EDID" },
        { "\"EDID\"=hex:00,\\\n  0\n",
          "Windows registry export: line 2: a byte has two hexadecimal digits; decimal ones are not read" },
        { "\"0\"=hex:00\n\n\"EDID\"=hex:0x,00\n",
          "Windows registry export: line 3: a byte has two hexadecimal digits; decimal ones are not read" },
        { "EDID:\n\t00f\n", "xrandr --verbose: line 2: an odd number of digits" },
        { "EDID:\n\tnone\n", "xrandr --verbose without a digit" },
        { "Screen 0: minimum 320 x 200\nDP-1 disconnected (normal)\nDP-2 connected 640x480+0+0\n   640x480 60.00\n",
          "xrandr: this output has no EDID; run xrandr --verbose (or xrandr --prop)" },
        { "[ 3.1] Raw EDID:\n[ 3.1] none\n", "in no known form: no image, no digits, no base64" },
        { "EDID hex dump:\n +0000   00 ff\n +0010   00\n",
          "ddcutil dump: line 3: its address does not follow the bytes before it" },
        { "HKEY_X\n  Other  REG_BINARY  00\n", "reg query output: no value EDID" },
        { "HKEY_X\n  EDID  REG_BINARY  00f\n", "reg query output: line 2: not hexadecimal bytes" },
        { "HKEY_M\\EDID_OVERRIDE\n  0  REG_BINARY  00\n",
          "reg query output: value 0 of an override has not 128 bytes" },
        { "[M\\EDID_OVERRIDE]\n\"1\"=hex:00\n",
          "Windows registry export: an override without the value of each block, from 0 on" },
        { "EDID:\n\t00ff\n\tO0ff\n", "xrandr --verbose: line 3: not hexadecimal bytes" },
        { "1 EDID:\n value:\n  0gff\n  00ff\n", "modetest output: line 3: not hexadecimal bytes" },
        { "1 EDID:\n value:\n  00ff\n[ 1.2] usb: new\n  00\n", "modetest output: line 4: not hexadecimal bytes" },
        { "1 EDID:\n value:\n  00f\n", "modetest output: line 3: an odd number of digits" },
        { "{\n\"EDID\" = <00f>\n}", "ioreg dump: line 2: not hexadecimal bytes" },
        { gsc_sTableMarker + "\n", "text table: no rows of bytes after the marker line" },
        { MakeTextTable(CBytes(130)), "text table: its table has 130 bytes, not a multiple of 128" },
    };
    for (const auto& oCase : aoCases)
    {
        const SInput oInput = Decode("x", oCase.m_sText);
        EXPECT_EQ(oCase.m_pszProblem, oInput.m_sProblem) << oCase.m_sText.substr(0, 60);
        EXPECT_EQ(oInput.IsGood(), !oInput.m_aui8Bytes.empty()) << oCase.m_sText.substr(0, 60);
    }
}

TEST(InputMonitors, AreChosenByNameOrNumber)
{
    constexpr char szTwo[] = "DP-1 connected \n EDID:\n 00\nDP-2 connected \n EDID:\n 11\n";
    // A damaged one, one without digits, one that comes twice, one of the same name, and one whose name is a number.
    constexpr char szMany[] =
        "a connected \n EDID:\n 000\nb connected \n EDID:\nc connected \n EDID:\n 11\n EDID_DATA:\n "
        "11\n EDID:\n 22\n1 connected \n EDID:\n 33\n";
    const char szCards[] = "DRM connector: card0-DP-2\nEDID hex dump:\n +0000 00\n"
                           "DRM connector: card0-DP-1\nEDID hex dump:\n +0000 11\n"
                           "DRM connector: card1-DP-2\nEDID hex dump:\n +0000 22\n";
    const struct
    {
        const char* m_pszText;
        const char* m_pszMonitor;
        const char* m_pszBytes;
        const char* m_pszSaid; // form and hint, or problem
    } aoCases[] = {
        { szTwo, "", "00",
          "xrandr --verbose, the first EDID of 2|the first EDID of 2 is read, that of DP-1; "
          "--monitor chooses: 1 DP-1, 2 DP-2" },
        { szTwo, "DP-2", "11", "xrandr --verbose, EDID 2 of 2|" },
        { szTwo, "1", "00", "xrandr --verbose, EDID 1 of 2|" },
        { szTwo, "dp-2", "11", "xrandr --verbose, EDID 2 of 2|" },
        { szTwo, "DP-3", "", "xrandr --verbose: no monitor 'DP-3'; there are 1 DP-1, 2 DP-2" },
        { szTwo, "0", "", "xrandr --verbose: no monitor '0'; there are 1 DP-1, 2 DP-2" },
        { szMany, "2", "11", "xrandr --verbose, EDID 2 of 4|" },
        { szMany, "c", "", "xrandr --verbose: several EDIDs of the monitor 'c'; there are 1 a, 2 c, 3 c, 4 1" },
        { szMany, "1", "33", "xrandr --verbose, EDID 4 of 4|" },
        { szMany, "", "",
          "xrandr --verbose, the first EDID of 4: line 3: an odd number of digits; --monitor chooses: 1 a, 2 c, 3 c, 4 "
          "1" },
        { szCards, "DP-1", "11", "ddcutil dump, EDID 2 of 3|" },
        { szCards, "card1-dp-2", "22", "ddcutil dump, EDID 3 of 3|" },
        { szCards, "DP-2", "",
          "ddcutil dump: several EDIDs of the monitor 'DP-2'; there are 1 card0-DP-2, 2 card0-DP-1, 3 card1-DP-2" },
        { "00 ff", "1", "00 FF", "hexadecimal digits|" },
        { "00 ff", "DP-1", "", "hexadecimal digits: no monitor 'DP-1'; there is only 1" },
        { "0", "DP-1", "", "hexadecimal digits: line 1: an odd number of digits" },
    };
    for (const auto& oCase : aoCases)
    {
        const SInput oInput = Decode("x", oCase.m_pszText, oCase.m_pszMonitor);
        EXPECT_EQ(oCase.m_pszSaid, oInput.IsGood() ? oInput.m_sForm + "|" + oInput.m_sHint : oInput.m_sProblem);
        EXPECT_EQ(ParseBytes(oCase.m_pszBytes), oInput.m_aui8Bytes) << oCase.m_pszSaid;
    }
}

TEST(InputMonitors, AreAllTaken)
{
    // Damaged, twice with one name, and without a name.
    const CInputs aoInputs = DecodeInputs(
        "x", "a connected \n EDID:\n 000\nc connected \n EDID:\n 11\n EDID:\n 22\nd connected\n EDID:\n 33\n", "ALL");
    const struct
    {
        const char* m_pszName;
        const char* m_pszMonitor;
        const char* m_pszSaid; // form, or problem
        const char* m_pszBytes;
    } aoCases[] = {
        { "x (a)", "a", "xrandr --verbose, EDID 1 of 4: line 3: an odd number of digits", "" },
        { "x (EDID 2)", "c", "xrandr --verbose, EDID 2 of 4", "11" },
        { "x (EDID 3)", "c", "xrandr --verbose, EDID 3 of 4", "22" },
        { "x (d)", "d", "xrandr --verbose, EDID 4 of 4", "33" },
    };
    ASSERT_EQ(std::size(aoCases), aoInputs.size());
    for (size_t i = 0; i < aoInputs.size(); ++i)
    {
        EXPECT_EQ(aoCases[i].m_pszName, aoInputs[i].m_sName);
        EXPECT_EQ("x", aoInputs[i].GetFile());
        EXPECT_EQ(aoCases[i].m_pszMonitor, aoInputs[i].m_sMonitor);
        EXPECT_EQ(aoCases[i].m_pszSaid, aoInputs[i].IsGood() ? aoInputs[i].m_sForm : aoInputs[i].m_sProblem);
        EXPECT_EQ(ParseBytes(aoCases[i].m_pszBytes), aoInputs[i].m_aui8Bytes);
        EXPECT_EQ("", aoInputs[i].m_sHint);
    }
    EXPECT_EQ("x", Decode("x", "00 ff", "all").m_sName); // the only one
}

// Sixteen bytes a line, each after what the logger adds; "[00]" is the number of its block.
std::string Log(std::string sAdded, const CBytes& aui8Bytes)
{
    const size_t uiBlock = sAdded.find("[00]");
    std::string sText;
    for (size_t i = 0; i < aui8Bytes.size(); ++i)
    {
        if (uiBlock != std::string::npos)
        {
            sAdded[uiBlock + 2] = static_cast<char>('0' + i / 128);
        }
        char szByte[8];
        snprintf(szByte, sizeof(szByte), i % 16 == 15 ? " %02x\n" : " %02x", aui8Bytes[i]);
        sText += i % 16 == 0 ? sAdded + (szByte + 1) : szByte;
    }
    return sText;
}

// A base block that announces this many more, and those.
CBytes MakeNumbered(unsigned char ui8Blocks, unsigned char ui8First = 1)
{
    CBytes aui8Image(128U * (1U + ui8Blocks));
    std::iota(aui8Image.begin(), aui8Image.end(), ui8First);
    const CBytes aui8Head = ParseBytes("00 FF*6 00");
    std::copy(aui8Head.begin(), aui8Head.end(), aui8Image.begin());
    aui8Image[126] = ui8Blocks;
    return aui8Image;
}

TEST(InputLogs, GiveTheirBytesWhateverTheLoggerAdds)
{
    const CBytes aui8Image = MakeNumbered(1);
    const std::pair<const char*, const char*> aoCases[] = {
        // The line before, and what each line begins with.
        { "", "[    18.2] (II) modeset(0): \t" },
        { "", "Nov 26 12:00:00 host /usr/lib/x[2345]: (II) intel(0): \t" },
        { "", "kernel:  \t[00] GOOD " },
        { "Raw EDID:\n", " \t" },
        { "[drm] Raw EDID:\n", "[Thu Nov 26 12:00:00 2026]  \t" },
        { "[ 3.1] Raw EDID:\n", "[    3.1] 00: " },
        { "host kernel: Raw EDID:\n", "2026-11-26T12:00:00+01:00 host kernel:  \\x09" },
        { "eDP-1: EDID is invalid:\r\n", "[    3.1]  #011[00] BAD  " },
    };
    for (const auto& [pszHead, pszAdded] : aoCases)
    {
        const SInput oInput = Decode("x", pszHead + Log(pszAdded, aui8Image));
        EXPECT_EQ("", oInput.m_sProblem) << pszAdded;
        EXPECT_EQ(aui8Image, oInput.m_aui8Bytes) << pszAdded;
    }
    std::string sText = Log("[ 3.1] \t", aui8Image);
    std::string sGaps = sText;
    for (size_t uiEnd = sText.find('\n'); uiEnd != std::string::npos; uiEnd = sText.find('\n', uiEnd + 20))
    {
        sText.insert(uiEnd, "  ..: a] 12  0f \"x"); // the bytes as characters
    }
    EXPECT_EQ(aui8Image, Decode("x", sText).m_aui8Bytes);
    for (size_t uiEnd = sGaps.find('\n'); uiEnd != std::string::npos; uiEnd = sGaps.find('\n', uiEnd + 20))
    {
        sGaps.insert(uiEnd, "  ..: a] 12  0f \"x");
        sGaps.insert(uiEnd - 8 * 3, " "); // between two times eight bytes
    }
    EXPECT_EQ(aui8Image, Decode("x", sGaps).m_aui8Bytes);
}

TEST(InputLogs, HoldOtherLinesAndSeveralEdids)
{
    const CBytes aui8One = MakeNumbered(0);
    const CBytes aui8Two = MakeNumbered(1, 7);
    const CBytes aui8Damaged = ParseBytes("2A*126 00 2A");
    const std::string sTwo = Log("x: ", aui8Two);
    const size_t uiLine = sTwo.size() / 16;
    const std::string sText = "[CONNECTOR:95:eDP-1] EDID is invalid:\n" + Log("[00] BAD ", aui8Damaged) + "z\n" +
                              Log("z: ", aui8Damaged) + // after all blocks
                              "y: DP-1: EDID is invalid:\n" + sTwo.substr(0, 3 * uiLine) + "usb 1-1: 12 34\n" +
                              sTwo.substr(3 * uiLine, 5 * uiLine) + "y\n" + sTwo.substr(8 * uiLine) +
                              "EDID for output VGA-1\nEDID (in hex):\n" + Log("x: ", aui8One) + Log("x: ", aui8One) +
                              Log("[00] GOOD ", MakeNumbered(0, 2)) + Log("[00] GOOD ", MakeNumbered(0, 3)) +
                              "EDID for output DVI-0\nEDID (in hex):\nEDID for output DVI-1\nRaw EDID:\n" +
                              sTwo.substr(0, 3 * uiLine) + Repeat("y\n", 17) + sTwo.substr(3 * uiLine);
    EXPECT_EQ("the first EDID of 6 is read, that of eDP-1; "
              "--monitor chooses: 1 eDP-1, 2 DP-1, 3 VGA-1, 4, 5, 6 DVI-1",
              Decode("x", sText).m_sHint);
    EXPECT_EQ(aui8Damaged, Decode("x", sText).m_aui8Bytes);
    EXPECT_EQ(aui8Two, Decode("x", sText, "DP-1").m_aui8Bytes);
    EXPECT_EQ(aui8One, Decode("x", sText, "VGA-1").m_aui8Bytes);
    EXPECT_EQ(MakeNumbered(0, 3), Decode("x", sText, "5").m_aui8Bytes);
    EXPECT_NE(std::string::npos, Decode("x", sText, "6").m_sProblem.find("an EDID that breaks off after 48 bytes"));
}

// The names, images and sizes of all inputs, the first one's text about the file, or its problem.
std::string Summarise(const CInputs& aoInputs)
{
    std::string sText;
    for (const SInput& oInput : aoInputs)
    {
        sText += oInput.m_sName + ": image " + std::to_string(oInput.m_uiImage) + ", " +
                 std::to_string(oInput.m_aui8Bytes.size()) + " bytes; ";
    }
    return sText + (aoInputs[0].IsGood() ? aoInputs[0].m_sImages : aoInputs[0].m_sProblem);
}

TEST(InputImages, AreThoseThatFollowTheCountedBlocks)
{
    const CBytes aui8One = FixChecksums(MakeNumbered(0, 9));
    const CBytes aui8Two = FixChecksums(MakeNumbered(1));
    const CBytes aui8Three = FixChecksums(MakeNumbered(2, 5));
    const CBytes aui8Base(aui8Three.begin(), aui8Three.begin() + 128);
    const CBytes aui8Extension(aui8Three.begin() + 128, aui8Three.begin() + 256);
    const CBytes aui8Damaged = WithChange(aui8One, 20, 0xAA);
    const CBytes aui8Header = ParseBytes("00 FF*6 00");
    // One by byte 126, two by the first data block of block 1.
    const CBytes aui8Override = FixChecksums(
        Join({ CBytes(aui8Two.begin(), aui8Two.begin() + 128), ParseBytes("02 03 07 00 E2 78 02 00*121") }));
    const std::string sTwo = "x (image 1): image 1, 256 bytes; x (image 2): image 2, ";
    const std::string sHolds = "the file holds two EDIDs, the second begins at block ";
    const struct
    {
        const char* m_pszName;
        CBytes m_aui8Bytes;
        std::string m_sInputs;
    } aoCases[] = {
        { "one after the other", Join({ aui8Two, aui8One }), sTwo + "128 bytes; " + sHolds + "2" },
        { "a damaged one", Join({ aui8Two, aui8Damaged }), sTwo + "128 bytes; " + sHolds + "2" },
        { "blocks that none counts", Join({ aui8One, aui8Extension, aui8Two }), sTwo + "256 bytes; " + sHolds + "2" },
        { "cut short", Join({ aui8Two, aui8Header }), sTwo + "8 bytes; " + sHolds + "2" },
        { "a header cut short", Join({ aui8Two, ParseBytes("00 FF*6") }), "x: image 0, 263 bytes; " },
        { "not at a block", Join({ aui8Two, ParseBytes("00"), aui8One }), "x: image 0, 385 bytes; " },
        { "nothing at the beginning", Join({ aui8Extension, aui8Two }), "x: image 0, 384 bytes; " },
        { "one twice", Join({ aui8Two, aui8Two }), "x: image 1, 256 bytes; " + sHolds + "2 (the same as the first)" },
        { "one again", Join({ aui8Two, aui8One, aui8Two }),
          sTwo +
              "128 bytes; the file holds three EDIDs, the second begins at block 2, the third at block 3 (the same as "
              "the first)" },
        { "another one in place of an extension block", Join({ aui8Base, aui8Extension, aui8One }),
          sTwo + "128 bytes; " + sHolds + "2" },
        { "a damaged block among those counted", Join({ aui8Base, aui8Extension, aui8Damaged }),
          "x: image 0, 384 bytes; " },
        { "the base block among those counted", Join({ aui8Base, aui8Extension, aui8Base }),
          "x: image 0, 384 bytes; " },
        { "counted by the override", Join({ aui8Override, aui8Damaged }), "x: image 0, 384 bytes; " },
        { "after those of the override", Join({ aui8Override, aui8Extension, aui8One }),
          "x (image 1): image 1, 384 bytes; x (image 2): image 2, 128 bytes; " + sHolds + "3" },
    };
    for (const auto& oCase : aoCases)
    {
        const std::string sBytes(oCase.m_aui8Bytes.begin(), oCase.m_aui8Bytes.end());
        EXPECT_EQ(oCase.m_sInputs, Summarise(DecodeInputs("x", sBytes))) << oCase.m_pszName;
    }
}

TEST(InputImages, AreChosenByNumber)
{
    const CBytes aui8One = MakeNumbered(0, 9);
    const CBytes aui8Two = MakeNumbered(1);
    const std::string sBoth = Log("\t", Join({ aui8Two, aui8One }));
    EXPECT_EQ(aui8Two, DecodeInputs("x", sBoth, "", 1)[0].m_aui8Bytes);
    const SInput oSecond = DecodeInputs("x", sBoth, "", 2)[0];
    EXPECT_EQ(aui8One, oSecond.m_aui8Bytes);
    EXPECT_EQ("hexadecimal digits, image 2 of 2", oSecond.m_sForm);
    EXPECT_EQ("x: image 2, 128 bytes; ", Summarise({ oSecond }));
    EXPECT_EQ("x: image 0, 0 bytes; no image 3; the file holds two EDIDs, the second begins at block 2",
              Summarise(DecodeInputs("x", sBoth, "", 3)));
    EXPECT_EQ("x: image 0, 128 bytes; ", Summarise(DecodeInputs("x", Log("\t", aui8One), "", 1)));
    EXPECT_EQ("x: image 0, 0 bytes; no image 2; the file holds one EDID",
              Summarise(DecodeInputs("x", Log("\t", aui8One), "", 2)));
    // Of a monitor in a text.
    const std::string sKey = "DRM connector: card0-DP-1\nEDID hex dump:\n";
    std::string sDump = sKey;
    for (size_t i = 0; i < 24; ++i)
    {
        sDump += FormatText(" +%04zx", 16 * i) + sBoth.substr(49 * i, 49);
    }
    sDump += sKey + " +0000 00 ff\n";
    EXPECT_EQ("x (EDID 1) (image 1): image 1, 256 bytes; x (EDID 1) (image 2): image 2, 128 bytes; "
              "x (EDID 2): image 0, 2 bytes; the file holds two EDIDs, the second begins at block 2",
              Summarise(DecodeInputs("x", sDump, "all")));
}

// Columns and line ends of its rows are those of the library's reader.
TEST(InputTable, GivesItsBytesWhereverTheMarkerStands)
{
    CBytes aui8Image(256);
    std::iota(aui8Image.begin(), aui8Image.end(), static_cast<unsigned char>(0));
    for (const std::string& sText :
         { MakeTextTable(aui8Image), MakeTextTable(aui8Image, 16, "\r\n"), MakeTextTable(aui8Image).substr(24) })
    {
        const SInput oInput = Decode("x", sText);
        EXPECT_EQ("", oInput.m_sProblem);
        EXPECT_EQ("text table", oInput.m_sForm);
        EXPECT_EQ(aui8Image, oInput.m_aui8Bytes);
    }
}

// ---- Files and connectors ----

class InputFiles : public CScratchFolder
{
protected:
    ~InputFiles() override { SetConnectorFolder(m_sConnectors); }

    const std::string m_sConnectors = GetConnectorFolder();
};

TEST_F(InputFiles, AreReadToTheEndOrRefused)
{
    EXPECT_EQ(ParseBytes("00 FF"), ReadOne(Write("a.dat", "00 ff")).m_aui8Bytes);
    EXPECT_EQ(ParseBytes("00*32767 FF"), ReadOne(Write("long", std::string(32767, '\0') + "\xFF")).m_aui8Bytes);
    EXPECT_EQ("is empty", ReadOne(Write("empty", "")).m_sProblem);
    EXPECT_EQ("is longer than 4 MiB", ReadOne(Write("longer", std::string((4U << 20) + 1, ' '))).m_sProblem);
    EXPECT_EQ("is empty", ReadOne(Write("longest", std::string(4U << 20, ' '))).m_sProblem);
    EXPECT_EQ("is a folder", ReadOne(m_oFolder).m_sProblem);
    EXPECT_EQ("is a device", ReadOne("/dev/zero").m_sProblem);
    EXPECT_EQ("is empty", ReadOne("/dev/null").m_sProblem);
    EXPECT_EQ("cannot be opened: Not a directory", ReadOne(Write("file", "00") + "/x").m_sProblem);
    EXPECT_EQ("neither a file nor a connector of this machine", ReadOne(m_oFolder / "none").m_sProblem);
    EXPECT_EQ("a NUL in the name; did you mean -0?", ReadOne("a\0b"s).m_sProblem);
}

TEST_F(InputFiles, ConnectorsAreFoundByNameWithOrWithoutTheirCard)
{
    Write("card1-DP-1/status", "disconnected\n");
    Write("card1-DP-1/edid", "");
    Write("card0-HDMI-A-1/status", "connected\n");
    Write("card0-HDMI-A-1/edid", "\0\xFF"s);
    Write("card0-DP-1/status", "connected\n");
    Write("card0/dev", "226:0\n");
    SetConnectorFolder(m_oFolder);

    std::vector<SConnector> aoConnectors;
    std::string sProblem;
    ASSERT_TRUE(ListConnectors(aoConnectors, sProblem));
    ASSERT_EQ(3U, aoConnectors.size());
    EXPECT_EQ("card0-DP-1", aoConnectors[0].m_sName);
    EXPECT_EQ("card0-HDMI-A-1", aoConnectors[1].m_sName);
    EXPECT_EQ("disconnected", aoConnectors[2].m_sState);

    const SInput oInput = ReadOne("HDMI-A-1");
    EXPECT_EQ("connector card0-HDMI-A-1", oInput.m_sForm);
    EXPECT_EQ("connector card0-HDMI-A-1", ReadOne("hdmi-a-1").m_sForm);
    EXPECT_EQ("HDMI-A-1", oInput.m_sName);
    EXPECT_EQ(ParseBytes("00 FF"), oInput.m_aui8Bytes);
    EXPECT_EQ("several connectors have this name: card0-DP-1, card1-DP-1", ReadOne("DP-1").m_sProblem);
    EXPECT_EQ("connector card1-DP-1 (disconnected) has no EDID", ReadOne("card1-DP-1").m_sProblem);
    EXPECT_EQ("connector card0-DP-1 (connected): cannot be opened: No such file or directory",
              ReadOne("card0-DP-1").m_sProblem);
    EXPECT_EQ("neither a file nor a connector of this machine", ReadOne("A-1").m_sProblem);

    SetConnectorFolder(m_oFolder / "none");
    EXPECT_FALSE(ListConnectors(aoConnectors, sProblem));
    EXPECT_EQ("No such file or directory", sProblem);
}
} // namespace
