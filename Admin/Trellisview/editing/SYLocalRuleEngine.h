#pragma once

#include "rules/SYSWRule.h"

class SYAppFile;
class SYDatabase;
class SYWnd;

// A rule engine that lives for one change made from a sheet: on the sheet's database, with
// the installation's system rules and the inventory of the file or sheet.
class SYLocalRuleEngine {
public:
    SYLocalRuleEngine(SYDatabase* database, unsigned char invDataType);

    SYSWRule& Engine() { return m_engine; }

    // Sets up a rule dialog for a change to one file: this engine, the file's size and time
    // as defaults, and a name that cannot change.
    template <class Dialog> void Prepare(Dialog& dialog, const SYAppFile& file);

    // Applies the noted changes to the inventory (a failure is reported to parent and the
    // rest runs all the same), then rereads the file's rules and verdict and marks them
    // changed.
    void Apply(SYAppFile& file, const SYWnd* parent);

private:
    SYSWRule m_engine;
};

#include "rules/SYAppFile.h"

template <class Dialog> void SYLocalRuleEngine::Prepare(Dialog& dialog, const SYAppFile& file) {
    dialog.InvDataType = file.InvDataType();
    dialog.SetDatabase(m_engine.Database);
    dialog.SetSWRule(&m_engine);
    dialog.SetDefSize(file.FileSize());
    dialog.SetDefTime(file.FileTime());
    dialog.SetAllowNameChange(0);
}
