// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/known_files.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/content_hash.h"

namespace marlinset {
namespace {

constexpr const char* kNever = "never";
constexpr const char* kUnreadable = "unreadable";

std::string MarkOf(std::span<const std::uint8_t> content) {
  return std::to_string(content.size()) + " " + HexText(ContentHash(content));
}

std::string FolderOf(const std::string& name) {
  const std::string folder = FolderOfPath(name);
  return folder.empty() ? "." : folder;
}

}  // namespace

void KnownFiles::Note(const std::string& name, std::optional<std::span<const std::uint8_t>> content) {
  marks_[files_.Identify(name).place] = content ? MarkOf(*content) : kUnreadable;
}

std::optional<std::string> KnownFiles::Find(const std::string& name) const {
  const FileIdentity file = files_.Identify(name);
  const auto found = marks_.find(file.place);
  if (found != marks_.end()) return found->second;
  const auto linked = std::find_if(marks_.begin(), marks_.end(),
                                   [&](const auto& known) { return IsStill(known.first, file); });
  if (linked == marks_.end()) return std::nullopt;
  return linked->second;
}

/// Whether the file recorded under `place` is still this one: a link put there since leads to somebody else's
/// file.
bool KnownFiles::IsStill(const std::string& place, const FileIdentity& file) const {
  const FileIdentity present = files_.Identify(place);
  return present.place == place && present.IsSame(file);
}

std::string KnownFiles::MarkNow(const std::string& name) const {
  try {
    return MarkOf(files_.OpenForReading(name)->ReadAll());
  } catch (const RuntimeError&) {
    return kUnreadable;
  }
}

bool KnownFiles::IsAsItWas(const std::string& name) const {
  return Find(name) == MarkNow(name);
}

void KnownFiles::Open(const std::string& name) {
  openPlace_ = files_.Identify(name).place;
  openFolder_ = files_.Identify(FolderOf(name)).place;
}

KnownFiles::OpenFile KnownFiles::Opened() const {
  const auto mark = marks_.find(openPlace_);
  return {openPlace_, openFolder_, mark == marks_.end() ? std::nullopt : std::optional(mark->second)};
}

bool KnownFiles::TakeOpened(const OpenFile& file) {
  openPlace_ = file.place;
  openFolder_ = file.folder;
  const bool same = Opened().mark == file.mark;
  if (file.mark) {
    marks_[file.place] = *file.mark;
  } else {
    marks_.erase(file.place);
  }
  return same;
}

bool KnownFiles::IsOpen(const std::string& name) const {
  return IsStill(openPlace_, files_.Identify(name));
}

bool KnownFiles::IsElsewhere(const std::string& name) const {
  const FileIdentity folder = files_.Identify(FolderOf(name));
  return marks_.contains(openPlace_) && folder.IsThere() && folder.place != openFolder_;
}

std::string KnownFiles::BehindLink(const std::string& name) const {
  const std::string place = files_.Identify(name).place;
  const bool stays = FileNameOf(place) == FileNameOf(name) &&
                     files_.Identify(FolderOf(name)).place == files_.Identify(FolderOf(place)).place;
  return stays ? "" : place;
}

std::string KnownFiles::Mark(const std::string& name) const {
  return Find(name).value_or(kNever);
}

void KnownFiles::TakeMark(const std::string& name, const std::string& mark) {
  if (mark == kNever || (mark.empty() && !files_.FileExists(name))) return;
  marks_[files_.Identify(name).place] = mark.empty() ? MarkNow(name) : mark;
}

}  // namespace marlinset
