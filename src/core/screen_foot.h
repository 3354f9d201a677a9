#pragma once

#include <QPointer>
#include <QString>

class OutcomeBar;
class QWidget;
struct Contesto;

/// What becomes of what an earlier command said at the foot of the screen.
enum class Piede {
  Nuovo,
  Resta,  ///< for a command that only looks or moves: counts and totals stay to be read
};

/// In front of what a save would change.
inline constexpr const char16_t* kNonSalvate = u"Modifiche non salvate: ";

/// The foot of a screen, its `OutcomeBar`, during one command. A screen without one, and one that goes during
/// its command, are left in peace.
class PiedeComando {
 public:
  PiedeComando(QWidget& schermo, Contesto& contesto, Piede piede);
  ~PiedeComando();
  PiedeComando(const PiedeComando&) = delete;
  PiedeComando& operator=(const PiedeComando&) = delete;

 private:
  Contesto& contesto_;
  QPointer<OutcomeBar> barra_;
  /// What stood there as the command began.
  QString prima_;
};
