#include "demo/moments.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QWidget>

Director::When visible(const QString& name) {
  return [name] { return window(name) != nullptr; };
}

bool on(const QString& windowName, const QString& name) {
  QWidget* open = window(windowName);
  auto* command = open == nullptr ? nullptr : open->findChild<QWidget*>(name);
  return command != nullptr && command->isEnabled();
}

Director::When shownIn(const QString& windowName, const QString& name) {
  return [=] {
    const QWidget* frame = window(windowName);
    const auto* one = frame == nullptr ? nullptr : frame->findChild<QWidget*>(name);
    return one != nullptr && one->isVisible();
  };
}

Director::When enabled(const QString& windowName, const QString& name) {
  return [=] {
    const QWidget* modal = QApplication::activeModalWidget();
    return on(windowName, name) && (modal == nullptr || modal == window(windowName));
  };
}

std::filesystem::path path(const QString& name) {
  return QFile::encodeName(name).toStdString();
}

char decimalSign() {
  return QLocale().decimalPoint().at(0).toLatin1();
}
