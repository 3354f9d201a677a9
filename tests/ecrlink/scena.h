#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <functional>

#include "core/contesto.h"
#include "core/schermate.h"
#include "core/stato.h"
#include "ecrlink/PannelloECR.h"
#include "ecrlink/session.h"
#include "platform/ecrcom/libreria.h"
#include "platform/net/rete.h"
#include "platform/store/store.h"
#include "platform/ui/utente_copione.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

/// A PC with the name and the addresses that a test gives it; its echo is the real one, counted. `esitoEco`
/// stands in for a till that is there and silent, which no loopback address can be.
class ReteDiProva : public Rete {
 public:
  AvvioRete esitoAvvio;
  int esitoChiusura = 0;
  QString nome = QStringLiteral("cassiera");
  QStringList indirizzi{QStringLiteral("10.1.2.3")};
  std::optional<int> esitoEco;
  QStringList passi;

  AvvioRete avvia() override;
  int chiudi() override;
  QString nomeComputer() override;
  QStringList indirizziLocali(const QString& delNome) override;
  int eco(const QString& indirizzo, const QByteArray& dati, int millisecondi) override;
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

  CartellaTemporanea cartella;
  UtenteCopione utente;
  store::Workspace area;
  LibreriaEcr libreria;
  ReteDiProva rete;
  Schermate schermate;
  Contesto contesto;

  /// The boxes so far, which the test has then looked at.
  std::vector<Riquadro> riquadri() { return utente.prendiRiquadri(); }
};

/// A critical box with no title, as most of this layer's are.
Riquadro critico(const QString& testo);
/// A box without icon nor title.
Riquadro semplice(const QString& testo);
/// The box of the one wrapper.
Riquadro erroreDiComunicazione(const QString& testo);

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
QStringList chiamateDi(Cassa& cassa);
