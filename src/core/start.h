#pragma once

#include <QWidget>
#include <memory>

#include "core/resolution.h"

class QTimer;
class MenuEntry;
struct Contesto;
namespace Ui {
class start;
}

/// The picture menu: the first screen, and the one that every workspace comes back to.
class start : public QWidget {
  Q_OBJECT

 public:
  /// Checks the display, of `misure` pixels, before the screen is loaded; may ask the person.
  start(Contesto& contesto, MisureSchermo misure);
  ~start() override;

  /// The display as read at start or as changed since.
  MisureSchermo misure() const { return misure_; }
  /// Changes the display mode where the platform has a call for it.
  void ChangeRes(float larghezza, float altezza);

 protected:
  void paintEvent(QPaintEvent* evento) override;
  void closeEvent(QCloseEvent* evento) override;

 private:
  struct Voce;
  static const Voce kVoci[];

  void vesti();
  void aggiungiTimer();
  void carica();
  void collega(const Voce& voce);
  MenuEntry& etichetta(const Voce& voce);
  QString percorsoImmagine(const Voce& voce) const;
  void evidenzia(const Voce& voce);
  void illustra(const Voce& voce);
  void scegli(const Voce& voce);

  Contesto& contesto_;
  MisureSchermo misure_;
  QTimer* primaImmagine_ = nullptr;
  /// The menu has stood on the screen once.
  bool dipinto_ = false;
  std::unique_ptr<Ui::start> ui_;
};
