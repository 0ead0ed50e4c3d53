// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "link/held_settings.h"
#include "link/send_steps.h"
#include "link/setting_commands.h"

namespace marlinset {

class Ports;

/// How a send ended.
enum class SendEnd {
  kNone,          ///< there was no send yet
  kComplete,      ///< all messages went out, and after a setup the unit still answered
  kNotConfirmed,  ///< all messages went out, but the unit no longer answered
  kPortClosed,    ///< the port could not be opened, or its device went away; nothing more sent
  kNotDetected,   ///< the unit did not report its video standard; nothing sent
  kRefused,       ///< the operator declined to change the standard; nothing sent
  kNoCode,        ///< no command sets the configuration's standard; nothing more sent
  kStopped,       ///< the operator stopped it or left the mode that it needs, stopRequested returned True,
                  ///< or the program ends
  kFailed,        ///< the send is still running, or threw a failure to the caller
};

/// "complete", "notConfirmed", "portClosed", "notDetected", "refused", "stopped", "failed".
const char* NameOf(SendEnd end);

struct SendResult {
  SendEnd end = SendEnd::kNone;
  int messages = 0;  ///< including those that did not go out
  int wentOut = 0;   ///< messages whose bytes left
  int planned = 0;   ///< messages of the complete send, as far as known; 0 before its port is open
  std::array<int, kVerdicts> count = {};  ///< messages that await an answer, by verdict

  int Count(Verdict verdict) const { return count[static_cast<std::size_t>(verdict)]; }
  /// Messages that the unit may not have taken.
  int Doubtful() const {
    return Count(Verdict::kRefused) + Count(Verdict::kUnacknowledged) + Count(Verdict::kUncertain);
  }
};

/// A message that a whole send has still to send.
struct PendingMessage {
  CommandId id = CommandId::kWindow;
  Sender sender = Sender::kWholeSend;
  int row = 0;  ///< of a window or parameter
  bool endsHighlight = false;
  bool goesAnyway = false;       ///< whatever the unit holds
  std::optional<int> left = {};  ///< as MessageSource has it
};

/// A message that Send Changes would send, and the controls whose values it carries.
struct UnheldMessage {
  Message message;
  std::vector<ControlName> controls;  ///< that differ, as far as a screen can mark them
  bool isChange = true;               ///< false: repeats what the unit holds, or ends a highlight
};

/// "Send Setup": sends the whole configuration to the unit, message by message, in the order that the unit's
/// firmware relies on. First brings the video standards of unit and configuration together; after that,
/// reports each missing acknowledgement and carries on. If the device goes away, the send ends with one box
/// that says how far it got. "Send Changes" does the same, but passes over each message that the unit holds
/// as it is. "Stop" ends either after the message under way, while the characters are off for the font size
/// only once they are on again, with one box that says what of the setup the unit holds. Connects to
/// `bSConfig`, `bSChanges` and `bStop`.
class WholeSend {
 public:
  WholeSend(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
            SettingCommands& commands, HeldSettings& held, Ports& ports);

  /// Whether a send runs: from the click on `bSConfig` or `bSChanges` to its end, or while SendChangesOf
  /// sends several messages. The status bar is not cleared meanwhile.
  bool Running() const;
  /// Whether the operator has stopped the send in progress; the message under way is its last, but the
  /// characters come on again after a change of the font size.
  bool Stopping() const { return Running() && stopPressed_; }
  /// Whether the window closes as soon as the characters are on again.
  bool Closing() const { return commands_.EndDeferred(); }
  /// The result of the last send, or of the one in progress so far.
  const SendResult& Result() const { return result_; }
  /// A send has begun, got further, is stopping or is over.
  Signal<> Progressed;

  /// The messages that Send Changes would put on the line now between prologue and closing check.
  std::vector<UnheldMessage> Changes() const;

  /// The last message of a whole send for each thing, by the panels as they are now. Leaves out what no
  /// message can carry.
  LastMessages Messages() const;
  /// Runs `change`, which changes panels without their rules. While changes go out at once, it then sends
  /// those messages of a whole send that differ from what the unit holds or, if that is not known, from those
  /// before the change: in the order of a whole send and with its waits and boxes, but without prologue and
  /// closing check. Several messages are a send with progress and Stop; whatever ends it, the panels keep the
  /// change. Ends early when changes no longer go out at once. Throws Overflow for a value that does not fit
  /// its byte.
  void SendChangesOf(const std::function<void()>& change);

  /// Asked between two messages. True ends the send as Stop does, but without a box.
  std::function<bool()> stopRequested;

 private:
  /// What a send consists of: all of the setup, what the unit lacks of it, or what SendChangesOf sends.
  enum class Scope { kSetup, kChanges, kOneAction };
  /// How far the sequence has got: its places in the lists that it works through.
  struct Progress {
    bool agreed = false;  ///< the unit has reported the configuration's standard
    int parameter = 0;
    std::size_t step = 0;
    std::size_t lateStep = 0;  ///< of the steps after the windows
    int highlight = 0;
    int window = 0;
    bool behindText = false;  ///< a window's text is being sent, the window itself is next
    bool slate = false;
    bool closing = false;
    bool sizeGoes = false;  ///< the font size is sent, and the inserter's off and on around it
  };

  void Count(const SentMessage& message);
  void SendSetup(Scope scope);
  void Run(const std::function<SendEnd()>& send);
  void TellLoss();
  void TellStop();
  std::string HeldText() const;
  void Plan();
  static PendingMessage EndOfHighlight(int row);
  CommandId SlateCommand() const;
  bool UnitIsQ() const;
  std::vector<PendingMessage> Pending(const Progress& from) const;
  std::vector<PendingMessage> Foreseen(const Progress& from) const;
  void AddPending(std::span<const SendStep> steps, std::vector<PendingMessage>& messages) const;
  Message MessageFor(const PendingMessage& pending) const;
  std::vector<PendingMessage> ChangesIn(std::span<const PendingMessage> pending, LastMessages held,
                                        bool sizeGoes) const;
  bool Goes(const PendingMessage& message, std::span<const PendingMessage> rest, const LastMessages& held,
            bool& sizeGoes) const;
  bool IsDue(const PendingMessage& message);
  bool IsTextWindow(int row) const;
  SendEnd SendOverPort();
  SendEnd SendConfiguration();
  std::optional<SendEnd> AgreeOnStandard();
  std::optional<SendEnd> CompareStandards();
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
  void SendDifferences(const LastMessages& unitHolds);
  SendEnd SendEach(std::span<const PendingMessage> changes);
  void SendChange(const PendingMessage& change);
  bool GoesOn();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  SettingCommands& commands_;
  HeldSettings& held_;
  Ports& ports_;
  SendResult result_;
  int firstNumber_ = 0;  ///< number of this send's first message
  Progress progress_;
  Scope scope_ = Scope::kSetup;
  bool stopPressed_ = false;
  bool stopped_ = false;
};

}  // namespace marlinset
