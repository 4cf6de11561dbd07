#pragma once

#include "outside/widgets/SYWidgetIds.h"

// Every number of the library's resources: menus from 13000, dialog templates from 13100,
// controls from 13200, strings from 13500 and commands with their prompts from 13800.
// Numbers that the console or stored settings already know keep their values; the rest are
// free slots of the same ranges. The selection dialogs' numbers are the widgets' own
// (SYWidgetIds.h) and are marked where they stand in the ranges.

// Standard commands and button identifiers.
inline constexpr int IDC_STATIC = -1; // a label that no code reads
inline constexpr int ID_OK_BUTTON = 1;
inline constexpr int ID_CANCEL_BUTTON = 2;

// Commands. A command's prompt is the string of the same number.
inline constexpr int ID_PROPERTIES = 2001;
inline constexpr int ID_IGNORE_APPLICATION = 13800;
inline constexpr int ID_IDENTIFY_FILE = 13801;
inline constexpr int ID_IGNORE_FILE = 13803;
inline constexpr int ID_VIEW_INSTALLATION_DETAILS = 13808;
inline constexpr int ID_VIEW_APPLICATIONS = 13810;
inline constexpr int ID_VIEW_APPLICATION = 13811;

// Context menus.
inline constexpr int IDM_APPLICATION = 13000;             // Ignore Application
inline constexpr int IDM_APP_FILE = 13001;                // files of the application view
inline constexpr int IDM_APP_INSTALLATION = 13002;        // clients of the application view
inline constexpr int IDM_IGNORED_FILE = 13003;            // Identify File, Properties
inline constexpr int IDM_UNIDENTIFIED_FILE = 13004;       // Identify, Ignore, Properties
inline constexpr int IDM_PALM_INSTALLATION = 13005;       // clients of the Palm view
inline constexpr int IDM_DEVICE_APPLICATION = 13006;      // View Application
inline constexpr int IDM_APPLICATION_VIEW_IGNORE = 13007; // View Application, Ignore Application
inline constexpr int IDM_COMPANY = 13008;                 // View Applications
inline constexpr int IDM_RIM_INSTALLATION = 13009;        // clients of the BlackBerry view
inline constexpr int IDM_RIM_APPLICATION = 13010;         // View Application

// Dialog templates.
inline constexpr int IDD_APP_VIEW_GENERAL = 13100;
inline constexpr int IDD_APP_VIEW_MACHINES = 13101;
inline constexpr int IDD_PALM_APP_VIEW_GENERAL = 13102;
inline constexpr int IDD_PALM_APP_VIEW_DEVICES = 13103;
inline constexpr int IDD_EDIT_ID_RULE = 13104;
inline constexpr int IDD_EDIT_EXCLUDE_RULE = 13105;
inline constexpr int IDD_IGNORE_APP = 13106;
inline constexpr int IDD_PALM_APP_INST_DETAILS = 13107;
inline constexpr int IDD_APP_INST_DETAILS = 13108;
inline constexpr int IDD_APP_FILE_GENERAL = 13109;
inline constexpr int IDD_APP_FILE_MACHINES = 13110;
inline constexpr int IDD_APP_FILE_RULES = 13111;
inline constexpr int IDD_SW_ID_RULES = 13112;
inline constexpr int IDD_SW_IGNORE_RULES = 13113;
// 13114: IDD_APP_SELECT
inline constexpr int IDD_RIM_APP_VIEW_GENERAL = 13115;
inline constexpr int IDD_RIM_APP_VIEW_DEVICES = 13116;
inline constexpr int IDD_RIM_APP_INST_DETAILS = 13117;
// 13118: IDD_APP_COMPANY_SELECT

// Controls of the application views and details dialogs.
inline constexpr int IDC_APP_NAME = 13200;
inline constexpr int IDC_APP_VERSION = 13201;
inline constexpr int IDC_APP_COMPANY = 13202;
inline constexpr int IDC_APP_FILES_GROUP = 13203;
inline constexpr int IDC_APP_FILE_LIST = 13204;
inline constexpr int IDC_MACHINE_LIST = 13205;
inline constexpr int IDC_TOTAL_CLIENTS = 13206;
inline constexpr int IDC_TOTAL_INSTALLATIONS = 13207;
inline constexpr int IDC_TOTAL_CLIENTS_LABEL = 13208;
inline constexpr int IDC_TOTAL_INSTALLATIONS_LABEL = 13209;
inline constexpr int IDC_INST_CLIENT = 13221;
inline constexpr int IDC_INST_LOCATION = 13222;
inline constexpr int IDC_INST_FILE_LIST = 13223;
inline constexpr int IDC_APP_NAME_LABEL = 13236;
inline constexpr int IDC_APP_VERSION_LABEL = 13237;
inline constexpr int IDC_APP_COMPANY_LABEL = 13238;

