// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/comparison_window.h"

#include <gmock/gmock.h>

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "gui/comparison_model.h"
#include "tests/support/temp_folder.h"
#include "tests/window/live_window.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

struct ComparisonWindowTest : testing::Test {
  ComparisonWindowTest() {
    rig.tool.Start("", false);
    rig.tool.compareCommand.show = [this](const Offer& offer) { window.Show(offer); };
    rig.tool.compareCommand.Open(SAMPLE_FOLDER "version_2.qcf");
    LiveWindow::Settle();
  }
  std::string Count() const { return window.findChildren<QLabel*>().last()->text().toStdString(); }
  QPushButton& Button(const char* caption) const {
    for (auto* button : window.findChildren<QPushButton*>()) {
      if (button->text().remove(QLatin1Char('&')) == QLatin1String(caption)) return *button;
    }
    throw std::logic_error(caption);
  }
  void Key(QWidget& widget, Qt::Key key) {
    QTest::keyClick(&widget, key);
    LiveWindow::Settle();
  }
  void Drop(const char* file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QLatin1String(file))});
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) return;
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    LiveWindow::Settle();
  }

  ToolRig rig;
  LiveWindow desk{rig};
  ComparisonWindow window{rig.form, rig.tool.compareCommand, &desk.Window()};
  QLineEdit& filter = *window.findChild<QLineEdit*>();
  QTreeView& tree = *window.findChild<QTreeView*>();
};

TEST_F(ComparisonWindowTest, TakesOverWhatIsTickedAndShown) {
  const std::string message = rig.form.tWinMess.Text();
  Button("Tick All").click();
  EXPECT_TRUE(Button("Take Over").isEnabled());
  filter.setText(QStringLiteral("duration 300"));
  EXPECT_THAT(Count(), testing::HasSubstr(" 1 shown, 1 ticked"));
  Key(filter, Qt::Key_Return);
  EXPECT_EQ(rig.form.UDDur.Value(), 0) << "Enter takes nothing over";
  EXPECT_TRUE(Button("Take Over").isEnabled());
  Button("Take Over").click();
  LiveWindow::Settle();
  EXPECT_EQ(rig.form.UDDur.Value(), 300);
  EXPECT_EQ(rig.form.tWinMess.Text(), message) << "hidden by the filter";
  EXPECT_THAT(rig.tool.history.UndoNames(), ElementsAre("Take Over from version_2.qcf"));
  filter.clear();
  Key(tree, Qt::Key_End);
  Button("Tick All").click();
  Button("Take Over").click();
  LiveWindow::Settle();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Count().starts_with("0 differences"); }, 30000)) << Count();
}

/// Nor does a panel that the operator leaves from here put the main window's focus where keys go on air.
TEST_F(ComparisonWindowTest, SharesTheKeysOfTheMainWindow) {
  rig.form.UDDur.OperatorSpin(200);
  desk.Show(2);
  desk.Widget("UDDur").setFocus();
  window.activateWindow();
  LiveWindow::Settle();
  desk.Key(Qt::Key_Z, Qt::ControlModifier);
  desk.Key(Qt::Key_4, Qt::AltModifier);
  desk.Key(Qt::Key_F8);
  LiveWindow::Settle();
  EXPECT_EQ(rig.form.UDDur.Value(), 0);
  EXPECT_TRUE(rig.form.fParameters.Visible() && rig.form.mnuTraffic.Checked());
  EXPECT_EQ(desk.Window().focusWidget(), &desk.Widget("oView(3)"));
}

TEST_F(ComparisonWindowTest, FollowsThePanelsAndTakesADroppedFile) {
  Key(tree, Qt::Key_Space);
  EXPECT_THAT(Count(), testing::HasSubstr("1 ticked"));
  rig.form.UDDur.OperatorSpin(200);
  const auto* model = tree.model();
  const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, "slate duration", 1,
                                             Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  const QPersistentModelIndex here = found.front().siblingAtColumn(ComparisonModel::kHere);
  EXPECT_TRUE(QTest::qWaitFor([&] { return here.data().toString() == QLatin1String("200"); }, 30000));
  EXPECT_THAT(Count(), testing::HasSubstr("1 ticked"));

  Drop(SAMPLE_FOLDER "version_1.txt");
  Drop(SAMPLE_FOLDER "version_1.qcf");
  EXPECT_TRUE(window.windowTitle().startsWith(QLatin1String("Compare with version_1.qcf")));
  EXPECT_THAT(Count(), testing::HasSubstr("0 ticked"));
  Drop("/nowhere/lost.qcf");
  EXPECT_EQ(rig.dialogs.shown.back().icon, BoxIcon::kCritical);
  EXPECT_THAT(rig.TakeBoxes(), ElementsAre("This file cannot be compared."));
  EXPECT_TRUE(window.windowTitle().startsWith(QLatin1String("Compare with version_1.qcf"))) << "as it was";
  rig.fileDialog.choices = {SAMPLE_FOLDER "version_1.qcf"};
  for (int i = 0; i < 2; ++i) rig.form.mnuCompare.OperatorClick();
  EXPECT_EQ(rig.fileDialog.shown.back().initDir, SAMPLE_FOLDER) << "where the last one was";
  Key(filter, Qt::Key_V);
  Key(filter, Qt::Key_Escape);
  EXPECT_EQ(filter.text(), QString());
  Key(filter, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace marlinset
