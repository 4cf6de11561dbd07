#include "outside/store/SYAppEnum.h"

#include "outside/store/SYAppSet.h"

SYAppEnum::SYAppEnum() = default;

SYAppEnum::~SYAppEnum() = default;

bool SYAppEnum::BeginEnumApps() {
    m_set = std::make_unique<SYAppSet>(m_database);
    m_set->InvDataType = InvDataType;
    m_set->FilterForCompany(m_company);
    m_set->FilterForInstalled();
    m_set->Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    m_started = false;
    if (!m_set->IsEOF())
        return true;
    EndEnumApps();
    return false;
}

bool SYAppEnum::EnumApp(std::string& name, std::string& version, std::string& nameInternal) {
    if (!m_set)
        return false;
    if (m_started)
        m_set->MoveNext();
    m_started = true;
    if (m_set->IsEOF())
        return false;
    name = m_set->AppName();
    version = m_set->AppVersion();
    nameInternal = m_set->AppNameInternal();
    return true;
}

std::uint32_t SYAppEnum::CurrentAppID() const {
    return m_set && m_started && !m_set->IsEOF() ? m_set->AppID() : 0;
}

void SYAppEnum::EndEnumApps() {
    m_set.reset();
    m_started = false;
}
