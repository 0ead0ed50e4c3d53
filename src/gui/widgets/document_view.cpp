// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/document_view.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

bool IsDocument(const QUrl& url) {
  return url.isLocalFile() && url.path().endsWith(QLatin1String(".md"));
}

QString MissingText(const QString& path) {
  return QStringLiteral(
             "# This document is not here\n\n`%1`\n\nThe documents come with the program. Install it again, "
             "or "
             "look where you got it from.\n")
      .arg(path);
}

}  // namespace

DocumentView::DocumentView(QWidget* parent) : QTextBrowser(parent) {
  setOpenExternalLinks(true);
  setUndoRedoEnabled(false);
  document()->setDocumentMargin(2 * SpaceUnit(*this));
}

QString DocumentView::AnchorOf(const QString& heading) {
  QString anchor;
  for (const QChar sign : heading.toLower()) {
    if (sign == QLatin1Char(' ')) anchor += QLatin1Char('-');
    if (sign.isLetterOrNumber() || sign == QLatin1Char('-') || sign == QLatin1Char('_')) anchor += sign;
  }
  return anchor;
}

QVariant DocumentView::loadResource(int type, const QUrl& name) {
  const QUrl url = source().resolved(name);
  if (type == QTextDocument::ImageResource) {
    const QImage picture(url.toLocalFile());
    pictures_.insert(url, picture);
    return Fitting(picture);
  }
  loaded_ = true;
  pictures_.clear();
  QFile file(url.toLocalFile());
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : MissingText(file.fileName());
}

void DocumentView::doSetSource(const QUrl& name, QTextDocument::ResourceType /*type*/) {
  const QUrl url = source().resolved(name);
  if (!IsDocument(url)) {
    QDesktopServices::openUrl(url);
    return;
  }
  QTextCursor whole(document());
  whole.beginEditBlock();  // laid out once, not after each word
  QTextBrowser::doSetSource(url, QTextDocument::MarkdownResource);
  whole.endEditBlock();
  whole.beginEditBlock();
  if (loaded_) Dress();  // tables exist only after the end of an edit
  whole.endEditBlock();
  if (anchors_.contains(url.fragment())) {
    scrollToAnchor(url.fragment());
  } else {
    verticalScrollBar()->setValue(0);
  }
}

/// Names the headings, so that links find them, and makes tables and links look like the rest of the tool.
void DocumentView::Dress() {
  loaded_ = false;
  anchors_.clear();
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) DressBlock(block);
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (!table) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Outline(palette()));
    format.setCellPadding(SpaceUnit(*this));
    format.setTopMargin(SpaceUnit(*this));
    format.setBottomMargin(2 * SpaceUnit(*this));
    table->setFormat(format);
  }
}

void DocumentView::DressBlock(const QTextBlock& block) {
  QTextCursor cursor(block);
  QTextCharFormat format;
  if (block.blockFormat().headingLevel() > 0) {
    const QString anchor = AnchorOf(block.text());
    anchors_.insert(anchor);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    format.setAnchor(true);
    format.setAnchorNames({anchor});
    cursor.mergeCharFormat(format);
    QTextBlockFormat spaced;
    spaced.setTopMargin(3 * SpaceUnit(*this));
    cursor.mergeBlockFormat(spaced);
    return;
  }
  format.setForeground(LinkColor(palette()));
  QList<QPair<int, int>> links;  // each change replaces the block's parts
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    const QTextFragment fragment = part.fragment();
    if (!fragment.charFormat().anchorHref().isEmpty()) links += {fragment.position(), fragment.length()};
  }
  for (const auto& [position, length] : links) {
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
}

/// The picture in its original size, or smaller if it does not fit the window.
QImage DocumentView::Fitting(const QImage& picture) const {
  const double scale = devicePixelRatioF();
  const double room = viewport()->width() - 2 * document()->documentMargin();
  const double width = std::clamp<double>(picture.width(), 1, std::max(1.0, room));
  if (picture.isNull() || (width == picture.width() && scale == 1)) return picture;
  QImage fitting = picture.scaledToWidth(qRound(width * scale), Qt::SmoothTransformation);
  fitting.setDevicePixelRatio(scale);
  return fitting;
}

void DocumentView::FitPictures() {
  for (auto picture = pictures_.cbegin(); picture != pictures_.cend(); ++picture) {
    document()->addResource(QTextDocument::ImageResource, picture.key(), Fitting(picture.value()));
  }
  document()->markContentsDirty(0, document()->characterCount());
}

/// Keeps the top of the view in place.
void DocumentView::resizeEvent(QResizeEvent* event) {
  const QTextCursor top = cursorForPosition({0, 0});
  QTextBrowser::resizeEvent(event);
  if (event->size().width() == event->oldSize().width()) return;
  FitPictures();
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top());
}

void DocumentView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
  const int position = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(position);
}

}  // namespace marlinset
