#include "outside/store/SYInventoryModel.h"

#include <array>

#include "outside/framework/SYString.h"
#include "outside/store/SYAppCompanySet.h"
#include "outside/store/SYAppEnum.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYPalmAppEnum.h"
#include "outside/store/SYRIMAppEnum.h"
#include "outside/store/SYStoreValue.h"
#include "outside/store/SYTableSet.h"

namespace {

constexpr const char* RIMTable = "RIM Applications";

// Indexed by the inventory's code; the texts are the store's own, run as they stand.
const std::array<const char*, 4> appCountSql{
    "SELECT Count([Applications].AppID) AS AppCount FROM Applications WHERE "
    "[Applications].AppInstalled=1",
    "SELECT Count([PPC Applications].AppID) AS AppCount FROM [PPC Applications] WHERE "
    "[PPC Applications].AppInstalled=1",
    "SELECT Count([Palm Applications].AppID) AS AppCount FROM [Palm Applications]",
    "SELECT Count([RIM Applications].AppID) AS AppCount FROM [RIM Applications]",
};

template <class Row> SYInventoryModel::Visitor<Row> appendTo(std::vector<Row>& rows) {
    return [&rows](const Row& row) {
        rows.push_back(row);
        return true;
    };
}

void setFileFilter(SYAppFileSet& set, SYInventoryModel::FileList list) {
    if (list == SYInventoryModel::FileList::ignored)
        set.FilterForExcludedFiles();
    else
        set.FilterForUnidFiles();
}

// Hands the open set's rows to visit until it says stop, and closes the set.
void visitFiles(SYAppFileSet& set,
                const SYInventoryModel::Visitor<SYInventoryModel::FileRow>& visit) {
    set.Open();
    SYInventoryModel::FileRow row;
    for (; !set.IsEOF(); set.MoveNext()) {
        row.fileID = static_cast<std::uint32_t>(set.FileID());
        row.name = set.FileName();
        row.size = set.FileSize();
        row.time = set.FileTime();
        if (!visit(row))
            break;
    }
    set.Close();
}

// The Palm and BlackBerry enumerators walk alike; only Palm has an icon name.
template <class Enumerator, class ReadMore>
void visitHandheldApps(SYDatabase* database,
                       const SYInventoryModel::Visitor<SYInventoryModel::AppRow>& visit,
                       ReadMore readMore) {
    Enumerator enumerator(database);
    if (!enumerator.BeginEnumApps())
        return;
    SYInventoryModel::AppRow row;
    while (enumerator.EnumApp(row.name)) {
        row.appID = static_cast<std::uint32_t>(enumerator.CurrentAppID());
        row.version = enumerator.CurrentAppVersion();
        row.nameInternal = row.name;
        readMore(enumerator, row);
        if (!visit(row))
            break;
    }
    enumerator.EndEnumApps();
}

} // namespace

void SYInventoryModel::ForEachCompany(std::uint8_t invDataType,
                                      const Visitor<CompanyRow>& visit) const {
    SYAppCompanySet set(m_database);
    set.InvDataType = invDataType;
    set.Open();
    // The set brings the rows of one company together: a company is whole when the next
    // row names another one.
    CompanyRow company;
    while (!set.IsEOF()) {
        company.internalName = set.AppCompanyInternal();
        company.spellings.clear();
        for (; !set.IsEOF() && SYStrICmp(set.AppCompanyInternal(), company.internalName) == 0;
             set.MoveNext())
            company.spellings.push_back(set.AppCompany());
        if (!visit(company))
            break;
    }
    set.Close();
}

void SYInventoryModel::LoadCompanies(std::uint8_t invDataType,
                                     std::vector<CompanyRow>& rows) const {
    ForEachCompany(invDataType, appendTo(rows));
}

