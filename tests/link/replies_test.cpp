// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <set>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

struct StatusCase {
  int status;
  bool manual;
  const char* standard;  ///< "1080p/24" stood before
  const char* panel3;
  const char* picture;
};

TEST(Replies, ShowTheVideoStatus) {
  const StatusCase kCases[] = {
      {0xC1, true, "NTSC", "No Video Present ", "Image2(1)"},
      {0x00, false, "1080p/24", "Video Present ", "Image2(0)"},
      {0x09, false, "1080p/24", "Video Present ", "Image2(0)"},
      {0x3F, false, "1080p/24", "Video Present ", "Image2(0)"},
      {0x82, true, "PAL", "Video Present ", "Image2(0)"},
      {0x44, false, "1080i/60", "No Video Present ", "Image2(1)"},
      {0x05, false, "1080i/50", "Video Present ", "Image2(0)"},
      {0x06, false, "525i/60", "Video Present ", "Image2(0)"},
      {0x07, false, "625i/50", "Video Present ", "Image2(0)"},
      {0x88, true, "720p/60", "Video Present ", "Image2(0)"},
  };
  for (const StatusCase& c : kCases) {
    SCOPED_TRACE(c.status);
    LinkRig rig;
    rig.Open();
    rig.vars.UnitStandardText = "1080p/24";
    rig.form.mnuAuto.SetChecked(c.manual);
    rig.form.mnuMan.SetChecked(!c.manual);
    rig.ReceiveFields({15, 0, 52, static_cast<std::uint8_t>(c.status)});
    EXPECT_EQ(rig.vars.UnitVideoStandard, c.status);
    EXPECT_EQ(rig.vars.UnitStandardText, c.standard);
    EXPECT_EQ(rig.Panel(2), c.standard);
    EXPECT_EQ(rig.Panel(3), c.panel3);
    EXPECT_EQ(rig.form.StatBar(3).Picture(), c.picture);
    EXPECT_EQ(rig.form.mnuAuto.Checked(), !c.manual);
    EXPECT_EQ(rig.form.mnuMan.Checked(), c.manual);
  }
}

struct ModelCase {
  int code;
  bool modelQ;
  const char* panel4;
  const char* menu;
  std::vector<std::string> boxes;
};

TEST(Replies, ShowTheModelAndChooseItsMenu) {
  const ModelCase kCases[] = {
      {2, false, "HD7340", "HD7340", {}},
      {8, false, "HD7340", "HD7340", {}},
      {10, false, "HDSD7340", "HD7340", {}},
      {32, true, "HD7340Q", "HD7340Q", {}},
      {99, false, "Getting ID", "", {"Invalid Identification Recieved, verify com port and retry.  99 200"}},
  };
  for (const ModelCase& c : kCases) {
    SCOPED_TRACE(c.code);
    LinkRig rig;
    rig.Open();
    std::string menu;
    rig.form.mnuHD7340.OnClick([&] { menu += "HD7340"; });
    rig.form.mnuHD7340Q.OnClick([&] { menu += "HD7340Q"; });
    rig.form.StatBar(4).SetText("Getting ID");
    rig.vars.UnitLocalMode = true;
    rig.ReceiveFields({15, 0, 53, static_cast<std::uint8_t>(c.code), 200});
    EXPECT_EQ(rig.Panel(4), c.panel4);
    EXPECT_EQ(menu, c.menu);
    EXPECT_EQ(rig.comms.IsModelQ(), c.modelQ);
    EXPECT_EQ(rig.vars.UnitLocalMode, !c.boxes.empty());
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
  }
}

TEST(Replies, SpellTheFirmwareText) {
  LinkRig rig;
  rig.Open();
  const Bytes release{15, 0, 54, 'M', 'A', 'R', '-', '4', '0', ' ', 0xE9, 0x0A, 0x00, 0xFF, 'R'};
  rig.form.AboutTimer1.SetEnabled(true);
  rig.ReceiveFields(release);  // 18 bytes: what a release needs
  EXPECT_EQ(rig.vars.UnitIdText, "MAR-40 é 0A00FF");
  EXPECT_FALSE(rig.form.AboutTimer1.Enabled());

  Bytes build = release;
  build.back() = 'B';
  build.insert(build.end(), {0x00, 0x01, 0xC0});
  rig.ReceiveFields(build);
  EXPECT_EQ(rig.vars.UnitIdText, "MAR-40 é 0A00FF B 0001C0");

  build.resize(build.size() - 2);  // the last digits would be behind the checksum
  rig.ReceiveFields(build);
  EXPECT_EQ(rig.Panel(3), "Buff Over");
}

TEST(Replies, TakeTheUnitOutOfBroadcastMode) {
  LinkRig rig;
  rig.Open();
  std::vector<std::string> panel3;
  rig.form.StatBar(3).Changed.Connect([&] { panel3.push_back(rig.Panel(3)); });
  rig.ReceiveFields({15, 0, 187});
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 33"));
  EXPECT_THAT(panel3, ElementsAre("Broadcast Packet In", "Packet Out", "Mode Switched to Select"));
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Broadcast Mode detected, switched to Select Mode"));
}

TEST(Replies, PassWhatUnitsAreKnownToSendAndShowTheRest) {
  struct Known {
    std::uint8_t address;
    std::uint8_t packetId;
    std::set<int> commands;
  };
  const Known kKnown[] = {
      {15, 0, {2, 4, 8, 9, 10, 11, 12, 13, 16, 17, 49, 52, 53, 54, 56, 57, 58, 187, 208}},
      {0, 1, {44}},
      {1, 5, {22,  24,  25,  26,  27,  28,  29,  30,  31,  67,  69,  70,  72,  74,  76,  77,  79,  81,  83,
              85,  87,  88,  89,  90,  91,  92,  93,  94,  95,  102, 104, 105, 106, 107, 120, 121, 122, 123,
              124, 125, 126, 142, 143, 144, 145, 146, 147, 148, 149, 150, 151, 152, 153, 154, 155, 156, 157,
              158, 159, 176, 177, 178, 179, 180, 181, 182, 183, 184, 185, 186, 187, 188, 189, 208}},
      {2, 8, {48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 58, 59}},
  };
  LinkRig rig;
  rig.Open();
  for (const Known& known : kKnown) {
    std::set<int> silent;
    for (int command = 0; command < 256; ++command) {
      rig.dialogs.shown.clear();
      rig.ReceiveFields({known.address, known.packetId, static_cast<std::uint8_t>(command)});
      if (rig.dialogs.shown.empty() || command == 187) silent.insert(command);
      if (command == 99) {
        EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Unknown Command  " + std::to_string(known.address) +
                                                     " " + std::to_string(known.packetId) + " 99"));
      }
    }
    std::set<int> expected = known.commands;
    expected.insert(187);
    EXPECT_EQ(silent, expected) << "address " << int{known.address};
  }
}

TEST(Replies, NameAndNumberTheVideoStandards) {
  const char* const kTexts[] = {"NTSC",     "PAL",     "1080p/24", "1080i/60",
                                "1080i/50", "525i/60", "625i/50",  "720p/60"};
  int code = 0;
  for (const char* text : kTexts) {
    ++code;
    EXPECT_EQ(VideoStandardText(code), text);
    EXPECT_EQ(VideoStandardCode(text), code);
  }
  for (const int none : {-1, 0, 9, 255}) EXPECT_EQ(VideoStandardText(none), "");
  for (const char* none : {"", "ntsc", "2160p"}) EXPECT_EQ(VideoStandardCode(none), 0);
}

}  // namespace
}  // namespace marlinset
