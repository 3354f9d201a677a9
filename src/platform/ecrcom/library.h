#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Blocks of an answer to a key sequence as the library handed them over, in their order.
struct KeysBlocks {
  static constexpr qsizetype kBlock = 1024;

  qsizetype count() const { return static_cast<qsizetype>(received.size()); }
  /// What came in one of them.
  QByteArrayView bytes(qsizetype which) const;
  /// All of them whole, with the blanks behind what came. Not to outlive this.
  QByteArray whole() const;
  bool failed() const { return code <= 0; }

  QByteArray room;
  std::vector<std::int32_t> received;
  /// 0 or a code below if none came behind these; above where there may be more.
  std::int32_t code = 1;
};

/// The communications library, loaded at its first call from the folder handed over, so that a maker's own
/// can stand in its place. Every call throws Errore 53 if the library, and 453 if one of its entries, is
/// missing. Byte arrays are writable buffers: the library may change what they hold, never their length.
///
/// What may wait for the till runs in a thread of the library's own (`SideThread`): the windows go on
/// painting while it is silent, and a second call meanwhile is refused.
class EcrLibrary {
 public:
  /// `folder` holds libecrcom.so (or the platform's name for it).
  explicit EcrLibrary(QString folder);
  ~EcrLibrary();
  EcrLibrary(const EcrLibrary&) = delete;
  EcrLibrary& operator=(const EcrLibrary&) = delete;

  /// Runs other work that waits for a till, an echo say, in the library's thread and under its rules.
  void Beside(const std::function<void()>& work);
  /// How long a call waits for the till's answer. Nothing for another maker's library, or for none.
  std::optional<std::chrono::seconds> AnswerLimit();

  /// `ip` and `file` come back as the library left them, cut at their NUL; `buffer` keeps its length.
  std::int16_t ecr_command(QByteArray& ip, QByteArray& file, int mode, QByteArray& buffer);
  /// Message of a code, cut at its NUL. `length`: size of the buffer handed over, 81 or 80.
  QByteArray ecr_get_err(std::int16_t code, int length = 81);
  std::int32_t ecr_conn_xonxoff_ntw(const QByteArray& ip);
  std::int16_t ecr_disc_xonxoff_ntw(std::int32_t handle);
  std::int16_t ecr_send_xonxoff_ntw(std::int32_t handle, QByteArray& text);
  std::int32_t ecr_recv_xonxoff_ntw(std::int32_t handle, QByteArray& buffer, int wait);
  /// The same block after block, as long as they come without a pause, until `last` holds of one, one fails,
  /// or as many are there as a window may wait for: a long answer crosses to the library's thread and back
  /// once for many blocks. One at a time from another maker's library, which cannot be asked whether there is
  /// more. `last` is asked in the library's thread.
  KeysBlocks ReceiveBlocks(std::int32_t handle, int wait, const std::function<bool(QByteArrayView)>& last);
  /// Whether a block waits to be received, or a failure. Never for another maker's library.
  bool BlockWaits(std::int32_t handle);
  std::uint32_t ecr_date_decode(int day, int month, int year);
  std::uint32_t ecr_dates_decode(int day, int month);
  std::uint32_t ecr_time_decode(int hours, int minutes, int seconds);
  QByteArray ecr_oro_encode(std::uint32_t value);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};
