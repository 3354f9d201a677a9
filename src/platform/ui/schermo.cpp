#include "platform/ui/schermo.h"

#include <QGuiApplication>
#include <QScreen>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace schermo {

QSize misure() {
  const QScreen* primo = QGuiApplication::primaryScreen();
  if (primo == nullptr) return {};
  return (QSizeF(primo->size()) * primo->devicePixelRatio()).toSize();
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
void cambiaModo(float /*larghezza*/, float /*altezza*/) {}
#endif

}  // namespace schermo
