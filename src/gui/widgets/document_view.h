// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QImage>
#include <QSet>
#include <QTextBrowser>

namespace marlinset {

/// Shows the program's documents: Markdown, with pictures as wide as the window allows. Links lead to
/// headings and to other documents; the desktop opens everything else. If a document is missing, a message
/// takes its place.
class DocumentView : public QTextBrowser {
  Q_OBJECT
 public:
  explicit DocumentView(QWidget* parent);

  /// A heading's name in links: lower case, hyphens between words, no other characters.
  static QString AnchorOf(const QString& heading);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  /// An unknown heading leads to the beginning of the document.
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Dress();
  void DressBlock(const QTextBlock& block);
  QImage Fitting(const QImage& picture) const;
  void FitPictures();

  bool loaded_ = false;  ///< a document has arrived but still has its plain look
  QSet<QString> anchors_;
  QHash<QUrl, QImage> pictures_;  ///< of the document, in their original size
};

}  // namespace marlinset
