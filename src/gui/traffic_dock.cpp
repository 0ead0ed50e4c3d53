// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/traffic_dock.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "core/frm_start.h"
#include "gui/traffic_table.h"
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

}  // namespace

TrafficDock::TrafficDock(FrmStart& form, TrafficRules& rules, QWidget* parent)
    : FormDock(form, form.mnuTraffic, "traffic", parent), rules_(rules), model_(new TrafficModel(this)) {
  auto* middle = new QWidget(this);
  auto* lines = new QVBoxLayout(middle);
  SetSpaces(*lines, *this, 1);
  table_ = new TrafficTable(*model_, middle);
  auto* tools = new SideBySide(MakeFilter(middle), MakeButtons(middle), middle);
  tools->LetFirstGrow();
  lines->addWidget(tools);
  lines->addWidget(table_, 1);
  auto* keys = new QShortcut(QKeySequence::Copy, table_);
  keys->setContext(Qt::WidgetShortcut);
  connect(keys, &QShortcut::activated, this, &TrafficDock::Copy);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TrafficDock::ShowCounts);
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

void TrafficDock::Filter() {
  table_->SetFilter({.text = text_->text(),
                     .sent = sent_->isChecked(),
                     .received = received_->isChecked(),
                     .polls = polls_->isChecked()});
}

void TrafficDock::Pause(bool on) {
  model_->SetPaused(on);
}

void TrafficDock::Copy() {
  const std::vector<Traffic::Row> chosen = table_->SelectedRows();
  if (!chosen.empty()) QApplication::clipboard()->setText(TextOf(chosen));
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
