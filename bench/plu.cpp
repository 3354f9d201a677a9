#include <benchmark/benchmark.h>

#include <fstream>

#include "articles/csv_import.h"
#include "articles/plu_image.h"
#include "bench/bench.h"
#include "bench/sqlite_base.h"
#include "config/image.h"
#include "ecrlink/file_channel.h"

namespace {

constexpr int kSlot = config::kNumeroPLU;
constexpr std::size_t kByte = config::kByteArchivioPLU;

/// An archive with the real articles in it.
void fill(Bench& bench) {
  bench.user.toOpen_ = QStringLiteral(GESTIONALE_APP "/articoli.csv");
  std::filesystem::copy_file(GESTIONALE_APP "/articoli.csv", bench.file("articoli.csv"));
  bench.user.toOpen_ = QString::fromStdString(bench.file("articoli.csv").string());
  bench.reopen();
  articles::ImportaArticoli(bench.contesto);
}

std::string_view byteOf(sqlite3_stmt* sentence, int column) {
  return {reinterpret_cast<const char*>(sqlite3_column_text(sentence, column)),
          static_cast<std::size_t>(sqlite3_column_bytes(sentence, column))};
}

void lay(std::vector<char>& image, std::size_t where, std::int32_t value) {
  for (std::size_t i = 0; i < 4; ++i)
    image[where + i] = static_cast<char>((static_cast<std::uint32_t>(value) >> (8 * i)) & 0xff);
}

void fill_programma(benchmark::State& state) {
  Bench bench;
  fill(bench);
  std::vector<std::uint8_t> image(kByte + 1);
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      articles::RiempiPLU(bench.user);
      const auto table = config::immagineProgrammazione().blocco(config::kPLU);
      std::copy(table.begin(), table.end(), image.begin());
      ecrlink::CreaFileProgrammazione(QStringLiteral("plu.bin"), image, bench.contesto);
    }));
  }
}

void fill_select(benchmark::State& state) {
  Bench bench;
  fill(bench);
  bench.close();
  base::Sqlite sqlite(bench.archive());
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      std::vector<char> image(kByte);
      sqlite3_stmt* sentence = sqlite.prepare(
          "SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero from "
          "TAB_ARTICOLI");
      for (std::size_t where = 0; sqlite3_step(sentence) == SQLITE_ROW; where += config::kBytePLU) {
        const std::string_view ean = byteOf(sentence, 0).substr(0, 14);
        const std::string_view description = byteOf(sentence, 2).substr(0, 24);
        std::copy(description.begin(), description.end(), image.begin() + static_cast<std::ptrdiff_t>(where));
        image[where + 25] = static_cast<char>(sqlite3_column_int(sentence, 4) - 1);
        image[where + 26] =
            static_cast<char>(sqlite3_column_int(sentence, 6) + 2 * sqlite3_column_int(sentence, 7));
        lay(image, where + 27, sqlite3_column_int(sentence, 3));
        std::copy(ean.begin(), ean.end(), image.begin() + static_cast<std::ptrdiff_t>(where + 31));
      }
      std::ofstream("plu-base.bin", std::ios::binary)
          .write(image.data(), static_cast<std::streamsize>(image.size()));
    }));
  }
}

void save_programma_plu(benchmark::State& state) {
  Bench bench;
  fill(bench);
  articles::RiempiPLU(bench.user);
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    bench.reopen();
    state.SetIterationTime(seconds([&] { articles::SalvaPLU(bench.contesto); }));
  }
}

QString text(std::size_t index, const config::Campo& field) {
  return config::leggiTesto(config::immagineProgrammazione().record(config::kPLU, index), field);
}

void save_preparati(benchmark::State& state) {
  Bench bench;
  fill(bench);
  articles::RiempiPLU(bench.user);
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    base::Sqlite sqlite(bench.archive());
    sqlite3_stmt* sentence = sqlite.prepare(
        "UPDATE TAB_ARTICOLI SET Descrizione=?,Codice_EAN=?,Prezzo=?,Reparto=?,varprezzo=?,prezzozero=? "
        "WHERE auto_id=?");
    state.SetIterationTime(seconds([&] {
      sqlite.run("BEGIN IMMEDIATE");
      for (int i = 0; i < kSlot; ++i) {
        const auto record =
            config::immagineProgrammazione().record(config::kPLU, static_cast<std::size_t>(i));
        const std::string description =
            text(static_cast<std::size_t>(i), config::plu::kDescrizione).toStdString();
        const std::string ean = text(static_cast<std::size_t>(i), config::plu::kCodiceEAN).toStdString();
        sqlite3_bind_text(sentence, 1, description.data(), static_cast<int>(description.size()),
                          SQLITE_STATIC);
        sqlite3_bind_text(sentence, 2, ean.data(), static_cast<int>(ean.size()), SQLITE_STATIC);
        sqlite3_bind_int(sentence, 3, config::leggiIntero(record, config::plu::kPrezzo));
        sqlite3_bind_int(sentence, 4, config::leggiByte(record, config::plu::kReparto) + 1);
        sqlite3_bind_int(sentence, 5, config::leggiByte(record, config::plu::kAttributi) & 1);
        sqlite3_bind_int(sentence, 6, config::leggiByte(record, config::plu::kAttributi) >> 1);
        sqlite3_bind_int(sentence, 7, i + 1);
        sqlite.step(sentence);
      }
      sqlite.run("COMMIT");
    }));
  }
}

void save_shell(benchmark::State& state) {
  Bench bench;
  fill(bench);
  articles::RiempiPLU(bench.user);
  std::ofstream script(bench.file("copione.sql"), std::ios::binary);
  script << base::kSettings << "\nBEGIN;\n";
  for (int i = 0; i < kSlot; ++i) {
    const auto record = config::immagineProgrammazione().record(config::kPLU, static_cast<std::size_t>(i));
    script << "UPDATE TAB_ARTICOLI SET Descrizione = '"
           << text(static_cast<std::size_t>(i), config::plu::kDescrizione).toStdString() << "',Codice_EAN ='"
           << text(static_cast<std::size_t>(i), config::plu::kCodiceEAN).toStdString()
           << "',Prezzo =" << config::leggiIntero(record, config::plu::kPrezzo)
           << ",Reparto =" << config::leggiByte(record, config::plu::kReparto) + 1
           << ",varprezzo = false,prezzozero = false WHERE auto_id =" << i + 1 << ";\n";
  }
  script << "COMMIT;\n";
  script.close();
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    state.SetIterationTime(seconds([&] { base::shell(bench.archive(), bench.file("copione.sql")); }));
  }
}

constexpr int kRounds = 15;
BENCHMARK(fill_programma)
    ->Name("fill_plu/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(fill_select)
    ->Name("fill_plu/select")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_programma_plu)
    ->Name("save_plu/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_preparati)
    ->Name("save_plu/preparati")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_shell)
    ->Name("save_plu/shell")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);

}  // namespace
