#pragma once

#include <QString>

#include "controls/outcome_bar.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/link_window.h"
#include "ecrlink/session.h"
#include "sostegno/guided_screen.h"

/// A link screen and nothing more: the header, a foot, a start and an exit.
class LinkScreen : public FinestraLink {
 public:
  explicit LinkScreen(Contesto& contesto) : LinkScreen(contesto, new PannelloECR) {}
  /// With a header of the test's own, which becomes the screen's.
  LinkScreen(Contesto& contesto, PannelloECR* panel);

  ecrlink::VistaLink& view() { return *panel_; }
  OutcomeBar& foot() { return GuidedScreen(*this).control<OutcomeBar>("BarraEsito"); }

  QString text(const char* name) { return GuidedScreen(*this).text(QString::fromLatin1(name)); }
  QWidget& control(const char* name) { return GuidedScreen(*this).control(name); }
  void typeAddress(const QString& address) { GuidedScreen(*this).typeAddress(address); }
  void click(const char* name) { GuidedScreen(*this).click(QString::fromLatin1(name)); }
  bool enabled(const char* name) { return control(name).isEnabled(); }
  bool hasFocus(const char* name) { return focusWidget() == &control(name); }

 private:
  PannelloECR* panel_;
};

/// The box of the one wrapper.
Box communicationError(const QString& text);

/// State of the link as a table row: start command, connect command, address in use.
struct LinkState {
  bool start = false;
  bool connect = false;
  QString address;
  bool operator==(const LinkState&) const = default;
};
LinkState stateOf(LinkScreen& screen);
void PrintTo(const LinkState& state, std::ostream* output);
