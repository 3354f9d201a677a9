#include "config_transfer/transfer_scene.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>

#include "articles/article_database.h"
#include "config/Form_TrasferimentoProgrammazione.h"
#include "config/configuration_file.h"
#include "config/configuration_transfer.h"
#include "controls/outcome_bar.h"
#include "ecrlink/transfer_lock.h"
#include "platform/error.h"

namespace {

constexpr qsizetype kByteImmagine = 244968;

struct Posto {
  qsizetype inizio;
  qsizetype byte;
};
const std::map<QString, Posto> kPosti{
    {QStringLiteral("intestazione.bin"), {0, 304}},   {QStringLiteral("cortesia.bin"), {304, 78}},
    {QStringLiteral("reparti.bin"), {382, 3360}},     {QStringLiteral("plu.bin"), {3742, 240000}},
    {QStringLiteral("iva.bin"), {243742, 232}},       {QStringLiteral("val.bin"), {243974, 116}},
    {QStringLiteral("operatori.bin"), {244090, 330}}, {QStringLiteral("prog_param.bin"), {244420, 428}},
    {QStringLiteral("logo.bin"), {244848, 120}},
};

const QString kPlu = QStringLiteral("plu.bin");

/// The folder's lock, and a second name of the first one seen: a lock taken anew is another file.
constexpr const char* kSerratura = ".scambio-ecr.lock";
constexpr const char* kPrimaSerratura = "prima-serratura";

QString provaScambio() {
  try {
    const ecrlink::ScambioEsclusivo suo;
    return QStringLiteral("libera");
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kAccessDenied);
    if (!std::filesystem::exists(kPrimaSerratura))
      std::filesystem::create_hard_link(kSerratura, kPrimaSerratura);
    const bool stessa = std::filesystem::equivalent(kSerratura, kPrimaSerratura);
    return stessa ? QStringLiteral("presa") : QStringLiteral("ripresa");
  }
}

}  // namespace

Box critico(const char* testo) {
  return box(QString::fromUtf8(testo), Icon::Critical);
}

Box informa(const char* testo) {
  return box(QString::fromUtf8(testo), Icon::Information);
}

Box domanda(const char* testo) {
  return {QString::fromUtf8(testo), Icon::Question, QStringLiteral("Aggiornamento ECR"), Buttons::OkCancel,
          Preset::Last};
}

Box fallitoFile(const QString& file) {
  return plainBox(QStringLiteral("Fallita operazione trasferimento ") + file);
}

const QStringList& ordineInvio() {
  static const QStringList kOrdine{
      QStringLiteral("intestazione.bin"), QStringLiteral("reparti.bin"), QStringLiteral("plu.bin"),
      QStringLiteral("iva.bin"),          QStringLiteral("val.bin"),     QStringLiteral("operatori.bin"),
      QStringLiteral("cortesia.bin"),     QStringLiteral("logo.bin"),    QStringLiteral("prog_param.bin")};
  return kOrdine;
}

const QStringList& ordineRicezione() {
  static const QStringList kOrdine{
      QStringLiteral("intestazione.bin"), QStringLiteral("prog_param.bin"), QStringLiteral("plu.bin"),
      QStringLiteral("val.bin"),          QStringLiteral("operatori.bin"),  QStringLiteral("cortesia.bin"),
      QStringLiteral("logo.bin"),         QStringLiteral("iva.bin"),        QStringLiteral("reparti.bin")};
  return kOrdine;
}

Box fallitaRichiesta(const QString& file) {
  static const std::map<QString, const char*> kTesti{
      {QStringLiteral("intestazione.bin"), "Errore nell'invio richiesta dati presenti nell'intestazione "},
      {QStringLiteral("prog_param.bin"), "Errore nell'invio richiesta dati presenti in RAM "},
      {QStringLiteral("plu.bin"), "Errore nell'invio richiesta dati presenti in PLU "},
      {QStringLiteral("val.bin"), "Errore nell'invio richiesta dati Valute "},
      {QStringLiteral("operatori.bin"), "Errore nell'invio richiesta dati presenti in Valute "},
      {QStringLiteral("cortesia.bin"), "Errore nell'invio richiesta dati Cortesia "},
      {QStringLiteral("logo.bin"), "Errore nell'invio richiesta dati Logo "},
      {QStringLiteral("iva.bin"), "Errore nell'invio richiesta dati Iva "},
      {QStringLiteral("reparti.bin"), "Errore nell'invio richiesta dati Reparti "},
  };
  return critico(kTesti.at(file));
}

