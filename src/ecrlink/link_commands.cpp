#include "ecrlink/link_commands.h"

#include <QKeyEvent>
#include <QPushButton>

#include "controls/command_key.h"
#include "controls/style.h"
#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"

namespace {

QString conTasto(const QString& testo, const char* tasto) {
  return (testo + QStringLiteral(" (") + QLatin1String(tasto) + u')').trimmed();
}

}  // namespace

ComandiLink::ComandiLink(PannelloECR& pannello, QPushButton& avvia, QPushButton& esci, OutcomeBar* piede,
                         const QString& icona)
    : QObject(&avvia), pannello_(pannello), avvio_(avvia), esci_(esci), piede_(piede) {
  style::primary(avvio_, icona);
  esci_.setIcon(style::icon(QStringLiteral("arrow-left")));
  notByEnter(esci_);
  aCheServe_ = conTasto(avvio_.toolTip(), "F9");
  doveSiTorna_ = conTasto(esci_.toolTip(), "Esc");
  avvio_.installEventFilter(this);
  esci_.installEventFilter(this);
  pannello_.accoppia(avvio_, esci_, piede_);
}

void ComandiLink::connetti(const std::function<QString()>& avvertenza, Contesto& contesto) {
  collegata_ = ecrlink::ConnettiECR(pannello_, contesto) == ecrlink::EsitoConnessione::Pronta;
  spiega();
  if (!collegata_) return;
  const QString stato = ecrlink::parolaDelloStato(commonForKora().ECR_INFO.InfoStato).value_or(QString());
  const QString detto = QStringLiteral("Collegato a %1: %2").arg(ecrlink::indirizzoDetto(), stato);
  const QString altro = avvertenza();
  if (piede_ == nullptr) return;
  if (altro.isEmpty()) return piede_->tell(OutcomeBar::Kind::Done, detto);
  piede_->tell(OutcomeBar::Kind::Warning, detto + QStringLiteral(". ") + altro);
}

void ComandiLink::abilita(bool avvia, bool esci) {
  avvio_.setEnabled(avvia);
  esci_.setEnabled(esci);
}

bool ComandiLink::siPuoUscire() const {
  return esci_.isEnabled();
}

void ComandiLink::ridaiEsci() {
  esci_.setEnabled(true);
  esci_.setFocus();
}

void ComandiLink::spiega() {
  avvio_.setToolTip(avvio_.isEnabled() ? aCheServe_
                    : collegata_
                        ? QStringLiteral("L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo")
                        : QStringLiteral("Prima collegarsi alla cassa con Connetti"));
  esci_.setToolTip(esci_.isEnabled() ? doveSiTorna_ : QStringLiteral("Attendere che la cassa abbia finito"));
}

bool ComandiLink::prende(const QKeyEvent& evento) {
  if (evento.key() == Qt::Key_F9) {
    if (!evento.isAutoRepeat()) avvio_.click();
    return true;
  }
  return evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
}

bool ComandiLink::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::EnabledChange) spiega();
  return QObject::eventFilter(oggetto, evento);
}
