#include <benchmark/benchmark.h>

#include "articles/ean_index.h"
#include "articles/transazione.h"
#include "bench/archivi_pieni.h"
#include "bench/base_sqlite.h"

namespace {

constexpr int kSlot = 5000;

/// An archive with its checksum table built.
void prepara(Banco& banco, bool quasiSenzaEan) {
  pieni::articoli(banco, kSlot, quasiSenzaEan);
  banco.riapri();
  articles::Transazione transazione(banco.area);
  articles::UpdateEanNumAndIndex(banco.utente);
  transazione.conferma();
}

/// What a deletion costs: every article numbered anew and its checksum row with it.
void programma(benchmark::State& stato, bool quasiSenzaEan) {
  Banco banco;
  prepara(banco, quasiSenzaEan);
  for (auto giro : stato) {
    static_cast<void>(giro);
    banco.area.NuovoComando();
    stato.SetIterationTime(secondi([&] {
      articles::Transazione transazione(banco.area);
      articles::CalcolaID_Position(banco.utente);
      articles::UpdateALLIndex(banco.utente);
      transazione.conferma();
    }));
  }
}

/// The same end by hand: one statement for each EAN, with the position of its last article.
void preparati(benchmark::State& stato, bool quasiSenzaEan) {
  Banco banco;
  prepara(banco, quasiSenzaEan);
  banco.chiudi();
  base::Sqlite sqlite(banco.archivio());
  sqlite3_stmt* leggi = sqlite.prepara(
      "SELECT a.Codice_EAN, max(a.auto_id) - 1, n.Codice_EAN_Num FROM TAB_ARTICOLI a JOIN (SELECT DISTINCT "
      "Codice_EAN, Codice_EAN_Num FROM TAB_EAN_NUMERICI) n ON n.Codice_EAN = a.Codice_EAN GROUP BY 1");
  struct Uno {
    std::string ean;
    int posizione;
    double somma;
  };
  std::vector<Uno> tutti;
  while (sqlite3_step(leggi) == SQLITE_ROW)
    tutti.push_back({reinterpret_cast<const char*>(sqlite3_column_text(leggi, 0)),
                     sqlite3_column_int(leggi, 1), sqlite3_column_double(leggi, 2)});
  sqlite3_reset(leggi);
  sqlite3_stmt* numera = sqlite.prepara("UPDATE TAB_ARTICOLI SET ID_Position=? WHERE Codice_EAN=?");
  sqlite3_stmt* riporta = sqlite.prepara("UPDATE TAB_EAN_NUMERICI SET \"Index\"=? WHERE Codice_EAN_Num=?");
  for (auto giro : stato) {
    static_cast<void>(giro);
    stato.SetIterationTime(secondi([&] {
      sqlite.esegui("BEGIN IMMEDIATE");
      for (const Uno& uno : tutti) {
        sqlite3_bind_int(numera, 1, uno.posizione);
        sqlite3_bind_text(numera, 2, uno.ean.data(), static_cast<int>(uno.ean.size()), SQLITE_STATIC);
        sqlite.passo(numera);
      }
      for (const Uno& uno : tutti) {
        sqlite3_bind_int(riporta, 1, uno.posizione);
        sqlite3_bind_double(riporta, 2, uno.somma);
        sqlite.passo(riporta);
      }
      sqlite.esegui("COMMIT");
    }));
  }
}

constexpr int kGiri = 15;
void registra(const char* nome, void (*lavoro)(benchmark::State&, bool), bool quasiSenzaEan) {
  benchmark::RegisterBenchmark(
      nome, [lavoro, quasiSenzaEan](benchmark::State& stato) { lavoro(stato, quasiSenzaEan); })
      ->Arg(kSlot)
      ->UseManualTime()
      ->Iterations(1)
      ->Repetitions(kGiri)
      ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool kRegistrati = [] {
  registra("renumber/programma", programma, false);
  registra("renumber/preparati", preparati, false);
  registra("renumber_no_ean/programma", programma, true);
  registra("renumber_no_ean/preparati", preparati, true);
  return true;
}();

}  // namespace
