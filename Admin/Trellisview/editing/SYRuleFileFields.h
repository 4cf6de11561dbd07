#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYCheckBox.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYRadioButton.h"
#include "outside/widgets/SYStatic.h"

class CDataExchange;
class CDialog;
class SYAppFileItem;

// The "File information" group of the rule dialogs: the file name, and whether the rule
// holds for all versions or only for a size and a modify time. It moves these between the
// dialog's controls and the dialog's rule item, refuses wildcard names and offers a pick of
// a file on disk.
class SYRuleFileFields {
public:
    explicit SYRuleFileFields(SYAppFileItem* ruleItem);
    SYRuleFileFields(const SYRuleFileFields&) = delete;
    SYRuleFileFields& operator=(const SYRuleFileFields&) = delete;

    int AllowNameChange() const { return m_allowNameChange; }
    void SetAllowNameChange(int allow) { m_allowNameChange = allow; }
    // Values shown in the size and time fields that the rule does not use; 0 is none.
    void SetDefTime(const CTime& time) { m_defTime = time; }
    void SetDefSize(std::uint64_t size) { m_defSize = size; }

    // Binds the controls and moves the data. From the controls a wildcard name is refused
    // with a message and fails the exchange; the item keeps what was read up to then.
    void DoDataExchange(CDataExchange* dx);
    // Enables the size and time controls as the radio buttons and check boxes say.
    void UpdateControls();
    // Lets the user pick a file; its name, size and modify time go into the controls only.
    void Browse();

    // Size and last write time of a file on disk; 0 if it cannot be read (gone, say).
    static int ReadFileOnDisk(const std::string& nativePath, std::uint64_t& size, CTime& time);

private:
    void ToControls();
    void FromControls(CDataExchange* dx);
    void ShowDefaultSize();
    void ShowTime(const CTime& time);
    bool ControlsExist() const { return m_someVersions.IsWindow(); }

    CDialog* m_owner = nullptr;
    SYAppFileItem* m_ruleItem;
    int m_allowNameChange = 1;
    SYEdit m_nameEdit;
    SYButton m_browseButton;
    SYRadioButton m_allVersions;
    SYRadioButton m_someVersions;
    SYCheckBox m_hasTime;
    SYDateTimeEdit m_dateEdit;
    SYDateTimeEdit m_timeEdit;
    SYCheckBox m_hasSize;
    SYEdit m_sizeEdit;
    SYStatic m_bytesLabel;
    CTime m_defTime;
    std::uint64_t m_defSize = 0;
};
