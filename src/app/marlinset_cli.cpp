// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include "app/cli/commands.h"

namespace marlinset {
namespace {

void AddAnswers(CLI::App& command, CliOptions& options) {
  command.add_option("--answer", options.answers, "Answer to a question to come (repeatable)")
      ->type_name("yes|no|ok|cancel")
      ->check(CLI::IsMember({"yes", "no", "ok", "cancel"}))
      ->allow_extra_args(false);
}

CLI::App* AddScript(CLI::App& app, CliOptions& options) {
  CLI::App* script = app.add_subcommand("script", "Execute actions, one a line, with a JSON answer each");
  AddCommonOptions(*script, options.common);
  AddAnswers(*script, options);
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
  CLI::App* send = app.add_subcommand("send", "Send the default configuration to the unit");
  AddCommonOptions(*send, options.common);
  AddAnswers(*send, options);
  send->add_flag("--verbose", options.verbose, "Print each message with its meaning and its acknowledgement");
  return send;
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
  AddIdentify(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kExitDone : kExitUsage;
  }
  const QCoreApplication application(argc, argv);
  if (script->parsed()) return RunScript(options);
  return send->parsed() ? RunSend(options) : RunIdentify(options);
}

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  return marlinset::Main(argc, argv);
}
