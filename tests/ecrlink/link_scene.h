#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <functional>

#include "core/context.h"
#include "core/screens.h"
#include "core/state.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/session.h"
#include "platform/ecrcom/library.h"
#include "platform/net/network.h"
#include "platform/store/store.h"
#include "platform/ui/scripted_user.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

/// A PC with the name and the addresses that a test gives it; its echo is the real one, counted. `esitoEco`
/// stands in for a till that is there and silent, which no loopback address can be.
class ReteDiProva : public Rete {
 public:
  NetworkStartup esitoAvvio;
  int esitoChiusura = 0;
  QString nome = QStringLiteral("cassiera");
  QStringList indirizzi{QStringLiteral("10.1.2.3")};
  std::optional<int> esitoEco;
  QStringList passi;

  NetworkStartup start() override;
  int close() override;
  QString computerName() override;
  QStringList localAddresses(const QString& delNome) override;
  int echo(const QString& indirizzo, const QByteArray& dati, int millisecondi) override;
};

/// A link screen and nothing more: the header, a start and an exit.
class SchermoLink : public QDialog {
 public:
  explicit SchermoLink(Contesto& contesto);

  QWidget& controllo(const char* nome);
  QString testo(const char* nome);
  void digita(const QString& indirizzo);
  void clicca(const char* nome);
  bool acceso(const char* nome) { return controllo(nome).isEnabled(); }
  bool haIlFuoco(const char* nome) { return focusWidget() == &controllo(nome); }
};

/// What stands around a link screen in the program, made fresh.
struct Scena {
  explicit Scena(const QString& cartellaLibreria = QStringLiteral(GESTIONALE_APP));

  TemporaryFolder cartella;
  ScriptedUser utente;
  store::Workspace area;
  LibreriaEcr libreria;
  ReteDiProva rete;
  Schermate schermate;
  Contesto contesto;

  /// The boxes so far, which the test has then looked at.
  std::vector<Box> riquadri() { return utente.takeBoxes(); }
};

/// A critical box with no title, as most of this layer's are.
Box critico(const QString& testo);
/// A box without icon nor title.
Box semplice(const QString& testo);
/// The box of the one wrapper.
Box erroreDiComunicazione(const QString& testo);

/// State of the link as a table row: start command, connect command, address in use.
struct StatoLink {
  bool avvia = false;
  bool connetti = false;
  QString ip;
  bool operator==(const StatoLink&) const = default;
};
StatoLink statoDi(SchermoLink& schermo);
void PrintTo(const StatoLink& stato, std::ostream* uscita);

/// Calls on the till as "mode:file", in order.
QStringList chiamateDi(TestTill& cassa);
