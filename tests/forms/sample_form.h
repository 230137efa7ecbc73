#pragma once

#include <string>
#include <vector>

#include "basis/number_text.h"
#include "forms/form.h"
#include "forms/window_table.h"

namespace crownlab {

/// A window with one control of each kind, which writes down the events that reach it.
struct SampleForm : Form {
    explicit SampleForm(Services& services) : Form(services, "frmSample", "Sample") {
        for (const char* const handler :
             {"txtA_Change", "chkA_Click", "optA_Click", "optB_Click", "optC_Click", "cmbA_Click", "scrA_Change",
              "sldA_Change", "tabA_Click", "drvA_Change", "dirA_Change", "filA_Click", "filA_DblClick", "cmdA_Click",
              "picA_Click", "Form_Load", "Form_Unload"}) {
            OnAny(handler, [this, handler](const EventArgs&) { Events.emplace_back(handler); });
        }
        OnKey("cmdA_KeyDown", [](SampleForm& form, const std::string& key) { form.Events.push_back("key " + key); });
        OnMouse("picA_MouseMove", [](SampleForm& form, double x, double y) {
            form.Events.push_back("move " + GeneralText(x) + " " + GeneralText(y));
        });
    }

    std::vector<std::string> Events;

    TextBox txtA{*this, "txtA", "first"};
    CheckBox chkA{*this, "chkA", "Check"};
    Frame fraA{*this, "fraA", "Frame"};
    OptionButton optA{fraA, "optA", "A", true};
    OptionButton optB{fraA, "optB", "B"};
    OptionButton optC{*this, "optC", "C", true};
    ComboBox cmbA{*this, "cmbA", {"one", "two"}};
    ScrollBar scrA{*this, "scrA", 10, 20};
    Slider sldA{*this, "sldA"};
    TabControl tabA{*this, "tabA"};
    TabPage pagA{tabA, "pagA", "First"};
    TabPage pagB{tabA, "pagB", "Second"};
    TextBox txtOnPage{pagA, "txtOnPage"};
    DriveList drvA{*this, "drvA"};
    DirList dirA{*this, "dirA"};
    FileList filA{*this, "filA", "*.csv"};
    CommandButton cmdA{*this, "cmdA", "Press"};
    PictureBox picA{*this, "picA", 100, 50};
    Label lblA{*this, "lblA", "Label"};
    MenuItem mnuA{*this, "mnuA", "&Menu"};
    MenuItem mnuB{mnuA, "mnuB", "Item", true};
    Frame fraInner{fraA, "fraInner"};
    TextBox txtInner{fraInner, "txtInner", "12.5 mm"};
    ProgressBar proA{*this, "proA"};
};

}  // namespace crownlab
