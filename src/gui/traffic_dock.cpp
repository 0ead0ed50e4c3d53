// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/traffic_dock.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include "core/frm_start.h"
#include "gui/widgets/buttons.h"
#include "gui/widgets/filter_field.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/operator_queue.h"

namespace marlinset {
namespace {

constexpr int kFilterCharacters = 20;

QString Counted(std::size_t rows) {
  return QLocale().toString(static_cast<qulonglong>(rows));
}

/// Columns as wide as what they usually hold; the bytes take the rest.
void SetColumns(QTableView& table) {
  constexpr int kBytes = 4;
  constexpr const char* kUsual[kTrafficColumns] = {
      "00:00:00.000", "From unit", "Video status: 1080i/60, automatic", "15 0 192 12 5 100 0 0 0", "",
      "Acknowledged"};
  QHeaderView& header = *table.horizontalHeader();
  const QFontMetrics figures(FixedFont());
  const int unit = SpaceUnit(table);
  header.setMinimumSectionSize(FiguresWidth(table, 10));
  for (int column = 0; column < static_cast<int>(kTrafficColumns); ++column) {
    const QString usual = QLatin1String(kUsual[column]);
    const int width =
        std::max(figures.horizontalAdvance(usual), table.fontMetrics().horizontalAdvance(usual));
    header.resizeSection(column, width + 3 * unit);
  }
  header.setSectionResizeMode(kBytes, QHeaderView::Stretch);
  header.setHighlightSections(false);
  header.setSectionsClickable(false);
}

}  // namespace

TrafficDock::TrafficDock(FrmStart& form, TrafficRules& rules, QWidget* parent)
    : FormDock(form, form.mnuTraffic, "traffic", parent), rules_(rules), model_(new TrafficModel(this)) {
  auto* middle = new QWidget(this);
  auto* lines = new QVBoxLayout(middle);
  SetSpaces(*lines, *this, 1);
  table_ = new QTableView(middle);
  auto* tools = new SideBySide(MakeFilter(middle), MakeButtons(middle), middle);
  tools->LetFirstGrow();
  lines->addWidget(tools);
  lines->addWidget(table_, 1);
  SetUpTable();
  FollowNewest();
  setWidget(middle);
  connect(model_, &TrafficModel::Updated, this, &TrafficDock::ShowCounts);
  ShowCounts();
  TrafficDock::FollowForm();
}

TrafficDock::~TrafficDock() = default;

void TrafficDock::FollowForm() {
  FormDock::FollowForm();
  if (Open() != model_->Recording()) model_->Show(Open() ? rules_.Record() : nullptr);
}

QWidget* TrafficDock::MakeFilter(QWidget* parent) {
  auto* strip = new QWidget(parent);
  auto* row = new QHBoxLayout(strip);
  SetSpaces(*row, *strip);
  text_ = new FilterField(QStringLiteral("TrafficFilter"), QStringLiteral("Filter the traffic"), strip);
  text_->setPlaceholderText(QStringLiteral("Filter"));
  text_->setFixedWidth(FiguresWidth(*text_, kFilterCharacters));
  connect(text_, &FilterField::textChanged, this, &TrafficDock::Filter);
  connect(text_, &FilterField::Left, table_, [this] { table_->setFocus(Qt::OtherFocusReason); });
  row->addWidget(text_);
  const auto addTick = [&](const QString& caption, const char* name, const QString& tip) {
    auto* box = new QCheckBox(caption, strip);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(tip);
    box->setChecked(true);
    connect(box, &QCheckBox::toggled, this, &TrafficDock::Filter);
    row->addWidget(box);
    return box;
  };
  sent_ = addTick(QStringLiteral("Sent"), "TrafficSent", QStringLiteral("List what the tool sent"));
  received_ =
      addTick(QStringLiteral("Received"), "TrafficReceived", QStringLiteral("List what came from the unit"));
  polls_ = addTick(QStringLiteral("Polls"), "TrafficPolls",
                   QStringLiteral("List the tool's queries and what answers them"));
  row->addStretch(1);
  return strip;
}

QPushButton* TrafficDock::AddButton(const QString& text, const char* name, QWidget& strip) {
  auto* button = new BarButton(text, &strip);
  button->setObjectName(QLatin1String(name));
  strip.layout()->addWidget(button);
  return button;
}

QWidget* TrafficDock::MakeButtons(QWidget* parent) {
  auto* strip = new QWidget(parent);
  auto* row = new QHBoxLayout(strip);
  SetSpaces(*row, *strip);
  counts_ = new QLabel(strip);
  counts_->setMinimumWidth(
      counts_->fontMetrics().horizontalAdvance(QStringLiteral("Paused, 10,000 rows meanwhile")));
  counts_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(counts_);
  QPushButton* pause = AddButton(QStringLiteral("Pause"), "TrafficPause", *strip);
  pause->setCheckable(true);
  pause->setToolTip(QStringLiteral("Hold the list still; recording goes on"));
  connect(pause, &QPushButton::toggled, this, &TrafficDock::Pause);
  QPushButton* clear = AddButton(QStringLiteral("Clear"), "TrafficClear", *strip);
  connect(clear, &QPushButton::clicked, this, [this] { model_->Clear(); });
  copy_ = AddButton(QStringLiteral("Copy"), "TrafficCopy", *strip);
  copy_->setToolTip(QStringLiteral("Copy the selected rows, with tabs between the columns"));
  connect(copy_, &QPushButton::clicked, this, &TrafficDock::Copy);
  QPushButton* save = AddButton(QStringLiteral("Save..."), "TrafficSave", *strip);
  save->setToolTip(QStringLiteral("Write the listed rows into a file"));
  auto* formats = new QMenu(save);
  const std::pair<const char*, TrafficRules::Format> kFormats[] = {
      {"As &Text...", TrafficRules::Format::kText}, {"As &CSV...", TrafficRules::Format::kCsv}};
  for (const auto& [caption, format] : kFormats) {
    connect(formats->addAction(QLatin1String(caption)), &QAction::triggered, this,
            [this, format = format] { Save(format); });
  }
  // It does not wait for a choice: the tool goes on meanwhile.
  connect(save, &QPushButton::clicked, formats,
          [formats, save] { formats->popup(save->mapToGlobal(save->rect().bottomLeft())); });
  row->addStretch(1);
  return strip;
}

void TrafficDock::SetUpTable() {
  table_->setObjectName(QStringLiteral("TrafficTable"));
  table_->setAccessibleName(QStringLiteral("Traffic on the line"));
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setAlternatingRowColors(false);  // rows leave at the top: the stripes would change places
  table_->setShowGrid(false);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);  // Tab goes on to the next field, as everywhere
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  QHeaderView& rows = *table_->verticalHeader();
  rows.hide();
  rows.setMinimumSectionSize(1);
  rows.setSectionResizeMode(QHeaderView::Fixed);
  rows.setDefaultSectionSize(table_->fontMetrics().height() + SpaceUnit(*table_));
  SetColumns(*table_);
  auto* keys = new QShortcut(QKeySequence::Copy, table_);
  keys->setContext(Qt::WidgetShortcut);
  connect(keys, &QShortcut::activated, this, &TrafficDock::Copy);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TrafficDock::ShowCounts);
}

