#pragma once

#include <QString>
#include <vector>

class QPushButton;

/// The primary command of a screen where it follows the work: one of several buttons bears its look, and
/// Enter presses that one. The buttons outlive it.
class PrimaryCommand {
 public:
  struct Candidate {
    QPushButton* button;
    /// Name of its icon.
    QString icon;
  };

  /// The first candidate is the primary command at first.
  explicit PrimaryCommand(std::vector<Candidate> candidates);
  void moveTo(const QPushButton& button);

 private:
  std::vector<Candidate> candidates_;
  const QPushButton* primary_ = nullptr;
};
