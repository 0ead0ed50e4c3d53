// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/window_table.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "gui/bindings.h"
#include "gui/fields.h"
#include "gui/look.h"

namespace marlinset {
namespace {

constexpr int kNameCharacters = 18;
constexpr int kLeastRows = 6;

/// The heads in the order of the columns: the name, five boxes, two positions.
std::vector<Button*> Heads(FrmStart& form) {
  return {&form.bName,   &form.bOn,    &form.bSlate, &form.bDblHeight,
          &form.bSymbol, &form.bField, &form.bVer,   &form.bHor};
}

std::vector<ControlArray<CheckBox>*> Boxes(FrmStart& form) {
  return {&form.chOnOff, &form.chSlate, &form.chDblSize, &form.chSym, &form.chField};
}

/// A widget in the middle of a cell of fixed width, all of which is its control's to the mouse.
QWidget* MakeCell(QWidget* content, int width, QWidget* parent) {
  auto* cell = new QWidget(parent);
  auto* box = new QHBoxLayout(cell);
  box->setContentsMargins(0, 0, 0, 0);
  box->addWidget(content, 0, Qt::AlignCenter);
  cell->setFixedWidth(width);
  Binding::Of(*content).AddSurface(*cell);
  return cell;
}

}  // namespace

/// One row; the one under the pointer is tinted.
class WindowTable::RowStrip : public QWidget {
 public:
  RowStrip(Label& name, QWidget* parent) : QWidget(parent), name_(name) {
    setAttribute(Qt::WA_Hover);
    cells_ = new QHBoxLayout(this);
    SetSpaces(*cells_, *this);
    const int unit = SpaceUnit(*this);
    cells_->setContentsMargins(unit, unit / 3, unit, unit / 3);
    listening_.emplace_back(name.Changed, [this] { FollowName(); });
  }
  QHBoxLayout& Cells() { return *cells_; }
  /// Adds a cell around a field of the row.
  void AddField(QWidget* field, int width) {
    fields_.push_back(field);
    cells_->addWidget(MakeCell(field, width, this));
  }
  /// In reading order.
  const std::vector<QWidget*>& Fields() const { return fields_; }
  void FollowName() { setVisible(name_.Visible()); }
  /// The row's controls are about to go.
  void Release() {
    listening_.clear();
    Binding::Retire(*this);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    if (underMouse()) painter.fillRect(rect(), Blend(base, Accent(palette()), 0.18));
    painter.setPen(Blend(base, text, 0.1));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
  }

