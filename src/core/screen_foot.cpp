#include "core/screen_foot.h"

#include <QWidget>

#include "controls/outcome_bar.h"
#include "core/context.h"
#include "platform/ui/user_port.h"

namespace {

OutcomeBar::Kind genere(Icon icona) {
  switch (icona) {
    case Icon::Critical:
      return OutcomeBar::Kind::Failed;
    case Icon::Information:
      return OutcomeBar::Kind::Plain;
    // Nearly all boxes without a picture tell of something that went wrong.
    case Icon::None:
    case Icon::Question:
    case Icon::Warning:
      break;
  }
  return OutcomeBar::Kind::Warning;
}

}  // namespace

PiedeComando::PiedeComando(QWidget& schermo, Contesto& contesto, Piede piede)
    : contesto_(contesto), barra_(schermo.findChild<OutcomeBar*>()) {
  contesto_.utente.TakeNotice();
  if (!barra_) return;
  barra_->keepTime(contesto_.orologio);
  if (piede == Piede::Nuovo) barra_->clear();
  prima_ = barra_->text();
}

PiedeComando::~PiedeComando() {
  const std::optional<Notice> avviso = contesto_.utente.TakeNotice();
  if (!avviso || !barra_ || barra_->text() != prima_) return;
  barra_->tell(genere(avviso->icon), avviso->text.simplified());
}
