#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "devices/fake_till.h"
#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

const auto kLimite = std::chrono::seconds(10);

/// The dumps of the document, one for each line that begins at offset 0000.
QList<QByteArray> trameDelDocumento() {
  QFile file(QStringLiteral(GESTIONALE_SOURCES "/docs/ecr-protocol.md"));
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
  explicit Spia(const QString& cassa) : cassa_(*ecrcom::address(cassa.toStdString())) {}

  /// One command and its replies: one, or as many as `answers` says of each command of the connection.
  void inoltra(const Socket& pc, const std::vector<int>& risposte) {
    Socket cassa;
    ASSERT_EQ(connect(cassa_, within(kLimite), cassa), IoResult::Done);
    for (const int quante : risposte) {
      passa(pc, cassa);
      for (int i = 0; i < quante; ++i) passa(cassa, pc);
    }
    waitClosing(pc);
  }

  QList<QByteArray> trame;

 private:
  void passa(const Socket& da, const Socket& a) {
    std::vector<std::uint8_t> byte;
    while (!parseFrame(byte)) {
      std::uint8_t uno = 0;
      std::size_t quanti = 0;
      ASSERT_EQ(receiveSome(da, {&uno, 1}, within(kLimite), quanti), IoResult::Done);
      byte.push_back(uno);
    }
    trame.append(QByteArray(reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())));
    ASSERT_EQ(dispatch(a, byte, within(kLimite)), IoResult::Done);
  }

  in_addr cassa_;
};

}  // namespace

TEST(DocumentoDelProtocollo, IByteRiportatiSonoQuelliDiUnoScambioVero) {
  const TemporaryFolder cartella;
  TestTill cassa;
  cassa.put(QStringLiteral("venduto.bin"), "12345678");
  Library libreria;
  Spia spia(cassa.address());
  int scambio = 0;
  {
    const FintaTill finta([&](const Socket& pc) {
      const bool tasti = ++scambio == 4;
      spia.inoltra(pc, tasti ? std::vector<int>{1, 2} : std::vector<int>{1});
    });
    EXPECT_EQ(libreria.command(finta.address(), ECR_OPEN_MODE), kDone);
    EXPECT_EQ(libreria.command(finta.address(), ECR_FETCH_MODE, "venduto.bin"), kDone);
    EXPECT_EQ(libreria.command(finta.address(), ECR_FETCH_MODE, "fatture.bin"), kUnknownFile);
    QByteArray ip = finta.address().toLatin1();
    const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
    QByteArray testo = "X89F";
    EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, testo.data()), kDone);
    QByteArray buffer(1024, ' ');
    EXPECT_EQ(libreria.ecr_recv_xonxoff_ntw(maniglia, buffer.data(), 1024, 30), 39);
    libreria.ecr_disc_xonxoff_ntw(maniglia);
  }
  const QList<QByteArray> riportate = trameDelDocumento();
  ASSERT_EQ(riportate.size(), spia.trame.size());
  for (qsizetype i = 0; i < riportate.size(); ++i)
    EXPECT_EQ(riportate[i].toHex(' '), spia.trame[i].toHex(' ')) << i;
}
