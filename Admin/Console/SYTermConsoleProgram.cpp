#include "SYTermConsoleProgram.h"

#include <filesystem>

#include "SYTermConsole.h"
#include "SYTermConsoleWindow.h"
#include "SYTermCursesScreen.h"
#include "SYTermModalHost.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYModalHost.h"

int SYTermConsoleProgram::Run(SYDatabase& database, const std::string& installPath) {
    SYGetApp().SetInstallPath(installPath);
    SYTermCursesScreen screen;
    SYTermModalHost host(screen);
    const SYModalHostScope hostScope(&host);
    SYGetApp().SetReporter([](const SYFailureReport& report) {
        SYMessageBox::Show(report.parent, report.message, "", MB_OK | MB_ICONSTOP);
    });
    SYTermConsole console(database);
    console.SetPrintFolder(std::filesystem::current_path().string());
    if (console.Start() == 0)
        return 1;
    SYTermConsoleWindow window(console, screen);
    // Dialogs draw over the main screen, not over a blank one.
    host.SetBackdrop([&window] { window.Draw(); });
    host.SetQuit([&window] { window.Quit(); });
    window.Run();
    return 0;
}
