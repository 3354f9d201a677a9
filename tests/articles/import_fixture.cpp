#include "articles/import_fixture.h"

#include "core/command.h"

articles::EsitoImport ImportArticoli::importaFile(const QString& percorso) {
  bottega.user.chooses(percorso);
  const Comando comando(bottega.contesto, QStringLiteral("Importa"), QStringLiteral("Prova"));
  articles::EsitoImport esito = articles::ImportaArticoli(bottega.contesto);
  livelloAllaFine = bottega.workspace.level();
  return esito;
}

articles::EsitoImport ImportArticoli::importa(const QByteArray& csv) {
  return importaFile(bottega.folder.write(QStringLiteral("lista.csv"), csv));
}

QStringList ImportArticoli::annotazioni() {
  constexpr qsizetype kTesta = 6;
  constexpr qsizetype kCoda = 5;
  const QByteArray byte = report();
  EXPECT_TRUE(byte.endsWith("\r\n"));
  QStringList righe = QString::fromLatin1(byte.chopped(2)).split(QStringLiteral("\r\n"));
  if (righe.size() < kTesta + kCoda ||
      !righe[righe.size() - kCoda + 1].startsWith(QStringLiteral("FINE REPORT"))) {
    ADD_FAILURE() << "no closed report: " << byte.toStdString();
    return {};
  }
  righe = righe.mid(kTesta, righe.size() - kTesta - kCoda);
  QStringList annotate;
  for (qsizetype i = 0; i < righe.size(); i += 2) {
    annotate.append(righe[i]);
    EXPECT_EQ(righe.value(i + 1), QStringLiteral(" "));
  }
  return annotate;
}

Fotografia ImportArticoli::fotografa(store::Database& base) {
  store::Recordset righe = base.OpenRecordset(
      u"SELECT auto_id, ID_Position, Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto, "
      u"Filler, VarPrezzo, PrezzoZero from TAB_ARTICOLI ORDER BY auto_id");
  Fotografia foto;
  for (; !righe.atEnd(); righe.MoveNext()) {
    QStringList riga;
    for (int colonna = 0; colonna < righe.columns(); ++colonna) riga.append(righe.field(colonna).text());
    foto.push_back(riga);
  }
  return foto;
}

Fotografia ImportArticoli::fotografiaDaFuori() {
  store::Workspace altra{bottega.clock};
  store::Database base = altra.OpenDatabase(archivio);
  Fotografia foto = fotografa(base);
  base.Close();
  return foto;
}

QString ImportArticoli::colonna(const QString& nome, int auto_id) {
  return bottega.value(QStringLiteral("SELECT ") + nome +
                       QStringLiteral(" from TAB_ARTICOLI where auto_id =") + QString::number(auto_id));
}

Box ImportArticoli::riuscita() {
  return {QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
          Icon::Information,
          {},
          Buttons::Ok};
}

Box ImportArticoli::fallita() {
  return {QStringLiteral("OPERAZIONE DI IMPORTAZIONE ARTICOLI FALLITA"), Icon::Critical, {}, Buttons::Ok};
}

Box ImportArticoli::conErrori(int errori) const {
  return {QStringLiteral("Errore nell'importazione degli articoli\r\n\r\nTotali errori riscontrati: [%1]\r\n"
                         "Nome File da importare : [lista.csv]\r\n\r\n"
                         "Per maggiori dettagli esaminare il file : [%2]\r\n")
              .arg(errori)
              .arg(bottega.folder.file(QStringLiteral("lista_20240307090501.log"))),
          Icon::Information, QStringLiteral("ATTENZIONE"), Buttons::Ok};
}

QByteArray rigaCsv(int auto_id, const QByteArray& ean, const QByteArray& codice,
                   const QByteArray& descrizione, const QByteArray& prezzo, const QByteArray& reparto) {
  return QByteArray::number(auto_id) + ';' + ean + ';' + codice + ';' + descrizione + ';' + prezzo + ';' +
         reparto + ";N;N; \r\n";
}

QByteArray listaSana(int quante) {
  QByteArray csv;
  for (int i = 1; i <= quante; ++i)
    csv += rigaCsv(i, "80000000" + QByteArray::number(10000 + i), "A" + QByteArray::number(i),
                   "ARTICOLO " + QByteArray::number(i), QByteArray::number(i / 100) + ",50",
                   QByteArray::number(1 + i % 80));
  return csv;
}
