#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "navigation/SYInvBaseListCtrl.h"
#include "navigation/SYInvColumn.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/store/SYInventoryModel.h"

class SYAppFileItem;
class SYIdRuleItem;

// The list of the software inventory. One control serves six modes, each a column set
// whose widths it keeps. Data holds the records behind the rows; a row's item data is its
// record's index there, so sorting and redisplay need no database.
class SYInvListCtrl : public SYInvBaseListCtrl {
public:
    SYInvListCtrl();
    ~SYInvListCtrl() override;

    int Initialize(unsigned id, unsigned bitmapId, unsigned maskColour, int imageWidth,
                   SYWnd* parent) override;

    void SetCompanyListMode(std::uint8_t platform);
    void SetAppListMode(std::uint8_t platform);
    void SetExcludedFilesMode(std::uint8_t platform);
    void SetUnidFilesMode(std::uint8_t platform);
    void SetPalmAppListMode();
    void SetRIMAppListMode();

    void BuildCompanies();
    // By the internal company name.
    void BuildAppList(const std::string& company);
    void BuildExcludes();
    void BuildUnidFiles();
    void BuildPalmAppList();
    void BuildRIMAppList();
    void ClearData();

    std::uint32_t GetSelectedFileID() const;
    std::uint32_t GetSelectedAppID() const;
    std::int32_t GetSelectedPalmAppID() const;
    std::int32_t GetSelectedRIMAppID() const;

    // Keeping in step after a rule change; a change of another platform does nothing.
    void IdentifyFile(const SYIdRuleItem* rule, std::uint8_t invDataType);
    void ExcludeFile(const SYAppFileItem* rule, std::uint8_t invDataType);
    void IgnoreApplication(std::uint32_t appID, std::uint8_t invDataType);

    void SortOnHeader(int column) override;

    int ActiveMode() const { return m_activeMode; }
    std::uint8_t InvDataType() const { return m_invDataType; }
    int SortColumn() const { return m_sortColumn; }
    int SortAscending() const { return m_sortAscending; }
    const SYListItemArray& Data() const { return m_data; }
    int CompanyListMode() const { return m_companyListMode; }
    int AppListMode() const { return m_appListMode; }
    int ExcludedFilesMode() const { return m_excludedFilesMode; }
    int UnidFilesMode() const { return m_unidFilesMode; }
    int PalmAppListMode() const { return m_palmAppListMode; }
    int RIMAppListMode() const { return m_rimAppListMode; }
    // The columns of a mode as the list keeps them, or none for an unknown mode.
    std::vector<SYInvColumn> ModeColumns(int mode) const;

protected:
    int AddMode(const std::string& headers);
    void SetModeColWidths();
    void SwitchMode(int mode);
    void SaveColumns(int mode);
    void LoadColumns(int mode);

    void AddAppsToData(const std::string& company);
    void BuildCompanyListFromData();
    void BuildAppListFromData(int keepScroll);
    void BuildFileListFromData(int keepScroll);
    void RedisplayData();
    // Sorts Data and moves the rows shown along with their records; false, having done
    // nothing, unless each row stands for exactly one record.
    bool ReorderRows();
    void RemoveMatchingFiles(const SYAppFileItem* rule);
    void AddFilesForRule(const SYAppFileItem* rule);
    // The row of the application, or -1; only in the application mode.
    int FindApplication(std::uint32_t appID) const;

private:
    SYInventoryModel Model() const { return SYInventoryModel(Database()); }
    bool ValidMode(int mode) const;
    bool InFileMode() const;
    // Empties Data and the rows, as every Build operation starts.
    void ResetContent();
    void AddCompanies(const std::vector<SYInventoryModel::CompanyRow>& companies);
    void BuildFiles(SYInventoryModel::FileList fileList);
    void AddFileRows(const std::vector<SYInventoryModel::FileRow>& rows);
    // A failed read keeps its records in Data and makes no rows.
    template <class Load, class ShownName>
    void BuildHandheldApps(Load load, std::uint8_t appType, ShownName shownName);
    // Rows from Data in the sort order; text and image of a record come from rowOf.
    template <class RowOf> void BuildRows(int keepScroll, RowOf rowOf);
    const SYListItem* RecordOfRow(int row) const;
    bool RowsMatchData() const;
    const SYListItem* SelectedRecord(int mode) const;

    std::vector<std::vector<SYInvColumn>> m_columnSets;
    int m_activeMode = -1;
    std::uint8_t m_invDataType = 0;
    SYListItemArray m_data;
    int m_sortColumn = 0;
    int m_sortAscending = 1;
    int m_companyListMode = 0;
    int m_appListMode = 0;
    int m_excludedFilesMode = 0;
    int m_unidFilesMode = 0;
    int m_palmAppListMode = 0;
    int m_rimAppListMode = 0;
};
