#include <benchmark/benchmark.h>

#include <fstream>

#include "articles/csv_import.h"
#include "bench/banco.h"
#include "bench/base_sqlite.h"
#include "demo/attese.h"

namespace {

constexpr int kSlot = 5000;

/// Real articles; beyond the 5000th the same again under other EAN codes, over the same slots.
std::vector<attese::Articolo> elenco(int righe) {
  const auto veri = attese::leggiElenco(std::string(GESTIONALE_APP) + "/articoli.csv");
  std::vector<attese::Articolo> tutti;
  for (int i = 0; i < righe; ++i) {
    tutti.push_back(veri[static_cast<std::size_t>(i % kSlot)]);
    if (i >= kSlot) tutti.back().ean = std::to_string(9000000000000 + i);
  }
  return tutti;
}

std::string prezzo(std::int32_t centesimi) {
  const std::string decimali = std::to_string(100 + centesimi % 100).substr(1);
  return std::to_string(centesimi / 100) + "," + decimali;
}

void scriviCsv(const std::filesystem::path& file, const std::vector<attese::Articolo>& articoli) {
  std::ofstream uscita(file, std::ios::binary);
  for (const auto& uno : articoli)
    uscita << uno.slot << ';' << uno.ean << ';' << uno.codice << ';' << uno.descrizione << ';'
           << prezzo(uno.prezzo) << ';' << uno.reparto << ";N;N; \r\n";
}

/// Single-byte text as SQLite wants it.
std::string utf8(const std::string& byte) {
  return QString::fromLatin1(byte.data(), static_cast<int>(byte.size())).toStdString();
}

void programma(benchmark::State& stato) {
  Banco banco;
  scriviCsv(banco.file("elenco.csv"), elenco(static_cast<int>(stato.range(0))));
  banco.utente.daAprire = QString::fromStdString(banco.file("elenco.csv").string());
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    banco.riapri();
    stato.SetIterationTime(secondi([&] { articles::ImportaArticoli(banco.contesto, {}); }));
  }
}

void preparati(benchmark::State& stato) {
  Banco banco;
  const auto articoli = elenco(static_cast<int>(stato.range(0)));
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    base::Sqlite sqlite(banco.archivio());
    sqlite3_stmt* frase = sqlite.prepara(
        "UPDATE TAB_ARTICOLI SET Codice_EAN=?,Codice_Articolo=?,Descrizione=?,Prezzo=?,Reparto=?,Filler=? "
        "WHERE auto_id=?");
    stato.SetIterationTime(secondi([&] {
      sqlite.esegui("BEGIN IMMEDIATE");
      for (const auto& uno : articoli) {
        const std::string descrizione = utf8(uno.descrizione);
        sqlite3_bind_text(frase, 1, uno.ean.data(), static_cast<int>(uno.ean.size()), SQLITE_STATIC);
        sqlite3_bind_text(frase, 2, uno.codice.data(), static_cast<int>(uno.codice.size()), SQLITE_STATIC);
        sqlite3_bind_text(frase, 3, descrizione.data(), static_cast<int>(descrizione.size()), SQLITE_STATIC);
        sqlite3_bind_int(frase, 4, uno.prezzo);
        sqlite3_bind_int(frase, 5, uno.reparto);
        sqlite3_bind_text(frase, 6, " ", 1, SQLITE_STATIC);
        sqlite3_bind_int(frase, 7, uno.slot);
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
  for (const auto& uno : elenco(static_cast<int>(stato.range(0))))
    copione << "UPDATE TAB_ARTICOLI SET  Codice_ean ='" << uno.ean << "', Codice_Articolo ='" << uno.codice
            << "',Descrizione ='" << utf8(uno.descrizione) << "',Prezzo =" << uno.prezzo
            << ",Reparto =" << uno.reparto << ",Filler =' ' WHERE auto_id =" << uno.slot << ";\n";
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
    ->Name("import/programma")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(preparati)
    ->Name("import/preparati")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(shell)
    ->Name("import/shell")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);

}  // namespace
