// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/unsaved_changes.h"

#include <utility>

#include "core/frm_start.h"
#include "core/variables.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "platform/event_pump.h"
#include "platform/platform.h"

namespace marlinset {
namespace {
/// Milliseconds from the first touch of a control to the comparison: one comparison for everything that one
/// action does, too short to be noticed.
constexpr int kLookMs = 100;
}  // namespace

UnsavedChanges::UnsavedChanges(Platform& platform, const Variables& variables, FrmStart& form,
                               ConfigurationFile& file)
    : vars_(variables),
      form_(form),
      file_(file),
      timer_(platform.pump, platform.guard, "UnsavedChanges", kLookMs),
      touched_(form.Touched, [this] { timer_.SetEnabled(begun_); }) {
  timer_.OnTick([this] {
    if (file_.Reading()) return;  // a load is between two compositions
    timer_.SetEnabled(false);
    form_.ListenAgain();
    Look();
  });
  file_.Replaced.Connect([this] {
    const bool defaults = file_.LastRead() == ReadEnd::kNotReadable;
    CountAsStored(defaults ? ConfigurationFile::Copy{} : file_.CopyInUse());
  });
  file_.SaveEnded.Connect([this](SaveEnd end) {
    if (end == SaveEnd::kStored) CountAsStored(file_.CopyInUse());
    if (end == SaveEnd::kDeclined || end == SaveEnd::kFailed) NoteRefused(end);
  });
}

std::optional<UnsavedChanges::Bytes> UnsavedChanges::Composition() const {
  try {
    return WriteDocument(DocumentOfPanels(vars_, form_));
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

bool UnsavedChanges::Modified() const {
  return stored_.saveMissed || !IsStored();
}

bool UnsavedChanges::IsStored() const {
  return IsStored(Composition());
}

bool UnsavedChanges::IsStored(const std::optional<Bytes>& composition) const {
  if (!begun_ || stored_.nowhere) return !begun_;
  const Bytes* stored = stored_.composition.get();
  return stored ? composition == *stored : !composition;
}

void UnsavedChanges::CountAsStored(const ConfigurationFile::Copy& copy) {
  if (!std::exchange(begun_, true)) form_.ListenAgain();
  std::optional<Bytes> composition = Composition();
  TakeStored({.composition = composition ? std::make_shared<const Bytes>(*std::move(composition)) : nullptr,
              .copy = copy});
}

/// A save that ended without storing touches no file, but others may have changed the one that was read. The
/// title may name a file that was never written.
void UnsavedChanges::NoteRefused(SaveEnd end) {
  stored_.nowhere = stored_.nowhere || !file_.IsThere(stored_.copy);
  stored_.saveMissed = stored_.saveMissed || end == SaveEnd::kFailed || IsStored();
  Look();
}

void UnsavedChanges::TakeStored(const Stored& stored) {
  stored_ = stored;
  Look();
}

void UnsavedChanges::CountAsUnsaved() {
  stored_.nowhere = true;
  Look();
}

void UnsavedChanges::Look() {
  std::optional<Bytes> composition = Composition();
  const bool modified = stored_.saveMissed || !IsStored(composition);
  const bool same = composition == seen_ && modified == seenModified_;
  seen_ = std::move(composition);
  seenModified_ = modified;
  if (!same) Changed.Emit();
}

}  // namespace marlinset
