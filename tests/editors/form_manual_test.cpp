// The manual's pages of the editors of single fields: every text that they show is explained there.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QString>
#include <QTest>
#include <span>

#include "config/configuration_file.h"
#include "controls/markdown_view.h"
#include "core/manual_viewer.h"
#include "editors/Form_Negozio.h"
#include "editors/Form_OPE.h"
#include "editors/Form_OpzioniGen.h"
#include "editors/MDIForm_PRG.h"
#include "sostegno/guided_screen.h"

namespace {

constexpr const char16_t* kDiTutte[] = {
    u"Attenzione sono stati modificati dei parametri di configurazione: salvare prima di proseguire ?",
    u"Solo cifre",
    u"Al massimo ... caratteri",
    u"Qui non si annulla: riscrivere il valore",
    u"Non salvato nel file: togliere la causa e salvare di nuovo",
};
constexpr const char16_t* kNegozio[] = {
    u"Ragione Sociale",
    u"Partita IVA",
    u"Indirizzo",
    u"Città",
    u"CAP",
    u"Provincia",
    u"Telefono",
    u"Fax",
    u"Email",
    u"N.ro Cassa",
    u"N.ro tel. SMS",
    u"Modello",
    u"Num. Tasti",
    u"Larghezza Carta",
    u"RIGA 1",
    u"RIGA 8",
    u"Doppia Altezza",
    u"Abilitazione",
    u"Larghezza riga",
    u"Salvato: dati del negozio",
    u"1 riga di intestazione",
    u"1 riga di cortesia",
};
constexpr const char16_t* kOperatori[] = {
    u"OPERATORE 0",          u"OPERATORE 1",
    u"OPERATORE 10",         u"NESSUNO",
    u"Descrizione",          u"Password",
    u"Abilitazione",         u"Attenzione le password devono essere di 6 caratteri !!!",
    u"Salvato: 1 operatore",
};
constexpr const char16_t* kOpzioni[] = {
    u"Attenzione il valore immesso non è di tipo numerico !!!",
    u"Attenzione il valore Perc. Conto immesso > 99.99!!!",
    u"Attenzione il valore Perc. Conto B immesso > 99.99!!!",
    u"Attenzione il valore Max Importo immesso > 99999.99!!!",
    u"L'intervallo num shift di reparti (0-20)",
    u"L'intervallo ammesso per il numero di linee (0-30)",
    u"L'intervallo ammesso per il numero di linee per il body (10-99)",
    u"Attenzione la password deve essere di 6 caratteri !!!",
    u"L'ora immessa e' > 23. L'intervallo del tempo di azzeramento (000000-235959)",
    u"L'ora immessa e' > 59. Formato tempo per l'azzermento 235959",
    u"L'ora immessa e' > 59. Formato tempo per l'azzeremento 235959",
    u"ATTENZIONE Errore il mese inserito deve essere di 30 giorni",
    u"ATTENZIONE Errore febbraio deve essere di 28 giorni",
    u"ATTENZIONE Errore febbraio deve essere di 29 giorni",
    u"ATTENZIONE Errore il mese inserito e' di 30 giorni",
    u"ATTENZIONE Errore febbraio è di 28 giorni",
    u"Attenzione la Data di Inizio maggiore della Data di Fine !!!",
    u"Attenzione controllare le date colorate in rosso: non sono corrette !!!",
    u"Non salvato: correggere le date di",
    u"in procedure RiempiOpzGen of Modulo Form_OpzioniGen",
    u"Solo cifre e virgola",
    u"Per i decimali si scrive la virgola",
    u"I due decimali ci sono già: cancellare con Backspace, poi scrivere",
    u"Salvato: opzioni generali",
    u"Salvato: 1 voce del calendario grafico",
    u"Salvato: 2 voci del calendario grafico",
    u"STAMPANTE EPSON-TM295",
    u"STAMPANTE Qz-RX40T",
    u"STAMPANTE PAVO",
    u"LETTORE-CF",
    u"LETTORE-EAN",
    u"azz. fiscale, azz. gio+rep, azz. gio+ iva",
    u"Disabilitato, Segnalazione, Automatico",
    u"Obbligo Operatore",
    u"Obbligo Subtotale",
    u"Azzeramento gestionale",
    u"Quantita' Unitaria",
    u"Numero articoli",
    u"Vendita in Centesimi",
    u"Datario",
    u"Info gestionale",
    u"Tx Footer",
    u"Abilitazione Beep",
    u"Abilitazione Doppia Copia",
    u"Apertura Cassetto",
    u"Stampa Differita Scontrino",
    u"Abilitazione Ora Legale",
    u"Operatore per scontrino",
    u"Fattura mensile sintetica",
    u"Taglierina",
    u"Stampa Intestazione esercente",
    u"Stampa Intestazione Cliente",
    u"Abilitazione MARK",
    u"Abilitazione CUTTER",
    u"Tempo Azzeramento",
    u"Linee vuote",
    u"Num. linee",
    u"Num reparti da shiftare",
    u"TALLON 1",
    u"TALLON 8",
    u"## Periferiche",
    u"## Informazioni per Scontrino",
    u"## Varie",
    u"## Altre",
    u"## Gestione TALLON",
};

QString pagina(const char* nome) {
  QFile file(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/") + QLatin1String(nome));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << nome;
  return QString::fromUtf8(file.readAll());
}

void expectTuttiIn(const char* nome, std::span<const char16_t* const> testi) {
  const QString tutta = pagina(nome);
  for (const auto& elenco : {testi, std::span<const char16_t* const>(kDiTutte)})
    for (const char16_t* uno : elenco)
      EXPECT_TRUE(tutta.contains(QString::fromUtf16(uno)))
          << nome << ": " << QString::fromUtf16(uno).toStdString();
}

/// The configuration's frame with a configuration of its own.
class F1NellaProgrammazione : public testing::Test {
 protected:
  F1NellaProgrammazione() {
    program.screens.registra<MDIForm_PRG>();
    program.screens.registra<Form_Negozio>();
    program.screens.registra<Form_OPE>();
    program.screens.registra<Form_OpzioniGen>();
  }
  ~F1NellaProgrammazione() override {
    program.screens.scaricaTutte();
    config::azzeraConfigurazione();
  }
  ProgramFixture program;
};

}  // namespace

TEST_F(F1NellaProgrammazione, PortaAllaPaginaDellaSchermataAperta) {
  const GuidedScreen cornice(program, QStringLiteral("MDIForm_PRG"));
  program.user.chooses(program.folder.file(QStringLiteral("negozio.dat")));
  QTest::keyClick(&cornice.window(), Qt::Key_N, Qt::ControlModifier);
  const auto pagina = [&](const char* tasto) {
    if (*tasto != '\0') cornice.click(QLatin1String(tasto));
    QTest::keyClick(&cornice.window(), Qt::Key_F1);
    auto* manuale = cornice.window().findChild<ManualViewer*>();
    if (manuale == nullptr) return QString();
    QString aperta = manuale->findChild<MarkdownView*>()->page();
    manuale->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &cornice.window(); }));
    return aperta;
  };
  EXPECT_EQ(pagina(""), QStringLiteral("configurazione.md"));
  EXPECT_EQ(pagina("Toolbar1_5"), QStringLiteral("configurazione-negozio.md"));
  EXPECT_EQ(pagina("Toolbar1_10"), QStringLiteral("configurazione-operatori.md"));
  EXPECT_EQ(pagina("Toolbar1_11"), QStringLiteral("configurazione-opzioni.md"));
  expectBoxes(program, {});
}

TEST(PagineDeiCampi, QuellaDelNegozioHaOgniTesto) {
  expectTuttiIn("configurazione-negozio.md", kNegozio);
}

TEST(PagineDeiCampi, QuellaDegliOperatoriHaOgniTesto) {
  expectTuttiIn("configurazione-operatori.md", kOperatori);
}

TEST(PagineDeiCampi, QuellaDelleOpzioniHaOgniTesto) {
  expectTuttiIn("configurazione-opzioni.md", kOpzioni);
}
