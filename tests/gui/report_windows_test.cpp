// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QKeySequence>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "gui/about_window.h"
#include "gui/qt_dialogs.h"
#include "gui/qt_form_printer.h"
#include "platform/qt/sheet_painter.h"
#include "tests/gui/form_fixture.h"
#include "tests/support/fake_printer.h"

namespace marlinset {
namespace {

class ReportWindowsTest : public FormTest {};

TEST_F(ReportWindowsTest, TheAboutWindowFollowsItsForm) {
  FrmAbout about(guard_);
  about.SetCaption("About it");
  about.lblVersion.SetCaption("Release 1.2.3");
  about.cmdOK.OnClick([&] { about.SetVisible(false); });
  int asked = 0;
  about.cmdSysInfo.OnClick([&] { ++asked; });
  QtDialogs dialogs;
  dialogs.AddWindow(about, [&](Form&, QWidget* parent) { return MakeAboutWindow(about, parent); });
  for (const bool byButton : {true, false}) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
      QWidget* window = QApplication::activeModalWidget();
      if (!window) return;
      seen = about.Visible() && window->windowTitle() == "About it" &&
             Widget<QLabel>(*window, "lblVersion").text() == "Release 1.2.3";
      EXPECT_GT(Widget<QLabel>(*window, "Picture1").geometry().bottom(),
                Widget<QLabel>(*window, "lblTitle").geometry().top())
          << "beside the title";
      auto& info = Widget<QPushButton>(*window, "cmdSysInfo");
      EXPECT_EQ(info.shortcut(), QKeySequence(Qt::ALT | Qt::Key_S)) << "the mnemonic of its caption";
      QTest::mouseClick(&info, Qt::LeftButton);
      if (byButton) {
        QTest::mouseClick(&Widget<QPushButton>(*window, "cmdOK"), Qt::LeftButton);
      } else {
        QTest::keyClick(window, Qt::Key_Escape);
      }
    });
    dialogs.ShowModal(about);
    EXPECT_TRUE(seen);
    EXPECT_FALSE(about.Visible());
  }
  EXPECT_EQ(asked, 2);
}

TEST_F(ReportWindowsTest, ThePreviewShowsEverySheetOfTheJob) {
  FakePrinter documents;
  QtFormPrinter printer(documents, {.layout = RecordLayout, .paint = PaintForms});
  const auto job = printer.Begin({.target = PrintTarget::kPreview, .title = "t", .file = ""});
  PrintItem text;
  text.width = kSheetWidth;
  text.height = 5;
  text.text = "Word";
  job->PrintForm({{{text}, {text}}});
  job->PrintForm({{{text}}});
  int pages = 0;
  QTimer::singleShot(0, [&] {
    QWidget* window = QApplication::activeModalWidget();
    if (!window) return;
    pages = window->findChild<QPrintPreviewWidget*>()->pageCount();
    window->close();
  });
  job->Finish();
  EXPECT_EQ(pages, 3);
  printer.Begin({.target = PrintTarget::kFile, .title = "t", .file = "/x.pdf"});
  EXPECT_EQ(documents.jobs.at(0).request.file, "/x.pdf");
}

}  // namespace
}  // namespace marlinset
