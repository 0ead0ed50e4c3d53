// SPDX-License-Identifier: GPL-3.0-or-later
// Executes any lines as a script, on the complete tool with a virtual unit, files in memory and the virtual
// clock. Each line ends, causes only expected failures, and has one JSON object as its answer.
#include <cassert>
#include <map>
#include <sstream>
#include <string>

#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "tests/support/tool_rig.h"

namespace {

using namespace marlinset;

constexpr int kLongestWaitMs = 10 * 1000;
/// A whole send to a unit that does not answer takes some minutes, and a line can bring about several.
constexpr std::int64_t kLongestLineMs = 4 * 3600 * 1000;

/// A script may wait as long as it wants; here nobody does.
class ImpatientPump : public VirtualPump {
 public:
  void Pass(std::int64_t milliseconds) override {
    VirtualPump::Pass(std::min<std::int64_t>(milliseconds, kLongestWaitMs));
  }
};

/// Opens the reference database once for all inputs.
DataEngine& SharedEngine() {
  static SqliteEngine engine;
  return engine;
}

/// Files that live as long as this object, by their names without folders.
class MemoryFiles : public FileSystem {
 public:
  bool FileExists(const std::string& path) const override { return files_.contains(FileNameOf(path)); }
  FileIdentity Identify(const std::string& path) const override { return {FileNameOf(path)}; }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    if (!FileExists(path)) throw RuntimeError(kErrFileNotFound, "File not found");
    return std::make_unique<Input>(files_[FileNameOf(path)]);
  }
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
    return std::make_unique<Output>(files_[FileNameOf(path)]);
  }
  void Backup(const std::string& path) override {
    files_[FileNameOf(path) + ".bak"] = OpenForReading(path)->ReadAll();
  }
  void ChangeDirectory(const std::string& /*folder*/) override {}

 private:
  using Bytes = std::vector<std::uint8_t>;

  class Input : public InputFile {
   public:
    explicit Input(const Bytes& bytes) : bytes_(bytes) {}
    std::size_t Length() const override { return bytes_.size(); }
    Bytes ReadAll() override { return bytes_; }

   private:
    const Bytes bytes_;
  };

  class Output : public OutputFile {
   public:
    explicit Output(Bytes& bytes) : bytes_(bytes) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      content_.insert(content_.end(), bytes.begin(), bytes.end());
    }
    void Commit() override { bytes_ = content_; }

   private:
    Bytes& bytes_;
    Bytes content_;
  };

  std::map<std::string, Bytes> files_;
};

class Fuzz {
 public:
  Fuzz() {
    dialogs_.onShown = [](const MessageBox& box, BoxAnswer) { assert(!TellsOfFailure(box)); };
    computer_.line.SetPorts({1, 2, 3, 4});
    assert(tool_.Start("") && !script_.StartAnswer(true).empty());
  }

  void Execute(const std::string& line) {
    const std::int64_t begin = pump_.Now();
    const std::string text = script_.Execute(line);
    assert(pump_.Now() - begin < kLongestLineMs);
    if (text.empty()) return;
    const Json answer = Json::parse(text);
    assert(text.find('\n') == std::string::npos && answer.at("messages").is_array());
    assert(answer.at("ok").get<bool>() != answer.contains("error"));
  }
  bool Ended() const { return script_.Ended(); }

 private:
  FakeComputer<UnitLine, ImpatientPump> computer_;
  VirtualPump& pump_ = computer_.pump;
  RecordingLine line_{computer_.line, pump_};
  QueuedDialogs dialogs_;
  QueuedFileDialog fileDialog_{dialogs_};
  Guard guard_{dialogs_};
  MemoryFiles files_;
  Tool tool_{{pump_, line_, SharedEngine(), dialogs_, computer_.settings, guard_, fileDialog_, files_,
              computer_.printer, computer_.desktop, SHIPPED_DATABASE_FOLDER}};
  Script script_{tool_, dialogs_, fileDialog_, line_};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream lines(std::string(data, data + size));
  Fuzz fuzz;
  for (std::string line; !fuzz.Ended() && std::getline(lines, line);) fuzz.Execute(line);
  return 0;
}
