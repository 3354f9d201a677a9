#include <benchmark/benchmark.h>

#include <QFile>

#include "bench/archivi_pieni.h"
#include "bench/confronto.h"
#include "bench/elenco_semplice.h"
#include "bench/schermo_di_banco.h"
#include "controls/FlexGrid.h"
#include "core/menu.h"
#include "sales/Form_ArchivioVenduto.h"

namespace {

constexpr auto kSchermo = "Form_ArchivioVenduto";
// The average price is worked out by the engine: the baseline shows as many columns as the screen.
constexpr auto kTutti =
    "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero / Tot_giorn_articoli_venduti,"
    "Tot_giorn_articoli_venduti,Importo_giornaliero,Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, "
    "Codice_EAN ASC";
constexpr int kPrezzoMedio = 4;
constexpr int kImporto = 6;
constexpr int kSconto = 7;
/// Heading, blank row and totals.
constexpr int kRigheInPiu = 3;

int righe(const benchmark::State& stato) {
  return static_cast<int>(stato.range(0));
}

void prepara(Banco& banco, int righe) {
  registraSchermateCore(banco.schermate);
  registraArchivioVenduto(banco.schermate);
  pieni::articoli(banco, 5000);
  pieni::venduto(banco, righe);
}

void leggi(base::Sqlite& sqlite, ElencoSemplice& elenco) {
  elenco.riempi(sqlite, kTutti, {kPrezzoMedio, kImporto, kSconto});
}

void apre_programma(benchmark::State& stato) {
  Banco banco;
  prepara(banco, righe(stato));
  for (auto giro : stato) {
    static_cast<void>(giro);
    std::unique_ptr<SchermoDiBanco> schermo;
    stato.SetIterationTime(secondi([&] {
      banco.riapri();
      schermo = std::make_unique<SchermoDiBanco>(banco, kSchermo);
    }));
    if (schermo->controllo<FlexGrid>("MSFlexGridVenduto").Rows() != righe(stato) + kRigheInPiu)
      stato.SkipWithError("rows are missing");
    schermo.reset();
    banco.chiudi();
  }
}

void apre_lettura(benchmark::State& stato) {
  Banco banco;
  prepara(banco, righe(stato));
  for (auto giro : stato) {
    static_cast<void>(giro);
    std::unique_ptr<ElencoSemplice> elenco;
    stato.SetIterationTime(secondi([&] {
      base::Sqlite sqlite(banco.archivio());
      elenco = std::make_unique<ElencoSemplice>();
      leggi(sqlite, *elenco);
      elenco->mostra();
    }));
    if (elenco->righe() != righe(stato)) stato.SkipWithError("rows are missing");
  }
}

template <typename Lavoro>
void conSchermo(benchmark::State& stato, const Lavoro& lavoro) {
  Banco banco;
  prepara(banco, righe(stato));
  banco.riapri();
  SchermoDiBanco schermo(banco, kSchermo);
  for (auto giro : stato) {
    static_cast<void>(giro);
    lavoro(banco, schermo);
  }
}

template <typename Lavoro>
void conElenco(benchmark::State& stato, const Lavoro& lavoro) {
  Banco banco;
  prepara(banco, righe(stato));
  base::Sqlite sqlite(banco.archivio());
  ElencoSemplice elenco;
  leggi(sqlite, elenco);
  elenco.mostra();
  for (auto giro : stato) {
    static_cast<void>(giro);
    lavoro(banco, sqlite, elenco);
  }
}

void tutti_programma(benchmark::State& stato) {
  conSchermo(stato, [&](Banco&, SchermoDiBanco& schermo) {
    stato.SetIterationTime(secondi([&] { schermo.premi("Cmd_Refresh"); }));
  });
}

void tutti_lettura(benchmark::State& stato) {
  conElenco(stato, [&](Banco&, base::Sqlite& sqlite, ElencoSemplice& elenco) {
    stato.SetIterationTime(secondi([&] {
      leggi(sqlite, elenco);
      elenco.mostra();
    }));
  });
}

void esporta_programma(benchmark::State& stato) {
  conSchermo(stato, [&](Banco& banco, SchermoDiBanco& schermo) {
    const QString file = QString::fromStdString(banco.file("venduto.csv").string());
    QFile::remove(file);
    banco.utente.daSalvare = file;
    stato.SetIterationTime(secondi([&] { schermo.premi("Cmd_Export"); }));
    if (!QFile::exists(file)) stato.SkipWithError("nothing was written");
  });
}

void esporta_lettura(benchmark::State& stato) {
  conElenco(stato, [&](Banco& banco, base::Sqlite& sqlite, ElencoSemplice& elenco) {
    stato.SetIterationTime(secondi([&] {
      leggi(sqlite, elenco);
      elenco.scrivi(banco.file("venduto.csv").string());
    }));
  });
}

const std::vector<int> kRighe{5000, 50000};

[[maybe_unused]] const bool kRegistrati = [] {
  confronto::registra("sales_open/programma", apre_programma, kRighe);
  confronto::registra("sales_open/lettura", apre_lettura, kRighe);
  confronto::registra("sales_refresh/programma", tutti_programma, kRighe);
  confronto::registra("sales_refresh/lettura", tutti_lettura, kRighe);
  confronto::registra("sales_export/programma", esporta_programma, kRighe);
  confronto::registra("sales_export/lettura", esporta_lettura, kRighe);
  return true;
}();

}  // namespace
