#include "editors/options_table.h"

#include <algorithm>
#include <array>

#include "config/general_options.h"
#include "config/image.h"
#include "core/conversions.h"
#include "core/key_filters.h"

namespace editors {

namespace {

namespace p = config::parametri;

config::Record parametri(std::size_t) {
  return config::immagineProgrammazione().record(config::kParametri, 0);
}
config::Record logo(std::size_t riga) {
  return config::immagineProgrammazione().record(config::kLogo, riga);
}

// Checks on leaving a field

constexpr double kPercentualeMassima = 99.99;
constexpr double kImportoMassimo = 99999.99;
constexpr int kShiftMassimo = 20;
constexpr int kLineeVuoteMassime = 30;
constexpr int kCorpoMinimo = 10;
constexpr int kCorpoMassimo = 99;
constexpr qsizetype kCaratteriPassword = 6;

/// A number with at most one comma, up to `massimo`.
QString verificaDecimale(const QString& testo, double massimo, const QString& oltre) {
  if (testo.count(u',') > 1) return QString::fromUtf16(kValoreNonNumerico);
  QString copia = testo;
  return TestoInValore(copia) > massimo ? oltre : QString();
}

QString verificaPercentuale(const QString& testo) {
  return verificaDecimale(testo, kPercentualeMassima,
                          QStringLiteral("Attenzione il valore Perc. Conto immesso > 99.99!!!"));
}

QString verificaPercentualeB(const QString& testo) {
  return verificaDecimale(testo, kPercentualeMassima,
                          QStringLiteral("Attenzione il valore Perc. Conto B immesso > 99.99!!!"));
}

QString verificaImporto(const QString& testo) {
  return verificaDecimale(testo, kImportoMassimo,
                          QStringLiteral("Attenzione il valore Max Importo immesso > 99999.99!!!"));
}

QString verificaShift(const QString& testo) {
  return Val(testo) > kShiftMassimo ? QStringLiteral("L'intervallo num shift di reparti (0-20)") : QString();
}

QString verificaLineeVuote(const QString& testo) {
  return Val(testo) > kLineeVuoteMassime
             ? QStringLiteral("L'intervallo ammesso per il numero di linee (0-30)")
             : QString();
}

QString verificaCorpo(const QString& testo) {
  const double linee = Val(testo);
  return linee < kCorpoMinimo || linee > kCorpoMassimo
             ? QStringLiteral("L'intervallo ammesso per il numero di linee per il body (10-99)")
             : QString();
}

QString verificaPassword(const QString& testo) {
  return testo.size() != kCaratteriPassword ? QString::fromUtf16(opzioni::kSeiCaratteri) : QString();
}

// Lists

constexpr std::array kApparati{u"NESSUNO",
                               u"XON/XOFF",
                               u"LETTORE-CF",
                               u"LETTORE-EAN",
                               u"MODEM",
                               u"STAMPANTE EPSON-TM295",
                               u"STAMPANTE Qz-RX40T",
                               u"STAMPANTE PAVO"};
constexpr std::array kVelocita{u"4800", u"9600", u"19200", u"38400"};
constexpr std::array kStampantiFatture{u"Nessuna", u"EPSON-TM295", u"LITE", u"PAVO"};
constexpr std::array kStampantiTavoli{u"Nessuna", u"EPSON-TM295", u"LITE"};
/// The printers among the devices, and none.
constexpr std::array<std::uint8_t, 4> kCodiciStampanti{0, 5, 6, 7};
constexpr std::array kModiAzzeramento{u"Disabilitato", u"Segnalazione", u"Automatico"};
constexpr std::array kTipiAzzeramento{u"azz. fiscale", u"azz. gio+rep", u"azz. gio+ iva"};
/// The till counts four steps and names none: from the slowest to the fastest.
constexpr std::array kVelocitaStampante{u"Bassa", u"Media", u"Alta", u"Massima"};

constexpr Dato siNo(const char* controllo, const char16_t* didascalia, const config::Campo& campo) {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::SiNo,
          .campo = campo,
          .record = parametri};
}

constexpr Dato lista(const char* controllo, const char16_t* didascalia, const config::Campo& campo,
                     Voci elementi) {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::Lista,
          .campo = campo,
          .record = parametri,
          .elementi = elementi};
}

