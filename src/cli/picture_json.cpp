// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/picture_json.h"

#include "picture/geometry.h"
#include "picture/remarks.h"

namespace marlinset {
namespace {

Json PlaceJson(const CellRect& place) {
  return {{"left", place.left}, {"top", place.top}, {"columns", place.columns}, {"units", place.units}};
}

}  // namespace

Json WindowsJson(const PicturePlan& plan) {
  Json json = {{"picture", nullptr}};
  if (plan.area) {
    json["picture"] = PlaceJson(*plan.area);
    json["picture"]["shape"] = plan.wide ? "16:9" : "4:3";
  } else {
    json["why"] = plan.trouble;
  }
  json["windows"] = Json::array();
  for (const PlannedWindow& window : plan.windows) {
    Json row = {{"name", window.name}, {"row", window.row}};
    row.update(PlaceJson(window.place));
    row.update({{"on", window.on}, {"slate", window.slate}, {"sample", window.sample}});
    json["windows"].push_back(std::move(row));
  }
  return json;
}

Json RemarksJson(const std::vector<Remark>& remarks) {
  Json json = Json::array();
  for (const Remark& remark : remarks) {
    json.push_back({{"rule", remark.rule},
                    {"severity", NameOf(remark.severity)},
                    {"controls", remark.controls},
                    {"text", remark.text}});
  }
  return json;
}

}  // namespace marlinset
