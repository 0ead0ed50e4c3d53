// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace marlinset {

/// Ends a command line that did not lead to a run: prints what was asked for (--help, --version) and returns
/// 0, or what is wrong, in printable characters, and returns `wrongUse`.
int EndOfOptions(const CLI::App& app, const CLI::ParseError& error, int wrongUse);

}  // namespace marlinset
