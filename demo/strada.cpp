#include "demo/strada.h"

#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <cstdio>

#include "demo/archivio_riletto.h"
#include "demo/attese.h"
#include "demo/memoria_di_picco.h"
#include "demo/momenti.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kTrasferimento = QStringLiteral("Form_TrasferimentoArticoli");
const QString kRicezione = QStringLiteral("Form_RicezioneVenduto");
const QStringList kGiornata{QStringLiteral("--giornata"), QStringLiteral("300"), QStringLiteral("--seme"),
                            QStringLiteral("2026")};

QString euro(std::int64_t centesimi) {
  return QLocale(QLocale::Italian, QLocale::Italy).toString(static_cast<double>(centesimi) / 100.0, 'f', 2);
}

}  // namespace

Strada::Strada(Luoghi luoghi, CassaEsterna& cassa)
    : luoghi_(std::move(luoghi)),
      cassa_(cassa),
      archivio_(luoghi_.cartella + QStringLiteral("/negozio.mdb")),
      elenco_(luoghi_.cartella + QStringLiteral("/articoli.csv")) {}

int Strada::percorri() {
  cassa_.avvia();
  creaArchivio();
  importa();
  trasferisci();
  vendi();
  ricevi();
  archivioArticoli();
  archivioVenduto();
  torna();
  return regista_.esegui();
}

void Strada::creaArchivio() {
  regista_.passo(QStringLiteral("menu"), visibile(kMenu), [this] {
    passaSopra(kMenu, QStringLiteral("Label2"));
    fotografa(kMenu, QStringLiteral("menu"));
    clicca(kMenu, QStringLiteral("Label2"));
  });
  regista_.passo(QStringLiteral("workspace"), visibile(kLavoro), [this] {
    fotografa(kLavoro, QStringLiteral("gestione-vuota"));
    cronometro_.start();
    scegliVoce(kLavoro, QStringLiteral("mnuFile"), QStringLiteral("mnuNuovo"));
  });
  scegliFile(archivio_);
}

void Strada::scegliFile(const QString& percorso) {
  regista_.passo(QStringLiteral("file dialog"), dialogoFile, [percorso] { digitaNomeFile(percorso); });
  regista_.passo(QStringLiteral("file ") + percorso, fileAccettabile, [this] {
    cronometro_.start();
    accettaFile();
  });
}

void Strada::importa() {
  const auto aperto = [] { return acceso(kLavoro, QStringLiteral("Cmd_Down")); };
  regista_.passo(QStringLiteral("archive open"), aperto, [this] {
    riga(QStringLiteral("Archivio creato"), QStringLiteral("negozio.mdb"));
    fotografa(kLavoro, QStringLiteral("gestione-aperta"));
    cronometro_.start();
    scegliVoce(kLavoro, QStringLiteral("mnuFile"), QStringLiteral("mnuImporta"));
  });
  scegliFile(elenco_);
  attendiRiquadro(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                  QStringLiteral("import-messaggio"));
  regista_.passo(
      QStringLiteral("figures of the import"), [] { return !riquadro(); },
      [this] {
        const std::size_t attesi = attese::leggiElenco(percorso(elenco_)).size();
        const ArchivioRiletto archivio = rileggiArchivio(archivio_);
        pretendi(static_cast<std::size_t>(archivio.articoli) == attesi,
                 QStringLiteral("articoli nell'archivio"));
        riga(QStringLiteral("Articoli importati"), QString::number(archivio.articoli));
        fotografa(kLavoro, QStringLiteral("gestione-importata"));
        clicca(kLavoro, QStringLiteral("Cmd_Down"));
      });
}

void Strada::collega(const QString& nome, const QString& foto) {
  regista_.passo(nome, abilitato(nome, QStringLiteral("CmdInviaModECR")), [=, this] {
    digita(nome, QStringLiteral("vkTextBoxIP_ECR"), cassa_.indirizzo());
    cronometro_.start();
    clicca(nome, QStringLiteral("CmdInviaModECR"));
  });
  regista_.passo(nome + QStringLiteral(" connected"), abilitato(nome, QStringLiteral("Cmd_Avvia")),
                 [=, this] {
                   riga(QStringLiteral("Cassa collegata"), cassa_.indirizzo());
                   fotografa(nome, foto);
                   cronometro_.start();
                   clicca(nome, QStringLiteral("Cmd_Avvia"));
                 });
}

void Strada::trasferisci() {
  collega(kTrasferimento, QStringLiteral("trasferimento"));
  attendiRiquadro(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"),
                  QStringLiteral("trasferimento-messaggio"));
  regista_.passo(QStringLiteral("figures of the transfer"),
                 abilitato(kTrasferimento, QStringLiteral("Cmd_Esci")), [this] {
                   confrontaInvio();
                   fotografa(kTrasferimento, QStringLiteral("trasferimento-fatto"));
                   clicca(kTrasferimento, QStringLiteral("Cmd_Esci"));
                 });
}

void Strada::confrontaInvio() {
  const std::string inviati = attese::leggiFile(percorso(cassa_.file(QStringLiteral("plu.bin"))));
  pretendi(inviati == attese::immaginePLU(attese::leggiElenco(percorso(elenco_))), QStringLiteral("plu.bin"));
  riga(QStringLiteral("Byte inviati"), QString::number(inviati.size()));
}

