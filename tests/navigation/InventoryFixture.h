#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYWnd.h"

// A fresh in-memory inventory per test, with helpers that write exactly the rows a case
// needs, a top-level window to host the views, and the failure reports cleared.
class InventoryFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Recreates the store without the "RIM Applications" table.
    void UseStoreWithoutRIM();

    std::uint32_t AddApp(unsigned char inv, const std::string& company,
                         const std::string& companyInternal, const std::string& name,
                         const std::string& version, int installed = 1,
                         const std::string& nameInternal = "");
    void SetAppCompany(std::uint32_t appID, unsigned char inv, const std::string& company);
    void SetAppVersion(std::uint32_t appID, unsigned char inv, const std::string& version);
    void RemoveApp(std::uint32_t appID, unsigned char inv);
    std::int32_t AddPalmApp(const std::string& name, const std::string& version,
                            const std::string& iconName = "");
    std::int32_t AddRIMApp(const std::string& name, const std::string& version);
    // A file on one client; state 0 unidentified, 3 ignored by a user rule, 1 identified.
    std::uint32_t AddFile(unsigned char inv, const std::string& name, std::int64_t size,
                          std::int64_t time, int state = 0, std::uint32_t appID = 0);

    std::vector<std::string> ReportKinds() const;

    SYDatabase db;
    SYWnd host;
};
