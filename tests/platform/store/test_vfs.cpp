#include "platform/store/test_vfs.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <utility>

namespace {

struct State {
  sqlite3_vfs* real = nullptr;
  sqlite3_vfs ours{};
  sqlite3_io_methods metodi{};
  int sincronizzazioni = 0;
  int operazioni = 0;
  int letture = 0;
  std::function<int(int)> fault;
  std::function<int(int)> readFault;
};
State& state() {
  static State only;
  return only;
}

/// The engine's file with the real one right behind it.
struct FileOfTry {
  sqlite3_file base;
};

sqlite3_file* real(sqlite3_file* file) {
  return static_cast<sqlite3_file*>(
      static_cast<void*>(static_cast<char*>(static_cast<void*>(file)) + sizeof(FileOfTry)));
}

int fault() {
  const int number = ++state().operazioni;
  return state().fault ? state().fault(number) : SQLITE_OK;
}

int close(sqlite3_file* f) {
  return real(f)->pMethods->xClose(real(f));
}
int read(sqlite3_file* f, void* p, int n, sqlite3_int64 where) {
  const int number = ++state().letture;
  const int outcome = state().readFault ? state().readFault(number) : SQLITE_OK;
  return outcome != SQLITE_OK ? outcome : real(f)->pMethods->xRead(real(f), p, n, where);
}
int write(sqlite3_file* f, const void* p, int n, sqlite3_int64 where) {
  const int outcome = fault();
  return outcome != SQLITE_OK ? outcome : real(f)->pMethods->xWrite(real(f), p, n, where);
}
int tronca(sqlite3_file* f, sqlite3_int64 n) {
  const int outcome = fault();
  return outcome != SQLITE_OK ? outcome : real(f)->pMethods->xTruncate(real(f), n);
}
int sync(sqlite3_file* f, int mode) {
  ++state().sincronizzazioni;
  const int outcome = fault();
  return outcome != SQLITE_OK ? outcome : real(f)->pMethods->xSync(real(f), mode);
}
int size(sqlite3_file* f, sqlite3_int64* n) {
  return real(f)->pMethods->xFileSize(real(f), n);
}
int block(sqlite3_file* f, int mode) {
  return real(f)->pMethods->xLock(real(f), mode);
}
int sblocca(sqlite3_file* f, int mode) {
  return real(f)->pMethods->xUnlock(real(f), mode);
}
int riservato(sqlite3_file* f, int* outcome) {
  return real(f)->pMethods->xCheckReservedLock(real(f), outcome);
}
int comanda(sqlite3_file* f, int what, void* p) {
  return real(f)->pMethods->xFileControl(real(f), what, p);
}
int settore(sqlite3_file* f) {
  return real(f)->pMethods->xSectorSize(real(f));
}
int dispositivo(sqlite3_file* f) {
  return real(f)->pMethods->xDeviceCharacteristics(real(f));
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int mode, int* avuto) {
  const int outcome = state().real->xOpen(state().real, name, real(file), mode, avuto);
  file->pMethods = outcome == SQLITE_OK ? &state().metodi : nullptr;
  return outcome;
}

sqlite3_io_methods metodi() {
  sqlite3_io_methods m{};
  m.iVersion = 1;
  m.xClose = close;
  m.xRead = read;
  m.xWrite = write;
  m.xTruncate = tronca;
  m.xSync = sync;
  m.xFileSize = size;
  m.xLock = block;
  m.xUnlock = sblocca;
  m.xCheckReservedLock = riservato;
  m.xFileControl = comanda;
  m.xSectorSize = settore;
  m.xDeviceCharacteristics = dispositivo;
  return m;
}

}  // namespace

VfsOfTry::VfsOfTry() {
  State& s = state();
  s.real = sqlite3_vfs_find(nullptr);
  s.metodi = metodi();
  s.ours = *s.real;
  s.ours.zName = "prova";
  s.ours.szOsFile = s.real->szOsFile + static_cast<int>(sizeof(FileOfTry));
  s.ours.xOpen = open;
  clear();
  EXPECT_EQ(sqlite3_vfs_register(&s.ours, 1), SQLITE_OK);
}

VfsOfTry::~VfsOfTry() {
  sqlite3_vfs_unregister(&state().ours);
  sqlite3_vfs_register(state().real, 1);
  state().fault = nullptr;
  state().readFault = nullptr;
}

int VfsOfTry::sincronizzazioni() const {
  return state().sincronizzazioni;
}
int VfsOfTry::operazioni() const {
  return state().operazioni;
}
void VfsOfTry::clear() {
  state().sincronizzazioni = state().operazioni = state().letture = 0;
}
void VfsOfTry::before(std::function<int(int)> fault) {
  state().fault = std::move(fault);
}

void VfsOfTry::beforeRead(std::function<int(int)> fault) {
  state().letture = 0;
  state().readFault = std::move(fault);
}
