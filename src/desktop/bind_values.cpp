// Lists of entries to choose from, bars, sliders, tabs, pictures.
#include <QAbstractSlider>
#include <QComboBox>
#include <QDir>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTabWidget>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "desktop/bind_kinds.h"
#include "desktop/desktop_desk.h"
#include "desktop/picture_view.h"
#include "desktop/shown_state.h"
#include "desktop/shown_text.h"
#include "desktop/vrml_widget.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

/// What the widget of a bar was told last, and where a person moved it meanwhile.
struct BarState {
    ShownState<int, int, int, int, bool, bool> Shown;
    bool Running = false;
    std::optional<int> Wanted;
};

/// Moves of a bar while its own handler runs wait for its end, and only the last counts: else the handler that
/// began first would end last, and show where the bar no longer stands.
template <typename Bar>
void Move(FormWindow& window, Bar& bar, int value, BarState& state) {
    state.Shown.Forget();
    state.Wanted = value;
    if (state.Running) return;
    state.Running = true;
    while (state.Wanted && window.Attached() != nullptr) {
        const int wanted = *std::exchange(state.Wanted, std::nullopt);
        window.Act(bar, "Change", [&bar, wanted] { SetValue(bar, wanted); });
    }
    state.Running = false;
}

/// Ties a bar or slider of which a click beside the handle moves it by `step(bar)`.
template <typename Bar, typename Step>
CopyRecord BindBar(FormWindow& window, Bar& bar, QAbstractSlider& widget, Step step) {
    const auto state = std::make_shared<BarState>();
    QObject::connect(&widget, &QAbstractSlider::valueChanged, &window,
                     [state, &window, &bar](int value) { Move(window, bar, value, *state); });
    return [state, step, &bar, &widget] {
        if (!state->Shown.Differs(bar.Min, bar.Max, bar.Value, step(bar), bar.Enabled, bar.Visible)) return;
        const QSignalBlocker blocker(widget);
        widget.setRange(std::min(bar.Min, bar.Max), std::max(bar.Min, bar.Max));
        widget.setPageStep(step(bar));
        widget.setValue(state->Wanted.value_or(bar.Value));
        widget.setEnabled(bar.Enabled);
        widget.setVisible(bar.Visible);
    };
}

QStringList ShownTexts(const std::vector<std::string>& items) {
    QStringList texts;
    for (const std::string& item : items) texts << ShownText(item);
    return texts;
}

QStringList Drives() {
    QStringList drives;
    for (const QFileInfo& drive : QDir::drives()) drives << QDir::toNativeSeparators(drive.absoluteFilePath());
    return drives;
}

}  // namespace

CopyRecord Bind(FormWindow& window, ComboBox& box, QComboBox& widget) {
    const auto shown = MakeState<std::vector<std::string>, int, bool, bool>();
    QObject::connect(&widget, &QComboBox::activated, &window, [shown, &window, &box](int index) {
        shown->Forget();
        window.Act(box, "Click", [&box, index] { SelectEntry(box, index); });
    });
    return [shown, &box, &widget] {
        if (!shown->Differs(box.Items, box.Selected, box.Enabled, box.Visible)) return;
        const QSignalBlocker blocker(widget);
        widget.clear();
        widget.addItems(ShownTexts(box.Items));
        widget.setCurrentIndex(box.Selected);
        widget.setEnabled(box.Enabled);
        widget.setVisible(box.Visible);
    };
}

CopyRecord Bind(FormWindow& window, DriveList& drives, QComboBox& widget) {
    const auto shown = MakeState<std::string, int, bool, bool>();
    QObject::connect(&widget, &QComboBox::activated, &window, [shown, &window, &drives, &widget](int index) {
        shown->Forget();
        const std::string drive = RecordText(widget.itemText(index));
        window.Act(drives, "Change", [&drives, drive] { SetPath(drives, drive); });
    });
    return [shown, &window, &drives, &widget] {
        if (!shown->Differs(drives.Drive, window.ListGeneration(), drives.Enabled, drives.Visible)) return;
        const QSignalBlocker blocker(widget);
        widget.clear();
        widget.addItems(Drives());
        widget.setCurrentIndex(widget.findText(ShownText(drives.Drive)));
        widget.setEnabled(drives.Enabled);
        widget.setVisible(drives.Visible);
    };
}

