#include <gtest/gtest.h>

#include <QEvent>

#include "ecrlink/link_scene.h"

using namespace ecrlink;

namespace {

/// Everything that the link does to a screen, to the network, to the till and to the person, in the order in
/// which it comes.
class Racconto {
 public:
  explicit Racconto(ProgramFixture& scena) : scena_(scena) {
    scena.user.onBox = [this](const Box& riquadro) {
      annota(QStringLiteral("riquadro %1, a %2").arg(riquadro.text.left(kRiconoscibile), indirizzo()));
    };
  }
  ~Racconto() { scena_.user.onBox = nullptr; }
  Racconto(const Racconto&) = delete;
  Racconto& operator=(const Racconto&) = delete;

  void segui(TestTill& cassa) { cassa_ = &cassa; }
  /// The text without the till's address, which is another one in each run.
  QString senzaNumeri(QString testo) const {
    return cassa_ ? testo.replace(cassa_->address(), QStringLiteral("lei")) : testo;
  }
  /// Adds what network and till have seen since, and then the entry.
  void annota(const QString& cosa) {
    for (; passi_ < scena_.network.steps.size(); ++passi_)
      voci_ << scena_.network.steps[passi_].section(u' ', 0, 0);
    const QStringList chiamate = cassa_ ? callsOf(*cassa_) : QStringList();
    for (; chiamate_ < chiamate.size(); ++chiamate_) voci_ << QStringLiteral("cassa ") + chiamate[chiamate_];
    voci_ << cosa;
  }
  /// The story up to here, with the address in use; it begins anew.
  QStringList finoAQui() {
    annota(QStringLiteral("fine, a ") + indirizzo());
    scena_.takeBoxes();
    return std::exchange(voci_, {});
  }

 private:
  static constexpr qsizetype kRiconoscibile = 24;
  QString indirizzo() const {
    const QString& questo = commonForKora().IP_ECR;
    return questo.isEmpty() ? QStringLiteral("nessuno") : senzaNumeri(questo);
  }

  ProgramFixture& scena_;
  TestTill* cassa_ = nullptr;
  QStringList voci_;
  qsizetype passi_ = 0;
  qsizetype chiamate_ = 0;
};

/// A view with no widget behind it.
class VistaRaccontata : public VistaLink {
 public:
  explicit VistaRaccontata(Racconto& racconto) : racconto_(racconto) {}

  QString indirizzo() const override { return indirizzo_; }
  void scriviIndirizzo(const QString& indirizzo) override {
    indirizzo_ = indirizzo;
    racconto_.annota(QStringLiteral("indirizzo ") + indirizzo);
  }
  QStringList indirizziLocali() const override { return locali_; }
  void scriviIndirizziLocali(const QStringList& indirizzi) override {
    locali_ = indirizzi;
    racconto_.annota(QStringLiteral("locali ") + indirizzi.join(u' '));
  }
  void abilitaAvvia(bool abilitato) override { acceso(QStringLiteral("avvia"), abilitato); }
  void abilitaConnetti(bool abilitato) override {
    connetti_ = abilitato;
    acceso(QStringLiteral("connetti"), abilitato);
  }
  bool connettiAbilitato() const override { return connetti_; }
  void fuocoSuConnetti() override { racconto_.annota(QStringLiteral("fuoco su connetti")); }
  void fuocoSuEsci() override { racconto_.annota(QStringLiteral("fuoco su esci")); }
  void abilitaSchermo() override { racconto_.annota(QStringLiteral("schermo acceso")); }
  void mostraInfo(const EcrInfo& info) override {
    racconto_.annota(QStringLiteral("info di ") + info.InfoTipoMacchina);
    if (info.InfoTipoMacchina == QLatin1String("GUASTA")) throw Errore{438, QStringLiteral("casella")};
  }
  void mostraStato(const QString& parola, const QString& lettera) override {
    racconto_.annota(QStringLiteral("stato %1 %2").arg(lettera, parola));
  }
  void distingui(style::Badge distintivo) override {
    racconto_.annota(distintivo == style::Badge::Ready  ? QStringLiteral("pronta")
                     : distintivo == style::Badge::Busy ? QStringLiteral("occupata")
                                                        : QStringLiteral("ignota"));
  }
  void mostraPasso(const QString& passo) override {
    racconto_.annota(QStringLiteral("passo ") + racconto_.senzaNumeri(passo));
  }
  void togliPasso() override { racconto_.annota(QStringLiteral("passo tolto")); }
  void cassaRisponde(bool bene) override {
    racconto_.annota(bene ? QStringLiteral("risponde") : QStringLiteral("tace"));
  }

 private:
  void acceso(const QString& comando, bool abilitato) {
    racconto_.annota(comando + (abilitato ? QStringLiteral(" acceso") : QStringLiteral(" spento")));
  }

