// SPDX-License-Identifier: GPL-3.0-or-later
// show, diff and compose: configuration files without the tool.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "app/cli/commands.h"
#include "app/cli/document_json.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "platform/local_files.h"
#include "platform/text.h"

namespace marlinset {
namespace {

void PrintLine(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::putchar('\n');
}

/// Texts of other people's files neither steer the terminal nor leave their line: a control character is
/// printed as \x and its two digits.
std::string Printable(const std::string& text) {
  constexpr char kFirstOfTwo = '\xC2';  // U+0080 to U+009F are controls too
  std::string printable;
  printable.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool ofTwo =
        text[i] == kFirstOfTwo && i + 1 < text.size() && static_cast<std::uint8_t>(text[i + 1]) < 0xA0;
    if (ofTwo) ++i;
    const auto byte = static_cast<std::uint8_t>(text[i]);
    if (ofTwo || byte < ' ' || byte == 0x7F) {
      printable += "\\x" + HexByte(byte);
    } else {
      printable += text[i];
    }
  }
  return printable;
}

void PrintJson(const Json& json) {
  PrintLine(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

/// Throws std::runtime_error with what is wrong with the file.
QcfDocument ReadFile(const std::string& path) {
  LocalFiles files;
  std::vector<std::uint8_t> bytes;
  try {
    bytes = files.OpenForReading(path)->ReadAll();
  } catch (const RuntimeError& failure) {
    throw std::runtime_error(path + ": " + failure.Description());
  }
  try {
    return ReadDocument(bytes);
  } catch (const QcfError& failure) {
    throw std::runtime_error(path + (failure.Which() == QcfError::Fault::kNoModel
                                         ? ": holds no configuration of a 7340"
                                         : ": is no configuration file"));
  } catch (const RuntimeError&) {
    throw std::runtime_error(path + ": is damaged");
  }
}

void PrintError(const std::exception& error) {
  std::fprintf(stderr, "marlinset-cli: %s\n", error.what());
}

std::string Text(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in && text.empty()) throw std::runtime_error(path + ": can't be read");
  return text;
}

void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw RuntimeError(kErrFileAccess, "can't be written");
}

/// Takes the place of an old file only once the new one is whole; the old one is kept as `kept`.
void ReplaceFile(const std::string& path, const std::string& kept, const std::vector<std::uint8_t>& bytes) {
  const std::string growing = path + ".new";
  try {
    WriteBytes(growing, bytes);
    LocalFiles files;
    if (files.FileExists(path)) files.Copy(path, kept);
    std::filesystem::rename(growing, path);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove(growing, ignored);
    throw;
  }
}

/// Links go on leading to their file, and pipes and devices, such as the standard output, stay what they are.
void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  namespace fs = std::filesystem;
  std::error_code unknown;
  const std::string kept = path + ".bak";
  if (fs::is_regular_file(path, unknown)) return ReplaceFile(fs::canonical(path).string(), kept, bytes);
  if (fs::exists(fs::symlink_status(path, unknown))) return WriteBytes(path, bytes);
  ReplaceFile(path, kept, bytes);
}

/// What was printed has to arrive somewhere.
int Printed(int status) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  std::fputs("marlinset-cli: the output can't be written\n", stderr);
  return status == kExitDone ? kExitNotDone : status;
}

const char* WordOf(QcfDifference difference) {
  switch (difference) {
    case QcfDifference::kEqual:
      return "equal";
    case QcfDifference::kChanged:
      return "changed";
    case QcfDifference::kOnlyLeft:
      return "only left";
    case QcfDifference::kOnlyRight:
      return "only right";
  }
  return "";
}

}  // namespace

int RunShow(const CliOptions& options) {
  int status = kExitDone;
  for (const std::string& path : options.configurations) {
    try {
      const QcfDocument document = ReadFile(path);
      if (options.json) {
        PrintJson(DocumentJson(document));
      } else {
        if (options.configurations.size() > 1) PrintLine(path + ":");
        for (const QcfLine& line : ListingOf(document)) PrintLine(Printable(line.name + ": " + line.text));
      }
    } catch (const std::runtime_error& error) {
      PrintError(error);
      if (options.json) PrintJson({{"file", path}, {"error", error.what()}});
      status = kExitNotDone;
    }
  }
  return Printed(status);
}

int RunDiff(const CliOptions& options) {
  try {
    const QcfDocument left = ReadFile(options.configurations.at(0));
    const QcfDocument right = ReadFile(options.configurations.at(1));
    int status = kExitDone;
    for (const QcfComparison& line : Compare(left, right)) {
      std::string text = WordOf(line.difference);
      text.resize(12, ' ');
      text += line.name + ": " + line.left;
      if (line.difference == QcfDifference::kChanged) text += " -> ";
      if (line.difference != QcfDifference::kEqual) {
        text += line.right;
        status = kExitNotDone;
      }
      PrintLine(Printable(text));
    }
    return Printed(status);
  } catch (const std::runtime_error& error) {
    PrintError(error);
    return kExitUsage;
  }
}

int RunCompose(const CliOptions& options) {
  try {
    const Json json = Json::parse(Text(options.configurations.at(0)), nullptr, false);
    if (json.is_discarded()) throw std::runtime_error(options.configurations.at(0) + ": is no JSON");
    WriteFile(options.output, WriteDocument(DocumentOfJson(json)));
    return kExitDone;
  } catch (const RuntimeError& failure) {
    PrintError(std::runtime_error(options.output + ": " + failure.Description()));
  } catch (const std::exception& error) {
    PrintError(error);
  }
  return kExitNotDone;
}

}  // namespace marlinset
