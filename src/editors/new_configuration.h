#pragma once

#include <QString>
#include <memory>

struct Contesto;

/// New configurations on the disk: a file and the article database beside it. What either replaces stays
/// beside it under its `PreviousName`.
namespace editors {

/// False if one of the two templates is missing; the person has been told which.
bool modelliPresenti(Contesto& contesto);

/// Whether a configuration of this path, or its database, is there already.
bool occupato(const QString& percorso);

/// The template becomes the configuration at `percorso`, which is the one in use from then on, and the
/// article template the database beside it. Throws Errore 53, 61, 70, 75, 76 or 3260 where a copy fails: then
/// file and database are as before, and so is the configuration in use.
void NuovaConfigurazione(const QString& percorso, Contesto& contesto);
/// The same from another configuration and its own database. Throws Errore 70 for a configuration that is to
/// be made from itself.
void CreaDaConfigurazione(const QString& sorgente, const QString& percorso, Contesto& contesto);

/// The configuration in use as it was, unless `tieni` is called: a file that was refused must not become the
/// one that the next save writes over.
class ConfigurazioneInUso {
 public:
  ConfigurazioneInUso();
  ~ConfigurazioneInUso();
  ConfigurazioneInUso(const ConfigurazioneInUso&) = delete;
  ConfigurazioneInUso& operator=(const ConfigurazioneInUso&) = delete;

  void tieni() { tenuta_ = true; }

 private:
  struct Stato;
  std::unique_ptr<Stato> prima_;
  bool tenuta_ = false;
};

}  // namespace editors
