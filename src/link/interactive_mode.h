// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

namespace marlinset {

class Communications;
class FrmStart;
class HeldSettings;
class MSComm;
class SettingCommands;
class WholeSend;
enum class CommandId;
struct Platform;
struct Variables;

/// Takes the tool off line: gives the model menu back to the operator, stops polling, switches the slate
/// preview off, and shows this in the status bar and on the indicator. Does nothing if the tool is already
/// off line.
void LeaveInteractiveMode(FrmStart& form);

/// Pauses polling while a dialog or a long action runs; the status bar says so.
void SuspendInteractiveMode(FrmStart& form);
/// Resumes polling without sending anything. If the line has gone meanwhile, takes the tool off line: a poll
/// would reopen the port, which is for the operator to do.
void ResumeInteractiveMode(FrmStart& form, const MSComm& line);
/// Runs `action`, with interactive mode suspended if it is on. An action that fails leaves it suspended, and
/// the operator has to choose it again.
void Suspended(FrmStart& form, const MSComm& line, const std::function<void()>& action);

/// Interactive mode: sends the unit the whole configuration once, and every change from then on. Every five
/// seconds it asks for the unit's identification and video standard, adopts that standard if the operator
/// agrees, waits while the unit is in local mode, and goes off line if the link is lost. Connects to
/// `mnuInter`, `mnuOff`, `mnuAuto`, `mnuMan` and the tick of `InterTime`.
class InteractiveMode {
 public:
  InteractiveMode(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
                  SettingCommands& commands, HeldSettings& held, const WholeSend& wholeSend);

  /// "inter": identifies the unit and, if it answers, enters the mode with a whole send; remembers the wish
  /// for the next start in any case. "off": leaves the mode.
  void setChecks(std::string_view mode);

 private:
  void Enter();
  void mnuOff_Click();
  void InterTime_Timer();
  void Poll();
  void Watch();
  void Fail();
  void FollowStandard();
  void AskSelection(bool automatic);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  SettingCommands& commands_;
  HeldSettings& held_;
  const WholeSend& wholeSend_;
};

}  // namespace marlinset
