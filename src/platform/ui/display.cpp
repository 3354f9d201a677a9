#include "platform/ui/display.h"

#include <QGuiApplication>
#include <QScreen>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace display {

QSize sizes() {
  const QScreen* first = QGuiApplication::primaryScreen();
  if (first == nullptr) return {};
  return (QSizeF(first->size()) * first->devicePixelRatio()).toSize();
}

#ifdef Q_OS_WIN
void changeMode(float width, float height) {
  DEVMODEA mode{};
  mode.dmSize = sizeof(mode);
  for (DWORD index = 0; EnumDisplaySettingsA(nullptr, index, &mode) != 0; ++index) {
  }
  mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  mode.dmPelsWidth = static_cast<DWORD>(width);
  mode.dmPelsHeight = static_cast<DWORD>(height);
  ChangeDisplaySettingsA(&mode, 0);
}
#else
void changeMode(float /*width*/, float /*height*/) {}
#endif

}  // namespace display