void SYInventoryModel::ForEachCompanyApp(std::uint8_t invDataType, const std::string& company,
                                         const Visitor<AppRow>& visit) const {
    SYAppEnum enumerator(m_database);
    enumerator.InvDataType = invDataType;
    enumerator.SetCompanyName(company);
    if (!enumerator.BeginEnumApps())
        return;
    AppRow row;
    while (enumerator.EnumApp(row.name, row.version, row.nameInternal)) {
        row.appID = static_cast<std::uint32_t>(enumerator.CurrentAppID());
        if (!visit(row))
            break;
    }
    enumerator.EndEnumApps();
}

void SYInventoryModel::LoadCompanyApps(std::uint8_t invDataType, const std::string& company,
                                       std::vector<AppRow>& rows) const {
    ForEachCompanyApp(invDataType, company, appendTo(rows));
}

void SYInventoryModel::LoadInstalledApps(std::uint8_t invDataType,
                                         std::vector<AppRow>& rows) const {
    SYAppSet set(m_database);
    set.InvDataType = invDataType;
    set.FilterForInstalledApps();
    set.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    for (; !set.IsEOF(); set.MoveNext()) {
        AppRow& row = rows.emplace_back();
        row.appID = static_cast<std::uint32_t>(set.AppID());
        row.name = set.AppName();
        row.version = set.AppVersion();
        row.nameInternal = set.AppNameInternal();
        row.company = set.AppCompany();
    }
    set.Close();
}

void SYInventoryModel::ForEachPalmApp(const Visitor<AppRow>& visit) const {
    visitHandheldApps<SYPalmAppEnum>(m_database, visit,
                                     [](const SYPalmAppEnum& enumerator, AppRow& row) {
                                         row.iconName = enumerator.CurrentAppIconName();
                                     });
}

void SYInventoryModel::LoadPalmApps(std::vector<AppRow>& rows) const {
    ForEachPalmApp(appendTo(rows));
}

void SYInventoryModel::ForEachRIMApp(const Visitor<AppRow>& visit) const {
    visitHandheldApps<SYRIMAppEnum>(m_database, visit, [](const SYRIMAppEnum&, AppRow&) {});
}

void SYInventoryModel::LoadRIMApps(std::vector<AppRow>& rows) const {
    ForEachRIMApp(appendTo(rows));
}

bool SYInventoryModel::HaveRIMTable() const {
    SYTableSet set(m_database);
    set.FilterForTable(RIMTable);
    set.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    const bool have = !set.IsEOF();
    set.Close();
    return have;
}

void SYInventoryModel::ForEachFile(std::uint8_t invDataType, FileList list,
                                   const Visitor<FileRow>& visit) const {
    SYAppFileSet set(m_database);
    set.InvDataType = invDataType;
    setFileFilter(set, list);
    visitFiles(set, visit);
}

void SYInventoryModel::LoadFiles(std::uint8_t invDataType, FileList list,
                                 std::vector<FileRow>& rows) const {
    ForEachFile(invDataType, list, appendTo(rows));
}

void SYInventoryModel::LoadMatchingFiles(std::uint8_t invDataType, FileList list,
                                         const FileMatch& match, std::vector<FileRow>& rows) const {
    SYAppFileSet set(m_database);
    set.InvDataType = invDataType;
    setFileFilter(set, list);
    set.FilterForFileName(match.name);
    if (match.size)
        set.FilterForFileSize(SYStoreValue::Lo(*match.size), SYStoreValue::Hi(*match.size));
    if (match.time)
        set.FilterForFileTime(*match.time);
    visitFiles(set, appendTo(rows));
}

void SYInventoryModel::ForEachAppFile(std::uint8_t invDataType, std::uint32_t appID,
                                      const Visitor<FileRow>& visit) const {
    SYAppFileSet set(m_database);
    set.InvDataType = invDataType;
    set.JoinLocations();
    set.FilterForAppID(appID);
    visitFiles(set, visit);
}

std::string SYInventoryModel::AppCount(std::uint8_t invDataType) const {
    SYRecordset set(m_database);
    set.Open(SYRecordset::forwardOnly, appCountSql.at(invDataType), SYRecordset::none);
    std::string count;
    set.GetFieldValue("AppCount", count);
    set.Close();
    return count;
}
