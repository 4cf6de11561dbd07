#include "outside/store/SYAppCompanySet.h"

#include <string>

#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYSelect.h"

void SYAppCompanySet::BuildQuery(SYSelect& select) const {
    // One row per spelling, ranked by its oldest application.
    select.Columns("AppCompany, AppCompanyInternal");
    select.From(std::string("(SELECT AppCompany, AppCompanyInternal, MIN(AppID) AS FirstAppID "
                            "FROM ") +
                SYInventorySchema::AppTable(InvDataType) +
                " WHERE AppInstalled = 1 GROUP BY AppCompanyInternal, AppCompany)");
    select.OrderBy("AppCompanyInternal COLLATE NOCASE, FirstAppID");
}

std::string SYAppCompanySet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYAppCompanySet::AppCompanyInternal() const {
    return FieldText("AppCompanyInternal");
}
