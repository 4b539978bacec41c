// Options and arguments, by CLI11.

#include "CommandLine.h"

#include <stdio.h>
#include <unistd.h>

#include <algorithm>
#include <CLI/CLI.hpp>
#include <string_view>
#include <utility>

#include "HelpText.h"
#include "NearWord.h"
#include "TextFormat.h"

namespace
{
// Put before a word that follows "--", so that CLI11 takes it as a word: "--" no longer ends the options once a FILE
// precedes it. No name begins so.
constexpr char gsc_szWordMark[] = "\x01--\x01";

// The last argument of a call by the completion of the shell, which no help names.
constexpr char gsc_szCompletion[] = "--list-options";

// The arguments in the order that CLI11 parses: the last one first. "--name=" becomes "--name" and an empty word, which
// CLI11 would overlook.
std::vector<std::string> ListArguments(int iCount, char** ppszArguments)
{
    std::vector<std::string> asArguments;
    bool bWords = false; // no more options
    for (int i = 1; i < iCount; ++i)
    {
        const std::string sNext = ppszArguments[i];
        if (bWords)
        {
            asArguments.push_back(gsc_szWordMark + sNext);
        }
        else if (sNext == "--")
        {
            bWords = true;
        }
        else if (sNext.starts_with("--") && sNext.find('=') == sNext.size() - 1)
        {
            asArguments.insert(asArguments.end(), { sNext.substr(0, sNext.size() - 1), "" });
        }
        else
        {
            asArguments.push_back(sNext);
        }
    }
    std::reverse(asArguments.begin(), asArguments.end());
    return asArguments;
}

std::string TakeWord(const std::string& sText)
{
    return sText.starts_with(gsc_szWordMark) ? sText.substr(sizeof(gsc_szWordMark) - 1) : sText;
}

// CLI11 reads numbers as C does, in which 010 is 8: leading zeros are removed.
std::string TakeDecimal(std::string& sText)
{
    if (sText.empty() || sText.find_first_not_of("0123456789") != std::string::npos)
    {
        return "'" + ShowName(sText) + "' is not a decimal number";
    }
    sText.erase(0, std::min(sText.find_first_not_of('0'), sText.size() - 1));
    return std::string();
}

// A flag is there or not: --force=false would read like a way to switch it off, which no flag has.
void RefuseFlagValues(CLI::App& oApp)
{
    for (CLI::Option* poOption : oApp.get_options())
    {
        if (poOption->get_expected_max() == 0)
        {
            poOption->disable_flag_override();
        }
    }
}

// A name of a file that does not exist, or of a connector (HDMI-A-1), is known by its characters, which no subcommand
// has.
bool LooksLikeFile(const std::string& sWord)
{
    return sWord.find_first_of("/.-") != std::string::npos || access(sWord.c_str(), F_OK) == 0;
}

bool IsOption(const std::string& sArgument) { return sArgument.starts_with('-') && sArgument != "-"; }

// The value of an option, from "PLACEHOLDER", "PLACEHOLDER:{A,B,C}" or "PLACEHOLDER:RANGE".
struct SType
{
    std::string m_sPlaceholder;
    std::vector<std::string> m_asValues;
    std::string m_sRange;
};

SType ReadType(const CLI::Option& oOption)
{
    const std::string sType = oOption.get_type_name();
    const size_t uiColon = std::min(sType.find(':'), sType.size());
    SType oType;
    oType.m_sPlaceholder = sType.substr(0, uiColon);
    const std::string sRest = sType.substr(std::min(uiColon + 1, sType.size()));
    if (sRest.starts_with('{'))
    {
        oType.m_asValues = CLI::detail::split(sRest.substr(1, sRest.size() - 2), ',');
    }
    else
    {
        oType.m_sRange = sRest;
    }
    return oType;
}

// The help as wide as the terminal. The values of an option, and the options that it cannot be combined with, follow
// its description, where they can be wrapped.
class CFormatter : public CLI::Formatter
{
public:
    std::string make_option(const CLI::Option* poOption, bool bPositional) const override
    {
        std::string sName = make_option_name(poOption, bPositional);
        std::string sText = make_option_desc(poOption);
        if (poOption->get_type_size() != 0)
        {
            const SType oType = ReadType(*poOption);
            const bool bPlain = oType.m_sPlaceholder.empty() || (bPositional && oType.m_sPlaceholder == "TEXT");
            sName += bPlain ? "" : " " + oType.m_sPlaceholder;
            sName += poOption->get_expected_max() == CLI::detail::expected_max_vector_size ? " ..." : "";
            sName += poOption->get_required() ? " REQUIRED" : "";
            sText += oType.m_asValues.empty() ? "" : "; one of " + CLI::detail::join(oType.m_asValues, ", ");
            sText += oType.m_sRange.empty() ? "" : "; " + oType.m_sRange;
        }
        std::vector<std::string> asOthers;
        for (const CLI::Option* poOther : poOption->get_excludes())
        {
            asOthers.push_back(poOther->get_name());
        }
        std::sort(asOthers.begin(), asOthers.end()); // CLI11 has them by address
        sText += asOthers.empty() ? "" : "; not with " + CLI::detail::join(asOthers, ", ");
        return WrapEntry(sName, sText, m_uiWidth);
    }

