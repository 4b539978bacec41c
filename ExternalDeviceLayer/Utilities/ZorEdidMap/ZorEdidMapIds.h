/// What each field of a map is, whatever its name and place: the ids of CZorEdidMap. Programs that look for a field ask
/// for its id. Names and texts may improve; numbers and ids stay, and a retired one is never reused.

#pragma once

/// X(number, enumerator, id) of each id, structure by structure, with room after each. The fields of a structure have
/// its id, a dot and a name of their own; a detailed timing has the same ids wherever it occurs. A new id takes a free
/// number.
// clang-format off
#define ZOR_EDID_FIELDS(X)                                                                                            \
    /* all structures */                                                                                              \
    X(1, Reserved, "reserved") X(2, Unknown, "unknown") X(3, Padding, "padding") X(4, Checksum, "checksum")           \
    X(5, ManufacturerData, "manufacturer.data") X(6, ExtensionTag, "extension.tag") X(7, LcdTimings, "lcd-timings")   \
    X(8, Edid2, "edid2") X(9, ColorInformation, "color-information") X(10, Dpvl, "dpvl") X(11, Dtcdb, "dtcdb")        \
    X(12, Manufacturer, "manufacturer") X(13, OtherBase, "other-base") X(14, UnknownExtension, "unknown-extension")   \
    X(15, AfterBlocks, "after-blocks") X(16, LineFeed, "line-feed") X(17, Unused, "unused")                           \
    /* base */                                                                                                        \
    X(30, Base, "base") X(31, BaseExtensionCount, "base.extension-count") X(32, BaseHeader, "base.header")            \
    X(33, BaseSerial, "base.serial") X(34, BaseString, "base.string") X(35, BaseName, "base.name")                    \
    X(36, BaseStandardList, "base.standard-list") X(37, BaseDummy, "base.dummy") X(38, BaseReserved, "base.reserved") \
    /* base.identity */                                                                                               \
    X(50, BaseIdentity, "base.identity") X(51, BaseIdentityManufacturer, "base.identity.manufacturer")                \
    X(52, BaseIdentityProductCode, "base.identity.product-code")                                                      \
    X(53, BaseIdentitySerialNumber, "base.identity.serial-number") X(54, BaseIdentityWeek, "base.identity.week")      \
    X(55, BaseIdentityYear, "base.identity.year") X(56, BaseIdentityModelYear, "base.identity.model-year")            \
    /* base.edid */                                                                                                   \
    X(70, BaseEdid, "base.edid") X(71, BaseEdidVersion, "base.edid.version")                                          \
    X(72, BaseEdidRevision, "base.edid.revision")                                                                     \
    /* base.display */                                                                                                \
    X(90, BaseDisplay, "base.display") X(91, BaseDisplaySignalInterface, "base.display.signal-interface")             \
    X(92, BaseDisplaySignalLevel, "base.display.signal-level")                                                        \
    X(93, BaseDisplayVideoSetup, "base.display.video-setup")                                                          \
    X(94, BaseDisplaySeparateSync, "base.display.separate-sync")                                                      \
    X(95, BaseDisplayCompositeSync, "base.display.composite-sync")                                                    \
    X(96, BaseDisplaySyncOnGreen, "base.display.sync-on-green") X(97, BaseDisplaySerration, "base.display.serration") \
    X(98, BaseDisplayDfp1Compatible, "base.display.dfp1-compatible")                                                  \
    X(99, BaseDisplayColorBitDepth, "base.display.color-bit-depth")                                                   \
    X(100, BaseDisplayInterface, "base.display.interface")                                                            \
    X(101, BaseDisplayScreenWidth, "base.display.screen-width")                                                       \
    X(102, BaseDisplayAspectRatioLandscape, "base.display.aspect-ratio-landscape")                                    \
    X(103, BaseDisplayScreenHeight, "base.display.screen-height")                                                     \
    X(104, BaseDisplayAspectRatioPortrait, "base.display.aspect-ratio-portrait")                                      \
    X(105, BaseDisplayGamma, "base.display.gamma") X(106, BaseDisplayStandby, "base.display.standby")                 \
    X(107, BaseDisplaySuspend, "base.display.suspend") X(108, BaseDisplayActiveOff, "base.display.active-off")        \
    X(109, BaseDisplayColorType, "base.display.color-type")                                                           \
    X(110, BaseDisplayColorEncodings, "base.display.color-encodings")                                                 \
    X(111, BaseDisplaySrgbDefault, "base.display.srgb-default")                                                       \
    X(112, BaseDisplayPreferredTiming, "base.display.preferred-timing")                                               \
    X(113, BaseDisplayPreferredIsNative, "base.display.preferred-is-native")                                          \
    X(114, BaseDisplayDefaultGtf, "base.display.default-gtf")                                                         \
    X(115, BaseDisplayContinuousFrequency, "base.display.continuous-frequency")                                       \
    /* base.chromaticity */                                                                                           \
    X(130, BaseChromaticity, "base.chromaticity") X(131, BaseChromaticityRedX, "base.chromaticity.red-x")             \
    X(132, BaseChromaticityRedY, "base.chromaticity.red-y")                                                           \
    X(133, BaseChromaticityGreenX, "base.chromaticity.green-x")                                                       \
    X(134, BaseChromaticityGreenY, "base.chromaticity.green-y")                                                       \
    X(135, BaseChromaticityBlueX, "base.chromaticity.blue-x")                                                         \
    X(136, BaseChromaticityBlueY, "base.chromaticity.blue-y")                                                         \
    X(137, BaseChromaticityWhiteX, "base.chromaticity.white-x")                                                       \
    X(138, BaseChromaticityWhiteY, "base.chromaticity.white-y")                                                       \
    /* base.established */                                                                                            \
    X(150, BaseEstablished, "base.established") X(151, BaseEstablishedMode, "base.established.mode")                  \
    X(152, BaseEstablishedManufacturer, "base.established.manufacturer")                                              \
    /* base.standard */                                                                                               \
    X(170, BaseStandard, "base.standard") X(171, BaseStandardHorizontalPixels, "base.standard.horizontal-pixels")     \
    X(172, BaseStandardAspectRatio, "base.standard.aspect-ratio")                                                     \
    X(173, BaseStandardRefreshRate, "base.standard.refresh-rate")                                                     \
    /* base.detailed */                                                                                               \
    X(190, BaseDetailed, "base.detailed") X(191, BaseDetailedPixelClock, "base.detailed.pixel-clock")                 \
    X(192, BaseDetailedHorizontalActive, "base.detailed.horizontal-active")                                           \
    X(193, BaseDetailedHorizontalBlanking, "base.detailed.horizontal-blanking")                                       \
    X(194, BaseDetailedVerticalActive, "base.detailed.vertical-active")                                               \
    X(195, BaseDetailedVerticalBlanking, "base.detailed.vertical-blanking")                                           \
    X(196, BaseDetailedHorizontalFrontPorch, "base.detailed.horizontal-front-porch")                                  \
    X(197, BaseDetailedHorizontalSyncWidth, "base.detailed.horizontal-sync-width")                                    \
    X(198, BaseDetailedVerticalFrontPorch, "base.detailed.vertical-front-porch")                                      \
    X(199, BaseDetailedVerticalSyncWidth, "base.detailed.vertical-sync-width")                                        \
    X(200, BaseDetailedImageWidth, "base.detailed.image-width")                                                       \
    X(201, BaseDetailedImageHeight, "base.detailed.image-height")                                                     \
    X(202, BaseDetailedHorizontalBorder, "base.detailed.horizontal-border")                                           \
    X(203, BaseDetailedVerticalBorder, "base.detailed.vertical-border")                                               \
    X(204, BaseDetailedInterlaced, "base.detailed.interlaced") X(205, BaseDetailedStereo, "base.detailed.stereo")     \
    X(206, BaseDetailedSyncType, "base.detailed.sync-type")                                                           \
    X(207, BaseDetailedSerrations, "base.detailed.serrations") X(208, BaseDetailedSyncOn, "base.detailed.sync-on")    \
    X(209, BaseDetailedHorizontalSyncPolarity, "base.detailed.horizontal-sync-polarity")                              \
    X(210, BaseDetailedVerticalSyncPolarity, "base.detailed.vertical-sync-polarity")                                  \
    /* base.descriptor */                                                                                             \
    X(221, BaseDescriptorText, "base.descriptor.text")                                                                \
    X(222, BaseDescriptorIndicator, "base.descriptor.indicator") X(223, BaseDescriptorTag, "base.descriptor.tag")     \
    /* base.range */                                                                                                  \
    X(240, BaseRange, "base.range") X(241, BaseRangeHorizontalRateOffsets, "base.range.horizontal-rate-offsets")      \
    X(242, BaseRangeVerticalRateOffsets, "base.range.vertical-rate-offsets")                                          \
    X(243, BaseRangeMinVerticalRate, "base.range.min-vertical-rate")                                                  \
    X(244, BaseRangeMaxVerticalRate, "base.range.max-vertical-rate")                                                  \
    X(245, BaseRangeMinHorizontalRate, "base.range.min-horizontal-rate")                                              \
    X(246, BaseRangeMaxHorizontalRate, "base.range.max-horizontal-rate")                                              \
    X(247, BaseRangeMaxPixelClock, "base.range.max-pixel-clock")                                                      \
    X(248, BaseRangeSecondaryTimingFormula, "base.range.secondary-timing-formula")                                    \
    X(249, BaseRangeVideoTimingSupport, "base.range.video-timing-support")                                            \
    X(250, BaseRangeGtfStartFrequency, "base.range.gtf-start-frequency") X(251, BaseRangeGtfC, "base.range.gtf-c")    \
    X(252, BaseRangeGtfM, "base.range.gtf-m") X(253, BaseRangeGtfK, "base.range.gtf-k")                               \
    X(254, BaseRangeGtfJ, "base.range.gtf-j") X(255, BaseRangeCvtVersion, "base.range.cvt-version")                   \
    X(256, BaseRangeCvtRevision, "base.range.cvt-revision")                                                           \
    X(257, BaseRangePixelClockPrecision, "base.range.pixel-clock-precision")                                          \
    X(258, BaseRangeMaxActivePixels, "base.range.max-active-pixels")                                                  \
    X(259, BaseRange4_3AspectRatio, "base.range.4-3-aspect-ratio")                                                    \
    X(260, BaseRange16_9AspectRatio, "base.range.16-9-aspect-ratio")                                                  \
    X(261, BaseRange16_10AspectRatio, "base.range.16-10-aspect-ratio")                                                \
    X(262, BaseRange5_4AspectRatio, "base.range.5-4-aspect-ratio")                                                    \
    X(263, BaseRange15_9AspectRatio, "base.range.15-9-aspect-ratio")                                                  \
    X(264, BaseRangePreferredAspectRatio, "base.range.preferred-aspect-ratio")                                        \
    X(265, BaseRangeCvtReducedBlanking, "base.range.cvt-reduced-blanking")                                            \
    X(266, BaseRangeCvtStandardBlanking, "base.range.cvt-standard-blanking")                                          \
    X(267, BaseRangeHorizontalShrink, "base.range.horizontal-shrink")                                                 \
    X(268, BaseRangeHorizontalStretch, "base.range.horizontal-stretch")                                               \
    X(269, BaseRangeVerticalShrink, "base.range.vertical-shrink")                                                     \
    X(270, BaseRangeVerticalStretch, "base.range.vertical-stretch")                                                   \
    X(271, BaseRangePreferredRefreshRate, "base.range.preferred-refresh-rate")                                        \
    /* base.color-management */                                                                                       \
    X(290, BaseColorManagement, "base.color-management")                                                              \
    X(291, BaseColorManagementVersion, "base.color-management.version")                                               \
    X(292, BaseColorManagementRedA3, "base.color-management.red-a3")                                                  \
    X(293, BaseColorManagementRedA2, "base.color-management.red-a2")                                                  \
    X(294, BaseColorManagementGreenA3, "base.color-management.green-a3")                                              \
    X(295, BaseColorManagementGreenA2, "base.color-management.green-a2")                                              \
    X(296, BaseColorManagementBlueA3, "base.color-management.blue-a3")                                                \
    X(297, BaseColorManagementBlueA2, "base.color-management.blue-a2")                                                \
    /* base.cvt-code */                                                                                               \
    X(310, BaseCvtCode, "base.cvt-code") X(311, BaseCvtCodeVerticalActive, "base.cvt-code.vertical-active")           \
    X(312, BaseCvtCodeAspectRatio, "base.cvt-code.aspect-ratio")                                                      \
    X(313, BaseCvtCodePreferredRate, "base.cvt-code.preferred-rate")                                                  \
    X(314, BaseCvtCode50HzStandard, "base.cvt-code.50-hz-standard")                                                   \
    X(315, BaseCvtCode60HzStandard, "base.cvt-code.60-hz-standard")                                                   \
    X(316, BaseCvtCode75HzStandard, "base.cvt-code.75-hz-standard")                                                   \
    X(317, BaseCvtCode85HzStandard, "base.cvt-code.85-hz-standard")                                                   \
    X(318, BaseCvtCode60HzReduced, "base.cvt-code.60-hz-reduced")                                                     \
    /* base.cvt-codes */                                                                                              \
    X(330, BaseCvtCodes, "base.cvt-codes") X(331, BaseCvtCodesVersion, "base.cvt-codes.version")                      \
    /* base.established-3 */                                                                                          \
    X(350, BaseEstablished3, "base.established-3") X(351, BaseEstablished3Revision, "base.established-3.revision")    \
    X(352, BaseEstablished3Mode, "base.established-3.mode")                                                           \
    /* base.manufacturer */                                                                                           \
    X(370, BaseManufacturer, "base.manufacturer") X(371, BaseManufacturerData, "base.manufacturer.data")              \
    /* base.color-point */                                                                                            \
    X(390, BaseColorPoint, "base.color-point") X(391, BaseColorPointIndex, "base.color-point.index")                  \
    X(392, BaseColorPointWhiteX, "base.color-point.white-x") X(393, BaseColorPointWhiteY, "base.color-point.white-y") \
    X(394, BaseColorPointWhiteGamma, "base.color-point.white-gamma")                                                  \
    X(395, BaseColorPointWhitePoint, "base.color-point.white-point")                                                  \
    /* cta */                                                                                                         \
    X(410, Cta, "cta") X(411, CtaRevision, "cta.revision") X(412, CtaDetailedOffset, "cta.detailed-offset")           \
    X(413, CtaUnderscan, "cta.underscan") X(414, CtaBasicAudio, "cta.basic-audio")                                    \
    X(415, CtaYcbcr444, "cta.ycbcr-444") X(416, CtaYcbcr422, "cta.ycbcr-422")                                         \
    X(417, CtaNativeCount, "cta.native-count") X(418, CtaReserved, "cta.reserved") X(419, CtaVendor, "cta.vendor")    \
    X(420, CtaVendorVideo, "cta.vendor-video") X(421, CtaVesaVtb, "cta.vesa-vtb")                                     \
    X(422, CtaVideoFormatPreference, "cta.video-format-preference") X(423, Cta420Video, "cta.420-video")              \
    X(424, CtaVendorAudio, "cta.vendor-audio") X(425, CtaProductInformation, "cta.product-information")               \
    X(426, CtaHdmiForumSink, "cta.hdmi-forum-sink") X(427, CtaNoExtendedTag, "cta.no-extended-tag")                   \
    X(428, CtaCollection, "cta.collection")                                                                           \
    /* cta.data-block */                                                                                              \
    X(441, CtaDataBlockTag, "cta.data-block.tag")                                                                     \
    X(442, CtaDataBlockLength, "cta.data-block.length")                                                               \
    X(443, CtaDataBlockExtendedTag, "cta.data-block.extended-tag") X(444, CtaDataBlockOui, "cta.data-block.oui")      \
    /* cta.audio */                                                                                                   \
    X(460, CtaAudio, "cta.audio") X(461, CtaAudioFormat, "cta.audio.format")                                          \
    X(462, CtaAudioExtendedFormat, "cta.audio.extended-format") X(463, CtaAudioChannels, "cta.audio.channels")        \
    X(464, CtaAudioMpegHLevel, "cta.audio.mpeg-h-level") X(465, CtaAudio192Khz, "cta.audio.192-khz")                  \
    X(466, CtaAudio176_4Khz, "cta.audio.176-4-khz") X(467, CtaAudio96Khz, "cta.audio.96-khz")                         \
    X(468, CtaAudio88_2Khz, "cta.audio.88-2-khz") X(469, CtaAudio48Khz, "cta.audio.48-khz")                           \
    X(470, CtaAudio44_1Khz, "cta.audio.44-1-khz") X(471, CtaAudio32Khz, "cta.audio.32-khz")                           \
    X(472, CtaAudio24Bit, "cta.audio.24-bit") X(473, CtaAudio20Bit, "cta.audio.20-bit")                               \
    X(474, CtaAudio16Bit, "cta.audio.16-bit") X(475, CtaAudioMaxBitRate, "cta.audio.max-bit-rate")                    \
    X(476, CtaAudioFormatDependentValue, "cta.audio.format-dependent-value")                                          \
    X(477, CtaAudioJointObjectCodingAcmod28, "cta.audio.joint-object-coding-acmod28")                                 \
    X(478, CtaAudioJointObjectCoding, "cta.audio.joint-object-coding") X(479, CtaAudioPcmHash, "cta.audio.pcm-hash")  \
    X(480, CtaAudioMatContent, "cta.audio.mat-content") X(481, CtaAudioProfile, "cta.audio.profile")                  \
    X(482, CtaAudio1024Tl, "cta.audio.1024-tl") X(483, CtaAudio960Tl, "cta.audio.960-tl")                             \
    X(484, CtaAudio22_2Multichannel, "cta.audio.22-2-multichannel")                                                   \
    X(485, CtaAudioMpegSurround, "cta.audio.mpeg-surround")                                                           \
    X(486, CtaAudioBaselineProfile, "cta.audio.baseline-profile")                                                     \
    X(487, CtaAudioLowComplexityProfile, "cta.audio.low-complexity-profile")                                          \
    X(488, CtaAudioDescriptor, "cta.audio.descriptor")                                                                \
    /* cta.video */                                                                                                   \
    X(500, CtaVideo, "cta.video") X(501, CtaVideoNative, "cta.video.native") X(502, CtaVideoVic, "cta.video.vic")     \
    X(503, CtaVideoDescriptor, "cta.video.descriptor")                                                                \
    /* cta.hdmi */                                                                                                    \
    X(520, CtaHdmi, "cta.hdmi") X(521, CtaHdmiPhysicalAddress, "cta.hdmi.physical-address")                           \
    X(522, CtaHdmiSupportsAi, "cta.hdmi.supports-ai") X(523, CtaHdmiDc48bit, "cta.hdmi.dc-48bit")                     \
    X(524, CtaHdmiDc36bit, "cta.hdmi.dc-36bit") X(525, CtaHdmiDc30bit, "cta.hdmi.dc-30bit")                           \
    X(526, CtaHdmiDcY444, "cta.hdmi.dc-y444") X(527, CtaHdmiDviDual, "cta.hdmi.dvi-dual")                             \
    X(528, CtaHdmiMaxTmdsClock, "cta.hdmi.max-tmds-clock")                                                            \
    X(529, CtaHdmiLatencyFieldsPresent, "cta.hdmi.latency-fields-present")                                            \
    X(530, CtaHdmiILatencyFieldsPresent, "cta.hdmi.i-latency-fields-present")                                         \
    X(531, CtaHdmiVideoPresent, "cta.hdmi.video-present") X(532, CtaHdmiCnc3, "cta.hdmi.cnc3")                        \
    X(533, CtaHdmiCnc2, "cta.hdmi.cnc2") X(534, CtaHdmiCnc1, "cta.hdmi.cnc1") X(535, CtaHdmiCnc0, "cta.hdmi.cnc0")    \
    X(536, CtaHdmiVideoLatency, "cta.hdmi.video-latency") X(537, CtaHdmiAudioLatency, "cta.hdmi.audio-latency")       \
    X(538, CtaHdmiInterlacedVideoLatency, "cta.hdmi.interlaced-video-latency")                                        \
    X(539, CtaHdmiInterlacedAudioLatency, "cta.hdmi.interlaced-audio-latency")                                        \
    X(540, CtaHdmi3dPresent, "cta.hdmi.3d-present") X(541, CtaHdmi3dMultiPresent, "cta.hdmi.3d-multi-present")        \
    X(542, CtaHdmiImageSize, "cta.hdmi.image-size") X(543, CtaHdmiVicLen, "cta.hdmi.vic-len")                         \
    X(544, CtaHdmi3dLen, "cta.hdmi.3d-len") X(545, CtaHdmiVic, "cta.hdmi.vic")                                        \
    X(546, CtaHdmi3dStructureAllSideBySideHalfQuincunx, "cta.hdmi.3d-structure-all.side-by-side-half-quincunx")       \
    X(547, CtaHdmi3dStructureAllSideBySideHalf, "cta.hdmi.3d-structure-all.side-by-side-half")                        \
    X(548, CtaHdmi3dStructureAllTopAndBottom, "cta.hdmi.3d-structure-all.top-and-bottom")                             \
    X(549, CtaHdmi3dStructureAllLDepthGraphics, "cta.hdmi.3d-structure-all.l-depth-graphics")                         \
    X(550, CtaHdmi3dStructureAllLDepth, "cta.hdmi.3d-structure-all.l-depth")                                          \
    X(551, CtaHdmi3dStructureAllSideBySideFull, "cta.hdmi.3d-structure-all.side-by-side-full")                        \
    X(552, CtaHdmi3dStructureAllLineAlternative, "cta.hdmi.3d-structure-all.line-alternative")                        \
    X(553, CtaHdmi3dStructureAllFieldAlternative, "cta.hdmi.3d-structure-all.field-alternative")                      \
    X(554, CtaHdmi3dStructureAllFramePacking, "cta.hdmi.3d-structure-all.frame-packing")                              \
    X(555, CtaHdmi2dVicOrder, "cta.hdmi.2d-vic-order") X(556, CtaHdmi3dStructure, "cta.hdmi.3d-structure")            \
    X(557, CtaHdmi3dDetail, "cta.hdmi.3d-detail") X(558, CtaHdmi3dStructureAll, "cta.hdmi.3d-structure-all")          \
    X(559, CtaHdmi3dMask, "cta.hdmi.3d-mask") X(560, CtaHdmi3dFormat, "cta.hdmi.3d-format")                           \
    X(561, CtaHdmi3dMaskPlace, "cta.hdmi.3d-mask.place")                                                              \
    /* cta.hdmi-forum */                                                                                              \
    X(580, CtaHdmiForum, "cta.hdmi-forum") X(581, CtaHdmiForumVersion, "cta.hdmi-forum.version")                      \
    X(582, CtaHdmiForumMaxTmdsCharacterRate, "cta.hdmi-forum.max-tmds-character-rate")                                \
    X(583, CtaHdmiForumScdcPresent, "cta.hdmi-forum.scdc-present")                                                    \
    X(584, CtaHdmiForumRrCapable, "cta.hdmi-forum.rr-capable")                                                        \
    X(585, CtaHdmiForumCableStatus, "cta.hdmi-forum.cable-status")                                                    \
    X(586, CtaHdmiForumCcbpci, "cta.hdmi-forum.ccbpci")                                                               \
    X(587, CtaHdmiForumLte340mcscScramble, "cta.hdmi-forum.lte-340mcsc-scramble")                                     \
    X(588, CtaHdmiForumIndependentView, "cta.hdmi-forum.independent-view")                                            \
    X(589, CtaHdmiForumDualView, "cta.hdmi-forum.dual-view")                                                          \
    X(590, CtaHdmiForum3dOsdDisparity, "cta.hdmi-forum.3d-osd-disparity")                                             \
    X(591, CtaHdmiForumMaxFrlRate, "cta.hdmi-forum.max-frl-rate")                                                     \
    X(592, CtaHdmiForumUhdVic, "cta.hdmi-forum.uhd-vic")                                                              \
    X(593, CtaHdmiForumDc48bit420, "cta.hdmi-forum.dc-48bit-420")                                                     \
    X(594, CtaHdmiForumDc36bit420, "cta.hdmi-forum.dc-36bit-420")                                                     \
    X(595, CtaHdmiForumDc30bit420, "cta.hdmi-forum.dc-30bit-420")                                                     \
    X(596, CtaHdmiForumFapaEndExtended, "cta.hdmi-forum.fapa-end-extended")                                           \
    X(597, CtaHdmiForumQms, "cta.hdmi-forum.qms") X(598, CtaHdmiForumMDelta, "cta.hdmi-forum.m-delta")                \
    X(599, CtaHdmiForumCinemaVrr, "cta.hdmi-forum.cinema-vrr") X(600, CtaHdmiForumCnmvrr, "cta.hdmi-forum.cnmvrr")    \
    X(601, CtaHdmiForumFva, "cta.hdmi-forum.fva") X(602, CtaHdmiForumAllm, "cta.hdmi-forum.allm")                     \
    X(603, CtaHdmiForumFapaStartLocation, "cta.hdmi-forum.fapa-start-location")                                       \
    X(604, CtaHdmiForumVrrMax, "cta.hdmi-forum.vrr-max") X(605, CtaHdmiForumVrrMin, "cta.hdmi-forum.vrr-min")         \
    X(606, CtaHdmiForumDsc1p2, "cta.hdmi-forum.dsc-1p2")                                                              \
    X(607, CtaHdmiForumDscNative420, "cta.hdmi-forum.dsc-native-420")                                                 \
    X(608, CtaHdmiForumQmsTfrMax, "cta.hdmi-forum.qms-tfr-max")                                                       \
    X(609, CtaHdmiForumQmsTfrMin, "cta.hdmi-forum.qms-tfr-min")                                                       \
    X(610, CtaHdmiForumDscAllBpp, "cta.hdmi-forum.dsc-all-bpp")                                                       \
    X(611, CtaHdmiForumDsc16bpc, "cta.hdmi-forum.dsc-16bpc") X(612, CtaHdmiForumDsc12bpc, "cta.hdmi-forum.dsc-12bpc") \
    X(613, CtaHdmiForumDsc10bpc, "cta.hdmi-forum.dsc-10bpc")                                                          \
    X(614, CtaHdmiForumDscMaxFrlRate, "cta.hdmi-forum.dsc-max-frl-rate")                                              \
    X(615, CtaHdmiForumDscMaxSlices, "cta.hdmi-forum.dsc-max-slices")                                                 \
    X(616, CtaHdmiForumDscTotalChunkKbytes, "cta.hdmi-forum.dsc-total-chunk-kbytes")                                  \
    /* cta.amd */                                                                                                     \
    X(630, CtaAmd, "cta.amd") X(631, CtaAmdVersion, "cta.amd.version")                                                \
    X(632, CtaAmdLuminancesValid, "cta.amd.luminances-valid")                                                         \
    X(633, CtaAmdMinRefreshRate, "cta.amd.min-refresh-rate") X(634, CtaAmdMaxRefreshRate, "cta.amd.max-refresh-rate") \
    X(635, CtaAmdMaxLuminance, "cta.amd.max-luminance") X(636, CtaAmdMinLuminance, "cta.amd.min-luminance")           \
    X(637, CtaAmdSecondMaxLuminance, "cta.amd.second-max-luminance")                                                  \
    X(638, CtaAmdSecondMinLuminance, "cta.amd.second-min-luminance")                                                  \
    /* cta.microsoft */                                                                                               \
    X(650, CtaMicrosoft, "cta.microsoft") X(651, CtaMicrosoftVersion, "cta.microsoft.version")                        \
    X(652, CtaMicrosoftDesktopUsage, "cta.microsoft.desktop-usage")                                                   \
    X(653, CtaMicrosoftThirdPartyUsage, "cta.microsoft.third-party-usage")                                            \
    X(654, CtaMicrosoftUseCase, "cta.microsoft.use-case")                                                             \
    X(655, CtaMicrosoftContainerId, "cta.microsoft.container-id")                                                     \
    /* cta.uhd-alliance */                                                                                            \
    X(670, CtaUhdAlliance, "cta.uhd-alliance") X(671, CtaUhdAllianceFilmmakerType, "cta.uhd-alliance.filmmaker-type") \
    X(672, CtaUhdAllianceFilmmakerSubtype, "cta.uhd-alliance.filmmaker-subtype")                                      \
    /* cta.speakers */                                                                                                \
    X(690, CtaSpeakers, "cta.speakers") X(691, CtaSpeakersFlwFrw, "cta.speakers.flw-frw")                             \
    X(692, CtaSpeakersRlcRrc, "cta.speakers.rlc-rrc") X(693, CtaSpeakersFlcFrc, "cta.speakers.flc-frc")               \
    X(694, CtaSpeakersBc, "cta.speakers.bc") X(695, CtaSpeakersBlBr, "cta.speakers.bl-br")                            \
    X(696, CtaSpeakersFc, "cta.speakers.fc") X(697, CtaSpeakersLfe1, "cta.speakers.lfe1")                             \
    X(698, CtaSpeakersFlFr, "cta.speakers.fl-fr") X(699, CtaSpeakersTpsilTpsir, "cta.speakers.tpsil-tpsir")           \
    X(700, CtaSpeakersSilSir, "cta.speakers.sil-sir") X(701, CtaSpeakersTpbc, "cta.speakers.tpbc")                    \
    X(702, CtaSpeakersLfe2, "cta.speakers.lfe2") X(703, CtaSpeakersLsRs, "cta.speakers.ls-rs")                        \
    X(704, CtaSpeakersTpfc, "cta.speakers.tpfc") X(705, CtaSpeakersTpc, "cta.speakers.tpc")                           \
    X(706, CtaSpeakersTpflTpfr, "cta.speakers.tpfl-tpfr") X(707, CtaSpeakersLsdRsd, "cta.speakers.lsd-rsd")           \
    X(708, CtaSpeakersTplsTprs, "cta.speakers.tpls-tprs") X(709, CtaSpeakersBtflBtfr, "cta.speakers.btfl-btfr")       \
    X(710, CtaSpeakersBtfc, "cta.speakers.btfc") X(711, CtaSpeakersTpblTpbr, "cta.speakers.tpbl-tpbr")                \
    X(712, CtaSpeakersAllocationType, "cta.speakers.allocation-type")                                                 \
    X(713, CtaSpeakersAllocation, "cta.speakers.allocation")                                                          \
    /* cta.transfer */                                                                                                \
    X(730, CtaTransfer, "cta.transfer") X(731, CtaTransferCurve, "cta.transfer.curve")                                \
    X(732, CtaTransferFirstLuminance, "cta.transfer.first-luminance")                                                 \
    X(733, CtaTransferLuminanceIncrement, "cta.transfer.luminance-increment")                                         \
    /* cta.video-format */                                                                                            \
    X(750, CtaVideoFormat, "cta.video-format") X(751, CtaVideoFormatYcbcr420, "cta.video-format.ycbcr-420")           \
    X(752, CtaVideoFormatNtsc, "cta.video-format.ntsc")                                                               \
    X(753, CtaVideoFormatDescriptorLength, "cta.video-format.descriptor-length")                                      \
    X(754, CtaVideoFormatBfr50, "cta.video-format.bfr50") X(755, CtaVideoFormatFr24, "cta.video-format.fr24")         \
    X(756, CtaVideoFormatResolution, "cta.video-format.resolution")                                                   \
    X(757, CtaVideoFormatBfr60, "cta.video-format.bfr60") X(758, CtaVideoFormatFr144, "cta.video-format.fr144")       \
    X(759, CtaVideoFormatFrameRateFactor16, "cta.video-format.frame-rate-factor-16")                                  \
    X(760, CtaVideoFormatFrameRateFactor12, "cta.video-format.frame-rate-factor-12")                                  \
    X(761, CtaVideoFormatFrameRateFactor8, "cta.video-format.frame-rate-factor-8")                                    \
    X(762, CtaVideoFormatFrameRateFactor4, "cta.video-format.frame-rate-factor-4")                                    \
    X(763, CtaVideoFormatFrameRateFactor2, "cta.video-format.frame-rate-factor-2")                                    \
    X(764, CtaVideoFormatFrameRateFactor1, "cta.video-format.frame-rate-factor-1")                                    \
    X(765, CtaVideoFormatFr48, "cta.video-format.fr48")                                                               \
    X(766, CtaVideoFormatDescriptor, "cta.video-format.descriptor")                                                   \
    /* cta.video-capability */                                                                                        \
    X(780, CtaVideoCapability, "cta.video-capability") X(781, CtaVideoCapabilityQy, "cta.video-capability.qy")        \
    X(782, CtaVideoCapabilityQs, "cta.video-capability.qs")                                                           \
    X(783, CtaVideoCapabilityPreferredScan, "cta.video-capability.preferred-scan")                                    \
    X(784, CtaVideoCapabilityItScan, "cta.video-capability.it-scan")                                                  \
    X(785, CtaVideoCapabilityCeScan, "cta.video-capability.ce-scan")                                                  \
    /* cta.hdr10-plus */                                                                                              \
    X(800, CtaHdr10Plus, "cta.hdr10-plus") X(801, CtaHdr10PlusPeakLuminance, "cta.hdr10-plus.peak-luminance")         \
    X(802, CtaHdr10PlusFullFramePeakLuminance, "cta.hdr10-plus.full-frame-peak-luminance")                            \
    X(803, CtaHdr10PlusApplicationVersion, "cta.hdr10-plus.application-version")                                      \
    /* cta.dolby-vision */                                                                                            \
    X(820, CtaDolbyVision, "cta.dolby-vision") X(821, CtaDolbyVisionVersion, "cta.dolby-vision.version")              \
    X(822, CtaDolbyVisionYuv422_12bit, "cta.dolby-vision.yuv422-12bit")                                               \
    X(823, CtaDolbyVision2160p60, "cta.dolby-vision.2160p60")                                                         \
    X(824, CtaDolbyVisionGlobalDimming, "cta.dolby-vision.global-dimming")                                            \
    X(825, CtaDolbyVisionRedX, "cta.dolby-vision.red-x") X(826, CtaDolbyVisionRedY, "cta.dolby-vision.red-y")         \
    X(827, CtaDolbyVisionGreenX, "cta.dolby-vision.green-x") X(828, CtaDolbyVisionGreenY, "cta.dolby-vision.green-y") \
    X(829, CtaDolbyVisionBlueX, "cta.dolby-vision.blue-x") X(830, CtaDolbyVisionBlueY, "cta.dolby-vision.blue-y")     \
    X(831, CtaDolbyVisionWhiteX, "cta.dolby-vision.white-x") X(832, CtaDolbyVisionWhiteY, "cta.dolby-vision.white-y") \
    X(833, CtaDolbyVisionTargetMinLuminance, "cta.dolby-vision.target-min-luminance")                                 \
    X(834, CtaDolbyVisionTargetMaxLuminance, "cta.dolby-vision.target-max-luminance")                                 \
    X(835, CtaDolbyVisionDmMajorVersion, "cta.dolby-vision.dm-major-version")                                         \
    X(836, CtaDolbyVisionDmMinorVersion, "cta.dolby-vision.dm-minor-version")                                         \
    X(837, CtaDolbyVisionDmVersion, "cta.dolby-vision.dm-version")                                                    \
    X(838, CtaDolbyVisionColorimetry, "cta.dolby-vision.colorimetry")                                                 \
    X(839, CtaDolbyVisionLatency, "cta.dolby-vision.latency")                                                         \
    X(840, CtaDolbyVisionBacklightControl, "cta.dolby-vision.backlight-control")                                      \
    X(841, CtaDolbyVisionBacklightMinLuminance, "cta.dolby-vision.backlight-min-luminance")                           \
    X(842, CtaDolbyVisionInterface, "cta.dolby-vision.interface")                                                     \
    X(843, CtaDolbyVision10b12b444, "cta.dolby-vision.10b-12b-444")                                                   \
    /* cta.display-device */                                                                                          \
    X(860, CtaDisplayDevice, "cta.display-device")                                                                    \
    X(861, CtaDisplayDeviceInterfaceType, "cta.display-device.interface-type")                                        \
    X(862, CtaDisplayDeviceAnalogSubtype, "cta.display-device.analog-subtype")                                        \
    X(863, CtaDisplayDeviceLanes, "cta.display-device.lanes")                                                         \
    X(864, CtaDisplayDeviceInterfaceVersion, "cta.display-device.interface-version")                                  \
    X(865, CtaDisplayDeviceInterfaceRelease, "cta.display-device.interface-release")                                  \
    X(866, CtaDisplayDeviceContentProtection, "cta.display-device.content-protection")                                \
    X(867, CtaDisplayDeviceMinClock, "cta.display-device.min-clock")                                                  \
    X(868, CtaDisplayDeviceMaxClock, "cta.display-device.max-clock")                                                  \
    X(869, CtaDisplayDeviceHorizontalPixels, "cta.display-device.horizontal-pixels")                                  \
    X(870, CtaDisplayDeviceVerticalPixels, "cta.display-device.vertical-pixels")                                      \
    X(871, CtaDisplayDeviceAspectRatio, "cta.display-device.aspect-ratio")                                            \
    X(872, CtaDisplayDeviceDefaultOrientation, "cta.display-device.default-orientation")                              \
    X(873, CtaDisplayDeviceRotationCapability, "cta.display-device.rotation-capability")                              \
    X(874, CtaDisplayDeviceZeroPixelLocation, "cta.display-device.zero-pixel-location")                               \
    X(875, CtaDisplayDeviceScanDirection, "cta.display-device.scan-direction")                                        \
    X(876, CtaDisplayDeviceSubPixelLayout, "cta.display-device.sub-pixel-layout")                                     \
    X(877, CtaDisplayDeviceHorizontalPitch, "cta.display-device.horizontal-pitch")                                    \
    X(878, CtaDisplayDeviceVerticalPitch, "cta.display-device.vertical-pitch")                                        \
    X(879, CtaDisplayDeviceDithering, "cta.display-device.dithering")                                                 \
    X(880, CtaDisplayDeviceDirectDrive, "cta.display-device.direct-drive")                                            \
    X(881, CtaDisplayDeviceOverdriveNotRecommended, "cta.display-device.overdrive-not-recommended")                   \
    X(882, CtaDisplayDeviceDeinterlacing, "cta.display-device.deinterlacing")                                         \
    X(883, CtaDisplayDeviceAudioSupport, "cta.display-device.audio-support")                                          \
    X(884, CtaDisplayDeviceSeparateAudioInputs, "cta.display-device.separate-audio-inputs")                           \
    X(885, CtaDisplayDeviceAudioInputOverride, "cta.display-device.audio-input-override")                             \
    X(886, CtaDisplayDeviceAudioDelaySign, "cta.display-device.audio-delay-sign")                                     \
    X(887, CtaDisplayDeviceAudioDelay, "cta.display-device.audio-delay")                                              \
    X(888, CtaDisplayDeviceFrameRateConversion, "cta.display-device.frame-rate-conversion")                           \
    X(889, CtaDisplayDeviceFrameRateRange, "cta.display-device.frame-rate-range")                                     \
    X(890, CtaDisplayDeviceFrameRate, "cta.display-device.frame-rate")                                                \
    X(891, CtaDisplayDeviceInterfaceBitDepth, "cta.display-device.interface-bit-depth")                               \
    X(892, CtaDisplayDeviceDisplayBitDepth, "cta.display-device.display-bit-depth")                                   \
    X(893, CtaDisplayDevicePrimary4X, "cta.display-device.primary-4-x")                                               \
    X(894, CtaDisplayDevicePrimary4Y, "cta.display-device.primary-4-y")                                               \
    X(895, CtaDisplayDevicePrimary5X, "cta.display-device.primary-5-x")                                               \
    X(896, CtaDisplayDevicePrimary5Y, "cta.display-device.primary-5-y")                                               \
    X(897, CtaDisplayDevicePrimary6X, "cta.display-device.primary-6-x")                                               \
    X(898, CtaDisplayDevicePrimary6Y, "cta.display-device.primary-6-y")                                               \
    X(899, CtaDisplayDeviceAdditionalPrimaries, "cta.display-device.additional-primaries")                            \
    X(900, CtaDisplayDeviceResponseTimeTransition, "cta.display-device.response-time-transition")                     \
    X(901, CtaDisplayDeviceResponseTime, "cta.display-device.response-time")                                          \
    X(902, CtaDisplayDeviceHorizontalOverscan, "cta.display-device.horizontal-overscan")                              \
    X(903, CtaDisplayDeviceVerticalOverscan, "cta.display-device.vertical-overscan")                                  \
    /* cta.colorimetry */                                                                                             \
    X(920, CtaColorimetry, "cta.colorimetry") X(921, CtaColorimetryBt2020rgb, "cta.colorimetry.bt2020rgb")            \
    X(922, CtaColorimetryBt2020ycc, "cta.colorimetry.bt2020ycc")                                                      \
    X(923, CtaColorimetryBt2020cycc, "cta.colorimetry.bt2020cycc")                                                    \
    X(924, CtaColorimetryOprgb, "cta.colorimetry.oprgb") X(925, CtaColorimetryOpycc601, "cta.colorimetry.opycc601")   \
    X(926, CtaColorimetrySycc601, "cta.colorimetry.sycc601")                                                          \
    X(927, CtaColorimetryXvycc709, "cta.colorimetry.xvycc709")                                                        \
    X(928, CtaColorimetryXvycc601, "cta.colorimetry.xvycc601")                                                        \
    X(929, CtaColorimetrySt2113rgb, "cta.colorimetry.st2113rgb") X(930, CtaColorimetryIctcp, "cta.colorimetry.ictcp") \
    X(931, CtaColorimetrySrgb, "cta.colorimetry.srgb") X(932, CtaColorimetryDefaultrgb, "cta.colorimetry.defaultrgb") \
    X(933, CtaColorimetryGamutMetadataP0, "cta.colorimetry.gamut-metadata-p0")                                        \
    /* cta.hdr-static */                                                                                              \
    X(950, CtaHdrStatic, "cta.hdr-static") X(951, CtaHdrStaticHlg, "cta.hdr-static.hlg")                              \
    X(952, CtaHdrStaticSmpteSt2084, "cta.hdr-static.smpte-st-2084")                                                   \
    X(953, CtaHdrStaticTraditionalGammaHdr, "cta.hdr-static.traditional-gamma-hdr")                                   \
    X(954, CtaHdrStaticTraditionalGammaSdr, "cta.hdr-static.traditional-gamma-sdr")                                   \
    X(955, CtaHdrStaticMetadataType1, "cta.hdr-static.metadata-type-1")                                               \
    X(956, CtaHdrStaticMaxLuminance, "cta.hdr-static.max-luminance")                                                  \
    X(957, CtaHdrStaticMaxFrameAverageLuminance, "cta.hdr-static.max-frame-average-luminance")                        \
    X(958, CtaHdrStaticMinLuminance, "cta.hdr-static.min-luminance")                                                  \
    /* cta.hdr-dynamic */                                                                                             \
    X(970, CtaHdrDynamic, "cta.hdr-dynamic") X(971, CtaHdrDynamicLength, "cta.hdr-dynamic.length")                    \
    X(972, CtaHdrDynamicType, "cta.hdr-dynamic.type") X(973, CtaHdrDynamicSlHdr3, "cta.hdr-dynamic.sl-hdr3")          \
    X(974, CtaHdrDynamicSlHdr2, "cta.hdr-dynamic.sl-hdr2") X(975, CtaHdrDynamicSlHdr1, "cta.hdr-dynamic.sl-hdr1")     \
    X(976, CtaHdrDynamicVersion, "cta.hdr-dynamic.version")                                                           \
    X(977, CtaHdrDynamicOptionalFields, "cta.hdr-dynamic.optional-fields")                                            \
    X(978, CtaHdrDynamicMetadata, "cta.hdr-dynamic.metadata")                                                         \
    /* cta.native-resolution */                                                                                       \
    X(990, CtaNativeResolution, "cta.native-resolution")                                                              \
    X(991, CtaNativeResolutionSizePrecision, "cta.native-resolution.size-precision")                                  \
    X(992, CtaNativeResolutionSizePresent, "cta.native-resolution.size-present")                                      \
    X(993, CtaNativeResolutionImageWidth, "cta.native-resolution.image-width")                                        \
    X(994, CtaNativeResolutionImageHeight, "cta.native-resolution.image-height")                                      \
    /* cta.420-map */                                                                                                 \
    X(1010, Cta420Map, "cta.420-map") X(1011, Cta420MapVic, "cta.420-map.vic")                                        \
    /* cta.dolby-audio */                                                                                             \
    X(1030, CtaDolbyAudio, "cta.dolby-audio") X(1031, CtaDolbyAudioHeadphoneOnly, "cta.dolby-audio.headphone-only")   \
    X(1032, CtaDolbyAudioHeightSpeakerZone, "cta.dolby-audio.height-speaker-zone")                                    \
    X(1033, CtaDolbyAudioSurroundSpeakerZone, "cta.dolby-audio.surround-speaker-zone")                                \
    X(1034, CtaDolbyAudioCenterSpeakerZone, "cta.dolby-audio.center-speaker-zone")                                    \
    X(1035, CtaDolbyAudioVersion, "cta.dolby-audio.version")                                                          \
    X(1036, CtaDolbyAudioMatPcm48KhzOnly, "cta.dolby-audio.mat-pcm-48-khz-only")                                      \
    /* cta.hdmi-audio */                                                                                              \
    X(1050, CtaHdmiAudio, "cta.hdmi-audio")                                                                           \
    X(1051, CtaHdmiAudioSupportsMsNonmixed, "cta.hdmi-audio.supports-ms-nonmixed")                                    \
    X(1052, CtaHdmiAudioMaxStreamCount, "cta.hdmi-audio.max-stream-count")                                            \
    X(1053, CtaHdmiAudioNumHdmi3dAd, "cta.hdmi-audio.num-hdmi-3d-ad")                                                 \
    X(1054, CtaHdmiAudioFormat, "cta.hdmi-audio.format") X(1055, CtaHdmiAudioChannels, "cta.hdmi-audio.channels")     \
    X(1056, CtaHdmiAudio192Khz, "cta.hdmi-audio.192-khz") X(1057, CtaHdmiAudio176_4Khz, "cta.hdmi-audio.176-4-khz")   \
    X(1058, CtaHdmiAudio96Khz, "cta.hdmi-audio.96-khz") X(1059, CtaHdmiAudio88_2Khz, "cta.hdmi-audio.88-2-khz")       \
    X(1060, CtaHdmiAudio48Khz, "cta.hdmi-audio.48-khz") X(1061, CtaHdmiAudio44_1Khz, "cta.hdmi-audio.44-1-khz")       \
    X(1062, CtaHdmiAudio32Khz, "cta.hdmi-audio.32-khz") X(1063, CtaHdmiAudio24Bit, "cta.hdmi-audio.24-bit")           \
    X(1064, CtaHdmiAudio20Bit, "cta.hdmi-audio.20-bit") X(1065, CtaHdmiAudio16Bit, "cta.hdmi-audio.16-bit")           \
    X(1066, CtaHdmiAudioFormatDependentValue, "cta.hdmi-audio.format-dependent-value")                                \
    X(1067, CtaHdmiAudioDescriptor, "cta.hdmi-audio.descriptor")                                                      \
    /* cta.room */                                                                                                    \
    X(1080, CtaRoom, "cta.room") X(1081, CtaRoomDisplay, "cta.room.display")                                          \
    X(1082, CtaRoomSpeaker, "cta.room.speaker") X(1083, CtaRoomSld, "cta.room.sld")                                   \
    X(1084, CtaRoomSpeakerCount, "cta.room.speaker-count") X(1085, CtaRoomXMax, "cta.room.x-max")                     \
    X(1086, CtaRoomYMax, "cta.room.y-max") X(1087, CtaRoomZMax, "cta.room.z-max")                                     \
    X(1088, CtaRoomDisplayX, "cta.room.display-x") X(1089, CtaRoomDisplayY, "cta.room.display-y")                     \
    X(1090, CtaRoomDisplayZ, "cta.room.display-z")                                                                    \
    /* cta.speaker-location */                                                                                        \
    X(1100, CtaSpeakerLocation, "cta.speaker-location")                                                               \
    X(1101, CtaSpeakerLocationCoord, "cta.speaker-location.coord")                                                    \
    X(1102, CtaSpeakerLocationActive, "cta.speaker-location.active")                                                  \
    X(1103, CtaSpeakerLocationChannelIndex, "cta.speaker-location.channel-index")                                     \
    X(1104, CtaSpeakerLocationSpeakerId, "cta.speaker-location.speaker-id")                                           \
    X(1105, CtaSpeakerLocationX, "cta.speaker-location.x") X(1106, CtaSpeakerLocationY, "cta.speaker-location.y")     \
    X(1107, CtaSpeakerLocationZ, "cta.speaker-location.z")                                                            \
    X(1108, CtaSpeakerLocationDescriptor, "cta.speaker-location.descriptor")                                          \
    /* cta.infoframe */                                                                                               \
    X(1120, CtaInfoframe, "cta.infoframe") X(1121, CtaInfoframeProcessingLength, "cta.infoframe.processing-length")   \
    X(1122, CtaInfoframeVendorSpecificAtOnce, "cta.infoframe.vendor-specific-at-once")                                \
    X(1123, CtaInfoframePayload, "cta.infoframe.payload") X(1124, CtaInfoframeLength, "cta.infoframe.length")         \
    X(1125, CtaInfoframeType, "cta.infoframe.type") X(1126, CtaInfoframeOui, "cta.infoframe.oui")                     \
    X(1127, CtaInfoframeDescriptor, "cta.infoframe.descriptor")                                                       \
    /* cta.type7 */                                                                                                   \
    X(1140, CtaType7, "cta.type7") X(1141, CtaType7M, "cta.type7.m") X(1142, CtaType7Revision, "cta.type7.revision")  \
    /* cta.type8 */                                                                                                   \
    X(1160, CtaType8, "cta.type8") X(1161, CtaType8CodeType, "cta.type8.code-type")                                   \
    X(1162, CtaType8Ycbcr420, "cta.type8.ycbcr-420") X(1163, CtaType8CodeSize, "cta.type8.code-size")                 \
    X(1164, CtaType8Revision, "cta.type8.revision")                                                                   \
    /* cta.type10 */                                                                                                  \
    X(1180, CtaType10, "cta.type10") X(1181, CtaType10M, "cta.type10.m")                                              \
    X(1182, CtaType10Revision, "cta.type10.revision")                                                                 \
    /* cta.extension-override */                                                                                      \
    X(1200, CtaExtensionOverride, "cta.extension-override")                                                           \
    X(1201, CtaExtensionOverrideCount, "cta.extension-override.count")                                                \
    /* cta.tone-mapping */                                                                                            \
    X(1220, CtaToneMapping, "cta.tone-mapping") X(1221, CtaToneMappingDrdm, "cta.tone-mapping.drdm")                  \
    X(1222, CtaToneMappingGrdm, "cta.tone-mapping.grdm") X(1223, CtaToneMappingVersion, "cta.tone-mapping.version")   \
    X(1224, CtaToneMappingGamut, "cta.tone-mapping.gamut") X(1225, CtaToneMappingMaxRgb, "cta.tone-mapping.max-rgb")  \
    X(1226, CtaToneMappingUseHgigDrdm, "cta.tone-mapping.use-hgig-drdm")                                              \
    X(1227, CtaToneMappingHgigDrdmIndex, "cta.tone-mapping.hgig-drdm-index")                                          \
    X(1228, CtaToneMappingRedX, "cta.tone-mapping.red-x") X(1229, CtaToneMappingRedY, "cta.tone-mapping.red-y")       \
    X(1230, CtaToneMappingGreenX, "cta.tone-mapping.green-x")                                                         \
    X(1231, CtaToneMappingGreenY, "cta.tone-mapping.green-y") X(1232, CtaToneMappingBlueX, "cta.tone-mapping.blue-x") \
    X(1233, CtaToneMappingBlueY, "cta.tone-mapping.blue-y") X(1234, CtaToneMappingWhiteX, "cta.tone-mapping.white-x") \
    X(1235, CtaToneMappingWhiteY, "cta.tone-mapping.white-y")                                                         \
    /* cta.video-reference */                                                                                         \
    X(1250, CtaVideoReference, "cta.video-reference") X(1251, CtaVideoReferenceVic, "cta.video-reference.vic")        \
    X(1252, CtaVideoReferenceDetailed, "cta.video-reference.detailed")                                                \
    X(1253, CtaVideoReferenceType7Or10, "cta.video-reference.type7-or-10")                                            \
    X(1254, CtaVideoReferenceVideoFormatRate, "cta.video-reference.video-format-rate")                                \
    X(1255, CtaVideoReferenceType8, "cta.video-reference.type8")                                                      \
    /* displayid */                                                                                                   \
    X(1270, Displayid, "displayid") X(1271, DisplayidUnknown, "displayid.unknown")                                    \
    X(1272, DisplayidCta, "displayid.cta") X(1273, DisplayidType4, "displayid.type4")                                 \
    X(1274, DisplayidDmtModes, "displayid.dmt-modes") X(1275, DisplayidVicModes, "displayid.vic-modes")               \
    X(1276, DisplayidType8, "displayid.type8") X(1277, DisplayidDmtModesMode, "displayid.dmt-modes.mode")             \
    X(1278, DisplayidVicModesMode, "displayid.vic-modes.mode")                                                        \
    /* displayid.section */                                                                                           \
    X(1290, DisplayidSection, "displayid.section") X(1291, DisplayidSectionVersion, "displayid.section.version")      \
    X(1292, DisplayidSectionRevision, "displayid.section.revision")                                                   \
    X(1293, DisplayidSectionLength, "displayid.section.length")                                                       \
    X(1294, DisplayidSectionProductType, "displayid.section.product-type")                                            \
    X(1295, DisplayidSectionUseCase, "displayid.section.use-case")                                                    \
    X(1296, DisplayidSectionExtensionCount, "displayid.section.extension-count")                                      \
    X(1297, DisplayidSectionChecksum, "displayid.section.checksum")                                                   \
    /* displayid.data-block */                                                                                        \
    X(1311, DisplayidDataBlockTag, "displayid.data-block.tag")                                                        \
    X(1312, DisplayidDataBlockRevision, "displayid.data-block.revision")                                              \
    X(1313, DisplayidDataBlockLength, "displayid.data-block.length")                                                  \
    /* displayid.hmd */                                                                                               \
    X(1330, DisplayidHmd, "displayid.hmd") X(1331, DisplayidHmdDualLayer, "displayid.hmd.dual-layer")                 \
    X(1332, DisplayidHmdInterleavingMode, "displayid.hmd.interleaving-mode")                                          \
    X(1333, DisplayidHmdExtendedFrameMode, "displayid.hmd.extended-frame-mode")                                       \
    X(1334, DisplayidHmdDisplays, "displayid.hmd.displays") X(1335, DisplayidHmdStreams, "displayid.hmd.streams")     \
    X(1336, DisplayidHmdLayers, "displayid.hmd.layers")                                                               \
    X(1337, DisplayidHmdLayerMetadata, "displayid.hmd.layer-metadata")                                                \
    X(1338, DisplayidHmdReplicationFactor, "displayid.hmd.replication-factor")                                        \
    X(1339, DisplayidHmdRightLowDistortionAreaX, "displayid.hmd.right-low-distortion-area-x")                         \
    X(1340, DisplayidHmdRightLowDistortionAreaY, "displayid.hmd.right-low-distortion-area-y")                         \
    X(1341, DisplayidHmdLeftLowDistortionAreaX, "displayid.hmd.left-low-distortion-area-x")                           \
    X(1342, DisplayidHmdLeftLowDistortionAreaY, "displayid.hmd.left-low-distortion-area-y")                           \
    X(1343, DisplayidHmdLowDistortionAreaWidth, "displayid.hmd.low-distortion-area-width")                            \
    X(1344, DisplayidHmdLowDistortionAreaHeight, "displayid.hmd.low-distortion-area-height")                          \
    X(1345, DisplayidHmdRightEyeRotationOrientation, "displayid.hmd.right-eye-rotation-orientation")                  \
    X(1346, DisplayidHmdLeftEyeRotationOrientation, "displayid.hmd.left-eye-rotation-orientation")                    \
    X(1347, DisplayidHmdRightLensDiameter, "displayid.hmd.right-lens-diameter")                                       \
    X(1348, DisplayidHmdLeftLensDiameter, "displayid.hmd.left-lens-diameter")                                         \
    X(1349, DisplayidHmdInterocularAngle, "displayid.hmd.interocular-angle")                                          \
    X(1350, DisplayidHmdLensAdjustment, "displayid.hmd.lens-adjustment")                                              \
    X(1351, DisplayidHmdLensAdjustMotion, "displayid.hmd.lens-adjust-motion")                                         \
    X(1352, DisplayidHmdLensDistanceAvailable, "displayid.hmd.lens-distance-available")                               \
    X(1353, DisplayidHmdIpdUseful, "displayid.hmd.ipd-useful")                                                        \
    X(1354, DisplayidHmdLensAdjustMin, "displayid.hmd.lens-adjust-min")                                               \
    X(1355, DisplayidHmdLensAdjustmentRange, "displayid.hmd.lens-adjustment-range")                                   \
    X(1356, DisplayidHmdIpdCenterOffset, "displayid.hmd.ipd-center-offset")                                           \
    X(1357, DisplayidHmdIpdMeasurementMin, "displayid.hmd.ipd-measurement-min")                                       \
    X(1358, DisplayidHmdIpdMeasurementRange, "displayid.hmd.ipd-measurement-range")                                   \
    X(1359, DisplayidHmdRightDisplayDistance, "displayid.hmd.right-display-distance")                                 \
    X(1360, DisplayidHmdLeftDisplayDistance, "displayid.hmd.left-display-distance")                                   \
    X(1361, DisplayidHmdRightEyeDistance, "displayid.hmd.right-eye-distance")                                         \
    X(1362, DisplayidHmdLeftEyeDistance, "displayid.hmd.left-eye-distance")                                           \
    X(1363, DisplayidHmdFoveatedRendering, "displayid.hmd.foveated-rendering")                                        \
    X(1364, DisplayidHmdHorizontalFieldOfView, "displayid.hmd.horizontal-field-of-view")                              \
    X(1365, DisplayidHmdRightFieldOfViewRight, "displayid.hmd.right-field-of-view-right")                             \
    X(1366, DisplayidHmdRightFieldOfViewLeft, "displayid.hmd.right-field-of-view-left")                               \
    X(1367, DisplayidHmdRightFieldOfViewUp, "displayid.hmd.right-field-of-view-up")                                   \
    X(1368, DisplayidHmdRightFieldOfViewDown, "displayid.hmd.right-field-of-view-down")                               \
    X(1369, DisplayidHmdLeftFieldOfViewRight, "displayid.hmd.left-field-of-view-right")                               \
    X(1370, DisplayidHmdLeftFieldOfViewLeft, "displayid.hmd.left-field-of-view-left")                                 \
    X(1371, DisplayidHmdLeftFieldOfViewUp, "displayid.hmd.left-field-of-view-up")                                     \
    X(1372, DisplayidHmdLeftFieldOfViewDown, "displayid.hmd.left-field-of-view-down")                                 \
    X(1373, DisplayidHmdRightFocalLength, "displayid.hmd.right-focal-length")                                         \
    X(1374, DisplayidHmdLeftFocalLength, "displayid.hmd.left-focal-length")                                           \
    X(1375, DisplayidHmdRightCenterOfProjectionY, "displayid.hmd.right-center-of-projection-y")                       \
    X(1376, DisplayidHmdRightCenterOfProjectionX, "displayid.hmd.right-center-of-projection-x")                       \
    X(1377, DisplayidHmdLeftCenterOfProjectionY, "displayid.hmd.left-center-of-projection-y")                         \
    X(1378, DisplayidHmdLeftCenterOfProjectionX, "displayid.hmd.left-center-of-projection-x")                         \
    X(1379, DisplayidHmdLayer0Streams, "displayid.hmd.layer-0-streams")                                               \
    X(1380, DisplayidHmdLayer1Streams, "displayid.hmd.layer-1-streams")                                               \
    /* displayid.hmd-layer */                                                                                         \
    X(1390, DisplayidHmdLayer, "displayid.hmd-layer") X(1391, DisplayidHmdLayerVendor, "displayid.hmd-layer.vendor")  \
    X(1392, DisplayidHmdLayerProductCode, "displayid.hmd-layer.product-code")                                         \
    X(1393, DisplayidHmdLayerSerialNumber, "displayid.hmd-layer.serial-number")                                       \
    X(1394, DisplayidHmdLayerLayerNumber, "displayid.hmd-layer.layer-number")                                         \
    X(1395, DisplayidHmdLayerLayerConfigurable, "displayid.hmd-layer.layer-configurable")                             \
    X(1396, DisplayidHmdLayerCroppingSupported, "displayid.hmd-layer.cropping-supported")                             \
    X(1397, DisplayidHmdLayerLensDistortion, "displayid.hmd-layer.lens-distortion")                                   \
    X(1398, DisplayidHmdLayerLensDistortionConfigurable, "displayid.hmd-layer.lens-distortion-configurable")          \
    X(1399, DisplayidHmdLayerGamma, "displayid.hmd-layer.gamma")                                                      \
    X(1400, DisplayidHmdLayerGammaConfigurable, "displayid.hmd-layer.gamma-configurable")                             \
    X(1401, DisplayidHmdLayerDegamma, "displayid.hmd-layer.degamma")                                                  \
    X(1402, DisplayidHmdLayerDegammaConfigurable, "displayid.hmd-layer.degamma-configurable")                         \
    X(1403, DisplayidHmdLayerMuraCompensation, "displayid.hmd-layer.mura-compensation")                               \
    X(1404, DisplayidHmdLayerMuraCompensationConfigurable, "displayid.hmd-layer.mura-compensation-configurable")      \
    X(1405, DisplayidHmdLayerVbi, "displayid.hmd-layer.vbi")                                                          \
    X(1406, DisplayidHmdLayerVbiConfigurable, "displayid.hmd-layer.vbi-configurable")                                 \
    X(1407, DisplayidHmdLayerReprojection, "displayid.hmd-layer.reprojection")                                        \
    X(1408, DisplayidHmdLayerReprojectionConfigurable, "displayid.hmd-layer.reprojection-configurable")               \
    X(1409, DisplayidHmdLayerScaling2x, "displayid.hmd-layer.scaling-2x")                                             \
    X(1410, DisplayidHmdLayerScaling3x, "displayid.hmd-layer.scaling-3x")                                             \
    X(1411, DisplayidHmdLayerScaling4x, "displayid.hmd-layer.scaling-4x")                                             \
    X(1412, DisplayidHmdLayerScaling5x, "displayid.hmd-layer.scaling-5x")                                             \
    X(1413, DisplayidHmdLayerScaling6x, "displayid.hmd-layer.scaling-6x")                                             \
    X(1414, DisplayidHmdLayerScaling8x, "displayid.hmd-layer.scaling-8x")                                             \
    X(1415, DisplayidHmdLayerScalingOther, "displayid.hmd-layer.scaling-other")                                       \
    X(1416, DisplayidHmdLayerScalingConfigurable, "displayid.hmd-layer.scaling-configurable")                         \
    X(1417, DisplayidHmdLayerUnlistedScaling0, "displayid.hmd-layer.unlisted-scaling-0")                              \
    X(1418, DisplayidHmdLayerUnlistedScaling1, "displayid.hmd-layer.unlisted-scaling-1")                              \
    X(1419, DisplayidHmdLayerUnlistedScaling2, "displayid.hmd-layer.unlisted-scaling-2")                              \
    X(1420, DisplayidHmdLayerUnlistedScaling3, "displayid.hmd-layer.unlisted-scaling-3")                              \
    X(1421, DisplayidHmdLayerSeparateStreamsSideBySide, "displayid.hmd-layer.separate-streams-side-by-side")          \
    X(1422, DisplayidHmdLayerSeparateStreamsStacked, "displayid.hmd-layer.separate-streams-stacked")                  \
    /* displayid.range */                                                                                             \
    X(1440, DisplayidRange, "displayid.range")                                                                        \
    X(1441, DisplayidRangeMinPixelClock, "displayid.range.min-pixel-clock")                                           \
    X(1442, DisplayidRangeMaxPixelClock, "displayid.range.max-pixel-clock")                                           \
    X(1443, DisplayidRangeMinHorizontalFrequency, "displayid.range.min-horizontal-frequency")                         \
    X(1444, DisplayidRangeMaxHorizontalFrequency, "displayid.range.max-horizontal-frequency")                         \
    X(1445, DisplayidRangeMinHorizontalBlanking, "displayid.range.min-horizontal-blanking")                           \
    X(1446, DisplayidRangeMinVerticalRefreshRate, "displayid.range.min-vertical-refresh-rate")                        \
    X(1447, DisplayidRangeMaxVerticalRefreshRate, "displayid.range.max-vertical-refresh-rate")                        \
    X(1448, DisplayidRangeMinVerticalBlanking, "displayid.range.min-vertical-blanking")                               \
    X(1449, DisplayidRangeInterlacedTimings, "displayid.range.interlaced-timings")                                    \
    X(1450, DisplayidRangeCvtTimings, "displayid.range.cvt-timings")                                                  \
    X(1451, DisplayidRangeCvtReducedBlanking, "displayid.range.cvt-reduced-blanking")                                 \
    X(1452, DisplayidRangeDiscrete, "displayid.range.discrete")                                                       \
    X(1453, DisplayidDynamicRangeSeamless, "displayid.dynamic-range.seamless")                                        \
    X(1454, DisplayidDynamicRange, "displayid.dynamic-range")                                                         \
    /* displayid.power */                                                                                             \
    X(1470, DisplayidPower, "displayid.power") X(1471, DisplayidPowerT1Min, "displayid.power.t1-min")                 \
    X(1472, DisplayidPowerT1Max, "displayid.power.t1-max") X(1473, DisplayidPowerT2Max, "displayid.power.t2-max")     \
    X(1474, DisplayidPowerT3Max, "displayid.power.t3-max") X(1475, DisplayidPowerT4Min, "displayid.power.t4-min")     \
    X(1476, DisplayidPowerT5Min, "displayid.power.t5-min") X(1477, DisplayidPowerT6Min, "displayid.power.t6-min")     \
    /* displayid.interface */                                                                                         \
    X(1490, DisplayidInterface, "displayid.interface") X(1491, DisplayidInterfaceType, "displayid.interface.type")    \
    X(1492, DisplayidInterfaceAnalogInterface, "displayid.interface.analog-interface")                                \
    X(1493, DisplayidInterfaceLinks, "displayid.interface.links")                                                     \
    X(1494, DisplayidInterfaceVersion, "displayid.interface.version")                                                 \
    X(1495, DisplayidInterfaceRevision, "displayid.interface.revision")                                               \
    X(1496, DisplayidInterfaceContentProtection, "displayid.interface.content-protection")                            \
    X(1497, DisplayidInterfaceContentProtectionVersion, "displayid.interface.content-protection-version")             \
    X(1498, DisplayidInterfaceContentProtectionRevision, "displayid.interface.content-protection-revision")           \
    X(1499, DisplayidInterfaceSpreadSpectrum, "displayid.interface.spread-spectrum")                                  \
    X(1500, DisplayidInterfaceSpread, "displayid.interface.spread")                                                   \
    X(1501, DisplayidInterfaceColorMapping, "displayid.interface.color-mapping")                                      \
    X(1502, DisplayidInterface2_8V, "displayid.interface.2-8-v")                                                      \
    X(1503, DisplayidInterface12V, "displayid.interface.12-v")                                                        \
    X(1504, DisplayidInterface5V, "displayid.interface.5-v")                                                          \
    X(1505, DisplayidInterface3_3V, "displayid.interface.3-3-v")                                                      \
    X(1506, DisplayidInterfaceMode, "displayid.interface.mode")                                                       \
    X(1507, DisplayidInterfaceDePolarity, "displayid.interface.de-polarity")                                          \
    X(1508, DisplayidInterfaceShiftClockDataStrobe, "displayid.interface.shift-clock-data-strobe")                    \
    X(1509, DisplayidInterfaceFeaturesYcbcr420_16bpc, "displayid.interface-features.ycbcr-420-16bpc")                 \
    X(1510, DisplayidInterfaceFeaturesYcbcr420_14bpc, "displayid.interface-features.ycbcr-420-14bpc")                 \
    X(1511, DisplayidInterfaceFeaturesYcbcr420_12bpc, "displayid.interface-features.ycbcr-420-12bpc")                 \
    X(1512, DisplayidInterfaceFeaturesYcbcr420_10bpc, "displayid.interface-features.ycbcr-420-10bpc")                 \
    X(1513, DisplayidInterfaceFeaturesYcbcr420_8bpc, "displayid.interface-features.ycbcr-420-8bpc")                   \
    X(1514, DisplayidInterfaceFeaturesYcbcr420MinPixelRate, "displayid.interface-features.ycbcr-420-min-pixel-rate")  \
    X(1515, DisplayidInterfaceFeaturesAudio32Khz, "displayid.interface-features.audio-32-khz")                        \
    X(1516, DisplayidInterfaceFeaturesAudio44_1Khz, "displayid.interface-features.audio-44-1-khz")                    \
    X(1517, DisplayidInterfaceFeaturesAudio48Khz, "displayid.interface-features.audio-48-khz")                        \
    X(1518, DisplayidInterfaceFeaturesBt2020St2084, "displayid.interface-features.bt2020-st2084")                     \
    X(1519, DisplayidInterfaceFeaturesBt2020, "displayid.interface-features.bt2020")                                  \
    X(1520, DisplayidInterfaceFeaturesDciP3, "displayid.interface-features.dci-p3")                                   \
    X(1521, DisplayidInterfaceFeaturesAdobeRgb, "displayid.interface-features.adobe-rgb")                             \
    X(1522, DisplayidInterfaceFeaturesBt709Bt1886, "displayid.interface-features.bt709-bt1886")                       \
    X(1523, DisplayidInterfaceFeaturesBt601, "displayid.interface-features.bt601")                                    \
    X(1524, DisplayidInterfaceFeaturesSrgb, "displayid.interface-features.srgb")                                      \
    X(1525, DisplayidInterfaceFeaturesCombinations, "displayid.interface-features.combinations")                      \
    X(1526, DisplayidInterfaceFeaturesColorSpace, "displayid.interface-features.color-space")                         \
    X(1527, DisplayidInterfaceFeaturesEotf, "displayid.interface-features.eotf")                                      \
    X(1528, DisplayidInterfaceRgb444_16bpc, "displayid.interface.rgb-444-16bpc")                                      \
    X(1529, DisplayidInterfaceRgb444_14bpc, "displayid.interface.rgb-444-14bpc")                                      \
    X(1530, DisplayidInterfaceRgb444_12bpc, "displayid.interface.rgb-444-12bpc")                                      \
    X(1531, DisplayidInterfaceRgb444_10bpc, "displayid.interface.rgb-444-10bpc")                                      \
    X(1532, DisplayidInterfaceRgb444_8bpc, "displayid.interface.rgb-444-8bpc")                                        \
    X(1533, DisplayidInterfaceRgb444_6bpc, "displayid.interface.rgb-444-6bpc")                                        \
    X(1534, DisplayidInterfaceYcbcr444_16bpc, "displayid.interface.ycbcr-444-16bpc")                                  \
    X(1535, DisplayidInterfaceYcbcr444_14bpc, "displayid.interface.ycbcr-444-14bpc")                                  \
    X(1536, DisplayidInterfaceYcbcr444_12bpc, "displayid.interface.ycbcr-444-12bpc")                                  \
    X(1537, DisplayidInterfaceYcbcr444_10bpc, "displayid.interface.ycbcr-444-10bpc")                                  \
    X(1538, DisplayidInterfaceYcbcr444_8bpc, "displayid.interface.ycbcr-444-8bpc")                                    \
    X(1539, DisplayidInterfaceYcbcr444_6bpc, "displayid.interface.ycbcr-444-6bpc")                                    \
    X(1540, DisplayidInterfaceYcbcr422_16bpc, "displayid.interface.ycbcr-422-16bpc")                                  \
    X(1541, DisplayidInterfaceYcbcr422_14bpc, "displayid.interface.ycbcr-422-14bpc")                                  \
    X(1542, DisplayidInterfaceYcbcr422_12bpc, "displayid.interface.ycbcr-422-12bpc")                                  \
    X(1543, DisplayidInterfaceYcbcr422_10bpc, "displayid.interface.ycbcr-422-10bpc")                                  \
    X(1544, DisplayidInterfaceYcbcr422_8bpc, "displayid.interface.ycbcr-422-8bpc")                                    \
    X(1545, DisplayidInterfaceFeaturesCombination, "displayid.interface-features.combination")                        \
    X(1546, DisplayidInterfaceFeatures, "displayid.interface-features")                                               \
    /* displayid.stereo */                                                                                            \
    X(1560, DisplayidStereo, "displayid.stereo") X(1561, DisplayidStereoTimings, "displayid.stereo.timings")          \
    X(1562, DisplayidStereoMethodLength, "displayid.stereo.method-length")                                            \
    X(1563, DisplayidStereoMethodCode, "displayid.stereo.method-code")                                                \
    X(1564, DisplayidStereoPolarity, "displayid.stereo.polarity")                                                     \
    X(1565, DisplayidStereoLeftHalf, "displayid.stereo.left-half")                                                    \
    X(1566, DisplayidStereoInterleavingPattern, "displayid.stereo.interleaving-pattern")                              \
    X(1567, DisplayidStereoMirroring, "displayid.stereo.mirroring")                                                   \
    X(1568, DisplayidStereoView, "displayid.stereo.view") X(1569, DisplayidStereoViews, "displayid.stereo.views")     \
    X(1570, DisplayidStereoInterleavingMethod, "displayid.stereo.interleaving-method")                                \
    X(1571, DisplayidStereoTopHalf, "displayid.stereo.top-half")                                                      \
    X(1572, DisplayidStereoProprietaryParameters, "displayid.stereo.proprietary-parameters")                          \
    X(1573, DisplayidStereoCodeType, "displayid.stereo.code-type")                                                    \
    X(1574, DisplayidStereoCodeCount, "displayid.stereo.code-count")                                                  \
    X(1575, DisplayidStereoMethod, "displayid.stereo.method") X(1576, DisplayidStereoCodes, "displayid.stereo.codes") \
    /* displayid.adaptive-sync */                                                                                     \
    X(1590, DisplayidAdaptiveSync, "displayid.adaptive-sync")                                                         \
    X(1591, DisplayidAdaptiveSyncDecreaseWithoutJitter, "displayid.adaptive-sync.decrease-without-jitter")            \
    X(1592, DisplayidAdaptiveSyncSeamlessTransition, "displayid.adaptive-sync.seamless-transition")                   \
    X(1593, DisplayidAdaptiveSyncMode, "displayid.adaptive-sync.mode")                                                \
    X(1594, DisplayidAdaptiveSyncIncreaseWithoutJitter, "displayid.adaptive-sync.increase-without-jitter")            \
    X(1595, DisplayidAdaptiveSyncRange, "displayid.adaptive-sync.range")                                              \
    X(1596, DisplayidAdaptiveSyncMaxDurationIncrease, "displayid.adaptive-sync.max-duration-increase")                \
    X(1597, DisplayidAdaptiveSyncMinRefreshRate, "displayid.adaptive-sync.min-refresh-rate")                          \
    X(1598, DisplayidAdaptiveSyncMaxRefreshRate, "displayid.adaptive-sync.max-refresh-rate")                          \
    X(1599, DisplayidAdaptiveSyncMaxDurationDecrease, "displayid.adaptive-sync.max-duration-decrease")                \
    X(1600, DisplayidAdaptiveSyncExtraBytes, "displayid.adaptive-sync.extra-bytes")                                   \
    X(1601, DisplayidAdaptiveSyncDescriptor, "displayid.adaptive-sync.descriptor")                                    \
    /* displayid.vendor */                                                                                            \
    X(1620, DisplayidVendor, "displayid.vendor") X(1621, DisplayidVendorId, "displayid.vendor.id")                    \
    X(1622, DisplayidVendorDefaultColorSpace, "displayid.vendor.default-color-space")                                 \
    X(1623, DisplayidVendorDataStructureType, "displayid.vendor.data-structure-type")                                 \
    X(1624, DisplayidVendorMultiSstOperation, "displayid.vendor.multi-sst-operation")                                 \
    X(1625, DisplayidVendorOverlap, "displayid.vendor.overlap")                                                       \
    X(1626, DisplayidVendorDscBitsPerPixel, "displayid.vendor.dsc-bits-per-pixel")                                    \
    X(1627, DisplayidVendorData, "displayid.vendor.data") X(1628, DisplayidVendorFlags, "displayid.vendor.flags")     \
    /* displayid.tiled */                                                                                             \
    X(1640, DisplayidTiled, "displayid.tiled") X(1641, DisplayidTiledEnclosures, "displayid.tiled.enclosures")        \
    X(1642, DisplayidTiledBezelInformation, "displayid.tiled.bezel-information")                                      \
    X(1643, DisplayidTiledSomeTilesBehavior, "displayid.tiled.some-tiles-behavior")                                   \
    X(1644, DisplayidTiledOnlyTileBehavior, "displayid.tiled.only-tile-behavior")                                     \
    X(1645, DisplayidTiledHorizontalTiles, "displayid.tiled.horizontal-tiles")                                        \
    X(1646, DisplayidTiledVerticalTiles, "displayid.tiled.vertical-tiles")                                            \
    X(1647, DisplayidTiledColumn, "displayid.tiled.column") X(1648, DisplayidTiledRow, "displayid.tiled.row")         \
    X(1649, DisplayidTiledTileWidth, "displayid.tiled.tile-width")                                                    \
    X(1650, DisplayidTiledTileHeight, "displayid.tiled.tile-height")                                                  \
    X(1651, DisplayidTiledPixelMultiplier, "displayid.tiled.pixel-multiplier")                                        \
    X(1652, DisplayidTiledTopBezel, "displayid.tiled.top-bezel")                                                      \
    X(1653, DisplayidTiledBottomBezel, "displayid.tiled.bottom-bezel")                                                \
    X(1654, DisplayidTiledRightBezel, "displayid.tiled.right-bezel")                                                  \
    X(1655, DisplayidTiledLeftBezel, "displayid.tiled.left-bezel")                                                    \
    X(1656, DisplayidTiledProductCode, "displayid.tiled.product-code")                                                \
    X(1657, DisplayidTiledSerialNumber, "displayid.tiled.serial-number")                                              \
    X(1658, DisplayidTiledVendor, "displayid.tiled.vendor")                                                           \
    /* displayid.product */                                                                                           \
    X(1670, DisplayidProduct, "displayid.product") X(1671, DisplayidProductVendor, "displayid.product.vendor")        \
    X(1672, DisplayidProductName, "displayid.product.name")                                                           \
    X(1673, DisplayidProductProductCode, "displayid.product.product-code")                                            \
    X(1674, DisplayidProductSerialNumber, "displayid.product.serial-number")                                          \
    X(1675, DisplayidProductWeek, "displayid.product.week") X(1676, DisplayidProductYear, "displayid.product.year")   \
    X(1677, DisplayidProductNameSize, "displayid.product.name-size")                                                  \
    /* displayid.serial */                                                                                            \
    X(1690, DisplayidSerial, "displayid.serial")                                                                      \
    X(1691, DisplayidSerialSerialNumber, "displayid.serial.serial-number")                                            \
    /* displayid.string */                                                                                            \
    X(1710, DisplayidString, "displayid.string") X(1711, DisplayidStringText, "displayid.string.text")                \
    /* displayid.brightness */                                                                                        \
    X(1730, DisplayidBrightness, "displayid.brightness")                                                              \
    X(1731, DisplayidBrightnessMinSdrLuminance, "displayid.brightness.min-sdr-luminance")                             \
    X(1732, DisplayidBrightnessMaxSdrLuminance, "displayid.brightness.max-sdr-luminance")                             \
    X(1733, DisplayidBrightnessMaxBoostLuminance, "displayid.brightness.max-boost-luminance")                         \
    /* displayid.parameters */                                                                                        \
    X(1750, DisplayidParameters, "displayid.parameters")                                                              \
    X(1751, DisplayidParametersHorizontalPixels, "displayid.parameters.horizontal-pixels")                            \
    X(1752, DisplayidParametersVerticalPixels, "displayid.parameters.vertical-pixels")                                \
    X(1753, DisplayidParametersAudioSupport, "displayid.parameters.audio-support")                                    \
    X(1754, DisplayidParametersSeparateAudioInputs, "displayid.parameters.separate-audio-inputs")                     \
    X(1755, DisplayidParametersAudioInputOverride, "displayid.parameters.audio-input-override")                       \
    X(1756, DisplayidParametersPowerManagement, "displayid.parameters.power-management")                              \
    X(1757, DisplayidParametersFixedTiming, "displayid.parameters.fixed-timing")                                      \
    X(1758, DisplayidParametersFixedPixelFormat, "displayid.parameters.fixed-pixel-format")                           \
    X(1759, DisplayidParametersAcpIsrc, "displayid.parameters.acp-isrc")                                              \
    X(1760, DisplayidParametersDeinterlacing, "displayid.parameters.deinterlacing")                                   \
    X(1761, DisplayidParametersGamma, "displayid.parameters.gamma")                                                   \
    X(1762, DisplayidParametersAspectRatio, "displayid.parameters.aspect-ratio")                                      \
    X(1763, DisplayidParametersOverallBitDepth, "displayid.parameters.overall-bit-depth")                             \
    X(1764, DisplayidParametersNativeBitDepth, "displayid.parameters.native-bit-depth")                               \
    X(1765, DisplayidParameters2SizePrecision, "displayid.parameters-2.size-precision")                               \
    X(1766, DisplayidParameters2AudioSpeakers, "displayid.parameters-2.audio-speakers")                               \
    X(1767, DisplayidParameters2ColorInformation, "displayid.parameters-2.color-information")                         \
    X(1768, DisplayidParameters2LuminanceInformation, "displayid.parameters-2.luminance-information")                 \
    X(1769, DisplayidParameters2ScanOrientation, "displayid.parameters-2.scan-orientation")                           \
    X(1770, DisplayidParameters2Primary1X, "displayid.parameters-2.primary-1-x")                                      \
    X(1771, DisplayidParameters2Primary1Y, "displayid.parameters-2.primary-1-y")                                      \
    X(1772, DisplayidParameters2Primary2X, "displayid.parameters-2.primary-2-x")                                      \
    X(1773, DisplayidParameters2Primary2Y, "displayid.parameters-2.primary-2-y")                                      \
    X(1774, DisplayidParameters2Primary3X, "displayid.parameters-2.primary-3-x")                                      \
    X(1775, DisplayidParameters2Primary3Y, "displayid.parameters-2.primary-3-y")                                      \
    X(1776, DisplayidParameters2WhitePointX, "displayid.parameters-2.white-point-x")                                  \
    X(1777, DisplayidParameters2WhitePointY, "displayid.parameters-2.white-point-y")                                  \
    X(1778, DisplayidParameters2MaxLuminanceFull, "displayid.parameters-2.max-luminance-full")                        \
    X(1779, DisplayidParameters2MaxLuminance10Percent, "displayid.parameters-2.max-luminance-10-percent")             \
    X(1780, DisplayidParameters2MinLuminance, "displayid.parameters-2.min-luminance")                                 \
    X(1781, DisplayidParameters2Theme, "displayid.parameters-2.theme")                                                \
    X(1782, DisplayidParameters2Technology, "displayid.parameters-2.technology")                                      \
    X(1783, DisplayidParameters2GammaEotf, "displayid.parameters-2.gamma-eotf")                                       \
    X(1784, DisplayidParametersImageWidth, "displayid.parameters.image-width")                                        \
    X(1785, DisplayidParametersImageHeight, "displayid.parameters.image-height")                                      \
    X(1786, DisplayidParameters2NativeBitDepth, "displayid.parameters-2.native-bit-depth")                            \
    X(1787, DisplayidParameters2, "displayid.parameters-2")                                                           \
    /* displayid.color */                                                                                             \
    X(1800, DisplayidColor, "displayid.color")                                                                        \
    X(1801, DisplayidColorChromaticityCoordinates, "displayid.color.chromaticity-coordinates")                        \
    X(1802, DisplayidColorTransferBlock, "displayid.color.transfer-block")                                            \
    X(1803, DisplayidColorMixing, "displayid.color.mixing")                                                           \
    X(1804, DisplayidColorPrimaryCount, "displayid.color.primary-count")                                              \
    X(1805, DisplayidColorWhitePointCount, "displayid.color.white-point-count")                                       \
    X(1806, DisplayidColorStandardColorSpace, "displayid.color.standard-color-space")                                 \
    X(1807, DisplayidColorX, "displayid.color.x") X(1808, DisplayidColorY, "displayid.color.y")                       \
    X(1809, DisplayidColorPrimary, "displayid.color.primary")                                                         \
    X(1810, DisplayidColorWhitePoint, "displayid.color.white-point")                                                  \
    /* displayid.device */                                                                                            \
    X(1820, DisplayidDevice, "displayid.device") X(1821, DisplayidDeviceTechnology, "displayid.device.technology")    \
    X(1822, DisplayidDeviceOperatingMode, "displayid.device.operating-mode")                                          \
    X(1823, DisplayidDeviceBacklightSwitchable, "displayid.device.backlight-switchable")                              \
    X(1824, DisplayidDeviceBacklightControllable, "displayid.device.backlight-controllable")                          \
    X(1825, DisplayidDeviceHorizontalPixels, "displayid.device.horizontal-pixels")                                    \
    X(1826, DisplayidDeviceVerticalPixels, "displayid.device.vertical-pixels")                                        \
    X(1827, DisplayidDeviceAspectRatio, "displayid.device.aspect-ratio")                                              \
    X(1828, DisplayidDeviceDefaultOrientation, "displayid.device.default-orientation")                                \
    X(1829, DisplayidDeviceRotationCapability, "displayid.device.rotation-capability")                                \
    X(1830, DisplayidDeviceZeroPixelLocation, "displayid.device.zero-pixel-location")                                 \
    X(1831, DisplayidDeviceScanDirection, "displayid.device.scan-direction")                                          \
    X(1832, DisplayidDeviceSubPixelLayout, "displayid.device.sub-pixel-layout")                                       \
    X(1833, DisplayidDeviceHorizontalPitch, "displayid.device.horizontal-pitch")                                      \
    X(1834, DisplayidDeviceVerticalPitch, "displayid.device.vertical-pitch")                                          \
    X(1835, DisplayidDeviceColorBitDepth, "displayid.device.color-bit-depth")                                         \
    X(1836, DisplayidDeviceResponseTimeTransition, "displayid.device.response-time-transition")                       \
    X(1837, DisplayidDeviceResponseTime, "displayid.device.response-time")                                            \
    /* displayid.transfer */                                                                                          \
    X(1850, DisplayidTransfer, "displayid.transfer")                                                                  \
    X(1851, DisplayidTransferIdentifier, "displayid.transfer.identifier")                                             \
    X(1852, DisplayidTransferWhiteFirst, "displayid.transfer.white-first")                                            \
    X(1853, DisplayidTransferIndividualCurves, "displayid.transfer.individual-curves")                                \
    X(1854, DisplayidTransferCurveForm, "displayid.transfer.curve-form")                                              \
    X(1855, DisplayidTransferSampleCount, "displayid.transfer.sample-count")                                          \
    X(1856, DisplayidTransferSteps, "displayid.transfer.steps")                                                       \
    X(1857, DisplayidTransferParameterCount, "displayid.transfer.parameter-count")                                    \
    X(1858, DisplayidTransferA0, "displayid.transfer.a0") X(1859, DisplayidTransferA1, "displayid.transfer.a1")       \
    X(1860, DisplayidTransferA2, "displayid.transfer.a2") X(1861, DisplayidTransferA3, "displayid.transfer.a3")       \
    X(1862, DisplayidTransferGamma, "displayid.transfer.gamma")                                                       \
    X(1863, DisplayidTransferCurve, "displayid.transfer.curve")                                                       \
    /* displayid.container */                                                                                         \
    X(1880, DisplayidContainer, "displayid.container") X(1881, DisplayidContainerId, "displayid.container.id")        \
    /* displayid.timing */                                                                                            \
    X(1900, DisplayidTimingPixelClock, "displayid.timing.pixel-clock")                                                \
    X(1901, DisplayidTimingHorizontalActive, "displayid.timing.horizontal-active")                                    \
    X(1902, DisplayidTimingHorizontalBlanking, "displayid.timing.horizontal-blanking")                                \
    X(1903, DisplayidTimingHorizontalFrontPorch, "displayid.timing.horizontal-front-porch")                           \
    X(1904, DisplayidTimingHorizontalSyncWidth, "displayid.timing.horizontal-sync-width")                             \
    X(1905, DisplayidTimingVerticalActive, "displayid.timing.vertical-active")                                        \
    X(1906, DisplayidTimingVerticalBlanking, "displayid.timing.vertical-blanking")                                    \
    X(1907, DisplayidTimingVerticalFrontPorch, "displayid.timing.vertical-front-porch")                               \
    X(1908, DisplayidTimingVerticalSyncWidth, "displayid.timing.vertical-sync-width")                                 \
    X(1909, DisplayidTimingFormula, "displayid.timing.formula")                                                       \
    X(1910, DisplayidTimingRefreshRate, "displayid.timing.refresh-rate")                                              \
    X(1911, DisplayidTimingBaseHorizontalBlank, "displayid.timing.base-horizontal-blank")                             \
    X(1912, DisplayidTimingEarlyVerticalSync, "displayid.timing.early-vertical-sync")                                 \
    X(1913, DisplayidTimingAdditionalVerticalBlank, "displayid.timing.additional-vertical-blank")                     \
    X(1914, DisplayidTimingMinVerticalBlankTime, "displayid.timing.min-vertical-blank-time")                          \
    X(1915, DisplayidTimingSizePresent, "displayid.timing.size-present")                                              \
    X(1916, DisplayidTimingAspectRatio, "displayid.timing.aspect-ratio")                                              \
    X(1917, DisplayidTimingImageHeight, "displayid.timing.image-height")                                              \
    X(1918, DisplayidTimingSizeMultiplier, "displayid.timing.size-multiplier")                                        \
    X(1919, DisplayidTimingPreferred, "displayid.timing.preferred")                                                   \
    X(1920, DisplayidTimingYcbcr420, "displayid.timing.ycbcr-420")                                                    \
    X(1921, DisplayidTimingStereo, "displayid.timing.stereo")                                                         \
    X(1922, DisplayidTimingInterlaced, "displayid.timing.interlaced")                                                 \
    X(1923, DisplayidTimingHorizontalSyncPolarity, "displayid.timing.horizontal-sync-polarity")                       \
    X(1924, DisplayidTimingVerticalSyncPolarity, "displayid.timing.vertical-sync-polarity")                           \
    X(1925, DisplayidTimingFractionalRate, "displayid.timing.fractional-rate")                                        \
    X(1926, DisplayidTimingDmtId, "displayid.timing.dmt-id") X(1927, DisplayidTimingVic, "displayid.timing.vic")      \
    X(1928, DisplayidTimingHdmiVic, "displayid.timing.hdmi-vic")                                                      \
    X(1929, DisplayidTimingCode, "displayid.timing.code")                                                             \
    X(1931, DisplayidTimingImageAspectRatio, "displayid.timing.image-aspect-ratio")                                   \
    /* displayid.timing-block */                                                                                      \
                                                                                                                      \
    X(1941, DisplayidTimingBlockCodeType, "displayid.timing-block.code-type")                                         \
    X(1942, DisplayidTimingBlockYcbcr420, "displayid.timing-block.ycbcr-420")                                         \
    X(1943, DisplayidTimingBlockCodeSize, "displayid.timing-block.code-size")                                         \
    X(1944, DisplayidTimingBlockExtraBytes, "displayid.timing-block.extra-bytes")                                     \
    X(1945, DisplayidTimingBlockDscPassThrough, "displayid.timing-block.dsc-pass-through")                            \
    /* displayid.type1 */                                                                                             \
    X(1960, DisplayidType1, "displayid.type1") X(1961, DisplayidType1Timing, "displayid.type1.timing")                \
    /* displayid.type2 */                                                                                             \
    X(1980, DisplayidType2, "displayid.type2") X(1981, DisplayidType2Timing, "displayid.type2.timing")                \
    /* displayid.type3 */                                                                                             \
    X(2000, DisplayidType3, "displayid.type3") X(2001, DisplayidType3Timing, "displayid.type3.timing")                \
    /* displayid.type5 */                                                                                             \
    X(2020, DisplayidType5, "displayid.type5") X(2021, DisplayidType5Timing, "displayid.type5.timing")                \
    /* displayid.type6 */                                                                                             \
    X(2040, DisplayidType6, "displayid.type6") X(2041, DisplayidType6Timing, "displayid.type6.timing")                \
    /* displayid.type7 */                                                                                             \
    X(2060, DisplayidType7, "displayid.type7") X(2061, DisplayidType7Timing, "displayid.type7.timing")                \
    /* displayid.type9 */                                                                                             \
    X(2080, DisplayidType9, "displayid.type9") X(2081, DisplayidType9Timing, "displayid.type9.timing")                \
    /* displayid.type10 */                                                                                            \
    X(2100, DisplayidType10, "displayid.type10") X(2101, DisplayidType10Timing, "displayid.type10.timing")            \
    /* vtb */                                                                                                         \
    X(2120, Vtb, "vtb") X(2121, VtbVersion, "vtb.version") X(2122, VtbDetailedTimings, "vtb.detailed-timings")        \
    X(2123, VtbCvtTimingCodes, "vtb.cvt-timing-codes") X(2124, VtbStandardTimings, "vtb.standard-timings")            \
    X(2125, VtbCutTiming, "vtb.cut-timing")                                                                           \
    /* block-map */                                                                                                   \
    X(2140, BlockMap, "block-map") X(2141, BlockMapTag, "block-map.tag")                                              \
    /* di */                                                                                                          \
    X(2160, Di, "di") X(2161, DiVersion, "di.version") X(2162, DiInterface, "di.interface")                           \
    X(2163, DiVersionKind, "di.version-kind") X(2164, DiInterfaceVersion, "di.interface-version")                     \
    X(2165, DiInterfaceVersionDecimals, "di.interface-version-decimals")                                              \
    X(2166, DiInterfaceRelease, "di.interface-release")                                                               \
    X(2167, DiInterfaceReleaseDecimals, "di.interface-release-decimals")                                              \
    X(2168, DiInterfaceLetter, "di.interface-letter") X(2169, DiInterfaceYear, "di.interface-year")                   \
    X(2170, DiInterfaceMonth, "di.interface-month") X(2171, DiInterfaceDay, "di.interface-day")                       \
    X(2172, DiDataEnable, "di.data-enable") X(2173, DiDataEnablePolarity, "di.data-enable-polarity")                  \
    X(2174, DiShiftClockEdge, "di.shift-clock-edge") X(2175, DiHdcpSupported, "di.hdcp-supported")                    \
    X(2176, DiDoubleClocking, "di.double-clocking") X(2177, DiPacketizedDigitalVideo, "di.packetized-digital-video")  \
    X(2178, DiDataFormat, "di.data-format") X(2179, DiMinPixelClock, "di.min-pixel-clock")                            \
    X(2180, DiMaxPixelClock, "di.max-pixel-clock") X(2181, DiCrossoverFrequency, "di.crossover-frequency")            \
    X(2182, DiSubPixelLayout, "di.sub-pixel-layout") X(2183, DiSubPixelConfiguration, "di.sub-pixel-configuration")   \
    X(2184, DiSubPixelShape, "di.sub-pixel-shape") X(2185, DiHorizontalPitch, "di.horizontal-pitch")                  \
    X(2186, DiVerticalPitch, "di.vertical-pitch") X(2187, DiFixedPixelFormat, "di.fixed-pixel-format")                \
    X(2188, DiViewDirection, "di.view-direction") X(2189, DiTransparentBackground, "di.transparent-background")       \
    X(2190, DiPhysicalImplementation, "di.physical-implementation") X(2191, DiDdcCi, "di.ddc-ci")                     \
    X(2192, DiLegacyModes, "di.legacy-modes") X(2193, DiStereoVideo, "di.stereo-video")                               \
    X(2194, DiScalerOnBoard, "di.scaler-on-board") X(2195, DiImageCentering, "di.image-centering")                    \
    X(2196, DiConditionalUpdate, "di.conditional-update") X(2197, DiInterlacedVideo, "di.interlaced-video")           \
    X(2198, DiFrameLock, "di.frame-lock") X(2199, DiFrameRateConversion, "di.frame-rate-conversion")                  \
    X(2200, DiVerticalFrequency, "di.vertical-frequency") X(2201, DiHorizontalFrequency, "di.horizontal-frequency")   \
    X(2202, DiOrientationType, "di.orientation-type") X(2203, DiScreenOrientation, "di.screen-orientation")           \
    X(2204, DiZeroPixelLocation, "di.zero-pixel-location") X(2205, DiScanDirection, "di.scan-direction")              \
    X(2206, DiStandaloneProjector, "di.standalone-projector") X(2207, DiDefaultDecoding, "di.default-decoding")       \
    X(2208, DiPreferredDecoder, "di.preferred-decoder") X(2209, DiDecodesBgr, "di.decodes-bgr")                       \
    X(2210, DiDecodesYCNtsc, "di.decodes-y-c-ntsc") X(2211, DiDecodesYCPal, "di.decodes-y-c-pal")                     \
    X(2212, DiDecodesYCSecam, "di.decodes-y-c-secam")                                                                 \
    X(2213, DiDecodesYcrcb444Smpte293m, "di.decodes-ycrcb-444-smpte-293m")                                            \
    X(2214, DiDecodesYcrcb422Smpte293m, "di.decodes-ycrcb-422-smpte-293m")                                            \
    X(2215, DiDecodesYcrcb420Smpte293m, "di.decodes-ycrcb-420-smpte-293m")                                            \
    X(2216, DiDecodesYcrcbSmpte260m, "di.decodes-ycrcb-smpte-260m")                                                   \
    X(2217, DiDecodesYpbprSmpte240m, "di.decodes-ypbpr-smpte-240m")                                                   \
    X(2218, DiDecodesYcrcbSmpte274m, "di.decodes-ycrcb-smpte-274m")                                                   \
    X(2219, DiDecodesYpbprSmpte274m, "di.decodes-ypbpr-smpte-274m")                                                   \
    X(2220, DiDecodesYBYRYBetacam, "di.decodes-y-b-y-r-y-betacam")                                                    \
    X(2221, DiDecodesYBYRYM2, "di.decodes-y-b-y-r-y-m-2") X(2222, DiDecodesMonochrome, "di.decodes-monochrome")       \
    X(2223, DiDithering, "di.dithering") X(2224, DiDepthBlue, "di.depth-blue")                                        \
    X(2225, DiDepthGreen, "di.depth-green") X(2226, DiDepthRed, "di.depth-red") X(2227, DiDepthCb, "di.depth-cb")     \
    X(2228, DiDepthY, "di.depth-y") X(2229, DiDepthCr, "di.depth-cr")                                                 \
    X(2230, DiAspectConversionFull, "di.aspect-conversion-full")                                                      \
    X(2231, DiAspectConversionZoom, "di.aspect-conversion-zoom")                                                      \
    X(2232, DiAspectConversionSqueeze, "di.aspect-conversion-squeeze")                                                \
    X(2233, DiAspectConversionVariable, "di.aspect-conversion-variable") X(2234, DiTransfer, "di.transfer")           \
    X(2235, DiTransferEntries, "di.transfer-entries") X(2236, DiCurveWhite, "di.curve-white")                         \
    X(2237, DiCurveBlue, "di.curve-blue") X(2238, DiCurveGreen, "di.curve-green") X(2239, DiCurveRed, "di.curve-red") \
    /* ls */                                                                                                          \
    X(2250, Ls, "ls") X(2251, LsVersion, "ls.version") X(2252, LsRevision, "ls.revision")                             \
    X(2253, LsUnicodeVersionMajor, "ls.unicode-version-major")                                                        \
    X(2254, LsUnicodeVersionMinor, "ls.unicode-version-minor")                                                        \
    X(2255, LsUnicodeVersionUpdate, "ls.unicode-version-update") X(2256, LsTableLength, "ls.table.length")            \
    X(2257, LsTableEncoding, "ls.table.encoding") X(2258, LsTableCountry, "ls.table.country")                         \
    X(2259, LsTableLanguage, "ls.table.language") X(2260, LsTable, "ls.table")                                        \
    X(2261, LsTableManufacturerNameLength, "ls.table.manufacturer-name-length")                                       \
    X(2262, LsTableManufacturerName, "ls.table.manufacturer-name")                                                    \
    X(2263, LsTableModelNameLength, "ls.table.model-name-length") X(2264, LsTableModelName, "ls.table.model-name")    \
    X(2265, LsTableSerialNumberLength, "ls.table.serial-number-length")                                               \
    X(2266, LsTableSerialNumber, "ls.table.serial-number")
// clang-format on

#define ZOR_EDID_FIELD(NUMBER, NAME, ID) eZorEdidField_##NAME = (NUMBER),
enum EZorEdidField : unsigned short
{
    eZorEdidField_None = 0,
    ZOR_EDID_FIELDS(ZOR_EDID_FIELD)
};
#undef ZOR_EDID_FIELD
