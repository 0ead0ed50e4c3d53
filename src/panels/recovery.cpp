// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/recovery.h"

#include <utility>

#include "base/program_title.h"
#include "base/runtime_error.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/question_facts.h"
#include "core/variables.h"
#include "files/configuration_file.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "panels/unsaved_changes.h"
#include "platform/event_pump.h"
#include "platform/file_dialog.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {
namespace {
/// Together with the time until an edit is noticed, less than two seconds.
constexpr int kRestMs = 1500;
constexpr int kMostMs = 30000;
}  // namespace

Recovery::Recovery(Platform& platform, Variables& variables, FrmStart& form, ConfigurationFile& file,
                   UnsavedChanges& changes)
    : platform_(platform),
      vars_(variables),
      form_(form),
      file_(file),
      changes_(changes),
      rest_(platform.pump, platform.guard, "RecoveryRest", kRestMs),
      most_(platform.pump, platform.guard, "RecoveryMost", kMostMs) {
  rest_.OnTick([this] {
    if (!LineBusy()) KeepNow();
  });
  most_.OnTick([this] { KeepNow(); });
  changes_.Changed.Connect([this] { NoteChange(); });
  file_.SaveEnded.Connect(
      [this](SaveEnd end) { saveFailed_ = end != SaveEnd::kStored && changes_.Modified(); });
}

void Recovery::IncludePending(std::function<PendingEdits()> pending, Signal<>& changed) {
  pending_ = std::move(pending);
  pendingChanged_.emplace(changed, [this] { NoteChange(); });
}

void Recovery::Offer() {
  if (!platform_.work) return;
  for (const LeftWork& left : platform_.work->Left()) {
    if (!platform_.dialogs.Ask("Unsaved changes to \"" + left.title + "\" of " + left.when +
                                   " were kept when the program ended. Restore them?",
                               FileFact("File", left.fileName))) {
      platform_.work->DeclineLeft(left.file);
    } else if (!platform_.files.FileExists(left.file)) {
      platform_.dialogs.Tell("Another window has restored or declined these changes meanwhile.");
    } else if (Restore(left)) {
      restored_ = true;
      return;
    }
  }
}

void Recovery::Begin() {
  if (!platform_.work) return;
  begun_ = true;
  if (changes_.Modified()) NoteChange();
}

void Recovery::NoteChange() {
  if (!begun_) return;
  rest_.Restart();
  most_.SetEnabled(true);
}

/// Writing to a disk takes a while, during which no byte would be sent and no answer heard.
bool Recovery::LineBusy() const {
  return form_.dPause.Enabled() || form_.TimerNew.Enabled() || form_.timeRes.Enabled() ||
         (platform_.ComP1.PortOpen() && platform_.ComP1.OutBufferCount() > 0);
}

/// Returns False if the composition can't be read; the operator has then been told, and it stays where it is.
bool Recovery::Restore(const LeftWork& left) {
  std::string& name = platform_.fileDialog.FileName;
  const std::string nameBefore = std::exchange(name, left.file);
  file_.ReadConfigFile();
  const bool loaded = file_.LastRead() == ReadEnd::kLoaded;
  name = loaded ? left.fileName : nameBefore;
  if (!loaded) return false;
  changes_.CountAsUnsaved();
  file_.TakeName(left);
  form_.StatBar(FrmStart::kModelPanel).SetText("Unsaved changes restored ");
  vars_.ConfigSaved = false;
  Keep();
  if (kept_) platform_.work->DropLeft(left.file);
  return true;
}

void Recovery::BeforeReplacing() {
  if (platform_.work && saveFailed_) {
    Keep();
    platform_.work->Leave();
    kept_.reset();
  }
  saveFailed_ = false;
}

void Recovery::Discard() {
  discarded_ = true;
}

/// At a regular end, the operator has been asked about every change that ConfigSaved counts. Drops all
/// others, unless a save failed.
void Recovery::End() {
  if (!platform_.work) return;
  const bool wanted = !vars_.ConfigSaved || saveFailed_;
  if (!wanted) Discard();
  KeepNow();
  begun_ = false;
}

void Recovery::KeepNow() {
  if (!begun_ || file_.Reading()) return;  // a load is between two configurations
  rest_.SetEnabled(false);
  most_.SetEnabled(false);
  KeepOrDrop();
  if (told_) most_.SetEnabled(true);  // there may be room again later
}

void Recovery::Leave() {
  if (!platform_.work) return;
  KeepNow();
  begun_ = false;
  platform_.work->Leave();
}

void Recovery::KeepOrDrop() {
  if ((changes_.Modified() || EditsPending()) && !discarded_) return Keep();
  platform_.work->Drop();
  kept_.reset();
}

/// Whether pending edits will change the composition.
bool Recovery::EditsPending() const {
  const PendingEdits edits = pending_();
  if (edits.empty()) return false;
  try {
    return WriteDocument(DocumentOfPanels(vars_, form_, edits)) !=
           WriteDocument(DocumentOfPanels(vars_, form_));
  } catch (const RuntimeError&) {
    return false;
  }
}

/// Keeps the work, or reports once that it can't; never touches the operator's own files.
void Recovery::Keep() {
  try {
    UnsavedWork work{vars_.CurrentFile, file_.Path(),
                     WriteDocument(DocumentOfPanels(vars_, form_, pending_())), file_.Mark()};
    if (work == kept_) return;
    platform_.work->Keep(work);
    kept_ = std::move(work);
    told_ = false;
  } catch (const RuntimeError& failure) {
    if (told_) return;
    told_ = true;
    form_.StatBar(FrmStart::kModelPanel)
        .SetText("Save changes: " + failure.Description() + ", nothing is kept aside");
  }
}

}  // namespace marlinset
