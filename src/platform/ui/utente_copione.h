#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "platform/ui/utente.h"

/// One box as the person saw it.
struct Riquadro {
  QString testo;
  Icona icona = Icona::Nessuna;
  QString titolo;
  Pulsanti pulsanti = Pulsanti::OK;

  bool operator==(const Riquadro&) const = default;
};
void PrintTo(const Riquadro& riquadro, std::ostream* uscita);

/// The tests' user port: answers from a script, keeps every call in order. A question (more than one button)
/// or file dialog without a scripted answer fails the test, and so does an answer left over, or boxes that
/// the test never looked at.
class UtenteCopione : public Utente {
 public:
  ~UtenteCopione() override;

  /// Script: answers to the next questions, and paths for the next dialogs, in order.
  UtenteCopione& risponde(Risposta risposta);
  UtenteCopione& sceglie(std::optional<QString> percorso);

  /// Every box so far, in order; marks them as looked at.
  const std::vector<Riquadro>& riquadri();
  /// As above, and forgets them.
  std::vector<Riquadro> prendiRiquadri();
  const std::vector<FinestraFile>& finestre() const { return finestre_; }
  const QStringList& programmi() const { return programmi_; }
  bool terminato() const { return terminato_; }

  /// Called at each box before it is answered, and at each event pass.
  std::function<void(const Riquadro&)> alRiquadro;
  std::function<void()> alPassaggio;
  int passaggi() const { return passaggi_; }

  Risposta MsgBox(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti) override;
  std::optional<QString> FinestraApri(const FinestraFile& finestra) override;
  std::optional<QString> FinestraSalva(const FinestraFile& finestra) override;
  void DoEvents() override;
  void CopiaNegliAppunti(const QString& testo) override { appunti_ = testo; }
  QString TestoDegliAppunti() override { return appunti_; }
  void AvviaProgramma(const QString& programma, const QStringList& argomenti) override;
  void ApriConDesktop(const QString& file) override;
  [[noreturn]] void Termina() override;

 private:
  std::optional<QString> finestra(const FinestraFile& finestra);

  std::deque<Risposta> risposte_;
  std::deque<std::optional<QString>> percorsi_;
  std::vector<Riquadro> riquadri_;
  std::vector<FinestraFile> finestre_;
  QStringList programmi_;
  QString appunti_;
  std::size_t guardati_ = 0;
  int passaggi_ = 0;
  bool terminato_ = false;
};
