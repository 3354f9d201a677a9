#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "articles/back_room.h"
#include "sostegno/test_till.h"

/// A screen under the hands of a person: loaded and shown by name, its controls found by their names, clicked
/// and typed into.
class SchermoGuidato {
 public:
  SchermoGuidato(Bottega& bottega, const QString& nome);

  /// Whether the screen is still loaded and seen.
  bool vivo() const;
  QWidget& finestra() const { return *finestra_; }
  template <typename Tipo = QWidget>
  Tipo& controllo(const QString& nome) const {
    auto* trovato = finestra_->findChild<Tipo*>(nome);
    if (!trovato) throw std::runtime_error("no control " + nome.toStdString());
    return *trovato;
  }
  bool abilitato(const QString& nome) const { return controllo(nome).isEnabled(); }
  QString testo(const QString& nome) const;
  void clic(const QString& nome) const;
  void tasto(Qt::Key tasto) const;
  /// Types the address over what the box holds.
  void scriviIndirizzo(const QString& indirizzo) const;
  /// Types the till's address and clicks "Connetti".
  void connetti(TestTill& cassa) const;
  /// Posts what an impatient person does: a click on a command, one on the exit, Esc, the frame's
  /// close.
  void impazienza(const QString& comando = QStringLiteral("Cmd_Avvia")) const;

 private:
  QPointer<QWidget> finestra_;
};

/// Compares the boxes so far with the expected ones and forgets them; a text that ends in "*" stands for
/// every text that begins so.
void attendi(Bottega& bottega, const std::vector<Box>& attesi);
/// A box with one button and no title.
Box riquadro(const QString& testo, Icon icona);

/// Name of a fault for a test's parameter.
std::string nomeGuasto(int modo, ecrsim::FaultKind cosa);