// The rule file fields of the Identify File and Ignore File dialogs.
inline constexpr int IDC_RULE_BROWSE_FILE = 13213;
inline constexpr int IDC_RULE_FILE_NAME = 13214;
inline constexpr int IDC_RULE_HAS_TIME = 13215;
inline constexpr int IDC_RULE_TIME = 13216;
inline constexpr int IDC_RULE_HAS_SIZE = 13217;
inline constexpr int IDC_RULE_SIZE = 13218;
inline constexpr int IDC_RULE_ALL_VERSIONS = 13247;
inline constexpr int IDC_RULE_SOME_VERSIONS = 13248;
inline constexpr int IDC_RULE_BYTES_LABEL = 13249;
inline constexpr int IDC_RULE_DATE = 13265;

// Palm view and details.
inline constexpr int IDC_PALM_DEVICE_LIST = 13250;
inline constexpr int IDC_PALM_TOTAL_CLIENTS = 13251;
inline constexpr int IDC_PALM_TOTAL_CLIENTS_LABEL = 13252;
inline constexpr int IDC_PALM_DATABASE = 13253;
inline constexpr int IDC_PALM_DATABASE_LABEL = 13254;
inline constexpr int IDC_PALM_VERSION = 13255;
inline constexpr int IDC_PALM_VERSION_LABEL = 13256;
inline constexpr int IDC_PALM_CREATOR = 13257;
inline constexpr int IDC_PALM_CREATOR_LABEL = 13258;
inline constexpr int IDC_PALM_CLIENT = 13259;
inline constexpr int IDC_PALM_DETAIL_LIST = 13260;
inline constexpr int IDC_PALM_APP_NAME = 13266;
inline constexpr int IDC_PALM_APP_NAME_LABEL = 13267;

// BlackBerry view and details.
inline constexpr int IDC_RIM_DEVICE_LIST = 13268;
inline constexpr int IDC_RIM_TOTAL_CLIENTS = 13269;
inline constexpr int IDC_RIM_TOTAL_CLIENTS_LABEL = 13270;
inline constexpr int IDC_RIM_APP_NAME = 13271;
inline constexpr int IDC_RIM_APP_NAME_LABEL = 13272;
inline constexpr int IDC_RIM_VERSION = 13273;
inline constexpr int IDC_RIM_VERSION_LABEL = 13274;
inline constexpr int IDC_RIM_CLIENT = 13277;

// Identify File and Ignore File dialogs, beyond the file fields.
inline constexpr int IDC_RULE_FILE_GROUP = 13300;
inline constexpr int IDC_RULE_APP_GROUP = 13301;
inline constexpr int IDC_RULE_APP_NAME = 13302;
inline constexpr int IDC_RULE_BROWSE_APP = 13303;
inline constexpr int IDC_RULE_APP_VERSION = 13304;
inline constexpr int IDC_RULE_APP_COMPANY = 13305;
inline constexpr int IDC_RULE_BROWSE_COMPANY = 13306;
inline constexpr int IDC_RULE_DESCRIPTION = 13307;

// Ignore Application dialog.
inline constexpr int IDC_IGNORE_APP_ICON = 13310;
inline constexpr int IDC_IGNORE_APP_COMMENT = 13311;
inline constexpr int IDC_IGNORE_APP_FILES_GROUP = 13312;
inline constexpr int IDC_IGNORE_APP_FILE_LIST = 13313;

