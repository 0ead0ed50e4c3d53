// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/window_table.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <optional>
#include <utility>

#include "gui/widgets/fields.h"
#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"
#include "gui/widgets/widget_bindings.h"
#include "gui/window_selection.h"

namespace marlinset {
namespace {

// Letters of the name column: the least, and the most, so that on a wide screen a name stays close to its
// boxes.
constexpr int kNameCharacters = 18;
constexpr int kWidestName = 34;
constexpr int kLeastRows = 6;
constexpr int kChosenBar = 4;

/// A column of boxes, or of spins with their echoes.
struct Column {
  Button FrmStart::*head;
  ControlArray<CheckBox> FrmStart::*boxes;
  ControlArray<SpinControl> FrmStart::*spins = nullptr;
  ControlArray<TextBox> FrmStart::*echoes = nullptr;
};
/// In their order behind the name.
constexpr Column kWindowColumns[] = {
    {&FrmStart::bOn, &FrmStart::chOnOff},
    {&FrmStart::bSlate, &FrmStart::chSlate},
    {&FrmStart::bDblHeight, &FrmStart::chDblSize},
    {&FrmStart::bSymbol, &FrmStart::chSym},
    {&FrmStart::bField, &FrmStart::chField},
    {&FrmStart::bVer, nullptr, &FrmStart::udVer, &FrmStart::tVert},
    {&FrmStart::bHor, nullptr, &FrmStart::udHor, &FrmStart::tHor},
};

QWidget* MakeField(FrmStart& form, const Column& column, int row, QWidget* parent) {
  if (!column.boxes) return new SpinField((form.*column.spins)(row), (form.*column.echoes)(row), parent);
  auto* box = new QCheckBox(parent);
  Bind(*box, (form.*column.boxes)(row));
  return box;
}

QWidget* MakeCell(QWidget* content, Qt::Alignment at, QWidget* parent) {
  auto* cell = new QWidget(parent);
  auto* box = new QHBoxLayout(cell);
  box->setContentsMargins(0, 0, 0, 0);
  box->addWidget(content, 0, at);
  return cell;
}

}  // namespace

/// One row; the one under the pointer is tinted.
class WindowTable::RowStrip : public QWidget {
 public:
  RowStrip(Label& name, WindowTable& table, QWidget* parent) : QWidget(parent), name_(name), table_(table) {
    setAttribute(Qt::WA_Hover);
    cells_ = new QHBoxLayout(this);
    SetSpaces(*cells_, *this);
    const int unit = SpaceUnit(*this);
    cells_->setContentsMargins(unit, unit / 3, unit, unit / 3);
    listening_.emplace_back(name.Changed, [this] { FollowName(); });
  }
  void AddName(QLabel* label) {
    nameCell_ = MakeCell(label, {}, this);
    cells_->addWidget(nameCell_, 1);
  }
  /// Adds a field in the middle of a cell of fixed width; to the mouse the whole cell is the control's.
  void AddField(QWidget* field, const QString& head, int width) {
    fields_.push_back(field);
    heads_ << head;
    QWidget* cell = MakeCell(field, Qt::AlignCenter, this);
    cell->setFixedWidth(width);
    Binding::Of(*field).AddSurface(*cell);
    cells_->addWidget(cell);
  }
  /// In reading order.
  const std::vector<QWidget*>& Fields() const { return fields_; }
  void FollowName() {
    setVisible(name_.Visible());
    if (!name_.Visible()) table_.Tint(this, false);
    if (Shown(name_.Caption()) != spoken_) SpeakName(Shown(name_.Caption()));
  }
  /// The row's controls are about to be destroyed.
  void Release() {
    listening_.clear();
    table_.Tint(this, false);
    Binding::Retire(*this);
  }