constexpr Dato stampante(const char* controllo, const char16_t* didascalia, const config::Campo& campo,
                         Voci elementi) {
  Dato dato = lista(controllo, didascalia, campo, elementi);
  dato.genere = Genere::Codici;
  dato.codici = kCodiciStampanti;
  return dato;
}

constexpr Dato conVuota(Dato dato, const char16_t* vuota) {
  dato.vuota = vuota;
  return dato;
}

constexpr Dato decimale(const char* controllo, const char16_t* didascalia, const config::Campo& campo,
                        Verifica verifica, const char16_t* campione, const char16_t* suggerimento) {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::Centesimi,
          .campo = campo,
          .record = parametri,
          .tasti = kRegolaImporto,
          .verifica = verifica,
          .predefinito = u"0,00",
          .campione = campione,
          .suggerimento = suggerimento};
}

constexpr Dato intero(const char* controllo, const char16_t* didascalia, const config::Campo& campo,
                      Verifica verifica, const char16_t* predefinito, const char16_t* suggerimento,
                      const char16_t* nota = u"") {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::Numero,
          .campo = campo,
          .record = parametri,
          .tasti = Cifre,
          .verifica = verifica,
          .predefinito = predefinito,
          .campione = u"0000",
          .nota = nota,
          .suggerimento = suggerimento};
}

// Periferiche

constexpr std::array kDatiCOM1{
    lista(opzioni::kCOM1, u"Apparato", p::kApparatoCOM1, kApparati),
    lista("ComboVelCOM1", u"Velocità", p::kVelocitaCOM1, kVelocita),
    siNo("vkOptionButton_echoCOM1", u"echo", p::kEchoCOM1),
};
constexpr std::array kDatiCOM3{
    lista(opzioni::kCOM2, u"Apparato", p::kApparatoCOM3, kApparati),
    lista("ComboVelCOM2", u"Velocità", p::kVelocitaCOM3, kVelocita),
    siNo("vkOptionButton_echoCOM2", u"echo", p::kEchoCOM3),
};
constexpr std::array kDatiAusiliarie{
    stampante("ComboPrinterAUXFatture", u"Stampante per le fatture", p::kPrinterAuxFatture,
              kStampantiFatture),
    stampante(opzioni::kTavoli, u"Stampante per i tavoli", p::kPrinterAuxTavoli, kStampantiTavoli),
};
constexpr std::array kDatiFiscale{
    lista("Combo_velocita_stampante", u"Velocità stampante", p::kVelocitaStampante, kVelocitaStampante),
    siNo("vkOptionButtonTagl", u"Taglierina", p::kTaglierina),
    siNo("vkOptionButton_OpenCassetto", u"Apertura Cassetto", p::kAperturaCassetto),
};
constexpr std::array kDatiTM295{
    siNo("vkOptionButtonTM295_Intest_ESER", u"Stampa Intestazione esercente",
         p::kStampaIntestazioneEsercente),
    siNo("vkOptionButtonTM295_Intest_CLIE", u"Stampa Intestazione Cliente", p::kStampaIntestazioneCliente),
    intero("vkTextBox_nlinee_skip", u"Linee vuote", p::kLineeVuote, verificaLineeVuote, u"0",
           u"Righe vuote in testa al foglio, da 0 a 30"),
    intero("vkTextBox_nlinee_body", u"Num. linee", p::kLineeCorpo, verificaCorpo, u"10",
           u"Righe del corpo della fattura, da 10 a 99", u"intervallo [10....99]"),
};
constexpr std::array kDatiPAVO{
    siNo("vkOptionButtonMARK_PAVO", u"Abilitazione MARK", p::kMark),
    siNo("vkOptionButtonCUTTER_PAVO", u"Abilitazione CUTTER", p::kCutter),
};
constexpr std::array kRiquadriPeriferiche{
    Riquadro{.titolo = u"COM 1", .dati = kDatiCOM1, .affiancati = 2, .nominato = true},
    Riquadro{.titolo = u"COM 3", .dati = kDatiCOM3, .affiancati = 2, .nominato = true},
    Riquadro{.titolo = u"Stampante della cassa", .dati = kDatiFiscale, .affiancati = 2},
    Riquadro{
        .titolo = u"Stampanti ausiliarie", .dati = kDatiAusiliarie, .affiancati = 2, .secondaColonna = true},
    Riquadro{.titolo = u"Stampante EPSON-TM295", .dati = kDatiTM295, .affiancati = 2, .secondaColonna = true},
    Riquadro{.titolo = u"Stampante PAVO", .dati = kDatiPAVO, .affiancati = 2, .secondaColonna = true},
};

