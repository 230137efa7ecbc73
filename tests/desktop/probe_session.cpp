#include "probe_session.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include "desktop/entry_list.h"
#include "desktop/picture_view.h"
#include "desktop/vrml_widget.h"
#include "desktop_session.h"

namespace crownlab {
namespace {

template <typename Widget>
Widget* Add(QLayout& layout, const char* name) {
    auto* const widget = new Widget;
    widget->setObjectName(name);
    layout.addWidget(widget);
    return widget;
}

}  // namespace

void LayOutProbe(const std::string&, QWidget& window) {
    auto* const layout = new QVBoxLayout(&window);
    Add<QLabel>(*layout, "lblNote");
    Add<QPushButton>(*layout, "cmdRun");
    Add<QPushButton>(*layout, "cmdOther");
    Add<QLineEdit>(*layout, "txtWord");
    Add<QCheckBox>(*layout, "chkTick");
    auto* const inside = new QVBoxLayout(Add<QGroupBox>(*layout, "fraGroup"));
    Add<QRadioButton>(*inside, "optOne");
    Add<QRadioButton>(*inside, "optTwo");
    Add<QRadioButton>(*layout, "optLoose");
    Add<QComboBox>(*layout, "cmbPick");
    Add<QComboBox>(*layout, "Drive1");
    Add<EntryList>(*layout, "Dir1");
    Add<EntryList>(*layout, "File1");
    Add<PictureView>(*layout, "picBox_1")->setFixedSize(200, 200);
    Add<QProgressBar>(*layout, "prgDone");
    Add<QScrollBar>(*layout, "vscLight")->setOrientation(Qt::Horizontal);
    Add<QSlider>(*layout, "sldTooth")->setOrientation(Qt::Horizontal);
    auto* const tabs = Add<QTabWidget>(*layout, "tabTools");
    for (const char* const name : {"pagFirst", "pagSecond"}) {
        auto* const page = new QWidget;
        page->setObjectName(name);
        new QVBoxLayout(page);
        tabs->addTab(page, QString());
    }
    Add<QPushButton>(*tabs->widget(0)->layout(), "cmdInside");
    Add<QFrame>(*layout, "Line1");
    Add<VrmlWidget>(*layout, "View1")->setMinimumSize(120, 90);
    window.resize(400, 1000);
}

ProbeSession::ProbeSession()
    : Desk(LayOutProbe, [this](int status) { Ended = status; }),
      Shared{.Windows = &Windows, .Screen = &Desk, .Files = &Files},
      Windows(Shared) {
    for (const char* const name : {"frmProbe", "frmSecond"}) {
        Windows.AddMaker(name, [this, name] { return std::make_shared<FrmProbe>(Shared, name); });
        Windows.Load(name);
    }
}

FrmProbe& ProbeSession::Probe(const std::string& name) { return static_cast<FrmProbe&>(*Windows.Load(name)); }

FormWindow& ProbeSession::Window(const std::string& name) {
    Form& form = *Windows.Load(name);
    if (Desk.WindowOf(form) == nullptr) {
        Windows.Show(name);
        if (!QTest::qWaitForWindowExposed(Desk.WindowOf(form))) throw std::logic_error(name + " doesn't show");
    }
    return *Desk.WindowOf(form);
}

void ProbeSession::On(const char* handler, std::function<void()> run, const std::string& form) {
    Probe(form).OnAny(handler, [run = std::move(run)](const EventArgs&) { run(); });
}

void ProbeSession::Click(const char* widget, const std::string& form) { ClickOn(Find<QWidget>(widget, form)); }

}  // namespace crownlab
