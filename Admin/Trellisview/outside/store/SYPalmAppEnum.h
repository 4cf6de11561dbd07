#pragma once

#include <cstdint>
#include <memory>
#include <string>

class SYDatabase;
class SYRecordset;

// Every application of the Palm inventory. Life: BeginEnumApps (false: nothing to read),
// EnumApp until false with the Current... reads on each row, EndEnumApps.
class SYPalmAppEnum {
public:
    explicit SYPalmAppEnum(SYDatabase* database = nullptr);
    SYPalmAppEnum(const SYPalmAppEnum&) = delete;
    SYPalmAppEnum& operator=(const SYPalmAppEnum&) = delete;
    ~SYPalmAppEnum();

    void SetDatabase(SYDatabase* database) { m_database = database; }

    bool BeginEnumApps();
    // The next application's name; false after the last one.
    bool EnumApp(std::string& name);
    std::int32_t CurrentAppID() const;
    std::string CurrentAppVersion() const;
    // The name under the application's icon on the device; empty if the scan found none.
    std::string CurrentAppIconName() const;
    void EndEnumApps();

private:
    bool HaveRow() const;

    SYDatabase* m_database;
    std::unique_ptr<SYRecordset> m_set;
    bool m_started = false;
};