    std::string make_subcommand(const CLI::App* poCommand) const override
    {
        return WrapEntry(poCommand->get_name(), poCommand->get_description(), m_uiWidth);
    }

    std::string make_description(const CLI::App* poApp) const override
    {
        return WrapText(poApp->get_description(), 0, 0, m_uiWidth) + "\n";
    }

    std::string make_usage(const CLI::App* poApp, std::string sName) const override
    {
        constexpr size_t uiIndent = 7; // below the name
        return WrapText(CLI::Formatter::make_usage(poApp, std::move(sName)), uiIndent, 0, m_uiWidth) + "\n";
    }

    // CLI11 has two empty lines after some groups.
    std::string make_help(const CLI::App* poApp, std::string sName, CLI::AppFormatMode eMode) const override
    {
        const std::string sHelp = CLI::Formatter::make_help(poApp, std::move(sName), eMode);
        return CLI::detail::find_and_replace(sHelp, "\n\n\n", "\n\n");
    }

    std::string make_footer(const CLI::App* poApp) const override { return WrapFooter(poApp->get_footer(), m_uiWidth); }

private:
    size_t m_uiWidth = GetHelpWidth();
};

// A problem that CLI11 describes, as one line: it lists several things in lines. "--json excludes --jsonl" is put in
// better words.
std::string MakeLine(std::string sProblem)
{
    std::replace(sProblem.begin(), sProblem.end(), '\n', ' ');
    return CLI::detail::find_and_replace(sProblem, " excludes ", " cannot be combined with ");
}

void EraseAll(std::string& sText, const std::string& sPart)
{
    for (size_t uiPart = sText.find(sPart); uiPart != std::string::npos; uiPart = sText.find(sPart))
    {
        sText.erase(uiPart, sPart.size());
    }
}
} // namespace

COption COption::Required() const
{
    m_oOption.required();
    return *this;
}

COption COption::Placeholder(const char* pszText) const
{
    m_oOption.type_name(pszText);
    return *this;
}

COption COption::Check(const TCheck& fnCheck) const
{
    m_oOption.check([fnCheck](const std::string& sText) { return fnCheck(sText); });
    return *this;
}

COption COption::OneOf(const std::vector<std::string>& asValues) const
{
    const auto fnTake = [asValues](std::string& sText) {
        for (const std::string& sValue : asValues)
        {
            if (CLI::detail::to_lower(sText) == CLI::detail::to_lower(sValue))
            {
                sText = sValue;
                return std::string();
            }
        }
        return "unknown value '" + sText + "'" + NameKnownWords(sText, asValues);
    };
    m_oOption.transform(CLI::Validator(fnTake, "{" + CLI::detail::join(asValues) + "}"));
    return *this;
}

COption COption::Excludes(const COption& oOther) const
{
    m_oOption.excludes(&oOther.m_oOption);
    return *this;
}

COption COption::Hidden() const
{
    m_oOption.group("");
    return *this;
}

bool COption::IsGiven() const { return m_oOption.count() != 0; }

COption COptions::Word(const char* pszName, std::string& sWord, const char* pszHelp)
{
    return COption(*m_oApp.add_option(pszName, sWord, pszHelp));
}

