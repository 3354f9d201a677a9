#pragma once

#include <QStringList>

class QWidget;

/// A screen looked at. What is said against it comes back as lines that name the control; a screen without
/// blame gives none.
namespace look {

/// No letter, and no key of a command, stands for two things of one window.
QStringList keys(QWidget& window);
/// Every text that a control shows has the room that it needs: captions, buttons, lists, tabs, headings of
/// columns, boxes that are only read.
QStringList texts(QWidget& window);
/// Nothing reaches out of the window or of what it stands in, and no control lies over another.
QStringList places(QWidget& window);
/// What fills the window keeps one distance from its left and right edge.
QStringList margins(QWidget& window);
/// Boxes to type into, lists and buttons are of one height.
QStringList heights(QWidget& window);
/// What is written on labels, buttons, fields and lists that are on can be read on its ground, as it is
/// painted.
QStringList contrasts(QWidget& window);
/// A command that is off says why.
QStringList reasons(QWidget& window);

}  // namespace look