 protected:
  bool event(QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type == QEvent::HoverEnter || type == QEvent::HoverMove) table_.Tint(this, true);
    if (type == QEvent::HoverLeave) table_.Tint(this, false);
    return QWidget::event(event);
  }
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    if (table_.tinted_ == this) painter.fillRect(rect(), Blend(base, Accent(palette()), 0.18));
    if (table_.chosen_ == this) painter.fillRect(QRect(0, 0, kChosenBar, height()), Accent(palette()));
    painter.setPen(Blend(base, text, 0.1));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
  }

 private:
  /// A row is created before it has its name; a screen reader says both for each field.
  void SpeakName(const QString& name) {
    spoken_ = name;
    nameCell_->setToolTip(
        name + QStringLiteral("\nIn interactive mode, rest the pointer here: the unit lights this window."));
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      fields_[i]->setAccessibleName(name + QStringLiteral(", ") + heads_.at(static_cast<qsizetype>(i)));
    }
  }

  Label& name_;
  WindowTable& table_;
  QHBoxLayout* cells_;
  QWidget* nameCell_ = nullptr;
  std::optional<QString> spoken_;
  std::vector<QWidget*> fields_;
  QStringList heads_;
  std::vector<Listening<>> listening_;
};

WindowTable::WindowTable(FrmStart& form, std::shared_ptr<WindowSelection> selection, QWidget* parent)
    : QWidget(parent),
      form_(form),
      selection_(std::move(selection)),
      gate_(new QWidget(this)),
      area_(new QScrollArea(this)),
      selectionListening_(selection_->Changed, [this] { ShowSelected(); }) {
  MeasureColumns();
  QWidget* header = MakeHeader();
  gate_->setFocusPolicy(Qt::ClickFocus);  // without a policy it has no place in the order
  gate_->hide();
  auto* sheet = new QWidget;
  sheet->setBackgroundRole(QPalette::Base);
  rowStack_ = new QVBoxLayout(sheet);
  rowStack_->setContentsMargins(0, 0, 0, 0);
  rowStack_->setSpacing(0);
  rowStack_->addStretch(1);
  area_->setWidgetResizable(true);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(sheet);
  area_->viewport()->installEventFilter(this);
  new ScrollKeeper(*area_, form.bSConfig);
  BindFlags(*sheet, form.pWinIn);
  BindFlags(*area_, form.pWinOut);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(header);
  rows->addWidget(area_, 1);
  form.ForWindowRow([this](auto& array) { Watch(array); });
  for (const int row : form.lName.Indices()) AddRow(row);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { SelectRowOf(now); });
}

WindowTable::~WindowTable() = default;

QWidget* WindowTable::Row(int row) const {
  const auto found = rows_.find(row);
  return found == rows_.end() ? nullptr : found->second;
}

template <class T>
void WindowTable::Watch(ControlArray<T>& array) {
  listening_.emplace_back(array.Loaded, [this](int row) { AddRow(row); });
  listening_.emplace_back(array.Unloading, [this](int row) { RemoveRow(row); });
}

void WindowTable::AddRow(int row) {
  if (!form_.HasWindowRow(row) || rows_.contains(row)) return;
  auto* strip = new RowStrip(form_.lName(row), *this, area_->widget());
  FillRow(*strip, row);
  const auto place = rows_.emplace(row, strip).first;
  rowStack_->insertWidget(static_cast<int>(std::distance(rows_.begin(), place)), strip);
  ArrangeTabs(row);
  strip->FollowName();
  if (row == selection_->Row()) MarkSelected();
}

/// A row may be added at any time, but the Tab key walks the table from the top.
void WindowTable::ArrangeTabs(int row) {
  const auto place = rows_.find(row);
  QWidget* last = place == rows_.begin() ? gate_ : std::prev(place)->second->Fields().back();
  for (QWidget* field : place->second->Fields()) {
    QWidget::setTabOrder(last, field);
    last = field;
  }
}

void WindowTable::RemoveRow(int row) {
  const auto found = rows_.find(row);
  if (found == rows_.end()) return;
  rowStack_->removeWidget(found->second);
  if (chosen_ == found->second) chosen_ = nullptr;
  found->second->Release();
  rows_.erase(found);
}

