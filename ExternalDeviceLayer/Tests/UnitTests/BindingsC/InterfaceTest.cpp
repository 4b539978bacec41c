// The interface for C: every function on good, damaged and no bytes, and that each fact is the one of its name.

#include <errno.h>
#include <gmock/gmock.h>
#include <math.h>

#include <memory>
#include <optional>
#include <regex>
#include <set>

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "SharedFiles.h"
#include "TemporaryFile.h"
#include "TestBytes.h"
#include "WalkInterface.h"

namespace
{
template <auto CREATE, auto FREE>
auto Make()
{
    return std::unique_ptr<std::remove_pointer_t<decltype(CREATE())>, decltype([](auto* po) { FREE(po); })>(CREATE());
}

CBytes GetMonitor() { return ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin"); }

auto ReadFacts(const CBytes& aui8Image)
{
    auto poFacts = Make<zoredid_facts_create, zoredid_facts_free>();
    EXPECT_EQ(ZOREDID_OK, zoredid_facts_read(poFacts.get(), CopyToHeap(aui8Image).get(), aui8Image.size()));
    return poFacts;
}

auto ReadModes(const CBytes& aui8Image)
{
    auto poModes = Make<zoredid_modes_create, zoredid_modes_free>();
    EXPECT_EQ(ZOREDID_OK, zoredid_modes_read(poModes.get(), CopyToHeap(aui8Image).get(), aui8Image.size()));
    return poModes;
}

auto ReadMap(const CBytes& aui8Image)
{
    auto poMap = Make<zoredid_map_create, zoredid_map_free>();
    EXPECT_EQ(ZOREDID_OK, zoredid_map_read(poMap.get(), CopyToHeap(aui8Image).get(), aui8Image.size()));
    return poMap;
}

std::string GetValue(const zoredid_map* poMap, size_t uiField)
{
    std::string sValue(zoredid_map_get_value(poMap, uiField, nullptr, 0), '\0');
    zoredid_map_get_value(poMap, uiField, sValue.data(), sValue.size() + 1);
    return sValue;
}

// EDID 1.4: DisplayPort, 10 bits, 60 x 34 cm, gamma 2.2, continuous; 48 to 144 Hz. With blocks of CTA-861: HDMI, HDMI
// Forum, colorimetry, HDR, Dolby Vision, audio.
CBytes MakeImage()
{
    CBytes aui8Image =
        ParseBytes("00 FF*6 00 4C 2D 34 12 78 56 34 12 0A 1E 01 04 B5 3C 22 78 1B EE 91 A3 54 4C 99 26 0F 50 54 00*3"
                   " 01*16 02 3A 80 18 71 38 2D 40 58 2C 45 00 58 54 21 00 00 1E 00 00 00 FD 00 30 90 1E DE 3C 01 0A"
                   " 20*6 00 00 00 FC 00 50 81 6E 2E FF 0A 20*7 00 00 00 FF 00 53 4E 20 31 0A 20*8 01 00"
                   " 02 03 52 C0 6C 03 0C 00 20 00 F8 44 C0 02 FF 03 00 6D D8 5D C4 01 78 80 60 46 70 90 CF 62 0F"
                   " E3 05 C0 00 E6 06 0D 01 73 5A 01 EB 01 46 D0 00 26 19 09 AD 88 53 6C 26 0F 7F 07 15 07 50"
                   " 83 4F 00 01 43 10 61 02");
    aui8Image.resize(256);
    return FixChecksums(aui8Image);
}

// By hand, from the standards. No number: the fact is not said.
TEST(InterfaceForC, FactsAreThoseOfTheirNames)
{
    const auto poFacts = ReadFacts(MakeImage());
    const struct
    {
        zoredid_fact m_eFact;
        const char* m_pszName;
        std::optional<double> m_oValue;
    } aoCases[] = {
        { ZOREDID_FACT_PRODUCT_CODE, "identity.product_code", 0x1234 },
        { ZOREDID_FACT_YEAR, "identity.year", 2020 },
        { ZOREDID_FACT_MODEL_YEAR, "identity.model_year", {} },
        { ZOREDID_FACT_WIDTH, "size.width_mm", 600 },
        { ZOREDID_FACT_HEIGHT, "size.height_mm", 340 },
        { ZOREDID_FACT_DIAGONAL, "size.diagonal_in", 27.15 },
        { ZOREDID_FACT_NATIVE_HEIGHT, "size.native.height", 1080 },
        { ZOREDID_FACT_FIRST_TIMING_RATE, "size.first_timing.rate_mhz", 60000 },
        { ZOREDID_FACT_TILE_ROWS, "size.tile.rows", {} },
        { ZOREDID_FACT_LINK, "link.kind", ZOREDID_LINK_DISPLAYPORT },
        { ZOREDID_FACT_HDMI_VERSION, "link.hdmi_version", 2.1 },
        { ZOREDID_FACT_MAX_TMDS_CLOCK, "link.max_tmds_clock_hz", 600e6 },
        { ZOREDID_FACT_FRL_LANES, "link.frl.lanes", 4 },
        { ZOREDID_FACT_FRL_LANE_RATE, "link.frl.gbps_per_lane", 12 },
        { ZOREDID_FACT_SCRAMBLING, "link.scrambling", 1 },
        { ZOREDID_FACT_ALLM, "link.allm", 1 },
        { ZOREDID_FACT_CINEMA_VRR, "link.cinema_vrr", 0 },
        { ZOREDID_FACT_VRR_MIN, "link.vrr.min_hz", 48 },
        { ZOREDID_FACT_VRR_MAX, "link.vrr.max_hz", 400 },
        { ZOREDID_FACT_VRR_SOURCE, "link.vrr.source", ZOREDID_VRR_HDMI_FORUM },
        { ZOREDID_FACT_MIN_HORIZONTAL_RATE, "link.horizontal_rates.min_hz", 30e3 },
        { ZOREDID_FACT_MAX_PIXEL_CLOCK, "link.max_pixel_clock_hz", 600e6 },
        { ZOREDID_FACT_DSC_CHUNK, "link.dsc.chunk_bytes", 16 * 1024 },
        { ZOREDID_FACT_DEPTH, "colour.bits_per_color", 10 },
        { ZOREDID_FACT_GAMMA, "colour.gamma", 2.2 },
        { ZOREDID_FACT_DEFAULT_GAMMA, "colour.default.gamma", 2.2 },
        { ZOREDID_FACT_COLORIMETRY, "colour.colorimetry",
          ZOREDID_COLORIMETRY_BT2020RGB | ZOREDID_COLORIMETRY_BT2020YCC },
        { ZOREDID_FACT_EOTFS, "colour.eotfs", ZOREDID_EOTF_SDR | ZOREDID_EOTF_PQ | ZOREDID_EOTF_HLG },
        { ZOREDID_FACT_STATIC_METADATA, "colour.static_metadata", 1 },
        { ZOREDID_FACT_HDR10, "colour.hdr10", 1 },
        { ZOREDID_FACT_STATIC_METADATA_TYPE_1, "colour.static_metadata_type1", 1 },
        { ZOREDID_FACT_CONTENT_MAX_LUMINANCE, "colour.content_luminance.max", 603.666 },
        { ZOREDID_FACT_CONTENT_MAX_AVERAGE_LUMINANCE, "colour.content_luminance.max_frame_average", 351.250 },
        { ZOREDID_FACT_CONTENT_MAX_LUMINANCE_CODE, "colour.content_luminance.max_code", 0x73 },
        { ZOREDID_FACT_DOLBY_VISION_MAX_LUMINANCE, "colour.dolby_vision.max_luminance", 700 },
        { ZOREDID_FACT_MAX_LUMINANCE, "colour.luminance.max", {} },
        { ZOREDID_FACT_SPEAKERS, "audio.speakers", 0x01004F },
        { ZOREDID_FACT_VIDEO_LATENCY, "audio.video_latency_ms", 2 },
        { ZOREDID_FACT_AUDIO_LATENCY, "audio.audio_latency_ms", -1 },
        { ZOREDID_FACT_INTERLACED_AUDIO_LATENCY, "audio.interlaced_audio_latency_ms", {} },
    };
    for (const auto& oCase : aoCases)
    {
        double dValue = NAN;
        EXPECT_EQ(oCase.m_oValue ? 1 : 0, zoredid_facts_get_real(poFacts.get(), oCase.m_eFact, &dValue))
            << oCase.m_pszName;
        EXPECT_TRUE(!oCase.m_oValue || fabs(*oCase.m_oValue - dValue) < 0.01) << oCase.m_pszName << dValue;
        EXPECT_STREQ(oCase.m_pszName, zoredid_fact_get_name(oCase.m_eFact));
    }
    EXPECT_EQ(2U, zoredid_facts_get_audio_count(poFacts.get()));
    EXPECT_EQ(640000U, zoredid_facts_get_audio_bit_rate(poFacts.get(), 1));
    EXPECT_EQ(1, zoredid_facts_takes_space(poFacts.get(), ZOREDID_SPACE_BT2020, ZOREDID_TRANSFER_PQ));
    EXPECT_EQ(0, zoredid_facts_takes_space(poFacts.get(), ZOREDID_SPACE_DCI_P3, ZOREDID_TRANSFER_PQ));
    EXPECT_EQ(ZOREDID_QUESTION_LINK, zoredid_facts_get_conflict_question(poFacts.get(), 0));
    uint32_t uiId = 0;
    size_t uiOffset = 0;
    EXPECT_EQ(1, zoredid_facts_get_source(poFacts.get(), ZOREDID_FACT_VRR_MIN, &uiId, &uiOffset));
    EXPECT_STREQ("cta.hdmi-forum.vrr-min", zoredid_id_get_text(uiId));
    EXPECT_EQ(128U + 26, uiOffset);
}

// "P", 81h, "n.", FFh of code page 437; the full stop is one.
TEST(InterfaceForC, TextsAreUtf8)
{
    const auto poFacts = ReadFacts(MakeImage());
    size_t uiLength = 0;
    EXPECT_STREQ("Pün.\u00A0", zoredid_facts_get_text(poFacts.get(), ZOREDID_FACT_NAME, &uiLength));
    EXPECT_EQ(7U, uiLength);
    EXPECT_STREQ("SN 1", zoredid_facts_get_text(poFacts.get(), ZOREDID_FACT_SERIAL_TEXT, nullptr));
    EXPECT_STREQ("SAM", zoredid_facts_get_text(poFacts.get(), ZOREDID_FACT_MAKER, nullptr));
    const auto poMap = ReadMap(MakeImage());
    const size_t uiField = zoredid_map_find(poMap.get(), zoredid_id_find("base.descriptor.text"), 0);
    EXPECT_EQ("Pün.\u00A0", GetValue(poMap.get(), uiField));
    char szPart[3];
    EXPECT_EQ(7U, zoredid_map_get_value(poMap.get(), uiField, szPart, sizeof(szPart)));
    EXPECT_STREQ("P", szPart) << "no half of a character";
}

TEST(InterfaceForC, ModesHaveExactRates)
{
    const auto poModes = ReadModes(MakeImage());
    ASSERT_EQ(4U, zoredid_modes_get_count(poModes.get())); // of the base block; VIC 16, 97 and 2
    EXPECT_EQ(0U, zoredid_modes_get_preferred(poModes.get()));
    EXPECT_EQ(ZOREDID_MODE_REASON_FIRST_DETAILED, zoredid_modes_get_reason(poModes.get(), 0));
    EXPECT_EQ(148500000U, zoredid_modes_get_rate_numerator(poModes.get(), 0));
    EXPECT_EQ(2200U * 1125, zoredid_modes_get_rate_denominator(poModes.get(), 0));
    EXPECT_EQ(ZOREDID_MODE_KIND_VIC, zoredid_modes_get_kind(poModes.get(), 2));
    EXPECT_EQ(97U, zoredid_modes_get_code(poModes.get(), 2));
    EXPECT_EQ(1, zoredid_modes_has_fraction(poModes.get(), 2));
    EXPECT_EQ(593406593U, zoredid_modes_get_fraction_clock(poModes.get(), 2));
    EXPECT_EQ(2250U, zoredid_modes_get_vertical_total(poModes.get(), 2));
}

TEST(InterfaceForC, ImagesHoldSeveralEdids)
{
    const CBytes aui8First = MakeImage();
    const CBytes aui8Both = Join({ aui8First, GetMonitor() });
    const CTemporaryFile oFile(".bin", aui8Both.data(), aui8Both.size());
    const auto poImage = Make<zoredid_image_create, zoredid_image_free>();
    ASSERT_EQ(ZOREDID_OK, zoredid_image_open(poImage.get(), oFile.GetPath()));
    size_t uiSize = 0;
    EXPECT_EQ(2U, zoredid_image_get_count(poImage.get()));
    EXPECT_EQ(zoredid_image_get_data(poImage.get(), nullptr) + 256, zoredid_image_get_edid(poImage.get(), 1, &uiSize));
    EXPECT_EQ(256U, uiSize);
    EXPECT_EQ(ZOREDID_ERROR_FILE, zoredid_image_open(poImage.get(), "/"));
    EXPECT_EQ(0U, zoredid_image_get_count(poImage.get())) << "what was read before is gone";
    errno = 0;
    EXPECT_EQ(ZOREDID_ERROR_FILE, zoredid_image_open(poImage.get(), "/nowhere"));
    EXPECT_EQ(ENOENT, errno);
    EXPECT_EQ(ZOREDID_ERROR_SIZE, zoredid_image_open(poImage.get(), "/dev/null"));
    EXPECT_EQ(ZOREDID_ERROR_SIZE, zoredid_image_open(poImage.get(), "/dev/zero")) << "without an end";
}

TEST(InterfaceForC, EditsAreAnswered)
{
    const CBytes aui8Image = MakeImage();
    const auto poWriter = Make<zoredid_writer_create, zoredid_writer_free>();
    ASSERT_EQ(ZOREDID_OK, zoredid_writer_read(poWriter.get(), aui8Image.data(), aui8Image.size()));
    EXPECT_EQ(ZOREDID_OK, zoredid_writer_set_by_id(poWriter.get(), "base.display.gamma", 0, "2.401"));
    EXPECT_EQ(0, zoredid_writer_is_exact(poWriter.get()));
    EXPECT_STREQ("2.20", zoredid_writer_get_before(poWriter.get(), nullptr));
    EXPECT_STREQ("2.40", zoredid_writer_get_after(poWriter.get(), nullptr));
    ASSERT_EQ(1U, zoredid_writer_get_followed_count(poWriter.get()));
    const zoredid_map* const poMap = zoredid_writer_get_map(poWriter.get());
    EXPECT_EQ(127U, zoredid_map_get_offset(poMap, zoredid_writer_get_followed(poWriter.get(), 0)));

    EXPECT_EQ(ZOREDID_ERROR_REFUSED, zoredid_writer_set_by_id(poWriter.get(), "base.display.gamma", 0, "9"));
    EXPECT_THAT(zoredid_writer_get_reason(poWriter.get(), nullptr), testing::HasSubstr("3.54"));
    EXPECT_EQ(ZOREDID_ERROR_NO_FIELD, zoredid_writer_set_by_id(poWriter.get(), "base.display.gamma", 1, "2"));
    EXPECT_STREQ("", zoredid_writer_get_reason(poWriter.get(), nullptr)) << "no answer of the set before";
    EXPECT_EQ(ZOREDID_OK, zoredid_writer_set_by_id(poWriter.get(), "base.name", 0, "Name")); // the text of the group
    EXPECT_EQ(ZOREDID_ERROR_REFUSED, zoredid_writer_set_by_id(poWriter.get(), "base.name", 0, "Näme")) << "ASCII";
    EXPECT_EQ(ZOREDID_OK, zoredid_writer_set(poWriter.get(), zoredid_map_find_at(poMap, 17, 0), "raw:0x31"));
    EXPECT_EQ(ZOREDID_OK, zoredid_writer_set(poWriter.get(), zoredid_map_find_at(poMap, 17, 0),
                                             zoredid_writer_get_before(poWriter.get(), nullptr)));
    EXPECT_STREQ("2039", zoredid_writer_get_before(poWriter.get(), nullptr)) << "a value that is the answer's own";
    size_t uiSize = 0;
    const unsigned char* const pui8Data = zoredid_writer_get_data(poWriter.get(), &uiSize);
    CBytes aui8Edited(pui8Data, pui8Data + uiSize);
    EXPECT_EQ(FixChecksums(aui8Edited), aui8Edited);
    EXPECT_EQ(140, aui8Edited[23]);
    EXPECT_EQ('N', aui8Edited[95]);
}

TEST(InterfaceForC, FaultsAreFoundAndRepaired)
{
    const CBytes aui8Image = WithChange(WithChange(MakeImage(), 127, 1), 17, 200); // made in 2190
    const auto poCheck = Make<zoredid_check_create, zoredid_check_free>();
    ASSERT_EQ(ZOREDID_OK, zoredid_check_read(poCheck.get(), ReadMap(aui8Image).get(), 2026)); // the map is gone
    bool bSum = false;
    bool bYear = false;
    for (size_t i = 0; i < zoredid_check_get_count(poCheck.get()); ++i)
    {
        const std::string sRule = zoredid_rule_get_id(zoredid_check_get_rule(poCheck.get(), i));
        const bool bHere = zoredid_check_get_offset(poCheck.get(), i) == 127;
        bSum = bSum ||
               (sRule == "checksum" && bHere && zoredid_check_get_severity(poCheck.get(), i) == ZOREDID_SEVERITY_ERROR);
        bYear = bYear || (sRule == "base.year-in-future" && zoredid_check_get_offset(poCheck.get(), i) == 17);
    }
    EXPECT_TRUE(bSum);
    EXPECT_TRUE(bYear);
    const auto poRepair = Make<zoredid_repair_create, zoredid_repair_free>();
    ASSERT_EQ(ZOREDID_OK, zoredid_repair_read(poRepair.get(), aui8Image.data(), aui8Image.size()));
    ASSERT_LE(1U, zoredid_repair_get_count(poRepair.get()));
    const unsigned char* const pui8Data = zoredid_repair_get_data(poRepair.get(), nullptr);
    EXPECT_EQ(FixChecksums(CBytes(pui8Data, pui8Data + 128)), CBytes(pui8Data, pui8Data + 128));

    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT, zoredid_repair_leave_out(poRepair.get(), 0));
    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT, zoredid_repair_leave_out(nullptr, zoredid_rule_find("checksum")));
    const CBytes aui8Cut = WithChange(aui8Image, 126, 9);
    for (const bool bLeave : { false, true })
    {
        EXPECT_EQ(ZOREDID_OK,
                  bLeave ? zoredid_repair_leave_out(poRepair.get(), zoredid_rule_find("block.missing")) : ZOREDID_OK);
        ASSERT_EQ(ZOREDID_OK, zoredid_repair_read(poRepair.get(), aui8Cut.data(), aui8Cut.size()));
        ASSERT_EQ(bLeave ? 0U : 1U, zoredid_repair_get_withheld_count(poRepair.get()));
        EXPECT_EQ(bLeave ? 0U : 126U, zoredid_repair_get_withheld_offset(poRepair.get(), 0));
        EXPECT_EQ(bLeave ? 0U : zoredid_rule_find("block.missing"),
                  zoredid_repair_get_withheld_rule(poRepair.get(), 0));
        EXPECT_EQ(bLeave, zoredid_repair_get_withheld_reason(poRepair.get(), 0) == nullptr);
    }
}

