// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/variables_json.h"

#include <functional>
#include <map>

#include "app/tool.h"
#include "base/text.h"
#include "core/reference_arrays.h"

namespace marlinset {
namespace {

using Getter = std::function<Json(const Variables&)>;

template <class T>
Getter Plain(T Variables::*member) {
  return [member](const Variables& variables) { return Json(variables.*member); };
}

Json PacketJson(const Variables& variables) {
  Json fields = Json::array();
  for (const PacketField& field : variables.PacketFields) fields.push_back(field ? Json(*field) : Json());
  return fields;
}

const std::map<std::string_view, Getter>& Getters() {
  static const std::map<std::string_view, Getter> getters = {
      {"OperatingMode", Plain(&Variables::OperatingMode)},
      {"DatabasePath", Plain(&Variables::DatabasePath)},
      {"AppPath", Plain(&Variables::AppPath)},
      {"HardwareType", Plain(&Variables::HardwareType)},
      {"ParDisType", Plain(&Variables::ParDisType)},
      {"CurrentFile", Plain(&Variables::CurrentFile)},
      {"LoadFolder", Plain(&Variables::LoadFolder)},
      {"ConfigFolder", Plain(&Variables::ConfigFolder)},
      {"FileChannel", Plain(&Variables::FileChannel)},
      {"ConfigSaved", Plain(&Variables::ConfigSaved)},
      {"MainFormActive", Plain(&Variables::MainFormActive)},
      {"CurCharMaxRow", Plain(&Variables::CurCharMaxRow)},
      {"VsLastIndex", Plain(&Variables::VsLastIndex)},
      {"TbLastIndex", Plain(&Variables::TbLastIndex)},
      {"UbLastIndex", Plain(&Variables::UbLastIndex)},
      {"VitcChanging", Plain(&Variables::VitcChanging)},
      {"VitcLineDefault", Plain(&Variables::VitcLineDefault)},
      {"NextParameterClass", Plain(&Variables::NextParameterClass)},
      {"PacketFields", PacketJson},
      {"TxBytes", Plain(&Variables::TxBytes)},
      {"ActivityFrame", Plain(&Variables::ActivityFrame)},
      {"UnitLocalMode", Plain(&Variables::UnitLocalMode)},
      {"UnitVideoStandard", Plain(&Variables::UnitVideoStandard)},
      {"UnitStandardText", Plain(&Variables::UnitStandardText)},
      {"UnitIdText", Plain(&Variables::UnitIdText)},
      {"PortList", Plain(&Variables::PortList)},
      {"ComPortNumber", Plain(&Variables::ComPortNumber)},
      {"WaitFullReply", Plain(&Variables::WaitFullReply)},
      {"ComPortPresent",
       [](const Variables& variables) {
         const auto& present = variables.ComPortPresent;  // element 0 means no port
         return Json(std::vector<bool>(present.begin() + 1, present.end()));
       }},
  };
  return getters;
}

std::optional<Json> TimerJson(const FrmStart& form, std::string_view name) {
  for (const Timer* timer : {&form.InterTime, &form.dPause, &form.timeRes, &form.TimerNew, &form.tClearStat,
                             &form.Timer1, &form.AboutTimer1}) {
    if (timer->Name() == name) return Json{{"enabled", timer->Enabled()}, {"interval", timer->Interval()}};
  }
  return std::nullopt;
}

template <class Rec>
Json RowsJson(const std::vector<Rec>& records) {
  Json rows = Json::array();
  for (const Rec& record : records) {
    Json row = Json::object();
    for (const RecordColumn<Rec>& column : Rec::kColumns) {
      std::visit([&](auto field) { row[std::string(column.name)] = record.*field; }, column.field);
    }
    if constexpr (std::is_same_v<Rec, CharWindowRec>) row["Highlighted"] = record.Highlighted;
    rows.push_back(std::move(row));
  }
  return rows;
}

FieldValue FieldValueOf(const Json& value) {
  if (value.is_boolean()) return std::int64_t{value.get<bool>() ? -1 : 0};
  if (value.is_number_integer()) return value.get<std::int64_t>();
  if (value.is_number()) return value.get<double>();
  if (value.is_string()) return value.get<std::string>();
  return {};
}

template <class Rec>
std::string SetField(std::vector<Rec>& rows, int index, std::string_view field, const FieldValue& value) {
  if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) return "no such row";
  for (const RecordColumn<Rec>& column : Rec::kColumns) {
    if (!EqualNoCase(column.name, field)) continue;
    std::visit([&](auto member) { Assign(At(rows, index).*member, value); }, column.field);
    return {};
  }
  return "no such field";
}

}  // namespace

std::optional<Json> VariableJson(const Tool& tool, std::string_view name) {
  if (name == "Caption") return Json(tool.form.Caption());
  const auto found = Getters().find(name);
  if (found != Getters().end()) return found->second(tool.variables);
  return TimerJson(tool.form, name);
}

std::optional<Json> RecordsJson(const Tool& tool, std::string_view name) {
  std::optional<Json> json;
  ForEachReferenceArray([&](const auto& array) {
    if (array.name == name) json = RowsJson(tool.variables.*array.rows);
  });
  return json;
}

std::string SetRowField(Tool& tool, std::string_view array, int index, std::string_view field,
                        const Json& value) {
  std::string wrong = "rows of that array can't be set";
  const auto set = [&](const auto& working) {
    if (working.name == array) {
      wrong = SetField(tool.variables.*working.rows, index, field, FieldValueOf(value));
    }
  };
  try {
    set(ReferenceArrayOf(&Variables::CharWindows));
    set(ReferenceArrayOf(&Variables::SystemParameters));
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return wrong;
}

}  // namespace marlinset
