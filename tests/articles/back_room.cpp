#include "articles/back_room.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "articles/article_database.h"
#include "articles/transaction.h"
#include "config/image.h"
#include "platform/net/network.h"

namespace {

constexpr qsizetype kByteRecord = 48;

QString testoSql(bool valore) {
  return valore ? QStringLiteral("true") : QStringLiteral("false");
}

/// Code page bytes of the few characters that the test's articles use.
char byteDi(QChar carattere) {
  switch (carattere.unicode()) {
    case u'€':
      return '\x80';
    case u'’':
      return '\x92';
    case u'Œ':
      return '\x8C';
    case u'漢':
      return '?';
    default:
      return static_cast<char>(carattere.unicode());
  }
}

void scriviTesto(QByteArray& immagine, qsizetype posto, const QString& testo, qsizetype limite) {
  const QString corto = testo.left(limite);
  for (qsizetype i = 0; i < corto.size(); ++i) immagine[posto + i] = byteDi(corto[i]);
  immagine[posto + corto.size()] = '\0';
}

void impacchetta(QByteArray& immagine, qsizetype posto, const ArticoloDiProva& articolo) {
  scriviTesto(immagine, posto + 31, articolo.ean, 14);
  scriviTesto(immagine, posto, articolo.descrizione, 24);
  const auto prezzo = static_cast<std::uint32_t>(articolo.prezzo);
  for (int i = 0; i < 4; ++i) immagine[posto + 27 + i] = static_cast<char>((prezzo >> (8 * i)) & 0xFF);
  immagine[posto + 25] = static_cast<char>(articolo.reparto - 1);
  immagine[posto + 26] = static_cast<char>((articolo.varPrezzo ? 1 : 0) + (articolo.prezzoZero ? 2 : 0));
}

}  // namespace

Bottega::Bottega(const QString& cartellaLibreria)
    : libreria(cartellaLibreria), contesto{utente,          area,      libreria,
                                           systemNetwork(), schermate, QStringLiteral(GESTIONALE_APP)} {
  azzeraStato();
  sporcaMemoria(0);
}

Bottega::~Bottega() {
  schermate.scaricaTutte();
  area.Abandon();
  azzeraStato();
}

void Bottega::apriArchivio(const QString& nome) {
  articles::NuovoDatabase(cartella.file(nome), contesto);
}

void Bottega::apriVuoto(const QStringList& statement, const QString& nome) {
  sqlite3* base = nullptr;
  ASSERT_EQ(sqlite3_open(cartella.file(nome).toUtf8().constData(), &base), SQLITE_OK);
  for (const QString& sql : statement)
    EXPECT_EQ(sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sql.toStdString();
  sqlite3_close(base);
  articles::ApriDatabase(cartella.file(nome), contesto);
}

QString Bottega::valore(const QString& sql) {
  const store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(sql);
  return righe.field(0).text();
}

std::vector<ArticoloDiProva> articoliDiProva(int quanti) {
  static const std::array kParole{QStringLiteral("CAFFÈ MACINATO"), QStringLiteral("LATTE INTERO € 1"),
                                  QStringLiteral("TÈ ALL’ARANCIA"), QStringLiteral("ŒUF 漢 PASQUA"),
                                  QStringLiteral("PANE")};
  std::vector<ArticoloDiProva> articoli;
  for (int i = 0; i < quanti; ++i) {
    const QString parola = kParole[static_cast<std::size_t>(i) % kParole.size()];
    articoli.push_back({QString::number(8000000000000LL + i * 7919LL).left(i % 14),
                        (parola + QStringLiteral(" %1 ABCDEFGHIJKLMNOPQRST").arg(i)).left(i % 31),
                        (i * 37) % 9999999, 1 + i % 80, i % 2 == 1, i % 4 >= 2});
  }
  return articoli;
}

void scriviArticoli(Bottega& bottega, const std::vector<ArticoloDiProva>& articoli) {
  articles::Transazione transazione(bottega.area);
  int slot = 0;
  for (const ArticoloDiProva& articolo : articoli) {
    ++slot;
    bottega.esegui(
        QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='%1',Codice_Articolo ='A%2',Descrizione ='%3',"
                       "Prezzo =%4,Reparto =%5,VarPrezzo =%6,PrezzoZero =%7 WHERE auto_id =%8")
            .arg(articolo.ean)
            .arg(slot)
            .arg(articolo.descrizione)
            .arg(articolo.prezzo)
            .arg(articolo.reparto)
            .arg(testoSql(articolo.varPrezzo), testoSql(articolo.prezzoZero))
            .arg(slot));
  }
  transazione.conferma();
}

QByteArray immagineAttesa(const std::vector<ArticoloDiProva>& articoli, QByteArray sotto) {
  qsizetype posto = 0;
  for (const ArticoloDiProva& articolo : articoli) {
    impacchetta(sotto, posto, articolo);
    posto += kByteRecord;
  }
  return sotto;
}

QByteArray immagineInMemoria() {
  const config::RecordLetto byte = std::as_const(config::immagineProgrammazione()).blocco(config::kPLU);
  return {reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())};
}

void sporcaMemoria(std::uint8_t byte) {
  std::ranges::fill(config::immagineProgrammazione().byte(), byte);
}

std::vector<Box> riquadri(const QStringList& testi, Icon icona) {
  std::vector<Box> attesi;
  for (const QString& testo : testi) attesi.push_back({testo, icona, {}, Buttons::Ok});
  return attesi;
}