// Each wish reaches its own place; impossible values are refused, or are not taken as a wish.
TEST(InterfaceForC, MakesAnImageOfWishes)
{
    static constexpr struct
    {
        zoredid_wish m_eWish;
        int64_t m_llNumber;
        zoredid_fact m_eFact;
        double m_dSaid;
    } aoNumbers[] = {
        { ZOREDID_WISH_PRODUCT_CODE, 777, ZOREDID_FACT_PRODUCT_CODE, 777 },
        { ZOREDID_WISH_WIDTH, 600, ZOREDID_FACT_WIDTH, 600 },
        { ZOREDID_WISH_HEIGHT, 340, ZOREDID_FACT_HEIGHT, 340 },
        { ZOREDID_WISH_PQ, 1, ZOREDID_FACT_STATIC_METADATA, 1 },
        { ZOREDID_WISH_HLG, 1, ZOREDID_FACT_EOTFS, ZOREDID_EOTF_SDR | ZOREDID_EOTF_PQ | ZOREDID_EOTF_HLG },
        { ZOREDID_WISH_MAX_LUMINANCE, 800, ZOREDID_FACT_CONTENT_MAX_LUMINANCE, 800 },
        { ZOREDID_WISH_MAX_AVERAGE_LUMINANCE, 400, ZOREDID_FACT_CONTENT_MAX_AVERAGE_LUMINANCE, 400 },
        { ZOREDID_WISH_MIN_LUMINANCE, 500, ZOREDID_FACT_CONTENT_MIN_LUMINANCE, 0.05 },
        { ZOREDID_WISH_DEPTH, 10, ZOREDID_FACT_HDMI_DEEP, ZOREDID_DEPTH_10 },
        { ZOREDID_WISH_AUDIO_CHANNELS, 6, ZOREDID_FACT_AUDIO, 1 },
        { ZOREDID_WISH_VRR_MIN, 40, ZOREDID_FACT_VRR_MIN, 40 },
        { ZOREDID_WISH_VRR_MAX, 120, ZOREDID_FACT_VRR_MAX, 120 },
        { ZOREDID_WISH_MAX_TMDS_CLOCK, 600, ZOREDID_FACT_MAX_TMDS_CLOCK, 600e6 },
        { ZOREDID_WISH_FRL, 6, ZOREDID_FACT_FRL_LANE_RATE, 12 },
        { ZOREDID_WISH_YEAR, 2024, ZOREDID_FACT_YEAR, 2024 },
        { ZOREDID_WISH_WEEK, 7, ZOREDID_FACT_WEEK, 7 },
        { ZOREDID_WISH_CONNECTOR, ZOREDID_CONNECTOR_HDMI, ZOREDID_FACT_LINK, ZOREDID_LINK_HDMI },
    };
    const auto poMaker = Make<zoredid_maker_create, zoredid_maker_free>();
    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT, zoredid_maker_make(poMaker.get())) << "no mode";
    EXPECT_EQ(ZOREDID_OK, zoredid_maker_add_mode(poMaker.get(), 3840, 2160, 0, 120, 1, ZOREDID_TIMING_SOURCE_CTA));
    EXPECT_EQ(ZOREDID_OK, zoredid_maker_set_text(poMaker.get(), ZOREDID_WISH_NAME, "Bench"));
    for (const auto& oNumber : aoNumbers)
    {
        EXPECT_EQ(ZOREDID_OK, zoredid_maker_set_number(poMaker.get(), oNumber.m_eWish, oNumber.m_llNumber));
    }
    ASSERT_EQ(ZOREDID_OK, zoredid_maker_make(poMaker.get())) << zoredid_maker_get_reason(poMaker.get(), nullptr);
    EXPECT_THAT(zoredid_maker_get_note(poMaker.get(), 0, nullptr), testing::HasSubstr("3840x2160"));
    size_t uiSize = 0;
    const unsigned char* const pui8Data = zoredid_maker_get_data(poMaker.get(), &uiSize);
    const auto poFacts = Make<zoredid_facts_create, zoredid_facts_free>();
    ASSERT_EQ(ZOREDID_OK, zoredid_facts_read(poFacts.get(), pui8Data, uiSize));
    EXPECT_STREQ("Bench", zoredid_facts_get_text(poFacts.get(), ZOREDID_FACT_NAME, nullptr));
    for (const auto& oNumber : aoNumbers)
    {
        double dSaid = -1;
        zoredid_facts_get_real(poFacts.get(), oNumber.m_eFact, &dSaid);
        EXPECT_NEAR(oNumber.m_dSaid, dSaid, 0.03 * oNumber.m_dSaid) << zoredid_fact_get_name(oNumber.m_eFact);
    }
    EXPECT_EQ(6U, zoredid_facts_get_audio_channels(poFacts.get(), 0));
    EXPECT_EQ(ZOREDID_OK, zoredid_maker_set_number(poMaker.get(), ZOREDID_WISH_DEPTH, 9));
    EXPECT_EQ(ZOREDID_ERROR_REFUSED, zoredid_maker_make(poMaker.get()));
    EXPECT_EQ(nullptr, zoredid_maker_get_data(poMaker.get(), nullptr));
    for (const int64_t llChannels : { 1, 9, -1 })
    {
        EXPECT_EQ(ZOREDID_ERROR_ARGUMENT,
                  zoredid_maker_set_number(poMaker.get(), ZOREDID_WISH_AUDIO_CHANNELS, llChannels));
    }
    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT, zoredid_maker_set_number(poMaker.get(), ZOREDID_WISH_NAME, 1));
    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT, zoredid_maker_set_text(poMaker.get(), ZOREDID_WISH_FRL, "6"));
    EXPECT_EQ(ZOREDID_ERROR_ARGUMENT,
              zoredid_maker_add_mode(poMaker.get(), 1920, 1080, 0, 60, 0, ZOREDID_TIMING_SOURCE_CTA));
}

