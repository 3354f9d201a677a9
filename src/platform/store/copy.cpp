#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QFileInfo>
#include <array>
#include <cerrno>

#include "platform/store/connection.h"
#include "platform/store/copy_open.h"
#include "platform/store/journal.h"
#include "platform/store/open_connections.h"
#include "platform/store/store.h"
#include "platform/text/temporary_file.h"

namespace store {

namespace {

constexpr std::size_t kBlock = 65536;

void copyBytes(const QString& source, TemporaryFile& output) {
  const FileDescriptor input(::open(source.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
  if (!input.valid()) throw errors::fromErrno(errno, source);
  std::array<char, kBlock> block{};
  for (;;) {
    const ssize_t read = ::read(input.number(), block.data(), block.size());
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) throw errors::fromErrno(errno, source);
    if (read == 0) return;
    output.write(block.data(), static_cast<std::size_t>(read));
  }
}

void checkSource(const QString& source) {
  const QFileInfo file(source);
  if (source.isEmpty() || !file.exists()) throw errors::fileMissing(source);
  if (!file.isFile() || !file.isReadable()) throw errors::pathAccess(source);
}

void refuseIfInUse(const QString& target) {
  for (const Connection* connection : open_connections::onFile(target))
    if (connection->inTransaction()) throw errors::accessDenied(target);
}

}  // namespace

void CopyArchive(const QString& source, const QString& target) {
  checkSource(source);
  const QString real = RealTarget(target);
  refuseIfInUse(real);
  const bool sourceOpen = !open_connections::onFile(source).empty();
  if (sourceOpen && QFileInfo(source).canonicalFilePath() == real) throw errors::accessDenied(target);
  TemporaryFile output(real);
  if (sourceOpen)
    CopyOpenArchive(source, output.path());
  else
    copyBytes(source, output);
  CloseJournal(real);
  output.settle();
  // The file that these stood on is no archive any more: a write through them would be lost.
  for (Connection* connection : open_connections::onFile(real)) connection->abandon();
}

}  // namespace store
