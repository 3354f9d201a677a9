#pragma once

#include <QPalette>
#include <QString>

namespace style {

/// The colours that everything is painted with. Every text colour stands at 4.5:1 or more on the grounds it
/// is used on, the disabled one aside; lines around controls, bars and the focus at 3:1.
struct Tints {
  QColor background;  ///< ground of windows
  QColor paper;       ///< ground of boxes to type into, cards and grids
  QColor emphasis;    ///< headings, alternate rows, hovered buttons
  QColor text;        ///< text
  QColor faint;       ///< secondary text
  QColor off;         ///< disabled text
  QColor border;      ///< lines around controls
  QColor accent;      ///< primary buttons, selection, focus
  QColor onAccent;    ///< text on the accent
  QColor veil;        ///< accent as a wash: highlighted entries
  QColor bar;         ///< what a progress bar has done, and its ground; text lies on both
  QColor barGround;
  QColor ready;  ///< text of a good state, and its ground
  QColor readyGround;
  QColor busy;
  QColor busyGround;
  QColor fault;
  QColor faultGround;
};

const Tints& tints(bool dark);
QPalette palette(const Tints& tints);
QString styleSheetText(const Tints& tints);

}  // namespace style
