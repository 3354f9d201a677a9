#include "bench/bench.h"

#include <QCoreApplication>
#include <QDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "articles/article_database.h"
#include "bench/sqlite_base.h"
#include "core/state.h"
#include "platform/clock.h"
#include "platform/net/network.h"

namespace fs = std::filesystem;

Answer BenchUser::ShowBox(const QString& text, Icon icon, const QString&, Buttons, Preset) {
  if (icon == Icon::Critical) {
    std::fprintf(stderr, "the work failed: %s\n", qPrintable(text));
    std::exit(2);
  }
  return Answer::Ok;
}

std::optional<QString> BenchUser::AskOpenPath(const FileRequest&) {
  return toOpen_;
}
std::optional<QString> BenchUser::AskSavePath(const FileRequest&) {
  return toSave_;
}
void BenchUser::DoEvents() {
  QCoreApplication::processEvents();
}
void BenchUser::DoEventsAtRecord() {
  if (beat_.due()) DoEvents();
}

void BenchUser::Terminate() {
  std::fprintf(stderr, "the work ended the program\n");
  std::exit(2);
}

Bench::Bench(int slot)
    : library(QStringLiteral(GESTIONALE_APP)),
      contesto{
          user, workspace, library, systemNetwork(), screens, systemClock(), QStringLiteral(GESTIONALE_APP)},
      before_(QDir::currentPath()) {
  QDir::setCurrent(folder_.path());
  fs::copy_file(fs::path(GESTIONALE_APP) / "QzDB.bck", file("fresco.mdb"));
  if (slot > 5000) {
    base::Sqlite sqlite(file("fresco.mdb"));
    sqlite.run(("WITH RECURSIVE n(i) AS (SELECT 5001 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                std::to_string(slot) +
                ") INSERT INTO TAB_ARTICOLI SELECT i, i, '', '', '', 0, 1, '', 0, 0 FROM n")
                   .c_str());
  }
  renew();
}

Bench::~Bench() {
  close();
  QDir::setCurrent(before_);
}

void Bench::renew() {
  close();
  fs::copy_file(file("fresco.mdb"), archive(), fs::copy_options::overwrite_existing);
}

void Bench::reopen() {
  articles::ApriDatabase(QString::fromStdString(archive().string()), contesto);
}

void Bench::close() {
  articles::ChiudiDatabase();
}

fs::path Bench::archive() const {
  return file("archivio.mdb");
}

fs::path Bench::file(const std::string& name) const {
  return fs::path(folder_.path().toStdString()) / name;
}

double seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
