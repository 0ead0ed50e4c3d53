// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// The virtual slate's preview and duration, and the text message. Each keystroke sends the full message.
class SlateAndMessage {
 public:
  SlateAndMessage(Variables& variables, FrmStart& form, SettingCommands& commands);

 private:
  void PreviewClicked();
  void DurationChanged();
  void MessageChanged();
  void LimitToMessage();

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
};

}  // namespace marlinset
