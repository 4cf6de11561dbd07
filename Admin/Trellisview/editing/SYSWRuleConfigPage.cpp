#include "editing/SYSWRuleConfigPage.h"

#include <memory>

#include "editing/SYEditExcludeDlg.h"
#include "editing/SYEditIdRuleDlg.h"
#include "editing/SYSWRuleConfigPropSheet.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/widgets/CDataExchange.h"
#include "resources/SYResourceIds.h"

SYSWRuleConfigPage::SYSWRuleConfigPage(int templateId, SYListItemArray* ruleArray)
    : SYAdminPropPage(templateId), m_ruleArray(ruleArray) {
    m_list.SetSingleSelection(1);
    MapCommand(IDC_CONFIG_RULE_ADD, BN_CLICKED, [this] { EditRule(-1); });
    MapCommand(IDC_CONFIG_RULE_EDIT, BN_CLICKED, [this] {
        if (m_list.GetSelectedItem() != -1)
            EditRule(m_list.GetSelectedItem());
    });
    MapCommand(IDC_CONFIG_RULE_DELETE, BN_CLICKED, [this] {
        if (m_list.GetSelectedItem() != -1)
            DeleteRule(m_list.GetSelectedItem());
    });
    MapNotify(IDC_CONFIG_RULE_LIST, LVN_ITEMCHANGED, [this] { UpdateButtons(); });
    MapNotify(IDC_CONFIG_RULE_LIST, NM_DBLCLK, [this] {
        if (m_list.GetSelectedItem() != -1 && !IsReadOnly())
            EditRule(m_list.GetSelectedItem());
    });
}

void SYSWRuleConfigPage::DoDataExchange(CDataExchange* dx) {
    if (dx->m_bSaveAndValidate)
        return;
    if (!m_columnsReady) {
        SetupList();
        m_columnsReady = 1;
    }
    if (m_fillListOnce) {
        BuildList();
        m_fillListOnce = 0;
    }
    UpdateButtons();
}

void SYSWRuleConfigPage::SetupList() {
    m_list.Initialize(IDC_CONFIG_RULE_LIST, this);
    m_list.SetHeaderClickable(0);
}

void SYSWRuleConfigPage::UpdateButtons() {
    const bool enable = m_list.GetSelectedItem() != -1 && !IsReadOnly();
    for (const unsigned id : {IDC_CONFIG_RULE_EDIT, IDC_CONFIG_RULE_DELETE}) {
        if (SYWnd* button = GetDlgItem(id))
            button->EnableWindow(enable ? 1 : 0);
    }
}

int SYSWRuleConfigPage::RowOfIndex(int slot) const {
    for (int row = 0; row < m_list.GetItemCount(); ++row) {
        if (static_cast<int>(m_list.GetItemData(row)) == slot)
            return row;
    }
    return -1;
}

void SYSWRuleConfigPage::RemoveRowOfIndex(int slot) {
    if (!m_columnsReady)
        return;
    const int row = RowOfIndex(slot);
    if (row != -1)
        m_list.DeleteItem(row);
}

template <class Item> void SYSWRuleConfigPage::BuildRows() {
    for (int slot = 0; slot < m_ruleArray->GetSize(); ++slot) {
        const auto* rule = dynamic_cast<const Item*>(m_ruleArray->GetAt(slot));
        if (rule == nullptr || rule->ItemStatus() == ItemStatusRemoved)
            continue;
        std::string text;
        rule->MakeString(text);
        const int row = m_list.InsertBitmapString(-1, -1, text);
        m_list.SetItemData(row, static_cast<std::uint32_t>(slot));
    }
}

