#include <QFileInfo>

#include "platform/store/connection.h"
#include "platform/store/copy_open.h"
#include "platform/store/journal.h"
#include "platform/store/open_connections.h"
#include "platform/store/store.h"
#include "platform/text/whole_file.h"

namespace store {

namespace {

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
    CopyInto(output, source);
  SettleLogs(real);
  output.settle();
  // The file that these stood on is no archive any more: a write through them would be lost.
  for (Connection* connection : open_connections::onFile(real)) connection->abandon();
}

}  // namespace store
