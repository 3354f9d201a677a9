#include <benchmark/benchmark.h>

#include <QDate>
#include <fstream>

#include "bench/banco.h"
#include "bench/base_sqlite.h"
#include "core/stato.h"
#include "ecrsim/simulatore.h"
#include "sales/reception.h"

namespace {

constexpr int kSlot = sales::kSlot;

sales::VendutoSlot venduto(int slot) {
  return {100 + 7 * slot, 1 + slot % 9, slot % 50};
}

/// Counters with every slot sold, laid into the till's memory.
void riempiCassa(const std::filesystem::path& memoria) {
  std::string byte;
  const auto intero = [&](std::int32_t valore) {
    for (int i = 0; i < 4; ++i)
      byte += static_cast<char>((static_cast<std::uint32_t>(valore) >> (8 * i)) & 0xff);
  };
  for (int slot = 0; slot < kSlot; ++slot) intero(venduto(slot).importo);
  for (int slot = 0; slot < kSlot; ++slot) intero(venduto(slot).pezzi);
  for (int slot = 0; slot < kSlot; ++slot) intero(venduto(slot).sconto);
  std::ofstream(memoria / "venduto.bin", std::ios::binary) << byte;
}

/// The whole reception, fetch and clear included: ours carries more than its baselines do.
void programma(benchmark::State& stato) {
  Banco banco;
  std::filesystem::create_directory(banco.file("cassa"));
  ecrsim::Opzioni opzioni;
  opzioni.indirizzo = "127.31.7.1";
  opzioni.cartella = banco.file("cassa");
  const ecrsim::Simulatore cassa(opzioni);
  commonForKora().IP_ECR = QStringLiteral("127.31.7.1");
  for (auto giro : stato) {
    static_cast<void>(giro);
    riempiCassa(opzioni.cartella);
    banco.rinnova();
    banco.riapri();
    stato.SetIterationTime(secondi([&] {
      if (sales::RiceviVenduto(banco.contesto, [](int) {}) != sales::Esito::Fatto)
        stato.SkipWithError("not received");
    }));
  }
}

void preparati(benchmark::State& stato) {
  Banco banco;
  const std::string oggi = QDate::currentDate().toString(QStringLiteral("yyyyMMdd")).toStdString();
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    base::Sqlite sqlite(banco.archivio());
    sqlite3_stmt* frase = sqlite.prepara(
        "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
        "sconto_giornaliero,Tot_giorn_articoli_venduti) select "
        "?,?,codice_articolo,codice_ean,descrizione,?,?,? from "
        "tab_articoli where auto_id=?");
    stato.SetIterationTime(secondi([&] {
      sqlite.esegui("BEGIN IMMEDIATE");
      for (int slot = 0; slot < kSlot; ++slot) {
        const sales::VendutoSlot uno = venduto(slot);
        sqlite3_bind_text(frase, 1, oggi.data(), static_cast<int>(oggi.size()), SQLITE_STATIC);
        sqlite3_bind_int(frase, 2, slot + 1);
        sqlite3_bind_int(frase, 3, uno.importo);
        sqlite3_bind_int(frase, 4, uno.sconto);
        sqlite3_bind_int(frase, 5, uno.pezzi);
        sqlite3_bind_int(frase, 6, slot + 1);
        sqlite.passo(frase);
      }
      sqlite.esegui("COMMIT");
    }));
  }
}

void shell(benchmark::State& stato) {
  Banco banco;
  std::ofstream copione(banco.file("copione.sql"), std::ios::binary);
  copione << base::kImpostazioni << "\nBEGIN;\n";
  for (int slot = 0; slot < kSlot; ++slot) {
    const sales::VendutoSlot uno = venduto(slot);
    copione
        << "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
           "sconto_giornaliero,Tot_giorn_articoli_venduti) select strftime('%Y%m%d','now','localtime'),"
        << slot + 1 << ",codice_articolo,codice_ean,descrizione," << uno.importo << "," << uno.sconto << ","
        << uno.pezzi << " from tab_articoli where auto_id=" << slot + 1 << ";\n";
  }
  copione << "COMMIT;\n";
  copione.close();
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    stato.SetIterationTime(secondi([&] { base::shell(banco.archivio(), banco.file("copione.sql")); }));
  }
}

constexpr int kGiri = 15;
BENCHMARK(programma)
    ->Name("reception/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(preparati)
    ->Name("reception/preparati")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(shell)
    ->Name("reception/shell")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);

}  // namespace