// Informazioni per Scontrino

constexpr std::array kDatiObblighi{
    siNo("vkOptionButtonObblOpe", u"Obbligo Operatore", p::kObbligoOperatore),
    siNo("vkOptionButtonObblSub", u"Obbligo Subtotale", p::kObbligoSubtotale),
    siNo("vkOptionButtonOperatorePerScontrino", u"Operatore per scontrino", p::kOperatorePerScontrino),
    siNo("vkOptionButtonCent", u"Vendita in Centesimi", p::kVenditaInCentesimi),
};
constexpr std::array kDatiStampati{
    siNo("vkOptionButtonQtUnit", u"Quantita' Unitaria", p::kQuantitaUnitaria),
    siNo("vkOptionButtonNumArt", u"Numero articoli", p::kNumeroArticoli),
    siNo("vkOptionButtonDatario", u"Datario", p::kDatario),
    siNo("vkOptionButtonInfoGest", u"Info gestionale", p::kInfoGestionale),
    siNo("vkOptionButtonTxFooter", u"Tx Footer", p::kTxFooter),
    siNo("vkOptionButtonDoppiaCopia", u"Abilitazione Doppia Copia", p::kDoppiaCopia),
    siNo("vkOptionButtonScoDiffAbil", u"Stampa Differita Scontrino", p::kStampaDifferita),
    siNo("vkOptionButton_fatt_mens_sintetica", u"Fattura mensile sintetica", p::kFatturaMensileSintetica),
};
constexpr std::array kDatiMaxImporto{
    decimale("vkTextBoxMaxImporto", u"Importo", p::kMassimoImporto, verificaImporto, u"000000000,00",
             u"Euro, da 0,00 a 99999,99"),
};

constexpr Dato tipoPercentuale(const char* controllo, const config::Campo& campo) {
  Dato dato = siNo(controllo, u"Tipo", campo);
  dato.si = u"Maggiorazione";
  dato.no = u"Sconto";
  return dato;
}

constexpr Dato descrizione(const char* controllo, const config::Campo& campo) {
  return {.controllo = controllo,
          .didascalia = u"Descrizione",
          .genere = Genere::Testo,
          .campo = campo,
          .record = parametri,
          .suggerimento = u"Fino a 24 caratteri, al posto di Sconto o Maggiorazione"};
}

constexpr const char16_t* kIntervalloPercentuale = u"Percentuale, da 0,00 a 99,99";
constexpr std::array kDatiPercA{
    tipoPercentuale("vkOptionButtonSconto", p::kTipoPercentualeA),
    decimale("vkTextBox_repsconto", u"Percent. Sconto", p::kPercentualeA, verificaPercentuale, u"00000000,00",
             kIntervalloPercentuale),
    siNo(opzioni::kAlternativoA, u"Testo alternativo", p::kTestoAlternativoA),
    descrizione(opzioni::kDescrizioneA, p::kDescrizionePercentualeA),
};
constexpr std::array kDatiPercB{
    tipoPercentuale("vkOptionButtonScontoB", p::kTipoPercentualeB),
    decimale("vkTextBox_repscontoB", u"Percent. Sconto", p::kPercentualeB, verificaPercentualeB,
             u"00000000,00", kIntervalloPercentuale),
    siNo(opzioni::kAlternativoB, u"Testo alternativo", p::kTestoAlternativoB),
    descrizione(opzioni::kDescrizioneB, p::kDescrizionePercentualeB),
};
constexpr std::array kRiquadriScontrino{
    Riquadro{.titolo = u"Vendita", .dati = kDatiObblighi, .affiancati = 2},
    Riquadro{.titolo = u"Max Importo in Vendita", .dati = kDatiMaxImporto, .nominato = true},
    Riquadro{.titolo = u"Percentuale A", .dati = kDatiPercA, .affiancati = 2, .nominato = true},
    Riquadro{.titolo = u"Che cosa si stampa", .dati = kDatiStampati, .affiancati = 2, .secondaColonna = true},
    Riquadro{.titolo = u"Percentuale B",
             .dati = kDatiPercB,
             .affiancati = 2,
             .secondaColonna = true,
             .nominato = true},
};