  Racconto& racconto_;
  QString indirizzo_;
  QStringList locali_;
  bool connetti_ = true;
};

struct OrdineConnessione : testing::Test {
  ProgramFixture scena;
  Racconto racconto{scena};
  VistaRaccontata vista{racconto};

  /// The story of a connection, the address aside.
  QStringList connetti(TestTill& cassa) {
    racconto.segui(cassa);
    return connetti(cassa.address());
  }
  QStringList connetti(const QString& indirizzo) {
    vista.scriviIndirizzo(indirizzo);
    racconto.finoAQui();
    ConnettiECR(vista, scena.contesto);
    return racconto.finoAQui();
  }
};

QStringList voci(std::initializer_list<const char*> queste) {
  QStringList tutte;
  for (const char* voce : queste) tutte << QString::fromUtf8(voce);
  return tutte;
}

/// A screen whose transfer a test writes, its commands followed.
class SchermoTrasferimento : public LinkScreen {
 public:
  SchermoTrasferimento(ProgramFixture& scena, Racconto& racconto)
      : LinkScreen(scena.contesto), scena_(scena), racconto_(racconto) {
    control("Cmd_Avvia").installEventFilter(this);
    control("Cmd_Esci").installEventFilter(this);
  }
  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    const auto* comando = qobject_cast<QWidget*>(oggetto);
    if (evento->type() == QEvent::EnabledChange)
      annota(comando->objectName() +
             (comando->isEnabled() ? QStringLiteral(" acceso") : QStringLiteral(" spento")));
    if (evento->type() == QEvent::FocusIn) annota(QStringLiteral("fuoco su ") + comando->objectName());
    return false;
  }
  using FinestraLink::abilita;
  using FinestraLink::avvia;

 private:
  void annota(const QString& cosa) {
    racconto_.annota(QStringLiteral("%1, livello %2").arg(cosa).arg(scena_.workspace.level()));
  }

  ProgramFixture& scena_;
  Racconto& racconto_;
};

struct OrdineFinestra : testing::Test {
  ProgramFixture scena;
  Racconto racconto{scena};
  TestTill cassa;
  SchermoTrasferimento* schermo = nullptr;

  OrdineFinestra() {
    scena.screens.registra(QStringLiteral("SchermoLink"), [this](Contesto&) {
      schermo = new SchermoTrasferimento(scena, racconto);
      return schermo;
    });
    scena.screens.mostra(QStringLiteral("SchermoLink"), scena.contesto);
    schermo->typeAddress(cassa.address());
    schermo->click("CmdInviaModECR");
    racconto.segui(cassa);
    racconto.finoAQui();
  }
  bool caricato() const { return scena.screens.trova(QStringLiteral("SchermoLink")) != nullptr; }
};

}  // namespace

TEST_F(OrdineConnessione, LAperturaSpegneLAvvioPrimaDiAprireLaRete) {
  InitRete(vista, scena.contesto);
  EXPECT_EQ(racconto.finoAQui(),
            voci({"indirizzo 192.168.0.20", "avvia spento", "connetti acceso", "avvia", "nome", "indirizzi",
                  "locali 10.1.2.3", "chiudi", "fine, a 192.168.0.20"}));
}

/// What a connection does up to the first call of the till, and then to its answer about itself.
QStringList finoAllInfo() {
  return voci({"ignota", "passo Connessione a lei … (fino a 5 s)", "eco", "passo tolto", "risponde",
               "connetti spento", "fuoco su esci", "passo Connessione a lei … (fino a 5 s)",
               "cassa 2:", "passo tolto", "risponde", "passo Lettura dello stato della cassa … (fino a 5 s)",
               "cassa 0:", "passo tolto"});
}

TEST_F(OrdineConnessione, ConnettiSiSpegneEIlFuocoVaAllUscitaPrimaDiOgniComandoAllaCassa) {
  TestTill cassa({.pattern = "VEGA"});
  EXPECT_EQ(connetti(cassa),
            finoAllInfo() + voci({"risponde", "info di VEGA", "stato I IDLE", "pronta", "avvia acceso",
                                  "fuoco su esci", "schermo acceso", "fine, a lei"}));
}

TEST_F(OrdineConnessione, UnIndirizzoErratoSiDicePrimaDiSpegnereLAvvioEDiToglierlo) {
  commonForKora().IP_ECR = QStringLiteral("127.9.9.9");
  EXPECT_EQ(
      connetti(QStringLiteral("10.0.0")),
      voci({"tace", "riquadro Attenzione l'indirizzo I, a 127.9.9.9", "avvia spento", "fine, a nessuno"}));
}

TEST_F(OrdineConnessione, LIndirizzoDelPCSiDicePrimaDiSpegnereLAvvioEDiToglierlo) {
  vista.scriviIndirizziLocali({QStringLiteral("127.9.9.9")});
  EXPECT_EQ(
      connetti(QStringLiteral("127.9.9.9")),
      voci({"tace", "riquadro Attenzione l'IP del disp, a 127.9.9.9", "avvia spento", "fine, a nessuno"}));
}

