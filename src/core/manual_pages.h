#pragma once

#include <QString>
#include <span>

class QWidget;

/// Which page of the manual belongs to which window. A place is a page's file name, with "#" and a heading's
/// anchor behind it where the window has its own.
namespace manual {

struct Place {
  /// The window's object name.
  const char* window;
  const char* page;
  /// Where the boxes of this window are explained.
  const char* messages;
};

std::span<const Place> places();
/// The manual's contents: the place of whatever has none of its own.
inline constexpr const char* kContents = "README.md";
/// Place of the screen that `from` stands in, which may lie inside another's frame, else of its window. A box
/// leads to the messages of the window below it; a window without a place has that of the one below.
QString placeOf(const QWidget* from);

}  // namespace manual
