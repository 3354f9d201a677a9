#include "platform/error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <utility>

TEST(ErroreDiSistema, OgniNumeroHaIlSuo) {
  for (const auto& [sistema, previsto] : {std::pair{ENOSPC, 61},
                                          {EDQUOT, 61},
                                          {EFBIG, 61},
                                          {ENOENT, 76},
                                          {ENOTDIR, 76},
                                          {ETXTBSY, 70},
                                          {EBUSY, 70},
                                          {EACCES, 75},
                                          {EROFS, 75},
                                          {EIO, 75}})
    EXPECT_EQ(errors::fromErrno(sistema, QStringLiteral("iva.bin")).numero, previsto) << sistema;
}

TEST(ErroreDiFile, IlPercorsoStaDietroIlTestoSeCE) {
  EXPECT_EQ(errors::fileMissing(QStringLiteral("dati/iva.bin")).descrizione,
            QStringLiteral("File non trovato: dati/iva.bin"));
  EXPECT_EQ(errors::fileMissing().descrizione, QStringLiteral("File non trovato"));
  EXPECT_EQ(errors::fromErrno(ENOSPC, QStringLiteral("plu.bin")).descrizione,
            QStringLiteral("Disco pieno: plu.bin"));
}
