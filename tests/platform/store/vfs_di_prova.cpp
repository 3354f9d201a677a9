#include "platform/store/vfs_di_prova.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <utility>

namespace {

struct Stato {
  sqlite3_vfs* vero = nullptr;
  sqlite3_vfs nostro{};
  sqlite3_io_methods metodi{};
  int sincronizzazioni = 0;
  int operazioni = 0;
  std::function<int(int)> guasto;
};
Stato& stato() {
  static Stato unico;
  return unico;
}

/// The engine's file with the real one right behind it.
struct FileDiProva {
  sqlite3_file base;
};

sqlite3_file* vero(sqlite3_file* file) {
  return static_cast<sqlite3_file*>(
      static_cast<void*>(static_cast<char*>(static_cast<void*>(file)) + sizeof(FileDiProva)));
}

int guasto() {
  const int numero = ++stato().operazioni;
  return stato().guasto ? stato().guasto(numero) : SQLITE_OK;
}

int chiudi(sqlite3_file* f) {
  return vero(f)->pMethods->xClose(vero(f));
}
int leggi(sqlite3_file* f, void* p, int n, sqlite3_int64 dove) {
  return vero(f)->pMethods->xRead(vero(f), p, n, dove);
}
int scrivi(sqlite3_file* f, const void* p, int n, sqlite3_int64 dove) {
  const int esito = guasto();
  return esito != SQLITE_OK ? esito : vero(f)->pMethods->xWrite(vero(f), p, n, dove);
}
int tronca(sqlite3_file* f, sqlite3_int64 n) {
  const int esito = guasto();
  return esito != SQLITE_OK ? esito : vero(f)->pMethods->xTruncate(vero(f), n);
}
int sincronizza(sqlite3_file* f, int modo) {
  ++stato().sincronizzazioni;
  const int esito = guasto();
  return esito != SQLITE_OK ? esito : vero(f)->pMethods->xSync(vero(f), modo);
}
int misura(sqlite3_file* f, sqlite3_int64* n) {
  return vero(f)->pMethods->xFileSize(vero(f), n);
}
int blocca(sqlite3_file* f, int modo) {
  return vero(f)->pMethods->xLock(vero(f), modo);
}
int sblocca(sqlite3_file* f, int modo) {
  return vero(f)->pMethods->xUnlock(vero(f), modo);
}
int riservato(sqlite3_file* f, int* esito) {
  return vero(f)->pMethods->xCheckReservedLock(vero(f), esito);
}
int comanda(sqlite3_file* f, int cosa, void* p) {
  return vero(f)->pMethods->xFileControl(vero(f), cosa, p);
}
int settore(sqlite3_file* f) {
  return vero(f)->pMethods->xSectorSize(vero(f));
}
int dispositivo(sqlite3_file* f) {
  return vero(f)->pMethods->xDeviceCharacteristics(vero(f));
}

int apri(sqlite3_vfs*, const char* nome, sqlite3_file* file, int modo, int* avuto) {
  const int esito = stato().vero->xOpen(stato().vero, nome, vero(file), modo, avuto);
  file->pMethods = esito == SQLITE_OK ? &stato().metodi : nullptr;
  return esito;
}

sqlite3_io_methods metodi() {
  sqlite3_io_methods m{};
  m.iVersion = 1;
  m.xClose = chiudi;
  m.xRead = leggi;
  m.xWrite = scrivi;
  m.xTruncate = tronca;
  m.xSync = sincronizza;
  m.xFileSize = misura;
  m.xLock = blocca;
  m.xUnlock = sblocca;
  m.xCheckReservedLock = riservato;
  m.xFileControl = comanda;
  m.xSectorSize = settore;
  m.xDeviceCharacteristics = dispositivo;
  return m;
}

}  // namespace

VfsDiProva::VfsDiProva() {
  Stato& s = stato();
  s.vero = sqlite3_vfs_find(nullptr);
  s.metodi = metodi();
  s.nostro = *s.vero;
  s.nostro.zName = "prova";
  s.nostro.szOsFile = s.vero->szOsFile + static_cast<int>(sizeof(FileDiProva));
  s.nostro.xOpen = apri;
  azzera();
  EXPECT_EQ(sqlite3_vfs_register(&s.nostro, 1), SQLITE_OK);
}

VfsDiProva::~VfsDiProva() {
  sqlite3_vfs_unregister(&stato().nostro);
  sqlite3_vfs_register(stato().vero, 1);
  stato().guasto = nullptr;
}

int VfsDiProva::sincronizzazioni() const {
  return stato().sincronizzazioni;
}
int VfsDiProva::operazioni() const {
  return stato().operazioni;
}
void VfsDiProva::azzera() {
  stato().sincronizzazioni = stato().operazioni = 0;
}
void VfsDiProva::prima(std::function<int(int)> guasto) {
  stato().guasto = std::move(guasto);
}
