#include "platform/store/statement_shapes.h"

#include <gtest/gtest.h>

#include <QString>
#include <optional>
#include <random>

#include "platform/error.h"

namespace store {
namespace {

/// What a statement comes out as: its text and its values, or the number of its failure.
struct Lettura {
  std::string sql;
  std::vector<std::string> valori;
  int errore = 0;
  bool operator==(const Lettura&) const = default;
};

std::string valore(const Parameter& parametro) {
  switch (parametro.kind) {
    case Parameter::Kind::Integer:
      return std::to_string(parametro.integer) + " i";
    case Parameter::Kind::Real:
      return std::to_string(parametro.real) + " r";
    case Parameter::Kind::Text:
      break;
  }
  std::string testo(1, 't');
  return testo.append(parametro.text);
}

Lettura lettura(const Translation& traduzione) {
  Lettura risultato{traduzione.sql, {}, 0};
  for (const Parameter& parametro : traduzione.parameters) risultato.valori.push_back(valore(parametro));
  return risultato;
}

Dictionary dizionario() {
  Dictionary colonne;
  colonne.add("Codice_EAN");
  return colonne;
}

Lettura paroleParola(const std::string& sql) {
  try {
    Translation traduzione;
    Translate(sql, dizionario(), traduzione);
    return lettura(traduzione);
  } catch (const Errore& errore) {
    return {{}, {}, errore.numero};
  }
}

Lettura conForme(StatementShapes& forme, const std::string& sql) {
  try {
    return lettura(forme.translate(sql, dizionario()));
  } catch (const Errore& errore) {
    return {{}, {}, errore.numero};
  }
}

void confronta(const std::vector<std::string>& istruzioni) {
  StatementShapes forme;
  for (const std::string& sql : istruzioni) EXPECT_EQ(conForme(forme, sql), paroleParola(sql)) << sql;
}

TEST(Forme, IValoriNuoviPrendonoIlPostoDeiVecchi) {
  confronta({"UPDATE t SET a ='uno', b =1 WHERE c =2", "UPDATE t SET a ='due', b =30 WHERE c =400",
             "UPDATE t SET a ='', b =0 WHERE c =999999999999999999",
             "UPDATE t SET a ='uno', b =1 WHERE c =2"});
}

TEST(Forme, UnApostrofoRaddoppiatoOSpaiatoNonPassaPerUnAltroTesto) {
  confronta({"SELECT a from t where b ='uno' and c ='due'", "SELECT a from t where b ='un''o' and c ='due'",
             "SELECT a from t where b ='un'o' and c ='due'", "SELECT a from t where b ='uno' and c ='due",
             "SELECT a from t where b ='uno'' and c ='due'", "SELECT a from t where b ='' and c =''''"});
}

TEST(Forme, UnNumeroDAltraSpecieSiTraduceDaCapo) {
  confronta({"SELECT a from t where b =5", "SELECT a from t where b =5.5", "SELECT a from t where b =-5",
             "SELECT a from t where b =5e3", "SELECT a from t where b =5a", "SELECT a from t where b =",
             "SELECT a from t where b =99999999999999999999", "SELECT a from t where b =9223372036854775807",
             "SELECT a from t where b =5;", "SELECT a from t where b =5; x"});
}

TEST(Forme, ValoriCheDannoFormaAllaTraduzioneNonSiRicalcano) {
  confronta({"SELECT a from t where Codice_EAN like '80*'", "SELECT a from t where Codice_EAN like '*80'",
             "SELECT a from t where Codice_EAN like '81*'", "SELECT a from t where d =#01/02/2024#",
             "SELECT a from t where d =#03/04/2025#", "SELECT a from t order by 1",
             "SELECT a from t order by 2"});
}

TEST(Forme, VeroEFalsoRestanoAlLoroPosto) {
  confronta({"UPDATE t SET a =1, b = true, c ='x', d = false WHERE e =2",
             "UPDATE t SET a =7, b = true, c ='y', d = false WHERE e =3",
             "UPDATE t SET a =7, b = false, c ='y', d = false WHERE e =3"});
}

TEST(Forme, PiuDiciturePossonoAlternarsi) {
  std::vector<std::string> istruzioni;
  for (int i = 0; i < 40; ++i)
    istruzioni.push_back(QStringLiteral("SELECT a from t%1 where b =%2").arg(i % 6).arg(i).toStdString());
  confronta(istruzioni);
}

TEST(Forme, UnErroreNonLasciaUnoStampo) {
  StatementShapes forme;
  EXPECT_NE(conForme(forme, "SELECT a from t where b ='uno").errore, 0);
  EXPECT_NE(conForme(forme, "SELECT a from t where b ='due").errore, 0);
  EXPECT_EQ(conForme(forme, "SELECT a from t where b ='uno'"),
            paroleParola("SELECT a from t where b ='uno'"));
}

TEST(Forme, UnoZeroNelTestoERifiutatoAncheRicalcando) {
  std::string sql = "SELECT a from t where b ='uno'";
  StatementShapes forme;
  conForme(forme, sql);
  sql[sql.size() - 2] = '\0';
  EXPECT_EQ(conForme(forme, sql).errore, errors::kSyntax);
}

TEST(Forme, QualunqueRitoccoDaLaStessaTraduzioneDiUnaLetturaDaCapo) {
  const std::string base =
      "insert into v (D,i,t) select FORMAT(DATE(), 'yyyymmdd'),17,codice, 250 ,-3 from a where id=17 and n "
      "='x y'";
  const std::string pezzi = "'\"0159 .,;()=<>#*?[]-+aZ_è\n";
  std::mt19937 caso(7);
  StatementShapes forme;
  for (int giro = 0; giro < 20000; ++giro) {
    std::string sql = base;
    for (unsigned ritocchi = caso() % 4; ritocchi > 0; --ritocchi) {
      const std::size_t dove = caso() % sql.size();
      const char nuovo = pezzi[caso() % pezzi.size()];
      if (caso() % 2 == 0)
        sql.insert(dove, 1, nuovo);
      else
        sql[dove] = nuovo;
    }
    ASSERT_EQ(conForme(forme, sql), paroleParola(sql)) << sql;
  }
}

}  // namespace
}  // namespace store