void Strada::vendi() {
  regista_.passo(
      QStringLiteral("a day at the till"), [] { return finestra(kTrasferimento) == nullptr; },
      [this] {
        cronometro_.start();
        cassa_.ferma();
        cassa_.avvia(kGiornata);
        const QString venduto = cassa_.file(QStringLiteral("venduto.bin"));
        QFile::remove(luoghi_.cartella + QStringLiteral("/giornata.bin"));
        QFile::copy(venduto, luoghi_.cartella + QStringLiteral("/giornata.bin"));
        const auto righe = attese::leggiVenduto(percorso(venduto));
        pretendi(!righe.empty(), QStringLiteral("una giornata di vendite"));
        riga(QStringLiteral("Giornata in cassa"), kGiornata.at(1) + QStringLiteral(" scontrini"));
        clicca(kLavoro, QStringLiteral("Cmd_Upl"));
      });
}

void Strada::ricevi() {
  collega(kRicezione, QStringLiteral("ricezione"));
  attendiRiquadro(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
                  QStringLiteral("ricezione-messaggio"));
  regista_.passo(QStringLiteral("figures of the reception"),
                 abilitato(kRicezione, QStringLiteral("Cmd_Esci")), [this] {
                   giornoRicevuto_ = QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
                   confrontaVenduto();
                   fotografa(kRicezione, QStringLiteral("ricezione-fatta"));
                   clicca(kRicezione, QStringLiteral("Cmd_Esci"));
                 });
}

void Strada::confrontaVenduto() {
  const auto attesi = attese::leggiVenduto(percorso(luoghi_.cartella + QStringLiteral("/giornata.bin")));
  const auto articoli = attese::leggiElenco(percorso(elenco_));
  const ArchivioRiletto archivio = rileggiArchivio(archivio_);
  std::int64_t incasso = 0;
  for (const attese::Venduto& atteso : attesi) {
    const auto trovata = archivio.venduto.find(atteso.slot);
    pretendi(trovata != archivio.venduto.end() && trovata->second == atteso,
             QStringLiteral("venduto dello slot %1").arg(atteso.slot));
    const attese::Articolo& articolo = articoli.at(static_cast<std::size_t>(atteso.slot - 1));
    const auto& [sottoEan, sottoArticolo] = archivio.codici.at(atteso.slot);
    pretendi(sottoEan == articolo.codice && sottoArticolo == articolo.ean,
             QStringLiteral("incrocio dei codici dello slot %1").arg(atteso.slot));
    incasso += atteso.importo;
  }
  pretendi(static_cast<std::size_t>(archivio.righe) == attesi.size(),
           QStringLiteral("numero di righe del venduto"));
  pretendi(attese::leggiVenduto(percorso(cassa_.file(QStringLiteral("venduto.bin")))).empty(),
           QStringLiteral("venduto azzerato sulla cassa"));
  riga(QStringLiteral("Righe di venduto"), QString::number(archivio.righe));
  riga(QStringLiteral("Incasso in euro"), euro(incasso));
}

void Strada::torna() {
  regista_.passo(
      QStringLiteral("workspace again"),
      [] { return finestra(kArchivioVenduto) == nullptr && finestra(kLavoro) != nullptr; },
      [] { clicca(kLavoro, QStringLiteral("Cmd_Esci")); });
  regista_.passo(QStringLiteral("menu again"), visibile(kMenu), [this] {
    pretendi(finestra(kLavoro) == nullptr, QStringLiteral("la gestione articoli si chiude"));
    fotografa(kMenu, QStringLiteral("menu-di-nuovo"));
    std::printf("Immagini delle schermate in %s\n", qPrintable(luoghi_.cartella));
    if (const auto megabyte = memoriaDiPicco()) std::printf("Memoria di picco     %.1f MB\n", *megabyte);
  });
}

void Strada::attendiRiquadro(const QString& testo, const QString& foto) {
  regista_.passo(testo, riquadro, [=, this] {
    pretendi(testoRiquadro() == testo,
             QStringLiteral("messaggio \"%1\", non \"%2\"").arg(testo, testoRiquadro()));
    riga(QStringLiteral("Messaggio"), testo);
    fotografaRiquadro(foto);
    chiudiRiquadro();
  });
}

void Strada::fotografa(const QString& nomeFinestra, const QString& nome) {
  const QString file =
      QStringLiteral("%1/%2-%3.png").arg(luoghi_.cartella).arg(++foto_, 2, 10, QLatin1Char('0')).arg(nome);
  pretendi(finestra(nomeFinestra)->grab().save(file), QStringLiteral("immagine ") + file);
}

void Strada::fotografaRiquadro(const QString& nome) {
  const QString file =
      QStringLiteral("%1/%2-%3.png").arg(luoghi_.cartella).arg(++foto_, 2, 10, QLatin1Char('0')).arg(nome);
  pretendi(QApplication::activeModalWidget()->grab().save(file), QStringLiteral("immagine ") + file);
}

void Strada::riga(const QString& cosa, const QString& valore) {
  std::printf("%-20s %s  (%.2f s)\n", qPrintable(cosa), qPrintable(valore),
              static_cast<double>(cronometro_.nsecsElapsed()) / 1e9);
  std::fflush(stdout);
}

void Strada::pretendi(bool vero, const QString& cosa) {
  if (!vero) regista_.fallisci(QStringLiteral("non corrisponde: ") + cosa);
}
