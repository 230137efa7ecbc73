#include <chrono>
#include <thread>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

/// The window whose keys are wanted: the one of the process that the main window names, or any of the program.
std::string ProgramWindow(WindowTable& windows) {
    const std::string& processId = windows.Get<TextBox>("frmStartup", "txtSurferPID").Text;
    const bool named = windows.Get<CheckBox>("frmStartup", "chkSurferPID").Checked && !processId.empty();
    if (!named) return "Surfer - ";
    return GeneralText(TextBoxNumber(processId));
}

}  // namespace

void Pause(Desk& desk) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds length{200};
    constexpr std::chrono::milliseconds round{5};
    const Clock::time_point end = Clock::now() + length;
    while (Clock::now() < end) {
        desk.Yield();
        std::this_thread::sleep_for(round);
    }
}

std::string CaptureReport(Services& app, const std::string& dir, const std::string& tag) {
    Desk& desk = *app.Screen;
    std::string target = dir + "Report" + tag + ".txt";
    if (!IsFile(target)) WriteWholeFile(*app.Files, target, "junk\r\n");
    // Away from Crownlab and back: the program's windows come to know which one is in front. Waiting events run
    // after each step.
    for (int i = 0; i < 2; ++i) {
        desk.SendKeys("%{TAB}");
        desk.Yield();
    }
    desk.ActivateWindow(ProgramWindow(*app.Windows));
    desk.Yield();
    Pause(desk);
    desk.SendKeys("%fs" + target + "~");
    Pause(desk);
    desk.SendKeys("y");
    Pause(desk);
    desk.SendKeys("%fc");
    Pause(desk);
    return target;
}

}  // namespace crownlab
