// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class Control;
class Form;
class World;

/// An operator who does anything that the windows offer, whatever state they are in.
class Hands {
 public:
  explicit Hands(World& world) : world_(world) {}

  /// Any action on any control of the window that is open on top.
  void Operate();
  /// A button or entry of a menu that the link hangs on.
  void UseLink();
  /// A file command; dialogs are answered with files that are there, damaged, empty or nowhere. The disk may
  /// be full.
  void UseFiles();

 private:
  void Damage();
  void Act(Form& form);
  Control* PickControl(Form& form);
  void Choose(Control& control);
  void Type(Control& control);

  World& world_;
};

}  // namespace marlinset
