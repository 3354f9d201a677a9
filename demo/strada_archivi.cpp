#include <QLocale>
#include <algorithm>

#include "demo/archivio_riletto.h"
#include "demo/attese_archivi.h"
#include "demo/momenti.h"
#include "demo/strada.h"

namespace {

const QString kGrigliaArticoli = QStringLiteral("MSFlexGridArticoli");
const QString kGrigliaVenduto = QStringLiteral("MSFlexGridVenduto");
const QString kCerca = QStringLiteral("Vmd_Cerca");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kEsportati = QStringLiteral("articoli-esportati.csv");
const QString kVendutoEsportato = QStringLiteral("venduto.csv");
const char* const kInizioCercato = "yogurt";
constexpr std::int32_t kPrezzoCorretto = 123;  // hundredths

char segnoDecimale() {
  return QLocale().decimalPoint().at(0).toLatin1();
}

Regista::Quando dopo(const QString& chiusa) {
  return [chiusa] { return finestra(chiusa) == nullptr && acceso(kLavoro, QStringLiteral("Cmd_Venduto")); };
}

/// The list with the one article as the correction leaves it.
std::vector<attese::Articolo> conCorrezione(std::vector<attese::Articolo> articoli, int slot) {
  attese::Articolo& articolo = articoli.at(static_cast<std::size_t>(slot - 1));
  articolo.prezzo = kPrezzoCorretto;
  articolo.descrizione = attese::maiuscole(articolo.descrizione);
  return articoli;
}

}  // namespace

QString Strada::inCartella(const QString& nome) const {
  return luoghi_.cartella + QLatin1Char('/') + nome;
}

void Strada::esporta(const QString& nomeFinestra, const QString& file, const QString& foto) {
  regista_.passo(QStringLiteral("export"), abilitato(nomeFinestra, QStringLiteral("Cmd_Export")),
                 [nomeFinestra] { clicca(nomeFinestra, QStringLiteral("Cmd_Export")); });
  scegliFile(inCartella(file));
  attendiRiquadro(QStringLiteral("Creazione del file %1 terminata.").arg(inCartella(file)), foto);
}

void Strada::archivioArticoli() {
  regista_.passo(QStringLiteral("workspace after the reception"),
                 dopo(QStringLiteral("Form_RicezioneVenduto")), [this] {
                   cronometro_.start();
                   clicca(kLavoro, QStringLiteral("Cmd_Articoli"));
                 });
  cercaArticoli();
  correggiArticolo();
  esportaArticoli();
}

void Strada::cercaArticoli() {
  regista_.passo(QStringLiteral("archive of the articles"), abilitato(kArchivioArticoli, kCerca), [this] {
    const auto righe = celle(kArchivioArticoli, kGrigliaArticoli);
    pretendi(static_cast<std::size_t>(righe.size()) == attese::leggiElenco(percorso(elenco_)).size(),
             QStringLiteral("righe dell'archivio articoli"));
    riga(QStringLiteral("Articoli in elenco"), QString::number(righe.size()));
    fotografa(kArchivioArticoli, QStringLiteral("archivio-articoli"));
    digita(kArchivioArticoli, QStringLiteral("vkTextBoxDesc"), QLatin1String(kInizioCercato));
    cronometro_.start();
    clicca(kArchivioArticoli, kCerca);
  });
}

void Strada::confrontaRicerca() {
  const auto attesi = attese::cheCominciano(attese::leggiElenco(percorso(elenco_)), kInizioCercato);
  const auto righe = celle(kArchivioArticoli, kGrigliaArticoli);
  pretendi(static_cast<std::size_t>(righe.size()) == attesi.size(), QStringLiteral("articoli trovati"));
  auto trovata = righe.begin();
  for (const attese::Articolo& atteso : attesi) {
    pretendi(trovata->at(1).toStdString() == atteso.ean,
             QStringLiteral("articolo %1 fra i trovati").arg(atteso.slot));
    ++trovata;
  }
  corretto_ = attesi.front().slot;
  riga(QStringLiteral("Articoli trovati"), QString::number(righe.size()));
}

void Strada::correggiArticolo() {
  regista_.passo(QStringLiteral("articles found"), abilitato(kArchivioArticoli, kCerca), [this] {
    confrontaRicerca();
    cliccaCella(kArchivioArticoli, kGrigliaArticoli, 0, 1);
    // With two decimals in it the price drops every key but the backspace.
    ridigita(kArchivioArticoli, QStringLiteral("vkTextBoxPrezzo"), QStringLiteral("1,23"));
    // The search shows neither of the two letters: the person types them.
    digita(kArchivioArticoli, QStringLiteral("vkTextBoxVarPrz"), QStringLiteral("N"));
    digita(kArchivioArticoli, QStringLiteral("vkTextBoxPrz0"), QStringLiteral("N"));
    fotografa(kArchivioArticoli, QStringLiteral("archivio-articoli-cerca"));
    cronometro_.start();
    clicca(kArchivioArticoli, QStringLiteral("Cmd_Modifica"));
  });
  regista_.passo(QStringLiteral("article corrected"), abilitato(kArchivioArticoli, kCerca), [this] {
    confrontaCorrezione();
    fotografa(kArchivioArticoli, QStringLiteral("archivio-articoli-corretto"));
  });
}

