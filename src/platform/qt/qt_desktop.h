// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop.h"

namespace marlinset {

/// The desktop through Qt. It has no registry.
class QtDesktop : public Desktop {
 public:
  std::string DateAndTime() const override;
  RegistryValue Registry(const std::string& key, const std::string& name) const override;
  bool Run(const std::string& program) override;
};

}  // namespace marlinset