 private:
  Label& name_;
  QHBoxLayout* cells_;
  std::vector<QWidget*> fields_;
  std::vector<Listening<>> listening_;
};

WindowTable::WindowTable(FrmStart& form, QWidget* parent)
    : QWidget(parent), form_(form), gate_(new QWidget(this)), area_(new QScrollArea(this)) {
  MeasureColumns();
  QWidget* header = MakeHeader();
  gate_->setFocusPolicy(Qt::ClickFocus);  // one without any policy has no place in the order
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
  BindFlags(*sheet, form.pWinIn);
  BindFlags(*area_, form.pWinOut);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(header);
  rows->addWidget(area_, 1);
  form.ForWindowRow([this](auto& array) { Watch(array); });
  for (const int i : form.lName.Indices()) AddRow(i);
}

WindowTable::~WindowTable() = default;

QWidget* WindowTable::Row(int index) const {
  const auto found = rows_.find(index);
  return found == rows_.end() ? nullptr : found->second;
}

template <class T>
void WindowTable::Watch(ControlArray<T>& array) {
  listening_.emplace_back(array.Loaded, [this](int index) { AddRow(index); });
  listening_.emplace_back(array.Unloading, [this](int index) { RemoveRow(index); });
}

void WindowTable::AddRow(int index) {
  if (!form_.HasWindowRow(index) || rows_.contains(index)) return;
  auto* row = new RowStrip(form_.lName(index), area_->widget());
  FillRow(*row, index);
  const auto place = rows_.emplace(index, row).first;
  rowStack_->insertWidget(static_cast<int>(std::distance(rows_.begin(), place)), row);
  ArrangeTabs(index);
  row->FollowName();
}

/// A row may come at any time, but the Tab key reads the table from the top.
void WindowTable::ArrangeTabs(int index) {
  const auto place = rows_.find(index);
  QWidget* last = place == rows_.begin() ? gate_ : std::prev(place)->second->Fields().back();
  for (QWidget* field : place->second->Fields()) {
    QWidget::setTabOrder(last, field);
    last = field;
  }
}

void WindowTable::RemoveRow(int index) {
  const auto found = rows_.find(index);
  if (found == rows_.end()) return;
  rowStack_->removeWidget(found->second);
  found->second->Release();
  rows_.erase(found);
}

void WindowTable::MeasureColumns() {
  const int unit = SpaceUnit(*this);
  const SpinField spin(form_.udVer(0), form_.tVert(0), this);
  for (const Button* head : Heads(form_)) {
    widths_.push_back(fontMetrics().horizontalAdvance(Shown(head->Caption())) + 2 * unit);
  }
  // Not from the rows: their controls are hidden while they come.
  area_->setMinimumHeight(kLeastRows * (spin.sizeHint().height() + 2 * (unit / 3)));
  widths_.front() = fontMetrics().averageCharWidth() * kNameCharacters;
  for (std::size_t i = widths_.size() - 2; i < widths_.size(); ++i) {
    widths_[i] = std::max(widths_[i], spin.sizeHint().width() + unit);
  }
}

QWidget* WindowTable::MakeHeader() {
  auto* strip = new QWidget(this);
  headerCells_ = new QHBoxLayout(strip);
  SetSpaces(*headerCells_, *strip);
  const std::vector<Button*> heads = Heads(form_);
  for (std::size_t i = 0; i < heads.size(); ++i) {
    auto* label = new QLabel(strip);
    label->setTextFormat(Qt::PlainText);
    label->setText(Shown(heads[i]->Caption()));
    BindFlags(*label, *heads[i]);
    label->setAlignment(Qt::AlignVCenter | (i == 0 ? Qt::AlignLeft : Qt::AlignHCenter));
    if (i == 0) {
      label->setMinimumWidth(widths_[i]);
    } else {
      label->setFixedWidth(widths_[i]);
    }
    headerCells_->addWidget(label, i == 0 ? 1 : 0);
  }
  BindFlags(*strip, form_.pWinTools);
  return strip;
}

void WindowTable::FillRow(RowStrip& row, int index) {
  const std::vector<Button*> heads = Heads(form_);
  const auto nameOf = [&](std::size_t column) {
    return Shown(form_.lName(index).Caption() + ", " + heads[column]->Caption());
  };
  auto* name = new QLabel(&row);
  name->setMinimumWidth(widths_.front());
  // The gaps between the cells count as the name, so that the pointer can cross a row without a message.
  Bind(*name, form_.lName(index)).AddSurface(row);
  row.Cells().addWidget(name, 1);
  std::size_t column = 1;
  for (ControlArray<CheckBox>* boxes : Boxes(form_)) {
    auto* box = new QCheckBox(&row);
    Bind(*box, (*boxes)(index));
    box->setAccessibleName(nameOf(column));
    row.AddField(box, widths_[column++]);
  }
  const std::pair<SpinControl*, TextBox*> positions[] = {{&form_.udVer(index), &form_.tVert(index)},
                                                         {&form_.udHor(index), &form_.tHor(index)}};
  for (const auto& [spin, echo] : positions) {
    auto* field = new SpinField(*spin, *echo, &row);
    field->setAccessibleName(nameOf(column));
    row.AddField(field, widths_[column++]);
  }
}

bool WindowTable::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    // The heads stand over their columns whether there is a scroll bar or not.
    const int unit = SpaceUnit(*this);
    const int frame = area_->frameWidth();
    headerCells_->setContentsMargins(unit + frame, 0, unit + width() - frame - area_->viewport()->width(),
                                     unit);
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace marlinset
