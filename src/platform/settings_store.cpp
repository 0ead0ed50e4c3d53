// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/settings_store.h"

#include <cmath>
#include <limits>

#include "base/numbers.h"

namespace marlinset {

int SettingNumber(const SettingsStore& settings, std::string_view key, std::string_view defaultValue) {
  const double number = std::nearbyint(LeadingNumberOf(settings.GetSetting(key, defaultValue)));
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) return 0;
  return static_cast<int>(number);
}

}  // namespace marlinset
