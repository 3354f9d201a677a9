#pragma once

#include <QHash>
#include <QStringView>
#include <optional>
#include <vector>

namespace articles {

/// Which of a run of "write this value where the key is so" statements nobody could tell from left out.
///
/// An archive of a hundred articles has 4900 slots with an empty EAN. One statement a slot, each writing all
/// those rows, makes 24 million row writes of which the last 4900 stay. Statements of one key write the same
/// rows, nobody reads them in between, and the last one decides: so of each key the first runs, to fail where
/// it would fail, and the last; those between run only once something has failed, so that every message comes
/// as often and in the same order as if all had run.
class Sovrascritte {
 public:
  /// The keys of the statements, in their order; nothing where there will be no statement. They are read here
  /// only.
  explicit Sovrascritte(const std::vector<std::optional<QStringView>>& chiavi) : superflue_(chiavi.size()) {
    QHash<QStringView, Estremi> estremi;
    estremi.reserve(static_cast<qsizetype>(chiavi.size()));
    for (std::size_t i = 0; i < chiavi.size(); ++i)
      if (chiavi[i]) aggiungi(estremi, *chiavi[i], i);
  }

  /// True if statement `i`, from 0, may be left out.
  bool superflua(std::size_t i) const { return !fallita_ && superflue_[i]; }
  /// A statement failed: from here on every one runs.
  void fallita() { fallita_ = true; }

 private:
  struct Estremi {
    std::size_t prima = 0;
    std::size_t ultima = 0;
  };

  void aggiungi(QHash<QStringView, Estremi>& estremi, QStringView chiave, std::size_t i) {
    const auto trovata = estremi.find(chiave);
    if (trovata == estremi.end()) {
      estremi.insert(chiave, {i, i});
      return;
    }
    // The last so far has one behind it now.
    superflue_[trovata->ultima] = trovata->ultima != trovata->prima;
    trovata->ultima = i;
  }

  std::vector<bool> superflue_;
  bool fallita_ = false;
};

}  // namespace articles
