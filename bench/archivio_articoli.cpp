#include <benchmark/benchmark.h>

#include <QFile>
#include <QLineEdit>

#include "articles/Form_ArchivioArticoli.h"
#include "bench/archivi_pieni.h"
#include "bench/confronto.h"
#include "bench/elenco_semplice.h"
#include "bench/schermo_di_banco.h"
#include "controls/FlexGrid.h"
#include "core/menu.h"

namespace {

constexpr auto kSchermo = "Form_ArchivioArticoli";
constexpr auto kTutti =
    "SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
    "from TAB_ARTICOLI";
// The beginning of a maker's codes: some of the articles, not most of them.
constexpr auto kInizioEan = "8000";
constexpr auto kTrovati =
    "SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI "
    "WHERE Codice_EAN LIKE '8000%' ORDER BY Codice_EAN ASC";
constexpr int kPrezzo = 4;

/// The archive of the bench and the screens that it needs.
void prepara(Banco& banco, int righe) {
  registraSchermateCore(banco.schermate);
  registraArchivioArticoli(banco.schermate);
  pieni::articoli(banco, righe);
}

int righe(const benchmark::State& stato) {
  return static_cast<int>(stato.range(0));
}

void apre_programma(benchmark::State& stato) {
  Banco banco(righe(stato));
  prepara(banco, righe(stato));
  for (auto giro : stato) {
    static_cast<void>(giro);
    std::unique_ptr<SchermoDiBanco> schermo;
    stato.SetIterationTime(secondi([&] {
      banco.riapri();
      schermo = std::make_unique<SchermoDiBanco>(banco, kSchermo);
    }));
    if (schermo->controllo<FlexGrid>("MSFlexGridArticoli").Rows() != righe(stato) + 1)
      stato.SkipWithError("rows are missing");
    schermo.reset();
    banco.chiudi();
  }
}

void apre_lettura(benchmark::State& stato) {
  Banco banco(righe(stato));
  prepara(banco, righe(stato));
  for (auto giro : stato) {
    static_cast<void>(giro);
    std::unique_ptr<ElencoSemplice> elenco;
    stato.SetIterationTime(secondi([&] {
      base::Sqlite sqlite(banco.archivio());
      elenco = std::make_unique<ElencoSemplice>();
      elenco->riempi(sqlite, kTutti, {kPrezzo});
      elenco->mostra();
    }));
    if (elenco->righe() != righe(stato)) stato.SkipWithError("rows are missing");
  }
}

/// A work of the open screen, round after round.
template <typename Lavoro>
void conSchermo(benchmark::State& stato, const Lavoro& lavoro) {
  Banco banco(righe(stato));
  prepara(banco, righe(stato));
  banco.riapri();
  SchermoDiBanco schermo(banco, kSchermo);
  for (auto giro : stato) {
    static_cast<void>(giro);
    lavoro(banco, schermo);
  }
}

/// The same without the program: rows read into a view that shows all of them already, as the screen does.
template <typename Lavoro>
void conElenco(benchmark::State& stato, const Lavoro& lavoro) {
  Banco banco(righe(stato));
  prepara(banco, righe(stato));
  base::Sqlite sqlite(banco.archivio());
  ElencoSemplice elenco;
  elenco.riempi(sqlite, kTutti, {kPrezzo});
  elenco.mostra();
  for (auto giro : stato) {
    static_cast<void>(giro);
    lavoro(banco, sqlite, elenco);
  }
}

void cerca_programma(benchmark::State& stato) {
  conSchermo(stato, [&](Banco&, SchermoDiBanco& schermo) {
    schermo.controllo<QLineEdit>("vkTextBoxCodEan").setText(QLatin1String(kInizioEan));
    stato.SetIterationTime(secondi([&] { schermo.premi("Vmd_Cerca"); }));
  });
}

void cerca_lettura(benchmark::State& stato) {
  conElenco(stato, [&](Banco&, base::Sqlite& sqlite, ElencoSemplice& elenco) {
    stato.SetIterationTime(secondi([&] {
      elenco.riempi(sqlite, kTrovati, {kPrezzo});
      elenco.mostra();
    }));
  });
}

void salva_programma(benchmark::State& stato) {
  conSchermo(stato, [&](Banco& banco, SchermoDiBanco& schermo) {
    Q_EMIT schermo.controllo<FlexGrid>("MSFlexGridArticoli").clic(7, 1);
    schermo.controllo<QLineEdit>("vkTextBoxDesc").setText(QStringLiteral("PANE DI SEGALE"));
    banco.area.NuovoComando();
    stato.SetIterationTime(secondi([&] { schermo.premi("Cmd_Modifica"); }));
  });
}

void salva_lettura(benchmark::State& stato) {
  conElenco(stato, [&](Banco&, base::Sqlite& sqlite, ElencoSemplice& elenco) {
    sqlite3_stmt* frase = sqlite.prepara(
        "UPDATE TAB_ARTICOLI SET Codice_Articolo=Codice_Articolo,Descrizione='PANE DI SEGALE',Prezzo=100,"
        "Codice_EAN=Codice_EAN,VarPrezzo=0,PrezzoZero=0,Reparto=1,Filler=' ' WHERE auto_id=7");
    stato.SetIterationTime(secondi([&] {
      sqlite.esegui("BEGIN");
      sqlite.passo(frase);
      elenco.riempi(sqlite, kTutti, {kPrezzo});
      sqlite.esegui("COMMIT");
      elenco.mostra();
    }));
  });
}

void esporta_programma(benchmark::State& stato) {
  conSchermo(stato, [&](Banco& banco, SchermoDiBanco& schermo) {
    const QString file = QString::fromStdString(banco.file("elenco.csv").string());
    QFile::remove(file);
    banco.utente.daSalvare = file;
    stato.SetIterationTime(secondi([&] { schermo.premi("Cmd_Export"); }));
    if (!QFile::exists(file)) stato.SkipWithError("nothing was written");
  });
}

void esporta_lettura(benchmark::State& stato) {
  conElenco(stato, [&](Banco& banco, base::Sqlite& sqlite, ElencoSemplice& elenco) {
    stato.SetIterationTime(secondi([&] {
      elenco.riempi(sqlite, kTutti, {kPrezzo});
      elenco.scrivi(banco.file("elenco.csv").string());
    }));
  });
}

const std::vector<int> kRighe{5000, 50000};

[[maybe_unused]] const bool kRegistrati = [] {
  confronto::registra("archive_open/programma", apre_programma, kRighe);
  confronto::registra("archive_open/lettura", apre_lettura, kRighe);
  confronto::registra("archive_search/programma", cerca_programma, kRighe);
  confronto::registra("archive_search/lettura", cerca_lettura, kRighe);
  confronto::registra("archive_save/programma", salva_programma, kRighe);
  confronto::registra("archive_save/lettura", salva_lettura, kRighe);
  confronto::registra("archive_export/programma", esporta_programma, kRighe);
  confronto::registra("archive_export/lettura", esporta_lettura, kRighe);
  return true;
}();

}  // namespace
