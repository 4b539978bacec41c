/**
 * @file
 * The EDID library for C: what a display says about itself, the modes that it can show, what each byte means, what is
 * wrong with it, and edits. docs/c.md has an overview with a complete program.
 *
 * Objects are opaque. Each has functions to create, to read bytes, to ask and to free:
 *
 *     zoredid_facts *facts = zoredid_facts_create();
 *     if (zoredid_facts_read(facts, data, size) == ZOREDID_OK)
 *         ...
 *     zoredid_facts_free(facts);
 *
 * - An object belongs to the caller, who frees it. No object keeps a pointer to the bytes that it has read or to
 *   another object: they are freed in any order. An object may read again and again, its own bytes, too; what it said
 *   before is gone then.
 * - A null object, or one that has read nothing, answers as if nothing were said: 0, null, ZOREDID_NONE. An index that
 *   is not below its count does the same. An object that failed to read is as if it had read nothing.
 * - Texts are UTF-8, end with a NUL and have no other one. They belong to the library or to the object, as each
 *   function says. Characters of an image above 127 are taken for those of code page 437, which E-EDID 1.3 names; a
 *   control character is '.'.
 * - Bytes come as a pointer and a length.
 * - Enumerations are never renumbered. Later versions may have more values: 0 is what this version has no name for.
 * - Nothing is printed, and nothing is kept between calls but in objects. Objects may be used in any thread, each in
 *   one at a time; functions that take a const object may run in several.
 *
 * The header is C89, C17, and C++ from C++11 on. Layouts are those of VESA E-EDID 1.3 and 1.4, CTA-861-H with
 * CTA-861.6, HDMI 1.4b and 2.1, DisplayID 1.3, 2.0 and 2.1.
 */

#ifndef ZOREDID_H
#define ZOREDID_H

#include <stddef.h>
#include <stdint.h>

