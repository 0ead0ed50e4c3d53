// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

namespace marlinset {

class Communications;
class FrmStart;
class MSComm;
class SettingCommands;
class WholeSend;
enum class CommandId;
struct Platform;
struct Variables;

/// Takes the tool off line: the model menu is the operator's again, polling stops, the slate preview goes
/// off, and status bar and indicator show it. Does nothing when the tool is off line already.
void LeaveInteractiveMode(FrmStart& form);

/// Lets polling rest while a dialog or a long action runs; the status bar says so.
void SuspendInteractiveMode(FrmStart& form);
/// Takes polling up again; nothing is sent. When the line has gone meanwhile the tool stays off line: a poll
/// would open the port again, which is for the operator to do.
void ResumeInteractiveMode(FrmStart& form, const MSComm& line);
/// Runs `action`; when interactive mode is on, it is suspended meanwhile. An action that fails leaves it
/// suspended, and the operator has to choose it again.
void Suspended(FrmStart& form, const MSComm& line, const std::function<void()>& action);

/// Interactive mode: the unit gets the whole configuration once and every change from then on; every five
/// seconds the tool asks who it is and which video standard it sees, follows its standard if the operator
/// agrees, waits while it is in local mode, and goes off line when the link is lost. Connects to `mnuInter`,
/// `mnuOff`, `mnuAuto`, `mnuMan` and the tick of `InterTime`.
class InteractiveMode {
 public:
  InteractiveMode(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
                  SettingCommands& commands, const WholeSend& wholeSend);

  /// "inter": identifies the unit and, if it answers, enters the mode with a whole send; the wish is
  /// remembered for the next start in any case. "off": leaves the mode.
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
  const WholeSend& wholeSend_;
};

}  // namespace marlinset