// File properties sheet: General page.
inline constexpr int IDC_FILE_NAME_LABEL = 13320;
inline constexpr int IDC_FILE_NAME = 13321;
inline constexpr int IDC_FILE_TIME_LABEL = 13322;
inline constexpr int IDC_FILE_TIME = 13323;
inline constexpr int IDC_FILE_SIZE_LABEL = 13324;
inline constexpr int IDC_FILE_SIZE = 13325;
inline constexpr int IDC_FILE_REPORTED_GROUP = 13326;
inline constexpr int IDC_FILE_REPORTED_APP = 13327;
inline constexpr int IDC_FILE_REPORTED_VERSION = 13328;
inline constexpr int IDC_FILE_REPORTED_COMPANY = 13329;
inline constexpr int IDC_FILE_RULE_GROUP = 13330;
inline constexpr int IDC_FILE_USER_APP_LABEL = 13331;
inline constexpr int IDC_FILE_USER_APP = 13332;
inline constexpr int IDC_FILE_USER_VERSION_LABEL = 13333;
inline constexpr int IDC_FILE_USER_VERSION = 13334;
inline constexpr int IDC_FILE_USER_COMPANY_LABEL = 13335;
inline constexpr int IDC_FILE_USER_COMPANY = 13336;
inline constexpr int IDC_FILE_RULE_TEXT = 13337;
inline constexpr int IDC_FILE_IDENTIFY = 13338;
inline constexpr int IDC_FILE_IGNORE = 13339;

// File properties sheet: Clients and Rules pages.
inline constexpr int IDC_FILE_CLIENT_LIST = 13340;
inline constexpr int IDC_FILE_TOTAL_CLIENTS_LABEL = 13341;
inline constexpr int IDC_FILE_TOTAL_CLIENTS = 13342;
inline constexpr int IDC_FILE_PRINT = 13343;
inline constexpr int IDC_FILE_ID_RULES_GROUP = 13344;
inline constexpr int IDC_FILE_ID_RULE_LIST = 13345;
inline constexpr int IDC_FILE_ID_RULE_ADD = 13346;
inline constexpr int IDC_FILE_ID_RULE_EDIT = 13347;
inline constexpr int IDC_FILE_ID_RULE_REMOVE = 13348;
inline constexpr int IDC_FILE_IGNORE_RULES_GROUP = 13349;
inline constexpr int IDC_FILE_IGNORE_RULE_LIST = 13350;
inline constexpr int IDC_FILE_IGNORE_RULE_ADD = 13351;
inline constexpr int IDC_FILE_IGNORE_RULE_EDIT = 13352;
inline constexpr int IDC_FILE_IGNORE_RULE_REMOVE = 13353;

// Rule configuration sheet pages (both pages share these).
inline constexpr int IDC_CONFIG_RULE_LIST = 13360;
inline constexpr int IDC_CONFIG_RULE_ADD = 13361;
inline constexpr int IDC_CONFIG_RULE_EDIT = 13362;
inline constexpr int IDC_CONFIG_RULE_DELETE = 13363;

// Application and company selection dialogs.
inline constexpr int IDC_SELECT_PROMPT = 13370;
// 13371 to 13373: IDC_SELECT_APP_LIST, IDC_SELECT_COMPANY_NAME, IDC_SELECT_COMPANY_LIST

// Tab titles, numbered as the templates of their pages.
inline constexpr int IDS_PALM_TAB_GENERAL = 13102;
inline constexpr int IDS_PALM_TAB_CLIENTS = 13103;
inline constexpr int IDS_RIM_TAB_GENERAL = 13115;
inline constexpr int IDS_RIM_TAB_CLIENTS = 13116;

