#include "outside/store/SYInventorySearch.h"

#include "outside/framework/SYString.h"

namespace {

using AppRow = SYInventoryModel::AppRow;
using FileRow = SYInventoryModel::FileRow;

// 1 if a row the walk hands out has the text in the field the row gives.
template <class Row, class Walk, class Field>
int anyRowContains(Walk walk, Field field, const std::string& lowerText) {
    int found = 0;
    walk([&](const Row& row) {
        if (SYToLower(field(row)).find(lowerText) != std::string::npos)
            found = 1;
        return found == 0;
    });
    return found;
}

const std::string& fileName(const FileRow& row) {
    return row.name;
}

const std::string& appName(const AppRow& row) {
    return row.name;
}

} // namespace

int SYInventorySearch::FindUnidFile(const std::string& lowerText, std::uint8_t invDataType) const {
    return anyRowContains<FileRow>(
        [&](const auto& visit) {
            m_model.ForEachFile(invDataType, SYInventoryModel::FileList::unidentified, visit);
        },
        fileName, lowerText);
}

int SYInventorySearch::FindIgnoredFile(const std::string& lowerText,
                                       std::uint8_t invDataType) const {
    return anyRowContains<FileRow>(
        [&](const auto& visit) {
            m_model.ForEachFile(invDataType, SYInventoryModel::FileList::ignored, visit);
        },
        fileName, lowerText);
}

int SYInventorySearch::FindCompany(const std::string& lowerText, std::uint8_t invDataType) const {
    return anyRowContains<SYInventoryModel::CompanyRow>(
        [&](const auto& visit) { m_model.ForEachCompany(invDataType, visit); },
        [](const SYInventoryModel::CompanyRow& row) -> const std::string& {
            return row.DisplayName();
        },
        lowerText);
}

int SYInventorySearch::FindApp(const std::string& company, const std::string& lowerText,
                               std::uint8_t invDataType) const {
    return anyRowContains<AppRow>(
        [&](const auto& visit) { m_model.ForEachCompanyApp(invDataType, company, visit); }, appName,
        lowerText);
}

int SYInventorySearch::FindAppFile(std::uint32_t appID, const std::string& lowerText,
                                   std::uint8_t invDataType) const {
    return anyRowContains<FileRow>(
        [&](const auto& visit) { m_model.ForEachAppFile(invDataType, appID, visit); }, fileName,
        lowerText);
}

int SYInventorySearch::FindPalmApp(const std::string& lowerText) const {
    return anyRowContains<AppRow>([&](const auto& visit) { m_model.ForEachPalmApp(visit); },
                                  appName, lowerText);
}

int SYInventorySearch::FindRIMApp(const std::string& lowerText) const {
    return anyRowContains<AppRow>([&](const auto& visit) { m_model.ForEachRIMApp(visit); }, appName,
                                  lowerText);
}
