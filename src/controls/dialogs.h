// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/program_title.h"
#include "controls/signal.h"

namespace marlinset {

enum class BoxButtons { kOk, kOkCancel, kYesNo };
enum class BoxIcon { kNone, kInformation, kCritical, kQuestion };
enum class BoxAnswer { kOk, kCancel, kYes, kNo };

/// One message box. `text` is the tool's exact words; `remedy` adds what else helps (which device, what to
/// do) and is shown in the box's informative line.
struct MessageBox {
  std::string text;
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  std::string caption = std::string(kProgramTitle);
  std::string remedy = {};
  /// Whether there is still something to answer; if empty, always. On a screen, a box whose reason has gone
  /// (the unit of the question was unplugged) closes with No or Cancel.
  std::function<bool()> holds = {};
};

class Form;

/// Shows messages and questions: in windows, or answered from a queue (script, tests).
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  /// Shows the box and returns the answer. Esc and the cross answer No or Cancel if there is one.
  BoxAnswer Show(const MessageBox& box);

  /// Shows a form over the main window; does nothing if it is shown already. On a screen this returns when
  /// the window has closed (its Visible flag is False again); without a screen it returns at once, and the
  /// window stays until its own controls close it. The form must outlive the dialogs' use of it.
  void ShowModal(Form& form);

  /// Whether a box or such a window is open now.
  bool Standing() const;

  /// A box with a choice is about to come up.
  Signal<> Asking;
  /// How many questions of the tool the operator has agreed to so far.
  int Agreed() const { return agreed_; }

  /// A plain box with an OK button.
  void Tell(std::string text) { Show({.text = std::move(text)}); }
  /// A question with the buttons Yes and No. `facts` is what the operator needs to know before answering, one
  /// fact on each line; for `holds` see MessageBox.
  bool Ask(std::string text, std::string facts = {}, std::function<bool()> holds = {});

 protected:
  virtual BoxAnswer Present(const MessageBox& box) = 0;
  virtual void PresentForm(Form& form) = 0;

 private:
  int boxes_ = 0;
  int agreed_ = 0;
  std::vector<const Form*> forms_;
};

}  // namespace marlinset