// Varie

constexpr std::array kDatiAzzeramento{
    siNo("vkOptionButtonAzzGest", u"Azzeramento gestionale", p::kAzzeramentoGestionale),
    conVuota(lista("ComboModAzz", u"Modo", p::kModoAzzeramento, kModiAzzeramento), u"mode azzeramento"),
    Dato{.controllo = opzioni::kTempo,
         .didascalia = u"Tempo Azzeramento",
         .genere = Genere::Ora,
         .campo = p::kTempoAzzeramento,
         .record = parametri,
         .tasti = Cifre,
         .campione = u"0000000",
         .nota = u"max 6 caratteri formato HHMMSS es. 122534",
         .suggerimento = u"Ora, minuti e secondi, da 000000 a 235959"},
    // The till starts anew from its first kind whenever its options are sent, so the screen shows no other.
    Dato{.controllo = "ComboTipoAzz",
         .didascalia = u"Tipo",
         .genere = Genere::Lista,
         .campo = p::kTipoAzzeramento,
         .record = parametri,
         .elementi = kTipiAzzeramento,
         .vuota = u"tipo azzeramento",
         .sempreLaPrima = true,
         .suggerimento = u"Si sceglie a ogni salvataggio: la schermata parte sempre dal primo"},
};
constexpr std::array kDatiPassword{
    Dato{.controllo = "vkTextBox_Password",
         .didascalia = u"Password",
         .genere = Genere::Testo,
         .campo = p::kPasswordCassa,
         .record = parametri,
         .verifica = verificaPassword,
         .campione = u"●●●●●●●●",
         .stretto = true,
         .mascherato = true,
         .nota = u"deve essere di 6 caratteri",
         .suggerimento = u"Per aprire e chiudere la cassa"},
};
constexpr std::array kDatiShift{
    intero("vkTextBoxNumdaShift", u"Valore", p::kRepartiDaShiftare, verificaShift, u"0",
           u"Quanti reparti stanno dietro il tasto SHIFT, da 0 a 20", u"valore compreso tra 0 e 40"),
};
constexpr std::array kDatiRevisione{
    Dato{.controllo = opzioni::kRevisione,
         .didascalia = u"Prossima revisione",
         .genere = Genere::Data,
         .campo = p::kDataRevisione,
         .record = parametri,
         .altre = {"Combo_MM_REV", "Combo_AA_REV"},
         .suggerimento = u"Giorno, mese e anno"},
};
constexpr std::array kDatiAvvisi{
    siNo("vkOptionButtonBeep", u"Abilitazione Beep ", p::kBeep),
    siNo("vkOptionButtonOraLegale", u"Abilitazione Ora Legale ", p::kOraLegale),
};
constexpr std::array kDatiSubtender{
    Dato{.controllo = "vkTextBox_Subtender",
         .didascalia = u"",
         .genere = Genere::Testo,
         .campo = p::kSubtender.campo(0),
         .record = parametri,
         .passo = p::kSubtender.primo.larghezza,
         .suggerimento = u"Fino a 10 caratteri, sul tasto e sullo scontrino"},
};
constexpr std::array kNomiSubtender{u"TICKET", u"SUBTENDER 2", u"SUBTENDER 3", u"SUBTENDER 4"};
constexpr std::array kRiquadriVarie{
    Riquadro{.titolo = u"Azzeramento", .dati = kDatiAzzeramento, .affiancati = 2},
    Riquadro{.titolo = u"Apertura e chiusura cassa", .dati = kDatiPassword},
    Riquadro{.titolo = u"Data revisione", .dati = kDatiRevisione},
    Riquadro{.titolo = u"Pagamenti",
             .dati = kDatiSubtender,
             .righe = p::kSubtender.quanti,
             .nomi = kNomiSubtender,
             .secondaColonna = true},
    Riquadro{
        .titolo = u"Num reparti da shiftare", .dati = kDatiShift, .secondaColonna = true, .nominato = true},
    Riquadro{.titolo = u"Avvisi e orologio", .dati = kDatiAvvisi, .affiancati = 2, .secondaColonna = true},
};

