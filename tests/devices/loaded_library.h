#pragma once

#include <QByteArray>
#include <QString>

#include "ecrcom/ecrcom_service.h"

/// libecrcom.so of the application folder, as the program loads it, each entry by its name.
struct Library {
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// One command with a blank buffer of 256 characters, left in `reply`.
  int command(const QString& ip, int mode, const QByteArray& file = {});
  /// Message of a code.
  QByteArray message(int code) const;

  decltype(&::ecr_command) ecr_command;
  decltype(&::ecr_get_err) ecr_get_err;
  decltype(&::ecr_conn_xonxoff_ntw) ecr_conn_xonxoff_ntw;
  decltype(&::ecr_disc_xonxoff_ntw) ecr_disc_xonxoff_ntw;
  decltype(&::ecr_send_xonxoff_ntw) ecr_send_xonxoff_ntw;
  decltype(&::ecr_recv_xonxoff_ntw) ecr_recv_xonxoff_ntw;
  decltype(&::ecr_date_decode) ecr_date_decode;
  decltype(&::ecr_dates_decode) ecr_dates_decode;
  decltype(&::ecr_time_decode) ecr_time_decode;
  decltype(&::ecr_oro_encode) ecr_oro_encode;
  decltype(&::ecr_set_timeout) ecr_set_timeout;

  QByteArray reply;

 private:
  void* handle_;
};
