#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>

/// The communications library, loaded at its first call from the folder handed over, so that a maker's own
/// can stand in its place. Every call throws Errore 53 if the library, and 453 if one of its entries, is
/// missing. Byte arrays are writable buffers: the library may change what they hold, never their length.
class LibreriaEcr {
 public:
  /// `cartella` holds libecrcom.so (or the platform's name for it).
  explicit LibreriaEcr(QString cartella);
  ~LibreriaEcr();
  LibreriaEcr(const LibreriaEcr&) = delete;
  LibreriaEcr& operator=(const LibreriaEcr&) = delete;

  /// `ip` and `file` come back as the library left them, cut at their NUL; `buffer` keeps its length.
  std::int16_t ecr_command(QByteArray& ip, QByteArray& file, int modo, QByteArray& buffer);
  /// Message of a code, cut at its NUL. `lunghezza`: size of the buffer handed over, 81 or 80.
  QByteArray ecr_get_err(std::int16_t codice, int lunghezza = 81);
  std::int32_t ecr_conn_xonxoff_ntw(const QByteArray& ip);
  std::int16_t ecr_disc_xonxoff_ntw(std::int32_t maniglia);
  std::int16_t ecr_send_xonxoff_ntw(std::int32_t maniglia, QByteArray& testo);
  std::int32_t ecr_recv_xonxoff_ntw(std::int32_t maniglia, QByteArray& buffer, int attesa);
  std::uint32_t ecr_date_decode(int giorno, int mese, int anno);
  std::uint32_t ecr_dates_decode(int giorno, int mese);
  std::uint32_t ecr_time_decode(int ore, int minuti, int secondi);
  QByteArray ecr_oro_encode(std::uint32_t valore);

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};
