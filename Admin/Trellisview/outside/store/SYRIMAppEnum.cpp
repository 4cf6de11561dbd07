#include "outside/store/SYRIMAppEnum.h"

#include "outside/store/SYRecordset.h"
#include "outside/store/SYSelect.h"

namespace {

class RIMAppRows : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    std::int32_t AppID() const { return static_cast<std::int32_t>(FieldInt("AppID")); }
    std::string AppName() const { return FieldText("AppName"); }
    std::string AppVersion() const { return FieldText("AppVersion"); }

protected:
    void BuildQuery(SYSelect& select) const override {
        select.Columns("AppID, AppName, AppVersion");
        select.From("[RIM Applications]");
        select.OrderBy("AppID");
    }
};

const RIMAppRows& rows(const std::unique_ptr<SYRecordset>& set) {
    return static_cast<const RIMAppRows&>(*set);
}

} // namespace

SYRIMAppEnum::SYRIMAppEnum(SYDatabase* database) : m_database(database) {}

SYRIMAppEnum::~SYRIMAppEnum() = default;

bool SYRIMAppEnum::BeginEnumApps() {
    m_set = std::make_unique<RIMAppRows>(m_database);
    m_set->Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    m_started = false;
    if (!m_set->IsEOF())
        return true;
    EndEnumApps();
    return false;
}

bool SYRIMAppEnum::EnumApp(std::string& name) {
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

bool SYRIMAppEnum::HaveRow() const {
    return m_set && m_started && !m_set->IsEOF();
}

std::int32_t SYRIMAppEnum::CurrentAppID() const {
    return HaveRow() ? rows(m_set).AppID() : 0;
}

std::string SYRIMAppEnum::CurrentAppVersion() const {
    return HaveRow() ? rows(m_set).AppVersion() : std::string();
}

void SYRIMAppEnum::EndEnumApps() {
    m_set.reset();
    m_started = false;
}