COption COptions::Word(const char* pszName, const std::function<void(const std::string&)>& fnTake, const char* pszHelp)
{
    return COption(*m_oApp.add_option_function<std::string>(pszName, fnTake, pszHelp));
}

COption COptions::Words(const char* pszName, std::vector<std::string>& asWords, const char* pszHelp)
{
    return COption(*m_oApp.add_option(pszName, asWords, pszHelp));
}

COption COptions::Each(const char* pszName, std::vector<std::string>& asWords, const char* pszHelp)
{
    return COption(*m_oApp.add_option(pszName, asWords, pszHelp)->allow_extra_args(false));
}

COption COptions::Flag(const char* pszName, bool& bFlag, const char* pszHelp)
{
    return COption(*m_oApp.add_flag(pszName, bFlag, pszHelp));
}

COption COptions::Number(const char* pszName, unsigned int& uiNumber, unsigned int uiLeast, unsigned int uiMost,
                         const char* pszHelp, const char* pszRange)
{
    CLI::Option& oOption = *m_oApp.add_option(pszName, uiNumber, pszHelp);
    // The check that is declared last is made first.
    const auto fnCheck = [uiLeast, uiMost, pszRange](std::string& sText) {
        unsigned int uiParsed = 0;
        const bool bGood = ParseNumber(sText, uiParsed) && uiParsed >= uiLeast && uiParsed <= uiMost;
        return bGood ? std::string() : sText + " is not a number of " + pszRange;
    };
    oOption.check(CLI::Validator(fnCheck, pszRange));
    oOption.transform(CLI::Validator(TakeDecimal, ""));
    return COption(oOption);
}

void COptions::Edit(const char* pszName, const char* pszPlaceholder, const char* pszHelp,
                    const COption::TCheck& fnCheck, size_t uiTag, const char* pszGroup)
{
    const std::string sHelp = pszHelp; // a text that is not constant would be taken for what the flag sets
    CLI::Option* poOption = nullptr;
    if (*pszPlaceholder == '\0')
    {
        poOption = m_oApp.add_flag(pszName, sHelp);
    }
    else
    {
        poOption = m_oApp.add_option(
            pszName, [](const CLI::results_t&) { return true; }, sHelp);
        poOption->type_name(pszPlaceholder)->type_size(1)->expected(*pszPlaceholder == '[' ? 0 : 1, 1);
        COption(*poOption).Check(fnCheck);
    }
    poOption->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->group(pszGroup);
    m_aoEdits.push_back({ poOption, uiTag, fnCheck });
}

void COptions::Version(const char* pszName, const std::string& sText, const char* pszHelp)
{
    m_oApp.set_version_flag(pszName, sText, pszHelp);
}

void COptions::Footer(const char* pszText) { m_oApp.footer(pszText); }

void COptions::Run(const std::function<void()>& fnRun) { m_oApp.callback(fnRun); }

// The n-th occurrence of an option has its n-th value.
std::vector<COptions::SEditValue> COptions::ListEdits() const
{
    std::vector<SEditValue> aoValues;
    std::vector<size_t> auiSeen(m_aoEdits.size());
    for (const CLI::Option* poOption : m_oApp.parse_order())
    {
        for (size_t i = 0; i < m_aoEdits.size(); ++i)
        {
            if (m_aoEdits[i].m_poOption == poOption)
            {
                aoValues.push_back({ m_aoEdits[i].m_uiTag, poOption->results()[auiSeen[i]++] });
            }
        }
    }
    return aoValues;
}

std::string COptions::GetName() const { return m_oApp.get_name(); }

// The check of an edit names the values that there are when it refuses another one. Of a value in four parts, those of
// the first part.
std::vector<std::string> COptions::ListValues(const CLI::Option& oOption) const
{
    constexpr std::string_view asHeads[] = { "unknown value '?'; expected one of ",
                                             "unknown value '?'; expected some of " };
    const auto oEdit = std::find_if(m_aoEdits.begin(), m_aoEdits.end(),
                                    [&](const SEdit& oOther) { return oOther.m_poOption == &oOption; });
    for (const char* pszUnknown : { "?", "?,?,?,?" })
    {
        const std::string sProblem = oEdit == m_aoEdits.end() ? "" : oEdit->m_fnCheck(pszUnknown);
        for (const std::string_view sHead : asHeads)
        {
            if (sProblem.starts_with(sHead))
            {
                const std::string sValues = sProblem.substr(sHead.size());
                return CLI::detail::split(CLI::detail::find_and_replace(sValues, ", ", ","), ',');
            }
        }
    }
    return ReadType(oOption).m_asValues;
}

