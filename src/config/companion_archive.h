#pragma once

#include <QString>

#include "core/state.h"
#include "platform/store/store.h"

struct Contesto;

namespace config {

/// The article database beside a configuration as the open archive, for its own life. At its end it is
/// closed, which commits what was left open, and the archive that was open before is the open one again.
class ArchivioCompagno {
 public:
  /// Throws what ApriDatabase throws; then the open archive is as before.
  ArchivioCompagno(const QString& configurazione, Contesto& contesto);
  ~ArchivioCompagno();
  ArchivioCompagno(const ArchivioCompagno&) = delete;
  ArchivioCompagno& operator=(const ArchivioCompagno&) = delete;

 private:
  store::Database primaAperto_;
  QString primaNome_;
};

}  // namespace config
