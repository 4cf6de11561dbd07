#include "navigation/SYInvListCtrl.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <utility>

#include "navigation/SYAppItem.h"
#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYFontMetrics.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFileItem.h"
#include "rules/SYCompanyItem.h"
#include "rules/SYIdRuleItem.h"

namespace {

using AppRow = SYInventoryModel::AppRow;
using FileRow = SYInventoryModel::FileRow;

struct ModeSpec {
    int headerString;
    std::array<const char*, 3> samples; // the narrowest each column may be
};

// In the order of the mode indexes: company, application, ignored files, unidentified
// files, Palm applications, BlackBerry applications.
const std::array<ModeSpec, 6> modeSpecs{{
    {IDS_HDR_COMPANY_LIST, {"SAMPLE2 Software Information Management Group", nullptr, nullptr}},
    {IDS_HDR_APP_LIST, {"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888", nullptr}},
    {IDS_HDR_EXCLUDED_FILES, {"OOOOOOOOOOOOO", "0,000,000", "10/00/0000 12:00 AM"}},
    {IDS_HDR_UNID_FILES, {"OOOOOOOOOOOOO", "0,000,000", "10/00/0000 12:00 AM"}},
    {IDS_HDR_APP_LIST, {"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888", nullptr}},
    {IDS_HDR_APP_LIST, {"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888", nullptr}},
}};

int appImage(const SYAppItem& app) {
    switch (app.AppType()) {
    case SYAppItem::AppTypePalm:
        return SYAdminImages::ImagePalmApp;
    case SYAppItem::AppTypeRIM:
        return SYAdminImages::ImageRIMApp;
    case SYAppItem::AppTypePPC:
        return SYAdminImages::ImagePPCApp;
    default:
        return SYAdminImages::ImageApplication;
    }
}

// Runs a read of the model; a failure of the store is reported and gives false.
template <class Read> bool readReported(Read read) {
    try {
        read();
        return true;
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return false;
    }
}

// One header field: an optional format mark, an optional width in digits, the name.
SYInvColumn parseColumn(const std::string& field, const SYListCtrlEx& list) {
    SYInvColumn column;
    std::size_t pos = 0;
    if (!field.empty()) {
        switch (field[0]) {
        case '*':
            column.Format = 2;
            ++pos;
            break;
        case '<':
            column.Format = 0;
            ++pos;
            break;
        case '>':
            column.Format = 1;
            ++pos;
            break;
        default:
            break;
        }
    }
    int width = 0;
    while (pos < field.size() && std::isdigit(static_cast<unsigned char>(field[pos])) != 0)
        width = width * 10 + (field[pos++] - '0');
    column.Name = field.substr(pos, SYInvColumn::MaxNameLength);
    column.Width =
        width != 0 ? width : list.GetStringWidth(column.Name) + SYFontMetrics::ColumnPadding;
    return column;
}

} // namespace

SYInvListCtrl::SYInvListCtrl() = default;

SYInvListCtrl::~SYInvListCtrl() = default;

// --- modes and columns --------------------------------------------------------------------

int SYInvListCtrl::Initialize(unsigned id, unsigned bitmapId, unsigned maskColour, int imageWidth,
                              SYWnd* parent) {
    if (SYListCtrlEx::Initialize(id, bitmapId, maskColour, imageWidth, parent) == 0)
        return 0;
    const std::array<int*, 6> modes{&m_companyListMode, &m_appListMode,     &m_excludedFilesMode,
                                    &m_unidFilesMode,   &m_palmAppListMode, &m_rimAppListMode};
    for (std::size_t i = 0; i < modes.size(); ++i)
        *modes[i] = AddMode(SYStringTable::Get(modeSpecs[i].headerString));
    SetModeColWidths();
    return 1;
}

int SYInvListCtrl::AddMode(const std::string& headers) {
    std::vector<SYInvColumn> columns;
    int position = 0;
    std::string field;
    while (SYListCtrlEx::NextField(headers, position, field))
        columns.push_back(parseColumn(field, *this));
    m_columnSets.push_back(std::move(columns));
    return static_cast<int>(m_columnSets.size()) - 1;
}

