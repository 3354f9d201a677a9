#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "devices/finta_cassa.h"
#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

using namespace ecrcom;

namespace {

const auto kLimite = std::chrono::seconds(10);

/// The dumps of the document, one for each line that begins at offset 0000.
QList<QByteArray> trameDelDocumento() {
  QFile file(QStringLiteral(GESTIONALE_SORGENTI "/docs/ecr-protocol.md"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  const QRegularExpression riga(QStringLiteral("^([0-9a-f]{4})((?: {1,2}[0-9a-f]{2})+)$"));
  QList<QByteArray> trame;
  while (!file.atEnd()) {
    const QRegularExpressionMatch trovata = riga.match(QString::fromLatin1(file.readLine()).trimmed());
    if (!trovata.hasMatch()) continue;
    if (trovata.captured(1) == QStringLiteral("0000")) trame.append(QByteArray());
    EXPECT_EQ(trovata.captured(1).toInt(nullptr, 16), trame.back().size());
    trame.back().append(QByteArray::fromHex(trovata.captured(2).toLatin1()));
  }
  return trame;
}

/// Stands between library and till and writes down, byte for byte, each frame that passes.
class Spia {
 public:
  explicit Spia(const QString& cassa) : cassa_(*ecrcom::indirizzo(cassa.toStdString())) {}

  /// One command and its replies: one, or as many as `risposte` says of each command of the connection.
  void inoltra(const Presa& pc, const std::vector<int>& risposte) {
    Presa cassa;
    ASSERT_EQ(connetti(cassa_, fra(kLimite), cassa), Esito::Fatto);
    for (const int quante : risposte) {
      passa(pc, cassa);
      for (int i = 0; i < quante; ++i) passa(cassa, pc);
    }
    aspettaChiusura(pc);
  }

  QList<QByteArray> trame;

 private:
  void passa(const Presa& da, const Presa& a) {
    std::vector<std::uint8_t> byte;
    while (!leggiTrama(byte)) {
      std::uint8_t uno = 0;
      std::size_t quanti = 0;
      ASSERT_EQ(riceviQualcosa(da, {&uno, 1}, fra(kLimite), quanti), Esito::Fatto);
      byte.push_back(uno);
    }
    trame.append(QByteArray(reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())));
    ASSERT_EQ(spedisci(a, byte, fra(kLimite)), Esito::Fatto);
  }

  in_addr cassa_;
};

}  // namespace

TEST(DocumentoDelProtocollo, IByteRiportatiSonoQuelliDiUnoScambioVero) {
  const CartellaTemporanea cartella;
  Cassa cassa;
  cassa.metti(QStringLiteral("venduto.bin"), "12345678");
  Libreria libreria;
  Spia spia(cassa.indirizzo());
  int scambio = 0;
  {
    const FintaCassa finta([&](const Presa& pc) {
      const bool tasti = ++scambio == 4;
      spia.inoltra(pc, tasti ? std::vector<int>{1, 2} : std::vector<int>{1});
    });
    EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_OPEN_MODE), kFatto);
    EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_FETCH_MODE, "venduto.bin"), kFatto);
    EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_FETCH_MODE, "fatture.bin"), kFileSconosciuto);
    QByteArray ip = finta.indirizzo().toLatin1();
    const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
    QByteArray testo = "X89F";
    EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, testo.data()), kFatto);
    QByteArray buffer(1024, ' ');
    EXPECT_EQ(libreria.ecr_recv_xonxoff_ntw(maniglia, buffer.data(), 1024, 30), 39);
    libreria.ecr_disc_xonxoff_ntw(maniglia);
  }
  const QList<QByteArray> riportate = trameDelDocumento();
  ASSERT_EQ(riportate.size(), spia.trame.size());
  for (qsizetype i = 0; i < riportate.size(); ++i)
    EXPECT_EQ(riportate[i].toHex(' '), spia.trame[i].toHex(' ')) << i;
}
