// SPDX-License-Identifier: GPL-3.0-or-later
// show, diff and compose: configuration files without the tool.
#include <stdexcept>

#include "base/printable.h"
#include "cli/commands.h"
#include "cli/configuration_input.h"
#include "cli/document_json.h"
#include "cli/output.h"
#include "files/qcf_listing.h"
#include "files/qcf_writer.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"
#include "platform/posix/local_files.h"
#include "platform/posix/streams.h"

namespace marlinset {
namespace {

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
      const QcfDocument document = ReadConfiguration(path);
      if (options.json) {
        PrintJson(DocumentJson(document));
      } else {
        if (options.configurations.size() > 1) PrintLine(path + ":");
        for (const QcfLine& line : ListingOf(document)) PrintLine(Printable(line.name + ": " + line.text));
      }
    } catch (const std::runtime_error& error) {
      PrintError(error, path, options.json);
      status = kExitNotDone;
    }
  }
  return status;
}

int RunDiff(const CliOptions& options) {
  try {
    const QcfDocument left = ReadConfiguration(options.configurations.at(0));
    const QcfDocument right = ReadConfiguration(options.configurations.at(1));
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
