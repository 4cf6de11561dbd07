#pragma once

#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

class SYSWRuleSet;

// Moves a rule between the current row of a rule set and a rule item. Every reader and
// writer of rule rows goes through here, so absent sizes and times map the same way.
class SYSWRuleRow {
public:
    // FileID from RuleID, the name, the size or its absence, the time or its absence.
    static void ReadFileInfo(const SYSWRuleSet& set, SYAppFileItem& item);
    // The file information plus the type's own columns.
    static void Read(const SYSWRuleSet& set, SYIdRuleItem& rule);
    static void Read(const SYSWRuleSet& set, SYIgnoreRuleItem& rule);

    // Name, size (or null) and time (or null) of the item into the row being written.
    static void WriteFileInfo(SYSWRuleSet& set, const SYAppFileItem& item);
    // The type's own columns; the other type's columns stay as they are.
    static void WriteOwnColumns(SYSWRuleSet& set, const SYIdRuleItem& rule);
    static void WriteOwnColumns(SYSWRuleSet& set, const SYIgnoreRuleItem& rule);
};
