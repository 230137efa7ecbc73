#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "basis/result_file.h"
#include "desktop/desktop_desk.h"
#include "desktop/form_window.h"
#include "forms/controls.h"
#include "forms/window_table.h"
#include "support/temp_folder.h"

namespace crownlab {

/// A window with a control of each kind, whose handlers a test sets as it likes.
struct FrmProbe : Form {
    explicit FrmProbe(Services& services, const std::string& name) : Form(services, name, "Probe of " + name) {}

    MenuItem mnuTop{*this, "mnuTop", "&Top"};
    MenuItem mnuItem{mnuTop, "mnuItem", "&Item", true};
    Label lblNote{*this, "lblNote", "a&b <i>c</i>"};
    CommandButton cmdRun{*this, "cmdRun", "Run"};
    CommandButton cmdOther{*this, "cmdOther", "Other"};
    TextBox txtWord{*this, "txtWord", "word"};
    CheckBox chkTick{*this, "chkTick", "Tick"};
    Frame fraGroup{*this, "fraGroup", "Group"};
    OptionButton optOne{fraGroup, "optOne", "One", true};
    OptionButton optTwo{fraGroup, "optTwo", "Two"};
    OptionButton optLoose{*this, "optLoose", "Loose", true};
    ComboBox cmbPick{*this, "cmbPick", {"a", "b", "c"}, 1};
    DriveList Drive1{*this, "Drive1"};
    DirList Dir1{*this, "Dir1"};
    FileList File1{*this, "File1", "*.csv"};
    PictureBox picBox{*this, "picBox(1)", 100, 50};
    ProgressBar prgDone{*this, "prgDone", true};
    ScrollBar vscLight{*this, "vscLight", 0, 90};
    Slider sldTooth{*this, "sldTooth"};
    TabControl tabTools{*this, "tabTools"};
    TabPage pagFirst{tabTools, "pagFirst", "First"};
    CommandButton cmdInside{pagFirst, "cmdInside", "Inside"};
    TabPage pagSecond{tabTools, "pagSecond", "Second"};
    Line Line1{*this, "Line1"};
    VrmlView View1{*this, "View1"};
};

/// Lays a probe out as a .ui file would.
void LayOutProbe(const std::string& form, QWidget& window);

/// Two probe windows, "frmProbe" and "frmSecond", on a desk of their own.
class ProbeSession {
public:
    ProbeSession();

    TempFolder Folder;
    FileTable Files;
    std::optional<int> Ended;
    DesktopDesk Desk;
    Services Shared;
    WindowTable Windows;

    FrmProbe& Probe(const std::string& name = "frmProbe");
    FormWindow& Window(const std::string& name = "frmProbe");
    /// Sets the handler of an event, "cmdRun_Click".
    void On(const char* handler, std::function<void()> run, const std::string& form = "frmProbe");
    void Click(const char* widget, const std::string& form = "frmProbe");
    template <typename Widget>
    Widget& Find(const char* name, const std::string& form = "frmProbe") {
        Widget* const widget = dynamic_cast<Widget*>(Window(form).findChild<QWidget*>(name));
        if (widget == nullptr) throw std::logic_error(std::string("no such widget ") + name);
        return *widget;
    }
};

}  // namespace crownlab
