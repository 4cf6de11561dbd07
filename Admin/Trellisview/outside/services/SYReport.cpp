#include "outside/services/SYReport.h"

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"

void SYExReport(const CException& exception, const SYWnd* parent) {
    SYGetApp().Report({exception.KindName(), exception.ErrorMessage(), parent});
}

void SYStatusReport(const SYStatus& status, const SYWnd* parent) {
    SYGetApp().Report({"SYStatus", status.Message(), parent});
}