// Of good, damaged and cut images, in several orders. Nothing is printed.
TEST(InterfaceForC, HoldsItsPromisesOnAnyBytes)
{
    CCapturedOutput oOutput;
    const CBytes aui8Tiled = MakeEdid({ MakeFullDisplayIdBlock() });
    for (const CBytes& aui8Image : { MakeImage(), aui8Tiled, GetMonitor() })
    {
        for (unsigned int i = 0; i < 40; ++i)
        {
            const CBytes aui8Damaged =
                i == 0 ? aui8Image
                       : WithChange(aui8Image, i * 7919 % aui8Image.size(), static_cast<unsigned char>(i * 0x55));
            const size_t uiSize = i % 8 == 7 ? i * 5 : aui8Damaged.size();
            const CBytes aui8Cut(aui8Damaged.begin(), aui8Damaged.begin() + static_cast<std::ptrdiff_t>(uiSize));
            const char* const pszBroken = walk_interface(CopyToHeap(aui8Cut).get(), uiSize, i * 29);
            ASSERT_EQ(nullptr, pszBroken) << pszBroken << ", " << i;
        }
    }
    EXPECT_EQ(nullptr, walk_interface(nullptr, 0, 0));
    EXPECT_STREQ(nullptr, walk_tables());
    EXPECT_EQ("", oOutput.Take());
}

