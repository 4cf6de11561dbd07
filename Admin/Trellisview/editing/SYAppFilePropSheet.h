#pragma once

#include <cstdint>
#include <string>

#include "editing/SYAppFileGeneralPage.h"
#include "editing/SYAppFileMachinesPage.h"
#include "editing/SYAppFileRulesPage.h"
#include "outside/widgets/SYAdminPropSheet.h"
#include "rules/SYAppFile.h"

// The properties of one inventoried file: what is known of it, which rule decides its
// fate, on which clients it lies and which rules bear its name. Every rule change is
// written at once; the console asks RulesChanged after the sheet has closed.
class SYAppFilePropSheet : public SYAdminPropSheet {
public:
    explicit SYAppFilePropSheet(SYWnd* parent = nullptr);

    void SetFileID(std::uint32_t fileID, unsigned char invDataType);
    // IDCANCEL without showing when no file is set or it cannot be read.
    int DoModal() override;
    int RulesChanged() const { return m_appFile.RulesChanged(); }

    // A label of the General page and the text of its field, for print-outs.
    void GetFileNamePrintData(std::string& label, std::string& value) const;
    void GetFileTimePrintData(std::string& label, std::string& value) const;
    void GetFileSizePrintData(std::string& label, std::string& value) const;

private:
    void GetPrintData(unsigned labelId, unsigned valueId, std::string& label,
                      std::string& value) const;

    SYAppFileGeneralPage m_generalPage;
    SYAppFileMachinesPage m_machinesPage;
    SYAppFileRulesPage m_rulesPage;
    std::uint32_t m_fileID = 0;
    unsigned char m_invDataType = 255;
    SYAppFile m_appFile;
};
