// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <set>

#include "gui/about_window.h"
#include "gui/guide_window.h"
#include "gui/port_window.h"
#include "gui/qt_dialogs.h"
#include "gui/qt_file_dialog.h"
#include "gui/qt_form_printer.h"
#include "gui/widgets/document_view.h"
#include "gui/widgets/look.h"
#include "platform/qt/sheet_painter.h"
#include "tests/gui/form_fixture.h"
#include "tests/support/fake_computer.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using DialogsTest = FormTest;

TEST_F(DialogsTest, BoxesAnswerSafelyByEscAndByDefault) {
  QtDialogs dialogs;
  const std::tuple<BoxButtons, Qt::Key, BoxAnswer> cases[] = {
      {BoxButtons::kYesNo, Qt::Key_Escape, BoxAnswer::kNo},
      {BoxButtons::kYesNo, Qt::Key_Return, BoxAnswer::kNo},
      {BoxButtons::kYesNo, Qt::Key_Space, BoxAnswer::kYes},
      {BoxButtons::kOkCancel, Qt::Key_Escape, BoxAnswer::kCancel},
      {BoxButtons::kOkCancel, Qt::Key_Return, BoxAnswer::kCancel},
      {BoxButtons::kOk, Qt::Key_Escape, BoxAnswer::kOk}};
  for (const auto& [buttons, key, answer] : cases) {
    const MessageBox box{.text = "Char <b>On</b> error", .buttons = buttons, .remedy = "Look."};
    AtDialog([&, expected = answer] { EXPECT_EQ(dialogs.Show(box), expected); },
             [key = key, yes = answer == BoxAnswer::kYes](QWidget& window) {
               auto& shown = dynamic_cast<QMessageBox&>(window);
               EXPECT_EQ(shown.text() + shown.informativeText(), "Char <b>On</b> errorLook.");
               QTest::keyClick(yes ? shown.button(QMessageBox::Yes) : &window, key);
             });
  }
}

