#include "outside/services/SYStringTable.h"
#include "resources/SYResourceIds.h"

namespace {

struct NumberedString {
    int id;
    const char* text;
};

// A leading ">" in a column title right-aligns that column.
constexpr NumberedString strings[] = {
    // Tab titles.
    {IDS_PALM_TAB_GENERAL, "General"},
    {IDS_PALM_TAB_CLIENTS, "Clients"},
    {IDS_RIM_TAB_GENERAL, "General"},
    {IDS_RIM_TAB_CLIENTS, "Clients"},
    {IDS_TAB_GENERAL, "General"},
    {IDS_TAB_CLIENTS, "Clients"},
    {IDS_PROP_TAB_RULES, "Rules"},
    {IDS_CONFIG_TAB_ID_RULES, "Identification Rules"},
    {IDS_CONFIG_TAB_IGNORE_RULES, "Ignore Rules"},

    // Formats and cell texts.
    {IDS_NAME_AND_VERSION, "%s  [ %s ]"},
    {IDS_ANY, "Any"},
    {IDS_WHERE_ROM, "ROM"},
    {IDS_WHERE_RAM, "RAM"},
    {IDS_WHERE_STORAGE_CARD, "Storage Card"},
    {IDS_ICON_AND_NAME, "%s  (%s)"},
    {IDS_CLIENT_AND_USER, "%s (%s)"},
    {IDS_NO_COMPANY, "(No Company)"},

    // Column titles of the lists.
    {IDS_HDR_APP_LIST, "Name\tVersion"},
    {IDS_HDR_COMPANY_LIST, "Name"},
    {IDS_HDR_EXCLUDED_FILES, "File\t>Size\tMod Time"},
    {IDS_HDR_UNID_FILES, "File\t>Size\tMod Time"},
    {IDS_HDR_APP_FILES, "File\tSize\tMod Time"},
    {IDS_HDR_APP_MACHINES, "Client\tLast Scan\tLocation"},
    {IDS_HDR_INST_FILES, "File\tSize\tMod Time\tVersion"},
    {IDS_HDR_PALM_DEVICES, "Client\tWhere\tSize\tTotal Size\tCreate Date\tModify Date\tBackup "
                           "Date\tDatabase Count\tRecord Count\tStorage Card Path"},
    {IDS_HDR_NAME_VALUE, "Name\tValue"},
    {IDS_HDR_RIM_DEVICES, "Client"},
    {IDS_HDR_RULE_ID_RULES, "Size\tMod Time\tApplication\tVersion\tCompany"},
    {IDS_HDR_RULE_IGNORE_RULES, "Size\tMod Time"},
    {IDS_HDR_FILE_CLIENTS, "Client\tLocation"},
    {IDS_HDR_CONFIG_ID_RULES, "File\tSize\tMod Time\tApplication\tVersion\tCompany"},
    {IDS_HDR_CONFIG_IGNORE_RULES, "File\tSize\tMod Time"},
    {IDS_HDR_IGNORE_APP_FILES, "File\tSize\tMod Time"},

    // Titles of the console's views.
    {IDS_TITLE_INVENTORY, "Software Inventory"},
    {IDS_TITLE_COMPANY_LIST, "Software Inventory Company List"},
    {IDS_TITLE_APPLICATION, "Software Inventory Application"},
    {IDS_TITLE_COMPANY_APPS, "Software Inventory Company Applications"},
    {IDS_TITLE_UNID_FILES, "Software Inventory Unidentified Files"},
    {IDS_TITLE_IGNORED_FILES, "Software Inventory Ignored Files"},
    {IDS_TITLE_PPC_COMPANY_LIST, "Software Inventory Company List (Windows CE)"},
    {IDS_TITLE_PPC_APPLICATION, "Software Inventory Application (Windows CE)"},
    {IDS_TITLE_PPC_COMPANY_APPS, "Software Inventory Company Applications (Windows CE)"},
    {IDS_TITLE_PPC_IGNORED_FILES, "Software Inventory Ignored Files (Windows CE)"},
    {IDS_TITLE_PPC_UNID_FILES, "Software Inventory Unidentified Files (Windows CE)"},
    {IDS_TITLE_PALM_APPLICATION, "Software Inventory Palm Application"},
    {IDS_TITLE_PALM_APP_LIST, "Software Inventory Palm Application List"},
    {IDS_TITLE_RIM_APPLICATION, "Software Inventory BlackBerry Application"},
    {IDS_TITLE_RIM_APP_LIST, "Software Inventory BlackBerry Application List"},

    // Roots of the inventory tree.
    {IDS_ROOT_APPS, "Windows Applications  (%s)"},
    {IDS_ROOT_IGNORED_FILES, "Ignored Windows Files"},
    {IDS_ROOT_UNID_FILES, "Unidentified Windows Files"},
    {IDS_ROOT_PALM_APPS, "Palm Applications  (%s)"},
    {IDS_ROOT_PPC_APPS, "Windows CE Applications  (%s)"},
    {IDS_ROOT_PPC_IGNORED_FILES, "Ignored Windows CE Files"},
    {IDS_ROOT_PPC_UNID_FILES, "Unidentified Windows CE Files"},
    {IDS_ROOT_RIM_APPS, "BlackBerry Applications (%s)"},

    // Messages, questions and titles of the rule dialogs and sheets.
    {IDS_WILDCARD_REFUSED, "Wildcard rules are not supported.  Please enter a specific file name "
                           "without using wildcard characters."},
    {IDS_OVERWRITE_ID_RULE,
     "An identification rule with the same file information as this rule already "
     "exists:\n\nName:  %s\nVersion:  %s\nCompany:  %s\n\nWould you like to overwrite the "
     "existing rule?"},
    {IDS_OVERWRITE_IGNORE_RULE,
     "An ignore rule with the same file information as this rule "
     "already exists.\n\nWould you like to overwrite the existing rule?"},
    {IDS_CONFIRM_REMOVE_RULE, "Are you sure you want to remove the selected rule?"},
    {IDS_SYSTEM_IGNORED, "This file is being ignored by a system rule."},
    {IDS_USER_IGNORED, "This file is being ignored by a user rule."},
    {IDS_USER_VERSION_INFO, "User specified version information"},
    {IDS_IGNORED_COMMENTS, "Ignored file comments"},
    {IDS_FILE_PROPERTIES_TITLE, "%s - File Properties"},
    {IDS_RULES_TITLE_PPC, "Software Inventory Rules - Windows CE Devices"},
    {IDS_RULES_TITLE_PC, "Software Inventory Rules - Windows PCs"},
    {IDS_FILE_CLIENTS_PRINT_TITLE, "Application File Client List"},
    {IDS_APP_FILE_FILTER, "Application Files (*.exe;*.com)|*.exe;*.com||"},
    {IDS_IDENTIFY_FILE_TITLE, "Identify File"},
    {IDS_IGNORE_FILE_TITLE, "Ignore File"},

    // Command prompts, shown while a menu item is highlighted.
    {ID_PROPERTIES, "Display the properties of the selected item"},
    {ID_IGNORE_APPLICATION, "Ignore all of the files that make up this application"},
    {ID_IDENTIFY_FILE, "Specify the application that this file is a part of"},
    {ID_IGNORE_FILE, "Exclude this file from identification"},
    {ID_VIEW_INSTALLATION_DETAILS, "Display the details about this installation"},
    {ID_VIEW_APPLICATIONS, "Display the applications identified for this company"},
    {ID_VIEW_APPLICATION, "Display the details about this application"},
};

[[maybe_unused]] const bool registered = [] {
    for (const NumberedString& entry : strings)
        SYStringTable::Register(entry.id, entry.text);
    return true;
}();

} // namespace