#define ZOREDID_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define ZOREDID_INT : int /* of an enumeration: every int is a value of it, as in C */
extern "C"
{
#else
#define ZOREDID_INT
#endif

/** No index. */
#define ZOREDID_NONE SIZE_MAX

/* ---- Version, errors ---- */

/** "0.1.0". Static. */
ZOREDID_API const char* zoredid_get_version(void);

/** What a function that can fail returns. */
typedef enum zoredid_status ZOREDID_INT
{
    ZOREDID_OK = 0,
    ZOREDID_ERROR_ARGUMENT = 1, /**< a null pointer, or an index or a number that is out of range */
    ZOREDID_ERROR_MEMORY = 2,   /**< no memory; the object is as if it had read nothing */
    ZOREDID_ERROR_SIZE = 3,     /**< too few bytes: facts and modes need 128, the others 1; or more than 2^31 - 1 */
    ZOREDID_ERROR_FILE = 4,     /**< the file does not open or cannot be read; errno says why */
    ZOREDID_ERROR_REFUSED = 5,  /**< the writer's reason says why */
    ZOREDID_ERROR_NO_FIELD = 6  /**< the image has no such field */
} zoredid_status;

/** The error in words, such as "no memory". Static; "unknown error" for other numbers. */
ZOREDID_API const char* zoredid_status_get_text(zoredid_status status);

/* ---- Image: the bytes of a file ---- */

/** Bytes of a file or a memory, and the EDIDs in it: some tools write those of all monitors one after the other. */
typedef struct zoredid_image zoredid_image;

/** An image without bytes, for zoredid_image_free. Null when there is no memory. */
ZOREDID_API zoredid_image* zoredid_image_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_image_free(zoredid_image* image);

/** Takes a copy of size bytes in any state. */
ZOREDID_API zoredid_status zoredid_image_load(zoredid_image* image, const void* data, size_t size);
/**
 * The same with the bytes of a file: a raw image, such as "/sys/class/drm/card0-HDMI-A-1/edid", of 16 MiB at most;
 * ZOREDID_ERROR_SIZE for more. Other forms (dumps, C arrays) are read by the command alone. path is handed to the
 * system as it is.
 */
ZOREDID_API zoredid_status zoredid_image_open(zoredid_image* image, const char* path);

/** All bytes. They belong to the image, until it reads others or is freed. size may be null. */
ZOREDID_API const unsigned char* zoredid_image_get_data(const zoredid_image* image, size_t* size);
/** How many EDIDs the bytes hold: at least 1 where there are any, as bytes without a header are one, too. */
ZOREDID_API size_t zoredid_image_get_count(const zoredid_image* image);
/** The bytes of one of them, with all that follows up to the next one; owned as all bytes are. */
ZOREDID_API const unsigned char* zoredid_image_get_edid(const zoredid_image* image, size_t index, size_t* size);

/* ---- Facts: what a display can do ---- */

/** The facts of one EDID. */
typedef struct zoredid_facts zoredid_facts;

/** What the value of a fact is. */
typedef enum zoredid_fact_type ZOREDID_INT
{
    ZOREDID_FACT_TYPE_UNKNOWN = 0,
    ZOREDID_FACT_TYPE_FLAG = 1, /**< a number, 0 or 1 */
    ZOREDID_FACT_TYPE_NUMBER = 2,
    ZOREDID_FACT_TYPE_REAL = 3,
    ZOREDID_FACT_TYPE_TEXT = 4,
    ZOREDID_FACT_TYPE_BYTES = 5
} zoredid_fact_type;

/**
 * The questions. A comment has the type where it is not a number, then the unit or the meaning. A fact of an
 * enumeration or of bits has its name: 'zoredid_link' means one of ZOREDID_LINK_..., 'bits zoredid_eotf' a sum of
 * ZOREDID_EOTF_...
 */
typedef enum zoredid_fact ZOREDID_INT
{
    ZOREDID_FACT_UNKNOWN = 0,

    /* Identity */
    ZOREDID_FACT_MAKER = 1,          /**< text: three letters; zoredid_get_maker_name has the name */
    ZOREDID_FACT_MAKER_OUI = 2,      /**< IEEE's identifier, of DisplayID 2.0 */
    ZOREDID_FACT_PRODUCT_CODE = 3,   /**< of the maker, 16 bits */
    ZOREDID_FACT_SERIAL_NUMBER = 4,  /**< 32 bits */
    ZOREDID_FACT_SERIAL_TEXT = 5,    /**< text: serial number as text */
    ZOREDID_FACT_NAME = 6,           /**< text: product name */
    ZOREDID_FACT_TEXT = 7,           /**< text: the first other text; panels have their type here */
    ZOREDID_FACT_WEEK = 8,           /**< of manufacture, 1 to 54 */
    ZOREDID_FACT_YEAR = 9,           /**< of manufacture, from 1990 on */
    ZOREDID_FACT_MODEL_YEAR = 10,    /**< instead of a date of manufacture */
    ZOREDID_FACT_CONTAINER_ID = 11,  /**< bytes: 16, in stored order */
    ZOREDID_FACT_EDID_REVISION = 12, /**< of EDID version 1 */

    /* Size and shape */
    ZOREDID_FACT_WIDTH = 101,                   /**< real: mm, by the best source */
    ZOREDID_FACT_HEIGHT = 102,                  /**< real: mm, by the best source */
    ZOREDID_FACT_DIAGONAL = 103,                /**< real: inches, of the same size */
    ZOREDID_FACT_BASE_WIDTH = 104,              /**< real: mm, whole centimetres of the base block */
    ZOREDID_FACT_BASE_HEIGHT = 105,             /**< real: mm, whole centimetres of the base block */
    ZOREDID_FACT_TIMING_WIDTH = 106,            /**< real: mm, of the first timing */
    ZOREDID_FACT_TIMING_HEIGHT = 107,           /**< real: mm, of the first timing */
    ZOREDID_FACT_IMAGE_SIZE = 108,              /**< zoredid_image_size */
    ZOREDID_FACT_ASPECT = 109,                  /**< real: width to height, where no size is needed for it */
    ZOREDID_FACT_NATIVE_WIDTH = 110,            /**< pixels of the panel */
    ZOREDID_FACT_NATIVE_HEIGHT = 111,           /**< lines of the panel */
    ZOREDID_FACT_FIRST_TIMING_WIDTH = 112,      /**< pixels of the first timing of the base block */
    ZOREDID_FACT_FIRST_TIMING_HEIGHT = 113,     /**< lines of a frame */
    ZOREDID_FACT_FIRST_TIMING_RATE = 114,       /**< mHz: frames, of interlaced ones fields */
    ZOREDID_FACT_FIRST_TIMING_INTERLACED = 115, /**< flag: the first timing is interlaced */
    ZOREDID_FACT_FIRST_TIMING_PREFERRED = 116,  /**< flag: the first timing is the preferred mode */
    ZOREDID_FACT_FIRST_TIMING_NATIVE = 117, /**< flag: the first timing has the native pixels; said from EDID 1.4 on */
    ZOREDID_FACT_KIND = 118,                /**< zoredid_kind */
    ZOREDID_FACT_DESKTOP = 119,             /**< flag: 0 for head-mounted and special displays */
    ZOREDID_FACT_ORIENTATION = 120,         /**< zoredid_orientation */
    ZOREDID_FACT_ROTATION = 121,            /**< zoredid_rotation */
    ZOREDID_FACT_SCAN_ORIENTATION = 122,    /**< of DisplayID 2.0 as stored; 0 is left to right, top to bottom */
    ZOREDID_FACT_SUBPIXELS = 123,           /**< zoredid_subpixels; other numbers as stored */
    ZOREDID_FACT_UNDERSCAN = 124,           /**< flag: IT formats are underscanned */
    ZOREDID_FACT_PREFERRED_SCAN = 125,      /**< zoredid_scan, of the preferred format */
    ZOREDID_FACT_IT_SCAN = 126,             /**< zoredid_scan */
    ZOREDID_FACT_CE_SCAN = 127,             /**< zoredid_scan */
    ZOREDID_FACT_TILE_COLUMNS = 128,        /**< of the whole display, from 1 */
    ZOREDID_FACT_TILE_ROWS = 129,           /**< of the whole display, from 1 */
    ZOREDID_FACT_TILE_COLUMN = 130,         /**< of this part, from 0 */
    ZOREDID_FACT_TILE_ROW = 131,            /**< of this part, from 0 */
    ZOREDID_FACT_TILE_WIDTH = 132,          /**< pixels of this part */
    ZOREDID_FACT_TILE_HEIGHT = 133,         /**< lines of this part */
    ZOREDID_FACT_TILE_SINGLE_ENCLOSURE = 134, /**< flag: all tiles are in one enclosure */
    ZOREDID_FACT_TILE_SOME = 135,             /**< behaviour when some tiles are driven, as stored */
    ZOREDID_FACT_TILE_ONE = 136,              /**< when only this one is driven: 1 in place, 2 scaled, 3 cloned */

    /* Link */
    ZOREDID_FACT_LINK = 201,                /**< zoredid_link */
    ZOREDID_FACT_HDMI = 202,                /**< flag: an HDMI block is there */
    ZOREDID_FACT_HDMI_VERSION = 203,        /**< real: the least that the blocks prove: 1.0, 1.3, 1.4, 2.0, 2.1 */
    ZOREDID_FACT_CTA_REVISION = 204,        /**< of the first CTA-861 block */
    ZOREDID_FACT_LANES = 205,               /**< of the interface */
    ZOREDID_FACT_PHYSICAL_ADDRESS = 206,    /**< 0x1000 is 1.0.0.0 */
    ZOREDID_FACT_MAX_TMDS_CLOCK = 207,      /**< Hz, by HDMI */
    ZOREDID_FACT_FRL_LANES = 208,           /**< fixed rate link of HDMI 2.1; 0 for none */
    ZOREDID_FACT_FRL_LANE_RATE = 209,       /**< Gbit/s of each lane */
    ZOREDID_FACT_SUPPORTS_AI = 210,         /**< flag: ACP, ISRC1 and ISRC2 packets */
    ZOREDID_FACT_DVI_DUAL = 211,            /**< flag: DVI_Dual of HDMI: DVI with two links */
    ZOREDID_FACT_CONTENT_TYPES = 212,       /**< bits zoredid_content */
    ZOREDID_FACT_SCDC = 213,                /**< flag: SCDC_Present of HDMI Forum */
    ZOREDID_FACT_READ_REQUEST = 214,        /**< flag: RR_Capable of HDMI Forum: SCDC read requests */
    ZOREDID_FACT_SCRAMBLING = 215,          /**< flag: scrambling above 340 MHz */
    ZOREDID_FACT_SCRAMBLE_LOW = 216,        /**< flag: scrambling at 340 MHz and below, too */
    ZOREDID_FACT_CABLE_STATUS = 217,        /**< flag: Cable_Status of HDMI Forum */
    ZOREDID_FACT_CCBPCI = 218,              /**< flag: CCBPCI of HDMI Forum */
    ZOREDID_FACT_INDEPENDENT_VIEW = 219,    /**< flag: Independent_View of HDMI Forum, for 3D */
    ZOREDID_FACT_DUAL_VIEW = 220,           /**< flag: Dual_View of HDMI Forum, for 3D */
    ZOREDID_FACT_OSD_DISPARITY_3D = 221,    /**< flag: 3D_OSD_Disparity of HDMI Forum */
    ZOREDID_FACT_UHD_VIC = 222,             /**< flag: UHD_VIC of HDMI Forum */
    ZOREDID_FACT_DSC = 230,                 /**< flag: compressed video, HDMI 2.1 */
    ZOREDID_FACT_DSC_NATIVE_420 = 231,      /**< flag: DSC_Native_420 of HDMI Forum */
    ZOREDID_FACT_DSC_ALL_BPP = 232,         /**< flag: DSC_All_bpp of HDMI Forum */
    ZOREDID_FACT_DSC_DEPTH = 233,           /**< bits per colour at most */
    ZOREDID_FACT_DSC_FRL_LANES = 234,       /**< for compressed video; 0 for none */
    ZOREDID_FACT_DSC_FRL_LANE_RATE = 235,   /**< Gbit/s of each lane, for compressed video */
    ZOREDID_FACT_DSC_SLICES = 236,          /**< slices of a line at most; 0 for none */
    ZOREDID_FACT_DSC_SLICE_CLOCK = 237,     /**< MHz at most, of each */
    ZOREDID_FACT_DSC_CHUNK = 238,           /**< bytes of all chunks of a line */
    ZOREDID_FACT_ALLM = 250,                /**< flag: auto low latency mode */
    ZOREDID_FACT_QMS = 251,                 /**< flag: quick media switching */
    ZOREDID_FACT_QMS_MIN = 252,             /**< flag: QMS_TFR_min of HDMI Forum */
    ZOREDID_FACT_QMS_MAX = 253,             /**< flag: QMS_TFR_max of HDMI Forum */
    ZOREDID_FACT_FAST_VACTIVE = 254,        /**< flag: FVA of HDMI Forum: fast active lines */
    ZOREDID_FACT_CINEMA_VRR = 255,          /**< flag: CinemaVRR of HDMI Forum */
    ZOREDID_FACT_NEGATIVE_MVRR = 256,       /**< flag: CNMVRR of HDMI Forum: negative M_VRR */
    ZOREDID_FACT_M_DELTA = 257,             /**< flag: M_Delta of HDMI Forum */
    ZOREDID_FACT_FAPA_START = 258,          /**< flag: FAPA_start_location of HDMI Forum */
    ZOREDID_FACT_FAPA_END = 259,            /**< flag: FAPA_End_Extended of HDMI Forum */
    ZOREDID_FACT_VRR_MIN = 260,             /**< Hz, of the best range of variable refresh; limits of rates are none */
    ZOREDID_FACT_VRR_MAX = 261,             /**< Hz; not said where it is the rate of the mode */
    ZOREDID_FACT_VRR_SOURCE = 262,          /**< zoredid_vrr, of that range */
    ZOREDID_FACT_MIN_VERTICAL_RATE = 270,   /**< Hz, of range limits */
    ZOREDID_FACT_MAX_VERTICAL_RATE = 271,   /**< Hz, of range limits */
    ZOREDID_FACT_MIN_HORIZONTAL_RATE = 272, /**< Hz, of range limits */
    ZOREDID_FACT_MAX_HORIZONTAL_RATE = 273, /**< Hz, of range limits */
    ZOREDID_FACT_MIN_PIXEL_CLOCK = 274,     /**< Hz, of range limits */
    ZOREDID_FACT_MAX_PIXEL_CLOCK = 275,     /**< Hz, of range limits */
    ZOREDID_FACT_RANGE_FORMULA = 276,       /**< of EDID's range limits, as stored: 1 is limits only, 4 is CVT */
    ZOREDID_FACT_CONTINUOUS = 277,          /**< flag: all rates within the limits, not only listed modes */
    ZOREDID_FACT_NVIDIA = 278,              /**< flag: a block of NVIDIA is there; its bytes are not public */
    ZOREDID_FACT_MSO_STREAMS = 279,         /**< multi-SST operation of embedded DisplayPort: 0, 2 or 4 */
    ZOREDID_FACT_MSO_OVERLAP = 280,         /**< pixels, 0 to 8 */

    /* Colour */
    ZOREDID_FACT_DEPTH = 301,                         /**< bits per colour of the panel or interface */
    ZOREDID_FACT_FORMATS = 302,                       /**< bits zoredid_format */
    ZOREDID_FACT_DEPTHS_RGB = 303,                    /**< bits zoredid_depth, of each format */
    ZOREDID_FACT_DEPTHS_YCBCR444 = 304,               /**< bits zoredid_depth */
    ZOREDID_FACT_DEPTHS_YCBCR422 = 305,               /**< bits zoredid_depth */
    ZOREDID_FACT_DEPTHS_YCBCR420 = 306,               /**< bits zoredid_depth */
    ZOREDID_FACT_HDMI_DEEP = 307,                     /**< bits zoredid_depth: deep colour of RGB, by HDMI */
    ZOREDID_FACT_HDMI_DEEP_YCBCR444 = 308,            /**< flag: deep colour of YCbCr 4:4:4, too, by HDMI */
    ZOREDID_FACT_HDMI_DEEP_YCBCR420 = 309,            /**< bits zoredid_depth: of YCbCr 4:2:0, by HDMI Forum */
    ZOREDID_FACT_MONOCHROME = 310,                    /**< flag: a display without colours */
    ZOREDID_FACT_MIN_YCBCR420_CLOCK = 311,            /**< Hz, from which on YCbCr 4:2:0 is offered: DisplayID 2.0 */
    ZOREDID_FACT_RED_X = 320,                         /**< real: x of red, CIE 1931, 0 to 1 */
    ZOREDID_FACT_RED_Y = 321,                         /**< real: y of red */
    ZOREDID_FACT_GREEN_X = 322,                       /**< real: x of green */
    ZOREDID_FACT_GREEN_Y = 323,                       /**< real: y of green */
    ZOREDID_FACT_BLUE_X = 324,                        /**< real: x of blue */
    ZOREDID_FACT_BLUE_Y = 325,                        /**< real: y of blue */
    ZOREDID_FACT_WHITE_X = 326,                       /**< real: x of white */
    ZOREDID_FACT_WHITE_Y = 327,                       /**< real: y of white */
    ZOREDID_FACT_GAMMA = 328,                         /**< real: 1.00 to 3.54 */
    ZOREDID_FACT_SRGB_DEFAULT = 329,                  /**< flag: sRGB is the default colour space */
    ZOREDID_FACT_DEFAULT_RED_X = 330,                 /**< real: x of red that is shown by default */
    ZOREDID_FACT_DEFAULT_RED_Y = 331,                 /**< real: y of red by default */
    ZOREDID_FACT_DEFAULT_GREEN_X = 332,               /**< real: x of green by default */
    ZOREDID_FACT_DEFAULT_GREEN_Y = 333,               /**< real: y of green by default */
    ZOREDID_FACT_DEFAULT_BLUE_X = 334,                /**< real: x of blue by default */
    ZOREDID_FACT_DEFAULT_BLUE_Y = 335,                /**< real: y of blue by default */
    ZOREDID_FACT_DEFAULT_WHITE_X = 336,               /**< real: x of white by default */
    ZOREDID_FACT_DEFAULT_WHITE_Y = 337,               /**< real: y of white by default */
    ZOREDID_FACT_DEFAULT_GAMMA = 338,                 /**< real: 1.00 to 3.54, by default */
    ZOREDID_FACT_COLORIMETRY = 340,                   /**< bits zoredid_colorimetry */
    ZOREDID_FACT_SELECTABLE_RGB = 341,                /**< flag: the quantization range of RGB can be chosen */
    ZOREDID_FACT_SELECTABLE_YCC = 342,                /**< flag: the quantization range of YCC can be chosen */
    ZOREDID_FACT_EOTFS = 350,                         /**< bits zoredid_eotf */
    ZOREDID_FACT_STATIC_METADATA = 351,               /**< bits: bit 0 is static metadata type 1 */
    ZOREDID_FACT_CONTENT_MAX_LUMINANCE = 352,         /**< real: cd/m2, of desired content */
    ZOREDID_FACT_CONTENT_MAX_AVERAGE_LUMINANCE = 353, /**< real: cd/m2, the average of a frame */
    ZOREDID_FACT_CONTENT_MIN_LUMINANCE = 354,         /**< real: cd/m2, of desired content */
    ZOREDID_FACT_CONTENT_MAX_LUMINANCE_CODE = 355,    /**< of the maximum, as stored */
    ZOREDID_FACT_CONTENT_MAX_AVERAGE_LUMINANCE_CODE = 356, /**< of the average of a frame, as stored */
    ZOREDID_FACT_CONTENT_MIN_LUMINANCE_CODE = 357,         /**< of the minimum, as stored */
    ZOREDID_FACT_DYNAMIC_TYPE1 = 360,                      /**< flag: dynamic metadata of SMPTE ST 2094-10 */
    ZOREDID_FACT_DYNAMIC_TYPE2 = 361,                      /**< flag: ETSI TS 103 433, SL-HDR */
    ZOREDID_FACT_DYNAMIC_TYPE3 = 362,                      /**< flag: colour remapping */
    ZOREDID_FACT_DYNAMIC_TYPE4 = 363,                      /**< flag: SMPTE ST 2094-40, HDR10+ */
    ZOREDID_FACT_DYNAMIC_GRAPHICS = 364,                   /**< flag: dynamic metadata of graphics, type 256 */
    ZOREDID_FACT_DYNAMIC_TYPE1_VERSION = 365,              /**< of type 1; 0 where it has none */
    ZOREDID_FACT_DYNAMIC_TYPE2_VERSION = 366,              /**< of type 2; 0 where it has none */
    ZOREDID_FACT_DYNAMIC_TYPE3_VERSION = 367,              /**< of type 3; 0 where it has none */
    ZOREDID_FACT_DYNAMIC_TYPE4_VERSION = 368,              /**< of type 4; 0 where it has none */
    ZOREDID_FACT_HDR10PLUS_VERSION = 370,                  /**< of the application, as stored */
    ZOREDID_FACT_HDR10PLUS_PEAK = 371,                     /**< index, as stored */
    ZOREDID_FACT_HDR10PLUS_FULL_FRAME_PEAK = 372,          /**< index, as stored */
    ZOREDID_FACT_DOLBY_VISION_VERSION = 375,               /**< of the data block, 0 to 2; others as stored */
    ZOREDID_FACT_DOLBY_VISION_DM_VERSION = 376,            /**< real: of the display management; 0 when unknown */
    ZOREDID_FACT_DOLBY_VISION_YUV422 = 377,                /**< flag: YCbCr 4:2:2 of 12 bits */
    ZOREDID_FACT_DOLBY_VISION_LOW_LATENCY = 378,           /**< flag: the mode of low latency */
    ZOREDID_FACT_DOLBY_VISION_STANDARD = 379,              /**< flag: the mode with metadata in the picture */
    ZOREDID_FACT_DOLBY_VISION_MAX_LUMINANCE = 380,         /**< real: cd/m2 of the target; not said by other versions */
    ZOREDID_FACT_DOLBY_VISION_MIN_LUMINANCE = 381,         /**< real: cd/m2, of the target */
    ZOREDID_FACT_TONE_MAPPING_VERSION = 382,               /**< of the HDMI Forum's source-based tone mapping */
    ZOREDID_FACT_MAX_LUMINANCE = 385,                      /**< real: cd/m2, the full screen */
    ZOREDID_FACT_MAX_LUMINANCE_TENTH = 386,                /**< real: cd/m2, a tenth of it */
    ZOREDID_FACT_MIN_LUMINANCE = 387,                      /**< real: cd/m2, of the screen */
    ZOREDID_FACT_MAX_SDR_LUMINANCE = 388,                  /**< real: cd/m2, DisplayID 2.1 */
    ZOREDID_FACT_MIN_SDR_LUMINANCE = 389,                  /**< real: cd/m2, of SDR, DisplayID 2.1 */
    ZOREDID_FACT_MAX_BOOST_LUMINANCE = 390,                /**< real: cd/m2, of SDR, boosted, DisplayID 2.1 */
    ZOREDID_FACT_AMD_MAX_LUMINANCE = 391,                  /**< real: cd/m2, of AMD's block, which is not public */
    ZOREDID_FACT_AMD_MIN_LUMINANCE = 392,                  /**< real: cd/m2, of AMD's block */
    ZOREDID_FACT_HDR10 = 393,                              /**< flag: PQ with static metadata of type 1 */
    ZOREDID_FACT_STATIC_METADATA_TYPE_1 = 394,             /**< flag: static metadata of type 1 */

    /* Audio */
    ZOREDID_FACT_AUDIO = 401,                    /**< flag: the display has audio of any kind */
    ZOREDID_FACT_BASIC_AUDIO = 402,              /**< flag: two channels of L-PCM */
    ZOREDID_FACT_SPEAKERS_BUILT_IN = 403,        /**< flag: the display has speakers, by DisplayID 2.0 */
    ZOREDID_FACT_SPEAKERS = 404,                 /**< bits zoredid_speaker */
    ZOREDID_FACT_AUDIO_STREAMS = 405,            /**< of HDMI's multi-stream audio, 2 to 4; 0 for none */
    ZOREDID_FACT_DISPLAYID_AUDIO_RATES = 406,    /**< bits zoredid_audio_rate: of DisplayID 2.0 */
    ZOREDID_FACT_VIDEO_LATENCY = 407,            /**< ms, 0 to 500; -1 for no video */
    ZOREDID_FACT_AUDIO_LATENCY = 408,            /**< ms, 0 to 500; -1 for no audio */
    ZOREDID_FACT_INTERLACED_VIDEO_LATENCY = 409, /**< ms of interlaced modes, 0 to 500; -1 for no video */
    ZOREDID_FACT_INTERLACED_AUDIO_LATENCY = 410  /**< ms of interlaced modes, 0 to 500; -1 for no audio */
} zoredid_fact;

/** Values of ZOREDID_FACT_KIND. */
typedef enum zoredid_kind ZOREDID_INT
{
    ZOREDID_KIND_UNKNOWN = 0,
    ZOREDID_KIND_GENERIC = 1,
    ZOREDID_KIND_PANEL = 2,   /**< built in, without a case of its own */
    ZOREDID_KIND_MONITOR = 3, /**< desktop display */
    ZOREDID_KIND_TELEVISION = 4,
    ZOREDID_KIND_PROJECTOR = 5,
    ZOREDID_KIND_HEAD_MOUNTED = 6, /**< virtual or augmented reality */
    ZOREDID_KIND_PRESENTATION = 7,
    ZOREDID_KIND_REPEATER = 8, /**< passes the picture on */
    ZOREDID_KIND_OTHER = 9     /**< test equipment, video wall, medical, ... */
} zoredid_kind;

/** Values of ZOREDID_FACT_IMAGE_SIZE: what an HDMI block says of the base block's sizes. */
typedef enum zoredid_image_size ZOREDID_INT
{
    ZOREDID_IMAGE_SIZE_UNKNOWN = 0,
    ZOREDID_IMAGE_SIZE_ASPECT_ONLY = 1,
    ZOREDID_IMAGE_SIZE_CENTIMETRES = 2,
    ZOREDID_IMAGE_SIZE_FIVE_CENTIMETRES = 3
} zoredid_image_size;

/** Values of ZOREDID_FACT_ORIENTATION. */
typedef enum zoredid_orientation ZOREDID_INT
{
    ZOREDID_ORIENTATION_UNKNOWN = 0,
    ZOREDID_ORIENTATION_LANDSCAPE = 1,
    ZOREDID_ORIENTATION_PORTRAIT = 2,
    ZOREDID_ORIENTATION_NOT_FIXED = 3,
    ZOREDID_ORIENTATION_UNDEFINED = 4
} zoredid_orientation;

/** Values of ZOREDID_FACT_ROTATION: by 90 degrees. */
typedef enum zoredid_rotation ZOREDID_INT
{
    ZOREDID_ROTATION_UNKNOWN = 0,
    ZOREDID_ROTATION_NONE = 1,
    ZOREDID_ROTATION_CLOCKWISE = 2,
    ZOREDID_ROTATION_COUNTER_CLOCKWISE = 3,
    ZOREDID_ROTATION_BOTH = 4
} zoredid_rotation;

/** Values of ZOREDID_FACT_SUBPIXELS: codes of DisplayID 1.3 and VESA DDDB. */
typedef enum zoredid_subpixels ZOREDID_INT
{
    ZOREDID_SUBPIXELS_UNKNOWN = 0,
    ZOREDID_SUBPIXELS_RGB_VERTICAL = 1,
    ZOREDID_SUBPIXELS_RGB_HORIZONTAL = 2,
    ZOREDID_SUBPIXELS_PRIMARY_ORDER_VERTICAL = 3,
    ZOREDID_SUBPIXELS_PRIMARY_ORDER_HORIZONTAL = 4,
    ZOREDID_SUBPIXELS_QUAD_RED_TOP_LEFT = 5,
    ZOREDID_SUBPIXELS_QUAD_RED_BOTTOM_LEFT = 6,
    ZOREDID_SUBPIXELS_DELTA = 7,
    ZOREDID_SUBPIXELS_MOSAIC = 8,
    ZOREDID_SUBPIXELS_QUAD_4 = 9,
    ZOREDID_SUBPIXELS_FIVE = 10,
    ZOREDID_SUBPIXELS_SIX = 11,
    ZOREDID_SUBPIXELS_PENTILE = 12
} zoredid_subpixels;

/** Values of ZOREDID_FACT_PREFERRED_SCAN and the two that follow it. */
typedef enum zoredid_scan ZOREDID_INT
{
    ZOREDID_SCAN_UNKNOWN = 0, /**< no data; of CE and IT formats: not supported */
    ZOREDID_SCAN_OVERSCAN = 1,
    ZOREDID_SCAN_UNDERSCAN = 2,
    ZOREDID_SCAN_BOTH = 3
} zoredid_scan;

/** Values of ZOREDID_FACT_LINK. */
typedef enum zoredid_link ZOREDID_INT
{
    ZOREDID_LINK_UNKNOWN = 0,
    ZOREDID_LINK_ANALOG = 1,
    ZOREDID_LINK_DIGITAL = 2, /**< of a kind that is not said */
    ZOREDID_LINK_DVI = 3,
    ZOREDID_LINK_HDMI = 4,
    ZOREDID_LINK_DISPLAYPORT = 5,
    ZOREDID_LINK_LVDS = 6,
    ZOREDID_LINK_OTHER = 7 /**< MDDI, RSDS, a maker's */
} zoredid_link;

/** Bits of ZOREDID_FACT_CONTENT_TYPES. */
typedef enum zoredid_content ZOREDID_INT
{
    ZOREDID_CONTENT_GRAPHICS = 1,
    ZOREDID_CONTENT_PHOTO = 2,
    ZOREDID_CONTENT_CINEMA = 4,
    ZOREDID_CONTENT_GAME = 8
} zoredid_content;

/** Which block announces a range of variable refresh. */
typedef enum zoredid_vrr ZOREDID_INT
{
    ZOREDID_VRR_UNKNOWN = 0,
    ZOREDID_VRR_HDMI_FORUM = 1,
    ZOREDID_VRR_AMD = 2,
    ZOREDID_VRR_ADAPTIVE_SYNC = 3, /**< a descriptor of DisplayID 2.1 */
    ZOREDID_VRR_DYNAMIC_RANGE = 4, /**< DisplayID 2.0, seamless */
    ZOREDID_VRR_RANGE_LIMITS = 5   /**< of a continuous frequency display, of EDID 1.4 or DisplayID 1 */
} zoredid_vrr;

/** Bits of ZOREDID_FACT_FORMATS. */
typedef enum zoredid_format ZOREDID_INT
{
    ZOREDID_FORMAT_RGB = 1, /**< all digital displays have it */
    ZOREDID_FORMAT_YCBCR444 = 2,
    ZOREDID_FORMAT_YCBCR422 = 4,
    ZOREDID_FORMAT_YCBCR420 = 8
} zoredid_format;

/** Bits of ZOREDID_FACT_DEPTHS_RGB and others: bits per colour. */
typedef enum zoredid_depth ZOREDID_INT
{
    ZOREDID_DEPTH_6 = 1,
    ZOREDID_DEPTH_8 = 2,
    ZOREDID_DEPTH_10 = 4,
    ZOREDID_DEPTH_12 = 8,
    ZOREDID_DEPTH_14 = 16,
    ZOREDID_DEPTH_16 = 32
} zoredid_depth;

/** Bits of ZOREDID_FACT_COLORIMETRY: the two bytes of CTA-861's block, the first one below. */
typedef enum zoredid_colorimetry ZOREDID_INT
{
    ZOREDID_COLORIMETRY_XVYCC601 = 0x0001,
    ZOREDID_COLORIMETRY_XVYCC709 = 0x0002,
    ZOREDID_COLORIMETRY_SYCC601 = 0x0004,
    ZOREDID_COLORIMETRY_OPYCC601 = 0x0008,
    ZOREDID_COLORIMETRY_OPRGB = 0x0010,
    ZOREDID_COLORIMETRY_BT2020CYCC = 0x0020,
    ZOREDID_COLORIMETRY_BT2020YCC = 0x0040,
    ZOREDID_COLORIMETRY_BT2020RGB = 0x0080,
    ZOREDID_COLORIMETRY_GAMUT_P0 = 0x0100,
    ZOREDID_COLORIMETRY_DEFAULT_RGB = 0x1000,
    ZOREDID_COLORIMETRY_SRGB = 0x2000,
    ZOREDID_COLORIMETRY_ICTCP = 0x4000,
    ZOREDID_COLORIMETRY_ST2113RGB = 0x8000 /**< P3 */
} zoredid_colorimetry;

/** Bits of ZOREDID_FACT_EOTFS. */
typedef enum zoredid_eotf ZOREDID_INT
{
    ZOREDID_EOTF_SDR = 1, /**< traditional gamma */
    ZOREDID_EOTF_HDR_GAMMA = 2,
    ZOREDID_EOTF_PQ = 4, /**< SMPTE ST 2084 */
    ZOREDID_EOTF_HLG = 8
} zoredid_eotf;

/** Colour spaces. */
typedef enum zoredid_space ZOREDID_INT
{
    ZOREDID_SPACE_UNKNOWN = 0,
    ZOREDID_SPACE_SRGB = 1,
    ZOREDID_SPACE_BT601 = 2,
    ZOREDID_SPACE_BT709 = 3,
    ZOREDID_SPACE_ADOBE_RGB = 4,
    ZOREDID_SPACE_DCI_P3 = 5,
    ZOREDID_SPACE_BT2020 = 6,
    ZOREDID_SPACE_CUSTOM = 7
} zoredid_space;

/** Transfer functions. */
typedef enum zoredid_transfer ZOREDID_INT
{
    ZOREDID_TRANSFER_UNKNOWN = 0,
    ZOREDID_TRANSFER_SRGB = 1,
    ZOREDID_TRANSFER_BT601 = 2,
    ZOREDID_TRANSFER_BT1886 = 3,
    ZOREDID_TRANSFER_ADOBE_RGB = 4,
    ZOREDID_TRANSFER_DCI_P3 = 5,
    ZOREDID_TRANSFER_BT2020 = 6,
    ZOREDID_TRANSFER_GAMMA = 7,
    ZOREDID_TRANSFER_PQ = 8,
    ZOREDID_TRANSFER_HLG = 9,
    ZOREDID_TRANSFER_CUSTOM = 10
} zoredid_transfer;

/** Bits of sampling rates. */
typedef enum zoredid_audio_rate ZOREDID_INT
{
    ZOREDID_AUDIO_RATE_32 = 1, /**< kHz */
    ZOREDID_AUDIO_RATE_44_1 = 2,
    ZOREDID_AUDIO_RATE_48 = 4,
    ZOREDID_AUDIO_RATE_88_2 = 8,
    ZOREDID_AUDIO_RATE_96 = 16,
    ZOREDID_AUDIO_RATE_176_4 = 32,
    ZOREDID_AUDIO_RATE_192 = 64
} zoredid_audio_rate;

/** Bits of sample sizes. */
typedef enum zoredid_sample_size ZOREDID_INT
{
    ZOREDID_SAMPLE_SIZE_16 = 1, /**< bits */
    ZOREDID_SAMPLE_SIZE_20 = 2,
    ZOREDID_SAMPLE_SIZE_24 = 4
} zoredid_sample_size;

/** Bits of ZOREDID_FACT_SPEAKERS, by the names of CTA-861. */
typedef enum zoredid_speaker ZOREDID_INT
{
    ZOREDID_SPEAKER_FL_FR = 0x000001,
    ZOREDID_SPEAKER_LFE1 = 0x000002,
    ZOREDID_SPEAKER_FC = 0x000004,
    ZOREDID_SPEAKER_BL_BR = 0x000008,
    ZOREDID_SPEAKER_BC = 0x000010,
    ZOREDID_SPEAKER_FLC_FRC = 0x000020,
    ZOREDID_SPEAKER_RLC_RRC = 0x000040,
    ZOREDID_SPEAKER_FLW_FRW = 0x000080,
    ZOREDID_SPEAKER_TPFL_TPFR = 0x000100,
    ZOREDID_SPEAKER_TPC = 0x000200,
    ZOREDID_SPEAKER_TPFC = 0x000400,
    ZOREDID_SPEAKER_LS_RS = 0x000800,
    ZOREDID_SPEAKER_LFE2 = 0x001000,
    ZOREDID_SPEAKER_TPBC = 0x002000,
    ZOREDID_SPEAKER_SIL_SIR = 0x004000,
    ZOREDID_SPEAKER_TPSIL_TPSIR = 0x008000,
    ZOREDID_SPEAKER_TPBL_TPBR = 0x010000,
    ZOREDID_SPEAKER_BTFC = 0x020000,
    ZOREDID_SPEAKER_BTFL_BTFR = 0x040000,
    ZOREDID_SPEAKER_TPLS_TPRS = 0x080000
} zoredid_speaker;

/** What two sources of an image contradict each other about. */
typedef enum zoredid_question ZOREDID_INT
{
    ZOREDID_QUESTION_UNKNOWN = 0,
    ZOREDID_QUESTION_PRODUCT = 1,
    ZOREDID_QUESTION_SERIAL_NUMBER = 2,
    ZOREDID_QUESTION_SERIAL_TEXT = 3,
    ZOREDID_QUESTION_NAME = 4,
    ZOREDID_QUESTION_YEAR = 5,
    ZOREDID_QUESTION_MODEL_YEAR = 6,
    ZOREDID_QUESTION_CONTAINER_ID = 7,
    ZOREDID_QUESTION_SIZE = 8,
    ZOREDID_QUESTION_ASPECT = 9,
    ZOREDID_QUESTION_NATIVE = 10,
    ZOREDID_QUESTION_KIND = 11,
    ZOREDID_QUESTION_ORIENTATION = 12,
    ZOREDID_QUESTION_ROTATION = 13,
    ZOREDID_QUESTION_SUBPIXELS = 14,
    ZOREDID_QUESTION_TILE = 15,
    ZOREDID_QUESTION_LINK = 16,
    ZOREDID_QUESTION_LANES = 17,
    ZOREDID_QUESTION_VERTICAL_RATES = 18,
    ZOREDID_QUESTION_HORIZONTAL_RATES = 19,
    ZOREDID_QUESTION_MAX_PIXEL_CLOCK = 20,
    ZOREDID_QUESTION_CONTINUOUS = 21,
    ZOREDID_QUESTION_DEPTH = 22,
    ZOREDID_QUESTION_PRIMARIES = 23,
    ZOREDID_QUESTION_WHITE = 24,
    ZOREDID_QUESTION_GAMMA = 25,
    ZOREDID_QUESTION_AUDIO = 26
} zoredid_question;

/** How many facts there are. */
ZOREDID_API size_t zoredid_fact_get_count(void);
/** Each of them, by an index below the count, in the order of their numbers; ZOREDID_FACT_UNKNOWN above. */
ZOREDID_API zoredid_fact zoredid_fact_get(size_t index);
/** The fact of a name; ZOREDID_FACT_UNKNOWN of another one, and of null. */
ZOREDID_API zoredid_fact zoredid_fact_find(const char* name);
/** Its name, such as "link.allm". Static; null of an unknown fact, as the unit of one without. */
ZOREDID_API const char* zoredid_fact_get_name(zoredid_fact fact);
/** Its unit, such as "mm". Static. */
ZOREDID_API const char* zoredid_fact_get_unit(zoredid_fact fact);
/** Its type. */
ZOREDID_API zoredid_fact_type zoredid_fact_get_type(zoredid_fact fact);

/** A record of facts where nothing is said, for zoredid_facts_free. Null when there is no memory. */
ZOREDID_API zoredid_facts* zoredid_facts_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_facts_free(zoredid_facts* facts);
/**
 * Reads the facts of one EDID of at least 128 bytes in any state: blocks that it announces and has. Wrong checksums,
 * lengths and headers are no reason to leave a block out. Allocates nothing.
 */
ZOREDID_API zoredid_status zoredid_facts_read(zoredid_facts* facts, const void* data, size_t size);

/** Whether the image says it: 1 or 0. A value of 0 that is said is a 'no'. */
ZOREDID_API int zoredid_facts_is_said(const zoredid_facts* facts, zoredid_fact fact);
/**
 * The value of a flag, a number or an enumeration. Returns 1; 0, and number unchanged, where the image does not say it
 * or the fact has another type. So a caller sets number to what counts as the answer then.
 */
ZOREDID_API int zoredid_facts_get_number(const zoredid_facts* facts, zoredid_fact fact, int64_t* number);
/** The same of a real number, and of every other one. */
ZOREDID_API int zoredid_facts_get_real(const zoredid_facts* facts, zoredid_fact fact, double* real);
/**
 * A text, at most 120 characters without spaces at the end; null where it is not said. It belongs to the facts until
 * they read again. length, which may be null, gets its bytes.
 */
ZOREDID_API const char* zoredid_facts_get_text(const zoredid_facts* facts, zoredid_fact fact, size_t* length);
/** The same of bytes. */
ZOREDID_API const unsigned char* zoredid_facts_get_bytes(const zoredid_facts* facts, zoredid_fact fact, size_t* length);
/**
 * The field that says it, of several the first one: an id as in zoredid_map_find, and the offset of its first byte in
 * the image. Both may be null. Returns 1; 0, and both unchanged, where the image does not say it.
 */
ZOREDID_API int zoredid_facts_get_source(const zoredid_facts* facts, zoredid_fact fact, uint32_t* id, size_t* offset);
/** 1 where the display takes a colour space with a transfer function; else 0, also where nothing is said. */
ZOREDID_API int zoredid_facts_takes_space(const zoredid_facts* facts, zoredid_space space, zoredid_transfer transfer);

/** The ranges of variable refresh, in the order of the bytes, at most 16. ZOREDID_FACT_VRR_MIN has the best one. */
ZOREDID_API size_t zoredid_facts_get_vrr_count(const zoredid_facts* facts);
/** The block that announces the range. */
ZOREDID_API zoredid_vrr zoredid_facts_get_vrr_source(const zoredid_facts* facts, size_t index);
/** The least rate in Hz. */
ZOREDID_API uint32_t zoredid_facts_get_vrr_min(const zoredid_facts* facts, size_t index);
/** The highest rate in Hz; 0 for the rate of the mode. */
ZOREDID_API uint32_t zoredid_facts_get_vrr_max(const zoredid_facts* facts, size_t index);
/** Of adaptive sync: 1 for the panel's own range. */
ZOREDID_API int zoredid_facts_get_vrr_native(const zoredid_facts* facts, size_t index);
/** Of adaptive sync: 1 where the rate changes without a break. */
ZOREDID_API int zoredid_facts_get_vrr_seamless(const zoredid_facts* facts, size_t index);
/** Of adaptive sync: 1 for adaptive as well as fixed average total. */
ZOREDID_API int zoredid_facts_get_vrr_adaptive(const zoredid_facts* facts, size_t index);
/** Of adaptive sync: how much longer a frame may be than the one before it, in microseconds; 0 for no limit. */
ZOREDID_API uint32_t zoredid_facts_get_vrr_max_increase(const zoredid_facts* facts, size_t index);
/** Of adaptive sync: how much shorter it may be, in microseconds; 0 for no limit. */
ZOREDID_API uint32_t zoredid_facts_get_vrr_max_decrease(const zoredid_facts* facts, size_t index);
/** The id of the field that says the least rate. */
ZOREDID_API uint32_t zoredid_facts_get_vrr_id(const zoredid_facts* facts, size_t index);
/** The offset of that field in the image. */
ZOREDID_API size_t zoredid_facts_get_vrr_offset(const zoredid_facts* facts, size_t index);

/** Colour spaces with a transfer function, of DisplayID 2.0, in the order of the bytes, at most 16. */
ZOREDID_API size_t zoredid_facts_get_space_count(const zoredid_facts* facts);
/** The colour space; ZOREDID_SPACE_UNKNOWN of one that is not defined. */
ZOREDID_API zoredid_space zoredid_facts_get_space(const zoredid_facts* facts, size_t index);
/** Its transfer function; ZOREDID_TRANSFER_UNKNOWN of one that is not defined. */
ZOREDID_API zoredid_transfer zoredid_facts_get_space_transfer(const zoredid_facts* facts, size_t index);

/** Audio formats, of CTA-861 and HDMI 2.0, in the order of the bytes, at most 32. */
ZOREDID_API size_t zoredid_facts_get_audio_count(const zoredid_facts* facts);
/** The audio format code of CTA-861, 1 (L-PCM) to 15. */
ZOREDID_API uint32_t zoredid_facts_get_audio_format(const zoredid_facts* facts, size_t index);
/** The extended code, with 15; else 0. */
ZOREDID_API uint32_t zoredid_facts_get_audio_extended_format(const zoredid_facts* facts, size_t index);
/** Channels at most; 0 where the format has no such number. */
ZOREDID_API uint32_t zoredid_facts_get_audio_channels(const zoredid_facts* facts, size_t index);
/** Sampling rates: bits zoredid_audio_rate. */
ZOREDID_API uint32_t zoredid_facts_get_audio_rates(const zoredid_facts* facts, size_t index);
/** Sample sizes: bits zoredid_sample_size, of L-PCM; else 0. */
ZOREDID_API uint32_t zoredid_facts_get_audio_sample_sizes(const zoredid_facts* facts, size_t index);
/** The bit rate in bit/s at most; 0 where the format has none. */
ZOREDID_API uint32_t zoredid_facts_get_audio_bit_rate(const zoredid_facts* facts, size_t index);
/** The last byte of the descriptor, as stored. */
ZOREDID_API uint32_t zoredid_facts_get_audio_byte(const zoredid_facts* facts, size_t index);
/** 1 for HDMI's 3D audio. */
ZOREDID_API int zoredid_facts_get_audio_hdmi_3d(const zoredid_facts* facts, size_t index);

/** Where sources contradict each other, at most 16: of each the field that is taken, and the other one. */
ZOREDID_API size_t zoredid_facts_get_conflict_count(const zoredid_facts* facts);
/** What they contradict each other about. */
ZOREDID_API zoredid_question zoredid_facts_get_conflict_question(const zoredid_facts* facts, size_t index);
/** The id of the field that is taken, as in zoredid_map_find. */
ZOREDID_API uint32_t zoredid_facts_get_conflict_taken_id(const zoredid_facts* facts, size_t index);
/** The offset of its first byte in the image. */
ZOREDID_API size_t zoredid_facts_get_conflict_taken_offset(const zoredid_facts* facts, size_t index);
/** The id of the field that is not taken. */
ZOREDID_API uint32_t zoredid_facts_get_conflict_other_id(const zoredid_facts* facts, size_t index);
/** The offset of its first byte in the image. */
ZOREDID_API size_t zoredid_facts_get_conflict_other_offset(const zoredid_facts* facts, size_t index);

/**
 * Why the image may say what its facts do not have: "the image ends before block 2". Written to buffer as
 * zoredid_map_get_value does; 0 where all its blocks were read whole. What is not said is not known then.
 */
ZOREDID_API size_t zoredid_facts_get_unread(const zoredid_facts* facts, char* buffer, size_t size);

/**
 * The maker's name for three letters: of the library's own list, else of the system's (hwdata's pnp.ids), read at each
 * call for letters that the other lacks. Written to buffer as zoredid_map_get_value does; 0 for unknown letters.
 */
ZOREDID_API size_t zoredid_get_maker_name(const char* letters, char* buffer, size_t size);

/* ---- Modes: all that the image announces ---- */

/** The modes of one EDID, in the order of its bytes. Each field has an entry, also where two announce the same mode. */
typedef struct zoredid_modes zoredid_modes;

/** Where a mode comes from, and what its code is. DisplayID's types I to X have their numbers. */
typedef enum zoredid_mode_kind ZOREDID_INT
{
    ZOREDID_MODE_KIND_UNKNOWN = 0,
    ZOREDID_MODE_KIND_TYPE_1 = 1,
    ZOREDID_MODE_KIND_TYPE_2 = 2,
    ZOREDID_MODE_KIND_TYPE_3 = 3,
    ZOREDID_MODE_KIND_TYPE_5 = 5, /**< types IV and VIII are codes: DMT, VIC or HDMI VIC */
    ZOREDID_MODE_KIND_TYPE_6 = 6,
    ZOREDID_MODE_KIND_TYPE_7 = 7,
    ZOREDID_MODE_KIND_TYPE_9 = 9,
    ZOREDID_MODE_KIND_TYPE_10 = 10,
    ZOREDID_MODE_KIND_ESTABLISHED = 11,     /**< I and II: the bit, 0 for bit 7 of byte 23h to 16, bit 7 of byte 25h */
    ZOREDID_MODE_KIND_ESTABLISHED_III = 12, /**< the bit, 0 for bit 7 of byte 6 of the descriptor, to 43 */
    ZOREDID_MODE_KIND_STANDARD = 13,        /**< its two bytes, the first one above: 0x8180 */
    ZOREDID_MODE_KIND_CVT_CODE = 14,        /**< its three bytes, the first one above */
    ZOREDID_MODE_KIND_DETAILED = 15,        /**< 18 bytes, no code */
    ZOREDID_MODE_KIND_DMT = 16,             /**< the identifier of VESA DMT */
    ZOREDID_MODE_KIND_VIC = 17,             /**< the video identification code of CTA-861 */
    ZOREDID_MODE_KIND_HDMI_VIC = 18,        /**< HDMI's own code, 1 to 4 */
    ZOREDID_MODE_KIND_VIDEO_FORMAT = 19     /**< of CTA-861.6: the resolution identifier */
} zoredid_mode_kind;

/** Where the numbers of a timing come from. */
typedef enum zoredid_mode_numbers ZOREDID_INT
{
    ZOREDID_MODE_NUMBERS_UNKNOWN = 0, /**< nothing gives them */
    ZOREDID_MODE_NUMBERS_BYTES = 1,   /**< the image */
    ZOREDID_MODE_NUMBERS_TABLE = 2,   /**< published with the code */
    ZOREDID_MODE_NUMBERS_FORMULA = 3, /**< the formula that the field names */
    ZOREDID_MODE_NUMBERS_ASSUMED = 4  /**< a standard timing that no table has: by the display's formula, else GTF */
} zoredid_mode_numbers;

/** Why a mode is preferred. */
typedef enum zoredid_mode_reason ZOREDID_INT
{
    ZOREDID_MODE_REASON_UNKNOWN = 0,        /**< it is not */
    ZOREDID_MODE_REASON_PREFERENCE = 1,     /**< the video format preference data block of CTA-861 names it */
    ZOREDID_MODE_REASON_FIRST_DETAILED = 2, /**< the first detailed timing of the base block, declared as preferred */
    ZOREDID_MODE_REASON_FLAG = 3            /**< its own flag, of DisplayID */
} zoredid_mode_reason;

/** How the blanking of a mode without a timing is to be computed. */
typedef enum zoredid_blanking ZOREDID_INT
{
    ZOREDID_BLANKING_UNKNOWN = 0,   /**< not given */
    ZOREDID_BLANKING_STANDARD = 1,  /**< CVT */
    ZOREDID_BLANKING_REDUCED_1 = 2, /**< CVT reduced blanking, version 1 */
    ZOREDID_BLANKING_REDUCED_2 = 3,
    ZOREDID_BLANKING_REDUCED_3 = 4,
    ZOREDID_BLANKING_CUSTOM = 5
} zoredid_blanking;

/** What is said of YCbCr 4:2:0 in a mode. */
typedef enum zoredid_mode_420 ZOREDID_INT
{
    ZOREDID_MODE_420_UNKNOWN = 0, /**< nothing: not offered */
    ZOREDID_MODE_420_ALSO = 1,
    ZOREDID_MODE_420_ONLY = 2
} zoredid_mode_420;

/** Stereo of the field itself; 2 to 7 as E-EDID counts them. */
typedef enum zoredid_stereo ZOREDID_INT
{
    ZOREDID_STEREO_UNKNOWN = 0,     /**< none */
    ZOREDID_STEREO_FIELD_RIGHT = 2, /**< field sequential, right image when stereo sync = 1 */
    ZOREDID_STEREO_TWO_WAY_RIGHT = 3,
    ZOREDID_STEREO_FIELD_LEFT = 4,
    ZOREDID_STEREO_TWO_WAY_LEFT = 5,
    ZOREDID_STEREO_FOUR_WAY = 6,
    ZOREDID_STEREO_SIDE_BY_SIDE = 7,
    ZOREDID_STEREO_ALWAYS = 8,  /**< by other means: of DisplayID */
    ZOREDID_STEREO_BY_USER = 9, /**< mono or stereo by user action: of DisplayID */
    ZOREDID_STEREO_HDMI = 10    /**< a format of HDMI's 3D fields */
} zoredid_stereo;

/** An empty list, for zoredid_modes_free. Null when there is no memory. */
ZOREDID_API zoredid_modes* zoredid_modes_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_modes_free(zoredid_modes* modes);
/** Reads one EDID of at least 128 bytes in any state: blocks that it announces and has. Checksums are not looked at. */
ZOREDID_API zoredid_status zoredid_modes_read(zoredid_modes* modes, const void* data, size_t size);

/** How many modes the image announces. */
ZOREDID_API size_t zoredid_modes_get_count(const zoredid_modes* modes);
/** The index of the most preferred mode; ZOREDID_NONE without one. */
ZOREDID_API size_t zoredid_modes_get_preferred(const zoredid_modes* modes);

/** The width of the picture in pixels. */
ZOREDID_API uint32_t zoredid_modes_get_width(const zoredid_modes* modes, size_t index);
/** The height of the frame in lines; 0 where the field leaves it open. */
ZOREDID_API uint32_t zoredid_modes_get_height(const zoredid_modes* modes, size_t index);
/** 1 for an interlaced mode. */
ZOREDID_API int zoredid_modes_is_interlaced(const zoredid_modes* modes, size_t index);
/**
 * The numerator of the exact rate in Hz, numerator / denominator: frames a second, of an interlaced mode fields. 60 is
 * 148500000 / 2475000 where that is the timing. A denominator of 0 says that no rate is given.
 */
ZOREDID_API uint64_t zoredid_modes_get_rate_numerator(const zoredid_modes* modes, size_t index);
/** What the numerator of the rate is divided by; 0 where no rate is given. */
ZOREDID_API uint64_t zoredid_modes_get_rate_denominator(const zoredid_modes* modes, size_t index);
/** The numerator of the rate in Hz as the standard names it: 60 of 640 x 480 at 59.94; else the same. */
ZOREDID_API uint64_t zoredid_modes_get_nominal_rate_numerator(const zoredid_modes* modes, size_t index);
/** What the numerator of the nominal rate is divided by; 0 where no rate is given. */
ZOREDID_API uint64_t zoredid_modes_get_nominal_rate_denominator(const zoredid_modes* modes, size_t index);
/** 1 where 1000/1001 of the rate and the clock is announced as well: the 59.94 of a code that has 60. */
ZOREDID_API int zoredid_modes_has_fraction(const zoredid_modes* modes, size_t index);
/** The clock of that, rounded to Hz; 0 without it. */
ZOREDID_API uint64_t zoredid_modes_get_fraction_clock(const zoredid_modes* modes, size_t index);

/** Where the mode comes from. */
ZOREDID_API zoredid_mode_kind zoredid_modes_get_kind(const zoredid_modes* modes, size_t index);
/** A number whose meaning the kind says, such as the video identification code. */
ZOREDID_API uint32_t zoredid_modes_get_code(const zoredid_modes* modes, size_t index);
/** The width of the picture's aspect ratio, such as 16; 0 where it is not given. */
ZOREDID_API uint32_t zoredid_modes_get_aspect_width(const zoredid_modes* modes, size_t index);
/** The height of the aspect ratio, such as 9; 0 where it is not given. */
ZOREDID_API uint32_t zoredid_modes_get_aspect_height(const zoredid_modes* modes, size_t index);
/** How often each pixel is sent: 1, also where several are allowed, or 2. */
ZOREDID_API uint32_t zoredid_modes_get_repetition(const zoredid_modes* modes, size_t index);
/** How the blanking is to be computed, of a mode without a timing. */
ZOREDID_API zoredid_blanking zoredid_modes_get_blanking(const zoredid_modes* modes, size_t index);
/** Whether YCbCr 4:2:0 is offered, and whether nothing else is. */
ZOREDID_API zoredid_mode_420 zoredid_modes_get_420(const zoredid_modes* modes, size_t index);
/** Stereo that the field itself announces. */
ZOREDID_API zoredid_stereo zoredid_modes_get_stereo(const zoredid_modes* modes, size_t index);
/** Bit n: structure n of HDMI's 3D_Structure, 0 is frame packing; 0 for none. */
ZOREDID_API uint32_t zoredid_modes_get_hdmi_3d(const zoredid_modes* modes, size_t index);
/** 1 where the image says that the mode is native. */
ZOREDID_API int zoredid_modes_is_native(const zoredid_modes* modes, size_t index);
/** 1 for the most preferred mode, then 2 and so on; 0 without a preference. */
ZOREDID_API uint32_t zoredid_modes_get_preference(const zoredid_modes* modes, size_t index);
/** Why the mode is preferred; ZOREDID_MODE_REASON_UNKNOWN where it is not. */
ZOREDID_API zoredid_mode_reason zoredid_modes_get_reason(const zoredid_modes* modes, size_t index);

/** The id of the field that announces the mode, as in zoredid_map_find. */
ZOREDID_API uint32_t zoredid_modes_get_id(const zoredid_modes* modes, size_t index);
/** The offset of that field's first byte in the image. */
ZOREDID_API size_t zoredid_modes_get_offset(const zoredid_modes* modes, size_t index);
/** 7 to 0 where one bit announces the mode; else -1. */
ZOREDID_API int zoredid_modes_get_bit(const zoredid_modes* modes, size_t index);
/** Which of several modes of one field, from 0. */
ZOREDID_API uint32_t zoredid_modes_get_rank(const zoredid_modes* modes, size_t index);

/** Where the numbers that follow come from; all are 0 where they are unknown. */
ZOREDID_API zoredid_mode_numbers zoredid_modes_get_numbers(const zoredid_modes* modes, size_t index);
/** The pixel clock in Hz. */
ZOREDID_API uint64_t zoredid_modes_get_clock(const zoredid_modes* modes, size_t index);
/** Pixels that are sent in a line, of repeated pixels each one. */
ZOREDID_API uint32_t zoredid_modes_get_horizontal_active(const zoredid_modes* modes, size_t index);
/** The front porch in pixels. */
ZOREDID_API uint32_t zoredid_modes_get_horizontal_front(const zoredid_modes* modes, size_t index);
/** The sync pulse in pixels. */
ZOREDID_API uint32_t zoredid_modes_get_horizontal_sync(const zoredid_modes* modes, size_t index);
/** Active pixels and blanking. */
ZOREDID_API uint32_t zoredid_modes_get_horizontal_total(const zoredid_modes* modes, size_t index);
/** The border on either side in pixels, within the blanking. */
ZOREDID_API uint32_t zoredid_modes_get_horizontal_border(const zoredid_modes* modes, size_t index);
/** 1 for a positive horizontal sync; 0 for a negative one. */
ZOREDID_API int zoredid_modes_is_horizontal_positive(const zoredid_modes* modes, size_t index);
/** Active lines of the frame, of an interlaced mode those of both fields. */
ZOREDID_API uint32_t zoredid_modes_get_vertical_active(const zoredid_modes* modes, size_t index);
/** The front porch in lines, of an interlaced mode that of its first field. */
ZOREDID_API uint32_t zoredid_modes_get_vertical_front(const zoredid_modes* modes, size_t index);
/** The sync pulse in lines, of an interlaced mode that of its first field. */
ZOREDID_API uint32_t zoredid_modes_get_vertical_sync(const zoredid_modes* modes, size_t index);
/** Active lines and blanking, of an interlaced mode the frame's. */
ZOREDID_API uint32_t zoredid_modes_get_vertical_total(const zoredid_modes* modes, size_t index);
/** The border on either side in lines, within the blanking. */
ZOREDID_API uint32_t zoredid_modes_get_vertical_border(const zoredid_modes* modes, size_t index);
/** 1 for a positive vertical sync; 0 for a negative one. */
ZOREDID_API int zoredid_modes_is_vertical_positive(const zoredid_modes* modes, size_t index);

/* ---- Map: what each byte says ---- */

/**
 * The fields of an image, in any state and of any block, depth first: a group, then its fields. At the leaves every bit
 * belongs to exactly one field. docs/fields.md lists their ids: numbers and texts that stay.
 */
typedef struct zoredid_map zoredid_map;

/** What a field is. */
typedef enum zoredid_field_kind ZOREDID_INT
{
    ZOREDID_FIELD_KIND_UNKNOWN = 0,
    ZOREDID_FIELD_KIND_GROUP = 1,    /**< holds the fields that follow it; the only kind that is not a leaf */
    ZOREDID_FIELD_KIND_NUMBER = 2,   /**< its number / 10 ^ decimals, in its unit; without a number only a meaning */
    ZOREDID_FIELD_KIND_FLAG = 3,     /**< one bit */
    ZOREDID_FIELD_KIND_NAME = 4,     /**< one of a list; the number is the raw code */
    ZOREDID_FIELD_KIND_TEXT = 5,     /**< characters */
    ZOREDID_FIELD_KIND_BYTES = 6,    /**< bytes without a finer meaning */
    ZOREDID_FIELD_KIND_RESERVED = 7, /**< reserved by the standard, or filler */
    ZOREDID_FIELD_KIND_CHECKSUM = 8,
    ZOREDID_FIELD_KIND_NO_MEANING = 9 /**< bytes that this library knows no meaning of */
} zoredid_field_kind;

/** What a field is about. */
typedef enum zoredid_area ZOREDID_INT
{
    ZOREDID_AREA_UNKNOWN = 0,
    ZOREDID_AREA_STRUCTURE = 1, /**< tags, lengths, counts, versions, checksums */
    ZOREDID_AREA_IDENTITY = 2,  /**< maker, product, serial number, date, names */
    ZOREDID_AREA_DISPLAY = 3,   /**< size, interface, features, power, tiles */
    ZOREDID_AREA_COLOUR = 4,    /**< gamma, chromaticities, colorimetry, HDR */
    ZOREDID_AREA_TIMING = 5,    /**< timings and what limits them */
    ZOREDID_AREA_AUDIO = 6,
    ZOREDID_AREA_VENDOR = 7, /**< what a maker defines */
    ZOREDID_AREA_UNUSED = 8
} zoredid_area;

/** The text of an id, such as "cta.hdmi-forum.vrr-max". Static; null of an unknown number. */
ZOREDID_API const char* zoredid_id_get_text(uint32_t id);
/** The number of a text; 0 of an unknown one and of null. */
ZOREDID_API uint32_t zoredid_id_find(const char* text);

/** An empty map, for zoredid_map_free. Null when there is no memory. */
ZOREDID_API zoredid_map* zoredid_map_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_map_free(zoredid_map* map);
/** Makes the map of size bytes in any state, at least 1. Keeps a copy of them. */
ZOREDID_API zoredid_status zoredid_map_read(zoredid_map* map, const void* data, size_t size);
/** That copy, the map's until it reads again. size may be null. */
ZOREDID_API const unsigned char* zoredid_map_get_data(const zoredid_map* map, size_t* size);

/** How many fields the map has, groups among them. */
ZOREDID_API size_t zoredid_map_get_count(const zoredid_map* map);
/** How many fields have an id. */
ZOREDID_API size_t zoredid_map_count(const zoredid_map* map, uint32_t id);
/** The index of one of them, by its number in the order of their places, from 0; ZOREDID_NONE without it. */
ZOREDID_API size_t zoredid_map_find(const zoredid_map* map, uint32_t id, size_t number);
/** The leaf that a bit (7 to 0) of a byte belongs to; ZOREDID_NONE past the image. */
ZOREDID_API size_t zoredid_map_find_at(const zoredid_map* map, size_t offset, unsigned int bit);

/** The field's id. */
ZOREDID_API uint32_t zoredid_map_get_id(const zoredid_map* map, size_t index);
/** Its name by the standard. Static. */
ZOREDID_API const char* zoredid_map_get_name(const zoredid_map* map, size_t index);
/** Static; null without one. */
ZOREDID_API const char* zoredid_map_get_unit(const zoredid_map* map, size_t index);
/** What the value means. Static; null without one. */
ZOREDID_API const char* zoredid_map_get_meaning(const zoredid_map* map, size_t index);
/** What the field is; ZOREDID_FIELD_KIND_UNKNOWN of an index that is too high. */
ZOREDID_API zoredid_field_kind zoredid_map_get_kind(const zoredid_map* map, size_t index);
/** What the field is about; ZOREDID_AREA_UNKNOWN of an index that is too high. */
ZOREDID_API zoredid_area zoredid_map_get_area(const zoredid_map* map, size_t index);
/** Of its first byte in the image. */
ZOREDID_API size_t zoredid_map_get_offset(const zoredid_map* map, size_t index);
/** Bytes from the first one to the last one, whole or not. */
ZOREDID_API size_t zoredid_map_get_length(const zoredid_map* map, size_t index);
/** 0 for a block. */
ZOREDID_API size_t zoredid_map_get_depth(const zoredid_map* map, size_t index);
/** The group that it lies in; ZOREDID_NONE for a block. */
ZOREDID_API size_t zoredid_map_get_group(const zoredid_map* map, size_t index);
/** Of a group the index after its last field; of a leaf its own index + 1. */
ZOREDID_API size_t zoredid_map_get_end(const zoredid_map* map, size_t index);
/** Which of several of the same name in a group, from 0; ZOREDID_NONE for the only one. */
ZOREDID_API size_t zoredid_map_get_number_in_group(const zoredid_map* map, size_t index);
/**
 * Of numbers, flags, names (the raw code) and checksums, to be divided by 10 ^ decimals. Returns 1; 0, and both
 * unchanged, for another kind and where a meaning such as "not given" takes its place. Both may be null.
 */
ZOREDID_API int zoredid_map_get_number(const zoredid_map* map, size_t index, int64_t* number, unsigned int* decimals);
/**
 * The value as text: "60 Hz", "2.20", "DisplayPort", "00 0c 03"; of a group a summary, with '.' for each character
 * that is not ASCII, or nothing. Returns its bytes without the NUL, whatever the room. buffer gets what size bytes have
 * room for, with a NUL and no character in half; null is allowed where size is 0.
 */
ZOREDID_API size_t zoredid_map_get_value(const zoredid_map* map, size_t index, char* buffer, size_t size);

/**
 * The bits of a leaf, most significant first, in pieces: mask of each of length bytes from offset on. A mask other than
 * 0xff has one byte. A group has no piece.
 */
ZOREDID_API size_t zoredid_map_get_piece_count(const zoredid_map* map, size_t index);
/** The first byte of a piece in the image. */
ZOREDID_API size_t zoredid_map_get_piece_offset(const zoredid_map* map, size_t index, size_t piece);
/** Its bytes. */
ZOREDID_API size_t zoredid_map_get_piece_length(const zoredid_map* map, size_t index, size_t piece);
/** Its bits in each of these bytes. */
ZOREDID_API uint32_t zoredid_map_get_piece_mask(const zoredid_map* map, size_t index, size_t piece);

/* ---- Check: what is wrong with an image ---- */

/** How much a finding weighs. */
typedef enum zoredid_severity ZOREDID_INT
{
    ZOREDID_SEVERITY_UNKNOWN = 0,
    ZOREDID_SEVERITY_NOTE = 1,    /**< allowed, but worth a word */
    ZOREDID_SEVERITY_WARNING = 2, /**< odd: a reserved bit that is set, a value out of range, a contradiction */
    ZOREDID_SEVERITY_ERROR = 3    /**< against the standard, and something is lost */
} zoredid_severity;

/** The rules of docs/checks.md, which have numbers that stay, in their order. */
ZOREDID_API size_t zoredid_rule_get_count(void);
/** The number of each of them, by an index below the count; 0 above. */
ZOREDID_API uint32_t zoredid_rule_get(size_t index);
/** The number of an id; 0 of an unknown one and of null. */
ZOREDID_API uint32_t zoredid_rule_find(const char* id);
/** "checksum", "timing.out-of-range". Static, as the three that follow; null of an unknown number. */
ZOREDID_API const char* zoredid_rule_get_id(uint32_t rule);
/** The finding in words: "the checksum is wrong". */
ZOREDID_API const char* zoredid_rule_get_what(uint32_t rule);
/** "E-EDID 1.4, 3.11"; empty where no standard asks for it. */
ZOREDID_API const char* zoredid_rule_get_standard(uint32_t rule);
/** Why it matters, and what sources do with it: one sentence. */
ZOREDID_API const char* zoredid_rule_get_why(uint32_t rule);
/** As a rule: a finding may weigh otherwise, as by revision or kind of block. */
ZOREDID_API zoredid_severity zoredid_rule_get_severity(uint32_t rule);

/**
 * The findings about one image: errors, warnings, notes, then those of "library." rules; each of these in the order of
 * the bytes.
 */
typedef struct zoredid_check zoredid_check;

/** A list without findings, for zoredid_check_free. Null when there is no memory. */
ZOREDID_API zoredid_check* zoredid_check_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_check_free(zoredid_check* check);
/**
 * Checks the image that map has read. this_year is what no year of manufacture may exceed; 0 asks the machine's clock.
 * ZOREDID_ERROR_ARGUMENT for a map that has read nothing.
 */
ZOREDID_API zoredid_status zoredid_check_read(zoredid_check* check, const zoredid_map* map, unsigned int this_year);

/** How many findings there are. */
ZOREDID_API size_t zoredid_check_get_count(const zoredid_check* check);
/** The number of the rule that is broken. */
ZOREDID_API uint32_t zoredid_check_get_rule(const zoredid_check* check, size_t index);
/** How much the finding weighs. */
ZOREDID_API zoredid_severity zoredid_check_get_severity(const zoredid_check* check, size_t index);
/** The field, an index of the map; ZOREDID_NONE of an index that is too high. */
ZOREDID_API size_t zoredid_check_get_field(const zoredid_check* check, size_t index);
/** Of its first byte in the image. */
ZOREDID_API size_t zoredid_check_get_offset(const zoredid_check* check, size_t index);
/** In words. Static. */
ZOREDID_API const char* zoredid_check_get_what(const zoredid_check* check, size_t index);
/**
 * What the words leave open, the value, and what is right instead; each mostly empty. They belong to the check until it
 * reads again. length may be null.
 */
ZOREDID_API const char* zoredid_check_get_reason(const zoredid_check* check, size_t index, size_t* length);
/** The value that was found, in words. */
ZOREDID_API const char* zoredid_check_get_found(const zoredid_check* check, size_t index, size_t* length);
/** What would be right, in words. */
ZOREDID_API const char* zoredid_check_get_expected(const zoredid_check* check, size_t index, size_t* length);

/* ---- Repair: what has one right answer ---- */

/** A repaired copy of an image: checksums, counts of blocks, bytes that say nothing but have a value that is fixed. */
typedef struct zoredid_repair zoredid_repair;

/** Without bytes, for zoredid_repair_free. Null when there is no memory. */
ZOREDID_API zoredid_repair* zoredid_repair_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_repair_free(zoredid_repair* repair);
/**
 * Faults of this rule are left as they are by each read from now on. ZOREDID_ERROR_ARGUMENT for a number that is no
 * rule's.
 */
ZOREDID_API zoredid_status zoredid_repair_leave_out(zoredid_repair* repair, uint32_t rule);
/** Repairs a copy of size bytes, at least 1. What the image announces stays as it is. */
ZOREDID_API zoredid_status zoredid_repair_read(zoredid_repair* repair, const void* data, size_t size);
/** The repaired bytes, as many as were read, which are the repair's until it reads again. size may be null. */
ZOREDID_API const unsigned char* zoredid_repair_get_data(const zoredid_repair* repair, size_t* size);
/** How many places were repaired, in the order of the bytes. */
ZOREDID_API size_t zoredid_repair_get_count(const zoredid_repair* repair);
/** The rule that they broke. */
ZOREDID_API uint32_t zoredid_repair_get_rule(const zoredid_repair* repair, size_t index);
/** Of the first byte in the image. */
ZOREDID_API size_t zoredid_repair_get_offset(const zoredid_repair* repair, size_t index);
/** Bytes, at least 1. */
ZOREDID_API size_t zoredid_repair_get_length(const zoredid_repair* repair, size_t index);
/** How many faults look as if they had one right answer and were left, in the order of the bytes. */
ZOREDID_API size_t zoredid_repair_get_withheld_count(const zoredid_repair* repair);
/** The rule that they break. */
ZOREDID_API uint32_t zoredid_repair_get_withheld_rule(const zoredid_repair* repair, size_t index);
/** In the image. */
ZOREDID_API size_t zoredid_repair_get_withheld_offset(const zoredid_repair* repair, size_t index);
/** Why it has no right answer here: words to follow a colon. Static; null of an index that is too high. */
ZOREDID_API const char* zoredid_repair_get_withheld_reason(const zoredid_repair* repair, size_t index);

/* ---- Writer: fields that are set ---- */

/** An image under edit. */
typedef struct zoredid_writer zoredid_writer;

/** Without bytes, for zoredid_writer_free. Null when there is no memory. */
ZOREDID_API zoredid_writer* zoredid_writer_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_writer_free(zoredid_writer* writer);
/** Takes a copy of size bytes in any state, at least 1. */
ZOREDID_API zoredid_status zoredid_writer_read(zoredid_writer* writer, const void* data, size_t size);

/**
 * Sets a leaf of the present map. The change counts only when the field then reads as asked and no other one reads
 * differently but the checksums over it, which are made right, and the minimum luminance that is a fraction of the
 * maximum that was set; else it is refused, and nothing changes. value is one of
 *   - a value as zoredid_map_get_value gives it, in letters of either case: "not given", "DisplayPort", "2.20"
 *   - a number with or without the unit of the field; the nearest one that the field can say is taken
 *   - a flag as yes or no, true or false, on or off, 1 or 0
 *   - characters of a text: ASCII
 *   - hexadecimal digits of bytes
 *   - "raw:" and the bits of the field themselves; other fields may then read differently
 *
 * Fields keep their indexes, unless the value is a text or "raw:".
 */
ZOREDID_API zoredid_status zoredid_writer_set(zoredid_writer* writer, size_t index, const char* value);
/**
 * The same of the field with an id, such as "base.display.gamma", by its number as in zoredid_map_find. A group with
 * one text in it means that text: "base.name". ZOREDID_ERROR_NO_FIELD where the image has none.
 */
ZOREDID_API zoredid_status zoredid_writer_set_by_id(zoredid_writer* writer, const char* id, size_t number,
                                                    const char* value);

/*
 * The answer to the last edit. It belongs to the writer until the next one, or until it reads; lengths may be null. All
 * are empty, and the counts 0, where there was none and after an edit that names no field or no value. Texts have '.'
 * for each character that is not ASCII.
 */

/** 1 where the field reads as asked; 0 where the nearest value took its place, and after a refusal. */
ZOREDID_API int zoredid_writer_is_exact(const zoredid_writer* writer);
/** The value before. */
ZOREDID_API const char* zoredid_writer_get_before(const zoredid_writer* writer, size_t* length);
/** The value now. */
ZOREDID_API const char* zoredid_writer_get_after(const zoredid_writer* writer, size_t* length);
/** Of a refusal, with what is allowed. */
ZOREDID_API const char* zoredid_writer_get_reason(const zoredid_writer* writer, size_t* length);
/** The checksums, and of parts the lengths, counts and places, that changed with it, as indexes of the present map. */
ZOREDID_API size_t zoredid_writer_get_followed_count(const zoredid_writer* writer);
/** Each of them, by an index below the count. */
ZOREDID_API size_t zoredid_writer_get_followed(const zoredid_writer* writer, size_t index);
/** After "raw:" and of a maximum luminance the other leaves that read differently, as indexes of the present map. */
ZOREDID_API size_t zoredid_writer_get_other_count(const zoredid_writer* writer);
/** Each of them, by an index below the count. */
ZOREDID_API size_t zoredid_writer_get_other(const zoredid_writer* writer, size_t index);

/** The map of the present bytes. It belongs to the writer, which frees it, and is good until the next edit. */
ZOREDID_API const zoredid_map* zoredid_writer_get_map(const zoredid_writer* writer);
/** The present bytes, the writer's until the next edit. size may be null. */
ZOREDID_API const unsigned char* zoredid_writer_get_data(const zoredid_writer* writer, size_t* size);

/* ---- Writer: parts that are added, removed and moved ---- */

/*
 * A part is an extension block; of the base block a standard timing or a descriptor; of a CTA-861 block a data block, a
 * detailed timing, or an item of a list, such as a video code; of a DisplayID block a data block, or a timing in it.
 * Lengths, counts, places of timings and checksums follow. An edit counts only when the part is then as asked and all
 * other parts read as before; else it is refused, with zoredid_writer_get_reason, and nothing changes. After an edit
 * all fields may have other indexes.
 *
 * block is the number of the block that takes the part, 0 for the base block; ZOREDID_NONE for the first one with room,
 * and for a further extension block where there is none (zoredid_writer_get_new_block). EDID 1.3 asks for a block map
 * beside two extension blocks: where it lacks, it becomes block 1, and others follow it. place counts from 0 among the
 * like of the part in its block; ZOREDID_NONE, and what is beyond the end of a list, is after the last one. Ids are
 * those of the map; one that does not exist is refused.
 *
 * Parts are edited as asked: the preferred timing goes like others, and a payload may say what no display can mean.
 * zoredid_check says what is wrong then.
 */

/**
 * An extension block of 128 bytes, whose first one is the tag, 1 to 255, or without bytes (null) an empty one. place is
 * among all blocks, from 1, which is refused beyond the last one. At most 127 extension blocks.
 */
ZOREDID_API zoredid_status zoredid_writer_add_block(zoredid_writer* writer, uint32_t tag, const void* data,
                                                    size_t place);
/** A standard timing of the base block, 2 bytes. */
ZOREDID_API zoredid_status zoredid_writer_add_standard(zoredid_writer* writer, const void* data, size_t place);
/**
 * A detailed timing or a display descriptor, 18 bytes. The base block has room where a descriptor is a dummy (tag 10h);
 * else a timing goes to a CTA-861 block. That takes a display descriptor, too, where few readers look for one.
 */
ZOREDID_API zoredid_status zoredid_writer_add_descriptor(zoredid_writer* writer, const void* data, size_t block,
                                                         size_t place);
/**
 * A display descriptor with a text of 1 to 13 ASCII characters, in the base block: "base.name", "base.serial" or
 * "base.string".
 */
ZOREDID_API zoredid_status zoredid_writer_add_text(zoredid_writer* writer, const char* id, const char* text);
/**
 * A data block of the kind with an id, such as "cta.hdr-static" or "displayid.tiled". The payload is what follows its
 * header, its extended tag and its OUI, and begins with the OUI for "cta.vendor"; null for one without bytes.
 */
ZOREDID_API zoredid_status zoredid_writer_add_data_block(zoredid_writer* writer, const char* id, const void* payload,
                                                         size_t size, size_t block, size_t place);
/**
 * An item of a list in data blocks of such a kind: the byte of a code for "cta.video", the 3 bytes of an audio
 * descriptor for "cta.audio", the 20 bytes of a timing for "displayid.type7". A new data block where no list has room.
 */
ZOREDID_API zoredid_status zoredid_writer_add_item(zoredid_writer* writer, const char* id, const void* item,
                                                   size_t size, size_t block, size_t place);
/** The part that the field with an index is, or is in. A data block goes with its last item. */
ZOREDID_API zoredid_status zoredid_writer_remove(zoredid_writer* writer, size_t index);
/**
 * The part that the field with an index is, or is in, moves to a place among its like, which is not ZOREDID_NONE;
 * blocks count from 1. A place that is not there is refused.
 */
ZOREDID_API zoredid_status zoredid_writer_move(zoredid_writer* writer, size_t index, size_t place);

/* The answer to such an edit, beside the reason and the fields that followed; empty after other calls. */

/** The part, in the present map; ZOREDID_NONE for one that is gone. */
ZOREDID_API size_t zoredid_writer_get_part(const zoredid_writer* writer);
/** The number of an extension block that was added for the part; 0 for none. */
ZOREDID_API size_t zoredid_writer_get_new_block(const zoredid_writer* writer);
/** The bytes that lack, when the reason of a refusal is that there is no room; else 0. */
ZOREDID_API size_t zoredid_writer_get_lacking(const zoredid_writer* writer);
/** Then the parts each of which leaves room enough when it goes, in the present map. */
ZOREDID_API size_t zoredid_writer_get_removable_count(const zoredid_writer* writer);
/** Each of them, by an index below the count. */
ZOREDID_API size_t zoredid_writer_get_removable(const zoredid_writer* writer, size_t index);

/* ---- Maker: images of wishes ---- */

/** Wishes for a display, and the image that is made of them. */
typedef struct zoredid_maker zoredid_maker;

/** What can be wished beside modes. A number of 0 and an empty text leave the choice to the library. */
typedef enum zoredid_wish ZOREDID_INT
{
    ZOREDID_WISH_UNKNOWN = 0,
    ZOREDID_WISH_CONNECTOR = 1,              /**< zoredid_connector; HDMI where it is not wished */
    ZOREDID_WISH_NAME = 2,                   /**< text: up to 13 printable characters */
    ZOREDID_WISH_SERIAL_TEXT = 3,            /**< text: up to 13 printable characters */
    ZOREDID_WISH_MAKER = 4,                  /**< text: three capital letters */
    ZOREDID_WISH_PRODUCT_CODE = 5,           /**< up to 65535 */
    ZOREDID_WISH_WIDTH = 6,                  /**< mm, 10 to 2550; with the height */
    ZOREDID_WISH_HEIGHT = 7,                 /**< mm */
    ZOREDID_WISH_PQ = 8,                     /**< flag: HDR by SMPTE ST 2084 */
    ZOREDID_WISH_HLG = 9,                    /**< flag: HDR by hybrid log-gamma */
    ZOREDID_WISH_MAX_LUMINANCE = 10,         /**< cd/m2, 50 to 12500; of HDR, as the two that follow */
    ZOREDID_WISH_MAX_AVERAGE_LUMINANCE = 11, /**< cd/m2, the average of a frame */
    ZOREDID_WISH_MIN_LUMINANCE = 12,         /**< in 0.0001 cd/m2 */
    ZOREDID_WISH_DEPTH = 13,                 /**< bits per colour: 8, 10 or 12 */
    ZOREDID_WISH_YCBCR420 = 14,              /**< flag: from 3840 pixels at 50 Hz on */
    ZOREDID_WISH_AUDIO_CHANNELS = 15,        /**< 0, 2, 6 or 8 */
    ZOREDID_WISH_VRR_MIN = 16,               /**< Hz, of variable refresh */
    ZOREDID_WISH_VRR_MAX = 17,               /**< Hz */
    ZOREDID_WISH_MAX_TMDS_CLOCK = 18,        /**< MHz, 25 to 600 */
    ZOREDID_WISH_FRL = 19,                   /**< fixed rate link: 1 for 3 lanes of 3 Gbit/s, to 6 for 4 of 12 */
    ZOREDID_WISH_YEAR = 20,                  /**< of manufacture, 2006 to 2245; without it the donor's, else 2025 */
    ZOREDID_WISH_WEEK = 21                   /**< of that year, 1 to 53 */
} zoredid_wish;

/** Values of ZOREDID_WISH_CONNECTOR. */
typedef enum zoredid_connector ZOREDID_INT
{
    ZOREDID_CONNECTOR_UNKNOWN = 0,
    ZOREDID_CONNECTOR_HDMI = 1, /**< sources of every kind of connector take its image */
    ZOREDID_CONNECTOR_DISPLAYPORT = 2,
    ZOREDID_CONNECTOR_DVI = 3
} zoredid_connector;

/** Where the timing of a wished mode comes from. */
typedef enum zoredid_timing_source ZOREDID_INT
{
    ZOREDID_TIMING_SOURCE_UNKNOWN = 0, /**< any: CTA-861, then VESA DMT, else what is nearest, CVT as well */
    ZOREDID_TIMING_SOURCE_CTA = 1,
    ZOREDID_TIMING_SOURCE_DMT = 2,
    ZOREDID_TIMING_SOURCE_DMT_REDUCED = 3,
    ZOREDID_TIMING_SOURCE_CVT = 4,
    ZOREDID_TIMING_SOURCE_CVT_REDUCED_1 = 5,
    ZOREDID_TIMING_SOURCE_CVT_REDUCED_2 = 6,
    ZOREDID_TIMING_SOURCE_GTF = 7
} zoredid_timing_source;

/** Without wishes, for zoredid_maker_free. Null when there is no memory. */
ZOREDID_API zoredid_maker* zoredid_maker_create(void);
/** Null is allowed. */
ZOREDID_API void zoredid_maker_free(zoredid_maker* maker);
/** Wishes a number or a flag. ZOREDID_ERROR_ARGUMENT for a text, and for a number that no display has. */
ZOREDID_API zoredid_status zoredid_maker_set_number(zoredid_maker* maker, zoredid_wish wish, int64_t number);
/** Wishes a text, of which the maker takes a copy. */
ZOREDID_API zoredid_status zoredid_maker_set_text(zoredid_maker* maker, zoredid_wish wish, const char* text);
/**
 * Wishes a mode; the first one is preferred. Pixels and lines of the frame, up to 65535, and the rate in Hz as a
 * fraction, of interlaced modes of fields. None of them may be 0.
 */
ZOREDID_API zoredid_status zoredid_maker_add_mode(zoredid_maker* maker, uint32_t width, uint32_t height, int interlaced,
                                                  uint32_t rate_numerator, uint32_t rate_denominator,
                                                  zoredid_timing_source source);
/** An image whose identity, size, colours and audio are taken where nothing else is wished; the maker keeps a copy. */
ZOREDID_API zoredid_status zoredid_maker_set_donor(zoredid_maker* maker, const void* data, size_t size);
/**
 * Makes the image. ZOREDID_ERROR_REFUSED for wishes that cannot be, and the reason says why; ZOREDID_ERROR_ARGUMENT
 * without a mode. The same wishes give the same bytes.
 */
ZOREDID_API zoredid_status zoredid_maker_make(zoredid_maker* maker);
/** The image; null before one is made and after a refusal. The maker's until the next make. size may be null. */
ZOREDID_API const unsigned char* zoredid_maker_get_data(const zoredid_maker* maker, size_t* size);
/** Of the last refusal; else empty. length may be null, as that of a note. */
ZOREDID_API const char* zoredid_maker_get_reason(const zoredid_maker* maker, size_t* length);
/** What was chosen, a text each: "2560x1440@144: detailed timing, preferred". */
ZOREDID_API size_t zoredid_maker_get_note_count(const zoredid_maker* maker);
/** Each of them, by an index below the count. */
ZOREDID_API const char* zoredid_maker_get_note(const zoredid_maker* maker, size_t index, size_t* length);

#ifdef __cplusplus
}
#endif

#endif
