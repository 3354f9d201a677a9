#include "articles/guarded_field.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace articles {

namespace {

/// A box shown between the press and the release of a button takes the release away: the button would stay
/// down.
void rialzaPulsante() {
  auto* pulsante = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
  if (pulsante && !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) pulsante->setDown(false);
}

/// Leaving for another window, a menu or a list is no leaving.
bool altrove(Qt::FocusReason motivo) {
  return motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason ||
         motivo == Qt::MenuBarFocusReason;
}

/// Copying, pasting and the like write no character of their own. Control with Alt is how some keyboards
/// reach a character.
bool comandoDiTastiera(const QKeyEvent& tasto) {
  return tasto.modifiers().testFlag(Qt::ControlModifier) && !tasto.modifiers().testFlag(Qt::AltModifier);
}

qsizetype inizioComune(const QString& uno, const QString& altro) {
  const auto [a, b] = std::mismatch(uno.begin(), uno.end(), altro.begin(), altro.end());
  return a - uno.begin();
}

}  // namespace

CampoSorvegliato::CampoSorvegliato(QLineEdit& campo, FiltroTasto filtro, Controllo controllo,
                                   Messaggio messaggio)
    : QObject(&campo),
      campo_(campo),
      filtro_(filtro),
      controllo_(controllo),
      messaggio_(std::move(messaggio)),
      prima_(campo.text()) {
  campo.installEventFilter(this);
  connect(&campo, &QLineEdit::textEdited, this, &CampoSorvegliato::filtraInserito);
  connect(&campo, &QLineEdit::textChanged, this, [this] { prima_ = campo_.text(); });
}

bool CampoSorvegliato::lascia(const QString& testo, const QKeyEvent& tasto) const {
  if (tasto.matches(QKeySequence::Cut)) return filtro_(testo, kTastoTaglia);
  // What comes back by undoing would be filtered as if typed, and a price shown with a point would lose it.
  if (tasto.matches(QKeySequence::Undo) || tasto.matches(QKeySequence::Redo)) return false;
  if (comandoDiTastiera(tasto)) return true;
  const QString scritto = tasto.text();
  return scritto.isEmpty() || !scritto.front().isPrint() || filtro_(testo, scritto.front());
}

bool CampoSorvegliato::eventFilter(QObject*, QEvent* evento) {
  if (evento->type() == QEvent::KeyPress)
    return !lascia(campo_.text(), *static_cast<const QKeyEvent*>(evento));
  if (evento->type() == QEvent::FocusOut) lasciato(static_cast<const QFocusEvent*>(evento)->reason());
  return false;
}

void CampoSorvegliato::filtraInserito(const QString& adesso) {
  const qsizetype capo = std::min(inizioComune(prima_, adesso), campo_.cursorPosition() + qsizetype{0});
  const QString coda = adesso.mid(campo_.cursorPosition());
  QString testo = adesso.left(capo);
  for (const QChar carattere : adesso.mid(capo, campo_.cursorPosition() - capo))
    if (filtro_(testo + coda, carattere)) testo += carattere;
  if (testo + coda == adesso) return;
  campo_.setText(testo + coda);
  campo_.setCursorPosition(static_cast<int>(testo.size()));
}

void CampoSorvegliato::lasciato(Qt::FocusReason motivo) {
  if (!controllo_ || altrove(motivo) || !campo_.isVisible()) return;
  const std::optional<Rifiuto> rifiuto = controllo_(campo_.text());
  if (!rifiuto) return;
  campo_.setText(rifiuto->valore);
  messaggio_(rifiuto->messaggio);
  QMetaObject::invokeMethod(qApp, rialzaPulsante, Qt::QueuedConnection);
}

}  // namespace articles
