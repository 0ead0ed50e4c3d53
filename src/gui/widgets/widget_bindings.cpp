// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/widget_bindings.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

/// Sets the tick exactly as given, even "none of the choice", which an exclusive button would refuse.
void SetTick(QAbstractButton& button, bool on) {
  if (button.isChecked() == on) return;
  const bool exclusive = button.autoExclusive();
  button.setAutoExclusive(false);
  button.setChecked(on);
  button.setAutoExclusive(exclusive);
}

QList<QAbstractButton*> OptionsIn(const QWidget& band) {
  QList<QAbstractButton*> options;
  for (auto* button : band.findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (button->autoExclusive() && !button->isHidden()) options << button;
  }
  return options;
}

/// Tab, space and arrows begin at the selected option: only that one is in the tab order, and it takes the
/// focus from the previously selected one.
void LeadKeysToChoice(const QWidget& band) {
  QAbstractButton* chosen = ChosenOption(band);
  for (QAbstractButton* option : OptionsIn(band)) {
    const bool hadFocus = option->hasFocus();
    option->setFocusPolicy(static_cast<Qt::FocusPolicy>(
        option == chosen ? option->focusPolicy() | Qt::TabFocus : option->focusPolicy() & ~Qt::TabFocus));
    if (hadFocus && option != chosen) chosen->setFocus();
  }
}

/// While one option of a band waits for its turn, the band shows it as selected.
bool IsChoicePending(const QWidget& band) {
  const auto options = OptionsIn(band);
  return std::any_of(options.begin(), options.end(),
                     [](QAbstractButton* option) { return Binding::Of(*option).Pending(); });
}

void ShowOptions(const QWidget& band) {
  for (QAbstractButton* option : OptionsIn(band)) Binding::Of(*option).Show();
}

Binding& Tie(QWidget& widget, Control& control, std::function<void()> show) {
  auto* binding = new Binding(widget, control, std::move(show));
  binding->Show();
  return *binding;
}

/// Does for a menu entry what Binding does for widgets.
class ActionBinding : public QObject {
 public:
  using ShowText = std::function<void(const MenuItem&, QAction&)>;
  ActionBinding(QAction& action, MenuItem& item, ShowText showText, Turn turn)
      : QObject(&action),
        action_(action),
        item_(item),
        showText_(std::move(showText)),
        listening_(item.Changed, [this] { Show(); }) {
    action.setObjectName(Shown(item.FullName()));
    connect(&action, &QAction::triggered, this, [this, turn] {
      OperatorQueue::OfProgram().Take(item_, {OperatorAction::Kind::kClick}, turn, this,
                                      [this] { Show(); });  // it ticked itself; the tick is the model's
    });
    auto* menu = qobject_cast<QMenu*>(action.parent());
    if (menu) connect(menu, &QMenu::aboutToShow, this, [this] { Show(); });
    Show();
  }

 private:
  void Show() {
    showText_(item_, action_);
    action_.setEnabled(item_.Enabled());
    action_.setVisible(item_.Visible());
    if (action_.isCheckable()) action_.setChecked(item_.Checked());
  }

  QAction& action_;
  MenuItem& item_;
  ShowText showText_;
  Listening<> listening_;
};

/// Keeps keys that the rules cancel from a field. Shortcuts, pasting with the mouse and keys that type
/// nothing do not count as key presses.
class KeyFilter : public QObject {
 public:
  KeyFilter(QLineEdit& widget, TextBox& control) : QObject(&widget), control_(control) {
    widget.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const char32_t code = CodeOfKey(*static_cast<QKeyEvent*>(event));
      if (code != 0 && !control_.TakesKey(code)) return true;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static char32_t CodeOfKey(const QKeyEvent& event) {
    constexpr char32_t kBackspace = 8;
    if (event.key() == Qt::Key_Backspace) return kBackspace;
    const auto codes = event.text().toUcs4();
    const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return codes.size() == 1 && !command && QChar::isPrint(codes.at(0)) ? codes.at(0) : 0;
  }
  TextBox& control_;
};

}  // namespace

