#pragma once

#include <functional>

#include "platform/ui/ritmo.h"
#include "platform/ui/utente.h"

/// The title of every box that has none of its own.
inline const QString kTitoloApplicazione = QStringLiteral("Gestionale Misuratori Fiscali");

/// The user port over the desktop's own boxes and dialogs. Each stands before the active window and lifts the
/// busy guard while it is open.
class UtenteDesktop : public Utente {
 public:
  /// `chiudi` runs just before `Termina` ends the process: it closes the databases.
  explicit UtenteDesktop(std::function<void()> chiudi);

  Risposta MsgBox(const QString& testo, Icona icona = Icona::Nessuna, const QString& titolo = {},
                  Pulsanti pulsanti = Pulsanti::OK) override;
  std::optional<QString> FinestraApri(const FinestraFile& finestra) override;
  std::optional<QString> FinestraSalva(const FinestraFile& finestra) override;
  void DoEvents() override;
  void DoEventsAlRecord() override;
  void CopiaNegliAppunti(const QString& testo) override;
  QString TestoDegliAppunti() override;
  void AvviaProgramma(const QString& programma, const QStringList& argomenti) override;
  void ApriConDesktop(const QString& file) override;
  /// Exit code 0. No destructor runs: screens in the middle of a command would meet what is already gone.
  [[noreturn]] void Termina() override;

 private:
  std::function<void()> chiudi_;
  Ritmo ritmo_;
};
