#pragma once

class QWidget;

/// The one busy guard. While an instance lives, keys, clicks, shortcuts and closings that an event pass
/// would deliver are eaten, so that a transfer cannot be started twice nor its screen closed under it.
/// The end of the last one eats what was waiting: a click made while a long call stood still is not a wish
/// for what the screen shows afterwards. Instances nest. Message boxes and file dialogs of the user port
/// suspend the guard while they are open; what was pressed before they opened is eaten too.
class BusyGuard {
 public:
  BusyGuard();
  ~BusyGuard();
  BusyGuard(const BusyGuard&) = delete;
  BusyGuard& operator=(const BusyGuard&) = delete;

  /// True while some instance lives and none is suspended.
  static bool active();
  /// Tells one command from the next: a number that changes with every outermost instance.
  static unsigned number();

  /// Lets one window be closed all the same, for its own life: the way out of a work that nobody knows the
  /// length of. Whoever does that work asks behind each step whether the window is still wanted.
  class Closable {
   public:
    explicit Closable(QWidget& window);
    ~Closable();
    Closable(const Closable&) = delete;
    Closable& operator=(const Closable&) = delete;

   private:
    const QWidget* before_;
  };

  /// Lifts the guard for its own life: what the user port holds while a box is open.
  class Suspended {
   public:
    Suspended();
    ~Suspended();
    Suspended(const Suspended&) = delete;
    Suspended& operator=(const Suspended&) = delete;

   private:
    int before_ = 0;
  };
};
