/// What each field of a map is, whatever its name and place: the ids of CZorEdidMap. Programs that look for a field ask
/// for its id. Names and texts may improve; numbers and ids stay, and a retired one is never reused.

#pragma once

/// The list of the ids: S(number, enumerator, id), or X(number, enumerator) where the id follows from the enumerator:
/// the id of the last S whose enumerator begins it, a dot, and the rest in lower case, with a hyphen for each '_' and
/// before each other word. P(enumerator, id) is a beginning that has no number here. The numbers of a structure leave
/// room for more; a new id takes a free one. A detailed timing has the same ids wherever it occurs.
// clang-format off
#define ZOR_EDID_FIELDS(S, P, X)                                                                                      \
    S(1, Reserved, "reserved") S(2, Unknown, "unknown") S(3, Padding, "padding") S(4, Checksum, "checksum")           \
    S(5, ManufacturerData, "manufacturer.data") S(6, ExtensionTag, "extension.tag") S(7, LcdTimings, "lcd-timings")   \
    S(8, Edid2, "edid2") S(9, ColorInformation, "color-information") S(10, Dpvl, "dpvl") S(11, Dtcdb, "dtcdb")        \
    S(12, Manufacturer, "manufacturer") S(13, OtherBase, "other-base") S(14, UnknownExtension, "unknown-extension")   \
    S(15, AfterBlocks, "after-blocks") S(16, LineFeed, "line-feed") S(17, Unused, "unused")                           \
    S(30, Base, "base") X(31, BaseExtensionCount) X(32, BaseHeader) X(33, BaseSerial) X(34, BaseString)               \
    X(35, BaseName) X(36, BaseStandardList) X(37, BaseDummy) X(38, BaseReserved)                                      \
    S(50, BaseIdentity, "base.identity") X(51, BaseIdentityManufacturer) X(52, BaseIdentityProductCode)               \
    X(53, BaseIdentitySerialNumber) X(54, BaseIdentityWeek) X(55, BaseIdentityYear) X(56, BaseIdentityModelYear)      \
    S(70, BaseEdid, "base.edid") X(71, BaseEdidVersion) X(72, BaseEdidRevision)                                       \
    S(90, BaseDisplay, "base.display") X(91, BaseDisplaySignalInterface) X(92, BaseDisplaySignalLevel)                \
    X(93, BaseDisplayVideoSetup) X(94, BaseDisplaySeparateSync) X(95, BaseDisplayCompositeSync)                       \
    X(96, BaseDisplaySyncOnGreen) X(97, BaseDisplaySerration) X(98, BaseDisplayDfp1Compatible)                        \
    X(99, BaseDisplayColorBitDepth) X(100, BaseDisplayInterface) X(101, BaseDisplayScreenWidth)                       \
    X(102, BaseDisplayAspectRatioLandscape) X(103, BaseDisplayScreenHeight) X(104, BaseDisplayAspectRatioPortrait)    \
    X(105, BaseDisplayGamma) X(106, BaseDisplayStandby) X(107, BaseDisplaySuspend) X(108, BaseDisplayActiveOff)       \
    X(109, BaseDisplayColorType) X(110, BaseDisplayColorEncodings) X(111, BaseDisplaySrgbDefault)                     \
    X(112, BaseDisplayPreferredTiming) X(113, BaseDisplayPreferredIsNative) X(114, BaseDisplayDefaultGtf)             \
    X(115, BaseDisplayContinuousFrequency)                                                                            \
    S(130, BaseChromaticity, "base.chromaticity") X(131, BaseChromaticityRedX) X(132, BaseChromaticityRedY)           \
    X(133, BaseChromaticityGreenX) X(134, BaseChromaticityGreenY) X(135, BaseChromaticityBlueX)                       \
    X(136, BaseChromaticityBlueY) X(137, BaseChromaticityWhiteX) X(138, BaseChromaticityWhiteY)                       \
    S(150, BaseEstablished, "base.established") X(151, BaseEstablishedMode) X(152, BaseEstablishedManufacturer)       \
    S(170, BaseStandard, "base.standard") X(171, BaseStandardHorizontalPixels) X(172, BaseStandardAspectRatio)        \
    X(173, BaseStandardRefreshRate)                                                                                   \
    S(190, BaseDetailed, "base.detailed") X(191, BaseDetailedPixelClock) X(192, BaseDetailedHorizontalActive)         \
    X(193, BaseDetailedHorizontalBlanking) X(194, BaseDetailedVerticalActive) X(195, BaseDetailedVerticalBlanking)    \
    X(196, BaseDetailedHorizontalFrontPorch) X(197, BaseDetailedHorizontalSyncWidth)                                  \
    X(198, BaseDetailedVerticalFrontPorch) X(199, BaseDetailedVerticalSyncWidth) X(200, BaseDetailedImageWidth)       \
    X(201, BaseDetailedImageHeight) X(202, BaseDetailedHorizontalBorder) X(203, BaseDetailedVerticalBorder)           \
    X(204, BaseDetailedInterlaced) X(205, BaseDetailedStereo) X(206, BaseDetailedSyncType)                            \
    X(207, BaseDetailedSerrations) X(208, BaseDetailedSyncOn) X(209, BaseDetailedHorizontalSyncPolarity)              \
    X(210, BaseDetailedVerticalSyncPolarity)                                                                          \
    P(BaseDescriptor, "base.descriptor") X(221, BaseDescriptorText) X(222, BaseDescriptorIndicator)                   \
    X(223, BaseDescriptorTag)                                                                                         \
    S(240, BaseRange, "base.range") X(241, BaseRangeHorizontalRateOffsets) X(242, BaseRangeVerticalRateOffsets)       \
    X(243, BaseRangeMinVerticalRate) X(244, BaseRangeMaxVerticalRate) X(245, BaseRangeMinHorizontalRate)              \
    X(246, BaseRangeMaxHorizontalRate) X(247, BaseRangeMaxPixelClock) X(248, BaseRangeSecondaryTimingFormula)         \
    X(249, BaseRangeVideoTimingSupport) X(250, BaseRangeGtfStartFrequency) X(251, BaseRangeGtfC)                      \
    X(252, BaseRangeGtfM) X(253, BaseRangeGtfK) X(254, BaseRangeGtfJ) X(255, BaseRangeCvtVersion)                     \
    X(256, BaseRangeCvtRevision) X(257, BaseRangePixelClockPrecision) X(258, BaseRangeMaxActivePixels)                \
    X(259, BaseRange4_3AspectRatio) X(260, BaseRange16_9AspectRatio) X(261, BaseRange16_10AspectRatio)                \
    X(262, BaseRange5_4AspectRatio) X(263, BaseRange15_9AspectRatio) X(264, BaseRangePreferredAspectRatio)            \
    X(265, BaseRangeCvtReducedBlanking) X(266, BaseRangeCvtStandardBlanking) X(267, BaseRangeHorizontalShrink)        \
    X(268, BaseRangeHorizontalStretch) X(269, BaseRangeVerticalShrink) X(270, BaseRangeVerticalStretch)               \
    X(271, BaseRangePreferredRefreshRate)                                                                             \
    S(290, BaseColorManagement, "base.color-management") X(291, BaseColorManagementVersion)                           \
    X(292, BaseColorManagementRedA3) X(293, BaseColorManagementRedA2) X(294, BaseColorManagementGreenA3)              \
    X(295, BaseColorManagementGreenA2) X(296, BaseColorManagementBlueA3) X(297, BaseColorManagementBlueA2)            \
    S(310, BaseCvtCode, "base.cvt-code") X(311, BaseCvtCodeVerticalActive) X(312, BaseCvtCodeAspectRatio)             \
    X(313, BaseCvtCodePreferredRate) X(314, BaseCvtCode50HzStandard) X(315, BaseCvtCode60HzStandard)                  \
    X(316, BaseCvtCode75HzStandard) X(317, BaseCvtCode85HzStandard) X(318, BaseCvtCode60HzReduced)                    \
    S(330, BaseCvtCodes, "base.cvt-codes") X(331, BaseCvtCodesVersion)                                                \
    S(350, BaseEstablished3, "base.established-3") X(351, BaseEstablished3Revision) X(352, BaseEstablished3Mode)      \
    S(370, BaseManufacturer, "base.manufacturer") X(371, BaseManufacturerData)                                        \
    S(390, BaseColorPoint, "base.color-point") X(391, BaseColorPointIndex) X(392, BaseColorPointWhiteX)               \
    X(393, BaseColorPointWhiteY) X(394, BaseColorPointWhiteGamma) X(395, BaseColorPointWhitePoint)                    \
    S(410, Cta, "cta") X(411, CtaRevision) X(412, CtaDetailedOffset) X(413, CtaUnderscan) X(414, CtaBasicAudio)       \
    S(415, CtaYcbcr444, "cta.ycbcr-444") S(416, CtaYcbcr422, "cta.ycbcr-422") X(417, CtaNativeCount)                  \
    X(418, CtaReserved) X(419, CtaVendor) X(420, CtaVendorVideo) X(421, CtaVesaVtb) X(422, CtaVideoFormatPreference)  \
    X(423, Cta420Video) X(424, CtaVendorAudio) X(425, CtaProductInformation) X(426, CtaHdmiForumSink)                 \
    X(427, CtaNoExtendedTag) X(428, CtaCollection)                                                                    \
    P(CtaDataBlock, "cta.data-block") X(441, CtaDataBlockTag) X(442, CtaDataBlockLength)                              \
    X(443, CtaDataBlockExtendedTag) X(444, CtaDataBlockOui)                                                           \
    S(460, CtaAudio, "cta.audio") X(461, CtaAudioFormat) X(462, CtaAudioExtendedFormat) X(463, CtaAudioChannels)      \
    X(464, CtaAudioMpegHLevel) X(465, CtaAudio192Khz) X(466, CtaAudio176_4Khz) X(467, CtaAudio96Khz)                  \
    X(468, CtaAudio88_2Khz) X(469, CtaAudio48Khz) X(470, CtaAudio44_1Khz) X(471, CtaAudio32Khz) X(472, CtaAudio24Bit) \
    X(473, CtaAudio20Bit) X(474, CtaAudio16Bit) X(475, CtaAudioMaxBitRate) X(476, CtaAudioFormatDependentValue)       \
    X(477, CtaAudioJointObjectCodingAcmod28) X(478, CtaAudioJointObjectCoding) X(479, CtaAudioPcmHash)                \
    X(480, CtaAudioMatContent) X(481, CtaAudioProfile) X(482, CtaAudio1024Tl) X(483, CtaAudio960Tl)                   \
    X(484, CtaAudio22_2Multichannel) X(485, CtaAudioMpegSurround) X(486, CtaAudioBaselineProfile)                     \
    X(487, CtaAudioLowComplexityProfile) X(488, CtaAudioDescriptor)                                                   \
    S(500, CtaVideo, "cta.video") X(501, CtaVideoNative) X(502, CtaVideoVic) X(503, CtaVideoDescriptor)               \
    S(520, CtaHdmi, "cta.hdmi") X(521, CtaHdmiPhysicalAddress) X(522, CtaHdmiSupportsAi)                              \
    S(523, CtaHdmiDc48bit, "cta.hdmi.dc-48bit") S(524, CtaHdmiDc36bit, "cta.hdmi.dc-36bit")                           \
    S(525, CtaHdmiDc30bit, "cta.hdmi.dc-30bit") X(526, CtaHdmiDcY444) X(527, CtaHdmiDviDual)                          \
    X(528, CtaHdmiMaxTmdsClock) X(529, CtaHdmiLatencyFieldsPresent) X(530, CtaHdmiILatencyFieldsPresent)              \
    X(531, CtaHdmiVideoPresent) X(532, CtaHdmiCnc3) X(533, CtaHdmiCnc2) X(534, CtaHdmiCnc1) X(535, CtaHdmiCnc0)       \
    X(536, CtaHdmiVideoLatency) X(537, CtaHdmiAudioLatency) X(538, CtaHdmiInterlacedVideoLatency)                     \
    X(539, CtaHdmiInterlacedAudioLatency) X(540, CtaHdmi3dPresent) X(541, CtaHdmi3dMultiPresent)                      \
    X(542, CtaHdmiImageSize) X(543, CtaHdmiVicLen) X(544, CtaHdmi3dLen) X(545, CtaHdmiVic)                            \
    P(CtaHdmi3dStructureAll, "cta.hdmi.3d-structure-all") X(546, CtaHdmi3dStructureAllSideBySideHalfQuincunx)         \
    X(547, CtaHdmi3dStructureAllSideBySideHalf) X(548, CtaHdmi3dStructureAllTopAndBottom)                             \
    X(549, CtaHdmi3dStructureAllLDepthGraphics) X(550, CtaHdmi3dStructureAllLDepth)                                   \
    X(551, CtaHdmi3dStructureAllSideBySideFull) X(552, CtaHdmi3dStructureAllLineAlternative)                          \
    X(553, CtaHdmi3dStructureAllFieldAlternative) X(554, CtaHdmi3dStructureAllFramePacking) X(555, CtaHdmi2dVicOrder) \
    X(556, CtaHdmi3dStructure) X(557, CtaHdmi3dDetail) X(558, CtaHdmi3dStructureAll) X(559, CtaHdmi3dMask)            \
    X(560, CtaHdmi3dFormat) S(561, CtaHdmi3dMaskPlace, "cta.hdmi.3d-mask.place")                                      \
    S(580, CtaHdmiForum, "cta.hdmi-forum") X(581, CtaHdmiForumVersion) X(582, CtaHdmiForumMaxTmdsCharacterRate)       \
    X(583, CtaHdmiForumScdcPresent) X(584, CtaHdmiForumRrCapable) X(585, CtaHdmiForumCableStatus)                     \
    X(586, CtaHdmiForumCcbpci) S(587, CtaHdmiForumLte340mcscScramble, "cta.hdmi-forum.lte-340mcsc-scramble")          \
    X(588, CtaHdmiForumIndependentView) X(589, CtaHdmiForumDualView) X(590, CtaHdmiForum3dOsdDisparity)               \
    X(591, CtaHdmiForumMaxFrlRate) X(592, CtaHdmiForumUhdVic)                                                         \
    S(593, CtaHdmiForumDc48bit420, "cta.hdmi-forum.dc-48bit-420")                                                     \
    S(594, CtaHdmiForumDc36bit420, "cta.hdmi-forum.dc-36bit-420")                                                     \
    S(595, CtaHdmiForumDc30bit420, "cta.hdmi-forum.dc-30bit-420") X(596, CtaHdmiForumFapaEndExtended)                 \
    X(597, CtaHdmiForumQms) X(598, CtaHdmiForumMDelta) X(599, CtaHdmiForumCinemaVrr) X(600, CtaHdmiForumCnmvrr)       \
    X(601, CtaHdmiForumFva) X(602, CtaHdmiForumAllm) X(603, CtaHdmiForumFapaStartLocation) X(604, CtaHdmiForumVrrMax) \
    X(605, CtaHdmiForumVrrMin) S(606, CtaHdmiForumDsc1p2, "cta.hdmi-forum.dsc-1p2")                                   \
    S(607, CtaHdmiForumDscNative420, "cta.hdmi-forum.dsc-native-420") X(608, CtaHdmiForumQmsTfrMax)                   \
    X(609, CtaHdmiForumQmsTfrMin) X(610, CtaHdmiForumDscAllBpp)                                                       \
    S(611, CtaHdmiForumDsc16bpc, "cta.hdmi-forum.dsc-16bpc") S(612, CtaHdmiForumDsc12bpc, "cta.hdmi-forum.dsc-12bpc") \
    S(613, CtaHdmiForumDsc10bpc, "cta.hdmi-forum.dsc-10bpc") X(614, CtaHdmiForumDscMaxFrlRate)                        \
    X(615, CtaHdmiForumDscMaxSlices) X(616, CtaHdmiForumDscTotalChunkKbytes)                                          \
    S(630, CtaAmd, "cta.amd") X(631, CtaAmdVersion) X(632, CtaAmdLuminancesValid) X(633, CtaAmdMinRefreshRate)        \
    X(634, CtaAmdMaxRefreshRate) X(635, CtaAmdMaxLuminance) X(636, CtaAmdMinLuminance)                                \
    X(637, CtaAmdSecondMaxLuminance) X(638, CtaAmdSecondMinLuminance)                                                 \
    S(650, CtaMicrosoft, "cta.microsoft") X(651, CtaMicrosoftVersion) X(652, CtaMicrosoftDesktopUsage)                \
    X(653, CtaMicrosoftThirdPartyUsage) X(654, CtaMicrosoftUseCase) X(655, CtaMicrosoftContainerId)                   \
    S(670, CtaUhdAlliance, "cta.uhd-alliance") X(671, CtaUhdAllianceFilmmakerType)                                    \
    X(672, CtaUhdAllianceFilmmakerSubtype)                                                                            \
    S(690, CtaSpeakers, "cta.speakers") X(691, CtaSpeakersFlwFrw) X(692, CtaSpeakersRlcRrc) X(693, CtaSpeakersFlcFrc) \
    X(694, CtaSpeakersBc) X(695, CtaSpeakersBlBr) X(696, CtaSpeakersFc) X(697, CtaSpeakersLfe1)                       \
    X(698, CtaSpeakersFlFr) X(699, CtaSpeakersTpsilTpsir) X(700, CtaSpeakersSilSir) X(701, CtaSpeakersTpbc)           \
    X(702, CtaSpeakersLfe2) X(703, CtaSpeakersLsRs) X(704, CtaSpeakersTpfc) X(705, CtaSpeakersTpc)                    \
    X(706, CtaSpeakersTpflTpfr) X(707, CtaSpeakersLsdRsd) X(708, CtaSpeakersTplsTprs) X(709, CtaSpeakersBtflBtfr)     \
    X(710, CtaSpeakersBtfc) X(711, CtaSpeakersTpblTpbr) X(712, CtaSpeakersAllocationType)                             \
    X(713, CtaSpeakersAllocation)                                                                                     \
    S(730, CtaTransfer, "cta.transfer") X(731, CtaTransferCurve) X(732, CtaTransferFirstLuminance)                    \
    X(733, CtaTransferLuminanceIncrement)                                                                             \
    S(750, CtaVideoFormat, "cta.video-format") S(751, CtaVideoFormatYcbcr420, "cta.video-format.ycbcr-420")           \
    X(752, CtaVideoFormatNtsc) X(753, CtaVideoFormatDescriptorLength) X(754, CtaVideoFormatBfr50)                     \
    X(755, CtaVideoFormatFr24) X(756, CtaVideoFormatResolution) X(757, CtaVideoFormatBfr60)                           \
    X(758, CtaVideoFormatFr144) S(759, CtaVideoFormatFrameRateFactor16, "cta.video-format.frame-rate-factor-16")      \
    S(760, CtaVideoFormatFrameRateFactor12, "cta.video-format.frame-rate-factor-12")                                  \
    S(761, CtaVideoFormatFrameRateFactor8, "cta.video-format.frame-rate-factor-8")                                    \
    S(762, CtaVideoFormatFrameRateFactor4, "cta.video-format.frame-rate-factor-4")                                    \
    S(763, CtaVideoFormatFrameRateFactor2, "cta.video-format.frame-rate-factor-2")                                    \
    S(764, CtaVideoFormatFrameRateFactor1, "cta.video-format.frame-rate-factor-1") X(765, CtaVideoFormatFr48)         \
    X(766, CtaVideoFormatDescriptor)                                                                                  \
    S(780, CtaVideoCapability, "cta.video-capability") X(781, CtaVideoCapabilityQy) X(782, CtaVideoCapabilityQs)      \
    X(783, CtaVideoCapabilityPreferredScan) X(784, CtaVideoCapabilityItScan) X(785, CtaVideoCapabilityCeScan)         \
    S(800, CtaHdr10Plus, "cta.hdr10-plus") X(801, CtaHdr10PlusPeakLuminance)                                          \
    X(802, CtaHdr10PlusFullFramePeakLuminance) X(803, CtaHdr10PlusApplicationVersion)                                 \
    S(820, CtaDolbyVision, "cta.dolby-vision") X(821, CtaDolbyVisionVersion) X(822, CtaDolbyVisionYuv422_12bit)       \
    X(823, CtaDolbyVision2160p60) X(824, CtaDolbyVisionGlobalDimming) X(825, CtaDolbyVisionRedX)                      \
    X(826, CtaDolbyVisionRedY) X(827, CtaDolbyVisionGreenX) X(828, CtaDolbyVisionGreenY) X(829, CtaDolbyVisionBlueX)  \
    X(830, CtaDolbyVisionBlueY) X(831, CtaDolbyVisionWhiteX) X(832, CtaDolbyVisionWhiteY)                             \
    X(833, CtaDolbyVisionTargetMinLuminance) X(834, CtaDolbyVisionTargetMaxLuminance)                                 \
    X(835, CtaDolbyVisionDmMajorVersion) X(836, CtaDolbyVisionDmMinorVersion) X(837, CtaDolbyVisionDmVersion)         \
    X(838, CtaDolbyVisionColorimetry) X(839, CtaDolbyVisionLatency) X(840, CtaDolbyVisionBacklightControl)            \
    X(841, CtaDolbyVisionBacklightMinLuminance) X(842, CtaDolbyVisionInterface)                                       \
    S(843, CtaDolbyVision10b12b444, "cta.dolby-vision.10b-12b-444")                                                   \
    S(860, CtaDisplayDevice, "cta.display-device") X(861, CtaDisplayDeviceInterfaceType)                              \
    X(862, CtaDisplayDeviceAnalogSubtype) X(863, CtaDisplayDeviceLanes) X(864, CtaDisplayDeviceInterfaceVersion)      \
    X(865, CtaDisplayDeviceInterfaceRelease) X(866, CtaDisplayDeviceContentProtection)                                \
    X(867, CtaDisplayDeviceMinClock) X(868, CtaDisplayDeviceMaxClock) X(869, CtaDisplayDeviceHorizontalPixels)        \
    X(870, CtaDisplayDeviceVerticalPixels) X(871, CtaDisplayDeviceAspectRatio)                                        \
    X(872, CtaDisplayDeviceDefaultOrientation) X(873, CtaDisplayDeviceRotationCapability)                             \
    X(874, CtaDisplayDeviceZeroPixelLocation) X(875, CtaDisplayDeviceScanDirection)                                   \
    X(876, CtaDisplayDeviceSubPixelLayout) X(877, CtaDisplayDeviceHorizontalPitch)                                    \
    X(878, CtaDisplayDeviceVerticalPitch) X(879, CtaDisplayDeviceDithering) X(880, CtaDisplayDeviceDirectDrive)       \
    X(881, CtaDisplayDeviceOverdriveNotRecommended) X(882, CtaDisplayDeviceDeinterlacing)                             \
    X(883, CtaDisplayDeviceAudioSupport) X(884, CtaDisplayDeviceSeparateAudioInputs)                                  \
    X(885, CtaDisplayDeviceAudioInputOverride) X(886, CtaDisplayDeviceAudioDelaySign)                                 \
    X(887, CtaDisplayDeviceAudioDelay) X(888, CtaDisplayDeviceFrameRateConversion)                                    \
    X(889, CtaDisplayDeviceFrameRateRange) X(890, CtaDisplayDeviceFrameRate)                                          \
    X(891, CtaDisplayDeviceInterfaceBitDepth) X(892, CtaDisplayDeviceDisplayBitDepth)                                 \
    S(893, CtaDisplayDevicePrimary4X, "cta.display-device.primary-4-x")                                               \
    S(894, CtaDisplayDevicePrimary4Y, "cta.display-device.primary-4-y")                                               \
    S(895, CtaDisplayDevicePrimary5X, "cta.display-device.primary-5-x")                                               \
    S(896, CtaDisplayDevicePrimary5Y, "cta.display-device.primary-5-y")                                               \
    S(897, CtaDisplayDevicePrimary6X, "cta.display-device.primary-6-x")                                               \
    S(898, CtaDisplayDevicePrimary6Y, "cta.display-device.primary-6-y") X(899, CtaDisplayDeviceAdditionalPrimaries)   \
    X(900, CtaDisplayDeviceResponseTimeTransition) X(901, CtaDisplayDeviceResponseTime)                               \
    X(902, CtaDisplayDeviceHorizontalOverscan) X(903, CtaDisplayDeviceVerticalOverscan)                               \
    S(920, CtaColorimetry, "cta.colorimetry") X(921, CtaColorimetryBt2020rgb) X(922, CtaColorimetryBt2020ycc)         \
    X(923, CtaColorimetryBt2020cycc) X(924, CtaColorimetryOprgb) X(925, CtaColorimetryOpycc601)                       \
    X(926, CtaColorimetrySycc601) X(927, CtaColorimetryXvycc709) X(928, CtaColorimetryXvycc601)                       \
    X(929, CtaColorimetrySt2113rgb) X(930, CtaColorimetryIctcp) X(931, CtaColorimetrySrgb)                            \
    X(932, CtaColorimetryDefaultrgb) X(933, CtaColorimetryGamutMetadataP0)                                            \
    S(950, CtaHdrStatic, "cta.hdr-static") X(951, CtaHdrStaticHlg)                                                    \
    S(952, CtaHdrStaticSmpteSt2084, "cta.hdr-static.smpte-st-2084") X(953, CtaHdrStaticTraditionalGammaHdr)           \
    X(954, CtaHdrStaticTraditionalGammaSdr) S(955, CtaHdrStaticMetadataType1, "cta.hdr-static.metadata-type-1")       \
    X(956, CtaHdrStaticMaxLuminance) X(957, CtaHdrStaticMaxFrameAverageLuminance) X(958, CtaHdrStaticMinLuminance)    \
    S(970, CtaHdrDynamic, "cta.hdr-dynamic") X(971, CtaHdrDynamicLength) X(972, CtaHdrDynamicType)                    \
    X(973, CtaHdrDynamicSlHdr3) X(974, CtaHdrDynamicSlHdr2) X(975, CtaHdrDynamicSlHdr1) X(976, CtaHdrDynamicVersion)  \
    X(977, CtaHdrDynamicOptionalFields) X(978, CtaHdrDynamicMetadata)                                                 \
    S(990, CtaNativeResolution, "cta.native-resolution") X(991, CtaNativeResolutionSizePrecision)                     \
    X(992, CtaNativeResolutionSizePresent) X(993, CtaNativeResolutionImageWidth)                                      \
    X(994, CtaNativeResolutionImageHeight)                                                                            \
    S(1010, Cta420Map, "cta.420-map") X(1011, Cta420MapVic)                                                           \
    S(1030, CtaDolbyAudio, "cta.dolby-audio") X(1031, CtaDolbyAudioHeadphoneOnly)                                     \
    X(1032, CtaDolbyAudioHeightSpeakerZone) X(1033, CtaDolbyAudioSurroundSpeakerZone)                                 \
    X(1034, CtaDolbyAudioCenterSpeakerZone) X(1035, CtaDolbyAudioVersion)                                             \
    S(1036, CtaDolbyAudioMatPcm48KhzOnly, "cta.dolby-audio.mat-pcm-48-khz-only")                                      \
    S(1050, CtaHdmiAudio, "cta.hdmi-audio") X(1051, CtaHdmiAudioSupportsMsNonmixed)                                   \
    X(1052, CtaHdmiAudioMaxStreamCount) S(1053, CtaHdmiAudioNumHdmi3dAd, "cta.hdmi-audio.num-hdmi-3d-ad")             \
    X(1054, CtaHdmiAudioFormat) X(1055, CtaHdmiAudioChannels) X(1056, CtaHdmiAudio192Khz)                             \
    X(1057, CtaHdmiAudio176_4Khz) X(1058, CtaHdmiAudio96Khz) X(1059, CtaHdmiAudio88_2Khz) X(1060, CtaHdmiAudio48Khz)  \
    X(1061, CtaHdmiAudio44_1Khz) X(1062, CtaHdmiAudio32Khz) X(1063, CtaHdmiAudio24Bit) X(1064, CtaHdmiAudio20Bit)     \
    X(1065, CtaHdmiAudio16Bit) X(1066, CtaHdmiAudioFormatDependentValue) X(1067, CtaHdmiAudioDescriptor)              \
    S(1080, CtaRoom, "cta.room") X(1081, CtaRoomDisplay) X(1082, CtaRoomSpeaker) X(1083, CtaRoomSld)                  \
    X(1084, CtaRoomSpeakerCount) X(1085, CtaRoomXMax) X(1086, CtaRoomYMax) X(1087, CtaRoomZMax)                       \
    X(1088, CtaRoomDisplayX) X(1089, CtaRoomDisplayY) X(1090, CtaRoomDisplayZ)                                        \
    S(1100, CtaSpeakerLocation, "cta.speaker-location") X(1101, CtaSpeakerLocationCoord)                              \
    X(1102, CtaSpeakerLocationActive) X(1103, CtaSpeakerLocationChannelIndex) X(1104, CtaSpeakerLocationSpeakerId)    \
    X(1105, CtaSpeakerLocationX) X(1106, CtaSpeakerLocationY) X(1107, CtaSpeakerLocationZ)                            \
    X(1108, CtaSpeakerLocationDescriptor)                                                                             \
    S(1120, CtaInfoframe, "cta.infoframe") X(1121, CtaInfoframeProcessingLength)                                      \
    X(1122, CtaInfoframeVendorSpecificAtOnce) X(1123, CtaInfoframePayload) X(1124, CtaInfoframeLength)                \
    X(1125, CtaInfoframeType) X(1126, CtaInfoframeOui) X(1127, CtaInfoframeDescriptor)                                \
    S(1140, CtaType7, "cta.type7") X(1141, CtaType7M) X(1142, CtaType7Revision)                                       \
    S(1160, CtaType8, "cta.type8") X(1161, CtaType8CodeType) S(1162, CtaType8Ycbcr420, "cta.type8.ycbcr-420")         \
    X(1163, CtaType8CodeSize) X(1164, CtaType8Revision)                                                               \
    S(1180, CtaType10, "cta.type10") X(1181, CtaType10M) X(1182, CtaType10Revision)                                   \
    S(1200, CtaExtensionOverride, "cta.extension-override") X(1201, CtaExtensionOverrideCount)                        \
    S(1220, CtaToneMapping, "cta.tone-mapping") X(1221, CtaToneMappingDrdm) X(1222, CtaToneMappingGrdm)               \
    X(1223, CtaToneMappingVersion) X(1224, CtaToneMappingGamut) X(1225, CtaToneMappingMaxRgb)                         \
    X(1226, CtaToneMappingUseHgigDrdm) X(1227, CtaToneMappingHgigDrdmIndex) X(1228, CtaToneMappingRedX)               \
    X(1229, CtaToneMappingRedY) X(1230, CtaToneMappingGreenX) X(1231, CtaToneMappingGreenY)                           \
    X(1232, CtaToneMappingBlueX) X(1233, CtaToneMappingBlueY) X(1234, CtaToneMappingWhiteX)                           \
    X(1235, CtaToneMappingWhiteY)                                                                                     \
    S(1250, CtaVideoReference, "cta.video-reference") X(1251, CtaVideoReferenceVic)                                   \
    X(1252, CtaVideoReferenceDetailed) S(1253, CtaVideoReferenceType7Or10, "cta.video-reference.type7-or-10")         \
    X(1254, CtaVideoReferenceVideoFormatRate) X(1255, CtaVideoReferenceType8)                                         \
    S(1270, Displayid, "displayid") X(1271, DisplayidUnknown) X(1272, DisplayidCta) X(1273, DisplayidType4)           \
    X(1274, DisplayidDmtModes) X(1275, DisplayidVicModes) X(1276, DisplayidType8)                                     \
    S(1277, DisplayidDmtModesMode, "displayid.dmt-modes.mode")                                                        \
    S(1278, DisplayidVicModesMode, "displayid.vic-modes.mode")                                                        \
    S(1290, DisplayidSection, "displayid.section") X(1291, DisplayidSectionVersion) X(1292, DisplayidSectionRevision) \
    X(1293, DisplayidSectionLength) X(1294, DisplayidSectionProductType) X(1295, DisplayidSectionUseCase)             \
    X(1296, DisplayidSectionExtensionCount) X(1297, DisplayidSectionChecksum)                                         \
    P(DisplayidDataBlock, "displayid.data-block") X(1311, DisplayidDataBlockTag) X(1312, DisplayidDataBlockRevision)  \
    X(1313, DisplayidDataBlockLength)                                                                                 \
    S(1330, DisplayidHmd, "displayid.hmd") X(1331, DisplayidHmdDualLayer) X(1332, DisplayidHmdInterleavingMode)       \
    X(1333, DisplayidHmdExtendedFrameMode) X(1334, DisplayidHmdDisplays) X(1335, DisplayidHmdStreams)                 \
    X(1336, DisplayidHmdLayers) X(1337, DisplayidHmdLayerMetadata) X(1338, DisplayidHmdReplicationFactor)             \
    X(1339, DisplayidHmdRightLowDistortionAreaX) X(1340, DisplayidHmdRightLowDistortionAreaY)                         \
    X(1341, DisplayidHmdLeftLowDistortionAreaX) X(1342, DisplayidHmdLeftLowDistortionAreaY)                           \
    X(1343, DisplayidHmdLowDistortionAreaWidth) X(1344, DisplayidHmdLowDistortionAreaHeight)                          \
    X(1345, DisplayidHmdRightEyeRotationOrientation) X(1346, DisplayidHmdLeftEyeRotationOrientation)                  \
    X(1347, DisplayidHmdRightLensDiameter) X(1348, DisplayidHmdLeftLensDiameter)                                      \
    X(1349, DisplayidHmdInterocularAngle) X(1350, DisplayidHmdLensAdjustment) X(1351, DisplayidHmdLensAdjustMotion)   \
    X(1352, DisplayidHmdLensDistanceAvailable) X(1353, DisplayidHmdIpdUseful) X(1354, DisplayidHmdLensAdjustMin)      \
    X(1355, DisplayidHmdLensAdjustmentRange) X(1356, DisplayidHmdIpdCenterOffset)                                     \
    X(1357, DisplayidHmdIpdMeasurementMin) X(1358, DisplayidHmdIpdMeasurementRange)                                   \
    X(1359, DisplayidHmdRightDisplayDistance) X(1360, DisplayidHmdLeftDisplayDistance)                                \
    X(1361, DisplayidHmdRightEyeDistance) X(1362, DisplayidHmdLeftEyeDistance) X(1363, DisplayidHmdFoveatedRendering) \
    X(1364, DisplayidHmdHorizontalFieldOfView) X(1365, DisplayidHmdRightFieldOfViewRight)                             \
    X(1366, DisplayidHmdRightFieldOfViewLeft) X(1367, DisplayidHmdRightFieldOfViewUp)                                 \
    X(1368, DisplayidHmdRightFieldOfViewDown) X(1369, DisplayidHmdLeftFieldOfViewRight)                               \
    X(1370, DisplayidHmdLeftFieldOfViewLeft) X(1371, DisplayidHmdLeftFieldOfViewUp)                                   \
    X(1372, DisplayidHmdLeftFieldOfViewDown) X(1373, DisplayidHmdRightFocalLength)                                    \
    X(1374, DisplayidHmdLeftFocalLength) X(1375, DisplayidHmdRightCenterOfProjectionY)                                \
    X(1376, DisplayidHmdRightCenterOfProjectionX) X(1377, DisplayidHmdLeftCenterOfProjectionY)                        \
    X(1378, DisplayidHmdLeftCenterOfProjectionX) S(1379, DisplayidHmdLayer0Streams, "displayid.hmd.layer-0-streams")  \
    S(1380, DisplayidHmdLayer1Streams, "displayid.hmd.layer-1-streams")                                               \
    S(1390, DisplayidHmdLayer, "displayid.hmd-layer") X(1391, DisplayidHmdLayerVendor)                                \
    X(1392, DisplayidHmdLayerProductCode) X(1393, DisplayidHmdLayerSerialNumber)                                      \
    X(1394, DisplayidHmdLayerLayerNumber) X(1395, DisplayidHmdLayerLayerConfigurable)                                 \
    X(1396, DisplayidHmdLayerCroppingSupported) X(1397, DisplayidHmdLayerLensDistortion)                              \
    X(1398, DisplayidHmdLayerLensDistortionConfigurable) X(1399, DisplayidHmdLayerGamma)                              \
    X(1400, DisplayidHmdLayerGammaConfigurable) X(1401, DisplayidHmdLayerDegamma)                                     \
    X(1402, DisplayidHmdLayerDegammaConfigurable) X(1403, DisplayidHmdLayerMuraCompensation)                          \
    X(1404, DisplayidHmdLayerMuraCompensationConfigurable) X(1405, DisplayidHmdLayerVbi)                              \
    X(1406, DisplayidHmdLayerVbiConfigurable) X(1407, DisplayidHmdLayerReprojection)                                  \
    X(1408, DisplayidHmdLayerReprojectionConfigurable)                                                                \
    S(1409, DisplayidHmdLayerScaling2x, "displayid.hmd-layer.scaling-2x")                                             \
    S(1410, DisplayidHmdLayerScaling3x, "displayid.hmd-layer.scaling-3x")                                             \
    S(1411, DisplayidHmdLayerScaling4x, "displayid.hmd-layer.scaling-4x")                                             \
    S(1412, DisplayidHmdLayerScaling5x, "displayid.hmd-layer.scaling-5x")                                             \
    S(1413, DisplayidHmdLayerScaling6x, "displayid.hmd-layer.scaling-6x")                                             \
    S(1414, DisplayidHmdLayerScaling8x, "displayid.hmd-layer.scaling-8x") X(1415, DisplayidHmdLayerScalingOther)      \
    X(1416, DisplayidHmdLayerScalingConfigurable)                                                                     \
    S(1417, DisplayidHmdLayerUnlistedScaling0, "displayid.hmd-layer.unlisted-scaling-0")                              \
    S(1418, DisplayidHmdLayerUnlistedScaling1, "displayid.hmd-layer.unlisted-scaling-1")                              \
    S(1419, DisplayidHmdLayerUnlistedScaling2, "displayid.hmd-layer.unlisted-scaling-2")                              \
    S(1420, DisplayidHmdLayerUnlistedScaling3, "displayid.hmd-layer.unlisted-scaling-3")                              \
    X(1421, DisplayidHmdLayerSeparateStreamsSideBySide) X(1422, DisplayidHmdLayerSeparateStreamsStacked)              \
    S(1440, DisplayidRange, "displayid.range") X(1441, DisplayidRangeMinPixelClock)                                   \
    X(1442, DisplayidRangeMaxPixelClock) X(1443, DisplayidRangeMinHorizontalFrequency)                                \
    X(1444, DisplayidRangeMaxHorizontalFrequency) X(1445, DisplayidRangeMinHorizontalBlanking)                        \
    X(1446, DisplayidRangeMinVerticalRefreshRate) X(1447, DisplayidRangeMaxVerticalRefreshRate)                       \
    X(1448, DisplayidRangeMinVerticalBlanking) X(1449, DisplayidRangeInterlacedTimings)                               \
    X(1450, DisplayidRangeCvtTimings) X(1451, DisplayidRangeCvtReducedBlanking) X(1452, DisplayidRangeDiscrete)       \
    S(1453, DisplayidDynamicRangeSeamless, "displayid.dynamic-range.seamless") X(1454, DisplayidDynamicRange)         \
    S(1470, DisplayidPower, "displayid.power") X(1471, DisplayidPowerT1Min) X(1472, DisplayidPowerT1Max)              \
    X(1473, DisplayidPowerT2Max) X(1474, DisplayidPowerT3Max) X(1475, DisplayidPowerT4Min)                            \
    X(1476, DisplayidPowerT5Min) X(1477, DisplayidPowerT6Min)                                                         \
    S(1490, DisplayidInterface, "displayid.interface") X(1491, DisplayidInterfaceType)                                \
    X(1492, DisplayidInterfaceAnalogInterface) X(1493, DisplayidInterfaceLinks) X(1494, DisplayidInterfaceVersion)    \
    X(1495, DisplayidInterfaceRevision) X(1496, DisplayidInterfaceContentProtection)                                  \
    X(1497, DisplayidInterfaceContentProtectionVersion) X(1498, DisplayidInterfaceContentProtectionRevision)          \
    X(1499, DisplayidInterfaceSpreadSpectrum) X(1500, DisplayidInterfaceSpread)                                       \
    X(1501, DisplayidInterfaceColorMapping) X(1502, DisplayidInterface2_8V) X(1503, DisplayidInterface12V)            \
    X(1504, DisplayidInterface5V) X(1505, DisplayidInterface3_3V) X(1506, DisplayidInterfaceMode)                     \
    X(1507, DisplayidInterfaceDePolarity) X(1508, DisplayidInterfaceShiftClockDataStrobe)                             \
    P(DisplayidInterfaceFeatures, "displayid.interface-features")                                                     \
    S(1509, DisplayidInterfaceFeaturesYcbcr420_16bpc, "displayid.interface-features.ycbcr-420-16bpc")                 \
    S(1510, DisplayidInterfaceFeaturesYcbcr420_14bpc, "displayid.interface-features.ycbcr-420-14bpc")                 \
    S(1511, DisplayidInterfaceFeaturesYcbcr420_12bpc, "displayid.interface-features.ycbcr-420-12bpc")                 \
    S(1512, DisplayidInterfaceFeaturesYcbcr420_10bpc, "displayid.interface-features.ycbcr-420-10bpc")                 \
    S(1513, DisplayidInterfaceFeaturesYcbcr420_8bpc, "displayid.interface-features.ycbcr-420-8bpc")                   \
    S(1514, DisplayidInterfaceFeaturesYcbcr420MinPixelRate, "displayid.interface-features.ycbcr-420-min-pixel-rate")  \
    S(1515, DisplayidInterfaceFeaturesAudio32Khz, "displayid.interface-features.audio-32-khz")                        \
    S(1516, DisplayidInterfaceFeaturesAudio44_1Khz, "displayid.interface-features.audio-44-1-khz")                    \
    S(1517, DisplayidInterfaceFeaturesAudio48Khz, "displayid.interface-features.audio-48-khz")                        \
    X(1518, DisplayidInterfaceFeaturesBt2020St2084) X(1519, DisplayidInterfaceFeaturesBt2020)                         \
    X(1520, DisplayidInterfaceFeaturesDciP3) X(1521, DisplayidInterfaceFeaturesAdobeRgb)                              \
    X(1522, DisplayidInterfaceFeaturesBt709Bt1886) X(1523, DisplayidInterfaceFeaturesBt601)                           \
    X(1524, DisplayidInterfaceFeaturesSrgb) X(1525, DisplayidInterfaceFeaturesCombinations)                           \
    X(1526, DisplayidInterfaceFeaturesColorSpace) X(1527, DisplayidInterfaceFeaturesEotf)                             \
    S(1528, DisplayidInterfaceRgb444_16bpc, "displayid.interface.rgb-444-16bpc")                                      \
    S(1529, DisplayidInterfaceRgb444_14bpc, "displayid.interface.rgb-444-14bpc")                                      \
    S(1530, DisplayidInterfaceRgb444_12bpc, "displayid.interface.rgb-444-12bpc")                                      \
    S(1531, DisplayidInterfaceRgb444_10bpc, "displayid.interface.rgb-444-10bpc")                                      \
    S(1532, DisplayidInterfaceRgb444_8bpc, "displayid.interface.rgb-444-8bpc")                                        \
    S(1533, DisplayidInterfaceRgb444_6bpc, "displayid.interface.rgb-444-6bpc")                                        \
    S(1534, DisplayidInterfaceYcbcr444_16bpc, "displayid.interface.ycbcr-444-16bpc")                                  \
    S(1535, DisplayidInterfaceYcbcr444_14bpc, "displayid.interface.ycbcr-444-14bpc")                                  \
    S(1536, DisplayidInterfaceYcbcr444_12bpc, "displayid.interface.ycbcr-444-12bpc")                                  \
    S(1537, DisplayidInterfaceYcbcr444_10bpc, "displayid.interface.ycbcr-444-10bpc")                                  \
    S(1538, DisplayidInterfaceYcbcr444_8bpc, "displayid.interface.ycbcr-444-8bpc")                                    \
    S(1539, DisplayidInterfaceYcbcr444_6bpc, "displayid.interface.ycbcr-444-6bpc")                                    \
    S(1540, DisplayidInterfaceYcbcr422_16bpc, "displayid.interface.ycbcr-422-16bpc")                                  \
    S(1541, DisplayidInterfaceYcbcr422_14bpc, "displayid.interface.ycbcr-422-14bpc")                                  \
    S(1542, DisplayidInterfaceYcbcr422_12bpc, "displayid.interface.ycbcr-422-12bpc")                                  \
    S(1543, DisplayidInterfaceYcbcr422_10bpc, "displayid.interface.ycbcr-422-10bpc")                                  \
    S(1544, DisplayidInterfaceYcbcr422_8bpc, "displayid.interface.ycbcr-422-8bpc")                                    \
    X(1545, DisplayidInterfaceFeaturesCombination) X(1546, DisplayidInterfaceFeatures)                                \
    S(1560, DisplayidStereo, "displayid.stereo") X(1561, DisplayidStereoTimings) X(1562, DisplayidStereoMethodLength) \
    X(1563, DisplayidStereoMethodCode) X(1564, DisplayidStereoPolarity) X(1565, DisplayidStereoLeftHalf)              \
    X(1566, DisplayidStereoInterleavingPattern) X(1567, DisplayidStereoMirroring) X(1568, DisplayidStereoView)        \
    X(1569, DisplayidStereoViews) X(1570, DisplayidStereoInterleavingMethod) X(1571, DisplayidStereoTopHalf)          \
    X(1572, DisplayidStereoProprietaryParameters) X(1573, DisplayidStereoCodeType) X(1574, DisplayidStereoCodeCount)  \
    X(1575, DisplayidStereoMethod) X(1576, DisplayidStereoCodes)                                                      \
    S(1590, DisplayidAdaptiveSync, "displayid.adaptive-sync") X(1591, DisplayidAdaptiveSyncDecreaseWithoutJitter)     \
    X(1592, DisplayidAdaptiveSyncSeamlessTransition) X(1593, DisplayidAdaptiveSyncMode)                               \
    X(1594, DisplayidAdaptiveSyncIncreaseWithoutJitter) X(1595, DisplayidAdaptiveSyncRange)                           \
    X(1596, DisplayidAdaptiveSyncMaxDurationIncrease) X(1597, DisplayidAdaptiveSyncMinRefreshRate)                    \
    X(1598, DisplayidAdaptiveSyncMaxRefreshRate) X(1599, DisplayidAdaptiveSyncMaxDurationDecrease)                    \
    X(1600, DisplayidAdaptiveSyncExtraBytes) X(1601, DisplayidAdaptiveSyncDescriptor)                                 \
    S(1620, DisplayidVendor, "displayid.vendor") X(1621, DisplayidVendorId) X(1622, DisplayidVendorDefaultColorSpace) \
    X(1623, DisplayidVendorDataStructureType) X(1624, DisplayidVendorMultiSstOperation)                               \
    X(1625, DisplayidVendorOverlap) X(1626, DisplayidVendorDscBitsPerPixel) X(1627, DisplayidVendorData)              \
    X(1628, DisplayidVendorFlags)                                                                                     \
    S(1640, DisplayidTiled, "displayid.tiled") X(1641, DisplayidTiledEnclosures)                                      \
    X(1642, DisplayidTiledBezelInformation) X(1643, DisplayidTiledSomeTilesBehavior)                                  \
    X(1644, DisplayidTiledOnlyTileBehavior) X(1645, DisplayidTiledHorizontalTiles)                                    \
    X(1646, DisplayidTiledVerticalTiles) X(1647, DisplayidTiledColumn) X(1648, DisplayidTiledRow)                     \
    X(1649, DisplayidTiledTileWidth) X(1650, DisplayidTiledTileHeight) X(1651, DisplayidTiledPixelMultiplier)         \
    X(1652, DisplayidTiledTopBezel) X(1653, DisplayidTiledBottomBezel) X(1654, DisplayidTiledRightBezel)              \
    X(1655, DisplayidTiledLeftBezel) X(1656, DisplayidTiledProductCode) X(1657, DisplayidTiledSerialNumber)           \
    X(1658, DisplayidTiledVendor)                                                                                     \
    S(1670, DisplayidProduct, "displayid.product") X(1671, DisplayidProductVendor) X(1672, DisplayidProductName)      \
    X(1673, DisplayidProductProductCode) X(1674, DisplayidProductSerialNumber) X(1675, DisplayidProductWeek)          \
    X(1676, DisplayidProductYear) X(1677, DisplayidProductNameSize)                                                   \
    S(1690, DisplayidSerial, "displayid.serial") X(1691, DisplayidSerialSerialNumber)                                 \
    S(1710, DisplayidString, "displayid.string") X(1711, DisplayidStringText)                                         \
    S(1730, DisplayidBrightness, "displayid.brightness") X(1731, DisplayidBrightnessMinSdrLuminance)                  \
    X(1732, DisplayidBrightnessMaxSdrLuminance) X(1733, DisplayidBrightnessMaxBoostLuminance)                         \
    S(1750, DisplayidParameters, "displayid.parameters") X(1751, DisplayidParametersHorizontalPixels)                 \
    X(1752, DisplayidParametersVerticalPixels) X(1753, DisplayidParametersAudioSupport)                               \
    X(1754, DisplayidParametersSeparateAudioInputs) X(1755, DisplayidParametersAudioInputOverride)                    \
    X(1756, DisplayidParametersPowerManagement) X(1757, DisplayidParametersFixedTiming)                               \
    X(1758, DisplayidParametersFixedPixelFormat) X(1759, DisplayidParametersAcpIsrc)                                  \
    X(1760, DisplayidParametersDeinterlacing) X(1761, DisplayidParametersGamma)                                       \
    X(1762, DisplayidParametersAspectRatio) X(1763, DisplayidParametersOverallBitDepth)                               \
    X(1764, DisplayidParametersNativeBitDepth) P(DisplayidParameters2, "displayid.parameters-2")                      \
    X(1765, DisplayidParameters2SizePrecision) X(1766, DisplayidParameters2AudioSpeakers)                             \
    X(1767, DisplayidParameters2ColorInformation) X(1768, DisplayidParameters2LuminanceInformation)                   \
    X(1769, DisplayidParameters2ScanOrientation)                                                                      \
    S(1770, DisplayidParameters2Primary1X, "displayid.parameters-2.primary-1-x")                                      \
    S(1771, DisplayidParameters2Primary1Y, "displayid.parameters-2.primary-1-y")                                      \
    S(1772, DisplayidParameters2Primary2X, "displayid.parameters-2.primary-2-x")                                      \
    S(1773, DisplayidParameters2Primary2Y, "displayid.parameters-2.primary-2-y")                                      \
    S(1774, DisplayidParameters2Primary3X, "displayid.parameters-2.primary-3-x")                                      \
    S(1775, DisplayidParameters2Primary3Y, "displayid.parameters-2.primary-3-y")                                      \
    X(1776, DisplayidParameters2WhitePointX) X(1777, DisplayidParameters2WhitePointY)                                 \
    X(1778, DisplayidParameters2MaxLuminanceFull)                                                                     \
    S(1779, DisplayidParameters2MaxLuminance10Percent, "displayid.parameters-2.max-luminance-10-percent")             \
    X(1780, DisplayidParameters2MinLuminance) X(1781, DisplayidParameters2Theme)                                      \
    X(1782, DisplayidParameters2Technology) X(1783, DisplayidParameters2GammaEotf)                                    \
    X(1784, DisplayidParametersImageWidth) X(1785, DisplayidParametersImageHeight)                                    \
    X(1786, DisplayidParameters2NativeBitDepth) X(1787, DisplayidParameters2)                                         \
    S(1800, DisplayidColor, "displayid.color") X(1801, DisplayidColorChromaticityCoordinates)                         \
    X(1802, DisplayidColorTransferBlock) X(1803, DisplayidColorMixing) X(1804, DisplayidColorPrimaryCount)            \
    X(1805, DisplayidColorWhitePointCount) X(1806, DisplayidColorStandardColorSpace) X(1807, DisplayidColorX)         \
    X(1808, DisplayidColorY) X(1809, DisplayidColorPrimary) X(1810, DisplayidColorWhitePoint)                         \
    S(1820, DisplayidDevice, "displayid.device") X(1821, DisplayidDeviceTechnology)                                   \
    X(1822, DisplayidDeviceOperatingMode) X(1823, DisplayidDeviceBacklightSwitchable)                                 \
    X(1824, DisplayidDeviceBacklightControllable) X(1825, DisplayidDeviceHorizontalPixels)                            \
    X(1826, DisplayidDeviceVerticalPixels) X(1827, DisplayidDeviceAspectRatio)                                        \
    X(1828, DisplayidDeviceDefaultOrientation) X(1829, DisplayidDeviceRotationCapability)                             \
    X(1830, DisplayidDeviceZeroPixelLocation) X(1831, DisplayidDeviceScanDirection)                                   \
    X(1832, DisplayidDeviceSubPixelLayout) X(1833, DisplayidDeviceHorizontalPitch)                                    \
    X(1834, DisplayidDeviceVerticalPitch) X(1835, DisplayidDeviceColorBitDepth)                                       \
    X(1836, DisplayidDeviceResponseTimeTransition) X(1837, DisplayidDeviceResponseTime)                               \
    S(1850, DisplayidTransfer, "displayid.transfer") X(1851, DisplayidTransferIdentifier)                             \
    X(1852, DisplayidTransferWhiteFirst) X(1853, DisplayidTransferIndividualCurves)                                   \
    X(1854, DisplayidTransferCurveForm) X(1855, DisplayidTransferSampleCount) X(1856, DisplayidTransferSteps)         \
    X(1857, DisplayidTransferParameterCount) X(1858, DisplayidTransferA0) X(1859, DisplayidTransferA1)                \
    X(1860, DisplayidTransferA2) X(1861, DisplayidTransferA3) X(1862, DisplayidTransferGamma)                         \
    X(1863, DisplayidTransferCurve)                                                                                   \
    S(1880, DisplayidContainer, "displayid.container") X(1881, DisplayidContainerId)                                  \
    P(DisplayidTiming, "displayid.timing") X(1900, DisplayidTimingPixelClock)                                         \
    X(1901, DisplayidTimingHorizontalActive) X(1902, DisplayidTimingHorizontalBlanking)                               \
    X(1903, DisplayidTimingHorizontalFrontPorch) X(1904, DisplayidTimingHorizontalSyncWidth)                          \
    X(1905, DisplayidTimingVerticalActive) X(1906, DisplayidTimingVerticalBlanking)                                   \
    X(1907, DisplayidTimingVerticalFrontPorch) X(1908, DisplayidTimingVerticalSyncWidth)                              \
    X(1909, DisplayidTimingFormula) X(1910, DisplayidTimingRefreshRate) X(1911, DisplayidTimingBaseHorizontalBlank)   \
    X(1912, DisplayidTimingEarlyVerticalSync) X(1913, DisplayidTimingAdditionalVerticalBlank)                         \
    X(1914, DisplayidTimingMinVerticalBlankTime) X(1915, DisplayidTimingSizePresent)                                  \
    X(1916, DisplayidTimingAspectRatio) X(1917, DisplayidTimingImageHeight) X(1918, DisplayidTimingSizeMultiplier)    \
    X(1919, DisplayidTimingPreferred) S(1920, DisplayidTimingYcbcr420, "displayid.timing.ycbcr-420")                  \
    X(1921, DisplayidTimingStereo) X(1922, DisplayidTimingInterlaced) X(1923, DisplayidTimingHorizontalSyncPolarity)  \
    X(1924, DisplayidTimingVerticalSyncPolarity) X(1925, DisplayidTimingFractionalRate) X(1926, DisplayidTimingDmtId) \
    X(1927, DisplayidTimingVic) X(1928, DisplayidTimingHdmiVic) X(1929, DisplayidTimingCode)                          \
    X(1931, DisplayidTimingImageAspectRatio)                                                                          \
    P(DisplayidTimingBlock, "displayid.timing-block") X(1941, DisplayidTimingBlockCodeType)                           \
    S(1942, DisplayidTimingBlockYcbcr420, "displayid.timing-block.ycbcr-420") X(1943, DisplayidTimingBlockCodeSize)   \
    X(1944, DisplayidTimingBlockExtraBytes) X(1945, DisplayidTimingBlockDscPassThrough)                               \
    S(1960, DisplayidType1, "displayid.type1") X(1961, DisplayidType1Timing)                                          \
    S(1980, DisplayidType2, "displayid.type2") X(1981, DisplayidType2Timing)                                          \
    S(2000, DisplayidType3, "displayid.type3") X(2001, DisplayidType3Timing)                                          \
    S(2020, DisplayidType5, "displayid.type5") X(2021, DisplayidType5Timing)                                          \
    S(2040, DisplayidType6, "displayid.type6") X(2041, DisplayidType6Timing)                                          \
    S(2060, DisplayidType7, "displayid.type7") X(2061, DisplayidType7Timing)                                          \
    S(2080, DisplayidType9, "displayid.type9") X(2081, DisplayidType9Timing)                                          \
    S(2100, DisplayidType10, "displayid.type10") X(2101, DisplayidType10Timing)                                       \
    S(2120, Vtb, "vtb") X(2121, VtbVersion) X(2122, VtbDetailedTimings) X(2123, VtbCvtTimingCodes)                    \
    X(2124, VtbStandardTimings) X(2125, VtbCutTiming)                                                                 \
    S(2140, BlockMap, "block-map") X(2141, BlockMapTag)                                                               \
    S(2160, Di, "di") X(2161, DiVersion) X(2162, DiInterface) X(2163, DiVersionKind) X(2164, DiInterfaceVersion)      \
    X(2165, DiInterfaceVersionDecimals) X(2166, DiInterfaceRelease) X(2167, DiInterfaceReleaseDecimals)               \
    X(2168, DiInterfaceLetter) X(2169, DiInterfaceYear) X(2170, DiInterfaceMonth) X(2171, DiInterfaceDay)             \
    X(2172, DiDataEnable) X(2173, DiDataEnablePolarity) X(2174, DiShiftClockEdge) X(2175, DiHdcpSupported)            \
    X(2176, DiDoubleClocking) X(2177, DiPacketizedDigitalVideo) X(2178, DiDataFormat) X(2179, DiMinPixelClock)        \
    X(2180, DiMaxPixelClock) X(2181, DiCrossoverFrequency) X(2182, DiSubPixelLayout) X(2183, DiSubPixelConfiguration) \
    X(2184, DiSubPixelShape) X(2185, DiHorizontalPitch) X(2186, DiVerticalPitch) X(2187, DiFixedPixelFormat)          \
    X(2188, DiViewDirection) X(2189, DiTransparentBackground) X(2190, DiPhysicalImplementation) X(2191, DiDdcCi)      \
    X(2192, DiLegacyModes) X(2193, DiStereoVideo) X(2194, DiScalerOnBoard) X(2195, DiImageCentering)                  \
    X(2196, DiConditionalUpdate) X(2197, DiInterlacedVideo) X(2198, DiFrameLock) X(2199, DiFrameRateConversion)       \
    X(2200, DiVerticalFrequency) X(2201, DiHorizontalFrequency) X(2202, DiOrientationType)                            \
    X(2203, DiScreenOrientation) X(2204, DiZeroPixelLocation) X(2205, DiScanDirection) X(2206, DiStandaloneProjector) \
    X(2207, DiDefaultDecoding) X(2208, DiPreferredDecoder) X(2209, DiDecodesBgr) X(2210, DiDecodesYCNtsc)             \
    X(2211, DiDecodesYCPal) X(2212, DiDecodesYCSecam)                                                                 \
    S(2213, DiDecodesYcrcb444Smpte293m, "di.decodes-ycrcb-444-smpte-293m")                                            \
    S(2214, DiDecodesYcrcb422Smpte293m, "di.decodes-ycrcb-422-smpte-293m")                                            \
    S(2215, DiDecodesYcrcb420Smpte293m, "di.decodes-ycrcb-420-smpte-293m")                                            \
    S(2216, DiDecodesYcrcbSmpte260m, "di.decodes-ycrcb-smpte-260m")                                                   \
    S(2217, DiDecodesYpbprSmpte240m, "di.decodes-ypbpr-smpte-240m")                                                   \
    S(2218, DiDecodesYcrcbSmpte274m, "di.decodes-ycrcb-smpte-274m")                                                   \
    S(2219, DiDecodesYpbprSmpte274m, "di.decodes-ypbpr-smpte-274m") X(2220, DiDecodesYBYRYBetacam)                    \
    S(2221, DiDecodesYBYRYM2, "di.decodes-y-b-y-r-y-m-2") X(2222, DiDecodesMonochrome) X(2223, DiDithering)           \
    X(2224, DiDepthBlue) X(2225, DiDepthGreen) X(2226, DiDepthRed) X(2227, DiDepthCb) X(2228, DiDepthY)               \
    X(2229, DiDepthCr) X(2230, DiAspectConversionFull) X(2231, DiAspectConversionZoom)                                \
    X(2232, DiAspectConversionSqueeze) X(2233, DiAspectConversionVariable) X(2234, DiTransfer)                        \
    X(2235, DiTransferEntries) X(2236, DiCurveWhite) X(2237, DiCurveBlue) X(2238, DiCurveGreen) X(2239, DiCurveRed)   \
    S(2250, Ls, "ls") X(2251, LsVersion) X(2252, LsRevision) X(2253, LsUnicodeVersionMajor)                           \
    X(2254, LsUnicodeVersionMinor) X(2255, LsUnicodeVersionUpdate) P(LsTable, "ls.table") X(2256, LsTableLength)      \
    X(2257, LsTableEncoding) X(2258, LsTableCountry) X(2259, LsTableLanguage) X(2260, LsTable)                        \
    X(2261, LsTableManufacturerNameLength) X(2262, LsTableManufacturerName) X(2263, LsTableModelNameLength)           \
    X(2264, LsTableModelName) X(2265, LsTableSerialNumberLength) X(2266, LsTableSerialNumber)                         \
    S(2280, BaseEpi, "base.epi") X(2281, BaseEpiBitsPerPixel) X(2282, BaseEpiPixelsPerClock)                          \
    X(2283, BaseEpiDataMapping) X(2284, BaseEpiInterfaceType) X(2285, BaseEpiDataEnablePolarity)                      \
    X(2286, BaseEpiShiftClockPolarity) X(2287, BaseEpiVerticalDisplay) X(2288, BaseEpiHorizontalDisplay)              \
    X(2289, BaseEpiPowerOnDelay) X(2290, BaseEpiPowerOffDelay) X(2291, BaseEpiContrastOnDelay)                        \
    X(2292, BaseEpiContrastOffDelay) X(2293, BaseEpiBacklightSteps) X(2294, BaseEpiBacklightOffAtBoot)                \
    X(2295, BaseEpiBacklightControl) X(2296, BaseEpiContrastSteps) X(2297, BaseEpiContrastControl)                    \
    X(2298, BaseEpiVersion) X(2299, BaseEpiRevision)
// clang-format on

#define ZOR_EDID_NO_FIELD(...) // for P, where only enumerators are asked for
#define ZOR_EDID_FIELD(NUMBER, NAME, ...) eZorEdidField_##NAME = (NUMBER),
enum EZorEdidField : unsigned short
{
    eZorEdidField_None = 0,
    ZOR_EDID_FIELDS(ZOR_EDID_FIELD, ZOR_EDID_NO_FIELD, ZOR_EDID_FIELD)
};
#undef ZOR_EDID_FIELD