TEST(InterfaceForC, HoldsItsPromisesOnRealImages)
{
    unsigned int uiOrder = 0;
    for (const auto& [sName, aui8Image] :
         ReadImages(std::string(ZOREDID_SHARED_DIR).empty() ? "" : ZOREDID_SHARED_DIR "/corpus"))
    {
        const char* const pszBroken = walk_interface(aui8Image.data(), aui8Image.size(), uiOrder += 29);
        EXPECT_EQ(nullptr, pszBroken) << sName << ": " << pszBroken;
    }
}

// A function that the header gains is called by the walk, too.
TEST(InterfaceForC, TheWalkCallsEveryFunction)
{
    const std::string sFolder = ZOREDID_SOURCE_DIR "/ExternalDeviceLayer/";
    const CBytes aui8Header = ReadBytes(sFolder + "Bindings/C/zoredid.h");
    const CBytes aui8Walk = ReadBytes(sFolder + "Tests/UnitTests/Support/WalkInterface.c");
    const std::string sHeader(aui8Header.begin(), aui8Header.end());
    const std::string sWalk(aui8Walk.begin(), aui8Walk.end());
    const std::regex oName("zoredid_[a-z0-9_]+");
    const std::set<std::string> asCalled(std::sregex_token_iterator(sWalk.begin(), sWalk.end(), oName), {});
    const std::regex oFunction("ZOREDID_API [^(]*[* ](zoredid_[a-z0-9_]+)\\(");
    const std::set<std::string> asFunctions(std::sregex_token_iterator(sHeader.begin(), sHeader.end(), oFunction, 1),
                                            {});
    for (const std::string& sFunction : asFunctions)
    {
        EXPECT_TRUE(asCalled.contains(sFunction) || sFunction.ends_with("_free")) << sFunction; // those by a macro
    }
    EXPECT_LT(150U, asFunctions.size());
}
} // namespace
