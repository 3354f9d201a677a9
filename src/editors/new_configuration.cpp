#include "editors/new_configuration.h"

#include <QDir>
#include <QFileInfo>

#include "articles/article_database.h"
#include "config/configuration_file.h"
#include "core/archive_file.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/text/previous_file.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"
#include "platform/ui/user_port.h"

namespace editors {

namespace {

bool presente(const QString& percorso, const QString& messaggio, Contesto& contesto) {
  if (!FileEsiste(percorso)) contesto.utente.MsgBox(messaggio, Icon::Critical);
  return FileEsiste(percorso);
}

QString modelloConfigurazione(const Contesto& contesto) {
  return QDir(contesto.cartella).filePath(QLatin1String(config::kModelloConfigurazione));
}

void copiaDatabase(const QString& sorgente, const QString& percorso, Contesto& contesto) {
  if (FileEsiste(percorso)) archivio::Conserva(percorso, contesto);
  store::CopyArchive(sorgente, percorso);
}

/// The file waits, whole on the disk, until the database beside it is there: what fails before leaves both
/// names to what they stood for.
void copia(const QString& sorgente, const QString& database, const QString& percorso, Contesto& contesto) {
  TemporaryFile file(RealTarget(percorso));
  // A configuration is its first bytes: a longer file is none of ours behind them.
  file.write(ReadFileStart(sorgente, static_cast<qsizetype>(config::kByteFile)));
  if (FileEsiste(percorso)) KeepPrevious(percorso);
  copiaDatabase(database, config::PercorsoCompagno(percorso), contesto);
  file.settle();
  varGestionePRG().PathConfigurazione = percorso;
}

}  // namespace

bool modelliPresenti(Contesto& contesto) {
  return presente(modelloConfigurazione(contesto),
                  QStringLiteral("Attenzione il file di sistema QzPRG.bck potrebbe essere assente !!!"),
                  contesto) &&
         presente(articles::percorsoModello(contesto),
                  QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente !!!"),
                  contesto);
}

bool occupato(const QString& percorso) {
  return FileEsiste(percorso) || FileEsiste(config::PercorsoCompagno(percorso));
}

void NuovaConfigurazione(const QString& percorso, Contesto& contesto) {
  copia(modelloConfigurazione(contesto), articles::percorsoModello(contesto), percorso, contesto);
}

void CreaDaConfigurazione(const QString& sorgente, const QString& percorso, Contesto& contesto) {
  if (QFileInfo(sorgente).canonicalFilePath() == QFileInfo(percorso).canonicalFilePath())
    throw errors::accessDenied(percorso);
  // Before the target's place is taken: a configuration without its articles is half of one.
  if (!FileEsiste(config::PercorsoCompagno(sorgente)))
    throw errors::fileMissing(config::PercorsoCompagno(sorgente));
  copia(sorgente, config::PercorsoCompagno(sorgente), percorso, contesto);
}

struct ConfigurazioneInUso::Stato {
  QString percorso = varGestionePRG().PathConfigurazione;
  QString nome = varGestionePRG().NomeFileDat;
  config::TestataFile testata = config::testataFile();
};

ConfigurazioneInUso::ConfigurazioneInUso() : prima_(std::make_unique<Stato>()) {}

ConfigurazioneInUso::~ConfigurazioneInUso() {
  if (tenuta_) return;
  varGestionePRG().PathConfigurazione = prima_->percorso;
  varGestionePRG().NomeFileDat = prima_->nome;
  config::testataFile() = prima_->testata;
}

}  // namespace editors
