// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace marlinset {

class FrmStart;
struct Variables;

// Where the character windows lie in the picture, from the panels and the reference database alone. Vertical
// positions count units of eight lines of a field, horizontal ones columns of characters.

/// A rectangle of character cells; right and bottom are the first column and unit behind it.
struct CellRect {
  int left = 0;     ///< column
  int top = 0;      ///< unit
  int columns = 0;  ///< width
  int units = 0;    ///< height

  int Right() const { return left + columns; }
  int Bottom() const { return top + units; }
  /// Whether `other` lies within it.
  bool Contains(const CellRect& other) const;
  /// Whether both cover a common cell.
  bool Overlaps(const CellRect& other) const;
  bool operator==(const CellRect&) const = default;
};

/// How letters look, from the words of the style in force ("White on Black Box", "Black with Outline").
struct LetterLook {
  enum class Box { kNone, kDark, kGrey, kLight };
  bool white = true;
  bool outlined = false;
  Box box = Box::kNone;  ///< behind the letters
  bool operator==(const LetterLook&) const = default;
};

/// A window of the panel as the unit burns it in: at the row that goes over the line.
struct PlannedWindow {
  int row = 0;       ///< of the panel, index of its controls
  std::string name;  ///< caption of the row
  CellRect place;
  bool on = false;
  bool slate = false;  ///< shown with the slate only
  std::string sample;  ///< as many characters as the window has columns
  bool operator==(const PlannedWindow&) const = default;
};

/// Whether a picture shows a window: it is on, and part of the slate only if that is shown.
bool IsShown(const PlannedWindow& window, bool slate);

/// Whether both windows are on and cover a common cell. Windows of the slate and the others do not count
/// against each other.
bool CoverEachOther(const PlannedWindow& one, const PlannedWindow& other);

/// How far a window may be moved: its left upper corner, both ends included.
struct MoveLimits {
  int left = 0;    ///< columns
  int right = 0;   ///< columns
  int top = 0;     ///< units
  int bottom = 0;  ///< units
  int step = 1;    ///< units in a character row; a top is a multiple of it
  bool operator==(const MoveLimits&) const = default;
};

/// The picture of the selected standard with every window whose row is shown.
struct PicturePlan {
  std::optional<CellRect> area;  ///< empty if the reference database has no picture for the standard
  std::string trouble;           ///< says why it is empty
  bool wide = true;              ///< 16 : 9, otherwise 4 : 3
  int firstColumn = 0;           ///< leftmost column at which a window should begin
  LetterLook look;
  std::vector<PlannedWindow> windows;
  bool operator==(const PicturePlan&) const = default;

  double Shape() const { return wide ? 16.0 / 9.0 : 4.0 / 3.0; }
  /// The window of a panel's row; null if that row is not shown.
  const PlannedWindow* Find(int row) const;
};

/// The picture by the panels as they are now. It can be asked for at any time, also while the reference
/// database lacks rows.
PicturePlan PlanPicture(const FrmStart& form, const Variables& variables);

/// How far the operator may drag the window of a panel's row. Nothing if the row is not there, if the
/// reference database does not limit positions, or if its limits leave the window no room.
std::optional<MoveLimits> MoveLimitsOf(const FrmStart& form, const Variables& variables, int row);

}  // namespace marlinset
