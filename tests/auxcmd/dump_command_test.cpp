#include "auxcmd/dump_command.h"

#include <gtest/gtest.h>

#include "sostegno/program_fixture.h"

using auxcmd::Memoria;

TEST(ComandoDump, PerDateIlGiornaleE10FLaMemoriaFiscale12F) {
  EXPECT_EQ(auxcmd::comandoPerDate(Memoria::DGFE, QStringLiteral("000101991201")),
            QStringLiteral("X\"000101991201\"10F"));
  EXPECT_EQ(auxcmd::comandoPerDate(Memoria::MF, QStringLiteral("050101051231")),
            QStringLiteral("X\"050101051231\"12F"));
}

TEST(ComandoDump, PerNumeriIlGiornaleHaAncheLaDataDelloScontrino) {
  EXPECT_EQ(auxcmd::comandoPerNumeri(Memoria::DGFE, QStringLiteral("090315"), 1, 65536),
            QStringLiteral("X\"0903150000165536\"11F"));
}

TEST(ComandoDump, PerNumeriLaMemoriaFiscaleNonHaDataEISuoiNumeriHannoCinqueCifre) {
  EXPECT_EQ(auxcmd::comandoPerNumeri(Memoria::MF, QStringLiteral("090315"), 1, 65536),
            QStringLiteral("X\"0000165536\"13F"));
  EXPECT_EQ(auxcmd::comandoPerNumeri(Memoria::MF, {}, 7, 42), QStringLiteral("X\"0000700042\"13F"));
}

TEST(ComandoDump, IlTestoSiApreColProgrammaDellaPiattaforma) {
  ProgramFixture program;
  auxcmd::RunShellExecute(QStringLiteral("cartella/DGFE_03122009_091505.txt"), program.contesto);
#ifdef Q_OS_WIN
  EXPECT_EQ(program.user.programs(),
            QStringList(QStringLiteral("notepad.exe cartella/DGFE_03122009_091505.txt")));
#else
  EXPECT_EQ(program.user.programs(), QStringList(QStringLiteral("cartella/DGFE_03122009_091505.txt")));
#endif
}
