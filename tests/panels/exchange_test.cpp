// SPDX-License-Identifier: GPL-3.0-or-later
// Another file beside the panels: what differs, and what taking it over leaves.
#include <filesystem>
#include <fstream>

#include "cli/control_json.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/panel_rig.h"
#include "tests/storm/world.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::uint8_t> Composition(const ToolRig& rig) {
  return WriteDocument(DocumentOfPanels(rig.vars, rig.form));
}

/// All that a screen shows, except what the action itself is called.
std::map<std::string, Json> ScreenOf(const ToolRig& rig) {
  std::map<std::string, Json> look;
  for (const Control* control : rig.form.Controls()) {
    if (control->Name() != "mnuUndo" && control->Name() != "mnuRedo") {
      look[control->FullName()] = ControlJson(*control);
    }
  }
  return look;
}

std::vector<ComparedValue> TwoSided(std::vector<ComparedValue> differences) {
  std::erase_if(differences, [](const ComparedValue& row) { return row.OneSided(); });
  return differences;
}

std::string NamesOf(const std::vector<ComparedValue>& differences) {
  std::string names;
  for (const ComparedValue& row : differences) {
    names += row.name + ": " + (row.here ? TextOf(*row.here) : "-") + " -> " +
             (row.there ? TextOf(*row.there) : "-") + "\n";
  }
  return names;
}

std::string Write(const std::string& path, std::span<const std::uint8_t> bytes) {
  const std::string text(bytes.begin(), bytes.end());
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

/// What another tool with another database may have written: any number where a load takes any, texts that no
/// box offers, parameters that share a description, and windows and parameters more or less.
QcfDocument Strange(World& world, QcfDocument document) {
  const std::vector<VideoStandardRec>& standards = world.rig.vars.VideoStandards;
  for (QcfEntry& entry : document.entries) {
    const QcfUse use = entry.field->use;
    if (auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value)) {
      for (QcfRecord& record : *records) {
        QcfValue& last = record.back().value;
        if (world.OneIn(4)) last = std::int64_t{world.Pick(16)};
        if (use == QcfUse::kWindows && world.OneIn(4)) record[3].value = std::int64_t{world.Pick(3)};
        if (use == QcfUse::kParameters && world.OneIn(6)) record[2].value = "Shared";
      }
      if (world.OneIn(2)) records->erase(records->begin() + world.Pick(static_cast<int>(records->size())));
      if (world.OneIn(2)) records->push_back(records->front());
    } else if (use == QcfUse::kVersion || use == QcfUse::kOperatingMode || !world.OneIn(3)) {
      continue;
    } else if (entry.field->control == "comVS") {
      entry.value = standards[static_cast<std::size_t>(world.Pick(8)) % standards.size()].Description;
    } else if (entry.field->encoding == QcfEncoding::kText) {
      entry.value = "of another database";
    } else {
      const bool isLine = use == QcfUse::kVitcLine || entry.field->control == "UpDown1";
      entry.value = std::int64_t{world.Pick(isLine ? 256 : 2)};
    }
  }
  return document;
}

/// Another setup of chance, whose parameters a load can read.
std::string OtherSetup(const TempFolder& folder, unsigned seed) {
  World other(seed, false);
  other.rig.tool.Start("", false);
  for (int i = 0; i < 60; ++i) Edit(other);
  for (SystemParameterRec& parameter : other.rig.vars.SystemParameters) {
    parameter.Value = std::int16_t(std::abs(parameter.Value % 4096));
  }
  const QcfDocument document = Strange(other, DocumentOfPanels(other.rig.vars, other.rig.form));
  return Write(folder.File("other" + std::to_string(seed) + ".qcf"), WriteDocument(document));
}

TEST(TakeOverProperty, LeavesOnlyWhatOneSideHasAndGoesBackByteForByte) {
  const TempFolder folder;
  std::size_t taken = 0;
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    const std::string path = seed % 6 == 0   ? SAMPLE_FOLDER "version_1.qcf"
                             : seed % 6 == 1 ? SAMPLE_FOLDER "version_2.qcf"
                                             : OtherSetup(folder, seed + 100);
    World world(seed, false);
    ToolRig& rig = world.rig;
    const char* modes[] = {"", "Multi-Camera Episodic", "KeyKode Accuracy Test"};
    rig.tool.Start(world.PickOf(modes), false);
    for (int i = 0; i < 40; ++i) Edit(world);
    const OtherFile other = rig.tool.comparison.Read(path);
    const auto before = ScreenOf(rig);
    const auto bytes = Composition(rig);
    const std::vector<NewValue> values = TakeOver::All(rig.tool.comparison.With(other));
    EXPECT_EQ(before, ScreenOf(rig)) << "a comparison changes nothing";
    rig.tool.takeOver.Set("Take Over", values);
    EXPECT_EQ(NamesOf(TwoSided(rig.tool.comparison.With(other))), "");
    taken += values.size();
    if (values.empty()) continue;
    EXPECT_FALSE(rig.vars.ConfigSaved);
    const auto after = ScreenOf(rig);
    rig.form.mnuUndo.OperatorClick();
    EXPECT_EQ(before, ScreenOf(rig));
    EXPECT_EQ(bytes, Composition(rig));
    rig.form.mnuRedo.OperatorClick();
    EXPECT_EQ(after, ScreenOf(rig));
  }
  EXPECT_GT(taken, 100U);
}

/// A value as `compare` and a real load give it.
std::string There(const std::vector<ComparedValue>& differences, const std::string& name) {
  const auto row = std::ranges::find(differences, name, &ComparedValue::name);
  return row == differences.end() ? "equal" : row->there ? TextOf(*row->there) : "none";
}