std::string COptions::ListForCompletion() const
{
    std::string sLines;
    for (const CLI::Option* poOption : m_oApp.get_options())
    {
        if (poOption->get_group().empty() || poOption->get_positional())
        {
            continue;
        }
        std::string sValue;
        if (poOption->get_expected_max() > 0)
        {
            sValue = "=" + ReadType(*poOption).m_sPlaceholder;
            const std::vector<std::string> asValues = ListValues(*poOption);
            sValue += asValues.empty() ? "" : " " + CLI::detail::join(asValues, " ");
        }
        for (const std::string& sName : CLI::detail::split(poOption->get_name(false, true), ','))
        {
            sLines += sName + sValue + "\n";
        }
    }
    return sLines;
}

CCommandLine::CCommandLine(int iCount, char** ppszArguments, const char* pszName, const char* pszDescription)
    : m_poApp(std::make_unique<CLI::App>(pszDescription, pszName)), m_asArguments(ListArguments(iCount, ppszArguments))
{
    m_poApp->require_subcommand(1);
    m_poApp->formatter(std::make_shared<CFormatter>()); // which subcommands inherit
    m_apoOptions.push_back(std::make_unique<COptions>(*m_poApp));
}

CCommandLine::~CCommandLine() = default;

void CCommandLine::Subcommand(const char* pszName, const char* pszSummary,
                              const std::function<void(COptions&)>& fnDeclare)
{
    m_aoSubcommands.push_back({ *m_poApp->add_subcommand(pszName, pszSummary), fnDeclare });
}

bool CCommandLine::HasSubcommand(const std::string& sName) const
{
    const std::vector<std::string> asNames = ListSubcommands();
    return std::find(asNames.begin(), asNames.end(), sName) != asNames.end();
}

std::vector<std::string> CCommandLine::ListSubcommands() const
{
    std::vector<std::string> asNames;
    for (const SSubcommand& oSubcommand : m_aoSubcommands)
    {
        asNames.push_back(oSubcommand.m_oApp.get_name());
    }
    return asNames;
}

// The long options of the subcommand that is given and of the program, of which the argument may mean one.
std::string CCommandLine::AskForOption(const std::string& sArgument) const
{
    std::vector<const CLI::App*> apoApps = { m_poApp.get() };
    const auto apoUsed = m_poApp->get_subcommands();
    apoApps.insert(apoApps.begin(), apoUsed.begin(), apoUsed.end());
    std::vector<std::string> asNames;
    for (const CLI::App* poApp : apoApps)
    {
        for (const CLI::Option* poOption : poApp->get_options())
        {
            const std::vector<std::string>& asLong = poOption->get_lnames();
            const bool bHidden = poOption->get_group().empty();
            asNames.insert(asNames.end(), asLong.begin(), bHidden ? asLong.begin() : asLong.end());
        }
    }
    const bool bLong = sArgument.starts_with("--");
    const std::string sNear = bLong ? FindNearWord(sArgument.substr(2, sArgument.find('=') - 2), asNames) : "";
    return sNear.empty() ? "" : "; did you mean '--" + sNear + "'?";
}

// Its place among the arguments, or their number without one. Options of the program come before it.
size_t CCommandLine::FindFirstWord() const
{
    for (size_t i = m_asArguments.size(); i-- > 0;)
    {
        if (!IsOption(m_asArguments[i]))
        {
            return i;
        }
        const CLI::Option* poOption = std::as_const(*m_poApp).get_option_no_throw(m_asArguments[i]);
        if (poOption != nullptr && poOption->get_expected_max() > 0 && i > 0)
        {
            --i;
        }
    }
    return m_asArguments.size();
}

