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
void cambiaModo(float larghezza, float altezza) {
  DEVMODEA modo{};
  modo.dmSize = sizeof(modo);
  for (DWORD indice = 0; EnumDisplaySettingsA(nullptr, indice, &modo) != 0; ++indice) {
  }
  modo.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  modo.dmPelsWidth = static_cast<DWORD>(larghezza);
  modo.dmPelsHeight = static_cast<DWORD>(altezza);
  ChangeDisplaySettingsA(&modo, 0);
}
#else
void changeMode(float /*larghezza*/, float /*altezza*/) {}
#endif

}  // namespace display
