// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/change_marks.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QTableView>

#include "gui/parameter_model.h"
#include "tests/window/live_window.h"
#include "tests/window/studio.h"

namespace marlinset {
namespace {

/// With the milliseconds that the unit takes to answer.
class ChangeMarksTest : public testing::TestWithParam<int> {};

/// Off line, a mark stays on what was changed until it is undone or sent.
TEST_P(ChangeMarksTest, AreOnTheFieldsThatTheUnitDoesNotHold) {
  Studio studio(GetParam());
  FrmStart& form = studio.form;
  LiveWindow desk(studio);
  desk.Show(2);
  const auto marked = [&] {
    LiveWindow::Settle();
    QStringList names;
    for (const QWidget* field : desk.Window().findChildren<QWidget*>()) {
      if (field->accessibleDescription() == QStringLiteral("Not on the unit")) names << field->objectName();
    }
    return names.join(' ').toStdString();
  };
  form.bSConfig.OperatorClick();
  EXPECT_EQ(marked(), "");
  form.mnuOff.OperatorClick();
  desk.Click(desk.Widget("chOnOff(14)"));
  desk.ClickArrow(desk.Widget("udVer(14)"), false);
  EXPECT_EQ(marked(), "chOnOff(14) udVer(14)");
  desk.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(marked(), "chOnOff(14)");
  desk.Show(3);
  QAbstractItemModel& list = *dynamic_cast<QTableView&>(desk.Widget("pParIn")).model();
  FirstParameter(form).OperatorSpin(FirstParameter(form).Value() + 1);
  LiveWindow::Settle();
  EXPECT_TRUE(list.index(0, ParameterModel::kValue).data(ParameterModel::kUnheldRole).toBool());
  form.bSChanges.OperatorClick();
  EXPECT_EQ(marked(), "");
  EXPECT_FALSE(list.index(0, ParameterModel::kValue).data(ParameterModel::kUnheldRole).toBool());

  // The unit has acknowledged it, though a send would write the message in capitals and send it again.
  form.mnuInter.OperatorClick();
  form.tWinMess.OperatorType("take 7");
  EXPECT_FALSE(studio.tool.wholeSend.Changes().empty());
  EXPECT_EQ(marked(), "");
  EXPECT_EQ(desk.Window().findChild<QLabel*>("Changes")->text(), "");
}

INSTANTIATE_TEST_SUITE_P(AnswersAfter, ChangeMarksTest, testing::Values(0, 15, 40, 120));

}  // namespace
}  // namespace marlinset
