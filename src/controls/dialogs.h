// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/program_title.h"

namespace marlinset {

enum class BoxButtons { kOk, kOkCancel, kYesNo };
enum class BoxIcon { kNone, kInformation, kCritical, kQuestion };
enum class BoxAnswer { kOk, kCancel, kYes, kNo };

/// One message box. `text` is what the tool says, word for word; `remedy` is what helps beyond it (which
/// device, what to do) and stands in the box's informative line.
struct MessageBox {
  std::string text;
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  std::string caption = std::string(kProgramTitle);
  std::string remedy = {};
  /// Whether there is still something to answer; without it there is, as long as the box stands. On a screen
  /// a box whose reason has gone (the unit of the question was unplugged) closes with No or Cancel.
  std::function<bool()> holds = {};
};

class Form;

/// Where the tool asks and tells. One implementation shows windows, one answers from a queue (script, tests).
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  /// Shows the box and returns when it is answered. Esc and the cross answer No or Cancel where there is one.
  BoxAnswer Show(const MessageBox& box);

  /// Shows a window of its own over the main window; nothing happens when it is shown already. On a screen
  /// this returns when the window has gone, that is when its Visible flag is False again; without a screen at
  /// once, and the window stays until its own controls close it. The form has to outlive the dialogs' use.
  void ShowModal(Form& form);

  /// A box or such a window stands at this moment.
  bool Standing() const;

  /// A plain box with an OK button.
  void Tell(std::string text) { Show({.text = std::move(text)}); }
  /// A question with the buttons Yes and No. `facts` is what to know before answering, a line each; for
  /// `holds` see MessageBox.
  bool Ask(std::string text, std::string facts = {}, std::function<bool()> holds = {});

 protected:
  virtual BoxAnswer Present(const MessageBox& box) = 0;
  virtual void PresentForm(Form& form) = 0;

 private:
  int boxes_ = 0;
  std::vector<const Form*> forms_;
};

}  // namespace marlinset
