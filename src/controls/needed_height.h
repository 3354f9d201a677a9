#pragma once

class QWidget;

/// Keeps a window, or what fills it, as high as its layout needs at the width that it has. By itself a layout
/// asks for the height that its texts have when nothing has made them narrow, and squeezes what stands below.
void keepNeededHeight(QWidget& content);
