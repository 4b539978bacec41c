// The edits of one call of `zoredid edit`, from the texts of the command line.

#pragma once

#include <span>
#include <string>

#include "EdidExtBlockCEA861.h"
#include "EdidMode.h"
#include "EditNamed.h"
#include "EditSet.h"
#include "VidParamTimingGeneric.h"

using CAudio = CEdidExtBlockCEA861::SAudioDescriptor;

enum EEditKind : unsigned int
{
    eEdit_Serial,
    eEdit_Remove,
    eEdit_RemoveCode,
    eEdit_RemoveStandard,
    eEdit_RemoveDetailed,
    eEdit_RemoveEstablished,
    eEdit_Preferred,
    eEdit_ColorDepth,
    eEdit_DeepColor,
    eEdit_AudioAdd,
    eEdit_AudioSet,
    eEdit_AudioRemove,
    eEdit_Speakers,
    eEdit_RepairChecksums,
    eEdit_Set,  // done after all others, as CFieldEdits has it
    eEdit_Named // the same
};

// A video code in the meaning of CTA-861-H, with the HDMI code of the same format; where that is 0, a size and a rate
// as IsMeant has them.
struct SWanted
{
    unsigned int m_uiCode = 0;
    SZorMode m_oMode = {};
};

struct SEdit
{
    EEditKind m_eKind;
    std::string m_sText; // "--remove-detailed 0", for messages
    // The number of a timing or an audio descriptor in the image as it was read, the serial number, a
    // CEdidBase::EColorBitDepth, the bits of CEdidExtBlock::SetColorBitDepthSupport, or the mask of
    // CEdidExtBlockCEA861::SetSpeakerDescriptor.
    unsigned int m_uiNumber = 0;
    CAudio m_oAudio = {};
    CVidParamTimingGeneric m_oTiming; // of eEdit_Preferred, by a table or formula
    SWanted m_oWanted = {};           // of eEdit_Remove and eEdit_RemoveCode; of eEdit_Preferred without a type
    SSetting m_oSetting = {};         // of eEdit_Set
    // Of eEdit_Named; of others what is done in DisplayID blocks after the rest.
    CNamedEdit m_fnNamed = {};
};

// One option of the command line that is an edit.
struct SEditOption
{
    EEditKind m_eKind;
    const char* m_pszName;  // "--serial"
    const char* m_pszValue; // placeholder in the help; empty for an option without a value
    const char* m_pszHelp;
    std::string (*m_pfnNamed)(const std::string& sValue, CNamedEdit& fnEdit) = nullptr; // of eEdit_Named
};
std::span<const SEditOption> GetEditOptions();

// Fills oEdit from the option's value. The result is empty, or says what is wrong with the value.
std::string ParseEdit(const SEditOption& oOption, const std::string& sValue, SEdit& oEdit);
