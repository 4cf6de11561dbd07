#pragma once

#include <string>

#include "outside/store/SYRecordset.h"

// Companies of the installed applications of the Windows PC or Windows CE inventory
// (InvDataType 0 or 1): one row per spelling of a company, in ascending order of the
// internal name without regard to ASCII case, so that all rows of one company stand
// together. Within a company the spelling of its oldest application comes first.
class SYAppCompanySet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    std::string AppCompany() const;
    std::string AppCompanyInternal() const;

protected:
    void BuildQuery(SYSelect& select) const override;
};
