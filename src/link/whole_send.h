// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>

#include "link/setting_commands.h"

namespace marlinset {

class Ports;
struct SendStep;

/// How a whole send ended.
enum class SendEnd {
  kNone,          ///< there was none yet, or it runs
  kComplete,      ///< all messages went out, the unit still answers
  kNotConfirmed,  ///< all messages went out, but the unit did not answer any more
  kPortClosed,    ///< the port could not be opened, or its device went away; nothing further sent
  kNotDetected,   ///< the unit did not tell its video standard; nothing sent
  kRefused,       ///< the operator did not want the standard to be changed; nothing sent
  kNoCode,        ///< the configuration's standard cannot be set by command; nothing further sent
  kStopped,       ///< stopRequested, or the program ends
  kFailed,        ///< a failure on the way, which went to the caller
};

/// "complete", "notConfirmed", "portClosed", "notDetected", "refused", "stopped", "failed".
const char* NameOf(SendEnd end);

struct SendResult {
  SendEnd end = SendEnd::kNone;
  int messages = 0;  ///< with those that did not go out
  int wentOut = 0;   ///< messages whose bytes left
  int planned = 0;   ///< messages that the send takes in all, as far as is known; 0 before its port is open
  std::array<int, kVerdicts> count = {};  ///< of those that await an answer, by verdict

  int Count(Verdict verdict) const { return count[static_cast<std::size_t>(verdict)]; }
  /// Messages of which it is not sure that the unit took them.
  int Doubtful() const {
    return Count(Verdict::kRefused) + Count(Verdict::kUnacknowledged) + Count(Verdict::kUncertain);
  }
};

/// "Send Setup": the whole configuration to the unit, message by message, in the order that the unit's
/// firmware relies on. First the video standards of unit and configuration are brought together; from there
/// on a missing acknowledgement is told and the send goes on. A device that goes away ends it, with one box
/// that tells how far it came. Connects to `bSConfig`.
class WholeSend {
 public:
  WholeSend(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
            SettingCommands& commands, Ports& ports);

  /// A send runs, from the click on `bSConfig` to its end. The status bar is not cleared meanwhile.
  bool Running() const;
  /// Of the last send, or of the one that runs.
  const SendResult& Result() const { return result_; }

  /// Asked between two messages; True ends the send there, with everything enabled again.
  std::function<bool()> stopRequested;

 private:
  /// How far the sequence is: the places in the lists that it goes through.
  struct Progress {
    int parameter = 0;
    std::size_t step = 0;
    std::size_t lateStep = 0;  ///< of the steps behind the windows
    int highlight = 0;
    int window = 0;
    bool behindText = false;  ///< a window's text goes out, the window itself is next
    bool slate = false;
    bool closing = false;
  };

  void Count(const SentMessage& message);
  void SendSetup();
  void TellLoss();
  void Plan();
  int StillToSend() const;
  int StillIn(std::span<const SendStep> steps, std::size_t place) const;
  bool IsTextWindow(int row) const;
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
  void RunSteps(std::span<const SendStep> steps, std::size_t& place);
  void RunStep(const SendStep& step);
  void EndHighlights();
  void SendWindows();
  void SendWindow(int row);
  bool GoesOn();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  SettingCommands& commands_;
  Ports& ports_;
  SendResult result_;
  int firstNumber_ = 0;  ///< of the messages of this send
  Progress progress_;
  bool stopped_ = false;
};

}  // namespace marlinset
