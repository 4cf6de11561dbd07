#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/store/SYAppInstallationSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYHandheldSet.h"
#include "outside/store/SYMachineDataSet.h"
#include "outside/store/SYPalmApplicationInstallationSet.h"
#include "outside/store/SYPalmApplicationSet.h"
#include "outside/store/SYRIMApplicationInstallationSet.h"
#include "outside/store/SYRIMApplicationSet.h"

namespace {

// A set's query as the set would run it.
template <class Set> class Query : public Set {
public:
    using Set::Set;
    std::string Sql() const {
        SYSelect select;
        this->BuildQuery(select);
        return select.Sql();
    }
};

// The steps of the engine's plan that read a whole table. The output of a grouped view
// that was itself read through an index is read whole at the top level: that is no scan.
std::vector<std::string> FullScans(SYDatabase& db, const std::string& sql) {
    SYStatement plan(db, "EXPLAIN QUERY PLAN " + sql);
    std::vector<std::pair<long long, std::string>> steps;
    bool readsView = false;
    while (plan.Step()) {
        steps.emplace_back(plan.Int64(1), plan.Text(3));
        readsView = readsView || steps.back().second.rfind("CO-ROUTINE ", 0) == 0 ||
                    steps.back().second.rfind("MATERIALIZE ", 0) == 0;
    }
    std::vector<std::string> scans;
    for (const auto& [parent, step] : steps) {
        if (step.rfind("SCAN ", 0) == 0 && !(readsView && parent == 0))
            scans.push_back(step);
    }
    return scans;
}

// Every filter the detail views and dialogs use reaches its rows through an index.
TEST(DetailSets, EveryFilterTheViewsUseIsAnIndexRead) {
    SYDatabase db;
    db.OpenMemory();
    std::vector<std::pair<std::string, std::string>> queries;
    for (const unsigned char inventory : {0, 1}) {
        Query<SYAppInstallationSet> byApp(db);
        byApp.InvDataType = inventory;
        byApp.JoinMachines();
        byApp.SortByMachineID();
        byApp.FilterForAppID(1);
        queries.emplace_back("installations of an application", byApp.Sql());
        Query<SYAppInstallationSet> one(db);
        one.InvDataType = inventory;
        one.JoinMachines();
        one.FilterForMachineID(1);
        one.FilterForInstallationID(1);
        queries.emplace_back("one installation", one.Sql());
    }
    Query<SYMachineDataSet> scan(db);
    scan.FilterForMachine(1);
    scan.FilterForResource(1);
    queries.emplace_back("a PC's last scan", scan.Sql());
    Query<SYHandheldSet> device(db);
    device.FilterForDeviceID(1);
    queries.emplace_back("a device's last scan", device.Sql());
    Query<SYPalmApplicationSet> palmApp(db);
    palmApp.FilterForAppID(1);
    queries.emplace_back("a Palm application", palmApp.Sql());
    Query<SYPalmApplicationInstallationSet> palmDevices(db);
    palmDevices.JoinDevices();
    palmDevices.FilterForAppID(1);
    queries.emplace_back("a Palm application's devices", palmDevices.Sql());
    Query<SYPalmApplicationInstallationSet> palmOne(db);
    palmOne.JoinDevices();
    palmOne.JoinApplications();
    palmOne.FilterForAppID(1);
    palmOne.FilterForDeviceID(1);
    queries.emplace_back("a Palm application on a device", palmOne.Sql());
    Query<SYRIMApplicationSet> rimApp(db);
    rimApp.FilterForAppID(1);
    queries.emplace_back("a BlackBerry application", rimApp.Sql());
    Query<SYRIMApplicationInstallationSet> rimDevices(db);
    rimDevices.JoinDevices();
    rimDevices.FilterForAppID(1);
    queries.emplace_back("a BlackBerry application's devices", rimDevices.Sql());
    Query<SYRIMApplicationInstallationSet> rimOne(db);
    rimOne.JoinDevices();
    rimOne.JoinApplications();
    rimOne.FilterForAppID(1);
    rimOne.FilterForDeviceID(1);
    queries.emplace_back("a BlackBerry application on a device", rimOne.Sql());
    for (const auto& [what, sql] : queries)
        EXPECT_EQ(FullScans(db, sql), std::vector<std::string>{}) << what << ": " << sql;
}

} // namespace