void SYInvListCtrl::SetModeColWidths() {
    const std::array<int, 6> modes{m_companyListMode, m_appListMode,     m_excludedFilesMode,
                                   m_unidFilesMode,   m_palmAppListMode, m_rimAppListMode};
    for (std::size_t i = 0; i < modes.size(); ++i) {
        if (!ValidMode(modes[i]))
            continue;
        auto& columns = m_columnSets[static_cast<std::size_t>(modes[i])];
        for (std::size_t c = 0; c < columns.size() && c < modeSpecs[i].samples.size(); ++c) {
            const char* sample = modeSpecs[i].samples[c];
            if (sample == nullptr)
                continue;
            const int minimum = GetStringWidth(sample) + SYFontMetrics::ColumnPadding;
            columns[c].Width = std::max(columns[c].Width, minimum);
        }
    }
}

bool SYInvListCtrl::ValidMode(int mode) const {
    return mode >= 0 && mode < static_cast<int>(m_columnSets.size());
}

std::vector<SYInvColumn> SYInvListCtrl::ModeColumns(int mode) const {
    return ValidMode(mode) ? m_columnSets[static_cast<std::size_t>(mode)]
                           : std::vector<SYInvColumn>();
}

void SYInvListCtrl::SwitchMode(int mode) {
    if (!ValidMode(mode) || mode == m_activeMode)
        return;
    SaveColumns(m_activeMode);
    SetRedraw(0);
    LoadColumns(mode);
    m_sortColumn = 0;
    m_sortAscending = 1;
    SetRedraw(1);
    Invalidate(0);
    m_activeMode = mode;
}

void SYInvListCtrl::SaveColumns(int mode) {
    if (!ValidMode(mode))
        return;
    auto& columns = m_columnSets[static_cast<std::size_t>(mode)];
    for (std::size_t c = 0; c < columns.size() && static_cast<int>(c) < GetColumnCount(); ++c)
        columns[c].Width = GetColWidth(static_cast<int>(c));
}

void SYInvListCtrl::LoadColumns(int mode) {
    while (GetColumnCount() > 0 && DeleteColumn(0) != 0) {
    }
    int position = 0;
    for (const SYInvColumn& column : m_columnSets[static_cast<std::size_t>(mode)]) {
        // The alignment goes through the two format calls; the column itself stays left.
        if (InsertColumn(position, column.Name, 0, column.Width) < 0)
            continue;
        SetColFormat(position, column.Format);
        SetHdrFormat(position, column.Format);
        ++position;
    }
}

void SYInvListCtrl::SetCompanyListMode(std::uint8_t platform) {
    SwitchMode(m_companyListMode);
    m_invDataType = platform;
}

void SYInvListCtrl::SetAppListMode(std::uint8_t platform) {
    SwitchMode(m_appListMode);
    m_invDataType = platform;
}

void SYInvListCtrl::SetExcludedFilesMode(std::uint8_t platform) {
    SwitchMode(m_excludedFilesMode);
    m_invDataType = platform;
}

void SYInvListCtrl::SetUnidFilesMode(std::uint8_t platform) {
    SwitchMode(m_unidFilesMode);
    m_invDataType = platform;
}

void SYInvListCtrl::SetPalmAppListMode() {
    SwitchMode(m_palmAppListMode);
    m_invDataType = InvDataPalm;
}

void SYInvListCtrl::SetRIMAppListMode() {
    SwitchMode(m_rimAppListMode);
    m_invDataType = InvDataRIM;
}

void SYInvListCtrl::SortOnHeader(int column) {
    m_sortAscending = column == m_sortColumn ? !m_sortAscending : 1;
    m_sortColumn = column;
    // The rows already show their records; moving them is enough, and much cheaper than
    // writing every row's text again.
    if (!ReorderRows())
        RedisplayData();
}

// --- content --------------------------------------------------------------------------------

void SYInvListCtrl::ResetContent() {
    m_data.RemoveAll();
    DeleteAllItems();
}

void SYInvListCtrl::ClearData() {
    ResetContent();
}

void SYInvListCtrl::BuildCompanies() {
    SYWaitCursor wait;
    ResetContent();
    std::vector<SYInventoryModel::CompanyRow> companies;
    const bool complete = readReported([&] { Model().LoadCompanies(m_invDataType, companies); });
    AddCompanies(companies);
    if (complete)
        BuildCompanyListFromData();
    SetRedraw(1);
    Invalidate(0);
}

