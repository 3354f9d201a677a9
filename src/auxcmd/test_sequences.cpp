#include "auxcmd/test_sequences.h"

#include <array>

namespace auxcmd {

namespace {

// The caption of option 8 speaks of code 4 and its sequence sells 10: technicians know the pair as it is.
constexpr std::array kVendita{
    Prova{1, u"Vendita a reparto con descrizione e importo programmato", u"1R"},
    Prova{2, u"Vendita a reparto con descrizione \"PROVA\" e importo programmato", u"\"PROVA\"8R"},
    Prova{3, u"Vendita a reparto con descrizione \"PROVA\" e importo 1,23 euro", u"\"PROVA\"123H7R"},
    Prova{4, u"Vendita a PLU con descrizione e importo programmato", u"8P"},
    Prova{5, u"Vendita a PLU con descrizione \"ART\" e importo programmato", u"\"ART\"8P"},
    Prova{6, u"Vendita a PLU con descrizione \"ART\" e importo 2,34 euro", u"\"ART\"234H4P"},
    Prova{7, u"Vendita di 10 pz. dell'articolo con codice 2", u"10*2P"},
    Prova{8, u"Vendita di 4,5 kg. dell'articolo con codice 4", u"4,5*10P"},
    Prova{9, u"Inizio di uno scontrino con l'evidenza in automatico della quantità venduta:", u"G100H1R"},
    Prova{10, u"Stampa e visualizzazione del subtotale di uno scontrino aperto", u"100H1R="},
    Prova{11, u"Stampa di un codice numerico a scontrino aperto", u"100H1R1234567890#"},
    Prova{12, u"Seleziona l'operatore", u"3O"},
    Prova{13, u"Stampa messaggio alfanumerico PROMOZIONE in uno scontrino di vendita",
          u"100H1R\"PROMOZIONE\"@"},
    Prova{14, u"Apertura/chiusura di uno scontrino non fiscale", u"j\"PROVA\"@J"},
};

constexpr std::array kModificatori{
    Prova{0, u"Storno di 1,00 euro sul reparto 2", u"0M100H2R"},
    Prova{1, u"Sconto del 10,00% sulla vendita di 2,00 euro sul reparto 2", u"200H2R10,00*1M"},
    Prova{2, u"Sconto del 5.25% sul subtotale della transazione", u"5,25*2M"},
    Prova{3, u"Sconto in ammontare di 0,50 euro sulla vendita di 2,50 euro sul reparto 3", u"250H3R50H3M"},
    Prova{4, u"Sconto in ammontare di 0,25 euro sul subtotale della transazione", u"25H4M"},
    Prova{5, u"Maggiorazione del 10,00% sulla vendita di 2,00 euro sul reparto 3", u"200H3R10,00*5M"},
    Prova{6, u"Maggiorazione del 10,00% sul subtotale della transazione", u"10,00*6M"},
    Prova{7, u"Maggiorazione  in ammontare di 0,40 euro sulla vendita di 1,23 euro sul reparto 4",
          u"123H4R40H7M"},
    Prova{8, u"Maggiorazione di 0,35 euro sul subtotale della transazione", u"35H8M"},
    Prova{9, u"Reso di 1,00 euro sul reparto 1", u"9M100H1R"},
    Prova{10, u"Versamento in cassa di 0,10 euro in contanti", u"10M10H1T"},
    Prova{11, u"Prelievo da cassa di un assegno di 0,20 euro", u"11M20H2T"},
    Prova{12, u"Chiusura di uno scontrino di 1,00 euro sul reparto 1", u"1,00H1R12M"},
};

constexpr std::array kPagamento{
    Prova{1, u"Chiusura di uno scontino con subtotale pari a 10,00 euro in contanti", u"1000H1T"},
    Prova{2, u"chiusura di uno scontino con subtotale pari a 10,00 euro con la forma di pagamento 2",
          u"1000H2T"},
    Prova{3, u"Chiusura di uno scontino con subtotale pari a quanto dovuto con la forma di pagamento 3",
          u"3T"},
    Prova{4, u"Chiusura di uno scontino con subtotale pari a 10,00 euro con la forma di pagamento 4",
          u"1000H4T"},
    Prova{5, u"Chiusura di uno scontino a credito con subtotale pari a quanto dovuto", u"5T"},
};

// Option 8 zeroes the financial report, as option 6 does, and not that of the operators: technicians know it
// so.
constexpr std::array kUtilita{
    Prova{1, u"Rapporto fiscale con ritorno del reg. di cassa in modalità vendita", u"z1Fc"},
    Prova{2, u"Rapporto di lettura giornaliero con ritorno del reg. di cassa in modalità vendita", u"x1Fc"},
    Prova{3, u"Rapporto di lettura dei reparti con ritorno del reg. di cassa in modalità vendita", u"x2Fc"},
    Prova{4, u"Rapporto dei reparti in azzeramento con ritorno del reg. di cassa in modalità vendita",
          u"z2Fc"},
    Prova{5, u"Rapporto finanziario in lettura con ritorno del reg. di cassa in modalità vendita", u"x3Fc"},
    Prova{6, u"Rapporto finanziario in azzeramento con ritorno del reg. di cassa in modalità vendita",
          u"z3Fc"},
    Prova{7, u"Rapporto operatori in lettura con ritorno del reg. di cassa in modalità vendita", u"x4Fc"},
    Prova{8, u"Rapporto operatori in azzeramento e ritorno ECR in modalità vendita", u"z3Fc"},
    Prova{
        9,
        u"Rapporto in azzeramento  reparto + rapporto  chiusura fiscale con ritorno ECR in modalità vendita",
        u"z5Fc"},
    Prova{10,
          u"Rapporto IVA in azzeramento seguito dal rapporto di chiusura fiscale con ritorno ECR in modalità "
          u"vendita",
          u"z6Fc"},
    Prova{11,
          u"rapporto in azzeramento  reparti + rapporti IVA  azzeramento e di chiusura fiscale con "
          u"ritornoECR in "
          u"modalità vendita",
          u"z7Fc"},
    Prova{12, u"Impostazione della p.i. 12345678903 prima della chiusura dello scontrino",
          u"\"12345678903\"@39F "},
    Prova{13, u"scontrino completo autocertificante",
          u"\"BNCLRA80A41F205K\"@39FG\"OCCHIALI DA VISTA\"12300H1R1T"},
};

constexpr BancoDiProva kBancoVendita{u"Form_TestVendita", u"Test comandi XON XOFF per la Vendita", kVendita,
                                     true};
constexpr BancoDiProva kBancoModificatori{u"Form_TestModificatori", u"Form Test Modificatori", kModificatori};
constexpr BancoDiProva kBancoPagamento{u"Form_TestPagamento", u"Test sulle forme di pagamento", kPagamento};
constexpr BancoDiProva kBancoUtilita{u"Form_TestUtilità", u"Test Utilità generali e rapporti", kUtilita};

}  // namespace

const BancoDiProva& ProveVendita() {
  return kBancoVendita;
}
const BancoDiProva& ProveModificatori() {
  return kBancoModificatori;
}
const BancoDiProva& ProvePagamento() {
  return kBancoPagamento;
}
const BancoDiProva& ProveUtilita() {
  return kBancoUtilita;
}

}  // namespace auxcmd
