#include "editors/key_tables.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

#include "controls/FlexGrid.h"
#include "editors/keyboard_caller.h"
#include "editors/utf8_text.h"
#include "platform/error.h"

namespace {

/// The 72 values of each table, two digits a key.
const QByteArray kAttese[] = {
    QByteArray("0000f0ff18fdffffb08784818b8e888582808c8986838ac0e0c49190ffffffffffffffffffffffff"
               "ede8c6ffffa2a7a6ffa0ffffffffffffffffffffffffffffffffffffffffffff"),
    QByteArray("0000f0ff01fcffffedc4c68fb0a1e88cc18ea293898887a692868584ffffffffffffffffffffffff"
               "ff91838281a0908a808bffffffffffffffffffffffffffffffffffffffffffff"),
    QByteArray("8207000000fcffffa0ffa6a7a2a4edffffffffc3c1c090919293b5e5e08a8386898c8de880828588"
               "8fc6b18b8184878ec4b0ffffffffffffffffffffffffffffffffffffffffffff"),
    QByteArray("8207000000fcffffa0ffa6a1a2a4edffffffffc3c1c090919293b5e5e08a8386898c8de880828588"
               "8fc6b18b8184878ec4b0ffffffffffffffffffffffffffffffffffffffffffff"),
    QByteArray("10000200f0c0f0ffb0c4c0b1ffc6c3e8ed8dc1b5e0e5c2b28fff8c8e8784818b888582808986838a"
               "93929190ffffffff97969594a5a2ffffa4a1a6a0ffffffffffffffffffffffff"),
    QByteArray("20000a00000000f8b0b2c7b1e8ffc0c3eae0edc18db5e58f8cff8effc48784818bc588858280c689"
               "86838a949392919099989796959e9d9c9b9aaeadacab9fa2a1a6a0ff00000000"),
};

/// A keyboard layout of the test's own, with as many cells as it is told.
struct TastieraDiProva : ChiamanteTasti {
  TastieraDiProva(int righe, int colonne) {
    griglia.setRows(righe);
    griglia.setCols(colonne);
  }
  QString nome() const override { return t("Form_42Tasti"); }
  QLineEdit& Text1() override { return campo; }
  QAbstractButton& cmdTasto(int /*tasto*/) override { return tasto; }
  FlexGrid& MSFlexGrid() override { return griglia; }

  QLineEdit campo;
  QPushButton tasto;
  FlexGrid griglia;
};

}  // namespace

TEST(TabelleDeiTasti, OgnunaHaISuoi72Codici) {
  ASSERT_EQ(editors::array_cod_tastiera.size(), std::size(kAttese));
  for (std::size_t i = 0; i < std::size(kAttese); ++i) {
    const auto codici = editors::leggiCodici(editors::array_cod_tastiera[i]);
    ASSERT_TRUE(codici.has_value()) << i;
    const QByteArray letti(reinterpret_cast<const char*>(codici->data()),
                           static_cast<qsizetype>(codici->size()));
    EXPECT_EQ(letti.toHex(), kAttese[i]) << i;
  }
}

TEST(TabelleDeiTasti, IlTestoEFattoDiValoriESoleVirgole) {
  for (std::size_t i = 0; i < std::size(kAttese); ++i) {
    QStringList valori;
    for (qsizetype tasto = 0; tasto < kAttese[i].size(); tasto += 2)
      valori << t("&H") + QString::fromLatin1(kAttese[i].mid(tasto, 2)).toUpper();
    EXPECT_EQ(std::string(editors::array_cod_tastiera[i]), valori.join(u',').toStdString()) << i;
  }
}

TEST(TabelleDeiTasti, LaTerzaELaQuartaDiffonoNelSoloTasto11) {
  const auto terza = editors::leggiCodici(editors::array_cod_tastiera[2]);
  const auto quarta = editors::leggiCodici(editors::array_cod_tastiera[3]);
  ASSERT_TRUE(terza && quarta);
  for (std::size_t tasto = 0; tasto < 72; ++tasto)
    EXPECT_EQ((*terza)[tasto] == (*quarta)[tasto], tasto != 11) << tasto;
  EXPECT_EQ((*terza)[11], 0xA7);
  EXPECT_EQ((*quarta)[11], 0xA1);
}