void SYInvListCtrl::AddCompanies(const std::vector<SYInventoryModel::CompanyRow>& companies) {
    for (const SYInventoryModel::CompanyRow& row : companies) {
        auto* company = m_data.Add(std::make_unique<SYCompanyItem>());
        company->SetDisplayName(row.DisplayName());
        company->SetInternalName(row.internalName);
    }
}

void SYInvListCtrl::BuildAppList(const std::string& company) {
    SYWaitCursor wait;
    ResetContent();
    try {
        AddAppsToData(company);
        BuildAppListFromData(0);
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    }
}

void SYInvListCtrl::AddAppsToData(const std::string& company) {
    std::vector<AppRow> rows;
    Model().LoadCompanyApps(m_invDataType, company, rows);
    const std::uint8_t appType =
        m_invDataType == InvDataPPC ? SYAppItem::AppTypePPC : SYAppItem::AppTypeWindows;
    for (AppRow& row : rows)
        m_data.Add(std::make_unique<SYAppItem>(std::move(row), appType));
}

void SYInvListCtrl::AddFileRows(const std::vector<FileRow>& rows) {
    for (const FileRow& row : rows) {
        auto* file = m_data.Add(std::make_unique<SYAppFileItem>());
        file->SetFileID(row.fileID);
        file->SetFileName(row.name);
        file->SetFileSize(row.size);
        file->SetModTime(row.time);
        file->SetItemType(ItemTypeFile);
    }
}

void SYInvListCtrl::BuildFiles(SYInventoryModel::FileList fileList) {
    SYWaitCursor wait;
    ResetContent();
    std::vector<FileRow> rows;
    const bool complete = readReported([&] { Model().LoadFiles(m_invDataType, fileList, rows); });
    AddFileRows(rows);
    if (complete)
        BuildFileListFromData(0);
}

void SYInvListCtrl::BuildExcludes() {
    BuildFiles(SYInventoryModel::FileList::ignored);
}

void SYInvListCtrl::BuildUnidFiles() {
    BuildFiles(SYInventoryModel::FileList::unidentified);
}

template <class Load, class ShownName>
void SYInvListCtrl::BuildHandheldApps(Load load, std::uint8_t appType, ShownName shownName) {
    SYWaitCursor wait;
    ResetContent();
    std::vector<AppRow> rows;
    const bool complete = readReported([&] { load(rows); });
    for (AppRow& row : rows) {
        const std::string shown = shownName(row);
        m_data.Add(std::make_unique<SYAppItem>(std::move(row), appType, shown));
    }
    if (complete)
        BuildAppListFromData(0);
}

void SYInvListCtrl::BuildPalmAppList() {
    // The list shows both names where the icon says something else.
    const std::string format = SYStringTable::Get(IDS_ICON_AND_NAME);
    BuildHandheldApps([this](std::vector<AppRow>& rows) { Model().LoadPalmApps(rows); },
                      SYAppItem::AppTypePalm,
                      [&format](const AppRow& row) {
                          return !row.iconName.empty() && row.iconName != row.name
                                     ? SYFormatText(format, {row.iconName, row.name})
                                     : row.name;
                      });
}

void SYInvListCtrl::BuildRIMAppList() {
    BuildHandheldApps([this](std::vector<AppRow>& rows) { Model().LoadRIMApps(rows); },
                      SYAppItem::AppTypeRIM, [](const AppRow& row) { return row.name; });
}

template <class RowOf> void SYInvListCtrl::BuildRows(int keepScroll, RowOf rowOf) {
    SaveSelections();
    SetRedraw(0);
    const int topRow = keepScroll != 0 ? GetTopIndex() : 0;
    DeleteAllItems();
    m_data.SortArray(m_sortColumn, m_sortAscending);
    std::string text;
    SYProgress progress(SYProgress::FillingList, static_cast<std::size_t>(m_data.GetSize()));
    for (int i = 0; i < m_data.GetSize(); ++i) {
        progress.Step();
        const SYListItem* record = m_data[i];
        if (record == nullptr)
            continue;
        const int image = rowOf(*record, text);
        const int row = InsertBitmapString(image, -1, text);
        if (row >= 0)
            SetItemData(row, static_cast<std::uint32_t>(i));
    }
    SYRect bounds;
    if (keepScroll != 0 && GetItemRect(topRow, bounds) != 0)
        Scroll(0, bounds.Height() * topRow);
    RestoreSelections();
    SetRedraw(1);
    Invalidate(0);
}

