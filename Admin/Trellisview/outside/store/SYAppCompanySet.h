#pragma once

#include <string>

#include "outside/store/SYRecordset.h"

// The companies of the installed applications of inventory 0 or 1: one row per spelling
// of a company, in ascending order of the internal name, so all rows of one company stand
// together; within a company the spelling most applications use comes first.
class SYAppCompanySet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    std::string AppCompany() const;
    std::string AppCompanyInternal() const;

protected:
    void BuildQuery(SYSelect& select) const override;
};
