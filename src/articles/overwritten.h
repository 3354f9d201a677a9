#pragma once

#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace articles {

/// Which of a run of "write this value where the key is so" statements nobody could tell from left out.
///
/// An archive from the template has some 4900 slots with an empty EAN. One statement a slot, each writing all
/// those rows, makes 24 million row writes of which the last 4900 stay. Statements of one key write the same
/// rows, nobody reads them in between, and the last one decides: so of each key the first runs, to fail where
/// it would fail, and the last; those between run only once something has failed, so that every message comes
/// as often and in the same order as if all had run.
class Sovrascritte {
 public:
  /// The keys of the statements, in their order; nothing where there will be no statement.
  explicit Sovrascritte(std::vector<std::optional<QString>> chiavi) : chiavi_(std::move(chiavi)) {
    for (std::size_t i = 0; i < chiavi_.size(); ++i)
      if (chiavi_[i]) estendi(*chiavi_[i], i);
  }

  /// True if statement `i`, from 0, may be left out.
  bool superflua(std::size_t i) const {
    if (fallita_ || !chiavi_[i]) return false;
    const Estremi estremi = estremi_.value(*chiavi_[i]);
    return i != estremi.prima && i != estremi.ultima;
  }
  /// A statement failed: from here on every one runs.
  void fallita() { fallita_ = true; }

 private:
  struct Estremi {
    std::size_t prima = 0;
    std::size_t ultima = 0;
  };

  void estendi(const QString& chiave, std::size_t i) {
    const auto trovata = estremi_.find(chiave);
    if (trovata == estremi_.end())
      estremi_.insert(chiave, {i, i});
    else
      trovata->ultima = i;
  }

  std::vector<std::optional<QString>> chiavi_;
  QHash<QString, Estremi> estremi_;
  bool fallita_ = false;
};

}  // namespace articles