void SYInvListCtrl::BuildCompanyListFromData() {
    const int image =
        m_invDataType == InvDataPPC ? SYAdminImages::ImagePPCCompany : SYAdminImages::ImageCompany;
    const std::string noCompany = SYStringTable::Get(IDS_NO_COMPANY);
    BuildRows(0, [&](const SYListItem& record, std::string& text) {
        const auto& company = static_cast<const SYCompanyItem&>(record);
        text = company.InternalName().empty() ? noCompany : company.DisplayName();
        return image;
    });
}

void SYInvListCtrl::BuildAppListFromData(int keepScroll) {
    BuildRows(keepScroll, [](const SYListItem& record, std::string& text) {
        const auto& app = static_cast<const SYAppItem&>(record);
        app.MakeString(text);
        return appImage(app);
    });
}

void SYInvListCtrl::BuildFileListFromData(int keepScroll) {
    BuildRows(keepScroll, [](const SYListItem& record, std::string& text) {
        static_cast<const SYAppFileItem&>(record).MakeString(text);
        return SYAdminImages::ImageFile;
    });
}

void SYInvListCtrl::RedisplayData() {
    if (m_activeMode < 0)
        return;
    if (m_activeMode == m_companyListMode)
        BuildCompanyListFromData();
    else if (InFileMode())
        BuildFileListFromData(0);
    else
        BuildAppListFromData(0);
}

bool SYInvListCtrl::RowsMatchData() const {
    int records = 0;
    for (int i = 0; i < m_data.GetSize(); ++i)
        records += m_data[i] != nullptr ? 1 : 0;
    if (records != GetItemCount())
        return false;
    std::vector<bool> shown(static_cast<std::size_t>(m_data.GetSize()), false);
    for (int row = 0; row < GetItemCount(); ++row) {
        const std::uint32_t index = GetItemData(row);
        if (index >= shown.size() || shown[index] || m_data[static_cast<int>(index)] == nullptr)
            return false;
        shown[index] = true;
    }
    return true;
}

