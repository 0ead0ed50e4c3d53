// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/byte_log.h"

#include <QtMath>

#include "base/text.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kLinesShown = 3;
constexpr int kLinesKept = 500;

}  // namespace

ByteLog::ByteLog(FrmStart& form, FrameSignal* sent, QWidget* parent)
    : QPlainTextEdit(parent),
      received_(form.tInput),
      known_(received_.Text()),
      listening_(form.tInput.Changed, [this] { NoteReceived(); }) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setMaximumBlockCount(kLinesKept);
  setFont(FixedFont());
  setFocusPolicy(Qt::ClickFocus);
  // The last line moves to the foot only if the margin below it is larger than necessary.
  const int line = qCeil(QFontMetricsF(font()).lineSpacing());
  const int margins = 2 * frameWidth() + 3 * qCeil(document()->documentMargin()) + 2;
  setFixedHeight(kLinesShown * line + margins);
  BindFlags(*this, form.tInput);
  setAccessibleName(QStringLiteral("Byte log: Out is sent to the unit, In is received"));
  if (sent) sent_.emplace(*sent, [this](std::span<const std::uint8_t> frame) { NoteSent(frame); });
}

/// A hidden log begins with the traffic after it is opened, in both directions.
void ByteLog::NoteSent(std::span<const std::uint8_t> frame) {
  if (!received_.Visible()) return;
  std::string bytes = "Out  ";
  for (const std::uint8_t byte : frame) bytes += HexText(byte) + ",";
  direction_ = Direction::kOut;
  appendPlainText(QString());
  Append(bytes);
}

void ByteLog::NoteReceived() {
  const std::string& text = received_.Text();
  if (text == known_) return;
  const bool grown = text.starts_with(known_);
  const std::string news = grown ? text.substr(known_.size()) : text;
  known_ = text;
  if (news.empty()) return;
  if (direction_ != Direction::kIn) {
    direction_ = Direction::kIn;
    appendPlainText(QStringLiteral("In   "));
  }
  Append(news);
}

void ByteLog::Append(const std::string& bytes) {
  moveCursor(QTextCursor::End);
  insertPlainText(Shown(bytes));
  moveCursor(QTextCursor::End);
}

}  // namespace marlinset
