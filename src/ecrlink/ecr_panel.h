#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "ecrlink/link_view.h"

class OutcomeBar;
class QAction;
class QPushButton;
namespace Ui {
class PannelloECR;
}

/// The header that every link screen carries: address, own addresses, "Connetti", and what the till said of
/// itself. A promoted widget in the screens' .ui files.
class PannelloECR : public QWidget, public ecrlink::VistaLink {
  Q_OBJECT

 public:
  explicit PannelloECR(QWidget* parent = nullptr);
  ~PannelloECR() override;

  /// The start and exit commands of the screen around, and the line at its foot if it has one; before the
  /// panel is used as a view.
  void accoppia(QPushButton& avvia, QPushButton& esci, OutcomeBar* piede);

  QString indirizzo() const override;
  void scriviIndirizzo(const QString& indirizzo) override;
  QStringList indirizziLocali() const override;
  void scriviIndirizziLocali(const QStringList& indirizzi) override;
  void abilitaAvvia(bool abilitato) override;
  void abilitaConnetti(bool abilitato) override;
  bool connettiAbilitato() const override;
  void fuocoSuConnetti() override;
  void fuocoSuEsci() override;
  void abilitaSchermo() override;
  void mostraInfo(const EcrInfo& info) override;
  void mostraStato(const QString& parola, const QString& lettera) override;
  void distingui(style::Badge distintivo) override;
  void mostraPasso(const QString& passo) override;
  void togliPasso() override;
  void cassaRisponde(bool bene) override;

 Q_SIGNALS:
  /// CmdInviaModECR was clicked.
  void connetti();

 protected:
  /// Enter in the address box clicks "Connetti".
  void keyPressEvent(QKeyEvent* evento) override;
  void changeEvent(QEvent* evento) override;

 private:
  /// Each box as wide as the longest text that it is made for, in the font of the moment.
  void misura();
  /// The PC's own addresses in a box as high as they need: one line where there is one.
  void misuraIndirizzi();
  void spiegaConnetti();

  std::unique_ptr<Ui::PannelloECR> ui_;
  QPushButton* avvia_ = nullptr;
  QPushButton* esci_ = nullptr;
  QPointer<OutcomeBar> piede_;
  style::Badge distintivo_ = style::Badge::Neutral;
  QAction* segnoDiGuasto_ = nullptr;
  /// What stood at the foot before the step that is shown there.
  struct Detto;
  std::unique_ptr<Detto> primaDelPasso_;
};