QByteArray disegno(int seed) {
  QByteArray byte(kByteImmagine, '\0');
  // 251 is prime: no record length divides it, so that a shifted record shows.
  for (qsizetype i = 0; i < byte.size(); ++i) byte[i] = static_cast<char>((i + qsizetype{101} * seed) % 251);
  return byte;
}

QByteArray recordIn(const QByteArray& immagine, const QString& file) {
  const Posto posto = kPosti.at(file);
  return immagine.mid(posto.inizio, posto.byte);
}

QByteArray fileDi(const QByteArray& immagine, const QString& file) {
  const QByteArray record = recordIn(immagine, file);
  return file == kPlu ? record : record + '\0';
}

QByteArray immagineInMemoria() {
  const config::RecordLetto byte = std::as_const(config::immagineProgrammazione()).byte();
  return {reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())};
}

BancoTrasferimento::BancoTrasferimento(const ecrsim::Options& opzioni) : cassa(opzioni) {
  bottega.screens.registra<Form_TrasferimentoProgrammazione>();
  config::azzeraConfigurazione();
  config::azzeraRigheStrette();
  std::memcpy(config::testataFile().data(), "V03.00KPR", 9);
  std::ranges::fill(config::bloccoNegozio(), std::uint8_t{0x5A});
  const QByteArray immagine = disegno(1);
  std::memcpy(config::immagineProgrammazione().byte().data(), immagine.constData(),
              static_cast<std::size_t>(immagine.size()));
  EXPECT_EQ(config::SalvaConfigurazione(configurazione, bottega.user), 0);
  varGestionePRG().PathConfigurazione = configurazione;
  articles::NuovoDatabase(compagno, bottega.contesto);
  articles::ChiudiDatabase();
  varGlobal().NomeDB_Articoli.clear();
}

BancoTrasferimento::~BancoTrasferimento() {
  config::azzeraConfigurazione();
  config::azzeraRigheStrette();
}

GuidedScreen BancoTrasferimento::pronto(const QString& opzione) {
  GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  schermo.click(opzione);
  gia_ = callsOf(cassa).size();
  return schermo;
}

void BancoTrasferimento::programmaCassa() {
  const QByteArray immagine = disegno(2);
  for (const QString& file : ordineInvio()) cassa.put(file, fileDi(immagine, file));
  cassa.put(kPlu, articoliDellaCassa());
}

void BancoTrasferimento::nelCompagno(const QStringList& istruzioni) {
  articles::ApriDatabase(compagno, bottega.contesto);
  store::Transaction transazione(bottega.workspace);
  for (const QString& sql : istruzioni) bottega.execute(sql);
  transazione.Commit();
  articles::ChiudiDatabase();
}

int BancoTrasferimento::righeNelCompagno(const QString& sql) {
  articles::ApriDatabase(compagno, bottega.contesto);
  const int righe = bottega.rows(sql);
  articles::ChiudiDatabase();
  return righe;
}

QString BancoTrasferimento::valoreNelCompagno(const QString& sql) {
  articles::ApriDatabase(compagno, bottega.contesto);
  QString valore = bottega.value(sql);
  articles::ChiudiDatabase();
  return valore;
}

QStringList BancoTrasferimento::chiamate() {
  return callsOf(cassa).mid(gia_);
}

QByteArray BancoTrasferimento::fileConfigurazione() {
  return bottega.folder.read(QStringLiteral("negozio.dat"));
}

QString BancoTrasferimento::piede(const GuidedScreen& schermo) {
  return schermo.control<OutcomeBar>("BarraEsito").text();
}

QStringList contesaDurante(BackRoom& bottega, const GuidedScreen& schermo) {
  QStringList esiti;
  const auto prova = [&esiti] { esiti << provaScambio(); };
  bottega.user.onPass = prova;
  bottega.user.onBox = [&](const Box&) { prova(); };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  bottega.user.onBox = nullptr;
  return esiti;
}

QStringList scambi(int modo, const QStringList& file) {
  QStringList chiamate;
  for (const QString& uno : file)
    chiamate << QStringLiteral("1:") << QStringLiteral("%1:%2").arg(modo).arg(uno) << QStringLiteral("2:");
  return chiamate;
}

const QByteArray& senzaArticoli() {
  static const QByteArray kPluVuoti =
      expectedImage(std::vector<TestArticle>(5000), recordIn(disegno(1), kPlu));
  return kPluVuoti;
}

const QByteArray& articoliDellaCassa() {
  static const QByteArray kArticoli = expectedImage(fullArchive());
  return kArticoli;
}
