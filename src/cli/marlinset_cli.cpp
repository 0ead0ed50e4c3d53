// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <QGuiApplication>
#include <csignal>
#include <cstdio>
#include <exception>

#include "app/command_line.h"
#include "base/runtime_error.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "platform/posix/streams.h"

namespace marlinset {
namespace {

void AddDialogAnswers(CLI::App& command, CliOptions& options) {
  command.add_option("--answer", options.answers, "Answer to a question to come (repeatable)")
      ->type_name("yes|no|ok|cancel")
      ->check(CLI::IsMember({"yes", "no", "ok", "cancel"}))
      ->allow_extra_args(false);
  command.add_option("--file", options.files, "Answer to a file dialog to come (repeatable)")
      ->type_name("PATH|cancel")
      ->allow_extra_args(false);
}

CLI::App* AddScript(CLI::App& app, CliOptions& options) {
  CLI::App* script = app.add_subcommand("script", "Execute actions, one a line, with a JSON answer each");
  AddCommonOptions(*script, options.common);
  AddDialogAnswers(*script, options);
  script
      ->add_option_function<std::string>(
          "--clock", [&options](const std::string& clock) { options.virtualClock = clock == "virtual"; },
          "virtual: waits and timers pass at once, without a line")
      ->type_name("real|virtual")
      ->check(CLI::IsMember({"real", "virtual"}));
  script->add_option("FILE", options.scriptFile, "Script; without it standard input");
  return script;
}

CLI::App* AddSend(CLI::App& app, CliOptions& options) {
  CLI::App* send = app.add_subcommand("send", "Send a configuration to the unit");
  AddCommonOptions(*send, options.common);
  AddDialogAnswers(*send, options);
  CLI::Option* verbose = send->add_flag("--verbose", options.verbose,
                                        "Print each message with its meaning and its acknowledgement");
  send->add_flag("--json", options.json, "Print how it ended as one JSON object")->excludes(verbose);
  send->add_option("FILE", options.configurations, "Configuration file; without it the defaults")
      ->expected(0, 1);
  return send;
}

CLI::App* AddPrint(CLI::App& app, CliOptions& options) {
  CLI::App* print = app.add_subcommand("print", "Print a configuration into a PDF document");
  AddCommonOptions(*print, options.common);
  AddDialogAnswers(*print, options);
  print->add_option("FILE", options.configurations, "Configuration file; without it the defaults")
      ->expected(0, 1);
  print->add_option("-o,--output", options.output, "PDF document to write")->type_name("FILE")->required();
  return print;
}

CLI::App* AddPicture(CLI::App& app, CliOptions& options) {
  CLI::App* picture =
      app.add_subcommand("picture", "Draw where a configuration shows its windows into a PNG file");
  AddCommonOptions(*picture, options.common);
  AddDialogAnswers(*picture, options);
  picture->add_option("FILE", options.configurations, "Configuration file; without it the defaults")
      ->expected(0, 1);
  picture->add_option("-o,--output", options.output, "PNG file to write")->type_name("FILE")->required();
  picture->add_option("--width", options.picture.width, "Width in pixels; default: 960")
      ->type_name("N")
      ->check(CLI::Range(kLeastPictureWidth, kMostPictureWidth));
  picture->add_option("--background", options.picture.background, "Still to show behind the windows")
      ->type_name("IMAGE")
      ->check([](const std::string& path) { return path.empty() ? "a background needs a file" : ""; });
  picture->add_flag("--safe", options.picture.safe, "Draw the frames of 90 % and 80 %");
  picture->add_flag("--slate", options.picture.slate, "Show the windows of the virtual slate too");
  return picture;
}

/// Fonts need the desktop's library, but not a desktop.
int PrintWithoutDisplay(int argc, char** argv, const CliOptions& options) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RunPrint(options);
}

CLI::App* AddShow(CLI::App& app, CliOptions& options) {
  CLI::App* show = app.add_subcommand("show", "List what configuration files hold");
  show->add_flag("--json", options.json, "One JSON object a line and file");
  show->add_option("FILE", options.configurations, "Configuration files")->required();
  return show;
}

CLI::App* AddDiff(CLI::App& app, CliOptions& options) {
  CLI::App* diff = app.add_subcommand("diff", "Compare two configuration files");
  diff->add_flag("--all", options.all, "Print also what is equal");
  diff->add_option("FILE", options.configurations, "The left and the right file")->required()->expected(2);
  return diff;
}

CLI::App* AddCompose(CLI::App& app, CliOptions& options) {
  CLI::App* compose =
      app.add_subcommand("compose", "Write a configuration file from what show --json printed");
  compose->add_option("JSON", options.configurations, "The JSON text")->required()->expected(1);
  compose->add_option("-o,--output", options.output, "Configuration file to write")
      ->type_name("FILE")
      ->required();
  return compose;
}

CLI::App* AddCheck(CLI::App& app, CliOptions& options) {
  CLI::App* check = app.add_subcommand("check", "Look for what is wrong in configuration files");
  AddCommonOptions(*check, options.common);
  check->add_flag("--json", options.json, "One JSON object a line and file");
  check->add_option("FILE", options.configurations, "Configuration files")->required();
  return check;
}

/// The operating mode and the reference database go on to each send; devices and settings are the rack's own.
CLI::App* AddRack(CLI::App& app, CliOptions& options) {
  constexpr std::size_t kMostJobs = 256;
  CLI::App* rack = app.add_subcommand("rack", "Send configurations to many units at the same time");
  AddDataOptions(*rack, options.common);
  rack->add_option("--only", options.rack.only, "Only the unit of this name (repeatable)")
      ->type_name("NAME")
      ->allow_extra_args(false);
  rack->add_option("--jobs", options.rack.jobs, "Units at a time; default: 8")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{1}, kMostJobs));
  rack->add_flag("--dry-run", options.rack.dryRun, "Look at everything and send nothing");
  rack->add_flag("--json", options.json, "One JSON object a line and unit");
  rack->add_option("--answer", options.answers, "Answer to a question to come, for each unit (repeatable)")
      ->type_name("yes|no|ok")
      ->check(CLI::IsMember({"yes", "no", "ok"}))
      ->allow_extra_args(false);
  rack->add_option("RACK", options.rack.file, "The rack: a JSON file of units")->required();
  return rack;
}

