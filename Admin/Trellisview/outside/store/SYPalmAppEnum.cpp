#include "outside/store/SYPalmAppEnum.h"

#include "outside/store/SYRecordset.h"
#include "outside/store/SYSelect.h"

namespace {

class PalmAppRows : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    std::int32_t AppID() const { return static_cast<std::int32_t>(FieldInt("AppID")); }
    std::string AppName() const { return FieldText("AppName"); }
    std::string AppVersion() const { return FieldText("AppVersion"); }
    std::string IconName() const { return FieldText("IconName"); }

protected:
    void BuildQuery(SYSelect& select) const override {
        select.Columns("AppID, AppName, AppVersion, IconName");
        select.From("[Palm Applications]");
        select.OrderBy("AppID");
    }
};

const PalmAppRows& rows(const std::unique_ptr<SYRecordset>& set) {
    return static_cast<const PalmAppRows&>(*set);
}

} // namespace

SYPalmAppEnum::SYPalmAppEnum(SYDatabase* database) : m_database(database) {}

SYPalmAppEnum::~SYPalmAppEnum() = default;

bool SYPalmAppEnum::BeginEnumApps() {
    m_set = std::make_unique<PalmAppRows>(m_database);
    m_set->Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    m_started = false;
    if (!m_set->IsEOF())
        return true;
    EndEnumApps();
    return false;
}

bool SYPalmAppEnum::EnumApp(std::string& name) {
    if (!m_set)
        return false;
    if (m_started)
        m_set->MoveNext();
    m_started = true;
    if (m_set->IsEOF())
        return false;
    name = rows(m_set).AppName();
    return true;
}

bool SYPalmAppEnum::HaveRow() const {
    return m_set && m_started && !m_set->IsEOF();
}

std::int32_t SYPalmAppEnum::CurrentAppID() const {
    return HaveRow() ? rows(m_set).AppID() : 0;
}

std::string SYPalmAppEnum::CurrentAppVersion() const {
    return HaveRow() ? rows(m_set).AppVersion() : std::string();
}

std::string SYPalmAppEnum::CurrentAppIconName() const {
    return HaveRow() ? rows(m_set).IconName() : std::string();
}

void SYPalmAppEnum::EndEnumApps() {
    m_set.reset();
    m_started = false;
}
