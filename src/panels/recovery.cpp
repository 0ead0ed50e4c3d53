// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/recovery.h"

#include <utility>

#include "core/frm_start.h"
#include "core/question_facts.h"
#include "core/variables.h"
#include "files/configuration_file.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "panels/unsaved_changes.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_dialog.h"
#include "platform/platform.h"
#include "platform/runtime_error.h"

namespace marlinset {
namespace {
constexpr int kIntervalMs = 30000;
}

Recovery::Recovery(Platform& platform, Variables& variables, FrmStart& form, ConfigurationFile& file,
                   UnsavedChanges& changes)
    : platform_(platform),
      vars_(variables),
      form_(form),
      file_(file),
      changes_(changes),
      timer_(platform.pump, platform.guard, "Recovery", kIntervalMs) {
  timer_.OnTick([this] { Tick(); });
  file_.SaveEnded.Connect(
      [this](SaveEnd end) { saveFailed_ = end != SaveEnd::kStored && changes_.Modified(); });
}

void Recovery::Offer() {
  if (!platform_.work) return;
  for (const LeftWork& left : platform_.work->Left()) {
    if (!platform_.dialogs.Ask("Unsaved changes to \"" + left.title + "\" of " + left.when +
                                   " were kept when the program ended. Restore them?",
                               FileFact("File", left.fileName))) {
      platform_.work->DeclineLeft(left.file);
    } else if (Restore(left)) {
      restored_ = true;
      return;
    }
  }
}

void Recovery::Begin() {
  if (!platform_.work) return;
  timer_.SetEnabled(true);
}

/// False when the composition can't be read, which has been told; it stays where it is.
bool Recovery::Restore(const LeftWork& left) {
  std::string& name = platform_.fileDialog.FileName;
  const std::string nameBefore = std::exchange(name, left.file);
  file_.ReadConfigFile();
  const bool loaded = file_.LastRead() == ReadEnd::kLoaded;
  name = loaded ? left.fileName : nameBefore;
  if (!loaded) return false;
  changes_.CountAsUnsaved();
  vars_.CurrentFile = left.title;
  form_.SetCaption(TitleOf(left.title));
  file_.TakeName(left.fileName);
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

/// At a regular end the operator has been asked about all that questions count.
void Recovery::End() {
  timer_.SetEnabled(false);
  if (!platform_.work) return;
  const bool wanted = !vars_.ConfigSaved || saveFailed_;
  if (!wanted) Discard();
  Tick();
}

void Recovery::KeepNow() {
  if (timer_.Enabled()) Tick();
}

void Recovery::Leave() {
  if (!platform_.work) return;
  KeepNow();
  timer_.SetEnabled(false);
  platform_.work->Leave();
}

void Recovery::Tick() {
  if (file_.Reading()) return;  // a box of the load stands over parts of two configurations
  if (changes_.Modified() && !discarded_) return Keep();
  platform_.work->Drop();
  kept_.reset();
}

/// What can't be kept was told once; the operator's own files are not touched by it.
void Recovery::Keep() {
  try {
    UnsavedWork work{vars_.CurrentFile, file_.Path(), WriteDocument(DocumentOfPanels(vars_, form_))};
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
