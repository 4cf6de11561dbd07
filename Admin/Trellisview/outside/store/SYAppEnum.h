#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "outside/store/SYSWInvObject.h"

class SYAppSet;
class SYDatabase;

// The installed applications of one company of the Windows PC or Windows CE inventory.
// Life: SetDatabase, InvDataType, SetCompanyName, BeginEnumApps (false: nothing to read),
// EnumApp until false with CurrentAppID on each row, EndEnumApps.
class SYAppEnum : public SYSWInvObject {
public:
    SYAppEnum();
    SYAppEnum(const SYAppEnum&) = delete;
    SYAppEnum& operator=(const SYAppEnum&) = delete;
    ~SYAppEnum() override;

    void SetDatabase(SYDatabase* database) { m_database = database; }
    // The internal company name; an empty name stands for applications without a company.
    void SetCompanyName(const std::string& companyInternal) { m_company = companyInternal; }

    bool BeginEnumApps();
    // The next application; false after the last one.
    bool EnumApp(std::string& name, std::string& version, std::string& nameInternal);
    std::uint32_t CurrentAppID() const;
    void EndEnumApps();

private:
    SYDatabase* m_database = nullptr;
    std::string m_company;
    std::unique_ptr<SYAppSet> m_set;
    bool m_started = false;
};