TEST_F(OrdineConnessione, ChiNonRispondeSiDicePrimaDiTogliereLIndirizzo) {
  EXPECT_EQ(connetti(QStringLiteral("300.0.0.1")),
            voci({"ignota", "passo Connessione a 300.0.0.1 … (fino a 5 s)", "eco", "passo tolto", "tace",
                  "riquadro Attenzione il dispositiv, a 300.0.0.1", "fine, a nessuno"}));
  scena.network.echoStatus = 11010;
  EXPECT_EQ(connetti(QStringLiteral("127.9.9.9")),
            voci({"ignota", "passo Connessione a 127.9.9.9 … (fino a 5 s)", "eco", "passo tolto", "tace",
                  "riquadro Attenzione il dispositiv, a 127.9.9.9", "fine, a nessuno"}));
}

TEST_F(OrdineConnessione, UnInfoFallitaRiaccendeConnettiEPoiLAvvio) {
  TestTill cassa({.faults = {{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}}});
  EXPECT_EQ(connetti(cassa),
            finoAllInfo() + voci({"tace", "riquadro Errore nella comunicazio, a lei", "connetti acceso",
                                  "avvia acceso", "fuoco su esci", "schermo acceso", "fine, a lei"}));
}

TEST_F(OrdineConnessione, NelloStatoSbagliatoSiDicePrimaDiRiaccendereConnettiEIlFuocoRestaAllUscita) {
  TestTill cassa({.state = 'V', .pattern = "VEGA"});
  EXPECT_EQ(connetti(cassa), finoAllInfo() + voci({"risponde", "info di VEGA", "stato V VENDITA", "occupata",
                                                   "riquadro Funzione non disponibile, a lei",
                                                   "connetti acceso", "fine, a nessuno"}));
}

TEST_F(OrdineConnessione, UnErroreImprevistoToglieLIndirizzoLoDiceERiaccendeConnettiColFuoco) {
  TestTill cassa({.pattern = "GUASTA"});
  EXPECT_EQ(
      connetti(cassa),
      finoAllInfo() + voci({"risponde", "info di GUASTA", "tace", "riquadro Errore 438 - casella, a nessuno",
                            "connetti acceso", "fuoco su connetti", "fine, a nessuno"}));
}

TEST(FuocoDopoLaConnessione, NelloStatoSbagliatoStaSullUscita) {
  ProgramFixture scena;
  LinkScreen schermo(scena.contesto);
  TestTill cassa({.state = 'L'});
  schermo.typeAddress(cassa.address());
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
  EXPECT_TRUE(schermo.hasFocus("Cmd_Esci"));
  EXPECT_TRUE(schermo.enabled("CmdInviaModECR"));
}

TEST_F(OrdineFinestra, LaTransazioneRimastaApertaSiConfermaPrimaDiRiaccendereLUscita) {
  schermo->avvia([&] {
    schermo->abilita(false, false);
    scena.workspace.BeginTrans();
    scena.contesto.utente.MsgBox(QStringLiteral("fatto"), Icon::None, {}, Buttons::Ok);
    return false;
  });
  EXPECT_EQ(racconto.finoAQui(),
            voci({"Cmd_Avvia spento, livello 0", "Cmd_Esci spento, livello 0", "riquadro fatto, a lei",
                  "Cmd_Esci acceso, livello 0", "fuoco su Cmd_Esci, livello 0", "fine, a lei"}));
  EXPECT_TRUE(caricato());
}

TEST_F(OrdineFinestra, UnErroreImprevistoSiDiceAUscitaSpentaEPoiLaRiaccende) {
  schermo->avvia([&]() -> bool {
    schermo->abilita(false, false);
    scena.workspace.BeginTrans();
    throw Errore{61, QStringLiteral("disco")};
  });
  EXPECT_EQ(racconto.finoAQui(),
            voci({"Cmd_Avvia spento, livello 0", "Cmd_Esci spento, livello 0",
                  "riquadro Error 61 (disco) in proc, a lei", "Cmd_Esci acceso, livello 0",
                  "fuoco su Cmd_Esci, livello 0", "fine, a lei"}));
  EXPECT_TRUE(caricato());
  EXPECT_FALSE(schermo->enabled("Cmd_Avvia"));
}

TEST_F(OrdineFinestra, LoSchermoSiScaricaSoloDopoLaConferma) {
  int livello = -1;
  QObject::connect(schermo, &QDialog::finished, [&] { livello = scena.workspace.level(); });
  schermo->avvia([&] {
    scena.workspace.BeginTrans();
    EXPECT_TRUE(caricato());
    return true;
  });
  EXPECT_FALSE(caricato());
  EXPECT_EQ(livello, 0);
}
