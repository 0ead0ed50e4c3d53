// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QImage>
#include <QSet>
#include <QTextBrowser>

namespace marlinset {

/// Shows the documents that come with the program: Markdown, with its pictures as wide as the window allows.
/// Links lead to headings and to other documents; what is no document, or lies elsewhere, is the desktop's.
/// A document that is missing is told in its place.
class DocumentView : public QTextBrowser {
  Q_OBJECT
 public:
  explicit DocumentView(QWidget* parent);

  /// How links name a heading: small letters, hyphens between words, no other signs.
  static QString AnchorOf(const QString& heading);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  /// A heading that the document does not have counts as its beginning.
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Dress();
  void DressBlock(const QTextBlock& block);
  QImage Fitting(const QImage& picture) const;
  void FitPictures();

  bool loaded_ = false;  ///< a document has come that has its plain look yet
  QSet<QString> anchors_;
  QHash<QUrl, QImage> pictures_;  ///< of the document, in their own size
};

}  // namespace marlinset
