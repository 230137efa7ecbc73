#include "desktop/map_points_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/map_points_painter.h"

namespace crownlab {
namespace {

QPushButton* AddButton(QLayout& layout, const char* name, const QString& text, const QString& tip) {
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    layout.addWidget(button);
    return button;
}

QTableWidgetItem* Cell(const QString& text, Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter) {
    auto* const item = new QTableWidgetItem(text);
    item->setTextAlignment(alignment);
    return item;
}

QTableWidget* MakeTable(QWidget* parent) {
    auto* const table = new QTableWidget(0, 4, parent);
    table->setObjectName("tablePoints");
    table->setHorizontalHeaderLabels({"No.", "x", "y", "Height"});
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    return table;
}

}  // namespace

MapPointsPanel::MapPointsPanel(QWidget* parent)
    : QWidget(parent),
      notice_(new QLabel),
      table_(MakeTable(this)),
      empty_(new QLabel),
      folder_(new QLabel),
      name_(new QLineEdit) {
    auto* const column = new QVBoxLayout(this);
    notice_->setObjectName("labelNotice");
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setStyleSheet("background: #fff3cd; color: #5c4400; border: 1px solid #e6cf8a; padding: 6px;");
    notice_->hide();
    column->addWidget(notice_);
    empty_->setObjectName("labelEmpty");
    empty_->setText(
        "Choose Digitise and click on the map. Drag a point to move it; press Delete to take the chosen one out.");
    empty_->setWordWrap(true);
    column->addWidget(empty_);
    column->addWidget(table_, 1);

    auto* const buttons = new QHBoxLayout;
    nextArea_ =
        AddButton(*buttons, "buttonNextArea", "Next area", "The points that follow belong to an area of their own");
    delete_ = AddButton(*buttons, "buttonDelete", "Delete", "Takes the chosen point out (Delete)");
    undo_ = AddButton(*buttons, "buttonUndo", "Undo", "Takes the last change back (Ctrl+Z)");
    column->addLayout(buttons);

    folder_->setObjectName("labelFolder");
    folder_->setTextFormat(Qt::PlainText);
    folder_->setWordWrap(true);
    folder_->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(folder_);
    auto* const saving = new QHBoxLayout;
    name_->setObjectName("editFileName");
    saving->addWidget(name_, 1);
    save_ = AddButton(*saving, "buttonSave", "Save points", "Writes the points into that file (Ctrl+S)");
    column->addLayout(saving);

    connect(nextArea_, &QPushButton::clicked, this, [this] { OnNextArea(); });
    connect(delete_, &QPushButton::clicked, this, [this] { OnDelete(); });
    connect(undo_, &QPushButton::clicked, this, [this] { OnUndo(); });
    connect(save_, &QPushButton::clicked, this, [this] { OnSave(); });
    connect(name_, &QLineEdit::returnPressed, this, [this] {
        if (save_->isEnabled()) OnSave();
    });
    connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { TellSelection(); });
    setMinimumWidth(sizeHint().width());
}

void MapPointsPanel::TellSelection() {
    if (filling_) return;
    const int row = table_->currentRow();
    const bool any = row >= 0 && !table_->selectedItems().isEmpty();
    OnSelect(any ? std::optional(rows_[static_cast<std::size_t>(row)]) : std::nullopt);
}

void MapPointsPanel::Show(const DigitisedPoints& points, std::optional<PointPlace> selected,
                          const std::function<QString(const PlanePoint&)>& heightOf, int decimals) {
    filling_ = true;
    rows_.clear();
    table_->setRowCount(static_cast<int>(points.Count()));
    int chosen = -1;
    for (std::size_t area = 0; area < points.Areas().size(); ++area) {
        for (std::size_t index = 0; index < points.Areas()[area].size(); ++index) {
            const PointPlace place{area, index};
            const PlanePoint& point = points.At(place);
            const int row = static_cast<int>(rows_.size());
            rows_.push_back(place);
            table_->setItem(row, 0, Cell(PointNumber(points.Areas(), place), Qt::AlignCenter));
            table_->setItem(row, 1, Cell(QString::number(point.x, 'f', decimals)));
            table_->setItem(row, 2, Cell(QString::number(point.y, 'f', decimals)));
            table_->setItem(row, 3, Cell(heightOf(point)));
            if (place == selected) chosen = row;
        }
    }
    table_->clearSelection();
    if (chosen >= 0) {
        table_->setCurrentCell(chosen, 0);
        table_->selectRow(chosen);
        table_->scrollToItem(table_->item(chosen, 0));
    }
    empty_->setVisible(rows_.empty());
    nextArea_->setEnabled(!points.Areas().back().empty());
    delete_->setEnabled(chosen >= 0);
    undo_->setEnabled(points.CanUndo());
    save_->setEnabled(!rows_.empty());
    save_->setText(points.IsSaved() && !rows_.empty() ? "Saved" : "Save points");
    filling_ = false;
}

void MapPointsPanel::SetTarget(const QString& folder, const QString& name) {
    folderPath_ = folder;
    folder_->setText("Save in " + folder + " as");
    name_->setText(name);
}

QString MapPointsPanel::FileName() const { return name_->text().trimmed(); }

void MapPointsPanel::SetNotice(const QString& text) {
    notice_->setText(text);
    notice_->setVisible(!text.isEmpty());
}

}  // namespace crownlab
