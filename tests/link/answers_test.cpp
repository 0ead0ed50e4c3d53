// SPDX-License-Identifier: GPL-3.0-or-later
#include <functional>
#include <map>
#include <regex>
#include <sstream>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

/// A word of the table, NAME=VALUE@MS.
struct Happening {
  explicit Happening(const std::string& word) {
    std::smatch part;
    std::regex_match(word, part, std::regex("(\\w+)=?(\\w*)@?(\\d*)"));
    name = part[1];
    value = part[2];
    inMs = part[3].length() == 0 ? 0 : std::stoi(part[3]);
  }
  int Number() const { return value.empty() ? 1 : std::stoi(value); }
  Bytes Said() const {
    std::string spaced = value;
    for (std::size_t i = 2; i < spaced.size(); i += 3) spaced.insert(i, " ");
    return FromHex(spaced);
  }

  std::string name;
  std::string value;
  int inMs = 0;
};

void Happen(LinkRig& rig, const Happening& what) {
  UnitModel& unit = rig.line.Unit();
  const std::map<std::string, std::function<void()>> kActions = {
      {"drop", [&] { unit.Faults().drop += what.Number(); }},
      {"nak", [&] { unit.Faults().nak += what.Number(); }},
      {"twice", [&] { unit.Faults().twice += what.Number(); }},
      {"lateAcks", [&] { unit.Faults().lateAcks = std::chrono::milliseconds(what.Number()); }},
      {"lateFrames", [&] { unit.Faults().lateFrames = std::chrono::milliseconds(what.Number()); }},
      {"say", [&] { rig.line.Inject(what.Said(), rig.pump.Now() + what.inMs); }},
      {"receive", [&] { rig.Receive(what.Said()); }},
      {"query", [&] { (void)rig.commands.Send(CommandId::kVideoSense, Sender::kPanel); }},
      {"manual", [&] { rig.commands.Send(CommandId::kManualSelection, Sender::kPanel); }},
      {"vitcOn", [&] { rig.commands.Send(CommandId::kVitcOn, Sender::kPanel); }},
      {"select", [&] { rig.form.bSend.Press(); }},
      {"local", [&] { unit.SetLocal(true); }},
      {"remote", [&] { unit.SetLocal(false); }},
      {"pace", [&] { rig.line.SetPace(what.Number()); }},
      {"pass", [&] { rig.pump.Pass(what.Number()); }},
  };
  kActions.at(what.name)();
}

void HappenAll(LinkRig& rig, const std::string& words) {
  std::istringstream text(words);
  for (std::string word; text >> word;) {
    const Happening what(word);
    if (what.inMs == 0 || what.name == "say") {
      Happen(rig, what);
    } else {
      rig.pump.At(rig.pump.Now() + what.inMs, [&rig, what] { Happen(rig, what); });
    }
  }
}

TEST(Verdict, SaysWhatTheAnswersAreWorth) {
  for (const TableRow& row : TableOf("answers")) {
    SCOPED_TRACE(row[0]);
    LinkRig rig;
    rig.OpenIdentified();
    std::vector<std::pair<int, Verdict>> told;
    rig.commands.VerdictChanged.Connect([&](const SentMessage& message, Verdict before) {
      for (auto& [number, verdict] : told) {
        if (number != message.number) continue;
        EXPECT_EQ(verdict, before);
        verdict = *message.verdict;
      }
    });
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.meaning.starts_with("Number of")) told.emplace_back(message.number, *message.verdict);
    });
    HappenAll(rig, row[1]);
    rig.commands.Send(CommandId::kVitcSource, Sender::kWholeSend);
    HappenAll(rig, row[2]);
    const bool counted = told.size() == 1;
    rig.commands.Send(CommandId::kVitcSource, Sender::kWholeSend);
    rig.pump.Pass(300);
    ASSERT_TRUE(counted && told.size() == 2);
    EXPECT_EQ(NameOf(told[0].second), row[3]);
    EXPECT_EQ(NameOf(told[1].second), row[4]);
  }
}

}  // namespace
}  // namespace marlinset
