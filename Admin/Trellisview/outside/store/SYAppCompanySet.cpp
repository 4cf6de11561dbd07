#include "outside/store/SYAppCompanySet.h"

#include "outside/store/SYInventorySchema.h"

void SYAppCompanySet::BuildQuery(SYSelect& select) const {
    select.Columns("AppCompanyInternal, AppCompany");
    select.From(SYInventorySchema::AppTable(InvDataType));
    select.Where("AppInstalled = 1");
    select.GroupBy("AppCompanyInternal, AppCompany");
    // The tree merges in the order of the internal names without regard to case, and takes
    // names differing only in case for one company: their rows have to stand together.
    select.OrderBy("AppCompanyInternal COLLATE NOCASE, COUNT(*) DESC, AppCompany");
}

std::string SYAppCompanySet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYAppCompanySet::AppCompanyInternal() const {
    return FieldText("AppCompanyInternal");
}
