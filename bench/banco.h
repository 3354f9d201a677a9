#pragma once

#include <QString>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/contesto.h"
#include "core/schermate.h"
#include "platform/ecrcom/libreria.h"
#include "platform/store/store.h"
#include "platform/ui/ritmo.h"
#include "platform/ui/utente.h"

/// A user port that answers by itself: the event pump is real, boxes vanish. Boxes with the critical icon end
/// the run, since a figure of a failed work is no figure.
class UtenteBanco : public Utente {
 public:
  QString daAprire;
  /// What the next save dialogs answer; nothing: they are cancelled.
  std::optional<QString> daSalvare;

  Risposta MsgBox(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti) override;
  std::optional<QString> FinestraApri(const FinestraFile& finestra) override;
  std::optional<QString> FinestraSalva(const FinestraFile& finestra) override;
  void DoEvents() override;
  void DoEventsAlRecord() override;
  void CopiaNegliAppunti(const QString&) override {}
  QString TestoDegliAppunti() override { return {}; }
  void AvviaProgramma(const QString&, const QStringList&) override {}
  void ApriConDesktop(const QString&) override {}
  [[noreturn]] void Termina() override;

 private:
  Ritmo ritmo_;
};

/// A folder with an archive made from the template, open in the program, and what procedures ask for.
class Banco {
 public:
  /// The archive has at least `slot` rows.
  explicit Banco(int slot = 5000);
  ~Banco();
  Banco(const Banco&) = delete;
  Banco& operator=(const Banco&) = delete;

  /// Closes it and puts the archive back as it was made.
  void rinnova();
  void riapri();
  void chiudi();
  std::filesystem::path archivio() const;
  std::filesystem::path file(const std::string& nome) const;

  UtenteBanco utente;
  store::Workspace area;
  LibreriaEcr libreria;
  Schermate schermate;
  Contesto contesto;

 private:
  QTemporaryDir cartella_;
  QString prima_;
};

/// Seconds that `lavoro` takes.
double secondi(const std::function<void()>& lavoro);
