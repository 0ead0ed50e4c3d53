// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace marlinset {

/// Size in millimetres of the sheet that a layout fills. It leaves margins for every printer on both A4 and
/// Letter paper; on smaller paper it is drawn smaller.
constexpr double kSheetWidth = 184;
constexpr double kSheetHeight = 254;

enum class PrintKind {
  kText,   ///< one line; a text that is too long is narrowed, then cut
  kCheck,  ///< a small box, crossed when `on`
  kFrame,  ///< the outline of a group
  kRule,   ///< a line from side to side
};
enum class PrintLook { kPlain, kFaint, kBold, kTitle };
enum class PrintAlign { kLeft, kCentre, kRight };

/// One thing on a sheet, in millimetres from the sheet's upper left corner.
struct PrintItem {
  PrintKind kind = PrintKind::kText;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  std::string text = {};
  PrintLook look = PrintLook::kPlain;
  PrintAlign align = PrintAlign::kLeft;
  bool on = false;
  /// Stands on this sheet again because a page goes on here (the head of a table).
  bool repeated = false;
};

using PrintSheet = std::vector<PrintItem>;

/// A form as it goes to paper: usually one sheet, more when its rows do not fit on one.
struct PrintedForm {
  std::vector<PrintSheet> sheets;

  /// The page's texts in reading order, each once; a check box reads "[x]" or "[ ]".
  std::vector<std::string> Texts() const;
};

enum class PrintTarget { kPrinter, kPreview, kFile };

struct PrintRequest {
  PrintTarget target = PrintTarget::kPrinter;
  std::string title = {};  ///< name of the job in the printer's queue, title of the document
  std::string file = {};   ///< kFile: full path of the PDF document to write
};

/// A job on its way. Its forms come out when it is finished; one that goes away unfinished leaves nothing
/// behind, where the device allows that.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  virtual void PrintForm(const PrintedForm& form) = 0;
  virtual void Finish() = 0;
};

/// Brings forms to paper, to the screen or into a document.
class FormPrinter {
 public:
  virtual ~FormPrinter() = default;
  /// Failure 482 when there is no such printer or it can't print, 75 when the file can't be written; the
  /// job's routines fail likewise.
  virtual std::unique_ptr<PrintJob> Begin(const PrintRequest& request) = 0;
};

}  // namespace marlinset
