// SPDX-License-Identifier: GPL-3.0-or-later
// The tool's link on a real serial port, with a unit on a pseudo terminal at the far end.

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <optional>

#include "app/unit/unit_json.h"
#include "app/unit/unit_server.h"
#include "platform/qt/qt_line.h"
#include "platform/qt/qt_pump.h"
#include "tests/platform/qt/qt_environment.h"
#include "tests/support/link_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Slows the tool's timers down a hundredfold, so that a stalled machine ends no wait; gives up after half a
/// minute.
class PatientPump : public QtPump {
 public:
  PatientPump() {
    QTimer::singleShot(30000, &limit_, [this] { End(); });
  }
  std::int64_t Now() const override { return QtPump::Now() / 100; }

 private:
  QObject limit_;
};

/// A unit behind a device of this name, on the tool's own loop.
class WiredUnit {
 public:
  WiredUnit(const UnitSettings& settings, const std::string& name, int bitsPerSecond = 0)
      : model(settings), server_(model, line, bitsPerSecond) {
    line.Link(name);
    QObject::connect(&arrival_, &QSocketNotifier::activated, [this] {
      server_.ReadLine();
      Run();
    });
    QObject::connect(&due_, &QTimer::timeout, [this] { Run(); });
    due_.setSingleShot(true);
    due_.setTimerType(Qt::PreciseTimer);
    server_.OnFrame([this](LineTime, UnitServer::Direction direction, const Bytes&) {
      if (direction == UnitServer::Direction::kReceived && ++heard_ == unplugAt) Unplug();
    });
  }
  void Unplug() {
    arrival_.setEnabled(false);
    line.Close();
    server_.LoseLine();
  }

  PseudoTerminal line;
  UnitModel model;
  std::size_t unplugAt = 0;  ///< the message that it no longer answers

 private:
  void Run() {
    if (const auto next = server_.RunDue()) due_.start(std::chrono::ceil<std::chrono::milliseconds>(*next));
  }

  UnitServer server_;
  std::size_t heard_ = 0;
  QSocketNotifier arrival_{line.Descriptor(), QSocketNotifier::Read};
  QTimer due_;
};

/// What must outlive a real port.
struct Surroundings {
  TempFolder folder;
  const std::string device = folder.File("unit");
  MemorySettings portSettings;
  PortMap ports{{device}, portSettings, [] { return std::vector<std::string>{}; }};
  FakeDialogs dialogs;
  Guard guard{dialogs};
  std::optional<WiredUnit> unit;
};

struct RealLine : Surroundings, QtLine {
  RealLine(PatientPump& pump, const UnitSettings& settings) : QtLine(guard, ports, pump) {
    unit.emplace(settings, device);
  }
};

struct RealRig : LinkRigOn<RealLine, PatientPump> {
  RealRig() : LinkRigOn(kModelHd7340Q) {}

  WiredUnit& Unit() { return *line.unit; }
  void PlugIn(int bitsPerSecond = 0) {
    line.unit.reset();
    line.unit.emplace(UnitSettings{.model = kModelHd7340Q}, line.device, bitsPerSecond);
  }
  void WaitFor(const std::function<bool()>& condition) {
    while (!condition() && !pump.Ending()) pump.Pump();
  }
  /// Sends the setup; the unit must hold then what it would hold on a virtual line.
  void ExpectWholeSend() {
    LinkRig ideal(kModelHd7340Q);
    ideal.form.bSConfig.Press();
    dialogs.shown.clear();
    EXPECT_TRUE(form.bSConfig.OperatorClick());
    EXPECT_THAT(dialogs.Texts(), IsEmpty());
    EXPECT_EQ(Panel(3), "7340 Configuration Complete. ");
    EXPECT_EQ(StateJson(Unit().model), StateJson(ideal.line.Unit()));
  }
};