TEST_F(DialogsTest, AQuestionWhoseReasonHasGoneAnswersNoAlsoUnderAnotherBox) {
  QtDialogs dialogs;
  bool plugged = true;
  const auto ask = [&] { return dialogs.Ask("Send?", "", [&] { return plugged; }); };
  QTimer::singleShot(0, [&] {
    const QPointer<QWidget> question = QApplication::activeModalWidget();
    plugged = false;
    AtDialog([&] { dialogs.Tell("The device is gone."); },
             [&](QWidget& told) {
               while (question->isVisible()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
               EXPECT_TRUE(told.isVisible());
               QTest::keyClick(&told, Qt::Key_Return);
             });
  });
  EXPECT_FALSE(ask());
  EXPECT_FALSE(plugged);
  EXPECT_FALSE(ask()) << "it does not even come up";
}

TEST_F(DialogsTest, ADeviceIsChosenOrTypedAndEscOrOkEndsATest) {
  FrmPorts ports(guard_);
  ports.comDevice(2).AddItem("/dev/ttyUSB0");
  int stops = 0;
  ports.cmdStop.SetEnabled(true);
  ports.cmdStop.OnClick([&] { ++stops; });
  QtDialogs dialogs;
  dialogs.AddWindow(ports, [&](QWidget* parent) { return MakePortWindow(ports, parent); });
  AtDialog([&] { dialogs.ShowModal(ports); },
           [&](QWidget& window) {
             auto& field = Widget<QComboBox>(window, "comDevice(2)");
             field.setFocus();
             QTest::keyClick(&field, Qt::Key_Down);
             Settle();
             EXPECT_EQ(ports.comDevice(2).ListIndex(), 0);
             QTest::keyClicks(field.lineEdit(), "7");
             Settle();
             ports.lblNote(2).SetCaption("There is no such device now.");
             EXPECT_EQ(field.currentText(), "/dev/ttyUSB07");
             EXPECT_EQ(field.accessibleName(), "Com 2");
             EXPECT_EQ(Widget(window, "lblNote(2)").accessibleName(), "There is no such device now.");
             QTest::keyClick(&window, Qt::Key_Escape);
           });
  EXPECT_EQ(ports.comDevice(2).Text(), "/dev/ttyUSB07");
  EXPECT_EQ(stops, 1);
  std::string kept;
  ports.cmdOK.OnClick([&] {
    kept = ports.comDevice(2).Text();
    ports.SetVisible(false);
  });
  AtDialog([&] { dialogs.ShowModal(ports); },
           [&](QWidget& window) {
             ports.cmdTest(1).OnClick([&](int) {
               QTest::keyClicks(Widget<QComboBox>(window, "comDevice(2)").lineEdit(), "8");
               QTest::mouseClick(&Widget(window, "cmdOK"), Qt::LeftButton);
               while (stops == 1) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
             });
             QTest::mouseClick(&Widget(window, "cmdTest(1)"), Qt::LeftButton);
           });
  EXPECT_EQ(kept, "8/dev/ttyUSB07") << "OK ends the test, then keeps what was typed meanwhile";
}

TEST_F(DialogsTest, AWindowFollowsItsFormUntilEitherCloses) {
  FrmAbout about(guard_);
  about.lblVersion.SetCaption("Release 1.2.3");
  about.cmdOK.OnClick([&] { about.SetVisible(false); });
  int asked = 0;
  about.cmdSysInfo.OnClick([&] { ++asked; });
  QtDialogs dialogs;
  dialogs.AddWindow(about, [&](QWidget* parent) { return MakeAboutWindow(about, parent); });
  for (const bool byButton : {true, false}) {
    AtDialog([&] { dialogs.ShowModal(about); },
             [&](QWidget& window) {
               EXPECT_TRUE(about.Visible());
               EXPECT_EQ(Widget<QLabel>(window, "lblVersion").text(), "Release 1.2.3");
               QTest::mouseClick(&Widget(window, "cmdSysInfo"), Qt::LeftButton);
               if (byButton) return QTest::mouseClick(&Widget(window, "cmdOK"), Qt::LeftButton);
               QTest::keyClick(&window, Qt::Key_Escape);
             });
    EXPECT_FALSE(about.Visible());
  }
  EXPECT_EQ(asked, 2);
}

TEST_F(DialogsTest, ANameWithoutAnExtensionGetsThatOfTheFilter) {
  const TempFolder folder;
  QtFileDialog dialog;
  dialog.Filter = "Brandal Marlinset File|*.qcf";
  dialog.InitDir = folder.Path();
  for (const char* there : {"show.b", "show.b.qcf", "old.QCF"}) folder.Write(there, "");
  const struct {
    const char* typed;
    int flags;
    const char* taken;
    bool asked;
  } cases[] = {{"show", 0, "show.qcf", false},
               {"show.b", kOverwritePrompt, "show.b", true},
               {"show.b", kOverwritePrompt | kNeedsExtension, "show.b.qcf", true},
               {"new.b", kOverwritePrompt | kNeedsExtension, "new.b.qcf", false},
               {"old.QCF", kOverwritePrompt | kNeedsExtension, "old.QCF", true}};
  for (const auto& [typed, flags, taken, asked] : cases) {
    dialog.Flags = flags;
    dialog.FileName = "proposed.qcf";
    QStringList questions;
    AtDialog([&] { dialog.ShowSave(); },
             [&questions, name = typed](QWidget& window) {
               QTimer::singleShot(0, &window, [&] {
                 auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                 if (!box) return;
                 questions << box->text();
                 box->button(QMessageBox::Yes)->click();
               });
               Widget<QLineEdit>(window, "fileNameEdit").setText(name);
               QTest::keyClick(&Widget(window, "fileNameEdit"), Qt::Key_Return);
             });
    EXPECT_EQ(dialog.FileName, folder.File(taken));
    ASSERT_EQ(questions.size(), asked ? 1 : 0) << taken;
    EXPECT_TRUE(!asked || questions.constFirst().startsWith(Shown(taken))) << Typed(questions.join(u' '));
  }
}

TEST_F(DialogsTest, ThePreviewShowsEverySheetOfTheJob) {
  FakePrinter documents;
  QtFormPrinter printer(documents, {.layout = RecordLayout, .paint = PaintForms});
  const auto job = printer.Begin({.target = PrintTarget::kPreview, .title = "t", .file = ""});
  PrintItem text;
  text.width = kSheetWidth;
  text.height = 5;
  text.text = "Word";
  job->PrintForm({{{text}, {text}}});
  job->PrintForm({{{text}}});
  AtDialog([&] { job->Finish(); },
           [](QWidget& window) {
             EXPECT_EQ(window.findChild<QPrintPreviewWidget*>()->pageCount(), 3);
             window.close();
           });
  printer.Begin({.target = PrintTarget::kFile, .title = "t", .file = "/x.pdf"});
  EXPECT_EQ(documents.jobs.at(0).request.file, "/x.pdf");
}

using GuideTest = MainWindowTest;

struct Content {
  explicit Content(const QTextBrowser& view) {
    for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next()) {
      if (block.blockFormat().headingLevel() > 0) anchors << DocumentView::AnchorOf(block.text());
      for (auto part = block.begin(); !part.atEnd(); ++part) formats << part.fragment().charFormat();
    }
  }
  QStringList anchors;
  QList<QTextCharFormat> formats;
};