CopyRecord Bind(FormWindow& window, PictureBox& box, PictureView& widget) {
    // Only what some handler waits for is told.
    if (box.Owner->HasHandler(box.Name + "_MouseMove")) {
        widget.OnMove = [&window, &box](double x, double y) {
            window.Act(box, "MouseMove", [&box, x, y] { MoveMouse(box, x, y); });
        };
    }
    if (box.Owner->HasHandler(box.Name + "_Click")) {
        widget.OnClick = [&window, &box] { window.Act(box, "Click", [&box] { Press(box); }); };
    }
    const auto shown = MakeState<std::shared_ptr<const Raster>, int, int, int, int, bool, bool>();
    return [shown, &box, &widget] {
        if (!shown->Differs(box.Image, box.ImageColumns, box.ImageRows, box.Width, box.Height, box.Enabled,
                            box.Visible)) {
            return;
        }
        widget.SetShape(QSize(box.Width, box.Height));
        widget.SetPicture(box.Image, box.ImageColumns, box.ImageRows);
        widget.setEnabled(box.Enabled);
        widget.setVisible(box.Visible);
    };
}

CopyRecord Bind(FormWindow&, ProgressBar& bar, QProgressBar& widget) {
    const auto shown = MakeState<double, double, bool, bool>();
    return [shown, &bar, &widget] {
        if (!shown->Differs(bar.Value, bar.Max, bar.Enabled, bar.Visible)) return;
        constexpr int steps = 1000;
        const double part = bar.Max > 0 ? std::clamp(bar.Value / bar.Max, 0.0, 1.0) : 0.0;
        widget.setRange(0, steps);
        widget.setValue(static_cast<int>(std::lround(part * steps)));
        widget.setEnabled(bar.Enabled);
        widget.setVisible(bar.Visible);
    };
}

CopyRecord Bind(FormWindow& window, ScrollBar& bar, QAbstractSlider& widget) {
    return BindBar(window, bar, widget, [](const ScrollBar& b) { return std::max(1, std::abs(b.Max - b.Min) / 10); });
}

CopyRecord Bind(FormWindow& window, Slider& slider, QAbstractSlider& widget) {
    return BindBar(window, slider, widget, [](const Slider& s) { return std::max(1, s.Step); });
}

CopyRecord Bind(FormWindow& window, TabControl& tabs, QTabWidget& widget) {
    const auto shown = MakeState<int, bool, bool>();
    QObject::connect(&widget, &QTabWidget::currentChanged, &window, [shown, &window, &tabs](int index) {
        shown->Forget();
        window.Act(tabs, "Click", [&tabs, index] { SelectPage(tabs, index); });
    });
    return [shown, &tabs, &widget] {
        if (!shown->Differs(tabs.Index, tabs.Enabled, tabs.Visible)) return;
        const QSignalBlocker blocker(widget);
        widget.setCurrentIndex(tabs.Index);
        widget.setEnabled(tabs.Enabled);
        widget.setVisible(tabs.Visible);
    };
}

CopyRecord Bind(FormWindow& window, TabPage& page, QWidget& widget) {
    auto* const tabs = window.findChild<QTabWidget*>(ShownText(page.Tabs->Name));
    const auto shown = MakeState<std::string, bool, bool>();
    return [shown, tabs, &page, &widget] {
        if (tabs == nullptr || !shown->Differs(page.Caption, page.Enabled, page.Visible)) return;
        const QSignalBlocker blocker(tabs);
        const int index = tabs->indexOf(&widget);
        tabs->setTabText(index, ShownText(page.Caption));
        tabs->setTabEnabled(index, page.Enabled);
        tabs->setTabVisible(index, page.Visible);
    };
}

CopyRecord Bind(FormWindow& window, VrmlView& view, VrmlWidget& widget) {
    const auto loaded = MakeState<std::uint64_t>();
    const auto fitted = MakeState<std::uint64_t>();
    const auto shown = MakeState<bool, bool>();
    loaded->Differs(0);
    fitted->Differs(0);
    return [loaded, fitted, shown, &window, &view, &widget] {
        if (shown->Differs(view.Enabled, view.Visible)) {
            widget.setEnabled(view.Enabled);
            widget.setVisible(view.Visible);
        }
        if (loaded->Differs(view.LoadCount) && widget.LoadScene(view.SceneFile)) {
            window.Desk().ActLater(
                window, [&window, &view] { window.Act(view, "SceneLoaded", [&view] { Fire(view, "SceneLoaded"); }); });
        }
        if (fitted->Differs(view.FitCount)) widget.Fit();
    };
}

}  // namespace crownlab
