// The command line of the program and of its subcommands: how an option is declared, and how the arguments are parsed.
// CLI11 does that, inside CommandLine.cpp alone: its headers take ten times as long to compile as a subcommand.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Tool.h"

namespace CLI
{
class App;
class Option;
} // namespace CLI

// A declared option or positional word. Copies mean the same option.
class COption
{
public:
    // What is wrong with a value, as one line; empty when it is good.
    using TCheck = std::function<std::string(const std::string&)>;

    explicit COption(CLI::Option& oOption) : m_oOption(oOption) {}

    COption Required() const;
    COption Placeholder(const char* pszText) const; // of the value, in the help; without one, TEXT or UINT
    COption Check(const TCheck& fnCheck) const;
    COption OneOf(const std::vector<std::string>& asValues) const; // in either case, taken as spelled here
    COption Excludes(const COption& oOther) const;
    COption Hidden() const; // from the help

    bool IsGiven() const; // after parsing

private:
    CLI::Option& m_oOption;
};

// The options of the program or of one subcommand, while they are declared. What a reference is given of is filled
// while the arguments are parsed, and so outlives that. A name is "FILE" for a word, else "-o,--output".
class COptions
{
public:
    explicit COptions(CLI::App& oApp) : m_oApp(oApp) {}

    COption Word(const char* pszName, std::string& sWord, const char* pszHelp);
    COption Word(const char* pszName, const std::function<void(const std::string&)>& fnTake, const char* pszHelp);
    COption Words(const char* pszName, std::vector<std::string>& asWords, const char* pszHelp);
    // An option that may be repeated, with one value each time.
    COption Each(const char* pszName, std::vector<std::string>& asWords, const char* pszHelp);
    COption Flag(const char* pszName, bool& bFlag, const char* pszHelp);
    // Decimal, with or without leading zeros. pszRange is its range in the help.
    COption Number(const char* pszName, unsigned int& uiNumber, unsigned int uiLeast, unsigned int uiMost,
                   const char* pszHelp, const char* pszRange);
    // An option that may be repeated, and whose place among its like matters: an edit. Without a placeholder
    // it has no value, with one in brackets the value may be left out. uiTag is the caller's own name for it.
    void Edit(const char* pszName, const char* pszPlaceholder, const char* pszHelp, const COption::TCheck& fnCheck,
              size_t uiTag, const char* pszGroup = "Edits");

    void Version(const char* pszName, const std::string& sText, const char* pszHelp);
    void Footer(const char* pszText); // after the options, in the help
    void Run(const std::function<void()>& fnRun);

    struct SEditValue
    {
        size_t m_uiTag;
        std::string m_sValue;
    };
    std::vector<SEditValue> ListEdits() const; // after parsing, in the order of the command line
    std::string GetName() const;

    // A line for each option that the help names: "--json", or with a value "--form=PLACEHOLDER", then the values that
    // there are, a blank before each.
    std::string ListForCompletion() const;

private:
    std::vector<std::string> ListValues(const CLI::Option& oOption) const;

    struct SEdit
    {
        const CLI::Option* m_poOption;
        size_t m_uiTag;
        COption::TCheck m_fnCheck;
    };

    CLI::App& m_oApp;
    std::vector<SEdit> m_aoEdits;
};

class CCommandLine
{
public:
    CCommandLine(int iCount, char** ppszArguments, const char* pszName, const char* pszDescription);
    ~CCommandLine();
    CCommandLine(const CCommandLine&) = delete;
    CCommandLine& operator=(const CCommandLine&) = delete;

    // The options of the program itself, which may also follow a subcommand. Declared before the subcommands.
    COptions& GetOptions() { return *m_apoOptions[0]; }

    // The options of a subcommand that no argument names are not declared: that would take most of the time of a run.
    void Subcommand(const char* pszName, const char* pszSummary, const std::function<void(COptions&)>& fnDeclare);

    // The subcommand that is meant where the first word is a file or looks like a file's name. Without effect when it
    // is not declared.
    void Default(const char* pszName) { m_sDefault = pszName; }

    // Parses, calls fnParsed, then what the subcommand runs. A wrong command line becomes one line on standard error,
    // and nothing is called. The help and the version are printed, and nothing is called; "help" and "help SUBCOMMAND"
    // are the same as --help. After a last argument --list-options, the options of the program and of the subcommand
    // are printed as COptions::ListForCompletion has them, without a subcommand those that there are, and FILE where
    // one may be in their place.
    EExit Parse(const std::function<void()>& fnParsed);

private:
    bool HasSubcommand(const std::string& sName) const;
    std::vector<std::string> ListSubcommands() const;
    std::string AskForOption(const std::string& sArgument) const;
    size_t FindFirstWord() const;
    size_t FindOptionOfDefault() const;
    void TakeHelpAndDefault();
    void DeclareNamed();
    std::string ListForCompletion() const;
    std::string DescribeMissingCommand() const;
    std::string DescribeExtras() const;
    const CLI::Option* FindOption(const std::string& sName) const;
    std::string DescribeMismatch(const std::string& sProblem) const;
    void PrintProblem(std::string sProblem) const;

    struct SSubcommand
    {
        CLI::App& m_oApp;
        std::function<void(COptions&)> m_fnDeclare;
    };

    std::unique_ptr<CLI::App> m_poApp;
    std::vector<SSubcommand> m_aoSubcommands;
    std::string m_sDefault;
    std::vector<std::string> m_asArguments;              // the last one first
    std::string m_sAfterHelp;                            // a word too many after "help SUBCOMMAND"
    std::vector<std::unique_ptr<COptions>> m_apoOptions; // of the program, then of the subcommand that is named
};
