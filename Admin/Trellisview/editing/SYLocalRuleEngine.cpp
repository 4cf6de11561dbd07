#include "editing/SYLocalRuleEngine.h"

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"

SYLocalRuleEngine::SYLocalRuleEngine(SYDatabase* database, unsigned char invDataType) {
    m_engine.Database = database;
    m_engine.InvDataType = invDataType;
    m_engine.SetInstallPath(SYInstallation::Path().GetPath());
}

void SYLocalRuleEngine::Apply(SYAppFile& file, const SYWnd* parent) {
    try {
        m_engine.UpdateSamData();
    } catch (const CException& exception) {
        SYExReport(exception, parent);
    } catch (const SYStatus& status) {
        SYStatusReport(status, parent);
    }
    file.LoadRules();
    file.IdentifyFile();
    file.SetRulesChanged(1);
}
