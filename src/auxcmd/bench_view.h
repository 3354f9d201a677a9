#pragma once

#include <QWidget>
#include <functional>

#include "auxcmd/channel.h"
#include "auxcmd/serial_line.h"

/// What the screens of the test bench give the channel: a line of their own, and the console's port and
/// speed.
namespace auxcmd {

class VistaBanco : public VistaCanale {
 public:
  /// Both outlive it.
  VistaBanco(QWidget& esci, Contesto& contesto);

  QString porta() const override;
  int velocita() const override;
  LineaCOM& linea() override { return linea_; }
  void fuocoSuEsci() override;
  /// The bench keeps its commands on while one works.
  void abilitaComandi() override {}
  void scambiaLed() override;
  void spegniLed() override;
  void mostraAttesa() override {}
  void togliAttesa() override;
  bool chiusa() const override { return chiusa_; }
  void annota(Verso verso, const QByteArray& byte) override;

  /// The screen goes.
  void chiudi();
  /// Number of the port, 0 for none; a network connection needs none. The console's line lets the port go.
  bool portaValida(int& numero);

 private:
  VistaCanale* console() const;

  QWidget& esci_;
  Contesto& contesto_;
  LineaCOM linea_;
  bool chiusa_ = false;
};

/// Sends, and returns what `invio` came to; 1 where the port failed, which is told, and lets it go.
int inviaDalBanco(const std::function<int()>& invio, VistaCanale& vista, Contesto& contesto);

}  // namespace auxcmd
