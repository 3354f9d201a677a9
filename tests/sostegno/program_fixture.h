#pragma once

#include <QString>
#include <vector>

#include "core/context.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/ui/scripted_user.h"
#include "sostegno/fixed_clock.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_network.h"

/// What stands around a screen in the program, made fresh for one test: a folder, a person who answers from a
/// script, a clock that stands still, the stores, the real library, a network. The process-wide variables are
/// fresh before and after. Wait boxes show at once.
class ProgramFixture {
 public:
  /// `libraryFolder` holds the communications library, `applicationFolder` the program's files.
  explicit ProgramFixture(const QString& libraryFolder = QStringLiteral(GESTIONALE_APP),
                          const QString& applicationFolder = QStringLiteral(GESTIONALE_APP));
  ~ProgramFixture();
  ProgramFixture(const ProgramFixture&) = delete;
  ProgramFixture& operator=(const ProgramFixture&) = delete;

  /// The boxes so far, which the test has then looked at.
  std::vector<Box> takeBoxes() { return user.takeBoxes(); }

  TemporaryFolder folder;
  ScriptedUser user;
  FixedClock clock;
  store::Workspace workspace{clock};
  EcrLibrary library;
  TestNetwork network;
  Schermate screens;
  Contesto contesto;
};

/// A box with one button and no title.
Box box(const QString& text, Icon icon);
Box criticalBox(const QString& text);
Box plainBox(const QString& text);
/// The boxes of the texts, all with one icon and no title.
std::vector<Box> boxes(const QStringList& texts, Icon icon);
/// Compares the boxes so far with the expected ones and forgets them; a text that ends in "*" stands for
/// every text that begins so.
void expectBoxes(ProgramFixture& program, const std::vector<Box>& expected);
