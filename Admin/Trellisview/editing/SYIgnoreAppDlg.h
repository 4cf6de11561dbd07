#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/SYListItemArray.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYIcon.h"
#include "outside/widgets/SYListCtrlEx.h"

class SYDatabase;
class SYSWRule;

// "Ignore Application": shows every file of one application and, on "Ignore", makes one
// exact ignore rule (name, size, modify time) per file, all with the same comment. The
// caller owns the engine and runs UpdateSamData after a result of IDOK.
class SYIgnoreAppDlg : public CDialog {
public:
    explicit SYIgnoreAppDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    SYDatabase* GetDatabase() const { return m_database; }
    void SetSWRule(SYSWRule* engine) { m_swRule = engine; }
    void SetAppID(std::uint32_t appID) { m_appID = appID; }

    // IDCANCEL without showing when the database, application or engine is missing or the
    // files cannot be read.
    int DoModal() override;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    int LoadData();
    // Stops at the first rule that cannot be written; rules written before it stay.
    int SaveData();
    void BuildFileList();
    int OnInitDialog() override;
    void OnOK() override;

private:
    void SetupList();

    SYIcon m_icon;
    SYListItemArray m_fileList;
    SYDatabase* m_database = nullptr;
    SYSWRule* m_swRule = nullptr;
    std::uint32_t m_appID = 0;
    int m_listReady = 0;
    SYListCtrlEx m_list;
    std::string m_comment;
};
