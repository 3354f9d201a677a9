#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "articles/archive_fields.h"

class QKeyEvent;
class QLineEdit;

namespace articles {

/// Stands by a field. Keys that its filter does not take are dropped; what comes in by another road (pasted,
/// dropped, composed) is filtered character by character with the same rule. When the person leaves the field
/// for another place in the same window it is checked, and set right before the message is shown.
/// Belongs to the field.
class CampoSorvegliato : public QObject {
  Q_OBJECT

 public:
  using Controllo = std::optional<Rifiuto> (*)(const QString& testo);
  using Messaggio = std::function<void(const QString& testo)>;

  /// `controllo` may be null: the field is not checked then.
  CampoSorvegliato(QLineEdit& campo, FiltroTasto filtro, Controllo controllo, Messaggio messaggio);

  bool eventFilter(QObject* campo, QEvent* evento) override;

 private:
  bool lascia(const QString& testo, const QKeyEvent& tasto) const;
  void filtraInserito(const QString& adesso);
  void lasciato(Qt::FocusReason motivo);

  QLineEdit& campo_;
  FiltroTasto filtro_;
  Controllo controllo_;
  Messaggio messaggio_;
  /// The text before the edit that is being looked at.
  QString prima_;
};

}  // namespace articles
