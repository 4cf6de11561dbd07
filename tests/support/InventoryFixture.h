#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "navigation/SYInvListCtrl.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYWnd.h"
#include "support/ReportCapture.h"

using Strings = std::vector<std::string>;

class SYDatabase;

// Two Windows CE devices with setup.exe in \Windows, one of them also an older copy in
// \Temp, and junk.tmp, nothing identified; with tool, both also hold the two files of
// "Tool" 2.0, identified by their version information.
void WritePocketInventory(SYDatabase& db, bool tool = false);

// The views with their protected building blocks opened to the tests.
class TestTree : public SYInvTreeWnd {
public:
    using SYInvTreeWnd::BuildApps;
    using SYInvTreeWnd::RemovePPCData;
    using SYInvTreeWnd::SetAppsItem;
    using SYInvTreeWnd::UpdateAppCounts;
    using SYInvTreeWnd::UpdateApps;
};

class TestList : public SYInvListCtrl {
public:
    using SYInvListCtrl::FindApplication;
    using SYInvListCtrl::RemoveMatchingFiles;
    using SYInvListCtrl::SwitchMode;
};

// A fresh in-memory inventory per test with a tree and a list on it, helpers that write
// exactly the rows a case needs, and the failure reports captured.
class InventoryFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // inv 0 is the Windows table, 1 the Windows CE one.
    std::uint32_t AddApp(unsigned char inv, const std::string& company,
                         const std::string& companyInternal, const std::string& name,
                         const std::string& version, int installed = 1);
    std::int32_t AddPalmApp(const std::string& name, const std::string& version,
                            const std::string& iconName = "");
    std::int32_t AddRIMApp(const std::string& name, const std::string& version);
    // A file on one client; state 0 unidentified, 3 ignored by a user rule, 1 identified.
    std::uint32_t AddFile(unsigned char inv, const std::string& name, std::int64_t size,
                          std::int64_t time, int state = 0, std::uint32_t appID = 0);
    void Run(const std::string& sql);

    SYTreeCtrlEx& Ctrl() { return tree.GetTreeCtrl(); }
    std::vector<HTREEITEM> Children(HTREEITEM parent);
    Strings Texts(HTREEITEM parent);
    // What the console does before a node expands, then the user's expansion.
    void Expand(HTREEITEM node);
    Strings Rows() const;
    Strings Column(int column) const;
    Strings ReportKinds() const;

    ReportCapture reports;
    SYDatabase db;
    SYWnd host;
    TestTree tree;
    TestList list;
};
