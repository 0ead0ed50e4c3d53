// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <span>

#include "link/setting_commands.h"

namespace marlinset {

/// How a whole send ended.
enum class SendEnd {
  kNone,          ///< there was none yet, or it runs
  kComplete,      ///< all messages went out, the unit still answers
  kNotConfirmed,  ///< all messages went out, but the unit did not answer any more
  kPortClosed,    ///< the port could not be opened
  kNotDetected,   ///< the unit did not tell its video standard; nothing sent
  kRefused,       ///< the operator did not want the standard to be changed; nothing sent
  kNoCode,        ///< the configuration's standard cannot be set by command; nothing further sent
  kStopped,       ///< stopRequested, or the program ends
  kFailed,        ///< a failure on the way, which went to the caller
};

struct SendResult {
  SendEnd end = SendEnd::kNone;
  int messages = 0;
  int unacknowledged = 0;  ///< messages that awaited an answer and got none
};

/// "Send Setup": the whole configuration to the unit, message by message, in the order that the unit's
/// firmware relies on. First the video standards of unit and configuration are brought together; from there
/// on a missing acknowledgement is told and the send goes on. Connects to `bSConfig`.
class WholeSend {
 public:
  WholeSend(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
            SettingCommands& commands);

  /// A send runs, from the click on `bSConfig` to its end. The status bar is not cleared meanwhile.
  bool Running() const { return running_; }
  /// Of the last send, or of the one that runs.
  const SendResult& Result() const { return result_; }

  /// Asked between two messages; True ends the send there, with everything enabled again.
  std::function<bool()> stopRequested;

 private:
  struct Step;
  static std::span<const Step> StepsBeforeWindows();
  static std::span<const Step> StepsAfterWindows();

  void SendSetup();
  SendEnd SendOverPort();
  SendEnd SendConfiguration();
  std::optional<SendEnd> AgreeOnStandard(bool& agreed);
  std::optional<SendEnd> CompareStandards(bool& agreed);
  std::optional<SendEnd> AskForChange(const char* question, bool (*commanded)(const std::string&));
  std::optional<SendEnd> CommandStandard();
  std::optional<SendEnd> LeaveAutomatic();
  void Sequence();
  SendEnd Close();
  void SendParameters();
  void RunSteps(std::span<const Step> steps);
  void RunStep(const Step& step);
  void EndHighlights();
  void SendWindows();
  void SendWindow(int index);
  bool GoesOn();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  SettingCommands& commands_;
  SendResult result_;
  bool running_ = false;
  bool stopped_ = false;
};

}  // namespace marlinset