Binding& Bind(QAbstractButton& widget, Button& control, char mnemonic, Turn turn) {
  Binding& binding = Tie(widget, control, [&widget, &control, mnemonic] {
    widget.setText(ShownWithMnemonic(control.Caption(), mnemonic));
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &binding, [&binding, turn] {
    if (binding.Pending()) return;
    binding.Act({OperatorAction::Kind::kClick}, turn);
  });
  return binding;
}

QAbstractButton* ChosenOption(const QWidget& band) {
  const QList<QAbstractButton*> options = OptionsIn(band);
  for (QAbstractButton* option : options) {
    if (option->isChecked()) return option;
  }
  return options.isEmpty() ? nullptr : options.constFirst();
}

Binding& Bind(QAbstractButton& widget, OptionButton& control, Turn turn) {
  widget.setCheckable(true);
  widget.setAutoExclusive(true);
  Binding& binding = Tie(widget, control, [&] {
    widget.setText(ShownLiteral(control.Caption()));
    const QWidget* band = widget.parentWidget();
    if (band && IsChoicePending(*band)) return;
    SetTick(widget, control.Value());
    if (band) LeadKeysToChoice(*band);
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &binding, [&widget, &binding, turn] {
    binding.Act({OperatorAction::Kind::kClick}, turn, [&widget] {
      if (const QWidget* band = widget.parentWidget()) ShowOptions(*band);
    });
  });
  return binding;
}

Binding& Bind(QCheckBox& widget, CheckBox& control, char mnemonic) {
  Binding& binding = Tie(widget, control, [&widget, &control, mnemonic] {
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    widget.setText(ShownWithMnemonic(control.Caption(), mnemonic));
    widget.setTristate(control.Value() == 2);
    widget.setCheckState(kStates[control.Value()]);
  });
  QObject::connect(&widget, &QCheckBox::clicked, &binding, [&binding](bool on) {
    binding.Act({OperatorAction::Kind::kCheck, on ? 1 : 0});
  });
  return binding;
}

Binding& Bind(QLabel& widget, Label& control, char mnemonic) {
  widget.setTextFormat(Qt::PlainText);
  return Tie(widget, control, [&widget, &control, mnemonic] {
    widget.setText(mnemonic == 0 ? Shown(control.Caption()) : ShownWithMnemonic(control.Caption(), mnemonic));
    widget.setAccessibleName(SpokenName(ShownLiteral(control.Caption())));
  });
}

Binding& Bind(QLineEdit& widget, TextBox& control) {
  widget.setAcceptDrops(false);  // a configuration dropped here is opened, not typed
  new KeyFilter(widget, control);
  Binding& binding = Tie(widget, control, [&] {
    const QString text = Shown(control.Text());
    if (text == widget.text()) return;
    const int cursor = widget.cursorPosition();
    widget.setText(text);
    widget.setCursorPosition(cursor);
  });
  QObject::connect(&widget, &QLineEdit::textEdited, &binding, [&binding](const QString& text) {
    binding.Act({.kind = OperatorAction::Kind::kType, .text = Typed(text)});
  });
  return binding;
}

Binding& Bind(QWidget& widget, Frame& control) {
  return BindFlags(widget, control);
}

Binding& BindFlags(QWidget& widget, Control& control) {
  return Tie(widget, control, {});
}

void Bind(QAction& action, MenuItem& item, char mnemonic, Turn turn) {
  const auto showText = [mnemonic](const MenuItem& shown, QAction& entry) {
    entry.setText(ShownWithMnemonic(shown.Caption(), mnemonic));
  };
  Bind(action, item, showText, turn);
}

void Bind(QAction& action, MenuItem& item, std::function<void(const MenuItem&, QAction&)> showText,
          Turn turn) {
  new ActionBinding(action, item, std::move(showText), turn);
}

void ShowWith(QWidget& widget, Control& control) {
  class Follower : public QObject {
   public:
    Follower(QWidget& follower, Control& leader)
        : QObject(&follower), listening_(leader.Changed, [&follower, &leader] { Follow(follower, leader); }) {
      Follow(follower, leader);
    }

   private:
    static void Follow(QWidget& follower, const Control& leader) {
      if (!leader.Visible() || follower.testAttribute(Qt::WA_WState_ExplicitShowHide)) {
        follower.setVisible(leader.Visible());
      }
    }
    Listening<> listening_;
  };
  new Follower(widget, control);
}

}  // namespace marlinset