CLI::App* AddIdentify(CLI::App& app, CliOptions& options) {
  CLI::App* identify = app.add_subcommand("identify", "Ask the unit for model, video standard and firmware");
  AddCommonOptions(*identify, options.common);
  return identify;
}

int Main(int argc, char** argv) {
  CliOptions options;
  CLI::App app("Configuration tool of the 7340 units without a window", "marlinset-cli");
  app.set_version_flag("--version", "marlinset-cli " MARLINSET_VERSION);
  app.require_subcommand(1);
  const CLI::App* script = AddScript(app, options);
  const CLI::App* send = AddSend(app, options);
  const CLI::App* print = AddPrint(app, options);
  const CLI::App* picture = AddPicture(app, options);
  const CLI::App* show = AddShow(app, options);
  const CLI::App* diff = AddDiff(app, options);
  const CLI::App* compose = AddCompose(app, options);
  const CLI::App* check = AddCheck(app, options);
  AddIdentify(app, options);
  const CLI::App* rack = AddRack(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return EndOfOptions(app, error, kExitUsage);
  }
  if (show->parsed()) return RunShow(options);
  if (diff->parsed()) return RunDiff(options);
  if (compose->parsed()) return RunCompose(options);
  if (print->parsed()) return PrintWithoutDisplay(argc, argv, options);
  const QCoreApplication application(argc, argv);
  if (script->parsed()) return RunScript(options);
  if (check->parsed()) return RunCheck(options);
  if (rack->parsed()) return RunRack(options);
  if (picture->parsed()) return RunPicture(options);
  return send->parsed() ? RunSend(options) : RunIdentify(options);
}

/// Fails if the output could not be written.
int Printed(int status) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  std::fputs("marlinset-cli: the output cannot be written\n", stderr);
  return status == kExitDone ? kExitNotDone : status;
}

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  marlinset::HoldStandardStreams();
  std::signal(SIGXFSZ, SIG_IGN);  // a file at its size limit is a failed save
  try {
    return marlinset::Printed(marlinset::Main(argc, argv));
  } catch (const marlinset::RuntimeError& failure) {
    marlinset::PrintError(failure);
    marlinset::PrintFault(failure.Remedy());
    return marlinset::kExitStart;
  } catch (const std::exception& error) {
    marlinset::PrintError(error);
    return marlinset::kExitNotDone;
  }
}
