// The menu bar of a form, made from its menu items in the order of their declaration.
#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <map>
#include <vector>

#include "desktop/bind_kinds.h"
#include "desktop/binder.h"
#include "desktop/shown_state.h"
#include "desktop/shown_text.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

std::vector<MenuItem*> MenuItems(const Form& form) {
    std::vector<MenuItem*> items;
    for (const ControlRef& control : form.Controls()) {
        if (MenuItem* const* const item = std::get_if<MenuItem*>(&control)) items.push_back(*item);
    }
    return items;
}

/// An item with items of its own, or one that stands in the bar.
bool IsMenu(const MenuItem& item, const std::vector<MenuItem*>& items) {
    const auto isInside = [&item](const MenuItem* other) { return other->Container == &item; };
    return item.Container == nullptr || std::any_of(items.begin(), items.end(), isInside);
}

CopyRecord Bind(FormWindow& window, MenuItem& item, QAction& action) {
    action.setObjectName(WidgetName(item.Name));
    action.setCheckable(item.Checkable);
    const auto shown = MakeState<std::string, bool, bool, bool>();
    QObject::connect(&action, &QAction::triggered, &window, [shown, &window, &item] {
        shown->Forget();
        window.Act(item, "Click", [&item] { Press(item); });
    });
    return [shown, &item, &action] {
        if (!shown->Differs(item.Caption, item.Checked, item.Enabled, item.Visible)) return;
        action.setText(ShownText(item.Caption));
        action.setChecked(item.Checked);
        action.setEnabled(item.Enabled);
        action.setVisible(item.Visible);
    };
}

/// Adds the item to the bar or to the menu that it lies in.
QAction& AddItem(QMenuBar& bar, std::map<const Control*, QMenu*>& menus, const MenuItem& item, bool isMenu) {
    QMenu* const parent = item.Container != nullptr ? menus.at(item.Container) : nullptr;
    if (!isMenu) return *parent->addAction(QString());
    QMenu* const menu = parent != nullptr ? parent->addMenu(QString()) : bar.addMenu(QString());
    menus[&item] = menu;
    return *menu->menuAction();
}

}  // namespace

CopyRecord BindMenus(FormWindow& window, Form& form) {
    const std::vector<MenuItem*> items = MenuItems(form);
    if (items.empty()) return {};
    auto* const bar = new QMenuBar(&window);
    std::map<const Control*, QMenu*> menus;
    std::vector<CopyRecord> copies;
    copies.reserve(items.size());
    for (MenuItem* const item : items) {
        copies.push_back(Bind(window, *item, AddItem(*bar, menus, *item, IsMenu(*item, items))));
    }
    window.layout()->setMenuBar(bar);
    return [copies] {
        for (const CopyRecord& copy : copies) copy();
    };
}

}  // namespace crownlab