bool SYInvListCtrl::ReorderRows() {
    if (m_activeMode < 0 || !RowsMatchData())
        return false;
    const int rows = GetItemCount();
    std::vector<std::uint32_t> recordOf(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        recordOf[static_cast<std::size_t>(row)] = GetItemData(row);
    std::vector<int> moved;
    m_data.SortArray(m_sortColumn, m_sortAscending, moved);
    // Each record has one row and the records now fill the first places in their order, so
    // row r is to show the record at place r.
    std::vector<int> order(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        order[static_cast<std::size_t>(moved[recordOf[static_cast<std::size_t>(row)]])] = row;
    SetRedraw(0);
    ReorderItems(order);
    for (int row = 0; row < rows; ++row)
        SetItemData(row, static_cast<std::uint32_t>(row));
    // A sorted list starts again at its top.
    EnsureVisible(0, 0);
    SetRedraw(1);
    Invalidate(0);
    return true;
}

// --- selection ------------------------------------------------------------------------------

bool SYInvListCtrl::InFileMode() const {
    return m_activeMode >= 0 &&
           (m_activeMode == m_excludedFilesMode || m_activeMode == m_unidFilesMode);
}

const SYListItem* SYInvListCtrl::RecordOfRow(int row) const {
    if (row < 0 || row >= GetItemCount())
        return nullptr;
    return m_data.GetAt(static_cast<int>(GetItemData(row)));
}

const SYListItem* SYInvListCtrl::SelectedRecord(int mode) const {
    if (m_activeMode < 0 || m_activeMode != mode)
        return nullptr;
    return RecordOfRow(GetSelectedItem());
}

std::uint32_t SYInvListCtrl::GetSelectedFileID() const {
    if (!InFileMode())
        return 0;
    const auto* file = dynamic_cast<const SYAppFileItem*>(RecordOfRow(GetSelectedItem()));
    return file != nullptr ? file->FileID() : 0;
}

std::uint32_t SYInvListCtrl::GetSelectedAppID() const {
    const auto* app = dynamic_cast<const SYAppItem*>(SelectedRecord(m_appListMode));
    return app != nullptr ? app->AppID() : 0;
}

std::int32_t SYInvListCtrl::GetSelectedPalmAppID() const {
    const auto* app = dynamic_cast<const SYAppItem*>(SelectedRecord(m_palmAppListMode));
    return app != nullptr ? static_cast<std::int32_t>(app->AppID()) : 0;
}

std::int32_t SYInvListCtrl::GetSelectedRIMAppID() const {
    const auto* app = dynamic_cast<const SYAppItem*>(SelectedRecord(m_rimAppListMode));
    return app != nullptr ? static_cast<std::int32_t>(app->AppID()) : 0;
}

// --- keeping in step with rule changes ----------------------------------------------------

void SYInvListCtrl::IdentifyFile(const SYIdRuleItem* rule, std::uint8_t invDataType) {
    if (invDataType != m_invDataType || rule == nullptr)
        return;
    // An identified file has left both file lists.
    if (InFileMode())
        RemoveMatchingFiles(rule);
}

void SYInvListCtrl::ExcludeFile(const SYAppFileItem* rule, std::uint8_t invDataType) {
    if (invDataType != m_invDataType || rule == nullptr || !InFileMode())
        return;
    RemoveMatchingFiles(rule);
    // The ignored list reads the rule's files anew; the unidentified list only loses them.
    if (m_activeMode == m_excludedFilesMode)
        AddFilesForRule(rule);
}

void SYInvListCtrl::IgnoreApplication(std::uint32_t appID, std::uint8_t invDataType) {
    if (invDataType != m_invDataType || m_activeMode < 0)
        return;
    if (m_activeMode == m_companyListMode) {
        BuildCompanies();
        return;
    }
    const int row = FindApplication(appID);
    if (row < 0)
        return;
    // The record goes with the row, so that a redisplay does not bring it back.
    m_data.SetAt(static_cast<int>(GetItemData(row)), nullptr);
    DeleteItem(row);
}

void SYInvListCtrl::RemoveMatchingFiles(const SYAppFileItem* rule) {
    SetRedraw(0);
    int selected = GetSelectedCount() == 1 ? GetSelectedItem() : -1;
    int rows = GetItemCount();
    // Backwards, so that a deleted row does not shift the rows still to come.
    for (int row = rows - 1; row >= 0; --row) {
        const int index = static_cast<int>(GetItemData(row));
        const auto* file = dynamic_cast<const SYAppFileItem*>(m_data.GetAt(index));
        if (file == nullptr || rule->MatchesFile(file) == 0)
            continue;
        DeleteItem(row);
        m_data.SetAt(index, nullptr);
        --rows;
    }
    // The selection keeps its number: the row that moved up into the place is selected.
    if (selected >= 0) {
        selected = std::min(selected, rows - 1);
        SelectItem(selected);
        EnsureVisible(selected, 0);
    }
    SetRedraw(1);
    Invalidate(0);
}

void SYInvListCtrl::AddFilesForRule(const SYAppFileItem* rule) {
    if (!InFileMode())
        return;
    SYInventoryModel::FileMatch match{rule->FileName(), std::nullopt, std::nullopt};
    if (rule->HaveFileSize())
        match.size = rule->FileSize();
    if (rule->HaveModTime())
        match.time = rule->ModTime();
    const auto fileList = m_activeMode == m_excludedFilesMode
                              ? SYInventoryModel::FileList::ignored
                              : SYInventoryModel::FileList::unidentified;
    std::vector<FileRow> rows;
    readReported([&] { Model().LoadMatchingFiles(m_invDataType, fileList, match, rows); });
    AddFileRows(rows);
    m_data.SortArray(m_sortColumn, m_sortAscending);
    BuildFileListFromData(1);
}

int SYInvListCtrl::FindApplication(std::uint32_t appID) const {
    if (m_activeMode < 0 || m_activeMode != m_appListMode)
        return -1;
    const int selected = GetSelectedItem();
    const auto* app = dynamic_cast<const SYAppItem*>(RecordOfRow(selected));
    if (app != nullptr && app->AppID() == appID)
        return selected;
    for (int row = 0; row < GetItemCount(); ++row) {
        app = dynamic_cast<const SYAppItem*>(RecordOfRow(row));
        if (app != nullptr && app->AppID() == appID)
            return row;
    }
    return -1;
}
