#pragma once

#include <cstdint>
#include <memory>
#include <string>

class SYDatabase;
class SYRecordset;

// Every application of the BlackBerry inventory. Life: BeginEnumApps (false: nothing to read),
// EnumApp until false with the Current... reads on each row, EndEnumApps.
class SYRIMAppEnum {
public:
    explicit SYRIMAppEnum(SYDatabase* database = nullptr);
    SYRIMAppEnum(const SYRIMAppEnum&) = delete;
    SYRIMAppEnum& operator=(const SYRIMAppEnum&) = delete;
    ~SYRIMAppEnum();

    void SetDatabase(SYDatabase* database) { m_database = database; }

    bool BeginEnumApps();
    // The next application's name; false after the last one.
    bool EnumApp(std::string& name);
    std::int32_t CurrentAppID() const;
    std::string CurrentAppVersion() const;
    void EndEnumApps();

private:
    bool HaveRow() const;

    SYDatabase* m_database;
    std::unique_ptr<SYRecordset> m_set;
    bool m_started = false;
};
