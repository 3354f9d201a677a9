// The archive of customers for a first try, as it lies in the application folder.
#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>

#include "customers/archive_summary.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "customers/vat_number.h"
#include "platform/text/windows1252.h"

namespace {

const QString kNome = QStringLiteral("clienti_esempio.mdb");
constexpr int kQuanti = 40;

class ArchivioDiEsempio : public testing::Test {
 protected:
  void SetUp() override {
    const QString copia = ufficio.folder.file(kNome);
    ASSERT_TRUE(QFile::copy(QStringLiteral(GESTIONALE_APP "/") + kNome, copia));
    customers::ApriDatabase(copia, ufficio.contesto);
  }
  /// A column of the customers, the anonymous one left out, by their codes.
  QStringList colonna(const char* nome) {
    return ufficio.rows(
        QStringLiteral("SELECT %1 FROM TAB_ANAG_CLIENTI WHERE ID_Cliente <> 0 ORDER BY ID_Cliente")
            .arg(QLatin1String(nome)));
  }
  QStringList testi() {
    return colonna("Ragione_Sociale") + colonna("Indirizzo") + colonna("Citta") + colonna("Nota");
  }

  Office ufficio;
};

}  // namespace

TEST_F(ArchivioDiEsempio, SiApreConQuarantaClientiENessunaFattura) {
  EXPECT_EQ(customers::CalcolaNumClienti(ufficio.user), kQuanti);
  const customers::RiepilogoArchivio riepilogo = customers::Riepiloga();
  EXPECT_TRUE(riepilogo.leggibile);
  EXPECT_EQ(riepilogo.clienti, kQuanti);
  EXPECT_EQ(riepilogo.fatture, 0);
  EXPECT_TRUE(ufficio.user.takeBoxes().empty());
}

TEST_F(ArchivioDiEsempio, LAnonimoEQuelloDelModello) {
  EXPECT_EQ(ufficio.rows(QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI WHERE ID_Cliente = 0")),
            QStringList{QStringLiteral("0||||||1")});
}

TEST_F(ArchivioDiEsempio, ICodiciVannoDaUnoSenzaBuchiETuttiSonoOrdinari) {
  QStringList attesi;
  for (int codice = 1; codice <= kQuanti; ++codice) attesi << QString::number(codice);
  EXPECT_EQ(colonna("ID_Cliente"), attesi);
  EXPECT_EQ(colonna("Stato"), QStringList(kQuanti, QStringLiteral("1")));
}

TEST_F(ArchivioDiEsempio, OgniPartitaIVAEBuonaEDiUnoSolo) {
  QStringList tutte = colonna("Partita_IVA");
  ASSERT_EQ(tutte.size(), kQuanti);
  for (const QString& una : tutte) {
    EXPECT_EQ(customers::CheckPartitaIVA(una), 0) << una.toStdString();
    EXPECT_EQ(una.size(), customers::kCifrePartitaIVA) << una.toStdString();
    EXPECT_TRUE(std::ranges::all_of(una, [](QChar c) { return c >= u'0' && c <= u'9'; }));
  }
  EXPECT_EQ(tutte.removeDuplicates(), 0);
}

// No office from 101 to 119 has given out a number.
TEST_F(ArchivioDiEsempio, NessunaPartitaIVAEDiUnUfficioCheEsiste) {
  for (const QString& una : colonna("Partita_IVA")) {
    const int ufficioIVA = una.mid(7, 3).toInt();
    EXPECT_GE(ufficioIVA, 101) << una.toStdString();
    EXPECT_LE(ufficioIVA, 119) << una.toStdString();
  }
}

TEST_F(ArchivioDiEsempio, ITestiStannoNeiLoroCampiComeLAnagrafeLiScrive) {
  const QStringList tutti = testi();
  ASSERT_EQ(tutti.size(), 4 * kQuanti);
  for (const QString& testo : tutti) {
    EXPECT_LE(testo.size(), 40) << testo.toStdString();
    EXPECT_EQ(testo, testo.toUpper());
    EXPECT_EQ(testo, testo.trimmed());
    EXPECT_FALSE(testo.contains(u'\'')) << testo.toStdString();
    EXPECT_EQ(windows1252::toText(windows1252::toBytes(testo)), testo);
  }
}

TEST_F(ArchivioDiEsempio, NomiIndirizziECittaCiSonoESonoAncheAccentati) {
  QStringList nomi = colonna("Ragione_Sociale");
  for (const QString& testo : nomi + colonna("Indirizzo") + colonna("Citta")) EXPECT_FALSE(testo.isEmpty());
  EXPECT_EQ(nomi.removeDuplicates(), 0);
  for (const char* nome : {"Ragione_Sociale", "Indirizzo", "Citta", "Nota"}) {
    const QString tutta = colonna(nome).join(QString());
    EXPECT_TRUE(std::ranges::any_of(tutta, [](QChar c) { return c.unicode() > 0x7F; })) << nome;
  }
}
