#pragma once

#include <QStringList>

class QWidget;

/// A screen gone through by keys, and read as a screen reader reads it. What is said against it comes back as
/// lines that name the control; a screen without blame gives none.
namespace walk {

/// Tab from the control that has the focus, until it comes round to it. Every control that takes a click is
/// met on the way, of radio buttons that exclude each other one, the others by the arrows; Shift+Tab goes the
/// same way back.
QStringList byTab(QWidget& window);
/// In each card, and in what stands in none, the way goes down or to the right; it leaves a card once.
QStringList order(QWidget& window);
/// Every button that is met takes Space for a press; no command is started.
QStringList bySpace(QWidget& window);
/// Every enabled entry of the menu bar is come to by the letters and arrows of its menu.
QStringList byMenus(QWidget& window);
/// Names in the accessibility tree: none missing where there is something to work or to read, none with
/// doubled blanks or without a letter; every field has a name of its own or a label tied to it.
QStringList names(QWidget& window);

}  // namespace walk