// Altre: the calendar of the graphics

constexpr std::array kDatiGrafica{
    Dato{.controllo = "vkOptionButton_Grafica",
         .didascalia = u"Stampa",
         .genere = Genere::SiNo,
         .campo = config::logo::kAbilitazione,
         .record = logo},
    Dato{.controllo = opzioni::kInizio,
         .didascalia = u"Data Inizio",
         .genere = Genere::Giorno,
         .campo = config::logo::kDataInizio,
         .record = logo,
         .altre = {"CmbMese"},
         .suggerimento = u"Giorno e mese, ogni anno"},
    Dato{.controllo = opzioni::kFine,
         .didascalia = u"Data Fine",
         .genere = Genere::Giorno,
         .campo = config::logo::kDataFine,
         .record = logo,
         .altre = {"CmbMeseFine"},
         .suggerimento = u"Giorno e mese, ogni anno"},
};
constexpr auto kNomiGrafica = [] {
  std::array<const char16_t*, config::logo::kRecord> nomi{};
  std::ranges::transform(config::logo::kVoci, nomi.begin(), &config::logo::Voce::nome);
  return nomi;
}();
constexpr std::array kRiquadriAltre{
    Riquadro{.titolo = u"Calendario della grafica",
             .dati = kDatiGrafica,
             .righe = config::logo::kRecord,
             .nomi = kNomiGrafica},
};

// Gestione TALLON

constexpr std::array kDatiGestioneTallon{siNo(opzioni::kTallon, u"Tallon", p::kGestioneTallon)};
constexpr std::array kDatiTallon{
    Dato{.controllo = "vkTextBox_Tallon",
         .didascalia = u"",
         .genere = Genere::Testo,
         .campo = p::kTallon.campo(0),
         .record = parametri,
         .passo = p::kTallon.primo.larghezza,
         .suggerimento = u"Fino a 14 caratteri"},
};
constexpr std::array kNomiTallon{u"TALLON %1"};
constexpr std::array kRiquadriTallon{
    Riquadro{.titolo = u"Gestione", .dati = kDatiGestioneTallon},
    Riquadro{.titolo = u"Testi",
             .dati = kDatiTallon,
             .righe = p::kTallon.quanti,
             .nomi = kNomiTallon,
             .nome = opzioni::kCorniceTallon},
};

constexpr std::array kPagine{
    Pagina{.titolo = u"Periferiche",
           .riquadri = kRiquadriPeriferiche,
           .salva = "vkCommand_SalvaPerif",
           .annulla = "vkCommand_AnnullaPerf"},
    Pagina{.titolo = u"Informazioni per Scontrino",
           .riquadri = kRiquadriScontrino,
           .salva = "Cmd_Modifica",
           .annulla = "Cmd_Reset"},
    Pagina{.titolo = u"Varie",
           .riquadri = kRiquadriVarie,
           .salva = "vkCommand_SalvaVarie",
           .annulla = "vkCommand_AnnullaVarie"},
    Pagina{.titolo = u"Altre", .riquadri = kRiquadriAltre, .salva = "vkCommand1", .annulla = "vkCommand2"},
    Pagina{.titolo = u"Gestione TALLON",
           .riquadri = kRiquadriTallon,
           .salva = "vkCommand5",
           .annulla = "vkCommand6"},
};

constexpr Modulo kModulo{.schermata = "Form_OpzioniGen",
                         .titolo = u"Opzioni Generali",
                         .riempimento = "RiempiOpzGen",
                         .pagine = kPagine,
                         .modificato = &VarGestionePRG::ModificaOpzioni,
                         .segno = Segno::Cornice};

}  // namespace

const Modulo& ModuloOpzioni() {
  return kModulo;
}

}  // namespace editors