TEST_F(GuideTest, F1ShowsThePanelInViewAndTheGuideLeadsOn) {
  GuideWindow guide(DOCUMENTS_FOLDER);
  MainWindow window(form_, {.showGuide = [&] { guide.ShowFor(form_); }});
  Open(window, &FrmStart::fWindows);
  auto& view = *guide.findChild<DocumentView*>();
  for (const int panel : form_.oView.Indices()) {
    form_.oView(panel).SetValue(true);
    Show(window);
    QTest::keyClick(&window, Qt::Key_F1);
    QCoreApplication::processEvents();
    ASSERT_TRUE(guide.isVisible() && !guide.isModal());
    const QString top = view.cursorForPosition({50, 5}).block().text();
    EXPECT_EQ(Typed(top), panel == 4 ? "User guide" : form_.oView(panel).Caption());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(guide.isVisible());
  }
  std::set<QUrl> links;  // in the order of the documents, each loaded once
  int pictures = 0;
  for (const QTextCharFormat& format : Content(view).formats) {
    if (format.isImageFormat()) {
      const QUrl name = format.toImageFormat().name();
      const auto picture = view.document()->resource(QTextDocument::ImageResource, name).value<QImage>();
      EXPECT_TRUE(picture.width() > 100 && picture.width() <= view.viewport()->width()) << Typed(name.path());
      ++pictures;
    }
    if (!format.anchorHref().isEmpty()) links.insert(view.source().resolved(QUrl(format.anchorHref())));
  }
  EXPECT_GT(pictures, 5);
  for (const QTextFrame* table : view.document()->rootFrame()->childFrames()) {
    EXPECT_NE(table->frameFormat().borderBrush(), QTextFrameFormat().borderBrush()) << "the tool's own look";
  }
  EXPECT_GT(links.size(), 12U);
  for (const QUrl& link : links) {
    SCOPED_TRACE(Typed(link.toString()));
    EXPECT_TRUE(QFileInfo::exists(link.toLocalFile()));
    view.setSource(link);
    EXPECT_TRUE(link.fragment().isEmpty() || Content(view).anchors.contains(link.fragment()));
  }
}

TEST_F(GuideTest, AMissingGuideIsToldInItsPlace) {
  GuideWindow guide("/nowhere");
  guide.resize(4000, 4000);
  guide.ShowFor(form_);
  QCoreApplication::processEvents();
  EXPECT_TRUE(guide.screen()->availableGeometry().contains(guide.frameGeometry()));
  EXPECT_THAT(Typed(guide.findChild<DocumentView*>()->toPlainText()),
              testing::AllOf(testing::StartsWith("This document is not here"),
                             testing::HasSubstr("/nowhere/docs/user-guide.md")));
}

}  // namespace
}  // namespace marlinset
