#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/SYListItemArray.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTabWndPage.h"

class SYAppFileItem;

// The "General" page of the Windows application view: name, version, company, the two
// totals and the application's files. Its data live in the object, so a load fills it
// whether or not its window exists.
class SYAppViewGeneralPage : public SYTabWndPage {
    SY_DECLARE_DYNCREATE(SYAppViewGeneralPage)

public:
    SYAppViewGeneralPage();

    // Blank strings, no totals (the total fields show no text) and no files.
    void ClearData();
    void SetAppInfo(const std::string& name, const std::string& version,
                    const std::string& company);
    void AppInfo(std::string& name, std::string& version, std::string& company) const;
    void SetTotals(int machineTotal, int installationTotal);
    int MachineTotal() const { return m_machineTotal; }
    int InstallationTotal() const { return m_installationTotal; }

    SYListItemArray* AppFileData() { return &m_appFileData; }
    SYListCtrlEx& AppFileList() { return m_appFileList; }
    // Empties the array; the list's rows stay, unread, until the next BuildFileList.
    void ClearFiles();
    void AddFile(const SYAppFileItem& file);
    void BuildFileList(int keepSelection);
    void SetupLayout();
    // The selected file's id; 0 without a selection.
    std::uint32_t GetSelectedFileID() const;

    // The list's header-click callback; the argument is the page.
    static void SortFiles(int column, void* page);
    int SortColumn() const { return m_sortColumn; }
    int SortAscending() const { return m_sortAscending; }
    void OnDblclkAppFileList();

    void Resize() override;
    void BeginPrinting(CDC* dc, SYPrintEngine* engine) override;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    int OnInitDialog() override;
    void UpdateControls();

private:
    SYStatic m_filesGroup;
    SYStatic m_totalClientsField;
    SYStatic m_totalInstallationsField;
    SYListItemArray m_appFileData;
    std::string m_appName;
    std::string m_appVersion;
    std::string m_appCompany;
    SYListCtrlEx m_appFileList;
    SYDisplayField m_nameField;
    SYDisplayField m_versionField;
    SYDisplayField m_companyField;
    int m_sortColumn = 0;
    int m_sortAscending = 1;
    int m_machineTotal = 0;
    int m_installationTotal = 0;
    bool m_rowsInStep = true;
};
