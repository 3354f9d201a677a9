#include "platform/ui/event_wait.h"

#include <QCoreApplication>
#include <QEventLoop>

void WaitForEvent() {
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}
