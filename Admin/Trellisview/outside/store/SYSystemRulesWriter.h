#pragma once

#include <memory>
#include <string>

#include "outside/store/SYDatabase.h"
#include "outside/store/SYRuleRow.h"

class SYTransaction;

// Makes the system rules database that comes with an installation: a new file, filled in
// one transaction that Commit ends.
class SYSystemRulesWriter {
public:
    explicit SYSystemRulesWriter(const std::string& nativePath);
    SYSystemRulesWriter(const SYSystemRulesWriter&) = delete;
    SYSystemRulesWriter& operator=(const SYSystemRulesWriter&) = delete;
    ~SYSystemRulesWriter();

    // Gives the rule's id; ids grow, so a later rule is the newer one.
    unsigned long AddRule(const SYRuleRow& rule);
    void Commit();

private:
    SYDatabase m_database;
    std::unique_ptr<SYTransaction> m_transaction;
};
