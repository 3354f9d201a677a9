#pragma once

#include <QElapsedTimer>
#include <QString>

#include "platform/ui/wait_pointer.h"

class QProgressBar;
struct Contesto;

/// The working pointer of a long work, and its wait box `Form_ATTESA`: made once the work has lasted for a
/// while, so that a short one does not pay for a box that nobody could read, or at once for a work that does
/// not tell how far it is. Both go with its end.
class Attesa {
 public:
  enum class Quando { Serve, Subito };
  explicit Attesa(Contesto& contesto, Quando quando = Quando::Serve);
  ~Attesa();
  Attesa(const Attesa&) = delete;
  Attesa& operator=(const Attesa&) = delete;

  /// At each record: shows the box when it is due, and moves its bar at most every 40 ms. `quanti` of 0: how
  /// much there is to do is not known, and the box has no bar.
  void avanza(qint64 fatti, qint64 quanti);
  /// The end, before the object's own.
  void chiudi();

 private:
  void mostra();

  Contesto& contesto_;
  WaitPointer puntatore_;
  QElapsedTimer dallInizio_;
  QElapsedTimer dallUltima_;
  QProgressBar* barra_ = nullptr;
  /// The box has been due, whether or not there is one to show.
  bool dovuta_ = false;
  bool chiusa_ = false;
};
