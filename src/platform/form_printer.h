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
  kText,   ///< one line; narrowed, then cut, if it is too long
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
  /// Repeated on this sheet because a page continues here (the head of a table).
  bool repeated = false;
};

using PrintSheet = std::vector<PrintItem>;

/// A form as it goes to paper: usually one sheet, more if its rows do not fit on one.
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

/// A print job. Finish prints its forms; a job destroyed before that leaves nothing behind, if the device
/// allows that.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  virtual void PrintForm(const PrintedForm& form) = 0;
  virtual void Finish() = 0;
};

/// Prints forms to paper, to the screen or into a document.
class FormPrinter {
 public:
  virtual ~FormPrinter() = default;
  /// Throws PrinterError if there is no such printer or it can't print, kErrFileAccess if the file can't be
  /// written; the job's routines throw the same.
  virtual std::unique_ptr<PrintJob> Begin(const PrintRequest& request) = 0;
};

}  // namespace marlinset