void WindowTable::MeasureColumns() {
  const int unit = SpaceUnit(*this);
  // Not from the rows: their controls are hidden while they are added.
  const SpinField spin(form_.udVer(0), form_.tVert(0), this);
  area_->setMinimumHeight(kLeastRows * (spin.sizeHint().height() + 2 * (unit / 3)));
  for (const Column& column : kWindowColumns) {
    const int head = fontMetrics().horizontalAdvance(Shown((form_.*column.head).Caption())) + 2 * unit;
    widths_.push_back(column.spins ? std::max(head, spin.sizeHint().width() + unit) : head);
  }
}

QWidget* WindowTable::MakeHeader() {
  auto* strip = new QWidget(this);
  headerCells_ = new QHBoxLayout(strip);
  SetSpaces(*headerCells_, *strip);
  const auto add = [&](Button& head, Qt::Alignment at, int stretch) {
    auto* label = new QLabel(strip);
    label->setTextFormat(Qt::PlainText);
    label->setText(Shown(head.Caption()));
    BindFlags(*label, head);
    label->setAlignment(Qt::AlignVCenter | at);
    headerCells_->addWidget(label, stretch);
    return label;
  };
  add(form_.bName, Qt::AlignLeft, 1)->setMinimumWidth(LeastNameWidth());
  for (std::size_t i = 0; i < std::size(kWindowColumns); ++i) {
    add(form_.*kWindowColumns[i].head, Qt::AlignHCenter, 0)->setFixedWidth(widths_[i]);
  }
  BindFlags(*strip, form_.pWinTools);
  return strip;
}

void WindowTable::FillRow(RowStrip& strip, int row) {
  auto* name = new QLabel(&strip);
  name->setMinimumWidth(LeastNameWidth());
  // The gaps between the cells count as the name, so that the pointer can cross a row without a message.
  strip.AddName(name);
  Binding& binding = Bind(*name, form_.lName(row));
  for (QWidget* around : {name->parentWidget(), static_cast<QWidget*>(&strip)}) binding.AddSurface(*around);
  for (std::size_t i = 0; i < std::size(kWindowColumns); ++i) {
    const Column& column = kWindowColumns[i];
    strip.AddField(MakeField(form_, column, row, &strip), Shown((form_.*column.head).Caption()), widths_[i]);
  }
}

/// Between entering a row and leaving another there may be a wait for the unit: the last one counts.
void WindowTable::Tint(RowStrip* strip, bool on) {
  if (on == (tinted_ == strip)) return;
  if (tinted_) tinted_->update();
  tinted_ = on ? strip : nullptr;
  if (tinted_) tinted_->update();
}

int WindowTable::LeastNameWidth() const {
  return fontMetrics().averageCharWidth() * kNameCharacters;
}

void WindowTable::MarkSelected() {
  const auto found = rows_.find(selection_->Row());
  RowStrip* strip = found == rows_.end() ? nullptr : found->second;
  for (RowStrip* changed : {std::exchange(chosen_, strip), strip}) {
    if (changed) changed->update();
  }
}

void WindowTable::ShowSelected() {
  MarkSelected();
  if (!chosen_ || !isVisible() || chosen_->isAncestorOf(QApplication::focusWidget())) return;
  for (QWidget* around = chosen_->parentWidget(); around; around = around->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(around)) {
      area->ensureWidgetVisible(chosen_, 0, chosen_->height());
    }
  }
}

void WindowTable::SelectRowOf(const QWidget* field) {
  const auto holds = [field](const auto& row) { return row.second->isAncestorOf(field); };
  const auto found = field ? std::find_if(rows_.begin(), rows_.end(), holds) : rows_.end();
  if (found != rows_.end()) selection_->Select(found->first);
}

/// The panel may have been hidden when a window was selected.
void WindowTable::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowSelected();
}

int WindowTable::RoomForNames() const {
  return fontMetrics().averageCharWidth() * (kWidestName - kNameCharacters);
}

bool WindowTable::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    // The heads are above their columns with or without a scroll bar.
    const int unit = SpaceUnit(*this);
    const int frame = area_->frameWidth();
    headerCells_->setContentsMargins(unit + frame, 0, unit + width() - frame - area_->viewport()->width(),
                                     unit);
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace marlinset
