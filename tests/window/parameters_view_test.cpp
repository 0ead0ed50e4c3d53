// SPDX-License-Identifier: GPL-3.0-or-later
// The Parameters panel under mouse and keyboard: filter, several rows, clipboard, references.
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTableView>

#include "gui/parameter_model.h"
#include "tests/window/live_window.h"
#include "tests/window/studio.h"

namespace marlinset {
namespace {

struct ParametersViewTest : testing::Test {
  ParametersViewTest() { desk_.Show(3); }
  void Filter(const char* text) {
    desk_.Key(Qt::Key_F, Qt::ControlModifier);
    desk_.Key(Qt::Key_Escape);
    desk_.Key(Qt::Key_F, Qt::ControlModifier);
    desk_.Type(text);
    desk_.Settle();
  }
  std::string Rows() const {
    std::string rows;
    for (int row = 0; row < model_.rowCount(); ++row) {
      const ParameterKey key = model_.RecordOf(row)->Key();
      rows += std::to_string(key.parameterClass) + "." + std::to_string(key.number) + " ";
    }
    return rows;
  }
  std::string Values() const {
    std::string values;
    for (int row = 0; row < model_.rowCount(); ++row) {
      const bool differs = model_.index(row, 0).data(ParameterModel::kDiffersRole).toBool();
      values +=
          model_.index(row, ParameterModel::kValue).data().toString().toStdString() + (differs ? "* " : " ");
    }
    return values;
  }
  void Press(int key) {
    desk_.Key(key, Qt::ControlModifier);
    desk_.Settle();
  }

  Studio studio_{15};
  FrmStart& form_ = studio_.form;
  LiveWindow desk_{studio_};
  QTableView& table_ = dynamic_cast<QTableView&>(desk_.Widget("pParIn"));
  ParameterModel& model_ = dynamic_cast<ParameterModel&>(*table_.model());
  QClipboard& clipboard_ = *QGuiApplication::clipboard();
};

TEST_F(ParametersViewTest, TheFilterFindsByClassNumberTextAndValue) {
  const int all = model_.rowCount();
  for (const auto& [text, rows] :
       std::vector<std::pair<const char*, const char*>>{{"2.3", "2.3 "},
                                                        {"3.", "3.0 3.1 3.2 3.3 3.4 3.5 "},
                                                        {"vitc  LINE", "2.2 2.3 4.4 "},
                                                        {"550", "4.0 "},
                                                        {"2 level", "2.1 3.2 4.2 "},
                                                        {"nothing like it", ""}}) {
    Filter(text);
    EXPECT_EQ(Rows(), rows) << text;
  }
  form_.bValue.OperatorClick();
  Filter("226");
  EXPECT_EQ(Rows(), "4.0 ") << "550 in the radix of the list";
  desk_.Key(Qt::Key_Escape);
  desk_.Settle();
  EXPECT_EQ(model_.rowCount(), all);
}

TEST_F(ParametersViewTest, AFilteredListIsEditedSentSortedAndUndone) {
  Filter("2.");
  const std::string rows = Rows();
  const std::string before = Values();
  desk_.Key(Qt::Key_Return);
  desk_.Key(Qt::Key_F2);
  desk_.Type("77");
  desk_.Key(Qt::Key_Return);
  desk_.Settle();
  EXPECT_EQ(Values(), "77* " + before.substr(before.find(' ') + 1));
  form_.bSConfig.OperatorClick();
  desk_.Settle();
  EXPECT_EQ(Rows(), rows) << "a send marks hidden rows as well";
  form_.bDesc.OperatorClick();
  form_.bClass.OperatorClick();
  desk_.Settle();
  EXPECT_EQ(Rows(), rows);
  Press(Qt::Key_Z);
  EXPECT_EQ(Values(), before);

  table_.setFocus();
  desk_.Key(Qt::Key_F2);
  desk_.Type("78");
  desk_.Settle();
  QFocusEvent menu(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QApplication::sendEvent(QApplication::focusWidget(), &menu);
  Press(Qt::Key_S);
  EXPECT_EQ(Values(), "78* " + before.substr(before.find(' ') + 1)) << "a menu takes nothing that was typed";
  Press(Qt::Key_Z);

  Filter("zzz");
  desk_.Key(Qt::Key_Down);
  Press(Qt::Key_C);
  EXPECT_EQ(Rows(), "");
  EXPECT_THAT(desk_.Disagreements(), testing::IsEmpty());
}

TEST_F(ParametersViewTest, SeveralRowsAreCopiedPastedAndReset) {
  Filter("2.");
  const std::string before = Values();
  desk_.Key(Qt::Key_Return);
  desk_.Key(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C);
  const QString copied = clipboard_.text();
  EXPECT_EQ(copied.count(QLatin1Char('\n')), 8) << "only what the filter leaves";
  studio_.line.ClearSent();
  clipboard_.setText(QStringLiteral("5"));
  Press(Qt::Key_V);
  EXPECT_EQ(Values(), "5* 5* 5* 5* 5* 5* 5* ");
  EXPECT_EQ(studio_.line.SentFields().size(), 7U);
  desk_.Click(desk_.Widget("resetToReference"));
  desk_.Settle();
  EXPECT_EQ(Values(), before);
  clipboard_.setText(QStringLiteral("12"));
  desk_.Key(Qt::Key_F2);
  Press(Qt::Key_V);
  desk_.Key(Qt::Key_Return);
  desk_.Settle();
  EXPECT_EQ(Values(), "12* " + before.substr(before.find(' ') + 1))
      << "the number that is being edited takes it";
  const std::vector<std::string> names = studio_.tool.history.UndoNames();
  EXPECT_EQ(names.at(1) + ", " + names.at(2), "Reset to Reference, Paste Parameters");
}

}  // namespace
}  // namespace marlinset