// Strings.
inline constexpr int IDS_NAME_AND_VERSION = 13503; // "%s  [ %s ]"
inline constexpr int IDS_HDR_APP_LIST = 13504;
// 13505: IDS_HDR_COMPANY_LIST
inline constexpr int IDS_HDR_EXCLUDED_FILES = 13506;
inline constexpr int IDS_HDR_UNID_FILES = 13507;
inline constexpr int IDS_TAB_GENERAL = 13508;
inline constexpr int IDS_TAB_CLIENTS = 13509;
inline constexpr int IDS_HDR_APP_FILES = 13510;
inline constexpr int IDS_ANY = 13511;
inline constexpr int IDS_HDR_APP_MACHINES = 13512;
inline constexpr int IDS_HDR_INST_FILES = 13525;
inline constexpr int IDS_TITLE_INVENTORY = 13527;
inline constexpr int IDS_TITLE_COMPANY_LIST = 13528;
inline constexpr int IDS_TITLE_APPLICATION = 13529;
inline constexpr int IDS_TITLE_COMPANY_APPS = 13530;
inline constexpr int IDS_TITLE_UNID_FILES = 13531;
inline constexpr int IDS_TITLE_IGNORED_FILES = 13532;
inline constexpr int IDS_TITLE_PPC_COMPANY_LIST = 13533;
inline constexpr int IDS_TITLE_PPC_APPLICATION = 13534;
inline constexpr int IDS_TITLE_PPC_COMPANY_APPS = 13535;
inline constexpr int IDS_TITLE_PPC_IGNORED_FILES = 13536;
inline constexpr int IDS_TITLE_PPC_UNID_FILES = 13537;
inline constexpr int IDS_ROOT_APPS = 13538; // "Windows Applications  (%s)"
inline constexpr int IDS_ROOT_IGNORED_FILES = 13539;
inline constexpr int IDS_ROOT_UNID_FILES = 13540;
inline constexpr int IDS_ROOT_PALM_APPS = 13541; // "Palm Applications  (%s)"
inline constexpr int IDS_ROOT_PPC_APPS = 13542;  // "Windows CE Applications  (%s)"
inline constexpr int IDS_ROOT_PPC_IGNORED_FILES = 13543;
inline constexpr int IDS_ROOT_PPC_UNID_FILES = 13544;
inline constexpr int IDS_ROOT_RIM_APPS = 13545; // "BlackBerry Applications (%s)"
inline constexpr int IDS_HDR_PALM_DEVICES = 13546;
inline constexpr int IDS_HDR_NAME_VALUE = 13547;
inline constexpr int IDS_TITLE_PALM_APPLICATION = 13548;
inline constexpr int IDS_TITLE_PALM_APP_LIST = 13549;
// 13550: IDS_NO_COMPANY
inline constexpr int IDS_HDR_RULE_ID_RULES = 13551; // identification rules of a file
inline constexpr int IDS_HDR_RULE_IGNORE_RULES = 13552;
inline constexpr int IDS_HDR_FILE_CLIENTS = 13553;
inline constexpr int IDS_HDR_CONFIG_ID_RULES = 13554;
inline constexpr int IDS_HDR_CONFIG_IGNORE_RULES = 13555;
inline constexpr int IDS_HDR_IGNORE_APP_FILES = 13556;
inline constexpr int IDS_WHERE_ROM = 13557;
inline constexpr int IDS_WHERE_RAM = 13558;
inline constexpr int IDS_WHERE_STORAGE_CARD = 13559;
inline constexpr int IDS_ICON_AND_NAME = 13560;   // "%s  (%s)"
inline constexpr int IDS_CLIENT_AND_USER = 13561; // "%s (%s)"
inline constexpr int IDS_HDR_RIM_DEVICES = 13562;
inline constexpr int IDS_TITLE_RIM_APPLICATION = 13564;
inline constexpr int IDS_TITLE_RIM_APP_LIST = 13565;

// Messages and titles of the rule dialogs and sheets.
inline constexpr int IDS_WILDCARD_REFUSED = 13570;
inline constexpr int IDS_OVERWRITE_ID_RULE = 13571;
inline constexpr int IDS_OVERWRITE_IGNORE_RULE = 13572;
inline constexpr int IDS_CONFIRM_REMOVE_RULE = 13573;
inline constexpr int IDS_SYSTEM_IGNORED = 13574;
inline constexpr int IDS_USER_IGNORED = 13575;
inline constexpr int IDS_USER_VERSION_INFO = 13576;
inline constexpr int IDS_IGNORED_COMMENTS = 13577;
inline constexpr int IDS_FILE_PROPERTIES_TITLE = 13578; // "%s - File Properties"
inline constexpr int IDS_RULES_TITLE_PPC = 13579;
inline constexpr int IDS_RULES_TITLE_PC = 13580;
inline constexpr int IDS_FILE_CLIENTS_PRINT_TITLE = 13581;
inline constexpr int IDS_APP_FILE_FILTER = 13582;
inline constexpr int IDS_IDENTIFY_FILE_TITLE = 13583;
inline constexpr int IDS_IGNORE_FILE_TITLE = 13584;
inline constexpr int IDS_PROP_TAB_RULES = 13585;
inline constexpr int IDS_CONFIG_TAB_ID_RULES = 13586;
inline constexpr int IDS_CONFIG_TAB_IGNORE_RULES = 13587;
