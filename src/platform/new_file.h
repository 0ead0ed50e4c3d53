// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

struct Platform;

/// A question for a file that is made from the configuration: a document, a table.
struct NewFileQuestion {
  std::string title;
  std::string kind;       ///< in the dialog's list of patterns: "PDF document"
  std::string extension;  ///< with its point
  std::string suffix;     ///< between the configuration's name and the extension: " windows"
};

/// Asks with the tool's one file dialog, which has the state of the configuration in work again afterwards.
/// Suggests that one's folder and name. The answer has the extension; an existing file is confirmed first.
/// Empty if the operator decides against it. `unsaved` names a configuration without a file, `folder` is
/// where its files would go.
std::string AskForNewFile(const Platform& platform, const NewFileQuestion& question,
                          const std::string& unsaved, const std::string& folder);

}  // namespace marlinset
