// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/traffic_dock.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTableView>

#include "tests/support/temp_folder.h"
#include "tests/window/live_window.h"
#include "tests/window/studio.h"

namespace marlinset {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct TrafficDockTest : testing::Test {
  TrafficDockTest() {
    form_.mnuOff.OperatorClick();  // no polls of their own
    desk_.Show(0);
    desk_.Key(Qt::Key_F8);
    LiveWindow::Settle();
  }
  ~TrafficDockTest() override {
    EXPECT_THAT(desk_.Disagreements(), IsEmpty());
    EXPECT_THAT(studio_.Boxes(), IsEmpty());
  }

  /// The batches need not be waited for.
  void Update() {
    LiveWindow::Settle();
    dock_.Model().Update();
    LiveWindow::Settle();
  }
  void Press(const char* name) {
    desk_.Click(*desk_.Window().findChild<QWidget*>(QLatin1String(name)));
    Update();
  }
  /// Bytes that nobody understands, one row for each.
  void Come(int count) {
    for (; count > 0; --count) {
      studio_.line.SetGate(false);
      studio_.line.Inject({77}, studio_.pump.Now());
      studio_.pump.Pass(0);
    }
    Update();
  }
  int Rows() const { return dock_.widget()->findChild<QTableView*>()->model()->rowCount(); }
  bool Says(const char* words) const {
    for (const QLabel* label : dock_.findChildren<QLabel*>()) {
      if (label->text() == QLatin1String(words)) return true;
    }
    return false;
  }
  QScrollBar& Bar() { return *Table().verticalScrollBar(); }
  QTableView& Table() { return *dock_.findChild<QTableView*>(); }
  std::string Cell(int row, int column) {
    return Table().model()->index(row, column).data().toString().toStdString();
  }

  Studio studio_{15};
  FrmStart& form_ = studio_.form;
  LiveWindow desk_{studio_};
  TrafficDock& dock_ = *desk_.Window().findChild<TrafficDock*>();
};

TEST_F(TrafficDockTest, ShowsASendAndWhatIsAskedFor) {
  form_.bSConfig.OperatorClick();
  Update();
  const int all = Rows();
  EXPECT_EQ(all, 2 * studio_.tool.wholeSend.Result().messages) << "each message and its answer";
  EXPECT_EQ(Bar().value(), Bar().maximum());
  EXPECT_EQ(Cell(all - 2, 2), "Video status?");
  EXPECT_THAT(Cell(all - 4, 5), HasSubstr(" ms"));
  Press("TrafficPolls");
  EXPECT_EQ(Rows(), all - 6);
  Press("TrafficReceived");
  EXPECT_EQ(Rows(), all / 2 - 3);
  desk_.Window().findChild<QLineEdit*>(QStringLiteral("TrafficFilter"))->setFocus();
  desk_.Type("SLATE MODE");
  Update();
  EXPECT_GE(Rows(), 1);
  for (int row = 0; row < Rows(); ++row) EXPECT_THAT(Cell(row, 2), testing::StartsWith("Slate mode"));

  desk_.Click(*Table().viewport(), Table().visualRect(Table().model()->index(0, 2)).center());
  TurnQtsLoop();
  desk_.Key(Qt::Key_C, Qt::ControlModifier);
  TurnQtsLoop();
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(), HasSubstr("\tTo unit\tSlate mode"));

  desk_.Key(Qt::Key_F8);
  LiveWindow::Settle();
  EXPECT_TRUE(dock_.isHidden() && !dock_.Model().Recording());
  form_.bSConfig.OperatorClick();
  desk_.Key(Qt::Key_F8);
  Update();
  EXPECT_TRUE(Says("0 rows")) << "a hidden panel has heard nothing";
}

TEST_F(TrafficDockTest, KeepsItsPlaceAwayFromTheFootAndHoldsStillInAPause) {
  constexpr int kMost = static_cast<int>(Traffic::kMostRows);
  form_.bOpen.OperatorClick();
  Come(kMost);
  EXPECT_EQ(Rows(), kMost);
  EXPECT_EQ(Bar().value(), Bar().maximum());
  Bar().setValue(kMost / 2);
  const auto read = [&] { return dock_.Model().Rows().at(static_cast<std::size_t>(Bar().value()))->number; };
  const std::int64_t before = read();
  Come(3);
  EXPECT_EQ(Rows(), kMost) << "the oldest leave";
  EXPECT_EQ(read(), before);

  Press("TrafficPause");
  Come(7);
  EXPECT_TRUE(Says("Paused, 7 rows meanwhile"));
  EXPECT_EQ(dock_.Model().Rows().back()->number, kMost + 3);
  Press("TrafficPause");
  EXPECT_EQ(dock_.Model().Rows().back()->number, kMost + 10);
  EXPECT_EQ(Rows(), kMost);
  Bar().setValue(Bar().maximum());
  Come(1);
  EXPECT_EQ(Bar().value(), Bar().maximum());
  Press("TrafficClear");
  EXPECT_EQ(Rows(), 0);
}

TEST_F(TrafficDockTest, SharesTheWidthAndKeepsWhatIsSelected) {
  form_.bSConfig.OperatorClick();
  Update();
  QHeaderView& header = *Table().horizontalHeader();
  const int needed = header.length();
  const int bytes = Table().columnWidth(4);
  const QFontMetrics figures(Table().model()->index(0, 4).data(Qt::FontRole).value<QFont>());
  EXPECT_GE(bytes, figures.horizontalAdvance(QStringLiteral("02 08 02 08 21 03 40 14 04 0B 67")));
  desk_.Window().resize(desk_.Window().width() + 400, desk_.Window().height());
  LiveWindow::Settle();
  EXPECT_EQ(header.length(), Table().viewport()->width());
  EXPECT_GT(Table().columnWidth(4), bytes);
  Table().setColumnWidth(2, needed);
  desk_.Window().resize(desk_.Window().width() - 200, desk_.Window().height());
  LiveWindow::Settle();
  EXPECT_EQ(Table().columnWidth(2), needed) << "as the operator drew it";

  Table().selectRow(20);
  Table().scrollToTop();
  const std::string chosen = Cell(20, 4);
  Press("TrafficReceived");
  Press("TrafficReceived");
  const QModelIndexList selected = Table().selectionModel()->selectedRows();
  ASSERT_EQ(selected.size(), 1);
  EXPECT_EQ(Cell(selected[0].row(), 4), chosen);
  EXPECT_TRUE(Table().viewport()->rect().contains(Table().visualRect(selected[0])));
}

TEST_F(TrafficDockTest, SavesWhatIsListed) {
  const TempFolder folder;
  form_.bOpen.OperatorClick();
  Come(2);
  for (const auto& [entry, name, line] : {std::tuple(0, "log.txt", "From unit\tNot understood\t\t4D\t\n"),
                                          std::tuple(1, "log.csv", "From unit,Not understood,,4D,\n")}) {
    studio_.fileDialog.choices.push_back(folder.File(name));
    Press("TrafficSave");
    auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
    desk_.Click(menu, menu.actionGeometry(menu.actions().at(entry)).center());
    Update();
    const std::string content = folder.Read(name);
    EXPECT_THAT(content, testing::AllOf(testing::StartsWith("Time"), testing::EndsWith(line)));
    EXPECT_EQ(std::ranges::count(content, '\n'), 3);
  }
}

}  // namespace
}  // namespace marlinset