TEST(Comparison, GivesWhatALoadWouldGive) {
  for (const char* file : {SAMPLE_FOLDER "version_1.qcf", SAMPLE_FOLDER "version_2.qcf"}) {
    SCOPED_TRACE(file);
    PanelRig rig;
    const OtherFile other = rig.tool.comparison.Read(file);
    PanelRig loaded;
    loaded.vars.OperatingMode = rig.vars.OperatingMode;
    PanelLoader loader(loaded.platform, loaded.vars, loaded.form, loaded.tool.panels);
    loader.Load(other.bytes, PanelLoader::Mode::kPresent);
    std::map<std::string, SingleValue> given;
    for (const QcfNamedValue& value : ValuesOf(DocumentOfPanels(loaded.vars, loaded.form))) {
      given.emplace(value.name, value.value);
    }
    for (const ComparedValue& row : rig.tool.comparison.With(other)) {
      if (!row.there) continue;
      const auto found = given.find(row.name);
      if (found == given.end()) {
        EXPECT_FALSE(row.here) << row.name << " was dropped by the database";
      } else {
        EXPECT_EQ(row.there, found->second) << row.name;
      }
    }
  }
  PanelRig rig;
  const OtherFile old = rig.tool.comparison.Read(SAMPLE_FOLDER "version_1.qcf");
  const std::vector<ComparedValue> differences = rig.tool.comparison.With(old);
  const std::pair<const char*, const char*> cases[] = {
      {"operating mode", "equal"},
      {"output VITC1 user bits", "Input Video Recorder Time"},
      {"VITC1 first line", "18"},  // clamped, then moved to leave room for the lines after it
      {"window style", "equal"},   // no list has it: the first
      {"white flag line", "255"},
      {"vertical filter", "equal"},  // newer than the file
      {"character windows / Video User Bits / On", "none"},
      {"character windows / video timecode / Double Height", "0"},
      {"system parameters / 2.0 / Value", "266"},
      {"system parameters / 2.1 / Value", "none"},
  };
  for (const auto& [name, there] : cases) EXPECT_EQ(There(differences, name), there) << name;
}

TEST(TakeOver, IsOneActionThatObeysTheRestOfTheTool) {
  const TempFolder folder;
  const std::string file = folder.File("stage 4.qcf");
  {
    PanelRig other;
    other.Do("choose ComWin(2) #1; spin UDDur 9; check chVITC 0; spin udVal(8) 77");
    Write(file, Composition(other));
  }
  PanelRig rig;
  rig.Do("click bSConfig");
  rig.GoInteractive();
  const std::string quoted = Json(file).dump();
  EXPECT_EQ(Json::parse(rig.Answer("compare " + quoted))["differences"].dump(),
            R"([{"name":"VITC on","here":1,"there":0},{"name":"window style","here":")" +
                rig.form.ComWin(2).Text() + R"(","there":")" + rig.form.ComWin(2).List()[1] +
                R"("},{"name":"slate duration","here":0,"there":9},)"
                R"({"name":"system parameters / 2.5 / Value","here":10,"there":77}])");
  rig.Sent();
  rig.Do("takeover " + quoted + R"( "slate duration" "VITC on")");
  EXPECT_EQ(rig.Sent(), (std::vector<std::string>{"1 5 47", "2 8 36 0 9"}));
  EXPECT_THAT(rig.tool.history.UndoNames(), ElementsAre("Take Over from stage 4.qcf"));
  EXPECT_FALSE(rig.vars.ConfigSaved);
  EXPECT_EQ(rig.form.tLineNumber(4).Text(), "9");
  rig.Do("undo");
  EXPECT_EQ(rig.Sent(), (std::vector<std::string>{"1 5 46", "2 8 36 0 0"}));

  const std::vector<std::uint8_t> whole = Composition(rig);
  const std::pair<std::string, const char*> refused[] = {
      {quoted + R"( "slate duration" "no such value")", "no such value"},
      {quoted + R"( "operating mode")", "operating mode"},
      {R"("version_1.qcf" "system parameters / 2.1 / Value")", "version_1.qcf"},
      {Json(SAMPLE_FOLDER "version_1.qcf").dump() + R"( "system parameters / 2.1 / Value")",
       "system parameters / 2.1 / Value"},
      {Json(Write(folder.File("bad.qcf"), std::vector<std::uint8_t>(9, 7))).dump() + " all",
       "no configuration file"},
      {Json(Write(folder.File("cut.qcf"), std::span(whole).first(300))).dump() + " all", "damaged"},
      {Json(Write(folder.File("empty.qcf"), {})).dump() + " all", "damaged"},
      {Json(folder.Path()).dump() + " all", "folder"},
  };
  for (const auto& [words, why] : refused) {
    const Json answer = Json::parse(rig.Answer("takeover " + words));
    EXPECT_FALSE(answer["ok"]) << words;
    EXPECT_THAT(answer.value("error", ""), HasSubstr(why));
    EXPECT_THAT(answer["messages"], IsEmpty());
  }
  // An action that waits for the unit goes first.
  rig.line.Unit().Faults().mute = true;
  std::string error;
  rig.pump.onHandle = [&] {
    if (!error.empty() || rig.platform.guard.AtWork() == 0) return;
    try {
      rig.tool.takeOver.Set("Paste", {{"slate duration", std::int64_t{7}}});
    } catch (const RuntimeError& failure) {
      error = failure.Description();
    }
  };
  rig.Do("choose ComWin(2) #1");
  EXPECT_THAT(error, HasSubstr("waiting for the unit"));
  EXPECT_EQ(rig.form.UDDur.Value(), 0);
  rig.Do("undo");
  EXPECT_EQ(Composition(rig), whole);
}

}  // namespace
}  // namespace marlinset
