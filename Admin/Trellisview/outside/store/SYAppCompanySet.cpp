#include "outside/store/SYAppCompanySet.h"

#include "outside/store/SYInventorySchema.h"

void SYAppCompanySet::BuildQuery(SYSelect& select) const {
    select.Columns("AppCompanyInternal, AppCompany");
    select.From(SYInventorySchema::AppTable(InvDataType));
    select.Where("AppInstalled = 1");
    select.GroupBy("AppCompanyInternal, AppCompany");
    select.OrderBy("AppCompanyInternal, COUNT(*) DESC, AppCompany");
}

std::string SYAppCompanySet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYAppCompanySet::AppCompanyInternal() const {
    return FieldText("AppCompanyInternal");
}
