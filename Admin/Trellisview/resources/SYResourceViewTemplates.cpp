#include "resources/SYTemplateBuilder.h"

// The pages of the application views and the installation details dialogs.

namespace {

using namespace templates;

constexpr int PageWidth = 320;
constexpr int PageHeight = 200;
constexpr int Margin = 7;
constexpr int Row = 12; // distance between two label lines

SYDialogTemplate appViewGeneral() {
    constexpr int fieldX = 95;
    constexpr int fieldWidth = PageWidth - Margin - fieldX;
    return {
        IDD_APP_VIEW_GENERAL,
        "General",
        PageWidth,
        PageHeight,
        {
            Label(IDC_APP_NAME_LABEL, "Name:", Margin, 7, 84),
            Field(IDC_APP_NAME, fieldX, 7, fieldWidth),
            Label(IDC_APP_VERSION_LABEL, "Version:", Margin, 7 + Row, 84),
            Field(IDC_APP_VERSION, fieldX, 7 + Row, fieldWidth),
            Label(IDC_APP_COMPANY_LABEL, "Company:", Margin, 7 + 2 * Row, 84),
            Field(IDC_APP_COMPANY, fieldX, 7 + 2 * Row, fieldWidth),
            Label(IDC_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7 + 3 * Row, 84),
            Field(IDC_TOTAL_CLIENTS, fieldX, 7 + 3 * Row, 60),
            Label(IDC_TOTAL_INSTALLATIONS_LABEL, "Total installations:", Margin, 7 + 4 * Row, 84),
            Field(IDC_TOTAL_INSTALLATIONS, fieldX, 7 + 4 * Row, 60),
            Group(IDC_APP_FILES_GROUP, "Application files", Margin, 72, PageWidth - 2 * Margin,
                  PageHeight - 72 - Margin),
            List(IDC_APP_FILE_LIST, 2 * Margin, 84, PageWidth - 4 * Margin,
                 PageHeight - 84 - 2 * Margin),
        }};
}

SYDialogTemplate appViewMachines() {
    return {
        IDD_APP_VIEW_MACHINES,
        "Clients",
        PageWidth,
        PageHeight,
        {
            Label(IDC_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7, 84),
            Field(IDC_TOTAL_CLIENTS, 95, 7, 60),
            Label(IDC_TOTAL_INSTALLATIONS_LABEL, "Total installations:", Margin, 7 + Row, 84),
            Field(IDC_TOTAL_INSTALLATIONS, 95, 7 + Row, 60),
            List(IDC_MACHINE_LIST, Margin, 40, PageWidth - 2 * Margin, PageHeight - 40 - Margin),
        }};
}

SYDialogTemplate palmAppViewGeneral() {
    constexpr int fieldX = 70;
    constexpr int fieldWidth = PageWidth - Margin - fieldX;
    return {IDD_PALM_APP_VIEW_GENERAL,
            "General",
            PageWidth,
            PageHeight,
            {
                Label(IDC_PALM_APP_NAME_LABEL, "Application:", Margin, 7, 60),
                Field(IDC_PALM_APP_NAME, fieldX, 7, fieldWidth),
                Label(IDC_PALM_VERSION_LABEL, "Version:", Margin, 7 + Row, 60),
                Field(IDC_PALM_VERSION, fieldX, 7 + Row, fieldWidth),
                Label(IDC_PALM_CREATOR_LABEL, "Creator ID:", Margin, 7 + 2 * Row, 60),
                Field(IDC_PALM_CREATOR, fieldX, 7 + 2 * Row, fieldWidth),
                Label(IDC_PALM_DATABASE_LABEL, "Database:", Margin, 7 + 3 * Row, 60),
                Field(IDC_PALM_DATABASE, fieldX, 7 + 3 * Row, fieldWidth),
                Label(IDC_PALM_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7 + 5 * Row, 60),
                Field(IDC_PALM_TOTAL_CLIENTS, fieldX, 7 + 5 * Row, 60),
            }};
}

SYDialogTemplate palmAppViewDevices() {
    return {IDD_PALM_APP_VIEW_DEVICES,
            "Clients",
            PageWidth,
            PageHeight,
            {
                Label(IDC_PALM_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7, 60),
                Field(IDC_PALM_TOTAL_CLIENTS, 70, 7, 60),
                List(IDC_PALM_DEVICE_LIST, Margin, 24, PageWidth - 2 * Margin,
                     PageHeight - 24 - Margin),
            }};
}

SYDialogTemplate rimAppViewGeneral() {
    constexpr int fieldX = 70;
    return {IDD_RIM_APP_VIEW_GENERAL,
            "General",
            PageWidth,
            PageHeight,
            {
                Label(IDC_RIM_APP_NAME_LABEL, "Name:", Margin, 7, 60),
                Field(IDC_RIM_APP_NAME, fieldX, 7, PageWidth - Margin - fieldX),
                Label(IDC_RIM_VERSION_LABEL, "Version:", Margin, 7 + Row, 60),
                Field(IDC_RIM_VERSION, fieldX, 7 + Row, PageWidth - Margin - fieldX),
                Label(IDC_RIM_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7 + 3 * Row, 60),
                Field(IDC_RIM_TOTAL_CLIENTS, fieldX, 7 + 3 * Row, 60),
            }};
}

SYDialogTemplate rimAppViewDevices() {
    return {
        IDD_RIM_APP_VIEW_DEVICES,
        "Clients",
        PageWidth,
        PageHeight,
        {
            Label(IDC_RIM_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 7, 60),
            Field(IDC_RIM_TOTAL_CLIENTS, 70, 7, 60),
            List(IDC_RIM_DEVICE_LIST, Margin, 24, PageWidth - 2 * Margin, PageHeight - 24 - Margin),
        }};
}

SYDialogTemplate appInstDetails() {
    constexpr int width = 320;
    constexpr int height = 220;
    constexpr int fieldX = 60;
    constexpr int fieldWidth = width - Margin - fieldX;
    return {IDD_APP_INST_DETAILS,
            "View Installation Details",
            width,
            height,
            {
                Label(IDC_STATIC, "Application:", Margin, 7, 50),
                Field(IDC_APP_NAME, fieldX, 7, fieldWidth),
                Label(IDC_STATIC, "Client:", Margin, 7 + Row, 50),
                Field(IDC_INST_CLIENT, fieldX, 7 + Row, fieldWidth),
                Label(IDC_STATIC, "Location:", Margin, 7 + 2 * Row, 50),
                Field(IDC_INST_LOCATION, fieldX, 7 + 2 * Row, fieldWidth),
                Group(IDC_STATIC, "Application files", Margin, 48, width - 2 * Margin, 144),
                List(IDC_INST_FILE_LIST, 2 * Margin, 60, width - 4 * Margin, 126),
                DefaultButton(ID_CANCEL_BUTTON, "Close", width - Margin - ButtonWidth,
                              height - Margin - ButtonHeight),
            }};
}

SYDialogTemplate palmAppInstDetails() {
    constexpr int width = 300;
    constexpr int height = 220;
    constexpr int fieldX = 60;
    constexpr int fieldWidth = width - Margin - fieldX;
    return {IDD_PALM_APP_INST_DETAILS,
            "View Application Details",
            width,
            height,
            {
                Label(IDC_STATIC, "Application:", Margin, 7, 50),
                Field(IDC_PALM_APP_NAME, fieldX, 7, fieldWidth),
                Label(IDC_STATIC, "Client:", Margin, 7 + Row, 50),
                Field(IDC_PALM_CLIENT, fieldX, 7 + Row, fieldWidth),
                Label(IDC_STATIC, "Creator ID:", Margin, 7 + 2 * Row, 50),
                Field(IDC_PALM_CREATOR, fieldX, 7 + 2 * Row, fieldWidth),
                Label(IDC_STATIC, "Database:", Margin, 7 + 3 * Row, 50),
                Field(IDC_PALM_DATABASE, fieldX, 7 + 3 * Row, fieldWidth),
                List(IDC_PALM_DETAIL_LIST, Margin, 60, width - 2 * Margin, 132),
                DefaultButton(ID_CANCEL_BUTTON, "Close", width - Margin - ButtonWidth,
                              height - Margin - ButtonHeight),
            }};
}

SYDialogTemplate rimAppInstDetails() {
    constexpr int width = 260;
    constexpr int height = 60;
    constexpr int fieldX = 60;
    constexpr int fieldWidth = width - Margin - fieldX;
    return {IDD_RIM_APP_INST_DETAILS,
            "View Application Details",
            width,
            height,
            {
                Label(IDC_STATIC, "Application:", Margin, 7, 50),
                Field(IDC_RIM_APP_NAME, fieldX, 7, fieldWidth),
                Label(IDC_STATIC, "Client:", Margin, 7 + Row, 50),
                Field(IDC_RIM_CLIENT, fieldX, 7 + Row, fieldWidth),
                DefaultButton(ID_CANCEL_BUTTON, "Close", width - Margin - ButtonWidth,
                              height - Margin - ButtonHeight),
            }};
}

[[maybe_unused]] const bool registered = [] {
    for (const SYDialogTemplate& dialog :
         {appViewGeneral(), appViewMachines(), palmAppViewGeneral(), palmAppViewDevices(),
          rimAppViewGeneral(), rimAppViewDevices(), appInstDetails(), palmAppInstDetails(),
          rimAppInstDetails()})
        SYDialogTemplates::Register(dialog);
    return true;
}();

} // namespace
