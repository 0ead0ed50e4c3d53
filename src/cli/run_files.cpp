// SPDX-License-Identifier: GPL-3.0-or-later
// show, diff and compose: configuration files without the tool.
#include <cstdio>
#include <stdexcept>

#include "base/text.h"
#include "cli/commands.h"
#include "cli/document_json.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"
#include "platform/posix/local_files.h"
#include "platform/posix/streams.h"

namespace marlinset {
namespace {

void PrintLine(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::putchar('\n');
}

/// Texts of other people's files must not control the terminal or leave their line: prints a control
/// character as \x and its two digits.
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

/// Throws std::runtime_error that says what is wrong with the file.
QcfDocument ReadFile(const std::string& path) {
  LocalFiles files;
  std::vector<std::uint8_t> bytes;
  try {
    bytes = files.OpenForReading(path)->ReadAll();
  } catch (const RuntimeError& failure) {
    throw std::runtime_error(InOneLine(failure));
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

/// Another program's output may arrive through a stream: /dev/stdin.
Json ReadJson(const std::string& path) {
  const auto stream = OwnStream(path);
  try {
    return ParseJson(stream ? ReadStream(*stream, path) : ReadText(path));
  } catch (const std::runtime_error& wrong) {
    throw std::runtime_error(path + ": " + wrong.what());
  }
}

/// Keeps an existing file beside the new one.
void WriteConfiguration(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  if (WriteStraight(path, bytes)) return;
  LocalFiles files;
  const auto file = files.OpenForWriting(path);
  file->Write(bytes);
  if (files.FileExists(path)) files.Backup(path);
  file->Commit();
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
  return status;
}

int RunDiff(const CliOptions& options) {
  try {
    const QcfDocument left = ReadFile(options.configurations.at(0));
    const QcfDocument right = ReadFile(options.configurations.at(1));
    int status = kExitDone;
    for (const QcfComparison& line : Compare(left, right)) {
      if (line.difference == QcfDifference::kEqual && !options.all) continue;
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
    return status;
  } catch (const std::runtime_error& error) {
    PrintError(error);
    return kExitUsage;
  }
}

int RunCompose(const CliOptions& options) {
  try {
    WriteConfiguration(options.output, WriteDocument(DocumentOfJson(ReadJson(options.configurations.at(0)))));
    return kExitDone;
  } catch (const RuntimeError& failure) {
    PrintError(std::runtime_error(InOneLine(failure)));
  } catch (const std::exception& error) {
    PrintError(error);
  }
  return kExitNotDone;
}

}  // namespace marlinset
