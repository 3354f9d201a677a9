// A configuration of any bytes: it is refused by its version, or loaded as far as it reaches, and what is
// saved of it is as long as every configuration and begins with its bytes.

#include <QFile>
#include <QTemporaryDir>

#include "check.h"
#include "config/configuration_changes.h"
#include "config/configuration_file.h"
#include "silent_user.h"

namespace {

QString path(const char* name) {
  static const QTemporaryDir folder;
  return folder.filePath(QLatin1String(name));
}

void write(const QString& file, const QByteArray& bytes) {
  QFile output(file);
  check(output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size());
}

QByteArray read(const QString& file) {
  QFile input(file);
  check(input.open(QIODevice::ReadOnly));
  return input.readAll();
}

/// Every field of every record can be read, whatever stands in it.
void readFields() {
  const config::ImmagineProgrammazione& image = config::immagineProgrammazione();
  for (const config::Famiglia* family : config::famiglie())
    for (std::size_t i = 0; i < family->record; i += family->record < 100 ? 1 : 499)
      for (const config::Campo& field : family->campi)
        if (field.tipo == config::Tipo::CampoTesto)
          check(leggiTesto(image.record(*family, i), field).size() <=
                static_cast<qsizetype>(field.larghezza));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  const QByteArray bytes(static_cast<const char*>(static_cast<const void*>(data)),
                         static_cast<qsizetype>(count));
  const QString file = path("entrata.dat");
  const QString saved = path("uscita.dat");
  write(file, bytes);
  QFile::remove(saved);
  SilentUser user;
  config::azzeraConfigurazione();

  QString panel;
  const bool ours = config::VerificaVersioneFile(file, panel) == 0;
  check(ours == bytes.startsWith("V03.00"));
  check(panel.isEmpty() != ours);

  check(config::CaricaConfigurazione(file, user) == 0);
  readFields();
  const config::Salvataggio done = config::SalvaConfigurazioneRaccontando(saved, user);
  check(done.esito == 0 && user.boxes == 0);
  const QByteArray whole = read(saved);
  check(whole.size() == static_cast<qsizetype>(config::kByteFile));
  check(whole == bytes.leftJustified(whole.size(), '\0', true));
  check(config::RaccontoModifiche(bytes, whole).isEmpty());
  check(read(file) == bytes);
  return 0;
}
