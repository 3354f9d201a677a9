#include <benchmark/benchmark.h>

#include <fstream>

#include "articles/csv_import.h"
#include "articles/plu_image.h"
#include "bench/banco.h"
#include "bench/base_sqlite.h"
#include "config/immagine.h"
#include "ecrlink/file_channel.h"

namespace {

constexpr int kSlot = config::kNumeroPLU;
constexpr std::size_t kByte = config::kByteArchivioPLU;

/// An archive with the real articles in it.
void riempi(Banco& banco) {
  banco.utente.daAprire = QStringLiteral(GESTIONALE_APP "/articoli.csv");
  std::filesystem::copy_file(GESTIONALE_APP "/articoli.csv", banco.file("articoli.csv"));
  banco.utente.daAprire = QString::fromStdString(banco.file("articoli.csv").string());
  banco.riapri();
  articles::ImportaArticoli(banco.contesto, {});
}

std::string_view byteDi(sqlite3_stmt* frase, int colonna) {
  return {reinterpret_cast<const char*>(sqlite3_column_text(frase, colonna)),
          static_cast<std::size_t>(sqlite3_column_bytes(frase, colonna))};
}

void poni(std::vector<char>& immagine, std::size_t dove, std::int32_t valore) {
  for (std::size_t i = 0; i < 4; ++i)
    immagine[dove + i] = static_cast<char>((static_cast<std::uint32_t>(valore) >> (8 * i)) & 0xff);
}

void fill_programma(benchmark::State& stato) {
  Banco banco;
  riempi(banco);
  std::vector<std::uint8_t> immagine(kByte + 1);
  for (auto giro : stato) {
    static_cast<void>(giro);
    stato.SetIterationTime(secondi([&] {
      articles::RiempiPLU(banco.utente);
      const auto tabella = config::immagineProgrammazione().blocco(config::kPLU);
      std::copy(tabella.begin(), tabella.end(), immagine.begin());
      ecrlink::CreaFileProgrammazione(QStringLiteral("plu.bin"), immagine, banco.contesto);
    }));
  }
}

void fill_select(benchmark::State& stato) {
  Banco banco;
  riempi(banco);
  banco.chiudi();
  base::Sqlite sqlite(banco.archivio());
  for (auto giro : stato) {
    static_cast<void>(giro);
    stato.SetIterationTime(secondi([&] {
      std::vector<char> immagine(kByte);
      sqlite3_stmt* frase = sqlite.prepara(
          "SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero from "
          "TAB_ARTICOLI");
      for (std::size_t dove = 0; sqlite3_step(frase) == SQLITE_ROW; dove += config::kBytePLU) {
        const std::string_view ean = byteDi(frase, 0).substr(0, 14);
        const std::string_view descrizione = byteDi(frase, 2).substr(0, 24);
        std::copy(descrizione.begin(), descrizione.end(),
                  immagine.begin() + static_cast<std::ptrdiff_t>(dove));
        immagine[dove + 25] = static_cast<char>(sqlite3_column_int(frase, 4) - 1);
        immagine[dove + 26] =
            static_cast<char>(sqlite3_column_int(frase, 6) + 2 * sqlite3_column_int(frase, 7));
        poni(immagine, dove + 27, sqlite3_column_int(frase, 3));
        std::copy(ean.begin(), ean.end(), immagine.begin() + static_cast<std::ptrdiff_t>(dove + 31));
      }
      std::ofstream("plu-base.bin", std::ios::binary)
          .write(immagine.data(), static_cast<std::streamsize>(immagine.size()));
    }));
  }
}

void save_programma(benchmark::State& stato) {
  Banco banco;
  riempi(banco);
  articles::RiempiPLU(banco.utente);
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    banco.riapri();
    stato.SetIterationTime(secondi([&] { articles::SalvaPLU(banco.contesto); }));
  }
}

QString testo(std::size_t indice, const config::Campo& campo) {
  return config::leggiTesto(config::immagineProgrammazione().record(config::kPLU, indice), campo);
}

void save_preparati(benchmark::State& stato) {
  Banco banco;
  riempi(banco);
  articles::RiempiPLU(banco.utente);
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.rinnova();
    base::Sqlite sqlite(banco.archivio());
    sqlite3_stmt* frase = sqlite.prepara(
        "UPDATE TAB_ARTICOLI SET Descrizione=?,Codice_EAN=?,Prezzo=?,Reparto=?,varprezzo=?,prezzozero=? "
        "WHERE auto_id=?");
    stato.SetIterationTime(secondi([&] {
      sqlite.esegui("BEGIN IMMEDIATE");
      for (int i = 0; i < kSlot; ++i) {
        const auto record =
            config::immagineProgrammazione().record(config::kPLU, static_cast<std::size_t>(i));
        const std::string descrizione =
            testo(static_cast<std::size_t>(i), config::plu::kDescrizione).toStdString();
        const std::string ean = testo(static_cast<std::size_t>(i), config::plu::kCodiceEAN).toStdString();
        sqlite3_bind_text(frase, 1, descrizione.data(), static_cast<int>(descrizione.size()), SQLITE_STATIC);
        sqlite3_bind_text(frase, 2, ean.data(), static_cast<int>(ean.size()), SQLITE_STATIC);
        sqlite3_bind_int(frase, 3, config::leggiIntero(record, config::plu::kPrezzo));
        sqlite3_bind_int(frase, 4, config::leggiByte(record, config::plu::kReparto) + 1);
        sqlite3_bind_int(frase, 5, config::leggiByte(record, config::plu::kAttributi) & 1);
        sqlite3_bind_int(frase, 6, config::leggiByte(record, config::plu::kAttributi) >> 1);
        sqlite3_bind_int(frase, 7, i + 1);
        sqlite.passo(frase);
      }
      sqlite.esegui("COMMIT");
    }));
  }
}

void save_shell(benchmark::State& stato) {
  Banco banco;
  riempi(banco);
  articles::RiempiPLU(banco.utente);
  std::ofstream copione(banco.file("copione.sql"), std::ios::binary);
  copione << base::kImpostazioni << "\nBEGIN;\n";
  for (int i = 0; i < kSlot; ++i) {
    const auto record = config::immagineProgrammazione().record(config::kPLU, static_cast<std::size_t>(i));
    copione << "UPDATE TAB_ARTICOLI SET Descrizione = '"
            << testo(static_cast<std::size_t>(i), config::plu::kDescrizione).toStdString()
            << "',Codice_EAN ='" << testo(static_cast<std::size_t>(i), config::plu::kCodiceEAN).toStdString()
            << "',Prezzo =" << config::leggiIntero(record, config::plu::kPrezzo)
            << ",Reparto =" << config::leggiByte(record, config::plu::kReparto) + 1
            << ",varprezzo = false,prezzozero = false WHERE auto_id =" << i + 1 << ";\n";
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
BENCHMARK(fill_programma)
    ->Name("fill_plu/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(fill_select)
    ->Name("fill_plu/select")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_programma)
    ->Name("save_plu/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_preparati)
    ->Name("save_plu/preparati")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_shell)
    ->Name("save_plu/shell")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);

}  // namespace
