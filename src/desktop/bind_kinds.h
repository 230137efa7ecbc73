#pragma once

#include "desktop/form_window.h"
#include "forms/controls.h"

class QAbstractButton;
class QAbstractSlider;
class QButtonGroup;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTabWidget;
class QCheckBox;
class QRadioButton;

namespace crownlab {

class EntryList;
class PictureView;
class VrmlWidget;

/// One for each kind of control: connects what a person does to the widget with the act, and returns what
/// copies the record. The window is the one in which both live.
CopyRecord Bind(FormWindow& window, Label& label, QLabel& widget);
CopyRecord Bind(FormWindow& window, CommandButton& button, QAbstractButton& widget);
CopyRecord Bind(FormWindow& window, TextBox& box, QLineEdit& widget);
CopyRecord Bind(FormWindow& window, CheckBox& box, QCheckBox& widget);
CopyRecord Bind(FormWindow& window, OptionButton& option, QRadioButton& widget);
CopyRecord Bind(FormWindow& window, Frame& frame, QGroupBox& widget);
CopyRecord Bind(FormWindow& window, ComboBox& box, QComboBox& widget);
CopyRecord Bind(FormWindow& window, DriveList& drives, QComboBox& widget);
CopyRecord Bind(FormWindow& window, DirList& folders, EntryList& widget);
CopyRecord Bind(FormWindow& window, FileList& files, EntryList& widget);
CopyRecord Bind(FormWindow& window, PictureBox& box, PictureView& widget);
CopyRecord Bind(FormWindow& window, ProgressBar& bar, QProgressBar& widget);
CopyRecord Bind(FormWindow& window, ScrollBar& bar, QAbstractSlider& widget);
CopyRecord Bind(FormWindow& window, Slider& slider, QAbstractSlider& widget);
CopyRecord Bind(FormWindow& window, TabControl& tabs, QTabWidget& widget);
CopyRecord Bind(FormWindow& window, TabPage& page, QWidget& widget);
CopyRecord Bind(FormWindow& window, Line& line, QFrame& widget);
CopyRecord Bind(FormWindow& window, VrmlView& view, VrmlWidget& widget);

/// Makes the menu bar of the form's menu items, if it has any; returns what copies them.
CopyRecord BindMenus(FormWindow& window, Form& form);

}  // namespace crownlab
