#pragma once

#include <string>
#include <vector>

#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSWRuleSet.h"

// First column of the first row, -1 when there is no row.
inline long long Scalar(SYDatabase& db, const std::string& sql) {
    SYStatement statement(db, sql);
    return statement.Step() ? statement.Int64(0) : -1;
}

// Opens the set as it is filtered and gives the names of its rows.
inline std::vector<std::string> FileNames(SYAppFileSet& set) {
    set.Open();
    std::vector<std::string> names;
    for (; !set.IsEOF(); set.MoveNext())
        names.push_back(set.FileName());
    return names;
}

// An active user rule of the Windows PC inventory without size or time.
inline unsigned long AddUserRule(SYDatabase& db, unsigned char type, const std::string& name,
                                 const std::string& app = "", const std::string& company = "",
                                 const std::string& version = "") {
    SYSWRuleSet rules(db);
    rules.AddNew();
    rules.SetRuleState(1);
    rules.SetRuleType(type);
    rules.SetFileName(name);
    rules.SetAppName(app);
    rules.SetAppCompany(company);
    rules.SetAppVersion(version);
    rules.Update(1);
    return rules.RuleID();
}

inline void RetireRule(SYDatabase& db, unsigned long ruleID) {
    SYSWRuleSet set(db);
    set.FilterForRuleID(ruleID);
    set.Open();
    set.Edit();
    set.SetRuleState(3);
    set.Update(1);
}
