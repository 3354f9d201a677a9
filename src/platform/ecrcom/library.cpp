#include "platform/ecrcom/library.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QLibrary>
#include <algorithm>
#include <cstring>

#include "platform/ecrcom/ecrcom.h"
#include "platform/ecrcom/side_thread.h"
#include "platform/error.h"

namespace {

#if defined(Q_OS_WIN)
constexpr QLatin1String kName("ecrcom.dll");
#elif defined(Q_OS_MACOS)
constexpr QLatin1String kName("libecrcom.dylib");
#else
constexpr QLatin1String kName("libecrcom.so");
#endif

/// Room behind every buffer: a library that writes a NUL, or a little more, past the length it was told
/// spoils nothing of ours.
constexpr qsizetype kMargin = 256;
constexpr qsizetype kDateTimeLength = 18;

/// A service entry of our own library, and what that waits for an answer unless the entry was used, which the
/// program never does.
constexpr const char* kServiceEntry = "ecr_set_timeout";
constexpr std::chrono::seconds kAnswerLimit{5};

/// Another one: whether a block is there, or comes within so many milliseconds.
constexpr const char* kReadyEntry = "ecr_ready_xonxoff_ntw";
using ReadyFunction = std::int32_t (*)(std::int32_t handle, std::int32_t milliseconds);
constexpr std::int32_t kLook = 1;
/// A line that says nothing for so long pauses, in milliseconds.
constexpr std::int32_t kPause = 2;
/// The most blocks of one crossing, and the longest that it goes on collecting.
constexpr qsizetype kMaxBlocks = 64;
constexpr std::chrono::milliseconds kCollecting{20};

/// A copy of a byte array that a foreign library may write to.
class WritableCopy {
 public:
  explicit WritableCopy(const QByteArray& byte)
      : length_(byte.size()), byte_(byte + QByteArray(kMargin, '\0')) {}
  char* data() { return byte_.data(); }
  std::int32_t length() const { return static_cast<std::int32_t>(length_); }
  /// What stands there up to a NUL, at most the first length.
  QByteArray text() const {
    return whole().left(static_cast<qsizetype>(qstrnlen(byte_.constData(), static_cast<size_t>(length_))));
  }
  QByteArray whole() const { return byte_.left(length_); }

 private:
  qsizetype length_;
  QByteArray byte_;
};

}  // namespace

QByteArrayView KeysBlocks::bytes(qsizetype which) const {
  return {room.constData() + which * kBlock, received[static_cast<std::size_t>(which)]};
}

QByteArray KeysBlocks::whole() const {
  return QByteArray::fromRawData(room.constData(), count() * kBlock);
}

struct EcrLibrary::Impl {
  QString folder;
  QLibrary library;
  SideThread side;

  void load() {
    if (library.isLoaded()) return;
    library.setFileName(QDir(folder).absoluteFilePath(kName));
    if (!library.load()) throw errors::fileMissing(kName);
  }

  /// Null in another maker's library.
  ReadyFunction ready() {
    load();
    return reinterpret_cast<ReadyFunction>(library.resolve(kReadyEntry));
  }

  template <typename Function>
  Function entryPoint(Function, const char* name) {
    load();
    if (const QFunctionPointer found = library.resolve(name)) return reinterpret_cast<Function>(found);
    throw Errore{errors::kEntryPointMissing, QStringLiteral("Impossibile trovare il punto di ingresso ") +
                                                 QLatin1String(name) + QStringLiteral(" in ") + kName};
  }
};

// The entry of the loaded library that bears the name and has the type of the one in ecrcom.h.
#define ENTRY(name) impl_->entryPoint(static_cast<decltype(&::name)>(nullptr), #name)

EcrLibrary::EcrLibrary(QString folder) : impl_(std::make_unique<Impl>()) {
  impl_->folder = std::move(folder);
}

EcrLibrary::~EcrLibrary() = default;

void EcrLibrary::Beside(const std::function<void()>& work) {
  impl_->side.run(work);
}

std::optional<std::chrono::seconds> EcrLibrary::AnswerLimit() {
  try {
    impl_->load();
  } catch (const Errore&) {
    return std::nullopt;
  }
  return impl_->library.resolve(kServiceEntry) ? std::optional(kAnswerLimit) : std::nullopt;
}

