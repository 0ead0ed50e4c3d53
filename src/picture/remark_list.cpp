// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/remark_list.h"

#include "core/frm_start.h"
#include "files/configuration_file.h"

namespace marlinset {

RemarkList::RemarkList(FrmStart& form, const Variables& variables, const ConfigurationFile& file)
    : form_(form), vars_(variables), file_(file) {}

bool RemarkList::Refresh() {
  if (file_.Reading()) return false;
  remarks_ = RemarksOf(form_, vars_);
  form_.lRemarks.SetCaption(RemarkCount(remarks_));
  return true;
}

}  // namespace marlinset
