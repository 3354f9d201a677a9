#include "config/configuration_file.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "bench/bench.h"
#include "bench/comparison.h"

namespace {

const std::string kTemplate = GESTIONALE_APP "/QzPRG.bck";

/// A folder with a configuration of the template's in it.
struct Shop {
  QTemporaryDir folder;
  std::string file = folder.filePath(QStringLiteral("bar.dat")).toStdString();
  QString path = QString::fromStdString(file);
  BenchUser user;

  Shop() { std::filesystem::copy_file(kTemplate, file); }
};

std::string plainRead(const std::string& path) {
  std::string bytes(config::kByteFile, '\0');
  std::ifstream file(path, std::ios::binary);
  file.rdbuf()->pubsetbuf(nullptr, 0);
  if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
    throw std::runtime_error("not read: " + path);
  return bytes;
}

/// Under another name, on the disk, renamed, the folder on the disk.
void plainWrite(const std::string& path, const std::string& bytes) {
  const std::string beside = path + ".nuovo";
  const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  const bool written = ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  if (!written || ::fsync(file) != 0 || ::close(file) != 0) throw std::runtime_error("not written: " + path);
  std::filesystem::rename(beside, path);
  const int folder = ::open(std::filesystem::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  ::fsync(folder);
  ::close(folder);
}

void load_programma(benchmark::State& state) {
  Shop shop;
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      if (config::CaricaConfigurazione(shop.path, shop.user) != 0) state.SkipWithError("not loaded");
    }));
  }
}

void load_read(benchmark::State& state) {
  const Shop shop;
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] { benchmark::DoNotOptimize(plainRead(shop.file)); }));
  }
}

/// As after an evening at the screens: every department has changed.
void save_programma(benchmark::State& state) {
  Shop shop;
  config::CaricaConfigurazione(shop.path, shop.user);
  for (std::size_t i = 0; i < config::reparto::kRecord; ++i)
    scriviIntero(config::immagineProgrammazione().record(config::kReparto, i), config::reparto::kPrezzo, 120);
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      if (config::SalvaConfigurazione(shop.path, shop.user) != 0) state.SkipWithError("not saved");
    }));
  }
}

void save_write(benchmark::State& state) {
  const Shop shop;
  const std::string bytes(config::kByteFile, 'c');
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      plainWrite(shop.file + ".precedente", plainRead(shop.file));
      plainWrite(shop.file, bytes);
    }));
  }
}

constexpr int kRows = 5000;
constexpr int kRounds = 101;  // each of them short
const bool kKnown =
    comparison::registerFunction("configuration_load/programma", load_programma, {kRows}, kRounds) &&
    comparison::registerFunction("configuration_load/read", load_read, {kRows}, kRounds) &&
    comparison::registerFunction("configuration_save/programma", save_programma, {kRows}, kRounds) &&
    comparison::registerFunction("configuration_save/write", save_write, {kRows}, kRounds);

}  // namespace