TEST(TabelleDeiTasti, UnTestoGuastoNonSiLegge) {
  const std::string buona(editors::array_cod_tastiera[0]);
  ASSERT_TRUE(editors::leggiCodici(buona).has_value());
  EXPECT_FALSE(editors::leggiCodici("").has_value());
  EXPECT_FALSE(editors::leggiCodici(buona.substr(0, buona.size() - 5)).has_value()) << "71 values";
  EXPECT_FALSE(editors::leggiCodici(buona + ",&HFF").has_value()) << "73 values";
  EXPECT_FALSE(editors::leggiCodici(buona + ",").has_value());
  const auto con = [&](std::size_t dove, char carattere) {
    std::string guasta = buona;
    guasta[dove] = carattere;
    return editors::leggiCodici(guasta).has_value();
  };
  EXPECT_FALSE(con(0, '#'));
  EXPECT_FALSE(con(1, 'X'));
  EXPECT_FALSE(con(2, 'G'));
  EXPECT_FALSE(con(3, 'f'));
  EXPECT_FALSE(con(4, ';'));
  EXPECT_FALSE(con(buona.size() - 1, ' '));
}

TEST(CaricaTastiOpzione, OttoTastiPerRigaDallaTestataInGiu) {
  TastieraDiProva tastiera(9, 8);
  editors::CaricaTastiOpzione(tastiera, editors::array_cod_tastiera[5]);
  const auto riga = [&](int quale) {
    QStringList celle;
    for (int colonna = 0; colonna < 8; ++colonna) celle << tastiera.griglia.TextMatrix(quale, colonna);
    return celle.join(u' ');
  };
  EXPECT_EQ(riga(0), t("&H20 &H00 &H0A &H00 &H00 &H00 &H00 &HF8"));
  EXPECT_EQ(riga(1), t("&HB0 &HB2 &HC7 &HB1 &HE8 &HFF &HC0 &HC3"));
  EXPECT_EQ(riga(2), t("&HEA &HE0 &HED &HC1 &H8D &HB5 &HE5 &H8F"));
  EXPECT_EQ(riga(3), t("&H8C &HFF &H8E &HFF &HC4 &H87 &H84 &H81"));
  EXPECT_EQ(riga(4), t("&H8B &HC5 &H88 &H85 &H82 &H80 &HC6 &H89"));
  EXPECT_EQ(riga(5), t("&H86 &H83 &H8A &H94 &H93 &H92 &H91 &H90"));
  EXPECT_EQ(riga(6), t("&H99 &H98 &H97 &H96 &H95 &H9E &H9D &H9C"));
  EXPECT_EQ(riga(7), t("&H9B &H9A &HAE &HAD &HAC &HAB &H9F &HA2"));
  EXPECT_EQ(riga(8), t("&HA1 &HA6 &HA0 &HFF &H00 &H00 &H00 &H00"));
}

TEST(CaricaTastiOpzione, UnaGrigliaPiccolaPrendeLeCelleCheHa) {
  TastieraDiProva tastiera(2, 3);
  editors::CaricaTastiOpzione(tastiera, editors::array_cod_tastiera[4]);
  EXPECT_EQ(tastiera.griglia.Rows(), 2);
  EXPECT_EQ(tastiera.griglia.Cols(), 3);
  EXPECT_EQ(tastiera.griglia.TextMatrix(0, 2), t("&H02"));
  EXPECT_EQ(tastiera.griglia.TextMatrix(1, 2), t("&HC0"));
}

TEST(CaricaTastiOpzione, UnaTabellaCortaFallisceColNumero9ENonScriveNulla) {
  TastieraDiProva tastiera(9, 8);
  try {
    editors::CaricaTastiOpzione(tastiera, "&H01,&H02");
    FAIL() << "nothing was thrown";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 9);
  }
  EXPECT_EQ(tastiera.griglia.TextMatrix(0, 0), QString());
}
