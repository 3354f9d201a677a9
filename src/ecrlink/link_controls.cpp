#include "ecrlink/link_controls.h"

#include <QLineEdit>
#include <QStyle>
#include <QVariant>

#include "platform/error.h"

namespace ecrlink::controlli {

namespace {

constexpr int kMembroAssente = 438;

/// Text boxes of one line and of many name their text differently.
const char* proprietaDelTesto(const QWidget& controllo) {
  return controllo.metaObject()->indexOfProperty("plainText") >= 0 ? "plainText" : "text";
}

}  // namespace

QWidget& trova(QWidget& schermo, const char* nome) {
  const QString cercato = QString::fromLatin1(nome);
  if (auto* controllo = schermo.findChild<QWidget*>(cercato)) return *controllo;
  throw Errore{kMembroAssente, QStringLiteral("Proprietà o metodo non supportati dall'oggetto: ") + cercato};
}

QString testo(QWidget& schermo, const char* nome) {
  const QWidget& controllo = trova(schermo, nome);
  return controllo.property(proprietaDelTesto(controllo)).toString();
}

void scrivi(QWidget& schermo, const char* nome, const QString& testo) {
  QWidget& controllo = trova(schermo, nome);
  controllo.setProperty(proprietaDelTesto(controllo), testo);
  // A box too narrow shows the beginning of its text, not the end.
  if (auto* casella = qobject_cast<QLineEdit*>(&controllo)) casella->home(false);
}

void abilita(QWidget& schermo, const char* nome, bool abilitato) {
  trova(schermo, nome).setEnabled(abilitato);
}

bool abilitato(QWidget& schermo, const char* nome) {
  return trova(schermo, nome).isEnabledTo(&schermo);
}

void fuoco(QWidget& schermo, const char* nome) {
  trova(schermo, nome).setFocus(Qt::OtherFocusReason);
}

void contrassegna(QWidget& schermo, const char* nome, const char* proprieta, const QString& valore) {
  QWidget& controllo = trova(schermo, nome);
  controllo.setProperty(proprieta, valore);
  controllo.style()->unpolish(&controllo);
  controllo.style()->polish(&controllo);
  controllo.update();
}

}  // namespace ecrlink::controlli