// The first option that is not one of the program, where no word is a subcommand and one may be a file; else the number
// of arguments.
size_t CCommandLine::FindOptionOfDefault() const
{
    bool bFile = false;
    for (const std::string& sArgument : m_asArguments)
    {
        if (HasSubcommand(sArgument) || sArgument == "help")
        {
            return m_asArguments.size();
        }
        bFile = bFile || (!IsOption(sArgument) && LooksLikeFile(sArgument));
    }
    for (size_t i = m_asArguments.size(); i-- > 0 && bFile;)
    {
        const CLI::Option* poOption = std::as_const(*m_poApp).get_option_no_throw(m_asArguments[i]);
        if (poOption == nullptr)
        {
            return IsOption(m_asArguments[i]) ? i : m_asArguments.size();
        }
        i -= poOption->get_expected_max() > 0 && i > 0 ? 1U : 0U;
    }
    return m_asArguments.size();
}

void CCommandLine::TakeHelpAndDefault()
{
    if (const size_t uiOption = FindOptionOfDefault(); uiOption != m_asArguments.size() && HasSubcommand(m_sDefault))
    {
        m_asArguments.insert(m_asArguments.begin() + static_cast<std::ptrdiff_t>(uiOption) + 1, m_sDefault);
        return;
    }
    const size_t uiFirst = FindFirstWord();
    if (uiFirst == m_asArguments.size() || HasSubcommand(m_asArguments[uiFirst]))
    {
        return;
    }
    const auto oFirst = m_asArguments.begin() + static_cast<std::ptrdiff_t>(uiFirst);
    if (*oFirst != "help")
    {
        if (HasSubcommand(m_sDefault) && LooksLikeFile(*oFirst))
        {
            m_asArguments.insert(oFirst + 1, m_sDefault);
        }
        return;
    }
    if (uiFirst == 0 || IsOption(*(oFirst - 1)) || *(oFirst - 1) == "help")
    {
        m_asArguments = { "--help" };
    }
    else if (HasSubcommand(*(oFirst - 1)))
    {
        m_sAfterHelp = uiFirst > 1 && !IsOption(*(oFirst - 2)) ? *(oFirst - 2) : "";
        m_asArguments = { "--help", *(oFirst - 1) };
    }
    else
    {
        m_asArguments.erase(oFirst); // its topic is then no subcommand
    }
}

void CCommandLine::DeclareNamed()
{
    for (const SSubcommand& oSubcommand : m_aoSubcommands)
    {
        CLI::App& oCommand = oSubcommand.m_oApp;
        if (std::find(m_asArguments.begin(), m_asArguments.end(), oCommand.get_name()) == m_asArguments.end())
        {
            continue;
        }
        oSubcommand.m_fnDeclare(*m_apoOptions.emplace_back(std::make_unique<COptions>(oCommand)));
        oCommand.fallthrough(); // the options of all subcommands may follow it
        RefuseFlagValues(oCommand);
        for (CLI::Option* poOption : oCommand.get_options())
        {
            if (poOption->get_positional())
            {
                poOption->transform(TakeWord);
            }
        }
    }
}

std::string CCommandLine::ListForCompletion() const
{
    std::string sLines = m_apoOptions[0]->ListForCompletion();
    if (m_apoOptions.size() > 1)
    {
        EraseAll(sLines, "-h\n--help\n"); // each has its own
        return m_apoOptions[1]->ListForCompletion() + sLines;
    }
    sLines += CLI::detail::join(ListSubcommands(), "\n") + "\nhelp\n";
    return sLines + (HasSubcommand(m_sDefault) ? "FILE\n" : "");
}

