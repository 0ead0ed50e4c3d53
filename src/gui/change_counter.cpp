// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/change_counter.h"

#include <algorithm>

#include "core/frm_start.h"
#include "gui/widgets/look.h"
#include "link/held_settings.h"
#include "link/whole_send.h"

namespace marlinset {
namespace {

constexpr std::size_t kMostWithRoom = 999;

QString CountText(std::size_t changes) {
  if (changes == 0) return {};
  const QString noun = changes == 1 ? QStringLiteral("change") : QStringLiteral("changes");
  return QStringLiteral("%1 %2 not on the unit").arg(changes).arg(noun);
}

}  // namespace

ChangeCounter::ChangeCounter(FrmStart& form, HeldSettings& held, const WholeSend& send, QWidget* parent)
    : QLabel(parent),
      form_(form),
      held_(held),
      send_(send),
      formListening_(form.Touched, [this] { LookSoon(); }),
      heldListening_(held.Changed, [this] { LookSoon(); }) {
  setObjectName(QStringLiteral("Changes"));
  setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
}

QSize ChangeCounter::sizeHint() const {
  return {fontMetrics().horizontalAdvance(CountText(kMostWithRoom)) + 2 * SpaceUnit(*this),
          fontMetrics().height()};
}

void ChangeCounter::showEvent(QShowEvent* event) {
  QLabel::showEvent(event);
  LookSoon();
}

void ChangeCounter::LookSoon() {
  if (isVisible()) soon_.Ask();
}

/// During a send the number would run with the messages; the status bar shows those.
void ChangeCounter::Look() {
  form_.ListenAgain();
  if (send_.Running()) return;
  const std::vector<UnheldMessage> changes = held_.Known() ? send_.Changes() : std::vector<UnheldMessage>();
  setText(CountText(static_cast<std::size_t>(std::ranges::count_if(changes, &UnheldMessage::isChange))));
  Counted.Emit(changes);
}

}  // namespace marlinset