std::int16_t EcrLibrary::ecr_command(QByteArray& ip, QByteArray& file, int mode, QByteArray& buffer) {
  const auto function = ENTRY(ecr_command);
  WritableCopy ipCopy(ip);
  WritableCopy fileCopy(file);
  WritableCopy bufferCopy(buffer);
  std::int16_t code = 0;
  Beside(
      [&] { code = function(ipCopy.data(), fileCopy.data(), mode, bufferCopy.data(), bufferCopy.length()); });
  ip = ipCopy.text();
  file = fileCopy.text();
  buffer = bufferCopy.whole();
  return code;
}

QByteArray EcrLibrary::ecr_get_err(std::int16_t code, int length) {
  const auto function = ENTRY(ecr_get_err);
  WritableCopy copy(QByteArray(std::max(length, 0), ' '));
  function(code, copy.data());
  return copy.text();
}

std::int32_t EcrLibrary::ecr_conn_xonxoff_ntw(const QByteArray& ip) {
  const auto function = ENTRY(ecr_conn_xonxoff_ntw);
  WritableCopy copy(ip);
  std::int32_t handle = 0;
  Beside([&] { handle = function(copy.data()); });
  return handle;
}

std::int16_t EcrLibrary::ecr_disc_xonxoff_ntw(std::int32_t handle) {
  return ENTRY(ecr_disc_xonxoff_ntw)(handle);
}

std::int16_t EcrLibrary::ecr_send_xonxoff_ntw(std::int32_t handle, QByteArray& text) {
  const auto function = ENTRY(ecr_send_xonxoff_ntw);
  WritableCopy copy(text);
  std::int16_t code = 0;
  Beside([&] { code = function(handle, copy.data()); });
  text = copy.whole();
  return code;
}

std::int32_t EcrLibrary::ecr_recv_xonxoff_ntw(std::int32_t handle, QByteArray& buffer, int wait) {
  const auto function = ENTRY(ecr_recv_xonxoff_ntw);
  WritableCopy copy(buffer);
  std::int32_t received = 0;
  Beside([&] { received = function(handle, copy.data(), copy.length(), wait); });
  buffer = copy.whole();
  return std::min(received, copy.length());
}

KeysBlocks EcrLibrary::ReceiveBlocks(std::int32_t handle, int wait,
                                     const std::function<bool(QByteArrayView)>& last) {
  const auto function = ENTRY(ecr_recv_xonxoff_ntw);
  const ReadyFunction ready = impl_->ready();
  constexpr qsizetype kBlock = KeysBlocks::kBlock;
  KeysBlocks blocks;
  blocks.room = QByteArray(kMaxBlocks * kBlock + kMargin, Qt::Uninitialized);
  Beside([&] {
    const QDeadlineTimer collecting(kCollecting);
    do {
      // What a careless library wrote behind the block before is blanked with the rest.
      char* const block = blocks.room.data() + blocks.count() * kBlock;
      std::memset(block, ' ', kBlock);
      blocks.code = function(handle, block, kBlock, wait);
      if (blocks.failed()) return;
      blocks.received.push_back(std::min(blocks.code, std::int32_t{kBlock}));
      if (last(blocks.bytes(blocks.count() - 1))) return;
    } while (ready && blocks.count() < kMaxBlocks && !collecting.hasExpired() && ready(handle, kPause) != 0);
  });
  return blocks;
}

bool EcrLibrary::BlockWaits(std::int32_t handle) {
  const ReadyFunction ready = impl_->ready();
  return ready && ready(handle, kLook) != 0;
}

std::uint32_t EcrLibrary::ecr_date_decode(int day, int month, int year) {
  return ENTRY(ecr_date_decode)(day, month, year);
}

std::uint32_t EcrLibrary::ecr_dates_decode(int day, int month) {
  return ENTRY(ecr_dates_decode)(day, month);
}

std::uint32_t EcrLibrary::ecr_time_decode(int hours, int minutes, int seconds) {
  return ENTRY(ecr_time_decode)(hours, minutes, seconds);
}

QByteArray EcrLibrary::ecr_oro_encode(std::uint32_t value) {
  const auto function = ENTRY(ecr_oro_encode);
  WritableCopy copy(QByteArray(kDateTimeLength, '\0'));
  function(value, copy.data());
  return copy.text();
}

#undef ENTRY
