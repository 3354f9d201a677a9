#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "auxcmd/line_peers.h"
#include "sostegno/guided_screen.h"
#include "sostegno/program_fixture.h"

/// The application folder of one test, made before the program around it.
class ApplicationFolder {
 protected:
  ApplicationFolder() { EXPECT_TRUE(QDir(cartella_.path()).mkpath(QStringLiteral("TEST_XON_XOFF"))); }
  QString app(const QString& name) const { return cartella_.filePath(name); }
  QByteArray read(const QString& name) const {
    QFile file(app(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
  }
  void write(const QString& name, const QByteArray& bytes) const {
    QFile file(app(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
  }
  /// Makes the device of the peer port `number` of the console.
  void plug(const SerialPeer& peer, int number = 7) const {
    EXPECT_TRUE(QDir(cartella_.path()).mkpath(QStringLiteral("Porte")));
    EXPECT_TRUE(QFile::link(peer.path(), app(QStringLiteral("Porte/COM%1").arg(number))));
  }
  /// Names of the files in it that match.
  QStringList files(const QString& pattern) const {
    return QDir(cartella_.path()).entryList({pattern}, QDir::Files, QDir::Name);
  }

  QTemporaryDir cartella_;
};

/// The program around the screens of the auxiliary commands.
class ConsoleScene : public ApplicationFolder, public testing::Test {
 protected:
  ConsoleScene();
  ~ConsoleScene() override;

  /// The console, shown afresh.
  GuidedScreen console();
  /// The same with port 7 picked, where `peer` is plugged in.
  GuidedScreen serialConsole();
  /// The same, connected to an address.
  GuidedScreen networkConsole(const QString& address);
  /// Runs a screen of the test bench as the console does, modally; `within` has to leave it.
  void modally(const char* name, const std::function<void(const GuidedScreen&)>& within);
  /// What the foot of a screen tells.
  static QString foot(const GuidedScreen& screen);
  static void pick(const GuidedScreen& screen, const char* list, const QString& text);
  static void picks(const GuidedScreen& screen, const std::vector<const char*>& options);
  /// Whether the screen of a name is loaded.
  bool open(const char* name) { return program.screens.trova(QString::fromUtf8(name)) != nullptr; }

  SerialPeer peer;
  ProgramFixture program{QStringLiteral(GESTIONALE_APP), cartella_.path()};
  Steps steps;
  int menusShown = 0;
  /// The key-sequence connection at the moment when the menu was shown last.
  std::int32_t linkAtMenu = -1;
};
