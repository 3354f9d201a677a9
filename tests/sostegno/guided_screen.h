#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>

#include "sostegno/program_fixture.h"
#include "sostegno/test_till.h"

/// A screen under the hands of a person: its controls found by their names, clicked and typed into.
class GuidedScreen {
 public:
  /// Loads and shows a screen by its name.
  GuidedScreen(ProgramFixture& program, const QString& name);
  /// One that is there already.
  explicit GuidedScreen(QWidget& window) : window_(&window) {}

  /// Whether the screen is still loaded and seen.
  bool alive() const;
  QWidget& window() const { return *window_; }
  template <typename Type = QWidget>
  Type& control(const QString& name) const {
    auto* found = window_->findChild<Type*>(name);
    if (!found) throw std::runtime_error("no control " + name.toStdString());
    return *found;
  }
  template <typename Type = QWidget>
  Type& control(const char* name) const {
    return control<Type>(QString::fromLatin1(name));
  }
  bool enabled(const QString& name) const { return control(name).isEnabled(); }
  QString text(const QString& name) const;
  /// Name of the control that has the focus, empty for none.
  QString focus() const;
  void click(const QString& name) const;
  void key(Qt::Key key) const;
  /// Types over what a field holds.
  void type(const QString& field, const QString& keys) const;
  /// Types the address over what the box holds.
  void typeAddress(const QString& address) const;
  /// Types the till's address and clicks "Connetti".
  void connectTo(TestTill& till) const;
  /// Posts what an impatient person does: a click on a command, one on the exit, Esc, the frame's
  /// close.
  void impatience(const QString& command = QStringLiteral("Cmd_Avvia")) const;

 private:
  QPointer<QWidget> window_;
};

/// With letters of 12 points the screen is no wider than 1024, and in its smallest size no caption is cut.
void expectFitsAtTwelvePoints(const GuidedScreen& screen);

/// Posts a click in the middle of a widget, to be delivered by the next event pass.
void postClick(QWidget& widget);

/// Runs `gesture`, and inside the modal screen that it opens `within`, which has to close it.
void withModal(const std::function<void()>& gesture, const std::function<void(QWidget&)>& within);