void Strada::confrontaCorrezione() {
  const auto attesi = conCorrezione(attese::leggiElenco(percorso(elenco_)), corretto_);
  const auto posto = static_cast<std::size_t>(corretto_ - 1);
  const attese::Articolo salvato = rileggiArchivio(archivio_).slot.at(posto);
  pretendi(salvato.prezzo == kPrezzoCorretto && salvato.ean == attesi.at(posto).ean &&
               salvato.codice == attesi.at(posto).codice && salvato.reparto == attesi.at(posto).reparto &&
               salvato.descrizione == attesi.at(posto).descrizione,
           QStringLiteral("articolo corretto"));
  riga(QStringLiteral("Articolo corretto"), QString::fromStdString(salvato.descrizione));
}

void Strada::esportaArticoli() {
  esporta(kArchivioArticoli, kEsportati, QStringLiteral("archivio-articoli-export"));
  regista_.passo(QStringLiteral("figures of the articles' export"), abilitato(kArchivioArticoli, kEsci),
                 [this] {
                   confrontaExportArticoli();
                   clicca(kArchivioArticoli, kEsci);
                 });
}

void Strada::confrontaExportArticoli() {
  const std::string scritto = attese::leggiFile(percorso(inCartella(kEsportati)));
  const auto attesi = conCorrezione(attese::leggiElenco(percorso(elenco_)), corretto_);
  pretendi(scritto == attese::csvArticoli(attesi, segnoDecimale()), kEsportati);
  riga(QStringLiteral("Byte esportati"), QString::number(scritto.size()));
}

void Strada::archivioVenduto() {
  regista_.passo(QStringLiteral("workspace after the articles"), dopo(kArchivioArticoli), [this] {
    cronometro_.start();
    clicca(kLavoro, QStringLiteral("Cmd_Venduto"));
  });
  regista_.passo(QStringLiteral("archive of the sales"),
                 abilitato(kArchivioVenduto, QStringLiteral("Cmd_Cerca")), [this] {
                   confrontaElencoVenduto();
                   fotografa(kArchivioVenduto, QStringLiteral("archivio-venduto"));
                   const auto ultima = celle(kArchivioVenduto, kGrigliaVenduto).size() - 1;
                   cliccaCella(kArchivioVenduto, kGrigliaVenduto, static_cast<int>(ultima), 1);
                   fotografa(kArchivioVenduto, QStringLiteral("archivio-venduto-totali"));
                 });
  esporta(kArchivioVenduto, kVendutoEsportato, QStringLiteral("archivio-venduto-export"));
  regista_.passo(QStringLiteral("figures of the sales' export"), abilitato(kArchivioVenduto, kEsci), [this] {
    confrontaExportVenduto();
    clicca(kArchivioVenduto, kEsci);
  });
}

void Strada::confrontaElencoVenduto() {
  const auto venduti = attese::leggiVenduto(percorso(inCartella(QStringLiteral("giornata.bin"))));
  const auto righe = celle(kArchivioVenduto, kGrigliaVenduto);
  pretendi(static_cast<std::size_t>(righe.size()) == venduti.size() + 2,
           QStringLiteral("righe dell'archivio venduto"));
  const QStringList totali = righe.back().mid(1);
  pretendi(totali.join(QLatin1Char(';')).toStdString() == attese::totaliVenduto(venduti, segnoDecimale()),
           QStringLiteral("totali del venduto"));
  riga(QStringLiteral("Pezzi, incasso"), totali.at(5) + QStringLiteral(", ") + totali.at(6));
}

void Strada::confrontaExportVenduto() {
  const auto venduti = attese::leggiVenduto(percorso(inCartella(QStringLiteral("giornata.bin"))));
  auto attesi = attese::righeVenduto(venduti, attese::leggiElenco(percorso(elenco_)),
                                     giornoRicevuto_.toStdString(), segnoDecimale());
  std::vector<std::string> scritte =
      attese::righeCrLf(attese::leggiFile(percorso(inCartella(kVendutoEsportato))));
  pretendi(scritte.size() == attesi.size() + 2, QStringLiteral("righe di ") + kVendutoEsportato);
  pretendi(scritte.back() == attese::totaliVenduto(venduti, segnoDecimale()),
           QStringLiteral("totali di ") + kVendutoEsportato);
  scritte.pop_back();
  pretendi(scritte.back() == " ;;;;;;;", QStringLiteral("riga bianca di ") + kVendutoEsportato);
  scritte.pop_back();
  // By code within the day; rows of the same code stand in no order.
  const auto codice = [](const std::string& una) { return una.substr(0, una.find(';', una.find(';') + 1)); };
  pretendi(std::ranges::is_sorted(scritte, {}, codice), QStringLiteral("ordine di ") + kVendutoEsportato);
  std::ranges::sort(attesi);
  std::ranges::sort(scritte);
  pretendi(scritte == attesi, kVendutoEsportato);
  riga(QStringLiteral("Righe esportate"), QString::number(scritte.size()));
}
