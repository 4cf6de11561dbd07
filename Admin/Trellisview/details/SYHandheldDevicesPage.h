#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "details/SYAppViewLists.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYPrintEngine.h"
#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTabWndPage.h"
#include "resources/SYResourceIds.h"

// What the "Clients" pages of the Palm and BlackBerry views share: a total and a list of
// the devices holding the application, one row per Item, rebuilt in place. The derived page
// gives its controls, its columns and each row's text.
template <class Item> class SYHandheldDevicesPage : public SYTabWndPage {
public:
    struct Controls {
        int templateId;
        unsigned list;
        unsigned total;
        unsigned totalLabel;
        int headerString;
        int image;
    };

    explicit SYHandheldDevicesPage(const Controls& controls)
        : SYTabWndPage(controls.templateId), m_controls(controls) {
        m_deviceList.SetSingleSelection(1);
        MapNotify(controls.list, NM_DBLCLK, [this] { OnDblclkDeviceList(); });
    }

    // No rows and no total (the total field shows no text).
    void ClearData() {
        ClearDevices();
        BuildDeviceList(0);
        m_deviceTotal = 0;
        if (IsWindow())
            m_totalClientsField.SetText("");
    }
    void SetTotals(int deviceTotal) {
        m_deviceTotal = deviceTotal;
        if (IsWindow())
            UpdateControls();
    }
    int DeviceTotal() const { return m_deviceTotal; }
    SYListItemArray* DeviceData() { return &m_deviceData; }
    SYListCtrlEx* DeviceList() { return &m_deviceList; }

    // Empties the array; the list's rows stay, unread, until the next BuildDeviceList.
    void ClearDevices() {
        m_deviceData.RemoveAll();
        m_rowsInStep = false;
    }
    void AddDevice(const Item& device) { m_deviceData.Add(std::make_unique<Item>(device)); }
    void BuildDeviceList(int keepSelection) {
        appview::RebuildInPlace(m_deviceList, m_deviceData, m_sortColumn, m_sortAscending,
                                keepSelection, [this](const SYListItem& item, std::string& text) {
                                    static_cast<const Item&>(item).MakeString(text);
                                    return m_controls.image;
                                });
        m_rowsInStep = true;
    }
    virtual void SetupLayout() = 0;
    // The selected row's device and 1; 0 (reference untouched) without a selection.
    int GetSelectedInstallation(std::uint32_t& deviceID) const {
        const auto* device = dynamic_cast<const Item*>(
            appview::SelectedItem(m_deviceList, m_deviceData, m_rowsInStep));
        if (device == nullptr)
            return 0;
        deviceID = device->DeviceID();
        return 1;
    }

    // The list's header-click callback; the argument is the page.
    static void SortDevices(int column, void* page) {
        auto* self = static_cast<SYHandheldDevicesPage*>(page);
        appview::ClickSort(column, self->m_sortColumn, self->m_sortAscending);
        self->BuildDeviceList(1);
    }
    int SortColumn() const { return m_sortColumn; }
    int SortAscending() const { return m_sortAscending; }
    void OnDblclkDeviceList() {
        if (m_deviceList.GetSelectedItem() != -1)
            appview::PostCommand(ID_VIEW_INSTALLATION_DETAILS);
    }

    void Resize() override {
        SYTabWndPage::Resize();
        if (IsWindow())
            appview::StretchToMargins(*this, m_controls.list);
    }
    void BeginPrinting(CDC* dc, SYPrintEngine* engine) override {
        SYPeDataLabeledList* data = engine->AddLabeledDataList(dc);
        appview::AddLabeledData(*data, *this, m_controls.totalLabel,
                                SYLocaleInfo::FormatNumber(m_deviceTotal), 1);
        engine->AddBreak();
        engine->AddList(m_deviceList, dc);
    }

protected:
    void DoDataExchange(CDataExchange* dx) override {
        SYTabWndPage::DoDataExchange(dx);
        DDX_Control(dx, m_controls.total, m_totalClientsField);
    }
    int OnInitDialog() override {
        SYTabWndPage::OnInitDialog();
        if (!m_deviceList.Initialize(m_controls.list, SYAdminImages::ClientBitmap,
                                     SYAdminImages::MaskColour, SYAdminImages::ImageWidth, this))
            return 1;
        m_deviceList.AddHeader(m_controls.headerString);
        SetupColumns(m_deviceList);
        m_deviceList.SetSortCallback(&SortDevices, this);
        BuildDeviceList(0);
        return 1;
    }
    // Formats of the new list's columns.
    virtual void SetupColumns(SYListCtrlEx& list) = 0;
    void UpdateControls() { m_totalClientsField.SetText(std::to_string(m_deviceTotal)); }

private:
    Controls m_controls;
    SYStatic m_totalClientsField;
    SYListItemArray m_deviceData;
    int m_deviceTotal = 0;
    SYListCtrlEx m_deviceList;
    int m_sortColumn = 0;
    int m_sortAscending = 1;
    bool m_rowsInStep = true;
};
