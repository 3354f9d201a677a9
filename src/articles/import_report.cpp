#include "articles/import_report.h"

#include <QStringList>
#include <algorithm>

#include "platform/text/file_name.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"

namespace articles {

namespace {

constexpr int kLarghezza = 80;
const QString kEstensione = QStringLiteral(".csv");

QString tratti() {
  return QString(kLarghezza, u'-');
}
QString bianco() {
  return QStringLiteral(" ");
}

QString dataEOra(const QDateTime& momento) {
  return momento.toString(QStringLiteral("dd/MM/yyyy")) + u' ' + momento.toString(QStringLiteral("hh:mm:ss"));
}

QByteArray byteDi(const QStringList& righe) {
  return windows1252::toBytes(righe.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
}

QString marchio(const QString& codice, const CampiImport& campi) {
  const auto conAsterischi = [](const QString& testo) { return QStringLiteral(" *") + testo + u'*'; };
  if (codice == kAvvisoEanDuplicato) return conAsterischi(campi.Codice_EAN);
  if (codice == kErrorePrezzo) return conAsterischi(campi.Prezzo);
  if (codice == kErroreReparto) return conAsterischi(campi.Reparto);
  switch (codice.toInt()) {
    case kEanAssente:
      return conAsterischi(QStringLiteral("CODICE EAN ASSENTE"));
    case kArticoloAssente:
      return conAsterischi(QStringLiteral("CODICE ARTICOLO ASSENTE"));
    case kRepartoAssente:
      return conAsterischi(QStringLiteral("NUMERO REPARTO ASSENTE"));
    case kDescrizioneAssente:
      return conAsterischi(QStringLiteral("DESCRIZIONE ASSENTE"));
    default:
      return {};
  }
}

}  // namespace

QString NomeFileLOG(const QString& ingresso, const QDateTime& inizio) {
  const qsizetype cartella = ingresso.size() - FileName(ingresso).size();
  const qsizetype estensione = ingresso.lastIndexOf(kEstensione, -1, Qt::CaseInsensitive);
  const QString base = estensione >= cartella ? ingresso.left(estensione) : ingresso;
  return base + u'_' + inizio.toString(QStringLiteral("yyyyMMddhhmmss")) + QStringLiteral(".log");
}

void CreaFileLOG(const QString& log, const QString& ingresso, const QDateTime& momento) {
  WriteWholeFile(
      log,
      byteDi({tratti(),
              QStringLiteral("REPORT PER L'IMPORTAZIONE DEGLI ARTICOLI EFFETTUATO IN DATA: ") +
                  dataEOra(momento),
              bianco(), QStringLiteral("NOME FILE INPUT: ") + FileName(ingresso), bianco(), tratti()}),
      TemporaryFile::Durability::Passing);
}

void WriteFileLOG(const QString& log, const QString& codice, const CampiImport& campi) {
  AppendToFile(log, byteDi({campi.Codice_EAN + u'|' + campi.Codice_Articolo + u' ' + campi.Descrizione +
                                u' ' + campi.Prezzo + u' ' + campi.Reparto +
                                QStringLiteral(" [CODICE ERRORE=") + codice + marchio(codice, campi) + u']',
                            bianco()}));
}

void CloseFileLOG(const QString& log, int errori, const QDateTime& momento) {
  AppendToFile(log, byteDi({tratti(), QStringLiteral("FINE REPORT IN DATA: ") + dataEOra(momento), bianco(),
                            QStringLiteral("TOTALI ERRORI RISCONTRATI: [") + QString::number(errori) + u']',
                            tratti()}));
}

}  // namespace articles