template <class Dialog, class Item> void SYSWRuleConfigPage::EditRuleWith(int row) {
    Dialog dialog(this);
    dialog.InvDataType = InvDataType;
    dialog.SetShouldSaveData(0);
    dialog.SetDatabase(GetDatabase());
    dialog.SetRuleList(m_ruleArray);
    int slot = row != -1 ? static_cast<int>(m_list.GetItemData(row)) : -1;
    Item* old = slot != -1 ? dynamic_cast<Item*>(m_ruleArray->GetAt(slot)) : nullptr;
    if (old != nullptr)
        dialog.SetRuleItem(*old);
    if (dialog.DoModal() != IDOK)
        return;
    if (old != nullptr && dialog.RuleItem() == *old)
        return;
    const unsigned char ownType = dialog.RuleItem().RuleType();
    auto* sheet = dynamic_cast<SYSWRuleConfigPropSheet*>(GetSheet());
    const int replaced = dialog.ReplacedRuleIndex();
    const int replacedRow = replaced != -1 ? RowOfIndex(replaced) : -1;
    auto* existing =
        replaced != -1 ? dynamic_cast<SYSWRuleItem*>(m_ruleArray->GetAt(replaced)) : nullptr;
    Item* target = old;
    if (old == nullptr && existing == nullptr) {
        target = m_ruleArray->Add(std::make_unique<Item>());
        target->SetItemStatus(ItemStatusNew);
        slot = m_ruleArray->GetSize() - 1;
        row = -1;
    } else if (old == nullptr) {
        slot = replaced;
        row = replacedRow;
        target = dynamic_cast<Item*>(existing);
        if (target == nullptr) {
            if (sheet != nullptr)
                sheet->RemoveRuleFromPage(replaced, existing->RuleType());
            auto fresh = std::make_unique<Item>();
            fresh->SetItemStatus(existing->ItemStatus());
            target = fresh.get();
            m_ruleArray->SetAt(replaced, fresh.release());
            row = -1;
        }
    } else if (existing != nullptr) {
        if (replacedRow != -1) {
            m_list.DeleteItem(replacedRow);
            if (replacedRow < row)
                --row;
        }
        if (existing->RuleType() != ownType && sheet != nullptr)
            sheet->RemoveRuleFromPage(replaced, existing->RuleType());
        if (existing->ItemStatus() == ItemStatusNew)
            m_ruleArray->SetAt(replaced, nullptr);
        else
            existing->SetItemStatus(ItemStatusRemoved);
    }
    if (target->ItemStatus() != ItemStatusNew)
        target->SetItemStatus(ItemStatusChanged);
    const unsigned char status = target->ItemStatus();
    *target = dialog.RuleItem();
    target->SetArray(m_ruleArray);
    target->SetItemStatus(status);
    std::string text;
    target->MakeString(text);
    if (row == -1) {
        row = m_list.InsertBitmapString(-1, -1, text);
        m_list.SetItemData(row, static_cast<std::uint32_t>(slot));
    } else {
        m_list.SetItemString(row, text);
    }
    m_list.SelectItem(row);
    m_list.EnsureVisible(row);
}

void SYSWRuleConfigPage::DeleteRule(int row) {
    const int slot = static_cast<int>(m_list.GetItemData(row));
    auto* rule = dynamic_cast<SYAppFileItem*>(m_ruleArray->GetAt(slot));
    if (rule == nullptr)
        return;
    m_list.SetRedraw(0);
    m_list.DeleteItem(row);
    if (rule->ItemStatus() == ItemStatusNew)
        m_ruleArray->SetAt(slot, nullptr);
    else
        rule->SetItemStatus(ItemStatusRemoved);
    m_list.SelectItem(row < m_list.GetItemCount() ? row : m_list.GetItemCount() - 1);
    m_list.SetRedraw(1);
    m_list.Invalidate();
}

template void SYSWRuleConfigPage::BuildRows<SYIdRuleItem>();
template void SYSWRuleConfigPage::BuildRows<SYIgnoreRuleItem>();
template void SYSWRuleConfigPage::EditRuleWith<SYEditIdRuleDlg, SYIdRuleItem>(int);
template void SYSWRuleConfigPage::EditRuleWith<SYEditExcludeDlg, SYIgnoreRuleItem>(int);
