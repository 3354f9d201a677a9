#pragma once

#include <QSize>

/// The display as the platform knows it.
namespace display {

/// Width and height of the first display in its own pixels, whatever the desktop's scale.
QSize sizes();

/// Walks the display's modes, then asks for one of the given size with the depth and frequency that the walk
/// came to last: a change for this session, whose outcome nobody looks at. Where the platform has no such
/// call nothing happens.
void changeMode(float width, float height);

}  // namespace display
