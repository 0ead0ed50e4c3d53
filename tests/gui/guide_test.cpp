// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFileInfo>
#include <QScreen>
#include <QTextBlock>
#include <set>

#include "gui/guide_window.h"
#include "gui/widgets/document_view.h"
#include "gui/widgets/look.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

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
