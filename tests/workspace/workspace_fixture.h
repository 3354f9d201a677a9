#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPointer>

#include "articles/back_room.h"
#include "controls/outcome_bar.h"
#include "sostegno/guided_screen.h"

/// The workspace of the article archive on the screen, behind the menu of the program, under the hands of a
/// person who uses mouse and keys.
struct WorkspaceFixture : testing::Test {
  static constexpr int kCommands = 4;

  BackRoom bottega;
  QPointer<QWidget> screen;

  WorkspaceFixture();
  void SetUp() override;

  template <typename Type = QWidget>
  Type& control(const char* name) const {
    auto* found = screen->findChild<Type*>(QLatin1String(name));
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  QString text(const char* label) const { return control<QLabel>(label).text(); }
  /// What the foot tells.
  QString outcome() const { return control<OutcomeBar>("BarraEsito").text(); }
  OutcomeBar::Kind outcomeKind() const { return control<OutcomeBar>("BarraEsito").kind(); }
  void click(const char* name) const;
  /// Opens the File menu and clicks the entry.
  void entry(const char* name) const;
  bool active(const char* name) const { return control<QAction>(name).isEnabled(); }
  /// How many of the four commands are enabled.
  int enabledCommands() const;

  /// "Nuovo Archivio" to a name in the test's folder; the copy is open afterwards.
  void create(const QString& name = QStringLiteral("archivio.mdb"));
  void open(const QString& name = QStringLiteral("archivio.mdb"));

  QWidget* menu() const { return bottega.screens.trova(QStringLiteral("start")); }
};
