#include "outside/store/SYSystemRulesWriter.h"

#include "outside/framework/CException.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYStoreValue.h"
#include "outside/store/SYTransaction.h"

SYSystemRulesWriter::SYSystemRulesWriter(const std::string& nativePath) {
    m_database.CreateSystemRules(nativePath);
    m_transaction = std::make_unique<SYTransaction>(m_database);
}

SYSystemRulesWriter::~SYSystemRulesWriter() {
    m_transaction.reset();
}

unsigned long SYSystemRulesWriter::AddRule(const SYRuleRow& rule) {
    if (!m_transaction)
        throw CDBException(21, "The system rules writer has already committed.");
    SYInventorySchema::CheckFileInventory(rule.invDataType);
    auto insert = m_database.Cached(
        "INSERT INTO SystemRules (InvDataType, RuleType, FileName, FileSize, FileTime, AppName, "
        "AppVersion, AppCompany, Comment) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)");
    insert->Bind(1, std::int64_t{rule.invDataType})
        .Bind(2, std::int64_t{rule.ruleType})
        .Bind(3, rule.fileName)
        .Bind(4, rule.size ? SYDbValue{SYStoreValue::FromSize(*rule.size)} : SYDbValue{})
        .Bind(5, rule.time.IsNull() ? SYDbValue{} : SYDbValue{std::int64_t{rule.time.GetTime()}})
        .Bind(6, rule.appName)
        .Bind(7, rule.appVersion)
        .Bind(8, rule.appCompany)
        .Bind(9, rule.comment);
    insert->Execute();
    return static_cast<unsigned long>(m_database.LastInsertID());
}

void SYSystemRulesWriter::Commit() {
    if (!m_transaction)
        return;
    m_transaction->Commit();
    m_transaction.reset();
}