TEST(RealLine, CarriesTheSetupBehindNoiseHoweverTheRepliesCome) {
  const struct {
    const char* what;
    std::size_t pieceBytes;
    int pieceGapMs, bitsPerSecond;
  } kDeliveries[] = {{"whole", 0, 0, 0},
                     {"byte by byte", 1, 2, 0},
                     {"at the pace of the line", 0, 0, 57600},
                     {"in an adapter's bursts", 3, 16, 0}};
  for (const auto& delivery : kDeliveries) {
    SCOPED_TRACE(delivery.what);
    RealRig rig;
    rig.PlugIn(delivery.bitsPerSecond);
    rig.Open();
    rig.Unit().line.Send(Bytes{0x02, 0x11, 0xFF});
    rig.WaitFor([&] { return rig.Panel(3) == "Mode Switched to Select"; });
    ASSERT_FALSE(rig.pump.Ending());
    rig.Unit().model.Faults().pieceBytes = delivery.pieceBytes;
    rig.Unit().model.Faults().pieceGap = std::chrono::milliseconds{delivery.pieceGapMs};
    rig.ExpectWholeSend();
    rig.identification.GetFirmware();
    EXPECT_EQ(rig.vars.UnitIdText, "MARLIN40 020E00");
    EXPECT_EQ(rig.Panel(4), "HD7340Q");
  }
}

TEST(RealLine, LosesNothingWhenTheUnitIsUnpluggedAtAnyMessage) {
  LinkRig ideal(kModelHd7340Q);
  ideal.form.bSConfig.Press();
  const std::vector<std::string> messages = ideal.Sent();
  // Before each message leaves and after it has arrived; without a unit at first the port does not open.
  for (std::size_t run = 1; run < 2 * messages.size(); ++run) {
    const std::size_t n = run / 2;
    const bool before = run % 2 == 0;
    SCOPED_TRACE((before ? "before " : "after ") + messages[n]);
    RealRig rig;
    std::vector<SentMessage> told;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      told.push_back(message);
      if (before && told.size() == n) rig.Unit().Unplug();
    });
    if (!before) rig.Unit().unplugAt = n + 1;
    rig.form.bSConfig.OperatorClick();
    ASSERT_LT(rig.pump.Now(), rig.form.dPause.Interval()) << "nothing to wait for";
    rig.pump.HandleDue();  // what the port still has to report

    // The message under way is the last, and one box reports the loss.
    ASSERT_EQ(told.size(), n + 1);
    const std::string remedy = "The device behind port 1 (" + rig.line.device + ") is gone. " +
                               std::to_string(before ? n : n + 1) + " of " +
                               std::to_string(messages.size() - (n == 0 ? 2 : 0)) +
                               " messages went out.";  // two are model Q's, which is not known at first
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Open Com Port before sending cmmands."));
    EXPECT_THAT(rig.dialogs.shown[0].remedy, testing::StartsWith(remedy));
    EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kPortClosed);
    EXPECT_EQ(rig.EnabledButtons(), 6);
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
    rig.form.mnuCharOn.SetChecked(true);

    rig.dialogs.shown.clear();
    rig.form.bOpen.Press();
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(HasSubstr("there is no device " + rig.line.device)));
    EXPECT_EQ(rig.Panel(2), "Port Closed");
    rig.PlugIn();
    rig.ExpectWholeSend();
  }
}

/// The operating system holds an answer already when the next message goes out.
TEST(RealLine, TakesNoAnswerForTheMessageBehindIt) {
  RealRig rig;
  rig.form.bGetID.Press();
  std::vector<Verdict> verdicts;
  rig.commands.MessageSent.Connect([&](const SentMessage& sent) { verdicts.push_back(*sent.verdict); });
  rig.commands.VerdictChanged.Connect(
      [&](const SentMessage& sent, Verdict) { verdicts.back() = *sent.verdict; });
  rig.commands.Send(CommandId::kVitcOn, Sender::kPanel);
  rig.Unit().line.Send(Bytes{kAck});
  rig.Unit().model.Faults().drop = 1;
  EXPECT_FALSE(rig.commands.Send(CommandId::kVitcOn, Sender::kPanel));
  EXPECT_THAT(verdicts, ElementsAre(Verdict::kUncertain, Verdict::kUnacknowledged));
}

}  // namespace
}  // namespace marlinset