EExit CCommandLine::Parse(const std::function<void()>& fnParsed)
{
    TakeHelpAndDefault();
    DeclareNamed();
    if (!m_asArguments.empty() && m_asArguments[0] == gsc_szCompletion) // the last one
    {
        PrintResult(ListForCompletion());
        return eExit_Good;
    }
    if (!m_sAfterHelp.empty())
    {
        PrintProblem("unexpected argument: " + m_sAfterHelp);
        return eExit_CommandLine;
    }
    RefuseFlagValues(*m_poApp);
    m_poApp->parse_complete_callback(fnParsed);
    try
    {
        m_poApp->parse(std::vector<std::string>(m_asArguments));
    }
    catch (const CLI::Success& oHelp)
    {
        m_poApp->exit(oHelp);
    }
    catch (const CLI::ArgumentMismatch& oError)
    {
        PrintProblem(DescribeMismatch(oError.what()));
        return eExit_CommandLine;
    }
    catch (const CLI::ParseError& oError)
    {
        // A missing word is often what a mistyped option was to take, and a word that is not a FILE or MODE its
        // value.
        const bool bWord = dynamic_cast<const CLI::RequiredError*>(&oError) != nullptr ||
                           dynamic_cast<const CLI::ValidationError*>(&oError) != nullptr;
        const bool bExtras =
            dynamic_cast<const CLI::ExtrasError*>(&oError) != nullptr || (bWord && !m_poApp->remaining(true).empty());
        PrintProblem(m_poApp->get_subcommands().empty() ? DescribeMissingCommand()
                     : bExtras                          ? DescribeExtras()
                                                        : MakeLine(oError.what()));
        return eExit_CommandLine;
    }
    return eExit_Good;
}

// What no option and no subcommand takes, in the order given, and the option that the first one was meant to be.
std::string CCommandLine::DescribeExtras() const
{
    std::vector<std::string> asExtras = m_poApp->remaining(true); // those of a subcommand are at the end
    std::string sText;
    std::string sNear;
    for (size_t i = m_asArguments.size(); i-- > 0;)
    {
        const auto itExtra = std::find(asExtras.begin(), asExtras.end(), m_asArguments[i]);
        if (itExtra == asExtras.end())
        {
            continue;
        }
        const bool bOption = IsOption(*itExtra);
        sText += (sText.empty() ? "" : ", ") + std::string(bOption ? "unknown option: " : "unexpected argument: ");
        sText += TakeWord(*itExtra);
        sNear = bOption && sNear.empty() ? AskForOption(*itExtra) : sNear;
        asExtras.erase(itExtra);
    }
    return (sText.empty() ? "unexpected argument" : sText) + sNear;
}

const CLI::Option* CCommandLine::FindOption(const std::string& sName) const
{
    const auto apoUsed = m_poApp->get_subcommands();
    const CLI::Option* poOption = nullptr;
    for (const CLI::App* poApp : { apoUsed.empty() ? m_poApp.get() : apoUsed[0], m_poApp.get() })
    {
        poOption = poOption != nullptr ? poOption : poApp->get_option_no_throw(sName);
    }
    return poOption;
}

// "--format: 1 required NAME missing", or "json was given a disallowed flag override", in better words.
std::string CCommandLine::DescribeMismatch(const std::string& sProblem) const
{
    const std::string sName = sProblem.substr(0, sProblem.find_first_of(": "));
    if (!IsOption(sName))
    {
        return (sName.size() == 1 ? "-" : "--") + sName + " takes no value";
    }
    std::string sText = sName + " needs a value";
    if (const CLI::Option* const poOption = FindOption(sName); poOption != nullptr)
    {
        const SType oType = ReadType(*poOption);
        sText += oType.m_asValues.empty() ? "" : "; expected one of " + CLI::detail::join(oType.m_asValues, ", ");
        sText += oType.m_sRange.empty() ? "" : "; expected " + oType.m_sRange;
    }
    return sText;
}

// The word in place of a subcommand, and the subcommand that was meant or those that exist.
std::string CCommandLine::DescribeMissingCommand() const
{
    const std::vector<std::string> asUnknown = m_poApp->remaining();
    std::string sText = "no subcommand is given";
    std::string sNear;
    if (!asUnknown.empty())
    {
        const std::string sWord = TakeWord(asUnknown[0]);
        const bool bOption = IsOption(sWord);
        sText = (bOption ? "unknown option: " : "unknown subcommand: ") + sWord;
        sNear = bOption ? AskForOption(sWord) : AskForNearWord(sWord, ListSubcommands());
    }
    return sText + (sNear.empty() ? "; expected one of " + CLI::detail::join(ListSubcommands(), " ") : sNear);
}

void CCommandLine::PrintProblem(std::string sProblem) const
{
    const auto apoUsed = m_poApp->get_subcommands();
    EraseAll(sProblem, gsc_szWordMark);
    const std::string sHelp = apoUsed.empty() ? "zoredid --help" : "zoredid " + apoUsed[0]->get_name() + " --help";
    PrintError(sProblem + " (see " + sHelp + ")");
}
