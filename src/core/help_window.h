#pragma once

#include <QDialog>
#include <memory>

#include "platform/ui/user_port.h"

struct Contesto;
namespace Ui {
class FinestraAiuto;
}

/// A help text that lies in the application folder, and the screen that shows it.
struct Aiuto {
  const char* schermata;
  const char* titolo;
  /// Its name in the application folder.
  const char* file;
  /// Where "Esci" leads, for its tooltip.
  const char* ritorno;
  /// What is told where the file is not there.
  const char* assente;
  Icon icona;
};

/// The window of every help text: to be read, no more. Each screen of it has a class of its own, by which it
/// is known.
class FinestraAiuto : public QDialog {
  Q_OBJECT

 public:
  /// Throws Errore 53 if the file is not there, 75 or 321 if it cannot be read.
  FinestraAiuto(const Aiuto& aiuto, const Contesto& contesto);
  ~FinestraAiuto() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void impagina();

  std::unique_ptr<Ui::FinestraAiuto> ui_;
};

/// Opens the help text modally; tells that it is not there where it is not.
void MostraAiuto(const Aiuto& aiuto, Contesto& contesto);
