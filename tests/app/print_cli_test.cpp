// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <utility>

#include "tests/app/child_program.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using json = nlohmann::json;

constexpr auto kSample = SAMPLE_FOLDER "version_2.qcf";

/// The record as it comes out of the programs, on a machine without a display.
class PrintCliTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(display);
  }
  int Print(std::vector<std::string> options) {
    options.insert(options.begin(), {"print", "--settings", folder_.File("settings.ini")});
    return CliProgram(options).End();
  }
  std::string TextOf(const std::string& name) const {
    const std::string text = folder_.File(name + ".txt");
    EXPECT_EQ(ChildProgram(PDFTOTEXT, {"-layout", folder_.File(name), text}).End(), 0);
    return folder_.Read(name + ".txt");
  }
  TempFolder folder_;
};

TEST_F(PrintCliTest, ADocumentCanBeReadAndSearched) {
  EXPECT_EQ(Print({kSample, "-o", folder_.File("a.pdf")}), 0);
  EXPECT_THAT(folder_.Read("a.pdf"), StartsWith("%PDF-"));
  const std::string text = TextOf("a.pdf");
  EXPECT_THAT(
      text, AllOf(HasSubstr("7340 Marlinset - version_2"), HasSubstr("Page 1 of 2"), HasSubstr("Page 2 of 2"),
                  HasSubstr("x VITC Enabled"), HasSubstr("Take 3 \u00E9"), HasSubstr("White on Grey Box")));
  EXPECT_THAT(text, AllOf(HasSubstr("Small (16 lines/field)"), HasSubstr("Offset")))
      << "letters, no ligatures";
  EXPECT_EQ(Print({"-o", folder_.File("defaults.pdf")}), 0);
  EXPECT_THAT(TextOf("defaults.pdf"), AllOf(HasSubstr("1080i/60"), Not(HasSubstr("Processing Mode"))));
}

TEST_F(PrintCliTest, WhatCannotBePrintedLeavesTheOldDocument) {
  folder_.Write("bad.qcf", "QCF");
  folder_.Write("old.pdf", "as it was");
  EXPECT_EQ(Print({folder_.File("bad.qcf"), "-o", folder_.File("old.pdf")}), 1);
  EXPECT_EQ(folder_.Read("old.pdf"), "as it was");
  EXPECT_EQ(Print({kSample, "-o", folder_.File("none/a.pdf")}), 1);
  EXPECT_EQ(Print({"-o", ""}), 1);
  EXPECT_EQ(Print({kSample}), 2);
  const std::string pipe = folder_.File("pipe.pdf");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(Print({"-o", pipe}), 1);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe)) << "only a file gives way to a document";
}

TEST_F(PrintCliTest, TheDocumentHasTheLocalesPaper) {
  unsetenv("LC_ALL");
  for (const auto& [locale, paper] : {std::pair("de_DE.UTF-8", "[0 0 595."), {"en_US.UTF-8", "[0 0 612."}}) {
    setenv("LC_MEASUREMENT", locale, 1);
    EXPECT_EQ(Print({"-o", folder_.File("a.pdf")}), 0);
    EXPECT_THAT(folder_.Read("a.pdf"), HasSubstr(std::string("/MediaBox ") + paper));
  }
  unsetenv("LC_MEASUREMENT");
}

TEST_F(PrintCliTest, AScriptSeesPagesAndTheAboutBox) {
  CliProgram script({"script", "--clock", "virtual", "--settings", folder_.File("settings.ini")});
  const auto answer = [&](const std::string& line) {
    if (!line.empty()) script.Tell(line);
    return json::parse(script.ReadLine(), nullptr, false);
  };
  answer("");
  const json pages = answer("click mnuPrint")["messages"];
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0]["kind"], "page");
  EXPECT_THAT(pages[0]["text"].get<std::vector<std::string>>(), testing::Contains("Page 1 of 2"));
  EXPECT_THAT(pages[1]["text"].get<std::vector<std::string>>(), testing::Contains("Page 2 of 2"));
  EXPECT_EQ(answer("click mnuAbout")["messages"], json::parse(R"([{"kind":"dialog","name":"frmAbout"}])"));
  script.Tell("quit");
  EXPECT_EQ(script.End(), 0);
}

}  // namespace
}  // namespace marlinset
