#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "SYCliDocument.h"

class SYDatabase;
class SYIdRuleItem;
class SYIgnoreRuleItem;
class SYRuleChangeReport;
class SYSWRule;
class SYSWRuleItem;

// Rule writes of the command line. Each saves as the rule dialogs save (the same refusals,
// RemoveMatchingRules before the add, an overwrite only when asked for) and runs
// UpdateSamData, all in one transaction that a dry run rolls back; the report tells what
// changed, the same for both. A refusal throws SYCliError with nothing changed.
class SYCliRules {
public:
    struct Settings {
        unsigned char platform = 0;
        std::string installPath;
        bool dryRun = false;
        // Overwrite a rule of the same file information, as a Yes to the dialogs' question.
        bool replace = false;
    };

    SYCliRules(SYDatabase& database, Settings settings)
        : m_database(database), m_settings(std::move(settings)) {}

    SYCliDocument Identify(SYIdRuleItem& rule);
    SYCliDocument Ignore(SYIgnoreRuleItem& rule);
    // One exact ignore rule per file of the application, as Ignore Application saves them.
    SYCliDocument IgnoreApp(std::uint32_t appID, const std::string& comment);
    SYCliDocument Remove(std::uint32_t ruleID);
    // Rules in the export's CSV form, each saved as its dialog saves it; all or none.
    SYCliDocument Import(const std::string& path);

private:
    // Checks the rule as the dialogs do and saves it through the engine; SaveData's result.
    int Save(SYSWRule& engine, SYSWRuleItem& rule);
    SYCliDocument Apply(SYRuleChangeReport& report, const std::function<bool(SYSWRule&)>& write,
                        const std::function<std::uint32_t()>& newRuleID);

    SYDatabase& m_database;
    Settings m_settings;
};