/// At the foot the table follows what comes. Elsewhere it stays at the rows that the operator reads, also
/// when the oldest leave.
void TrafficDock::FollowNewest() {
  QScrollBar* bar = table_->verticalScrollBar();
  connect(bar, &QScrollBar::valueChanged, this, [this, bar] { atFoot_ = bar->value() == bar->maximum(); });
  // The view extends the range some time after the rows have come.
  connect(bar, &QScrollBar::rangeChanged, this, [this, bar] {
    if (atFoot_) bar->setValue(bar->maximum());
  });
  connect(model_, &QAbstractItemModel::rowsRemoved, this,
          [this, bar](const QModelIndex&, int first, int last) {
            if (first == 0 && !atFoot_) bar->setValue(bar->value() - (last + 1));
          });
  connect(model_, &QAbstractItemModel::modelReset, this, [this, bar] {
    bar->setValue(bar->maximum());
    atFoot_ = true;
  });
}

void TrafficDock::Filter() {
  model_->SetFilter({.text = text_->text(),
                     .sent = sent_->isChecked(),
                     .received = received_->isChecked(),
                     .polls = polls_->isChecked()});
}

void TrafficDock::Pause(bool on) {
  model_->SetPaused(on);
}

void TrafficDock::Copy() {
  QModelIndexList selected = table_->selectionModel()->selectedRows();
  if (selected.isEmpty()) return;
  std::sort(selected.begin(), selected.end());
  const std::vector<Traffic::Row> rows = model_->Rows();
  std::vector<Traffic::Row> chosen;
  for (const QModelIndex& cell : selected) chosen.push_back(rows.at(static_cast<std::size_t>(cell.row())));
  QApplication::clipboard()->setText(TextOf(chosen));
}

void TrafficDock::Save(TrafficRules::Format format) {
  OperatorQueue::OfProgram().Take(GetForm(), *this,
                                  [this, format, rows = model_->Rows()] { rules_.Save(rows, format); });
}

void TrafficDock::ShowCounts() {
  const auto listed = static_cast<std::size_t>(model_->rowCount());
  const std::size_t recorded = model_->Recorded();
  QString text = listed == recorded ? Counted(recorded) + QStringLiteral(" rows")
                                    : QStringLiteral("%1 of %2 rows").arg(Counted(listed), Counted(recorded));
  if (model_->Paused())
    text =
        QStringLiteral("Paused, %1 rows meanwhile").arg(Counted(static_cast<std::size_t>(model_->Waiting())));
  if (text != counts_->text()) counts_->setText(text);
  copy_->setEnabled(table_->selectionModel()->hasSelection());
}

}  // namespace marlinset
