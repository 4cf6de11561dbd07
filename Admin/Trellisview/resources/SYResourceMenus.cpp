#include "outside/widgets/SYMenu.h"
#include "resources/SYResourceIds.h"

namespace {

SYMenuItem identifyFile() {
    return SYMenuItem::Command(ID_IDENTIFY_FILE, "&Identify File...");
}
SYMenuItem ignoreFile() {
    return SYMenuItem::Command(ID_IGNORE_FILE, "I&gnore File...");
}
SYMenuItem properties() {
    return SYMenuItem::Command(ID_PROPERTIES, "&Properties");
}
SYMenuItem ignoreApplication() {
    return SYMenuItem::Command(ID_IGNORE_APPLICATION, "&Ignore Application");
}
SYMenuItem viewApplication() {
    return SYMenuItem::Command(ID_VIEW_APPLICATION, "&View Application");
}
SYMenuItem viewInstallationDetails() {
    return SYMenuItem::Command(ID_VIEW_INSTALLATION_DETAILS, "&View Installation Details");
}

[[maybe_unused]] const bool registered = [] {
    const SYMenuItem separator = SYMenuItem::Separator();
    SYMenus::Register({IDM_APPLICATION, {ignoreApplication()}});
    SYMenus::Register({IDM_APP_FILE, {identifyFile(), ignoreFile(), separator, properties()}});
    SYMenus::Register({IDM_APP_INSTALLATION, {viewInstallationDetails()}});
    SYMenus::Register({IDM_IGNORED_FILE, {identifyFile(), separator, properties()}});
    SYMenus::Register(
        {IDM_UNIDENTIFIED_FILE, {identifyFile(), ignoreFile(), separator, properties()}});
    SYMenus::Register({IDM_PALM_INSTALLATION, {viewInstallationDetails()}});
    SYMenus::Register({IDM_DEVICE_APPLICATION, {viewApplication()}});
    SYMenus::Register(
        {IDM_APPLICATION_VIEW_IGNORE, {viewApplication(), separator, ignoreApplication()}});
    SYMenus::Register(
        {IDM_COMPANY, {SYMenuItem::Command(ID_VIEW_APPLICATIONS, "&View Applications")}});
    SYMenus::Register({IDM_RIM_INSTALLATION, {viewInstallationDetails()}});
    SYMenus::Register({IDM_RIM_APPLICATION, {viewApplication()}});
    return true;
}();

} // namespace
